/// Adding and subtracting months and years, beside the model of the steps and in every state of the
/// value.

#include "tests/datetime/calendar_testing.h"

#include <limits>

namespace {

using namespace zeltest;
using operations::kAddMonth;
using operations::kAddYear;
using operations::kSubMonth;
using operations::kSubYear;

constexpr std::int64_t kMaxCount = 32767;
constexpr std::int64_t kMinCount = -32768;

const std::vector<const Operation*> kOperations = {&kAddMonth, &kSubMonth, &kAddYear, &kSubYear};

class MonthsAndYears : public ::testing::Test {
private:
    const FixedClock m_clock{SomeDayOf(2024)};
};

using MonthsAndYearsInEveryState = MonthsAndYears;
using MonthsAndYearsOfMoreThan16Bits = MonthsAndYears;

/// First, middle and last days of the months of the years.
std::vector<Fields> DatesOf(std::int64_t firstYear, std::int64_t lastYear)
{
    std::vector<Fields> dates;
    for (std::int64_t year = firstYear; year <= lastYear; ++year)
        for (int month = 1; month <= 12; ++month) {
            for (const int day : {1, 15})
                dates.push_back({year, month, day, 13, 14, 15});
            for (int day = 28; day <= CalendarModel::MonthLength(year, month); ++day)
                dates.push_back({year, month, day, 13, 14, 15});
        }
    return dates;
}

/// Stops at the first disagreements; thousands of the same say no more.
void ExpectAgreement(const Operation& op, const ZelDtDateTime& start, std::int64_t count)
{
    if (::testing::Test::HasFailure())
        return;
    EXPECT_TRUE(Agrees(op, start, count));
}

TEST_F(MonthsAndYears, AgreeForSmallCounts)
{
    std::vector<Fields> dates = DatesOf(1999, RunsLong() ? 2005 : 2001);
    for (const std::int64_t year : {1753, 1754, 1899, 1900, 2100, 9999})
        for (const Fields& date : DatesOf(year, year))
            dates.push_back(date);
    Counts random(1);
    for (const Fields& date : dates) {
        const ZelDtDateTime start = MakeDateTime(date);
        const bool all = RunsLong() || (date.year == 2000 && date.day != 15);
        for (const Operation* op : kOperations) {
            if (all) {
                for (std::int64_t n = -40; n <= 40; ++n)
                    ExpectAgreement(*op, start, n);
            } else {
                for (const std::int64_t n : {1, 12, 13, -1, -12})
                    ExpectAgreement(*op, start, n);
                for (int i = 0; i < 8; ++i)
                    ExpectAgreement(*op, start, random.Draw(-40, 40));
            }
        }
    }
}

TEST_F(MonthsAndYears, AgreeForLargeCounts)
{
    Counts random(2);
    const int dates = RunsLong() ? 20'000 : 500;
    for (int i = 0; i < dates; ++i) {
        Fields date;
        date.year = random.Draw(CalendarModel::kFirstYear, 9999);
        date.month = random.Draw(1, 12);
        date.day = random.Draw(1, CalendarModel::MonthLength(date.year, date.month));
        const ZelDtDateTime start = MakeDateTime(date);
        for (const Operation* op : kOperations) {
            ExpectAgreement(*op, start, random.Draw(-1500, 1500));
            ExpectAgreement(*op, start, random.Draw(kMinCount, kMaxCount));
        }
    }
}

TEST_F(MonthsAndYears, AgreeForTheLargestCounts)
{
    for (const Fields& date : {Fields{1753, 1, 1}, Fields{2000, 2, 29}, Fields{2000, 4, 30},
                               Fields{2000, 12, 31}, Fields{9999, 1, 31}, Fields{9999, 12, 31}}) {
        const ZelDtDateTime start = MakeDateTime(date);
        for (const Operation* op : kOperations)
            for (const std::int64_t n : {kMaxCount, kMaxCount - 1, kMinCount, kMinCount + 1})
                ExpectAgreement(*op, start, n);
    }
}

struct MonthRow {
    Fields start;
    const Operation* op;
    std::int64_t count;
    Fields after;
};

TEST_F(MonthsAndYears, Examples)
{
    const std::vector<MonthRow> rows = {
        {{2000, 1, 31}, &kAddMonth, 1, {2000, 2, 29}},
        {{2001, 1, 31}, &kAddMonth, 1, {2001, 2, 28}},
        {{2000, 3, 31}, &kAddMonth, 1, {2000, 4, 30}},
        {{1999, 11, 15}, &kAddMonth, 1, {1999, 12, 15}},
        {{1999, 12, 15}, &kAddMonth, 1, {2000, 1, 15}},
        {{2000, 6, 15}, &kAddMonth, 6, {2000, 12, 15}},
        {{2000, 6, 15}, &kAddMonth, 12, {2001, 6, 15}},
        {{2000, 6, 15}, &kAddMonth, 19, {2002, 1, 15}},
        {{2000, 12, 15}, &kAddMonth, 13, {2002, 1, 15}},
        {{2000, 2, 29}, &kAddMonth, 12, {2001, 2, 28}},
        {{2000, 2, 29}, &kAddMonth, 48, {2004, 2, 29}},
        // The day is cut as soon as the year is set.
        {{2000, 2, 29}, &kAddMonth, 13, {2001, 3, 28}},
        {{2000, 2, 29}, &kAddMonth, 11, {2001, 1, 28}},
        {{2000, 1, 15}, &kAddMonth, kMaxCount, {4730, 8, 15}},
        {{9999, 1, 15}, &kAddMonth, kMinCount, {7268, 5, 15}},
        {{2000, 3, 31}, &kAddMonth, -1, {2000, 2, 29}},
        {{2000, 3, 31}, &kSubMonth, 1, {2000, 2, 29}},
        {{1999, 3, 31}, &kSubMonth, 1, {1999, 2, 28}},
        {{2000, 1, 31}, &kSubMonth, 1, {1999, 12, 31}},
        {{2000, 12, 15}, &kSubMonth, 12, {1999, 12, 15}},
        {{2000, 6, 15}, &kSubMonth, 18, {1998, 12, 15}},
        {{2000, 2, 29}, &kSubMonth, 12, {1999, 2, 28}},
        {{2000, 2, 29}, &kSubMonth, 13, {1999, 1, 29}},
        {{2000, 1, 31}, &kSubMonth, -1, {2000, 2, 29}},
        {{1753, 12, 31}, &kSubMonth, 11, {1753, 1, 31}},
        {{2000, 2, 29}, &kAddYear, 1, {2001, 2, 28}},
        {{2000, 2, 29}, &kAddYear, 4, {2004, 2, 29}},
        {{2000, 2, 29}, &kAddYear, 100, {2100, 2, 28}},
        {{2000, 2, 29}, &kAddYear, -247, {1753, 2, 28}},
        {{2000, 1, 1}, &kAddYear, kMaxCount, {34767, 1, 1}},
        {{2000, 2, 29}, &kSubYear, 1, {1999, 2, 28}},
        {{2000, 2, 29}, &kSubYear, 247, {1753, 2, 28}},
        {{2000, 2, 29}, &kSubYear, -4, {2004, 2, 29}},
        {{2000, 1, 1}, &kSubYear, kMinCount, {34768, 1, 1}},
        // A year of 99 or less counts as one of two digits.
        {{2000, 1, 1}, &kAddYear, -1901, {2099, 1, 1}},
        {{2000, 1, 1}, &kAddYear, -1950, {2050, 1, 1}},
        {{2000, 2, 29}, &kAddYear, -1999, {2001, 2, 28}},
        {{2010, 1, 1}, &kAddYear, -2010, {2000, 1, 1}},
        {{2000, 1, 1}, &kAddYear, -2005, {1995, 1, 1}},
    };
    for (const MonthRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        row.op->run(value, row.count);
        EXPECT_EQ(FieldsIn(value), row.after) << row.start << ' ' << *row.op << ' ' << row.count;
    }
}

TEST_F(MonthsAndYears, LeaveTheTimeOfDay)
{
    for (const Operation* op : kOperations) {
        ZelDtDateTime value = MakeDateTime({1999, 12, 31, 23, 59, 58});
        op->run(value, 1);
        EXPECT_EQ(FieldsIn(value).hour, 23) << *op;
        EXPECT_EQ(FieldsIn(value).minute, 59) << *op;
        EXPECT_EQ(FieldsIn(value).second, 58) << *op;
    }
}

struct FailingRow {
    Fields start;
    const Operation* op;
    std::int64_t count;
    Fault fault;
    Fields after;
};

TEST_F(MonthsAndYears, FailuresKeepWhatWasChanged)
{
    const Fault noMonth{26, "SetMonth(SHORT)"};
    const Fault monthsTooEarly{27, "SubMonth(SHORT)"};
    const Fault yearTooEarly{27, "SetYear(SHORT)"};
    const Fault tooEarly{27, ""};
    const std::vector<FailingRow> rows = {
        {{2000, 12, 15}, &kAddMonth, 12, noMonth, {2002, 12, 15}},
        {{2000, 12, 15}, &kSubMonth, -12, noMonth, {2002, 12, 15}},
        {{2000, 6, 15}, &kAddMonth, 18, noMonth, {2002, 6, 15}},
        {{2000, 1, 31}, &kAddMonth, 23, noMonth, {2002, 1, 31}},
        {{2000, 2, 29}, &kAddMonth, 22, noMonth, {2002, 2, 28}},
        {{2000, 12, 31}, &kAddMonth, 24, noMonth, {2003, 12, 31}},
        {{1753, 1, 15}, &kSubMonth, 1, monthsTooEarly, {1752, 1, 15}},
        {{1753, 1, 15}, &kAddMonth, -1, monthsTooEarly, {1752, 1, 15}},
        {{1754, 6, 15}, &kSubMonth, 18, monthsTooEarly, {1752, 6, 15}},
        {{1756, 2, 29}, &kSubMonth, 40, monthsTooEarly, {1752, 2, 29}},
        {{2000, 1, 1}, &kAddMonth, kMinCount, monthsTooEarly, {-731, 1, 1}},
        {{2000, 1, 1}, &kAddYear, -248, yearTooEarly, {1752, 1, 1}},
        {{2000, 2, 29}, &kAddYear, -249, yearTooEarly, {1751, 2, 29}},
        {{2000, 1, 1}, &kAddYear, -1900, yearTooEarly, {100, 1, 1}},
        {{2000, 1, 1}, &kAddYear, kMinCount, yearTooEarly, {-28768, 1, 1}},
        {{2000, 1, 1}, &kSubYear, 248, tooEarly, {1752, 1, 1}},
        {{2000, 1, 1}, &kSubYear, 1950, tooEarly, {50, 1, 1}},
        {{2000, 1, 1}, &kSubYear, kMaxCount, tooEarly, {-30767, 1, 1}},
    };
    for (const FailingRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        EXPECT_TRUE(FailsWithFault([&] { row.op->run(value, row.count); }, *row.op, row.fault))
            << row.start << ' ' << *row.op << ' ' << row.count;
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after}))
            << row.start << ' ' << *row.op << ' ' << row.count;
    }
}

