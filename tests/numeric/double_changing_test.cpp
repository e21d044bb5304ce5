/// Compound assignment, counting and comparison of ZelDtDouble in every state of the operands.

#include "tests/numeric/double_testing.h"

#include "platform/formats/ZelFormat.h"

#include <climits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<double> kValues = {0.0, -0.0, 1.0, -2.5, 0.1, kLargest, kInfinity, kNaN};
const std::vector<double> kPlainDoubles = {0.0, -0.0, 1.0, -2.5, kSmallest, kLargest, kNaN};
const std::vector<int> kPlainInts = {0, 1, -3, INT_MAX, INT_MIN};

/// `+=` (sign 1) and `-=` (sign -1) of two values. A failing check clears; else the value is
/// defined, and modified if the other number is not 0.
Real AfterCompound(Real a, const Real& b, int sign)
{
    if (!Computes(a.state, b.state))
        return Cleared(a);
    SetDefined(a.state, 1);
    a.value = sign > 0 ? a.value + b.value : a.value - b.value;
    if (b.value != 0.0)
        a.state.modified = 1;
    return a;
}

/// The same with a plain number.
Real AfterPlain(Real a, double b, int sign)
{
    if (IsMissing(a.state))
        return a;
    SetDefined(a.state, 1);
    a.value = sign > 0 ? a.value + b : a.value - b;
    if (b != 0.0)
        a.state.modified = 1;
    return a;
}

/// Compares, except for the sign of a zero: a zero that is added may be added or left out.
::testing::AssertionResult Is(const ZelDtDouble& value, const Real& expected)
{
    const Real seen = Look(value);
    if (seen.state == expected.state &&
        (Same(seen.value, expected.value) || (seen.value == 0.0 && expected.value == 0.0)))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "expected " << expected << ", got " << seen;
}

TEST(CompoundAssignment, OfValuesFollowsTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Real& a : Reals(kValues)) {
        for (const Real& b : Reals(kValues)) {
            const Given<ZelDtDouble> right(b);
            Given<ZelDtDouble> plus(a);
            plus.it.SetFormat(&format);
            EXPECT_EQ(&(plus.it += right.it), &plus.it);
            ASSERT_TRUE(Is(plus.it, AfterCompound(a, b, 1))) << a << " += " << b;
            EXPECT_EQ(plus.it.GetFormat(), &format);
            Given<ZelDtDouble> minus(a);
            EXPECT_EQ(&(minus.it -= right.it), &minus.it);
            ASSERT_TRUE(Is(minus.it, AfterCompound(a, b, -1))) << a << " -= " << b;
            ASSERT_EQ(Look(right.it), b);
        }
    }
}

TEST(CompoundAssignment, OfAValueToItself)
{
    for (const Real& a : Reals(kValues)) {
        Given<ZelDtDouble> plus(a);
        plus.it += plus.it;
        EXPECT_TRUE(Is(plus.it, AfterCompound(a, a, 1))) << a;
        Given<ZelDtDouble> minus(a);
        const ZelDtDouble& same = minus.it;
        minus.it -= same;
        EXPECT_TRUE(Is(minus.it, AfterCompound(a, a, -1))) << a;
    }
}

TEST(CompoundAssignment, OfPlainNumbersFollowsTheRules)
{
    for (const Real& a : Reals(kValues)) {
        for (const double d : kPlainDoubles) {
            Given<ZelDtDouble> plus(a);
            EXPECT_EQ(&(plus.it += d), &plus.it);
            ASSERT_TRUE(Is(plus.it, AfterPlain(a, d, 1))) << a << " += " << d;
            Given<ZelDtDouble> minus(a);
            EXPECT_EQ(&(minus.it -= d), &minus.it);
            ASSERT_TRUE(Is(minus.it, AfterPlain(a, d, -1))) << a << " -= " << d;
        }
        for (const int i : kPlainInts) {
            Given<ZelDtDouble> plus(a);
            EXPECT_EQ(&(plus.it += i), &plus.it);
            ASSERT_TRUE(Is(plus.it, AfterPlain(a, i, 1))) << a << " += " << i;
            Given<ZelDtDouble> minus(a);
            EXPECT_EQ(&(minus.it -= i), &minus.it);
            ASSERT_TRUE(Is(minus.it, AfterPlain(a, i, -1))) << a << " -= " << i;
            Given<ZelDtDouble> plusLong(a);
            EXPECT_EQ(&(plusLong.it += static_cast<long>(i)), &plusLong.it);
            ASSERT_TRUE(Is(plusLong.it, AfterPlain(a, i, 1))) << a << " += " << i << 'L';
            Given<ZelDtDouble> minusLong(a);
            EXPECT_EQ(&(minusLong.it -= static_cast<long>(i)), &minusLong.it);
            ASSERT_TRUE(Is(minusLong.it, AfterPlain(a, i, -1))) << a << " -= " << i << 'L';
        }
    }
}

