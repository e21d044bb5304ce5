/// Comparisons of ZelDtDecimal: by value, in every state of the operands.

#include "tests/numeric/decimal_testing.h"

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

const double kNan = std::numeric_limits<double>::quiet_NaN();

const std::vector<std::string> kTexts = {
    "0",   "0.00", "1.5",        "1.50",         "-1.5",        "0.1",    "7",
    "7.0", kTiny,  "2147483647", "2147483647.1", "-2147483648", kLargest, kSmallest};

/// One comparison in all its forms.
struct Comparison {
    const char* sign;
    bool (*holds)(int, int); ///< of an order to 0
    int (*values)(const ZelDtDecimal&, const ZelDtDecimal&);
    int (*rightInt)(const ZelDtDecimal&, int);
    int (*rightLong)(const ZelDtDecimal&, long);
    int (*rightDouble)(const ZelDtDecimal&, double);
    int (*leftInt)(int, const ZelDtDecimal&);
    int (*leftLong)(long, const ZelDtDecimal&);
    int (*leftDouble)(double, const ZelDtDecimal&);
};

#define ZEL_COMPARISON(op)                                                                         \
    {                                                                                              \
#op, [](int a, int b) { return a op b; },                                                  \
            [](const ZelDtDecimal& a, const ZelDtDecimal& b) { return a op b; },                   \
            [](const ZelDtDecimal& a, int b) { return a op b; },                                   \
            [](const ZelDtDecimal& a, long b) { return a op b; },                                  \
            [](const ZelDtDecimal& a, double b) { return a op b; },                                \
            [](int a, const ZelDtDecimal& b) { return a op b; },                                   \
            [](long a, const ZelDtDecimal& b) { return a op b; },                                  \
            [](double a, const ZelDtDecimal& b) { return a op b; },       \
    }
const Comparison kComparisons[] = {ZEL_COMPARISON(<),  ZEL_COMPARISON(>),  ZEL_COMPARISON(<=),
                                   ZEL_COMPARISON(>=), ZEL_COMPARISON(==), ZEL_COMPARISON(!=)};
#undef ZEL_COMPARISON

TEST(Comparisons, OfValuesUseTheStoredNumbers)
{
    for (const Number& a : Unmodified(kTexts)) {
        const GivenDecimal left(a);
        for (const Number& b : Unmodified({"0.0", "1.500", "-1.5", "7", kTiny, kLargest})) {
            const GivenDecimal right(b);
            const int order = Compare(FromText(a.text), FromText(b.text));
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << b);
                if (IsMissing(a.state) || IsMissing(b.state))
                    EXPECT_TRUE(FailsWith(
                        [&] { c.values(left.it, right.it); },
                        OperatorError(2, std::string("operator") + c.sign + "(ZelDtDecimal&)")));
                else
                    EXPECT_EQ(c.values(left.it, right.it), c.holds(order, 0) ? 1 : 0);
            }
            ASSERT_EQ(Look(right.it), b);
        }
        ASSERT_EQ(Look(left.it), a);
    }
}

TEST(Comparisons, OfAValueWithItself)
{
    for (const Number& number : Unmodified({"0", "-1.50"})) {
        const GivenDecimal given(number);
        for (const Comparison& c : kComparisons) {
            if (IsMissing(number.state))
                EXPECT_EQ(Catch([&] { c.values(given.it, given.it); }).error.number, 2u);
            else
                EXPECT_EQ(c.values(given.it, given.it), c.holds(0, 0) ? 1 : 0) << c.sign;
        }
    }
}

TEST(Comparisons, WithWholeNumbersOnEitherSide)
{
    for (const Number& a : Unmodified(kTexts)) {
        const GivenDecimal given(a);
        for (const int i : {0, 1, 7, -2, kMaxInt, kMinInt}) {
            const int order = Compare(FromText(a.text), FromText(std::to_string(i)));
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << i);
                if (IsMissing(a.state)) {
                    EXPECT_TRUE(
                        FailsWith([&] { c.rightInt(given.it, i); },
                                  OperatorError(2, std::string("operator") + c.sign + "(INT)")));
                    const std::string name = std::string("operator");
                    for (const auto& action : std::vector<std::function<void()>>{
                             [&] { c.rightLong(given.it, i); }, [&] { c.leftInt(i, given.it); },
                             [&] { c.leftLong(i, given.it); }})
                        EXPECT_TRUE(FailsLike(action, OperatorError(2, ""), name));
                } else {
                    const int right = c.holds(order, 0) ? 1 : 0;
                    const int left = c.holds(0, order) ? 1 : 0;
                    EXPECT_EQ(c.rightInt(given.it, i), right);
                    EXPECT_EQ(c.rightLong(given.it, i), right);
                    EXPECT_EQ(c.leftInt(i, given.it), left);
                    EXPECT_EQ(c.leftLong(i, given.it), left);
                }
            }
        }
        ASSERT_EQ(Look(given.it), a);
    }
}

