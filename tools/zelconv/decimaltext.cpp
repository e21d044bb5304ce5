#include "tools/zelconv/decimaltext.h"

#include <algorithm>

namespace zelconv {

namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// The digits of a number without the zeros at its edges.
struct Digits {
    bool isNegative = false;
    std::string_view whole;
    std::string_view places;

    bool IsZero() const { return whole.empty() && places.empty(); }
};

Digits DigitsOf(std::string_view text)
{
    Digits digits;
    const bool hasSign = !text.empty() && (text[0] == '-' || text[0] == '+');
    digits.isNegative = hasSign && text[0] == '-';
    text.remove_prefix(hasSign ? 1 : 0);
    const std::size_t point = std::min(text.find('.'), text.size());
    digits.whole = text.substr(0, point);
    digits.whole.remove_prefix(std::min(digits.whole.find_first_not_of('0'), point));
    digits.places = text.substr(std::min(point + 1, text.size()));
    digits.places = digits.places.substr(0, digits.places.find_last_not_of('0') + 1);
    return digits;
}

} // namespace

bool IsDecimalText(std::string_view text)
{
    const bool hasSign = !text.empty() && (text[0] == '-' || text[0] == '+');
    text.remove_prefix(hasSign ? 1 : 0);
    const auto others = static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char character) { return !IsDigit(character); }));
    return others < text.size() && (others == 0 || (others == 1 && text.find('.') != text.npos));
}

DecimalShape ShapeOf(std::string_view text)
{
    const Digits digits = DigitsOf(text);
    const std::size_t leading =
        digits.whole.empty() ? std::min(digits.places.find_first_not_of('0'), digits.places.size())
                             : 0;
    std::size_t significant = digits.whole.size() + digits.places.size() - leading;
    if (digits.places.empty())
        significant = digits.whole.find_last_not_of('0') + 1;
    return {digits.whole.size(), digits.places.size(), significant};
}

bool IsSameDecimal(std::string_view a, std::string_view b)
{
    const Digits left = DigitsOf(a);
    const Digits right = DigitsOf(b);
    return left.whole == right.whole && left.places == right.places &&
           (left.isNegative == right.isNegative || left.IsZero());
}

} // namespace zelconv
