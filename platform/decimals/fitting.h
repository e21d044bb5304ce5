#ifndef ZELDT_PLATFORM_DECIMALS_FITTING_H
#define ZELDT_PLATFORM_DECIMALS_FITTING_H

/// Making exact results as short as results may be. Private to the library.

#include "platform/decimals/number.h"
#include "platform/decimals/powersoften.h"

#include <algorithm>

namespace zeldec {

enum class Rounding { Nearest, AwayFromZero, TowardZero };

inline constexpr uint128 kLargestMagnitude = Power128(kMostDigits) - 1;

/// Whether it is seen at once that a magnitude is no larger. The very largest are left to others.
constexpr bool IsSurelyWithin(uint128 magnitude)
{
    return HighHalf(magnitude) < HighHalf(kLargestMagnitude);
}

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

/// A quotient with `bits` bits behind its point, at most 63, that is known but for a small error.
/// Mostly they tell all the same in which direction it is rounded, and that there is a remainder.
/// `number` is so far below 2^128 that a half more does not carry beyond it.
struct NearQuotient {
    static constexpr std::uint64_t kError = 32;

    uint128 number;
    int bits;

    std::uint64_t Half() const { return std::uint64_t{1} << (bits - 1); }

    /// Whether the error cannot hide a whole or a half.
    bool IsSure() const { return ((LowHalf(number) + kError) & (Half() - 1)) > 2 * kError; }

    uint128 Rounded() const { return ShiftedRight(number + Half(), static_cast<unsigned>(bits)); }

    /// The nearest whole number of halves.
    uint128 Halves() const
    {
        return ShiftedRight(number + kError, static_cast<unsigned>(bits - 1));
    }
};

/// The number without its last `drop` digits, 1 to 37, rounded; `low` has its low 128 bits. It
/// comes moved up by `zeros` bits to the highest of 128, one of more bits by less than none, what
/// does not fit being cut off. False if the quotient has few digits or perhaps more than 28.
[[gnu::always_inline]] inline bool DropDigits(uint128 low, uint128 normalised, int zeros,
                                              std::int64_t drop, Fitted& result)
{
    // What is cut off and what the reciprocal lacks cost less than 1 each, the product less than 3.
    const auto& [reciprocal, shift] = kDivisors[static_cast<std::size_t>(drop)];
    const NearQuotient quotient = {UpperProduct(normalised, reciprocal),
                                   zeros + static_cast<int>(shift)};
    if (quotient.bits > 63)
        return false;
    if (quotient.IsSure()) [[likely]] {
        result.magnitude = quotient.Rounded();
        result.inexact = true;
    } else {
        // The distance from the whole number of halves; far from 128 bits.
        uint128 halves = quotient.Halves();
        const uint128 distance = 2 * low - halves * Power128(static_cast<int>(drop));
        halves -= HighHalf(distance) >> 63;
        result.magnitude = (halves + 1) >> 1;
        result.inexact = distance != 0 || (halves & 1) != 0;
    }
    return IsSurelyWithin(result.magnitude);
}

/// Fit for 128 bits and 27 places, the way of nearly all sums; false if it takes more.
[[gnu::always_inline]] inline bool FitNarrow(uint128 magnitude, std::int64_t places, Fitted& result)
{
    int zeros = 0;
    const uint128 normalised = Normalised(magnitude, zeros);
    const std::int64_t drop = std::max<std::int64_t>(
        CountDigits(magnitude, 128 - zeros) - kMostDigits, places - kMostPlaces);
    result = {magnitude, places, false};
    if (drop <= 0)
        return places >= 0;
    if (drop > places || drop > kLargestDivisor)
        return false;
    result.places = places - drop;
    return DropDigits(magnitude, normalised, zeros, drop, result);
}

} // namespace zeldec

#endif
