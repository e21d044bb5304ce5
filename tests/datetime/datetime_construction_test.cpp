/// Construction of ZelDtDateTime from records, moments and numbers.

#include "platform/runtime/localtime.h"
#include "tests/datetime/datetime_testing.h"

#include <array>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;
using DateTime = ZelDtDateTime;

const char* const kFromRecord = "ZelDtDateTime(struct tm*)";
const char* const kFromMoment = "ZelDtDateTime(time_t)";
const char* const kFromThreeShorts =
    "ZelDtDateTime (const ZelDtShort&,const ZelDtShort&,const ZelDtShort&)";
const char* const kFromSixNumbers = "ZelDtDateTime(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)";
const char* const kFromTwoNumbers = "ZelDtDateTime(SHORT,SHORT)";
const char* const kFromTwoShorts = "ZelDtDateTime(const ZelDtShort&,const ZelDtShort&)";
const char* const kFromSixShorts =
    "ZelDtDateTime(const ZelDtShort&,const ZelDtShort&,const ZelDtShort&,const ZelDtShort&,"
    "const ZelDtShort&,const ZelDtShort&)";

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtDateTime), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtDateTime>));
}

TEST(Representation, ConstantsHaveTheirNumbers)
{
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtDateTime::ksDateTimeNow), const short>));
    const short& now = ZelDtDateTime::ksDateTimeNow; // has an address
    EXPECT_EQ(now, 32767);
    EXPECT_EQ(static_cast<int>(ZelDtDateTime::DateTimeString), 0);
    EXPECT_EQ(static_cast<int>(ZelDtDateTime::DateString), 1);
    EXPECT_EQ(static_cast<int>(ZelDtDateTime::TimeString), 2);
    EXPECT_EQ(static_cast<int>(SQL_Deutsch), 0);
    EXPECT_EQ(static_cast<int>(SQL_Englisch), 1);
    EXPECT_EQ(static_cast<int>(SQL_Ziffern), 1100);
    EXPECT_EQ(static_cast<int>(SQL_DatumUhrzeit), 1101);
    EXPECT_EQ(static_cast<int>(SQL_Datum), 1102);
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtDateTime);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtDateTime");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtDateTime)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtDateTime"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtDateTime"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_EQ(Look(static_cast<const ZelDtDateTime&>(*object)), UndefinedMoment(mode));
    }
}

TEST(Construction, FromAModeHoldsTheFirstOf1900)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtDateTime value(mode);
            EXPECT_EQ(Look(value), UndefinedMoment(mode));
            EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtDateTime(ZelDtWmDefault)), UndefinedMoment(standard));
        EXPECT_EQ(Look(ZelDtDateTime()), UndefinedMoment(standard));
    }
}

TEST(Construction, RefusesWhatIsNoMoment)
{
    EXPECT_FALSE((std::is_constructible_v<ZelDtDateTime, double>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtDateTime, float>));
}

// Records of the C library

std::tm Record(int year, int month, int day, int hour, int minute, int second)
{
    std::tm record{};
    record.tm_year = year;
    record.tm_mon = month;
    record.tm_mday = day;
    record.tm_hour = hour;
    record.tm_min = minute;
    record.tm_sec = second;
    record.tm_wday = 3;
    record.tm_yday = 77;
    record.tm_isdst = 1;
    return record;
}

TEST(ConstructionFromARecord, TakesTheYearAsANumberOfTwoDigits)
{
    const struct {
        int clock;
        int recordYear;
        int year;
    } rows[] = {{2024, 0, 2000},
                {2024, 5, 2005},
                {2024, 99, 2099},
                {2024, -1, 1999},
                {2024, -5, 1995},
                {2024, -247, 1753},
                {2000, 99, 2099},
                {2099, 1, 2001},
                {1999, 5, 1905},
                {1999, 99, 1999},
                {1999, 0, 1900},
                {1999, -147, 1753},
                {2100, 5, 2105},
                {2100, 99, 2199},
                {2100, -347, 1753},
                // what a full year would be is taken as one
                {2024, 1753, 1753},
                {2024, 2000, 2000},
                {2024, 32767, 32767}};
    for (const auto& row : rows) {
        const FixedClock clock({row.clock, 6, 15, 12, 0, 0});
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            const std::tm record = Record(row.recordYear, 2, 5, 14, 7, 9);
            const ZelDtDateTime value(&record);
            EXPECT_EQ(Look(value), DefinedMoment({row.year, 3, 5, 14, 7, 9}))
                << row.recordYear << " in " << row.clock;
            EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
        }
    }
}

