/// Where the arithmetic equals the true calendar, by the standard library, and exactly where it
/// does not; and every example of docs/calendar.md. The clock stands in 2024.

#include "tests/datetime/calendar_testing.h"

#include <chrono>

namespace {

using namespace zeltest;

class TrueCalendar : public ::testing::Test {
private:
    const FixedClock m_clock{SomeDayOf(2024)};
};

using DocumentedDifferences = TrueCalendar;

constexpr std::int64_t kDay = 86'400;

Fields DaysLater(const Fields& start, std::int64_t days)
{
    return FieldsAt(SecondsOf(start) + days * kDay);
}

/// The same day so many months later, or the last one of a month that does not have it.
Fields MonthsLater(const Fields& start, std::int64_t months)
{
    using namespace std::chrono;
    const year_month month = year(static_cast<int>(start.year)) /
                                 std::chrono::month(static_cast<unsigned>(start.month)) +
                             std::chrono::months(static_cast<int>(months));
    Fields result = start;
    result.year = static_cast<int>(month.year());
    result.month = static_cast<unsigned>(month.month());
    result.day = std::min<std::int64_t>(start.day, LengthOfMonth(result.year, result.month));
    return result;
}

/// All dates of seven years and some of all centuries.
std::vector<Fields> Starts(Counts& random)
{
    std::vector<Fields> starts;
    for (std::int64_t day = 0; day < 2'557; day += RunsLong() ? 1 : 5)
        starts.push_back(DaysLater({1999, 1, 1, 13, 14, 15}, day));
    for (const int year : {1756, 1800, 1896, 1900, 1904, 2000, 2096, 2100, 2400})
        for (const Fields& start :
             {Fields{year, 1, 1}, Fields{year, 2, 28}, Fields{year, 3, 1}, Fields{year, 12, 31}})
            starts.push_back(start);
    for (const int year : {1756, 1904, 2000, 2096, 2400})
        starts.push_back({year, 2, 29, 23, 59, 59});
    for (int i = 0; i < 500; ++i) {
        Fields start{random.Draw(1'753, 9'999), random.Draw(1, 12), 1};
        start.day = random.Draw(1, LengthOfMonth(start.year, start.month));
        starts.push_back(start);
    }
    return starts;
}

Fields After(const Operation& op, const Fields& start, std::int64_t count)
{
    ZelDtDateTime value = MakeDateTime(start);
    op.run(value, count);
    return FieldsIn(value);
}

/// What days less make of a start from March on: the truth, but one day less in the leap years
/// before that of the start, from 2 January on.
Fields DaysEarlierFromMarchOn(const Fields& start, std::int64_t days)
{
    const Fields truth = DaysLater(start, -days);
    const bool newYear = truth.month == 1 && truth.day == 1;
    if (truth.year < start.year && IsLeap(truth.year) && !newYear)
        return DaysLater(truth, -1);
    return truth;
}

TEST_F(TrueCalendar, IsWhatAddingDaysFollows)
{
    Counts random(1);
    for (const Fields& start : Starts(random))
        for (const std::int64_t days : {random.Draw(0, 400), random.Draw(0, 1'500),
                                        random.Draw(0, 32'767), std::int64_t{32'767}})
            ASSERT_EQ(After(operations::kAddDay365, start, days), DaysLater(start, days))
                << start << " + " << days;
}

TEST_F(TrueCalendar, IsWhatSubtractingDaysFollowsFromJanuaryAndFebruary)
{
    Counts random(2);
    for (const Fields& start : Starts(random))
        for (const std::int64_t days :
             {random.Draw(0, 400), random.Draw(0, 1'500), random.Draw(0, 32'767)})
            if (start.month <= 2 && DaysLater(start, -days).year >= 1753) {
                ASSERT_EQ(After(operations::kSubDay365, start, days), DaysLater(start, -days))
                    << start << " - " << days;
                ASSERT_EQ(After(operations::kAddDay365, start, -days), DaysLater(start, -days))
                    << start << " - " << days;
            }
}

TEST_F(TrueCalendar, IsMissedByADayInEarlierLeapYearsFromMarchOn)
{
    Counts random(3);
    std::size_t differences = 0;
    for (const Fields& start : Starts(random))
        for (const std::int64_t days : {random.Draw(0, 400), random.Draw(0, 800),
                                        random.Draw(0, 1'500), random.Draw(0, 32'767)})
            if (start.month > 2 && DaysLater(start, -days).year >= 1753) {
                const Fields expected = DaysEarlierFromMarchOn(start, days);
                ASSERT_EQ(After(operations::kSubDay365, start, days), expected)
                    << start << " - " << days;
                ASSERT_EQ(After(operations::kAddDay365, start, -days), expected)
                    << start << " - " << days;
                differences += expected != DaysLater(start, -days);
            }
    EXPECT_GT(differences, 300U);
}

TEST_F(TrueCalendar, IsWhatMonthsFollowButForTwoCases)
{
    Counts random(4);
    for (const Fields& start : Starts(random))
        for (const std::int64_t months :
             {random.Draw(0, 40), random.Draw(0, 40), random.Draw(0, 2'000)}) {
            const std::int64_t sum = start.month + months;
            ZelDtDateTime value = MakeDateTime(start);
            if (sum > 12 && sum % 12 == 0) {
                // First case: an error after the year was set, one too late.
                ASSERT_TRUE(FailsWith([&] { value.AddMonth(static_cast<short>(months)); },
                                      FunctionError(1, "AddMonth(SHORT)"), SetterError(26)))
                    << start << " + " << months;
                ASSERT_EQ(FieldsIn(value).year, MonthsLater(start, months).year + 1);
                continue;
            }
            Fields expected = MonthsLater(start, months);
            // Second case: the leap day is cut when the year is set.
            if (start.month == 2 && start.day == 29 && sum > 12 && !IsLeap(expected.year))
                expected.day = 28;
            value.AddMonth(static_cast<short>(months));
            ASSERT_EQ(FieldsIn(value), expected) << start << " + " << months;
        }
}

TEST_F(TrueCalendar, IsWhatSubtractingMonthsFollows)
{
    Counts random(5);
    for (const Fields& start : Starts(random))
        for (const std::int64_t months :
             {random.Draw(0, 40), random.Draw(0, 40), random.Draw(0, 2'000)})
            if (MonthsLater(start, -months).year >= 1753) {
                const Fields expected = MonthsLater(start, -months);
                ASSERT_EQ(After(operations::kSubMonth, start, months), expected)
                    << start << " - " << months;
                ASSERT_EQ(After(operations::kAddMonth, start, -months), expected)
                    << start << " - " << months;
            }
}

TEST_F(TrueCalendar, IsWhatYearsFollowFrom1753On)
{
    Counts random(6);
    for (const Fields& start : Starts(random))
        for (const std::int64_t years :
             {random.Draw(0, 10), random.Draw(0, 400), random.Draw(0, 9'000)}) {
            const Fields later = MonthsLater(start, 12 * years);
            ASSERT_EQ(After(operations::kAddYear, start, years), later);
            ASSERT_EQ(After(operations::kSubYear, start, -years), later);
            const Fields earlier = MonthsLater(start, -12 * years);
            if (earlier.year >= 1753) {
                ASSERT_EQ(After(operations::kSubYear, start, years), earlier);
                ASSERT_EQ(After(operations::kAddYear, start, -years), earlier);
            }
        }
}

TEST_F(TrueCalendar, IsWhatHoursAndMinutesFollowUpTo32767Days)
{
    Counts random(7);
    for (const Fields& start : Starts(random))
        for (const std::int64_t hours :
             {random.Draw(0, 50), random.Draw(0, 5'000), random.Draw(0, 24 * 32'767)}) {
            const std::int64_t minutes = 60 * hours + random.Draw(0, 59);
            ASSERT_EQ(After(operations::kAddHour, start, hours),
                      FieldsAt(SecondsOf(start) + 3'600 * hours))
                << start << " + " << hours;
            ASSERT_EQ(After(operations::kAddMin, start, minutes),
                      FieldsAt(SecondsOf(start) + 60 * minutes))
                << start << " + " << minutes;
            // Backwards as far as days are exact.
            if (start.month > 2 || FieldsAt(SecondsOf(start) - 60 * minutes).year < 1753)
                continue;
            ASSERT_EQ(After(operations::kSubHour, start, hours),
                      FieldsAt(SecondsOf(start) - 3'600 * hours))
                << start << " - " << hours;
            ASSERT_EQ(After(operations::kSubMin, start, minutes),
                      FieldsAt(SecondsOf(start) - 60 * minutes))
                << start << " - " << minutes;
        }
}

// The examples of docs/calendar.md

/// The date of a text, as the document writes it.
ZelDtDateTime On(const char* date)
{
    return ZelDtDateTime(date, ZelDtDateTime::DateString);
}

ZelDtDateTime At(const char* dateAndTime)
{
    return ZelDtDateTime(dateAndTime, ZelDtDateTime::DateTimeString);
}

std::string Shown(const ZelDtDateTime& value)
{
    return TextOf(value.MakeFormatString(SQL_Datum));
}

std::string ShownWithTime(const ZelDtDateTime& value)
{
    return TextOf(value.MakeFormatString(SQL_DatumUhrzeit));
}

/// The first error of an action that fails with error 1.
template <typename Action>
unsigned long FaultIn(Action&& action)
{
    const Caught caught = Catch(action);
    EXPECT_EQ(caught.error.number, 1U) << caught.disturbance;
    return caught.first.number;
}

TEST_F(DocumentedDifferences, DaysSubtractedFromMarchOn)
{
    ZelDtDateTime value = On("01.03.2001");
    value.SubDay365(365);
    EXPECT_EQ(Shown(value), "29.02.2000");
    EXPECT_EQ(DaysLater({2001, 3, 1}, -365), (Fields{2000, 3, 1}));

    value = On("31.12.2001");
    value.AddDay365(-365);
    EXPECT_EQ(Shown(value), "30.12.2000");
    EXPECT_EQ(DaysLater({2001, 12, 31}, -365), (Fields{2000, 12, 31}));

    value = On("01.03.2000");
    value.SubDay365(366);
    EXPECT_EQ(Shown(value), "01.03.1999");
    EXPECT_EQ(DaysLater({2000, 3, 1}, -366), (Fields{1999, 3, 1}));

    // Two days of the calendar become one.
    for (const int days : {424, 425}) {
        value = On("01.03.2001");
        value.SubDay365(days);
        EXPECT_EQ(Shown(value), "01.01.2000");
    }
    EXPECT_EQ(DaysLater({2001, 3, 1}, -424), (Fields{2000, 1, 2}));

    // In two steps it is exact.
    value = On("01.03.2001");
    value.SubDay365(59);
    EXPECT_EQ(Shown(value), "01.01.2001");
    value.SubDay365(306);
    EXPECT_EQ(Shown(value), "01.03.2000");

    value = At("01.03.2001 12:00");
    value.SubHour(365 * 24);
    EXPECT_EQ(ShownWithTime(value), "29.02.2000 12:00:00");
    value = At("01.03.2001 12:00");
    value.SubMin(365 * 24 * 60);
    EXPECT_EQ(ShownWithTime(value), "29.02.2000 12:00:00");
}

TEST_F(DocumentedDifferences, MonthsThatEndInDecember)
{
    ZelDtDateTime value = On("15.12.2000");
    EXPECT_EQ(FaultIn([&] { value.AddMonth(12); }), 26U);
    EXPECT_EQ(Shown(value), "15.12.2002");
    value = On("15.06.2000");
    EXPECT_EQ(FaultIn([&] { value.AddMonth(18); }), 26U);
    EXPECT_EQ(Shown(value), "15.06.2002");
    value = On("15.06.2000");
    value.AddMonth(6);
    EXPECT_EQ(Shown(value), "15.12.2000");
}

TEST_F(DocumentedDifferences, MonthsFromALeapDay)
{
    ZelDtDateTime value = On("29.02.2000");
    value.AddMonth(13);
    EXPECT_EQ(Shown(value), "28.03.2001");
    EXPECT_EQ(MonthsLater({2000, 2, 29}, 13), (Fields{2001, 3, 29}));
    value = On("29.02.2000");
    value.AddMonth(1);
    EXPECT_EQ(Shown(value), "29.03.2000");
}

TEST_F(DocumentedDifferences, YearsThatAreTakenForTwoDigits)
{
    ZelDtDateTime value = On("01.01.2000");
    value.AddYear(-1950);
    EXPECT_EQ(Shown(value), "01.01.2050");
    value = On("01.01.2000");
    EXPECT_EQ(FaultIn([&] { value.SubYear(1950); }), 27U);
    EXPECT_EQ(Shown(On("01.01.99")), "01.01.2099");
    EXPECT_EQ(Shown(On("01.01.0099")), "01.01.2099");
    value = On("01.01.2000");
    value.SetYear(-5);
    EXPECT_EQ(Shown(value), "01.01.1995");
}

TEST_F(DocumentedDifferences, TheFirstYear)
{
    ZelDtDateTime value = On("01.01.1753");
    EXPECT_EQ(FaultIn([&] { value.SubDay365(1); }), 27U);
    EXPECT_EQ(Shown(value), "31.12.1752");
    value = On("01.01.2000");
    EXPECT_EQ(FaultIn([&] { value.SetYear(1752); }), 27U);
    EXPECT_EQ(Shown(value), "01.01.1752");
}

TEST_F(DocumentedDifferences, YearsOfRecords)
{
    std::tm record{};
    record.tm_mday = 1;
    record.tm_year = 105; // 2005
    EXPECT_EQ(FaultIn([&] { ZelDtDateTime value(&record); }), 27U);
    record.tm_year = 5; // 1905
    EXPECT_EQ(Shown(ZelDtDateTime(&record)), "01.01.2005");
    record.tm_year = 2005;
    EXPECT_EQ(Shown(ZelDtDateTime(&record)), "01.01.2005");
}

TEST_F(DocumentedDifferences, Seconds)
{
    ZelDtDateTime value = At("31.12.1999 23:59:59");
    value.AddMin(1);
    EXPECT_EQ(ShownWithTime(value), "01.01.2000 00:00:59");
    EXPECT_EQ(FaultIn([&] { value.SetSecond(60); }), 30U);
}

TEST_F(DocumentedDifferences, ManyHours)
{
    ZelDtDateTime value = On("01.01.2000");
    value.AddHour(24 * 65536);
    EXPECT_EQ(Shown(value), "01.01.2000");
    value.AddHour(24 * 32768);
    EXPECT_EQ(Shown(value), "15.04.1910");
    EXPECT_EQ(DaysLater({2000, 1, 1}, -32768), (Fields{1910, 4, 15}));
    value.SubHour(-24 * 32767);
    EXPECT_EQ(Shown(value), "31.12.1999");
    value = On("18.09.2089");
    value.SubHour(24 * 32768);
    // From September on, into an earlier leap year, but to its first day.
    EXPECT_EQ(Shown(value), "01.01.2000");
}

TEST_F(DocumentedDifferences, SummerTime)
{
    ZelDtDateTime value = At("31.03.2024 01:30");
    value.AddHour(1);
    EXPECT_EQ(ShownWithTime(value), "31.03.2024 02:30:00");
}

TEST_F(DocumentedDifferences, Slashes)
{
    EXPECT_EQ(Shown(On("15.03/2000")), "15.03.2000");
    EXPECT_EQ(FaultIn([] { On("15/03/2000"); }), 5U);
    EXPECT_EQ(FaultIn([] { On("15/03.2000"); }), 5U);
    EXPECT_EQ(Shown(On("12/05 abc")), "12.05.2005");
}

TEST_F(DocumentedDifferences, PlacesOfTimes)
{
    EXPECT_EQ(FaultIn([] { At("1.3.2000 12:30:45"); }), 5U);
    EXPECT_EQ(ShownWithTime(At("1.3.2000   12:30:45")), "01.03.2000 12:30:45");
    ZelDtDateTime value = On("01.03.2000");
    value.SetTime("12:30:4");
    EXPECT_EQ(ShownWithTime(value), "01.03.2000 12:30:00");
    value.SetTime("12:45 Uhr");
    EXPECT_EQ(ShownWithTime(value), "01.03.2000 12:45:00");
}

TEST_F(DocumentedDifferences, RejectedTexts)
{
    ZelDtDateTime value = On("31.03.1999");
    EXPECT_EQ(FaultIn([&] { value.SetDate("32.02.2001"); }), 25U);
    EXPECT_EQ(Shown(value), "28.02.2001");
}

TEST_F(DocumentedDifferences, EndsOfMonthsAreNotRemembered)
{
    ZelDtDateTime value = On("31.01.2000");
    value.AddMonth(1);
    EXPECT_EQ(Shown(value), "29.02.2000");
    value.SubMonth(1);
    EXPECT_EQ(Shown(value), "29.01.2000");
}

} // namespace
