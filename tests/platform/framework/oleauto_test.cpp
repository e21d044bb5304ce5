// OLE automation conversions: the system's own on Windows, the framework library's elsewhere.
// Every row holds on both.

#include "platform/framework/fwoleauto.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr LONGLONG kMax = std::numeric_limits<LONGLONG>::max();
constexpr LONGLONG kMin = std::numeric_limits<LONGLONG>::min();

CY Cy(LONGLONG count)
{
    CY cy;
    cy.int64 = count;
    return cy;
}

struct CountRow {
    double number;
    LONGLONG count;
};

TEST(CurrencyFromNumber, RoundsTheExactProductWithTiesToEven)
{
    const CountRow rows[] = {
        {0, 0},
        {-0.0, 0},
        {1, 10000},
        {-1, -10000},
        {12.34, 123400},
        {-12.34, -123400},
        // 1/32, 3/32 and 5/32 are exact: 312.5, 937.5 and 1562.5 counts.
        {0.03125, 312},
        {0.09375, 938},
        {0.15625, 1562},
        {-0.03125, -312},
        {-0.09375, -938},
        {-0.15625, -1562},
        // The nearest doubles lie above 0.00005 and 0.00025 and below 0.00015.
        {0.00005, 1},
        {-0.00005, -1},
        {0.00015, 1},
        {0.00025, 3},
        {0.00004, 0},
        {-0.00004, 0},
        {5e-324, 0},
        // 2^39 and a half thousandth: 5497558138880000 counts and 5.
        {549755813888.0005, 5497558138880005},
        // Beyond 2^49 doubles are an eighth apart: 1250 counts.
        {922337203685477.375, 9223372036854773750},
        {922337203685477.5, 9223372036854775000},
        {-922337203685477.5, -9223372036854775000},
    };
    for (const CountRow& row : rows) {
        SCOPED_TRACE(row.number);
        CY fromNumber = Cy(7);
        EXPECT_EQ(VarCyFromR8(row.number, &fromNumber), S_OK);
        EXPECT_EQ(fromNumber.int64, row.count);
        CY fromDate = Cy(7);
        EXPECT_EQ(VarCyFromDate(row.number, &fromDate), S_OK);
        EXPECT_EQ(fromDate.int64, row.count);
    }
}

TEST(CurrencyFromNumber, RejectsWhatItCannotHold)
{
    const double rows[] = {922337203685477.625, -922337203685477.625, 1e15, -1e15, 1e300, -1e300,
                           kInfinity,           -kInfinity,           kNaN};
    for (const double number : rows) {
        SCOPED_TRACE(number);
        CY cy = Cy(7);
        EXPECT_EQ(VarCyFromR8(number, &cy), DISP_E_OVERFLOW);
        EXPECT_EQ(VarCyFromDate(number, &cy), DISP_E_OVERFLOW);
    }
}

TEST(NumberFromCurrency, DividesTheCount)
{
    const CountRow rows[] = {
        {0, 0},
        {0.0001, 1},
        {-0.0001, -1},
        {0.5, 5000},
        {1.2345, 12345},
        {-1.2345, -12345},
        // The count itself becomes a double first: 2^63 and -2^63, a ten-thousandth of which lies
        // nearest to 5/8.
        {922337203685477.625, kMax},
        {-922337203685477.625, kMin},
        // 2^53 + 3 is no double and becomes 2^53 + 4, whose ten-thousandth is 900719925474.0996.
        {900719925474.0996, 9007199254740995},
    };
    for (const CountRow& row : rows) {
        SCOPED_TRACE(row.count);
        double number = 7;
        EXPECT_EQ(VarR8FromCy(Cy(row.count), &number), S_OK);
        EXPECT_EQ(number, row.number);
    }
}

TEST(NumberFromCurrency, ComesBackThroughTheNumber)
{
    // Up to 15 digits a count and its double determine each other.
    for (LONGLONG count = 1; count < 1'000'000'000'000'000; count = count * 7 + 3) {
        for (const LONGLONG signedCount : {count, -count}) {
            double number = 0;
            ASSERT_EQ(VarR8FromCy(Cy(signedCount), &number), S_OK);
            CY cy = Cy(0);
            ASSERT_EQ(VarCyFromR8(number, &cy), S_OK);
            ASSERT_EQ(cy.int64, signedCount);
        }
    }
}

