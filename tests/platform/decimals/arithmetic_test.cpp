/// The rules of arithmetic, one row each. Results are worked out by hand.

#include "engine_testing.h"

#include <climits>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

struct Row {
    std::string a;
    std::string b;
    Outcome result;
};

using Operation = RWDecimal96 (*)(const RWDecimal96&, const RWDecimal96&);

void Check(const char* name, Operation operation, const std::vector<Row>& rows)
{
    const CountedHandlers handlers;
    for (const Row& row : rows) {
        const RWDecimal96 a(row.a.c_str());
        const RWDecimal96 b(row.b.c_str());
        EXPECT_EQ(OutcomeOf([&] { return operation(a, b); }), row.result)
            << row.a << ' ' << name << ' ' << row.b;
        EXPECT_EQ(TextOf(a), row.a);
        EXPECT_EQ(TextOf(b), row.b);
    }
}

std::string Zeros(std::size_t count)
{
    return std::string(count, '0');
}

} // namespace

TEST(Sums, KeepTheLargerNumberOfPlaces)
{
    Check("+", operator+,
          {{"1", "2", Exact("3")},
           {"1.50", "2.25", Exact("3.75")},
           {"1.5", "0.50", Exact("2.00")},
           {"0.00", "0.0", Exact("0.00")},
           {"0", "0.000", Exact("0.000")},
           {"1.00", "-1", Exact("0.00")},
           {"-1", "1", Exact("0")},
           {"-0.01", "0.005", Exact("-0.005")},
           {"-0.5", "-0.5", Exact("-1.0")},
           {"999", "1", Exact("1000")},
           {"4294967295", "1", Exact("4294967296")},
           {"18446744073709551615", "1", Exact("18446744073709551616")}});
}

TEST(Sums, AreRoundedOnceAtTheLimitOfDigits)
{
    const std::string nines = kNines;
    const std::string ten27 = "1" + Zeros(27);
    Check("+", operator+,
          {{nines, "0", Exact(nines)},
           {nines, "0.0", Exact(nines)},
           {nines, "0.4", Rounded(nines)},
           {nines, "0.49999", Rounded(nines)},
           {nines, "0.5", kOverflow},
           {nines, "1", kOverflow},
           {nines, nines, kOverflow},
           {nines, "-1", Exact("9999999999999999999999999998")},
           {"-" + nines, "-0.4", Rounded("-" + nines)},
           {"-" + nines, "-0.5", kOverflow},
           {"-" + nines, "-1", kOverflow},
           {"-" + nines, nines, Exact("0")},
           {ten27, "0.45", Rounded(ten27)}, // twice rounded it would be more
           {ten27, "0.5", Rounded("1000000000000000000000000001")},
           {ten27, "-0.5", Exact("999999999999999999999999999.5")},
           {"999999999999999999999999999.9", "0.04", Rounded("999999999999999999999999999.9")},
           {"999999999999999999999999999.9", "0.05", Rounded(ten27)},
           {"1", Fraction(27, "1"), Exact("1." + Zeros(26) + "1")},
           {"10", Fraction(27, "1"), Rounded("10." + Zeros(26))},
           {"10", Fraction(27, "5"), Rounded("10." + Zeros(25) + "1")},
           {"-10", Fraction(27, "4"), Exact("-9." + std::string(26, '9') + "6")},
           {"-10", "-" + Fraction(27, "4"), Rounded("-10." + Zeros(26))},
           {"0", Fraction(36, "5"), Rounded(Fraction(27, "0"))},
           {"0", Fraction(36, "499999999"), Rounded(Fraction(27, "0"))},
           {"0", Fraction(36, "500000000"), Rounded(Fraction(27, "1"))},
           {"0", Fraction(36, "5000000000"), Exact(Fraction(27, "5"))},
           {"1.1", Fraction(36, "0"), Exact("1.1" + Zeros(26))}});
}

TEST(Differences, FollowTheRulesOfSums)
{
    const std::string nines = kNines;
    Check("-", operator-,
          {{"3", "5", Exact("-2")},
           {"5.00", "5", Exact("0.00")},
           {"0.0", "0", Exact("0.0")},
           {"1", "0.01", Exact("0.99")},
           {"-1.5", "-1.50", Exact("0.00")},
           {"4294967296", "1", Exact("4294967295")},
           {"18446744073709551616", "1", Exact("18446744073709551615")},
           {"0", nines, Exact("-" + nines)},
           {"-" + nines, "1", kOverflow},
           {"-" + nines, "0.5", kOverflow},
           {"-" + nines, "0.4", Rounded("-" + nines)},
           {nines, "0.5", Rounded(nines)}, // 0.5 below the largest number: away from zero
           {nines, "0.6", Rounded("9999999999999999999999999998")},
           {"1" + Zeros(27), Fraction(1, "5"), Exact("999999999999999999999999999.5")}});
}

