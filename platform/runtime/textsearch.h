#ifndef ZELDT_PLATFORM_RUNTIME_TEXTSEARCH_H
#define ZELDT_PLATFORM_RUNTIME_TEXTSEARCH_H

/// Searching in texts of any length. Private to this project; not installed.

#include <cstddef>
#include <string_view>

namespace zelrt {

/// As `text.find(pattern, start)`, in time linear in the bytes that are looked through and the
/// pattern's length, whatever the texts are.
std::size_t FindText(std::string_view text, std::string_view pattern,
                     std::size_t start = 0) noexcept;

} // namespace zelrt

#endif
