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

/// By the highest bit of a number: what must be added to the number so that its digits stand in the
/// upper half. Where a power of ten lies among the numbers with that bit, those from it on carry.
constexpr std::array<std::uint64_t, 32> MakeDigitCounts()
{
    std::array<std::uint64_t, 32> counts{};
    std::uint64_t digits = 1;
    std::uint64_t power = 10; // the lowest number with more digits
    std::uint64_t lowest = 1; // the one with that bit alone
    for (std::uint64_t& count : counts) {
        count = digits << 32;
        if (power < 2 * lowest) {
            ++digits;
            count = (digits << 32) - power;
            power *= 10;
        }
        lowest *= 2;
    }
    return counts;
}

inline constexpr std::array<std::uint64_t, 32> kDigitCounts = MakeDigitCounts();

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
    const auto highestBit = static_cast<std::size_t>(std::bit_width(number | 1)) - 1;
    return static_cast<std::uint32_t>((detail::kDigitCounts[highestBit] + number) >> 32);
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

/// A sign and the most digits.
inline constexpr std::size_t kMostSignedDigits32 = kMostDigits32 + 1;

/// Writes a minus sign in front of negative numbers; `out` has room for kMostSignedDigits32 bytes.
inline char* WriteDigits(std::int32_t number, char* out) noexcept
{
    const auto bits = static_cast<std::uint32_t>(number);
    *out = '-';
    return WriteDigits(number < 0 ? 0 - bits : bits, out + (number < 0 ? 1 : 0));
}

} // namespace zelrt

#endif