TEST(Products, HaveThePlacesOfBoth)
{
    Check("*", operator*,
          {{"1.50", "2.0", Exact("3.000")},
           {"-3", "0.5", Exact("-1.5")},
           {"-0.5", "-0.5", Exact("0.25")},
           {"0.00", "-5", Exact("0.00")},
           {"0.0", "-0.1", Exact("0.00")},
           {"1", "1.0000", Exact("1.0000")},
           {"4294967296", "4294967296", Exact("18446744073709551616")},
           {"99999999999999", "99999999999999", Exact("9999999999999800000000000001")},
           {"19.99", "3", Exact("59.97")}});
}

TEST(Products, AreRoundedOnceAtTheLimits)
{
    const std::string nines = kNines;
    const std::string unit = Fraction(14, "1");
    Check("*", operator*,
          {{"100000000000000", "100000000000000", kOverflow},
           {"100000000000000", "-100000000000000", kOverflow},
           {"10000000000000", "100000000000000", Exact("1" + Zeros(27))},
           {nines, "0.1", Exact("999999999999999999999999999.9")},
           {nines, "1.1", kOverflow},
           // 1099999999999999999999999999.89
           {nines, "0.11", Rounded("1100000000000000000000000000")},
           {nines, nines, kOverflow},
           {unit, Fraction(14, "5"), Rounded(Fraction(27, "1"))},
           {unit, "-" + Fraction(14, "5"), Rounded("-" + Fraction(27, "1"))},
           {unit, Fraction(14, "4"), Rounded(Fraction(27, "0"))},
           {unit, "-" + Fraction(14, "4"), Rounded(Fraction(27, "0"))},
           {unit, Fraction(14, "10"), Exact(Fraction(27, "1"))},
           {unit, Fraction(14, "49"), Rounded(Fraction(27, "5"))},
           {Fraction(27, "1"), Fraction(27, "1"), Rounded(Fraction(27, "0"))},
           {Fraction(14, "0"), Fraction(14, "0"), Exact(Fraction(27, "0"))},
           {"2" + Fraction(27, "0").substr(1), "5" + Fraction(27, "0").substr(1),
            Exact("10." + Zeros(26))}});
}

TEST(Quotients, AreExactWithTheFewestPlaces)
{
    Check("/", operator/,
          {{"1", "8", Exact("0.125")},
           {"10", "4", Exact("2.5")},
           {"6", "2", Exact("3")},
           {"6.0", "2.0", Exact("3")},
           {"6", "2.00", Exact("3")},
           {"10", "5.0", Exact("2")},
           {"100", "0.5", Exact("200")},
           {"5", "-2", Exact("-2.5")},
           {"-5", "-2", Exact("2.5")},
           {"0", "7.00", Exact("0")},
           {"300", "3", Exact("100")},
           {"1", "1000", Exact("0.001")},
           {"1", "134217728", Exact("0.000000007450580596923828125")},
           {"10000000000000000001", "1024", Exact("9765625000000000.0009765625")},
           {kNines, "1", Exact(kNines)}});
}

TEST(Quotients, KeepTheDifferenceOfThePlaces)
{
    Check("/", operator/,
          {{"6.00", "2", Exact("3.00")},
           {"6.000", "2.0", Exact("3.00")},
           {"1.000", "8", Exact("0.125")},
           {"1.0000", "8", Exact("0.1250")},
           {"1.00", "8", Exact("0.125")},
           {"0.00", "7", Exact("0.00")},
           {"0.00", "-0.5", Exact("0.0")},
           {"0.0", "0.50", Exact("0")},
           {Fraction(36, "0"), "7", Exact(Fraction(27, "0"))}});
}

TEST(Quotients, WithoutEndHaveAsManyDigitsAsThereAre)
{
    const std::string threes(27, '3');
    Check("/", operator/,
          {{"1", "3", Rounded("0." + threes)},
           {"10", "3", Rounded("3." + threes)},
           {"100", "3", Rounded("33." + threes.substr(1))},
           {"100.00", "3.000", Rounded("33." + threes.substr(1))},
           {"-1", "3", Rounded("-0." + threes)},
           {"2", "3", Rounded("0." + std::string(26, '6') + "7")},
           {"200", "3", Rounded("66." + std::string(25, '6') + "7")},
           {"2", "-3", Rounded("-0." + std::string(26, '6') + "7")},
           {"1", "0.3", Rounded("3." + threes)},
           {kNines, "0.1", kOverflow},
           {kNines, "0.9", kOverflow},
           {"1", kNines, Rounded(Fraction(27, "0"))},
           {"9", kNines, Rounded(Fraction(27, "1"))}});
}

