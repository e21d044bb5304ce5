#ifndef ZELDT_PLATFORM_DECIMALS_WIDE_H
#define ZELDT_PLATFORM_DECIMALS_WIDE_H

/// Whole numbers of 128 and 256 bits. Private to the library.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zeldec {

__extension__ typedef __int128 int128;
__extension__ typedef unsigned __int128 uint128;

constexpr std::uint64_t LowHalf(uint128 number)
{
    return static_cast<std::uint64_t>(number);
}

constexpr std::uint64_t HighHalf(uint128 number)
{
    return static_cast<std::uint64_t>(number >> 64);
}

constexpr uint128 Joined(std::uint64_t high, std::uint64_t low)
{
    return uint128{high} << 64 | low;
}

// What depends on a condition that is as likely as not is computed, not decided: a branch would
// often be guessed wrong. Compilers make branches of conditional sums of 128 bits.

constexpr std::uint64_t OneIf(bool condition)
{
    return static_cast<std::uint64_t>(condition);
}

constexpr std::uint64_t Masked(std::uint64_t number, bool isWanted)
{
    return number & -OneIf(isWanted);
}

constexpr uint128 Masked(uint128 number, bool isWanted)
{
    return Joined(Masked(HighHalf(number), isWanted), Masked(LowHalf(number), isWanted));
}

/// 0 or -1, all bits of it.
constexpr int128 SignOf(int128 number)
{
    return number >> 127;
}

/// The magnitude with a sign that SignOf gives, or the number of a magnitude.
constexpr int128 WithSign(int128 number, int128 sign)
{
    return (number ^ sign) - sign;
}

/// 256 bits, least significant limb first.
struct Wide {
    std::uint64_t limb[4];

    constexpr uint128 Low() const { return Joined(limb[1], limb[0]); }
    constexpr uint128 High() const { return Joined(limb[3], limb[2]); }
};

constexpr Wide ToWide(uint128 low, uint128 high = 0)
{
    return {{LowHalf(low), HighHalf(low), LowHalf(high), HighHalf(high)}};
}

constexpr bool Fits128(const Wide& a)
{
    return (a.limb[2] | a.limb[3]) == 0;
}

/// Negative, 0 or positive.
constexpr int Compare(const Wide& a, const Wide& b)
{
    if (a.High() != b.High())
        return a.High() < b.High() ? -1 : 1;
    if (a.Low() != b.Low())
        return a.Low() < b.Low() ? -1 : 1;
    return 0;
}

/// The sum, which must fit.
constexpr Wide Sum(const Wide& a, const Wide& b)
{
    const uint128 low = a.Low() + b.Low();
    return ToWide(low, a.High() + b.High() + (low < a.Low() ? 1 : 0));
}

/// The difference; `b` must not be the larger one.
constexpr Wide Difference(const Wide& a, const Wide& b)
{
    return ToWide(a.Low() - b.Low(), a.High() - b.High() - (a.Low() < b.Low() ? 1 : 0));
}

constexpr Wide Product(uint128 a, uint128 b)
{
    const uint128 low = uint128{LowHalf(a)} * LowHalf(b);
    const uint128 cross1 = uint128{LowHalf(a)} * HighHalf(b) + HighHalf(low);
    const uint128 cross2 = uint128{HighHalf(a)} * LowHalf(b) + LowHalf(cross1);
    const uint128 high = uint128{HighHalf(a)} * HighHalf(b) + HighHalf(cross1) + HighHalf(cross2);
    return ToWide(Joined(LowHalf(cross2), LowHalf(low)), high);
}

/// The product, which must fit.
constexpr Wide Product(uint128 a, const Wide& b)
{
    const Wide low = Product(a, b.Low());
    const uint128 high = a * b.High();
    return ToWide(low.Low(), low.High() + high);
}

/// The product of a short number, which must fit.
constexpr Wide Product(std::uint64_t a, const Wide& b)
{
    const uint128 first = uint128{a} * b.limb[0];
    const uint128 second = uint128{a} * b.limb[1] + HighHalf(first);
    const uint128 third = uint128{a} * b.limb[2] + HighHalf(second);
    return {{LowHalf(first), LowHalf(second), LowHalf(third), a * b.limb[3] + HighHalf(third)}};
}

