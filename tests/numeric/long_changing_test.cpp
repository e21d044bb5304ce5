/// Compound assignment, counting and comparison of ZelDtLong in every state of the operands.

#include "tests/numeric/long_testing.h"

#include "platform/formats/ZelFormat.h"

#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<int> kValues = {0, 1, -1, 7, kMax, kMin};

bool IsMissing(const State& state)
{
    return !state.defined && state.mode == ZelDtWmMissing;
}

/// Whether an operation on the two computes: one of them is defined, and the other one defined or
/// at least not missing.
bool Computes(const State& a, const State& b)
{
    return (a.defined || b.defined) && !IsMissing(a) && !IsMissing(b);
}

/// A value after an operation, which may have failed for its range.
struct Change {
    Number after;
    bool overflow = false;
};

bool InRange(std::int64_t value)
{
    return value >= kMin && value <= kMax;
}

/// Adds `summand` as the second step of `+=` and `-=` with a value: marks, then computes.
Change Added(Number n, std::int64_t summand)
{
    if (summand == 0)
        return {n};
    n.state.modified = 1;
    if (!InRange(n.value + summand))
        return {n, true};
    n.value += summand;
    return {n};
}

Change AfterPlus(Number a, const Number& b)
{
    if (!Computes(a.state, b.state)) {
        a.value = 0;
        SetDefined(a, 0);
        return {a};
    }
    Change change = Added(a, b.value);
    if (!change.overflow)
        SetDefined(change.after, 1);
    return change;
}

Change AfterMinus(Number a, const Number& b)
{
    if (!Computes(a.state, b.state)) {
        a.value = 0;
        SetDefined(a, 0);
        return {a};
    }
    SetDefined(a, 1);
    return Added(a, -b.value);
}

/// `+=` with a plain number: computes, then marks.
Change AfterPlain(const Number& a, std::int64_t summand)
{
    if (IsMissing(a.state))
        return {a};
    if (!InRange(a.value + summand))
        return {a, true};
    Number after = a;
    if (summand != 0) {
        after.value += summand;
        after.state.modified = 1;
    }
    SetDefined(after, 1);
    return {after};
}

template <typename Action>
void ExpectChange(ZelDtLong& value, const Change& expected, const Error& outer, const Error& first,
                  Action&& action)
{
    if (expected.overflow)
        EXPECT_TRUE(FailsWith(action, outer, first));
    else
        action();
    EXPECT_EQ(Look(value), expected.after);
}

const Error kAddOverflow = ArithmeticError(8, "Addieren");
const Error kSubOverflow = ArithmeticError(8, "Subtrahieren");

TEST(CompoundAssignment, OfValuesFollowsTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& a : Numbers(kValues)) {
        for (const Number& b : Numbers(kValues)) {
            SCOPED_TRACE(::testing::Message() << a << " and " << b);
            const Given right(b);
            Given plus(a);
            plus.it.SetFormat(&format);
            ExpectChange(plus.it, AfterPlus(a, b), LongError(1, "operator+=(ZelDtLong&)"),
                         kAddOverflow, [&] { EXPECT_EQ(&(plus.it += right.it), &plus.it); });
            EXPECT_EQ(plus.it.GetFormat(), &format);
            Given minus(a);
            ExpectChange(minus.it, AfterMinus(a, b), LongError(1, "operator-=(ZelDtLong&)"),
                         kSubOverflow, [&] { EXPECT_EQ(&(minus.it -= right.it), &minus.it); });
            EXPECT_EQ(Look(right.it), b);
            if (HasFailure())
                return;
        }
    }
}

TEST(CompoundAssignment, OfAValueToItself)
{
    for (const Number& a : Numbers({0, 7, 1073741823, 1073741824, kMin})) {
        SCOPED_TRACE(::testing::Message() << a);
        Given plus(a);
        ExpectChange(plus.it, AfterPlus(a, a), LongError(1, "operator+=(ZelDtLong&)"), kAddOverflow,
                     [&] { plus.it += plus.it; });
        Given minus(a);
        const ZelDtLong& same = minus.it;
        ExpectChange(minus.it, AfterMinus(a, a), LongError(1, "operator-=(ZelDtLong&)"),
                     kSubOverflow, [&] { minus.it -= same; });
    }
}

