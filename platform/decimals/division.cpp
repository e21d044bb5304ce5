#include "platform/decimals/arithmetic.h"

#include <algorithm>

namespace zeldec {

namespace {

struct QuotientStep {
    std::uint64_t quotient;
    uint128 remainder;
};

/// Divides `high` and, behind it, `low` by a normalised divisor of 128 bits, which is above
/// `high`: an estimate from the upper words, then at most two corrections.
inline QuotientStep DivideStep(uint128 high, std::uint64_t low, uint128 divisor)
{
    const std::uint64_t top = HighHalf(divisor);
    std::uint64_t quotient = ~std::uint64_t{0};
    uint128 rest = uint128{LowHalf(high)} + top;
    if (HighHalf(high) < top) {
        const Quotient64 estimate = Divided(HighHalf(high), LowHalf(high), top);
        quotient = estimate.quotient;
        rest = estimate.remainder;
    }
    const uint128 product = uint128{quotient} * LowHalf(divisor);
    const uint128 minuend = Joined(LowHalf(rest), low);
    uint128 remainder = minuend - product;
    if (HighHalf(rest) == 0) {
        // One correction is so frequent that a branch would often be guessed wrong.
        const bool isTooLarge = minuend < product;
        quotient -= OneIf(isTooLarge);
        const uint128 correction = Masked(divisor, isTooLarge);
        remainder += correction;
        if (isTooLarge && remainder >= correction) {
            --quotient;
            remainder += divisor;
        }
    }
    return {quotient, remainder};
}

/// 2^254 divided by a normalised divisor of 128 bits, at most 13 too small or too large.
inline uint128 ReciprocalOf(uint128 divisor)
{
    // The upper half from the upper half of the divisor, and a step of Newton's method for the
    // other bits. The remainder tells what the product with the divisor lacks of 2^190; `lacking`
    // is that divided by 2^65.
    const auto [upper, remainder] =
        Divided((std::uint64_t{1} << 62) - 1, ~std::uint64_t{0}, HighHalf(divisor));
    const std::uint64_t excess = HighHalf(uint128{upper} * LowHalf(divisor));
    const auto lacking = static_cast<std::int64_t>(((remainder + 1) >> 1) - (excess >> 1));
    const int128 correction = int128{static_cast<std::int64_t>(upper)} * lacking;
    return Joined(upper, 0) + static_cast<uint128>(correction >> 61);
}

/// The digits that quotients between 2^(exponent - 1) and 2^(exponent + 1) have before the point at
/// least, and the first quotient with one more: divided by 2^exponent, multiplied with 2^62.
struct QuotientLength {
    std::int32_t digits;
    std::uint64_t next;
};

constexpr QuotientLength MakeQuotientLength(int exponent)
{
    // The power of ten and its distance from the power of two, as a numerator and a denominator.
    const bool isWhole = exponent > 0;
    const uint128 lowest = uint128{1} << (isWhole ? exponent - 1 : 1 - exponent);
    const int digits = isWhole ? CountDigits(lowest) : 1 - CountDigits(lowest);
    const uint128 numerator = isWhole ? Power128(digits) << 62 : uint128{1} << (62 - exponent);
    const uint128 denominator = isWhole ? uint128{1} << exponent : Power128(-digits);
    const uint128 next = (numerator + denominator - 1) / denominator;
    return {digits, HighHalf(next) == 0 ? LowHalf(next) : ~std::uint64_t{0}};
}

/// The exponents up to which that is known, positive and negative.
constexpr int kMostBits = 63;

constexpr auto kQuotientLengths = [] {
    std::array<QuotientLength, 2 * kMostBits + 1> lengths{};
    int exponent = -kMostBits;
    for (QuotientLength& length : lengths)
        length = MakeQuotientLength(exponent++);
    return lengths;
}();

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
        const QuotientStep high = DivideStep(shifted.High(), shifted.limb[1], m_normalised);
        const QuotientStep low = DivideStep(high.remainder, shifted.limb[0], m_normalised);
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
            DivideStep(Joined(shifted.limb[2], shifted.limb[1]), shifted.limb[0], m_normalised);
        return {step.quotient, step.remainder >> m_shift};
    }

