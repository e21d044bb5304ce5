#include "platform/decimals/RWDecimal96.h"

#include "platform/decimals/RWDecimalFormat.h"
#include "platform/decimals/arithmetic.h"
#include "platform/decimals/binary.h"
#include "platform/decimals/decimaltext.h"
#include "platform/decimals/digitwords.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

using zeldec::int128;
using zeldec::Number;
using zeldec::Status;
using zeldec::uint128;

static_assert(std::endian::native == std::endian::little, "as the words of numbers are read");

namespace {

/// The words of a number as the core takes them.
struct Access : RWDecimal96Access {
    static bool IsNegative(const RWDecimal96& number) { return HighWord(number) < 0; }

    static int128 Mantissa(const RWDecimal96& number)
    {
        return static_cast<int128>(
            zeldec::Joined(static_cast<std::uint64_t>(std::int64_t{HighWord(number)}),
                           static_cast<std::uint64_t>(LowWords(number))));
    }

    static uint128 Magnitude(const RWDecimal96& number)
    {
        const int128 mantissa = Mantissa(number);
        return static_cast<uint128>(zeldec::WithSign(mantissa, zeldec::SignOf(mantissa)));
    }

    static Number Load(const RWDecimal96& number)
    {
        return {Magnitude(number), Places(number), IsNegative(number)};
    }

    static RWDecimal96 FromMantissa(int128 mantissa, std::int64_t places)
    {
        return Make(static_cast<std::int32_t>(mantissa >> 64), static_cast<std::int64_t>(mantissa),
                    static_cast<std::int32_t>(places));
    }

    static RWDecimal96 From(const Number& number)
    {
        const auto magnitude = static_cast<int128>(number.magnitude);
        return FromMantissa(zeldec::WithSign(magnitude, -int128{number.negative}), number.places);
    }
};

std::atomic<RWDecimal96OverflowHandler> overflowHandler{nullptr};
std::atomic<RWDecimal96InexactHandler> inexactHandler{nullptr};

/// Sets a handler; the same one again costs no write, so threads that do so do not disturb each
/// other.
template <typename Handler>
Handler Exchange(std::atomic<Handler>& current, Handler handler)
{
    const Handler before = current.load(std::memory_order_relaxed);
    if (before != handler)
        current.store(handler, std::memory_order_relaxed);
    return before;
}

[[noreturn]] void RaiseOverflow(const char* why)
{
    RWDecimal96OverflowErr error(why);
    if (const auto handler = overflowHandler.load(std::memory_order_relaxed))
        handler(error);
    throw error;
}

[[gnu::cold, gnu::noinline]] void CallHandler(RWDecimal96InexactHandler handler)
{
    // Not destroyed: that has nothing to do, but would be two more calls for each rounded result.
    alignas(RWDecimal96InexactErr) std::byte room[sizeof(RWDecimal96InexactErr)];
    handler(*new (room) RWDecimal96InexactErr("the result was rounded"));
}

inline void TellInexact()
{
    if (const auto handler = inexactHandler.load(std::memory_order_relaxed))
        CallHandler(handler);
}

/// What the status means to a caller.
void Settle(Status status)
{
    switch (status) {
    case Status::Ok:
        return;
    case Status::Inexact:
        TellInexact();
        return;
    case Status::Overflow:
        RaiseOverflow("more than 28 digits before the point");
    case Status::DivisionByZero:
        break;
    }
    RaiseOverflow("division by zero");
}

/// Runs an operation of the core.
template <typename Operation, typename... Operands>
RWDecimal96 Computed(Operation operation, const Operands&... operands)
{
    Number result = {0, 0, false};
    Settle(operation(operands..., result));
    return Access::From(result);
}

/// An operation of the core on two numbers, out of the way of the quick ones.
template <Status (*operation)(const Number&, const Number&, Number&)>
[[gnu::noinline]] RWDecimal96 ComputedOf(const RWDecimal96& a, const RWDecimal96& b)
{
    if (!Access::AreNumbers(a, b))
        return {};
    return Computed(operation, Access::Load(a), Access::Load(b));
}

/// How many places more the left number has.
std::int64_t DistanceOf(const RWDecimal96& a, const RWDecimal96& b)
{
    return std::int64_t{Access::Places(a)} - Access::Places(b);
}

/// For each power of ten up to 10^18 the highest word of the greatest mantissas that have 127 bits
/// with so many zeros more, and room for another mantissa.
constexpr auto kHighestWords = [] {
    std::array<std::int64_t, RWDecimal96Long::kMostZeros + 1> words{};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const uint128 greatest = ((uint128{1} << 127) - (uint128{1} << 96)) / zeldec::kPowers64[i];
        words[i] = static_cast<std::int64_t>(greatest >> 64) - 1;
    }
    return words;
}();

