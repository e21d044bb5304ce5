/// Assignment to ZelDtDecimal, compound assignment, counting.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<std::string> kTexts = {"0",    "0.00", "5",      "5.00",   "5.7",
                                         "-2.5", kTiny,  kLargest, kSmallest};
const double kNan = std::numeric_limits<double>::quiet_NaN();

/// The rules' steps put together, for a value and what it is to become.
struct Change {
    Number after;
    bool overflow = false;
};

// Assignment

/// `to` after `from` was assigned to it.
Number AssignedValue(Number to, const Number& from)
{
    Store(to, from.text);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

TEST(Assignment, OfValuesTakesNumberAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    for (const Number& to : Numbers({"0", "5", "5.00", "-2.5"})) {
        for (const Number& from : Numbers({"0.0", "5.0", kSmallest})) {
            GivenDecimal target(to);
            GivenDecimal source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            GivenDecimal assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
            if (HasFailure())
                return;
        }
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Number& number : Numbers({"0", "-2.5"})) {
        GivenDecimal given(number);
        const ZelDtDecimal& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), number);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    for (const Number& number : Numbers({"-2.5"})) {
        GivenDecimal given(number);
        ZelDtBasis& basis = given.it;
        EXPECT_TRUE(FailsWith([&] { basis.Assign(ZelDtString("5")); },
                              MemberError(10, "Assign(ZelDtBasis&)")));
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Assignment, KeepsThePlacesOfAnEqualNumber)
{
    ZelDtDecimal value("5.0");
    value = ZelDtDecimal("5.00");
    EXPECT_EQ(Look(value), Defined("5.0"));
    value = ZelDtDecimal("5.01");
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, "5.01"}));
}

/// `n` after a whole number was assigned to it: a change is one of the whole part.
Number AfterWhole(Number n, const std::string& number)
{
    SetDefined(n.state, 1);
    const Decimal before = FromText(n.text);
    const Decimal whole = before.places > 0 ? Dropped(before, 0, Method::TowardZero) : before;
    if (Compare(whole, FromText(number)) != 0)
        n.state.modified = 1;
    n.text = number;
    return n;
}

TEST(Assignment, OfWholeNumbersLooksAtTheWholePart)
{
    for (const Number& number :
         Numbers({"0", "0.00", "0.7", "5", "5.00", "5.7", "-5.7", "2147483647.5", "2147483648",
                  "-2147483648.9", "-2147483649", kLargest, kSmallest})) {
        for (const int i : {0, 5, -5, kMaxInt, kMinInt}) {
            const std::string text = std::to_string(i);
            GivenDecimal given(number);
            EXPECT_EQ(&(given.it = i), &given.it);
            EXPECT_EQ(Look(given.it), AfterWhole(number, text)) << number << " = " << i;
            GivenDecimal second(number);
            EXPECT_EQ(&(second.it = static_cast<long>(i)), &second.it);
            EXPECT_EQ(Look(second.it), AfterWhole(number, text)) << number << " = " << i << 'L';
            if (HasFailure())
                return;
        }
    }
    const long limit = std::numeric_limits<long>::max();
    ZelDtDecimal value("0.5");
    value = limit;
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, std::to_string(limit)}));
}

TEST(Assignment, OfAWholeNumberInPlaceOfItsFractionDoesNotMark)
{
    ZelDtDecimal value("5.7");
    value = 5;
    EXPECT_EQ(Look(value), Defined("5"));
    ZelDtDecimal negative("-5.7");
    negative = -5;
    EXPECT_EQ(Look(negative), Defined("-5"));
    ZelDtDecimal other("5.7");
    other = 6;
    EXPECT_EQ(Look(other), (Number{{ZelDtWmMissing, 1, 1}, "6"}));
    ZelDtDecimal beyond("4294967296");
    beyond = kMaxInt; // the nearest limit, but another number
    EXPECT_EQ(Look(beyond), (Number{{ZelDtWmMissing, 1, 1}, "2147483647"}));
}

TEST(Assignment, OfDoublesStoresAndDefines)
{
    const struct {
        double value;
        const char* text;
    } rows[] = {{0.0, "0"}, {5.0, "5"}, {5.7, "5.7"}, {-2.5, "-2.5"}, {0.1, "0.1"}, {1e-27, kTiny}};
    for (const Number& number : Numbers(kTexts)) {
        for (const auto& row : rows) {
            GivenDecimal given(number);
            EXPECT_EQ(&(given.it = row.value), &given.it);
            EXPECT_EQ(Look(given.it), Replaced(number, row.text)) << number << " = " << row.text;
        }
    }
}

