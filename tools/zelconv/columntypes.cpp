#include "datetime/IMP/DTDATSQL.h"
#include "numeric/IMP/DTDECSQL.h"
#include "numeric/IMP/DTNUMSQL.h"
#include "text/IMP/DTTXTSQL.h"
#include "tools/zelconv/column.h"
#include "tools/zelconv/textview.h"

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

static_assert(ColumnType::kSqlRoom >= zeldt::kSqlRoom &&
              ColumnType::kSqlRoom >= zeldt::kDecimalSqlRoom);

template <typename Value>
std::size_t WriteSql(const ZelDtBasis& value, char* out, std::size_t room)
{
    const auto& typed = static_cast<const Value&>(value);
    if constexpr (std::is_same_v<Value, ZelDtString> || std::is_same_v<Value, ZelDtDecimal>) {
        return zeldt::WriteSql(typed, out, room);
    } else {
        const std::size_t length = zeldt::WriteSql(typed, out);
        if (length == 0)
            typed.ConvToSQL(); // throws
        return length;
    }
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
    type.writeSql = &WriteSql<Value>;
    type.less = less;
    return type;
}

template <typename Value>
constexpr ColumnType TypeOf(const char* name, bool numeric)
{
    return TypeOf<Value>(name, numeric, &Less<Value>);
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
    std::array<char, ColumnType::kSqlRoom> plain{};
    std::string text(plain.data(), WriteSql<ZelDtDecimal>(number, plain.data(), plain.size()));
    if (number.GetPrecision() == 0)
        text += '.';
    text.append(static_cast<std::size_t>(missing), '0');
    if (CountDigits(text) > kMostDigits)
        return RowError::TooManyDigits;
    number.SetFromOFL(text.c_str(), FormatOf(TextForm::Plain));
    return {};
}

/// A decimal rounds what it has no room for.
Finding CheckDecimals(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    if (text.size() <= kMostDigits)
        return {};
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
    return type;
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

/// Whether the text is one of few digits, as most are, for that very number.
bool ReadsBackAtOnce(std::string_view text, double number)
{
    const std::string_view unsignedText = text.substr(text.starts_with('-') ? 1 : 0);
    const char* end = nullptr;
    double magnitude = 0;
    return zeldt::ReadShort(unsignedText, magnitude, end) && end == text.data() + text.size() &&
           (text.starts_with('-') ? -magnitude : magnitude) == number;
}

/// SQL texts have 15 digits, extern texts 16; some numbers need 17. Near the largest number the
/// text may even be none. Shown are all digits, and extern form reads what SQL has.
bool DoubleReadsBack(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    return form == TextForm::Display || form == TextForm::Plain ||
           ReadsBackAtOnce(text, NumberOf(value)) ||
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
    return type;
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
    return type;
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

/// Whether every text tells all of the moment, as most are.
bool IsTextual(const zeldt::DateTimeFields& fields)
{
    constexpr int kMostYears = 9999 - zeldt::kBaseYear;
    const auto isBelow = [](int field, int limit) { return field >= 0 && field < limit; };
    return zeldt::HasDay(fields.month, zeldt::YearOf(fields), fields.day) &&
           isBelow(fields.year, kMostYears + 1) && isBelow(fields.hour, 24) &&
           isBelow(fields.minute, 60) && fields.second == 0;
}

bool DateTimeReadsBack(const ZelDtBasis& value, TextForm form, std::string_view text)
{
    const auto& moment = static_cast<const ZelDtDateTime&>(value);
    return IsTextual(ZelDtDateTimeAccess::Of(moment).fields) ||
           ReadsBack<ZelDtDateTime>(value, form, text);
}

template <typename Value>
constexpr ColumnType CalendarType(const char* name, decltype(ColumnType::readsBack) readsBack)
{
    ColumnType type = TypeOf<Value>(name, false);
    type.readsBack = readsBack;
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
    ColumnType type = CalendarType<ZelDtDateZp>("date", &ReadsBack<ZelDtDateZp>);
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
    std::array<char, ColumnType::kSqlRoom> text{};
    return {text.data(), WriteSql<ZelDtTime>(value, text.data(), text.size())};
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
    TypeOf<ZelDtLong>("long", true),
    TypeOf<ZelDtShort>("short", true),
    DecimalType(),
    DoubleType(),
    BoolType(),
    TypeOf<ZelDtChar>("char", false, &LessChar),
    TypeOf<ZelDtString>("string", false),
    CalendarType<ZelDtDateTime>("datetime", &DateTimeReadsBack),
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
