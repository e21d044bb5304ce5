#include "platform/formats/numbertext.h"

#include "platform/formats/numberscan.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace zelformat {

namespace {

constexpr NumberRules ModeNumberRules(char decimalPoint, char readGroup)
{
    return {.places = 0,
            .decimals = NumberRules::kAllDecimals,
            .decimalPoint = decimalPoint,
            .group = '\0',
            .readGroup = readGroup,
            .sign = {SignPlace::Front, false},
            .left = {false, ' '},
            .right = {false, ' '},
            .plain = true};
}

constexpr NumberRules kStandard = ModeNumberRules(',', '.');
constexpr NumberRules kTechnical = ModeNumberRules('.', '\0');

/// Doubles from here on are shown with an exponent by the modes, and those below the other limit.
constexpr double kExponentFrom = 1E15;
constexpr double kExponentBelow = 1E-5;

/// A number to be shown. The integer part has at least one digit and no needless zero in front.
struct NumberView {
    bool negative;
    std::string_view integer;
    std::string_view fraction;
};

struct NumberDigits {
    bool negative = false;
    std::string integer;
    std::string fraction;

    NumberView View() const { return {negative, integer, fraction}; }
};

bool AllZeros(std::string_view digits)
{
    return digits.find_first_not_of('0') == digits.npos;
}

bool IsZero(const NumberView& number)
{
    return AllZeros(number.integer) && AllZeros(number.fraction);
}

char SignOf(const NumberView& number, const NumberRules& rules)
{
    if (IsZero(number))
        return '\0';
    if (number.negative)
        return '-';
    return rules.sign.plus && rules.sign.place != SignPlace::None ? '+' : '\0';
}

std::size_t DecimalsShown(const NumberView& number, const NumberRules& rules)
{
    return rules.decimals == NumberRules::kAllDecimals ? number.fraction.size() : rules.decimals;
}

/// Characters of the shown number, padding in front not counted.
std::size_t ShownLength(const NumberView& number, const NumberRules& rules)
{
    std::size_t length = number.integer.size();
    if (rules.group != '\0')
        length += (number.integer.size() - 1) / 3;
    if (const std::size_t decimals = DecimalsShown(number, rules); decimals > 0)
        length += decimals + (rules.decimalPoint != '\0' ? 1 : 0);
    return SignOf(number, rules) != '\0' ? length + 1 : length;
}

bool FitsPlaces(std::size_t length, const NumberRules& rules)
{
    return rules.places == 0 || length <= rules.places;
}

void AppendGrouped(std::string& text, std::string_view digits, char group)
{
    std::size_t beforeGroup = group != '\0' ? (digits.size() - 1) % 3 + 1 : digits.size();
    text.append(digits.substr(0, beforeGroup));
    for (; beforeGroup < digits.size(); beforeGroup += 3) {
        text += group;
        text.append(digits.substr(beforeGroup, 3));
    }
}

/// `number` has no more decimals than the rules show.
Status Lay(const NumberView& number, const NumberRules& rules, std::string& text)
{
    const char sign = SignOf(number, rules);
    if (sign == '-' && rules.sign.place == SignPlace::None)
        return Status::NotAllowed;
    const std::size_t decimals = DecimalsShown(number, rules);
    if (rules.decimals == NumberRules::kAllDecimals && decimals > 0 && rules.decimalPoint == '\0')
        return Status::NotAllowed;
    const std::size_t length = ShownLength(number, rules);
    if (!FitsPlaces(length, rules))
        return Status::NotAllowed;

    const std::size_t padding = rules.left.on && rules.places > length ? rules.places - length : 0;
    std::string shown;
    shown.reserve(length + padding);
    // Zeros belong to the digits and stand behind the sign, everything else stands before it.
    if (rules.left.with != '0')
        shown.append(padding, rules.left.with);
    if (sign != '\0' && rules.sign.place == SignPlace::Front)
        shown += sign;
    if (rules.left.with == '0')
        shown.append(padding, '0');
    AppendGrouped(shown, number.integer, rules.group);
    if (decimals > 0) {
        if (rules.decimalPoint != '\0')
            shown += rules.decimalPoint;
        shown.append(number.fraction);
        shown.append(decimals - number.fraction.size(), rules.right.on ? rules.right.with : '0');
    }
    if (sign != '\0' && rules.sign.place == SignPlace::Behind)
        shown += sign;
    text = std::move(shown);
    return Status::Ok;
}

/// Adds 1 to the last of the digits that `integer` and `fraction` make up.
void AddUnit(NumberDigits& number)
{
    for (std::string* part : {&number.fraction, &number.integer}) {
        for (auto digit = part->rbegin(); digit != part->rend(); ++digit) {
            if (*digit != '9') {
                ++*digit;
                return;
            }
            *digit = '0';
        }
    }
    number.integer.insert(number.integer.begin(), '1');
}

/// Ties go away from zero.
void RoundTo(NumberDigits& number, std::size_t decimals)
{
    if (number.fraction.size() <= decimals)
        return;
    const bool up = number.fraction[decimals] >= '5';
    number.fraction.resize(decimals);
    if (up)
        AddUnit(number);
}

Status RoundAndLay(NumberDigits& number, const NumberRules& rules, std::string& text)
{
    if (rules.decimals != NumberRules::kAllDecimals)
        RoundTo(number, rules.decimals);
    return Lay(number.View(), rules, text);
}

/// The fewest digits that name the number. `value` is finite.
NumberDigits DigitsOf(double value)
{
    char buffer[32];
    const char* const end = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                          std::chars_format::scientific)
                                .ptr;
    const char* const mark = std::find(buffer, buffer + sizeof buffer, 'e');
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);

    std::string digits(1, buffer[0]);
    if (mark - buffer > 2)
        digits.append(buffer + 2, static_cast<std::size_t>(mark - buffer) - 2);
    if (exponent < 0)
        digits.insert(0, static_cast<std::size_t>(-exponent), '0');
    const std::size_t integerDigits = exponent < 0 ? 1 : static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < integerDigits)
        digits.resize(integerDigits, '0');
    return {value < 0, digits.substr(0, integerDigits), digits.substr(integerDigits)};
}