TEST(ConstructionFromARecord, CutsFieldsTo16Bits)
{
    const FixedClock clock(kClock);
    const std::tm wide = Record(65536 + 1, 65536 + 1, 65536 + 28, 65536, 131072 + 1, -65536 + 2);
    EXPECT_EQ(Look(ZelDtDateTime(&wide)), DefinedMoment({2001, 2, 28, 0, 1, 2}));
}

TEST(ConstructionFromARecord, RefusesWhatTheSettersRefuse)
{
    const FixedClock clock(kClock);
    const struct {
        std::tm record;
        unsigned long first;
    } rows[] = {{Record(100, 2, 5, 0, 0, 0), 27},
                {Record(124, 2, 5, 0, 0, 0), 27},
                {Record(1752, 2, 5, 0, 0, 0), 27},
                {Record(-248, 2, 5, 0, 0, 0), 27},
                {Record(0, -1, 5, 0, 0, 0), 26},
                {Record(0, 12, 5, 0, 0, 0), 26},
                {Record(0, 2, 0, 0, 0, 0), 25},
                {Record(0, 2, 32, 0, 0, 0), 25},
                {Record(0, 1, 30, 0, 0, 0), 25},
                {Record(1, 1, 29, 0, 0, 0), 25},
                {Record(0, 3, 31, 0, 0, 0), 25},
                {Record(0, 2, 5, -1, 0, 0), 28},
                {Record(0, 2, 5, 24, 0, 0), 28},
                {Record(0, 2, 5, 0, -1, 0), 29},
                {Record(0, 2, 5, 0, 60, 0), 29},
                {Record(0, 2, 5, 0, 0, -1), 30},
                {Record(0, 2, 5, 0, 0, 60), 30},
                {Record(0, kMaxInt, 5, 0, 0, 0), 26},
                {Record(0, kMinInt, 31, 0, 0, 0), 0}, // month 1 after the cut
                // the first fault in the order year, month, day, hour, minute, second
                {Record(100, 12, 32, 24, 60, 60), 27},
                {Record(0, 12, 32, 24, 60, 60), 26},
                {Record(0, 11, 32, 24, 60, 60), 25},
                {Record(0, 11, 31, 24, 60, 60), 28},
                {Record(0, 11, 31, 23, 60, 60), 29},
                {Record(0, 11, 31, 23, 59, 60), 30},
                {Record(0, 11, 31, 23, 59, 59), 0},
                {Record(0, 1, 29, 0, 0, 0), 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << FieldsOf(row.record));
        const auto make = [&] { const ZelDtDateTime value(&row.record); };
        if (row.first == 0) {
            EXPECT_EQ(Catch(make).disturbance, "nothing");
        } else {
            EXPECT_TRUE(FailsWith(make, ConstructionError(kFromRecord), SetterError(row.first)));
            EXPECT_EQ(ChainOf(make),
                      (std::vector<Error>{ConstructionError(kFromRecord),
                                          ImpError(1, "ZelDtDateTime_Imp(struct tm*)"),
                                          SetterError(row.first)}));
        }
    }
}

TEST(ConstructionFromARecord, RefusesNone)
{
    EXPECT_TRUE(FailsWith([] { const ZelDtDateTime value(static_cast<const std::tm*>(nullptr)); },
                          ConstructionError(kFromRecord)));
}

// Moments of the system

TEST(ConstructionFromAMoment, HoldsItsLocalTimeWithAllNineFields)
{
    for (const std::time_t moment :
         {std::time_t{0}, std::time_t{86399}, std::time_t{951827696}, std::time_t{1718454645},
          std::time_t{1735689599}, std::time_t{4102444800}, std::time_t{20000000000}}) {
        std::tm local{};
        ASSERT_TRUE(zelrt::LocalTime(moment, local));
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            const ZelDtDateTime value(moment);
            EXPECT_EQ(Look(value), DefinedMoment(FieldsOf(local))) << moment;
            EXPECT_EQ(ExtrasOf(RecordOf(value)), ExtrasOf(local)) << moment;
        }
    }
}

