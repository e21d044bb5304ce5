/// Construction, state, reading and assignment of ZelDtTime.

#include "tests/datetime/time_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<std::int32_t> kSomeUnits = {0,    1,     -1,   20,         -600,
                                              1800, -1807, 9900, kMostUnits, kLeastUnits};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtTime), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtTime>));
}

TEST(Modes, HaveTheNumbersThatFormatsUse)
{
    EXPECT_EQ(static_cast<int>(ZelDtTime::Hundertstel), 0);
    EXPECT_EQ(static_cast<int>(ZelDtTime::Minuten), 1);
    EXPECT_EQ(static_cast<int>(ZelDtTime::Stunden), 2);
    EXPECT_EQ(static_cast<int>(ZelDtTime::Eigener), 3);
    EXPECT_EQ(static_cast<int>(ZelDtTime::RundenViertelstunde), 0);
    EXPECT_EQ(static_cast<int>(ZelDtTime::RundenHalbeStunde), 1);
    EXPECT_EQ(static_cast<int>(ZelDtTime::RundenStunde), 2);
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtTime);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtTime");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtTime)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_NE(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtTime"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtTime"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtTime&>(*object)), UndefinedAmount(mode));
    }
}

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtTime value(mode);
            EXPECT_EQ(Look(value), UndefinedAmount(mode));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtTime(ZelDtWmDefault)), UndefinedAmount(standard));
        EXPECT_EQ(Look(ZelDtTime()), UndefinedAmount(standard));
    }
}

/// Whether a changing operation takes a number of the type.
#define ZEL_TAKES(operation)                                                                       \
    template <typename Time, typename Number>                                                      \
    concept Takes##operation = requires(Time time, Number number)                                  \
    {                                                                                              \
        time.operation(number);                                                                    \
    }
ZEL_TAKES(SetHour);
ZEL_TAKES(SetMin);
ZEL_TAKES(SetTime);
ZEL_TAKES(AddHour);
ZEL_TAKES(SubHour);
ZEL_TAKES(AddMin);
ZEL_TAKES(SubMin);
ZEL_TAKES(SetFromSQL);
#undef ZEL_TAKES

/// How many of the changing operations take a number of the type.
template <typename Number>
constexpr int kTakers = TakesSetHour<ZelDtTime, Number> + TakesSetMin<ZelDtTime, Number> +
                        TakesSetTime<ZelDtTime, Number> + TakesAddHour<ZelDtTime, Number> +
                        TakesSubHour<ZelDtTime, Number> + TakesAddMin<ZelDtTime, Number> +
                        TakesSubMin<ZelDtTime, Number> + TakesSetFromSQL<ZelDtTime, Number>;

TEST(Fractions, OfPlainNumbersAreRefused)
{
    EXPECT_EQ(kTakers<int>, 8);
    EXPECT_EQ(kTakers<long>, 8);
    EXPECT_EQ(kTakers<double>, 0);
    EXPECT_EQ(kTakers<float>, 0);
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, double, double>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, int, double>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, double, int, TimeMode>));
}

TEST(Construction, FromASingleNumberIsRefused)
{
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, int>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, long>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, double>));
    EXPECT_FALSE((std::is_convertible_v<int, ZelDtTime>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtTime, int, TimeMode>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtTime, int, int>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtTime, long, long, TimeMode>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtTime, const char*>));
}

struct Parts {
    long hours;
    long fraction;
    TimeMode mode;
    std::int32_t units;
    TimeMode stored;
};

