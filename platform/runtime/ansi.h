#ifndef ZELDT_PLATFORM_RUNTIME_ANSI_H
#define ZELDT_PLATFORM_RUNTIME_ANSI_H

/// Single-byte text in Windows code page 1252, the same on both targets and whatever the
/// process locale says. Private to this project; not installed.

#include "platform/runtime/shorttext.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zelrt {

/// A table that maps each byte to another one.
using ByteMap = std::array<unsigned char, 256>;

namespace detail {

/// Upper-case letters 0xC0 to 0xDE lie 0x20 below their lower-case ones, except the signs for
/// multiplication and division; four pairs lie elsewhere.
constexpr ByteMap MakeAnsiUpper()
{
    ByteMap map{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool latin = byte >= 'a' && byte <= 'z';
        const bool accented = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;
        map[byte] = static_cast<unsigned char>(latin || accented ? byte - 0x20 : byte);
    }
    map[0x9A] = 0x8A;
    map[0x9C] = 0x8C;
    map[0x9E] = 0x8E;
    map[0xFF] = 0x9F;
    return map;
}

constexpr ByteMap MakeAnsiLower()
{
    constexpr ByteMap upper = MakeAnsiUpper();
    ByteMap map{};
    for (unsigned byte = 0; byte < 256; ++byte)
        map[byte] = static_cast<unsigned char>(byte);
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (upper[byte] != byte)
            map[upper[byte]] = static_cast<unsigned char>(byte);
    }
    return map;
}

} // namespace detail

/// Upper case of each byte; bytes without one map to themselves, ß, µ and ƒ among them.
inline constexpr ByteMap kAnsiUpper = detail::MakeAnsiUpper();

/// Lower case of each byte; bytes without one map to themselves.
inline constexpr ByteMap kAnsiLower = detail::MakeAnsiLower();

constexpr unsigned char AnsiToUpper(unsigned char byte)
{
    return kAnsiUpper[byte];
}

constexpr unsigned char AnsiToLower(unsigned char byte)
{
    return kAnsiLower[byte];
}

/// Whether the byte is an upper-case letter: one that has a lower case.
constexpr bool AnsiIsUpper(unsigned char byte)
{
    return kAnsiLower[byte] != byte;
}

/// Whether the byte is a lower-case letter: one that has an upper case, or ß, ª, º, ƒ, µ, which
/// have none in this code page.
constexpr bool AnsiIsLower(unsigned char byte)
{
    return kAnsiUpper[byte] != byte || byte == 0xDF || byte == 0xB5 || byte == 0x83 ||
           byte == 0xAA || byte == 0xBA;
}

/// Sends those of the bytes at `text` through a map that lie above 0x7F; `bytes` are the up to 16
/// that stand there.
inline void MapHighBytes(char* text, __m128i bytes, const ByteMap& map) noexcept
{
    for (auto marks = static_cast<unsigned>(_mm_movemask_epi8(bytes)); marks != 0;
         marks &= marks - 1) {
        char& high = text[std::countr_zero(marks)];
        high = static_cast<char>(map[static_cast<unsigned char>(high)]);
    }
}

namespace detail {

/// Sends each byte through a map of cases; of the bytes below 0x80 it changes those of the 26
/// letters from `firstLetter` on.
inline void ChangeCase(char* text, std::size_t size, const ByteMap& map, char firstLetter) noexcept
{
    constexpr char caseBit = 0x20;
    const __m128i before = _mm_set1_epi8(static_cast<char>(firstLetter - 1));
    const __m128i behind = _mm_set1_epi8(static_cast<char>(firstLetter + 26));
    char* const end = text + size;
    for (; end - text >= 16; text += 16) {
        auto* const place = reinterpret_cast<__m128i*>(text);
        const __m128i bytes = _mm_loadu_si128(place);
        const __m128i letters =
            _mm_and_si128(_mm_cmpgt_epi8(bytes, before), _mm_cmplt_epi8(bytes, behind));
        _mm_storeu_si128(place,
                         _mm_xor_si128(bytes, _mm_and_si128(letters, _mm_set1_epi8(caseBit))));
        MapHighBytes(text, bytes, map);
    }
    for (; text != end; ++text)
        *text = static_cast<char>(map[static_cast<unsigned char>(*text)]);
}

} // namespace detail

inline void AnsiMakeUpper(char* text, std::size_t size) noexcept
{
    detail::ChangeCase(text, size, kAnsiUpper, 'a');
}

inline void AnsiMakeLower(char* text, std::size_t size) noexcept
{
    detail::ChangeCase(text, size, kAnsiLower, 'A');
}

static_assert(AnsiToUpper(0xE9) == 0xC9 && AnsiToUpper(0xF7) == 0xF7 && AnsiToUpper(0xDF) == 0xDF);
static_assert(AnsiToLower(0x9F) == 0xFF && AnsiToLower(0xD7) == 0xD7 && AnsiToLower('Q') == 'q');

/// Unicode code point of each byte of code page 1252. The five bytes that the code page leaves
/// open stand for the control characters of the same number.
constexpr char16_t AnsiToUnicode(unsigned char byte)
{
    constexpr std::array<char16_t, 32> c1 = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? c1[byte - 0x80U] : byte;
}

} // namespace zelrt

#endif