TEST(Quotients, ThatEndTooLateAreRounded)
{
    const std::string ten27 = "1" + Zeros(27);
    Check("/", operator/,
          {{"1", "268435456", Rounded("0.000000003725290298461914063")},
           {"10000000000000000001", "1048576", Rounded("9536743164062.500000953674316")},
           {"5", ten27, Exact(Fraction(27, "5"))},
           {"0.5", ten27, Rounded(Fraction(27, "1"))},
           {"0.4", ten27, Rounded(Fraction(27, "0"))},
           {"-0.5", ten27, Rounded("-" + Fraction(27, "1"))}});
}

TEST(Quotients, ByZeroAreOverflows)
{
    Check("/", operator/,
          {{"1", "0", kOverflow},
           {"-1", "0.00", kOverflow},
           {"0", "0", kOverflow},
           {"0.00", "0.000", kOverflow},
           {kNines, "0", kOverflow}});
}

TEST(Remainders, HaveTheSignOfTheDividendAndTheLargerNumberOfPlaces)
{
    const std::string nines = kNines;
    Check("%", operator%,
          {{"7", "3", Exact("1")},
           {"-7", "3", Exact("-1")},
           {"7", "-3", Exact("1")},
           {"-7", "-3", Exact("-1")},
           {"6", "3", Exact("0")},
           {"-6.0", "3", Exact("0.0")},
           {"7.5", "2", Exact("1.5")},
           {"7", "0.5", Exact("0.0")},
           {"1", "0.3", Exact("0.1")},
           {"5.00", "3", Exact("2.00")},
           {"2", "3.00", Exact("2.00")},
           {"0.00", "7", Exact("0.00")},
           {"-0.5", "1", Exact("-0.5")},
           {"1", "0", kOverflow},
           {"0", "0", kOverflow},
           {"0.0", "0.00", kOverflow},
           // 10^28 is 4 modulo 7, 10^29 is 5
           {nines, "7", Exact("3")},
           {nines, "0.7", Exact("0.2")},
           {"-" + nines, "0.7", Exact("-0.2")}});
}

TEST(Remainders, ComeFromTheWholeQuotient)
{
    Check("%", operator%,
          {// The quotient would be rounded to 1.
           {"9999999999999999999999999998", kNines, Exact("9999999999999999999999999998")},
           // 10^27 thirds of the divisor's last place, and one more
           {"1", Fraction(27, "3"), Exact(Fraction(27, "1"))},
           {"-1", Fraction(27, "3"), Exact("-" + Fraction(27, "1"))},
           // 10^28 - 1 is 9 times a number of ones
           {kNines, Fraction(27, "9"), Exact(Fraction(27, "0"))},
           {kNines, Fraction(27, "7"), Exact(Fraction(27, "4"))},
           // 36 places do not fit into a result; 10^27 is 6 modulo 7, 10^36 is 1.
           {"1", Fraction(36, "7000000000"), Exact(Fraction(27, "6"))},
           {"1", Fraction(36, "7"), Rounded(Fraction(27, "0"))}});
}

