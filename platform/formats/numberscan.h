#ifndef ZELDT_PLATFORM_FORMATS_NUMBERSCAN_H
#define ZELDT_PLATFORM_FORMATS_NUMBERSCAN_H

/// The parts of a typed number.

#include "platform/formats/numbertext.h"

namespace zelformat {

struct ScannedNumber {
    bool negative = false;
    std::string integer;  ///< at least one digit, no needless zero in front, no groups
    std::string fraction; ///< the decimals as written
    int exponent = 0;     ///< saturates far outside what a double holds
};

/// Whether there are only digits; an empty text has none but digits.
bool AreDigits(std::string_view text) noexcept;

/// The digits from the first that is not 0 on; "0" when there is none.
std::string_view WithoutLeadingZeros(std::string_view digits) noexcept;

/// Takes the sign off the front or the back of `rest`; NUL when there is none. False when there is
/// one at either end.
bool TakeSign(std::string_view& rest, char& sign) noexcept;

/// Takes a typed number apart. Mismatch when it does not follow the rules, NotAllowed for a minus
/// sign without sign place; `number` is then in no particular state.
Status ScanNumber(std::string_view text, const NumberRules& rules, Exponent exponent,
                  ScannedNumber& number);

} // namespace zelformat

#endif
