/// Construction, state, reading and assignment of the integer classes.

#include "tests/numeric/integer_testing.h"

#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

template <typename V>
std::vector<int> SomeValues()
{
    return {0, 1, -1, 7, 42, -kMax<V>, kMax<V>, kMin<V>};
}

ZEL_INTEGER_SUITE(Representation);

TYPED_TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(TypeParam), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, TypeParam>));
}

ZEL_INTEGER_SUITE(RuntimeClass);

TYPED_TEST(RuntimeClass, CreatesByName)
{
    using V = TypeParam;
    const char* const name = Facts<V>::kClass;
    const CRuntimeClass* record = RUNTIME_CLASS(V);
    EXPECT_STREQ(record->m_lpszClassName, name);
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(V)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_NE(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName(name), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(name));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const V&>(*object)), Undefined(mode));
    }
}

ZEL_INTEGER_SUITE(Construction);

TYPED_TEST(Construction, FromAModeHoldsNothing)
{
    using V = TypeParam;
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const V value(mode);
            EXPECT_EQ(Look(value), Undefined(mode));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(V(ZelDtWmDefault)), Undefined(standard));
        EXPECT_EQ(Look(V()), Undefined(standard));
    }
}

TYPED_TEST(Construction, FromNumbersAndTextsIsDefinedInTheDefaultMode)
{
    using V = TypeParam;
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const int value : SomeValues<V>()) {
            EXPECT_EQ(Look(V(value)), Defined(value));
            EXPECT_EQ(Look(V(static_cast<long>(value))), Defined(value));
            EXPECT_EQ(Look(V(static_cast<typename Facts<V>::Plain>(value))), Defined(value));
            EXPECT_EQ(Look(V(std::to_string(value).c_str())), Defined(value));
            EXPECT_EQ(Look(V(ZelDtString(std::to_string(value).c_str()))), Defined(value));
        }
    }
}

TYPED_TEST(Construction, FromALongBeyondTheRangeIsAnError)
{
    using V = TypeParam;
    for (const long value : OutsideLongs<V>()) {
        const Caught caught = Catch([&] { V number(value); });
        EXPECT_TRUE(Matches(caught, ClassError<V>(1, caught.error.signature))) << value;
        EXPECT_EQ(caught.first.number, 8u) << value;
    }
}

TYPED_TEST(Construction, CopiesStateAndNumber)
{
    using V = TypeParam;
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& number : Numbers({0, 7, kMin<V>, kMax<V>})) {
            Given<V> source(number);
            source.it.SetFormat(&format);
            const Number expected = CopyOf<V>(number);
            const V copy(source.it);
            EXPECT_EQ(Look(copy), expected);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(V));
            EXPECT_EQ(Look(static_cast<const V&>(*fresh)), expected);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), number);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(CopiesOfUndefinedValues, DifferInTheNumber)
{
    const Number undefined{{ZelDtWmNull, 0, 0}, 7};
    EXPECT_EQ(Look(ZelDtLong(Given<ZelDtLong>(undefined).it)), (Number{{ZelDtWmNull, 0, 0}, 0}));
    EXPECT_EQ(Look(ZelDtShort(Given<ZelDtShort>(undefined).it)), undefined);
}

TYPED_TEST(Construction, OfACopyIsIndependent)
{
    TypeParam a(7);
    TypeParam b(a);
    b = 8;
    EXPECT_EQ(a.GetValue(), 7);
    a = 9;
    EXPECT_EQ(b.GetValue(), 8);
}

TYPED_TEST(Construction, FromAStringCopiesItsState)
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
        EXPECT_EQ(Look(TypeParam(text)), (Number{state, state.defined ? 42 : 0}));
    }
}

TYPED_TEST(Construction, FromNoTextIsAnError)
{
    EXPECT_TRUE(FailsBecauseOf(
        [] { TypeParam number(static_cast<const char*>(nullptr)); },
        ClassError<TypeParam>(1, std::string(Facts<TypeParam>::kClass) + "(LPCTSTR)"), 5));
}

TYPED_TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new TypeParam[2];
    values[0] = 1;
    EXPECT_EQ(values[0].GetValue(), 1);
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

TYPED_TEST(Construction, FromAFractionDoesNotCompile)
{
    EXPECT_FALSE((std::is_constructible_v<TypeParam, double>));
    EXPECT_FALSE((std::is_assignable_v<TypeParam&, double>));
    EXPECT_TRUE((std::is_constructible_v<TypeParam, int>));
    EXPECT_TRUE((std::is_constructible_v<TypeParam, long>));
}

ZEL_INTEGER_SUITE(TypeCode);

TYPED_TEST(TypeCode, IsThatOfTheClass)
{
    const TypeParam value(1);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), Facts<TypeParam>::kType);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

ZEL_INTEGER_SUITE(Reading);

