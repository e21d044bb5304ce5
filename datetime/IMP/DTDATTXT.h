#ifndef ZELDT_DATETIME_IMP_DTDATTXT_H
#define ZELDT_DATETIME_IMP_DTDATTXT_H

/// The fixed layouts of dates in SQL and external texts. Knows no errors. Private to the library.

#include "datetime/IMP/DTCALEND.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace zeldt {

/// Bytes that suffice for every text written here.
inline constexpr std::size_t kDateTextRoom = 40;

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

} // namespace zeldt

#endif
