#ifndef ZELDT_PLATFORM_DECIMALS_DECIMALTEXT_H
#define ZELDT_PLATFORM_DECIMALS_DECIMALTEXT_H

/// Decimal numbers as texts. Private to the library.

#include "platform/decimals/digitwords.h"

#include <cstddef>

namespace zeldec {

enum class ParseStatus {
    Ok,
    Inexact,  ///< the text has more digits than a number; it is rounded
    Overflow, ///< more than 28 digits before the point
    NoNumber, ///< something else than an optional sign, digits and an optional point
};

struct Parsed {
    ParseStatus status = ParseStatus::NoNumber;
    Number number = {0, 0, false}; ///< when the status is Ok or Inexact
};

/// Reads any text: of more digits than a number may have the first ones, rounded by the next.
Parsed Parse(const Unsigned& source);

/// Writes the text of a number and a NUL into `room` bytes and returns its length. What else lies
/// in the room may be overwritten. A text without room is not written.
std::size_t Print(const Number& number, char* out, std::size_t room);

} // namespace zeldec

#endif
