#include "engine_model.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace zeltest::model {

namespace {

constexpr std::int64_t kMaxDigits = 28;
constexpr std::int64_t kMaxPlaces = 27;
/// Of positive numbers that are read from a text; rounding leaves them as many.
constexpr std::int64_t kMaxPlacesRead = 36;

std::int64_t MaxPlacesOfText(bool negative)
{
    return negative ? kMaxPlaces : kMaxPlacesRead;
}

const BigNatural& TenTo(std::int64_t exponent)
{
    static const auto kPowers = [] {
        std::vector<BigNatural> powers;
        for (std::size_t i = 0; i < 400; ++i)
            powers.push_back(BigNatural::PowerOfTen(i));
        return powers;
    }();
    return kPowers.at(static_cast<std::size_t>(exponent));
}

std::int64_t DigitsOf(const BigNatural& number)
{
    return static_cast<std::int64_t>(number.Digits());
}

/// +-over / (under * 10^places): what an operation gives before it is fitted to the limits.
struct Exact {
    bool negative = false;
    BigNatural over;
    BigNatural under;
    std::int64_t places = 0;
};

Exact ExactOf(const Decimal& number)
{
    return {number.negative, number.mantissa, 1, number.places};
}

/// The digits before the point, or 0 to -n for a value that begins with n zeros behind the point;
/// may be one too many.
std::int64_t SizeOf(const Exact& value)
{
    return DigitsOf(value.over) - DigitsOf(value.under) + 1 - value.places;
}

struct Rounded {
    BigNatural mantissa;
    bool exact = true;
};

/// The value in units of 10^-places, as a whole number.
Rounded InUnits(const Exact& value, std::int64_t places, Rounding method)
{
    // Far below a unit it does not matter how far.
    if (value.over.IsZero())
        return {};
    if (SizeOf(value) + places < -3)
        return {method == Rounding::AwayFromZero ? 1 : 0, false};

    const std::int64_t shift = places - value.places;
    const BigNatural over = shift > 0 ? value.over * TenTo(shift) : value.over;
    const BigNatural under = shift < 0 ? value.under * TenTo(-shift) : value.under;
    auto [quotient, rest] = BigNatural::Divide(over, under);
    const bool up = method == Rounding::AwayFromZero ? !rest.IsZero()
                    : method == Rounding::Nearest    ? rest + rest >= under
                                                     : false;
    return {up ? quotient + 1 : quotient, rest.IsZero()};
}

Result Overflow()
{
    return {Outcome::Overflow, {}, false};
}

/// The value with the places wanted, or with as many as the limits leave it.
Result Fit(const Exact& value, std::int64_t wanted, Rounding method = Rounding::Nearest,
           std::int64_t maxPlaces = kMaxPlaces)
{
    for (std::int64_t places = std::clamp<std::int64_t>(wanted, 0, maxPlaces); places >= 0;
         --places) {
        if (!value.over.IsZero() && SizeOf(value) + places > kMaxDigits + 1)
            continue; // surely too long; the digits need not be known
        const Rounded rounded = InUnits(value, places, method);
        if (DigitsOf(rounded.mantissa) <= kMaxDigits)
            return {Outcome::Number,
                    {value.negative && !rounded.mantissa.IsZero(), rounded.mantissa, places},
                    !rounded.exact};
    }
    return Overflow();
}

/// A number as it is, if its mantissa has 96 bits with its sign.
Result Keep(const Decimal& number)
{
    static const BigNatural kTooLarge = BigNatural::PowerOfTwo(95);
    if (number.mantissa < kTooLarge || (number.negative && number.mantissa == kTooLarge))
        return {Outcome::Number, number, false};
    return Fit(ExactOf(number), number.places);
}

/// The sum when `small` is so much smaller than `large` that only its sign matters. A speck of that
/// sign takes its place: no multiple of half a last place lies between.
Result AddSpeck(const Decimal& large, const Decimal& small)
{
    if (large.places < -2 * kMaxDigits)
        return Overflow();
    return Add(large, {small.negative, 1, std::max<std::int64_t>(large.places, kMaxDigits) + 2});
}

BigNatural PowerModulo(std::int64_t exponent, const BigNatural& modulus)
{
    BigNatural result = 1;
    BigNatural square = 10;
    for (; exponent != 0; exponent /= 2) {
        if (exponent % 2 != 0)
            result = result * square % modulus;
        square = square * square % modulus;
    }
    return result;
}

/// The places of the quotient without trailing zeros if it ends.
std::optional<std::int64_t> LeastPlaces(const Exact& value)
{
    // A divisor below 2^96 has at most 95 factors of 2 or 5; as many places are enough.
    constexpr std::int64_t kEnough = 100;
    if (value.over.IsZero())
        return 0;
    const auto [quotient, rest] = BigNatural::Divide(value.over * TenTo(kEnough), value.under);
    if (!rest.IsZero())
        return std::nullopt;
    return value.places + kEnough - static_cast<std::int64_t>(quotient.TrailingZeros());
}

} // namespace