TEST_F(MonthsAndYears, HaveNoLastYear)
{
    ZelDtDateTime value = MakeDateTime({32767, 12, 15});
    EXPECT_EQ(value.GetYear(), 32767);
    value.AddMonth(1);
    EXPECT_EQ(FieldsIn(value), (Fields{32768, 1, 15}));
    EXPECT_TRUE(FailsWith([&] { value.GetYear(); }, FunctionError(8, "GetYear()")));
    value.AddYear(32767);
    EXPECT_EQ(FieldsIn(value), (Fields{65535, 1, 15}));
    value.SubMonth(32767);
    value.SubYear(32767);
    EXPECT_EQ(FieldsIn(value), (Fields{30037, 6, 15}));
    EXPECT_EQ(value.GetYear(), 30037);
}

TEST_F(MonthsAndYears, EndWhereTheYearDoesNotFitItsField)
{
    const std::int64_t last = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1900;
    ZelDtDateTime value = MakeDateTime({last, 11, 15});
    value.AddMonth(1);
    EXPECT_EQ(FieldsIn(value), (Fields{last, 12, 15}));
    EXPECT_TRUE(FailsBecauseOf([&] { value.AddMonth(1); }, FunctionError(1, "AddMonth(SHORT)"), 8));
    ZelDtDateTime other = MakeDateTime({last - 32767, 11, 15});
    other.AddYear(32767);
    EXPECT_EQ(FieldsIn(other), (Fields{last, 11, 15}));
    EXPECT_TRUE(FailsLike([&] { other.AddYear(1); }, FunctionError(1, "AddYear("), 8));
    EXPECT_TRUE(FailsLike([&] { other.SubYear(-32768); }, FunctionError(1, "SubYear("), 8));
}

