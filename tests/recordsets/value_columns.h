#ifndef ZELDT_TESTS_RECORDSETS_VALUE_COLUMNS_H
#define ZELDT_TESTS_RECORDSETS_VALUE_COLUMNS_H

/// How the values of each class stand in a column: the column's type, the member of the record set
/// that is bound to it, and values as texts that are equal exactly when the values are.
///
///     ColumnOf<ZelDtLong>::Type(source);           // INTEGER
///     ColumnOf<ZelDtLong>::Make("-5");             // a defined ZelDtLong
///     const Given<ZelDtLong> given(Seen{{ZelDtWmNull, 0, 1}, "-5"});
///     EXPECT_EQ(Look(given.it), (Seen{{ZelDtWmNull, 0, 1}, "-5"}));

#include "tests/numeric/number_testing.h"
#include "tests/support/database_testing.h"

#include <ZelDt.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace zeltest {

inline bool IsMariaDb()
{
    return DatabaseOfRun() == DatabaseKind::Mariadb;
}

/// Texts whose bytes and case count, trailing blanks too.
inline constexpr const char* kBinaryText = " CHARACTER SET latin1 COLLATE latin1_nopad_bin";

/// The type of a column for texts of at most so many bytes; SQLite takes longer ones too.
inline std::string TextType(int length)
{
    const std::string type = "VARCHAR(" + std::to_string(length) + ")";
    return IsMariaDb() ? type + kBinaryText : type;
}

/// The type of a column for texts of any length.
inline std::string LongTextType()
{
    return IsMariaDb() ? std::string("LONGTEXT") + kBinaryText : "TEXT";
}

/// The shortest text that reads back as the same number; both zeros are "0".
inline std::string ShowDouble(double number)
{
    if (number == 0)
        return "0";
    char buffer[40];
    const std::to_chars_result end = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, end.ptr);
}

inline double ReadDouble(const std::string& text)
{
    double number = 0;
    const std::from_chars_result end =
        std::from_chars(text.data(), text.data() + text.size(), number);
    EXPECT_EQ(end.ptr, text.data() + text.size()) << text;
    return number;
}

/// A finite number of any size.
inline double RandomDouble(std::mt19937_64& random)
{
    double number = std::numeric_limits<double>::infinity();
    while (!std::isfinite(number)) {
        const std::uint64_t bits = random();
        std::memcpy(&number, &bits, sizeof number);
    }
    return number;
}

/// A decimal number without the zeros that end its decimals.
inline std::string WithoutLastZeros(std::string number)
{
    if (number.find('.') == std::string::npos)
        return number;
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.')
        number.pop_back();
    return number;
}

inline std::string ToText(const ZelDtString& text)
{
    return std::string(static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength()));
}

inline std::string ToText(const CString& text)
{
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

inline CString ToCString(const std::string& text)
{
    return CString(text.c_str(), static_cast<int>(text.size()));
}

/// The six numbers of "2000-03-05 14:07:09".
struct Stamp {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    Stamp() = default;
    explicit Stamp(const std::string& text)
    {
        EXPECT_EQ(std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &year, &month, &day, &hour,
                              &minute, &second),
                  6)
            << text;
    }
    explicit Stamp(const TIMESTAMP_STRUCT& field)
        : year(field.year), month(field.month), day(field.day), hour(field.hour),
          minute(field.minute), second(field.second)
    {}
    /// What is stored, whatever the state.
    explicit Stamp(const ZelDtDateTime& value)
    {
        ZelDtDateTime copy(value);
        copy.SetWorkingMode(ZelDtWmAlwaysDefined);
        const std::tm fields = copy.GetValue();
        year = fields.tm_year + 1900;
        month = fields.tm_mon + 1;
        day = fields.tm_mday;
        hour = fields.tm_hour;
        minute = fields.tm_min;
        second = fields.tm_sec;
    }

    std::string Text() const
    {
        char buffer[80];
        std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day,
                      hour, minute, second);
        return buffer;
    }
};