    uint128 m_divisor;
    unsigned m_shift;
    uint128 m_normalised;
};

/// What tells whether a number of 64 bits ends with so many zeros: it does if the product with the
/// inverse of 5^zeros, rotated right by as many bits, is not above the greatest quotient, and then
/// that is its quotient.
struct ZeroTest {
    int zeros;
    std::uint64_t inverse;
    std::uint64_t greatest;
};

constexpr ZeroTest MakeZeroTest(int zeros)
{
    std::uint64_t fives = 1;
    for (int i = 0; i < zeros; ++i)
        fives *= 5;
    // Each step doubles the bits that are right; of an odd number itself the lowest three are.
    std::uint64_t inverse = fives;
    for (int i = 0; i < 5; ++i)
        inverse *= 2 - fives * inverse;
    return {zeros, inverse, ~std::uint64_t{0} / kPowers64[static_cast<std::size_t>(zeros)]};
}

constexpr ZeroTest kZeroTests[] = {MakeZeroTest(16), MakeZeroTest(8), MakeZeroTest(4),
                                   MakeZeroTest(2), MakeZeroTest(1)};

/// Takes zeros off the end of a quotient as long as more than `least` places are left.
std::uint64_t WithoutZeros(std::uint64_t quotient, std::int64_t& places, std::int64_t least)
{
    for (const ZeroTest& test : kZeroTests) {
        const std::uint64_t rest = std::rotr(quotient * test.inverse, test.zeros);
        const bool endsSo = rest <= test.greatest && places - least >= test.zeros;
        quotient = endsSo ? rest : quotient;
        places -= endsSo ? test.zeros : 0;
    }
    return quotient;
}

