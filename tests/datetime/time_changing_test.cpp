/// What changes a ZelDtTime in place: setting the amount or a part of it, adding hours and
/// fractions, the mode.

#include "tests/datetime/time_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <string>

namespace {

using namespace zeltest;

constexpr TimeMode kAllModes[] = {kHundredths, kMinutes, kHours, kOwn};

const std::vector<std::int32_t> kUnits = {0, 1807, -2407, kMostUnits, kLeastUnits};

/// Counts of hours, minutes or hundredths, those included whose units exceed everything.
std::vector<long> Counts()
{
    std::vector<long> counts = {0,         1,          -1,        30,         -30,       75,
                                -90,       600,        1789569,   -1789569,   1789570,   -1789570,
                                3579139,   -3579139,   107374182, -107374182, 107374183, -107374183,
                                178956970, -178956970, 178956971, -178956971, 214748364, -214748364,
                                357913941, -357913941, INT_MAX,   INT_MIN,    LONG_MAX,  LONG_MIN};
    for (const long wide : WideLongs())
        counts.push_back(wide);
    return counts;
}

ZelDtTime Make(std::int32_t units, TimeMode mode)
{
    return Given<ZelDtTime>(Amount{{ZelDtWmMissing, 1, 0}, units, mode}).it;
}

TimeMode Resolved(TimeMode mode, const Amount& amount)
{
    return mode == kOwn ? amount.mode : mode;
}

/// Runs the action, which is to bring `value` from `before` to the amount `units`: defined
/// afterwards, or the error that `fails` checks and no change where the amount does not fit.
template <typename Action, typename Fails>
void ExpectChange(const Amount& before, std::int64_t units, Action&& action, Fails&& fails)
{
    Given<ZelDtTime> given(before);
    if (Fits(units)) {
        action(given.it);
        EXPECT_EQ(Look(given.it), Taken(before, static_cast<std::int32_t>(units))) << before;
    } else {
        EXPECT_TRUE(fails([&] { action(given.it); })) << before;
        EXPECT_EQ(Look(given.it), before);
    }
}

const auto kFailsInBuilding = [](auto&& action) { return FailsWith(action, BuildError()); };

// Setting

TEST(Setting, OfKnownAmounts)
{
    const struct {
        std::int32_t before;
        TimeMode mode;
        void (*set)(ZelDtTime&);
        std::int32_t after;
    } rows[] = {
        // whole hours: what is beside them stays, with its sign
        {1800, kMinutes, [](ZelDtTime& t) { t.SetHour(2); }, 3000},
        {1800, kMinutes, [](ZelDtTime& t) { t.SetHour(0); }, 600},
        {1800, kMinutes, [](ZelDtTime& t) { t.SetHour(-2); }, -1800},
        {-1800, kMinutes, [](ZelDtTime& t) { t.SetHour(-2); }, -3000},
        {-1800, kMinutes, [](ZelDtTime& t) { t.SetHour(2); }, 1800},
        {-600, kMinutes, [](ZelDtTime& t) { t.SetHour(1); }, 600},
        {1207, kHours, [](ZelDtTime& t) { t.SetHour(2); }, 2407},
        {kMostUnits, kHundredths, [](ZelDtTime& t) { t.SetHour(0); }, 847},
        {847, kMinutes, [](ZelDtTime& t) { t.SetHour(1789569); }, kMostUnits},
        {-848, kMinutes, [](ZelDtTime& t) { t.SetHour(-1789569); }, kLeastUnits},
        // the fraction: added to the whole hours
        {1800, kMinutes, [](ZelDtTime& t) { t.SetMin(15, ZelDtTime::Minuten); }, 1500},
        {1800, kMinutes, [](ZelDtTime& t) { t.SetMin(15); }, 1500},
        {1800, kMinutes, [](ZelDtTime& t) { t.SetMin(25, ZelDtTime::Hundertstel); }, 1500},
        {1800, kHundredths, [](ZelDtTime& t) { t.SetMin(25); }, 1500},
        {1800, kHundredths, [](ZelDtTime& t) { t.SetMin(15, ZelDtTime::Minuten); }, 1500},
        {-1200, kMinutes, [](ZelDtTime& t) { t.SetMin(30); }, -600},
        {-1800, kMinutes, [](ZelDtTime& t) { t.SetMin(-45); }, -2100},
        {-600, kMinutes, [](ZelDtTime& t) { t.SetMin(30); }, 600},
        {1200, kMinutes, [](ZelDtTime& t) { t.SetMin(-90); }, -600},
        {1200, kMinutes, [](ZelDtTime& t) { t.SetMin(600); }, 13200},
        {1807, kMinutes, [](ZelDtTime& t) { t.SetMin(30); }, 1800},
        {1807, kMinutes, [](ZelDtTime& t) { t.SetMin(5, ZelDtTime::Stunden); }, 1200},
        {1807, kHours, [](ZelDtTime& t) { t.SetMin(5); }, 1200},
        {kMostUnits, kMinutes, [](ZelDtTime& t) { t.SetMin(42); }, 2147483640},
        // the whole amount
        {7, kMinutes, [](ZelDtTime& t) { t.SetTime(90); }, 1800},
        {7, kHundredths, [](ZelDtTime& t) { t.SetTime(150); }, 1800},
        {7, kHours, [](ZelDtTime& t) { t.SetTime(2); }, 2400},
        {7, kHours, [](ZelDtTime& t) { t.SetTime(-90, ZelDtTime::Minuten); }, -1800},
        {7, kMinutes, [](ZelDtTime& t) { t.SetTime(-150, ZelDtTime::Hundertstel); }, -1800},
        {7, kMinutes, [](ZelDtTime& t) { t.SetTime(2, ZelDtTime::Stunden); }, 2400},
        {7, kMinutes, [](ZelDtTime& t) { t.SetTime(0); }, 0},
        {7, kMinutes, [](ZelDtTime& t) { t.SetTime(107374182); }, 2147483640},
        {7, kHundredths, [](ZelDtTime& t) { t.SetTime(-178956970); }, -2147483640},
        {7, kHours, [](ZelDtTime& t) { t.SetTime(1789569); }, 2147482800},
    };
    int number = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << "row " << number++ << ", from " << row.before);
        ZelDtTime value = Make(row.before, row.mode);
        row.set(value);
        EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, row.after, row.mode}));
    }
}