TEST_F(MonthsAndYearsInEveryState, MakeDefinedAndMarkChanges)
{
    for (const State& state : ReadableStates()) {
        const ZelDtDateTime start = MakeDateTime({2000, 1, 31, 1, 2, 3}, state);
        ASSERT_EQ(Look(start), (Moment{state, {2000, 1, 31, 1, 2, 3}}));
        for (const Operation* op : kOperations)
            for (const std::int64_t n : {0, 1, -1, 12, 14, -14}) {
                EXPECT_TRUE(Agrees(*op, start, n)) << state;
                ZelDtDateTime value(start);
                op->run(value, n);
                EXPECT_EQ(StateOf(value),
                          (State{state.mode, 1, state.modified || !state.defined || n != 0}))
                    << *op << ' ' << n;
            }
    }
}

/// Adding months makes the value defined before the month is checked; the others check the year
/// first.
TEST_F(MonthsAndYearsInEveryState, FailuresOfNullValues)
{
    for (const int modified : {0, 1}) {
        const State state{ZelDtWmNull, 0, modified};
        ZelDtDateTime value = MakeDateTime({2000, 12, 15}, state);
        EXPECT_TRUE(
            FailsWithFault([&] { value.AddMonth(12); }, kAddMonth, Fault{26, "SetMonth(SHORT)"}));
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmNull, 1, 1}, {2002, 12, 15}}));

        ZelDtDateTime early = MakeDateTime({1753, 1, 15}, state);
        EXPECT_TRUE(
            FailsWithFault([&] { early.SubMonth(1); }, kSubMonth, Fault{27, "SubMonth(SHORT)"}));
        EXPECT_EQ(Look(early), (Moment{{ZelDtWmNull, 0, 1}, {1752, 1, 15}}));

        ZelDtDateTime year = MakeDateTime({1753, 1, 15}, state);
        EXPECT_TRUE(
            FailsWithFault([&] { year.AddYear(-1); }, kAddYear, Fault{27, "SetYear(SHORT)"}));
        EXPECT_EQ(Look(year), (Moment{{ZelDtWmNull, 0, 1}, {1752, 1, 15}}));
    }
}

