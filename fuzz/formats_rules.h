#ifndef ZELDT_FUZZ_FORMATS_RULES_H
#define ZELDT_FUZZ_FORMATS_RULES_H

/// What a value that a format has shown must be when the format reads it again.

#include <ZelDt.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <type_traits>

enum class Kind { Number, Time, Date, Text, Mode };

/// What a format was made of, as far as the checks have to know.
struct Settings {
    Kind kind = Kind::Mode;
    unsigned long places = 0;
    unsigned long decimals = ZelFormat::kulZelFoAlleDezimalen;
    bool filled = false;
    bool fillsDecimals = false;
    ZelFormat::FormatAuffuellen side = ZelFormat::ZelFoAuffuellenOhne;
    char fill = '\0';
    int timeKind = ZelFormat::ZelFoZeitEigene;
    int dateKind = ZelFormat::ZelFoDatumZeitWennVorhanden;
    bool twoDigitYear = false;
};

/// What a class adds to the checks that all share: the kind of format that counts its places,
/// whether a shown value may be refused when it is read again, what it then has to be, and whether
/// it has to be shown as before.
template <typename Value>
struct Rules;

struct CommonRules {
    static constexpr Kind kind = Kind::Number;
    template <typename Value>
    static bool MayBeRefused(const Value&, const CString&, unsigned long)
    {
        return false;
    }
    template <typename Value>
    static bool IsBack(const Value& shown, const Value& read, const Settings&)
    {
        return shown == read;
    }
    template <typename Value>
    static bool TextIsBack(const Value&, const Settings&)
    {
        return true;
    }
};

template <>
struct Rules<ZelDtLong> : CommonRules {};

template <>
struct Rules<ZelDtShort> : CommonRules {};

inline bool DropsDecimals(const Settings& settings)
{
    return settings.kind == Kind::Number && settings.decimals != ZelFormat::kulZelFoAlleDezimalen;
}

template <>
struct Rules<ZelDtDouble> : CommonRules {
    static bool IsBack(const ZelDtDouble& shown, const ZelDtDouble& read, const Settings& settings)
    {
        if (!DropsDecimals(settings))
            return shown == read;
        const double tolerance = 0.501 * std::pow(10.0, -static_cast<double>(settings.decimals)) +
                                 1E-15 * std::fabs(shown.GetValue());
        return std::fabs(shown.GetValue() - read.GetValue()) <= tolerance;
    }
    /// Zeros that rounding leaves are no decimals of the number that is read.
    static bool TextIsBack(const ZelDtDouble&, const Settings& settings)
    {
        return !settings.fillsDecimals;
    }
};

template <>
struct Rules<ZelDtDecimal> : CommonRules {
    /// Numbers from records may be longer than any text that is read.
    static bool MayBeRefused(const ZelDtDecimal&, const CString& shown, unsigned long number)
    {
        return (number == 11 && shown.GetLength() > 38) || (number == 24 && shown.GetLength() > 28);
    }
    static bool IsBack(const ZelDtDecimal& shown, const ZelDtDecimal& read,
                       const Settings& settings)
    {
        if (DropsDecimals(settings) || !HasUsualPlaces(shown))
            return true;
        return shown == read && read.GetPrecision() == shown.GetPrecision();
    }
    static bool TextIsBack(const ZelDtDecimal& shown, const Settings&)
    {
        return HasUsualPlaces(shown);
    }
    /// Numbers from records may have places that no typed number has.
    static bool HasUsualPlaces(const ZelDtDecimal& value)
    {
        return value.GetPrecision() >= 0 && value.GetPrecision() <= 27;
    }
};

template <>
struct Rules<ZelDtBool> : CommonRules {
    static constexpr Kind kind = Kind::Mode;
    static bool IsBack(const ZelDtBool& shown, const ZelDtBool& read, const Settings&)
    {
        return (shown.IsTrue() != 0) == (read.IsTrue() != 0);
    }
};

