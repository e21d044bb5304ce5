#ifndef ZELDT_DATETIME_IMP_DTDATTXT_H
#define ZELDT_DATETIME_IMP_DTDATTXT_H

/// The fixed layouts of dates in SQL and external texts. Knows no errors. Private to the library.

#include "datetime/IMP/DTCALEND.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/dotteddate.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zeldt {

/// Bytes that suffice for every text written here.
inline constexpr std::size_t kDateTextRoom = 40;

// What can be shown

constexpr bool HasTwoDigits(std::int64_t number) noexcept
{
    return number >= 0 && number <= 99;
}

constexpr bool HasFourDigits(std::int64_t number) noexcept
{
    return number >= 0 && number <= 9999;
}

constexpr std::int64_t YearOf(const DateTimeFields& fields) noexcept
{
    return std::int64_t{fields.year} + kBaseYear;
}

/// From 1.
constexpr std::int64_t MonthOf(const DateTimeFields& fields) noexcept
{
    return std::int64_t{fields.month} + 1;
}

constexpr bool CanShowDayAndMonth(const DateTimeFields& fields) noexcept
{
    return HasTwoDigits(fields.day) && HasTwoDigits(MonthOf(fields));
}

constexpr bool CanShowMinutes(const DateTimeFields& fields) noexcept
{
    return HasTwoDigits(fields.hour) && HasTwoDigits(fields.minute);
}

/// Writes pieces one behind the other; the numbers are in range.
class DateWriter {
public:
    explicit DateWriter(char* out) : m_end(out) {}

    DateWriter& Character(char c)
    {
        *m_end++ = c;
        return *this;
    }

    DateWriter& Two(std::int64_t number)
    {
        m_end = zelrt::WriteTwoDigits(static_cast<std::size_t>(number), m_end);
        return *this;
    }

    DateWriter& Four(std::int64_t number)
    {
        const auto small = static_cast<std::uint32_t>(number);
        return Two(small / 100).Two(small % 100);
    }

    /// Digits alone, blanks in front up to `width` places.
    DateWriter& Plain(std::int64_t number, int width = 0)
    {
        constexpr std::int64_t leastOfFourDigits = 1000;
        if (number >= leastOfFourDigits && HasFourDigits(number))
            return Four(number);
        char digits[20];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        for (auto length = end - digits; length < width; ++length)
            Character(' ');
        std::memcpy(m_end, digits, static_cast<std::size_t>(end - digits));
        m_end += end - digits;
        return *this;
    }

    char* End() const { return m_end; }

private:
    char* m_end;
};

/// Writes the moment to the minute in double quotes, `first` and `second` being day and month or
/// month and day; returns the end. Null as WriteSqlText.
inline char* WriteQuotedMoment(const DateTimeFields& fields, std::int64_t first,
                               std::int64_t second, char* out)
{
    const std::int64_t year = YearOf(fields);
    if (year < 0 || !CanShowDayAndMonth(fields) || !CanShowMinutes(fields))
        return nullptr;
    return DateWriter(out)
        .Character('"')
        .Two(first)
        .Character('.')
        .Two(second)
        .Character('.')
        .Plain(year)
        .Character(' ')
        .Two(fields.hour)
        .Character(':')
        .Two(fields.minute)
        .Character('"')
        .End();
}

/// Writes the layout of a code of SQL_Language, of any other code that of SQL_DatumUhrzeit; returns
/// the end. Null when a field that is shown has no room: two digits show 0 to 99, four digits a
/// year from 0 to 9999; without four fixed places no negative year is shown.
char* WriteSqlText(const DateTimeFields& fields, int code, char* out) noexcept;

/// The layouts of external texts, by their first letters.
enum class ExternKind : char { TimeOnly = 'T', DateOnly = 'D', DateAndTime = 'C' };

/// Writes the layout and returns the end; null as WriteSqlText.
char* WriteExternText(const DateTimeFields& fields, ExternKind kind, char* out) noexcept;

/// The numbers of an external text: day, month from 1, year, hour, minute, second.
struct ExternNumbers {
    int day = 0;
    int month = 0;
    int year = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Reads what follows the first letter. White space is passed over, a sign counts; what does not
/// read, and all behind it, is 0.
ExternNumbers ReadExternText(std::string_view text, ExternKind kind) noexcept;

/// Reads "dd.mm.yyyy", alone or before a blank, as most dates are written. Not any other text, nor
/// the year 0000; false then.
inline bool ReadUsualDate(const char* text, zelrt::DateNumbers& date) noexcept
{
    if (!zelrt::ReadDottedDate(text, date) || date.year == 0)
        return false;
    const char next = text[zelrt::kDottedDateLength];
    return next == '\0' || next == ' ';
}

} // namespace zeldt

#endif
