#ifndef ZELDT_TESTS_PLATFORM_DECIMALS_ENGINE_TESTING_H
#define ZELDT_TESTS_PLATFORM_DECIMALS_ENGINE_TESTING_H

/// Decimal numbers with any content, and what an operation on them gave.

#include "engine_model.h"

#include "platform/decimals/RWDecimal96.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>

namespace zeltest {

using model::Decimal;
using model::Outcome;
using model::Rounding;

/// A number whose words are set as they are.
class RawDecimal : public RWDecimal96 {
public:
    RawDecimal(int96 mantissa, std::int32_t places) : RWDecimal96(mantissa, places, NormalState) {}
    /// The mantissa modulo 2^96.
    explicit RawDecimal(const Decimal& number);
    explicit RawDecimal(const RWDecimal96& number) : RWDecimal96(number) {}

    int96 Mantissa() const { return m_mantissa; }
    std::int32_t Places() const { return m_exponent; }
};

/// The same number for the model; it must not be null.
Decimal ModelOf(const RWDecimal96& number);

inline std::string TextOf(const RWDecimal96& number)
{
    const RWCString text = toString(number);
    return {text.data(), text.length()};
}

/// Installs handlers that count their calls and return; the former ones come back at the end.
class CountedHandlers {
public:
    CountedHandlers()
        : m_overflow(
              RWDecimal96::setOverflowHandler([](RWDecimal96OverflowErr&) { ++s_overflows; })),
          m_inexact(RWDecimal96::setInexactHandler([](RWDecimal96InexactErr&) { ++s_inexacts; }))
    {
        Reset();
    }
    ~CountedHandlers()
    {
        RWDecimal96::setOverflowHandler(m_overflow);
        RWDecimal96::setInexactHandler(m_inexact);
    }
    CountedHandlers(const CountedHandlers&) = delete;
    CountedHandlers& operator=(const CountedHandlers&) = delete;

    static void Reset() { s_overflows = s_inexacts = 0; }
    static int Overflows() { return s_overflows; }
    static int Inexacts() { return s_inexacts; }

private:
    static inline int s_overflows = 0;
    static inline int s_inexacts = 0;

    RWDecimal96OverflowHandler m_overflow;
    RWDecimal96InexactHandler m_inexact;
};

/// What the operation gave, with CountedHandlers in force. An overflow must have called its handler
/// once.
template <typename Operation>
Outcome OutcomeOf(Operation&& operation)
{
    CountedHandlers::Reset();
    try {
        const RWDecimal96 result = std::forward<Operation>(operation)();
        EXPECT_EQ(CountedHandlers::Overflows(), 0) << TextOf(result);
        if (result.isNull())
            return {Outcome::Null, "", CountedHandlers::Inexacts() != 0};
        return {Outcome::Number, TextOf(result), CountedHandlers::Inexacts() != 0};
    } catch (const RWDecimal96OverflowErr&) {
        EXPECT_EQ(CountedHandlers::Overflows(), 1);
        return {Outcome::Overflow, "", false};
    }
}

/// Checks every comparison of two numbers; `order` is below, above or equal to 0 as they are.
inline void ExpectOrder(const RWDecimal96& left, const RWDecimal96& right, int order)
{
    EXPECT_EQ(left == right, order == 0 ? 1 : 0);
    EXPECT_EQ(left != right, order != 0 ? 1 : 0);
    EXPECT_EQ(left < right, order < 0 ? 1 : 0);
    EXPECT_EQ(left > right, order > 0 ? 1 : 0);
    EXPECT_EQ(left <= right, order <= 0 ? 1 : 0);
    EXPECT_EQ(left >= right, order >= 0 ? 1 : 0);
}

/// Expected outcomes as tables name them.
inline const Outcome kOverflow = {Outcome::Overflow, "", false};
inline const Outcome kNull = {Outcome::Null, "", false};
inline Outcome Exact(std::string text)
{
    return {Outcome::Number, std::move(text), false};
}
inline Outcome Rounded(std::string text)
{
    return {Outcome::Number, std::move(text), true};
}

/// The largest mantissa of a result: 28 nines.
inline constexpr char kNines[] = "9999999999999999999999999999";

/// "0." and that many decimals, all 0 but the last ones.
inline std::string Fraction(std::size_t places, const std::string& last)
{
    return "0." + std::string(places - last.size(), '0') + last;
}

inline RWDecimalBase::RoundingMethod EngineMethod(Rounding method)
{
    switch (method) {
    case Rounding::AwayFromZero:
        return RWDecimalBase::RoundAwayFromZero;
    case Rounding::TowardZero:
        return RWDecimalBase::RoundTowardZero;
    default:
        return RWDecimalBase::RoundNearest;
    }
}

inline constexpr Rounding kMethods[] = {Rounding::Nearest, Rounding::AwayFromZero,
                                        Rounding::TowardZero};

} // namespace zeltest

#endif
