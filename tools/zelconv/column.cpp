#include "tools/zelconv/column.h"

#include "tools/zelconv/charset.h"
#include "tools/zelconv/fault.h"
#include "tools/zelconv/textview.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zelconv {

namespace {

template <typename Value>
std::unique_ptr<ZelDtBasis> Create(ZelDtWorkingMode mode)
{
    return std::make_unique<Value>(mode);
}

template <typename Value>
ZelDtString ToSql(const ZelDtBasis& value)
{
    return static_cast<const Value&>(value).ConvToSQL();
}

template <typename Value>
bool Less(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return (static_cast<const Value&>(a) < static_cast<const Value&>(b)) != 0;
}

/// The functions of a value class whose constructor takes a working mode.
template <typename Value>
constexpr ColumnType TypeOf(const char* name, bool numeric)
{
    ColumnType type{};
    type.name = name;
    type.numeric = numeric;
    type.create = &Create<Value>;
    type.toSql = &ToSql<Value>;
    type.less = &Less<Value>;
    return type;
}

// Decimal

/// Most digits of a decimal, and most of them behind the point.
constexpr int kMostDigits = 28;
constexpr int kMostPlaces = 27;

/// Rounds commercially and fills up with zeros, so that every form shows `places` decimals. An
/// assignment would not do for the zeros: of equal numbers a decimal keeps its own places.
bool FitToPlaces(ZelDtBasis& value, int places)
{
    auto& number = static_cast<ZelDtDecimal&>(value);
    number.Round(static_cast<short>(-places), ZelDtDecimal::RundungKaufmaennisch);
    const int missing = places - number.GetPrecision();
    if (missing <= 0)
        return true;
    std::string text(ViewOf(number.ConvToSQL()));
    if (number.GetPrecision() == 0)
        text += '.';
    text.append(static_cast<std::size_t>(missing), '0');
    const auto digits =
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits > kMostDigits)
        return false;
    number.SetFromOFL(text.c_str(), &PlainNumbers());
    return true;
}

int CountDecimals(const ZelDtBasis& value)
{
    return static_cast<const ZelDtDecimal&>(value).GetPrecision();
}

constexpr ColumnType DecimalType()
{
    ColumnType type = TypeOf<ZelDtDecimal>("decimal", true);
    type.mostParameter = kMostPlaces;
    type.fit = &FitToPlaces;
    type.countDecimals = &CountDecimals;
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

/// SQL texts have 15 digits, extern texts 16; some numbers need 17. Near the largest number the
/// text may even be none.
bool DoubleReadsBack(const ZelDtBasis& value, const ZelDtString& text)
{
    constexpr unsigned short kVersion = 100;
    ZelDtDouble read;
    try {
        read.SetFromExtern(&text, 1, kVersion);
    } catch (ZelDtExcep* error) {
        delete error;
        return false;
    }
    return NumberOf(read) == NumberOf(value);
}

std::string ExactDouble(const ZelDtBasis& value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), NumberOf(value)).ptr;
    return {text.data(), end};
}

constexpr ColumnType DoubleType()
{
    ColumnType type = TypeOf<ZelDtDouble>("double", true);
    type.less = &LessDouble;
    type.readsBack = &DoubleReadsBack;
    type.exactText = &ExactDouble;
    return type;
}

constexpr std::array kTypes = {
    TypeOf<ZelDtLong>("long", true),
    TypeOf<ZelDtShort>("short", true),
    DecimalType(),
    DoubleType(),
    TypeOf<ZelDtString>("string", false),
};

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

bool IsControl(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

[[noreturn]] void RefuseType(std::string_view typeText)
{
    throw Failure("unknown column type '" + Utf8FromAnsi(typeText) +
                  "'; there are: " + TypeNames());
}

/// The number in "(2)" behind the name of the type; kNoParameter for no parentheses.
int ParseParameter(const ColumnType& type, std::string_view text, std::string_view typeText)
{
    if (text.empty())
        return ColumnType::kNoParameter;
    if (text.size() < 3 || text.front() != '(' || text.back() != ')')
        RefuseType(typeText);
    unsigned number = 0;
    const char* const last = text.data() + text.size() - 1;
    const auto result = std::from_chars(text.data() + 1, last, number);
    if (result.ec != std::errc() || result.ptr != last ||
        std::cmp_greater(number, type.mostParameter))
        RefuseType(typeText);
    return static_cast<int>(number);
}

} // namespace

std::string Column::TypeText() const
{
    std::string text = type->name;
    if (parameter != ColumnType::kNoParameter)
        text += "(" + std::to_string(parameter) + ")";
    return text;
}

std::unique_ptr<ZelDtBasis> Column::NewValue() const
{
    return type->create(mode);
}

Column MakeColumn(std::string_view name, std::string_view typeText, ZelDtWorkingMode mode)
{
    if (name.empty() || std::any_of(name.begin(), name.end(), &IsControl))
        throw Failure("a column has an empty name, or one with control characters");
    const std::string_view typeName = typeText.substr(0, typeText.find('('));
    const auto type = std::find_if(kTypes.begin(), kTypes.end(), [&](const ColumnType& candidate) {
        return candidate.name == typeName;
    });
    if (type == kTypes.end())
        RefuseType(typeText);
    Column column{std::string(name), type, ColumnType::kNoParameter, mode};
    column.parameter = ParseParameter(*type, typeText.substr(typeName.size()), typeText);
    return column;
}

void AddColumn(Columns& columns, Column column)
{
    if (columns.size() == kMostColumns)
        throw Failure("more than " + std::to_string(kMostColumns) + " columns");
    const bool known = std::any_of(columns.begin(), columns.end(),
                                   [&](const Column& other) { return other.name == column.name; });
    if (known)
        throw Failure("two columns are named '" + Utf8FromAnsi(column.name) + "'");
    columns.push_back(std::move(column));
}

Columns ParseColumns(std::string_view text, ZelDtWorkingMode mode)
{
    std::string ansi;
    if (ToAnsi(Charset::Utf8, text, ansi).status != CharsetResult::Status::Ok)
        throw Failure("--columns: a name has a character that code page 1252 lacks");
    Columns columns;
    std::string_view rest = ansi;
    for (;;) {
        const std::size_t comma = rest.find(',');
        const std::string_view part = rest.substr(0, comma);
        const std::size_t colon = part.rfind(':');
        if (colon == std::string_view::npos)
            throw Failure("--columns: '" + Utf8FromAnsi(part) + "' is not NAME:TYPE");
        AddColumn(columns, MakeColumn(part.substr(0, colon), part.substr(colon + 1), mode));
        if (comma == std::string_view::npos)
            return columns;
        rest.remove_prefix(comma + 1);
    }
}

std::size_t FindColumn(const Columns& columns, std::string_view name)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (Utf8FromAnsi(columns[i].name) == name)
            return i;
    }
    throw Failure("there is no column '" + std::string(name) + "'");
}

void RequireSameColumns(const Columns& wanted, const Columns& found, const std::string& source)
{
    const bool same = std::equal(wanted.begin(), wanted.end(), found.begin(), found.end(),
                                 [](const Column& a, const Column& b) {
                                     return a.name == b.name && a.TypeText() == b.TypeText();
                                 });
    if (same)
        return;
    std::string list;
    for (const Column& column : found)
        list += (list.empty() ? "" : ",") + Utf8FromAnsi(column.name) + ":" + column.TypeText();
    throw Failure(source + ": the columns are not those of --columns but " + list);
}

const ZelFormat& PlainNumbers()
{
    static const ZelFormat format(ZelFormat::ZelFoTechnisch);
    return format;
}

} // namespace zelconv
