#ifndef ZELDT_TESTS_DDX_EXCHANGE_TESTING_H
#define ZELDT_TESTS_DDX_EXCHANGE_TESTING_H

/// What the tests of the exchange with edit controls know about every class: its values, the texts
/// that people type for them, the texts it shows, and where its errors come from.

#include "datetime/DTDATIME.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "ddx/DTDDXFKT.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "platform/formats/ZelFormat.h"
#include "tests/ddx/dialog_testing.h"
#include "tests/support/zel_testing.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/DTSTRING.h"

#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

namespace zeltest {

/// A typed text and what is stored then.
struct Typed {
    const char* text;
    const char* stored; ///< as StoredIn tells it
};

/// A typed text that is no value, and the number of the first error that says so.
struct Rejected {
    const char* text;
    unsigned long cause;
};

/// A value and how it is shown.
template <typename Value>
struct Shown {
    Value value;
    const char* text;
};

/// What a defined value stores, without display: its SQL text, with the mode of a time behind it.
template <typename Value>
std::string StoredIn(const Value& value)
{
    if constexpr (std::is_base_of_v<ZelDtDateTime, Value>)
        return static_cast<const char*>(value.ConvToSQL(SQL_DatumUhrzeit));
    else if constexpr (std::is_same_v<Value, ZelDtTime>)
        return std::string(value.ConvToSQL()) + " mode " + std::to_string(value.GetMode());
    else
        return static_cast<const char*>(value.ConvToSQL());
}

/// A date format with two digits for day, month and hour.
inline ZelFormat DateFormat(ZelFormat::FormatDatumArt kind, ZelFormat::FormatDatumTrenner separator)
{
    return ZelFormat(kind, separator, ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1,
                     '0');
}

/// Numbers with points between groups, the sign behind.
inline ZelFormat NumberFormat(unsigned long decimals)
{
    return ZelFormat(0, decimals,
                     decimals == 0 ? ZelFormat::ZelFoDezimalOhne : ZelFormat::ZelFoDezimalKomma,
                     ZelFormat::ZelFoTausenderPunkt, ZelFormat::ZelFoVorzeichenHinten,
                     ZelFormat::ZelFoNurMinus, 0, '0', 0, '0');
}

inline ZelFormat TextFormat(unsigned long most, unsigned long mask)
{
    return ZelFormat(most, mask, ZelFormat::ZelFoAuffuellenRechts, '.');
}

inline ZelFormat HundredthsFormat()
{
    return ZelFormat(ZelFormat::ZelFoZeitHundertstel, ZelFormat::ZelFoZeitMitTrenner,
                     ZelFormat::ZelFoVorzeichenHinten, ZelFormat::ZelFoNurMinus, 0, 0, '0');
}

/// What distinguishes the classes.
///
/// kExchange: the signature text of the exchange. Some(): a defined value that is not Zero();
/// kSomeText: how it is shown. NoTexts(): what no value is
/// typed as; every text is a string. Own(): a format for the class; OwnText: how Some() is shown by
/// it; OwnTyped: what is read by it, and rejected, or read as something else, without it. Unfit():
/// a format of the wrong kind. ReadError and ShowError: where the class's errors come from.
template <typename Value>
struct Facts;

template <>
struct Facts<ZelDtLong> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtLong&)";
    static constexpr const char* kSomeText = "1234567";
    static constexpr const char* kOwnText = "1.234.567";
    static constexpr Typed kOwnTyped = {"7.654.321-", "-7654321"};
    static ZelDtLong Some() { return 1234567; }
    static ZelDtLong Zero() { return 0; }
    static ZelFormat Own() { return NumberFormat(0); }
    static ZelFormat Unfit() { return TextFormat(0, ZelFormat::kulZelFoValidAll); }
    static Error ReadError()
    {
        return {1, "DTLONG", "ZelDtLong", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTLONG", "ZelDtLong", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"1234567", "1234567"},
                {"0", "0"},
                {"-12", "-12"},
                {"12-", "-12"},
                {" 12 ", "12"},
                {"007", "7"},
                {"1.234.567", "1234567"},
                {"2147483647", "2147483647"},
                {"-2147483648", "-2147483648"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},    {"   ", 21}, {"abc", 21}, {"12a", 21},       {"12,5", 21},
                {"1.23", 21}, {"--1", 21}, {"Ja", 21},  {"2147483648", 8}, {"-2147483649", 8}};
    }
    static std::vector<Shown<ZelDtLong>> Values()
    {
        return {
            {0, "0"}, {-12, "-12"}, {2147483647, "2147483647"}, {-2147483647 - 1, "-2147483648"}};
    }
};

