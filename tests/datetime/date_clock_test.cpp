/// The clock: the century of two-digit years, "now", and date-times of moments of the system, in
/// several time zones.

#include "tests/datetime/calendar_testing.h"

#include "numeric/DTSHORT.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace {

using namespace zeltest;

constexpr short kNow = ZelDtDateTime::ksDateTimeNow;

/// Sets the time zone of the process, in the notation of POSIX; the end of the block brings the one
/// from before back. On Windows, whose C library knows other notations, tests that need it are left
/// out.
class TimeZone {
public:
    explicit TimeZone(const char* zone)
    {
        if (const char* const before = std::getenv("TZ"))
            m_before = before;
        Set(zone);
    }
    ~TimeZone() { Set(m_before ? m_before->c_str() : nullptr); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

#ifdef _WIN32
    static constexpr bool kCanBeSet = false;

private:
    static void Set(const char*) {}
#else
    static constexpr bool kCanBeSet = true;

private:
    static void Set(const char* zone)
    {
        if (zone != nullptr)
            setenv("TZ", zone, 1);
        else
            unsetenv("TZ");
        tzset();
    }
#endif

    std::optional<std::string> m_before;
};

const char* const kGreenwich = "UTC0";
/// Central Europe with its summer time.
const char* const kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";
const char* const kNewYork = "EST5EDT,M3.2.0,M11.1.0";
const char* const kAuckland = "NZST-12NZDT,M9.5.0,M4.1.0/3";

/// The moment at which the calendar of Greenwich shows the fields.
std::time_t MomentOf(const Fields& f)
{
    return static_cast<std::time_t>(SecondsOf(f));
}

std::int64_t YearOf(int twoDigits)
{
    ZelDtDateTime value = MakeDateTime({2000, 1, 1});
    value.SetYear(twoDigits);
    return FieldsIn(value).year;
}

/// What two digits mean in every operation that reads them, with the clock at local fields.
void ExpectCentury(const Fields& clockFields, std::int64_t century)
{
    const FixedClock clock(clockFields);
    const std::int64_t first = century * 100;
    EXPECT_EQ(YearOf(0), first) << clockFields;
    EXPECT_EQ(YearOf(5), first + 5) << clockFields;
    EXPECT_EQ(YearOf(99), first + 99) << clockFields;
    EXPECT_EQ(YearOf(-5), first - 5) << clockFields;
    EXPECT_EQ(FieldsIn(ZelDtDateTime("1.1.99", ZelDtDateTime::DateString)).year, first + 99);
    EXPECT_EQ(FieldsIn(ZelDtDateTime(1, 1, 7, 0, 0, 0)).year, first + 7);
    std::tm record{};
    record.tm_year = 42;
    record.tm_mday = 1;
    EXPECT_EQ(FieldsIn(ZelDtDateTime(&record)).year, first + 42);
    ZelDtDateTime value = MakeDateTime({2000, 1, 1});
    value.AddYear(-1950);
    EXPECT_EQ(FieldsIn(value).year, first + 50);
}

TEST(Century, IsThatOfTheLocalYear)
{
    ExpectCentury({1999, 6, 15, 12, 0, 0}, 19);
    ExpectCentury({1999, 12, 31, 23, 59, 59}, 19);
    ExpectCentury({2000, 1, 1, 0, 0, 0}, 20);
    ExpectCentury({2000, 2, 29, 12, 0, 0}, 20);
    ExpectCentury({2024, 2, 29, 12, 0, 0}, 20);
    ExpectCentury({2099, 1, 1, 0, 0, 0}, 20);
    ExpectCentury({2099, 12, 31, 23, 59, 59}, 20);
    ExpectCentury({2100, 1, 1, 0, 0, 0}, 21);
    ExpectCentury({2100, 12, 31, 23, 59, 59}, 21);
    ExpectCentury({2999, 12, 30, 12, 0, 0}, 29);
}

TEST(Century, FollowsTheClockAtOnce)
{
    const FixedClock clock(Fields{1999, 12, 31, 23, 59, 59});
    EXPECT_EQ(YearOf(5), 1905);
    {
        const FixedClock later(Fields{2000, 1, 1, 0, 0, 0});
        EXPECT_EQ(YearOf(5), 2005);
    }
    EXPECT_EQ(YearOf(5), 1905);
}

TEST(Century, ChangesAtTheLocalTurnOfTheYear)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the time zone cannot be set here";
    struct Row {
        const char* zone;
        Fields turn; ///< the first moment of 2000, by the calendar of Greenwich
    };
    for (const Row& row :
         {Row{kGreenwich, {2000, 1, 1, 0, 0, 0}}, Row{kBerlin, {1999, 12, 31, 23, 0, 0}},
          Row{kNewYork, {2000, 1, 1, 5, 0, 0}}, Row{kAuckland, {1999, 12, 31, 11, 0, 0}},
          Row{"XXX-5:45", {1999, 12, 31, 18, 15, 0}}}) {
        const TimeZone zone(row.zone);
        {
            const FixedClock clock(MomentOf(row.turn) - 1);
            EXPECT_EQ(YearOf(5), 1905) << row.zone;
        }
        const FixedClock clock(MomentOf(row.turn));
        EXPECT_EQ(YearOf(5), 2005) << row.zone;
    }
}

