#ifndef ZELDT_PLATFORM_FORMATS_USUALTEXTS_H
#define ZELDT_PLATFORM_FORMATS_USUALTEXTS_H

/// Texts as most are typed, read at once and without a CString. The operations of ZelFormat begin
/// with the same functions; what these do not read is left to the general reading, which also tells
/// what is wrong with a text. Private to this project; not installed.

#include "platform/formats/ZelFormat.h"
#include "platform/formats/datetext.h"
#include "platform/formats/numbertext.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/dotteddate.h"
#include "platform/runtime/exactpowers.h"
#include "platform/runtime/shorttext.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <typeinfo>

namespace zelformat {

struct RulesAccess {
    /// Null for a format of a derived class, which may read in its own way.
    static const Rules* Of(const ZelFormat& format) noexcept
    {
        return typeid(format) == typeid(ZelFormat) ? &format.m_rules : nullptr;
    }
};

// Numbers

/// Null for rules that do not serve numbers.
inline const NumberRules* NumberRulesFor(const Rules& rules) noexcept
{
    if (const auto* mode = std::get_if<ModeRules>(&rules))
        return &NumberRulesOfMode(*mode);
    return std::get_if<NumberRules>(&rules);
}

/// Optional minus and at most ten digits, nothing else: what is typed most.
inline bool ReadPlainInteger(std::string_view text, std::int64_t& value) noexcept
{
    const bool negative = !text.empty() && text[0] == '-';
    const std::string_view digits = text.substr(negative ? 1 : 0);
    std::uint64_t magnitude = 0;
    if (digits.empty() || digits.size() > zelrt::kMostDigits32 ||
        !zelrt::ReadUpTo16Digits(digits.data(), digits.size(), magnitude))
        return false;
    value = static_cast<std::int64_t>(magnitude);
    if (negative)
        value = -value;
    return true;
}

template <typename Integer>
bool ReadUsualInteger(const ZelFormat& format, std::string_view text, Integer& value) noexcept
{
    const Rules* const rules = RulesAccess::Of(format);
    const NumberRules* const number = rules != nullptr ? NumberRulesFor(*rules) : nullptr;
    std::int64_t read = 0;
    // A plain number is never shown longer than it was typed.
    if (number == nullptr || !number->plain ||
        (number->places != 0 && text.size() > number->places) || !ReadPlainInteger(text, read) ||
        read < std::numeric_limits<Integer>::min() || read > std::numeric_limits<Integer>::max())
        return false;
    value = static_cast<Integer>(read);
    return true;
}

/// A number as programs write it: a minus or none, digits without a needless zero in front, a point
/// and decimals or neither.
struct PlainNumber {
    bool negative;
    std::size_t decimals;
    std::uint64_t digits; ///< all of them, as a whole number
};

/// Takes digits off the front and appends them to `number`; returns where they end.
inline const char* TakePlainDigits(const char* next, const char* end,
                                   std::uint64_t& number) noexcept
{
    for (; next != end && zelrt::IsDigit(*next); ++next)
        number = number * 10 + static_cast<unsigned>(*next - '0');
    return next;
}

/// Reads such a number of at most 19 characters, by rules that take every one. False for any other
/// text and other rules.
inline bool ReadPlain(std::string_view text, const NumberRules& rules, PlainNumber& number) noexcept
{
    constexpr std::size_t mostDigits = 19; // which 64 bits hold
    const bool takesAll = rules.decimals == NumberRules::kAllDecimals && rules.places == 0 &&
                          rules.decimalPoint != '\0' && rules.sign.place != SignPlace::None;
    if (!takesAll || text.empty() || text.size() > mostDigits)
        return false;
    number = {text[0] == '-', 0, 0};
    const char* const first = text.data() + (number.negative ? 1 : 0);
    const char* const end = text.data() + text.size();
    const char* const point = TakePlainDigits(first, end, number.digits);
    if (point == first || (*first == '0' && point - first > 1))
        return false;
    if (point == end)
        return true;
    number.decimals = static_cast<std::size_t>(end - point) - 1;
    return *point == rules.decimalPoint && number.decimals != 0 &&
           TakePlainDigits(point + 1, end, number.digits) == end;
}

inline bool ReadUsualNumber(const ZelFormat& format, std::string_view text,
                            PlainNumber& number) noexcept
{
    const Rules* const rules = RulesAccess::Of(format);
    const NumberRules* const numbers = rules != nullptr ? NumberRulesFor(*rules) : nullptr;
    return numbers != nullptr && ReadPlain(text, *numbers, number);
}

/// whole * 10^exponent, if that takes no more than one rounded operation.
inline bool ToDoubleAtOnce(std::uint64_t whole, std::int64_t exponent, double& magnitude) noexcept
{
    // Up to here a double holds every whole number.
    constexpr std::uint64_t exactLimit = std::uint64_t{1} << 53;
    const auto distance = static_cast<std::uint64_t>(exponent < 0 ? -exponent : exponent);
    if (whole > exactLimit || distance >= zelrt::kExactPowersOfTen.size())
        return false;
    const auto number = static_cast<double>(whole);
    magnitude = exponent < 0 ? number / zelrt::kExactPowersOfTen[distance]
                             : number * zelrt::kExactPowersOfTen[distance];
    return true;
}

/// A zero has no sign.
inline bool ToDouble(const PlainNumber& number, double& value) noexcept
{
    double magnitude = 0;
    if (!ToDoubleAtOnce(number.digits, -static_cast<std::int64_t>(number.decimals), magnitude))
        return false;
    value = number.negative && magnitude != 0 ? -magnitude : magnitude;
    return true;
}

inline bool ReadUsualDouble(const ZelFormat& format, std::string_view text, double& value) noexcept
{
    PlainNumber number{};
    return ReadUsualNumber(format, text, number) && ToDouble(number, value);
}

// Booleans and characters

/// "Ja" and "Nein". A value that is true already stays as it is.
inline bool ReadUsualBool(const ZelFormat& format, std::string_view text, BOOL& value) noexcept
{
    const Rules* const rules = RulesAccess::Of(format);
    const bool yes = text == "Ja";
    if (rules == nullptr || !std::holds_alternative<ModeRules>(*rules) || !(yes || text == "Nein"))
        return false;
    if ((value != 0) != yes)
        value = yes ? 1 : 0;
    return true;
}

inline bool ReadUsualChar(const ZelFormat& format, std::string_view text, char& value) noexcept
{
    const Rules* const rules = RulesAccess::Of(format);
    if (rules == nullptr || !std::holds_alternative<ModeRules>(*rules) || text.size() != 1)
        return false;
    value = text[0];
    return true;
}

// Dates

struct TimeOfDay {
    int hour;
    int minute;
    int second;
};

inline constexpr std::string_view kMomentShape = "00.00.0000 00:00";

/// Reads "dd.mm.yyyy hh:mm" and, which is its midnight, "dd.mm.yyyy", by rules that take them;
/// whether the calendar has the numbers is not looked at. False for any other text and other rules;
/// the numbers may be changed then.
inline bool ReadPlainMoment(std::string_view text, const DateRules& rules, zelrt::DateNumbers& date,
                            TimeOfDay& time) noexcept
{
    const bool digitsAlone = !rules.twoDigits.on || rules.twoDigits.with == '0';
    const bool dateWithTime = rules.parts != DateParts::Date && rules.parts != DateParts::Minutes;
    if (rules.separator != '.' || !digitsAlone || !dateWithTime ||
        rules.month != MonthStyle::Number)
        return false;
    if (text.size() == zelrt::kDottedDateLength) {
        time = {0, 0, 0};
        return zelrt::ReadDottedDate(text.data(), date);
    }
    if (text.size() != kMomentShape.size())
        return false;

    // What is as it should be becomes 0 to 9 where digits stand and 0 elsewhere.
    const auto load = [](std::string_view bytes) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data()));
    };
    const __m128i most = _mm_setr_epi8(9, 9, 0, 9, 9, 0, 9, 9, 9, 9, 0, 9, 9, 0, 9, 9);
    const __m128i read = _mm_xor_si128(load(text), load(kMomentShape));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(_mm_max_epu8(read, most), most)) != 0xFFFF)
        return false;

    std::array<unsigned char, kMomentShape.size()> digits{};
    std::memcpy(digits.data(), &read, sizeof read);
    const auto numberAt = [&digits](std::size_t at) { return digits[at] * 10 + digits[at + 1]; };
    date = {numberAt(0), numberAt(3), numberAt(6) * 100 + numberAt(8)};
    time = {numberAt(11), numberAt(14), 0};
    return true;
}

/// The same by a format; only the modes are usual.
inline bool ReadUsualMoment(const ZelFormat& format, std::string_view text, DateScope scope,
                            zelrt::DateNumbers& date, TimeOfDay& time) noexcept
{
    const Rules* const rules = RulesAccess::Of(format);
    const auto* const mode = rules != nullptr ? std::get_if<ModeRules>(rules) : nullptr;
    return mode != nullptr && ReadPlainMoment(text, DateRulesOfMode(*mode, scope), date, time);
}

} // namespace zelformat

#endif
