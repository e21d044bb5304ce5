#include "platform/runtime/doubletext.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <emmintrin.h>

/// A number is first scaled by a power of ten to an integer of 15 digits. The power has 128 bits,
/// cut off below, so that the scaled number is known with an error of less than 2 in its 128 bits.
/// Only where that leaves open to which side to round, which hardly happens but in exact ties, does
/// the standard library decide.

namespace {

__extension__ typedef unsigned __int128 uint128;

constexpr int kDigits = 15;
constexpr std::uint64_t kDigitsLimit = 1'000'000'000'000'000;

/// The powers of ten that numbers are scaled by, and those that tell their number of digits.
constexpr int kLowestPower = -324;
constexpr int kHighestPower = 338;

/// floor(log2(10^exponent)) and floor(log10(2^exponent)).
constexpr int BinaryExponentOfPower(int exponent)
{
    return (exponent * 1741647) >> 19;
}
constexpr int DecimalExponentOfPower(int exponent)
{
    return (exponent * 315653) >> 20;
}

/// 1.xxx of a power of ten, times 2^127, cut off.
struct Significand {
    std::uint64_t high;
    std::uint64_t low;
};

/// A power of ten to 256 bits: limbs / 2^255 * 2^exponent, the first limb the highest.
struct LongPower {
    std::uint64_t limbs[4];
    int exponent;

    constexpr void TimesTen()
    {
        std::uint64_t carry = 0;
        for (int i = 3; i >= 0; --i) {
            const uint128 product = uint128{limbs[i]} * 10 + carry;
            limbs[i] = static_cast<std::uint64_t>(product);
            carry = static_cast<std::uint64_t>(product >> 64);
        }
        const int shift = carry < 8 ? 3 : 4;
        for (int i = 3; i > 0; --i)
            limbs[i] = limbs[i] >> shift | limbs[i - 1] << (64 - shift);
        limbs[0] = limbs[0] >> shift | carry << (64 - shift);
        exponent += shift;
    }

    constexpr void OverTen()
    {
        std::uint64_t quotient[5] = {};
        std::uint64_t rest = 0;
        for (int i = 0; i < 5; ++i) {
            const uint128 part = uint128{rest} << 64 | (i < 4 ? limbs[i] : 0);
            quotient[i] = static_cast<std::uint64_t>(part / 10);
            rest = static_cast<std::uint64_t>(part % 10);
        }
        const int shift = std::countl_zero(quotient[0]);
        for (int i = 0; i < 4; ++i)
            limbs[i] = quotient[i] << shift | quotient[i + 1] >> (64 - shift);
        exponent -= shift;
    }
};

class PowersOfTen {
public:
    consteval PowersOfTen() : m_powers()
    {
        constexpr LongPower one{{std::uint64_t{1} << 63, 0, 0, 0}, 0};
        LongPower power = one;
        for (int i = 0; i <= kHighestPower; ++i, power.TimesTen())
            Set(i, power);
        power = one;
        for (int i = 0; i >= kLowestPower; --i, power.OverTen())
            Set(i, power);
    }

    constexpr const Significand& operator[](int exponent) const
    {
        return m_powers[static_cast<std::size_t>(exponent - kLowestPower)];
    }

private:
    consteval void Set(int exponent, const LongPower& power)
    {
        // A limb of ones behind the cut could hide a carry that the 256 bits have lost.
        if (power.exponent != BinaryExponentOfPower(exponent) || power.limbs[2] == UINT64_MAX)
            throw "inexact";
        m_powers[static_cast<std::size_t>(exponent - kLowestPower)] = {power.limbs[0],
                                                                       power.limbs[1]};
    }

