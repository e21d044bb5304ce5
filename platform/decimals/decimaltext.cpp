#include "platform/decimals/decimaltext.h"

#include "platform/runtime/digits.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zeldec {

namespace {

using zelrt::IsDigit;

constexpr unsigned DigitOf(char c)
{
    return static_cast<unsigned char>(c - '0');
}

/// The digits of a text, without the zeros in front of the first other digit. The whole ones and
/// the decimals are counted as they stand.
struct DigitText {
    std::string_view whole;
    std::string_view decimals;
    std::int64_t places;

    std::int64_t Count() const { return static_cast<std::int64_t>(whole.size() + decimals.size()); }

    char operator[](std::int64_t index) const
    {
        const auto i = static_cast<std::size_t>(index);
        return i < whole.size() ? whole[i] : decimals[i - whole.size()];
    }

    /// Whether only zeros follow from the index on.
    bool EndsWithZeros(std::int64_t index) const
    {
        const auto i = static_cast<std::size_t>(index);
        const std::size_t inDecimals = i < whole.size() ? 0 : i - whole.size();
        return whole.find_first_not_of('0', i) == std::string_view::npos &&
               decimals.find_first_not_of('0', inDecimals) == std::string_view::npos;
    }
};

std::string_view WithoutLeadingZeros(std::string_view digits)
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

/// Finds the digits; false when there is anything but digits and one point, or no digit.
bool Scan(std::string_view text, DigitText& digits)
{
    std::size_t point = std::string_view::npos;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsDigit(text[i]))
            continue;
        if (text[i] != '.' || point != std::string_view::npos)
            return false;
        point = i;
    }
    const bool hasPoint = point != std::string_view::npos;
    digits.whole = WithoutLeadingZeros(text.substr(0, point));
    digits.decimals = hasPoint ? text.substr(point + 1) : std::string_view();
    digits.places = static_cast<std::int64_t>(digits.decimals.size());
    if (digits.whole.empty())
        digits.decimals = WithoutLeadingZeros(digits.decimals);
    return text.size() > (hasPoint ? 1 : 0);
}

/// The value of eight characters that are digits.
std::uint32_t ValueOfEight(const char* text)
{
    // Pairs, then fours, then all, each step done for all parts at once.
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    word = (word & 0x0F0F0F0F0F0F0F0FU) * 2561 >> 8;
    word = (word & 0x00FF00FF00FF00FFU) * 6553601 >> 16;
    word = (word & 0x0000FFFF0000FFFFU) * 42949672960001U >> 32;
    return static_cast<std::uint32_t>(word);
}

/// The value of up to 28 digits, given in two pieces.
uint128 ValueOf(std::string_view first, std::string_view second)
{
    constexpr std::size_t kRoom = 32;
    char padded[kRoom];
    std::memset(padded, '0', kRoom);
    second.copy(padded + kRoom - second.size(), second.size());
    first.copy(padded + kRoom - second.size() - first.size(), first.size());
    const std::uint64_t high =
        std::uint64_t{ValueOfEight(padded)} * kPowers64[8] + ValueOfEight(padded + 8);
    const std::uint64_t low =
        std::uint64_t{ValueOfEight(padded + 16)} * kPowers64[8] + ValueOfEight(padded + 24);
    return uint128{high} * kPowers64[16] + low;
}

/// The number of a text of more digits than 64 bits hold: the first ones that a number may have,
/// rounded by the next.
ParseStatus ParseLong(const DigitText& text, bool negative, Number& result)
{
    const std::int64_t count = text.Count();
    const int mostPlaces = negative ? kMostPlaces : kMostPlacesRead;
    const std::int64_t excess =
        std::max<std::int64_t>({count - kMostDigits, text.places - mostPlaces, 0});
    if (count > 0 && excess > text.places)
        return ParseStatus::Overflow;
    const std::int64_t kept = std::max<std::int64_t>(count - excess, 0);
    const auto wholeKept = std::min(text.whole.size(), static_cast<std::size_t>(kept));
    uint128 magnitude =
        ValueOf(text.whole.substr(0, wholeKept),
                text.decimals.substr(0, static_cast<std::size_t>(kept) - wholeKept));
    bool inexact = false;
    if (kept < count) {
        inexact = !text.EndsWithZeros(kept);
        magnitude += count >= excess && text[kept] >= '5' ? 1 : 0;
    }
    const Status status =
        Fit({ToWide(magnitude), text.places - excess, negative, inexact}, mostPlaces, result);
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
    /// Behind the digits, so that copies of fixed length may read on.
    static constexpr std::size_t kBehind = 32;

    explicit PrintedDigits(uint128 magnitude)
    {
        constexpr std::uint64_t kChunk = kPowers64[8];
        constexpr std::uint64_t kTwoChunks = kPowers64[16];
        std::memset(text, '0', kRoom);
        std::uint64_t low = LowHalf(magnitude);
        if (HighHalf(magnitude) != 0 || low >= kTwoChunks) {
            const auto [high, rest] = DividedByPower(ToWide(magnitude), 16);
            low = LowHalf(rest);
            Put(16, LowHalf(high) % kChunk);
            Put(8, LowHalf(high) / kChunk);
        }
        Put(32, low % kChunk);
        Put(24, low / kChunk);
    }

    void Put(std::size_t position, std::uint64_t number)
    {
        const std::uint64_t digits = EightDigits(static_cast<std::uint32_t>(number));
        std::memcpy(text + position, &digits, sizeof digits);
    }

    const char* End() const { return text + kRoom; }

    char text[kRoom + kBehind];
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
    if (!Scan({first, static_cast<std::size_t>(last - first)}, text))
        return ParseStatus::NoNumber;
    return ParseLong(text, negative, result);
}

