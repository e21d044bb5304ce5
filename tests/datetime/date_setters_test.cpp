/// Setting the fields of date-times one by one, and making date-times of fields: limits, errors in
/// full, flags in every state.

#include "tests/datetime/calendar_testing.h"

#include <climits>

namespace {

using namespace zeltest;

/// A setter; its signature text, or how that begins.
struct Setter {
    const char* name;
    const char* signature;
    unsigned long fault; ///< the number of what it rejects
    std::int64_t Fields::*field;
    void (ZelDtDateTime::*setShort)(short);
    void (ZelDtDateTime::*setInt)(int);
    short (ZelDtDateTime::*get)() const;

    friend std::ostream& operator<<(std::ostream& os, const Setter& s) { return os << s.name; }
};

const Setter kDay = {"SetDay365",
                     "SetDay365(SHORT)",
                     25,
                     &Fields::day,
                     &ZelDtDateTime::SetDay365,
                     &ZelDtDateTime::SetDay365,
                     &ZelDtDateTime::GetDay365};
const Setter kMonth = {"SetMonth",
                       "SetMonth(SHORT)",
                       26,
                       &Fields::month,
                       &ZelDtDateTime::SetMonth,
                       &ZelDtDateTime::SetMonth,
                       &ZelDtDateTime::GetMonth};
const Setter kYear = {"SetYear",
                      "SetYear(SHORT)",
                      27,
                      &Fields::year,
                      &ZelDtDateTime::SetYear,
                      &ZelDtDateTime::SetYear,
                      &ZelDtDateTime::GetYear};
const Setter kHour = {"SetHour",
                      "SetHour(SHORT)",
                      28,
                      &Fields::hour,
                      &ZelDtDateTime::SetHour,
                      &ZelDtDateTime::SetHour,
                      &ZelDtDateTime::GetHour};
const Setter kMinute = {"SetMin",
                        "SetMin(SHORT)",
                        29,
                        &Fields::minute,
                        &ZelDtDateTime::SetMin,
                        &ZelDtDateTime::SetMin,
                        &ZelDtDateTime::GetMin};
const Setter kSecond = {"SetSecond",
                        "SetSecond(SHORT)",
                        30,
                        &Fields::second,
                        &ZelDtDateTime::SetSecond,
                        &ZelDtDateTime::SetSecond,
                        &ZelDtDateTime::GetSecond};

const std::vector<const Setter*> kSetters = {&kDay, &kMonth, &kYear, &kHour, &kMinute, &kSecond};

void Set(ZelDtDateTime& value, const Setter& setter, int number)
{
    (value.*setter.setShort)(static_cast<short>(number));
}

/// Error 1 of the setter with the calendar's error behind it, messages and flags included. What
/// stands behind the name of the setter of hours is its own choice.
template <typename Action>
void ExpectRejected(const Setter& setter, Action&& action)
{
    const std::vector<Link> links = LinksThrownBy(action);
    ASSERT_EQ(links.size(), 2U) << setter;
    EXPECT_EQ(links.front().error.signature.rfind(setter.signature, 0), 0U) << links.front();
    EXPECT_EQ(links.front(), LinkOf(FunctionError(1, links.front().error.signature)));
    EXPECT_EQ(links.back(), LinkOf(SetterError(setter.fault)));
}

class DateSetters : public ::testing::Test {
private:
    const FixedClock m_clock{SomeDayOf(2024)};
};

using DateSettersInEveryState = DateSetters;
using DateSettersWithMoreThan16Bits = DateSetters;
using DatesFromFields = DateSetters;
using DatesFromRecords = DateSetters;

struct SetRow {
    Fields start;
    const Setter* setter;
    int number;
    Fields after;
};

TEST_F(DateSetters, TakeWhatTheCalendarHas)
{
    const std::vector<SetRow> rows = {
        {{2000, 3, 15}, &kDay, 1, {2000, 3, 1}},
        {{2000, 3, 15}, &kDay, 31, {2000, 3, 31}},
        {{2000, 4, 15}, &kDay, 30, {2000, 4, 30}},
        {{2000, 2, 15}, &kDay, 29, {2000, 2, 29}},
        {{1999, 2, 15}, &kDay, 28, {1999, 2, 28}},
        {{2400, 2, 15}, &kDay, 29, {2400, 2, 29}},
        {{2000, 3, 15}, &kMonth, 1, {2000, 1, 15}},
        {{2000, 3, 15}, &kMonth, 12, {2000, 12, 15}},
        {{2000, 3, 15}, &kYear, 1753, {1753, 3, 15}},
        {{2000, 3, 15}, &kYear, 9999, {9999, 3, 15}},
        {{2000, 3, 15}, &kYear, 32767, {32767, 3, 15}},
        {{2000, 3, 15}, &kHour, 23, {2000, 3, 15, 23, 0, 0}},
        {{2000, 3, 15, 1, 2, 3}, &kHour, 0, {2000, 3, 15, 0, 2, 3}},
        {{2000, 3, 15}, &kMinute, 59, {2000, 3, 15, 0, 59, 0}},
        {{2000, 3, 15, 1, 2, 3}, &kMinute, 0, {2000, 3, 15, 1, 0, 3}},
        {{2000, 3, 15}, &kSecond, 59, {2000, 3, 15, 0, 0, 59}},
        {{2000, 3, 15, 1, 2, 3}, &kSecond, 0, {2000, 3, 15, 1, 2, 0}},
    };
    for (const SetRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        Set(value, *row.setter, row.number);
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after}))
            << row.start << ' ' << *row.setter << ' ' << row.number;
        EXPECT_EQ((value.*row.setter->get)(), row.number) << *row.setter;

        ZelDtDateTime other = MakeDateTime(row.start);
        (other.*row.setter->setInt)(row.number);
        EXPECT_EQ(Look(other), Look(value)) << *row.setter << ' ' << row.number;
    }
}

