#ifndef ZELDT_PLATFORM_DECIMALS_RWDECIMAL96SHORT_H
#define ZELDT_PLATFORM_DECIMALS_RWDECIMAL96SHORT_H

/// The quick ways of numbers whose mantissas fit 64 bits, which nearly all do. They take about as
/// few instructions as a call, so these operators are written out where they are used; everything
/// else is left to the library. Comes with RWDecimal96.h.

#include "RWDecimal96.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <emmintrin.h>

/// What the operators leave to the library.
struct ZELRW_API RWDecimal96Long {
    static RWDecimal96 Sum(const RWDecimal96& a, const RWDecimal96& b);
    static RWDecimal96 Difference(const RWDecimal96& a, const RWDecimal96& b);
    static RWDecimal96 Product(const RWDecimal96& a, const RWDecimal96& b);

    enum Order { Less = -1, Equal = 0, Greater = 1, Unordered = 2 };
    /// Unordered if one is null.
    static Order Compare(const RWDecimal96& a, const RWDecimal96& b);

    /// The most zeros of a power of ten that fits 64 bits with a sign.
    static constexpr int kMostZeros = 18;
    /// What a mantissa is multiplied with that has `index - kMostZeros` fewer places than another.
    /// The one with more places is multiplied too, with 1: a decision between them would often be
    /// guessed wrong.
    static const std::int64_t kFactors[2 * kMostZeros + 1];
};

/// The words of a number. They are written as wide as they are read again, or the processor would
/// have to wait for them.
struct RWDecimal96Access {
    static std::int32_t Places(const RWDecimal96& number) { return number.m_exponent; }

    static std::int32_t HighWord(const RWDecimal96& number) { return number.m_mantissa.high; }

    /// The low 64 bits of the mantissa, all of it if the number is short.
    static std::int64_t LowWords(const RWDecimal96& number)
    {
        const auto* const mantissa = reinterpret_cast<const char*>(&number.m_mantissa);
        std::uint64_t words = 0;
        std::memcpy(&words, mantissa + offsetof(int96, middle), sizeof words);
        return static_cast<std::int64_t>(Swapped(words));
    }

    /// Whether neither is null.
    static bool AreNumbers(const RWDecimal96& a, const RWDecimal96& b)
    {
        static_assert(RWDecimalBase::NormalState == 0);
        return (a.m_state | b.m_state) == 0;
    }

    /// Whether it is a number, not null, whose mantissa fits 64 bits.
    static bool IsShort(const RWDecimal96& number) { return Strangeness(number) == 0; }

    /// The same of both.
    static bool AreShort(const RWDecimal96& a, const RWDecimal96& b)
    {
        return (Strangeness(a) | Strangeness(b)) == 0;
    }

    /// Whether results may have so many places.
    static bool MayHave(std::int64_t places)
    {
        constexpr std::uint64_t kMostPlaces = 27;
        return static_cast<std::uint64_t>(places) <= kMostPlaces;
    }

    static RWDecimal96 MakeShort(std::int64_t mantissa, std::int32_t places)
    {
        return Make(HighWordOf(mantissa), mantissa, places);
    }

    static RWDecimal96 Make(std::int32_t high, std::int64_t low, std::int32_t places)
    {
        const std::uint64_t lower = Swapped(static_cast<std::uint64_t>(low));
        const __m128i words = _mm_set_epi64x(static_cast<long long>(lower), //
                                             static_cast<long long>(Upper(high)));
        RWDecimal96 number;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(&number), words);
        number.m_exponent = places;
        return number;
    }

private:
    /// What lies in memory most significant word first, least significant first.
    static std::uint64_t Swapped(std::uint64_t words) { return words << 32 | words >> 32; }

    /// The high word of a short mantissa.
    static std::int32_t HighWordOf(std::int64_t mantissa)
    {
        return static_cast<std::int32_t>(mantissa >> 63);
    }

    /// The state of a number that is not null with the high word of its mantissa.
    static std::uint64_t Upper(std::int32_t high)
    {
        return std::uint64_t{static_cast<std::uint32_t>(high)} << 32 | RWDecimalBase::NormalState;
    }

    /// 0 for a short number.
    static std::uint64_t Strangeness(const RWDecimal96& number)
    {
        std::uint64_t upper = 0;
        std::memcpy(&upper, reinterpret_cast<const char*>(&number), sizeof upper);
        return upper ^ Upper(HighWordOf(LowWords(number)));
    }
};

