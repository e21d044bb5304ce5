#ifndef ZELDT_PLATFORM_DECIMALS_BINARY_H
#define ZELDT_PLATFORM_DECIMALS_BINARY_H

/// Decimal numbers from and to binary floating point. Private to the library.

#include "platform/decimals/fitting.h"

namespace zeldec {

/// The shortest decimal number that reads back as the double; below the last place a number may
/// have it is 0. NaN, infinities and more than 28 digits before the point are overflows.
Status FromDouble(double number, Number& result);

/// The nearest double, ties to even; infinite beyond the range.
double ToDouble(const Number& number);

} // namespace zeldec

#endif
