#ifndef ZELDT_TOOLS_ZELCONV_PLAINNAME_H
#define ZELDT_TOOLS_ZELCONV_PLAINNAME_H

#include <algorithm>
#include <string_view>

namespace zelconv {

/// Whether a name, which is not empty, can stand in SQL as it is: letters, digits and underscores,
/// no digit first.
inline bool IsPlainName(std::string_view name)
{
    const auto isLetter = [](char character) {
        return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
               character == '_';
    };
    return isLetter(name.front()) && std::all_of(name.begin(), name.end(), [&](char character) {
               return isLetter(character) || (character >= '0' && character <= '9');
           });
}

} // namespace zelconv

#endif
