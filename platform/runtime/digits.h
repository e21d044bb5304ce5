#ifndef ZELDT_PLATFORM_RUNTIME_DIGITS_H
#define ZELDT_PLATFORM_RUNTIME_DIGITS_H

/// Digits in texts, whatever the locale.
/// Private to this project; not installed.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zelrt {

constexpr bool IsDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

/// Blanks, tabs, line feeds, vertical tabs, form feeds and carriage returns.
constexpr bool IsSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

namespace detail {

constexpr std::array<char, 200> MakeDigitPairs()
{
    std::array<char, 200> pairs{};
    for (std::size_t number = 0; number < 100; ++number) {
        pairs[2 * number] = static_cast<char>('0' + number / 10);
        pairs[2 * number + 1] = static_cast<char>('0' + number % 10);
    }
    return pairs;
}

constexpr std::array<std::uint32_t, 10> MakePowersOfTen()
{
    std::array<std::uint32_t, 10> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}

inline constexpr std::array<std::uint32_t, 10> kPowersOfTen = MakePowersOfTen();

} // namespace detail

/// The two digits of 0, of 1 and so on up to 99.
inline constexpr std::array<char, 200> kDigitPairs = detail::MakeDigitPairs();

/// Writes the two digits of a number below 100; returns the end.
inline char* WriteTwoDigits(std::size_t number, char* out) noexcept
{
    std::memcpy(out, &kDigitPairs[2 * number], 2);
    return out + 2;
}

/// Digits of the number; one for 0.
constexpr std::uint32_t CountDigits(std::uint32_t number) noexcept
{
    // Binary digits times the logarithm of 2; one too few from a power of ten on.
    const std::uint32_t counted = number | 1;
    const auto bits = static_cast<std::uint32_t>(std::bit_width(counted));
    const std::uint32_t count = bits * 1233 >> 12;
    return count + (counted >= detail::kPowersOfTen[count] ? 1 : 0);
}

static_assert(CountDigits(0) == 1 && CountDigits(9) == 1 && CountDigits(10) == 2);
static_assert(CountDigits(999'999'999) == 9 && CountDigits(1'000'000'000) == 10);
static_assert(CountDigits(0xFFFFFFFF) == 10);

/// No 32-bit number has more digits.
inline constexpr std::size_t kMostDigits32 = 10;

/// Writes the digits of the number; returns the end.
inline char* WriteDigits(std::uint32_t number, char* out) noexcept
{
    char* const end = out + CountDigits(number);
    char* first = end;
    for (; number >= 100; number /= 100)
        WriteTwoDigits(number % 100, first -= 2);
    if (number >= 10)
        WriteTwoDigits(number, out);
    else
        *out = static_cast<char>('0' + number);
    return end;
}

} // namespace zelrt

#endif
