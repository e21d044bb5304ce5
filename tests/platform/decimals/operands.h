#ifndef ZELDT_TESTS_PLATFORM_DECIMALS_OPERANDS_H
#define ZELDT_TESTS_PLATFORM_DECIMALS_OPERANDS_H

#include "engine_testing.h"

#include <cstddef>
#include <random>

namespace zeltest {

/// Whether tests run for minutes instead of seconds: ZEL_LONG_TESTS=1 in the environment.
bool RunsLong();

/// How many random cases an operation is tried with.
inline std::size_t CaseCount()
{
    return RunsLong() ? 1'000'000 : 50'000;
}

/// Random numbers of the kinds where decimal arithmetic goes wrong, the same ones for the same
/// seed on every system.
class Operands {
public:
    explicit Operands(std::uint64_t seed) : m_random(seed) {}

    struct Pair {
        Decimal a;
        Decimal b;
    };

    /// A number of any kind, now and then one with more than 28 digits or odd places.
    Decimal DrawOne();
    /// Two numbers, often related to each other.
    Pair DrawPair();
    std::int64_t DrawInt(std::int64_t least, std::int64_t most);
    std::uint64_t DrawBits() { return m_random(); }

private:
    BigNatural DrawDigits(std::int64_t count);
    BigNatural Near(const BigNatural& number);
    /// For a mantissa: any number of places that arithmetic gives.
    Decimal WithPlaces(const BigNatural& mantissa);
    Decimal Money();
    Decimal SmallInteger();
    Decimal AtTheLimit();
    Decimal NearPowerOfTen();
    Decimal NearPowerOfTwo();
    Decimal Tie();
    Decimal WithTrailingZeros();
    Decimal Zero();
    Decimal AnyDigits();
    Decimal ManyPlaces();
    Decimal HalfThePlaces();
    Decimal AnyWords();
    /// The same value with other places, where they fit in.
    Decimal Rewritten(const Decimal& number);

    std::mt19937_64 m_random;
};

} // namespace zeltest

#endif
