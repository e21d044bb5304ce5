/// Rounding to places and to whole numbers, row by row.

#include "engine_testing.h"

#include <climits>
#include <string>

namespace {

using namespace zeltest;

const std::string kNinesText = kNines;

/// A number, the places, and the results of the three methods. Rounding that was asked for gives
/// exactly what was asked for.
struct Row {
    std::string number;
    int places;
    Outcome nearest;
    Outcome awayFromZero;
    Outcome towardZero;
};

void Check(const Row& row)
{
    const CountedHandlers handlers;
    SCOPED_TRACE(row.number + " to " + std::to_string(row.places) + " places");
    const RWDecimal96 number(row.number.c_str());
    const auto rounded = [&](RWDecimalBase::RoundingMethod method) {
        return OutcomeOf([&] { return round(number, row.places, method); });
    };
    EXPECT_EQ(rounded(RWDecimalBase::RoundNearest), row.nearest);
    EXPECT_EQ(rounded(RWDecimalBase::RoundAwayFromZero), row.awayFromZero);
    EXPECT_EQ(rounded(RWDecimalBase::RoundTowardZero), row.towardZero);
}

/// All three methods give the same.
Row Same(const std::string& number, int places, const Outcome& result)
{
    return {number, places, result, result, result};
}

} // namespace

TEST(Rounding, HasTheNumbersOfItsMethods)
{
    EXPECT_EQ(static_cast<int>(RWDecimalBase::RoundNearest), 0);
    EXPECT_EQ(static_cast<int>(RWDecimalBase::RoundAwayFromZero), 1);
    EXPECT_EQ(static_cast<int>(RWDecimalBase::RoundTowardZero), 2);
}

TEST(Rounding, DropsDecimals)
{
    const Row rows[] = {
        {"2.4", 0, Exact("2"), Exact("3"), Exact("2")},
        {"2.5", 0, Exact("3"), Exact("3"), Exact("2")},
        {"2.6", 0, Exact("3"), Exact("3"), Exact("2")},
        {"3.5", 0, Exact("4"), Exact("4"), Exact("3")},
        {"-2.4", 0, Exact("-2"), Exact("-3"), Exact("-2")},
        {"-2.5", 0, Exact("-3"), Exact("-3"), Exact("-2")},
        {"-2.6", 0, Exact("-3"), Exact("-3"), Exact("-2")},
        {"0.05", 1, Exact("0.1"), Exact("0.1"), Exact("0.0")},
        {"0.049", 1, Exact("0.0"), Exact("0.1"), Exact("0.0")},
        {"-0.04", 1, Exact("0.0"), Exact("-0.1"), Exact("0.0")},
        {"0.5", 0, Exact("1"), Exact("1"), Exact("0")},
        {"-0.4", 0, Exact("0"), Exact("-1"), Exact("0")},
        {"9.99", 1, Exact("10.0"), Exact("10.0"), Exact("9.9")},
        {"1.005", 2, Exact("1.01"), Exact("1.01"), Exact("1.00")},
        {"1.00499999999999999999999999", 2, Exact("1.00"), Exact("1.01"), Exact("1.00")},
        {Fraction(27, "1"), 26, Exact(Fraction(26, "0")), Exact(Fraction(26, "1")),
         Exact(Fraction(26, "0"))},
        {Fraction(27, "5"), 26, Exact(Fraction(26, "1")), Exact(Fraction(26, "1")),
         Exact(Fraction(26, "0"))},
        {"12345678901234567890.5", 0, Exact("12345678901234567891"), Exact("12345678901234567891"),
         Exact("12345678901234567890")},
        {"999999999999999999999999999.9", 0, Exact("1" + std::string(27, '0')),
         Exact("1" + std::string(27, '0')), Exact(std::string(27, '9'))},
    };
    for (const Row& row : rows)
        Check(row);
}

