#include <ZELQRNDT017/platform/decimals/RWDecimal96.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

// Any bytes as the text of a decimal number, and as the words of two numbers that are calculated
// with. What comes out is a number within the limits, which its text brings back, or an overflow;
// rounding and absolute values may keep a number that came in.

namespace {

constexpr std::size_t kMaxDigits = 28;
constexpr std::int32_t kMaxPlaces = 27;
/// Of positive numbers that texts brought.
constexpr std::int32_t kMaxPlacesRead = 36;

class RawDecimal : public RWDecimal96 {
public:
    RawDecimal(int96 mantissa, std::int32_t places) : RWDecimal96(mantissa, places, NormalState) {}
    explicit RawDecimal(const RWDecimal96& number) : RWDecimal96(number) {}

    std::int32_t Places() const { return m_exponent; }
};

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::string TextOf(const RWDecimal96& number)
{
    char buffer[RWDecimal96::kTextRoom];
    const std::size_t length = number.print(buffer, sizeof buffer);
    Require(length < sizeof buffer && std::strlen(buffer) == length);
    const RWCString text = toString(number);
    Require(text.length() == length && std::strcmp(text.data(), buffer) == 0);
    return buffer;
}

/// A result has its limits and comes back from its text.
void CheckNumber(const RWDecimal96& number, std::int32_t maxPlaces)
{
    Require(!number.isNull());
    const std::int32_t places = RawDecimal(number).Places();
    Require(places >= 0 && places <= maxPlaces);

    const std::string text = TextOf(number);
    std::string digits;
    for (const char c : text) {
        if (c >= '0' && c <= '9' && (c != '0' || !digits.empty()))
            digits.push_back(c);
    }
    Require(digits.size() <= kMaxDigits);
    Require(text[0] != '-' || !digits.empty());

    const RWDecimal96 again(text.c_str());
    Require(again == number && !(again < number) && !(again > number));
    Require(TextOf(again) == text);
}

template <typename Operation>
void Calculate(const Operation& operation)
{
    try {
        CheckNumber(operation(), kMaxPlaces);
    } catch (const RWDecimal96OverflowErr&) {
        return;
    }
}

/// Without a place to drop the number stays as it is, whatever it is.
void CheckRounded(const RawDecimal& a, int places, RWDecimalBase::RoundingMethod method)
{
    try {
        const RawDecimal rounded(round(a, places, method));
        if (a.Places() <= places)
            Require(rounded.Places() == a.Places() && rounded == a);
        else
            CheckNumber(rounded, kMaxPlaces);
    } catch (const RWDecimal96OverflowErr&) {
        Require(a.Places() > places);
    }
}

/// The number without its sign, unless that needs more than its words have.
void CheckAbs(const RawDecimal& a)
{
    try {
        const RawDecimal positive(abs(a));
        Require(!(positive < 0) && (a < 0 || positive == a));
        if (positive.Places() != a.Places())
            CheckNumber(positive, kMaxPlaces);
    } catch (const RWDecimal96OverflowErr&) {
        Require(a < 0);
    }
}

void CheckOrder(const RWDecimal96& a, const RWDecimal96& b)
{
    Require((a < b) + (a == b) + (a > b) == 1);
    Require((a <= b) == 1 - (a > b));
    Require((a >= b) == 1 - (a < b));
    Require((a != b) == 1 - (a == b));
    Require((a < b) == (b > a));
}

void CheckOne(const RawDecimal& a, int places)
{
    CheckOrder(a, a);
    Calculate([&] { return pow(a, places); });
    CheckAbs(a);
    for (const auto method : {RWDecimalBase::RoundNearest, RWDecimalBase::RoundAwayFromZero,
                              RWDecimalBase::RoundTowardZero}) {
        CheckRounded(a, places, method);
        const long whole = toInt(a, method);
        Require(whole >= INT32_MIN && whole <= INT32_MAX);
    }
    const auto number = static_cast<double>(toDouble(a));
    Require((number < 0) <= (a < 0) && (number > 0) <= (a > 0));
    Calculate([&] { return RWDecimal96::from(number); });
    Require(a.print(nullptr, 0) != 0);
}

void CheckTwo(const RWDecimal96& a, const RWDecimal96& b)
{
    CheckOrder(a, b);
    Calculate([&] { return a + b; });
    Calculate([&] { return a - b; });
    Calculate([&] { return a * b; });
    Calculate([&] { return a / b; });
    Calculate([&] { return a % b; });
}

void ReadText(const std::string& text)
{
    try {
        const RWDecimal96 number(text.c_str());
        if (!number.isNull())
            CheckNumber(number, number < 0 ? kMaxPlaces : kMaxPlacesRead);
        const RWDecimal96 counted(text.data(), text.size());
        Require(counted.isNull() || counted == number);
    } catch (const RWDecimal96OverflowErr&) {
        return;
    }
}

/// The next bytes of the input; zeros where it has ended.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    template <typename T>
    T Take()
    {
        T value = 0;
        const std::size_t count = m_size < sizeof value ? m_size : sizeof value;
        if (count != 0)
            std::memcpy(&value, m_data, count);
        m_data += count;
        m_size -= count;
        return value;
    }

    /// With places as records have them, or any at all.
    RawDecimal TakeNumber(bool anyPlaces)
    {
        int96 mantissa = {0, 0, 0};
        mantissa.low = Take<std::uint32_t>();
        mantissa.middle = Take<std::uint32_t>();
        mantissa.high = Take<std::int32_t>();
        return {mantissa, anyPlaces ? Take<std::int32_t>() : Take<std::int8_t>()};
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    if (data[0] % 2 == 0) {
        ReadText(std::string(data + 1, data + size));
        return 0;
    }
    Input input(data + 1, size - 1);
    const bool anyPlaces = data[0] % 4 == 1;
    const auto places = anyPlaces ? input.Take<std::int32_t>() : input.Take<std::int8_t>();
    const RawDecimal a = input.TakeNumber(anyPlaces);
    const RawDecimal b = input.TakeNumber(anyPlaces);
    CheckOne(a, places);
    CheckTwo(a, b);
    return 0;
}
