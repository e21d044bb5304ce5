#include "platform/formats/numbertext.h"

#include "platform/formats/numberscan.h"
#include "platform/formats/usualtexts.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/exactpowers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace zelformat {

namespace {

/// Doubles from here on are shown with an exponent by the modes, and those below the other limit.
constexpr double kExponentFrom = 1E15;
constexpr double kExponentBelow = 1E-5;

/// Numbers of so many digits all have doubles of their own.
constexpr double kSurelyDistinct = 1E15;

/// A number to be shown. The integer part has at least one digit and no needless zero in front.
struct NumberView {
    bool negative;
    std::string_view integer;
    std::string_view fraction;
};

bool AllZeros(std::string_view digits)
{
    return digits.find_first_not_of('0') == digits.npos;
}

bool IsZero(const NumberView& number)
{
    return number.integer[0] == '0' && AllZeros(number.fraction);
}

/// What a shown number consists of besides its digits.
struct Layout {
    char sign; ///< NUL: none
    std::size_t decimals;
    std::size_t length; ///< characters, padding in front not counted
};

std::size_t DecimalsShown(const NumberView& number, const NumberRules& rules)
{
    return rules.decimals == NumberRules::kAllDecimals ? number.fraction.size() : rules.decimals;
}

Layout LayoutOf(const NumberView& number, const NumberRules& rules)
{
    Layout layout{'\0', DecimalsShown(number, rules), number.integer.size()};
    const bool plus = rules.sign.plus && rules.sign.place != SignPlace::None;
    if ((number.negative || plus) && !IsZero(number)) {
        layout.sign = number.negative ? '-' : '+';
        ++layout.length;
    }
    if (rules.group != '\0')
        layout.length += (number.integer.size() - 1) / 3;
    if (layout.decimals > 0)
        layout.length += layout.decimals + (rules.decimalPoint != '\0' ? 1 : 0);
    return layout;
}

bool FitsPlaces(std::size_t length, const NumberRules& rules)
{
    return rules.places == 0 || length <= rules.places;
}

/// Writes the digits with the separator, if there is one, between groups of three.
char* PutGrouped(std::string_view digits, char group, char* out)
{
    if (group == '\0')
        return Put(digits, out);
    constexpr std::size_t groupSize = 3;
    const char* next = digits.data();
    const char* const end = next + digits.size();
    for (std::size_t first = (digits.size() - 1) % groupSize + 1; first != 0; --first)
        *out++ = *next++;
    for (; next != end; next += groupSize) {
        *out++ = group;
        std::memcpy(out, next, groupSize);
        out += groupSize;
    }
    return out;
}

/// `number` has no more decimals than the rules show.
Status Lay(const NumberView& number, const NumberRules& rules, TextBuffer& text)
{
    const auto [sign, decimals, length] = LayoutOf(number, rules);
    if (sign == '-' && rules.sign.place == SignPlace::None)
        return Status::NotAllowed;
    if (rules.decimals == NumberRules::kAllDecimals && decimals > 0 && rules.decimalPoint == '\0')
        return Status::NotAllowed;
    if (!FitsPlaces(length, rules))
        return Status::NotAllowed;

    const std::size_t padding = rules.left.on && rules.places > length ? rules.places - length : 0;
    char* out = text.Make(length + padding);
    // Zeros belong to the digits and stand behind the sign, everything else stands before it.
    if (rules.left.with != '0')
        out = std::fill_n(out, padding, rules.left.with);
    if (sign != '\0' && rules.sign.place == SignPlace::Front)
        *out++ = sign;
    if (rules.left.with == '0')
        out = std::fill_n(out, padding, '0');
    out = PutGrouped(number.integer, rules.group, out);
    if (decimals > 0) {
        if (rules.decimalPoint != '\0')
            *out++ = rules.decimalPoint;
        out = Put(number.fraction, out);
        out = std::fill_n(out, decimals - number.fraction.size(),
                          rules.right.on ? rules.right.with : '0');
    }
    if (sign != '\0' && rules.sign.place == SignPlace::Behind)
        *out = sign;
    return Status::Ok;
}

/// Adds 1 to the last digit; the new ones lie in `room`.
void AddUnit(NumberView& number, TextBuffer& room)
{
    // A zero in front takes a carry.
    const std::size_t integers = number.integer.size() + 1;
    char* const digits = room.Make(integers + number.fraction.size());
    digits[0] = '0';
    char* last = Put(number.fraction, Put(number.integer, digits + 1)) - 1;
    for (; *last == '9'; --last)
        *last = '0';
    ++*last;
    const std::size_t first = digits[0] == '0' ? 1 : 0;
    number.integer = room.View().substr(first, integers - first);
    number.fraction = room.View().substr(integers);
}

/// Drops decimals that the rules do not show, ties away from zero. `room` is for digits that
/// change.
void Round(NumberView& number, const NumberRules& rules, TextBuffer& room)
{
    const std::size_t decimals = DecimalsShown(number, rules);
    if (number.fraction.size() <= decimals)
        return;
    const bool up = number.fraction[decimals] >= '5';
    number.fraction = number.fraction.substr(0, decimals);
    if (up)
        AddUnit(number, room);
}

Status RoundAndLay(NumberView number, const NumberRules& rules, TextBuffer& text)
{
    if (number.fraction.size() <= DecimalsShown(number, rules))
        return Lay(number, rules, text);
    TextBuffer rounded;
    Round(number, rules, rounded);
    return Lay(number, rules, text);
}

/// The fewest digits that name a double.
class DoubleDigits {
public:
    /// `value` is finite. `decimals` are those that it probably has.
    DoubleDigits(double value, std::uint32_t decimals) : m_view{value < 0, {}, {}}
    {
        const double magnitude = std::fabs(value);
        if (!TryWhole(magnitude, decimals))
            Convert(magnitude);
    }

