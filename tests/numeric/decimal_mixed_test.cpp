/// Decimals together with the other number classes: each expression is the one of two decimals.

#include "tests/numeric/decimal_testing.h"

#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"

#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace zeltest;

template <typename Value>
struct Sample;

template <>
struct Sample<ZelDtShort> {
    static ZelDtShort Make() { return ZelDtShort(static_cast<short>(-7)); }
    static constexpr const char* kText = "-7";
};

template <>
struct Sample<ZelDtLong> {
    static ZelDtLong Make() { return ZelDtLong(kMinInt); }
    static constexpr const char* kText = "-2147483648";
};

template <>
struct Sample<ZelDtDouble> {
    static ZelDtDouble Make() { return ZelDtDouble(0.1); }
    static constexpr const char* kText = "0.1";
};

template <typename Value>
class Mixed : public ::testing::Test {};

using Classes = ::testing::Types<ZelDtShort, ZelDtLong, ZelDtDouble>;
TYPED_TEST_SUITE(Mixed, Classes);

TYPED_TEST(Mixed, ConstructionCopiesStateAndADefinedNumber)
{
    for (const State& state : AllStates()) {
        TypeParam source = Sample<TypeParam>::Make();
        BringState(source, state);
        const std::string expected = state.defined ? Sample<TypeParam>::kText : "0";
        EXPECT_EQ(Look(ZelDtDecimal(source)), (Number{state, expected}));
        EXPECT_EQ(StateOf(source), state);
    }
}

TYPED_TEST(Mixed, ExpressionsAreThoseOfDecimals)
{
    for (const State& state : AllStates()) {
        TypeParam other = Sample<TypeParam>::Make();
        BringState(other, state);
        const ZelDtDecimal same(other);
        for (const Number& number : Unmodified({"2.50"})) {
            const GivenDecimal given(number);
            const ZelDtDecimal& value = given.it;
            SCOPED_TRACE(::testing::Message() << number << " and " << state);
            EXPECT_EQ(Look(value + other), Look(value + same));
            EXPECT_EQ(Look(other + value), Look(same + value));
            EXPECT_EQ(Look(value - other), Look(value - same));
            EXPECT_EQ(Look(other - value), Look(same - value));
            EXPECT_EQ(Look(value * other), Look(value * same));
            // The integers have a product of their own.
            if constexpr (std::is_same_v<TypeParam, ZelDtDouble>) {
                EXPECT_EQ(Look(other * value), Look(same * value));
            }
            EXPECT_EQ(Look(other / value), Look(same / value));
            EXPECT_EQ(Look(other % value), Look(same % value));
            if (!same.IsDecimal0()) {
                EXPECT_EQ(Look(value / other), Look(value / same));
                EXPECT_EQ(Look(value % other), Look(value % same));
            }
            GivenDecimal plus(number);
            plus.it += other;
            GivenDecimal expectedPlus(number);
            expectedPlus.it += same;
            EXPECT_EQ(Look(plus.it), Look(expectedPlus.it));
            GivenDecimal minus(number);
            minus.it -= other;
            GivenDecimal expectedMinus(number);
            expectedMinus.it -= same;
            EXPECT_EQ(Look(minus.it), Look(expectedMinus.it));
            GivenDecimal assigned(number);
            assigned.it = other;
            GivenDecimal expectedAssigned(number);
            expectedAssigned.it = same;
            EXPECT_EQ(Look(assigned.it), Look(expectedAssigned.it));
        }
    }
}

TYPED_TEST(Mixed, ComparisonsAreThoseOfDecimals)
{
    for (const State& state : AllStates()) {
        TypeParam other = Sample<TypeParam>::Make();
        BringState(other, state);
        const ZelDtDecimal same(other);
        for (const Number& number : Unmodified({"2.50", Sample<TypeParam>::kText})) {
            const GivenDecimal given(number);
            const ZelDtDecimal& value = given.it;
            SCOPED_TRACE(::testing::Message() << number << " and " << state);
            if (IsMissing(state) || IsMissing(number.state)) {
                EXPECT_TRUE(FailsWith([&] { return value < other; },
                                      OperatorError(2, "operator<(ZelDtDecimal&)")));
                EXPECT_TRUE(FailsWith([&] { return other == value; },
                                      OperatorError(2, "operator==(ZelDtDecimal&)")));
                continue;
            }
            EXPECT_EQ(value < other, value < same);
            EXPECT_EQ(other < value, same < value);
            EXPECT_EQ(value > other, value > same);
            EXPECT_EQ(other > value, same > value);
            EXPECT_EQ(value <= other, value <= same);
            EXPECT_EQ(other <= value, same <= value);
            EXPECT_EQ(value >= other, value >= same);
            EXPECT_EQ(other >= value, same >= value);
            EXPECT_EQ(value == other, value == same);
            EXPECT_EQ(other == value, same == value);
            EXPECT_EQ(value != other, value != same);
            EXPECT_EQ(other != value, same != value);
        }
    }
}

TYPED_TEST(Mixed, ResultsAreDecimals)
{
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtDecimal() + TypeParam()), ZelDtDecimal>));
    EXPECT_TRUE((std::is_same_v<decltype(TypeParam() * ZelDtDecimal()), ZelDtDecimal>));
    EXPECT_TRUE((std::is_same_v<decltype(TypeParam() % ZelDtDecimal()), ZelDtDecimal>));
}

TYPED_TEST(Mixed, AreDifferentClassesToAssign)
{
    for (const Number& number : Unmodified({"2.50"})) {
        GivenDecimal given(number);
        const TypeParam other = Sample<TypeParam>::Make();
        ZelDtBasis& basis = given.it;
        EXPECT_TRUE(
            FailsWith([&] { basis.Assign(other); }, MemberError(10, "Assign(ZelDtBasis&)")));
        EXPECT_EQ(Look(given.it), number);
    }
}

/// An integer times a decimal: a null one gives place to the other as it is.
template <typename Integer>
void ExpectProducts(bool takesItsState)
{
    const std::string text = Sample<Integer>::kText;
    for (const State& state : AllStates()) {
        Integer left = Sample<Integer>::Make();
        BringState(left, state);
        for (const Number& number : Numbers({"0.0", "2.50"})) {
            const GivenDecimal right(number);
            Number expected = Undefined(ZelDtGetDefaultWorkingMode());
            if (Computes(state, number.state)) {
                if (IsNull(state))
                    expected = number;
                else if (IsNull(number.state))
                    expected = takesItsState ? Number{state, text} : Defined(text);
                else
                    expected = Computed(ToText(*Product(FromText(number.text), FromText(text))));
            }
            EXPECT_EQ(Look(left * right.it), expected) << state << " * " << number;
        }
    }
}

TEST(IntegersTimesDecimals, FollowTheRulesOfTheIntegers)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        ExpectProducts<ZelDtLong>(true);
        ExpectProducts<ZelDtShort>(false);
    }
}

TEST(FromADouble, ThatIsNoDecimalIsAnError)
{
    for (const double number : {std::numeric_limits<double>::quiet_NaN(), 1e28, -1e300}) {
        const ZelDtDouble source(number);
        EXPECT_TRUE(FailsWith(
            [&] { ZelDtDecimal value(source); },
            ConstructionError("ZelDtDecimal  ::  ZelDtDecimal ( const ZelDtDouble & krInit)"),
            OverflowError()));
    }
}

} // namespace
