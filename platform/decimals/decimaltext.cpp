#include "platform/decimals/decimaltext.h"

#include "platform/decimals/arithmetic.h"

#include <algorithm>
#include <cstring>

namespace zeldec {

namespace {

constexpr bool IsDigit(char c)
{
    return static_cast<unsigned char>(c - '0') <= 9;
}

constexpr unsigned DigitOf(char c)
{
    return static_cast<unsigned char>(c - '0');
}

/// The digits of a text as they stand: [first, point) and (point, last).
struct DigitText {
    const char* first;
    const char* point; ///< `last` without a point
    const char* last;

    std::int64_t Places() const { return point == last ? 0 : last - point - 1; }
    std::int64_t Digits() const { return last - first - (point == last ? 0 : 1); }
};

/// Finds the point; false when there is anything but digits and one point, or no digit.
bool Scan(const char* first, const char* last, DigitText& text)
{
    text = {first, last, last};
    for (const char* p = first; p != last; ++p) {
        if (IsDigit(*p))
            continue;
        if (*p != '.' || text.point != last)
            return false;
        text.point = p;
    }
    return text.Digits() > 0;
}

/// The number of a text of more digits than 64 bits hold: the first ones that a number may have,
/// rounded by the next.
ParseStatus ParseLong(const DigitText& text, bool negative, Number& result)
{
    const char* p = text.first;
    std::int64_t digits = text.Digits();
    while (p != text.last && (*p == '0' || *p == '.')) {
        digits -= *p == '0' ? 1 : 0;
        ++p;
    }
    const int mostPlaces = negative ? kMostPlaces : kMostPlacesRead;
    const std::int64_t excess =
        std::max<std::int64_t>({digits - kMostDigits, text.Places() - mostPlaces, 0});
    if (digits > 0 && excess > text.Places())
        return ParseStatus::Overflow;
    uint128 magnitude = 0;
    unsigned next = 0;
    bool inexact = false;
    for (std::int64_t place = digits; p != text.last; ++p) {
        if (*p == '.')
            continue;
        if (place > excess)
            magnitude = magnitude * 10 + DigitOf(*p);
        else if (place == excess)
            next = DigitOf(*p);
        inexact |= place <= excess && *p != '0';
        --place;
    }
    if (next >= 5)
        ++magnitude;
    const Status status =
        Fit({ToWide(magnitude), text.Places() - excess, negative, inexact}, mostPlaces, result);
    return status == Status::Overflow  ? ParseStatus::Overflow
           : status == Status::Inexact ? ParseStatus::Inexact
                                       : ParseStatus::Ok;
}

/// Eight digits as characters, in a word whose first byte is the first digit.
std::uint64_t EightDigits(std::uint32_t number)
{
    // Halves, then quarters, then single digits, each split done for all parts at once.
    const std::uint64_t halves = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = (halves * 10486 >> 20) & 0x7F0000007FU;
    const std::uint64_t quarters = hundreds | (halves - hundreds * 100) << 16;
    const std::uint64_t tens = (quarters * 103 >> 10) & 0x000F000F000F000FU;
    return (tens | (quarters - tens * 10) << 8) + 0x3030303030303030U;
}

/// All digits of a number, zeros in front, at the end of 40 bytes.
struct PrintedDigits {
    static constexpr std::size_t kRoom = 40;

    explicit PrintedDigits(uint128 magnitude)
    {
        constexpr std::uint64_t kChunk = kPowers64[8];
        constexpr std::uint64_t kTwoChunks = kPowers64[16];
        std::uint64_t low = LowHalf(magnitude);
        std::uint64_t high = 0;
        if (HighHalf(magnitude) != 0) {
            const auto [upper, lower] = DividedByPower(ToWide(magnitude), 16);
            high = LowHalf(upper);
            low = LowHalf(lower);
        } else if (low >= kTwoChunks) {
            high = low / kTwoChunks;
            low %= kTwoChunks;
        }
        Put(32, low % kChunk);
        Put(24, low / kChunk);
        Put(16, high % kChunk);
        Put(8, high / kChunk);
        Put(0, 0);
    }

    void Put(std::size_t position, std::uint64_t number)
    {
        const std::uint64_t digits = EightDigits(static_cast<std::uint32_t>(number));
        std::memcpy(text + position, &digits, sizeof digits);
    }

    const char* End() const { return text + kRoom; }

    char text[kRoom];
};

} // namespace

ParseStatus Parse(const char* first, const char* last, Number& result)
{
    const bool negative = first != last && *first == '-';
    if (first != last && (*first == '-' || *first == '+'))
        ++first;
    // Nearly every text: few enough digits for one word.
    if (last - first <= kLargestPower64) {
        std::uint64_t magnitude = 0;
        const char* point = last;
        for (const char* p = first; p != last; ++p) {
            if (IsDigit(*p)) {
                magnitude = magnitude * 10 + DigitOf(*p);
            } else {
                if (*p != '.' || point != last)
                    return ParseStatus::NoNumber;
                point = p;
            }
        }
        if (last - first == (point == last ? 0 : 1))
            return ParseStatus::NoNumber;
        result = {magnitude, point == last ? 0 : last - point - 1, negative && magnitude != 0};
        return ParseStatus::Ok;
    }
    DigitText text{};
    if (!Scan(first, last, text))
        return ParseStatus::NoNumber;
    return ParseLong(text, negative, result);
}

std::size_t TextLength(const Number& number)
{
    const std::int64_t digits = std::max(CountDigits(number.magnitude), 1);
    const std::size_t sign = number.negative ? 1 : 0;
    if (number.places > 0)
        return static_cast<std::size_t>(std::max(digits, number.places + 1)) + 1 + sign;
    const std::int64_t zeros = number.magnitude == 0 ? 0 : -number.places;
    return static_cast<std::size_t>(digits + zeros) + sign;
}

void Print(const Number& number, char* out)
{
    const PrintedDigits digits(number.magnitude);
    const std::int64_t count = std::max(CountDigits(number.magnitude), 1);
    if (number.negative)
        *out++ = '-';
    const auto put = [&out](const char* from, std::int64_t length) {
        std::memcpy(out, from, static_cast<std::size_t>(length));
        out += length;
    };
    const auto putZeros = [&out](std::int64_t length) {
        std::memset(out, '0', static_cast<std::size_t>(length));
        out += length;
    };
    const std::int64_t whole = count - std::max<std::int64_t>(number.places, 0);
    const char* const first = digits.End() - count;
    if (number.places <= 0) {
        put(first, count);
        putZeros(number.magnitude == 0 ? 0 : -number.places);
    } else if (whole > 0) {
        put(first, whole);
        *out++ = '.';
        put(first + whole, number.places);
    } else {
        put("0.", 2);
        putZeros(-whole);
        put(first, count);
    }
}

} // namespace zeldec
