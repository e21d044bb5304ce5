#include "datetime/IMP/DTTIMI.h"

#include "numeric/IMP/DTINTREP.h"
#include "platform/runtime/digits.h"

#include <algorithm>
#include <cstdlib>

namespace {

using zeldt::Arithmetic;
using zeldt::Computed;
using zeldt::ErrorNo;
using zeldt::Operation;
using zeldt::Raise;

using TimeMode = ZelDtTime::TimeMode;

constexpr Operation Op(const char* signature)
{
    return {"IMP/DTTIMI", "ZelDtTime_Imp", signature};
}

constexpr Operation kBuildTimeValue = Op("BuildTimeValue(LONG,LONG,TimeMode)");
constexpr Operation kConvStringToTime = Op("ConvStringToTime (LPCTSTR,TimeMode)");

constexpr std::int32_t kUnitsPerHour = ZelDtTime_Imp::kUnitsPerHour;
constexpr std::int32_t kUnitsPerMinute = ZelDtTime_Imp::UnitsPerStep(ZelDtTime::Minuten);
constexpr std::int32_t kMinutesPerHour = kUnitsPerHour / kUnitsPerMinute;

/// Most hours that a text may name.
constexpr std::int32_t kMostHours = 1'789'568;

constexpr std::size_t kFractionDigits = 2;
/// One digit of hours, the separator and the fraction.
constexpr std::size_t kLeastLength = 4;

// What external texts count in
constexpr std::int32_t kHoursPerDay = 24;
constexpr std::int32_t kMinutesPerDay = kHoursPerDay * kMinutesPerHour;
constexpr int kDaysPerMonth = 30;
constexpr int kMonthsPerYear = 12;

/// The hours and the fraction in steps of `unit`, whatever their size.
std::int32_t UnitsOf(std::int64_t hours, std::int64_t fraction, std::int32_t unit)
{
    const auto checked = [](auto result) { return zeldt::NumberOrRaise(kBuildTimeValue, result); };
    // With the fraction's whole hours carried, only a sum that does not fit anyway exceeds 64 bits.
    const std::int32_t stepsPerHour = kUnitsPerHour / unit;
    const std::int64_t whole =
        checked(Computed<Arithmetic::Add, std::int64_t>(hours, fraction / stepsPerHour));
    const std::int64_t units =
        checked(Computed<Arithmetic::Multiply, std::int64_t>(whole, kUnitsPerHour));
    return checked(Computed<Arithmetic::Add, std::int32_t>(units, fraction % stepsPerHour * unit));
}

/// The hours in front of a text, 0 without digits.
std::int32_t ReadHours(std::string_view text)
{
    const zelrt::Int32Text read = zelrt::ParseInt32(text.data(), text.data() + text.size());
    if (!read.inRange || read.value < -kMostHours || read.value > kMostHours)
        Raise(kConvStringToTime, ErrorNo::OutOfRange);
    return read.value;
}

/// The mode of a separator as the caller wants it read.
TimeMode CheckedMode(char separator, TimeMode wanted)
{
    if (separator == ':' && (wanted == ZelDtTime::Minuten || wanted == ZelDtTime::Eigener))
        return ZelDtTime::Minuten;
    if (separator == ',' && (wanted == ZelDtTime::Hundertstel || wanted == ZelDtTime::Eigener))
        return ZelDtTime::Hundertstel;
    Raise(kConvStringToTime, ErrorNo::FormatNotKept);
}

/// The two digits of a fraction.
std::int32_t ReadFraction(std::string_view digits, TimeMode mode)
{
    if (!zelrt::IsDigit(digits[0]) || !zelrt::IsDigit(digits[1]))
        Raise(kConvStringToTime, ErrorNo::FormatNotKept);
    const std::int32_t fraction = (digits[0] - '0') * 10 + (digits[1] - '0');
    if (mode == ZelDtTime::Minuten && fraction >= kMinutesPerHour)
        Raise(kConvStringToTime, ErrorNo::OutOfRange);
    return fraction;
}

/// Writes a number with at least `places` digits and returns the end.
char* WriteNumber(char* text, std::int64_t number, int places)
{
    char* end = text;
    for (; number != 0 || end - text < places; number /= 10)
        *end++ = static_cast<char>('0' + number % 10);
    std::reverse(text, end);
    return end;
}

/// The number that `count` digits stand for; takes them off the text.
std::int64_t TakeNumber(std::string_view& digits, std::size_t count)
{
    std::int64_t number = 0;
    for (const char c : digits.substr(0, count))
        number = number * 10 + (c - '0');
    digits.remove_prefix(count);
    return number;
}

} // namespace

ZelDtTime_Imp::ZelDtTime_Imp(std::int64_t hours, std::int64_t fraction, TimeMode timeMode)
    : value(0), mode(timeMode == ZelDtTime::Eigener ? ZelDtTime::Minuten : timeMode)
{
    BuildTimeValue(hours, fraction, mode);
}