/// The digits of an integer, and room for a sign in front of them.
class IntegerText {
public:
    explicit IntegerText(std::int32_t value) noexcept
    {
        const std::uint32_t magnitude =
            value < 0 ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
        m_buffer[0] = '-';
        const char* const end =
            std::to_chars(m_buffer + 1, m_buffer + sizeof m_buffer, magnitude).ptr;
        m_nDigits = static_cast<std::size_t>(end - m_buffer - 1);
    }

    std::string_view Digits() const { return {m_buffer + 1, m_nDigits}; }
    std::string_view WithMinus() const { return {m_buffer, m_nDigits + 1}; }

private:
    char m_buffer[11];
    std::size_t m_nDigits;
};

/// Optional sign and digits, nothing else: what is typed most. Anything else is left to the
/// general reading; false then. `value` saturates above every 32-bit number.
bool ReadPlainInteger(std::string_view text, std::int64_t& value)
{
    const bool negative = !text.empty() && text[0] == '-';
    const std::string_view digits = text.substr(negative ? 1 : 0);
    if (digits.empty() || digits.size() > 10)
        return false;
    std::int64_t magnitude = 0;
    for (const char c : digits) {
        const unsigned digit = static_cast<unsigned char>(c) - unsigned{'0'};
        if (digit > 9)
            return false;
        magnitude = magnitude * 10 + digit;
    }
    value = negative ? -magnitude : magnitude;
    return true;
}

/// Reads every text that is an integer. OutOfRange for more than ten digits.
Status ReadGeneralInteger(std::string_view text, const NumberRules& rules, std::int64_t& value)
{
    ScannedNumber number;
    const Status status = ScanNumber(text, rules, Exponent::Refused, number);
    if (status != Status::Ok)
        return status;
    const bool fixedDecimals = rules.decimals != NumberRules::kAllDecimals;
    if (!AllZeros(number.fraction) || (!fixedDecimals && !number.fraction.empty()))
        return Status::Mismatch;
    if (number.integer.size() > 10)
        return Status::OutOfRange;
    const char* const digits = number.integer.data();
    std::from_chars(digits, digits + number.integer.size(), value);
    if (number.negative)
        value = -value;
    return Status::Ok;
}

/// The number as a double; OutOfRange where a double has none near it.
Status ToDouble(const ScannedNumber& number, double& value)
{
    const std::string plain =
        number.integer + '.' + number.fraction + 'e' + std::to_string(number.exponent);
    double magnitude = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), magnitude);
    const bool zero = AllZeros(number.integer) && AllZeros(number.fraction);
    if (zero)
        magnitude = 0;
    else if (error != std::errc{} || std::isinf(magnitude) || magnitude == 0)
        return Status::OutOfRange;
    value = number.negative && !zero ? -magnitude : magnitude;
    return Status::Ok;
}

} // namespace