/// For each class:
///
/// | member    | meaning                                                                     |
/// |-----------|-----------------------------------------------------------------------------|
/// | Field     | the member of a record set                                                  |
/// | Type      | of a column that holds every value                                          |
/// | Exchange  | binds the member                                                            |
/// | Make      | a defined value from its text                                               |
/// | Show      | the text of what a value stores, whatever its state                         |
/// | ShowField | the text of what a member holds                                             |
/// | kEmpty    | the text of what a new value stores                                         |
/// | Samples   | texts of values, from one limit to the other                                |
template <typename Value>
struct ColumnOf;

template <>
struct ColumnOf<ZelDtLong> {
    using Field = long;
    static constexpr const char* kEmpty = "0";

    static std::string Type() { return "INTEGER"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Long(pFX, name, field);
    }
    static ZelDtLong Make(const std::string& text) { return ZelDtLong(text.c_str()); }
    static std::string Show(const ZelDtLong& value) { return std::to_string(long{value}); }
    static std::string ShowField(const Field& field) { return std::to_string(field); }
    static std::vector<std::string> Samples()
    {
        return {"0",      "1",          "-1",         "42",          "32767",      "32768",
                "-32769", "2147483646", "2147483647", "-2147483647", "-2147483648"};
    }
};

template <>
struct ColumnOf<ZelDtShort> {
    using Field = int;
    static constexpr const char* kEmpty = "0";

    static std::string Type() { return "SMALLINT"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Int(pFX, name, field);
    }
    static ZelDtShort Make(const std::string& text) { return ZelDtShort(text.c_str()); }
    static std::string Show(const ZelDtShort& value) { return std::to_string(short{value}); }
    static std::string ShowField(const Field& field) { return std::to_string(field); }
    static std::vector<std::string> Samples()
    {
        return {"0",   "1",   "-1",    "42",    "127",    "128",   "-129",
                "255", "256", "32766", "32767", "-32767", "-32768"};
    }
};

template <>
struct ColumnOf<ZelDtDouble> {
    using Field = double;
    static constexpr const char* kEmpty = "0";

    static std::string Type() { return "DOUBLE"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Double(pFX, name, field);
    }
    static ZelDtDouble Make(const std::string& text) { return ZelDtDouble(ReadDouble(text)); }
    static std::string Show(const ZelDtDouble& value) { return ShowDouble(double{value}); }
    static std::string ShowField(const Field& field) { return ShowDouble(field); }
    static std::vector<std::string> Samples()
    {
        return {"0",
                "1",
                "-1",
                "0.5",
                "0.1",
                "-0.3",
                "123456789.12345679",
                "0.3333333333333333",
                "0.30000000000000004",
                "9007199254740991",
                "9007199254740992",
                "-1e+100",
                "1.7976931348623157e+308",
                "-1.7976931348623157e+308",
                "2.2250738585072014e-308",
                "5e-324",
                "-5e-324"};
    }
};

template <>
struct ColumnOf<ZelDtDecimal> {
    using Field = CString;
    static constexpr const char* kEmpty = "0";
    /// A sign, 28 places before and behind the point, and the point.
    static constexpr int kLength = 58;

    /// SQLite keeps numbers of so many digits in texts only.
    static std::string Type() { return IsMariaDb() ? "DECIMAL(56,28)" : "VARCHAR(58)"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Text(pFX, name, field, kLength);
    }
    static ZelDtDecimal Make(const std::string& text) { return ZelDtDecimal(text.c_str()); }
    static std::string Show(const ZelDtDecimal& value)
    {
        ZelDtDecimal copy(value);
        copy.SetWorkingMode(ZelDtWmAlwaysDefined);
        return WithoutLastZeros(ToText(copy.ConvToSQL()));
    }
    static std::string ShowField(const Field& field) { return WithoutLastZeros(ToText(field)); }
    static std::vector<std::string> Samples()
    {
        return {"0",
                "1",
                "-1",
                "19.99",
                "-0.05",
                "0.1",
                "100",
                "1234567890.123456789",
                "922337203685477.5807",
                "9999999999999999999999999999",
                "-9999999999999999999999999999",
                "99999999999999.99999999999999",
                "9.999999999999999999999999999",
                "-9.999999999999999999999999999",
                "0.000000000000000000000000001",
                "-0.000000000000000000000000001"};
    }
};