TEST(NumberFromDate, CopiesTheSerial)
{
    for (const double serial : {0.0, -1.25, 36526.75, 2958465.5, -657434.0, 1e300, kInfinity}) {
        double number = 7;
        EXPECT_EQ(VarR8FromDate(serial, &number), S_OK);
        EXPECT_EQ(number, serial);
    }
    double number = 7;
    EXPECT_EQ(VarR8FromDate(kNaN, &number), S_OK);
    EXPECT_NE(number, number);
}

struct FieldsRow {
    double serial;
    WORD year, month, day, hour, minute, second, dayOfWeek;
};

// Serials with the fields they stand for, exactly or to the nearest double. 30 December 1899 was
// a Saturday.
const FieldsRow kMoments[] = {
    {0, 1899, 12, 30, 0, 0, 0, 6},
    {1, 1899, 12, 31, 0, 0, 0, 0},
    {2, 1900, 1, 1, 0, 0, 0, 1},
    {0.25, 1899, 12, 30, 6, 0, 0, 6},
    {-1, 1899, 12, 29, 0, 0, 0, 5},
    // The time of day counts forward before the zero day, too.
    {-1.25, 1899, 12, 29, 6, 0, 0, 5},
    {-1.75, 1899, 12, 29, 18, 0, 0, 5},
    {-2.5, 1899, 12, 28, 12, 0, 0, 4},
    // 1900 had no leap day: serial 60 is 28 February.
    {60, 1900, 2, 28, 0, 0, 0, 3},
    {61, 1900, 3, 1, 0, 0, 0, 4},
    {36526, 2000, 1, 1, 0, 0, 0, 6},
    {36585, 2000, 2, 29, 0, 0, 0, 2},
    {36586, 2000, 3, 1, 0, 0, 0, 3},
    {-657434, 100, 1, 1, 0, 0, 0, 5},
    {-657434.5, 100, 1, 1, 12, 0, 0, 5},
    {2958465, 9999, 12, 31, 0, 0, 0, 5},
    {2958465.75, 9999, 12, 31, 18, 0, 0, 5},
    // 62621 seconds of the day.
    {36526 + 62621 / 86400.0, 2000, 1, 1, 17, 23, 41, 6},
    {-36522 - 62621 / 86400.0, 1800, 1, 1, 17, 23, 41, 3},
};

SYSTEMTIME Fields(const FieldsRow& row)
{
    return {row.year, row.month, row.dayOfWeek, row.day, row.hour, row.minute, row.second, 0};
}

void ExpectFields(const SYSTEMTIME& fields, const FieldsRow& row)
{
    EXPECT_EQ(fields.wYear, row.year);
    EXPECT_EQ(fields.wMonth, row.month);
    EXPECT_EQ(fields.wDay, row.day);
    EXPECT_EQ(fields.wHour, row.hour);
    EXPECT_EQ(fields.wMinute, row.minute);
    EXPECT_EQ(fields.wSecond, row.second);
    EXPECT_EQ(fields.wMilliseconds, 0);
}

TEST(FieldsFromDate, SplitsTheSerial)
{
    for (const FieldsRow& row : kMoments) {
        SCOPED_TRACE(row.serial);
        SYSTEMTIME fields = {1, 1, 1, 1, 1, 1, 1, 1};
        EXPECT_EQ(VariantTimeToSystemTime(row.serial, &fields), TRUE);
        ExpectFields(fields, row);
        EXPECT_EQ(fields.wDayOfWeek, row.dayOfWeek);
    }
}