    const NumberView& View() const { return m_view; }

private:
    /// Most amounts are a whole number of the last decimals. If that has few digits and gives the
    /// same double back, no other number of few digits does.
    bool TryWhole(double magnitude, std::uint32_t decimals)
    {
        if (decimals >= zelrt::kExactPowersOfTen.size())
            return false;
        const double scaled = magnitude * zelrt::kExactPowersOfTen[decimals];
        if (!(scaled < kSurelyDistinct))
            return false;
        // A wrong neighbour does not give the same double back.
        // NOLINTNEXTLINE(bugprone-incorrect-roundings)
        const auto whole = static_cast<std::uint64_t>(scaled + 0.5);
        if (static_cast<double>(whole) / zelrt::kExactPowersOfTen[decimals] != magnitude)
            return false;

        constexpr std::size_t room = 16;
        char digits[room];
        const char* const end = std::to_chars(digits, digits + room, whole).ptr;
        const auto count = static_cast<std::size_t>(end - digits);
        const std::size_t zeros = count > decimals ? 0 : decimals + 1 - count;
        char* const out = m_digits.Make(zeros + count);
        Put({digits, end}, std::fill_n(out, zeros, '0'));
        Split(zeros + count - decimals);
        const std::size_t last = m_view.fraction.find_last_not_of('0');
        m_view.fraction = m_view.fraction.substr(0, last + 1);
        return true;
    }

    void Convert(double magnitude)
    {
        char shortest[32];
        const char* const end = std::to_chars(shortest, shortest + sizeof shortest, magnitude,
                                              std::chars_format::scientific)
                                    .ptr;
        const char* const mark = std::find(shortest, shortest + sizeof shortest, 'e');
        int exponent = 0;
        std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);