const NumberRules& NumberRulesOfMode(const ModeRules& mode) noexcept
{
    return mode.technical ? kTechnical : kStandard;
}

Status ShowInteger(std::int32_t value, const NumberRules& rules, std::string& text)
{
    const IntegerText shown(value);
    if (!rules.plain)
        return Lay({value < 0, shown.Digits(), {}}, rules, text);
    const std::string_view plain = value < 0 ? shown.WithMinus() : shown.Digits();
    if (!FitsPlaces(plain.size(), rules))
        return Status::NotAllowed;
    text.assign(plain);
    return Status::Ok;
}

Status ShowDouble(double value, const NumberRules& rules, std::string& text)
{
    if (!std::isfinite(value))
        return Status::OutOfRange;
    NumberDigits digits = DigitsOf(value);
    return RoundAndLay(digits, rules, text);
}

Status ShowShortestDouble(double value, char decimalPoint, std::string& text)
{
    if (!std::isfinite(value))
        return Status::OutOfRange;
    const double magnitude = std::fabs(value);
    const bool fixed = magnitude == 0 || (magnitude >= kExponentBelow && magnitude < kExponentFrom);
    char buffer[32] = {'-'};
    const std::to_chars_result result =
        std::to_chars(buffer + 1, buffer + sizeof buffer, magnitude,
                      fixed ? std::chars_format::fixed : std::chars_format::scientific);
    std::replace(buffer + 1, result.ptr, '.', decimalPoint);
    std::replace(buffer + 1, result.ptr, 'e', 'E');
    text.assign(value < 0 ? buffer : buffer + 1, result.ptr);
    return Status::Ok;
}

Status ShowNumberText(std::string_view number, const NumberRules& rules, std::string& text)
{
    NumberDigits digits;
    if (!number.empty() && (number[0] == '-' || number[0] == '+')) {
        digits.negative = number[0] == '-';
        number.remove_prefix(1);
    }
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view integer = number.substr(0, point);
    const std::string_view fraction = number.substr(std::min(point + 1, number.size()));
    if ((integer.empty() && fraction.empty()) || !AreDigits(integer) || !AreDigits(fraction))
        return Status::Mismatch;
    digits.integer = WithoutLeadingZeros(integer);
    digits.fraction = fraction;
    return RoundAndLay(digits, rules, text);
}

Status ReadInteger(std::string_view text, const NumberRules& rules, IntegerRange range,
                   std::int32_t& value)
{
    std::int64_t read = 0;
    const std::string_view typed = TrimBlanks(text);
    const bool plain = rules.plain && ReadPlainInteger(typed, read);
    if (!plain) {
        const Status status = ReadGeneralInteger(typed, rules, read);
        if (status != Status::Ok)
            return status;
    }
    if (read < range.lowest || read > range.highest)
        return Status::OutOfRange;
    const auto inRange = static_cast<std::int32_t>(read);
    // A plain number is never shown longer than it was typed.
    const bool surelyFits = plain && FitsPlaces(typed.size(), rules);
    if (!surelyFits &&
        !FitsPlaces(ShownLength({read < 0, IntegerText(inRange).Digits(), {}}, rules), rules))
        return Status::TooLong;
    value = inRange;
    return Status::Ok;
}

Status ReadDouble(std::string_view text, const NumberRules& rules, Exponent exponent, double& value)
{
    ScannedNumber number;
    Status status = ScanNumber(text, rules, exponent, number);
    double read = 0;
    if (status == Status::Ok)
        status = ToDouble(number, read);
    if (status != Status::Ok)
        return status;
    if (rules.places != 0) {
        NumberDigits shown = DigitsOf(read);
        if (rules.decimals != NumberRules::kAllDecimals)
            RoundTo(shown, rules.decimals);
        if (!FitsPlaces(ShownLength(shown.View(), rules), rules))
            return Status::TooLong;
    }
    value = read;
    return Status::Ok;
}

Status ReadNumberText(std::string_view text, const NumberRules& rules, std::string& number)
{
    ScannedNumber read;
    const Status status = ScanNumber(text, rules, Exponent::Refused, read);
    if (status != Status::Ok)
        return status;
    const NumberView view{read.negative, read.integer, read.fraction};
    std::string plain = read.integer;
    if (!read.fraction.empty())
        plain += '.' + read.fraction;
    if (plain.size() > kLongestNumberText || !FitsPlaces(ShownLength(view, rules), rules))
        return Status::TooLong;
    if (read.negative && !IsZero(view))
        plain.insert(plain.begin(), '-');
    number = std::move(plain);
    return Status::Ok;
}

} // namespace zelformat
