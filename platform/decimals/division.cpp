#include "platform/decimals/arithmetic.h"

#include <algorithm>

namespace zeldec {

namespace {

struct QuotientStep {
    std::uint64_t quotient;
    uint128 remainder;
};

/// A divisor of up to 96 bits, prepared for quotients of up to 64 bits.
class Divisor {
public:
    explicit Divisor(uint128 divisor)
        : m_divisor(divisor),
          m_shift(HighHalf(divisor) == 0 ? 0 : static_cast<unsigned>(128 - BitLength(divisor))),
          m_normalised(divisor << m_shift)
    {}

    /// Divides `factor` * `remainder`; the factor has up to 64 bits and `remainder` is below the
    /// divisor.
    QuotientStep Divide(uint128 remainder, std::uint64_t factor) const
    {
        if (m_shift != 0)
            return DivideWide(Product(remainder, factor));
        const uint128 dividend = uint128{LowHalf(remainder)} * factor;
        return DivideShort(HighHalf(dividend), LowHalf(dividend));
    }

    /// Divides a dividend of up to 96 bits; its quotient may have as many.
    uint128 Divide(uint128 dividend, uint128& remainder) const
    {
        if (m_shift != 0) {
            const QuotientStep step = DivideWide(ToWide(dividend));
            remainder = step.remainder;
            return step.quotient;
        }
        if (HighHalf(dividend) == 0) {
            remainder = LowHalf(dividend) % LowHalf(m_divisor);
            return LowHalf(dividend) / LowHalf(m_divisor);
        }
        const QuotientStep high = DivideShort(0, HighHalf(dividend));
        const QuotientStep low = DivideShort(LowHalf(high.remainder), LowHalf(dividend));
        remainder = low.remainder;
        return Joined(high.quotient, low.quotient);
    }

private:
    QuotientStep DivideShort(std::uint64_t high, std::uint64_t low) const
    {
        const Quotient64 step = Divided(high, low, LowHalf(m_divisor));
        return {step.quotient, step.remainder};
    }

    /// The divisor has more than 64 bits, the quotient at most 64: an estimate from the upper
    /// words, then at most two corrections.
    QuotientStep DivideWide(const Wide& dividend) const
    {
        const Wide shifted = Product(uint128{1} << m_shift, dividend);
        const std::uint64_t top = HighHalf(m_normalised);
        std::uint64_t quotient = ~std::uint64_t{0};
        uint128 rest = uint128{shifted.limb[1]} + top;
        if (shifted.limb[2] < top) {
            const Quotient64 estimate = Divided(shifted.limb[2], shifted.limb[1], top);
            quotient = estimate.quotient;
            rest = estimate.remainder;
        }
        uint128 product = uint128{quotient} * LowHalf(m_normalised);
        while (HighHalf(rest) == 0 && product > Joined(LowHalf(rest), shifted.limb[0])) {
            --quotient;
            rest += top;
            product -= LowHalf(m_normalised);
        }
        const uint128 remainder = shifted.Low() - uint128{quotient} * m_normalised;
        return {quotient, remainder >> m_shift};
    }

    uint128 m_divisor;
    unsigned m_shift;
    uint128 m_normalised;
};

/// Takes zeros off the end of a quotient as long as more than `least` places are left.
void StripZeros(Exact& quotient, std::int64_t least)
{
    uint128 magnitude = quotient.magnitude.Low();
    for (const int step : {16, 8, 4, 2, 1}) {
        const uint128 bits = (uint128{1} << step) - 1;
        if (quotient.places - least < step || (magnitude & bits) != 0)
            continue;
        const auto [rest, dropped] = DividedByPower(ToWide(magnitude), step);
        if (dropped != 0)
            continue;
        magnitude = rest;
        quotient.places -= step;
    }
    quotient.magnitude = ToWide(magnitude);
}

/// The product of two numbers below the divisor, modulo the divisor.
uint128 ProductModulo(uint128 a, uint128 b, const Divisor& divisor, uint128 modulus)
{
    uint128 result = 0;
    for (const int shift : {64, 32, 0}) {
        const auto word = static_cast<std::uint32_t>(b >> shift);
        result = divisor.Divide(result, std::uint64_t{1} << 32).remainder +
                 divisor.Divide(a, word).remainder;
        result -= result >= modulus ? modulus : 0;
    }
    return result;
}

/// number * 10^exponent modulo the divisor; the number is below the divisor.
uint128 ScaledModulo(uint128 number, std::int64_t exponent, const Divisor& divisor, uint128 modulus)
{
    constexpr std::int64_t kManySteps = 3 * kLargestPower64;
    if (exponent > kManySteps) {
        uint128 square = 0;
        divisor.Divide(10, square);
        for (std::int64_t rest = exponent; rest != 0; rest >>= 1) {
            if ((rest & 1) != 0)
                number = ProductModulo(number, square, divisor, modulus);
            square = ProductModulo(square, square, divisor, modulus);
        }
        return number;
    }
    while (exponent > 0) {
        const auto step = std::min<std::int64_t>(exponent, kLargestPower64);
        number = divisor.Divide(number, kPowers64[static_cast<std::size_t>(step)]).remainder;
        exponent -= step;
    }
    return number;
}

} // namespace

Status Divide(const Number& a, const Number& b, Number& result)
{
    if (b.magnitude == 0)
        return Status::DivisionByZero;
    const Divisor divisor(b.magnitude);
    const std::int64_t difference = a.places - b.places;
    uint128 remainder = 0;
    uint128 quotient = divisor.Divide(a.magnitude, remainder);
    Exact exact = {ToWide(0), difference, a.negative != b.negative};
    int digits = CountDigits(quotient);
    while (remainder != 0) {
        const auto room = std::min<std::int64_t>(kMostDigits - digits, kMostPlaces - exact.places);
        if (room <= 0)
            break;
        const int step = static_cast<int>(std::min<std::int64_t>(room, kLargestPower64));
        const std::uint64_t power = kPowers64[static_cast<std::size_t>(step)];
        const QuotientStep next = divisor.Divide(remainder, power);
        remainder = next.remainder;
        quotient = quotient * power + next.quotient;
        exact.places += step;
        digits = CountDigits(quotient);
    }
    if (remainder == 0) {
        exact.magnitude = ToWide(quotient);
        StripZeros(exact, std::max<std::int64_t>(difference, 0));
        return Fit(exact, kMostPlaces, result);
    }
    // What is still too long loses digits when it is fitted, and what lies behind these does not
    // matter then.
    const bool isFull = digits <= kMostDigits && exact.places <= kMostPlaces;
    if (isFull && remainder >= b.magnitude - remainder)
        ++quotient;
    exact.magnitude = ToWide(quotient);
    exact.cut = true;
    return Fit(exact, kMostPlaces, result);
}

Status Remainder(const Number& a, const Number& b, Number& result)
{
    if (b.magnitude == 0)
        return Status::DivisionByZero;
    const std::int64_t gap = a.places - b.places;
    uint128 rest = a.magnitude;
    if (gap < 0) {
        const Divisor divisor(b.magnitude);
        divisor.Divide(a.magnitude, rest);
        rest = ScaledModulo(rest, -gap, divisor, b.magnitude);
    } else if (gap <= kMostDigits) {
        const Wide scaled = Product(b.magnitude, kPowers[static_cast<std::size_t>(gap)]);
        if (Compare(scaled, ToWide(a.magnitude)) <= 0)
            Divisor(scaled.Low()).Divide(a.magnitude, rest);
    }
    return Fit({ToWide(rest), std::max(a.places, b.places), a.negative}, kMostPlaces, result);
}

} // namespace zeldec
