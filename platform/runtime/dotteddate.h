#ifndef ZELDT_PLATFORM_RUNTIME_DOTTEDDATE_H
#define ZELDT_PLATFORM_RUNTIME_DOTTEDDATE_H

/// Dates as most are written. Private to this project; not installed.

#include <cstddef>

namespace zelrt {

/// The numbers of a date as they are written, the month from 1.
struct DateNumbers {
    int day = 0;
    int month = 0;
    int year = 0;
};

/// The length of "dd.mm.yyyy".
inline constexpr std::size_t kDottedDateLength = 10;

/// Reads "dd.mm.yyyy" at the beginning of a text that is at least as long or ends in NUL: what
/// follows the first wrong character is not touched. False for any other text; the numbers may be
/// changed then. Whether the calendar has the date is not looked at.
inline bool ReadDottedDate(const char* text, DateNumbers& date) noexcept
{
    const auto readTwoDigits = [text](std::size_t at, int& number) {
        const auto digit = [](char c) { return static_cast<unsigned>(c) - unsigned{'0'}; };
        const unsigned tens = digit(text[at]);
        if (tens > 9)
            return false;
        const unsigned ones = digit(text[at + 1]);
        number = static_cast<int>(tens * 10 + ones);
        return ones <= 9;
    };
    int century = 0;
    int yearOfCentury = 0;
    const bool isRead = readTwoDigits(0, date.day) && text[2] == '.' &&
                        readTwoDigits(3, date.month) && text[5] == '.' &&
                        readTwoDigits(6, century) && readTwoDigits(8, yearOfCentury);
    date.year = century * 100 + yearOfCentury;
    return isRead;
}

} // namespace zelrt

#endif
