#include "platform/decimals/arithmetic.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zeldec {

namespace {

/// The widest distance of places at which a magnitude is brought to the places of the other. What
/// is farther below the other's digits cannot reach into a result.
constexpr std::int64_t kWidestGap = 45;

/// The number with `count` places fewer, its last digit telling whether something was cut off
/// behind it.
Number CutBy(const Number& number, std::int64_t count)
{
    const bool isNothingLeft = count > kLargestPower128;
    const uint128 power = isNothingLeft ? 0 : Power128(static_cast<int>(count));
    const uint128 head = isNothingLeft ? 0 : number.magnitude / power;
    const bool isCut = isNothingLeft ? number.magnitude != 0 : number.magnitude % power != 0;
    return {head * 10 + (isCut ? 1 : 0), number.places - count + 1, number.negative};
}

/// The sum of two numbers, `fine` having at least as many places as `coarse` and at most the widest
/// gap more.
Exact SumOf(const Number& fine, const Number& coarse)
{
    const auto gap = static_cast<std::size_t>(fine.places - coarse.places);
    const Wide a = ToWide(fine.magnitude);
    const Wide b = gap == 0 ? ToWide(coarse.magnitude) : Product(coarse.magnitude, kPowers[gap]);
    if (fine.negative == coarse.negative)
        return {Sum(a, b), fine.places, fine.negative};
    if (Compare(a, b) >= 0)
        return {Difference(a, b), fine.places, fine.negative};
    return {Difference(b, a), fine.places, coarse.negative};
}

/// The distance of the first digit of a number, which is not 0, from the point.
std::int64_t Height(const Number& number)
{
    return CountDigits(number.magnitude) - number.places;
}

int CompareMagnitudes(const Number& a, const Number& b)
{
    if (a.magnitude == 0 || b.magnitude == 0)
        return (a.magnitude != 0) - (b.magnitude != 0);
    if (const auto distance = Height(a) - Height(b); distance != 0)
        return distance < 0 ? -1 : 1;
    // With the same height the places differ by at most as many as there are digits.
    const std::int64_t gap = a.places - b.places;
    const auto power = static_cast<std::size_t>(std::abs(gap));
    if (gap >= 0)
        return Compare(ToWide(a.magnitude), Product(b.magnitude, kPowers[power]));
    return Compare(Product(a.magnitude, kPowers[power]), ToWide(b.magnitude));
}

} // namespace

Status Add(const Number& a, const Number& b, Number& result)
{
    const bool isFiner = a.places >= b.places;
    const Number& fine = isFiner ? a : b;
    const Number& coarse = isFiner ? b : a;
    const std::int64_t gap = fine.places - coarse.places;
    if (coarse.magnitude == 0)
        return Fit({ToWide(fine.magnitude), fine.places, fine.negative}, kMostPlaces, result);
    if (gap > kWidestGap)
        return Fit(SumOf(CutBy(fine, gap - kWidestGap + 1), coarse), kMostPlaces, result);
    return Fit(SumOf(fine, coarse), kMostPlaces, result);
}

Status Subtract(const Number& a, const Number& b, Number& result)
{
    return Add(a, {b.magnitude, b.places, !b.negative}, result);
}

Status Multiply(const Number& a, const Number& b, Number& result)
{
    return Fit({Product(a.magnitude, b.magnitude), a.places + b.places, a.negative != b.negative},
               kMostPlaces, result);
}

namespace {

/// The product of two magnitudes in its upper 128 of 192 bits and the lower 64.
struct LongProduct {
    LongProduct(uint128 a, uint128 b)
    {
        const uint128 lowest = uint128{LowHalf(a)} * LowHalf(b);
        const uint128 middle =
            uint128{LowHalf(a)} * HighHalf(b) + uint128{HighHalf(a)} * LowHalf(b);
        upper = Joined(HighHalf(a) * HighHalf(b), 0) + middle + HighHalf(lowest);
        lower = LowHalf(lowest);
    }

    /// Above 128 bits, `length` of them.
    int CountDigits(int length) const
    {
        const std::size_t sure = SureDigits(length);
        const Wide& power = kPowers[sure];
        const uint128 borrow = OneIf(lower < power.limb[0]);
        const bool isBelow = upper < Joined(power.limb[2], power.limb[1]) + borrow;
        return static_cast<int>(sure) + 1 - (isBelow ? 1 : 0);
    }

    uint128 upper;
    std::uint64_t lower;
};

} // namespace

