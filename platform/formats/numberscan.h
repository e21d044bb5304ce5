#ifndef ZELDT_PLATFORM_FORMATS_NUMBERSCAN_H
#define ZELDT_PLATFORM_FORMATS_NUMBERSCAN_H

/// The parts of a typed number.

#include "platform/formats/numbertext.h"
#include "platform/formats/textbuffer.h"
#include "platform/runtime/digits.h"

namespace zelformat {

struct ScannedNumber {
    bool negative = false;
    std::string_view integer;  ///< at least one digit, no needless zero in front, no groups
    std::string_view fraction; ///< the decimals as written; they follow the integer in memory
    int exponent = 0;          ///< saturates far outside what a double holds
    TextBuffer digits;         ///< where these are
};

/// Digits at the beginning of the text.
inline std::size_t CountDigits(std::string_view text) noexcept
{
    std::size_t count = 0;
    while (count < text.size() && zelrt::IsDigit(text[count]))
        ++count;
    return count;
}

/// Whether there are only digits; an empty text has none but digits.
inline bool AreDigits(std::string_view text) noexcept
{
    return CountDigits(text) == text.size();
}

/// The digits from the first that is not 0 on; "0" when there is none.
std::string_view WithoutLeadingZeros(std::string_view digits) noexcept;

/// Digits that 64 bits hold, whichever they are.
inline constexpr std::size_t kDigits64 = 19;

/// The number that at most kDigits64 digits make; 0 without any.
inline std::uint64_t ValueOf(std::string_view digits) noexcept
{
    std::uint64_t value = 0;
    for (const char digit : digits)
        value = value * 10 + static_cast<std::uint64_t>(digit - '0');
    return value;
}

constexpr bool IsSign(char c) noexcept
{
    return c == '-' || c == '+';
}

/// Takes the sign off the front or the back of `rest`; NUL when there is none. False when there is
/// one at either end.
inline bool TakeSign(std::string_view& rest, char& sign) noexcept
{
    sign = '\0';
    const bool front = !rest.empty() && IsSign(rest.front());
    if (front) {
        sign = rest.front();
        rest.remove_prefix(1);
    }
    if (!rest.empty() && IsSign(rest.back())) {
        if (front)
            return false;
        sign = rest.back();
        rest.remove_suffix(1);
    }
    return true;
}

/// Takes a typed number apart. Mismatch when it does not follow the rules, NotAllowed for a minus
/// sign without sign place; `number` is then in no particular state.
Status ScanNumber(std::string_view text, const NumberRules& rules, Exponent exponent,
                  ScannedNumber& number);

} // namespace zelformat

#endif