const Parts kParts[] = {
    {0, 0, kMinutes, 0, kMinutes},
    {1, 30, kMinutes, 1800, kMinutes},
    {1, 50, kHundredths, 1800, kHundredths},
    {1, 30, kHours, 1200, kHours}, // no fraction
    {1, 30, kOwn, 1800, kMinutes},
    {0, 1, kMinutes, 20, kMinutes},
    {0, 1, kHundredths, 12, kHundredths},
    {0, 1, kHours, 0, kHours},
    // both parts with a sign of their own
    {-1, -30, kMinutes, -1800, kMinutes},
    {-1, 30, kMinutes, -600, kMinutes},
    {1, -30, kMinutes, 600, kMinutes},
    {0, -30, kOwn, -600, kMinutes},
    {0, -50, kHundredths, -600, kHundredths},
    {-1, 50, kHundredths, -600, kHundredths},
    {-1, 0, kHours, -1200, kHours},
    // fractions of any size
    {0, 90, kMinutes, 1800, kMinutes},
    {8, 75, kMinutes, 11100, kMinutes},
    {0, 250, kHundredths, 3000, kHundredths},
    {1, -90, kMinutes, -600, kMinutes},
    {3000000, -179999940, kMinutes, 1200, kMinutes}, // only the sum must fit
    {-3000000, 300000100, kHundredths, 1200, kHundredths},
    // the limits
    {1789568, 59, kMinutes, 2147482780, kMinutes},
    {1789569, 0, kMinutes, 2147482800, kMinutes},
    {1789569, 42, kMinutes, 2147483640, kMinutes},
    {-1789569, -42, kMinutes, -2147483640, kMinutes},
    {1789569, 70, kHundredths, 2147483640, kHundredths},
    {-1789569, -70, kHundredths, -2147483640, kHundredths},
    {1789569, 0, kHours, 2147482800, kHours},
    {-1789569, 0, kHours, -2147482800, kHours},
    {0, 107374182, kMinutes, 2147483640, kMinutes},
    {0, -107374182, kMinutes, -2147483640, kMinutes},
    {0, 178956970, kHundredths, 2147483640, kHundredths},
    {0, -178956970, kHundredths, -2147483640, kHundredths},
    {7, LONG_MAX, kHours, 8400, kHours}, // whole hours ignore the fraction
    {7, LONG_MIN, kHours, 8400, kHours},
};

TEST(Construction, FromHoursAndFraction)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Parts& p : kParts) {
            SCOPED_TRACE(::testing::Message() << p.hours << " h " << p.fraction << ", mode "
                                              << static_cast<int>(p.mode));
            EXPECT_EQ(Look(ZelDtTime(p.hours, p.fraction, p.mode)),
                      DefinedAmount(p.units, p.stored));
        }
    }
    EXPECT_EQ(Look(ZelDtTime(1, 30)), DefinedAmount(1800, kMinutes));
    EXPECT_EQ(Look(ZelDtTime(0, 30)), DefinedAmount(600, kMinutes));
    EXPECT_EQ(Look(ZelDtTime(0, 0)), DefinedAmount(0, kMinutes));
}

/// Parts of amounts that do not fit.
std::vector<Parts> TooMuch()
{
    std::vector<Parts> rows = {
        {1789569, 43, kMinutes, 0, kMinutes},
        {-1789569, -43, kMinutes, 0, kMinutes},
        {1789569, 71, kHundredths, 0, kMinutes},
        {-1789569, -71, kHundredths, 0, kMinutes},
        {1789570, 0, kMinutes, 0, kMinutes},
        {-1789570, 0, kMinutes, 0, kMinutes},
        {1789570, 0, kHundredths, 0, kMinutes},
        {1789570, 0, kHours, 0, kMinutes},
        {-1789570, 0, kHours, 0, kMinutes},
        {1789570, 0, kOwn, 0, kMinutes},
        {0, 107374183, kMinutes, 0, kMinutes},
        {0, -107374183, kMinutes, 0, kMinutes},
        {0, 178956971, kHundredths, 0, kMinutes},
        {0, -178956971, kHundredths, 0, kMinutes},
        // 32-bit products of these are small
        {3579140, 0, kMinutes, 0, kMinutes},  // 2^32 / 1200, rounded up
        {INT_MAX, 0, kMinutes, 0, kMinutes},  // -1200
        {0, 214748365, kMinutes, 0, kMinutes} // 2^32 / 20, rounded up
    };
    for (const TimeMode mode : {kHundredths, kMinutes, kHours, kOwn}) {
        for (const long extreme : {LONG_MAX, LONG_MIN}) {
            rows.push_back({extreme, 0, mode, 0, mode});
            rows.push_back({extreme, extreme, mode, 0, mode});
            if (mode != kHours)
                rows.push_back({0, extreme, mode, 0, mode});
        }
        for (const long wide : WideLongs()) {
            rows.push_back({wide, 0, mode, 0, mode});
            if (mode != kHours)
                rows.push_back({0, wide, mode, 0, mode});
        }
    }
    return rows;
}

TEST(Construction, FromHoursAndFractionThatDoNotFitFails)
{
    for (const Parts& p : TooMuch())
        EXPECT_TRUE(FailsWith([&] { ZelDtTime(p.hours, p.fraction, p.mode); }, BuildError()))
            << p.hours << " h " << p.fraction << ", mode " << static_cast<int>(p.mode);
}