TEST_F(DateSetters, CutDaysThatTheMonthDoesNotHave)
{
    const std::vector<SetRow> rows = {
        {{2000, 1, 31}, &kMonth, 2, {2000, 2, 29}},   {{2001, 1, 31}, &kMonth, 2, {2001, 2, 28}},
        {{1900, 1, 29}, &kMonth, 2, {1900, 2, 28}},   {{2000, 1, 29}, &kMonth, 2, {2000, 2, 29}},
        {{2000, 3, 31}, &kMonth, 4, {2000, 4, 30}},   {{2000, 3, 31}, &kMonth, 6, {2000, 6, 30}},
        {{2000, 3, 31}, &kMonth, 9, {2000, 9, 30}},   {{2000, 3, 31}, &kMonth, 11, {2000, 11, 30}},
        {{2000, 3, 30}, &kMonth, 4, {2000, 4, 30}},   {{2000, 3, 31}, &kMonth, 7, {2000, 7, 31}},
        {{2000, 2, 29}, &kYear, 2001, {2001, 2, 28}}, {{2000, 2, 29}, &kYear, 2004, {2004, 2, 29}},
        {{2000, 2, 29}, &kYear, 2100, {2100, 2, 28}}, {{2000, 2, 29}, &kYear, 2400, {2400, 2, 29}},
        {{2000, 2, 28}, &kYear, 2001, {2001, 2, 28}}, {{2000, 3, 31}, &kYear, 2001, {2001, 3, 31}},
        {{2000, 1, 29}, &kYear, 2001, {2001, 1, 29}},
    };
    for (const SetRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        Set(value, *row.setter, row.number);
        EXPECT_EQ(FieldsIn(value), row.after)
            << row.start << ' ' << *row.setter << ' ' << row.number;
    }
}

TEST_F(DateSetters, ReadYearsOfTwoDigitsAndBelowInTheCurrentCentury)
{
    const std::vector<SetRow> rows = {
        {{2000, 2, 29}, &kYear, 5, {2005, 2, 28}},  {{2000, 2, 29}, &kYear, 0, {2000, 2, 29}},
        {{2000, 2, 29}, &kYear, 99, {2099, 2, 28}}, {{1999, 1, 1}, &kYear, 99, {2099, 1, 1}},
        {{2000, 1, 1}, &kYear, -5, {1995, 1, 1}},   {{2000, 1, 1}, &kYear, -247, {1753, 1, 1}},
    };
    for (const SetRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        Set(value, *row.setter, row.number);
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after}))
            << row.start << ' ' << row.number;
    }
}