/// A century of years before 1753.
TEST(Century, MayBeTooEarly)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the system has no moments before 1970";
    const TimeZone zone(kGreenwich);
    const FixedClock clock(Fields{1753, 6, 15, 12, 0, 0});
    EXPECT_EQ(YearOf(53), 1753);
    ZelDtDateTime value = MakeDateTime({2000, 1, 1});
    EXPECT_TRUE(FailsWith([&] { value.SetYear(52); }, FunctionError(1, "SetYear(SHORT)"),
                          ImpError(27, "SetYear(SHORT)")));
    EXPECT_EQ(FieldsIn(value), (Fields{1752, 1, 1}));
}

// Now

TEST(Now, IsTheLocalMomentOfTheClock)
{
    for (const Fields& fields : {Fields{1999, 12, 31, 23, 59, 59}, Fields{2000, 2, 29, 0, 0, 0},
                                 Fields{2024, 2, 29, 12, 30, 45}, Fields{2024, 7, 1, 6, 7, 8},
                                 Fields{2100, 1, 1, 0, 0, 1}}) {
        const FixedClock clock(fields);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const DefaultMode guard(mode);
            for (const short minute : {short{0}, short{30}, short{-1}, short{99}, kNow}) {
                const ZelDtDateTime now(kNow, minute);
                EXPECT_EQ(Look(now), (Moment{{mode, 1, 0}, fields}));
                // Neither day of the week nor day of the year nor summer time are kept.
                EXPECT_EQ(ExtrasOf(now.GetValue()), NoExtras());
            }
            const ZelDtDateTime now{ZelDtShort(kNow), ZelDtShort(0)};
            EXPECT_EQ(Look(now), (Moment{{mode, 1, 0}, fields}));
        }
    }
}

TEST(Now, IsToldByZone)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the time zone cannot be set here";
    struct Row {
        const char* zone;
        Fields winter; ///< at 2000-01-15 11:30:45 in Greenwich
        Fields summer; ///< at 2000-07-15 12:30:45
    };
    for (const Row& row : {Row{kGreenwich, {2000, 1, 15, 11, 30, 45}, {2000, 7, 15, 12, 30, 45}},
                           Row{kBerlin, {2000, 1, 15, 12, 30, 45}, {2000, 7, 15, 14, 30, 45}},
                           Row{kNewYork, {2000, 1, 15, 6, 30, 45}, {2000, 7, 15, 8, 30, 45}},
                           Row{kAuckland, {2000, 1, 16, 0, 30, 45}, {2000, 7, 16, 0, 30, 45}}}) {
        const TimeZone zone(row.zone);
        {
            const FixedClock clock(MomentOf({2000, 1, 15, 11, 30, 45}));
            EXPECT_EQ(FieldsIn(ZelDtDateTime(kNow, 0)), row.winter) << row.zone;
        }
        const FixedClock clock(MomentOf({2000, 7, 15, 12, 30, 45}));
        EXPECT_EQ(FieldsIn(ZelDtDateTime(kNow, 0)), row.summer) << row.zone;
    }
}

std::vector<Link> FromNow(unsigned long number)
{
    return LinksOf({ConstructionError("ZelDtDateTime(SHORT,SHORT)"),
                    ImpError(1, "ZelDtDateTime_Imp(SHORT,SHORT)"),
                    ImpError(number, "SetSysDateTime()")});
}

TEST(Now, MayNotBeBefore1753)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the system has no moments before 1970";
    const TimeZone zone(kGreenwich);
    const std::time_t first = MomentOf({1753, 1, 1, 0, 0, 0});
    {
        const FixedClock clock(first);
        EXPECT_EQ(FieldsIn(ZelDtDateTime(kNow, 0)), (Fields{1753, 1, 1}));
    }
    const FixedClock clock(first - 1);
    EXPECT_EQ(LinksThrownBy([] { ZelDtDateTime(kNow, short{0}); }), FromNow(27));
}

