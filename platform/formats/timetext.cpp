#include "platform/formats/timetext.h"

#include "platform/formats/numberscan.h"
#include "platform/runtime/digits.h"

#include <algorithm>

namespace zelformat {

namespace {

constexpr std::uint32_t kUnitsPerHour = 1200;
constexpr std::uint32_t kUnitsPerMinute = 20;
constexpr std::uint32_t kUnitsPerHundredth = 12;

constexpr std::size_t kFractionDigits = 2;

constexpr TimeRules ModeTimeRules(char hundredthsPoint, std::uint32_t hourWidth)
{
    return {.mode = TimeMode::Own,
            .separated = true,
            .hundredthsPoint = hundredthsPoint,
            .sign = {SignPlace::Front, false},
            .mostHourDigits = 0,
            .hourWidth = hourWidth,
            .fill = '0',
            .plain = true};
}

constexpr TimeRules kStandard = ModeTimeRules(',', 2);
constexpr TimeRules kTechnical = ModeTimeRules('.', 0);

std::uint32_t UnitsPerStep(TimeMode mode)
{
    return mode == TimeMode::Hundredths ? kUnitsPerHundredth : kUnitsPerMinute;
}

char SeparatorOf(TimeMode mode, const TimeRules& rules)
{
    return mode == TimeMode::Hundredths ? rules.hundredthsPoint : ':';
}

/// The mode that a value is shown in.
TimeMode ModeToShow(Duration value, const TimeRules& rules)
{
    if (rules.mode != TimeMode::Own)
        return rules.mode;
    const bool fractionLeft = value.units % static_cast<std::int32_t>(kUnitsPerHour) != 0;
    if (value.mode == TimeMode::Own || (value.mode == TimeMode::Hours && fractionLeft))
        return TimeMode::Minutes;
    return value.mode;
}

char SignOf(std::int32_t units, const TimeRules& rules)
{
    if (units < 0)
        return '-';
    return units > 0 && rules.sign.plus && rules.sign.place != SignPlace::None ? '+' : '\0';
}

/// A text of hours and fraction taken apart.
struct Parts {
    TimeMode mode;
    std::string_view hours;    ///< digits
    std::string_view fraction; ///< two digits, or empty
};

/// The hours are the digits in front of whatever follows.
bool SplitSeparated(std::string_view text, const TimeRules& rules, Parts& parts)
{
    const std::size_t digits = CountDigits(text);
    parts.hours = text.substr(0, digits);
    if (digits == text.size()) {
        parts.mode = rules.mode == TimeMode::Own ? TimeMode::Hours : rules.mode;
        return true;
    }
    const char separator = text[digits];
    if (separator != ':' && separator != rules.hundredthsPoint)
        return false;
    parts.mode = separator == ':' ? TimeMode::Minutes : TimeMode::Hundredths;
    parts.fraction = text.substr(digits + 1);
    return parts.fraction.size() == kFractionDigits && AreDigits(parts.fraction) &&
           (rules.mode == TimeMode::Own || rules.mode == parts.mode);
}

bool SplitUnseparated(std::string_view text, TimeMode mode, Parts& parts)
{
    parts.mode = mode == TimeMode::Own ? TimeMode::Hours : mode;
    const std::size_t fraction = parts.mode == TimeMode::Hours ? 0 : kFractionDigits;
    if (text.size() < fraction || !AreDigits(text))
        return false;
    parts.hours = text.substr(0, text.size() - fraction);
    parts.fraction = text.substr(text.size() - fraction);
    return true;
}

/// Two digits, a colon and two digits: what is typed most. Anything else is left to the general
/// reading; false then.
bool ReadPlainTime(std::string_view text, Duration& value)
{
    if (text.size() != 5 || text[2] != ':')
        return false;
    const auto digit = [text](std::size_t at) {
        return static_cast<unsigned char>(text[at]) - unsigned{'0'};
    };
    if (digit(0) > 9 || digit(1) > 9 || digit(3) > 5 || digit(4) > 9)
        return false;
    const std::uint32_t hours = digit(0) * 10 + digit(1);
    const std::uint32_t minutes = digit(3) * 10 + digit(4);
    const std::uint32_t units = hours * kUnitsPerHour + minutes * kUnitsPerMinute;
    value = {static_cast<std::int32_t>(units), TimeMode::Minutes};
    return true;
}

void DropFill(std::string_view& rest, const TimeRules& rules)
{
    if (rules.hourWidth > 0 && rules.fill != '0')
        rest.remove_prefix(std::min(rest.find_first_not_of(rules.fill), rest.size()));
}

Status UnitsOf(const Parts& parts, const TimeRules& rules, std::uint32_t& units)
{
    std::string_view digits = parts.hours;
    if (digits.size() > kDigits64)
        digits = WithoutLeadingZeros(digits);
    const std::uint64_t typedHours = digits.size() <= kDigits64 ? ValueOf(digits) : UINT64_MAX;
    const auto steps = static_cast<std::uint32_t>(ValueOf(parts.fraction));
    if (typedHours > kMostHours || (parts.mode == TimeMode::Minutes && steps >= 60))
        return Status::OutOfRange;
    const auto hours = static_cast<std::uint32_t>(typedHours);
    if (rules.mostHourDigits != 0 && zelrt::CountDigits(hours) > rules.mostHourDigits)
        return Status::TooLong;
    units = hours * kUnitsPerHour + steps * UnitsPerStep(parts.mode);
    return Status::Ok;
}

} // namespace

const TimeRules& TimeRulesOfMode(const ModeRules& mode) noexcept
{
    return mode.technical ? kTechnical : kStandard;
}

Status ShowDuration(Duration value, const TimeRules& rules, TextBuffer& text)
{
    const char sign = SignOf(value.units, rules);
    if (sign == '-' && rules.sign.place == SignPlace::None)
        return Status::NotAllowed;
    const TimeMode mode = ModeToShow(value, rules);
    // Without a separator the text would be taken for whole hours.
    if (!rules.separated && rules.mode == TimeMode::Own && mode != value.mode)
        return Status::NotAllowed;

    const std::uint32_t magnitude = value.units < 0 ? 0U - static_cast<std::uint32_t>(value.units)
                                                    : static_cast<std::uint32_t>(value.units);
    char hourDigits[zelrt::kMostDigits32];
    const std::string_view hours(hourDigits,
                                 zelrt::WriteDigits(magnitude / kUnitsPerHour, hourDigits));
    if (rules.mostHourDigits != 0 && hours.size() > rules.mostHourDigits)
        return Status::NotAllowed;
    const std::size_t padding = rules.hourWidth > hours.size() ? rules.hourWidth - hours.size() : 0;

    constexpr std::size_t signAndFraction = 2 + kFractionDigits;
    char* out = text.Make(padding + hours.size() + signAndFraction);
    // Zeros belong to the digits and stand behind the sign, everything else stands before it.
    if (rules.fill != '0')
        out = std::fill_n(out, padding, rules.fill);
    if (sign != '\0' && rules.sign.place == SignPlace::Front)
        *out++ = sign;
    if (rules.fill == '0')
        out = std::fill_n(out, padding, '0');
    out = Put(hours, out);
    if (mode != TimeMode::Hours) {
        if (rules.separated)
            *out++ = SeparatorOf(mode, rules);
        out = zelrt::WriteTwoDigits(magnitude % kUnitsPerHour / UnitsPerStep(mode), out);
    }
    if (sign != '\0' && rules.sign.place == SignPlace::Behind)
        *out++ = sign;
    text.EndAt(out);
    return Status::Ok;
}

Status ReadDuration(std::string_view text, const TimeRules& rules, Duration& value)
{
    if (rules.plain && ReadPlainTime(text, value))
        return Status::Ok;
    std::string_view rest = TrimBlanks(text);
    char sign = '\0';
    DropFill(rest, rules);
    if (!TakeSign(rest, sign))
        return Status::Mismatch;
    Parts parts{};
    const TimeMode mode = rules.mode == TimeMode::Own ? value.mode : rules.mode;
    const bool split =
        rules.separated ? SplitSeparated(rest, rules, parts) : SplitUnseparated(rest, mode, parts);
    if (!split || parts.hours.empty())
        return Status::Mismatch;
    std::uint32_t units = 0;
    const Status status = UnitsOf(parts, rules, units);
    if (status != Status::Ok)
        return status;
    if (sign != '\0' && rules.sign.place == SignPlace::None)
        return sign == '-' ? Status::NotAllowed : Status::Mismatch;
    const auto magnitude = static_cast<std::int32_t>(units);
    value = {sign == '-' ? -magnitude : magnitude, parts.mode};
    return Status::Ok;
}

} // namespace zelformat