TEST_F(DateSetters, RejectWhatTheCalendarDoesNotHave)
{
    struct Row {
        Fields start;
        const Setter* setter;
        std::vector<int> numbers;
    };
    const std::vector<Row> rows = {
        {{2000, 3, 15}, &kDay, {0, -1, 32, SHRT_MAX, SHRT_MIN}},
        {{2000, 4, 15}, &kDay, {31}},
        {{2000, 6, 15}, &kDay, {31}},
        {{2000, 9, 15}, &kDay, {31}},
        {{2000, 11, 15}, &kDay, {31}},
        {{2000, 2, 15}, &kDay, {30, 31}},
        {{1999, 2, 15}, &kDay, {29}},
        {{1900, 2, 15}, &kDay, {29}},
        {{2100, 2, 15}, &kDay, {29}},
        {{2000, 3, 15}, &kMonth, {0, -1, 13, SHRT_MAX, SHRT_MIN}},
        {{2000, 3, 15, 7, 8, 9}, &kHour, {-1, 24, SHRT_MAX, SHRT_MIN}},
        {{2000, 3, 15, 7, 8, 9}, &kMinute, {-1, 60, SHRT_MAX, SHRT_MIN}},
        {{2000, 3, 15, 7, 8, 9}, &kSecond, {-1, 60, 61, SHRT_MAX, SHRT_MIN}},
    };
    for (const Row& row : rows)
        for (const int number : row.numbers) {
            ZelDtDateTime value = MakeDateTime(row.start);
            ExpectRejected(*row.setter, [&] { Set(value, *row.setter, number); });
            EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.start}))
                << *row.setter << ' ' << number;
            ZelDtDateTime other = MakeDateTime(row.start);
            ExpectRejected(*row.setter, [&] { (other.*row.setter->setInt)(number); });
            EXPECT_EQ(Look(other), Look(value)) << *row.setter << ' ' << number;
        }
}

/// The year is checked when it stands; what is cut from the day comes after the check.
TEST_F(DateSetters, KeepAYearThatIsTooEarly)
{
    const std::vector<SetRow> rows = {
        {{2000, 3, 15}, &kYear, 1752, {1752, 3, 15}},
        {{2000, 2, 29}, &kYear, 1751, {1751, 2, 29}},
        {{2000, 3, 15}, &kYear, 100, {100, 3, 15}},
        {{2000, 3, 15}, &kYear, -248, {1752, 3, 15}},
        {{2000, 3, 15}, &kYear, SHRT_MIN, {-30768, 3, 15}},
    };
    for (const SetRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        ExpectRejected(kYear, [&] { Set(value, kYear, row.number); });
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after})) << row.number;
        EXPECT_EQ(value.GetYear(), row.after.year);
    }
}

TEST_F(DateSetters, TakeTheStoredNumberWithoutLooking)
{
    const Fields fields{1752, 13, 32, 24, 60, 61};
    for (const State& state : ReadableStates())
        for (const Setter* setter : kSetters) {
            ZelDtDateTime value = MakeDateTime(fields, state);
            Set(value, *setter, static_cast<int>(fields.*setter->field));
            EXPECT_EQ(Look(value), OnlyDefined({state, fields})) << *setter;
        }
}

TEST_F(DateSettersInEveryState, AChangeMakesDefinedAndModified)
{
    const Fields start{2000, 3, 15, 7, 8, 9};
    for (const State& state : ReadableStates())
        for (const Setter* setter : kSetters) {
            ZelDtDateTime value = MakeDateTime(start, state);
            const int number = setter == &kYear ? 2010 : 10;
            Set(value, *setter, number);
            Fields after = start;
            after.*setter->field = number;
            EXPECT_EQ(Look(value), (Moment{{state.mode, 1, 1}, after})) << *setter;
        }
}

TEST_F(DateSettersInEveryState, ARejectedNumberOnlyMarksModified)
{
    const Fields start{2000, 3, 15, 7, 8, 9};
    for (const State& state : ReadableStates())
        for (const Setter* setter : kSetters) {
            ZelDtDateTime value = MakeDateTime(start, state);
            const int number = setter == &kYear ? 1752 : 99;
            ExpectRejected(*setter, [&] { Set(value, *setter, number); });
            Fields after = start;
            if (setter == &kYear)
                after.year = number;
            EXPECT_EQ(Look(value), (Moment{{state.mode, state.defined, 1}, after})) << *setter;
        }
}

/// The year is compared as it is given, before two digits get their century.
TEST_F(DateSettersInEveryState, TwoDigitsOfTheStoredYearCountAsAChange)
{
    const Fields start{2005, 3, 15};
    ZelDtDateTime value = MakeDateTime(start);
    Set(value, kYear, 2005);
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 0}, start}));
    Set(value, kYear, 5);
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, start}));
}