/// Positive numbers below 1 may be read with up to 36 places, and rounding leaves them so many.
TEST(Rounding, OfPositiveNumbersWithMorePlacesThanResultsHave)
{
    const std::string number = "0.000000001234567890123456789012345678";
    const std::string shorter = "0.0000000012345678901234567890123456";
    const Row rows[] = {
        {number, 35, Exact(shorter + "8"), Exact(shorter + "8"), Exact(shorter + "7")},
        {number, 30, Exact("0.000000001234567890123456789012"),
         Exact("0.000000001234567890123456789013"), Exact("0.000000001234567890123456789012")},
        {number, 28, Exact("0.0000000012345678901234567890"),
         Exact("0.0000000012345678901234567891"), Exact("0.0000000012345678901234567890")},
        {number, 27, Exact("0.000000001234567890123456789"), Exact("0.000000001234567890123456790"),
         Exact("0.000000001234567890123456789")},
        {number, 9, Exact("0.000000001"), Exact("0.000000002"), Exact("0.000000001")},
        {number, 8, Exact("0.00000000"), Exact("0.00000001"), Exact("0.00000000")},
        {Fraction(36, "5"), 35, Exact(Fraction(35, "1")), Exact(Fraction(35, "1")),
         Exact(Fraction(35, "0"))},
        {Fraction(36, "4"), 35, Exact(Fraction(35, "0")), Exact(Fraction(35, "1")),
         Exact(Fraction(35, "0"))},
        {"0.00000000" + kNinesText, 35, Exact("0.00000001" + std::string(27, '0')),
         Exact("0.00000001" + std::string(27, '0')), Exact("0.00000000" + std::string(27, '9'))},
    };
    for (const Row& row : rows)
        Check(row);
    Check(Same(number, 36, Exact(number)));
    Check(Same(number, 37, Exact(number)));
}

TEST(Rounding, DropsZeros)
{
    Check(Same("2.0", 0, Exact("2")));
    Check(Same("2.000", 1, Exact("2.0")));
    Check(Same("-2.50", 1, Exact("-2.5")));
    Check(Same("0.00", 0, Exact("0")));
    Check(Same("0.00", 1, Exact("0.0")));
}

TEST(Rounding, NeverAddsPlaces)
{
    Check(Same("1.5", 1, Exact("1.5")));
    Check(Same("1.5", 2, Exact("1.5")));
    Check(Same("-1.50", 28, Exact("-1.50")));
    Check(Same("5", 3, Exact("5")));
    Check(Same("0", 3, Exact("0")));
    Check(Same("1.25", INT_MAX, Exact("1.25")));
    Check(Same(kNinesText, 0, Exact(kNinesText)));
    Check(Same(kNinesText, 27, Exact(kNinesText)));
}

TEST(Rounding, ToTensAndHundreds)
{
    const Outcome zero = Exact("0");
    const Row rows[] = {
        {"1234", -2, Exact("1200"), Exact("1300"), Exact("1200")},
        {"1250", -2, Exact("1300"), Exact("1300"), Exact("1200")},
        {"-1250", -2, Exact("-1300"), Exact("-1300"), Exact("-1200")},
        {"1249.99", -2, Exact("1200"), Exact("1300"), Exact("1200")},
        {"50", -2, Exact("100"), Exact("100"), zero},
        {"49", -2, zero, Exact("100"), zero},
        {"-49", -2, zero, Exact("-100"), zero},
        {"5", -1, Exact("10"), Exact("10"), zero},
        {"0.01", -1, zero, Exact("10"), zero},
        {"999", -1, Exact("1000"), Exact("1000"), Exact("990")},
        {kNinesText, -1, kOverflow, kOverflow, Exact("9999999999999999999999999990")},
        {"-" + kNinesText, -1, kOverflow, kOverflow, Exact("-9999999999999999999999999990")},
        {kNinesText, -28, kOverflow, kOverflow, zero},
        {"4" + std::string(27, '0'), -28, zero, kOverflow, zero},
        {"5" + std::string(27, '0'), -28, kOverflow, kOverflow, zero},
        {kNinesText, -29, zero, kOverflow, zero},
        {"1", -27, zero, Exact("1" + std::string(27, '0')), zero},
        {"1", -28, zero, kOverflow, zero},
        {"1", -1000, zero, kOverflow, zero},
        {"-1", INT_MIN, zero, kOverflow, zero},
    };
    for (const Row& row : rows)
        Check(row);
    Check(Same("1200", -2, Exact("1200")));
    Check(Same("1200.00", -2, Exact("1200")));
    Check(Same("0", -5, Exact("0")));
    Check(Same("0.00", -5, Exact("0")));
    Check(Same("0.00", INT_MIN, Exact("0")));
}

