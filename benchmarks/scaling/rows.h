#ifndef ZELDT_BENCHMARKS_SCALING_ROWS_H
#define ZELDT_BENCHMARKS_SCALING_ROWS_H

#include <cstddef>

namespace zelbench {

/// Writes a CSV file of so many rows with eight columns: two whole numbers, an amount, a double, a
/// name, a character, a moment, yes or no. False when that is not possible.
bool WriteRows(std::size_t count, const char* path);

} // namespace zelbench

#endif
