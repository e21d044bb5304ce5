/// Results whose dropped digits are exactly nothing or a half, or a little more or less: where a
/// quotient that is known but for a small error does not tell how to round.

#include "operands.h"

#include <cstdint>
#include <sstream>
#include <string>

namespace {

using namespace zeltest;

using EngineOperation = RWDecimal96 (*)(const RWDecimal96&, const RWDecimal96&);
using ModelOperation = model::Result (*)(const Decimal&, const Decimal&);

void Check(EngineOperation engine, ModelOperation rule, const Decimal& a, const Decimal& b)
{
    const CountedHandlers handlers;
    const RawDecimal left(a);
    const RawDecimal right(b);
    std::ostringstream operands;
    operands << a << " and " << b;
    EXPECT_EQ(OutcomeOf([&] { return engine(left, right); }), rule(a, b).Show()) << operands.str();
}

/// A random number of so many digits.
BigNatural DrawDigits(Operands& operands, std::size_t digits)
{
    std::string text;
    for (std::size_t i = 0; i < digits; ++i)
        text.push_back(static_cast<char>('0' + operands.DrawInt(i == 0 ? 1 : 0, 9)));
    return BigNatural::FromDigits(text);
}

std::size_t DrawSize(Operands& operands, std::int64_t least, std::int64_t most)
{
    return static_cast<std::size_t>(operands.DrawInt(least, most));
}

/// Nothing or half a unit, or up to 20 more or less: what is left of a division by the unit.
BigNatural DrawRest(Operands& operands, const BigNatural& unit)
{
    constexpr std::int64_t kFarthest = 20;
    const BigNatural whole = unit * static_cast<std::uint64_t>(kFarthest);
    const BigNatural middle = operands.DrawInt(0, 1) == 0 ? whole : whole + unit / 2;
    const BigNatural distance = static_cast<std::uint64_t>(operands.DrawInt(0, kFarthest));
    return (operands.DrawInt(0, 1) == 0 ? middle + distance : middle - distance) % unit;
}

Decimal WithAnySign(Operands& operands, const BigNatural& mantissa, std::int64_t places)
{
    return {operands.DrawInt(0, 1) == 1 && !mantissa.IsZero(), mantissa, places};
}

/// The factor whose product with a number ends with the digits of `rest`, as many as the unit has
/// zeros. The number must end with 1, 3, 7 or 9.
BigNatural FactorFor(const BigNatural& number, const BigNatural& rest, const BigNatural& unit)
{
    // Newton's method doubles the digits that are right: from one digit to 32.
    BigNatural inverse = number % 10 == 3 ? 7 : number % 10 == 7 ? 3 : number % 10;
    for (int i = 0; i < 5; ++i) {
        const BigNatural lacking = unit + 2 - number * inverse % unit;
        inverse = inverse * lacking % unit;
    }
    return rest * inverse % unit;
}

constexpr std::size_t kLongest = 28;

TEST(RandomRoundings, ProductsThatEndNearAWholeOrAHalf)
{
    Operands operands(51);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::size_t drop = DrawSize(operands, 1, kLongest);
        const BigNatural unit = BigNatural::PowerOfTen(drop);
        constexpr std::uint64_t kLastDigits[] = {1, 3, 7, 9};
        const BigNatural a = DrawDigits(operands, DrawSize(operands, 1, kLongest - 1)) * 10 +
                             kLastDigits[operands.DrawInt(0, 3)];
        const BigNatural b = FactorFor(a, DrawRest(operands, unit), unit);
        // Of the places just so many are too many, or some fewer: then the digits decide.
        const std::int64_t places =
            27 + static_cast<std::int64_t>(drop) - operands.DrawInt(0, 1) * operands.DrawInt(0, 27);
        const std::int64_t placesOfA = operands.DrawInt(0, 27);
        Check(operator*, model::Multiply, WithAnySign(operands, a, placesOfA),
              WithAnySign(operands, b, places - placesOfA));
    }
}

TEST(RandomRoundings, SumsThatEndNearAWholeOrAHalf)
{
    Operands operands(52);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::size_t drop = DrawSize(operands, 1, 18);
        const BigNatural unit = BigNatural::PowerOfTen(drop);
        const BigNatural fine =
            DrawDigits(operands,
                       DrawSize(operands, 0, static_cast<std::int64_t>(kLongest - drop))) *
                unit +
            DrawRest(operands, unit);
        const Decimal coarse =
            WithAnySign(operands, DrawDigits(operands, DrawSize(operands, 1, kLongest)),
                        operands.DrawInt(0, 27));
        const Decimal added =
            WithAnySign(operands, fine, coarse.places + static_cast<std::int64_t>(drop));
        Check(operator+, model::Add, coarse, added);
        Check(operator-, model::Subtract, added, coarse);
    }
}

TEST(RandomRoundings, QuotientsNearAWholeOrAHalf)
{
    Operands operands(53);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::size_t digits = DrawSize(operands, 1, kLongest - 1);
        const BigNatural divisor = DrawDigits(operands, digits);
        const BigNatural dividend =
            divisor * DrawDigits(operands, DrawSize(operands, 1,
                                                    static_cast<std::int64_t>(kLongest - digits))) +
            DrawRest(operands, divisor);
        // With 27 places more than the divisor the quotient has no room for others.
        const std::int64_t places = operands.DrawInt(0, 3) == 0 ? operands.DrawInt(0, 27) : 27;
        Check(operator/, model::Divide, WithAnySign(operands, dividend, places),
              WithAnySign(operands, divisor, 0));
    }
}

/// A quotient of 28 digits, its product, and the neighbours of that.
TEST(RandomRoundings, QuotientsOfProducts)
{
    Operands operands(54);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::size_t digits = DrawSize(operands, 1, kLongest - 1);
        const BigNatural divisor = DrawDigits(operands, digits);
        const BigNatural quotient = DrawDigits(
            operands, DrawSize(operands, 1, static_cast<std::int64_t>(kLongest - digits)));
        const BigNatural product = divisor * quotient + 1;
        const BigNatural off = static_cast<std::uint64_t>(operands.DrawInt(0, 2));
        Check(operator/, model::Divide,
              WithAnySign(operands, product - off, operands.DrawInt(0, 27)),
              WithAnySign(operands, divisor, operands.DrawInt(0, 27)));
    }
}

/// Around the powers of ten, where quotients get a digit more.
TEST(RandomRoundings, QuotientsNearPowersOfTen)
{
    Operands operands(55);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::size_t digits = DrawSize(operands, 1, kLongest);
        const std::size_t zeros =
            DrawSize(operands, 0, static_cast<std::int64_t>(kLongest - digits));
        const BigNatural divisor = DrawDigits(operands, digits);
        const BigNatural power = divisor * BigNatural::PowerOfTen(zeros) + 2;
        const BigNatural neighbour = power - static_cast<std::uint64_t>(operands.DrawInt(0, 3));
        const Decimal a = WithAnySign(operands, neighbour, operands.DrawInt(0, 27));
        const Decimal b = WithAnySign(operands, divisor, operands.DrawInt(0, 27));
        Check(operator/, model::Divide, a, b);
        if (!neighbour.IsZero())
            Check(operator/, model::Divide, b, a);
    }
}

} // namespace