TEST(Construction, FromLongValues)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Parts& p : kParts) {
            if (p.fraction > INT_MAX || p.fraction < INT_MIN)
                continue; // no ZelDtLong holds it
            const ZelDtLong hours(static_cast<int>(p.hours));
            const ZelDtLong fraction(static_cast<int>(p.fraction));
            EXPECT_EQ(Look(ZelDtTime(hours, fraction, p.mode)), DefinedAmount(p.units, p.stored));
        }
        EXPECT_EQ(Look(ZelDtTime(ZelDtLong(1), ZelDtLong(30))), DefinedAmount(1800, kMinutes));
        // A Null value counts as its number, flags and working mode play no part.
        ZelDtLong changed(ZelDtWmNull);
        changed = 3;
        EXPECT_EQ(Look(ZelDtTime(changed, ZelDtLong(ZelDtWmNull), kHundredths)),
                  DefinedAmount(3600, kHundredths));
        EXPECT_EQ(Look(ZelDtTime(ZelDtLong(ZelDtWmNull), changed)), DefinedAmount(60, kMinutes));
    }
}

TEST(Construction, FromLongValuesThatAreMissingOrDoNotFitFails)
{
    const ZelDtLong missing(ZelDtWmMissing);
    const ZelDtLong five(5);
    for (const TimeMode mode : {kHundredths, kMinutes, kHours, kOwn}) {
        EXPECT_TRUE(FailsBehind("ZelDtTime", 2, [&] { ZelDtTime(missing, five, mode); }));
        EXPECT_TRUE(FailsBehind("ZelDtTime", 2, [&] { ZelDtTime(five, missing, mode); }));
        EXPECT_TRUE(FailsBehind("ZelDtTime", 2, [&] { ZelDtTime(missing, missing, mode); }));
    }
    for (const Parts& p : TooMuch()) {
        if (p.hours > INT_MAX || p.hours < INT_MIN || p.fraction > INT_MAX || p.fraction < INT_MIN)
            continue;
        const ZelDtLong hours(static_cast<int>(p.hours));
        const ZelDtLong fraction(static_cast<int>(p.fraction));
        EXPECT_TRUE(FailsWith([&] { ZelDtTime(hours, fraction, p.mode); }, BuildError()))
            << p.hours << " h " << p.fraction << ", mode " << static_cast<int>(p.mode);
    }
}

TEST(Construction, CopiesStateAmountAndModeDefinedOrNot)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Amount& amount : AmountsInAllModes(kSomeUnits)) {
            Given<ZelDtTime> source(amount);
            source.it.SetFormat(&format);
            const ZelDtTime copy(source.it);
            EXPECT_EQ(Look(copy), amount);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtTime));
            EXPECT_EQ(Look(static_cast<const ZelDtTime&>(*fresh)), amount);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), amount);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtTime a(1, 30);
    ZelDtTime b(a);
    b.SetHour(5);
    b.SetMode(kHours);
    EXPECT_EQ(Look(a), DefinedAmount(1800, kMinutes));
    a.Clear();
    EXPECT_EQ(b.GetTime(kMinutes), 330);
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtTime[2];
    values[0].SetHour(2);
    EXPECT_EQ(values[0].GetHour(), 2);
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

