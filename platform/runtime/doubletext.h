#ifndef ZELDT_PLATFORM_RUNTIME_DOUBLETEXT_H
#define ZELDT_PLATFORM_RUNTIME_DOUBLETEXT_H

/// The runtime's `_gcvt` with 15 digits, the same on every target.
/// Private to this project; not installed.

#include <cstddef>

namespace zelrt {

/// What WriteDouble needs to work in. No text is longer than 22 characters.
inline constexpr std::size_t kDoubleTextRoom = 40;

/// Writes a finite number with 15 significant digits, rounded correctly with exact ties to the even
/// digit, trailing zeros dropped and the point always kept. From 0.1 to below 1E+15 the digits
/// stand as they are ("123456.", "0.5"; zero is "0."), else with an exponent of three digits
/// ("1.e+020", "1.23e-002"). Writes no terminator; returns the end of the text. `buffer` has room
/// for kDoubleTextRoom bytes, and what lies there behind the text is undefined. Never depends on
/// the locale.
char* WriteDouble(double number, char* buffer) noexcept;

} // namespace zelrt

#endif
