#ifndef ZELDT_BENCHMARKS_PLATFORM_DECIMALS_FIGURES_H
#define ZELDT_BENCHMARKS_PLATFORM_DECIMALS_FIGURES_H

/// Decimal numbers as texts: operands for every contender, and what results are compared by.

#include "benchmarks/inputs.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelbench {

/// The digits that the library's numbers have at most.
inline constexpr std::size_t kMostDigits = 28;

/// The number of a text with or without a point and an exponent, rounded to `digits` digits with
/// ties away from zero, in a form that is the same for equal numbers: "-0.125e3".
std::string Figures(std::string_view text, std::size_t digits = kMostDigits);

/// Whether the digits behind the first `digits` are exactly one half: rounding, they may be the
/// result of a rounding themselves.
bool IsHalfway(std::string_view text, std::size_t digits = kMostDigits);

/// A number of exactly so many digits, the first not 0, and so many of them behind the point;
/// either sign.
std::string NumberText(Random& random, std::size_t digits, std::size_t places);

/// The same with a number of digits and of places between two limits, every one as often as any
/// other.
struct Shape {
    std::size_t fewestDigits;
    std::size_t mostDigits;
    std::size_t fewestPlaces;
    std::size_t mostPlaces;
};
std::vector<std::string> NumberTexts(std::size_t count, const Shape& shape, unsigned seed);

// Shapes: every two of the same kind add and multiply within 28 digits and 27 places. A kind
// divided by its divisors gives at least 1, so that all 28 digits of a quotient count

/// Amounts of money.
inline constexpr Shape kMoney = {3, 9, 2, 2};
/// The same with other numbers of places beside them.
inline constexpr Shape kMixed = {3, 9, 0, 4};
/// Quantities and rates.
inline constexpr Shape kRates = {1, 4, 0, 3};
/// Amounts from 1000.00, and what they are divided by.
inline constexpr Shape kLargeMoney = {6, 9, 2, 2};
inline constexpr Shape kDivisors = {1, 3, 0, 2};
/// Amounts with more places than are wanted.
inline constexpr Shape kToRound = {7, 11, 3, 6};
/// All digits.
inline constexpr Shape kLong = {28, 28, 16, 26};
inline constexpr Shape kLongDividends = {28, 28, 16, 20};
inline constexpr Shape kLongDivisors = {28, 28, 21, 26};

} // namespace zelbench

#endif
