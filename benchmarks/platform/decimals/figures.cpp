#include "benchmarks/platform/decimals/figures.h"

#include <cstdlib>

namespace zelbench {

namespace {

/// 0.digits * 10^exponent, without zeros at either end; 0 has no digits.
struct Parts {
    bool negative = false;
    std::string digits;
    long exponent = 0;
};

void DropZerosBehind(std::string& digits)
{
    digits.erase(digits.find_last_not_of('0') + 1);
}

Parts PartsOf(std::string_view text)
{
    Parts parts;
    bool behindPoint = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '-') {
            parts.negative = true;
        } else if (c == '.') {
            behindPoint = true;
        } else if (c == 'e' || c == 'E') {
            parts.exponent += std::strtol(std::string(text.substr(i + 1)).c_str(), nullptr, 10);
            break;
        } else {
            parts.digits += c;
            parts.exponent += behindPoint ? 0 : 1;
        }
    }
    const std::size_t zeros = parts.digits.find_first_not_of('0');
    if (zeros == std::string::npos)
        return {};
    parts.digits.erase(0, zeros);
    parts.exponent -= static_cast<long>(zeros);
    DropZerosBehind(parts.digits);
    return parts;
}

/// One more in the last place.
void CountUp(Parts& parts)
{
    std::size_t at = parts.digits.find_last_not_of('9');
    if (at == std::string::npos) {
        parts.digits.assign(1, '0');
        ++parts.exponent;
        at = 0;
    }
    ++parts.digits[at];
    parts.digits.erase(at + 1);
}

std::size_t Between(Random& random, std::size_t fewest, std::size_t most)
{
    return fewest + Below(random, most - fewest + 1);
}

} // namespace

std::string Figures(std::string_view text, std::size_t digits)
{
    Parts parts = PartsOf(text);
    if (parts.digits.size() > digits) {
        const bool up = parts.digits[digits] >= '5';
        parts.digits.erase(digits);
        if (up)
            CountUp(parts);
        DropZerosBehind(parts.digits);
    }
    return (parts.negative ? "-0." : "0.") + parts.digits + "e" + std::to_string(parts.exponent);
}

bool IsHalfway(std::string_view text, std::size_t digits)
{
    const Parts parts = PartsOf(text);
    return parts.digits.size() == digits + 1 && parts.digits.back() == '5';
}

std::string NumberText(Random& random, std::size_t digits, std::size_t places)
{
    std::string text;
    for (std::size_t i = 0; i < digits; ++i)
        text += static_cast<char>(i == 0 ? '1' + Below(random, 9) : '0' + Below(random, 10));
    // At least one digit stands before the point.
    if (digits <= places)
        text.insert(0, places + 1 - digits, '0');
    if (places != 0)
        text.insert(text.size() - places, 1, '.');
    return Below(random, 2) == 0 ? text : "-" + text;
}

std::vector<std::string> NumberTexts(std::size_t count, const Shape& shape, unsigned seed)
{
    Random random(seed);
    std::vector<std::string> texts;
    while (texts.size() < count) {
        const std::size_t digits = Between(random, shape.fewestDigits, shape.mostDigits);
        const std::size_t places = Between(random, shape.fewestPlaces, shape.mostPlaces);
        texts.push_back(NumberText(random, digits, places));
    }
    return texts;
}

} // namespace zelbench
