#include "tools/zelconv/column.h"
#include "tools/zelconv/textview.h"
#include "tools/zelconv/usualtexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace zelconv {

namespace {

constexpr unsigned short kExternVersion = 100;

// What most types do

template <typename Value>
std::unique_ptr<ZelDtBasis> Create(ZelDtWorkingMode mode)
{
    return std::make_unique<Value>(mode);
}

template <typename Value>
bool AppendSql(const ZelDtBasis& value, std::string& sql)
{
    sql += ViewOf(static_cast<const Value&>(value).ConvToSQL());
    return false;
}

template <typename Value>
bool Less(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return (static_cast<const Value&>(a) < static_cast<const Value&>(b)) != 0;
}

/// The functions of a value class whose constructor takes a working mode.
template <typename Value>
constexpr ColumnType TypeOf(const char* name, bool numeric, decltype(ColumnType::less) less)
{
    ColumnType type{};
    type.name = name;
    type.numeric = numeric;
    type.isText = std::is_same_v<Value, ZelDtChar> || std::is_same_v<Value, ZelDtString>;
    type.create = &Create<Value>;
    type.appendSql = &AppendSql<Value>;
    type.less = less;
    return type;
}

template <typename Value>
constexpr ColumnType TypeOf(const char* name, bool numeric)
{
    return TypeOf<Value>(name, numeric, &Less<Value>);
}

/// A type with short cuts for usual texts.
constexpr ColumnType WithUsual(ColumnType type, decltype(ColumnType::readUsual) read,
                               decltype(ColumnType::appendSql) appendSql)
{
    type.readUsual = read;
    type.appendSql = appendSql;
    return type;
}

/// Reads a text and compares. In SQL the display form stands in quotes.
template <typename Value>
bool ReadsBack(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    if (form == TextForm::Sql)
        text = text.substr(1, text.size() - 2);
    const ZelDtString given(ToCString(text));
    Value read(ZelDtWmMissing);
    try {
        if (form == TextForm::Extern)
            read.SetFromExtern(&given, 1, kExternVersion);
        else
            read.SetFromOFL(given, FormatOf(form));
        return (read == static_cast<const Value&>(value)) != 0;
    } catch (ZelDtExcep* error) {
        delete error;
        return false;
    }
}

// Decimal

/// Most digits of a decimal, and most of them behind the point.
constexpr int kMostDigits = 28;
constexpr int kMostPlaces = 27;

std::ptrdiff_t CountDigits(std::string_view text)
{
    return std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Rounds commercially and fills up with zeros, so that every form shows `places` decimals. An
/// assignment would not do for the zeros: of equal numbers a decimal keeps its own places.
Finding FitToPlaces(ZelDtBasis& value, int places)
{
    auto& number = static_cast<ZelDtDecimal&>(value);
    if (number.GetPrecision() == places)
        return {};
    number.Round(static_cast<short>(-places), ZelDtDecimal::RundungKaufmaennisch);
    const int missing = places - number.GetPrecision();
    if (missing <= 0)
        return {};
    std::string text;
    AppendSqlDecimal(number, text);
    if (number.GetPrecision() == 0)
        text += '.';
    text.append(static_cast<std::size_t>(missing), '0');
    if (CountDigits(text) > kMostDigits)
        return RowError::TooManyDigits;
    if (!ReadUsualDecimal(number, text, TextForm::Plain))
        number.SetFromOFL(text.c_str(), FormatOf(TextForm::Plain));
    return {};
}

/// A decimal rounds what it has no room for.
Finding CheckDecimals(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    const std::size_t point = text.find(form == TextForm::Plain ? '.' : ',');
    const auto typed = point == text.npos ? 0 : CountDigits(text.substr(point));
    if (static_cast<const ZelDtDecimal&>(value).GetPrecision() != typed)
        return RowError::TooManyDigits;
    return {};
}

constexpr ColumnType DecimalType()
{
    ColumnType type = TypeOf<ZelDtDecimal>("decimal", true);
    type.mostParameter = kMostPlaces;
    type.fit = &FitToPlaces;
    type.checkTyped = &CheckDecimals;
    return WithUsual(type, &ReadUsualDecimal, &AppendSqlDecimal);
}

// Double

double NumberOf(const ZelDtBasis& value)
{
    return static_cast<double>(static_cast<const ZelDtDouble&>(value));
}

/// An order of all numbers; NaN, which archives may hold, comes behind the others.
bool LessDouble(const ZelDtBasis& a, const ZelDtBasis& b)
{
    const double left = NumberOf(a);
    const double right = NumberOf(b);
    return std::isnan(left) || std::isnan(right) ? !std::isnan(left) : left < right;
}

/// SQL texts have 15 digits, extern texts 16; some numbers need 17. Near the largest number the
/// text may even be none. Shown are all digits, and extern form reads what SQL has.
bool DoubleReadsBack(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    return form == TextForm::Display || form == TextForm::Plain ||
           ReadsBack<ZelDtDouble>(value, TextForm::Extern, text);
}

std::string ExactDouble(const ZelDtBasis& value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), NumberOf(value)).ptr;
    return {text.data(), end};
}

constexpr ColumnType DoubleType()
{
    ColumnType type = TypeOf<ZelDtDouble>("double", true, &LessDouble);
    type.readsBack = &DoubleReadsBack;
    type.exactText = &ExactDouble;
    return WithUsual(type, &ReadUsualDouble, &AppendSqlDouble);
}

// Bool and char

int NumberOfBool(const ZelDtBasis& value)
{
    return static_cast<int>(static_cast<const ZelDtBool&>(value));
}

