#ifndef ZELDT_PLATFORM_DECIMALS_ARITHMETIC_H
#define ZELDT_PLATFORM_DECIMALS_ARITHMETIC_H

/// Arithmetic on decimal numbers with any magnitude up to 2^95 and any places of 32 bits. Nothing
/// wraps and nothing takes longer for extreme places. Private to the library.
///
/// Each operation sets `result` unless it returns Overflow or DivisionByZero.

#include "platform/decimals/fitting.h"

namespace zeldec {

Status Add(const Number& a, const Number& b, Number& result);
Status Subtract(const Number& a, const Number& b, Number& result);
Status Multiply(const Number& a, const Number& b, Number& result);
Status Divide(const Number& a, const Number& b, Number& result);

/// Quick ways for the products and quotients that people compute; false, with nothing said about
/// the result, where Multiply and Divide have to be asked. The short quotient takes magnitudes, the
/// first with `difference` places more than the second, the long one divisors of more than 64 bits
/// where the quotient is rounded.
bool MultiplyLong(const Number& a, const Number& b, Fitted& result);
bool DivideShort(std::uint64_t a, std::uint64_t b, std::int64_t difference, Fitted& result);
bool DivideLong(const Number& a, const Number& b, Fitted& result);

Status Remainder(const Number& a, const Number& b, Number& result);

/// `base` to the power of `exponent`, by repeated squaring of fitted products.
Status Power(const Number& base, int exponent, Number& result);

/// Negative, 0 or positive.
int Compare(const Number& a, const Number& b);

/// The number with at most `places` places, which may be negative; what has to be shortened keeps
/// no more places than a text could have given it. Never Inexact.
Status Round(const Number& number, int places, Rounding method, Number& result);

/// The whole number; the nearest limit outside 32 bits.
std::int32_t ToInt32(const Number& number, Rounding method);

} // namespace zeldec

#endif