/// As BOOLEAN, which holds yes and no.
template <>
struct ColumnOf<ZelDtBool> {
    using Field = BOOL;
    static constexpr const char* kEmpty = "0";

    static std::string Type() { return "BOOLEAN"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Bool(pFX, name, field);
    }
    static ZelDtBool Make(const std::string& text) { return ZelDtBool(text.c_str()); }
    static std::string Show(const ZelDtBool& value) { return std::to_string(int{value}); }
    static std::string ShowField(const Field& field) { return std::to_string(field); }
    static std::vector<std::string> Samples() { return {"0", "1"}; }
};

template <>
struct ColumnOf<ZelDtString> {
    using Field = CString;
    static constexpr const char* kEmpty = "";
    static constexpr int kLength = 200;

    static std::string Type() { return TextType(kLength); }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Text(pFX, name, field, kLength);
    }
    static ZelDtString Make(const std::string& text) { return ZelDtString(ToCString(text)); }
    static std::string Show(const ZelDtString& value) { return ToText(value); }
    static std::string ShowField(const Field& field) { return ToText(field); }
    static std::vector<std::string> Samples()
    {
        return {"",
                "abc",
                "ABC",
                " ",
                "blanks behind   ",
                "  blanks in front",
                "\xE4\xF6\xFC\xDF\xC4\xD6\xDC Stra\xDF"
                "e \x80 99,\x97",
                "O'Brien said \"hello\"",
                "NULL",
                "a\\b\\",
                "tab\tline\r\nend\n",
                std::string(kLength, 'x'),
                std::string(kLength, '\xFC')};
    }
};

template <>
struct ColumnOf<ZelDtChar> {
    using Field = CString;
    static constexpr const char* kEmpty = "";

    static std::string Type() { return TextType(1); }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Text(pFX, name, field, 1);
    }
    static ZelDtChar Make(const std::string& text) { return ZelDtChar(text.c_str()); }
    static std::string Show(const ZelDtChar& value)
    {
        return char{value} == '\0' ? std::string() : std::string(1, char{value});
    }
    static std::string ShowField(const Field& field) { return ToText(field); }
    static std::vector<std::string> Samples()
    {
        return {"", "a", "A", " ", "0", "\"", "'", "\\", "\xE4", "\xDF", "\x80", "\xFF", "\x01"};
    }
};

template <>
struct ColumnOf<ZelDtDateTime> {
    using Field = TIMESTAMP_STRUCT;
    static constexpr const char* kEmpty = "1900-01-01 00:00:00";

    static std::string Type() { return "DATETIME"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Date(pFX, name, field);
    }
    static ZelDtDateTime Make(const std::string& text)
    {
        const Stamp s(text);
        return ZelDtDateTime(s.day, s.month, s.year, s.hour, s.minute, s.second);
    }
    static std::string Show(const ZelDtDateTime& value) { return Stamp(value).Text(); }
    static std::string ShowField(const Field& field) { return Stamp(field).Text(); }
    static std::vector<std::string> Samples()
    {
        return {"1900-01-01 00:00:00", "1753-01-01 00:00:00", "1753-01-01 23:59:59",
                "1899-12-31 12:00:00", "1900-02-28 23:59:59", "1970-01-01 00:00:00",
                "1999-12-31 23:59:59", "2000-02-29 00:00:01", "2000-03-05 14:07:09",
                "2038-01-19 03:14:08", "2400-02-29 12:30:45", "9999-12-31 00:00:00",
                "9999-12-31 23:59:59"};
    }
};

template <>
struct ColumnOf<ZelDtDateZp> {
    using Field = TIMESTAMP_STRUCT;
    static constexpr const char* kEmpty = "1900-01-01 00:00:00";

