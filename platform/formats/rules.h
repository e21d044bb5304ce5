#ifndef ZELDT_PLATFORM_FORMATS_RULES_H
#define ZELDT_PLATFORM_FORMATS_RULES_H

/// What a display format says, as plain data. ZelFormat keeps one of these sets, made and checked
/// by its constructors; the text routines read them. Callers have no use for them.

#include <cstdint>
#include <variant>

namespace zelformat {

enum class SignPlace : unsigned char { None, Front, Behind };

struct SignRules {
    SignPlace place;
    bool plus; ///< numbers above zero show a plus sign
};

struct Fill {
    bool on;
    char with;
};

struct NumberRules {
    static constexpr std::uint32_t kAllDecimals = 0xFFFFFFFFU;

    std::uint32_t places;   ///< most characters, sign and separators included; 0: no limit
    std::uint32_t decimals; ///< always shown; kAllDecimals: as many as the number has
    char decimalPoint;      ///< NUL: fixed decimals follow the integer part directly
    char group;             ///< shown between groups of three digits; NUL: none
    char readGroup;         ///< accepted between groups; NUL: none
    SignRules sign;
    Fill left;
    Fill right;
    bool plain; ///< an integer is shown as its digits behind an optional minus sign
};

/// How the fraction of an hour is written; the numbers are those of the time format.
enum class TimeMode : unsigned char { Hundredths, Minutes, Hours, Own };

struct TimeRules {
    TimeMode mode;
    bool separated; ///< a separator stands between hours and fraction
    char hundredthsPoint;
    SignRules sign;
    std::uint32_t mostHourDigits; ///< 0: no limit
    std::uint32_t hourWidth;      ///< hours are filled up to so many digits
    char fill;
    bool plain; ///< digits, a colon and two digits are read as hours and minutes
};

enum class DateParts : unsigned char {
    Date,
    DateTypedTime, ///< shows the date alone, reads a time of day as well
    DateMinutes,
    DateSeconds,
    DateTimeIfAny, ///< as DateTime, without the time at midnight
    Minutes,
    DateTime ///< hours and minutes, seconds when not 0
};

enum class MonthStyle : unsigned char { Number, ShortName, FullName };

struct DateRules {
    DateParts parts;
    char separator; ///< NUL: none
    bool twoDigitYear;
    MonthStyle month;
    Fill twoDigits; ///< brings day, month number and hour to two places
};

enum class FillSide : unsigned char { None, Left, Right };

struct TextRules {
    std::uint32_t most; ///< bytes; 0: any number
    std::uint32_t mask; ///< classes of bytes that are allowed
    FillSide side;
    char fill;
};

/// Shows every type in a way of its own.
struct ModeRules {
    bool technical;
};

/// std::monostate: an argument of the constructor was not valid; nothing can be shown or read.
using Rules = std::variant<std::monostate, NumberRules, TimeRules, DateRules, TextRules, ModeRules>;

} // namespace zelformat

#endif
