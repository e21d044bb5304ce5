#ifndef ZELDT_PLATFORM_FORMATS_NUMBERTEXT_H
#define ZELDT_PLATFORM_FORMATS_NUMBERTEXT_H

/// Numbers as texts: signs, groups, decimals and padding, shown and read by the same rules.
///
/// Showing throws nothing but std::bad_alloc; what `text` is after a failure has no meaning.
/// Reading leaves a number as it was unless it succeeds. Blanks and tabs around a number are
/// ignored.

#include "platform/formats/rules.h"
#include "platform/formats/status.h"
#include "platform/formats/textbuffer.h"

#include <cstdint>
#include <string_view>

namespace zelformat {

constexpr bool IsBlank(char c) noexcept
{
    return c == ' ' || c == '\t';
}

/// `text` without the blanks and tabs around it.
inline std::string_view TrimBlanks(std::string_view text) noexcept
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

constexpr NumberRules ModeNumberRules(char decimalPoint, char readGroup) noexcept
{
    return {.places = 0,
            .decimals = NumberRules::kAllDecimals,
            .decimalPoint = decimalPoint,
            .group = '\0',
            .readGroup = readGroup,
            .sign = {SignPlace::Front, false},
            .left = {false, ' '},
            .right = {false, ' '},
            .plain = true};
}

inline constexpr NumberRules kStandardNumbers = ModeNumberRules(',', '.');
inline constexpr NumberRules kTechnicalNumbers = ModeNumberRules('.', '\0');

/// Rules of the standard mode (German) or of the technical mode for numbers of every type.
inline const NumberRules& NumberRulesOfMode(const ModeRules& mode) noexcept
{
    return mode.technical ? kTechnicalNumbers : kStandardNumbers;
}

/// Where a format and a number go apart:
/// - a negative number without sign, or a text of more characters than the places: NotAllowed;
/// - decimals beyond the fixed ones are rounded, ties away from zero.
Status ShowInteger(std::int32_t value, const NumberRules& rules, TextBuffer& text);

/// As ShowInteger, for the number that the fewest decimal digits name. Never an exponent. NaN and
/// infinities: OutOfRange.
Status ShowDouble(double value, const NumberRules& rules, TextBuffer& text);

/// The shortest text that reads back as the same number; with an exponent from 1E+15 on and below
/// 1E-05. A zero has no sign. NaN and infinities: OutOfRange.
Status ShowShortestDouble(double value, char decimalPoint, TextBuffer& text);

/// As ShowInteger, for a number written as digits with an optional sign in front and an optional
/// point; anything else is a Mismatch.
Status ShowNumberText(std::string_view number, const NumberRules& rules, TextBuffer& text);

struct IntegerRange {
    std::int32_t lowest;
    std::int32_t highest;
};

/// Digits, in well-formed groups or without, one sign in front or behind, and the decimals that
/// the rules allow as long as they are zeros. Mismatch for any other text, OutOfRange outside
/// `range`, NotAllowed for a minus sign that the rules do not allow, TooLong for a number that the
/// rules could not show in their places.
Status ReadInteger(std::string_view text, const NumberRules& rules, IntegerRange range,
                   std::int32_t& value);

enum class Exponent : unsigned char { Refused, Accepted };

/// As ReadInteger, with decimals. A number too large for a double, or not zero and too small for
/// one, is OutOfRange.
Status ReadDouble(std::string_view text, const NumberRules& rules, Exponent exponent,
                  double& value);

/// Longest number that ReadNumberText gives, without its sign.
inline constexpr std::size_t kLongestNumberText = 38;

/// As ReadDouble without exponent. Gives the number as digits with '-' in front when negative and
/// '.' before the decimals, which are kept as written; leading zeros go. Beyond kLongestNumberText
/// zeros at the end of the decimals go too; what is longer without them is TooLong.
Status ReadNumberText(std::string_view text, const NumberRules& rules, TextBuffer& number);

} // namespace zelformat

#endif