TEST(Assignment, OfDoublesThatAreNoDecimalsFails)
{
    for (const Number& number : Unmodified({"0", "-2.5"})) {
        for (const double value : {kNan, std::numeric_limits<double>::infinity(), 1e28, -1e300}) {
            GivenDecimal given(number);
            EXPECT_TRUE(FailsWith([&] { given.it = value; }, OperatorError(1, "operator=(double)"),
                                  OverflowError()));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(Assignment, OfCurrencies)
{
    const struct {
        std::int64_t units;
        const char* text;
    } rows[] = {{0, "0.0000"},
                {50000, "5.0000"},
                {-25000, "-2.5000"},
                {9223372036854775807, "922337203685477.5807"},
                {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"}};
    for (const Number& number : Numbers(kTexts)) {
        for (const auto& row : rows) {
            // Defined first; then a modified value takes it in any case, another if it differs.
            Number expected = number;
            SetDefined(expected.state, 1);
            if (expected.state.modified || Differ(expected.text, row.text))
                Replace(expected, row.text);
            GivenDecimal given(number);
            EXPECT_EQ(&(given.it = Currency(row.units)), &given.it);
            EXPECT_EQ(Look(given.it), expected) << number << " = " << row.text;

            for (const auto status : {COleCurrency::invalid, COleCurrency::null}) {
                GivenDecimal cleared(number);
                cleared.it = Currency(row.units, status);
                EXPECT_EQ(Look(cleared.it), Cleared(number)) << number;
            }
        }
    }
}

TEST(Assignment, NeverTakesTheMode)
{
    ZelDtDecimal target(ZelDtWmNull);
    target = ZelDtDecimal(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtDecimal(5);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

// Compound assignment

/// `+=` and `-=` with a value: computes, defines, marks what was not zero.
Change AfterValue(char op, const Number& a, const Number& b)
{
    if (!Computes(a.state, b.state))
        return {Cleared(a)};
    const Result result = Compute(op, FromText(a.text), FromText(b.text));
    if (!result)
        return {a, true};
    Number after = a;
    after.text = ToText(*result);
    SetDefined(after.state, 1);
    if (!FromText(b.text).IsZero())
        after.state.modified = 1;
    return {after};
}

/// The same with a plain number: 0 leaves the number and its places alone.
Change AfterPlain(char op, const Number& a, const Result& plain)
{
    if (IsMissing(a.state))
        return {a};
    Number after = a;
    SetDefined(after.state, 1);
    if (!plain)
        return {a, true};
    if (plain->IsZero())
        return {after};
    const Result result = Compute(op, FromText(a.text), *plain);
    if (!result)
        return {a, true};
    after.text = ToText(*result);
    after.state.modified = 1;
    return {after};
}

template <typename Action>
void ExpectChange(ZelDtDecimal& value, const Change& expected, const std::string& signature,
                  Action&& action)
{
    if (expected.overflow)
        EXPECT_TRUE(FailsWith(action, OperatorError(1, signature), OverflowError()));
    else
        action();
    EXPECT_EQ(Look(value), expected.after);
}

TEST(CompoundAssignment, OfValuesFollowsTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    const std::vector<Number> rights = Unmodified({"0", "0.000", "-2.5", kLargest});
    for (const Number& a : Numbers({"0", "5.0", "-2.5", kLargest, kSmallest})) {
        for (const Number& b : rights) {
            SCOPED_TRACE(::testing::Message() << a << " and " << b);
            const GivenDecimal right(b);
            GivenDecimal plus(a);
            plus.it.SetFormat(&format);
            ExpectChange(plus.it, AfterValue('+', a, b), "operator+=(ZelDtDecimal&)",
                         [&] { EXPECT_EQ(&(plus.it += right.it), &plus.it); });
            EXPECT_EQ(plus.it.GetFormat(), &format);
            GivenDecimal minus(a);
            ExpectChange(minus.it, AfterValue('-', a, b), "operator-=(ZelDtDecimal&)",
                         [&] { EXPECT_EQ(&(minus.it -= right.it), &minus.it); });
            EXPECT_EQ(Look(right.it), b);
            if (HasFailure())
                return;
        }
    }
}

TEST(CompoundAssignment, OfAValueToItself)
{
    for (const Number& a : Numbers({"0", "0.00", "2.5", kLargest, kTiny})) {
        SCOPED_TRACE(::testing::Message() << a);
        GivenDecimal plus(a);
        const ZelDtDecimal& same = plus.it;
        ExpectChange(plus.it, AfterValue('+', a, a), "operator+=(ZelDtDecimal&)",
                     [&] { plus.it += same; });
        GivenDecimal minus(a);
        const ZelDtDecimal& alike = minus.it;
        ExpectChange(minus.it, AfterValue('-', a, a), "operator-=(ZelDtDecimal&)",
                     [&] { minus.it -= alike; });
    }
}

TEST(CompoundAssignment, OfAZeroTakesItsPlacesWithoutMarking)
{
    ZelDtDecimal value(5);
    value += ZelDtDecimal("0.00");
    EXPECT_EQ(Look(value), Defined("5.00"));
    value -= 0;
    value += 0.0;
    EXPECT_EQ(Look(value), Defined("5.00"));
}

TEST(CompoundAssignment, OfAnUndefinedPairClears)
{
    ZelDtDecimal value("2.5");
    value += ZelDtDecimal(ZelDtWmMissing);
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 0, 1}, "0"}));
    ZelDtDecimal other("2.5");
    other -= ZelDtDecimal(ZelDtWmNull);
    EXPECT_EQ(Look(other), Defined("2.5"));
}

TEST(CompoundAssignment, OfIntegersFollowsTheRules)
{
    for (const Number& a : Numbers(kTexts)) {
        for (const int i : {0, 1, -1, 7, kMaxInt, kMinInt}) {
            SCOPED_TRACE(::testing::Message() << a << " and " << i);
            const Decimal plain = FromText(std::to_string(i));
            const Change plus = AfterPlain('+', a, plain);
            const Change minus = AfterPlain('-', a, plain);
            GivenDecimal plusInt(a);
            ExpectChange(plusInt.it, plus, "operator+=(INT)",
                         [&] { EXPECT_EQ(&(plusInt.it += i), &plusInt.it); });
            GivenDecimal minusInt(a);
            ExpectChange(minusInt.it, minus, "operator-=(INT)",
                         [&] { EXPECT_EQ(&(minusInt.it -= i), &minusInt.it); });

            const long number = i;
            GivenDecimal plusLong(a);
            EXPECT_EQ(Catch([&] { plusLong.it += number; }).first.number, plus.overflow ? 24u : 0u);
            EXPECT_EQ(Look(plusLong.it), plus.after);
            GivenDecimal minusLong(a);
            EXPECT_EQ(Catch([&] { minusLong.it -= number; }).first.number,
                      minus.overflow ? 24u : 0u);
            EXPECT_EQ(Look(minusLong.it), minus.after);
            if (HasFailure())
                return;
        }
    }
}

TEST(CompoundAssignment, OfDoublesFollowsTheRules)
{
    const struct {
        double value;
        Result number;
    } rows[] = {{0.0, FromText("0")},
                {-0.0, FromText("0")},
                {0.1, FromText("0.1")},
                {-2.5, FromText("-2.5")},
                {1e27, FromText("1000000000000000000000000000")},
                {1e28, std::nullopt},
                {kNan, std::nullopt}};
    for (const Number& a : Numbers(kTexts)) {
        for (const auto& row : rows) {
            SCOPED_TRACE(::testing::Message() << a << " and " << row.value);
            GivenDecimal plus(a);
            ExpectChange(plus.it, AfterPlain('+', a, row.number), "operator+=(double)",
                         [&] { EXPECT_EQ(&(plus.it += row.value), &plus.it); });
            GivenDecimal minus(a);
            ExpectChange(minus.it, AfterPlain('-', a, row.number), "operator-=(double)",
                         [&] { EXPECT_EQ(&(minus.it -= row.value), &minus.it); });
            if (HasFailure())
                return;
        }
    }
}

TEST(CompoundAssignment, ComputesWithTheWholeOfALongOperand)
{
    for (const long limit : {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        const Decimal plain = FromText(std::to_string(limit));
        ZelDtDecimal plus("0.5");
        plus += limit;
        EXPECT_EQ(NumberOf(plus), ToText(*Sum(FromText("0.5"), plain)));
        ZelDtDecimal minus("0.5");
        minus -= limit;
        EXPECT_EQ(NumberOf(minus), ToText(*Difference(FromText("0.5"), plain)));
    }
}

// Counting

TEST(Counting, FollowsTheRules)
{
    const struct {
        const char* name;
        void (*count)(ZelDtDecimal&);
        char op;
    } forms[] = {
        {"operator++()", [](ZelDtDecimal& v) { ++v; }, '+'},
        {"operator++(int)", [](ZelDtDecimal& v) { v++; }, '+'},
        {"operator--()", [](ZelDtDecimal& v) { --v; }, '-'},
        {"operator--(int)", [](ZelDtDecimal& v) { v--; }, '-'},
    };
    for (const auto& form : forms) {
        for (const Number& number : Numbers(kTexts)) {
            SCOPED_TRACE(::testing::Message() << form.name << ' ' << number);
            GivenDecimal given(number);
            ExpectChange(given.it, AfterPlain(form.op, number, FromText("1")), form.name,
                         [&] { form.count(given.it); });
        }
    }
}

TEST(Counting, OfANullValueDefinesIt)
{
    ZelDtDecimal value(ZelDtWmNull);
    ++value;
    EXPECT_EQ(Look(value), (Number{{ZelDtWmNull, 1, 1}, "1"}));
    ZelDtDecimal missing(ZelDtWmMissing);
    missing++;
    EXPECT_EQ(Look(missing), Undefined(ZelDtWmMissing));
    ZelDtDecimal money("-0.50");
    money++;
    EXPECT_EQ(Look(money), (Number{{ZelDtWmMissing, 1, 1}, "0.50"}));
}

TEST(Counting, GivesNothing)
{
    ZelDtDecimal value(1);
    EXPECT_TRUE((std::is_void_v<decltype(++value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value++)>));
    EXPECT_TRUE((std::is_void_v<decltype(--value)>));
    EXPECT_TRUE((std::is_void_v<decltype(value--)>));
}

} // namespace
