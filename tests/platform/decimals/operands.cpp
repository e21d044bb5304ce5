#include "operands.h"

#include <cstdlib>
#include <iterator>
#include <string>

namespace zeltest {

bool RunsLong()
{
    const char* const setting = std::getenv("ZEL_LONG_TESTS");
    return setting != nullptr && std::string(setting) == "1";
}

/// Both limits included.
std::int64_t Operands::DrawInt(std::int64_t least, std::int64_t most)
{
    const auto count = static_cast<std::uint64_t>(most - least) + 1;
    return least + static_cast<std::int64_t>(m_random() % count);
}

BigNatural Operands::DrawDigits(std::int64_t count)
{
    std::string digits;
    for (std::int64_t i = 0; i < count; ++i)
        digits.push_back(static_cast<char>('0' + DrawInt(0, 9)));
    return BigNatural::FromDigits(digits);
}

BigNatural Operands::Near(const BigNatural& number)
{
    const BigNatural distance = static_cast<std::uint64_t>(DrawInt(0, 3));
    return DrawInt(0, 1) == 0 || distance > number ? number + distance : number - distance;
}

Decimal Operands::WithPlaces(const BigNatural& mantissa)
{
    return {DrawInt(0, 1) == 1 && !mantissa.IsZero(), mantissa, DrawInt(0, 27)};
}

Decimal Operands::Money()
{
    Decimal number = WithPlaces(DrawDigits(DrawInt(1, 13)));
    number.places = 2;
    return number;
}

Decimal Operands::SmallInteger()
{
    Decimal number = WithPlaces(static_cast<std::uint64_t>(DrawInt(0, 1000)));
    number.places = 0;
    return number;
}

Decimal Operands::AtTheLimit()
{
    const BigNatural below = static_cast<std::uint64_t>(DrawInt(1, 3));
    return WithPlaces(BigNatural::PowerOfTen(28) - below);
}

Decimal Operands::NearPowerOfTen()
{
    Decimal number =
        WithPlaces(Near(BigNatural::PowerOfTen(static_cast<std::size_t>(DrawInt(0, 27)))));
    if (DrawInt(0, 1) == 0)
        number.places = 0;
    return number;
}

Decimal Operands::NearPowerOfTwo()
{
    static constexpr std::size_t kExponents[] = {31, 32, 53, 62, 63, 64, 93, 94, 95};
    const auto which = static_cast<std::size_t>(DrawInt(0, std::size(kExponents) - 1));
    const BigNatural power = BigNatural::PowerOfTwo(kExponents[which]);
    return WithPlaces(kExponents[which] == 95 ? power - 1 : Near(power));
}

/// Ends with a 5 that rounding drops.
Decimal Operands::Tie()
{
    const std::int64_t zeros = DrawInt(0, 8);
    const BigNatural five = static_cast<std::uint64_t>(DrawInt(4, 6)) *
                            BigNatural::PowerOfTen(static_cast<std::size_t>(zeros));
    const BigNatural head = DrawDigits(DrawInt(1, 27 - zeros));
    return WithPlaces(head * BigNatural::PowerOfTen(static_cast<std::size_t>(zeros + 1)) + five);
}

Decimal Operands::WithTrailingZeros()
{
    const std::int64_t zeros = DrawInt(1, 20);
    return WithPlaces(DrawDigits(DrawInt(1, 28 - zeros)) *
                      BigNatural::PowerOfTen(static_cast<std::size_t>(zeros)));
}

Decimal Operands::Zero()
{
    return {false, 0, DrawInt(0, 1) == 0 ? 0 : DrawInt(0, 36)};
}

Decimal Operands::AnyDigits()
{
    return WithPlaces(DrawDigits(DrawInt(1, 28)));
}

/// Positive, as only texts can have them.
Decimal Operands::ManyPlaces()
{
    return {false, DrawDigits(DrawInt(1, 28)), DrawInt(28, 36)};
}

/// Products of two have some more or some fewer places than a result.
Decimal Operands::HalfThePlaces()
{
    Decimal number = WithPlaces(DrawDigits(DrawInt(1, 16)));
    number.places = DrawInt(11, 17);
    return number;
}

/// What arithmetic never makes.
Decimal Operands::AnyWords()
{
    const auto high = static_cast<std::uint64_t>(DrawInt(0, (std::int64_t{1} << 31) - 1));
    const BigNatural mantissa = BigNatural(high) * BigNatural::PowerOfTwo(64) + m_random();
    return {DrawInt(0, 1) == 1, DrawInt(0, 1) == 0 ? mantissa : BigNatural(m_random()),
            DrawInt(-40, 70)};
}

Decimal Operands::DrawOne()
{
    using Draw = Decimal (Operands::*)();
    static constexpr Draw kDraws[] = {
        &Operands::Money,
        &Operands::SmallInteger,
        &Operands::AtTheLimit,
        &Operands::NearPowerOfTen,
        &Operands::NearPowerOfTwo,
        &Operands::Tie,
        &Operands::WithTrailingZeros,
        &Operands::Zero,
        &Operands::AnyDigits,
        &Operands::ManyPlaces,
        &Operands::HalfThePlaces,
        &Operands::AnyWords,
    };
    const auto which = static_cast<std::size_t>(DrawInt(0, std::size(kDraws) - 1));
    return (this->*kDraws[which])();
}

Decimal Operands::Rewritten(const Decimal& number)
{
    Decimal result = number;
    const std::int64_t zeros = DrawInt(0, 12);
    const BigNatural factor = BigNatural::PowerOfTen(static_cast<std::size_t>(zeros));
    if (DrawInt(0, 1) == 0 && (number.mantissa % factor).IsZero()) {
        result.mantissa = number.mantissa / factor;
        result.places -= zeros;
    } else if ((number.mantissa * factor).Digits() <= 28) {
        result.mantissa = number.mantissa * factor;
        result.places += zeros;
    }
    return result;
}

Operands::Pair Operands::DrawPair()
{
    const Decimal a = DrawOne();
    const Decimal b = DrawOne();
    switch (DrawInt(0, 5)) {
    case 0:
        return {a, Rewritten(a)};
    case 1: { // a neighbour
        Decimal neighbour = Rewritten(a);
        if (neighbour.mantissa < BigNatural::PowerOfTwo(95) - 3)
            neighbour.mantissa = Near(neighbour.mantissa);
        neighbour.negative = a.negative && !neighbour.mantissa.IsZero();
        return {a, neighbour};
    }
    case 2: { // a dividend that b divides
        const BigNatural product = DrawDigits(DrawInt(1, 10)) * b.mantissa;
        if (product.Digits() <= 28)
            return {{a.negative && !product.IsZero(), product, a.places}, b};
        return {a, b};
    }
    default:
        return {a, b};
    }
}

} // namespace zeltest
