#include "platform/formats/numberscan.h"

#include <algorithm>

namespace zelformat {

namespace {

using zelrt::IsDigit;

constexpr int kExponentLimit = 100'000'000;

/// Takes the leading digits off `rest`, writes them to `out` and moves that behind them; returns
/// their number.
std::size_t TakeDigits(std::string_view& rest, char*& out)
{
    std::size_t count = 0;
    while (count < rest.size() && IsDigit(rest[count])) {
        out[count] = rest[count];
        ++count;
    }
    out += count;
    rest.remove_prefix(count);
    return count;
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
    // A point behind decimals would be a second one.
    if (!rest.empty() && rest.find(rules.decimalPoint) == rest.size() - 1)
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

/// Takes digits, grouped or not, off the front of `rest`, as TakeDigits does.
bool TakeInteger(std::string_view& rest, char group, char*& out)
{
    const char* const first = out;
    const std::size_t run = TakeDigits(rest, out);
    if (group == '\0' || rest.empty() || rest[0] != group)
        return run > 0;
    // Who types 0.125 does not mean 125.
    if (run == 0 || run > 3 || *first == '0')
        return false;
    while (!rest.empty() && rest[0] == group) {
        rest.remove_prefix(1);
        if (TakeDigits(rest, out) != 3)
            return false;
    }
    return true;
}

bool TakeExponent(std::string_view& rest, int& exponent)
{
    rest.remove_prefix(1);
    const bool negative = !rest.empty() && rest[0] == '-';
    if (!rest.empty() && IsSign(rest[0]))
        rest.remove_prefix(1);
    if (rest.empty() || !IsDigit(rest[0]))
        return false;
    for (; !rest.empty() && IsDigit(rest[0]); rest.remove_prefix(1))
        exponent = std::min(exponent * 10 + (rest[0] - '0'), kExponentLimit);
    if (negative)
        exponent = -exponent;
    return true;
}

/// Takes fixed decimals that follow the integer part without a point off the back.
bool TakeImpliedDecimals(std::string_view& rest, std::size_t decimals, std::string_view& fraction)
{
    if (rest.size() <= decimals)
        return false;
    fraction = rest.substr(rest.size() - decimals);
    rest.remove_suffix(decimals);
    return AreDigits(fraction);
}

/// Everything but the sign and the fill characters around the number.
bool ScanMagnitude(std::string_view rest, const NumberRules& rules, Exponent exponent,
                   ScannedNumber& number)
{
    const bool fixedDecimals = rules.decimals != NumberRules::kAllDecimals;
    // No more digits than bytes.
    char* const digits = number.digits.Make(rest.size());
    char* out = digits;
    std::string_view implied;
    if (fixedDecimals && rules.decimalPoint == '\0' &&
        !TakeImpliedDecimals(rest, rules.decimals, implied))
        return false;
    DropZeroFill(rest, rules);
    if (!TakeInteger(rest, rules.readGroup, out))
        return false;
    char* const integerEnd = out;
    out = Put(implied, out);
    if (rules.decimalPoint != '\0' && !rest.empty() && rest[0] == rules.decimalPoint) {
        rest.remove_prefix(1);
        const std::size_t decimals = TakeDigits(rest, out);
        if (decimals == 0 || (fixedDecimals && decimals > rules.decimals))
            return false;
    }
    if (exponent == Exponent::Accepted && !rest.empty() && (rest[0] == 'E' || rest[0] == 'e') &&
        !TakeExponent(rest, number.exponent))
        return false;
    number.integer = WithoutLeadingZeros({digits, integerEnd});
    number.fraction = {integerEnd, out};
    return rest.empty();
}

} // namespace

std::string_view WithoutLeadingZeros(std::string_view digits) noexcept
{
    while (digits.size() > 1 && digits[0] == '0')
        digits.remove_prefix(1);
    return digits.empty() ? "0" : digits;
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
    return Status::Ok;
}

} // namespace zelformat