enum class Sign { Plus, Minus };

/// The sum or the difference of two mantissas at the same number of places, with 128 bits.
struct WideSum {
    int128 mantissa;
    std::int64_t places;

    /// False if one is null, or if they are too far apart or too long.
    template <Sign sign>
    bool Take(const RWDecimal96& left, const RWDecimal96& right)
    {
        const std::int64_t distance = DistanceOf(left, right);
        const std::int64_t gap = std::abs(distance);
        const bool isLeftCoarse = distance < 0;
        const RWDecimal96& coarse = isLeftCoarse ? left : right;
        const RWDecimal96& fine = isLeftCoarse ? right : left;
        if (!Access::AreNumbers(left, right) || gap > RWDecimal96Long::kMostZeros ||
            !HasRoom(coarse, gap))
            return false;
        const int128 scaled =
            Access::Mantissa(coarse) * zeldec::kPowers64[static_cast<std::size_t>(gap)];
        if constexpr (sign == Sign::Plus)
            mantissa = scaled + Access::Mantissa(fine);
        else
            mantissa = zeldec::WithSign(scaled - Access::Mantissa(fine), -int128{!isLeftCoarse});
        places = Access::Places(fine);
        return true;
    }

private:
    static bool HasRoom(const RWDecimal96& number, std::int64_t scale)
    {
        const std::int32_t high = Access::HighWord(number);
        return (high ^ high >> 31) <= kHighestWords[static_cast<std::size_t>(scale)];
    }
};

/// A fitted magnitude as a number, with a sign that SignOf gives.
[[gnu::always_inline]] inline RWDecimal96 Signed(const zeldec::Fitted& fitted, int128 sign)
{
    const RWDecimal96 result = Access::FromMantissa(
        zeldec::WithSign(static_cast<int128>(fitted.magnitude), sign), fitted.places);
    // At the very end, so that nothing has to be kept while the handler runs.
    if (fitted.inexact)
        TellInexact();
    return result;
}

/// A product or a quotient of two numbers.
[[gnu::always_inline]] inline RWDecimal96 SignedLike(const RWDecimal96& a, const RWDecimal96& b,
                                                     const zeldec::Fitted& fitted)
{
    return Signed(fitted, zeldec::SignOf(Access::Mantissa(a) ^ Access::Mantissa(b)));
}

/// Sums of up to 127 bits, rounded if need be; what takes more is left to the core.
template <Sign sign, Status (*operation)(const Number&, const Number&, Number&)>
[[gnu::always_inline]] inline RWDecimal96 SumOf(const RWDecimal96& a, const RWDecimal96& b)
{
    WideSum sum;
    if (sum.Take<sign>(a, b)) {
        const int128 signOfSum = zeldec::SignOf(sum.mantissa);
        const auto magnitude = static_cast<uint128>(zeldec::WithSign(sum.mantissa, signOfSum));
        zeldec::Fitted fitted;
        if (zeldec::FitNarrow(magnitude, sum.places, fitted))
            return Signed(fitted, signOfSum);
    }
    return ComputedOf<operation>(a, b);
}

std::uint64_t Magnitude(std::int64_t mantissa)
{
    const auto bits = static_cast<std::uint64_t>(mantissa);
    return mantissa < 0 ? -bits : bits;
}

