#ifndef ZELDT_PLATFORM_RUNTIME_INT32TEXT_H
#define ZELDT_PLATFORM_RUNTIME_INT32TEXT_H

/// The runtime's `strtol` with base 10, as if `long` had 32 bits on every target.
/// Private to this project; not installed.

#include "platform/runtime/digits.h"

#include <cstdint>

namespace zelrt {

/// What reading a number from the front of a text gave.
struct Int32Text {
    std::int32_t value; ///< the number; the nearest limit when out of range; 0 without digits
    const char* end;    ///< first byte that was not read; the text itself without digits
    bool inRange;       ///< false when the number lies outside 32 bits
};

/// Reads white space, one optional sign and digits from the front of [`first`, `last`). Never
/// touches `errno` and never depends on the locale.
inline Int32Text ParseInt32(const char* first, const char* last) noexcept
{
    const char* p = first;
    while (p != last && IsSpace(*p))
        ++p;
    const bool negative = p != last && *p == '-';
    if (p != last && (*p == '-' || *p == '+'))
        ++p;

    // The magnitude saturates one above the largest one that can be in range.
    constexpr std::int64_t kMagnitudeLimit = std::int64_t{INT32_MAX} + 2;
    std::int64_t magnitude = 0;
    const char* const digits = p;
    for (; p != last && IsDigit(*p); ++p) {
        magnitude = magnitude * 10 + (*p - '0');
        if (magnitude > kMagnitudeLimit)
            magnitude = kMagnitudeLimit;
    }
    if (p == digits)
        return {0, first, true};

    const std::int64_t value = negative ? -magnitude : magnitude;
    if (value > INT32_MAX)
        return {INT32_MAX, p, false};
    if (value < INT32_MIN)
        return {INT32_MIN, p, false};
    return {static_cast<std::int32_t>(value), p, true};
}

} // namespace zelrt

#endif