/// The mantissas of two short numbers at the same places.
struct RWDecimal96Aligned {
    std::int64_t a;
    std::int64_t b;
    std::int32_t places;

    /// False if the numbers are not short, or do not stay so at the same places.
    bool Take(const RWDecimal96& left, const RWDecimal96& right)
    {
        using Access = RWDecimal96Access;
        if (!Access::AreShort(left, right))
            return false;
        a = Access::LowWords(left);
        b = Access::LowWords(right);
        places = Access::Places(left);
        return places == Access::Places(right) || Scale(Access::Places(right));
    }

private:
    bool Scale(std::int32_t placesOfB)
    {
        using Long = RWDecimal96Long;
        const std::int64_t distance = std::int64_t{places} - placesOfB;
        if (distance < -Long::kMostZeros || distance > Long::kMostZeros)
            return false;
        places = distance < 0 ? placesOfB : places;
        return !__builtin_mul_overflow(a, Long::kFactors[Long::kMostZeros - distance], &a) &&
               !__builtin_mul_overflow(b, Long::kFactors[Long::kMostZeros + distance], &b);
    }
};

ZELRW_INLINE RWDecimal96 operator+(const RWDecimal96& a, const RWDecimal96& b)
{
    RWDecimal96Aligned aligned;
    std::int64_t sum = 0;
    if (aligned.Take(a, b) && RWDecimal96Access::MayHave(aligned.places) &&
        !__builtin_add_overflow(aligned.a, aligned.b, &sum))
        return RWDecimal96Access::MakeShort(sum, aligned.places);
    return RWDecimal96Long::Sum(a, b);
}

ZELRW_INLINE RWDecimal96 operator-(const RWDecimal96& a, const RWDecimal96& b)
{
    RWDecimal96Aligned aligned;
    std::int64_t difference = 0;
    if (aligned.Take(a, b) && RWDecimal96Access::MayHave(aligned.places) &&
        !__builtin_sub_overflow(aligned.a, aligned.b, &difference))
        return RWDecimal96Access::MakeShort(difference, aligned.places);
    return RWDecimal96Long::Difference(a, b);
}

ZELRW_INLINE RWDecimal96 operator*(const RWDecimal96& a, const RWDecimal96& b)
{
    using Access = RWDecimal96Access;
    const std::int64_t places = std::int64_t{Access::Places(a)} + Access::Places(b);
    std::int64_t product = 0;
    if (Access::AreShort(a, b) && Access::MayHave(places) &&
        !__builtin_mul_overflow(Access::LowWords(a), Access::LowWords(b), &product))
        return Access::MakeShort(product, static_cast<std::int32_t>(places));
    return RWDecimal96Long::Product(a, b);
}

ZELRW_INLINE int operator==(const RWDecimal96& a, const RWDecimal96& b)
{
    RWDecimal96Aligned aligned;
    if (aligned.Take(a, b))
        return aligned.a == aligned.b;
    return RWDecimal96Long::Compare(a, b) == RWDecimal96Long::Equal;
}

ZELRW_INLINE int operator!=(const RWDecimal96& a, const RWDecimal96& b)
{
    return !(a == b);
}

ZELRW_INLINE int operator<(const RWDecimal96& a, const RWDecimal96& b)
{
    RWDecimal96Aligned aligned;
    if (aligned.Take(a, b))
        return aligned.a < aligned.b;
    return RWDecimal96Long::Compare(a, b) == RWDecimal96Long::Less;
}

ZELRW_INLINE int operator>(const RWDecimal96& a, const RWDecimal96& b)
{
    return b < a;
}

ZELRW_INLINE int operator<=(const RWDecimal96& a, const RWDecimal96& b)
{
    RWDecimal96Aligned aligned;
    if (aligned.Take(a, b))
        return aligned.a <= aligned.b;
    return RWDecimal96Long::Compare(a, b) <= RWDecimal96Long::Equal;
}

ZELRW_INLINE int operator>=(const RWDecimal96& a, const RWDecimal96& b)
{
    return b <= a;
}

#endif