TEST(CompoundAssignment, OfKnownNumbers)
{
    ZelDtDouble value(0.1);
    value += ZelDtDouble(0.2);
    EXPECT_EQ(Look(value), (Real{{ZelDtWmMissing, 1, 1}, 0.30000000000000004}));
    value.SetModified(0);
    value += 0.0;
    value -= ZelDtDouble(0.0);
    EXPECT_EQ(value.IsModified(), 0);
    value += ZelDtDouble(ZelDtWmMissing); // clears
    EXPECT_EQ(Look(value), (Real{{ZelDtWmMissing, 0, 1}, 0.0}));
    value += 5; // a missing value stays
    EXPECT_EQ(Look(value), (Real{{ZelDtWmMissing, 0, 1}, 0.0}));
    ZelDtDouble null(ZelDtWmNull);
    null += 0.0; // defined now, which is a change
    EXPECT_EQ(Look(null), (Real{{ZelDtWmNull, 1, 1}, 0.0}));
}

TEST(Counting, FollowsTheRules)
{
    const struct {
        const char* name;
        void (*count)(ZelDtDouble&);
        double step;
    } forms[] = {
        {"++ before", [](ZelDtDouble& v) { ++v; }, 1.0},
        {"++ behind", [](ZelDtDouble& v) { v++; }, 1.0},
        {"-- before", [](ZelDtDouble& v) { --v; }, -1.0},
        {"-- behind", [](ZelDtDouble& v) { v--; }, -1.0},
    };
    for (const auto& form : forms) {
        for (const Real& real : Reals(kValues)) {
            Real expected = real;
            if (!IsMissing(real.state))
                expected = {{real.state.mode, 1, 1}, real.value + form.step};
            Given<ZelDtDouble> given(real);
            form.count(given.it);
            EXPECT_EQ(Look(given.it), expected) << form.name << ' ' << real;
        }
    }
}

TEST(Counting, GivesNothing)
{
    ZelDtDouble value(1.0);
    EXPECT_TRUE((std::is_void_v<decltype(++value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value++)>));
    EXPECT_TRUE((std::is_void_v<decltype(--value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value--)>));
}

/// One comparison in all its forms.
struct Comparison {
    const char* sign;
    bool (*holds)(double, double);
    int (*values)(const ZelDtDouble&, const ZelDtDouble&);
    int (*rightDouble)(const ZelDtDouble&, double);
    int (*rightInt)(const ZelDtDouble&, int);
    int (*rightLong)(const ZelDtDouble&, long);
    int (*leftDouble)(double, const ZelDtDouble&);
    int (*leftInt)(int, const ZelDtDouble&);
    int (*leftLong)(long, const ZelDtDouble&);
};

#define ZEL_COMPARISON(op, rule)                                                                   \
    {                                                                                              \
#op, [](double a, double b) -> bool { return rule; },                                      \
            [](const ZelDtDouble& a, const ZelDtDouble& b) { return a op b; },                     \
            [](const ZelDtDouble& a, double b) { return a op b; },                                 \
            [](const ZelDtDouble& a, int b) { return a op b; },                                    \
            [](const ZelDtDouble& a, long b) { return a op b; },                                   \
            [](double a, const ZelDtDouble& b) { return a op b; },                                 \
            [](int a, const ZelDtDouble& b) { return a op b; },                                    \
            [](long a, const ZelDtDouble& b) { return a op b; },       \
    }
// Equal is what is neither smaller nor greater, so NaN equals everything.
const Comparison kComparisons[] = {
    ZEL_COMPARISON(<, a < b),
    ZEL_COMPARISON(>, a > b),
    ZEL_COMPARISON(<=, a <= b),
    ZEL_COMPARISON(>=, a >= b),
    ZEL_COMPARISON(==, !(a < b) && !(a > b)),
    ZEL_COMPARISON(!=, a<b || a> b),
};
#undef ZEL_COMPARISON

const std::vector<double> kCompared = {0.0,       -0.0,       1.0,          1.0000000000000002,
                                       -2.5,      0.1,        2147483647.0, kLargest,
                                       kSmallest, -kInfinity, kInfinity,    kNaN};

