// COleDateTime and COleDateTimeSpan.

#include "platform/framework/fwoledt.h"

#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct MomentRow {
    int year, month, day, hour, minute, second;
    double serial;
    int dayOfWeek, dayOfYear;
};

// 30 December 1899, a Saturday, is serial 0.
const MomentRow kMoments[] = {
    {1899, 12, 30, 0, 0, 0, 0, 7, 364},       {1899, 12, 30, 6, 0, 0, 0.25, 7, 364},
    {1899, 12, 31, 0, 0, 0, 1, 1, 365},       {1899, 12, 29, 0, 0, 0, -1, 6, 363},
    {1899, 12, 29, 6, 0, 0, -1.25, 6, 363},   {1899, 12, 29, 18, 0, 0, -1.75, 6, 363},
    {1900, 2, 28, 0, 0, 0, 60, 4, 59},        {1900, 3, 1, 0, 0, 0, 61, 5, 60},
    {2000, 1, 1, 0, 0, 0, 36526, 7, 1},       {2000, 2, 29, 12, 0, 0, 36585.5, 3, 60},
    {2000, 12, 31, 0, 0, 0, 36891, 1, 366},   {2001, 12, 31, 0, 0, 0, 37256, 2, 365},
    {100, 1, 1, 0, 0, 0, -657434, 6, 1},      {100, 1, 1, 12, 0, 0, -657434.5, 6, 1},
    {9999, 12, 31, 0, 0, 0, 2958465, 6, 365}, {9999, 12, 31, 18, 0, 0, 2958465.75, 6, 365},
};

void ExpectFields(const COleDateTime& date, const MomentRow& row)
{
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.GetYear(), row.year);
    EXPECT_EQ(date.GetMonth(), row.month);
    EXPECT_EQ(date.GetDay(), row.day);
    EXPECT_EQ(date.GetHour(), row.hour);
    EXPECT_EQ(date.GetMinute(), row.minute);
    EXPECT_EQ(date.GetSecond(), row.second);
    EXPECT_EQ(date.GetDayOfWeek(), row.dayOfWeek);
    EXPECT_EQ(date.GetDayOfYear(), row.dayOfYear);
}

