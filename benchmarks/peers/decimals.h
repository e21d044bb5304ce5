#ifndef ZELDT_BENCHMARKS_PEERS_DECIMALS_H
#define ZELDT_BENCHMARKS_PEERS_DECIMALS_H

/// Decimal numbers of the compiler and of Boost, in line and behind the calls of a shared library.
///
/// Each has the operators that it needs no help for, and Read and Text for operands and checks.

#include "benchmarks/peers/values.h"

#include <cstddef>
#include <string>

#ifdef ZELBENCH_HAVE_MULTIPRECISION
#include <boost/multiprecision/cpp_dec_float.hpp>
#endif

namespace peers {

#ifdef ZELBENCH_HAVE_DECIMAL128
/// The compiler's own: 34 digits, in the binary encoding that x86-64 has.
struct ZELPEERS_API Decimal128 {
    // The type has a name in C only.
    typedef float Number __attribute__((mode(TD))); // NOLINT(modernize-use-using)

    Number value;

    /// Digits with a sign and a point, at most 33 of them. The compiler brings no function that
    /// reads or writes a text; these two are for operands and checks alone.
    static Decimal128 Read(const std::string& text);
    std::string Text() const;

    static Decimal128 From(double source) { return Decimal128{static_cast<Number>(source)}; }
    double ToDouble() const { return static_cast<double>(value); }

    Decimal128 operator+(const Decimal128& b) const { return Decimal128{value + b.value}; }
    Decimal128 operator*(const Decimal128& b) const { return Decimal128{value * b.value}; }
    Decimal128 operator/(const Decimal128& b) const { return Decimal128{value / b.value}; }
    int operator<(const Decimal128& b) const { return value < b.value; }
};
#endif

#ifdef ZELBENCH_HAVE_MULTIPRECISION
/// At least 28 digits; what exceeds its 6 limbs of 8 digits is cut off, not rounded.
struct ZELPEERS_API BoostDecimal {
    using Number = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<28>,
                                                 boost::multiprecision::et_off>;

    Number value;

    static BoostDecimal Read(const std::string& text) { return BoostDecimal{Number(text)}; }
    std::string Text() const { return value.str(34, std::ios_base::scientific); }
    /// Writes the digits without an exponent into room enough and returns their number.
    std::size_t Write(char* buffer) const
    {
        const std::string text = value.str(0, std::ios_base::fixed);
        return text.copy(buffer, text.size());
    }

    static BoostDecimal From(double source) { return BoostDecimal{Number(source)}; }
    double ToDouble() const { return value.convert_to<double>(); }

    BoostDecimal operator+(const BoostDecimal& b) const { return BoostDecimal{value + b.value}; }
    BoostDecimal operator*(const BoostDecimal& b) const { return BoostDecimal{value * b.value}; }
    BoostDecimal operator/(const BoostDecimal& b) const { return BoostDecimal{value / b.value}; }
    int operator<(const BoostDecimal& b) const { return value < b.value; }

    /// To hundredths, ties away from zero.
    BoostDecimal ToHundredths() const { return BoostDecimal{round(value * 100) / 100}; }
};
#endif

template <typename Number>
concept Writing = requires(const Number& number, char* buffer)
{
    number.Write(buffer);
};

template <typename Number>
concept Rounding = requires(const Number& number)
{
    number.ToHundredths();
};

/// The same number with every operation behind a call. It has the operations that the number has.
template <typename Number>
struct ZELPEERS_API Called {
    Number number;

    static Called Read(const std::string& text);
    std::string Text() const { return number.Text(); }
    std::size_t Write(char* buffer) const requires Writing<Number>;

    static Called From(double source);
    double ToDouble() const;

    Called operator+(const Called& b) const;
    Called operator*(const Called& b) const;
    Called operator/(const Called& b) const;
    int operator<(const Called& b) const;
    Called ToHundredths() const requires Rounding<Number>;
};

#ifdef ZELBENCH_HAVE_DECIMAL128
extern template struct Called<Decimal128>;
#endif
#ifdef ZELBENCH_HAVE_MULTIPRECISION
extern template struct Called<BoostDecimal>;
#endif

} // namespace peers

#endif
