/// Rounding and truncating of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

/// What Round takes for a kind; callers may pass numbers that have no name.
ZelDtDecimal::Rundungsart Kind(int number)
{
    return static_cast<ZelDtDecimal::Rundungsart>(number);
}

/// Results of the kinds 0 to 4.
struct Row {
    const char* number;
    short position;
    const char* nearest;
    const char* up;
    const char* down;
    const char* away;
    const char* towardZero;
};

const Row kRows[] = {
    // to hundredths
    {"1.234", -2, "1.23", "1.24", "1.23", "1.24", "1.23"},
    {"1.235", -2, "1.24", "1.24", "1.23", "1.24", "1.23"},
    {"1.236", -2, "1.24", "1.24", "1.23", "1.24", "1.23"},
    {"-1.234", -2, "-1.23", "-1.23", "-1.24", "-1.24", "-1.23"},
    {"-1.235", -2, "-1.24", "-1.23", "-1.24", "-1.24", "-1.23"},
    {"-1.236", -2, "-1.24", "-1.23", "-1.24", "-1.24", "-1.23"},
    {"1.230", -2, "1.23", "1.23", "1.23", "1.23", "1.23"},
    {"1.2349999999999999999999999", -2, "1.23", "1.24", "1.23", "1.24", "1.23"},
    {"1.2350000000000000000000001", -2, "1.24", "1.24", "1.23", "1.24", "1.23"},
    {"1.995", -2, "2.00", "2.00", "1.99", "2.00", "1.99"},
    {"0.004", -2, "0.00", "0.01", "0.00", "0.01", "0.00"},
    {"-0.004", -2, "0.00", "0.00", "-0.01", "-0.01", "0.00"},
    {"0.000", -2, "0.00", "0.00", "0.00", "0.00", "0.00"},
    // to tenths
    {"1.25", -1, "1.3", "1.3", "1.2", "1.3", "1.2"},
    {"-1.25", -1, "-1.3", "-1.2", "-1.3", "-1.3", "-1.2"},
    {"1.15", -1, "1.2", "1.2", "1.1", "1.2", "1.1"},
    {"9.96", -1, "10.0", "10.0", "9.9", "10.0", "9.9"},
    // to whole units
    {"0.5", 0, "1", "1", "0", "1", "0"},
    {"-0.5", 0, "-1", "0", "-1", "-1", "0"},
    {"1.5", 0, "2", "2", "1", "2", "1"},
    {"2.5", 0, "3", "3", "2", "3", "2"},
    {"-2.5", 0, "-3", "-2", "-3", "-3", "-2"},
    {"2.4999", 0, "2", "3", "2", "3", "2"},
    {"2.0", 0, "2", "2", "2", "2", "2"},
    {kTiny, 0, "0", "1", "0", "1", "0"},
    {"999999999999999999999999999.9", 0, "1000000000000000000000000000",
     "1000000000000000000000000000", "999999999999999999999999999", "1000000000000000000000000000",
     "999999999999999999999999999"},
    // to tens and more
    {"14", 1, "10", "20", "10", "20", "10"},
    {"15", 1, "20", "20", "10", "20", "10"},
    {"-15", 1, "-20", "-10", "-20", "-20", "-10"},
    {"10", 1, "10", "10", "10", "10", "10"},
    {"0", 1, "0", "0", "0", "0", "0"},
    {"1234.56", 2, "1200", "1300", "1200", "1300", "1200"},
    {"1250", 2, "1300", "1300", "1200", "1300", "1200"},
    {"-1250", 2, "-1300", "-1200", "-1300", "-1300", "-1200"},
    {"49", 2, "0", "100", "0", "100", "0"},
    {"50", 2, "100", "100", "0", "100", "0"},
    {"7", 27, "0", "1000000000000000000000000000", "0", "1000000000000000000000000000", "0"},
    // positive numbers with as many places as texts may have
    {"0.000000001234567890123456789012345678", -35, "0.00000000123456789012345678901234568",
     "0.00000000123456789012345678901234568", "0.00000000123456789012345678901234567",
     "0.00000000123456789012345678901234568", "0.00000000123456789012345678901234567"},
    {"0.000000001234567890123456789012345678", -30, "0.000000001234567890123456789012",
     "0.000000001234567890123456789013", "0.000000001234567890123456789012",
     "0.000000001234567890123456789013", "0.000000001234567890123456789012"},
    {"0.000000001234567890123456789012345678", -27, "0.000000001234567890123456789",
     "0.000000001234567890123456790", "0.000000001234567890123456789",
     "0.000000001234567890123456790", "0.000000001234567890123456789"},
    {"0.00000000000000000000000000000005", -31, "0.0000000000000000000000000000001",
     "0.0000000000000000000000000000001", "0.0000000000000000000000000000000",
     "0.0000000000000000000000000000001", "0.0000000000000000000000000000000"},
    // at the last place
    {"0.000000000000000000000000015", -26, "0.00000000000000000000000002",
     "0.00000000000000000000000002", "0.00000000000000000000000001", "0.00000000000000000000000002",
     "0.00000000000000000000000001"},
};