/// Reads any text; null if it is no number.
[[gnu::noinline]] RWDecimal96 ReadLong(const char* text, std::size_t length, bool isNegative)
{
    const zeldec::Unsigned source = {text, length, isNegative};
    int128 mantissa = 0;
    int places = 0;
    if (zeldec::TakeLong(source, mantissa, places))
        return Access::FromMantissa(mantissa, places);
    const zeldec::Parsed parsed = zeldec::Parse(source);
    switch (parsed.status) {
    case zeldec::ParseStatus::Ok:
        break;
    case zeldec::ParseStatus::Inexact:
        TellInexact();
        break;
    case zeldec::ParseStatus::Overflow:
        Settle(Status::Overflow);
        break;
    case zeldec::ParseStatus::NoNumber:
        return {};
    }
    return Access::From(parsed.number);
}

[[gnu::noinline]] std::size_t PrintLong(const RWDecimal96& number, char* buffer, std::size_t room)
{
    if (!number.isNull())
        return zeldec::Print(Access::Load(number), buffer, room);
    if (room != 0)
        buffer[0] = '\0';
    return 0;
}

zeldec::Rounding RoundingOf(RWDecimalBase::RoundingMethod method)
{
    switch (method) {
    case RWDecimalBase::RoundAwayFromZero:
        return zeldec::Rounding::AwayFromZero;
    case RWDecimalBase::RoundTowardZero:
        return zeldec::Rounding::TowardZero;
    case RWDecimalBase::RoundNearest:
        break;
    }
    return zeldec::Rounding::Nearest;
}

RWDecimal96 RoundedShort(const RWDecimal96& number, int drop, RWDecimalBase::RoundingMethod method)
{
    const auto power = static_cast<std::int64_t>(zeldec::kPowers64[static_cast<std::size_t>(drop)]);
    const std::int64_t mantissa = Access::LowWords(number);
    const std::int64_t rest = std::abs(mantissa % power);
    const bool away = method == RWDecimalBase::RoundTowardZero     ? false
                      : method == RWDecimalBase::RoundAwayFromZero ? rest != 0
                                                                   : rest >= power - rest;
    const std::int64_t unit = away ? (mantissa < 0 ? -1 : 1) : 0;
    return Access::MakeShort(mantissa / power + unit, Access::Places(number) - drop);
}

} // namespace

// Scaling

// clang-format off
const std::int64_t RWDecimal96Long::kFactors[] = {
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
    10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000,
    10'000'000'000, 100'000'000'000, 1'000'000'000'000, 10'000'000'000'000, 100'000'000'000'000,
    1'000'000'000'000'000, 10'000'000'000'000'000, 100'000'000'000'000'000,
    1'000'000'000'000'000'000};
// clang-format on

// Errors and handlers

RWDecimal96OverflowErr::~RWDecimal96OverflowErr() = default;

const char* RWDecimal96OverflowErr::what() const noexcept
{
    return m_why;
}

RWDecimal96InexactErr::~RWDecimal96InexactErr() = default;

const char* RWDecimal96InexactErr::what() const noexcept
{
    return m_why;
}

RWDecimal96OverflowHandler RWDecimal96::setOverflowHandler(RWDecimal96OverflowHandler handler)
{
    return Exchange(overflowHandler, handler);
}

RWDecimal96InexactHandler RWDecimal96::setInexactHandler(RWDecimal96InexactHandler handler)
{
    return Exchange(inexactHandler, handler);
}

// Construction

RWDecimal96::RWDecimal96(const char* text)
    : RWDecimal96(text, text == nullptr ? 0 : std::strlen(text))
{}

RWDecimal96::RWDecimal96(const char* text, std::size_t length) : RWDecimal96()
{
    const zeldec::Unsigned source = zeldec::WithoutSign(text, length);
    std::int64_t mantissa = 0;
    int places = 0;
    if (zeldec::TakeShort(source, mantissa, places))
        *this = Access::MakeShort(mantissa, places);
    else
        *this = ReadLong(source.text, source.length, source.isNegative);
}

RWDecimal96 RWDecimal96::from(double number)
{
    return Computed(zeldec::FromDouble, number);
}

// Arithmetic

RWDecimal96 RWDecimal96Long::Sum(const RWDecimal96& a, const RWDecimal96& b)
{
    return SumOf<Sign::Plus, zeldec::Add>(a, b);
}

RWDecimal96 RWDecimal96Long::Difference(const RWDecimal96& a, const RWDecimal96& b)
{
    return SumOf<Sign::Minus, zeldec::Subtract>(a, b);
}