TEST_F(DateSettersInEveryState, MissingIsAnError)
{
    const Fields start{2000, 3, 15, 7, 8, 9};
    for (const State& state : MissingStates()) {
        ZelDtDateTime value = MakeDateTime(start, state);
        for (const Setter* setter : kSetters)
            for (const int number : {10, 99, static_cast<int>(start.*setter->field)}) {
                const auto error = FunctionError(2, setter->signature);
                EXPECT_TRUE(FailsLike([&] { Set(value, *setter, number); }, error));
                EXPECT_TRUE(FailsLike([&] { (value.*setter->setInt)(number); }, error));
            }
        EXPECT_EQ(Look(value), (Moment{state, start}));
    }
}

TEST_F(DateSettersWithMoreThan16Bits, RefuseBeforeAnythingElse)
{
    const Fields start{2000, 3, 15, 7, 8, 9};
    for (const State& state : AllStates()) {
        ZelDtDateTime value = MakeDateTime(start, state);
        for (const Setter* setter : kSetters)
            // What 16 bits would make of 65546 is 10, which is a number for every setter.
            for (const int number : {32768, -32769, 65546, INT_MAX, INT_MIN})
                EXPECT_TRUE(FailsLike([&] { (value.*setter->setInt)(number); },
                                      FunctionError(8, setter->signature)))
                    << *setter << ' ' << number;
        EXPECT_EQ(Look(value), (Moment{state, start}));
    }
}

// Date-times of fields

const char* const kOfSixShorts = "(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)";

/// Errors of a constructor: its own, that of the calendar object's, and what that found.
std::vector<Link> ConstructionLinks(const std::string& parameters, const Error& first)
{
    return LinksOf({ConstructionError("ZelDtDateTime" + parameters),
                    ImpError(1, "ZelDtDateTime_Imp" + parameters), first});
}

TEST_F(DatesFromFields, HoldThem)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const ZelDtDateTime full(29, 2, 2000, 23, 59, 58);
        EXPECT_EQ(Look(full), (Moment{{mode, 1, 0}, {2000, 2, 29, 23, 59, 58}}));
        EXPECT_EQ(ExtrasOf(full.GetValue()), NoExtras());
        const ZelDtDateTime time(23, 59);
        EXPECT_EQ(Look(time), (Moment{{mode, 1, 0}, {1900, 1, 1, 23, 59, 0}}));
        EXPECT_EQ(ExtrasOf(time.GetValue()), NoExtras());
    }
    EXPECT_EQ(FieldsIn(ZelDtDateTime(1, 1, 1753, 0, 0, 0)), (Fields{1753, 1, 1}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime(31, 12, SHRT_MAX, 0, 0, 0)), (Fields{32767, 12, 31}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime(31, 12, 5, 0, 0, 0)), (Fields{2005, 12, 31}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime(31, 12, -5, 0, 0, 0)), (Fields{1995, 12, 31}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime(0, 0)), kNew);
}

TEST_F(DatesFromFields, TellTheFirstFaultFromTheYearDown)
{
    struct Row {
        short day, month, year, hour, minute, second;
        unsigned long fault;
    };
    const std::vector<Row> rows = {
        {32, 13, 1752, 24, 60, 60, 27}, {32, 13, 2000, 24, 60, 60, 26},
        {32, 12, 2000, 24, 60, 60, 25}, {31, 12, 2000, 24, 60, 60, 28},
        {31, 12, 2000, 23, 60, 60, 29}, {31, 12, 2000, 23, 59, 60, 30},
        {31, 2, 2000, 0, 0, 0, 25},     {29, 2, 1900, 0, 0, 0, 25},
        {0, 1, 2000, 0, 0, 0, 25},      {1, 0, 2000, 0, 0, 0, 26},
        {1, 1, 100, 0, 0, 0, 27},       {1, 1, SHRT_MIN, 0, 0, 0, 27},
        {1, 1, 2000, -1, 0, 0, 28},     {1, 1, 2000, SHRT_MAX, 0, 0, 28},
        {1, 1, 2000, 0, -1, 0, 29},     {1, 1, 2000, 0, 0, -1, 30},
    };
    for (const Row& r : rows) {
        const auto make = [&] {
            ZelDtDateTime(r.day, r.month, r.year, r.hour, r.minute, r.second);
        };
        EXPECT_EQ(LinksThrownBy(make), ConstructionLinks(kOfSixShorts, SetterError(r.fault)));
        EXPECT_EQ(Catch(make).leaked, 0U);
    }
}

