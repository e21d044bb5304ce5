#ifndef ZELDT_PLATFORM_DECIMALS_FITTING_H
#define ZELDT_PLATFORM_DECIMALS_FITTING_H

/// Making exact results as short as results may be. Private to the library.

#include "platform/decimals/number.h"
#include "platform/decimals/powersoften.h"

#include <algorithm>

namespace zeldec {

enum class Rounding { Nearest, AwayFromZero, TowardZero };

inline constexpr uint128 kLargestMagnitude = Power128(kMostDigits) - 1;

/// An exact magnitude with its places.
struct Exact {
    Wide magnitude;
    std::int64_t places;
    bool negative;
    bool cut = false; ///< there is something behind the last digit, less than one unit of it
};

/// The magnitude without its last `drop` digits, at most 77, rounded; the result must be below
/// 2^96. `inexact` is set when a digit dropped is not 0, and counts as such a digit when it is set
/// already.
uint128 Shortened(Wide magnitude, int drop, Rounding method, bool& inexact);

/// The number of at most 28 digits and `mostPlaces` places that is nearest to the exact one, ties
/// away from zero. Overflow when that leaves more than 28 digits in front of the point.
Status Fit(const Exact& exact, int mostPlaces, Number& result);

/// The same in place for 127 bits and 27 places, the way of nearly all sums; false if it takes
/// more.
[[gnu::always_inline]] inline bool FitNarrow(uint128& magnitude, std::int64_t& places,
                                             bool& inexact)
{
    const std::int64_t excess =
        std::max<std::int64_t>(CountDigits(magnitude) - kMostDigits, places - kMostPlaces);
    inexact = false;
    if (excess <= 0)
        return places >= 0;
    if (excess > kLargestShortDivisor || excess > places)
        return false;
    const auto drop = static_cast<std::size_t>(excess);
    const auto [quotient, remainder] = DividedByShortPower(magnitude, static_cast<int>(excess));
    magnitude = quotient + OneIf(remainder >= kPowers64[drop] / 2);
    places -= excess;
    inexact = remainder != 0;
    return magnitude <= kLargestMagnitude;
}

/// Rounds a quotient with `bits` bits behind its point that is known but for a small error: mostly
/// that suffices to tell in which direction, and that there is a remainder. False if a whole or a
/// half may be hidden by the error, or if it takes more bits.
[[gnu::always_inline]] inline bool RoundQuotient(uint128 quotient, int bits, uint128& rounded)
{
    constexpr std::uint64_t kError = 32;
    if (bits > 63)
        return false;
    const std::uint64_t half = std::uint64_t{1} << (bits - 1);
    if (((LowHalf(quotient) + kError) & (half - 1)) <= 2 * kError)
        return false;
    rounded = ShiftedRight(quotient, static_cast<unsigned>(bits)) +
              OneIf((LowHalf(quotient) & half) != 0);
    return rounded <= kLargestMagnitude;
}

} // namespace zeldec

#endif