    std::array<Significand, kHighestPower - kLowestPower + 1> m_powers;
};

constexpr PowersOfTen kPowersOfTen;

/// Whether 10^e <= 2^i < 10^(e+1) for e = DecimalExponentOfPower(i) and every binary exponent.
consteval bool AreDecimalExponentsRight()
{
    constexpr Significand one{std::uint64_t{1} << 63, 0};
    for (int i = -1074; i <= 1023; ++i) {
        const int exponent = DecimalExponentOfPower(i);
        const int below = BinaryExponentOfPower(exponent);
        const Significand power = kPowersOfTen[exponent];
        const bool isPower = power.high == one.high && power.low == one.low;
        if (below > i || (below == i && !isPower) || BinaryExponentOfPower(exponent + 1) < i)
            return false;
    }
    return true;
}
static_assert(AreDecimalExponentsRight());

/// digits * 10^(exponent - 14), with 15 digits of which the first is not 0; digits 0 for zero.
struct Scaled {
    std::uint64_t digits;
    int exponent;
};

/// The slow way.
Scaled ScaleByLibrary(double magnitude) noexcept
{
    char text[32];
    const char* const end = std::to_chars(text, text + sizeof text, magnitude,
                                          std::chars_format::scientific, kDigits - 1)
                                .ptr;
    const char* const mark = text + kDigits + 1;
    text[1] = text[0];
    Scaled scaled{};
    std::from_chars(text + 1, mark, scaled.digits);
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, scaled.exponent);
    return scaled;
}

/// The decimal exponent of significand / 2^63 * 2^binaryExponent. One too high only for numbers
/// that round to the power of ten above them.
int DecimalExponent(std::uint64_t significand, int binaryExponent) noexcept
{
    const int exponent = DecimalExponentOfPower(binaryExponent);
    const unsigned sameBits = BinaryExponentOfPower(exponent + 1) == binaryExponent;
    const unsigned reached = significand >= kPowersOfTen[exponent + 1].high;
    return exponent + static_cast<int>(sameBits & reached); // a branch would often be mispredicted
}

/// Whether the fraction, of which `low` is the lower half, is one half or misses it by 1.
bool IsUndecided(std::uint64_t high, std::uint64_t low, int fractionBits) noexcept
{
    const std::uint64_t half = std::uint64_t{1} << (fractionBits - 1);
    const std::uint64_t fraction = high & (half * 2 - 1);
    return low == 0 ? fraction == half : low == UINT64_MAX && fraction == half - 1;
}

/// `magnitude` is finite and not negative.
Scaled Scale(double magnitude) noexcept
{
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    if (bits == 0)
        return {0, 0};
    constexpr std::uint64_t hiddenBit = std::uint64_t{1} << 52;
    const bool normal = bits >= hiddenBit;
    const std::uint64_t fraction = normal ? (bits & (hiddenBit - 1)) | hiddenBit : bits;
    const int shift = std::countl_zero(fraction);
    const std::uint64_t significand = fraction << shift;
    const int binaryExponent = (normal ? static_cast<int>(bits >> 52) : 1) - 1012 - shift;

    Scaled scaled{0, DecimalExponent(significand, binaryExponent)};
    const int power = kDigits - 1 - scaled.exponent;
    const Significand& factor = kPowersOfTen[power];
    const uint128 product = uint128{significand} * factor.high +
                            static_cast<std::uint64_t>(uint128{significand} * factor.low >> 64);

    // The digits stand above these bits of the product's upper half.
    const int fractionBits = 62 - binaryExponent - BinaryExponentOfPower(power);
    const auto high = static_cast<std::uint64_t>(product >> 64);
    const auto low = static_cast<std::uint64_t>(product);
    if (low + 1 <= 1 && IsUndecided(high, low, fractionBits)) [[unlikely]]
        return ScaleByLibrary(magnitude);
    scaled.digits = ((high >> (fractionBits - 1)) + 1) >> 1;
    if (scaled.digits == kDigitsLimit) {
        scaled.digits /= 10;
        ++scaled.exponent;
    }
    return scaled;
}

