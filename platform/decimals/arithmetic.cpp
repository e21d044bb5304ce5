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

/// The digits of a product of more than 128 bits, of `length` bits altogether.
int CountDigits(const LongProduct& product, int length)
{
    const std::size_t sure = SureDigits(length);
    const Wide& power = kPowers[sure];
    const bool borrows = product.lower < power.limb[0];
    const bool isBelow = product.upper < Joined(power.limb[2], power.limb[1]) + OneIf(borrows);
    return static_cast<int>(sure) + 1 - (isBelow ? 1 : 0);
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

bool MultiplyLong(const Number& a, const Number& b, Fitted& result)
{
    const LongProduct product(a.magnitude, b.magnitude);
    const std::int64_t places = a.places + b.places;
    const uint128 low = Joined(LowHalf(product.upper), product.lower);
    if (HighHalf(product.upper) == 0)
        return FitNarrow(low, places, result);
    const int zeros = 64 - BitLength(HighHalf(product.upper));
    const std::int64_t drop = std::max<std::int64_t>(
        CountDigits(product, 192 - zeros) - kMostDigits, places - kMostPlaces);
    if (drop > places || drop > kLargestDivisor)
        return false;
    result.places = places - drop;
    return DropDigits(low, ShiftedLeft(product, zeros), zeros - 64, drop, result);
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