TEST(TypeCode, IsThatOfTheTime)
{
    const ZelDtTime value(1, 30);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypTime);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Reading, GivesThePartsOfTheAmount)
{
    const struct {
        std::int32_t units;
        long hour;
        long minutesBeside;
        long hundredthsBeside;
        long minutes;
        long hundredths;
    } rows[] = {
        {0, 0, 0, 0, 0, 0},
        {1, 0, 0, 0, 0, 0},
        {-1, 0, 0, 0, 0, 0},
        {11, 0, 0, 0, 0, 0},
        {12, 0, 0, 1, 0, 1},
        {19, 0, 0, 1, 0, 1},
        {20, 0, 1, 1, 1, 1},
        {-11, 0, 0, 0, 0, 0},
        {-12, 0, 0, -1, 0, -1},
        {-20, 0, -1, -1, -1, -1},
        {600, 0, 30, 50, 30, 50},
        {-600, 0, -30, -50, -30, -50},
        {1199, 0, 59, 99, 59, 99},
        {1200, 1, 0, 0, 60, 100},
        {1800, 1, 30, 50, 90, 150},
        {-1199, 0, -59, -99, -59, -99},
        {-1200, -1, 0, 0, -60, -100},
        {-1800, -1, -30, -50, -90, -150},
        {9900, 8, 15, 25, 495, 825},
        {-2399, -1, -59, -99, -119, -199},
        {kMostUnits, 1789569, 42, 70, 107374182, 178956970},
        {kLeastUnits, -1789569, -42, -70, -107374182, -178956970},
    };
    for (const auto& row : rows) {
        for (const Amount& amount : AmountsInAllModes({row.units})) {
            if (IsMissing(amount.state))
                continue;
            SCOPED_TRACE(::testing::Message() << amount);
            const Given<ZelDtTime> given(amount);
            const ZelDtTime& value = given.it;
            EXPECT_EQ(value.GetHour(), row.hour);
            EXPECT_EQ(value.GetMin(kMinutes), row.minutesBeside);
            EXPECT_EQ(value.GetMin(kHundredths), row.hundredthsBeside);
            EXPECT_EQ(value.GetMin(kHours), 0);
            EXPECT_EQ(value.GetTime(kMinutes), row.minutes);
            EXPECT_EQ(value.GetTime(kHundredths), row.hundredths);
            EXPECT_EQ(value.GetTime(kHours), row.hour);
            EXPECT_EQ(value.GetMin(), value.GetMin(amount.mode));
            EXPECT_EQ(value.GetMin(kOwn), value.GetMin(amount.mode));
            EXPECT_EQ(value.GetTime(), value.GetTime(amount.mode));
            EXPECT_EQ(value.GetTime(kOwn), value.GetTime(amount.mode));
            EXPECT_EQ(Look(value), amount);
        }
    }
}

TEST(Reading, OfAMissingValueFails)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        if (!IsMissing(amount.state))
            continue;
        const Given<ZelDtTime> given(amount);
        const ZelDtTime& value = given.it;
        EXPECT_TRUE(FailsIn("GetHour", 2, [&] { value.GetHour(); }));
        for (const TimeMode mode : {kHundredths, kMinutes, kHours, kOwn}) {
            EXPECT_TRUE(FailsIn("GetMin", 2, [&] { value.GetMin(mode); }));
            EXPECT_TRUE(FailsIn("GetTime", 2, [&] { value.GetTime(mode); }));
        }
        EXPECT_EQ(value.GetMode(), amount.mode);
        EXPECT_EQ(Look(value), amount);
    }
}

TEST(Clearing, ResetsTheAmountAndThenTheDefinedness)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800, -1})) {
        Given<ZelDtTime> given(amount);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(amount)) << amount;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << amount;
    }
}

TEST(Clearing, OfAlwaysDefinedValuesLeavesAZero)
{
    ZelDtTime value(ZelDtWmAlwaysDefined);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmAlwaysDefined, 1, 0}, 0, kMinutes}));
    value.Clear();
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmAlwaysDefined, 1, 0}, 0, kMinutes}));
    value.SetHour(5);
    value.GetAndResetModified(0);
    value.Clear();
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmAlwaysDefined, 1, 1}, 0, kMinutes}));
}

/// `to` after `from` was assigned to it.
Amount AssignedValue(Amount to, const Amount& from)
{
    Store(to, from.units);
    to.mode = from.mode;
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

TEST(Assignment, OfValuesTakesAmountModeAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    for (const Amount& to : AmountsInAllModes({0, 1800})) {
        for (const Amount& from : AmountsInAllModes({0, 1800, -7})) {
            Given<ZelDtTime> target(to);
            Given<ZelDtTime> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            ASSERT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtTime> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            ASSERT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        Given<ZelDtTime> given(amount);
        const ZelDtTime& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), amount);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5");
    const ZelDtLong number(5);
    for (const Amount& amount : Amounts({1800})) {
        for (const ZelDtBasis* other :
             {static_cast<const ZelDtBasis*>(&text), static_cast<const ZelDtBasis*>(&number)}) {
            Given<ZelDtTime> given(amount);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(
                FailsWith([&] { basis.Assign(*other); }, TimeError(10, "Assign(ZelDtBasis&)")));
            EXPECT_EQ(Look(given.it), amount);
        }
    }
}

TEST(WorkingMode, IsNeverThatOfTheSource)
{
    ZelDtTime target(ZelDtWmNull);
    target = ZelDtTime(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtTime(1, 30);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

} // namespace