bool LessBool(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return NumberOfBool(a) < NumberOfBool(b);
}

/// Archives may hold other numbers than 0 and 1, which all other forms take for 1.
bool BoolReadsBack(const ZelDtBasis& value, TextForm, std::string_view)
{
    const int number = NumberOfBool(value);
    return number == 0 || number == 1;
}

std::string ExactBool(const ZelDtBasis& value)
{
    return std::to_string(NumberOfBool(value));
}

constexpr ColumnType BoolType()
{
    ColumnType type = TypeOf<ZelDtBool>("bool", false, &LessBool);
    type.readsBack = &BoolReadsBack;
    type.exactText = &ExactBool;
    return WithUsual(type, &ReadUsualBool, &AppendSqlBool);
}

bool LessChar(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return (ZelDtString(static_cast<const ZelDtChar&>(a)) <
            ZelDtString(static_cast<const ZelDtChar&>(b))) != 0;
}

// Date-time and date

/// The fields as they are; archives may hold some that no calendar has.
std::string ExactDateTime(const ZelDtBasis& value)
{
    constexpr long long kBaseYear = 1900;
    const std::tm fields = static_cast<const ZelDtDateTime&>(value).GetValue();
    return std::to_string(fields.tm_mday) + "." + std::to_string(fields.tm_mon + 1LL) + "." +
           std::to_string(fields.tm_year + kBaseYear) + " " + std::to_string(fields.tm_hour) + ":" +
           std::to_string(fields.tm_min) + ":" + std::to_string(fields.tm_sec);
}

template <typename Value>
constexpr ColumnType CalendarType(const char* name)
{
    ColumnType type = TypeOf<Value>(name, false);
    type.readsBack = &ReadsBack<Value>;
    type.exactText = &ExactDateTime;
    return type;
}

/// A date reads a time of day behind it and drops it.
Finding CheckNoTimeTyped(const ZelDtBasis&, TextForm, std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == text.npos)
        return {};
    const std::string_view time = text.substr(text.find_last_of(" \t", colon));
    return time.find_first_of("123456789") != time.npos ? Finding(RowError::TimeOfDay) : Finding();
}

/// A date may have a time of day from extern form; what would be left of it differs by form.
Finding CheckMidnight(ZelDtBasis& value)
{
    const std::tm fields = static_cast<const ZelDtDateZp&>(value).GetValue();
    const bool midnight = fields.tm_hour == 0 && fields.tm_min == 0 && fields.tm_sec == 0;
    return midnight ? Finding() : Finding(RowError::TimeOfDay);
}

constexpr ColumnType DateType()
{
    ColumnType type = CalendarType<ZelDtDateZp>("date");
    type.checkTyped = &CheckNoTimeTyped;
    type.complete = &CheckMidnight;
    return type;
}

// Time

bool IsWhole(const ZelDtTime& time, ZelDtTime::TimeMode mode)
{
    return (ZelDtTime(0L, time.GetTime(mode), mode) == time) != 0;
}

/// Only csv tells whether a time is in minutes or hundredths: it gets the one that shows all of it.
Finding ChooseMode(ZelDtBasis& value)
{
    auto& time = static_cast<ZelDtTime&>(value);
    const bool minutes =
        IsWhole(time, ZelDtTime::Minuten) || !IsWhole(time, ZelDtTime::Hundertstel);
    time.SetMode(minutes ? ZelDtTime::Minuten : ZelDtTime::Hundertstel);
    return {};
}

/// SQL has the exact count of units. Extern form has whole minutes, and no sign below an hour.
bool TimeReadsBack(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    return form == TextForm::Sql || ReadsBack<ZelDtTime>(value, form, text);
}

std::string ExactTime(const ZelDtBasis& value)
{
    std::string text;
    AppendSql<ZelDtTime>(value, text);
    return text;
}

constexpr ColumnType TimeType()
{
    ColumnType type = TypeOf<ZelDtTime>("time", true);
    type.complete = &ChooseMode;
    type.readsBack = &TimeReadsBack;
    type.exactText = &ExactTime;
    return type;
}

constexpr std::array kTypes = {
    WithUsual(TypeOf<ZelDtLong>("long", true), &ReadUsualLong, &AppendSqlLong),
    WithUsual(TypeOf<ZelDtShort>("short", true), &ReadUsualShort, &AppendSqlShort),
    DecimalType(),
    DoubleType(),
    BoolType(),
    WithUsual(TypeOf<ZelDtChar>("char", false, &LessChar), &ReadUsualChar, &AppendSqlChar),
    WithUsual(TypeOf<ZelDtString>("string", false), &ReadUsualString, &AppendSqlString),
    WithUsual(CalendarType<ZelDtDateTime>("datetime"), &ReadUsualDateTime, &AppendSqlDateTime),
    DateType(),
    TimeType(),
};

} // namespace

const ZelFormat* FormatOf(TextForm form)
{
    static const ZelFormat plain(ZelFormat::ZelFoTechnisch);
    return form == TextForm::Plain ? &plain : nullptr;
}

const ColumnType* FindType(std::string_view name)
{
    const auto* const type =
        std::find_if(kTypes.begin(), kTypes.end(),
                     [&](const ColumnType& candidate) { return candidate.name == name; });
    return type == kTypes.end() ? nullptr : type;
}

std::string TypeNames()
{
    std::string names;
    for (const ColumnType& type : kTypes) {
        names += (names.empty() ? "" : ", ") + std::string(type.name);
        if (type.mostParameter != ColumnType::kNoParameter)
            names +=
                ", " + std::string(type.name) + "(0..." + std::to_string(type.mostParameter) + ")";
    }
    return names;
}

} // namespace zelconv
