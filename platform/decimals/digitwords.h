#ifndef ZELDT_PLATFORM_DECIMALS_DIGITWORDS_H
#define ZELDT_PLATFORM_DECIMALS_DIGITWORDS_H

/// Texts of up to 32 characters, read sixteen at a time and written in words of eight. Private to
/// the library.

#include "platform/decimals/fitting.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <emmintrin.h>

namespace zeldec {

inline constexpr std::size_t kWord = sizeof(std::uint64_t);

/// The same character in all bytes of a word.
constexpr std::uint64_t InAllBytes(unsigned char c)
{
    return 0x0101010101010101U * c;
}

inline std::uint64_t LoadWord(const char* text)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    return word;
}

inline std::uint64_t LoadHalf(const char* text)
{
    std::uint32_t half = 0;
    std::memcpy(&half, text, sizeof half);
    return half;
}

/// Up to eight characters, zero bytes behind them.
inline std::uint64_t UpToEight(const char* text, std::size_t length)
{
    constexpr std::size_t kHalf = kWord / 2;
    if (length >= kHalf)
        return LoadHalf(text) | LoadHalf(text + length - kHalf) << (8 * (length - kHalf));
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < length; ++i)
        word |= std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * i);
    return word;
}

/// The first word of a text as digits, `missing` characters short: zeros in front, and what is
/// behind them belongs to the next word.
inline std::uint64_t Front(std::uint64_t characters, std::size_t missing)
{
    const std::size_t halfOfBits = 4 * missing; // a shift by 64 bits would be none
    return (characters ^ InAllBytes('0')) << halfOfBits << halfOfBits;
}

/// Sixteen characters as digits; what is none becomes more than 9.
inline __m128i DigitsOf(__m128i characters)
{
    return _mm_xor_si128(characters, _mm_set1_epi8('0'));
}

inline __m128i LoadDigits(const char* text)
{
    return DigitsOf(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)));
}

/// One bit for each byte that is no digit.
inline std::uint32_t FindOthers(__m128i digits)
{
    const __m128i areDigits = _mm_cmpeq_epi8(_mm_min_epu8(digits, _mm_set1_epi8(9)), digits);
    return static_cast<std::uint32_t>(_mm_movemask_epi8(areDigits)) ^ 0xFFFF;
}

/// All bits of the first bytes, up to 16.
inline __m128i FirstBytes(int count)
{
    constexpr std::size_t kBytes = 16;
    static constexpr auto kOnesAndZeros = [] {
        std::array<unsigned char, 2 * kBytes> bytes{};
        std::fill_n(bytes.begin(), kBytes, static_cast<unsigned char>(0xFF));
        return bytes;
    }();
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(kOnesAndZeros.data() + kBytes - count));
}

/// The bytes of `a` where the mask has bits, elsewhere those of `b`.
inline __m128i Chosen(__m128i mask, __m128i a, __m128i b)
{
    return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
}

/// The values of four digits each.
inline __m128i ValuesOfFour(__m128i digits)
{
    const __m128i pairs = _mm_srli_epi16(_mm_mullo_epi16(digits, _mm_set1_epi16(2561)), 8);
    return _mm_madd_epi16(pairs, _mm_set1_epi32(1 << 16 | 100));
}

struct TwoValues {
    std::uint64_t first;
    std::uint64_t second;
};

/// The values of twice sixteen digits.
inline TwoValues ValuesOf(__m128i first, __m128i second)
{
    const __m128i fours = _mm_packs_epi32(ValuesOfFour(first), ValuesOfFour(second));
    const __m128i eights = _mm_madd_epi16(fours, _mm_set1_epi32(1 << 16 | 10000));
    const __m128i values = _mm_add_epi64(_mm_mul_epu32(eights, _mm_set1_epi64x(kPowers64[kWord])),
                                         _mm_srli_epi64(eights, 32));
    return {static_cast<std::uint64_t>(_mm_cvtsi128_si64(values)),
            static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(values, values)))};
}

/// The point of a text, if there is one.
struct Point {
    bool isThere;
    int places; ///< behind it
};

/// Finds it by the bits of the characters that are no digits, the last of them `length` - 1. False
/// if there is anything but digits and one point.
inline bool FindPoint(std::uint32_t others, int length, const char* end, Point& point)
{
    const int index = BitLength(std::uint64_t{others}) - 1;
    point.isThere = others != 0;
    point.places = point.isThere ? length - 1 - index : 0;
    return (others & (others - 1)) == 0 && (!point.isThere || end[-1 - point.places] == '.');
}

/// The last sixteen characters of a text without the point, 0 in front.
inline __m128i TakeOutPoint(__m128i digits, const Point& point)
{
    const int moved = point.isThere ? std::max(16 - point.places, 0) : 0;
    return Chosen(FirstBytes(moved), _mm_slli_si128(digits, 1), digits);
}

/// A text without the sign in front.
struct Unsigned {
    const char* text;
    std::size_t length;
    bool isNegative;
};

inline Unsigned WithoutSign(const char* text, std::size_t length)
{
    if (length != 0 && (*text == '-' || *text == '+'))
        return {text + 1, length - 1, *text == '-'};
    return {text, length, false};
}

