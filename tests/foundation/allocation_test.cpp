#include <ZelDt.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

// This program replaces the allocation functions of the whole process. Windows libraries call
// those of the runtime directly and sanitizers bring their own, so it is built only where the
// replacement takes effect.

namespace {

thread_local std::size_t allocations = 0;

/// Allocations of this size and above fail.
thread_local std::size_t tooMuch = SIZE_MAX;

} // namespace

// The C library's own functions under the names that it keeps for replacements like these.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

extern "C" void* malloc(std::size_t size)
{
    ++allocations;
    return size < tooMuch ? __libc_malloc(size) : nullptr;
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    ++allocations;
    return size < tooMuch ? __libc_realloc(memory, size) : nullptr;
}

namespace {

/// Counts allocations on this thread since it was made.
class AllocationCount {
public:
    AllocationCount() : m_nBefore(allocations) {}
    std::size_t Allocations() const { return allocations - m_nBefore; }

private:
    std::size_t m_nBefore;
};

/// The length of a text for which the pool has no blocks.
constexpr int kLong = 100;

/// Fills the pools and whatever else allocates on first use.
void WarmUp()
{
    for (int i = 0; i < 3; ++i) {
        const ZelDtString text("warm");
        const ZelDtString empty;
        const ZelDtLong number(1);
    }
}

} // namespace

TEST(Allocations, AreCounted)
{
    const AllocationCount count;
    ::operator delete(::operator new(100));
    EXPECT_EQ(count.Allocations(), 1U);
}

TEST(Allocations, OneForTheLongTextOfAValue)
{
    WarmUp();
    const std::string bytes(kLong, '\337');
    const AllocationCount count;
    const ZelDtString text(bytes.c_str());
    EXPECT_EQ(count.Allocations(), 1U);
    const ZelDtString copy(text);
    EXPECT_EQ(count.Allocations(), 2U);
    const ZelDtString joined = text + copy;
    EXPECT_EQ(count.Allocations(), 3U);
    const ZelDtString quoted = text.ConvToSQL();
    EXPECT_EQ(count.Allocations(), 4U);
}

TEST(Allocations, NoneForShortTexts)
{
    WarmUp();
    const AllocationCount count;
    const ZelDtString text("Stra\337e");
    const ZelDtString copy(text);
    const ZelDtString number(-2147483647);
    const ZelDtString joined = text + copy;
    const ZelDtString quoted = text.ConvToSQL();
    EXPECT_STREQ(quoted, "\"Stra\337e\"");
    EXPECT_EQ(count.Allocations(), 0U);
}

TEST(Allocations, NoneForEmptyValuesAndNumbers)
{
    WarmUp();
    const AllocationCount count;
    const ZelDtString undefined;
    const ZelDtString empty("");
    const ZelDtString copy(empty);
    const ZelDtLong a(40);
    const ZelDtLong b = a + 2;
    EXPECT_EQ(b.GetValue(), 42);
    EXPECT_EQ(count.Allocations(), 0U);
}

TEST(Allocations, NoneWhileTheTextFitsItsRoom)
{
    WarmUp();
    ZelDtString text("", 0, kLong);
    const std::string longer(kLong + 1, '1');
    const AllocationCount count;
    for (int i = 0; i < kLong / 2; ++i)
        text += "ab";
    EXPECT_EQ(text.GetLength(), kLong);
    text = "short";
    text.Cut(2);
    text += 'c';
    EXPECT_EQ(count.Allocations(), 0U);
    EXPECT_STREQ(text, "shc");
    text = longer.c_str();
    EXPECT_EQ(count.Allocations(), 1U);
}

namespace {

constexpr int kMegabyte = 1 << 20;

/// Runs the body while a megabyte is not to be had, and checks the error: 1 under the name of the
/// operation, with the framework's memory exception as first cause.
void ExpectExhausted(const char* signature, const std::function<void()>& body)
{
    const std::size_t alive = ZelEhCountLiveErrors();
    tooMuch = kMegabyte;
    try {
        body();
        tooMuch = SIZE_MAX;
        ADD_FAILURE() << "no error";
    } catch (ZelDtExcep* e) {
        tooMuch = SIZE_MAX;
        EXPECT_EQ(e->GetErrorNo(), 1U);
        EXPECT_STREQ(e->GetClassText(), "ZelDtString");
        EXPECT_STREQ(e->GetSignature(), signature);
        const CException* const cause = e->GetFirstCause().GetCause();
        EXPECT_TRUE(cause != nullptr && cause->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        delete e;
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), alive);
}

void ExpectEmptyAndUsable(ZelDtString& text)
{
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_EQ(text.GetAllocLength(), 0);
    EXPECT_STREQ(text, "");
    text = "again";
    EXPECT_STREQ(text, "again");
}

} // namespace

TEST(ExhaustedMemory, LeavesAGrowingTextEmpty)
{
    ZelDtString filled("abc");
    ExpectExhausted("FillUp(TCHAR,INT,INT)",
                    [&] { filled.FillUp('x', 2 * kMegabyte, ZelDtString::kiRight); });
    ExpectEmptyAndUsable(filled);

    ZelDtString half("");
    half.FillUp('x', kMegabyte / 2 + 1, ZelDtString::kiRight);
    ZelDtString grown(half);
    ExpectExhausted("operator+=(ZelDtString&)", [&] { grown += half; });
    ExpectEmptyAndUsable(grown);

    ZelDtString inserted(half);
    ExpectExhausted("Insert(ZelDtString&,INT)", [&] { inserted.Insert(half, 1); });
    ExpectEmptyAndUsable(inserted);
}

TEST(ExhaustedMemory, LeavesTheOperandsOfAConcatenationAlone)
{
    ZelDtString half("");
    half.FillUp('x', kMegabyte / 2 + 1, ZelDtString::kiRight);
    ExpectExhausted("operator+(ZelDtString&)", [&] { half + half; });
    EXPECT_EQ(half.GetLength(), kMegabyte / 2 + 1);
}

TEST(ExhaustedMemory, MakesNoValue)
{
    ExpectExhausted("ZelDtString(LPCTSTR,INT,INT)", [] { ZelDtString("abc", 3, kMegabyte); });
}
