#include "numeric/IMP/DTDOUBLI.h"

#include "foundation/DTGUARD.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/exactpowers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using zeldt::DoubleStatus;
using zeldt::ErrorNo;
using zeldt::Operation;
using zeldt::Raise;
using zelrt::IsDigit;
using zelrt::IsSpace;

constexpr Operation Op(const char* signature)
{
    return {"DTDOUBLI", "ZelDtDouble_Imp", signature};
}

constexpr Operation kConvAsciiToDouble = Op("ConvAsciiToDouble(LPCTSTR)");
constexpr Operation kConvDoubleToAscii = Op("ConvDoubleToAscii(double)");

constexpr int kExternDigits = 16;
constexpr std::uint64_t kExternLimit = 10'000'000'000'000'000; // 10^kExternDigits

/// A decimal number rounded to the digits of the external text: digits * 10^(exponent - 15).
struct RoundedDecimal {
    std::uint64_t digits; ///< the first of them is not 0, unless all are
    std::int64_t exponent;

    bool operator==(const RoundedDecimal&) const = default;
};

/// 1.7976931348623157E+308, rounded.
constexpr RoundedDecimal kLargest{1797693134862316, 308};

/// What an exponent says, "e" and sign included; saturates far outside of what digits make up for.
std::int64_t ReadExponent(std::string_view text)
{
    constexpr std::int64_t limit = 1'000'000'000'000;
    text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t exponent = 0;
    for (const char c : text)
        exponent = std::min(exponent * 10 + (c - '0'), limit);
    return negative ? -exponent : exponent;
}

/// Rounds a number without sign that was read completely.
RoundedDecimal Round(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    RoundedDecimal result{0, -1};
    int count = 0;
    bool inFraction = false;
    for (const char c : number.substr(0, mark)) {
        if (c == '.') {
            inFraction = true;
            continue;
        }
        const bool leadingZero = count == 0 && c == '0';
        if (inFraction && leadingZero)
            --result.exponent;
        if (!inFraction && !leadingZero)
            ++result.exponent;
        if (leadingZero || count > kExternDigits)
            continue;
        if (++count <= kExternDigits)
            result.digits = result.digits * 10 + static_cast<unsigned>(c - '0');
        else if (c >= '5')
            ++result.digits;
    }
    for (; count < kExternDigits; ++count)
        result.digits *= 10;
    if (result.digits == kExternLimit) {
        result.digits /= 10;
        ++result.exponent;
    }
    if (mark < number.size())
        result.exponent += ReadExponent(number.substr(mark));
    return result;
}

/// The number without its sign, if `text` begins with one.
std::string_view Unsigned(std::string_view text, bool& negative)
{
    negative = text.starts_with('-');
    return negative || text.starts_with('+') ? text.substr(1) : text;
}

std::string_view WithoutSpace(std::string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

} // namespace

zeldt::DoubleText zeldt::ReadDouble(std::string_view text) noexcept
{
    bool negative = false;
    const std::string_view number = Unsigned(WithoutSpace(text), negative);
    DoubleText read{0.0, text.data(), DoubleStatus::Ok};
    if (ReadShort(number, read.value, read.end)) {
        read.value = negative ? -read.value : read.value;
        return read;
    }
    const std::string_view digits = number.substr(number.starts_with('.') ? 1 : 0);
    if (digits.empty() || !IsDigit(digits.front()))
        return read;

    const char* const last = number.data() + number.size();
    const auto [end, error] = std::from_chars(number.data(), last, read.value);
    read.end = end;
    if (error != std::errc{}) {
        const bool large = Round({number.data(), end}).exponent > 0;
        read.status = large ? DoubleStatus::TooLarge : DoubleStatus::TooSmall;
        read.value = large ? std::numeric_limits<double>::infinity() : 0.0;
    }
    if (negative)
        read.value = -read.value;
    return read;
}

double zeldt::ReadExternDouble(const char* text)
{
    const DoubleText read = ReadDouble(text);
    if (read.status != DoubleStatus::TooLarge)
        return read.value;
    bool negative = false;
    const std::string_view number = Unsigned(WithoutSpace({text, read.end}), negative);
    if (Round(number) != kLargest)
        Raise(kConvAsciiToDouble, ErrorNo::OutOfRange);
    return std::copysign(std::numeric_limits<double>::max(), read.value);
}

zeldt::ExternDouble::ExternDouble(double number)
{
    if (!std::isfinite(number))
        Raise(kConvDoubleToAscii, ErrorNo::OutOfRange);
    char* const end = std::to_chars(m_text, m_text + sizeof m_text - 1, number,
                                    std::chars_format::general, kExternDigits)
                          .ptr;
    *end = '\0';
    std::replace(m_text, end, 'e', 'E');
}

double ZelDtDouble_Imp::ConvAsciiToDouble(const char* text)
{
    if (text == nullptr)
        Raise(kConvAsciiToDouble, ErrorNo::InitialValue);
    const zeldt::DoubleText read = zeldt::ReadDouble(text);
    const bool complete = *read.end == '\0';
    if (read.status == DoubleStatus::TooLarge ||
        (read.status == DoubleStatus::TooSmall && !complete))
        Raise(kConvAsciiToDouble, ErrorNo::OutOfRange);
    return read.value;
}
