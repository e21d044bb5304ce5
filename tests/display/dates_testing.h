#ifndef ZELDT_TESTS_DISPLAY_DATES_TESTING_H
#define ZELDT_TESTS_DISPLAY_DATES_TESTING_H

/// Date formats as plain numbers, and a calendar that knows nothing of the library's.

#include "platform/runtime/localtime.h"
#include "tests/datetime/datetime_testing.h"
#include "tests/display/display_testing.h"

#include <ctime>
#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

/// The arguments of a date format.
struct DateOptions {
    int kind = 0;
    int separator = 0;
    int year = 0;
    int month = 0;
    int twoDigits = 1;
    char fill = '0';

    ZelFormat Format() const
    {
        return ZelFormat(static_cast<ZelFormat::FormatDatumArt>(kind),
                         static_cast<ZelFormat::FormatDatumTrenner>(separator),
                         static_cast<ZelFormat::FormatDatumJahr>(year),
                         static_cast<ZelFormat::FormatDatumMonat>(month), twoDigits, fill);
    }

    bool ShowsDate() const { return kind != 4; }

    friend std::ostream& operator<<(std::ostream& os, const DateOptions& o)
    {
        return os << "kind " << o.kind << ", separator " << o.separator << ", year " << o.year
                  << ", month " << o.month << ", two digits " << o.twoDigits << " '" << o.fill
                  << '\'';
    }
};

inline const std::vector<DateOptions>& AllDateOptions()
{
    static const std::vector<DateOptions> all = [] {
        std::vector<DateOptions> options;
        for (const auto& [twoDigits, fill] : {std::pair{0, '0'}, {1, '0'}, {1, ' '}})
            for (int kind = 0; kind < 5; ++kind)
                for (int separator = 0; separator < 4; ++separator)
                    for (int year = 0; year < 2; ++year)
                        for (int month = 0; month < 3; ++month)
                            options.push_back({kind, separator, year, month, twoDigits, fill});
        return options;
    }();
    return all;
}

// The calendar, counted from 1 January of the year 0

inline bool LeapYear(std::int64_t year)
{
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

inline int DaysOfMonth(std::int64_t year, std::int64_t month)
{
    if (month == 2)
        return LeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// Days before 1 January of the year, which is at least 0.
inline std::int64_t DaysBeforeYear(std::int64_t year)
{
    const std::int64_t last = year - 1; // the year 0 is a leap year
    return year == 0 ? 0 : year * 365 + 1 + last / 4 - last / 100 + last / 400;
}

inline std::int64_t DayNumber(const Fields& f)
{
    std::int64_t days = DaysBeforeYear(f.year) + f.day - 1;
    for (std::int64_t month = 1; month < f.month; ++month)
        days += DaysOfMonth(f.year, month);
    return days;
}

/// The day of that number, at midnight.
inline Fields DayAt(std::int64_t number)
{
    Fields f{number / 366, 1, 1, 0, 0, 0};
    while (DaysBeforeYear(f.year + 1) <= number)
        ++f.year;
    std::int64_t rest = number - DaysBeforeYear(f.year);
    for (; rest >= DaysOfMonth(f.year, f.month); ++f.month)
        rest -= DaysOfMonth(f.year, f.month);
    f.day = rest + 1;
    return f;
}

inline bool IsTimeOfDay(const Fields& f)
{
    return f.hour >= 0 && f.hour < 24 && f.minute >= 0 && f.minute < 60 && f.second >= 0 &&
           f.second < 60;
}

inline bool IsCalendarDay(const Fields& f)
{
    return f.month >= 1 && f.month <= 12 && f.day >= 1 && f.day <= DaysOfMonth(f.year, f.month);
}

/// The first year of the century that two digits of a year mean.
inline int Century()
{
    std::tm now{};
    EXPECT_TRUE(zelrt::LocalTime(std::time(nullptr), now));
    return (now.tm_year + 1900) / 100 * 100;
}

// The two classes

template <typename Value>
constexpr bool kDateAlone = std::is_same_v<Value, ZelDtDateZp>;

/// What is left of fields that a text brought.
template <typename Value>
Fields Kept(const Fields& f)
{
    return kDateAlone<Value> ? Midnight(f) : f;
}

/// The value `before` after it took over the fields of a typed text.
template <typename Value>
Moment Typed(const Moment& before, const Fields& fields)
{
    Moment after = Taken(before, fields);
    after.fields = Kept<Value>(fields);
    return after;
}

/// The date class inherits how it is shown.
inline Error ShowDateError()
{
    return FunctionError(1, "ConvToOFL(ZelFormat*)");
}

template <typename Value>
Error ReadDateError()
{
    const std::string signature = "SetFromOFL(LPCTSTR,ZelFormat*)";
    return kDateAlone<Value> ? DateError(1, signature) : FunctionError(1, signature);
}

using DateClasses = ::testing::Types<ZelDtDateTime, ZelDtDateZp>;

} // namespace zeltest

#endif