TEST_F(DatesFromFields, TellTheFirstFaultOfATimeOfDay)
{
    struct Row {
        short hour, minute;
        unsigned long fault;
    };
    for (const Row& r :
         {Row{24, 60, 28}, Row{-1, 0, 28}, Row{SHRT_MAX - 1, 0, 28}, Row{SHRT_MIN, 0, 28},
          Row{23, 60, 29}, Row{0, -1, 29}, Row{0, ZelDtDateTime::ksDateTimeNow, 29}}) {
        const auto make = [&] { ZelDtDateTime(r.hour, r.minute); };
        EXPECT_EQ(LinksThrownBy(make), ConstructionLinks("(SHORT,SHORT)", SetterError(r.fault)));
        EXPECT_EQ(Catch(make).leaked, 0U);
    }
}

std::tm Record(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    std::tm record{};
    record.tm_year = year;
    record.tm_mon = month;
    record.tm_mday = day;
    record.tm_hour = hour;
    record.tm_min = minute;
    record.tm_sec = second;
    return record;
}

TEST_F(DatesFromRecords, TakeTheYearOfTheRecordForACalendarYear)
{
    struct Row {
        std::tm record;
        Fields fields;
    };
    const std::vector<Row> rows = {
        {Record(5, 2, 15, 12, 30, 45), {2005, 3, 15, 12, 30, 45}},
        {Record(0, 0, 1), {2000, 1, 1}},
        {Record(99, 11, 31, 23, 59, 59), {2099, 12, 31, 23, 59, 59}},
        {Record(-1, 0, 1), {1999, 1, 1}},
        {Record(1753, 0, 1), {1753, 1, 1}},
        {Record(2024, 1, 29), {2024, 2, 29}},
        // Every field is narrowed to 16 bits.
        {Record(65536 + 5, 65536 + 2, -65536 + 15, 65536 + 12, -65536 + 30, 0x10000 * 7 + 45),
         {2005, 3, 15, 12, 30, 45}},
    };
    for (const Row& row : rows)
        for (const ZelDtWorkingMode mode : kRealModes) {
            const DefaultMode guard(mode);
            std::tm record = row.record;
            record.tm_wday = 3;
            record.tm_yday = 77;
            record.tm_isdst = 1;
            const ZelDtDateTime value(&record);
            EXPECT_EQ(Look(value), (Moment{{mode, 1, 0}, row.fields}));
            EXPECT_EQ(ExtrasOf(value.GetValue()), NoExtras());
        }
}

TEST_F(DatesFromRecords, TellTheFirstFaultFromTheYearDown)
{
    struct Row {
        std::tm record;
        unsigned long fault;
    };
    const std::vector<Row> rows = {
        {Record(100, 0, 1), 27},
        {Record(124, 12, 32, 24, 60, 60), 27},
        {Record(1752, 0, 1), 27},
        {Record(-248, 0, 1), 27},
        {Record(INT_MIN + 100, 0, 1), 27}, // 100 in 16 bits
        {Record(24, 12, 32, 24, 60, 60), 26},
        {Record(24, -1, 1), 26},
        {Record(24, INT_MAX, 1), 26}, // 0 in 16 bits
        {Record(24, 11, 32, 24, 60, 60), 25},
        {Record(23, 1, 29), 25},
        {Record(24, 11, 0), 25},
        {Record(24, 11, 31, 24, 60, 60), 28},
        {Record(24, 11, 31, 23, 60, 60), 29},
        {Record(24, 11, 31, 23, 59, 60), 30},
        {Record(24, 11, 31, 23, 59, -1), 30},
    };
    for (const Row& row : rows) {
        const auto make = [&] { ZelDtDateTime value(&row.record); };
        EXPECT_EQ(LinksThrownBy(make), ConstructionLinks("(struct tm*)", SetterError(row.fault)));
        EXPECT_EQ(Catch(make).leaked, 0U);
    }
}

TEST_F(DatesFromRecords, MustBeThere)
{
    const std::tm* const none = nullptr;
    EXPECT_TRUE(FailsBecauseOf([&] { ZelDtDateTime value(none); },
                               ConstructionError("ZelDtDateTime(struct tm*)"), 5));
}

/// A date takes a time of day from a setter, until something wipes it.
TEST_F(DateSetters, AreTheSameForDates)
{
    ZelDtDateZp date(15, 3, 2000);
    date.SetHour(7);
    date.SetMonth(2);
    date.SetDay365(29);
    date.SetYear(2001);
    EXPECT_EQ(Look(date), (Moment{{ZelDtGetDefaultWorkingMode(), 1, 1}, {2001, 2, 28, 7, 0, 0}}));
    ExpectRejected(kDay, [&] { date.SetDay365(29); });
    date.WipeTime();
    EXPECT_EQ(FieldsIn(date), (Fields{2001, 2, 28}));
}

} // namespace