RWDecimal96 RWDecimal96Long::Product(const RWDecimal96& a, const RWDecimal96& b)
{
    zeldec::Fitted product;
    if (Access::AreNumbers(a, b) && zeldec::MultiplyLong(Access::Load(a), Access::Load(b), product))
        return SignedLike(a, b, product);
    return ComputedOf<zeldec::Multiply>(a, b);
}

RWDecimal96 operator/(const RWDecimal96& a, const RWDecimal96& b)
{
    zeldec::Fitted quotient;
    if ((Access::AreShort(a, b) &&
         zeldec::DivideShort(Magnitude(Access::LowWords(a)), Magnitude(Access::LowWords(b)),
                             DistanceOf(a, b), quotient)) ||
        (Access::AreNumbers(a, b) &&
         zeldec::DivideLong(Access::Load(a), Access::Load(b), quotient)))
        return SignedLike(a, b, quotient);
    return ComputedOf<zeldec::Divide>(a, b);
}

RWDecimal96 operator%(const RWDecimal96& a, const RWDecimal96& b)
{
    return ComputedOf<zeldec::Remainder>(a, b);
}

RWDecimal96 pow(const RWDecimal96& base, int exponent)
{
    if (base.isNull())
        return {};
    return Computed(zeldec::Power, Access::Load(base), exponent);
}

RWDecimal96 abs(const RWDecimal96& number)
{
    if (number.isNull() || !Access::IsNegative(number))
        return number;
    Number positive = Access::Load(number);
    positive.negative = false;
    // The lowest of all mantissas alone has no positive counterpart.
    if (positive.magnitude >> 95 != 0)
        return Computed(zeldec::Fit,
                        zeldec::Exact{zeldec::ToWide(positive.magnitude), positive.places, false},
                        zeldec::kMostPlaces);
    return Access::From(positive);
}

RWDecimal96 round(const RWDecimal96& number, int places, RWDecimalBase::RoundingMethod method)
{
    if (number.isNull() || places >= Access::Places(number))
        return number;
    const std::int64_t drop = std::int64_t{Access::Places(number)} - places;
    if (Access::MayHave(places) && drop <= zeldec::kLargestShortDivisor && Access::IsShort(number))
        return RoundedShort(number, static_cast<int>(drop), method);
    return Computed(zeldec::Round, Access::Load(number), places, RoundingOf(method));
}

// Comparison

RWDecimal96Long::Order RWDecimal96Long::Compare(const RWDecimal96& a, const RWDecimal96& b)
{
    if (a.isNull() || b.isNull())
        return Unordered;
    const int order = zeldec::Compare(Access::Load(a), Access::Load(b));
    return order < 0 ? Less : order > 0 ? Greater : Equal;
}

// Conversions

long toInt(const RWDecimal96& number, RWDecimalBase::RoundingMethod method)
{
    return number.isNull() ? 0 : zeldec::ToInt32(Access::Load(number), RoundingOf(method));
}

long double toDouble(const RWDecimal96& number)
{
    return number.isNull() ? std::numeric_limits<long double>::quiet_NaN()
                           : zeldec::ToDouble(Access::Load(number));
}

std::size_t RWDecimal96::print(char* buffer, std::size_t room) const
{
    if (room >= zeldec::kRoomForShort && Access::IsShort(*this) && Access::MayHave(m_exponent)) {
        const std::int64_t mantissa = Access::LowWords(*this);
        const std::size_t length =
            zeldec::PrintShort(Magnitude(mantissa), mantissa < 0, m_exponent, buffer);
        if (length != 0)
            return length;
    }
    return PrintLong(*this, buffer, room);
}

RWCString toString(const RWDecimal96& number)
{
    char text[RWDecimal96::kTextRoom];
    const std::size_t length = number.print(text, sizeof text);
    if (length < sizeof text)
        return {text, length};
    RWCString longText(length, '0');
    number.print(longText.data(), length + 1);
    return longText;
}

RWDecimal96::operator RWDecimalPortable() const
{
    return RWDecimalPortable(toString(*this));
}

// Start-up

// The library's own objects need no order: they are constants and atomic pointers that are there
// before any code runs.
RWDecimal96Init::RWDecimal96Init() {}
RWDecimal96Init::~RWDecimal96Init() {}