TYPED_TEST(Reading, GivesTheStoredNumberUnlessMissing)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7, -3, kMin<V>, kMax<V>})) {
        const Given<V> given(number);
        EXPECT_EQ(StoredNumber(given.it), number.value);
        if (IsMissing(number.state))
            EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); }, ClassError<V>(2, "GetValue()")));
        else
            EXPECT_EQ(given.it.GetValue(), number.value);
        EXPECT_EQ(Look(given.it), number);
    }
}

TYPED_TEST(Reading, GivesTheTypeOfTheClass)
{
    using Plain = typename Facts<TypeParam>::Plain;
    const TypeParam value(1);
    EXPECT_TRUE((std::is_same_v<decltype(value.GetValue()), Plain>));
    EXPECT_TRUE((std::is_convertible_v<TypeParam, Plain>));
}

ZEL_INTEGER_SUITE(Clearing);

TYPED_TEST(Clearing, ResetsTheNumberAndThenTheDefinedness)
{
    for (const Number& number : Numbers({0, 7, kMin<TypeParam>})) {
        Given<TypeParam> given(number);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(number)) << number;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << number;
    }
}

TYPED_TEST(Clearing, OfAlwaysDefinedValuesLeavesAZero)
{
    TypeParam value(ZelDtWmAlwaysDefined);
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 0}, 0}));
    value.Clear();
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 0}, 0}));
    value = 5;
    value.GetAndResetModified(0);
    value.Clear();
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 1, 1}, 0}));
}

ZEL_INTEGER_SUITE(Assignment);

TYPED_TEST(Assignment, OfPlainNumbersStoresAndDefines)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7, kMin<V>})) {
        for (const int value : {0, 7, kMax<V>, kMin<V>}) {
            Given<V> a(number);
            EXPECT_EQ(&(a.it = value), &a.it);
            EXPECT_EQ(Look(a.it), Assigned(number, value)) << number << " = " << value;
            Given<V> b(number);
            EXPECT_EQ(&(b.it = static_cast<long>(value)), &b.it);
            EXPECT_EQ(Look(b.it), Assigned(number, value)) << number << " = " << value;
            Given<V> c(number);
            c.it.SetFromSQL(static_cast<typename Facts<V>::Plain>(value));
            EXPECT_EQ(Look(c.it), Assigned(number, value)) << number << " from SQL " << value;
            Given<V> d(number);
            EXPECT_EQ(&(d.it = static_cast<typename Facts<V>::Plain>(value)), &d.it);
            EXPECT_EQ(Look(d.it), Assigned(number, value)) << number << " = " << value;
        }
    }
}

TYPED_TEST(Assignment, OfALongBeyondTheRangeIsAnErrorThatChangesNothing)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7})) {
        for (const long value : OutsideLongs<V>()) {
            Given<V> given(number);
            const Caught assigned = Catch([&] { given.it = value; });
            EXPECT_TRUE(Matches(assigned, ClassError<V>(8, assigned.error.signature)));
            const Caught set = Catch([&] { given.it.SetFromSQL(value); });
            EXPECT_TRUE(Matches(set, ClassError<V>(8, set.error.signature)));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

/// `to` after `from` was assigned to it.
Number AssignedValue(Number to, const Number& from)
{
    Store(to, from.value);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

TYPED_TEST(Assignment, OfValuesTakesNumberAndDefinedness)
{
    using V = TypeParam;
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    for (const Number& to : Numbers({0, 7})) {
        for (const Number& from : Numbers({0, 7, kMin<V>})) {
            Given<V> target(to);
            Given<V> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<V> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TYPED_TEST(Assignment, ToItselfChangesNothing)
{
    for (const Number& number : Numbers({0, 7})) {
        Given<TypeParam> given(number);
        const TypeParam& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), number);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), number);
    }
}

TYPED_TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5");
    const ZelDtLong wide(5);
    const ZelDtShort narrow(5);
    const bool isLong = Facts<TypeParam>::kType == ZelDtTypLong;
    const ZelDtBasis& sibling = isLong ? static_cast<const ZelDtBasis&>(narrow) : wide;
    for (const Number& number : Numbers({7})) {
        for (const ZelDtBasis* other : {static_cast<const ZelDtBasis*>(&text), &sibling}) {
            Given<TypeParam> given(number);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(FailsWith([&] { basis.Assign(*other); },
                                  ClassError<TypeParam>(10, "Assign(ZelDtBasis&)")));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

ZEL_INTEGER_SUITE(Mode);

TYPED_TEST(Mode, IsNeverThatOfTheSource)
{
    TypeParam target(ZelDtWmNull);
    target = TypeParam(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = TypeParam(5);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

ZEL_INTEGER_SUITE(Strings);

TYPED_TEST(Strings, FromNumbersCopyTheState)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, -5, kMin<V>, kMax<V>})) {
        const Given<V> given(number);
        const ZelDtString text(given.it);
        EXPECT_EQ(StateOf(text), number.state);
        const std::string expected = number.state.defined ? std::to_string(number.value) : "";
        EXPECT_STREQ(static_cast<const char*>(text), expected.c_str()) << number;
        EXPECT_EQ(text.GetAllocLength(), number.state.defined ? 11 : 0) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

} // namespace