        const std::size_t zeros = exponent < 0 ? static_cast<std::size_t>(-exponent) : 0;
        const std::size_t integers = exponent < 0 ? 1 : static_cast<std::size_t>(exponent) + 1;
        const auto count =
            static_cast<std::size_t>(std::max<std::ptrdiff_t>(mark - shortest - 1, 1));
        const std::size_t length = std::max(zeros + count, integers);
        char* out = std::fill_n(m_digits.Make(length), zeros, '0');
        *out++ = shortest[0];
        out = std::copy_n(shortest + 2, count - 1, out);
        std::fill_n(out, length - zeros - count, '0');
        Split(integers);
    }

    void Split(std::size_t integers)
    {
        m_view.integer = m_digits.View().substr(0, integers);
        m_view.fraction = m_digits.View().substr(integers);
    }

    TextBuffer m_digits;
    NumberView m_view;
};

std::uint32_t MagnitudeOf(std::int32_t value)
{
    return value < 0 ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
}

/// The digits of an integer.
class IntegerDigits {
public:
    explicit IntegerDigits(std::int32_t value) noexcept
        : m_end(zelrt::WriteDigits(MagnitudeOf(value), m_digits)), m_negative(value < 0)
    {}

    NumberView View() const { return {m_negative, {m_digits, m_end}, {}}; }

private:
    char m_digits[zelrt::kMostDigits32];
    const char* m_end;
    bool m_negative;
};

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
    value = static_cast<std::int64_t>(ValueOf(number.integer));
    if (number.negative)
        value = -value;
    return Status::Ok;
}

/// The number as a double; OutOfRange where a double has none near it.
Status ToDouble(const ScannedNumber& number, double& value)
{
    const std::string_view digits(number.integer.data(),
                                  number.integer.size() + number.fraction.size());
    const auto decimals = static_cast<std::int64_t>(number.fraction.size());
    const std::int64_t exponent = number.exponent - decimals;
    double magnitude = 0;
    const bool atOnce =
        digits.size() <= kDigits64 && ToDoubleAtOnce(ValueOf(digits), exponent, magnitude);
    if (!atOnce && !AllZeros(digits)) {
        constexpr std::size_t exponentRoom = 21;
        TextBuffer plain;
        char* const first = plain.Make(digits.size() + 1 + exponentRoom);
        char* last = Put(digits, first);
        *last++ = 'e';
        last = std::to_chars(last, last + exponentRoom, exponent).ptr;
        const std::errc error = std::from_chars(first, last, magnitude).ec;
        if (error != std::errc{} || std::isinf(magnitude) || magnitude == 0)
            return Status::OutOfRange;
    }
    value = number.negative && magnitude != 0 ? -magnitude : magnitude;
    return Status::Ok;
}

/// The decimals without the zeros at the end that make the number of so many integer digits too
/// long; formats with many decimals show such numbers.
std::string_view WithoutExcessZeros(std::string_view fraction, std::size_t integerDigits)
{
    while (!fraction.empty() && fraction.back() == '0' &&
           integerDigits + 1 + fraction.size() > kLongestNumberText)
        fraction.remove_suffix(1);
    return fraction;
}

} // namespace

Status ShowInteger(std::int32_t value, const NumberRules& rules, TextBuffer& text)
{
    if (!rules.plain)
        return Lay(IntegerDigits(value).View(), rules, text);
    text.EndAt(zelrt::WriteDigits(value, text.Make(zelrt::kMostSignedDigits32)));
    return FitsPlaces(text.View().size(), rules) ? Status::Ok : Status::NotAllowed;
}

Status ShowDouble(double value, const NumberRules& rules, TextBuffer& text)
{
    if (!std::isfinite(value))
        return Status::OutOfRange;
    const DoubleDigits digits(value, rules.decimals);
    return RoundAndLay(digits.View(), rules, text);
}

