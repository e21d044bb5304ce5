#ifndef ZELDT_PLATFORM_RUNTIME_SHORTTEXT_H
#define ZELDT_PLATFORM_RUNTIME_SHORTTEXT_H

/// Texts of up to a register's length, taken and put with a few overlapping accesses instead of a
/// loop. Nothing outside of a text is touched. Private to this project; not installed.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <emmintrin.h>

namespace zelrt {

static_assert(std::endian::native == std::endian::little);

template <typename Word>
Word LoadWord(const char* from) noexcept
{
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

template <typename Word>
void StoreWord(char* to, Word word) noexcept
{
    std::memcpy(to, &word, sizeof word);
}

/// At most 8 bytes, the first one lowest; what they lack is 0.
inline std::uint64_t LoadUpTo8(const char* text, std::size_t size) noexcept
{
    if (size >= 4) {
        const std::uint64_t last = LoadWord<std::uint32_t>(text + size - 4);
        return LoadWord<std::uint32_t>(text) | last << (8 * (size - 4));
    }
    if (size == 0)
        return 0;
    // The first, the middle and the last byte are all that up to three have.
    const auto byteAt = [text](std::size_t index) {
        return std::uint64_t{static_cast<unsigned char>(text[index])} << (8 * index);
    };
    return byteAt(0) | byteAt(size / 2) | byteAt(size - 1);
}

/// At most 16 bytes, the first one lowest; what they lack is 0.
inline __m128i LoadUpTo16(const char* text, std::size_t size) noexcept
{
    if (size >= 16)
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    if (size <= 8)
        return _mm_cvtsi64_si128(static_cast<long long>(LoadUpTo8(text, size)));
    const auto last = LoadWord<std::uint64_t>(text + size - 8) >> (8 * (16 - size));
    return _mm_set_epi64x(static_cast<long long>(last),
                          static_cast<long long>(LoadWord<std::uint64_t>(text)));
}

/// Reads 1 to 8 digits, whatever stands in front of them and behind; false for any other text.
inline bool ReadUpTo8Digits(const char* text, std::size_t size, std::uint64_t& number) noexcept
{
    if (size == 0)
        return false;
    // Each byte becomes its digit; what is missing in front is 0.
    constexpr std::uint64_t zeros = 0x3030303030303030;
    const std::uint64_t digits = (LoadUpTo8(text, size) ^ zeros) << (64 - 8 * size);
    // A byte above 9 gets its high bit, or has it.
    if (((digits | (digits + 0x7676767676767676)) & 0x8080808080808080) != 0)
        return false;
    const std::uint64_t twos = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
    const std::uint64_t fours = (twos * 100 + (twos >> 16)) & 0x0000FFFF0000FFFF;
    number = (fours * 10000 + (fours >> 32)) & 0xFFFFFFFF;
    return true;
}

/// The same for 1 to 16 digits.
inline bool ReadUpTo16Digits(const char* text, std::size_t size, std::uint64_t& number) noexcept
{
    constexpr std::size_t half = 8;
    if (size <= half)
        return ReadUpTo8Digits(text, size, number);
    std::uint64_t front = 0;
    if (!ReadUpTo8Digits(text, size - half, front) ||
        !ReadUpTo8Digits(text + size - half, half, number))
        return false;
    number += front * 100'000'000;
    return true;
}

/// Texts of so many bytes fit into a register.
inline constexpr std::size_t kShortText = 16;

/// Copies at most 16 bytes, which may overlap their copy.
inline void CopyUpTo16(const char* text, std::size_t size, char* out) noexcept
{
    const auto copyEnds = [=]<typename Word>(Word first) {
        const Word last = LoadWord<Word>(text + size - sizeof last);
        StoreWord(out, first);
        StoreWord(out + size - sizeof last, last);
    };
    if (size >= 8) {
        copyEnds(LoadWord<std::uint64_t>(text));
    } else if (size >= 4) {
        copyEnds(LoadWord<std::uint32_t>(text));
    } else if (size != 0) {
        const char middle = text[size / 2];
        const char last = text[size - 1];
        out[0] = text[0];
        out[size / 2] = middle;
        out[size - 1] = last;
    }
}

} // namespace zelrt

#endif
