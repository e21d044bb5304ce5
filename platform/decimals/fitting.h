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

/// A result within the limits, without its sign.
struct Fitted {
    uint128 magnitude;
    std::int64_t places;
    bool inexact;
};

/// Rounds a quotient with `bits` bits behind its point that is known but for a small error: mostly
/// that suffices to tell in which direction, and that there is a remainder. False if the error may
/// hide a whole or a half, if it takes more bits, or if the result has more than 28 digits.
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

/// Likewise a number without its last `drop` digits, 1 to 37. It comes moved up by `zeros` bits to
/// the highest of 128, those of a longer number by less than none; what does not fit is cut off.
[[gnu::always_inline]] inline bool DropDigits(uint128 normalised, int zeros, std::int64_t drop,
                                              uint128& rounded)
{
    // What is cut off and what the reciprocal lacks cost less than 1 each, the product less than 3.
    const auto& [reciprocal, shift] = kDivisors[static_cast<std::size_t>(drop)];
    return RoundQuotient(UpperProduct(normalised, reciprocal), zeros + static_cast<int>(shift),
                         rounded);
}

/// Fit for 128 bits and 27 places, the way of nearly all sums; false if it takes more.
[[gnu::always_inline]] inline bool FitNarrow(uint128 magnitude, std::int64_t places, Fitted& result)
{
    const std::int64_t drop =
        std::max<std::int64_t>(CountDigits(magnitude) - kMostDigits, places - kMostPlaces);
    result = {magnitude, places, false};
    if (drop <= 0)
        return places >= 0;
    if (drop > places || drop > kLargestDivisor)
        return false;
    const int zeros = 128 - BitLength(magnitude);
    result.places = places - drop;
    result.inexact = true;
    return DropDigits(magnitude << zeros, zeros, drop, result.magnitude);
}

} // namespace zeldec

#endif