void ExpectNoFields(const COleDateTime& date)
{
    EXPECT_EQ(date.GetYear(), COleDateTime::error);
    EXPECT_EQ(date.GetMonth(), COleDateTime::error);
    EXPECT_EQ(date.GetDay(), COleDateTime::error);
    EXPECT_EQ(date.GetHour(), COleDateTime::error);
    EXPECT_EQ(date.GetMinute(), COleDateTime::error);
    EXPECT_EQ(date.GetSecond(), COleDateTime::error);
    EXPECT_EQ(date.GetDayOfWeek(), COleDateTime::error);
    EXPECT_EQ(date.GetDayOfYear(), -1);
    SYSTEMTIME fields = {1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_FALSE(date.GetAsSystemTime(fields));
    EXPECT_EQ(fields.wYear, 1);
    EXPECT_EQ(fields.wMilliseconds, 8);
}

TEST(OleDateTimeFields, MakeTheSerialAndComeBack)
{
    for (const MomentRow& row : kMoments) {
        SCOPED_TRACE(row.serial);
        const COleDateTime date(row.year, row.month, row.day, row.hour, row.minute, row.second);
        EXPECT_EQ(date.m_dt, row.serial);
        EXPECT_EQ(static_cast<DATE>(date), row.serial);
        ExpectFields(date, row);
        ExpectFields(COleDateTime(row.serial), row);
    }
}

TEST(OleDateTimeFields, TravelThroughSystemTime)
{
    for (const MomentRow& row : kMoments) {
        SCOPED_TRACE(row.serial);
        SYSTEMTIME fields = {1, 1, 1, 1, 1, 1, 1, 1};
        ASSERT_TRUE(COleDateTime(row.serial).GetAsSystemTime(fields));
        EXPECT_EQ(fields.wYear, row.year);
        EXPECT_EQ(fields.wDayOfWeek, row.dayOfWeek - 1);
        EXPECT_EQ(fields.wMilliseconds, 0);
        fields.wMilliseconds = 999;
        ExpectFields(COleDateTime(fields), row);
        COleDateTime assigned(5.0);
        assigned = fields;
        EXPECT_EQ(assigned.m_dt, row.serial);
    }
}

TEST(OleDateTimeFields, EverySecondOfADaySurvives)
{
    for (const int day : {-400, 0, 36526}) {
        const COleDateTime midnight(static_cast<double>(day));
        for (int second = 0; second < 86400; second += 7) {
            COleDateTime date;
            ASSERT_EQ(date.SetDateTime(midnight.GetYear(), midnight.GetMonth(), midnight.GetDay(),
                                       second / 3600, second / 60 % 60, second % 60),
                      COleDateTime::valid);
            ASSERT_EQ(date.GetDay(), midnight.GetDay());
            ASSERT_EQ(date.GetHour() * 3600 + date.GetMinute() * 60 + date.GetSecond(), second);
        }
    }
}

TEST(OleDateTimeFields, RoundToTheNearestSecond)
{
    EXPECT_EQ(COleDateTime(0.499 / 86400).GetSecond(), 0);
    EXPECT_EQ(COleDateTime(0.501 / 86400).GetSecond(), 1);
    // The last half second of 30 December belongs to Sunday, 31 December.
    ExpectFields(COleDateTime(86399.6 / 86400), {1899, 12, 31, 0, 0, 0, 0, 1, 365});
    // 86399.6 seconds after the beginning of 29 December.
    ExpectFields(COleDateTime(-1 - 86399.6 / 86400), {1899, 12, 30, 0, 0, 0, 0, 7, 364});
}

TEST(OleDateTimeRange, EndsWithTheYears100And9999)
{
    ExpectFields(COleDateTime(2958465 + 86399.4 / 86400), {9999, 12, 31, 23, 59, 59, 0, 6, 365});
    ExpectFields(COleDateTime(-657434 - 86399.4 / 86400), {100, 1, 1, 23, 59, 59, 0, 6, 1});
    for (const double serial : {2958465 + 86399.6 / 86400, 2958466.0, 1e300, -657435.0, -657435.5,
                                -1e300, kInfinity, -kInfinity, kNaN}) {
        SCOPED_TRACE(serial);
        const COleDateTime date(serial);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        ExpectNoFields(date);
        // The status alone does not make such a date readable.
        COleDateTime forced = date;
        forced.SetStatus(COleDateTime::valid);
        ExpectNoFields(forced);
    }
}

TEST(OleDateTimeStatus, DefaultIsTheZeroDay)
{
    const COleDateTime date;
    EXPECT_EQ(date.m_dt, 0);
    EXPECT_EQ(date.m_status, COleDateTime::valid);
}

TEST(OleDateTimeStatus, OtherThanValidHidesTheFields)
{
    EXPECT_EQ(COleDateTime::valid, 0);
    EXPECT_EQ(COleDateTime::invalid, 1);
    EXPECT_EQ(COleDateTime::null, 2);
    for (const auto status : {COleDateTime::invalid, COleDateTime::null}) {
        COleDateTime date(36526.5);
        date.SetStatus(status);
        EXPECT_EQ(date.GetStatus(), status);
        EXPECT_EQ(date.m_dt, 36526.5);
        ExpectNoFields(date);
        date.SetStatus(COleDateTime::valid);
        EXPECT_EQ(date.GetYear(), 2000);
    }
}

struct FieldsRow {
    int year, month, day, hour, minute, second;
};

TEST(RejectedFields, MakeTheStatusInvalidAndKeepTheDate)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    const FieldsRow rows[] = {
        {2001, 2, 29, 0, 0, 0},      {2000, 2, 30, 0, 0, 0}, {1900, 2, 29, 0, 0, 0},
        {2001, 4, 31, 0, 0, 0},      {2001, 1, 32, 0, 0, 0}, {2001, 1, 0, 0, 0, 0},
        {2001, 0, 1, 0, 0, 0},       {2001, 13, 1, 0, 0, 0}, {99, 12, 31, 0, 0, 0},
        {10000, 1, 1, 0, 0, 0},      {2001, 1, 1, 24, 0, 0}, {2001, 1, 1, 0, 60, 0},
        {2001, 1, 1, 0, 0, 60},      {2001, 1, 1, -1, 0, 0}, {2001, 1, 1, 0, -1, 0},
        {2001, 1, 1, 0, 0, -1},      {-1, 1, 1, 0, 0, 0},    {0, 1, 1, 0, 0, 0},
        {2001, -1, 1, 0, 0, 0},      {2001, 1, -1, 0, 0, 0}, {kMax, kMax, kMax, kMax, kMax, kMax},
        {kMin, kMin, kMin, 0, 0, 0},
    };
    for (const FieldsRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(
            std::vector<int>{row.year, row.month, row.day, row.hour, row.minute, row.second}));
        COleDateTime date(36526.5);
        EXPECT_EQ(date.SetDateTime(row.year, row.month, row.day, row.hour, row.minute, row.second),
                  COleDateTime::invalid);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(date.m_dt, 36526.5);
        const COleDateTime made(row.year, row.month, row.day, row.hour, row.minute, row.second);
        EXPECT_EQ(made.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(made.m_dt, 0);
    }
}