    static std::string Type() { return "DATE"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Date(pFX, name, field);
    }
    static ZelDtDateZp Make(const std::string& text)
    {
        const Stamp s(text);
        return ZelDtDateZp(s.day, s.month, s.year);
    }
    static std::string Show(const ZelDtDateZp& value) { return Stamp(value).Text(); }
    static std::string ShowField(const Field& field) { return Stamp(field).Text(); }
    static std::vector<std::string> Samples()
    {
        return {"1900-01-01 00:00:00", "1753-01-01 00:00:00", "1899-12-31 00:00:00",
                "1900-02-28 00:00:00", "1970-01-01 00:00:00", "1999-12-31 00:00:00",
                "2000-02-29 00:00:00", "2038-01-19 00:00:00", "2400-02-29 00:00:00",
                "9999-12-31 00:00:00"};
    }
};

/// Texts are counts of units of 3 seconds.
template <>
struct ColumnOf<ZelDtTime> {
    using Field = long;
    static constexpr const char* kEmpty = "0";

    static std::string Type() { return "INTEGER"; }
    static void Exchange(CFieldExchange* pFX, LPCTSTR name, Field& field)
    {
        RFX_Long(pFX, name, field);
    }
    static ZelDtTime Make(const std::string& text)
    {
        ZelDtTime value;
        value.SetFromSQL(std::stol(text));
        return value;
    }
    static std::string Show(const ZelDtTime& value)
    {
        ZelDtTime copy(value);
        copy.SetWorkingMode(ZelDtWmAlwaysDefined);
        return ToText(copy.ConvToSQL());
    }
    static std::string ShowField(const Field& field) { return std::to_string(field); }
    static std::vector<std::string> Samples()
    {
        return {"0",   "1",    "-1",    "20",    "1800",       "-600",
                "300", "1200", "28800", "-1200", "2147483647", "-2147483648"};
    }
};

/// A member with every byte; `ShowField` may drop zeros of decimals.
inline std::string ContentOf(const CString& field)
{
    return ToText(field);
}
inline std::string ContentOf(const TIMESTAMP_STRUCT& field)
{
    return Stamp(field).Text() + '.' + std::to_string(field.fraction);
}
template <typename Number>
std::string ContentOf(const Number& field)
{
    return std::is_same_v<Number, double> ? ShowDouble(field) : std::to_string(field);
}

/// All that can be seen of a value.
struct Seen {
    State state;
    std::string text;

    friend bool operator==(const Seen&, const Seen&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Seen& s)
    {
        return os << ::testing::PrintToString(s.text) << " (" << s.state << ')';
    }
};

template <typename Value>
Seen Look(const Value& value)
{
    return {StateOf(value), ColumnOf<Value>::Show(value)};
}

/// Brings a value to the state; the number or text it stores stays, also where it is undefined.
/// (The base's assignment takes over definedness alone. A value is undefined in mode AlwaysDefined
/// when it took over that mode as the default.)
template <typename Value>
void BringState(Value& target, const State& state)
{
    target.SetWorkingMode(ZelDtWmMissing);
    if (!state.defined)
        static_cast<ZelDtBasis&>(target) = Value(ZelDtWmMissing);
    const DefaultMode guard(state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(state.modified);
}

/// A value of any class that stores what `wanted` says in the state that it says.
template <typename Value>
struct InState {
    Value it;
    explicit InState(const Seen& wanted) : it(ColumnOf<Value>::Make(wanted.text))
    {
        BringState(it, wanted.state);
        EXPECT_EQ(Look(it), wanted);
    }
};

/// Every state with every one of the texts.
inline std::vector<Seen> InEveryState(const std::vector<std::string>& texts)
{
    std::vector<Seen> all;
    for (const State& state : AllStates())
        for (const std::string& text : texts)
            all.push_back({state, text});
    return all;
}

/// `value` after it read a field that is null.
template <typename Value>
Seen AfterNull(Seen value)
{
    if (value.text != ColumnOf<Value>::kEmpty)
        value.state.modified = 1;
    value.text = ColumnOf<Value>::kEmpty;
    SetUndefined(value.state);
    return value;
}

/// `value` after it read a field that holds `text`.
inline Seen AfterText(Seen value, const std::string& text)
{
    if (value.text != text)
        value.state.modified = 1;
    value.text = text;
    SetDefined(value.state, 1);
    return value;
}

} // namespace zeltest

#endif