TEST(Setting, OfTheHoursKeepsTheRestInEveryState)
{
    for (const Amount& before : AmountsInAllModes(kUnits))
        for (const long hours : Counts())
            ExpectChange(
                before, Times(hours, 1200) + before.units % 1200,
                [&](ZelDtTime& t) { t.SetHour(hours); }, kFailsInBuilding);
}

TEST(Setting, OfTheFractionKeepsTheHoursInEveryState)
{
    for (const Amount& before : AmountsInAllModes(kUnits))
        for (const TimeMode mode : kAllModes)
            for (const long fraction : Counts())
                ExpectChange(
                    before,
                    before.units / 1200 * 1200 +
                        Times(fraction, FractionStep(Resolved(mode, before))),
                    [&](ZelDtTime& t) { t.SetMin(fraction, mode); }, kFailsInBuilding);
}

TEST(Setting, OfTheWholeAmountInEveryState)
{
    for (const Amount& before : AmountsInAllModes(kUnits))
        for (const TimeMode mode : kAllModes)
            for (const long count : Counts())
                ExpectChange(
                    before, Times(count, WholeStep(Resolved(mode, before))),
                    [&](ZelDtTime& t) { t.SetTime(count, mode); }, kFailsInBuilding);
}

TEST(Setting, OfHoursThenMinutesMakesAnyAmount)
{
    ZelDtTime value(ZelDtWmMissing);
    value.SetHour(7);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, 8400, kMinutes}));
    value.SetMin(45, ZelDtTime::Minuten);
    EXPECT_EQ(value.GetTime(ZelDtTime::Minuten), 465);
    value.SetMin(0);
    value.SetHour(-1);
    value.SetMin(30, ZelDtTime::Minuten);
    EXPECT_EQ(value.GetTime(ZelDtTime::Minuten), -30);
    // -1 h and the 45 minutes that stay are -0:15, which has no whole hour.
    value.SetTime(465);
    value.SetHour(-1);
    EXPECT_EQ(value.GetTime(ZelDtTime::Minuten), -15);
    value.SetMin(30, ZelDtTime::Minuten);
    EXPECT_EQ(value.GetTime(ZelDtTime::Minuten), 30);
}

// Adding