TEST(RejectedFields, AreRejectedInSystemTimesToo)
{
    const SYSTEMTIME rows[] = {
        {2001, 2, 0, 29, 0, 0, 0, 0},
        {2001, 2, 0, 0, 0, 0, 0, 0},
        {0, 0, 0, 0, 0, 0, 0, 0},
        {65535, 65535, 65535, 65535, 65535, 65535, 65535, 65535},
    };
    for (const SYSTEMTIME& row : rows)
        EXPECT_EQ(COleDateTime(row).GetStatus(), COleDateTime::invalid);
}

TEST(OleDateTimeFields, SetDateAndSetTimeSetTheOtherHalfToZero)
{
    COleDateTime date(36526.5);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(date.SetDate(1899, 12, 31), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 1);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(date.SetTime(18, 0, 0), COleDateTime::valid);
    EXPECT_EQ(date.m_dt, 0.75);
    EXPECT_EQ(date.SetTime(24, 0, 0), COleDateTime::invalid);
    EXPECT_EQ(date.SetDate(1899, 11, 31), COleDateTime::invalid);
    EXPECT_EQ(date.m_dt, 0.75);
}

TEST(OleDateTimeFromClock, IsTheLocalTime)
{
    // 86400 * 10957 seconds after 1970 it is 1 January 2000 in Greenwich, and within 14 hours of
    // that everywhere.
    const COleDateTime date(static_cast<time_t>(946684800));
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    EXPECT_NEAR(date.m_dt, 36526, 14 / 24.0 + 1e-6);

    const time_t before = std::time(nullptr);
    const COleDateTime now = COleDateTime::GetCurrentTime();
    const time_t after = std::time(nullptr);
    EXPECT_GE(now, COleDateTime(before));
    EXPECT_LE(now, COleDateTime(after));
    COleDateTime assigned;
    assigned = before;
    EXPECT_TRUE(assigned == COleDateTime(before));
}

