#ifndef ZELDT_BENCHMARKS_PEERS_RUST_DECIMALS_H
#define ZELDT_BENCHMARKS_PEERS_RUST_DECIMALS_H

/// What decimals.rs exports.

#include <cstddef>
#include <cstdint>

extern "C" {

/// rust_decimal's number: 96 bits, a sign and up to 28 places.
struct zelbench_rust_decimal {
    std::uint32_t words[4];
};

void zelbench_rust_add(const zelbench_rust_decimal* a, const zelbench_rust_decimal* b,
                       zelbench_rust_decimal* result);
void zelbench_rust_multiply(const zelbench_rust_decimal* a, const zelbench_rust_decimal* b,
                            zelbench_rust_decimal* result);
void zelbench_rust_divide(const zelbench_rust_decimal* a, const zelbench_rust_decimal* b,
                          zelbench_rust_decimal* result);
void zelbench_rust_remainder(const zelbench_rust_decimal* a, const zelbench_rust_decimal* b,
                             zelbench_rust_decimal* result);
std::int32_t zelbench_rust_less(const zelbench_rust_decimal* a, const zelbench_rust_decimal* b);

/// Ties away from zero.
void zelbench_rust_round(const zelbench_rust_decimal* number, std::uint32_t places,
                         zelbench_rust_decimal* result);

void zelbench_rust_from_double(double number, zelbench_rust_decimal* result);
double zelbench_rust_to_double(const zelbench_rust_decimal* number);

void zelbench_rust_parse(const char* text, std::size_t length, zelbench_rust_decimal* result);
/// Writes no terminator; returns the length.
std::size_t zelbench_rust_print(const zelbench_rust_decimal* number, char* buffer,
                                std::size_t room);
}

#endif
