#ifndef ZELDT_TESTS_DATETIME_CALENDAR_MODEL_H
#define ZELDT_TESTS_DATETIME_CALENDAR_MODEL_H

/// The calendar arithmetic of the date-time classes once more: step by step, slow, on plain numbers
/// and with the flags of the value. It shares nothing with the library.

#include "tests/datetime/datetime_testing.h"

#include <array>
#include <cstdint>

namespace zeltest {

/// What stopped an operation: the number of the first error and the operation that found it, empty
/// where that is left to the library. Number 0: nothing did.
struct Fault {
    unsigned long number = 0;
    const char* signature = "";

    explicit operator bool() const { return number != 0; }
};

/// A value that is not missing, and the operations on it.
class CalendarModel {
public:
    explicit CalendarModel(const Moment& start) : fields(start.fields), state(start.state) {}

    Moment Result() const { return {state, fields}; }

    Fields fields;
    State state;
    /// The first two digits of the year that the clock shows.
    std::int64_t century = 20;

    Fault AddDay365(std::int64_t count)
    {
        if (count < 0)
            return SubDay365(-count);
        const Fields before = fields;
        std::int64_t d = DaysTo(fields.month - 1) + fields.day + count;
        if (IsLeapYear(fields.year) && fields.month >= 3)
            d += 1;
        std::int64_t length = YearLength(fields.year);
        while (d > length) {
            fields.year += 1;
            d -= length;
            length = YearLength(fields.year);
        }
        const bool leap = IsLeapYear(fields.year);
        int m = 1;
        while (m < 13 && DaysTo(m) + (leap && m >= 2 ? 1 : 0) < d)
            ++m;
        fields.month = m;
        fields.day = d - DaysTo(m - 1) - (leap && m - 1 >= 2 ? 1 : 0);
        SetDefined();
        MarkIfDifferent(before);
        return {};
    }

    Fault SubDay365(std::int64_t count)
    {
        if (count < 0)
            return AddDay365(-count);
        const Fields before = fields;
        std::int64_t d = DaysTo(fields.month - 1) + fields.day - count;
        bool leap = IsLeapYear(fields.year);
        if (leap && fields.month >= 3 && d >= 1)
            d += 1;
        while (d < 1) {
            d += 365;
            if (leap && fields.month >= 3)
                d += 1;
            fields.year -= 1;
            leap = IsLeapYear(fields.year);
            if (leap && fields.month <= 2)
                d += 1;
        }
        int m = 11;
        while (m >= 1 && DaysTo(m) + (leap && m >= 2 ? 1 : 0) >= d)
            --m;
        fields.month = m + 1;
        fields.day = d - DaysTo(m) - (leap && m >= 2 ? 1 : 0);
        if (fields.month == 12 && fields.day == 32) { // no such day: the next one
            fields.year += 1;
            fields.month = 1;
            fields.day = 1;
        }
        SetDefined();
        const Fault fault = CheckYear("SubDay365(SHORT)");
        MarkIfDifferent(before);
        return fault;
    }

    Fault AddMonth(std::int64_t count)
    {
        if (count < 0)
            return SubMonth(-count);
        const Fields before = fields;
        std::int64_t m = fields.month + count;
        if (m > 12) {
            if (const Fault fault = SetYear(fields.year + m / 12)) {
                MarkIfDifferent(before);
                return fault;
            }
            m %= 12;
        }
        SetDefined();
        const Fault fault = SetMonth(m);
        MarkIfDifferent(before);
        return fault;
    }

    Fault SubMonth(std::int64_t count)
    {
        if (count < 0)
            return AddMonth(-count);
        std::int64_t m = fields.month - count;
        while (m < 1) {
            fields.year -= 1;
            m += 12;
            state.modified = 1;
        }
        if (const Fault fault = CheckYear("SubMonth(SHORT)"))
            return fault;
        if (m != fields.month)
            state.modified = 1;
        SetMonth(m);
        SetDefined();
        return {};
    }

    Fault AddYear(std::int64_t count)
    {
        if (count != 0) {
            state.modified = 1;
            if (const Fault fault = SetYear(fields.year + count))
                return fault;
        }
        SetDefined();
        return {};
    }

    Fault SubYear(std::int64_t count)
    {
        if (count < 0)
            return AddYear(-count);
        const Fields before = fields;
        fields.year -= count;
        if (fields.year < kFirstYear) {
            MarkIfDifferent(before);
            return {27, ""};
        }
        CutLeapDay();
        SetDefined();
        MarkIfDifferent(before);
        return {};
    }

