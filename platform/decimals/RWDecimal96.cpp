#include "platform/decimals/RWDecimal96.h"

#include "platform/decimals/RWDecimalFormat.h"
#include "platform/decimals/arithmetic.h"
#include "platform/decimals/binary.h"
#include "platform/decimals/decimaltext.h"

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <emmintrin.h>
#include <limits>

using zeldec::int128;
using zeldec::Number;
using zeldec::Status;
using zeldec::uint128;

/// The words of a number as the core takes them. Most numbers fit 64 bits: these have ways of their
/// own, written here so that nothing stands between a call and its few instructions. Words are
/// written as wide as they are read again, or the processor would have to wait for them.
struct RWDecimal96Access {
    static_assert(std::endian::native == std::endian::little);

    static bool IsNull(const RWDecimal96& a, const RWDecimal96& b)
    {
        return (a.m_state | b.m_state) != RWDecimalBase::NormalState;
    }

    static std::int32_t Places(const RWDecimal96& number) { return number.m_exponent; }

    /// The low 64 bits of the mantissa.
    static std::uint64_t LowWords(const RWDecimal96& number)
    {
        std::uint64_t words = 0;
        const auto* const bytes = reinterpret_cast<const char*>(&number.m_mantissa);
        std::memcpy(&words, bytes + offsetof(int96, middle), sizeof words);
        return std::rotl(words, 32);
    }

    /// The mantissa; meaningful if it fits 64 bits.
    static std::int64_t Short(const RWDecimal96& number)
    {
        return static_cast<std::int64_t>(LowWords(number));
    }

    static bool IsShort(const RWDecimal96& number)
    {
        return number.m_mantissa.high == Short(number) >> 63;
    }

    static bool IsNegative(const RWDecimal96& number) { return number.m_mantissa.high < 0; }

    static int128 Mantissa(const RWDecimal96& number)
    {
        return static_cast<int128>(zeldec::Joined(
            static_cast<std::uint64_t>(std::int64_t{number.m_mantissa.high}), LowWords(number)));
    }

    static Number Load(const RWDecimal96& number)
    {
        const auto mantissa = static_cast<uint128>(Mantissa(number));
        const bool negative = IsNegative(number);
        return {negative ? -mantissa : mantissa, number.m_exponent, negative};
    }

    static RWDecimal96 MakeShort(std::int64_t mantissa, std::int32_t places)
    {
        return Make(static_cast<std::uint64_t>(mantissa),
                    static_cast<std::uint32_t>(mantissa >> 63), places);
    }

    static RWDecimal96 Make(int128 mantissa, std::int32_t places)
    {
        const auto bits = static_cast<uint128>(mantissa);
        return Make(zeldec::LowHalf(bits), static_cast<std::uint32_t>(zeldec::HighHalf(bits)),
                    places);
    }

    static RWDecimal96 Make(const Number& number)
    {
        const auto magnitude = static_cast<int128>(number.magnitude);
        return Make(number.negative ? -magnitude : magnitude,
                    static_cast<std::int32_t>(number.places));
    }

private:
    static RWDecimal96 Make(std::uint64_t low, std::uint32_t high, std::int32_t places)
    {
        const std::uint64_t stateAndHigh = std::uint64_t{high} << 32 | RWDecimalBase::NormalState;
        const __m128i words = _mm_set_epi64x(static_cast<long long>(std::rotl(low, 32)),
                                             static_cast<long long>(stateAndHigh));
        RWDecimal96 number;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(&number), words);
        number.m_exponent = places;
        return number;
    }
};

