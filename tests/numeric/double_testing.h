#ifndef ZELDT_TESTS_NUMERIC_DOUBLE_TESTING_H
#define ZELDT_TESTS_NUMERIC_DOUBLE_TESTING_H

/// Floating numbers in every state, for the tests of ZelDtDouble.

#include "numeric/DTDOUBLE.h"
#include "tests/numeric/number_testing.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

using Doubles = std::numeric_limits<double>;

inline constexpr double kInfinity = Doubles::infinity();
inline constexpr double kNaN = Doubles::quiet_NaN();
/// DBL_MAX, DBL_MIN and the smallest number of all.
inline constexpr double kLargest = Doubles::max();
inline constexpr double kSmallestNormal = Doubles::min();
inline constexpr double kSmallest = Doubles::denorm_min();

/// An error of the public class.
inline Error DoubleError(unsigned long number, const std::string& signature)
{
    return {number, "DTDOUBLE", "ZelDtDouble", signature};
}

/// A text whose number is out of range (8), or none at all (5).
inline Error TextError(unsigned long number)
{
    return {number, "DTDOUBLI", "ZelDtDouble_Imp", "ConvAsciiToDouble(LPCTSTR)"};
}

/// Whether two numbers are the same, zeros of both signs told apart, NaNs alike.
inline bool Same(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// All that can be seen of a floating number.
struct Real {
    State state;
    double value = 0;

    friend bool operator==(const Real& a, const Real& b)
    {
        return a.state == b.state && Same(a.value, b.value);
    }
    friend std::ostream& operator<<(std::ostream& os, const Real& r)
    {
        return os << std::setprecision(17) << r.value << " (" << r.state << ')';
    }
};

inline Real Look(const ZelDtDouble& value)
{
    return {StateOf(value), static_cast<double>(value)};
}

/// The archive form: the defined word and the number's 8 bytes, both little-endian.
inline Bytes DoubleArchiveForm(int defined, double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    Bytes bytes{defined, 0, 0, 0};
    for (int i = 0; i < 8; ++i)
        bytes.data.push_back(static_cast<char>((bits >> (8 * i)) & 0xFF));
    return bytes;
}

/// Brings `target` to exactly what `number` says.
inline void Bring(ZelDtDouble& target, const Real& number)
{
    BringByArchive(target, DoubleArchiveForm(number.state.defined, number.value), number.state);
    ASSERT_EQ(Look(target), number);
}

/// Every state with every one of the numbers.
inline std::vector<Real> Reals(const std::vector<double>& values)
{
    std::vector<Real> reals;
    for (const State& state : AllStates())
        for (const double value : values)
            reals.push_back({state, value});
    return reals;
}

/// A new undefined value in `mode` (a real one).
inline Real UndefinedReal(ZelDtWorkingMode mode)
{
    return {NewUndefined(mode), 0.0};
}

/// A new defined value in the default mode.
inline Real DefinedReal(double value)
{
    return {NewDefined(), value};
}

// The rules that several operations share. "Differs" is the comparison of numbers: zeros of both
// signs do not differ, NaN differs from everything

/// The number is stored if it differs; then the value is marked modified.
inline void StoreDiffering(Real& r, double value)
{
    if (r.value != value) {
        r.value = value;
        r.state.modified = 1;
    }
}

/// The number is stored in any case; one that differs marks the value modified.
inline void StoreAlways(Real& r, double value)
{
    if (r.value != value)
        r.state.modified = 1;
    r.value = value;
}

/// What is left of `r` after Clear.
inline Real Cleared(Real r)
{
    StoreAlways(r, 0.0);
    SetUndefined(r.state);
    return r;
}

} // namespace zeltest

#endif
