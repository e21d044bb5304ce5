#ifndef ZELDT_PLATFORM_FORMATS_TIMETEXT_H
#define ZELDT_PLATFORM_FORMATS_TIMETEXT_H

/// Durations as texts: hours, alone or with minutes or hundredths of an hour. `text` and the
/// targets of reading are set on success only.

#include "platform/formats/rules.h"
#include "platform/formats/status.h"
#include "platform/formats/textbuffer.h"

#include <cstdint>
#include <string_view>

namespace zelformat {

struct Duration {
    std::int32_t units; ///< 1/1200 hour
    TimeMode mode;      ///< how the fraction of an hour is written; Own: undecided
};

/// Largest number of hours that is read; 1200 times as much fits 32 bits.
inline constexpr std::int32_t kMostHours = 1'789'568;

const TimeRules& TimeRulesOfMode(const ModeRules& mode) noexcept;

/// What is less than the last place shown is dropped, except that a value in whole hours with a
/// fraction left over shows minutes when the rules leave the mode to the value; an undecided one
/// shows minutes too. NotAllowed for a negative duration without sign, for hours of more digits
/// than the rules have, and for minutes shown that way where no separator would tell.
Status ShowDuration(Duration value, const TimeRules& rules, TextBuffer& text);

/// `value.mode` matters before the call only where the rules leave the mode to the value and have
/// no separator (undecided: whole hours); otherwise the text shows its mode, whole hours when there
/// is no separator in it.
/// OutOfRange for 60 minutes and more and for more than kMostHours, TooLong for more digits of
/// hours than the rules have, NotAllowed for a minus sign that the rules do not allow.
Status ReadDuration(std::string_view text, const TimeRules& rules, Duration& value);

} // namespace zelformat

#endif