namespace {

using Access = RWDecimal96Access;

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

void TellInexact()
{
    if (const auto handler = inexactHandler.load(std::memory_order_relaxed)) {
        RWDecimal96InexactErr error("the result was rounded");
        handler(error);
    }
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
    return Access::Make(result);
}

/// An operation of the core on two numbers, out of the way of the short ones.
template <Status (*operation)(const Number&, const Number&, Number&)>
[[gnu::noinline]] RWDecimal96 ComputedLong(const RWDecimal96& a, const RWDecimal96& b)
{
    if (Access::IsNull(a, b))
        return {};
    return Computed(operation, Access::Load(a), Access::Load(b));
}

/// Whether results may have so many places.
bool MayHave(std::int32_t places)
{
    return static_cast<std::uint32_t>(places) <= std::uint32_t{zeldec::kMostPlaces};
}

/// Whether a mantissa has no more digits than results may have.
bool IsFit(int128 mantissa)
{
    constexpr auto kLargest = static_cast<int128>(zeldec::kLargestMagnitude);
    return mantissa >= -kLargest && mantissa <= kLargest;
}

bool AreShort(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Access::IsShort(a) && Access::IsShort(b);
}

/// Powers of ten with so many zeros fit 64 bits with a sign.
constexpr int kShortDigits = 18;

/// The mantissas of two numbers at the same places.
struct Aligned {
    int128 a;
    int128 b;
    std::int32_t places;
};

/// Brings two numbers to the larger number of places; false if that may take more than 128 bits.
[[gnu::always_inline]] inline bool Align(const RWDecimal96& a, const RWDecimal96& b,
                                         Aligned& aligned)
{
    aligned = {Access::Mantissa(a), Access::Mantissa(b), Access::Places(a)};
    const std::int64_t gap = std::int64_t{Access::Places(a)} - Access::Places(b);
    if (gap == 0)
        return true;
    const bool isFiner = gap > 0;
    const auto distance = static_cast<std::size_t>(isFiner ? gap : -gap);
    if (distance > kShortDigits || !Access::IsShort(isFiner ? b : a))
        return false;
    (isFiner ? aligned.b : aligned.a) *= zeldec::kPowers64[distance];
    aligned.places = isFiner ? Access::Places(a) : Access::Places(b);
    return true;
}

struct Plus {
    static bool Wraps(std::int64_t a, std::int64_t b, std::int64_t& sum)
    {
        return __builtin_add_overflow(a, b, &sum);
    }
    static int128 Of(int128 a, int128 b) { return a + b; }
    static bool IsNegative(const Number& right) { return right.negative; }
};

struct Minus {
    static bool Wraps(std::int64_t a, std::int64_t b, std::int64_t& difference)
    {
        return __builtin_sub_overflow(a, b, &difference);
    }
    static int128 Of(int128 a, int128 b) { return a - b; }
    static bool IsNegative(const Number& right) { return !right.negative; }
};

template <typename Kind>
[[gnu::noinline]] RWDecimal96 SumLong(const RWDecimal96& a, const RWDecimal96& b)
{
    if (Access::IsNull(a, b))
        return {};
    Aligned aligned{};
    if (Align(a, b, aligned) && MayHave(aligned.places)) {
        const int128 sum = Kind::Of(aligned.a, aligned.b);
        if (IsFit(sum))
            return Access::Make(sum, aligned.places);
    }
    Number right = Access::Load(b);
    right.negative = Kind::IsNegative(right);
    return Computed(zeldec::Add, Access::Load(a), right);
}

template <typename Kind>
[[gnu::always_inline]] inline RWDecimal96 SumOf(const RWDecimal96& a, const RWDecimal96& b)
{
    std::int64_t sum = 0;
    if (Access::Places(a) == Access::Places(b) && MayHave(Access::Places(a)) && AreShort(a, b) &&
        !Kind::Wraps(Access::Short(a), Access::Short(b), sum))
        return Access::MakeShort(sum, Access::Places(a));
    return SumLong<Kind>(a, b);
}

[[gnu::noinline]] int OrderLong(const RWDecimal96& a, const RWDecimal96& b)
{
    return zeldec::Compare(Access::Load(a), Access::Load(b));
}

/// Negative, 0 or positive; the numbers must not be null.
[[gnu::always_inline]] inline int Order(const RWDecimal96& a, const RWDecimal96& b)
{
    Aligned aligned{};
    if (Align(a, b, aligned))
        return (aligned.a > aligned.b) - (aligned.a < aligned.b);
    return OrderLong(a, b);
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
    const std::int64_t mantissa = Access::Short(number);
    const std::int64_t rest = std::abs(mantissa % power);
    const bool away = method == RWDecimalBase::RoundTowardZero     ? false
                      : method == RWDecimalBase::RoundAwayFromZero ? rest != 0
                                                                   : rest >= power - rest;
    const std::int64_t unit = away ? (mantissa < 0 ? -1 : 1) : 0;
    return Access::MakeShort(mantissa / power + unit, Access::Places(number) - drop);
}

} // namespace

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
    Number number = {0, 0, false};
    switch (zeldec::Parse(text, text + length, number)) {
    case zeldec::ParseStatus::Ok:
        break;
    case zeldec::ParseStatus::Inexact:
        TellInexact();
        break;
    case zeldec::ParseStatus::Overflow:
        Settle(Status::Overflow);
        break;
    case zeldec::ParseStatus::NoNumber:
        return;
    }
    *this = Access::Make(number);
}

RWDecimal96 RWDecimal96::from(double number)
{
    return Computed(zeldec::FromDouble, number);
}

// Arithmetic

RWDecimal96 operator+(const RWDecimal96& a, const RWDecimal96& b)
{
    return SumOf<Plus>(a, b);
}

RWDecimal96 operator-(const RWDecimal96& a, const RWDecimal96& b)
{
    return SumOf<Minus>(a, b);
}

RWDecimal96 operator*(const RWDecimal96& a, const RWDecimal96& b)
{
    std::int64_t product = 0;
    if (AreShort(a, b) && !__builtin_mul_overflow(Access::Short(a), Access::Short(b), &product)) {
        const std::int64_t places = std::int64_t{Access::Places(a)} + Access::Places(b);
        if (places >= 0 && places <= zeldec::kMostPlaces)
            return Access::MakeShort(product, static_cast<std::int32_t>(places));
    }
    return ComputedLong<zeldec::Multiply>(a, b);
}

RWDecimal96 operator/(const RWDecimal96& a, const RWDecimal96& b)
{
    return ComputedLong<zeldec::Divide>(a, b);
}

RWDecimal96 operator%(const RWDecimal96& a, const RWDecimal96& b)
{
    return ComputedLong<zeldec::Remainder>(a, b);
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
    return Access::Make(positive);
}

RWDecimal96 round(const RWDecimal96& number, int places, RWDecimalBase::RoundingMethod method)
{
    if (number.isNull() || places >= Access::Places(number))
        return number;
    const std::int64_t drop = std::int64_t{Access::Places(number)} - places;
    if (MayHave(places) && drop <= kShortDigits && Access::IsShort(number))
        return RoundedShort(number, static_cast<int>(drop), method);
    return Computed(zeldec::Round, Access::Load(number), places, RoundingOf(method));
}

// Comparison

int operator==(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Order(a, b) == 0;
}

int operator!=(const RWDecimal96& a, const RWDecimal96& b)
{
    return Access::IsNull(a, b) || Order(a, b) != 0;
}

int operator<(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Order(a, b) < 0;
}

int operator>(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Order(a, b) > 0;
}

int operator<=(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Order(a, b) <= 0;
}

int operator>=(const RWDecimal96& a, const RWDecimal96& b)
{
    return !Access::IsNull(a, b) && Order(a, b) >= 0;
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
    if (!isNull())
        return zeldec::Print(Access::Load(*this), buffer, room);
    if (room != 0)
        buffer[0] = '\0';
    return 0;
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