TEST(Adding, OfKnownAmounts)
{
    const struct {
        std::int32_t before;
        TimeMode mode;
        void (*add)(ZelDtTime&);
        std::int32_t after;
    } rows[] = {
        {1807, kMinutes, [](ZelDtTime& t) { t.AddHour(2); }, 4207},
        {1800, kMinutes, [](ZelDtTime& t) { t.AddHour(-2); }, -600},
        {1800, kMinutes, [](ZelDtTime& t) { t.SubHour(2); }, -600},
        {-600, kHours, [](ZelDtTime& t) { t.SubHour(-1); }, 600},
        {1807, kMinutes, [](ZelDtTime& t) { t.AddMin(45); }, 2707},
        {1800, kMinutes, [](ZelDtTime& t) { t.SubMin(120); }, -600},
        {1800, kHundredths, [](ZelDtTime& t) { t.AddMin(25); }, 2100},
        {1800, kHundredths, [](ZelDtTime& t) { t.SubMin(25); }, 1500},
        {1800, kHundredths, [](ZelDtTime& t) { t.AddMin(15, ZelDtTime::Minuten); }, 2100},
        {1800, kMinutes, [](ZelDtTime& t) { t.SubMin(25, ZelDtTime::Hundertstel); }, 1500},
        {1800, kHours, [](ZelDtTime& t) { t.AddMin(1); }, 3000}, // hours are what the mode shows
        {1800, kHours, [](ZelDtTime& t) { t.SubMin(2); }, -600},
        {1800, kMinutes, [](ZelDtTime& t) { t.AddMin(-1, ZelDtTime::Stunden); }, 600},
        {2147482800, kMinutes, [](ZelDtTime& t) { t.AddMin(42); }, 2147483640},
        {-2147482800, kMinutes, [](ZelDtTime& t) { t.SubMin(42); }, -2147483640},
        // more than 32 bits of units, added to the other end of the range
        {kLeastUnits, kMinutes, [](ZelDtTime& t) { t.AddHour(3579139); }, 2147483152},
        {kMostUnits, kMinutes, [](ZelDtTime& t) { t.SubHour(3579139); }, -2147483153},
        {kLeastUnits, kMinutes, [](ZelDtTime& t) { t.AddMin(214748364); }, 2147483632},
        {kMostUnits, kHundredths, [](ZelDtTime& t) { t.SubMin(357913941); }, -2147483645},
    };
    int number = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << "row " << number++ << ", from " << row.before);
        ZelDtTime value = Make(row.before, row.mode);
        row.add(value);
        EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, row.after, row.mode}));
    }
}

/// As ExpectChange, for operations that read the amount they change.
template <typename Action>
void ExpectSum(const char* name, const Amount& before, std::int64_t units, Action&& action)
{
    if (!IsMissing(before.state)) {
        ExpectChange(before, units, action,
                     [&](auto&& failing) { return FailsBehind(name, 8, failing); });
        return;
    }
    Given<ZelDtTime> given(before);
    EXPECT_TRUE(FailsIn(name, 2, [&] { action(given.it); })) << before;
    EXPECT_EQ(Look(given.it), before);
}

TEST(Adding, OfHoursInEveryState)
{
    for (const Amount& before : AmountsInAllModes(kUnits)) {
        for (const long hours : Counts()) {
            SCOPED_TRACE(::testing::Message() << hours << " hours");
            const std::int64_t units = Times(hours, 1200);
            ExpectSum("AddHour", before, before.units + units,
                      [&](ZelDtTime& t) { t.AddHour(hours); });
            ExpectSum("SubHour", before, before.units - units,
                      [&](ZelDtTime& t) { t.SubHour(hours); });
        }
    }
}

TEST(Adding, OfFractionsInEveryState)
{
    for (const Amount& before : AmountsInAllModes(kUnits)) {
        for (const TimeMode mode : kAllModes) {
            for (const long count : Counts()) {
                SCOPED_TRACE(::testing::Message()
                             << count << " in mode " << static_cast<int>(mode));
                const std::int64_t units = Times(count, WholeStep(Resolved(mode, before)));
                ExpectSum("AddMin", before, before.units + units,
                          [&](ZelDtTime& t) { t.AddMin(count, mode); });
                ExpectSum("SubMin", before, before.units - units,
                          [&](ZelDtTime& t) { t.SubMin(count, mode); });
            }
        }
    }
}

TEST(Adding, KeepsTheFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    ZelDtTime value(1, 30);
    value.SetFormat(&format);
    value.AddHour(1);
    value.SetMin(15);
    value.SetValue("8:15");
    value.Reset(kMinutes);
    EXPECT_EQ(value.GetFormat(), &format);
}

// Mode

TEST(ModeSetting, ChangesTheModeAlone)
{
    for (const Amount& before : AmountsInAllModes({0, 1807})) {
        for (const TimeMode mode : kAllModes) {
            Given<ZelDtTime> given(before);
            given.it.SetMode(mode);
            Amount expected = before;
            expected.mode = Resolved(mode, before);
            EXPECT_EQ(Look(given.it), expected) << before;
        }
    }
}