std::string Decimal::Text() const
{
    if (mantissa.IsZero())
        return places > 0 ? "0." + std::string(static_cast<std::size_t>(places), '0') : "0";
    std::string text = mantissa.Text();
    if (places < 0)
        text.append(static_cast<std::size_t>(-places), '0');
    if (places > 0) {
        const auto decimals = static_cast<std::size_t>(places);
        if (text.size() <= decimals)
            text.insert(0, decimals + 1 - text.size(), '0');
        text.insert(text.size() - decimals, 1, '.');
    }
    return negative ? '-' + text : text;
}

std::ostream& operator<<(std::ostream& os, const Decimal& number)
{
    return os << (number.negative ? "-" : "") << number.mantissa.Text() << "/10^" << number.places;
}

std::ostream& operator<<(std::ostream& os, const Outcome& outcome)
{
    static constexpr const char* kNames[] = {"", "null", "overflow"};
    return os << kNames[outcome.kind] << outcome.text << (outcome.rounded ? " (rounded)" : "");
}

Outcome Result::Show() const
{
    return {kind, kind == Outcome::Number ? number.Text() : "", rounded};
}

Result Add(const Decimal& a, const Decimal& b)
{
    constexpr std::int64_t kFar = 120;
    const std::int64_t places = std::max(a.places, b.places);
    if (a.mantissa.IsZero() || b.mantissa.IsZero())
        return Fit(ExactOf(a.mantissa.IsZero() ? b : a), places);
    if (a.places - b.places > kFar)
        return AddSpeck(b, a);
    if (b.places - a.places > kFar)
        return AddSpeck(a, b);

    const BigNatural left = a.mantissa * TenTo(places - a.places);
    const BigNatural right = b.mantissa * TenTo(places - b.places);
    if (a.negative == b.negative)
        return Fit({a.negative, left + right, 1, places}, places);
    if (left >= right)
        return Fit({a.negative, left - right, 1, places}, places);
    return Fit({b.negative, right - left, 1, places}, places);
}

Result Subtract(const Decimal& a, const Decimal& b)
{
    return Add(a, {!b.negative, b.mantissa, b.places});
}

Result Multiply(const Decimal& a, const Decimal& b)
{
    const std::int64_t places = a.places + b.places;
    return Fit({a.negative != b.negative, a.mantissa * b.mantissa, 1, places}, places);
}

Result Divide(const Decimal& a, const Decimal& b)
{
    if (b.mantissa.IsZero())
        return Overflow();
    const std::int64_t difference = a.places - b.places;
    const Exact value = {a.negative != b.negative, a.mantissa, b.mantissa, difference};
    const std::optional<std::int64_t> least = LeastPlaces(value);
    return Fit(value, least ? std::max(*least, difference) : kMaxPlaces);
}

Result Remainder(const Decimal& a, const Decimal& b)
{
    if (b.mantissa.IsZero())
        return Overflow();
    const std::int64_t places = std::max(a.places, b.places);
    BigNatural rest;
    if (a.places <= b.places)
        rest = a.mantissa * PowerModulo(b.places - a.places, b.mantissa) % b.mantissa;
    else if (a.places - b.places > DigitsOf(a.mantissa))
        rest = a.mantissa;
    else
        rest = a.mantissa % (b.mantissa * TenTo(a.places - b.places));
    return Fit({a.negative, rest, 1, places}, places);
}

Result Power(const Decimal& base, int exponent)
{
    Result result = {Outcome::Number, {false, 1, 0}, false};
    const auto multiply = [&](const Decimal& a, const Decimal& b) {
        const Result product = Multiply(a, b);
        result.rounded = result.rounded || product.rounded;
        if (product.kind != Outcome::Number)
            result.kind = product.kind;
        return product.number;
    };
    Decimal square = base;
    for (std::int64_t left = std::abs(std::int64_t{exponent}); left != 0; left /= 2) {
        if (left % 2 != 0)
            result.number = multiply(result.number, square);
        if (left > 1)
            square = multiply(square, square);
        if (result.kind != Outcome::Number)
            return Overflow();
    }
    if (exponent >= 0)
        return result;
    Result reciprocal = Divide({false, 1, 0}, result.number);
    if (reciprocal.kind == Outcome::Number)
        reciprocal.rounded = reciprocal.rounded || result.rounded;
    return reciprocal;
}

Result Abs(const Decimal& number)
{
    return Keep({false, number.mantissa, number.places});
}

