#include "tools/zelconv/column.h"

#include "tools/zelconv/charset.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zelconv {

namespace {

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
    const ColumnType* const type = FindType(typeName);
    if (type == nullptr)
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

} // namespace zelconv