/// Mantissas and places that no result has.
TEST(ForeignNumbers, GiveResultsWithinTheLimits)
{
    const CountedHandlers handlers;
    const RawDecimal thousands({0, 0, 5}, -3);
    const RawDecimal tiny({0, 0, 1}, 40);
    const RawDecimal huge({0, 0, 1}, -32768);
    const RawDecimal largest({INT32_MAX, ~0U, ~0U}, 0);
    const RWDecimal96 one(1);
    EXPECT_EQ(OutcomeOf([&] { return thousands + one; }), Exact("5001"));
    EXPECT_EQ(OutcomeOf([&] { return thousands + thousands; }), Exact("10000"));
    EXPECT_EQ(OutcomeOf([&] { return thousands * RWDecimal96("1.50"); }), Exact("7500"));
    EXPECT_EQ(OutcomeOf([&] { return thousands / RWDecimal96(2); }), Exact("2500"));
    EXPECT_EQ(OutcomeOf([&] { return one / thousands; }), Exact("0.0002"));
    EXPECT_EQ(OutcomeOf([&] { return thousands % RWDecimal96(3); }), Exact("2"));
    EXPECT_EQ(OutcomeOf([&] { return one + tiny; }), Rounded("1." + Zeros(27)));
    EXPECT_EQ(OutcomeOf([&] { return one - tiny; }), Rounded("1." + Zeros(27)));
    EXPECT_EQ(OutcomeOf([&] { return tiny / tiny; }), Exact("1"));
    EXPECT_EQ(OutcomeOf([&] { return one / tiny; }), kOverflow);
    EXPECT_EQ(OutcomeOf([&] { return huge + one; }), kOverflow);
    EXPECT_EQ(OutcomeOf([&] { return huge - huge; }), Exact("0"));
    EXPECT_EQ(OutcomeOf([&] { return huge / huge; }), Exact("1"));
    EXPECT_EQ(OutcomeOf([&] { return one / huge; }), Rounded(Fraction(27, "0")));
    // 32768 is 2 modulo 6, and 10^6 is 1 modulo 7
    EXPECT_EQ(OutcomeOf([&] { return huge % RWDecimal96(7); }), Exact("2"));
    EXPECT_EQ(OutcomeOf([&] { return largest - one; }), kOverflow);
    EXPECT_EQ(OutcomeOf([&] { return largest - largest; }), Exact("0"));
    EXPECT_EQ(OutcomeOf([&] { return largest / RWDecimal96(10); }),
              Rounded("3961408125713216879677197517"));
    EXPECT_EQ(thousands == RWDecimal96("5000.00"), 1);
    EXPECT_EQ(huge > largest, 1);
    EXPECT_EQ(tiny > RWDecimal96(0), 1);
}

TEST(AbsoluteValues, KeepThePlaces)
{
    const CountedHandlers handlers;
    const char* const rows[][2] = {{"0", "0"},
                                   {"0.00", "0.00"},
                                   {"5", "5"},
                                   {"-5", "5"},
                                   {"-1.50", "1.50"},
                                   {"1.50", "1.50"},
                                   {"-9999999999999999999999999999", kNines}};
    for (const auto& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return abs(RWDecimal96(row[0])); }), Exact(row[1])) << row[0];
}

TEST(Powers, MultiplyAndInvert)
{
    struct PowerRow {
        const char* base;
        int exponent;
        Outcome result;
    };
    const std::string nines = kNines;
    const PowerRow rows[] = {
        {"2", 10, Exact("1024")},
        {"2", 1, Exact("2")},
        {"1.5", 2, Exact("2.25")},
        {"1.50", 2, Exact("2.2500")},
        {"1.25", 1, Exact("1.25")},
        {"10", 27, Exact("1" + Zeros(27))},
        {"10", 28, kOverflow},
        {"2", 93, Exact("9903520314283042199192993792")},
        {"2", 94, kOverflow},
        {"-2", 93, Exact("-9903520314283042199192993792")},
        {"-2", 3, Exact("-8")},
        {"-2", 4, Exact("16")},
        {"99999999999999", 2, Exact("9999999999999800000000000001")},
        {"0.1", 27, Exact(Fraction(27, "1"))},
        {"0.1", 28, Rounded(Fraction(27, "0"))},
        {"1.0", 40, Exact("1." + Zeros(27))},
        // the reciprocal, as quotients are
        {"2", -2, Exact("0.25")},
        {"2.0", -2, Exact("0.25")},
        {"-2", -3, Exact("-0.125")},
        {"0.1", -5, Exact("100000")},
        {"10", -27, Exact(Fraction(27, "1"))},
        {"3", -1, Rounded("0." + std::string(27, '3'))},
        {"-3", -1, Rounded("-0." + std::string(27, '3'))},
        {"4", -1, Exact("0.25")},
        // to the power of 0
        {"5", 0, Exact("1")},
        {"1.50", 0, Exact("1")},
        {"0", 0, Exact("1")},
        {"0.00", 0, Exact("1")},
        {kNines, 0, Exact("1")},
        // of 0
        {"0", 5, Exact("0")},
        {"0.0", 2, Exact("0.00")},
        {"0", -1, kOverflow},
        {"0.00", -3, kOverflow},
        // any exponent
        {"1", INT_MAX, Exact("1")},
        {"1", INT_MIN, Exact("1")},
        {"-1", INT_MAX, Exact("-1")},
        {"-1", INT_MIN, Exact("1")},
        {"0", INT_MAX, Exact("0")},
        {"2", INT_MAX, kOverflow},
        {"-2", INT_MAX, kOverflow},
        {"0.5", INT_MAX, Rounded(Fraction(27, "0"))},
        {"0.5", INT_MIN, kOverflow},
    };
    const CountedHandlers handlers;
    for (const PowerRow& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return pow(RWDecimal96(row.base), row.exponent); }), row.result)
            << row.base << " to the power of " << row.exponent;
}