template <>
struct Rules<ZelDtChar> : CommonRules {
    static constexpr Kind kind = Kind::Text;
    /// The fill character alone is nothing but fill.
    static bool MayBeRefused(const ZelDtChar& value, const CString& shown, unsigned long number)
    {
        const std::string_view text(shown, static_cast<std::size_t>(shown.GetLength()));
        return number == 11 && text.find_first_not_of(value.GetValue()) == text.npos;
    }
};

template <>
struct Rules<ZelDtString> : CommonRules {
    static constexpr Kind kind = Kind::Text;
    static bool IsBack(const ZelDtString& shown, const ZelDtString& read, const Settings& settings)
    {
        std::string_view expected(shown, static_cast<std::size_t>(shown.GetLength()));
        if (settings.kind == Kind::Text && settings.side == ZelFormat::ZelFoAuffuellenLinks)
            expected.remove_prefix(
                std::min(expected.find_first_not_of(settings.fill), expected.size()));
        if (settings.kind == Kind::Text && settings.side == ZelFormat::ZelFoAuffuellenRechts)
            expected = expected.substr(0, expected.find_last_not_of(settings.fill) + 1);
        return expected == std::string_view(read, static_cast<std::size_t>(read.GetLength()));
    }
    /// Dropped fill may leave nothing, an undefined text.
    static bool TextIsBack(const ZelDtString&, const Settings&) { return false; }
};

template <typename DateTime>
struct DateRules : CommonRules {
    static constexpr Kind kind = Kind::Date;
    static bool MayBeRefused(const DateTime& value, const CString&, unsigned long number)
    {
        return number == 27 && value.GetYear() < 1753;
    }
    static bool IsBack(const DateTime& shown, const DateTime& read, const Settings& settings)
    {
        return DateIsBack(shown, read, settings) && TimeIsBack(shown, read, settings);
    }
    static bool DateIsBack(const DateTime& shown, const DateTime& read, const Settings& settings)
    {
        const bool ofDates = settings.kind == Kind::Date;
        if (ofDates && settings.dateKind == ZelFormat::ZelFoUhrzeit)
            return true;
        const int years = ofDates && settings.twoDigitYear ? 100 : 100000;
        return read.GetYear() % years == shown.GetYear() % years &&
               read.GetMonth() == shown.GetMonth() && read.GetDay365() == shown.GetDay365();
    }
    static bool TimeIsBack(const DateTime& shown, const DateTime& read, const Settings& settings)
    {
        const bool ofDates = settings.kind == Kind::Date;
        if (std::is_same_v<DateTime, ZelDtDateZp> ||
            (ofDates && settings.dateKind == ZelFormat::ZelFoDatum))
            return true;
        const bool seconds = !ofDates || settings.dateKind == ZelFormat::ZelFoDatumSekunden ||
                             settings.dateKind == ZelFormat::ZelFoDatumZeitWennVorhanden;
        return read.GetHour() == shown.GetHour() && read.GetMin() == shown.GetMin() &&
               (!seconds || read.GetSecond() == shown.GetSecond());
    }
};

template <>
struct Rules<ZelDtDateTime> : DateRules<ZelDtDateTime> {};

template <>
struct Rules<ZelDtDateZp> : DateRules<ZelDtDateZp> {};

template <>
struct Rules<ZelDtTime> : CommonRules {
    static constexpr Kind kind = Kind::Time;
    /// Times of more hours than texts may name are shown all the same.
    static bool MayBeRefused(const ZelDtTime& value, const CString&, unsigned long number)
    {
        return number == 8 && std::labs(value.GetHour()) > 1789568;
    }
    static bool IsBack(const ZelDtTime& shown, const ZelDtTime& read, const Settings& settings)
    {
        const bool fixed =
            settings.kind == Kind::Time && settings.timeKind != ZelFormat::ZelFoZeitEigene;
        const ZelDtTime::TimeMode mode = read.GetMode();
        const bool modeIsBack = fixed ? static_cast<int>(mode) == settings.timeKind
                                      : mode == shown.GetMode() || mode == ZelDtTime::Minuten;
        return modeIsBack && read.GetTime(mode) == shown.GetTime(mode);
    }
    /// A dropped fraction may leave a zero, which has no sign.
    static bool TextIsBack(const ZelDtTime&, const Settings&) { return false; }
};

#endif
