#ifndef ZELDT_TOOLS_ZELCONV_DECIMALTEXT_H
#define ZELDT_TOOLS_ZELCONV_DECIMALTEXT_H

/// Decimals as databases write them: a sign or none, digits, a point with further digits or none.

#include <cstddef>
#include <string_view>

namespace zelconv {

bool IsDecimalText(std::string_view text);

/// How many digits a number needs. Zeros at the edges do not count.
struct DecimalShape {
    std::size_t whole;       ///< before the point
    std::size_t places;      ///< behind the point
    std::size_t significant; ///< from the first one that is not zero to the last one
};

/// The text must be one.
DecimalShape ShapeOf(std::string_view text);

/// Whether both texts are the same number, whatever zeros they show.
bool IsSameDecimal(std::string_view a, std::string_view b);

} // namespace zelconv

#endif