TEST(Comparisons, OfValuesUseTheStoredNumbers)
{
    for (const Real& a : Reals(kCompared)) {
        const Given<ZelDtDouble> left(a);
        for (const Real& b : Reals(kCompared)) {
            const Given<ZelDtDouble> right(b);
            for (const Comparison& c : kComparisons) {
                const std::string signature = std::string("operator") + c.sign + "(ZelDtDouble&)";
                if (IsMissing(a.state) || IsMissing(b.state))
                    ASSERT_TRUE(
                        FailsWith([&] { c.values(left.it, right.it); }, DoubleError(2, signature)))
                        << a << ' ' << c.sign << ' ' << b;
                else
                    ASSERT_EQ(c.values(left.it, right.it), c.holds(a.value, b.value) ? 1 : 0)
                        << a << ' ' << c.sign << ' ' << b;
            }
        }
        ASSERT_EQ(Look(left.it), a);
    }
}

TEST(Comparisons, WithPlainDoublesOnEitherSide)
{
    for (const Real& a : Reals(kCompared)) {
        const Given<ZelDtDouble> given(a);
        for (const double d : kCompared) {
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << d);
                if (IsMissing(a.state)) {
                    const std::string signature =
                        std::string("operator") + c.sign + "(const double&)";
                    EXPECT_TRUE(
                        FailsWith([&] { c.rightDouble(given.it, d); }, DoubleError(2, signature)));
                    EXPECT_EQ(Catch([&] { c.leftDouble(d, given.it); }).error.number, 2u);
                } else {
                    EXPECT_EQ(c.rightDouble(given.it, d), c.holds(a.value, d) ? 1 : 0);
                    EXPECT_EQ(c.leftDouble(d, given.it), c.holds(d, a.value) ? 1 : 0);
                }
            }
        }
        EXPECT_EQ(Look(given.it), a);
    }
}

TEST(Comparisons, WithPlainWholeNumbersOnEitherSide)
{
    for (const Real& a : Reals(kCompared)) {
        const Given<ZelDtDouble> given(a);
        for (const int i : kPlainInts) {
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << i);
                if (IsMissing(a.state)) {
                    EXPECT_TRUE(
                        FailsWith([&] { c.rightInt(given.it, i); },
                                  DoubleError(2, std::string("operator") + c.sign + "(INT)")));
                    EXPECT_EQ(Catch([&] { c.rightLong(given.it, i); }).error.number, 2u);
                    EXPECT_EQ(Catch([&] { c.leftInt(i, given.it); }).error.number, 2u);
                    EXPECT_EQ(Catch([&] { c.leftLong(i, given.it); }).error.number, 2u);
                } else {
                    const int right = c.holds(a.value, i) ? 1 : 0;
                    const int left = c.holds(i, a.value) ? 1 : 0;
                    EXPECT_EQ(c.rightInt(given.it, i), right);
                    EXPECT_EQ(c.rightLong(given.it, i), right);
                    EXPECT_EQ(c.leftInt(i, given.it), left);
                    EXPECT_EQ(c.leftLong(i, given.it), left);
                }
            }
        }
        EXPECT_EQ(Look(given.it), a);
    }
}

TEST(Comparisons, AreExact)
{
    const ZelDtDouble sum = ZelDtDouble(0.1) + 0.2;
    EXPECT_EQ(sum == 0.3, 0);
    EXPECT_EQ(sum != 0.3, 1);
    EXPECT_EQ(sum == ZelDtDouble(0.3), 0);
    EXPECT_EQ(sum > 0.3, 1);
    EXPECT_EQ(0.3 < sum, 1);
    EXPECT_EQ(ZelDtDouble(0.0) == ZelDtDouble(-0.0), 1);
    EXPECT_EQ(ZelDtDouble(kSmallest) > 0, 1);
    EXPECT_EQ(ZelDtDouble(kSmallest) == 0, 0);
    EXPECT_EQ(ZelDtDouble(2147483646.5) < INT_MAX, 1);
    EXPECT_EQ(INT_MAX > ZelDtDouble(2147483646.5), 1);
}

TEST(Comparisons, OfNaN)
{
    const ZelDtDouble nan(kNaN);
    EXPECT_EQ(nan == nan, 1);
    EXPECT_EQ(nan != nan, 0);
    EXPECT_EQ(nan == 5.0, 1);
    EXPECT_EQ(nan == 5, 1);
    EXPECT_EQ(nan < 5.0, 0);
    EXPECT_EQ(nan > 5.0, 0);
}

} // namespace
