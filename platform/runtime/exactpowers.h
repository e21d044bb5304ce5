#ifndef ZELDT_PLATFORM_RUNTIME_EXACTPOWERS_H
#define ZELDT_PLATFORM_RUNTIME_EXACTPOWERS_H

/// The powers of ten that a double holds exactly. A product or quotient of one of them and a whole
/// number that a double holds too is rounded once, so it is the nearest double.
/// Private to this project; not installed.

#include <array>
#include <cstddef>

namespace zelrt {

inline constexpr std::array<double, 23> kExactPowersOfTen = [] {
    std::array<double, 23> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();
static_assert(kExactPowersOfTen.back() == 1E22);

} // namespace zelrt

#endif