Status ShowShortestDouble(double value, char decimalPoint, TextBuffer& text)
{
    if (!std::isfinite(value))
        return Status::OutOfRange;
    constexpr std::size_t room = 32;
    const double magnitude = std::fabs(value);
    const bool fixed = magnitude == 0 || (magnitude >= kExponentBelow && magnitude < kExponentFrom);
    char* const first = text.Make(room);
    char* const digits = first + (value < 0 ? 1 : 0);
    *first = '-';
    char* const end =
        std::to_chars(digits, first + room, magnitude,
                      fixed ? std::chars_format::fixed : std::chars_format::scientific)
            .ptr;
    const auto exchange = [digits, end](char written, char shown) {
        if (char* const at = std::find(digits, end, written); at != end)
            *at = shown;
    };
    exchange('.', decimalPoint);
    if (!fixed)
        exchange('e', 'E');
    text.EndAt(end);
    return Status::Ok;
}

Status ShowNumberText(std::string_view number, const NumberRules& rules, TextBuffer& text)
{
    char sign = '\0';
    if (!number.empty() && (number[0] == '-' || number[0] == '+')) {
        sign = number[0];
        number.remove_prefix(1);
    }
    const std::string_view integer = number.substr(0, CountDigits(number));
    number.remove_prefix(integer.size());
    if (!number.empty() && number[0] != '.')
        return Status::Mismatch;
    const std::string_view fraction = number.substr(number.empty() ? 0 : 1);
    if ((integer.empty() && fraction.empty()) || !AreDigits(fraction))
        return Status::Mismatch;
    return RoundAndLay({sign == '-', WithoutLeadingZeros(integer), fraction}, rules, text);
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
    const bool surelyFits = rules.places == 0 || (plain && FitsPlaces(typed.size(), rules));
    if (!surelyFits && !FitsPlaces(LayoutOf(IntegerDigits(inRange).View(), rules).length, rules))
        return Status::TooLong;
    value = inRange;
    return Status::Ok;
}

Status ReadDouble(std::string_view text, const NumberRules& rules, Exponent exponent, double& value)
{
    PlainNumber plain{};
    if (ReadPlain(text, rules, plain) && ToDouble(plain, value))
        return Status::Ok;
    double read = 0;
    ScannedNumber number;
    Status status = ScanNumber(text, rules, exponent, number);
    if (status == Status::Ok)
        status = ToDouble(number, read);
    if (status != Status::Ok)
        return status;
    if (rules.places != 0) {
        const DoubleDigits digits(read, rules.decimals);
        NumberView shown = digits.View();
        TextBuffer rounded;
        Round(shown, rules, rounded);
        if (!FitsPlaces(LayoutOf(shown, rules).length, rules))
            return Status::TooLong;
    }
    value = read;
    return Status::Ok;
}

Status ReadNumberText(std::string_view text, const NumberRules& rules, TextBuffer& number)
{
    PlainNumber plain{};
    if (ReadPlain(text, rules, plain) && !(plain.negative && plain.digits == 0)) {
        char* const out = number.Make(text.size());
        Put(text, out);
        if (plain.decimals != 0)
            out[text.size() - plain.decimals - 1] = '.';
        return Status::Ok;
    }
    ScannedNumber read;
    const Status status = ScanNumber(text, rules, Exponent::Refused, read);
    if (status != Status::Ok)
        return status;
    const NumberView view{read.negative, read.integer, read.fraction};
    const std::string_view fraction = WithoutExcessZeros(read.fraction, read.integer.size());
    const std::size_t length = read.integer.size() + (fraction.empty() ? 0 : 1 + fraction.size());
    if (length > kLongestNumberText || !FitsPlaces(LayoutOf(view, rules).length, rules))
        return Status::TooLong;
    const bool negative = read.negative && !IsZero(view);
    char* out = number.Make(length + (negative ? 1 : 0));
    if (negative)
        *out++ = '-';
    out = Put(read.integer, out);
    if (!fraction.empty()) {
        *out++ = '.';
        Put(fraction, out);
    }
    return Status::Ok;
}

} // namespace zelformat