/// A product below 2^192: its upper 128 bits and the lower 64.
struct LongProduct {
    constexpr LongProduct(uint128 a, uint128 b)
    {
        const uint128 lowest = uint128{LowHalf(a)} * LowHalf(b);
        const uint128 middle =
            uint128{LowHalf(a)} * HighHalf(b) + uint128{HighHalf(a)} * LowHalf(b);
        upper = Joined(HighHalf(a) * HighHalf(b), 0) + middle + HighHalf(lowest);
        lower = LowHalf(lowest);
    }

    uint128 upper;
    std::uint64_t lower;
};

/// The position of the highest bit that is set, from 1 on; 1 for 0 too.
constexpr int BitLength(std::uint64_t number)
{
    if (std::is_constant_evaluated())
        return 64 - std::countl_zero(number | 1);
    // The instruction waits for what the register held before, though it is overwritten:
    // computations that have nothing to do with each other would follow each other. Compilers do
    // not set it.
    std::uint64_t highest = 0;
    __asm__("bsrq %1, %0" : "+r"(highest) : "r"(number | 1) : "cc");
    return static_cast<int>(highest) + 1;
}

constexpr int BitLength(uint128 number)
{
    return HighHalf(number) != 0 ? 64 + BitLength(HighHalf(number)) : BitLength(LowHalf(number));
}

constexpr int BitLength(const Wide& number)
{
    return number.High() != 0 ? 128 + BitLength(number.High()) : BitLength(number.Low());
}

/// The upper bits of a product and some of the lower ones moved up by 0 to 63 bits.
constexpr uint128 ShiftedLeft(const LongProduct& product, int bits)
{
    return product.upper << bits | product.lower >> 1 >> (63 - bits);
}

/// The number shifted right by 1 to 63 bits.
constexpr uint128 ShiftedRight(uint128 number, unsigned bits)
{
    return Joined(HighHalf(number) >> bits, LowHalf(number) >> bits | HighHalf(number)
                                                                          << (64 - bits));
}

/// A number moved up to the highest of 128 bits, 0 staying 0; `bits` tells how far.
inline uint128 Normalised(uint128 number, int& bits)
{
    // By whole words first: compilers decide on shifts of 128 bits when they are done.
    const bool isShort = HighHalf(number) == 0;
    const std::uint64_t high = isShort ? LowHalf(number) : HighHalf(number);
    const std::uint64_t low = isShort ? 0 : LowHalf(number);
    const int zeros = 64 - BitLength(high);
    bits = zeros + (isShort ? 64 : 0);
    return Joined(high << zeros | low >> 1 >> (63 - zeros), low << zeros);
}

/// The low 128 bits of the number shifted right by 0 to 255 bits.
constexpr uint128 ShiftedRight(const Wide& number, unsigned bits)
{
    if (bits >= 128)
        return number.High() >> (bits - 128);
    return bits == 0 ? number.Low() : number.Low() >> bits | number.High() << (128 - bits);
}

/// The number shifted left by 1 to 63 bits; what goes over the top is lost.
constexpr Wide ShiftedLeft(const Wide& number, unsigned bits)
{
    const auto limb = [&](std::size_t i) {
        return number.limb[i] << bits | number.limb[i - 1] >> (64 - bits);
    };
    return {{number.limb[0] << bits, limb(1), limb(2), limb(3)}};
}

struct Quotient64 {
    std::uint64_t quotient;
    std::uint64_t remainder;
};

/// Divides 128 bits by 64; `high` must be below the divisor. One instruction, which compilers do
/// not use by themselves.
inline Quotient64 Divided(std::uint64_t high, std::uint64_t low, std::uint64_t divisor)
{
    Quotient64 result;
    __asm__("divq %4"
            : "=a"(result.quotient), "=d"(result.remainder)
            : "a"(low), "d"(high), "r"(divisor)
            : "cc");
    return result;
}

/// Divides the number by 64 bits in place and returns the remainder.
inline std::uint64_t DivideBy(Wide& number, std::uint64_t divisor)
{
    std::uint64_t remainder = 0;
    for (int i = 3; i >= 0; --i) {
        const Quotient64 step = Divided(remainder, number.limb[i], divisor);
        number.limb[i] = step.quotient;
        remainder = step.remainder;
    }
    return remainder;
}

} // namespace zeldec

#endif
