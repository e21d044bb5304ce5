/// Compound assignment, counting and comparison of the integer classes in every state of the
/// operands.

#include "tests/numeric/integer_testing.h"

#include "platform/formats/ZelFormat.h"

#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

template <typename V>
std::vector<int> Samples()
{
    return {0, 1, -1, 7, kMax<V>, kMin<V>};
}

/// Plain operands, those included that the class itself does not hold.
template <typename V>
std::vector<int> PlainOperands()
{
    std::vector<int> values = Samples<V>();
    for (const int value : {kMax<ZelDtShort> + 1, kMin<ZelDtShort> - 1, 65536, 65535,
                            std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        values.push_back(value);
    return values;
}

/// A value after an operation, which may have failed for its range.
struct Change {
    Number after;
    bool overflow = false;
};

/// Adds `summand` as the second step of `+=` and `-=` with a value: marks, then computes.
template <typename V>
Change Added(Number n, std::int64_t summand)
{
    if (summand == 0)
        return {n};
    n.state.modified = 1;
    if (!InRange<V>(n.value + summand))
        return {n, true};
    n.value += summand;
    return {n};
}

template <typename V>
Change AfterPlus(Number a, const Number& b)
{
    if (!Computes(a.state, b.state)) {
        a.value = 0;
        SetDefined(a.state, 0);
        return {a};
    }
    Change change = Added<V>(a, b.value);
    if (!change.overflow)
        SetDefined(change.after.state, 1);
    return change;
}

template <typename V>
Change AfterMinus(Number a, const Number& b)
{
    if (!Computes(a.state, b.state)) {
        a.value = 0;
        SetDefined(a.state, 0);
        return {a};
    }
    SetDefined(a.state, 1);
    return Added<V>(a, -b.value);
}

/// `+=` with a plain number: computes, then marks.
template <typename V>
Change AfterPlain(const Number& a, std::int64_t summand)
{
    if (IsMissing(a.state))
        return {a};
    if (!InRange<V>(a.value + summand))
        return {a, true};
    Number after = a;
    if (summand != 0) {
        after.value += summand;
        after.state.modified = 1;
    }
    SetDefined(after.state, 1);
    return {after};
}

template <typename V, typename Action>
void ExpectChange(V& value, const Change& expected, const Error& outer, const Error& first,
                  Action&& action)
{
    if (expected.overflow)
        EXPECT_TRUE(FailsWith(action, outer, first));
    else
        action();
    EXPECT_EQ(Look(value), expected.after);
}

template <typename V>
Error AddOverflow()
{
    return ArithmeticError<V>(8, "Addieren");
}

template <typename V>
Error SubOverflow()
{
    return ArithmeticError<V>(8, "Subtrahieren");
}

template <typename V>
Error PlusError()
{
    return ClassError<V>(1, "operator+=" + OwnArgument<V>());
}

template <typename V>
Error MinusError()
{
    return ClassError<V>(1, "operator-=" + OwnArgument<V>());
}

ZEL_INTEGER_SUITE(CompoundAssignment);

TYPED_TEST(CompoundAssignment, OfValuesFollowsTheRules)
{
    using V = TypeParam;
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& a : Numbers(Samples<V>())) {
        for (const Number& b : Numbers(Samples<V>())) {
            SCOPED_TRACE(::testing::Message() << a << " and " << b);
            const Given<V> right(b);
            Given<V> plus(a);
            plus.it.SetFormat(&format);
            ExpectChange(plus.it, AfterPlus<V>(a, b), PlusError<V>(), AddOverflow<V>(),
                         [&] { EXPECT_EQ(&(plus.it += right.it), &plus.it); });
            EXPECT_EQ(plus.it.GetFormat(), &format);
            Given<V> minus(a);
            ExpectChange(minus.it, AfterMinus<V>(a, b), MinusError<V>(), SubOverflow<V>(),
                         [&] { EXPECT_EQ(&(minus.it -= right.it), &minus.it); });
            EXPECT_EQ(Look(right.it), b);
            if (this->HasFailure())
                return;
        }
    }
}

TYPED_TEST(CompoundAssignment, OfAValueToItself)
{
    using V = TypeParam;
    const int half = kMax<V> / 2; // the largest number that can be doubled
    for (const Number& a : Numbers({0, 7, half, half + 1, kMin<V>})) {
        SCOPED_TRACE(::testing::Message() << a);
        Given<V> plus(a);
        ExpectChange(plus.it, AfterPlus<V>(a, a), PlusError<V>(), AddOverflow<V>(),
                     [&] { plus.it += plus.it; });
        Given<V> minus(a);
        const V& same = minus.it;
        ExpectChange(minus.it, AfterMinus<V>(a, a), MinusError<V>(), SubOverflow<V>(),
                     [&] { minus.it -= same; });
    }
}

TYPED_TEST(CompoundAssignment, DiffersInWhatAnOverflowLeaves)
{
    using V = TypeParam;
    // Undefined null, storing the largest number, unmodified.
    const Number before{{ZelDtWmNull, 0, 0}, kMax<V>};
    Given<V> plus(before);
    EXPECT_TRUE(FailsWith([&] { plus.it += V(1); }, PlusError<V>(), AddOverflow<V>()));
    EXPECT_EQ(Look(plus.it), (Number{{ZelDtWmNull, 0, 1}, kMax<V>}));
    Given<V> minus(before);
    EXPECT_TRUE(FailsWith([&] { minus.it -= V(-1); }, MinusError<V>(), SubOverflow<V>()));
    EXPECT_EQ(Look(minus.it), (Number{{ZelDtWmNull, 1, 1}, kMax<V>}));
}

TYPED_TEST(CompoundAssignment, OfPlainNumbersFollowsTheRules)
{
    using V = TypeParam;
    for (const Number& a : Numbers(Samples<V>())) {
        for (const int i : PlainOperands<V>()) {
            SCOPED_TRACE(::testing::Message() << a << " and " << i);
            const Change plus = AfterPlain<V>(a, i);
            const Change minus = AfterPlain<V>(a, -static_cast<std::int64_t>(i));
            Given<V> plusInt(a);
            ExpectChange(plusInt.it, plus, ClassError<V>(1, "operator+=(INT)"), AddOverflow<V>(),
                         [&] { EXPECT_EQ(&(plusInt.it += i), &plusInt.it); });
            Given<V> minusInt(a);
            ExpectChange(minusInt.it, minus, ClassError<V>(1, "operator-=(INT)"), SubOverflow<V>(),
                         [&] { EXPECT_EQ(&(minusInt.it -= i), &minusInt.it); });
            const long number = i;
            if (!plus.overflow) {
                Given<V> plusLong(a);
                plusLong.it += number;
                EXPECT_EQ(Look(plusLong.it), plus.after);
            }
            if (!minus.overflow) {
                Given<V> minusLong(a);
                minusLong.it -= number;
                EXPECT_EQ(Look(minusLong.it), minus.after);
            }
            if (this->HasFailure())
                return;
        }
    }
}

TYPED_TEST(CompoundAssignment, ComputesWithTheWholeOfALongOperand)
{
    using V = TypeParam;
    std::vector<long> operands = OutsideLongs<V>();
    if constexpr (sizeof(long) > sizeof(typename Facts<V>::Bits)) {
        operands.push_back(std::numeric_limits<long>::max() / 2);
        operands.push_back(-std::numeric_limits<long>::max() / 2);
    }
    for (const Number& a : Numbers({0, 7, kMax<V>, kMin<V>})) {
        for (const long operand : operands) {
            const std::int64_t big = operand;
            SCOPED_TRACE(::testing::Message() << a << " and " << big);
            const Change plus = AfterPlain<V>(a, big);
            Given<V> plusLong(a);
            const Caught added = Catch([&] { plusLong.it += operand; });
            EXPECT_EQ(added.first.number, plus.overflow ? 8u : 0u);
            EXPECT_EQ(added.error.number, plus.overflow ? 1u : 0u);
            EXPECT_EQ(Look(plusLong.it), plus.after);
            const Change minus = AfterPlain<V>(a, -big);
            Given<V> minusLong(a);
            const Caught subtracted = Catch([&] { minusLong.it -= operand; });
            EXPECT_EQ(subtracted.first.number, minus.overflow ? 8u : 0u);
            EXPECT_EQ(subtracted.error.number, minus.overflow ? 1u : 0u);
            EXPECT_EQ(Look(minusLong.it), minus.after);
        }
    }
}

TYPED_TEST(CompoundAssignment, DoesNotWrapAtTheLimitsOfALongOperand)
{
    using V = TypeParam;
    if constexpr (sizeof(long) > sizeof(typename Facts<V>::Bits)) {
        for (const long limit :
             {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
            for (const int value : {-1, 0, 1, kMin<V>, kMax<V>}) {
                V number(value);
                EXPECT_EQ(Catch([&] { number += limit; }).first.number, 8u);
                EXPECT_EQ(Catch([&] { number -= limit; }).first.number, 8u);
                EXPECT_EQ(Look(number), Defined(value));
            }
        }
    }
}

/// `n` after counting by `step`.
template <typename V>
Change Counted(Number n, int step)
{
    if (IsMissing(n.state))
        return {n};
    if (!InRange<V>(n.value + step))
        return {n, true};
    n.value += step;
    n.state = {n.state.mode, 1, 1};
    return {n};
}

ZEL_INTEGER_SUITE(Counting);

TYPED_TEST(Counting, FollowsTheRules)
{
    using V = TypeParam;
    const struct {
        const char* name;
        void (*count)(V&);
        int step;
    } forms[] = {
        {"++", [](V& v) { ++v; }, 1},
        {"++", [](V& v) { v++; }, 1},
        {"--", [](V& v) { --v; }, -1},
        {"--", [](V& v) { v--; }, -1},
    };
    for (const auto& form : forms) {
        for (const Number& number : Numbers(Samples<V>())) {
            SCOPED_TRACE(::testing::Message() << form.name << ' ' << number);
            const Change expected = Counted<V>(number, form.step);
            Given<V> given(number);
            if (expected.overflow) {
                const Caught caught = Catch([&] { form.count(given.it); });
                EXPECT_EQ(caught.error.signature.rfind(std::string("operator") + form.name, 0), 0u)
                    << caught.error;
                EXPECT_TRUE(Matches(caught, ClassError<V>(1, caught.error.signature),
                                    form.step > 0 ? AddOverflow<V>() : SubOverflow<V>()));
            } else {
                form.count(given.it);
            }
            EXPECT_EQ(Look(given.it), expected.after);
        }
    }
}

TYPED_TEST(Counting, GivesNothing)
{
    TypeParam value(1);
    EXPECT_TRUE((std::is_void_v<decltype(++value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value++)>));
    EXPECT_TRUE((std::is_void_v<decltype(--value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value--)>));
}

/// One comparison in all its forms.
template <typename V>
struct Comparison {
    const char* sign;
    bool (*holds)(std::int64_t, std::int64_t);
    int (*values)(const V&, const V&);
    int (*rightInt)(const V&, int);
    int (*rightLong)(const V&, long);
    int (*leftInt)(int, const V&);
    int (*leftLong)(long, const V&);
};

#define ZEL_COMPARISON(op)                                                                         \
    Comparison<V>                                                                                  \
    {                                                                                              \
#op, [](std::int64_t a, std::int64_t b) { return a op b; },                                \
            [](const V& a, const V& b) { return a op b; },                                         \
            [](const V& a, int b) { return a op b; }, [](const V& a, long b) { return a op b; },   \
            [](int a, const V& b) { return a op b; }, [](long a, const V& b) { return a op b; },       \
    }
template <typename V>
std::vector<Comparison<V>> AllComparisons()
{
    return {ZEL_COMPARISON(<),  ZEL_COMPARISON(>),  ZEL_COMPARISON(<=),
            ZEL_COMPARISON(>=), ZEL_COMPARISON(==), ZEL_COMPARISON(!=)};
}
#undef ZEL_COMPARISON

ZEL_INTEGER_SUITE(Comparisons);

TYPED_TEST(Comparisons, OfValuesUseTheStoredNumbers)
{
    using V = TypeParam;
    const std::vector<Comparison<V>> comparisons = AllComparisons<V>();
    for (const Number& a : Numbers(Samples<V>())) {
        const Given<V> left(a);
        for (const Number& b : Numbers(Samples<V>())) {
            const Given<V> right(b);
            for (const Comparison<V>& c : comparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << b);
                const std::string signature = std::string("operator") + c.sign + OwnArgument<V>();
                if (IsMissing(a.state) || IsMissing(b.state))
                    EXPECT_TRUE(FailsWith([&] { c.values(left.it, right.it); },
                                          ClassError<V>(2, signature)));
                else
                    EXPECT_EQ(c.values(left.it, right.it), c.holds(a.value, b.value) ? 1 : 0);
            }
            EXPECT_EQ(Look(right.it), b);
        }
        EXPECT_EQ(Look(left.it), a);
        if (this->HasFailure())
            return;
    }
}

TYPED_TEST(Comparisons, WithPlainNumbersOnEitherSide)
{
    using V = TypeParam;
    const std::vector<Comparison<V>> comparisons = AllComparisons<V>();
    for (const Number& a : Numbers(Samples<V>())) {
        const Given<V> given(a);
        for (const int i : PlainOperands<V>()) {
            for (const Comparison<V>& c : comparisons) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << c.sign << ' ' << i);
                if (IsMissing(a.state)) {
                    EXPECT_TRUE(
                        FailsWith([&] { c.rightInt(given.it, i); },
                                  ClassError<V>(2, std::string("operator") + c.sign + "(INT)")));
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

TYPED_TEST(Comparisons, NeverCutALongOperand)
{
    using V = TypeParam;
    const V seven(7);
    for (const long big : OutsideLongs<V>()) {
        for (const Comparison<V>& c : AllComparisons<V>()) {
            EXPECT_EQ(c.rightLong(seven, big), c.holds(7, big) ? 1 : 0)
                << "7 " << c.sign << ' ' << big;
            EXPECT_EQ(c.leftLong(big, seven), c.holds(big, 7) ? 1 : 0)
                << big << ' ' << c.sign << " 7";
        }
    }
}

} // namespace