/// The clock shows a moment that is no calendar date of the system: errors, nothing else.
TEST(Now, MayBeNoDateAtAll)
{
    const FixedClock clock(std::numeric_limits<std::time_t>::max());
    const Caught caught = Catch([] { ZelDtDateTime(kNow, short{0}); });
    EXPECT_TRUE(Matches(caught, ConstructionError("ZelDtDateTime(SHORT,SHORT)")));
    EXPECT_EQ(caught.first.module, "IMP/DTDATIMI");
    ZelDtDateTime value = MakeDateTime({2000, 1, 1});
    EXPECT_TRUE(Matches(Catch([&] { value.SetYear(5); }), FunctionError(1, "SetYear(SHORT)")));
    value.SetYear(2005);
    EXPECT_EQ(FieldsIn(value), (Fields{2005, 1, 1}));
}

TEST(Now, OfTheSystemLiesBetweenTwoReadings)
{
    const ZelDtClock before = ZelDtSetClock(nullptr);
    const std::time_t earliest = std::time(nullptr);
    const ZelDtDateTime now(kNow, 0);
    const std::time_t latest = std::time(nullptr);
    EXPECT_GE(FieldsIn(now), FieldsIn(ZelDtDateTime(earliest)));
    EXPECT_LE(FieldsIn(now), FieldsIn(ZelDtDateTime(latest)));
    ZelDtSetClock(before);
}

std::time_t Never()
{
    ADD_FAILURE() << "the clock was read";
    return 0;
}

std::time_t Turn2000()
{
    return LocalMoment(SomeDayOf(2000));
}

TEST(Clock, ReplacingItTellsTheOneBefore)
{
    const ZelDtClock found = ZelDtSetClock(&Never);
    EXPECT_EQ(ZelDtSetClock(&Turn2000), &Never);
    EXPECT_EQ(FieldsIn(ZelDtDateTime(kNow, 0)), SomeDayOf(2000));
    EXPECT_EQ(ZelDtSetClock(nullptr), &Turn2000);
    EXPECT_EQ(ZelDtSetClock(nullptr), nullptr);
    EXPECT_EQ(ZelDtSetClock(found), nullptr);
}

TEST(Clock, IsNotReadWithoutNeed)
{
    const ZelDtClock found = ZelDtSetClock(&Never);
    ZelDtDateTime value(1, 1, 2000, 0, 0, 0);
    value.SetYear(1999);
    value.SetDateTime("15.03.2000 12:30");
    value.AddYear(100);
    value.AddMonth(30);
    EXPECT_EQ(FieldsIn(value), (Fields{2102, 9, 15, 12, 30, 0}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime(12, 30)), (Fields{1900, 1, 1, 12, 30, 0}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime()), kNew);
    ZelDtSetClock(found);
}

// Moments of the system

TEST(Moments, AreShownByTheLocalCalendar)
{
    for (const Fields& fields : {Fields{1971, 1, 1, 0, 0, 0}, Fields{1999, 12, 31, 23, 59, 59},
                                 Fields{2000, 2, 29, 12, 0, 0}, Fields{2024, 7, 1, 6, 7, 8},
                                 Fields{2038, 1, 19, 12, 14, 8}, Fields{2999, 12, 30, 12, 0, 0}})
        for (const ZelDtWorkingMode mode : kRealModes) {
            const DefaultMode guard(mode);
            const ZelDtDateTime value(LocalMoment(fields));
            EXPECT_EQ(Look(value), (Moment{{mode, 1, 0}, fields}));
            const ZelDtDateZp date(LocalMoment(fields));
            EXPECT_EQ(Look(date), (Moment{{mode, 1, 0}, Midnight(fields)}));
        }
}

