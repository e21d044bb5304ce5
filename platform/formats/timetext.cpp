#include "platform/formats/timetext.h"

#include "platform/formats/numberscan.h"

#include <algorithm>
#include <charconv>

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
            .fill = '0'};
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

std::string TwoDigits(std::uint32_t number)
{
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

/// A text of hours and fraction taken apart.
struct Parts {
    TimeMode mode;
    std::string_view hours;
    std::string_view fraction; ///< two digits, or empty
};

bool SplitSeparated(std::string_view text, const TimeRules& rules, Parts& parts)
{
    const char separators[] = {':', rules.hundredthsPoint};
    const std::size_t at = text.find_first_of(std::string_view(separators, sizeof separators));
    parts.hours = text.substr(0, at);
    if (at == text.npos) {
        parts.mode = rules.mode == TimeMode::Own ? TimeMode::Hours : rules.mode;
        return true;
    }
    parts.mode = text[at] == ':' ? TimeMode::Minutes : TimeMode::Hundredths;
    parts.fraction = text.substr(at + 1);
    return parts.fraction.size() == kFractionDigits &&
           (rules.mode == TimeMode::Own || rules.mode == parts.mode);
}

bool SplitUnseparated(std::string_view text, TimeMode mode, Parts& parts)
{
    parts.mode = mode == TimeMode::Own ? TimeMode::Hours : mode;
    if (parts.mode == TimeMode::Hours) {
        parts.hours = text;
        return true;
    }
    if (text.size() <= kFractionDigits)
        return false;
    parts.hours = text.substr(0, text.size() - kFractionDigits);
    parts.fraction = text.substr(text.size() - kFractionDigits);
    return true;
}

void DropFill(std::string_view& rest, const TimeRules& rules)
{
    if (rules.hourWidth > 0 && rules.fill != '0')
        rest.remove_prefix(std::min(rest.find_first_not_of(rules.fill), rest.size()));
}

Status UnitsOf(const Parts& parts, const TimeRules& rules, std::uint32_t& units)
{
    const std::string_view hourDigits = WithoutLeadingZeros(parts.hours);
    std::uint32_t hours = 0;
    std::uint32_t steps = 0;
    const char* const end = hourDigits.data() + hourDigits.size();
    if (std::from_chars(hourDigits.data(), end, hours).ec != std::errc{} || hours > kMostHours)
        return Status::OutOfRange;
    std::from_chars(parts.fraction.data(), parts.fraction.data() + parts.fraction.size(), steps);
    if (parts.mode == TimeMode::Minutes && steps >= 60)
        return Status::OutOfRange;
    if (rules.mostHourDigits != 0 && hourDigits.size() > rules.mostHourDigits)
        return Status::TooLong;
    units = hours * kUnitsPerHour + steps * UnitsPerStep(parts.mode);
    return Status::Ok;
}

} // namespace

const TimeRules& TimeRulesOfMode(const ModeRules& mode) noexcept
{
    return mode.technical ? kTechnical : kStandard;
}

Status ShowDuration(Duration value, const TimeRules& rules, std::string& text)
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
    const std::string hours = std::to_string(magnitude / kUnitsPerHour);
    if (rules.mostHourDigits != 0 && hours.size() > rules.mostHourDigits)
        return Status::NotAllowed;
    const std::string padding(rules.hourWidth > hours.size() ? rules.hourWidth - hours.size() : 0,
                              rules.fill);

    // Zeros belong to the digits and stand behind the sign, everything else stands before it.
    std::string shown = rules.fill == '0' ? std::string() : padding;
    if (sign != '\0' && rules.sign.place == SignPlace::Front)
        shown += sign;
    if (rules.fill == '0')
        shown += padding;
    shown += hours;
    if (mode != TimeMode::Hours) {
        if (rules.separated)
            shown += SeparatorOf(mode, rules);
        shown += TwoDigits(magnitude % kUnitsPerHour / UnitsPerStep(mode));
    }
    if (sign != '\0' && rules.sign.place == SignPlace::Behind)
        shown += sign;
    text = std::move(shown);
    return Status::Ok;
}

Status ReadDuration(std::string_view text, const TimeRules& rules, Duration& value)
{
    std::string_view rest = TrimBlanks(text);
    char sign = '\0';
    DropFill(rest, rules);
    if (!TakeSign(rest, sign))
        return Status::Mismatch;
    Parts parts{};
    const TimeMode mode = rules.mode == TimeMode::Own ? value.mode : rules.mode;
    const bool split =
        rules.separated ? SplitSeparated(rest, rules, parts) : SplitUnseparated(rest, mode, parts);
    if (!split || parts.hours.empty() || !AreDigits(parts.hours) || !AreDigits(parts.fraction))
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
