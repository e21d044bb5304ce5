#ifndef ZELDT_PLATFORM_FORMATS_DATETEXT_H
#define ZELDT_PLATFORM_FORMATS_DATETEXT_H

/// Dates and times of day as texts. The targets are set on success only.

#include "platform/formats/rules.h"
#include "platform/formats/status.h"
#include "platform/formats/textbuffer.h"

#include <ctime>
#include <string_view>

namespace zelformat {

/// What a value is to the modes, which show every type in its own way.
enum class DateScope : unsigned char { DateTime, DateOnly };

constexpr DateRules ModeDateRules(DateParts parts, bool fill) noexcept
{
    return {.parts = parts,
            .separator = '.',
            .twoDigitYear = false,
            .month = MonthStyle::Number,
            .twoDigits = {fill, '0'}};
}

inline constexpr DateRules kStandardDateTime = ModeDateRules(DateParts::DateTime, true);
inline constexpr DateRules kTechnicalDateTime = ModeDateRules(DateParts::DateTime, false);
inline constexpr DateRules kStandardDate = ModeDateRules(DateParts::DateTypedTime, true);
inline constexpr DateRules kTechnicalDate = ModeDateRules(DateParts::DateTypedTime, false);

inline const DateRules& DateRulesOfMode(const ModeRules& mode, DateScope scope) noexcept
{
    if (scope == DateScope::DateOnly)
        return mode.technical ? kTechnicalDate : kStandardDate;
    return mode.technical ? kTechnicalDateTime : kStandardDateTime;
}

/// Latest calendar year that is shown and read; the earliest is 0.
inline constexpr int kLatestYear = 32767;

/// OutOfRange when what is to be shown is no date of the calendar or no time of day; fields that
/// are not shown may hold anything.
Status ShowDate(const std::tm& value, const DateRules& rules, TextBuffer& text);

/// Blanks around the text are ignored; the year may have two digits (of the current century), four
/// or five. A missing time is midnight. What the rules do not show stays as it is in `value`,
/// except that seconds become 0 with the time; null is no target. Mismatch for a text of another
/// shape, OutOfRange for a date that the calendar does not have or a time beyond 23:59:59.
///
/// Without a separator, and with DateOnly in addition to the separated form, day and month number
/// have two digits each, also where months have names.
Status ReadDate(std::string_view text, const DateRules& rules, DateScope scope, std::tm* value);

} // namespace zelformat

#endif
