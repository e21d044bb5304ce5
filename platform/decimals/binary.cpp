#include "platform/decimals/binary.h"

#include "platform/decimals/decimaltext.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace zeldec {

namespace {

/// 10^0 to 10^22, the powers that a double holds exactly.
constexpr auto kExactPowers = [] {
    std::array<double, 23> powers{1.0};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10.0;
    return powers;
}();

/// Numbers with few places, at a glance: of 15 digits only one decimal number reads back as a
/// given double.
bool FromShortDouble(double magnitude, Number& result)
{
    constexpr double kFifteenDigits = 1e15;
    constexpr int kTriedPlaces = 4;
    constexpr double kScale = kExactPowers[kTriedPlaces];
    const double scaled = magnitude * kScale;
    if (!(scaled < kFifteenDigits))
        return false;
    auto digits = static_cast<std::uint64_t>(scaled);
    if (static_cast<double>(digits) != scaled || scaled / kScale != magnitude)
        return false;
    int places = kTriedPlaces;
    while (places > 0 && digits % 10 == 0) {
        digits /= 10;
        --places;
    }
    result = {digits, places, false};
    return true;
}

/// Any finite magnitude above 0: the digits of its shortest text, "d.ddde[+-]xx".
Status FromLongDouble(double magnitude, Number& result)
{
    char text[32];
    const char* const end =
        std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr;
    uint128 digits = 0;
    int count = 0;
    const char* p = text;
    for (; *p != 'e'; ++p) {
        if (*p == '.')
            continue;
        digits = digits * 10 + static_cast<unsigned>(*p - '0');
        ++count;
    }
    ++p;
    int exponent = 0;
    std::from_chars(*p == '+' ? p + 1 : p, end, exponent);
    return Fit({ToWide(digits), count - 1 - exponent, false}, kMostPlaces, result);
}

} // namespace

Status FromDouble(double number, Number& result)
{
    constexpr double kLastPlace = 1e-27;
    const double magnitude = std::fabs(number);
    if (!(magnitude < std::numeric_limits<double>::infinity()))
        return Status::Overflow;
    Status status = Status::Ok;
    if (magnitude < kLastPlace) {
        result = {0, 0, false};
        status = magnitude == 0 ? Status::Ok : Status::Inexact;
    } else if (!FromShortDouble(magnitude, result)) {
        status = FromLongDouble(magnitude, result);
    }
    if (status != Status::Overflow)
        result.negative = std::signbit(number) && result.magnitude != 0;
    return status;
}

double ToDouble(const Number& number)
{
    const double sign = number.negative ? -1.0 : 1.0;
    const std::uint64_t low = LowHalf(number.magnitude);
    const bool isExact = HighHalf(number.magnitude) == 0 && low <= std::uint64_t{1} << 53;
    if (isExact && number.places >= 0 && number.places < std::int64_t{kExactPowers.size()}) {
        // Both are exact, so the division rounds once.
        return sign *
               (static_cast<double>(low) / kExactPowers[static_cast<std::size_t>(number.places)]);
    }
    char text[64];
    Number whole = number;
    whole.places = 0;
    whole.negative = false;
    char* p = text + Print(whole, text, sizeof text);
    *p++ = 'e';
    p = std::to_chars(p, text + sizeof text, -number.places).ptr;
    double magnitude = 0;
    if (std::from_chars(text, p, magnitude).ec == std::errc::result_out_of_range)
        magnitude = number.places > 0 ? 0.0 : std::numeric_limits<double>::infinity();
    return sign * magnitude;
}

} // namespace zeldec
