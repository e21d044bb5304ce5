#ifndef ZELDT_PLATFORM_DECIMALS_DIGITWORDS_H
#define ZELDT_PLATFORM_DECIMALS_DIGITWORDS_H

/// Texts of up to 32 characters, read in words of eight. Private to the library.

#include "platform/decimals/fitting.h"

#include <bit>
#include <cstring>
#include <utility>

namespace zeldec {

inline constexpr std::size_t kWord = sizeof(std::uint64_t);

/// The same character in all bytes of a word.
constexpr std::uint64_t InAllBytes(unsigned char c)
{
    return 0x0101010101010101U * c;
}

/// The value of eight digits, the first one in the first byte.
inline std::uint32_t ValueOfEight(std::uint64_t word)
{
    // Pairs, then fours, then all, each step done for all parts at once.
    word = word * 2561 >> 8;
    word = (word & 0x00FF00FF00FF00FFU) * 6553601 >> 16;
    word = (word & 0x0000FFFF0000FFFFU) * 42949672960001U >> 32;
    return static_cast<std::uint32_t>(word);
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

/// The digits of a text in words, the last one in the last byte, zeros in front. All of the text is
/// looked at and computed at once: nothing depends on its length, or on where the point is, by a
/// branch.
template <std::size_t count>
class DigitWords {
public:
    /// The text must not fit half the words.
    DigitWords(const char* text, std::size_t length)
    {
        const char* const end = text + length;
        if constexpr (count == 1) {
            m_word[0] = Front(UpToEight(text, length), kWord - length);
        } else if constexpr (count == 2) {
            m_word[1] = Digits(LoadWord(end - kWord));
            m_word[0] = Front(LoadWord(text), 2 * kWord - length);
        } else {
            m_word[3] = Digits(LoadWord(end - kWord));
            m_word[2] = Digits(LoadWord(end - 2 * kWord));
            const bool fillsThree = length >= 3 * kWord;
            m_word[1] = fillsThree ? Digits(LoadWord(end - 3 * kWord))
                                   : Front(LoadWord(text), 3 * kWord - length);
            m_word[0] = fillsThree ? Front(LoadWord(text), 4 * kWord - length) : 0;
        }
        TakeOutPoint();
    }

    /// Whether there is nothing but digits and one point or none.
    bool AreDigits() const { return m_strange == 0; }
    bool HasPoint() const { return m_behindPoint != 0; }
    /// Behind the point.
    int Places() const { return m_places; }

    uint128 Value() const
    {
        if constexpr (count == 1)
            return ValueOfEight(m_word[0]);
        else if constexpr (count == 2)
            return ValueOfPair(0);
        else
            return uint128{ValueOfPair(0)} * kPowers64[2 * kWord] + ValueOfPair(2);
    }

private:
    static std::uint64_t Digits(std::uint64_t characters) { return characters ^ InAllBytes('0'); }

    /// The first word of a text, `missing` characters short; what follows belongs to the next word.
    static std::uint64_t Front(std::uint64_t characters, std::size_t missing)
    {
        const std::size_t halfOfBits = 4 * missing; // a shift by 64 bits would be none
        return Digits(characters) << halfOfBits << halfOfBits;
    }

    /// What is before the point moves up. Here and in what follows the steps are written out one by
    /// one: so the words stay in registers.
    void TakeOutPoint()
    {
        [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            (TakeOutPointOf<count - 1 - i>(), ...);
        }
        (std::make_index_sequence<count>());
    }

    template <std::size_t i>
    void TakeOutPointOf()
    {
        const std::uint64_t word = m_word[i];
        // The highest bit of each byte that is no digit; it should be one at most, of a point.
        const std::uint64_t others = ((word + InAllBytes(0x80 - 10)) | word) & InAllBytes(0x80);
        const std::uint64_t isHere = -OneIf(others != 0);
        const std::uint64_t noPoint = word ^ InAllBytes('.' ^ '0');
        m_strange |= (others & (others - 1)) | (isHere & m_behindPoint) |
                     (noPoint & ((others << 1) - (others >> 7)));
        const int behind = (64 - BitLength(others)) / 8;
        m_places = others != 0 ? static_cast<int>((count - 1 - i) * kWord) + behind : m_places;
        const std::uint64_t moving = (isHere & (others ^ (others - 1))) | m_behindPoint;
        std::uint64_t moved = word << 8;
        if constexpr (i != 0)
            moved |= m_word[i - 1] >> 56;
        m_word[i] = (word & ~moving) | (moved & moving);
        m_behindPoint |= isHere;
    }

    std::uint64_t ValueOfPair(std::size_t at) const
    {
        return ValueOfEight(m_word[at]) * kPowers64[kWord] + ValueOfEight(m_word[at + 1]);
    }

    std::uint64_t m_word[count];
    std::uint64_t m_behindPoint = 0; ///< all bits, or none: the point was in a word behind
    std::uint64_t m_strange = 0;
    int m_places = 0;
};

/// The mantissa and the places of a text that `count` words hold; false if it is no number.
template <std::size_t count>
[[gnu::always_inline]] inline bool TakeDigits(const char* text, std::size_t length,
                                              uint128& magnitude, int& places)
{
    const DigitWords<count> digits(text, length);
    magnitude = digits.Value();
    places = digits.Places();
    return digits.AreDigits() && length != (digits.HasPoint() ? 1U : 0U);
}

/// A text without the sign in front.
struct Unsigned {
    Unsigned(const char* signedText, std::size_t signedLength)
        : text(signedText), length(signedLength)
    {
        if (length != 0 && (*text == '-' || *text == '+')) {
            isNegative = *text == '-';
            ++text;
            --length;
        }
    }

    const char* text;
    std::size_t length;
    bool isNegative = false;
};

/// The same of texts with 17 to 32 characters that are numbers of at most 28 digits and 27 places;
/// false for all others.
[[gnu::always_inline]] inline bool TakeLong(const Unsigned& source, int128& mantissa, int& places)
{
    uint128 magnitude = 0;
    if (source.length <= 2 * kWord || source.length > 4 * kWord ||
        !TakeDigits<4>(source.text, source.length, magnitude, places) ||
        magnitude > kLargestMagnitude || places > kMostPlaces)
        return false;
    mantissa = WithSign(static_cast<int128>(magnitude), -int128{source.isNegative});
    return true;
}

/// The same of texts with at most 16 characters.
[[gnu::always_inline]] inline bool TakeShort(const Unsigned& source, std::int64_t& mantissa,
                                             int& places)
{
    uint128 magnitude = 0;
    const bool isTaken =
        source.length <= kWord       ? TakeDigits<1>(source.text, source.length, magnitude, places)
        : source.length <= 2 * kWord ? TakeDigits<2>(source.text, source.length, magnitude, places)
                                     : false;
    const std::int64_t sign = -std::int64_t{source.isNegative};
    mantissa = (static_cast<std::int64_t>(magnitude) ^ sign) - sign;
    return isTaken;
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
