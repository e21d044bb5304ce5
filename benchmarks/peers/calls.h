#ifndef ZELDT_BENCHMARKS_PEERS_CALLS_H
#define ZELDT_BENCHMARKS_PEERS_CALLS_H

/// Functions whose bodies the caller's compiler cannot see.

#include "benchmarks/peers/values.h"

namespace peers {

/// Three times the number and 1. Might throw as far as a caller can tell.
ZELPEERS_API int Work(int number);

/// Throws a std::runtime_error by value.
[[noreturn]] ZELPEERS_API void ThrowValue(const char* text);

/// Throws a new std::runtime_error as a pointer; who catches it deletes it.
[[noreturn]] ZELPEERS_API void ThrowPointer(const char* text);

/// Throws by value, catches that and throws a second one with the same text that contains it.
[[noreturn]] ZELPEERS_API void ThrowNested(const char* text);

} // namespace peers

#endif