TEST(Comparisons, AreByValue)
{
    struct Comparison {
        std::string a;
        std::string b;
        int order;
    };
    const std::string nines = kNines;
    const Comparison rows[] = {
        {"0", "0.00", 0},
        {"-0.0", "0", 0},
        {"1.5", "1.50", 0},
        {"-1.5", "-1.500", 0},
        {"1", "2", -1},
        {"-1", "1", -1},
        {"-1", "-2", 1},
        {"0", "-0.001", 1},
        {"0", Fraction(36, "1"), -1},
        {"0.1", "0.09", 1},
        {"-0.1", "-0.09", -1},
        {"4294967296", "4294967295", 1},
        {"18446744073709551616", "18446744073709551615", 1},
        {nines, nines, 0},
        {nines, "9999999999999999999999999998", 1},
        {"-" + nines, "-9999999999999999999999999998", -1},
        {nines, "999999999999999999999999999.9", 1},
        {"1", "0." + nines.substr(1), 1},
        {"1", "1." + Zeros(26) + "1", -1},
        {"1", "1." + Zeros(27), 0},
        {nines, Fraction(36, nines), 1},
        {"1000000000000000000", "1" + Fraction(27, "0").substr(1), 1},
    };
    for (const Comparison& row : rows) {
        const RWDecimal96 a(row.a.c_str());
        const RWDecimal96 b(row.b.c_str());
        SCOPED_TRACE(row.a + " and " + row.b);
        EXPECT_EQ(a == b, row.order == 0 ? 1 : 0);
        EXPECT_EQ(a != b, row.order != 0 ? 1 : 0);
        EXPECT_EQ(a < b, row.order < 0 ? 1 : 0);
        EXPECT_EQ(a > b, row.order > 0 ? 1 : 0);
        EXPECT_EQ(a <= b, row.order <= 0 ? 1 : 0);
        EXPECT_EQ(a >= b, row.order >= 0 ? 1 : 0);
        EXPECT_EQ(b<a, row.order> 0 ? 1 : 0);
        EXPECT_EQ(b > a, row.order < 0 ? 1 : 0);
    }
}

TEST(NullNumbers, MakeEveryResultNull)
{
    const CountedHandlers handlers;
    const RWDecimal96 null;
    const RWDecimal96 one(1);
    const RWDecimal96 zero(0);
    ASSERT_TRUE(null.isNull());
    for (const Operation operation :
         {Operation(operator+), Operation(operator-), Operation(operator*), Operation(operator/),
          Operation(operator%)}) {
        for (const RWDecimal96& other : {one, zero, null}) {
            EXPECT_EQ(OutcomeOf([&] { return operation(null, other); }), kNull);
            EXPECT_EQ(OutcomeOf([&] { return operation(other, null); }), kNull);
        }
    }
    for (const int exponent : {2, 1, 0, -1})
        EXPECT_EQ(OutcomeOf([&] { return pow(null, exponent); }), kNull) << exponent;
    EXPECT_EQ(OutcomeOf([&] { return abs(null); }), kNull);
    for (const Rounding method : kMethods)
        EXPECT_EQ(OutcomeOf([&] { return round(null, 2, EngineMethod(method)); }), kNull);
}

TEST(NullNumbers, EqualNothing)
{
    const RWDecimal96 null;
    for (const RWDecimal96& other : {RWDecimal96(), RWDecimal96(0), RWDecimal96(-1)}) {
        EXPECT_EQ(null == other, 0);
        EXPECT_EQ(other == null, 0);
        EXPECT_EQ(null != other, 1);
        EXPECT_EQ(other != null, 1);
        EXPECT_EQ(null < other, 0);
        EXPECT_EQ(other < null, 0);
        EXPECT_EQ(null > other, 0);
        EXPECT_EQ(other > null, 0);
        EXPECT_EQ(null <= other, 0);
        EXPECT_EQ(other <= null, 0);
        EXPECT_EQ(null >= other, 0);
        EXPECT_EQ(other >= null, 0);
    }
}

TEST(Integers, BecomeNumbersWithoutPlaces)
{
    for (const int number : {0, 1, -1, 42, INT_MAX, INT_MIN}) {
        EXPECT_EQ(TextOf(RWDecimal96(number)), std::to_string(number));
        EXPECT_EQ(toInt(RWDecimal96(number), RWDecimalBase::RoundNearest), number);
    }
    EXPECT_EQ(RWDecimal96("2.50") * 2 == 5, 1);
}
