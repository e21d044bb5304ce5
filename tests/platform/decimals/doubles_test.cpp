/// Numbers from doubles and to doubles.

#include "engine_testing.h"

#include <cmath>
#include <limits>
#include <string>

namespace {

using namespace zeltest;

using Limits = std::numeric_limits<double>;

struct FromRow {
    double number;
    Outcome result;
};

struct ToRow {
    const char* number;
    double result;
};

} // namespace

TEST(FromDouble, TakesTheShortestText)
{
    const FromRow rows[] = {
        {0.0, Exact("0")},
        {-0.0, Exact("0")},
        {1.0, Exact("1")},
        {-1.0, Exact("-1")},
        {0.1, Exact("0.1")},
        {0.2, Exact("0.2")},
        {0.1 + 0.2, Exact("0.30000000000000004")},
        {1.0 / 3, Exact("0.3333333333333333")},
        {2.0 / 3, Exact("0.6666666666666666")},
        {-2.25, Exact("-2.25")},
        {100.0, Exact("100")},
        {1e22, Exact("1" + std::string(22, '0'))},
        {1e23, Exact("1" + std::string(23, '0'))},
        {123456789.125, Exact("123456789.125")},
        {19.99, Exact("19.99")},
        {4294967296.0, Exact("4294967296")},
        {9007199254740992.0, Exact("9007199254740992")},
        {9007199254740994.0, Exact("9007199254740994")},
        {18446744073709551616.0, Exact("18446744073709552000")}, // 17 digits name it
        {1e-5, Exact("0.00001")},
        {1.2345678901234567e-11, Exact("0.000000000012345678901234567")},
    };
    const CountedHandlers handlers;
    for (const FromRow& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(row.number); }), row.result)
            << row.number;
}

TEST(FromDouble, IsRoundedAtTheLastPlace)
{
    const FromRow rows[] = {
        {1e-27, Exact(Fraction(27, "1"))},
        {-1e-27, Exact("-" + Fraction(27, "1"))},
        {1.4e-27, Rounded(Fraction(27, "1"))},
        {1.5e-27, Rounded(Fraction(27, "2"))},
        {-1.5e-27, Rounded("-" + Fraction(27, "2"))},
        {2.5e-27, Rounded(Fraction(27, "3"))},
        {1.2345678901234565e-12, Rounded("0.000000000001234567890123457")},
        {1.2345678901234565e-11, Exact("0.000000000012345678901234565")},
    };
    const CountedHandlers handlers;
    for (const FromRow& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(row.number); }), row.result)
            << row.number;
}

TEST(FromDouble, BelowTheLastPlaceIsZero)
{
    for (const double number :
         {9.99e-28, 5e-28, 4e-28, 1e-100, Limits::min(), Limits::denorm_min()}) {
        EXPECT_EQ(RWDecimal96::from(number) == 0, 1) << number;
        EXPECT_EQ(RWDecimal96::from(-number) == 0, 1) << number;
        EXPECT_NE(TextOf(RWDecimal96::from(-number))[0], '-') << number;
    }
}

TEST(FromDouble, EndsAt28Digits)
{
    const double below = std::nextafter(1e28, 0); // 9999999999999997384096481280
    const CountedHandlers handlers;
    EXPECT_EQ(OutcomeOf([] { return RWDecimal96::from(1e27); }), Exact("1" + std::string(27, '0')));
    EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(below); }),
              Exact("9999999999999997" + std::string(12, '0')));
    EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(-below); }),
              Exact("-9999999999999997" + std::string(12, '0')));
    for (const double number : {1e28, 3e28, 1e29, 1e100, Limits::max(), Limits::infinity()}) {
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(number); }), kOverflow) << number;
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(-number); }), kOverflow) << -number;
    }
    EXPECT_EQ(OutcomeOf([] { return RWDecimal96::from(Limits::quiet_NaN()); }), kOverflow);
}

TEST(ToDouble, GivesTheNearest)
{
    const ToRow rows[] = {
        {"0", 0.0},
        {"0.00", 0.0},
        {"1", 1.0},
        {"-1.50", -1.5},
        {"0.1", 0.1},
        {"0.10000000000000000", 0.1},
        {"0.30000000000000004", 0.1 + 0.2},
        {"123456789.125", 123456789.125},
        {"9999999999999999999999999999", 1e28},
        {"-9999999999999999999999999999", -1e28},
        {"0.000000000000000000000000001", 1e-27},
        {"0.000000000000000000000000000000000001", 1e-36},
        // ties to even, and next to ties
        {"9007199254740993", 9007199254740992.0},
        {"9007199254740995", 9007199254740996.0},
        {"-9007199254740993", -9007199254740992.0},
        {"9007199254740993.000000000001", 9007199254740994.0},
        {"9007199254740992.999999999999", 9007199254740992.0},
        {"9007199254740994.999999999999", 9007199254740994.0},
        {"18446744073709551615", 18446744073709551616.0},
    };
    for (const ToRow& row : rows) {
        const long double result = toDouble(RWDecimal96(row.number));
        EXPECT_EQ(result, static_cast<long double>(row.result)) << row.number;
    }
}

TEST(ToDouble, OfAnyPlaces)
{
    struct RawRow {
        std::uint64_t mantissa;
        std::int32_t places;
        double result;
    };
    const RawRow rows[] = {
        {1, -308, 1e308},
        {1, -309, Limits::infinity()},
        {1, -32768, Limits::infinity()},
        {17976931348623157, -292, Limits::max()},
        {17976931348623159, -292, Limits::infinity()},
        {1, 307, 1e-307},
        {22250738585072014, 324, Limits::min()},
        {5, 324, Limits::denorm_min()},
        {3, 324, Limits::denorm_min()},
        {2, 324, 0.0}, // less than half of it
        {1, 400, 0.0},
        {1, 32767, 0.0},
        {0, 32767, 0.0},
        {0, -32768, 0.0},
    };
    for (const RawRow& row : rows) {
        const Decimal number = {false, row.mantissa, row.places};
        EXPECT_EQ(toDouble(RawDecimal(number)), static_cast<long double>(row.result)) << number;
        EXPECT_EQ(toDouble(RawDecimal({true, row.mantissa, row.places})),
                  static_cast<long double>(-row.result))
            << number;
    }
}

TEST(ToDouble, OfNullIsNoNumber)
{
    EXPECT_TRUE(std::isnan(toDouble(RWDecimal96())));
}
