#ifndef ZELDT_PLATFORM_FRAMEWORK_FWCALEND_H
#define ZELDT_PLATFORM_FRAMEWORK_FWCALEND_H

/// Calendar arithmetic on automation dates: the core behind COleDateTime and, where the system
/// has no OLE automation, behind its date functions. Private to the framework library.
///
/// A *serial* is an automation date: whole days since 30 December 1899 and, always counted
/// forward, the time of day as its fraction. A *linear* date is the same moment as a plain number
/// of days, so that it can be subtracted and compared.

#include "platform/runtime/wintypes.h"

#include <chrono>
#include <cmath>
#include <optional>

namespace zelfw {

inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;
inline constexpr long long kSecondsPerDay = 86400;

/// Fields of the Gregorian calendar: year as written, month and day from 1.
struct CalendarFields {
    int year;
    int month;
    int day;
    int hour;
    int minute;
    int second;
};

inline constexpr std::chrono::sys_days kSerialZero =
    std::chrono::sys_days{std::chrono::year{1899} / std::chrono::December / 30};

/// Days from 30 December 1899 to the first of the month.
constexpr long long SerialOfMonth(int year, int month)
{
    const std::chrono::year_month_day first{std::chrono::year{year},
                                            std::chrono::month{static_cast<unsigned>(month)},
                                            std::chrono::day{1}};
    return (std::chrono::sys_days{first} - kSerialZero).count();
}

inline constexpr long long kFirstSerial = SerialOfMonth(kFirstYear, 1);
inline constexpr long long kLastSerial = SerialOfMonth(kLastYear, 12) + 30;
static_assert(kFirstSerial == -657434 && kLastSerial == 2958465);

constexpr bool IsYearMonth(int year, int month)
{
    return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12;
}

constexpr bool IsTimeOfDay(int hour, int minute, int second)
{
    return hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
}

/// Whether the fields name a day that exists, in a year that is kept, and a time of day.
constexpr bool IsCalendarMoment(const CalendarFields& fields)
{
    if (!IsYearMonth(fields.year, fields.month) || fields.day < 1 ||
        !IsTimeOfDay(fields.hour, fields.minute, fields.second))
        return false;
    const std::chrono::year_month_day_last last{
        std::chrono::year{fields.year},
        std::chrono::month_day_last{std::chrono::month{static_cast<unsigned>(fields.month)}}};
    return static_cast<unsigned>(fields.day) <= static_cast<unsigned>(last.day());
}

/// The serial of a whole day and a time of day, given in seconds.
constexpr double JoinSerial(long long day, long long secondOfDay)
{
    const double time = static_cast<double>(secondOfDay) / static_cast<double>(kSecondsPerDay);
    return day < 0 ? static_cast<double>(day) - time : static_cast<double>(day) + time;
}

/// The serial of fields that IsCalendarMoment() accepts. Days that the month does not have are
/// counted on from its beginning.
constexpr double SerialFromFields(const CalendarFields& fields)
{
    return JoinSerial(SerialOfMonth(fields.year, fields.month) + fields.day - 1,
                      fields.hour * 3600LL + fields.minute * 60LL + fields.second);
}

/// A moment to the second: the whole day and what has passed of it.
struct SplitMoment {
    long long day;
    long long secondOfDay;
};

/// Rounds a serial to the nearest second. Nothing for a NaN and for what lies, once rounded,
/// outside the years that are kept.
inline std::optional<SplitMoment> SplitSerial(double serial)
{
    if (!(serial > static_cast<double>(kFirstSerial - 1) &&
          serial < static_cast<double>(kLastSerial + 1)))
        return std::nullopt;
    const double whole = std::trunc(serial);
    const double seconds =
        std::floor(std::fabs(serial - whole) * static_cast<double>(kSecondsPerDay) + 0.5);
    SplitMoment moment{static_cast<long long>(whole), static_cast<long long>(seconds)};
    if (moment.secondOfDay == kSecondsPerDay) {
        ++moment.day;
        moment.secondOfDay = 0;
    }
    if (moment.day > kLastSerial)
        return std::nullopt;
    return moment;
}

/// Day of the week of a whole day, 0 for Sunday.
inline unsigned WeekdayOf(long long day)
{
    return std::chrono::weekday{kSerialZero + std::chrono::days{day}}.c_encoding();
}

/// Calendar fields of a moment that SplitSerial() gave.
inline CalendarFields FieldsFromMoment(const SplitMoment& moment)
{
    const std::chrono::year_month_day date{kSerialZero + std::chrono::days{moment.day}};
    const int second = static_cast<int>(moment.secondOfDay);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

/// The same as the system writes it.
inline SYSTEMTIME SystemTimeFromMoment(const SplitMoment& moment)
{
    const CalendarFields fields = FieldsFromMoment(moment);
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(fields.year);
    result.wMonth = static_cast<WORD>(fields.month);
    result.wDayOfWeek = static_cast<WORD>(WeekdayOf(moment.day));
    result.wDay = static_cast<WORD>(fields.day);
    result.wHour = static_cast<WORD>(fields.hour);
    result.wMinute = static_cast<WORD>(fields.minute);
    result.wSecond = static_cast<WORD>(fields.second);
    return result;
}

/// A serial as a plain number of days.
inline double LinearFromSerial(double serial)
{
    if (serial >= 0)
        return serial;
    const double whole = std::trunc(serial);
    return whole + (whole - serial);
}

/// The serial of a plain number of days.
inline double SerialFromLinear(double linear)
{
    if (linear >= 0)
        return linear;
    const double day = std::floor(linear);
    const double time = linear - day;
    // A hair before midnight rounds up to midnight itself.
    return time < 1 ? day - time : day + 1;
}

} // namespace zelfw

#endif
