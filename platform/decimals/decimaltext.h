#ifndef ZELDT_PLATFORM_DECIMALS_DECIMALTEXT_H
#define ZELDT_PLATFORM_DECIMALS_DECIMALTEXT_H

/// Decimal numbers as texts. Private to the library.

#include "platform/decimals/fitting.h"

#include <cstddef>

namespace zeldec {

enum class ParseStatus {
    Ok,
    Inexact,  ///< the text has more digits than a number; it is rounded
    Overflow, ///< more than 28 digits before the point
    NoNumber, ///< something else than an optional sign, digits and an optional point
};

/// Reads [`first`, `last`). `result` is set when the status is Ok or Inexact.
ParseStatus Parse(const char* first, const char* last, Number& result);

/// Writes the text of a number and a NUL into `room` bytes and returns its length. What else lies
/// in the room may be overwritten. A text without room is not written.
std::size_t Print(const Number& number, char* out, std::size_t room);

} // namespace zeldec

#endif
