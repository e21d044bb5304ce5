/// Adding and subtracting days, beside the model of the steps and in every state of the value.

#include "tests/datetime/calendar_testing.h"

#include <limits>

namespace {

using namespace zeltest;
using operations::kAddDay365;
using operations::kSubDay365;

constexpr std::int64_t kMaxCount = 32767;
constexpr std::int64_t kMinCount = -32768;

/// Every date of the years.
std::vector<Fields> DatesOf(int firstYear, int lastYear)
{
    std::vector<Fields> dates;
    for (int year = firstYear; year <= lastYear; ++year)
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= LengthOfMonth(year, month); ++day)
                dates.push_back({year, month, day, 13, 14, 15});
    return dates;
}

std::int64_t DayOfYear(const Fields& f)
{
    return CalendarModel::DaysTo(f.month - 1) + f.day + (IsLeap(f.year) && f.month > 2 ? 1 : 0);
}

/// Counts around the ends of months and of the years before and after.
std::vector<std::int64_t> TellingCounts(const Fields& start)
{
    const std::int64_t day = DayOfYear(start);
    std::vector<std::int64_t> counts = {0, 1, 28, 29, 30, 31, 59, 60, 61, 1500};
    for (const int length : {0, 365, 366, 730, 731, 1095, 1096, 1461})
        for (int offset = -2; offset <= 2; ++offset) {
            counts.push_back(length + offset);
            counts.push_back(length + offset + day);
            counts.push_back(length + offset + 366 - day);
        }
    return counts;
}

/// Stops at the first disagreements; thousands of the same say no more.
void ExpectAgreement(const Operation& op, const ZelDtDateTime& start, std::int64_t count)
{
    if (::testing::Test::HasFailure())
        return;
    EXPECT_TRUE(Agrees(op, start, count));
}

TEST(Days, AgreeFromEveryDateOfSevenYears)
{
    const bool all = RunsLong();
    Counts random(1);
    for (const Fields& date : DatesOf(1999, 2005)) {
        const ZelDtDateTime start = MakeDateTime(date);
        std::vector<std::int64_t> counts;
        if (all || (date.day == 1 && date.month % 3 == 0 && date.year % 3 == 0)) {
            for (std::int64_t n = -1500; n <= 1500; ++n)
                counts.push_back(n);
        } else {
            if (date.day == 1 || date.day >= 28)
                counts = TellingCounts(date);
            for (int i = 0; i < 60; ++i)
                counts.push_back(random.Draw(-1500, 1500));
        }
        for (const std::int64_t n : counts) {
            ExpectAgreement(kAddDay365, start, n);
            ExpectAgreement(kSubDay365, start, n);
        }
    }
}

TEST(Days, AgreeFromDatesOfAllCenturies)
{
    Counts random(2);
    const int dates = RunsLong() ? 100'000 : 2'000;
    for (int i = 0; i < dates; ++i) {
        Fields date;
        date.year = random.Draw(CalendarModel::kFirstYear, 9999);
        date.month = random.Draw(1, 12);
        date.day = random.Draw(1, LengthOfMonth(date.year, date.month));
        const ZelDtDateTime start = MakeDateTime(date);
        for (const std::int64_t n : {random.Draw(-1500, 1500), random.Draw(kMinCount, kMaxCount),
                                     random.Draw(kMinCount, kMaxCount)}) {
            ExpectAgreement(kAddDay365, start, n);
            ExpectAgreement(kSubDay365, start, n);
        }
    }
}

TEST(Days, AgreeAroundTheCenturiesThatAreNoLeapYears)
{
    for (const int century : {1800, 1900, 2000, 2100, 2400})
        for (const Fields& date :
             {Fields{century - 1, 12, 31, 0, 0, 0}, Fields{century, 1, 1, 0, 0, 0},
              Fields{century, 2, 28, 0, 0, 0}, Fields{century, 3, 1, 0, 0, 0},
              Fields{century, 12, 31, 0, 0, 0}, Fields{century + 4, 2, 29, 0, 0, 0},
              Fields{century + 4, 3, 1, 0, 0, 0}}) {
            const ZelDtDateTime start = MakeDateTime(date);
            for (const std::int64_t n : TellingCounts(date)) {
                ExpectAgreement(kAddDay365, start, n);
                ExpectAgreement(kSubDay365, start, n);
            }
        }
}

