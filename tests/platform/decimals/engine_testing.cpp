#include "engine_testing.h"

namespace zeltest {

namespace {

constexpr std::uint64_t kWord = std::uint64_t{1} << 32;

/// The number in 96 bits, and back: the two's complement is its own inverse.
int96 Negated(int96 n)
{
    const std::uint64_t low = (~n.low & (kWord - 1)) + std::uint64_t{1};
    const std::uint64_t middle = (~n.middle & (kWord - 1)) + low / kWord;
    const std::uint64_t high = ~static_cast<std::uint32_t>(n.high) + middle / kWord;
    return {static_cast<std::int32_t>(static_cast<std::uint32_t>(high)),
            static_cast<std::uint32_t>(middle), static_cast<std::uint32_t>(low)};
}

int96 MantissaOf(const Decimal& number)
{
    const std::uint64_t low = number.mantissa.Low64();
    const std::uint64_t high = (number.mantissa / BigNatural::PowerOfTwo(64)).Low64();
    const int96 magnitude = {static_cast<std::int32_t>(static_cast<std::uint32_t>(high)),
                             static_cast<std::uint32_t>(low / kWord),
                             static_cast<std::uint32_t>(low)};
    return number.negative ? Negated(magnitude) : magnitude;
}

} // namespace

RawDecimal::RawDecimal(const Decimal& number)
    : RawDecimal(MantissaOf(number), static_cast<std::int32_t>(number.places))
{}

Decimal ModelOf(const RWDecimal96& number)
{
    const RawDecimal raw(number);
    const bool negative = raw.Mantissa().high < 0;
    const int96 m = negative ? Negated(raw.Mantissa()) : raw.Mantissa();
    const BigNatural low = m.middle * kWord + m.low;
    return {negative, static_cast<std::uint32_t>(m.high) * BigNatural::PowerOfTwo(64) + low,
            raw.Places()};
}

} // namespace zeltest