bool MultiplyLong(const Number& a, const Number& b, Fitted& result)
{
    const LongProduct product(a.magnitude, b.magnitude);
    const std::int64_t places = a.places + b.places;
    if (HighHalf(product.upper) == 0) {
        result.magnitude = Joined(LowHalf(product.upper), product.lower);
        result.places = places;
        return FitNarrow(result.magnitude, result.places, result.inexact);
    }
    const int zeros = 64 - BitLength(HighHalf(product.upper));
    const std::int64_t drop = std::max<std::int64_t>(product.CountDigits(192 - zeros) - kMostDigits,
                                                     places - kMostPlaces);
    if (drop > places || drop > kLargestDivisor)
        return false;
    // The quotient with some bits behind its point. Mostly they tell the direction in which it is
    // rounded, and that there is a remainder, so nobody has to know the remainder itself.
    const auto& [reciprocal, shift] = kDivisors[static_cast<std::size_t>(drop)];
    const uint128 normalised = product.upper << zeros | product.lower >> (64 - zeros);
    const uint128 quotient = UpperProduct(normalised, reciprocal);
    const int bits = zeros + static_cast<int>(shift) - 64;
    if (bits > 63)
        return false;
    // What is cut off the product and the reciprocal lacks cost less than 1 each. If that may hide
    // a whole or a half quotient, or there may be no remainder, the long way has to tell.
    constexpr std::uint64_t kLacking = 5;
    const std::uint64_t half = std::uint64_t{1} << (bits - 1);
    if ((LowHalf(quotient) & (half - 1)) - 1 >= half - 1 - kLacking)
        return false;
    result.magnitude = ShiftedRight(quotient, static_cast<unsigned>(bits)) +
                       OneIf((LowHalf(quotient) & half) != 0);
    result.places = places - drop;
    result.inexact = true;
    return result.magnitude <= kLargestMagnitude;
}

Status Power(const Number& base, int exponent, Number& result)
{
    const Number one = {1, 0, false};
    Number factor = base;
    Number power = one;
    Status worst = Status::Ok;
    const auto multiply = [&](const Number& a, const Number& b, Number& product) {
        const Status status = Multiply(a, b, product);
        worst = std::max(worst, status);
        return worst < Status::Overflow;
    };
    for (auto rest = static_cast<std::uint32_t>(std::abs(std::int64_t{exponent})); rest != 0;) {
        if ((rest & 1) != 0 && !multiply(power, factor, power))
            return worst;
        rest >>= 1;
        if (rest != 0 && !multiply(factor, factor, factor))
            return worst;
    }
    if (exponent < 0)
        worst = std::max(worst, Divide(one, power, power));
    result = power;
    return worst;
}

int Compare(const Number& a, const Number& b)
{
    const int signOfA = a.magnitude == 0 ? 0 : a.negative ? -1 : 1;
    const int signOfB = b.magnitude == 0 ? 0 : b.negative ? -1 : 1;
    if (signOfA != signOfB)
        return signOfA < signOfB ? -1 : 1;
    return signOfA * CompareMagnitudes(a, b);
}

Status Round(const Number& number, int places, Rounding method, Number& result)
{
    result = number;
    if (places >= number.places)
        return Status::Ok;
    const int mostPlaces = number.negative ? kMostPlaces : kMostPlacesRead;
    const std::int64_t kept = std::min(places, mostPlaces);
    const std::int64_t drop = number.places - kept;
    bool inexact = false;
    if (drop > CountDigits(number.magnitude))
        result.magnitude = method == Rounding::AwayFromZero && number.magnitude != 0 ? 1 : 0;
    else
        result.magnitude =
            Shortened(ToWide(number.magnitude), static_cast<int>(drop), method, inexact);
    // Brings tens and hundreds back to whole numbers.
    return Fit({ToWide(result.magnitude), kept, number.negative}, mostPlaces, result);
}

std::int32_t ToInt32(const Number& number, Rounding method)
{
    constexpr std::int64_t kAbove = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    Number whole = number;
    if (number.places > 0)
        Round(number, 0, method, whole);
    std::int64_t magnitude =
        whole.magnitude < kAbove ? static_cast<std::int64_t>(whole.magnitude) : kAbove;
    if (magnitude != 0 && whole.places < 0) {
        const bool isBeyond = whole.places < -9;
        magnitude = isBeyond ? kAbove
                             : std::min(kAbove, magnitude * static_cast<std::int64_t>(Power128(
                                                                static_cast<int>(-whole.places))));
    }
    if (number.negative)
        return magnitude >= kAbove ? std::numeric_limits<std::int32_t>::min()
                                   : static_cast<std::int32_t>(-magnitude);
    return static_cast<std::int32_t>(std::min(magnitude, kAbove - 1));
}

} // namespace zeldec
