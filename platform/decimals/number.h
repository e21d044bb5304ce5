#ifndef ZELDT_PLATFORM_DECIMALS_NUMBER_H
#define ZELDT_PLATFORM_DECIMALS_NUMBER_H

/// What the core computes with, and how it tells what happened: no texts, no exceptions. Private to
/// the library.

#include "platform/decimals/wide.h"

#include <cstdint>

namespace zeldec {

enum class Status {
    Ok,
    Inexact,        ///< the result is rounded
    Overflow,       ///< there is no result: it has too many digits before its point
    DivisionByZero, ///< there is no result
};

/// A magnitude at rest, in two words: one piece of 128 bits in memory would be written in halves
/// and read as a whole, and the processor would have to wait.
class Magnitude {
public:
    constexpr Magnitude(uint128 number) : m_low(LowHalf(number)), m_high(HighHalf(number)) {}
    constexpr operator uint128() const { return Joined(m_high, m_low); }

private:
    std::uint64_t m_low;
    std::uint64_t m_high;
};

/// (negative ? -1 : 1) * magnitude / 10^places. Magnitudes are at most 2^95, that of the lowest
/// mantissa.
struct Number {
    Magnitude magnitude;
    std::int64_t places;
    bool negative;
};

/// What results may have: 28 digits, the highest power below the 96-bit limit, and 27 of them
/// behind the point.
inline constexpr int kMostDigits = 28;
inline constexpr int kMostPlaces = 27;

/// Positive numbers may be read with more places, as many as a text of 38 bytes can have.
inline constexpr int kMostPlacesRead = 36;

} // namespace zeldec

#endif