/// 15 digits as text.
class DigitText {
public:
    explicit DigitText(std::uint64_t digits) noexcept
    {
        // Each half has eight digits, the first of all being 0. Every step splits the numbers in
        // all lanes in two, so that in the end each byte holds a digit.
        const __m128i halves = _mm_set_epi64x(static_cast<long long>(digits % 100'000'000),
                                              static_cast<long long>(digits / 100'000'000));
        const __m128i tenThousands =
            _mm_srli_epi64(_mm_mul_epu32(halves, _mm_set1_epi64x(0xD1B71759)), 45);
        const __m128i fours = _mm_or_si128(
            tenThousands,
            _mm_slli_epi64(
                _mm_sub_epi64(halves, _mm_mul_epu32(tenThousands, _mm_set1_epi64x(10000))), 32));
        const __m128i hundreds = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(5243)), 3);
        const __m128i twos = _mm_or_si128(
            hundreds,
            _mm_slli_epi32(_mm_sub_epi16(fours, _mm_mullo_epi16(hundreds, _mm_set1_epi16(100))),
                           16));
        const __m128i tens = _mm_mulhi_epu16(twos, _mm_set1_epi16(6554));
        const __m128i ones = _mm_or_si128(
            tens,
            _mm_slli_epi16(_mm_sub_epi16(twos, _mm_mullo_epi16(tens, _mm_set1_epi16(10))), 8));
        const int zeros = _mm_movemask_epi8(_mm_cmpeq_epi8(ones, _mm_setzero_si128()));
        m_count = 31 - std::countl_zero(static_cast<unsigned>(~zeros) & 0xFFFF);
        m_text = _mm_srli_si128(_mm_or_si128(ones, _mm_set1_epi8('0')), 1);
    }

    /// Writes all 15 digits.
    void Write(char* out) const noexcept { Store(out, m_text); }
    /// Writes all 15 digits with a point behind the first `integers` ones.
    void WriteWithPoint(int integers, char* out) const noexcept
    {
        static constexpr char inFront[32] = {-1, -1, -1, -1, -1, -1, -1, -1,
                                             -1, -1, -1, -1, -1, -1, -1, -1};
        const __m128i mask =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(inFront + 16 - integers));
        const __m128i behind = _mm_slli_si128(m_text, 1);
        Store(out, _mm_or_si128(_mm_and_si128(mask, m_text), _mm_andnot_si128(mask, behind)));
        out[integers] = '.';
    }
    /// Without the zeros at the end.
    int Count() const noexcept { return m_count; }

private:
    static void Store(char* out, __m128i text)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), text);
    }

    __m128i m_text;
    int m_count;
};

/// The three digits of every exponent without its sign.
class ExponentDigits {
public:
    consteval ExponentDigits() : m_texts()
    {
        unsigned exponent = 0;
        for (Text& text : m_texts) {
            text[0] = static_cast<char>('0' + exponent / 100);
            text[1] = static_cast<char>('0' + exponent / 10 % 10);
            text[2] = static_cast<char>('0' + exponent % 10);
            ++exponent;
        }
    }

    const char* Of(int exponent) const noexcept
    {
        return m_texts[static_cast<std::size_t>(exponent)].data();
    }

private:
    using Text = std::array<char, 4>;
    std::array<Text, 1 - kLowestPower> m_texts;
};

constexpr ExponentDigits kExponentDigits;

char* WriteExponent(char* out, int exponent) noexcept
{
    out[0] = 'e';
    out[1] = exponent < 0 ? '-' : '+';
    std::memcpy(out + 2, kExponentDigits.Of(exponent < 0 ? -exponent : exponent), 4);
    return out + 5;
}

char* WriteZeroAndPoint(char* out) noexcept
{
    out[0] = '0';
    out[1] = '.';
    return out + 2;
}

} // namespace

char* zelrt::WriteDouble(double number, char* buffer) noexcept
{
    char* out = buffer;
    *out = '-';
    out += std::bit_cast<std::uint64_t>(number) >> 63;

    const Scaled scaled = Scale(std::fabs(number));
    if (scaled.digits == 0)
        return WriteZeroAndPoint(out);
    const DigitText digits(scaled.digits);
    if (scaled.exponent == -1) {
        out = WriteZeroAndPoint(out);
        digits.Write(out);
        return out + digits.Count();
    }
    // Digits in front of the point, zeros at the end included.
    const bool fixed = scaled.exponent >= 0 && scaled.exponent < kDigits;
    const int integers = fixed ? scaled.exponent + 1 : 1;
    digits.WriteWithPoint(integers, out);
    out += (digits.Count() > integers ? digits.Count() : integers) + 1;
    return fixed ? out : WriteExponent(out, scaled.exponent);
}