TEST(ConstructionFromAMoment, RefusesWhatTheSystemCannotExpressAndYearsBefore1753)
{
    using Limits = std::numeric_limits<std::time_t>;
    // 1 January 1753 is 6847804800 seconds before 1970; zones differ by less than a day.
    const std::time_t first = -6847804800;
    for (const std::time_t moment : {Limits::max(), Limits::min(), std::time_t{first - 86400},
                                     std::time_t{first + 86400}, std::time_t{-20000000000}}) {
        std::tm local{};
        const auto make = [&] { const ZelDtDateTime value(moment); };
        if (!zelrt::LocalTime(moment, local)) {
            EXPECT_EQ(ChainOf(make),
                      (std::vector<Error>{ConstructionError(kFromMoment),
                                          ImpError(5, "ZelDtDateTime_Imp(time_t) ")}))
                << moment;
        } else if (moment < first) {
            EXPECT_EQ(ChainOf(make),
                      (std::vector<Error>{ConstructionError(kFromMoment),
                                          ImpError(27, "ZelDtDateTime_Imp(time_t) ")}))
                << moment;
        } else {
            EXPECT_EQ(Look(ZelDtDateTime(moment)), DefinedMoment(FieldsOf(local)));
        }
    }
    EXPECT_TRUE(FailsWith([] { const ZelDtDateTime value(Limits::max()); },
                          ConstructionError(kFromMoment),
                          ImpError(5, "ZelDtDateTime_Imp(time_t) ")));
}

// Numbers

/// A moment in numbers, and what is found in them; 0 for a moment that exists.
struct Numbers {
    Fields fields;
    unsigned long first = 0;
    int year = 0; ///< the year it becomes, if not that of the fields
};

/// With the clock in the years 2000 to 2099.
const Numbers kNumbers[] = {
    {{2000, 3, 5, 14, 7, 9}},
    {{2000, 2, 29, 23, 59, 59}},
    {{1753, 1, 1, 0, 0, 0}},
    {{9999, 12, 31, 23, 59, 59}},
    {{32767, 12, 31, 0, 0, 0}},
    {{1900, 2, 28, 0, 0, 0}},
    {{5, 3, 5, 1, 2, 3}, 0, 2005},
    {{0, 2, 29, 1, 2, 3}, 0, 2000},
    {{99, 12, 31, 1, 2, 3}, 0, 2099},
    {{-5, 3, 5, 1, 2, 3}, 0, 1995},
    {{-247, 3, 5, 1, 2, 3}, 0, 1753},
    {{-248, 3, 5, 1, 2, 3}, 27},
    {{-32768, 3, 5, 1, 2, 3}, 27},
    {{100, 3, 5, 1, 2, 3}, 27},
    {{1752, 12, 31, 23, 59, 59}, 27},
    {{2000, 0, 5, 1, 2, 3}, 26},
    {{2000, 13, 5, 1, 2, 3}, 26},
    {{2000, -1, 5, 1, 2, 3}, 26},
    {{2000, 3, 0, 1, 2, 3}, 25},
    {{2000, 3, 32, 1, 2, 3}, 25},
    {{2000, 4, 31, 1, 2, 3}, 25},
    {{2000, 2, 30, 1, 2, 3}, 25},
    {{2001, 2, 29, 1, 2, 3}, 25},
    {{1900, 2, 29, 1, 2, 3}, 25},
    {{2000, 3, -32768, 1, 2, 3}, 25},
    {{2000, 3, 5, 24, 2, 3}, 28},
    {{2000, 3, 5, -1, 2, 3}, 28},
    {{2000, 3, 5, 32767, 2, 3}, 28}, // no marker here
    {{2000, 3, 5, 1, 60, 3}, 29},
    {{2000, 3, 5, 1, -1, 3}, 29},
    {{2000, 3, 5, 1, 2, 60}, 30},
    {{2000, 3, 5, 1, 2, -1}, 30},
    // the first fault in the order year, month, day, hour, minute, second
    {{1752, 13, 32, 24, 60, 60}, 27},
    {{2000, 13, 32, 24, 60, 60}, 26},
    {{2000, 12, 32, 24, 60, 60}, 25},
    {{2000, 12, 31, 24, 60, 60}, 28},
    {{2000, 12, 31, 23, 60, 60}, 29},
    {{2000, 12, 31, 23, 59, 60}, 30},
};

Fields Expected(const Numbers& numbers)
{
    Fields f = numbers.fields;
    if (numbers.year != 0)
        f.year = numbers.year;
    return f;
}

