#ifndef ZELDT_BENCHMARKS_INPUTS_H
#define ZELDT_BENCHMARKS_INPUTS_H

/// Operands: the same in every run, varied enough that a branch predictor cannot learn them.

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace zelbench {

/// Operands of a job that fits the cache.
inline constexpr std::size_t kFewOperands = 1024;
/// Operands of a job that does not.
inline constexpr std::size_t kManyOperands = 131072;
/// Length of a text that does not fit the first caches.
inline constexpr std::size_t kLongText = std::size_t{1} << 20;

/// The generator for one set of operands.
using Random = std::mt19937;

/// An even number below `limit`, the same on every system.
std::size_t Below(Random& random, std::size_t limit);

/// Signed numbers of 1 to `digits` digits, every length as often as any other.
std::vector<std::int32_t> Numbers(std::size_t count, int digits, unsigned seed);

/// Different German surnames in code page 1252: a capital, then small letters, about every fourth
/// with an umlaut or a sharp s.
std::vector<std::string> Names(std::size_t count, unsigned seed);

/// English words and blanks in ASCII.
std::string PlainText(std::size_t length, unsigned seed);

/// The same with umlauts and sharp s in code page 1252, about as many as German prose has: two in
/// a hundred bytes.
std::string GermanText(std::size_t length, unsigned seed);

/// Whether all bytes are ASCII.
bool IsAscii(const std::string& text);

/// The indices below `count` in random order.
std::vector<std::uint32_t> Shuffled(std::size_t count, unsigned seed);

} // namespace zelbench

#endif