TEST_F(MonthsAndYearsInEveryState, MissingIsAnError)
{
    for (const State& state : MissingStates()) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        for (const Operation* op : kOperations)
            for (const std::int64_t n : {std::int64_t{0}, std::int64_t{1}, kMinCount})
                EXPECT_TRUE(FailsLike([&] { op->run(value, n); }, FunctionError(2, op->signature)))
                    << *op << ' ' << n;
        EXPECT_EQ(Look(value), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
    }
}

TEST_F(MonthsAndYearsOfMoreThan16Bits, AreRefusedBeforeAnythingElse)
{
    for (const State& state :
         {State{ZelDtWmMissing, 0, 0}, State{ZelDtWmMissing, 1, 0}, State{ZelDtWmNull, 0, 0}}) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        for (const int n : {32768, -32769, 65536, kMaxInt, kMinInt}) {
            EXPECT_TRUE(FailsWith([&] { value.AddMonth(n); }, FunctionError(8, "AddMonth(SHORT)")));
            EXPECT_TRUE(FailsWith([&] { value.SubMonth(n); }, FunctionError(8, "SubMonth(SHORT)")));
            EXPECT_TRUE(FailsLike([&] { value.AddYear(n); }, FunctionError(8, "AddYear(")));
            EXPECT_TRUE(FailsLike([&] { value.SubYear(n); }, FunctionError(8, "SubYear(")));
        }
        EXPECT_EQ(Look(value), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
    }
}

TEST_F(MonthsAndYearsOfMoreThan16Bits, TheLimitsAreNotRefused)
{
    ZelDtDateTime value = MakeDateTime({2000, 1, 15});
    value.AddMonth(32767);
    EXPECT_EQ(FieldsIn(value), (Fields{4730, 8, 15}));
    value.SubMonth(-32768);
    EXPECT_EQ(FieldsIn(value), (Fields{7461, 4, 15}));
    value.AddYear(32767);
    EXPECT_EQ(FieldsIn(value), (Fields{40228, 4, 15}));
    value.SubYear(-32768);
    EXPECT_EQ(FieldsIn(value), (Fields{72996, 4, 15}));
    EXPECT_TRUE(FailsWithFault(
        [&] {
            MakeDateTime({2000, 1, 1}).AddMonth(-32768);
        },
        kAddMonth, Fault{27, "SubMonth(SHORT)"}));
}

} // namespace