template <>
struct Facts<ZelDtShort> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtShort&)";
    static constexpr const char* kSomeText = "12345";
    static constexpr const char* kOwnText = "12.345";
    static constexpr Typed kOwnTyped = {"23.456-", "-23456"};
    static ZelDtShort Some() { return 12345; }
    static ZelDtShort Zero() { return 0; }
    static ZelFormat Own() { return NumberFormat(0); }
    static ZelFormat Unfit() { return HundredthsFormat(); }
    static Error ReadError()
    {
        return {1, "DTSHORT", "ZelDtShort", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTSHORT", "ZelDtShort", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"12345", "12345"}, {"0", "0"},         {"-12", "-12"},      {" 12 ", "12"},
                {"1.234", "1234"},  {"32767", "32767"}, {"-32768", "-32768"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},    {"  ", 21},    {"abc", 21},      {"12,5", 21},
                {"32768", 8}, {"-32769", 8}, {"2147483648", 8}};
    }
    static std::vector<Shown<ZelDtShort>> Values()
    {
        return {{0, "0"}, {-12, "-12"}, {32767, "32767"}, {-32768, "-32768"}};
    }
};

template <>
struct Facts<ZelDtDouble> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtDouble&)";
    static constexpr const char* kSomeText = "1234,5";
    static constexpr const char* kOwnText = "1.234,50";
    static constexpr Typed kOwnTyped = {"4.321,25-", "-4321.25"};
    static ZelDtDouble Some() { return 1234.5; }
    static ZelDtDouble Zero() { return 0.0; }
    static ZelFormat Own() { return NumberFormat(2); }
    static ZelFormat Unfit()
    {
        return DateFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt);
    }
    static Error ReadError()
    {
        return {1, "DTDOUBLE", "ZelDtDouble", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTDOUBLE", "ZelDtDouble", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"1234,5", "1234.5"}, {"1.234,5", "1234.5"}, {"0", "0."},       {"-0,5", "-0.5"},
                {"1.234", "1234."},   {" 2,25 ", "2.25"},    {"1,5E3", "1500."}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},    {"   ", 21}, {"abc", 21},  {"1.5", 21},
                {"1,5x", 21}, {"nan", 21}, {"1E999", 8}, {"-1E999", 8}};
    }
    static std::vector<Shown<ZelDtDouble>> Values()
    {
        return {{0.0, "0"}, {-0.1, "-0,1"}, {1e15, "1E+15"}, {123456789.25, "123456789,25"}};
    }
};

template <>
struct Facts<ZelDtDecimal> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtDecimal&)";
    static constexpr const char* kSomeText = "1234,50";
    static constexpr const char* kOwnText = "1.234,50";
    static constexpr Typed kOwnTyped = {"4.321,25-", "-4321.25"};
    static ZelDtDecimal Some() { return "1234.50"; }
    static ZelDtDecimal Zero() { return 0; }
    static ZelFormat Own() { return NumberFormat(2); }
    static ZelFormat Unfit() { return TextFormat(9, ZelFormat::kulZelFoValidAll); }
    static Error ReadError()
    {
        return {1, "DTDECFKT", "ZelDtDecimal", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTDECFKT", "ZelDtDecimal", "ConvToOFL(ZelFormat *)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"1234,50", "1234.50"}, {"1.234,50", "1234.50"}, {"1,500", "1.500"},
                {"-0,05", "-0.05"},     {" 2,25 ", "2.25"},      {"19,99-", "-19.99"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21}, {"   ", 21}, {"abc", 21}, {"1.5", 21}, {"1,5E3", 21}, {"1,2,3", 21}};
    }
    static std::vector<Shown<ZelDtDecimal>> Values()
    {
        return {{"1.500", "1,500"},
                {"-0.05", "-0,05"},
                {"1234567890123456789012345.678", "1234567890123456789012345,678"}};
    }
};