ZelDtTime_Imp::ZelDtTime_Imp(std::string_view text, TimeMode timeMode)
    : value(0), mode(ConvStringToTime(text, timeMode))
{}

void ZelDtTime_Imp::BuildTimeValue(std::int64_t hours, std::int64_t fraction, TimeMode timeMode)
{
    value = UnitsOf(hours, timeMode == ZelDtTime::Stunden ? 0 : fraction, UnitsPerStep(timeMode));
}

void ZelDtTime_Imp::SetHours(std::int64_t hours)
{
    value = UnitsOf(hours, value % kUnitsPerHour, 1);
}

TimeMode ZelDtTime_Imp::ConvStringToTime(std::string_view text, TimeMode wanted)
{
    if (text.find_first_of(",:") == std::string_view::npos) {
        BuildTimeValue(ReadHours(text), 0, ZelDtTime::Stunden);
        return wanted == ZelDtTime::Eigener ? ZelDtTime::Stunden : wanted;
    }
    if (text.size() < kLeastLength)
        Raise(kConvStringToTime, ErrorNo::FormatNotKept);
    const std::size_t separator = text.size() - kFractionDigits - 1;
    const TimeMode used = CheckedMode(text[separator], wanted);
    const std::int32_t fraction = ReadFraction(text.substr(separator + 1), used);
    const std::int32_t hours = ReadHours(text.substr(0, separator));
    const bool signedText = text.front() == '-';
    if (hours < 0 && !signedText)
        Raise(kConvStringToTime, ErrorNo::OutOfRange);
    const bool negative = hours < 0 || (hours == 0 && signedText);
    BuildTimeValue(hours, negative ? -fraction : fraction, used);
    return used;
}

zeldt::TimeText::TimeText(std::int32_t units, TimeMode mode) noexcept
{
    const std::int64_t magnitude = std::abs(std::int64_t{units});
    char* end = m_text;
    if (units < 0)
        *end++ = '-';
    end = WriteNumber(end, magnitude / kUnitsPerHour, 2);
    if (mode != ZelDtTime::Stunden) {
        *end++ = mode == ZelDtTime::Hundertstel ? ',' : ':';
        end = WriteNumber(end, magnitude % kUnitsPerHour / ZelDtTime_Imp::UnitsPerStep(mode), 2);
    }
    m_length = static_cast<std::size_t>(end - m_text);
}

zeldt::ExternTime::ExternTime(std::int32_t units) noexcept
{
    const std::int64_t minutes = std::abs(std::int64_t{units}) / kUnitsPerMinute;
    const std::int64_t hours = minutes / kMinutesPerHour;
    const std::int64_t days = hours / kHoursPerDay;
    const std::int64_t months = days / kDaysPerMonth;
    const bool hasDate = days != 0;
    const bool hasTime = minutes % kMinutesPerDay != 0;

    char* end = m_text;
    *end++ = !hasDate ? 'T' : hasTime ? 'C' : 'D';
    if (units <= -kUnitsPerHour)
        *end++ = '-';
    if (hasDate) {
        end = WriteNumber(end, days % kDaysPerMonth, 2);
        end = WriteNumber(end, months % kMonthsPerYear, 2);
        end = WriteNumber(end, months / kMonthsPerYear, 4);
    }
    if (hasTime || !hasDate) {
        end = WriteNumber(end, hours % kHoursPerDay, 2);
        end = WriteNumber(end, minutes % kMinutesPerHour, 2);
        end = WriteNumber(end, 0, 2);
    }
    *end = '\0';
}

std::optional<std::int64_t> zeldt::ReadExternTime(std::string_view text) noexcept
{
    const char letter = text.empty() ? '\0' : text.front();
    const bool hasDate = letter == 'D' || letter == 'C';
    const bool hasTime = letter == 'T' || letter == 'C';
    if (!hasDate && !hasTime)
        return {};
    text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    constexpr std::size_t dateLength = 8;
    constexpr std::size_t timeLength = 6;
    if (text.size() != (hasDate ? dateLength : 0) + (hasTime ? timeLength : 0) ||
        !std::all_of(text.begin(), text.end(), zelrt::IsDigit))
        return {};

    std::int64_t hours = 0;
    std::int64_t minutes = 0;
    if (hasDate) {
        const std::int64_t days = TakeNumber(text, 2);
        const std::int64_t months = TakeNumber(text, 2);
        const std::int64_t years = TakeNumber(text, 4);
        hours = ((years * kMonthsPerYear + months) * kDaysPerMonth + days) * kHoursPerDay;
    }
    if (hasTime) {
        hours += TakeNumber(text, 2);
        minutes = TakeNumber(text, 2);
    }
    const std::int64_t units = hours * kUnitsPerHour + minutes * kUnitsPerMinute;
    return negative ? -units : units;
}