TEST(FieldsFromDate, RoundsToTheNearestSecond)
{
    const FieldsRow rows[] = {
        {0.499 / 86400, 1899, 12, 30, 0, 0, 0, 6},
        {0.501 / 86400, 1899, 12, 30, 0, 0, 1, 6},
        {59.499 / 86400, 1899, 12, 30, 0, 0, 59, 6},
        {59.501 / 86400, 1899, 12, 30, 0, 1, 0, 6},
        {86399.4 / 86400, 1899, 12, 30, 23, 59, 59, 6},
        // The last half second of a day belongs to the next one.
        {86399.6 / 86400, 1899, 12, 31, 0, 0, 0, 0},
        {-1 - 86399.6 / 86400, 1899, 12, 30, 0, 0, 0, 6},
        {-657434 - 86399.9 / 86400, 100, 1, 2, 0, 0, 0, 6},
        {59 + 86399.9 / 86400, 1900, 2, 28, 0, 0, 0, 3},
    };
    for (const FieldsRow& row : rows) {
        SCOPED_TRACE(row.serial);
        SYSTEMTIME fields = {1, 1, 1, 1, 1, 1, 1, 1};
        EXPECT_EQ(VariantTimeToSystemTime(row.serial, &fields), TRUE);
        ExpectFields(fields, row);
    }
}

TEST(FieldsFromDate, RejectsOtherYears)
{
    for (const double serial :
         {2958466.0, 2958466.5, -657435.0, -657435.5, 1e300, -1e300, kInfinity, -kInfinity}) {
        SCOPED_TRACE(serial);
        SYSTEMTIME fields = {1, 1, 1, 1, 1, 1, 1, 1};
        EXPECT_EQ(VariantTimeToSystemTime(serial, &fields), FALSE);
    }
}

TEST(DateFromFields, JoinsTheFields)
{
    for (const FieldsRow& row : kMoments) {
        SCOPED_TRACE(row.serial);
        SYSTEMTIME fields = Fields(row);
        double serial = 7;
        EXPECT_EQ(SystemTimeToVariantTime(&fields, &serial), TRUE);
        EXPECT_DOUBLE_EQ(serial, row.serial);
    }
}

TEST(DateFromFields, IgnoresDayOfWeekAndMilliseconds)
{
    SYSTEMTIME fields = {2000, 1, 9, 1, 0, 0, 0, 999};
    double serial = 7;
    EXPECT_EQ(SystemTimeToVariantTime(&fields, &serial), TRUE);
    EXPECT_EQ(serial, 36526);
}

TEST(DateFromFields, CountsOnDaysThatTheMonthDoesNotHave)
{
    const FieldsRow rows[] = {
        {36951, 2001, 2, 29, 0, 0, 0, 0}, // 1 March
        {36952, 2001, 2, 30, 0, 0, 0, 0}, // 2 March
        {37012, 2001, 4, 31, 0, 0, 0, 0}, // 1 May
        {36922, 2001, 2, 0, 0, 0, 0, 0},  // 31 January
        {36891, 2001, 1, 0, 0, 0, 0, 0},  // 31 December 2000
        {61, 1900, 2, 29, 0, 0, 0, 0},    // 1 March
    };
    for (const FieldsRow& row : rows) {
        SCOPED_TRACE(row.serial);
        SYSTEMTIME fields = Fields(row);
        double serial = 7;
        EXPECT_EQ(SystemTimeToVariantTime(&fields, &serial), TRUE);
        EXPECT_EQ(serial, row.serial);
    }
}

TEST(DateFromFields, RejectsOtherDaysMonthsAndYears)
{
    const FieldsRow rows[] = {
        {0, 2001, 4, 32, 0, 0, 0, 0}, {0, 2001, 1, 65535, 0, 0, 0, 0},
        {0, 2001, 13, 1, 0, 0, 0, 0}, {0, 2001, 65535, 1, 0, 0, 0, 0},
        {0, 10000, 1, 1, 0, 0, 0, 0}, {0, 65535, 1, 1, 0, 0, 0, 0},
    };
    for (const FieldsRow& row : rows) {
        SYSTEMTIME fields = Fields(row);
        double serial = 7;
        EXPECT_EQ(SystemTimeToVariantTime(&fields, &serial), FALSE)
            << row.year << '-' << row.month << '-' << row.day;
        EXPECT_EQ(serial, 7);
    }
}

} // namespace