/// Numbers that come in with more digits or other places than a result has stay as they are when
/// there is no place to drop; otherwise the limits hold.
TEST(Rounding, OfForeignNumbers)
{
    constexpr int96 kLargest = {INT32_MAX, ~0U, ~0U}; // 39614081257132168796771975167
    struct ForeignRow {
        int96 mantissa;
        std::int32_t exponent;
        int places;
        Outcome result;
    };
    const ForeignRow rows[] = {
        {{0, 0, 5}, -3, 0, Exact("5000")},
        {{0, 0, 5}, -3, -2, Exact("5000")},
        {{0, 0, 5}, -3, -3, Exact("5000")},
        {{0, 0, 5}, -3, -4, Exact("10000")},
        {{0, 0, 4}, -3, -4, Exact("0")},
        {{0, 0, 0}, -3, 4, Exact("0")},
        {{0, 0, 0}, 30000, 4, Exact("0.0000")},
        {{0, 0, 1}, -100, 4, Exact("1" + std::string(100, '0'))},
        {{0, 0, 5}, -100, -101, kOverflow},
        {{0, 0, 4}, -100, -101, Exact("0")},
        {{0, 0, 1}, 32767, 4, Exact("0.0000")},
        {{0, 0, 5}, 40, 40, Exact(Fraction(40, "5"))},
        {{0, 0, 5}, 40, 39, Exact(Fraction(36, "0"))},
        {{0, 0, 51}, 37, 36, Exact(Fraction(36, "5"))},
        {{0, 0, 55}, 37, 36, Exact(Fraction(36, "6"))},
        {{0, 0, 55}, 38, 37, Exact(Fraction(36, "1"))}, // 36 places are all that it keeps
        {{0, 0, 0}, 40, 39, Exact(Fraction(36, "0"))},
        {{-1, ~0U, ~0U - 4}, 40, 39, Exact(Fraction(27, "0"))}, // -5
        {{-1, ~0U, ~0U - 4}, 28, 28, Exact("-" + Fraction(28, "5"))},
        {{-1, ~0U, ~0U - 54}, 29, 28, Exact("-" + Fraction(27, "1"))}, // -55; 27 places
        {{-1, ~0U, ~0U - 53}, 29, 28, Exact("-" + Fraction(27, "1"))}, // -54
        {{-1, ~0U, ~0U - 48}, 29, 28, Exact(Fraction(27, "0"))},       // -49
        {kLargest, 0, 0, Exact("39614081257132168796771975167")},
        {kLargest, 5, 5, Exact("396140812571321687967719.75167")},
        {kLargest, 5, 4, Exact("396140812571321687967719.7517")},
        {kLargest, 5, 0, Exact("396140812571321687967720")},
        {kLargest, 0, -1, kOverflow},
    };
    const CountedHandlers handlers;
    for (const ForeignRow& row : rows) {
        const RawDecimal number(row.mantissa, row.exponent);
        EXPECT_EQ(OutcomeOf([&] { return round(number, row.places, RWDecimalBase::RoundNearest); }),
                  row.result)
            << ModelOf(number) << " to " << row.places << " places";
    }
    const RawDecimal thousands({0, 0, 5}, -3);
    EXPECT_EQ(RawDecimal(round(thousands, 4, RWDecimalBase::RoundNearest)).Places(), -3);
    EXPECT_EQ(RawDecimal(round(thousands, -4, RWDecimalBase::RoundNearest)).Places(), 0);
}