/// Reads texts of 17 to 32 characters that are numbers of at most 28 digits and 27 places; false
/// for all others.
[[gnu::always_inline]] inline bool TakeLong(const Unsigned& source, int128& mantissa, int& places)
{
    constexpr int kBytes = 16;
    constexpr std::size_t kMost = 32;
    if (source.length <= kBytes || source.length > kMost)
        return false;
    const auto length = static_cast<int>(source.length);
    // The last sixteen characters, and what is in front of them as if zeros followed.
    const char* const end = source.text + length;
    const int front = length - kBytes;
    const __m128i first = LoadDigits(source.text);
    const __m128i last = LoadDigits(end - kBytes);
    const std::uint32_t ofFirst = FindOthers(first) & ((1U << front) - 1);
    Point point;
    if (!FindPoint(ofFirst | FindOthers(last) << front, length, end, point))
        return false;
    const int beforePoint = point.isThere ? length - 1 - point.places : length;
    const __m128i moved = _mm_and_si128(FirstBytes(front - 1), _mm_srli_si128(first, 1));
    const TwoValues values = ValuesOf(
        Chosen(FirstBytes(std::min(beforePoint, front)), first, moved), TakeOutPoint(last, point));
    const std::uint64_t scale =
        kPowers64[static_cast<std::size_t>(front - (point.isThere ? 1 : 0))];
    const uint128 magnitude = uint128{values.first} * scale + values.second;
    places = point.places;
    mantissa = WithSign(static_cast<int128>(magnitude), -int128{source.isNegative});
    return magnitude <= kLargestMagnitude && places <= kMostPlaces;
}

/// The same of texts with at most 16 characters.
[[gnu::always_inline]] inline bool TakeShort(const Unsigned& source, std::int64_t& mantissa,
                                             int& places)
{
    const std::size_t length = source.length;
    if (length == 0 || length > 2 * kWord)
        return false;
    const char* const end = source.text + length;
    const bool isOneWord = length <= kWord;
    const std::uint64_t word = isOneWord ? UpToEight(source.text, length) : LoadWord(source.text);
    const std::uint64_t front = Front(word, (isOneWord ? kWord : 2 * kWord) - length);
    const __m128i digits =
        isOneWord
            ? _mm_set_epi64x(static_cast<std::int64_t>(front), 0)
            : _mm_set_epi64x(static_cast<std::int64_t>(LoadWord(end - kWord) ^ InAllBytes('0')),
                             static_cast<std::int64_t>(front));
    Point point;
    if (!FindPoint(FindOthers(digits), 2 * kWord, end, point) || length == OneIf(point.isThere))
        return false;
    const auto value =
        static_cast<std::int64_t>(ValuesOf(TakeOutPoint(digits, point), _mm_setzero_si128()).first);
    const std::int64_t sign = -std::int64_t{source.isNegative};
    places = point.places;
    mantissa = (value ^ sign) - sign;
    return true;
}

/// Eight digits as characters, in a word whose first byte is the first digit.
inline std::uint64_t EightDigits(std::uint32_t number)
{
    // Halves, then quarters, then single digits, each split done for all parts at once.
    const std::uint64_t halves = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = (halves * 10486 >> 20) & 0x7F0000007FU;
    const std::uint64_t quarters = hundreds | (halves - hundreds * 100) << 16;
    const std::uint64_t tens = (quarters * 103 >> 10) & 0x000F000F000F000FU;
    return (tens | (quarters - tens * 10) << 8) + 0x3030303030303030U;
}

/// What PrintShort may write over.
inline constexpr std::size_t kRoomForShort = 4 * kWord + 2;

/// Prints `text`, digits from the first byte on with `whole` of them before a point, and then a
/// second time behind the point what belongs there: in whole words, whatever the lengths.
template <typename Word>
void PrintWords(Word text, int whole, bool hasPoint, char* out)
{
    std::memcpy(out, &text, sizeof text);
    if (hasPoint) {
        text >>= 8 * whole;
        out[whole] = '.';
        std::memcpy(out + whole + 1, &text, sizeof text);
    }
}

/// Prints a number with places if it has up to 16 digits, zeros in front and at least one digit
/// before the point included, from registers: nothing is read from memory that has just been
/// written there in smaller pieces. Returns the length, at which stands a NUL; 0 for any other
/// number.
[[gnu::always_inline]] inline std::size_t PrintShort(std::uint64_t magnitude, bool negative,
                                                     int places, char* out)
{
    constexpr int kEight = 8;
    const int digits = std::max(std::max(CountDigits(magnitude), 1), places + 1);
    if (digits > 2 * kEight)
        return 0;
    const std::size_t sign = OneIf(negative);
    const std::size_t length = sign + static_cast<std::size_t>(digits) + OneIf(places > 0);
    out[0] = '-';
    char* const first = out + sign;
    if (digits <= kEight) {
        const std::uint64_t text = EightDigits(static_cast<std::uint32_t>(magnitude));
        PrintWords(text >> (8 * (kEight - digits)), digits - places, places > 0, first);
    } else {
        const auto high = static_cast<std::uint32_t>(magnitude / kPowers64[kEight]);
        const auto low = static_cast<std::uint32_t>(magnitude % kPowers64[kEight]);
        const uint128 text = Joined(EightDigits(low), EightDigits(high));
        PrintWords(text >> (8 * (2 * kEight - digits)), digits - places, places > 0, first);
    }
    out[length] = '\0';
    return length;
}

} // namespace zeldec

#endif
