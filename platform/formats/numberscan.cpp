#include "platform/formats/numberscan.h"

#include "platform/runtime/digits.h"

#include <algorithm>

namespace zelformat {

namespace {

using zelrt::IsDigit;

constexpr int kExponentLimit = 100'000'000;

bool IsSign(char c)
{
    return c == '-' || c == '+';
}

/// The leading digits of `rest`, which are taken off it.
std::string_view TakeDigits(std::string_view& rest)
{
    const auto end = std::find_if_not(rest.begin(), rest.end(), IsDigit);
    const std::string_view digits = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(digits.size());
    return digits;
}

/// Drops what fills the places in front of the number.
void DropLeftFill(std::string_view& rest, const NumberRules& rules)
{
    if (!rules.left.on || rules.left.with == '0')
        return;
    rest.remove_prefix(std::min(rest.find_first_not_of(rules.left.with), rest.size()));
}

/// Drops what stands for missing decimals, and the decimal point when no decimal is left.
void DropRightFill(std::string_view& rest, const NumberRules& rules)
{
    const bool fills = rules.right.on && rules.right.with != '0' && rules.decimals > 0 &&
                       rules.decimals != NumberRules::kAllDecimals;
    if (!fills)
        return;
    const std::size_t last = rest.find_last_not_of(rules.right.with);
    rest = rest.substr(0, last == rest.npos ? 0 : last + 1);
    if (!rest.empty() && rest.back() == rules.decimalPoint)
        rest.remove_suffix(1);
}

/// Zeros that fill the places in front of well-formed groups.
void DropZeroFill(std::string_view& rest, const NumberRules& rules)
{
    if (!rules.left.on || rules.left.with != '0')
        return;
    while (rest.size() > 1 && rest[0] == '0' && IsDigit(rest[1]))
        rest.remove_prefix(1);
}

/// Reads digits, grouped or not, off the front of `rest`.
bool TakeInteger(std::string_view& rest, char group, std::string& digits)
{
    std::string_view run = TakeDigits(rest);
    if (run.empty())
        return false;
    digits = run;
    if (group == '\0' || rest.empty() || rest[0] != group)
        return true;
    // Who types 0.125 does not mean 125.
    if (run.size() > 3 || run[0] == '0')
        return false;
    while (!rest.empty() && rest[0] == group) {
        rest.remove_prefix(1);
        run = TakeDigits(rest);
        if (run.size() != 3)
            return false;
        digits += run;
    }
    return true;
}

bool TakeExponent(std::string_view& rest, int& exponent)
{
    rest.remove_prefix(1);
    const bool negative = !rest.empty() && rest[0] == '-';
    if (!rest.empty() && IsSign(rest[0]))
        rest.remove_prefix(1);
    const std::string_view digits = TakeDigits(rest);
    for (const char digit : digits)
        exponent = std::min(exponent * 10 + (digit - '0'), kExponentLimit);
    if (negative)
        exponent = -exponent;
    return !digits.empty();
}

/// Takes fixed decimals that follow the integer part without a point off the back.
bool TakeImpliedDecimals(std::string_view& rest, std::size_t decimals, std::string& fraction)
{
    if (rest.size() <= decimals)
        return false;
    const std::string_view digits = rest.substr(rest.size() - decimals);
    rest.remove_suffix(decimals);
    fraction = digits;
    return AreDigits(digits);
}

/// Everything but the sign and the fill characters around the number.
bool ScanMagnitude(std::string_view rest, const NumberRules& rules, Exponent exponent,
                   ScannedNumber& number)
{
    const bool fixedDecimals = rules.decimals != NumberRules::kAllDecimals;
    if (fixedDecimals && rules.decimalPoint == '\0' &&
        !TakeImpliedDecimals(rest, rules.decimals, number.fraction))
        return false;
    DropZeroFill(rest, rules);
    if (!TakeInteger(rest, rules.readGroup, number.integer))
        return false;
    if (rules.decimalPoint != '\0' && !rest.empty() && rest[0] == rules.decimalPoint) {
        rest.remove_prefix(1);
        number.fraction = TakeDigits(rest);
        if (number.fraction.empty() || (fixedDecimals && number.fraction.size() > rules.decimals))
            return false;
    }
    if (exponent == Exponent::Accepted && !rest.empty() && (rest[0] == 'E' || rest[0] == 'e') &&
        !TakeExponent(rest, number.exponent))
        return false;
    return rest.empty();
}

} // namespace

std::string_view TrimBlanks(std::string_view text) noexcept
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool TakeSign(std::string_view& rest, char& sign) noexcept
{
    sign = '\0';
    const bool front = !rest.empty() && IsSign(rest.front());
    if (front) {
        sign = rest.front();
        rest.remove_prefix(1);
    }
    if (!rest.empty() && IsSign(rest.back())) {
        if (front)
            return false;
        sign = rest.back();
        rest.remove_suffix(1);
    }
    return true;
}

bool AreDigits(std::string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(), IsDigit);
}

std::string_view WithoutLeadingZeros(std::string_view digits) noexcept
{
    const std::size_t first = digits.find_first_not_of('0');
    return first == digits.npos ? std::string_view("0") : digits.substr(first);
}

Status ScanNumber(std::string_view text, const NumberRules& rules, Exponent exponent,
                  ScannedNumber& number)
{
    std::string_view rest = TrimBlanks(text);
    DropLeftFill(rest, rules);
    char sign = '\0';
    if (!TakeSign(rest, sign))
        return Status::Mismatch;
    DropRightFill(rest, rules);
    if (!ScanMagnitude(rest, rules, exponent, number))
        return Status::Mismatch;
    if (sign != '\0' && rules.sign.place == SignPlace::None)
        return sign == '-' ? Status::NotAllowed : Status::Mismatch;
    number.negative = sign == '-';
    number.integer = std::string(WithoutLeadingZeros(number.integer));
    return Status::Ok;
}

} // namespace zelformat
