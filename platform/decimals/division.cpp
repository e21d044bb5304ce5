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

    /// Divides a dividend of up to 192 bits; the quotient must be below 2^96.
    Quotient128 Divide(const Wide& dividend) const
    {
        if (m_shift == 0) {
            const QuotientStep high = DivideShort(dividend.limb[2], dividend.limb[1]);
            const QuotientStep low = DivideShort(LowHalf(high.remainder), dividend.limb[0]);
            return {Joined(high.quotient, low.quotient), low.remainder};
        }
        const Wide shifted = ShiftedLeft(dividend, m_shift);
        const QuotientStep high =
            DivideStep(Joined(shifted.limb[3], shifted.limb[2]), shifted.limb[1]);
        const QuotientStep low = DivideStep(high.remainder, shifted.limb[0]);
        return {Joined(high.quotient, low.quotient), low.remainder >> m_shift};
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

    QuotientStep DivideWide(const Wide& dividend) const
    {
        const Wide shifted = ShiftedLeft(dividend, m_shift);
        const QuotientStep step =
            DivideStep(Joined(shifted.limb[2], shifted.limb[1]), shifted.limb[0]);
        return {step.quotient, step.remainder >> m_shift};
    }

    /// Divides `high` and, behind it, `low` by the normalised divisor of 128 bits, which is above
    /// `high`: an estimate from the upper words, then at most two corrections.
    QuotientStep DivideStep(uint128 high, std::uint64_t low) const
    {
        const std::uint64_t top = HighHalf(m_normalised);
        std::uint64_t quotient = ~std::uint64_t{0};
        uint128 rest = uint128{LowHalf(high)} + top;
        if (HighHalf(high) < top) {
            const Quotient64 estimate = Divided(HighHalf(high), LowHalf(high), top);
            quotient = estimate.quotient;
            rest = estimate.remainder;
        }
        uint128 product = uint128{quotient} * LowHalf(m_normalised);
        while (HighHalf(rest) == 0 && product > Joined(LowHalf(rest), low)) {
            --quotient;
            rest += top;
            product -= LowHalf(m_normalised);
        }
        const uint128 remainder = Joined(LowHalf(high), low) - uint128{quotient} * m_normalised;
        return {quotient, remainder};
    }

    uint128 m_divisor;
    unsigned m_shift;
    uint128 m_normalised;
};

/// Takes zeros off the end of a quotient as long as more than `least` places are left.
void StripZeros(uint128& quotient, std::int64_t& places, std::int64_t least)
{
    for (const int step : {16, 8, 4, 2, 1}) {
        // A multiple of 10^n has n zero bits at its end.
        const uint128 bits = (uint128{1} << step) - 1;
        if (places - least < step || (quotient & bits) != 0)
            continue;
        const auto [rest, dropped] = DividedByPower(ToWide(quotient), step);
        if (dropped != 0)
            continue;
        quotient = rest;
        places -= step;
    }
}

/// The digits before the point of a quotient of whole numbers; 0 and less count the zeros behind
/// it.
int DigitsOfQuotient(std::uint64_t dividend, std::uint64_t divisor)
{
    const int digits = CountDigits(dividend) - CountDigits(divisor);
    const auto powerFor = [](int distance) {
        return kPowers64[static_cast<std::size_t>(std::max(distance, 0))];
    };
    const uint128 a = uint128{dividend} * powerFor(-digits);
    const uint128 b = uint128{divisor} * powerFor(digits);
    return digits + (a >= b ? 1 : 0);
}

int DigitsOfQuotient(uint128 dividend, uint128 divisor)
{
    if (HighHalf(dividend | divisor) == 0)
        return DigitsOfQuotient(LowHalf(dividend), LowHalf(divisor));
    const int digits = CountDigits(dividend) - CountDigits(divisor);
    const uint128 a = dividend * Power128(std::max(-digits, 0));
    const uint128 b = divisor * Power128(std::max(digits, 0));
    return digits + (a >= b ? 1 : 0);
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
    constexpr std::int64_t kManySteps = std::int64_t{3} * kLargestPower64;
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
    const std::int64_t difference = a.places - b.places;
    if (a.magnitude == 0)
        return Fit({ToWide(0), difference, false}, kMostPlaces, result);

    // Exactly as many places as a result of 28 digits may have.
    const std::int64_t wholeDigits = DigitsOfQuotient(a.magnitude, b.magnitude) - difference;
    if (wholeDigits > kMostDigits)
        return Status::Overflow;
    Exact exact = {ToWide(0), std::min<std::int64_t>(kMostPlaces, kMostDigits - wholeDigits),
                   a.negative != b.negative};
    const Divisor divisor(b.magnitude);
    if (exact.places < difference) {
        // The dividend brings more places than that: they are rounded away.
        uint128 rest = 0;
        exact.magnitude = ToWide(divisor.Divide(a.magnitude, rest));
        exact.places = difference;
        exact.cut = rest != 0;
        return Fit(exact, kMostPlaces, result);
    }
    const auto scale = static_cast<std::size_t>(exact.places - difference);
    auto [quotient, rest] =
        divisor.Divide(HighHalf(a.magnitude) == 0 ? Product(LowHalf(a.magnitude), kPowers[scale])
                                                  : Product(a.magnitude, kPowers[scale]));
    if (rest == 0) {
        StripZeros(quotient, exact.places, std::max<std::int64_t>(difference, 0));
    } else {
        quotient += rest >= b.magnitude - rest ? 1 : 0;
        exact.cut = true;
        if (quotient > kLargestMagnitude) {
            exact.magnitude = ToWide(quotient);
            return Fit(exact, kMostPlaces, result);
        }
    }
    result = {quotient, exact.places, exact.negative && quotient != 0};
    return exact.cut ? Status::Inexact : Status::Ok;
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