    Fault AddHour(std::int64_t count)
    {
        return count < 0 ? SubHours(Magnitude(count)) : AddHours(Magnitude(count));
    }

    Fault SubHour(std::int64_t count)
    {
        return count < 0 ? AddHours(Magnitude(count)) : SubHours(Magnitude(count));
    }

    Fault AddMin(std::int64_t count)
    {
        return count < 0 ? SubMinutes(Magnitude(count)) : AddMinutes(Magnitude(count));
    }

    Fault SubMin(std::int64_t count)
    {
        return count < 0 ? AddMinutes(Magnitude(count)) : SubMinutes(Magnitude(count));
    }

    static constexpr std::int64_t kFirstYear = 1753;

    static bool IsLeapYear(std::int64_t year)
    {
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    }

    static int YearLength(std::int64_t year) { return IsLeapYear(year) ? 366 : 365; }

    static int MonthLength(std::int64_t year, std::int64_t month)
    {
        return DaysTo(month) - DaysTo(month - 1) + (month == 2 && IsLeapYear(year) ? 1 : 0);
    }

    /// Days from 1 January to the end of a month, from 1, of a common year.
    static int DaysTo(std::int64_t month)
    {
        static constexpr std::array<int, 13> kDays = {0,   31,  59,  90,  120, 151, 181,
                                                      212, 243, 273, 304, 334, 365};
        return kDays.at(static_cast<std::size_t>(month));
    }

private:
    static std::uint64_t Magnitude(std::int64_t count)
    {
        const auto bits = static_cast<std::uint64_t>(count);
        return count < 0 ? 0 - bits : bits;
    }

    void SetDefined()
    {
        if (!state.defined)
            state.modified = 1;
        state.defined = 1;
    }

    void MarkIfDifferent(const Fields& before)
    {
        if (fields != before)
            state.modified = 1;
    }

    Fault CheckYear(const char* signature) const
    {
        return fields.year < kFirstYear ? Fault{27, signature} : Fault{};
    }

    void CutLeapDay()
    {
        if (fields.month == 2 && fields.day > 28 && !IsLeapYear(fields.year))
            fields.day = 28;
    }

    Fault SetYear(std::int64_t year)
    {
        fields.year = year > 99 ? year : 1900 + year + (century - 19) * 100;
        if (const Fault fault = CheckYear("SetYear(SHORT)"))
            return fault;
        CutLeapDay();
        return {};
    }

    Fault SetMonth(std::int64_t month)
    {
        if (month < 1 || month > 12)
            return {26, "SetMonth(SHORT)"};
        fields.month = month;
        const std::int64_t length = MonthLength(fields.year, month);
        if (fields.day > length)
            fields.day = length;
        return {};
    }

    void Store(std::int64_t& field, std::uint64_t value)
    {
        const auto number = static_cast<std::int64_t>(value);
        if (field != number) {
            field = number;
            state.modified = 1;
        }
    }

    Fault AddHours(std::uint64_t count)
    {
        std::uint64_t h = static_cast<std::uint64_t>(fields.hour) + count;
        if (h > 23) {
            if (const Fault fault = AddDay365(static_cast<std::int16_t>(h / 24)))
                return fault;
            h %= 24;
        }
        Store(fields.hour, h);
        SetDefined();
        return {};
    }

    Fault SubHours(std::uint64_t count)
    {
        const auto hour = static_cast<std::uint64_t>(fields.hour);
        std::uint64_t h = hour - count;
        if (count > hour) {
            const std::uint64_t lacking = count - hour;
            const std::uint64_t days = (lacking + 23) / 24;
            if (const Fault fault = SubDay365(static_cast<std::int64_t>(days)))
                return {fault.number, ""};
            h = days * 24 - lacking;
        }
        Store(fields.hour, h);
        SetDefined();
        return {};
    }

    Fault AddMinutes(std::uint64_t count)
    {
        std::uint64_t m = static_cast<std::uint64_t>(fields.minute) + count;
        if (m > 59) {
            if (const Fault fault = AddHours(m / 60))
                return fault;
            m %= 60;
        }
        Store(fields.minute, m);
        SetDefined();
        return {};
    }

    Fault SubMinutes(std::uint64_t count)
    {
        const auto minute = static_cast<std::uint64_t>(fields.minute);
        std::uint64_t m = minute - count;
        if (count > minute) {
            const std::uint64_t lacking = count - minute;
            const std::uint64_t hours = (lacking + 59) / 60;
            if (const Fault fault = SubHours(hours))
                return fault;
            m = hours * 60 - lacking;
        }
        Store(fields.minute, m);
        SetDefined();
        return {};
    }
};

} // namespace zeltest

#endif
