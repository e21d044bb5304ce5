#include "tests/foundation/loading_testing.h"

#include "platform/framework/framework.h"

#include <cstring>

// Loading when the framework does not take the library on. Only the system's loader on Windows asks
// a library whether it wants to be loaded.

namespace {

using namespace zeltest;

/// While it lives, AfxInitExtensionModule answers FALSE: the code in memory says so.
class RefusingFramework {
public:
    RefusingFramework()
    {
        std::memcpy(m_original, Code(), sizeof m_original);
        Write(kAnswerFalse);
    }
    ~RefusingFramework() { Write(m_original); }
    RefusingFramework(const RefusingFramework&) = delete;
    RefusingFramework& operator=(const RefusingFramework&) = delete;

private:
    using Bytes = unsigned char[3];

    static constexpr Bytes kAnswerFalse = {0x31, 0xC0, 0xC3}; // xor eax, eax; ret

    static void* Code() { return reinterpret_cast<void*>(&AfxInitExtensionModule); }

    static void Write(const Bytes& bytes)
    {
        DWORD protection = 0;
        ASSERT_TRUE(VirtualProtect(Code(), sizeof bytes, PAGE_EXECUTE_READWRITE, &protection));
        std::memcpy(Code(), bytes, sizeof bytes);
        ASSERT_TRUE(VirtualProtect(Code(), sizeof bytes, protection, &protection));
        FlushInstructionCache(GetCurrentProcess(), Code(), sizeof bytes);
    }

    Bytes m_original;
};

} // namespace

TEST(RefusedLoading, FailsAndLeavesNothingBehind)
{
    const std::vector<std::string> before = GeneralList();
    for (int i = 0; i < 3; ++i) {
        {
            const RefusingFramework framework;
            EXPECT_EQ(LoadModule(VALUE_LIBRARY), nullptr);
            EXPECT_EQ(LoadError(), "error " + std::to_string(ERROR_DLL_INIT_FAILED));
        }
        EXPECT_EQ(GeneralList(), before);
        ExpectNoLibraryClass();
        const LoadedLibrary library;
        EXPECT_NE(CreateValue("ZelDtLong"), nullptr);
    }
}