Result Round(const Decimal& number, std::int64_t places, Rounding method)
{
    if (number.places <= places)
        return Keep(number);
    Result result;
    if (places >= 0) {
        result = Fit(ExactOf(number), places, method, MaxPlacesOfText(number.negative));
    } else {
        const BigNatural units = InUnits(ExactOf(number), places, method).mantissa;
        result = Fit({number.negative, units, 1, places}, 0);
    }
    result.rounded = false; // it was asked for
    return result;
}

int Compare(const Decimal& a, const Decimal& b)
{
    const auto signOf = [](const Decimal& n) {
        return n.mantissa.IsZero() ? 0 : n.negative ? -1 : 1;
    };
    const int sign = signOf(a);
    if (sign != signOf(b) || sign == 0)
        return sign - signOf(b);
    const std::int64_t sizes = SizeOf(ExactOf(a)) - SizeOf(ExactOf(b));
    if (sizes != 0)
        return sizes > 0 ? sign : -sign;
    const std::int64_t places = std::max(a.places, b.places);
    const BigNatural left = a.mantissa * TenTo(places - a.places);
    const BigNatural right = b.mantissa * TenTo(places - b.places);
    return left == right ? 0 : left > right ? sign : -sign;
}

std::int32_t ToInt(const Decimal& number, Rounding method)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int32_t limit = number.negative ? Limits::min() : Limits::max();
    const Exact value = ExactOf(number);
    if (!number.mantissa.IsZero() && SizeOf(value) > 12)
        return limit;
    const BigNatural whole = InUnits(value, 0, method).mantissa;
    if (whole > BigNatural(std::uint64_t{1} << 31))
        return limit;
    const auto magnitude = static_cast<std::int64_t>(whole.Low64());
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        number.negative ? -magnitude : magnitude, Limits::min(), Limits::max()));
}

double ToDouble(const Decimal& number)
{
    using Limits = std::numeric_limits<double>;
    constexpr int kLeastExponent = Limits::min_exponent - Limits::digits;
    const std::int64_t size = SizeOf(ExactOf(number));
    const double sign = number.negative ? -1 : 1;
    if (number.mantissa.IsZero() || size < -330)
        return 0 * sign;
    if (size > 330)
        return Limits::infinity() * sign;

    const auto ten = [](std::int64_t n) {
        return BigNatural::PowerOfTen(static_cast<std::size_t>(std::max<std::int64_t>(n, 0)));
    };
    const auto two = [](int n) {
        return BigNatural::PowerOfTwo(static_cast<std::size_t>(std::max(n, 0)));
    };
    const BigNatural over = number.mantissa * ten(-number.places);
    const BigNatural under = ten(number.places);
    const auto divide = [&](int exponent) {
        return BigNatural::Divide(over * two(-exponent), under * two(exponent));
    };

    // The number / 2^exponent has 53 bits, or fewer at the exponent of the smallest numbers. The
    // first exponent is some bits too low.
    int exponent = static_cast<int>((static_cast<double>(size) - 2) * 3.3219) - 53;
    exponent = std::max(exponent, kLeastExponent);
    const int bits = std::bit_width(divide(exponent).quotient.Low64());
    exponent += std::max(bits - Limits::digits, 0);
    BigNatural::Division d = divide(exponent);
    const BigNatural unit = under * two(exponent);
    const BigNatural twice = d.rest + d.rest;
    if (twice > unit || (twice == unit && d.quotient.Low64() % 2 != 0))
        d.quotient = d.quotient + 1;
    return std::ldexp(sign * static_cast<double>(d.quotient.Low64()), exponent);
}

Result FromDouble(double number)
{
    if (!std::isfinite(number))
        return Overflow();
    char buffer[64];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), std::abs(number),
                                   std::chars_format::scientific)
                         .ptr;
    const std::string text(buffer, end);
    const std::size_t e = text.find('e');
    std::string digits = text.substr(0, e);
    const std::size_t point = digits.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : digits.size() - point - 1;
    std::erase(digits, '.');
    const Decimal shortest = {std::signbit(number), BigNatural::FromDigits(digits),
                              static_cast<std::int64_t>(decimals) - std::stoi(text.substr(e + 1))};
    // Below the last place there is nothing.
    if (number == 0 ||
        Compare({false, shortest.mantissa, shortest.places}, {false, 1, kMaxPlaces}) < 0)
        return {Outcome::Number, {}, number != 0};
    return Fit(ExactOf(shortest), shortest.places);
}

Result Parse(const std::string& text)
{
    const Result null = {Outcome::Null, {}, false};
    const bool negative = text[0] == '-';
    std::string digits = text.substr(negative || text[0] == '+' ? 1 : 0);
    const std::size_t point = digits.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : digits.size() - point - 1;
    if (point != std::string::npos)
        digits.erase(point, 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return null;
    const auto places = static_cast<std::int64_t>(decimals);
    return Fit({negative, BigNatural::FromDigits(digits), 1, places}, places, Rounding::Nearest,
               MaxPlacesOfText(negative));
}

} // namespace zeltest::model