TEST(AbsoluteValues, OfForeignNumbers)
{
    const CountedHandlers handlers;
    const auto abs = [](int96 mantissa, std::int32_t exponent) {
        return OutcomeOf([&] { return ::abs(RawDecimal(mantissa, exponent)); });
    };
    EXPECT_EQ(abs({-1, ~0U, ~0U}, 2), Exact("0.01"));
    EXPECT_EQ(abs({-1, ~0U, 0}, 2), Exact("42949672.96"));
    EXPECT_EQ(abs({-1, ~0U, ~0U}, -3), Exact("1000"));
    EXPECT_EQ(abs({-1, ~0U, ~0U}, -100), Exact("1" + std::string(100, '0')));
    EXPECT_EQ(abs({-1, ~0U, ~0U}, 40), Exact(Fraction(40, "1")));
    EXPECT_EQ(abs({INT32_MAX, ~0U, ~0U}, 5), Exact("396140812571321687967719.75167"));
    EXPECT_EQ(RawDecimal(::abs(RawDecimal({0, 0, 5}, -3))).Places(), -3);
    // 2^95 itself does not fit into the words.
    EXPECT_EQ(abs({INT32_MIN, 0, 1}, 0), Exact("39614081257132168796771975167"));
    EXPECT_EQ(abs({INT32_MIN, 0, 0}, 0), kOverflow);
    EXPECT_EQ(abs({INT32_MIN, 0, 0}, 5), Rounded("396140812571321687967719.7517"));
}

TEST(WholeNumbers, AreRoundedByTheMethod)
{
    struct IntRow {
        const char* number;
        long nearest;
        long awayFromZero;
        long towardZero;
    };
    const IntRow rows[] = {
        {"0", 0, 0, 0},
        {"0.00", 0, 0, 0},
        {"5", 5, 5, 5},
        {"-5.00", -5, -5, -5},
        {"0.4", 0, 1, 0},
        {"0.5", 1, 1, 0},
        {"-0.4", 0, -1, 0},
        {"-0.5", -1, -1, 0},
        {"1234.49999", 1234, 1235, 1234},
        {"0.000000000000000000000000001", 0, 1, 0},
        {"2147483646.5", 2147483647, 2147483647, 2147483646},
    };
    for (const IntRow& row : rows) {
        const RWDecimal96 number(row.number);
        EXPECT_EQ(toInt(number, RWDecimalBase::RoundNearest), row.nearest) << row.number;
        EXPECT_EQ(toInt(number, RWDecimalBase::RoundAwayFromZero), row.awayFromZero) << row.number;
        EXPECT_EQ(toInt(number, RWDecimalBase::RoundTowardZero), row.towardZero) << row.number;
    }
}

TEST(WholeNumbers, StopAtTheLimits)
{
    const CountedHandlers handlers;
    const std::string above[] = {
        "2147483647",           "2147483647.5",         "2147483648", "2147483649",
        "4294967295",           "4294967296",           "4294967297", "9223372036854775808",
        "18446744073709551615", "18446744073709551616", kNines};
    for (const std::string& number : above) {
        for (const Rounding method : kMethods) {
            EXPECT_EQ(toInt(RWDecimal96(number.c_str()), EngineMethod(method)), INT_MAX) << number;
            if (number != above[0]) {
                const std::string below = '-' + number;
                const long limit = toInt(RWDecimal96(below.c_str()), EngineMethod(method));
                const bool inside = number == "2147483647.5" && method == Rounding::TowardZero;
                EXPECT_EQ(limit, inside ? -INT_MAX : INT_MIN) << below;
            }
        }
    }
    EXPECT_EQ(CountedHandlers::Overflows(), 0);
}

TEST(WholeNumbers, OfNullAreZero)
{
    for (const Rounding method : kMethods)
        EXPECT_EQ(toInt(RWDecimal96(), EngineMethod(method)), 0);
}