TEST(ConstructionFromNumbers, IsCheckedFromTheYearDown)
{
    const FixedClock clock(kClock);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Numbers& row : kNumbers) {
            SCOPED_TRACE(::testing::Message() << row.fields);
            const auto make = [&] { FromSixNumbers(row.fields); };
            if (row.first == 0) {
                const ZelDtDateTime value = FromSixNumbers(row.fields);
                EXPECT_EQ(Look(value), DefinedMoment(Expected(row)));
                EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
                continue;
            }
            EXPECT_TRUE(
                FailsWith(make, ConstructionError(kFromSixNumbers), SetterError(row.first)));
            EXPECT_EQ(ChainOf(make),
                      (std::vector<Error>{
                          ConstructionError(kFromSixNumbers),
                          ImpError(1, "ZelDtDateTime_Imp(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)"),
                          SetterError(row.first)}));
        }
    }
}

TEST(ConstructionFromNumbers, OfTheTimeStaysInTheFirstOf1900)
{
    const struct {
        int hour;
        int minute;
        unsigned long first;
    } rows[] = {{0, 0, 0},      {23, 59, 0},     {9, 5, 0},     {24, 0, 28},
                {-1, 0, 28},    {0, 60, 29},     {0, -1, 29},   {24, 60, 28},
                {32766, 0, 28}, {-32768, 0, 28}, {0, 32767, 29}};
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : rows) {
            const auto make = [&] { return ZelDtDateTime(Short(row.hour), Short(row.minute)); };
            if (row.first == 0) {
                EXPECT_EQ(Look(make()), DefinedMoment({1900, 1, 1, row.hour, row.minute, 0}));
                continue;
            }
            EXPECT_TRUE(FailsWith(make, ConstructionError(kFromTwoNumbers), SetterError(row.first)))
                << row.hour << ':' << row.minute;
            EXPECT_EQ(ChainOf(make),
                      (std::vector<Error>{ConstructionError(kFromTwoNumbers),
                                          ImpError(1, "ZelDtDateTime_Imp(SHORT,SHORT)"),
                                          SetterError(row.first)}));
        }
    }
}

TEST(ConstructionFromTheClock, TakesDateAndTimeToTheSecond)
{
    for (const Fields& now : {kClock, Fields{1999, 12, 31, 23, 59, 59},
                              Fields{2000, 2, 29, 0, 0, 0}, Fields{2100, 1, 1, 0, 0, 1}}) {
        const FixedClock clock(now);
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            for (const int minute : {0, 30, 60, -1, 32767}) {
                const ZelDtDateTime value(ZelDtDateTime::ksDateTimeNow, Short(minute));
                EXPECT_EQ(Look(value), DefinedMoment(now)) << minute;
                EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
            }
            EXPECT_EQ(Look(ZelDtDateTime(ZelDtShort(ZelDtDateTime::ksDateTimeNow), ZelDtShort(77))),
                      DefinedMoment(now));
        }
    }
}

TEST(ConstructionFromTheClock, WithoutAMomentToTellIsAnError)
{
    for (const std::time_t moment :
         {std::numeric_limits<std::time_t>::max(), std::time_t{-7000000000}}) {
        const FixedClock clock(moment);
        std::tm local{};
        const bool known = zelrt::LocalTime(moment, local);
        const auto make = [] { const ZelDtDateTime value(ZelDtDateTime::ksDateTimeNow, Short(0)); };
        EXPECT_TRUE(FailsBecauseOf(make, ConstructionError(kFromTwoNumbers), known ? 27 : 5));
        if (known) {
            EXPECT_TRUE(FailsWith(make, ConstructionError(kFromTwoNumbers),
                                  ImpError(27, "SetSysDateTime()")));
        }
    }
}

TEST(ConstructionFromTheClock, GoesByTheSystemUnlessAnotherIsSet)
{
    const std::time_t before = std::time(nullptr);
    const ZelDtDateTime now(ZelDtDateTime::ksDateTimeNow, Short(0));
    const std::time_t after = std::time(nullptr);
    std::tm first{};
    std::tm last{};
    ASSERT_TRUE(zelrt::LocalTime(before, first));
    ASSERT_TRUE(zelrt::LocalTime(after, last));
    const Fields seen = Look(now).fields;
    // An hour that is put back may lie between the two.
    EXPECT_TRUE((FieldsOf(first) <= seen && seen <= FieldsOf(last)) ||
                FieldsOf(last) < FieldsOf(first))
        << seen;
    {
        const FixedClock clock(kClock);
        const ZelDtClock own = ZelDtSetClock(nullptr);
        EXPECT_NE(own, nullptr);
        EXPECT_EQ(ZelDtSetClock(own), nullptr);
    }
    EXPECT_EQ(ZelDtSetClock(nullptr), nullptr);
}