TEST(Comparisons, WithDoublesOnEitherSide)
{
    for (const Number& a : Unmodified(kTexts)) {
        const GivenDecimal given(a);
        for (const double d : {0.0, -0.0, 0.1, 1.5, -1.5, 7.0, 1e-27, 1e27, 1e28, 1e300, kNan}) {
            const Result number = FromDouble(d);
            const int order = number ? Compare(FromText(a.text), *number) : 0;
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << d);
                const std::string signature = std::string("operator") + c.sign + "(double)";
                if (IsMissing(a.state)) {
                    EXPECT_TRUE(FailsWith([&] { c.rightDouble(given.it, d); },
                                          OperatorError(2, signature)));
                    EXPECT_TRUE(FailsLike([&] { c.leftDouble(d, given.it); }, OperatorError(2, ""),
                                          "operator"));
                } else if (!number) {
                    EXPECT_TRUE(FailsWith([&] { c.rightDouble(given.it, d); },
                                          OperatorError(1, signature), OverflowError()));
                    EXPECT_TRUE(FailsLike([&] { c.leftDouble(d, given.it); }, OperatorError(1, ""),
                                          "operator", OverflowError()));
                } else {
                    EXPECT_EQ(c.rightDouble(given.it, d), c.holds(order, 0) ? 1 : 0);
                    EXPECT_EQ(c.leftDouble(d, given.it), c.holds(0, order) ? 1 : 0);
                }
            }
        }
        ASSERT_EQ(Look(given.it), a);
    }
}

TEST(Comparisons, NeverCutALongOperand)
{
    const ZelDtDecimal seven("7.0");
    for (const std::int64_t big :
         {std::int64_t{kMaxInt} + 8, (std::int64_t{1} << 32) + 7, std::int64_t{-4294967289}}) {
        if (sizeof(long) < sizeof big)
            break;
        const int order = big > 7 ? -1 : 1;
        for (const Comparison& c : kComparisons) {
            EXPECT_EQ(c.rightLong(seven, static_cast<long>(big)), c.holds(order, 0) ? 1 : 0)
                << "7 " << c.sign << ' ' << big;
            EXPECT_EQ(c.leftLong(static_cast<long>(big), seven), c.holds(0, order) ? 1 : 0)
                << big << ' ' << c.sign << " 7";
        }
    }
}

TEST(Comparisons, AreExact)
{
    EXPECT_TRUE(ZelDtDecimal("1.5") == ZelDtDecimal("1.50"));
    EXPECT_FALSE(ZelDtDecimal("1.5") != ZelDtDecimal("1.50"));
    EXPECT_TRUE(ZelDtDecimal("0.1") + ZelDtDecimal("0.2") == ZelDtDecimal("0.3"));
    EXPECT_TRUE(ZelDtDecimal("0.1") == 0.1);
    EXPECT_TRUE(ZelDtDecimal("0.3") != 0.1 + 0.2); // that double is 0.30000000000000004
    EXPECT_TRUE(ZelDtDecimal("9999999999999999999999999998") < ZelDtDecimal(kLargest));
    EXPECT_TRUE(ZelDtDecimal("0.000000000000000000000000000") == 0);
    EXPECT_TRUE(ZelDtDecimal(kTiny) > 0);
    EXPECT_TRUE(ZelDtDecimal("100000000000000000000000000") ==
                ZelDtDecimal("100000000000000000000000000.0"));
    EXPECT_TRUE(ZelDtDecimal(kLargest) > ZelDtDecimal("0.999999999999999999999999999"));
    EXPECT_TRUE(ZelDtDecimal(ZelDtWmNull) == 0);
    EXPECT_TRUE(ZelDtDecimal(ZelDtWmNull) == ZelDtDecimal(ZelDtWmNull));
}

} // namespace
