/// The handlers of overflow and of inexact results.

#include "engine_testing.h"

#include <exception>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

/// What a handler throws in place of the library's own error.
struct OwnError {
    std::string why;
};

const void* g_error = nullptr; ///< the object of the last call
int g_calls = 0;

void NoteOverflow(RWDecimal96OverflowErr& error)
{
    g_error = &error;
    ++g_calls;
    EXPECT_STRNE(error.what(), "");
}

void ThrowOwnError(RWDecimal96OverflowErr& error)
{
    ++g_calls;
    throw OwnError{error.what()};
}

void NoteInexact(RWDecimal96InexactErr& error)
{
    g_error = &error;
    ++g_calls;
    EXPECT_STRNE(error.what(), "");
}

void ThrowInexact(RWDecimal96InexactErr& error)
{
    ++g_calls;
    throw OwnError{error.what()};
}

/// Every operation that overflows, each once.
const std::vector<RWDecimal96 (*)()> kOverflows = {
    [] { return RWDecimal96(kNines) + RWDecimal96(1); },
    [] { return RWDecimal96(1) - RWDecimal96("-9999999999999999999999999999"); },
    [] { return RWDecimal96(kNines) * RWDecimal96(2); },
    [] { return RWDecimal96(1) / RWDecimal96(0); },
    [] { return RWDecimal96(kNines) / RWDecimal96("0.1"); },
    [] { return RWDecimal96(1) % RWDecimal96("0.00"); },
    [] { return pow(RWDecimal96(10), 28); },
    [] { return pow(RWDecimal96(0), -1); },
    [] { return round(RWDecimal96(kNines), -1, RWDecimalBase::RoundNearest); },
    [] { return RWDecimal96::from(1e28); },
    [] { return RWDecimal96("10000000000000000000000000000"); },
    [] {
        return abs(RawDecimal(int96{INT32_MIN, 0, 0}, 0));
    },
};

/// The handlers in force before come back at the end of each test.
class Handlers : public ::testing::Test {
protected:
    Handlers()
        : m_overflow(RWDecimal96::setOverflowHandler(nullptr)),
          m_inexact(RWDecimal96::setInexactHandler(nullptr))
    {
        g_calls = 0;
        g_error = nullptr;
    }
    ~Handlers() override
    {
        RWDecimal96::setOverflowHandler(m_overflow);
        RWDecimal96::setInexactHandler(m_inexact);
    }

private:
    RWDecimal96OverflowHandler m_overflow;
    RWDecimal96InexactHandler m_inexact;
};

} // namespace

TEST_F(Handlers, AreReturnedWhenReplaced)
{
    EXPECT_EQ(RWDecimal96::setOverflowHandler(NoteOverflow), nullptr);
    EXPECT_EQ(RWDecimal96::setOverflowHandler(ThrowOwnError), &NoteOverflow);
    EXPECT_EQ(RWDecimal96::setOverflowHandler(ThrowOwnError), &ThrowOwnError);
    EXPECT_EQ(RWDecimal96::setOverflowHandler(nullptr), &ThrowOwnError);
    EXPECT_EQ(RWDecimal96::setOverflowHandler(nullptr), nullptr);

    EXPECT_EQ(RWDecimal96::setInexactHandler(NoteInexact), nullptr);
    EXPECT_EQ(RWDecimal96::setInexactHandler(ThrowInexact), &NoteInexact);
    EXPECT_EQ(RWDecimal96::setInexactHandler(nullptr), &ThrowInexact);
    EXPECT_EQ(g_calls, 0);
}

TEST_F(Handlers, AreNotNeeded)
{
    for (const auto overflow : kOverflows)
        EXPECT_THROW(overflow(), RWDecimal96OverflowErr);
    EXPECT_EQ(TextOf(RWDecimal96(1) / RWDecimal96(3)), Fraction(27, std::string(27, '3')));
}

TEST_F(Handlers, OfOverflowAreCalledOnceBeforeTheErrorIsThrown)
{
    RWDecimal96::setOverflowHandler(NoteOverflow);
    for (std::size_t i = 0; i < kOverflows.size(); ++i) {
        g_calls = 0;
        EXPECT_THROW(kOverflows[i](), RWDecimal96OverflowErr) << "operation " << i;
        EXPECT_EQ(g_calls, 1) << "operation " << i;
        EXPECT_NE(g_error, nullptr);
    }
}

TEST_F(Handlers, OfOverflowMayThrow)
{
    RWDecimal96::setOverflowHandler(ThrowOwnError);
    for (std::size_t i = 0; i < kOverflows.size(); ++i) {
        g_calls = 0;
        try {
            kOverflows[i]();
            ADD_FAILURE() << "operation " << i << " threw nothing";
        } catch (const OwnError& error) {
            EXPECT_NE(error.why, "") << "operation " << i;
        }
        EXPECT_EQ(g_calls, 1) << "operation " << i;
    }
}

