/// Construction, state, reading and assignment of ZelDtDouble.

#include "tests/numeric/double_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <climits>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<double> kSomeValues = {0.0,       -0.0,       1.0,       -1.0,
                                         0.1,       1.0 / 3.0,  12345.678, 1e20,
                                         kLargest,  -kLargest,  kSmallest, kSmallestNormal,
                                         kInfinity, -kInfinity, kNaN};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtDouble), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtDouble>));
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtDouble);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtDouble");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtDouble)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_NE(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtDouble"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtDouble"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtDouble&>(*object)), UndefinedReal(mode));
    }
}

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtDouble value(mode);
            EXPECT_EQ(Look(value), UndefinedReal(mode));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtDouble(ZelDtWmDefault)), UndefinedReal(standard));
        EXPECT_EQ(Look(ZelDtDouble()), UndefinedReal(standard));
    }
}

TEST(Construction, FromNumbersIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const double value : kSomeValues)
            EXPECT_EQ(Look(ZelDtDouble(value)), DefinedReal(value));
        for (const int value : {0, 1, -7, INT_MAX, INT_MIN}) {
            EXPECT_EQ(Look(ZelDtDouble(value)), DefinedReal(value));
            EXPECT_EQ(Look(ZelDtDouble(static_cast<long>(value))), DefinedReal(value));
        }
        EXPECT_EQ(Look(ZelDtDouble("2.5")), DefinedReal(2.5));
        EXPECT_EQ(Look(ZelDtDouble(ZelDtString("2.5"))), DefinedReal(2.5));
    }
}

TEST(Construction, CopiesStateAndNumberDefinedOrNot)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Real& real : Reals(kSomeValues)) {
            Given<ZelDtDouble> source(real);
            source.it.SetFormat(&format);
            const ZelDtDouble copy(source.it);
            EXPECT_EQ(Look(copy), real);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtDouble));
            EXPECT_EQ(Look(static_cast<const ZelDtDouble&>(*fresh)), real);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), real);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtDouble a(7.5);
    ZelDtDouble b(a);
    b = 8.5;
    EXPECT_EQ(a.GetValue(), 7.5);
    a = 9.5;
    EXPECT_EQ(b.GetValue(), 8.5);
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtDouble[2];
    values[0] = 1.5;
    EXPECT_EQ(values[0].GetValue(), 1.5);
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

TEST(TypeCode, IsThatOfTheDouble)
{
    const ZelDtDouble value(1.0);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypDouble);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Reading, GivesTheStoredNumberUnlessMissing)
{
    for (const Real& real : Reals(kSomeValues)) {
        const Given<ZelDtDouble> given(real);
        EXPECT_TRUE(Same(static_cast<double>(given.it), real.value));
        if (IsMissing(real.state))
            EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); }, DoubleError(2, "GetValue()")));
        else
            EXPECT_TRUE(Same(given.it.GetValue(), real.value)) << real;
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(Clearing, ResetsTheNumberAndThenTheDefinedness)
{
    for (const Real& real : Reals({0.0, 7.5, kInfinity, kNaN, kSmallest})) {
        Given<ZelDtDouble> given(real);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(real)) << real;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << real;
    }
}

TEST(Clearing, OfAlwaysDefinedValuesLeavesAZero)
{
    ZelDtDouble value(ZelDtWmAlwaysDefined);
    EXPECT_EQ(Look(value), (Real{{ZelDtWmAlwaysDefined, 1, 0}, 0.0}));
    value.Clear();
    EXPECT_EQ(Look(value), (Real{{ZelDtWmAlwaysDefined, 1, 0}, 0.0}));
    value = 5.5;
    value.GetAndResetModified(0);
    value.Clear();
    EXPECT_EQ(Look(value), (Real{{ZelDtWmAlwaysDefined, 1, 1}, 0.0}));
}

/// `r` after a plain number was assigned to it.
Real Assigned(Real r, double value)
{
    StoreAlways(r, value);
    SetDefined(r.state, 1);
    return r;
}

/// `r` after it took a number that it keeps its own of if they do not differ.
Real Taken(Real r, double value)
{
    StoreDiffering(r, value);
    SetDefined(r.state, 1);
    return r;
}

TEST(Assignment, OfPlainNumbersStoresAndDefines)
{
    for (const Real& real : Reals({0.0, 7.5, kNaN})) {
        for (const double value : kSomeValues) {
            Given<ZelDtDouble> given(real);
            EXPECT_EQ(&(given.it = value), &given.it);
            EXPECT_EQ(Look(given.it), Assigned(real, value)) << real << " = " << value;
        }
        for (const int value : {0, 7, -3, INT_MAX, INT_MIN}) {
            Given<ZelDtDouble> fromInt(real);
            EXPECT_EQ(&(fromInt.it = value), &fromInt.it);
            EXPECT_EQ(Look(fromInt.it), Assigned(real, value)) << real << " = " << value;
            Given<ZelDtDouble> fromLong(real);
            EXPECT_EQ(&(fromLong.it = static_cast<long>(value)), &fromLong.it);
            EXPECT_EQ(Look(fromLong.it), Assigned(real, value)) << real << " = " << value;
        }
    }
}

TEST(Assignment, FromSqlStoresWhatDiffersAndDefines)
{
    for (const Real& real : Reals({0.0, -0.0, 7.5, kNaN})) {
        for (const double value : kSomeValues) {
            Given<ZelDtDouble> given(real);
            given.it.SetFromSQL(value);
            EXPECT_EQ(Look(given.it), Taken(real, value)) << real << " takes " << value;
        }
    }
}

/// `to` after `from` was assigned to it.
Real AssignedValue(Real to, const Real& from)
{
    StoreAlways(to, from.value);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

TEST(Assignment, OfValuesTakesNumberAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    const std::vector<double> values = {0.0, -0.0, 7.5, kNaN, kSmallest};
    for (const Real& to : Reals(values)) {
        for (const Real& from : Reals(values)) {
            Given<ZelDtDouble> target(to);
            Given<ZelDtDouble> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtDouble> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Real& real : Reals({0.0, 7.5, kNaN})) {
        Given<ZelDtDouble> given(real);
        const ZelDtDouble& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), real);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5");
    const ZelDtLong number(5);
    for (const Real& real : Reals({7.5})) {
        for (const ZelDtBasis* other :
             {static_cast<const ZelDtBasis*>(&text), static_cast<const ZelDtBasis*>(&number)}) {
            Given<ZelDtDouble> given(real);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(
                FailsWith([&] { basis.Assign(*other); }, DoubleError(10, "Assign(ZelDtBasis&)")));
            EXPECT_EQ(Look(given.it), real);
        }
    }
}

TEST(Mode, IsNeverThatOfTheSource)
{
    ZelDtDouble target(ZelDtWmNull);
    target = ZelDtDouble(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtDouble(5.5);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

} // namespace
