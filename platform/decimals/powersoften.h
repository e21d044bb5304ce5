#ifndef ZELDT_PLATFORM_DECIMALS_POWERSOFTEN_H
#define ZELDT_PLATFORM_DECIMALS_POWERSOFTEN_H

/// Powers of ten, and what counting digits and dividing by them needs. Private to the library.

#include "platform/decimals/wide.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zeldec {

/// 10^0 to 10^19.
inline constexpr auto kPowers64 = [] {
    std::array<std::uint64_t, 20> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// 10^0 to 10^77, every power of 256 bits.
inline constexpr auto kPowers = [] {
    std::array<Wide, 78> powers{ToWide(1)};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = Product(std::uint64_t{10}, powers[i - 1]);
    return powers;
}();

/// The largest power of ten of 128 bits, and of 64 bits.
inline constexpr int kLargestPower128 = 38;
inline constexpr int kLargestPower64 = 19;

/// 10^exponent, exponent 0 to 38.
constexpr uint128 Power128(int exponent)
{
    return kPowers[static_cast<std::size_t>(exponent)].Low();
}

static_assert(kPowers64[19] == 10000000000000000000U);
static_assert(Power128(38) / Power128(19) == kPowers64[19]);
static_assert(BitLength(kPowers[77]) == 256);

/// 1233/4096 is log10(2), near enough for 256 bits: all digits of a number of so many bits but
/// perhaps the first.
constexpr std::size_t SureDigits(int bits)
{
    return static_cast<std::size_t>(bits * 1233 >> 12);
}

/// The digits of a number without its leading zeros; 0 has none.
constexpr int CountDigits(std::uint64_t number)
{
    const std::size_t sure = SureDigits(BitLength(number));
    return static_cast<int>(sure) + (number >= kPowers64[sure] ? 1 : 0);
}

/// The same of a number with so many bits.
constexpr int CountDigits(uint128 number, int length)
{
    const std::size_t sure = SureDigits(length);
    return static_cast<int>(sure) + (number >= kPowers[sure].Low() ? 1 : 0);
}

constexpr int CountDigits(uint128 number)
{
    return HighHalf(number) == 0 ? CountDigits(LowHalf(number))
                                 : CountDigits(number, BitLength(number));
}

constexpr int CountDigits(const Wide& number)
{
    if (Fits128(number))
        return CountDigits(number.Low());
    const std::size_t sure = SureDigits(BitLength(number));
    return static_cast<int>(sure) + (Compare(number, kPowers[sure]) >= 0 ? 1 : 0);
}

constexpr bool DigitsAreCounted()
{
    for (std::size_t i = 0; i < kPowers.size(); ++i) {
        const int digits = static_cast<int>(i);
        const Wide below = Difference(kPowers[i], ToWide(1));
        if (CountDigits(kPowers[i]) != digits + 1 || CountDigits(below) != digits)
            return false;
    }
    return true;
}
static_assert(DigitsAreCounted());

/// How to divide by a power of ten D of L bits: the reciprocal is 2^(127 + L) / D, rounded down.
struct PowerDivisor {
    uint128 reciprocal;
    unsigned shift; ///< L - 1
};

/// Divisions by a reciprocal leave less than three times the power, which must fit 128 bits.
inline constexpr int kLargestDivisor = 37;
/// Less than twice this power of ten fits 64 bits.
inline constexpr int kLargestShortDivisor = 18;

/// Those of 10^1 to 10^37.
inline constexpr auto kDivisors = [] {
    std::array<PowerDivisor, kLargestDivisor + 1> divisors{};
    for (int i = 1; i <= kLargestDivisor; ++i) {
        const uint128 power = Power128(i);
        const auto shift = static_cast<unsigned>(BitLength(power) - 1);
        // Long division, bit by bit: 2^shift is below the power.
        uint128 remainder = uint128{1} << shift;
        uint128 quotient = 0;
        for (int bit = 0; bit < 128; ++bit) {
            remainder <<= 1;
            quotient <<= 1;
            if (remainder >= power) {
                remainder -= power;
                quotient |= 1;
            }
        }
        divisors[static_cast<std::size_t>(i)] = {quotient, shift};
    }
    return divisors;
}();

/// Products with them leave room for what is added to round.
static_assert(std::all_of(kDivisors.begin(), kDivisors.end(), [](const PowerDivisor& divisor) {
    return HighHalf(divisor.reciprocal) < ~std::uint64_t{0};
}));

/// 10^exponent, exponent 0 to 38, moved up to the highest of 128 bits.
struct NormalisedPower {
    uint128 number;
    int length; ///< the bits of the power itself
};
inline constexpr auto kNormalisedPowers = [] {
    std::array<NormalisedPower, kLargestPower128 + 1> powers{};
    for (int i = 0; i <= kLargestPower128; ++i) {
        const int length = BitLength(Power128(i));
        powers[static_cast<std::size_t>(i)] = {Power128(i) << (128 - length), length};
    }
    return powers;
}();

struct Quotient128 {
    uint128 quotient;
    uint128 remainder;
};

/// Takes a divisor off a remainder that still contains it.
template <typename Remainder>
constexpr void Correct(uint128& quotient, Remainder& remainder, Remainder divisor)
{
    const bool contains = remainder >= divisor;
    quotient += OneIf(contains);
    remainder -= Masked(divisor, contains);
}

struct ShortQuotient {
    uint128 quotient;
    std::uint64_t remainder;
};

/// The upper half of a product without what the two low halves carry into it: less than 3 below the
/// product / 2^128.
inline uint128 UpperProduct(uint128 a, uint128 b)
{
    const uint128 product = uint128{HighHalf(a)} * HighHalf(b);
    std::uint64_t low = LowHalf(product);
    std::uint64_t high = HighHalf(product);
    const auto add = [&](uint128 cross) {
        high += OneIf(__builtin_add_overflow(low, HighHalf(cross), &low));
    };
    add(uint128{HighHalf(a)} * LowHalf(b));
    add(uint128{LowHalf(a)} * HighHalf(b));
    return Joined(high, low);
}

/// Divides by 10^exponent, exponent 1 to 18.
inline ShortQuotient DividedByShortPower(uint128 number, int exponent)
{
    const auto& [reciprocal, shift] = kDivisors[static_cast<std::size_t>(exponent)];
    const std::uint64_t power = kPowers64[static_cast<std::size_t>(exponent)];
    // The shift makes what the upper half and the reciprocal lack less than 1.
    const uint128 head = UpperProduct(number, reciprocal);
    uint128 quotient = head >> shift;
    std::uint64_t remainder = LowHalf(number) - LowHalf(quotient) * power;
    Correct(quotient, remainder, power);
    return {quotient, remainder};
}

/// Divides by 10^exponent, exponent 1 to 37; the quotient must be below 2^96.
inline Quotient128 DividedByPower(const Wide& number, int exponent)
{
    if (exponent <= kLargestShortDivisor && Fits128(number)) {
        const auto [quotient, remainder] = DividedByShortPower(number.Low(), exponent);
        return {quotient, remainder};
    }
    const PowerDivisor& divisor = kDivisors[static_cast<std::size_t>(exponent)];
    const uint128 power = Power128(exponent);
    const uint128 head = ShiftedRight(number, divisor.shift);
    // At most 2 too small: the bits shifted out and the reciprocal's error cost less than 1 each.
    uint128 quotient = Product(head, divisor.reciprocal).High();
    uint128 remainder = number.Low() - quotient * power;
    Correct(quotient, remainder, power);
    Correct(quotient, remainder, power);
    return {quotient, remainder};
}

} // namespace zeldec

#endif