template <>
struct Facts<ZelDtBool> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtBool&)";
    static constexpr const char* kSomeText = "Ja";
    static constexpr const char* kOwnText = "1";
    static constexpr Typed kOwnTyped = {"0", "\"0\""};
    static ZelDtBool Some() { return TRUE; }
    static ZelDtBool Zero() { return FALSE; }
    static ZelFormat Own() { return ZelFormat(ZelFormat::ZelFoTechnisch); }
    static ZelFormat Unfit() { return NumberFormat(0); }
    static Error ReadError()
    {
        return {1, "DTBOOL", "ZelDtBool",
                "VOID  ZelDtBool :: SetFromOFL ( LPCTSTR, const ZelFormat * )"};
    }
    static Error ShowError()
    {
        return {1, "DTBOOL", "ZelDtBool",
                "CString  ZelDtBool :: ConvToOFL ( const ZelFormat * ) const"};
    }
    static std::vector<Typed> Texts()
    {
        return {{"Ja", "\"1\""}, {"Nein", "\"0\""}, {"J", "\"1\""},  {"N", "\"0\""},
                {"1", "\"1\""},  {"0", "\"0\""},    {"jA", "\"1\""}, {"NEIN", "\"0\""},
                {"n", "\"0\""},  {" Ja ", "\"1\""}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21}, {"   ", 21}, {"vielleicht", 21}, {"2", 21}, {"Jaja", 21}, {"true", 21}};
    }
    static std::vector<Shown<ZelDtBool>> Values()
    {
        return {{TRUE, "Ja"}, {FALSE, "Nein"}, {5, "Ja"}, {2, "Ja"}};
    }
};

template <>
struct Facts<ZelDtChar> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtChar&)";
    static constexpr const char* kSomeText = "x";
    static constexpr const char* kOwnText = "x..";
    static constexpr Typed kOwnTyped = {"y..", "\"y\""};
    static ZelDtChar Some() { return 'x'; }
    static ZelDtChar Zero() { return '\0'; }
    static ZelFormat Own() { return TextFormat(3, ZelFormat::kulZelFoValidAll); }
    static ZelFormat Unfit() { return NumberFormat(0); }
    static Error ReadError()
    {
        return {1, "DTCHAR", "ZelDtChar", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTCHAR", "ZelDtChar", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"x", "\"x\""},       {"\xE4", "\"\xE4\""}, {"\xDF", "\"\xDF\""},
                {"\x80", "\"\x80\""}, {"\xFF", "\"\xFF\""}, {" ", "\" \""}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{"  ", 11}, {"xy", 11}, {"x ", 11}, {" x", 11}};
    }
    static std::vector<Shown<ZelDtChar>> Values()
    {
        return {{'a', "a"}, {' ', " "}, {'\xDC', "\xDC"}, {'\x9F', "\x9F"}, {'\0', ""}};
    }
};

template <>
struct Facts<ZelDtString> {
    /// Names another function than the others do.
    static constexpr const char* kExchange = "DDX_ZelDtString(CDataExchange*,int,ZelDtString&)";
    static constexpr const char* kSomeText = "abc";
    static constexpr const char* kOwnText = "abc..";
    static constexpr Typed kOwnTyped = {"xy...", "\"xy\""};
    static ZelDtString Some() { return "abc"; }
    static ZelDtString Zero() { return ""; }
    static ZelFormat Own() { return TextFormat(5, ZelFormat::kulZelFoValidAll); }
    static ZelFormat Unfit()
    {
        return DateFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt);
    }
    static Error ReadError()
    {
        return {1, "DTSTRFKT", "ZelDtString", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTSTRFKT", "ZelDtString", "ConvToOFL(ZelFormat)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"abc", "\"abc\""},
                {" ", "\" \""},
                {"   ", "\"   \""},
                {"NULL", "\"NULL\""},
                {" M\xFCller ", "\" M\xFCller \""},
                {"\"q\"", "\"\"\"q\"\"\""}};
    }
    static std::vector<Shown<ZelDtString>> Values()
    {
        return {{"", ""},
                {"  x\t", "  x\t"},
                {"Stra\xDF"
                 "e \x80",
                 "Stra\xDF"
                 "e \x80"}};
    }
};