TEST_F(Handlers, OfOverflowAreNotCalledForInexactResults)
{
    RWDecimal96::setOverflowHandler(NoteOverflow);
    EXPECT_FALSE((RWDecimal96(1) / RWDecimal96(3)).isNull());
    EXPECT_EQ(toInt(RWDecimal96(kNines), RWDecimalBase::RoundNearest), INT32_MAX);
    EXPECT_EQ(g_calls, 0);
}

TEST_F(Handlers, ErrorsAreExceptionsThatCanBeCopied)
{
    const RWDecimal96OverflowErr overflow("too large");
    const RWDecimal96OverflowErr overflowCopy(overflow);
    EXPECT_STREQ(overflowCopy.what(), "too large");
    const RWDecimal96InexactErr inexact("rounded");
    const RWDecimal96InexactErr inexactCopy(inexact);
    EXPECT_STREQ(inexactCopy.what(), "rounded");
    EXPECT_THROW(RWDecimal96(1) / RWDecimal96(0), std::exception);
}

TEST_F(Handlers, OfInexactResultsAreCalledExactlyWhenRounded)
{
    struct Row {
        RWDecimal96 (*operation)();
        int calls;
    };
    using RW = RWDecimal96;
    const Row rows[] = {
        {[] { return RW("1.1") + RW("2.22"); }, 0},
        {[] { return RW(kNines) + RW("0.4"); }, 1},
        {[] { return RW(kNines) + RW("0.0"); }, 0},
        {[] { return RW(kNines) - RW("0.4"); }, 1},
        {[] { return RW("1.5") * RW("1.5"); }, 0},
        {[] { return RW(kNines) * RW("0.11"); }, 1},
        {[] { return RW(1) / RW(8); }, 0},
        {[] { return RW(1) / RW(3); }, 1},
        {[] { return RW(7) % RW("0.3"); }, 0},
        {[] { return RW(1) % RW(Fraction(36, "7").c_str()); }, 1},
        // Rounding that was asked for gives what was asked for.
        {[] { return round(RW("2.5"), 0, RW::RoundNearest); }, 0},
        {[] { return round(RW("2.5"), 0, RW::RoundTowardZero); }, 0},
        {[] { return round(RW("2.0"), 0, RW::RoundAwayFromZero); }, 0},
        {[] { return round(RW("2.5"), 1, RW::RoundNearest); }, 0},
        {[] { return round(RW("149"), -2, RW::RoundNearest); }, 0},
        {[] { return RW::from(0.1); }, 0},
        {[] { return RW::from(1.5e-27); }, 1},
        {[] { return RW("1.50"); }, 0},
        {[] { return RW("9999999999999999999999999999.4"); }, 1},
        {[] { return pow(RW("1.5"), 3); }, 0},
        {[] { return pow(RW(3), -1); }, 1},
        {[] { return abs(RW("-1.5")); }, 0},
    };
    RWDecimal96::setInexactHandler(NoteInexact);
    for (const Row& row : rows) {
        g_calls = 0;
        const std::string result = TextOf(row.operation());
        EXPECT_EQ(g_calls, row.calls) << result;
    }
    EXPECT_NE(g_error, nullptr);
}

TEST_F(Handlers, OfInexactResultsMayThrow)
{
    RWDecimal96::setInexactHandler(ThrowInexact);
    EXPECT_THROW(RWDecimal96(1) / RWDecimal96(3), OwnError);
    EXPECT_EQ(g_calls, 1);
    EXPECT_NO_THROW(RWDecimal96(1) / RWDecimal96(8));
    EXPECT_EQ(g_calls, 1);
}

TEST_F(Handlers, OfInexactResultsAreNotCalledForOverflows)
{
    RWDecimal96::setInexactHandler(NoteInexact);
    for (std::size_t i = 0; i < kOverflows.size(); ++i)
        EXPECT_THROW(kOverflows[i](), RWDecimal96OverflowErr) << "operation " << i;
    EXPECT_EQ(g_calls, 0);
}

TEST_F(Handlers, OutliveTheGuardsOfSources)
{
    RWDecimal96::setOverflowHandler(NoteOverflow);
    {
        const RWDecimal96Init first;
        const RWDecimal96Init second;
    }
    EXPECT_THROW(RWDecimal96(1) / RWDecimal96(0), RWDecimal96OverflowErr);
    EXPECT_EQ(g_calls, 1);
    EXPECT_EQ(TextOf(RWDecimal96("1.5") * RWDecimal96(2)), "3.0");
}