TEST(CompoundAssignment, DiffersInWhatAnOverflowLeaves)
{
    // Undefined null, storing the largest number, unmodified.
    const Number before{{ZelDtWmNull, 0, 0}, kMax};
    Given plus(before);
    EXPECT_TRUE(FailsWith([&] { plus.it += ZelDtLong(1); }, LongError(1, "operator+=(ZelDtLong&)"),
                          kAddOverflow));
    EXPECT_EQ(Look(plus.it), (Number{{ZelDtWmNull, 0, 1}, kMax}));
    Given minus(before);
    EXPECT_TRUE(FailsWith([&] { minus.it -= ZelDtLong(-1); },
                          LongError(1, "operator-=(ZelDtLong&)"), kSubOverflow));
    EXPECT_EQ(Look(minus.it), (Number{{ZelDtWmNull, 1, 1}, kMax}));
}

TEST(CompoundAssignment, OfPlainNumbersFollowsTheRules)
{
    for (const Number& a : Numbers(kValues)) {
        for (const int i : kValues) {
            SCOPED_TRACE(::testing::Message() << a << " and " << i);
            const Change plus = AfterPlain(a, i);
            const Change minus = AfterPlain(a, -static_cast<std::int64_t>(i));
            Given plusInt(a);
            ExpectChange(plusInt.it, plus, LongError(1, "operator+=(INT)"), kAddOverflow,
                         [&] { EXPECT_EQ(&(plusInt.it += i), &plusInt.it); });
            Given minusInt(a);
            ExpectChange(minusInt.it, minus, LongError(1, "operator-=(INT)"), kSubOverflow,
                         [&] { EXPECT_EQ(&(minusInt.it -= i), &minusInt.it); });
            const long number = i;
            if (!plus.overflow) {
                Given plusLong(a);
                plusLong.it += number;
                EXPECT_EQ(Look(plusLong.it), plus.after);
            }
            if (!minus.overflow) {
                Given minusLong(a);
                minusLong.it -= number;
                EXPECT_EQ(Look(minusLong.it), minus.after);
            }
            if (HasFailure())
                return;
        }
    }
}

TEST(CompoundAssignment, ComputesWithTheWholeOfALongOperand)
{
    if constexpr (sizeof(long) > 4) {
        const std::int64_t limit = std::numeric_limits<long>::max();
        for (const Number& a : Numbers({0, 7, kMax, kMin})) {
            for (const std::int64_t big : {std::int64_t{kMax} + 1, std::int64_t{kMin} - 1,
                                           std::int64_t{1} << 32, limit / 2, -limit / 2}) {
                SCOPED_TRACE(::testing::Message() << a << " and " << big);
                const long operand = static_cast<long>(big);
                const Change plus = AfterPlain(a, big);
                Given plusLong(a);
                const Caught added = Catch([&] { plusLong.it += operand; });
                EXPECT_EQ(added.first.number, plus.overflow ? 8u : 0u);
                EXPECT_EQ(added.error.number, plus.overflow ? 1u : 0u);
                EXPECT_EQ(Look(plusLong.it), plus.after);
                const Change minus = AfterPlain(a, -big);
                Given minusLong(a);
                const Caught subtracted = Catch([&] { minusLong.it -= operand; });
                EXPECT_EQ(subtracted.first.number, minus.overflow ? 8u : 0u);
                EXPECT_EQ(subtracted.error.number, minus.overflow ? 1u : 0u);
                EXPECT_EQ(Look(minusLong.it), minus.after);
            }
        }
    }
}