template <>
struct Facts<ZelDtDateTime> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtDateTime&)";
    static constexpr const char* kSomeText = "05.03.2000 14:07:09";
    static constexpr const char* kOwnText = "05-03-2000 14:07:09";
    static constexpr Typed kOwnTyped = {"01-02-2003 04:05:06", "01.02.2003 04:05:06"};
    static ZelDtDateTime Some() { return {5, 3, 2000, 14, 7, 9}; }
    static ZelDtDateTime Zero() { return {1, 1, 1900, 0, 0, 0}; }
    static ZelFormat Own()
    {
        return DateFormat(ZelFormat::ZelFoDatumSekunden, ZelFormat::ZelFoDatumStrich);
    }
    static ZelFormat Unfit() { return NumberFormat(0); }
    static Error ReadError()
    {
        return {1, "DTDATIMF", "ZelDtDateTime", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTDATIMF", "ZelDtDateTime", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"05.03.2000 14:07:09", "05.03.2000 14:07:09"},
                {"5.3.2000 14:07", "05.03.2000 14:07:00"},
                {"5.3.2000 4:07", "05.03.2000 04:07:00"},
                {"05.03.2000", "05.03.2000 00:00:00"},
                {" 29.2.2000 ", "29.02.2000 00:00:00"},
                {"1.1.1753", "01.01.1753 00:00:00"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},
                {"   ", 21},
                {"abc", 21},
                {"5/3/2000", 21},
                {"5.3.2000 14.07", 21},
                {"30.2.2000", 8},
                {"1.13.2000", 8},
                {"1.1.2000 24:00", 8},
                {"31.12.1752", 27}};
    }
    static std::vector<Shown<ZelDtDateTime>> Values()
    {
        return {{{5, 3, 2000, 14, 7, 0}, "05.03.2000 14:07"},
                {{5, 3, 2000, 0, 0, 0}, "05.03.2000 00:00"},
                {{31, 12, 1999, 23, 59, 59}, "31.12.1999 23:59:59"}};
    }
};

template <>
struct Facts<ZelDtDateZp> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtDateZp&)";
    static constexpr const char* kSomeText = "05.03.2000";
    static constexpr const char* kOwnText = "05/03/2000";
    static constexpr Typed kOwnTyped = {"01/02/2003", "01.02.2003 00:00:00"};
    static ZelDtDateZp Some() { return {5, 3, 2000}; }
    static ZelDtDateZp Zero() { return {1, 1, 1900}; }
    static ZelFormat Own()
    {
        return DateFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumSchraegstrich);
    }
    static ZelFormat Unfit() { return HundredthsFormat(); }
    static Error ReadError()
    {
        return {1, "DTDATZP", "ZelDtDateZp", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    /// Inherited.
    static Error ShowError() { return {1, "DTDATIMF", "ZelDtDateTime", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"05.03.2000", "05.03.2000 00:00:00"},
                {"5.3.2000", "05.03.2000 00:00:00"},
                {"05032000", "05.03.2000 00:00:00"},
                {" 29.2.2000 ", "29.02.2000 00:00:00"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},        {"   ", 21},      {"abc", 21},       {"5/3/2000", 21},
                {"30.2.2000", 8}, {"1.13.2000", 8}, {"31.12.1752", 27}};
    }
    static std::vector<Shown<ZelDtDateZp>> Values()
    {
        return {{{31, 12, 1999}, "31.12.1999"}, {{1, 1, 1753}, "01.01.1753"}};
    }
};

template <>
struct Facts<ZelDtTime> {
    static constexpr const char* kExchange = "DDX_ZelDtTyp(CDataExchange*,int,ZelDtTime&)";
    static constexpr const char* kSomeText = "01:30";
    static constexpr const char* kOwnText = "1,50";
    static constexpr Typed kOwnTyped = {"2,25-", "-2700 mode 0"};
    static ZelDtTime Some() { return "1:30"; }
    static ZelDtTime Zero() { return "0:00"; }
    static ZelFormat Own() { return HundredthsFormat(); }
    static ZelFormat Unfit() { return NumberFormat(2); }
    static Error ReadError()
    {
        return {1, "DTTIME", "ZelDtTime", "SetFromOFL(LPCTSTR,ZelFormat*)"};
    }
    static Error ShowError() { return {1, "DTTIME", "ZelDtTime", "ConvToOFL(ZelFormat*)"}; }
    static std::vector<Typed> Texts()
    {
        return {{"1:30", "1800 mode 1"},    {"1,25", "1500 mode 0"},   {"8", "9600 mode 2"},
                {"-0:30", "-600 mode 1"},   {" 2:15 ", "2700 mode 1"}, {"0:00", "0 mode 1"},
                {"100:00", "120000 mode 1"}};
    }
    static std::vector<Rejected> NoTexts()
    {
        return {{" ", 21},    {"   ", 21}, {"abc", 21},   {"1:3", 21},
                {"1.30", 21}, {"8:75", 8}, {"1789569", 8}};
    }
    static std::vector<Shown<ZelDtTime>> Values()
    {
        return {{{"8", ZelDtTime::Stunden}, "08"}, {"-0:30", "-00:30"}, {"1,25", "01,25"}};
    }
};