TEST(Days, AgreeForTheLargestCounts)
{
    for (const Fields& date :
         {Fields{1753, 1, 1, 0, 0, 0}, Fields{1842, 9, 18, 0, 0, 0}, Fields{1842, 9, 20, 0, 0, 0},
          Fields{2000, 2, 29, 23, 59, 59}, Fields{2000, 3, 1, 0, 0, 0},
          Fields{2001, 12, 31, 0, 0, 0}, Fields{9999, 12, 31, 0, 0, 0}}) {
        const ZelDtDateTime start = MakeDateTime(date);
        for (const std::int64_t n :
             {kMaxCount, kMaxCount - 1, kMinCount, kMinCount + 1, -kMaxCount + 1}) {
            ExpectAgreement(kAddDay365, start, n);
            ExpectAgreement(kSubDay365, start, n);
        }
    }
}

struct DayRow {
    Fields start;
    const Operation* op;
    std::int64_t count;
    Fields after;
};

TEST(Days, Examples)
{
    const std::vector<DayRow> rows = {
        {{1999, 12, 31}, &kAddDay365, 1, {2000, 1, 1}},
        {{2000, 1, 1}, &kAddDay365, 366, {2001, 1, 1}},
        {{2000, 1, 1}, &kAddDay365, 365, {2000, 12, 31}},
        {{2000, 2, 28}, &kAddDay365, 1, {2000, 2, 29}},
        {{2000, 2, 28}, &kAddDay365, 2, {2000, 3, 1}},
        {{2001, 2, 28}, &kAddDay365, 1, {2001, 3, 1}},
        {{1900, 2, 28}, &kAddDay365, 1, {1900, 3, 1}},
        {{2000, 1, 31}, &kAddDay365, 0, {2000, 1, 31}},
        {{1999, 12, 31}, &kSubDay365, -1, {2000, 1, 1}},
        {{2000, 1, 1}, &kAddDay365, -1, {1999, 12, 31}},
        {{2000, 1, 1}, &kSubDay365, 1, {1999, 12, 31}},
        {{2001, 1, 1}, &kSubDay365, 366, {2000, 1, 1}},
        {{2000, 12, 31}, &kSubDay365, 365, {2000, 1, 1}},
        {{2000, 3, 1}, &kSubDay365, 1, {2000, 2, 29}},
        {{2001, 3, 1}, &kSubDay365, 365, {2000, 2, 29}},
        // 60 days lead to the day before 1 January as the steps count it: "32 December".
        {{2000, 3, 1}, &kSubDay365, 59, {2000, 1, 2}},
        {{2000, 3, 1}, &kSubDay365, 60, {2000, 1, 1}},
        {{2000, 3, 1}, &kSubDay365, 61, {1999, 12, 31}},
        {{2001, 3, 1}, &kSubDay365, 424, {2000, 1, 1}},
        {{2001, 3, 1}, &kSubDay365, 425, {2000, 1, 1}},
        {{2001, 3, 1}, &kSubDay365, 426, {1999, 12, 31}},
        // 89 years with 23 leap days, and 259 days.
        {{2000, 1, 1}, &kAddDay365, kMaxCount, {2089, 9, 17}},
        {{2000, 1, 1}, &kSubDay365, kMinCount, {2089, 9, 18}},
    };
    for (const DayRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        row.op->run(value, row.count);
        EXPECT_EQ(FieldsIn(value), row.after) << row.start << ' ' << *row.op << ' ' << row.count;
    }
}

TEST(Days, LeaveTheTimeOfDay)
{
    ZelDtDateTime value = MakeDateTime({1999, 12, 31, 23, 59, 58});
    value.AddDay365(1);
    EXPECT_EQ(FieldsIn(value), (Fields{2000, 1, 1, 23, 59, 58}));
    value.SubDay365(1);
    EXPECT_EQ(FieldsIn(value), (Fields{1999, 12, 31, 23, 59, 58}));
}

TEST(Days, BeforeTheFirstYearAreKeptAndReported)
{
    const Error cause = ImpError(27, "SubDay365(SHORT)");
    ZelDtDateTime value = MakeDateTime({1753, 1, 10});
    value.SubDay365(9);
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, {1753, 1, 1}}));

    value.SetModified(0);
    EXPECT_TRUE(
        FailsWith([&] { value.SubDay365(1); }, FunctionError(1, "SubDay365(SHORT)"), cause));
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, {1752, 12, 31}}));

    ZelDtDateTime other = MakeDateTime({1753, 12, 31});
    EXPECT_TRUE(
        FailsWith([&] { other.AddDay365(-365); }, FunctionError(1, "AddDay365(SHORT)"), cause));
    // 1752 is a leap year that was reached from December: a day early.
    EXPECT_EQ(Look(other), (Moment{{ZelDtWmMissing, 1, 1}, {1752, 12, 30}}));

    EXPECT_EQ(LinksThrownBy([&] {
                  MakeDateTime({1753, 1, 1}).SubDay365(32767);
              }).back(),
              LinkOf(cause));
}

