#ifndef ZELDT_BENCHMARKS_ZELCONV_CELLS_H
#define ZELDT_BENCHMARKS_ZELCONV_CELLS_H

/// Typed cells without value objects: read by <charconv> and Boost.Multiprecision, written by fmt.
///
/// Every reader takes all of its text or none, and refuses what zelconv refuses: numbers out of
/// range, more digits than the form of the output holds, days that no calendar has, characters
/// that code page 1252 lacks.

#include <boost/multiprecision/cpp_int.hpp>
#include <fmt/format.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace peer {

using Buffer = fmt::memory_buffer;

/// A whole number with a decimal point: digits * 10^-places.
struct Decimal {
    boost::multiprecision::int128_t digits;
    int places;
};

struct Moment {
    int day;
    int month;
    int year;
    int hour;
    int minute;
    int second;
};

template <typename Integer>
std::optional<Integer> ReadInteger(std::string_view text);

/// Rounded to two places, away from zero in the middle; at most 28 digits.
std::optional<Decimal> ReadMoney(std::string_view text);
std::optional<double> ReadDouble(std::string_view text);
/// The text itself, in UTF-8.
std::optional<std::string_view> ReadText(std::string_view text);
/// A text of one character.
std::optional<std::string_view> ReadCharacter(std::string_view text);
/// "5.3.2000" or with "9:05" or "09:05:30" behind a blank.
std::optional<Moment> ReadMoment(std::string_view text);
std::optional<bool> ReadBool(std::string_view text);

// As SQL

void Append(Buffer& out, std::string_view text);
void WriteInteger(Buffer& out, int number);
void WriteMoney(Buffer& out, const Decimal& number);
/// False for a number that 15 digits do not tell.
bool WriteDouble(Buffer& out, double number);
void WriteText(Buffer& out, std::string_view text);
/// False for a moment with seconds.
bool WriteMoment(Buffer& out, const Moment& moment);
void WriteBool(Buffer& out, bool value);

} // namespace peer

#endif
