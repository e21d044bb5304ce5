/// Adding and subtracting hours and minutes, beside the model of the steps, at the limits of the
/// counts and in every state of the value.

#include "tests/datetime/calendar_testing.h"

#include <limits>

namespace {

using namespace zeltest;
using operations::kAddHour;
using operations::kAddMin;
using operations::kSubHour;
using operations::kSubMin;

constexpr long kMaxLong = std::numeric_limits<long>::max();
constexpr long kMinLong = std::numeric_limits<long>::min();

const std::vector<const Operation*> kOperations = {&kAddHour, &kSubHour, &kAddMin, &kSubMin};

const std::vector<Fields> kStarts = {{1999, 12, 31, 23, 59, 59},
                                     {2000, 1, 1},
                                     {2000, 2, 28, 23, 0, 30},
                                     {2000, 2, 29, 12, 30, 0},
                                     {2000, 3, 1},
                                     {2001, 3, 1, 0, 0, 1},
                                     {2001, 12, 31, 0, 59, 59},
                                     {2004, 7, 4, 10, 59, 59}};

/// Stops at the first disagreements; thousands of the same say no more.
void ExpectAgreement(const Operation& op, const ZelDtDateTime& start, std::int64_t count)
{
    if (::testing::Test::HasFailure())
        return;
    EXPECT_TRUE(Agrees(op, start, count));
}

TEST(Hours, AgreeOverSeveralDays)
{
    for (const Fields& fields : kStarts) {
        const ZelDtDateTime start = MakeDateTime(fields);
        for (std::int64_t n = -100; n <= 100; ++n) {
            ExpectAgreement(kAddHour, start, n);
            ExpectAgreement(kSubHour, start, n);
        }
    }
}

TEST(Minutes, AgreeOverSeveralDays)
{
    const std::int64_t step = RunsLong() ? 1 : 7;
    for (const Fields& fields : kStarts) {
        const ZelDtDateTime start = MakeDateTime(fields);
        for (std::int64_t n = -3000; n <= 3000; n += step) {
            ExpectAgreement(kAddMin, start, n);
            ExpectAgreement(kSubMin, start, n);
        }
        for (std::int64_t n = -125; n <= 125; ++n) {
            ExpectAgreement(kAddMin, start, n);
            ExpectAgreement(kSubMin, start, n);
        }
    }
}

TEST(HoursAndMinutes, AgreeForCountsOfAllSizes)
{
    Counts random(1);
    const int counts = RunsLong() ? 50'000 : 1'000;
    for (int i = 0; i < counts; ++i) {
        Fields fields;
        fields.year = random.Draw(CalendarModel::kFirstYear, 4000);
        fields.month = random.Draw(1, 12);
        fields.day = random.Draw(1, CalendarModel::MonthLength(fields.year, fields.month));
        fields.hour = random.Draw(0, 23);
        fields.minute = random.Draw(0, 59);
        fields.second = random.Draw(0, 59);
        const ZelDtDateTime start = MakeDateTime(fields);
        for (const Operation* op : kOperations)
            for (const std::int64_t most : {10'000, 1'000'000})
                ExpectAgreement(*op, start, random.Draw(-most, most));
        // The model walks far into the past year by year.
        if (i % 100 == 0)
            for (const Operation* op : kOperations)
                ExpectAgreement(*op, start, random.Draw(kMinInt, kMaxInt));
    }
}

/// The days that are added are narrowed to 16 bits, those that are borrowed are not.
TEST(HoursAndMinutes, AgreeAroundMultiplesOf16Bits)
{
    for (const Fields& fields :
         {Fields{2000, 1, 1}, Fields{2000, 3, 1, 23, 59, 59}, Fields{8000, 12, 31, 12, 0, 0}}) {
        const ZelDtDateTime start = MakeDateTime(fields);
        for (const std::int64_t days : {32767, 32768, 40000, 65535, 65536, 65537, 98304})
            for (std::int64_t n = 24 * days - 2; n <= 24 * days + 25; ++n) {
                ExpectAgreement(kAddHour, start, n);
                ExpectAgreement(kSubHour, start, -n);
                ExpectAgreement(kSubHour, start, n);
                ExpectAgreement(kAddMin, start, 60 * n);
                ExpectAgreement(kSubMin, start, 60 * n + 59);
            }
    }
}

struct HourRow {
    Fields start;
    const Operation* op;
    std::int64_t count;
    Fields after;
};

void ExpectResults(const std::vector<HourRow>& rows)
{
    for (const HourRow& row : rows) {
        ZelDtDateTime value = MakeDateTime(row.start);
        row.op->run(value, row.count);
        EXPECT_EQ(FieldsIn(value), row.after) << row.start << ' ' << *row.op << ' ' << row.count;
    }
}

TEST(HoursAndMinutes, Examples)
{
    ExpectResults({
        {{2000, 1, 1, 23, 0, 0}, &kAddHour, 25, {2000, 1, 3, 0, 0, 0}},
        {{2000, 1, 1, 23, 0, 0}, &kAddHour, 0, {2000, 1, 1, 23, 0, 0}},
        {{2000, 1, 1, 22, 10, 9}, &kAddHour, 1, {2000, 1, 1, 23, 10, 9}},
        {{1999, 12, 31, 23, 10, 9}, &kAddHour, 1, {2000, 1, 1, 0, 10, 9}},
        {{2000, 1, 1, 0, 10, 9}, &kSubHour, 1, {1999, 12, 31, 23, 10, 9}},
        {{2000, 1, 1, 1, 10, 9}, &kSubHour, 1, {2000, 1, 1, 0, 10, 9}},
        {{2000, 1, 2, 0, 0, 0}, &kSubHour, 24, {2000, 1, 1, 0, 0, 0}},
        {{2000, 1, 2, 0, 0, 0}, &kSubHour, 25, {1999, 12, 31, 23, 0, 0}},
        {{2000, 1, 2, 0, 0, 0}, &kAddHour, -25, {1999, 12, 31, 23, 0, 0}},
        {{2000, 1, 2, 0, 0, 0}, &kSubHour, -25, {2000, 1, 3, 1, 0, 0}},
        {{2000, 1, 1, 10, 59, 0}, &kAddMin, 61, {2000, 1, 1, 12, 0, 0}},
        {{2000, 1, 1, 10, 59, 58}, &kAddMin, 1, {2000, 1, 1, 11, 0, 58}},
        {{1999, 12, 31, 23, 59, 59}, &kAddMin, 1, {2000, 1, 1, 0, 0, 59}},
        {{2000, 1, 1, 0, 0, 59}, &kSubMin, 1, {1999, 12, 31, 23, 59, 59}},
        {{2000, 1, 1, 12, 0, 0}, &kSubMin, 61, {2000, 1, 1, 10, 59, 0}},
        {{2000, 1, 1, 12, 0, 0}, &kSubMin, 60, {2000, 1, 1, 11, 0, 0}},
        {{2000, 1, 1, 12, 0, 0}, &kAddMin, -1441, {1999, 12, 31, 11, 59, 0}},
        {{2000, 1, 1, 12, 0, 0}, &kSubMin, -1441, {2000, 1, 2, 12, 1, 0}},
        {{1753, 1, 2, 0, 0, 0}, &kSubMin, 1440, {1753, 1, 1, 0, 0, 0}},
    });
}

TEST(HoursAndMinutes, WholeDaysAreNarrowedTo16Bits)
{
    ExpectResults({
        {{2000, 1, 1}, &kAddHour, 24 * 32767, {2089, 9, 17}},
        {{2000, 1, 1}, &kAddHour, 24 * 65536, {2000, 1, 1}},
        {{2000, 1, 1}, &kAddHour, 24 * 65536 + 23, {2000, 1, 1, 23, 0, 0}},
        {{2000, 1, 1}, &kAddHour, 24 * 65537, {2000, 1, 2}},
        {{2000, 1, 1}, &kAddHour, 24 * 65535, {1999, 12, 31}},
        {{2000, 1, 1, 1, 0, 0}, &kAddHour, 24 * 65535, {1999, 12, 31, 1, 0, 0}},
        // 365 days less, from 1 March of the year after a leap year: 29 February.
        {{2001, 3, 1}, &kAddHour, 24 * (65536 - 365), {2000, 2, 29}},
        {{2000, 1, 1}, &kAddMin, 1440 * 65536 + 1, {2000, 1, 1, 0, 1, 0}},
        {{2000, 1, 1}, &kSubHour, -24 * 65536, {2000, 1, 1}},
        // What is borrowed is not narrowed: 32768 days lie between these dates.
        {{2089, 9, 18}, &kSubHour, 24 * 32768, {2000, 1, 1}},
    });
    ZelDtDateTime value = MakeDateTime({1800, 1, 1});
    EXPECT_TRUE(FailsWithFault([&] { value.AddHour(24 * 32768); }, kAddHour,
                               Fault{27, "SubDay365(SHORT)"}));
}

TEST(HoursAndMinutes, TheLargestCounts)
{
    // Both 2^31 and 2^63 hours are a number of days that ends in 5555 (hexadecimal) and 8 hours;
    // 21845 days from 1 January 2000 lead to 23 October 2059.
    ExpectResults({
        {{2000, 1, 1}, &kAddHour, kMaxLong, {2059, 10, 23, 7, 0, 0}},
        {{2000, 1, 1, 23, 1, 2}, &kAddHour, kMaxLong, {2059, 10, 24, 6, 1, 2}},
        {{2000, 1, 1}, &kSubHour, kMinLong, {2059, 10, 23, 8, 0, 0}},
        {{2000, 1, 1}, &kSubHour, -kMaxLong, {2059, 10, 23, 7, 0, 0}},
    });
    const ZelDtDateTime start = MakeDateTime({5000, 1, 1, 23, 59, 59});
    EXPECT_TRUE(Agrees(kAddMin, start, kMaxLong));
    EXPECT_TRUE(Agrees(kSubMin, start, kMinLong));
    EXPECT_TRUE(Agrees(kSubMin, start, -kMaxLong));
    // 2^31 minutes are 1491308 days, 49516 without what 16 bits do not hold: 16020 less than none.
    if (sizeof(long) == 4)
        ExpectResults({{{2000, 1, 1}, &kAddMin, kMaxLong, {1956, 2, 21, 2, 7, 0}}});
}

/// So far back is no year that the class has, nor, where a long is wide, one that the field holds.
TEST(HoursAndMinutes, TheLargestCountsBackwards)
{
    struct Row {
        const Operation* op;
        std::int64_t count;
    };
    for (const Row& row : {Row{&kSubHour, kMaxLong}, Row{&kAddHour, kMinLong},
                           Row{&kSubMin, kMaxLong}, Row{&kAddMin, kMinLong}}) {
        const Fields fields{2000, 3, 1, 5, 6, 7};
        ZelDtDateTime value = MakeDateTime(fields);
        const Caught caught = Catch([&] { row.op->run(value, row.count); });
        EXPECT_EQ(caught.error.number, 1U) << *row.op << caught.disturbance;
        EXPECT_EQ(caught.error.signature.rfind(row.op->name, 0), 0U) << caught.error;
        EXPECT_EQ(caught.leaked, 0U);
        EXPECT_TRUE(caught.first.number == 27 || (sizeof(long) == 8 && caught.first.number == 8))
            << caught.first;
        EXPECT_EQ(value.IsModified(), FieldsIn(value) == fields ? 0 : 1) << *row.op;
        EXPECT_EQ(value.IsDefined(), 1) << *row.op;
    }
}

/// Hours and minutes stay when the days cannot be borrowed.
TEST(HoursAndMinutes, BeforeTheFirstYearTheDateIsKeptAndReported)
{
    const Fault tooEarly{27, ""};
    struct Row {
        const Operation* op;
        std::int64_t count;
        Fields after;
    };
    const std::vector<Row> rows = {
        {&kSubHour, 6, {1752, 12, 31, 5, 6, 7}},  {&kAddHour, -6, {1752, 12, 31, 5, 6, 7}},
        {&kSubMin, 307, {1752, 12, 31, 5, 6, 7}}, {&kAddMin, -307, {1752, 12, 31, 5, 6, 7}},
        {&kSubHour, 30, {1752, 12, 30, 5, 6, 7}}, {&kSubMin, 1747, {1752, 12, 30, 5, 6, 7}},
    };
    for (const Row& row : rows) {
        ZelDtDateTime value = MakeDateTime({1753, 1, 1, 5, 6, 7});
        EXPECT_TRUE(FailsWithFault([&] { row.op->run(value, row.count); }, *row.op, tooEarly))
            << *row.op << ' ' << row.count;
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after}))
            << *row.op << ' ' << row.count;
    }
    ExpectResults({{{1753, 1, 1, 5, 6, 7}, &kSubHour, 5, {1753, 1, 1, 0, 6, 7}},
                   {{1753, 1, 1, 5, 6, 7}, &kSubMin, 306, {1753, 1, 1, 0, 0, 7}}});
}

