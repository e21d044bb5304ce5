#ifndef ZELDT_DATETIME_IMP_DTCALEND_H
#define ZELDT_DATETIME_IMP_DTCALEND_H

/// The Gregorian calendar in numbers: months, leap years, days added and subtracted, fields of a
/// clock with their carries. Knows no texts and no errors. Private to the library.
///
/// Fields may hold anything, since archives are read without a check: every function here gives a
/// result for all of them, in constant time, without overflow.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace zeldt {

/// The year that the stored ones count from.
inline constexpr std::int16_t kBaseYear = 1900;
/// Days of a common year.
inline constexpr std::int16_t kYearDays = 365;

inline constexpr int kMonthsPerYear = 12;
inline constexpr int kFebruary = 1; ///< as month from 0

struct MonthRow {
    std::int32_t daysThrough; ///< days from 1 January to the month's end in a common year
    const char* name;         ///< German, Latin-1
};

/// The months by their numbers from 1; row 0 is no month.
inline constexpr std::array<MonthRow, kMonthsPerYear + 1> kMonths = {{
    {0, "Kein"},
    {31, "Januar"},
    {59, "Februar"},
    {90, "M\xE4rz"},
    {120, "April"},
    {151, "Mai"},
    {181, "Juni"},
    {212, "Juli"},
    {243, "August"},
    {273, "September"},
    {304, "Oktober"},
    {334, "November"},
    {kYearDays, "Dezember"},
}};

/// Seconds to years in the order of the C standard's `tm`, and with its meanings. A new one is
/// 1 January 1900, 00:00:00.
struct DateTimeFields {
    std::int32_t second = 0;
    std::int32_t minute = 0;
    std::int32_t hour = 0;
    std::int32_t day = 1;
    std::int32_t month = 0; ///< from 0
    std::int32_t year = 0;  ///< since 1900
    std::int32_t weekDay = 0;
    std::int32_t yearDay = 0;
    std::int32_t daylight = -1;
};

/// Year down to second, first difference deciding: below 0, 0, above 0. The other fields do not
/// count.
constexpr int Compare(const DateTimeFields& a, const DateTimeFields& b) noexcept
{
    const auto order = [](std::int32_t left, std::int32_t right) { return left < right ? -1 : 1; };
    if (a.year != b.year)
        return order(a.year, b.year);
    if (a.month != b.month)
        return order(a.month, b.month);
    if (a.day != b.day)
        return order(a.day, b.day);
    if (a.hour != b.hour)
        return order(a.hour, b.hour);
    if (a.minute != b.minute)
        return order(a.minute, b.minute);
    return a.second == b.second ? 0 : order(a.second, b.second);
}

constexpr bool Differ(const DateTimeFields& a, const DateTimeFields& b) noexcept
{
    return Compare(a, b) != 0;
}

/// A day by its calendar year; wide enough for what computing with any fields gives.
struct CalendarDate {
    std::int64_t year;
    std::int64_t month; ///< from 0
    std::int64_t day;   ///< from 1

    friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

constexpr CalendarDate DateOf(const DateTimeFields& fields) noexcept
{
    return {std::int64_t{fields.year} + kBaseYear, fields.month, fields.day};
}

/// The quotient rounded down; `divisor` is positive.
constexpr std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) noexcept
{
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

constexpr bool IsLeapYear(std::int64_t year) noexcept
{
    // Of the years that 4 divides, those that 25 divides too must be divided by 16. Written so that
    // there is one division and no branch.
    const std::int64_t cycle = year % 25 != 0 ? 4 : 16;
    return (year & (cycle - 1)) == 0;
}

constexpr bool IsMonth(std::int64_t month) noexcept
{
    return month >= 0 && month < kMonthsPerYear;
}

/// Days from 1 January to the beginning of the month, which is one, or to the end of the last.
constexpr std::int64_t DaysBeforeMonth(std::int64_t month, bool leapYear) noexcept
{
    return kMonths[static_cast<std::size_t>(month)].daysThrough +
           (leapYear && month > kFebruary ? 1 : 0);
}

/// 0 for what is no month.
constexpr std::int64_t MonthLength(std::int64_t month, std::int64_t year) noexcept
{
    if (!IsMonth(month))
        return 0;
    const auto row = static_cast<std::size_t>(month);
    return kMonths[row + 1].daysThrough - kMonths[row].daysThrough +
           (month == kFebruary && IsLeapYear(year) ? 1 : 0);
}

/// Whether the month, which may be none, has the day.
constexpr bool HasDay(std::int64_t month, std::int64_t year, std::int64_t day) noexcept
{
    // Most days need no look at the month and the year.
    constexpr std::int64_t daysOfEveryMonth = 28;
    return IsMonth(month) && day >= 1 &&
           (day <= daysOfEveryMonth || day <= MonthLength(month, year));
}

constexpr std::int64_t YearLength(std::int64_t year) noexcept
{
    return kYearDays + (IsLeapYear(year) ? 1 : 0);
}

/// Days from 1 January of the year 1 to 1 January of the year.
constexpr std::int64_t DaysBeforeYear(std::int64_t year) noexcept
{
    const std::int64_t whole = year - 1;
    return whole * kYearDays + FloorDivide(whole, 4) - FloorDivide(whole, 100) +
           FloorDivide(whole, 400);
}

/// The year of a day that is counted from 1 January of the year 1, which is day 1.
constexpr std::int64_t YearOfDay(std::int64_t dayNumber) noexcept
{
    constexpr std::int64_t quarter = DaysBeforeYear(5) - 1;
    constexpr std::int64_t century = DaysBeforeYear(101);
    constexpr std::int64_t era = DaysBeforeYear(401);
    const std::int64_t eras = FloorDivide(dayNumber - 1, era);
    const std::int64_t day = dayNumber - 1 - eras * era;
    // Without the leap days all years have the same length.
    const std::int64_t common = day - day / quarter + day / century - day / (era - 1);
    return eras * 400 + common / kYearDays + 1;
}

/// The day by its number within the year. What is too small stays in January, what is too large in
/// December.
constexpr CalendarDate DateInYear(std::int64_t year, std::int64_t dayOfYear) noexcept
{
    const bool leap = IsLeapYear(year);
    // Months of 32 days would be late by one at most.
    std::int64_t month = std::clamp<std::int64_t>((dayOfYear - 1) / 32, 0, kMonthsPerYear - 1);
    const bool late = DaysBeforeMonth(month + 1, leap) < dayOfYear;
    month += late && month < kMonthsPerYear - 1 ? 1 : 0;
    return {year, month, dayOfYear - DaysBeforeMonth(month, leap)};
}

/// The number of a day, counted from 1 January of the year 1, which is day 1. Months and days that
/// do not exist are counted on from those that do.
constexpr std::int64_t DayNumber(const CalendarDate& date) noexcept
{
    const std::int64_t years = FloorDivide(date.month, kMonthsPerYear);
    const std::int64_t year = date.year + years;
    return DaysBeforeYear(year) +
           DaysBeforeMonth(date.month - years * kMonthsPerYear, IsLeapYear(year)) + date.day;
}

/// The date so many days later; `days` is not negative, the date's month is one.
constexpr CalendarDate AddDays(const CalendarDate& date, std::int64_t days) noexcept
{
    std::int64_t year = date.year;
    std::int64_t day = DaysBeforeMonth(date.month, IsLeapYear(year)) + date.day + days;
    if (day > YearLength(year)) {
        const std::int64_t number = DaysBeforeYear(year) + day;
        year = YearOfDay(number);
        day = number - DaysBeforeYear(year);
    }
    return DateInYear(year, day);
}

/// The date so many days earlier, by the rules of business dates; `days` is not negative, the
/// date's month is one.
///
/// Going back year by year, a date in January or February gains the length of the year that it
/// enters, so it is exact. A later one gains the length of the year that it leaves: it comes out a
/// day early where it arrives in a leap year, except on 1 January.
constexpr CalendarDate SubtractDays(const CalendarDate& date, std::int64_t days) noexcept
{
    const bool late = date.month > kFebruary;
    std::int64_t year = date.year;
    std::int64_t day = DaysBeforeMonth(date.month, false) + date.day - days;
    if (day >= 1) {
        day += late && IsLeapYear(year) ? 1 : 0;
    } else {
        // The lengths that are gained are those of consecutive years, which end with this one.
        const std::int64_t end = late ? year + 1 : year;
        const std::int64_t number = DaysBeforeYear(end) + day;
        const std::int64_t reached = YearOfDay(number);
        year -= end - reached;
        day = number - DaysBeforeYear(reached);
    }
    const CalendarDate result = DateInYear(year, day);
    // The last day of a leap year, counted in a common one.
    if (result.month == kMonthsPerYear - 1 && result.day == 32)
        return {year + 1, 0, 1};
    return result;
}

/// A field of the clock, and what goes to the next larger one.
struct Carried {
    std::int64_t carry;
    std::int64_t field;

    friend bool operator==(const Carried&, const Carried&) = default;
};

/// How far a count goes, whichever its direction; no count is too large for it.
using Count = std::uint64_t;

constexpr Count Magnitude(std::int64_t count) noexcept
{
    const auto bits = static_cast<Count>(count);
    return count < 0 ? 0 - bits : bits;
}

/// field + count, units of `base` carried. `count` is at most 2^63.
constexpr Carried AddWithCarry(std::int32_t field, Count count, unsigned base) noexcept
{
    if (field < 0 && count < Magnitude(field))
        return {0, field + static_cast<std::int64_t>(count)};
    const Count sum = field < 0 ? count - Magnitude(field) : count + Magnitude(field);
    return {static_cast<std::int64_t>(sum / base), static_cast<std::int64_t>(sum % base)};
}

/// field - count, as few units of `base` borrowed as bring it above -1. `count` is at most 2^63.
constexpr Carried SubtractWithBorrow(std::int32_t field, Count count, unsigned base) noexcept
{
    if (field >= 0 && count <= Magnitude(field))
        return {0, field - static_cast<std::int64_t>(count)};
    const Count missing = field < 0 ? count + Magnitude(field) : count - Magnitude(field);
    const Count borrowed = (missing + base - 1) / base;
    return {static_cast<std::int64_t>(borrowed),
            static_cast<std::int64_t>(borrowed * base - missing)};
}

// The rules above, on cases that can be counted by hand.

constexpr bool MonthTableIsPlausible()
{
    for (std::size_t row = 1; row < kMonths.size(); ++row) {
        const int length = kMonths[row].daysThrough - kMonths[row - 1].daysThrough;
        const bool isShort = row == 4 || row == 6 || row == 9 || row == 11;
        if (length != (row == 2 ? 28 : isShort ? 30 : 31))
            return false;
    }
    return kMonths.back().daysThrough == kYearDays;
}
static_assert(MonthTableIsPlausible());
static_assert(!IsLeapYear(1900) && IsLeapYear(2000) && IsLeapYear(2004) && !IsLeapYear(2001));
static_assert(MonthLength(kFebruary, 2000) == 29 && MonthLength(kFebruary, 1900) == 28 &&
              MonthLength(-1, 2000) == 0 && MonthLength(kMonthsPerYear, 2000) == 0);

constexpr bool YearsBeginAndEndWhereTheyShould(std::int64_t first, std::int64_t last)
{
    for (std::int64_t year = first; year <= last; ++year) {
        if (DaysBeforeYear(year + 1) - DaysBeforeYear(year) != YearLength(year) ||
            YearOfDay(DaysBeforeYear(year) + 1) != year ||
            YearOfDay(DaysBeforeYear(year + 1)) != year)
            return false;
    }
    return DaysBeforeYear(1) == 0;
}
static_assert(YearsBeginAndEndWhereTheyShould(-401, 401));

static_assert(AddDays({1999, 11, 31}, 1) == CalendarDate{2000, 0, 1});
static_assert(AddDays({2000, 0, 1}, 366) == CalendarDate{2001, 0, 1});
static_assert(AddDays({2000, 1, 28}, 1) == CalendarDate{2000, 1, 29});
static_assert(SubtractDays({2000, 2, 1}, 1) == CalendarDate{2000, 1, 29});
static_assert(SubtractDays({2001, 0, 1}, 366) == CalendarDate{2000, 0, 1});
static_assert(SubtractDays({2001, 2, 1}, 365) == CalendarDate{2000, 1, 29});
static_assert(SubtractDays({2000, 2, 1}, 60) == CalendarDate{2000, 0, 1}, "not 32 December 1999");
static_assert(AddWithCarry(23, 25, 24) == Carried{2, 0} &&
              SubtractWithBorrow(0, 1, 24) == Carried{1, 23} &&
              SubtractWithBorrow(1, 25, 24) == Carried{1, 0});

} // namespace zeldt

#endif