/// The ten classes that edit controls are exchanged with.
using AllClasses = ::testing::Types<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtDecimal, ZelDtBool,
                                    ZelDtChar, ZelDtDateTime, ZelDtDateZp, ZelDtString, ZelDtTime>;
/// Those that not every text is a value of.
using RejectingClasses =
    ::testing::Types<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtDecimal, ZelDtBool, ZelDtChar,
                     ZelDtDateTime, ZelDtDateZp, ZelDtTime>;

/// An error of the exchange itself.
template <typename Value>
Error ExchangeError(unsigned long number)
{
    return {number, "DTDDXFKT", "DDX-Funktionen f\xFCr ZelDt-Klassen", Facts<Value>::kExchange};
}

/// All that can be seen of a value, whether it is defined or not.
struct Look {
    State state;
    Bytes content; ///< what it stores, as it goes into an archive
    const ZelFormat* format = nullptr;
    int timeMode = -1; ///< -1 for values that have none

    friend bool operator==(const Look&, const Look&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Look& look)
    {
        return os << look.state << ", " << look.content << ", mode " << look.timeMode;
    }
};

template <typename Value>
Look LookAt(Value& value)
{
    Look look;
    look.state = StateOf(value);
    // Without the flag in front, which is part of the state.
    look.content = Bytes(Stored([&](CArchive& ar) { value.Serialize(ar); }).data.substr(4));
    look.format = value.GetFormat();
    if constexpr (std::is_same_v<Value, ZelDtTime>)
        look.timeMode = value.GetMode();
    return look;
}

/// What a value holds at the beginning of a test, whether it is defined or not.
enum class Holds { Zero, Some };

/// A state to begin a test with.
struct Start {
    State state;
    Holds holds = Holds::Zero;

    friend std::ostream& operator<<(std::ostream& os, const Start& s)
    {
        return os << s.state << (s.holds == Holds::Some ? ", some value" : ", zero");
    }
};

/// Every mode, defined or not, modified or not, with and without something in it.
inline std::vector<Start> AllStarts()
{
    std::vector<Start> starts;
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined})
        for (const int defined : {0, 1})
            for (const int modified : {0, 1})
                for (const Holds holds : {Holds::Zero, Holds::Some})
                    if (defined == 1 || mode != ZelDtWmAlwaysDefined)
                        starts.push_back({{mode, defined, modified}, holds});
    return starts;
}

/// A value in that state.
template <typename Value>
struct Given {
    explicit Given(const Start& start)
    {
        it.SetWorkingMode(start.state.mode);
        it = start.holds == Holds::Some ? Facts<Value>::Some() : Facts<Value>::Zero();
        // The base assignment takes the definedness alone.
        if (!start.state.defined)
            static_cast<ZelDtBasis&>(it) = Value(ZelDtWmNull);
        it.SetModified(start.state.modified);
    }

    Value it;
};

/// Defined in mode Missing, not modified, holding Some().
inline constexpr Start kSomeStart = {{ZelDtWmMissing, 1, 0}, Holds::Some};

enum class Direction { ToValue, ToControl };

/// One exchange with the control.
template <typename Value>
void Exchange(TestDialog& dialog, Value& value, Direction direction, int id = kControl)
{
    CDataExchange exchange(&dialog, direction == Direction::ToValue);
    DDX_ZelDtTyp(&exchange, id, value);
}

template <typename Value>
void ToValue(TestDialog& dialog, Value& value)
{
    Exchange(dialog, value, Direction::ToValue);
}

template <typename Value>
void ToControl(TestDialog& dialog, Value& value)
{
    Exchange(dialog, value, Direction::ToControl);
}

} // namespace zeltest

#endif