TEST(HoursAndMinutesInEveryState, MakeDefinedAndMarkChanges)
{
    for (const State& state : ReadableStates()) {
        const ZelDtDateTime start = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        ASSERT_EQ(Look(start), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
        for (const Operation* op : kOperations)
            for (const std::int64_t n : {0, 1, -1, 24, -24, 1440, -1440, 50'000, -50'000}) {
                EXPECT_TRUE(Agrees(*op, start, n)) << state;
                ZelDtDateTime value(start);
                op->run(value, n);
                EXPECT_EQ(StateOf(value),
                          (State{state.mode, 1, state.modified || !state.defined || n != 0}))
                    << *op << ' ' << n;
            }
    }
}

TEST(HoursAndMinutesInEveryState, MissingIsAnError)
{
    for (const State& state : MissingStates()) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 1, 1, 2, 3}, state);
        for (const Operation* op : kOperations)
            for (const std::int64_t n : {std::int64_t{0}, std::int64_t{1}, std::int64_t{-1},
                                         std::int64_t{kMaxLong}, std::int64_t{kMinLong}})
                EXPECT_TRUE(FailsLike([&] { op->run(value, n); }, FunctionError(2, op->signature)))
                    << *op << ' ' << n;
        EXPECT_EQ(Look(value), (Moment{state, {2000, 3, 1, 1, 2, 3}}));
    }
}

/// Counting on in steps is the same as at once as long as nothing is narrowed.
TEST(HoursAndMinutes, AddUp)
{
    ZelDtDateTime steps = MakeDateTime({1999, 12, 31, 22, 58, 57});
    for (int i = 0; i < 10'000; ++i)
        steps.AddMin(13);
    ZelDtDateTime atOnce = MakeDateTime({1999, 12, 31, 22, 58, 57});
    atOnce.AddMin(130'000);
    EXPECT_EQ(FieldsIn(steps), FieldsIn(atOnce));
    // 130000 minutes are 90 days, 6 hours and 40 minutes; the year 2000 has 31 + 29 + 31 days to
    // the end of March.
    EXPECT_EQ(FieldsIn(atOnce), (Fields{2000, 3, 31, 5, 38, 57}));
}

} // namespace
