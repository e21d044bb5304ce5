#include "benchmarks/peers/calls.h"

#include <exception>
#include <stdexcept>

namespace peers {

int Work(int number)
{
    return 3 * number + 1;
}

void ThrowValue(const char* text)
{
    throw std::runtime_error(text);
}

void ThrowPointer(const char* text)
{
    throw new std::runtime_error(text);
}

void ThrowNested(const char* text)
{
    try {
        ThrowValue(text);
    } catch (...) {
        std::throw_with_nested(std::runtime_error(text));
    }
}

} // namespace peers
