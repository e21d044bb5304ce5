/// Construction, state, reading and assignment of ZelDtLong.

#include "tests/numeric/long_testing.h"

#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

constexpr int kSomeValues[] = {0, 1, -1, 7, 42, -2147483647, kMax, kMin};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtLong), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtLong>));
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtLong);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtLong");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtLong)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_NE(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtLong"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtLong"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtLong&>(*object)), Undefined(mode));
    }
}

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtLong value(mode);
            EXPECT_EQ(Look(value), Undefined(mode));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtLong(ZelDtWmDefault)), Undefined(standard));
        EXPECT_EQ(Look(ZelDtLong()), Undefined(standard));
    }
}

TEST(Construction, FromNumbersAndTextsIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const int value : kSomeValues) {
            EXPECT_EQ(Look(ZelDtLong(value)), Defined(value));
            EXPECT_EQ(Look(ZelDtLong(static_cast<long>(value))), Defined(value));
            EXPECT_EQ(Look(ZelDtLong(std::to_string(value).c_str())), Defined(value));
            EXPECT_EQ(Look(ZelDtLong(ZelDtString(std::to_string(value).c_str()))), Defined(value));
        }
    }
}

TEST(Construction, FromALongOutside32BitsIsAnError)
{
    if constexpr (sizeof(long) > 4) {
        for (const std::int64_t value : {std::int64_t{kMax} + 1, std::int64_t{kMin} - 1,
                                         std::int64_t{1} << 32, std::int64_t{1} << 62}) {
            const Caught caught = Catch([&] { ZelDtLong number(static_cast<long>(value)); });
            EXPECT_TRUE(Matches(caught, LongError(1, caught.error.signature))) << value;
            EXPECT_EQ(caught.first.number, 8u) << value;
        }
    }
}

TEST(Construction, CopiesStateAndTheNumberOfDefinedValues)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& number : Numbers({0, 7, kMin, kMax})) {
            Given source(number);
            source.it.SetFormat(&format);
            const Number expected{number.state, number.state.defined ? number.value : 0};
            const ZelDtLong copy(source.it);
            EXPECT_EQ(Look(copy), expected);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtLong));
            EXPECT_EQ(Look(static_cast<const ZelDtLong&>(*fresh)), expected);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), number);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtLong a(7);
    ZelDtLong b(a);
    b = 8;
    EXPECT_EQ(a.GetValue(), 7);
    a = 9;
    EXPECT_EQ(b.GetValue(), 8);
}

TEST(Construction, FromAStringCopiesItsState)
{
    for (const State& state : AllStates()) {
        ZelDtString text("42");
        if (!state.defined) {
            text.SetWorkingMode(ZelDtWmMissing);
            text.Clear();
        }
        {
            const DefaultMode guard(state.mode);
            text.SetWorkingMode(ZelDtWmDefault);
        }
        text.SetModified(state.modified);
        ASSERT_EQ(StateOf(text), state);
        EXPECT_EQ(Look(ZelDtLong(text)), (Number{state, state.defined ? 42 : 0}));
    }
}

TEST(Construction, FromNoTextIsAnError)
{
    EXPECT_TRUE(FailsBecauseOf([] { ZelDtLong number(static_cast<const char*>(nullptr)); },
                               LongError(1, "ZelDtLong(LPCTSTR)"), 5));
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtLong[2];
    values[0] = 1;
    EXPECT_EQ(values[0].GetValue(), 1);
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

TEST(Construction, FromAFractionDoesNotCompile)
{
    EXPECT_FALSE((std::is_constructible_v<ZelDtLong, double>));
    EXPECT_FALSE((std::is_assignable_v<ZelDtLong&, double>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtLong, int>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtLong, long>));
}

TEST(TypeCode, IsThatOfTheLong)
{
    const ZelDtLong value(1);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypLong);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Reading, GivesTheStoredNumberUnlessMissing)
{
    for (const Number& number : Numbers({0, 7, -3, kMin, kMax})) {
        const Given given(number);
        EXPECT_EQ(static_cast<long>(given.it), number.value);
        if (!number.state.defined && number.state.mode == ZelDtWmMissing)
            EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); }, LongError(2, "GetValue()")));
        else
            EXPECT_EQ(given.it.GetValue(), number.value);
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Clearing, ResetsTheNumberAndThenTheDefinedness)
{
    for (const Number& number : Numbers({0, 7, kMin})) {
        Given given(number);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(number)) << number;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << number;
    }
}

TEST(Clearing, OfAlwaysDefinedValuesLeavesAZero)
{
    ZelDtLong value(ZelDtWmAlwaysDefined);
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 0}, 0}));
    value.Clear();
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 0}, 0}));
    value = 5;
    value.GetAndResetModified(0);
    value.Clear();
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 1}, 0}));
}

TEST(Assignment, OfPlainNumbersStoresAndDefines)
{
    for (const Number& number : Numbers({0, 7, kMin})) {
        for (const int value : {0, 7, kMax, kMin}) {
            Given a(number);
            EXPECT_EQ(&(a.it = value), &a.it);
            EXPECT_EQ(Look(a.it), Assigned(number, value)) << number << " = " << value;
            Given b(number);
            EXPECT_EQ(&(b.it = static_cast<long>(value)), &b.it);
            EXPECT_EQ(Look(b.it), Assigned(number, value)) << number << " = " << value;
            Given c(number);
            c.it.SetFromSQL(value);
            EXPECT_EQ(Look(c.it), Assigned(number, value)) << number << " from SQL " << value;
        }
    }
}

TEST(Assignment, OfALongOutside32BitsIsAnErrorThatChangesNothing)
{
    if constexpr (sizeof(long) > 4) {
        for (const Number& number : Numbers({0, 7})) {
            for (const std::int64_t value :
                 {std::int64_t{kMax} + 1, std::int64_t{kMin} - 1, std::int64_t{1} << 32}) {
                Given given(number);
                const Caught assigned = Catch([&] { given.it = static_cast<long>(value); });
                EXPECT_TRUE(Matches(assigned, LongError(8, assigned.error.signature)));
                const Caught set = Catch([&] { given.it.SetFromSQL(static_cast<long>(value)); });
                EXPECT_TRUE(Matches(set, LongError(8, set.error.signature)));
                EXPECT_EQ(Look(given.it), number);
            }
        }
    }
}

/// `to` after `from` was assigned to it.
Number AssignedValue(Number to, const Number& from)
{
    Store(to, from.value);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to, from.state.defined);
    return to;
}

TEST(Assignment, OfValuesTakesNumberAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    for (const Number& to : Numbers({0, 7})) {
        for (const Number& from : Numbers({0, 7, kMin})) {
            Given target(to);
            Given source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Number& number : Numbers({0, 7})) {
        Given given(number);
        const ZelDtLong& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), number);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    for (const Number& number : Numbers({7})) {
        Given given(number);
        ZelDtBasis& basis = given.it;
        EXPECT_TRUE(FailsWith([&] { basis.Assign(ZelDtString("5")); },
                              LongError(10, "Assign(ZelDtBasis&)")));
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Mode, IsNeverThatOfTheSource)
{
    ZelDtLong target(ZelDtWmNull);
    target = ZelDtLong(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtLong(5);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

TEST(Strings, FromNumbersCopyTheState)
{
    for (const Number& number : Numbers({0, -5, kMin, kMax})) {
        const Given given(number);
        const ZelDtString text(given.it);
        EXPECT_EQ(StateOf(text), number.state);
        const std::string expected = number.state.defined ? std::to_string(number.value) : "";
        EXPECT_STREQ(static_cast<const char*>(text), expected.c_str()) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

} // namespace
