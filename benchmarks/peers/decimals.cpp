#include "benchmarks/peers/decimals.h"

#include <cstdint>
#include <cstring>

namespace peers {

#ifdef ZELBENCH_HAVE_DECIMAL128

namespace {

__extension__ typedef unsigned __int128 uint128;

/// Sign, 14 bits of exponent, 113 bits of coefficient.
constexpr int kExponentShift = 113;
constexpr int kExponentBias = 6176;
constexpr uint128 kCoefficientMask = (uint128{1} << kExponentShift) - 1;

} // namespace

Decimal128 Decimal128::Read(const std::string& text)
{
    const bool negative = text[0] == '-';
    const std::size_t point = text.find('.');
    uint128 bits = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9')
            bits = bits * 10 + static_cast<unsigned>(c - '0');
    }
    const std::size_t places = point == std::string::npos ? 0 : text.size() - point - 1;
    bits |= (uint128{kExponentBias} - places) << kExponentShift;
    bits |= uint128{negative} << 127;
    Number number;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    return Decimal128{number};
}

std::string Decimal128::Text() const
{
    uint128 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    std::string digits;
    for (uint128 rest = bits & kCoefficientMask; rest != 0; rest /= 10)
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
    const int exponent = static_cast<int>(bits >> kExponentShift & 0x3FFF) - kExponentBias;
    return (bits >> 127 != 0 ? "-0" : "0") + digits + "e" + std::to_string(exponent);
}

#endif

template <typename Number>
Called<Number> Called<Number>::Read(const std::string& text)
{
    return Called{Number::Read(text)};
}

template <typename Number>
std::size_t Called<Number>::Write(char* buffer) const requires Writing<Number>
{
    return number.Write(buffer);
}

template <typename Number>
Called<Number> Called<Number>::From(double source)
{
    return Called{Number::From(source)};
}

template <typename Number>
double Called<Number>::ToDouble() const
{
    return number.ToDouble();
}

template <typename Number>
Called<Number> Called<Number>::operator+(const Called& b) const
{
    return Called{number + b.number};
}

template <typename Number>
Called<Number> Called<Number>::operator*(const Called& b) const
{
    return Called{number * b.number};
}

template <typename Number>
Called<Number> Called<Number>::operator/(const Called& b) const
{
    return Called{number / b.number};
}

template <typename Number>
int Called<Number>::operator<(const Called& b) const
{
    return number < b.number;
}

template <typename Number>
Called<Number> Called<Number>::ToHundredths() const requires Rounding<Number>
{
    return Called{number.ToHundredths()};
}

#ifdef ZELBENCH_HAVE_DECIMAL128
template struct Called<Decimal128>;
#endif
#ifdef ZELBENCH_HAVE_MULTIPRECISION
template struct Called<BoostDecimal>;
#endif

} // namespace peers