namespace {

/// The length of the text of a number of so many digits.
std::size_t TextLength(const Number& number, std::int64_t digits)
{
    const std::size_t sign = number.negative ? 1 : 0;
    if (number.places > 0)
        return static_cast<std::size_t>(std::max(digits, number.places + 1)) + 1 + sign;
    const std::int64_t zeros = number.magnitude == 0 ? 0 : -number.places;
    return static_cast<std::size_t>(digits + zeros) + sign;
}

/// Most digits that two words of eight characters hold.
constexpr int kSixteen = 16;
/// What PrintSixteen may write over.
constexpr std::size_t kRoomForSixteen = 2 * kSixteen + 2;

void Store(char* out, uint128 text)
{
    std::memcpy(out, &text, sizeof text);
}

/// Prints a number of up to 16 digits, zeros in front included, from registers: nothing is read
/// from memory that has just been written there in smaller pieces.
void PrintSixteen(std::uint64_t magnitude, int digits, int places, bool negative, char* out)
{
    const std::uint64_t first = EightDigits(static_cast<std::uint32_t>(magnitude / kPowers64[8]));
    const std::uint64_t second = EightDigits(static_cast<std::uint32_t>(magnitude % kPowers64[8]));
    const uint128 text = Joined(second, first) >> (8 * (kSixteen - digits));
    out[0] = '-';
    out += negative ? 1 : 0;
    Store(out, text);
    if (places > 0) {
        const int whole = digits - places;
        out[whole] = '.';
        Store(out + whole + 1, text >> (8 * whole));
    }
}

/// Texts of this length and less are copied in one go, whatever their length.
constexpr std::size_t kCopied = 32;

/// Prints a number with more than 0 places and less than kCopied, in front of which there are
/// digits that are not 0 or a single zero, in three copies of fixed length.
void PrintShort(const PrintedDigits& digits, std::int64_t count, const Number& number, char* out)
{
    const std::int64_t whole = std::max<std::int64_t>(count - number.places, 1);
    const char* const fraction = digits.End() - number.places;
    out[0] = '-';
    out += number.negative ? 1 : 0;
    std::memcpy(out, fraction - whole, kCopied);
    out[whole] = '.';
    std::memcpy(out + whole + 1, fraction, kCopied);
}

void PrintLong(const PrintedDigits& digits, std::int64_t count, const Number& number, char* out)
{
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
    const char* const first = digits.End() - count;
    if (number.places <= 0) {
        put(first, count);
        putZeros(number.magnitude == 0 ? 0 : -number.places);
    } else {
        // There are more places than a number has digits.
        put("0.", 2);
        putZeros(number.places - count);
        put(first, count);
    }
}

} // namespace

std::size_t Print(const Number& number, char* out, std::size_t room)
{
    const int count = std::max(CountDigits(number.magnitude), 1);
    const std::size_t length = TextLength(number, count);
    if (length >= room)
        return length;
    const auto places = static_cast<int>(std::clamp<std::int64_t>(number.places, -1, kSixteen));
    const int printed = std::max(count, places + 1);
    if (places >= 0 && printed <= kSixteen && room >= kRoomForSixteen) {
        PrintSixteen(LowHalf(number.magnitude), printed, places, number.negative, out);
        out[length] = '\0';
        return length;
    }
    const PrintedDigits digits(number.magnitude);
    if (number.places > 0 && number.places < std::int64_t{kCopied}) {
        char text[2 * kCopied + PrintedDigits::kRoom];
        PrintShort(digits, count, number, text);
        std::memcpy(out, text, length);
    } else {
        PrintLong(digits, count, number, out);
    }
    out[length] = '\0';
    return length;
}

} // namespace zeldec