TEST(CompoundAssignment, DoesNotWrapAtTheLimitsOfALongOperand)
{
    if constexpr (sizeof(long) > 4) {
        for (const long limit :
             {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
            for (const int value : {-1, 0, 1, kMin, kMax}) {
                ZelDtLong number(value);
                EXPECT_EQ(Catch([&] { number += limit; }).first.number, 8u);
                EXPECT_EQ(Catch([&] { number -= limit; }).first.number, 8u);
                EXPECT_EQ(Look(number), Defined(value));
            }
        }
    }
}

/// `n` after counting by `step`.
Change Counted(Number n, int step)
{
    if (IsMissing(n.state))
        return {n};
    if (!InRange(n.value + step))
        return {n, true};
    n.value += step;
    n.state = {n.state.mode, 1, 1};
    return {n};
}

TEST(Counting, FollowsTheRules)
{
    const struct {
        const char* name;
        void (*count)(ZelDtLong&);
        int step;
    } forms[] = {
        {"++", [](ZelDtLong& v) { ++v; }, 1},
        {"++", [](ZelDtLong& v) { v++; }, 1},
        {"--", [](ZelDtLong& v) { --v; }, -1},
        {"--", [](ZelDtLong& v) { v--; }, -1},
    };
    for (const auto& form : forms) {
        for (const Number& number : Numbers(kValues)) {
            SCOPED_TRACE(::testing::Message() << form.name << ' ' << number);
            const Change expected = Counted(number, form.step);
            Given given(number);
            if (expected.overflow) {
                const Caught caught = Catch([&] { form.count(given.it); });
                EXPECT_EQ(caught.error.signature.rfind(std::string("operator") + form.name, 0), 0u)
                    << caught.error;
                EXPECT_TRUE(Matches(caught, LongError(1, caught.error.signature),
                                    form.step > 0 ? kAddOverflow : kSubOverflow));
            } else {
                form.count(given.it);
            }
            EXPECT_EQ(Look(given.it), expected.after);
        }
    }
}

TEST(Counting, GivesNothing)
{
    ZelDtLong value(1);
    EXPECT_TRUE((std::is_void_v<decltype(++value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value++)>));
    EXPECT_TRUE((std::is_void_v<decltype(--value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value--)>));
}

/// One comparison in all its forms.
struct Comparison {
    const char* sign;
    bool (*holds)(std::int64_t, std::int64_t);
    int (*values)(const ZelDtLong&, const ZelDtLong&);
    int (*rightInt)(const ZelDtLong&, int);
    int (*rightLong)(const ZelDtLong&, long);
    int (*leftInt)(int, const ZelDtLong&);
    int (*leftLong)(long, const ZelDtLong&);
};

#define ZEL_COMPARISON(op)                                                                         \
    {                                                                                              \
#op, [](std::int64_t a, std::int64_t b) { return a op b; },                                \
            [](const ZelDtLong& a, const ZelDtLong& b) { return a op b; },                         \
            [](const ZelDtLong& a, int b) { return a op b; },                                      \
            [](const ZelDtLong& a, long b) { return a op b; },                                     \
            [](int a, const ZelDtLong& b) { return a op b; },                                      \
            [](long a, const ZelDtLong& b) { return a op b; },       \
    }
const Comparison kComparisons[] = {ZEL_COMPARISON(<),  ZEL_COMPARISON(>),  ZEL_COMPARISON(<=),
                                   ZEL_COMPARISON(>=), ZEL_COMPARISON(==), ZEL_COMPARISON(!=)};
#undef ZEL_COMPARISON

TEST(Comparisons, OfValuesUseTheStoredNumbers)
{
    for (const Number& a : Numbers(kValues)) {
        const Given left(a);
        for (const Number& b : Numbers(kValues)) {
            const Given right(b);
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << b);
                if (IsMissing(a.state) || IsMissing(b.state))
                    EXPECT_TRUE(
                        FailsWith([&] { c.values(left.it, right.it); },
                                  LongError(2, std::string("operator") + c.sign + "(ZelDtLong&)")));
                else
                    EXPECT_EQ(c.values(left.it, right.it), c.holds(a.value, b.value) ? 1 : 0);
            }
            EXPECT_EQ(Look(right.it), b);
        }
        EXPECT_EQ(Look(left.it), a);
        if (HasFailure())
            return;
    }
}

TEST(Comparisons, WithPlainNumbersOnEitherSide)
{
    for (const Number& a : Numbers(kValues)) {
        const Given given(a);
        for (const int i : kValues) {
            for (const Comparison& c : kComparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << i);
                if (IsMissing(a.state)) {
                    EXPECT_TRUE(
                        FailsWith([&] { c.rightInt(given.it, i); },
                                  LongError(2, std::string("operator") + c.sign + "(INT)")));
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

TEST(Comparisons, NeverCutALongOperand)
{
    if constexpr (sizeof(long) > 4) {
        for (const std::int64_t big : {std::int64_t{kMax} + 1, std::int64_t{kMin} - 1,
                                       std::int64_t{1} << 32, (std::int64_t{1} << 32) + 7}) {
            const ZelDtLong seven(7);
            for (const Comparison& c : kComparisons) {
                EXPECT_EQ(c.rightLong(seven, static_cast<long>(big)), c.holds(7, big) ? 1 : 0)
                    << "7 " << c.sign << ' ' << big;
                EXPECT_EQ(c.leftLong(static_cast<long>(big), seven), c.holds(big, 7) ? 1 : 0)
                    << big << ' ' << c.sign << " 7";
            }
        }
    }
}

} // namespace