TEST(Reset, MakesADefinedZeroInTheMode)
{
    for (const Amount& before : AmountsInAllModes({0, 1807, -1})) {
        for (const TimeMode mode : kAllModes) {
            Given<ZelDtTime> given(before);
            given.it.Reset(mode);
            Amount expected = Taken(before, 0);
            expected.mode = Resolved(mode, before);
            EXPECT_EQ(Look(given.it), expected) << before;
        }
    }
}

TEST(Changes, MarkOnlyWhatDiffers)
{
    ZelDtTime value = Make(1800, kMinutes);
    value.SetHour(1);
    value.SetMin(30);
    value.SetMin(50, kHundredths);
    value.SetTime(90);
    value.SetTime(150, kHundredths);
    value.SetValue("1:30");
    value.SetValue("1,50"); // another mode, the same amount
    value.AddHour(0);
    value.SubHour(0);
    value.AddMin(0, kHours);
    value.SubMin(0);
    value.SetMode(kMinutes);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 0}, 1800, kMinutes}));
    value.AddMin(1);
    EXPECT_EQ(value.GetAndResetModified(0), 1);
    value.SubMin(1);
    EXPECT_EQ(value.IsModified(), 1);
    ZelDtTime null(ZelDtWmNull);
    null.AddHour(0); // defined now, which is a change
    EXPECT_EQ(Look(null), (Amount{{ZelDtWmNull, 1, 1}, 0, kMinutes}));
}

// What is no mode

TEST(UnknownModes, AreRefusedBeforeAnythingElse)
{
    const struct {
        const char* name;
        void (*action)(ZelDtTime&, TimeMode);
    } rows[] = {
        {"Reset", [](ZelDtTime& t, TimeMode m) { t.Reset(m); }},
        {"SetMode", [](ZelDtTime& t, TimeMode m) { t.SetMode(m); }},
        {"GetMin", [](ZelDtTime& t, TimeMode m) { t.GetMin(m); }},
        {"GetTime", [](ZelDtTime& t, TimeMode m) { t.GetTime(m); }},
        {"SetValue", [](ZelDtTime& t, TimeMode m) { t.SetValue("8:15", m); }},
        {"SetValue", [](ZelDtTime& t, TimeMode m) { t.SetValue("8:75", m); }},
        {"SetValue", [](ZelDtTime& t, TimeMode m) { t.SetValue(nullptr, m); }},
        {"SetMin", [](ZelDtTime& t, TimeMode m) { t.SetMin(15, m); }},
        {"SetMin", [](ZelDtTime& t, TimeMode m) { t.SetMin(LONG_MAX, m); }},
        {"SetTime", [](ZelDtTime& t, TimeMode m) { t.SetTime(15, m); }},
        {"SetTime", [](ZelDtTime& t, TimeMode m) { t.SetTime(LONG_MIN, m); }},
        {"AddMin", [](ZelDtTime& t, TimeMode m) { t.AddMin(15, m); }},
        {"AddMin", [](ZelDtTime& t, TimeMode m) { t.AddMin(LONG_MAX, m); }},
        {"SubMin", [](ZelDtTime& t, TimeMode m) { t.SubMin(15, m); }},
        {"SubMin", [](ZelDtTime& t, TimeMode m) { t.SubMin(LONG_MIN, m); }},
    };
    for (const auto& row : rows) {
        for (const TimeMode mode : kNoModes) {
            for (const Amount& before : AmountsInAllModes({0, 1807})) {
                Given<ZelDtTime> given(before);
                EXPECT_TRUE(FailsIn(row.name, 17, [&] { row.action(given.it, mode); }))
                    << static_cast<int>(mode);
                EXPECT_EQ(Look(given.it), before);
            }
        }
    }
}

TEST(UnknownModes, MakeNoValue)
{
    const ZelDtLong five(5);
    const ZelDtLong missingNumber(ZelDtWmMissing);
    const ZelDtString text("8:15");
    const ZelDtString wrong("8:75");
    const ZelDtString missingText(ZelDtWmMissing);
    const char* const null = nullptr;
    for (const TimeMode mode : kNoModes) {
        SCOPED_TRACE(static_cast<int>(mode));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime("8:15", mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime("8:75", mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(null, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(1, 30, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(LONG_MAX, 30, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(five, five, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(missingNumber, five, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(text, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(wrong, mode); }));
        EXPECT_TRUE(FailsIn("ZelDtTime", 17, [&] { ZelDtTime(missingText, mode); }));
    }
}

} // namespace