TEST(OleDateTimeFromClock, RejectsWhatTheCalendarDoesNotReach)
{
    for (const time_t moment :
         {std::numeric_limits<time_t>::max(), std::numeric_limits<time_t>::min(),
          static_cast<time_t>(400'000'000'000)})
        EXPECT_EQ(COleDateTime(moment).GetStatus(), COleDateTime::invalid);
}

TEST(OleDateTimeOrder, FollowsTimeAlsoBeforeTheZeroDay)
{
    // Each serial later than the one before it.
    const double rows[] = {-657434, -657434.5, -2.75, -1, -1.25, -1.75, 0, 0.25, 1, 1.5, 2958465.5};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        for (std::size_t j = 0; j < std::size(rows); ++j) {
            SCOPED_TRACE(testing::PrintToString(std::vector<double>{rows[i], rows[j]}));
            const COleDateTime left(rows[i]);
            const COleDateTime right(rows[j]);
            EXPECT_EQ(left < right, i < j);
            EXPECT_EQ(left > right, i > j);
            EXPECT_EQ(left <= right, i <= j);
            EXPECT_EQ(left >= right, i >= j);
            EXPECT_EQ(left == right, i == j);
            EXPECT_EQ(left != right, i != j);
        }
    }
}

TEST(OleDateTimeOrder, EqualityConsidersTheStatus)
{
    const COleDateTime one(1.0);
    COleDateTime null1(1.0);
    null1.SetStatus(COleDateTime::null);
    COleDateTime null2(2.0);
    null2.SetStatus(COleDateTime::null);
    const COleDateTime invalid(1e300);
    EXPECT_TRUE(null1 == null2);
    EXPECT_FALSE(null1 != null2);
    EXPECT_TRUE(one != null1);
    EXPECT_TRUE(invalid != null1);
    EXPECT_TRUE(invalid == COleDateTime(-1e300));
}

struct SumRow {
    double date;
    double span;
    double sum;
};

// What `date` plus `span` is; an infinity stands for an invalid result.
const SumRow kSums[] = {
    {0, 0, 0},
    {0, 1.5, 1.5},
    {1, -1.25, -1.75}, // 29 December, 18:00
    {-1.75, 0.25, 0},
    {-1.25, 0.25, -1.5},
    {-1.25, -0.5, -2.75},
    {-2.5, 3, 1.5},
    {0, 2958465.75, 2958465.75},
    {0, 2958466, kInfinity},
    {2958465.75, 0.25, kInfinity},
    {0, -657434, -657434},
    {0, -657434.25, kInfinity},
    {-657434, -0.25, kInfinity},
    {-657434, 3615899, 2958465},
};

TEST(OleDateTimeArithmetic, AddsAndTakesAwaySpans)
{
    for (const SumRow& row : kSums) {
        SCOPED_TRACE(testing::PrintToString(std::vector<double>{row.date, row.span}));
        const COleDateTime date(row.date);
        const COleDateTime sum = date + COleDateTimeSpan(row.span);
        const COleDateTime difference = date - COleDateTimeSpan(-row.span);
        COleDateTime moved = date;
        moved += COleDateTimeSpan(row.span);
        COleDateTime movedBack = date;
        movedBack -= COleDateTimeSpan(-row.span);
        if (row.sum == kInfinity) {
            EXPECT_EQ(sum.GetStatus(), COleDateTime::invalid);
            EXPECT_EQ(difference.GetStatus(), COleDateTime::invalid);
        } else {
            EXPECT_EQ(sum.GetStatus(), COleDateTime::valid);
            EXPECT_EQ(sum.m_dt, row.sum);
            EXPECT_EQ(difference.m_dt, row.sum);
            EXPECT_EQ((sum - date).m_span, row.span);
            EXPECT_EQ((date - sum).m_span, -row.span);
            EXPECT_EQ((sum - date).GetStatus(), COleDateTimeSpan::valid);
        }
        EXPECT_TRUE(moved == sum);
        EXPECT_TRUE(movedBack == difference);
    }
}

TEST(OleDateTimeArithmetic, AHairBeforeMidnightIsMidnight)
{
    const COleDateTime date = COleDateTime(0.0) - COleDateTimeSpan(1e-20);
    EXPECT_EQ(date.m_dt, 0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
}

TEST(OleDateTimeArithmetic, NullComesBeforeInvalid)
{
    const COleDateTime dates[] = {COleDateTime(1.0), COleDateTime(1e300), [] {
                                      COleDateTime date;
                                      date.SetStatus(COleDateTime::null);
                                      return date;
                                  }()};
    for (const COleDateTime& date : dates) {
        for (const COleDateTime& other : dates) {
            COleDateTimeSpan span(1.0);
            span.SetStatus(static_cast<COleDateTimeSpan::DateTimeSpanStatus>(other.m_status));
            // The statuses are numbered in the order of their strength.
            const int expected = std::max<int>(date.m_status, other.m_status);
            EXPECT_EQ((date + span).m_status, expected);
            EXPECT_EQ((date - span).m_status, expected);
            EXPECT_EQ((date - other).m_status, expected);
            COleDateTimeSpan left(1.0);
            left.SetStatus(static_cast<COleDateTimeSpan::DateTimeSpanStatus>(date.m_status));
            EXPECT_EQ((left + span).m_status, expected);
            EXPECT_EQ((left - span).m_status, expected);
        }
    }
}

struct PartsRow {
    LONG days;
    int hours, minutes, seconds;
    double span;
    LONG gotDays, gotHours, gotMinutes, gotSeconds;
};

TEST(OleDateTimeSpanParts, AddUpAndComeBack)
{
    const PartsRow rows[] = {
        {0, 0, 0, 0, 0, 0, 0, 0, 0},
        {1, 12, 0, 0, 1.5, 1, 12, 0, 0},
        {-1, -12, 0, 0, -1.5, -1, -12, 0, 0},
        {1, -12, 0, 0, 0.5, 0, 12, 0, 0},
        {0, 36, 0, 0, 1.5, 1, 12, 0, 0},
        {0, 0, 0, 86399, 86399 / 86400.0, 0, 23, 59, 59},
        {0, 0, 0, -86399, -86399 / 86400.0, 0, -23, -59, -59},
        {3615899, 23, 59, 59, 3615899 + 86399 / 86400.0, 3615899, 23, 59, 59},
        {-3615899, -23, -59, -59, -(3615899 + 86399 / 86400.0), -3615899, -23, -59, -59},
        // The largest int of each part: 2147483647 hours are 89478485 days, out of range, and
        // brought back by as many days.
        {-89478485, std::numeric_limits<int>::max(), 0, 0, 7 / 24.0, 0, 7, 0, 0},
    };
    for (const PartsRow& row : rows) {
        SCOPED_TRACE(row.span);
        const COleDateTimeSpan span(row.days, row.hours, row.minutes, row.seconds);
        EXPECT_EQ(span.GetStatus(), COleDateTimeSpan::valid);
        EXPECT_DOUBLE_EQ(span.m_span, row.span);
        EXPECT_EQ(span.GetDays(), row.gotDays);
        EXPECT_EQ(span.GetHours(), row.gotHours);
        EXPECT_EQ(span.GetMinutes(), row.gotMinutes);
        EXPECT_EQ(span.GetSeconds(), row.gotSeconds);
    }
}

TEST(OleDateTimeSpanParts, AreRoundedToTheSecond)
{
    const COleDateTimeSpan span(1 - 0.4 / 86400);
    EXPECT_EQ(span.GetDays(), 1);
    EXPECT_EQ(span.GetHours(), 0);
    EXPECT_EQ(span.GetSeconds(), 0);
}

TEST(OleDateTimeSpanParts, TotalsKeepTheFraction)
{
    const COleDateTimeSpan span(-1.25);
    EXPECT_EQ(span.GetTotalDays(), -1.25);
    EXPECT_EQ(span.GetTotalHours(), -30);
    EXPECT_EQ(span.GetTotalMinutes(), -1800);
    EXPECT_EQ(span.GetTotalSeconds(), -108000);
    EXPECT_EQ(static_cast<double>(span), -1.25);
}

TEST(OleDateTimeSpanRange, IsTheDistanceOfTwoDates)
{
    constexpr LONG kMax = std::numeric_limits<LONG>::max();
    constexpr LONG kMin = std::numeric_limits<LONG>::min();
    for (const double days : {3615900.0, -3615900.0, 1e300, kInfinity, -kInfinity, kNaN}) {
        const COleDateTimeSpan span(days);
        EXPECT_EQ(span.GetStatus(), COleDateTimeSpan::invalid) << days;
        EXPECT_EQ(span.GetDays(), 0) << days;
        EXPECT_EQ(span.GetSeconds(), 0) << days;
    }
    EXPECT_EQ(COleDateTimeSpan(3615900, 0, 0, 0).GetStatus(), COleDateTimeSpan::invalid);
    EXPECT_EQ(COleDateTimeSpan(kMax, kMax, kMax, kMax).GetStatus(), COleDateTimeSpan::invalid);
    EXPECT_EQ(COleDateTimeSpan(kMin, kMin, kMin, kMin).GetStatus(), COleDateTimeSpan::invalid);
    const COleDateTimeSpan most(3615899.5);
    EXPECT_EQ(most.GetStatus(), COleDateTimeSpan::valid);
    EXPECT_EQ((most + COleDateTimeSpan(0.5)).GetStatus(), COleDateTimeSpan::invalid);
    EXPECT_EQ((-most - COleDateTimeSpan(0.5)).GetStatus(), COleDateTimeSpan::invalid);
    COleDateTimeSpan span(1e300);
    span = 2.5;
    EXPECT_EQ(span.GetStatus(), COleDateTimeSpan::valid);
    EXPECT_EQ(span.m_span, 2.5);
}

TEST(OleDateTimeSpanArithmetic, IsThatOfNumbers)
{
    COleDateTimeSpan span(1.5);
    span += COleDateTimeSpan(0.25);
    EXPECT_EQ(span.m_span, 1.75);
    span -= COleDateTimeSpan(2.0);
    EXPECT_EQ(span.m_span, -0.25);
    EXPECT_EQ((-span).m_span, 0.25);
    span.SetStatus(COleDateTimeSpan::null);
    EXPECT_EQ((-span).GetStatus(), COleDateTimeSpan::null);
}

TEST(OleDateTimeSpanOrder, IsThatOfNumbers)
{
    const double rows[] = {-2.5, -1, 0, 0.5, 3};
    for (const double left : rows) {
        for (const double right : rows) {
            const COleDateTimeSpan a(left);
            const COleDateTimeSpan b(right);
            EXPECT_EQ(a < b, left < right);
            EXPECT_EQ(a > b, left > right);
            EXPECT_EQ(a <= b, left <= right);
            EXPECT_EQ(a >= b, left >= right);
            EXPECT_EQ(a == b, left == right);
            EXPECT_EQ(a != b, left != right);
        }
    }
    COleDateTimeSpan null1(1.0);
    null1.SetStatus(COleDateTimeSpan::null);
    COleDateTimeSpan null2(2.0);
    null2.SetStatus(COleDateTimeSpan::null);
    EXPECT_TRUE(null1 == null2);
    EXPECT_TRUE(null1 != COleDateTimeSpan(1.0));
}

template <class Value>
std::string Stored(const Value& value)
{
    return Archived([&](CArchive& ar) { ar << value; });
}

/// Reads a value; the cause of the archive exception, if any.
template <class Value>
int Load(std::string_view bytes, Value& value)
{
    return ArchiveCause([&] { ReadArchive(bytes, [&](CArchive& ar) { ar >> value; }); });
}

// -1.25 is 1.25 * 2^0 with sign: BFF4 0000 0000 0000.
constexpr std::string_view kBytes{"\0\0\0\0"
                                  "\0\0\0\0\0\0\xF4\xBF",
                                  12};

TEST(OleDateTimeArchive, HoldsStatusAndSerial)
{
    EXPECT_EQ(Hex(Stored(COleDateTime(-1.25))), "00 00 00 00 00 00 00 00 00 00 F4 BF");
    EXPECT_EQ(Hex(Stored(COleDateTimeSpan(-1.25))), "00 00 00 00 00 00 00 00 00 00 F4 BF");
    COleDateTime null;
    null.SetStatus(COleDateTime::null);
    EXPECT_EQ(Hex(Stored(null)), "02 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(OleDateTimeArchive, ComesBack)
{
    for (const auto status : {COleDateTime::valid, COleDateTime::invalid, COleDateTime::null}) {
        COleDateTime date(36526.75);
        date.SetStatus(status);
        COleDateTime loaded(1.0);
        EXPECT_EQ(Load(Stored(date), loaded), kNoException);
        EXPECT_EQ(loaded.m_dt, 36526.75);
        EXPECT_EQ(loaded.m_status, status);
    }
    COleDateTimeSpan span;
    EXPECT_EQ(Load(kBytes, span), kNoException);
    EXPECT_EQ(span.m_span, -1.25);
}

TEST(OleDateTimeArchive, CutOffBytesLeaveTheDateAlone)
{
    for (std::size_t length = 0; length < kBytes.size(); ++length) {
        COleDateTime date(36526.75);
        EXPECT_EQ(Load(kBytes.substr(0, length), date), CArchiveException::endOfFile);
        EXPECT_EQ(date.m_dt, 36526.75);
        EXPECT_EQ(date.m_status, COleDateTime::valid);
    }
}

TEST(OleDateTimeArchive, RejectsOtherStatuses)
{
    for (const char* status : {"\x03\0\0\0", "\xFF\xFF\xFF\xFF", "\0\0\0\x80"}) {
        const std::string bytes = std::string(status, 4) + std::string(8, '\0');
        COleDateTime date(36526.75);
        EXPECT_EQ(Load(bytes, date), CArchiveException::genericException) << Hex(bytes);
        EXPECT_EQ(date.m_dt, 36526.75);
    }
}

TEST(OleDateTimeArchive, ValidOutsideTheRangeBecomesInvalid)
{
    for (const double number : {kNaN, kInfinity, 4e6, -4e6}) {
        const std::string bytes = Archived([&](CArchive& ar) { ar << LONG{0} << number; });
        COleDateTime date(36526.75);
        EXPECT_EQ(Load(bytes, date), kNoException);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        COleDateTimeSpan span;
        EXPECT_EQ(Load(bytes, span), kNoException);
        EXPECT_EQ(span.GetStatus(), COleDateTimeSpan::invalid);
    }
}

} // namespace