TEST(Moments, AreShownByZoneWithAllFields)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the time zone cannot be set here";
    struct Row {
        const char* zone;
        Fields greenwich;
        Fields local;
        std::vector<int> extras; ///< day of the week, day of the year, summer time
    };
    const std::vector<Row> rows = {
        {kGreenwich, {1970, 1, 1, 0, 0, 0}, {1970, 1, 1, 0, 0, 0}, {4, 0, 0}},
        {kBerlin, {1970, 1, 1, 0, 0, 0}, {1970, 1, 1, 1, 0, 0}, {4, 0, 0}},
        {kNewYork, {1970, 1, 1, 0, 0, 0}, {1969, 12, 31, 19, 0, 0}, {3, 364, 0}},
        {kGreenwich, {1969, 12, 31, 23, 59, 59}, {1969, 12, 31, 23, 59, 59}, {3, 364, 0}},
        {kBerlin, {2000, 2, 28, 23, 0, 0}, {2000, 2, 29, 0, 0, 0}, {2, 59, 0}},
        {kBerlin, {2000, 12, 31, 22, 59, 59}, {2000, 12, 31, 23, 59, 59}, {0, 365, 0}},
        // The summer time of 2024: from 31 March, 1:00 in Greenwich, to 27 October, 1:00.
        {kBerlin, {2024, 3, 31, 0, 59, 59}, {2024, 3, 31, 1, 59, 59}, {0, 90, 0}},
        {kBerlin, {2024, 3, 31, 1, 0, 0}, {2024, 3, 31, 3, 0, 0}, {0, 90, 1}},
        {kBerlin, {2024, 10, 27, 0, 59, 59}, {2024, 10, 27, 2, 59, 59}, {0, 300, 1}},
        {kBerlin, {2024, 10, 27, 1, 0, 0}, {2024, 10, 27, 2, 0, 0}, {0, 300, 0}},
        {kGreenwich, {1753, 1, 1, 0, 0, 0}, {1753, 1, 1, 0, 0, 0}, {1, 0, 0}},
        {kGreenwich, {9999, 12, 31, 23, 59, 59}, {9999, 12, 31, 23, 59, 59}, {5, 364, 0}},
    };
    for (const Row& row : rows) {
        const TimeZone zone(row.zone);
        const ZelDtDateTime value(MomentOf(row.greenwich));
        EXPECT_EQ(FieldsIn(value), row.local) << row.zone << ' ' << row.greenwich;
        EXPECT_EQ(ExtrasOf(value.GetValue()), row.extras) << row.zone << ' ' << row.greenwich;
        // A copy has them too; setters and arithmetic do not touch them.
        ZelDtDateTime copy(value);
        EXPECT_EQ(ExtrasOf(copy.GetValue()), row.extras);
        copy.SetYear(2001);
        copy.SetMonth(3);
        copy.SetDay365(5);
        copy.SetTime("12:30:45");
        copy.AddDay365(17);
        EXPECT_EQ(FieldsIn(copy), (Fields{2001, 3, 22, 12, 30, 45}));
        EXPECT_EQ(ExtrasOf(copy.GetValue()), row.extras);
    }
}

TEST(Moments, BeforeTheFirstYearAreRejected)
{
    if (!TimeZone::kCanBeSet)
        GTEST_SKIP() << "the system has no moments before 1970";
    struct Row {
        const char* zone;
        Fields greenwich; ///< the first moment of 1753
    };
    for (const Row& row :
         {Row{kGreenwich, {1753, 1, 1, 0, 0, 0}}, Row{"XXX-1", {1752, 12, 31, 23, 0, 0}},
          Row{"XXX5", {1753, 1, 1, 5, 0, 0}}}) {
        const TimeZone zone(row.zone);
        const std::time_t first = MomentOf(row.greenwich);
        EXPECT_EQ(FieldsIn(ZelDtDateTime(first)), (Fields{1753, 1, 1}));
        for (const std::time_t moment : {first - 1, first - std::time_t{100'000'000'000}}) {
            const auto make = [&] { ZelDtDateTime value(moment); };
            EXPECT_EQ(LinksThrownBy(make), LinksOf({ConstructionError("ZelDtDateTime(time_t)"),
                                                    ImpError(27, "ZelDtDateTime_Imp(time_t) ")}))
                << row.zone;
            EXPECT_EQ(Catch(make).leaked, 0U);
        }
    }
}

TEST(Moments, WithoutACalendarDateAreRejected)
{
    std::vector<std::time_t> moments = {std::numeric_limits<std::time_t>::max(),
                                        std::numeric_limits<std::time_t>::min()};
#ifdef _WIN32
    moments.push_back(-100'000); // more than a day before 1970
#endif
    for (const std::time_t moment : moments) {
        EXPECT_EQ(LinksThrownBy([&] { ZelDtDateTime value(moment); }),
                  LinksOf({ConstructionError("ZelDtDateTime(time_t)"),
                           ImpError(5, "ZelDtDateTime_Imp(time_t) ")}));
        const Caught caught = Catch([&] { ZelDtDateZp date(moment); });
        EXPECT_EQ(caught.error.number, 1U);
        EXPECT_EQ(caught.first, ImpError(5, "ZelDtDateTime_Imp(time_t) "));
    }
}

} // namespace
