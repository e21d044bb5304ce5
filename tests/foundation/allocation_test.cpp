#include <ZelDt.h>

#include <gtest/gtest.h>

#include <cstddef>

// This program replaces the allocation functions of the whole process. Windows libraries call
// those of the runtime directly and sanitizers bring their own, so it is built only where the
// replacement takes effect.

namespace {

thread_local std::size_t allocations = 0;

} // namespace

// The C library's own functions under the names that it keeps for replacements like these.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

extern "C" void* malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
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

TEST(Allocations, OneForTheTextOfAValue)
{
    WarmUp();
    const AllocationCount count;
    const ZelDtString text("Stra\337e");
    EXPECT_EQ(count.Allocations(), 1U);
    const ZelDtString copy(text);
    EXPECT_EQ(count.Allocations(), 2U);
    const ZelDtString number(-2147483647);
    EXPECT_EQ(count.Allocations(), 3U);
    const ZelDtString joined = text + copy;
    EXPECT_EQ(count.Allocations(), 4U);
    const ZelDtString quoted = text.ConvToSQL();
    EXPECT_EQ(count.Allocations(), 5U);
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
    ZelDtString text("", 0, 20);
    const AllocationCount count;
    for (int i = 0; i < 10; ++i)
        text += "ab";
    EXPECT_EQ(text.GetLength(), 20);
    text = "short";
    text.Cut(2);
    text += 'c';
    EXPECT_EQ(count.Allocations(), 0U);
    EXPECT_STREQ(text, "shc");
    text = "123456789012345678901";
    EXPECT_EQ(count.Allocations(), 1U);
}
