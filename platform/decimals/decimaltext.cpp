#include "platform/decimals/decimaltext.h"

#include "platform/decimals/digitwords.h"
#include "platform/runtime/digits.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zeldec {

namespace {

using zelrt::IsDigit;

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

/// The value of up to 28 digits, given in two pieces.
uint128 ValueOf(std::string_view first, std::string_view second)
{
    constexpr std::size_t kHalf = 16;
    char padded[2 * kHalf];
    std::memset(padded, '0', sizeof padded);
    second.copy(padded + sizeof padded - second.size(), second.size());
    first.copy(padded + sizeof padded - second.size() - first.size(), first.size());
    const TwoValues values = ValuesOf(LoadDigits(padded), LoadDigits(padded + kHalf));
    return uint128{values.first} * kPowers64[kHalf] + values.second;
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

Parsed Parse(const Unsigned& source)
{
    DigitText text{};
    if (!Scan({source.text, source.length}, text))
        return {};
    const bool negative = source.isNegative;
    const std::int64_t count = text.Count();
    const int mostPlaces = negative ? kMostPlaces : kMostPlacesRead;
    const std::int64_t excess =
        std::max<std::int64_t>({count - kMostDigits, text.places - mostPlaces, 0});
    if (count > 0 && excess > text.places)
        return {ParseStatus::Overflow, {0, 0, false}};
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
    Parsed result;
    const Exact exact = {ToWide(magnitude), text.places - excess, negative, inexact};
    const Status status = Fit(exact, mostPlaces, result.number);
    result.status = status == Status::Overflow  ? ParseStatus::Overflow
                    : status == Status::Inexact ? ParseStatus::Inexact
                                                : ParseStatus::Ok;
    return result;
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

/// Texts of this length and less are copied in one go, whatever their length.
constexpr std::size_t kCopied = 32;

/// Prints a number with more than 0 places and less than kCopied, in front of which there are
/// digits that are not 0 or a single zero, in three copies of fixed length.
void PrintWithPoint(const PrintedDigits& digits, std::int64_t count, const Number& number,
                    char* out)
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
    const PrintedDigits digits(number.magnitude);
    if (number.places > 0 && number.places < std::int64_t{kCopied}) {
        char text[2 * kCopied + PrintedDigits::kRoom];
        PrintWithPoint(digits, count, number, text);
        std::memcpy(out, text, length);
    } else {
        PrintLong(digits, count, number, out);
    }
    out[length] = '\0';
    return length;
}

} // namespace zeldec