TEST(Days, WithoutLimitAfterwards)
{
    ZelDtDateTime value = MakeDateTime({32767, 12, 31});
    value.AddDay365(1);
    EXPECT_EQ(FieldsIn(value), (Fields{32768, 1, 1}));
    EXPECT_TRUE(FailsWith([&] { value.GetYear(); }, FunctionError(8, "GetYear()")));
    value.SubDay365(1);
    EXPECT_EQ(value.GetYear(), 32767);
}

TEST(Days, EndWhereTheYearDoesNotFitItsField)
{
    const std::int64_t last = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1900;
    const ZelDtDateTime start = MakeDateTime({last, 12, 30});
    ZelDtDateTime value(start);
    value.AddDay365(1);
    EXPECT_EQ(FieldsIn(value), (Fields{last, 12, 31}));
    EXPECT_TRUE(
        FailsBecauseOf([&] { value.AddDay365(1); }, FunctionError(1, "AddDay365(SHORT)"), 8));
    ZelDtDateTime other(start);
    EXPECT_TRUE(
        FailsBecauseOf([&] { other.SubDay365(-32768); }, FunctionError(1, "SubDay365(SHORT)"), 8));
}

TEST(DaysInEveryState, MakeDefinedAndMarkChanges)
{
    for (const State& state : ReadableStates())
        for (const std::int64_t n : {0, 1, -1, 400, -400}) {
            const ZelDtDateTime start = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
            ASSERT_EQ(Look(start), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
            for (const Operation* op : {&kAddDay365, &kSubDay365}) {
                EXPECT_TRUE(Agrees(*op, start, n)) << state;
                ZelDtDateTime value(start);
                op->run(value, n);
                EXPECT_EQ(StateOf(value),
                          (State{state.mode, 1, state.modified || !state.defined || n != 0}))
                    << *op << ' ' << n;
            }
        }
}

TEST(DaysInEveryState, NullBecomesDefinedEvenBeforeTheFirstYear)
{
    for (const State& state : {State{ZelDtWmNull, 0, 0}, State{ZelDtWmNull, 0, 1}}) {
        const ZelDtDateTime start = MakeDateTime({1753, 1, 1}, state);
        EXPECT_TRUE(Agrees(kSubDay365, start, 1));
        EXPECT_TRUE(Agrees(kAddDay365, start, -1));
        ZelDtDateTime value(start);
        EXPECT_FALSE(LinksThrownBy([&] { value.SubDay365(1); }).empty());
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmNull, 1, 1}, {1752, 12, 31}}));
    }
}

TEST(DaysInEveryState, MissingIsAnError)
{
    for (const State& state : MissingStates()) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        for (const Operation* op : {&kAddDay365, &kSubDay365})
            for (const std::int64_t n : {std::int64_t{0}, std::int64_t{1}, kMinCount})
                EXPECT_TRUE(FailsWith([&] { op->run(value, n); }, FunctionError(2, op->signature)));
        EXPECT_EQ(Look(value), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
    }
}

TEST(DaysOfMoreThan16Bits, AreRefusedBeforeAnythingElse)
{
    for (const State& state :
         {State{ZelDtWmMissing, 0, 0}, State{ZelDtWmMissing, 1, 0}, State{ZelDtWmNull, 0, 0}}) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        for (const int n : {32768, -32769, 65536, std::numeric_limits<int>::max(),
                            std::numeric_limits<int>::min()}) {
            EXPECT_TRUE(
                FailsWith([&] { value.AddDay365(n); }, FunctionError(8, "AddDay365(SHORT)")));
            EXPECT_TRUE(
                FailsWith([&] { value.SubDay365(n); }, FunctionError(8, "SubDay365(SHORT)")));
        }
        EXPECT_EQ(Look(value), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
    }
}

TEST(DaysOfMoreThan16Bits, TheLimitsAreNotRefused)
{
    ZelDtDateTime value = MakeDateTime({2000, 1, 1});
    value.AddDay365(32767);
    EXPECT_EQ(FieldsIn(value), (Fields{2089, 9, 17}));
    value.SubDay365(-32768);
    EXPECT_EQ(FieldsIn(value), (Fields{2179, 6, 6}));
}

} // namespace