TEST(Rounding, OfEveryKind)
{
    for (const Row& row : kRows) {
        const char* const results[] = {row.nearest, row.up, row.down, row.away, row.towardZero};
        for (int kind = 0; kind <= 4; ++kind) {
            for (const int modified : {0, 1}) {
                for (const ZelDtWorkingMode mode : kRealModes) {
                    GivenDecimal given(Number{{mode, 1, modified}, row.number});
                    EXPECT_EQ(&given.it.Round(row.position, Kind(kind)), &given.it);
                    EXPECT_EQ(Look(given.it), (Number{{mode, 1, 1}, results[kind]}))
                        << row.number << " to " << row.position << ", kind " << kind;
                }
            }
        }
    }
}

TEST(Rounding, OfUnknownKindsIsToTheNearest)
{
    for (const Row& row : kRows) {
        for (const int kind : {6, 7, 100, -1, 1000000, -1000000}) {
            ZelDtDecimal value(row.number);
            value.Round(row.position, Kind(kind));
            EXPECT_EQ(NumberOf(value), row.nearest) << row.number << ", kind " << kind;
        }
    }
}

TEST(Rounding, WithoutDigitsToDropDoesNothing)
{
    const struct {
        const char* number;
        short position;
    } rows[] = {
        {"1.2", -2},  {"1.2", -1},   {"1.20", -2},    {"1", 0},        {"1", -1},
        {"0.00", -2}, {"0", 0},      {"1.5", -27},    {"1.5", -32767}, {"1.5", -32768},
        {kTiny, -27}, {kLargest, 0}, {kSmallest, -1},
    };
    for (const auto& row : rows) {
        for (int kind = 0; kind <= 6; ++kind) {
            for (const State& state : AllStates()) {
                const Number number{state, row.number};
                GivenDecimal given(number);
                given.it.Round(row.position, Kind(kind));
                EXPECT_EQ(Look(given.it), number) << "to " << row.position << ", kind " << kind;
            }
        }
    }
}

TEST(Rounding, OfUndefinedValuesDoesNothing)
{
    for (const Number& number : Numbers({"0", "1.234", kLargest})) {
        if (number.state.defined)
            continue;
        for (int kind = 0; kind <= 6; ++kind) {
            for (const short position : {-2, 0, 1, 28, 32767}) {
                GivenDecimal given(number);
                given.it.Round(position, Kind(kind));
                EXPECT_EQ(Look(given.it), number) << "to " << position << ", kind " << kind;
            }
        }
    }
}

TEST(Rounding, MarksEvenWhenTheNumberStays)
{
    ZelDtDecimal value("2.00");
    value.Round(0, ZelDtDecimal::RundungKaufmaennisch);
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, "2"}));
}

TEST(Rounding, CanBeChained)
{
    ZelDtDecimal value("1.2345");
    value.Round(-3, Kind(0)).Round(-2, Kind(0)).Truncate(1);
    EXPECT_EQ(NumberOf(value), "1.2");
}

TEST(Rounding, BeyondTheDigitsIsZeroOrTooLarge)
{
    for (const short position : {28, 29, 100, 30000, 32767}) {
        for (const char* number : {"7", "-7.5", kSmallest, kTiny}) {
            SCOPED_TRACE(::testing::Message() << number << " to " << position);
            const bool negative = number[0] == '-';
            for (int kind = 0; kind <= 4; ++kind) {
                const bool away = kind == 3 || kind == (negative ? 2 : 1) ||
                                  (kind == 0 && position == 28 && number == kSmallest);
                ZelDtDecimal value(number);
                if (away) {
                    EXPECT_TRUE(FailsLike([&] { value.Round(position, Kind(kind)); },
                                          MemberError(1, ""), "Round(", OverflowError()))
                        << "kind " << kind;
                    EXPECT_EQ(Look(value), Defined(number));
                } else {
                    value.Round(position, Kind(kind));
                    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, "0"}))
                        << "kind " << kind;
                }
            }
        }
    }
    ZelDtDecimal zero("0.0");
    zero.Round(32767, Kind(3));
    EXPECT_EQ(Look(zero), (Number{{ZelDtWmMissing, 1, 1}, "0"}));
}

TEST(Rounding, ThatBecomesTooLongIsAnError)
{
    ZelDtDecimal value(kLargest);
    EXPECT_TRUE(
        FailsLike([&] { value.Round(1, Kind(0)); }, MemberError(1, ""), "Round(", OverflowError()));
    EXPECT_EQ(Look(value), Defined(kLargest));
    value.Round(1, Kind(4));
    EXPECT_EQ(NumberOf(value), "9999999999999999999999999990");
}

// Steps of 0.05