/// The same for long quotients.
void StripZeros(uint128& quotient, std::int64_t& places, std::int64_t least)
{
    for (const int step : {16, 8, 4, 2, 1}) {
        if (HighHalf(quotient) == 0) {
            quotient = WithoutZeros(LowHalf(quotient), places, least);
            return;
        }
        // A multiple of 10^n has n zero bits at its end.
        const uint128 bits = (uint128{1} << step) - 1;
        if (places - least < step || (quotient & bits) != 0)
            continue;
        const auto [rest, dropped] = DividedByShortPower(quotient, step);
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

[[gnu::always_inline]] inline int DigitsOfLongQuotient(uint128 dividend, uint128 divisor)
{
    const int digits = CountDigits(dividend) - CountDigits(divisor);
    const uint128 a = dividend * Power128(std::max(-digits, 0));
    const uint128 b = divisor * Power128(std::max(digits, 0));
    return digits + (a >= b ? 1 : 0);
}

int DigitsOfQuotient(uint128 dividend, uint128 divisor)
{
    return HighHalf(dividend | divisor) == 0 ? DigitsOfQuotient(LowHalf(dividend), LowHalf(divisor))
                                             : DigitsOfLongQuotient(dividend, divisor);
}

/// The number, whose last zeros are dropped as long as more than `least` places are left.
Number WithFewestPlaces(uint128 quotient, std::int64_t places, std::int64_t least, bool negative)
{
    if (places < least) {
        quotient *= Power128(static_cast<int>(least - places));
        places = least;
    }
    StripZeros(quotient, places, least);
    return {quotient, places, negative};
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
    const int digits = DigitsOfQuotient(a.magnitude, b.magnitude);
    const std::int64_t wholeDigits = digits - difference;
    if (wholeDigits > kMostDigits)
        return Status::Overflow;
    const std::int64_t places = std::min<std::int64_t>(kMostPlaces, kMostDigits - wholeDigits);
    const bool negative = a.negative != b.negative;
    const Divisor divisor(b.magnitude);
    if (places < difference) {
        // The dividend brings more places than that: they are rounded away.
        uint128 rest = 0;
        const uint128 quotient = divisor.Divide(a.magnitude, rest);
        return Fit({ToWide(quotient), difference, negative, rest != 0}, kMostPlaces, result);
    }

    const auto scale = static_cast<int>(places - difference);
    auto [quotient, rest] = divisor.Divide(
        scale <= kLargestPower128 ? Product(a.magnitude, Power128(scale))
                                  : Product(a.magnitude, kPowers[static_cast<std::size_t>(scale)]));
    if (rest == 0) {
        const auto least = std::max<std::int64_t>(difference, 0);
        result = WithFewestPlaces(quotient, places, least, negative);
        return Status::Ok;
    }
    quotient += OneIf(rest >= b.magnitude - rest);
    if (quotient > kLargestMagnitude)
        return Fit({ToWide(quotient), places, negative, true}, kMostPlaces, result);
    result = {quotient, places, negative && quotient != 0};
    return Status::Inexact;
}

bool DivideLong(const Number& a, const Number& b, Fitted& result)
{
    int zerosOfA = 0;
    int zerosOfB = 0;
    const uint128 dividend = Normalised(a.magnitude, zerosOfA);
    const uint128 divisor = Normalised(b.magnitude, zerosOfB);
    const int exponent = zerosOfB - zerosOfA;
    const int index = exponent + kMostBits;
    // Zeros alone have no highest bit.
    const bool isZero = static_cast<std::int64_t>(HighHalf(dividend & divisor)) >= 0;
    if (isZero || index < 0 || index > 2 * kMostBits)
        return false;
    // That of the normalised numbers * 2^126, at most 16 too small or too large.
    const uint128 quotient = UpperProduct(dividend, ReciprocalOf(divisor));
    const QuotientLength& length = kQuotientLengths[static_cast<std::size_t>(index)];
    const int digits = length.digits + (HighHalf(quotient) >= length.next ? 1 : 0);
    const std::int64_t difference = a.places - b.places;
    const std::int64_t scale =
        std::min<std::int64_t>(kMostDigits - digits, kMostPlaces - difference);
    result.places = difference + scale;
    if (scale < 0 || scale > kLargestPower128 || result.places < 0)
        return false;
    const auto& [power, bits] = kNormalisedPowers[static_cast<std::size_t>(scale)];
    result.inexact = true;
    const NearQuotient scaled = {UpperProduct(quotient, power), 126 - exponent - bits};
    if (scaled.bits > 63 || !scaled.IsSure())
        return false;
    result.magnitude = scaled.Rounded();
    return IsSurelyWithin(result.magnitude);
}

bool DivideShort(std::uint64_t a, std::uint64_t b, std::int64_t difference, Fitted& result)
{
    // As by hand, with up to 19 digits at a time: the first time so many that the quotient fits 64
    // bits, or two fewer. It is below 2^bits.
    if (a == 0 || b == 0)
        return false;
    const int bits = BitLength(a) - BitLength(b) + 1;
    const int first = std::min(static_cast<int>(SureDigits(64 - bits)), kLargestPower64);
    const uint128 scaled = uint128{a} * kPowers64[static_cast<std::size_t>(first)];
    const Quotient64 head = Divided(HighHalf(scaled), LowHalf(scaled), b);
    // All places that a result of 28 digits may have.
    const int digits = CountDigits(head.quotient);
    const std::int64_t second =
        std::min<std::int64_t>(kMostDigits - digits, kMostPlaces - difference - first);
    result.places = difference + first;
    if (digits - result.places > kMostDigits)
        return false;
    if (head.remainder == 0) {
        const std::int64_t least = std::max<std::int64_t>(difference, 0);
        if (result.places < least)
            return false;
        result.magnitude = WithoutZeros(head.quotient, result.places, least);
        result.inexact = false;
        return result.places <= kMostPlaces;
    }
    if (second <= 0 || second > kLargestPower64)
        return false;
    const std::uint64_t power = kPowers64[static_cast<std::size_t>(second)];
    const uint128 rest = uint128{head.remainder} * power;
    const Quotient64 tail = Divided(HighHalf(rest), LowHalf(rest), b);
    result.magnitude = uint128{head.quotient} * power + tail.quotient +
                       OneIf(tail.remainder >= b - tail.remainder);
    result.places += second;
    result.inexact = true;
    return tail.remainder != 0 && IsSurelyWithin(result.magnitude);
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