// Shorts

/// Six shorts, day first; one of them can be put into another state.
struct SixShorts {
    std::array<ZelDtShort, 6> it;

    explicit SixShorts(const Fields& f)
        : it{ZelDtShort(Short(f.day)),  ZelDtShort(Short(f.month)),  ZelDtShort(Short(f.year)),
             ZelDtShort(Short(f.hour)), ZelDtShort(Short(f.minute)), ZelDtShort(Short(f.second))}
    {}

    DateTime Date() const { return DateTime(it[0], it[1], it[2]); }
    DateTime Time() const { return DateTime(it[3], it[4]); }
    DateTime All() const { return DateTime(it[0], it[1], it[2], it[3], it[4], it[5]); }
};

TEST(ConstructionFromShorts, MeansTheirNumbers)
{
    const FixedClock clock(kClock);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Numbers& row : kNumbers) {
            SCOPED_TRACE(::testing::Message() << row.fields);
            const SixShorts shorts(row.fields);
            if (row.first == 0) {
                EXPECT_EQ(Look(shorts.All()), DefinedMoment(Expected(row)));
            } else {
                EXPECT_TRUE(FailsWith([&] { shorts.All(); }, ConstructionError(kFromSixShorts),
                                      SetterError(row.first)));
            }
            if (row.first == 0 || row.first > 27) {
                EXPECT_EQ(Look(shorts.Date()), DefinedMoment(Midnight(Expected(row))));
            } else {
                EXPECT_TRUE(FailsWith([&] { shorts.Date(); }, ConstructionError(kFromThreeShorts),
                                      SetterError(row.first)));
            }
        }
        EXPECT_EQ(Look(SixShorts({2000, 3, 5, 23, 59, 0}).Time()),
                  DefinedMoment({1900, 1, 1, 23, 59, 0}));
        EXPECT_TRUE(FailsWith(
            [] {
                SixShorts({2000, 3, 5, 24, 0, 0}).Time();
            },
            ConstructionError(kFromTwoShorts), SetterError(28)));
        EXPECT_TRUE(FailsWith(
            [] {
                SixShorts({2000, 3, 5, 0, 60, 0}).Time();
            },
            ConstructionError(kFromTwoShorts), SetterError(29)));
    }
}

TEST(ConstructionFromShorts, TakesTheNumberOfAnyThatIsNotMissing)
{
    const FixedClock clock(kClock);
    for (const State& state : AllStates()) {
        for (std::size_t i = 0; i < 6; ++i) {
            SixShorts shorts({2000, 3, 5, 14, 7, 9});
            const int numbers[] = {28, 2, 2004, 23, 59, 58};
            Bring(shorts.it[i], Count{state, numbers[i]});
            Fields expected{2000, 3, 5, 14, 7, 9};
            std::int64_t* const places[] = {&expected.day,  &expected.month,  &expected.year,
                                            &expected.hour, &expected.minute, &expected.second};
            *places[i] = numbers[i];
            const Fields time{1900, 1, 1, expected.hour, expected.minute, 0};
            SCOPED_TRACE(::testing::Message() << state << ", argument " << i);
            if (!IsMissing(state)) {
                // The states of the arguments are not those of the value.
                EXPECT_EQ(Look(shorts.All()), DefinedMoment(expected));
                EXPECT_EQ(Look(shorts.Date()), DefinedMoment(Midnight(expected)));
                EXPECT_EQ(Look(shorts.Time()), DefinedMoment(time));
                continue;
            }
            EXPECT_TRUE(FailsWith([&] { shorts.All(); }, ConstructionError(kFromSixShorts)));
            if (i < 3) {
                EXPECT_TRUE(FailsWith([&] { shorts.Date(); }, ConstructionError(kFromThreeShorts)));
            } else if (i < 5) {
                EXPECT_TRUE(FailsWith([&] { shorts.Time(); }, ConstructionError(kFromTwoShorts)));
            }
        }
    }
}

TEST(ConstructionFromShorts, CountsNullAsTheZeroThatIsStored)
{
    const ZelDtShort null(ZelDtWmNull);
    const ZelDtShort one(1);
    EXPECT_EQ(Look(ZelDtDateTime(null, one)), DefinedMoment({1900, 1, 1, 0, 1, 0}));
    EXPECT_TRUE(FailsWith([&] { const ZelDtDateTime value(null, one, ZelDtShort(2000)); },
                          ConstructionError(kFromThreeShorts), SetterError(25)));
}

} // namespace