TEST(RoundingToFives, FollowsItsSteps)
{
    const struct {
        const char* number;
        short position;
        const char* result;
    } rows[] = {
        // what exceeds a multiple of 0.1 is taken off, 0.05 given back if more than that is missing
        {"1.00", -1, "1.00"},
        {"1.01", -1, "1.00"},
        {"1.04", -1, "1.00"},
        {"1.05", -1, "1.00"},
        {"1.051", -1, "1.050"},
        {"1.06", -1, "1.05"},
        {"1.07", -1, "1.05"},
        {"1.09", -1, "1.05"},
        {"1.0500000000000000000000001", -1, "1.0500000000000000000000000"},
        {"0.03", -1, "0.00"},
        {"0.05", -1, "0.00"},
        {"0.07", -1, "0.05"},
        {"0.00", -1, "0.00"},
        {"123.446", -1, "123.400"},
        {"123.466", -1, "123.450"},
        // the position only tells whether there is something to drop
        {"1.07", 0, "1.05"},
        {"1.07", 2, "1.05"},
        {"1.7", 0, "1.7"},
        {"1.078", -2, "1.050"},
        {"17", 1, "17.0"},
        // what is negative then loses a further 0.1
        {"-1.00", -1, "-1.05"},
        {"-1.01", -1, "-1.05"},
        {"-1.02", -1, "-1.05"},
        {"-1.04", -1, "-1.05"},
        {"-1.05", -1, "-1.10"},
        {"-1.051", -1, "-1.100"},
        {"-1.07", -1, "-1.10"},
        {"-1.09", -1, "-1.10"},
        {"-0.10", -1, "-0.15"},
        {"-17", 1, "-17.05"},
        // what is zero then does not
        {"-0.03", -1, "0.00"},
        {"-0.05", -1, "0.00"},
        {"-0.07", -1, "-0.05"},
        {"-0.09", -1, "-0.05"},
    };
    for (const auto& row : rows) {
        for (const int modified : {0, 1}) {
            for (const ZelDtWorkingMode mode : kRealModes) {
                GivenDecimal given(Number{{mode, 1, modified}, row.number});
                given.it.Round(row.position, ZelDtDecimal::RundungFuenfer);
                EXPECT_EQ(Look(given.it), (Number{{mode, 1, 1}, row.result})) << row.number;
            }
        }
    }
}

TEST(RoundingToFives, DoesNotDependOnTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        ZelDtDecimal value("-1.07");
        value.Round(-1, ZelDtDecimal::RundungFuenfer);
        EXPECT_EQ(NumberOf(value), "-1.10");
    }
}

// Truncation

TEST(Truncation, DropsDecimalsTowardZero)
{
    const struct {
        const char* number;
        unsigned short places;
        const char* result;
    } rows[] = {
        {"1.239", 2, "1.23"},
        {"-1.239", 2, "-1.23"},
        {"1.999", 0, "1"},
        {"-1.999", 0, "-1"},
        {"-0.9", 0, "0"},
        {"0.000", 1, "0.0"},
        {"1.5", 27, "1.5"}, // places are never added
        {"1.5", 2, "1.5"},
        {"7", 1, "7"},
        {"7", 28, "7"},
        {"1.5", 32767, "1.5"},
        {"1.5", 32768, "1.5"},
        {"1.5", 65535, "1.5"},
        {kTiny, 26, "0.00000000000000000000000000"},
        {"9.999999999999999999999999999", 0, "9"},
        {kLargest, 5, kLargest},
        // of a number with as many places as texts may have
        {"0.000000001234567890123456789012345678", 65535, "0.000000001234567890123456789012345678"},
        {"0.000000001234567890123456789012345678", 37, "0.000000001234567890123456789012345678"},
        {"0.000000001234567890123456789012345678", 35, "0.00000000123456789012345678901234567"},
        {"0.000000001234567890123456789012345678", 30, "0.000000001234567890123456789012"},
        {"0.000000001234567890123456789012345678", 28, "0.0000000012345678901234567890"},
        {"0.000000001234567890123456789012345678", 27, "0.000000001234567890123456789"},
        {"0.000000000000000000000000000000000001", 35, "0.00000000000000000000000000000000000"},
    };
    for (const auto& row : rows) {
        for (const State& state : AllStates()) {
            GivenDecimal given(Number{state, row.number});
            EXPECT_EQ(&given.it.Truncate(row.places), &given.it);
            EXPECT_EQ(Look(given.it), (Number{{state.mode, state.defined, 1}, row.result}))
                << row.number << " to " << row.places;
        }
    }
}

TEST(Truncation, ToThePlacesThereAreDoesNothing)
{
    const struct {
        const char* number;
        unsigned short places;
    } rows[] = {{"0", 0}, {"7", 0}, {"1.5", 1}, {"-1.50", 2}, {kTiny, 27}, {"0.00", 2}};
    for (const auto& row : rows) {
        for (const State& state : AllStates()) {
            const Number number{state, row.number};
            GivenDecimal given(number);
            given.it.Truncate(row.places);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

} // namespace
