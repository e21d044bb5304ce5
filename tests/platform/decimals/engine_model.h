#ifndef ZELDT_TESTS_PLATFORM_DECIMALS_ENGINE_MODEL_H
#define ZELDT_TESTS_PLATFORM_DECIMALS_ENGINE_MODEL_H

/// The rules of decimal arithmetic, stated once more on numbers of any size: every operation makes
/// the exact value, a fraction of whole numbers, and fits it to the limits of a result.

#include "tests/support/big_natural.h"

#include <cstdint>
#include <ostream>
#include <string>

namespace zeltest::model {

enum class Rounding { Nearest, AwayFromZero, TowardZero };

/// +-mantissa / 10^places; 0 has no sign.
struct Decimal {
    bool negative = false;
    BigNatural mantissa;
    std::int64_t places = 0;

    /// Plain digits with exactly as many decimals as places.
    std::string Text() const;

    /// Mantissa and places, for messages.
    friend std::ostream& operator<<(std::ostream& os, const Decimal& number);
};

/// What an operation is to give.
struct Outcome {
    enum Kind { Number, Null, Overflow };

    Kind kind = Number;
    std::string text;     ///< of a number
    bool rounded = false; ///< whether the limits of a result changed the value

    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Outcome& outcome);
};

/// A number, or why there is none.
struct Result {
    Outcome::Kind kind = Outcome::Number;
    Decimal number;
    bool rounded = false;

    Outcome Show() const;
};

Result Add(const Decimal& a, const Decimal& b);
Result Subtract(const Decimal& a, const Decimal& b);
Result Multiply(const Decimal& a, const Decimal& b);
Result Divide(const Decimal& a, const Decimal& b);
Result Remainder(const Decimal& a, const Decimal& b);
Result Power(const Decimal& base, int exponent);
Result Abs(const Decimal& number);
Result Round(const Decimal& number, std::int64_t places, Rounding method);

/// Negative, 0 or positive.
int Compare(const Decimal& a, const Decimal& b);
std::int32_t ToInt(const Decimal& number, Rounding method);
double ToDouble(const Decimal& number);

/// The shortest digits are those of std::to_chars.
Result FromDouble(double number);
Result Parse(const std::string& text);

} // namespace zeltest::model

#endif
