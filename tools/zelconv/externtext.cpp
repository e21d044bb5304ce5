#include "tools/zelconv/externtext.h"

#include "tools/zelconv/fault.h"
#include "tools/zelconv/textview.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace zelconv {

namespace {

struct Escape {
    char character;
    char letter;
};

constexpr std::array<Escape, 5> kEscapes = {{
    {'\\', '\\'},
    {'\t', 't'},
    {'\n', 'n'},
    {'\r', 'r'},
    {'\0', '0'},
}};

constexpr std::string_view kEscaped("\\\t\n\r\0", 5);

struct ExternCell {
    unsigned short version;
    int defined;
    std::string_view text; ///< still escaped
};

std::optional<ExternCell> ParseCell(std::string_view cell)
{
    unsigned version = 0;
    const char* const last = cell.data() + cell.size();
    const auto number = std::from_chars(cell.data(), last, version);
    if (number.ec != std::errc() || version > std::numeric_limits<unsigned short>::max())
        return std::nullopt;
    const std::string_view rest(number.ptr, static_cast<std::size_t>(last - number.ptr));
    if (rest.size() < 3 || rest[0] != ':' || rest[2] != ':' || (rest[1] != '0' && rest[1] != '1'))
        return std::nullopt;
    return ExternCell{static_cast<unsigned short>(version), rest[1] - '0', rest.substr(3)};
}

} // namespace

void AppendEscaped(std::string_view text, std::string& out)
{
    for (;;) {
        const std::size_t plain = text.find_first_of(kEscaped);
        out += text.substr(0, plain);
        if (plain == std::string_view::npos)
            return;
        const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& row) {
            return row.character == text[plain];
        });
        out += '\\';
        out += escape->letter;
        text.remove_prefix(plain + 1);
    }
}

bool AppendUnescaped(std::string_view text, std::string& out)
{
    for (;;) {
        const std::size_t plain = text.find('\\');
        out += text.substr(0, plain);
        if (plain == std::string_view::npos)
            return true;
        if (plain + 1 == text.size())
            return false;
        const auto escape = std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& row) {
            return row.letter == text[plain + 1];
        });
        if (escape == kEscapes.end())
            return false;
        out += escape->character;
        text.remove_prefix(plain + 2);
    }
}

bool TakeExternCell(std::string_view& line, bool& atEnd, std::string_view& cell)
{
    if (atEnd)
        return false;
    const std::size_t separator = line.find(kExternSeparator);
    atEnd = separator == std::string_view::npos;
    cell = line.substr(0, separator);
    line.remove_prefix(atEnd ? line.size() : separator + 1);
    return true;
}

void AppendExternCell(const ZelDtBasis& value, const ColumnType& type, int column, std::string& out)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text =
        ForColumn(column, [&] { return value.ConvToExtern(defined, version); });
    RequireReadsBack(type, value, TextForm::Extern, ViewOf(text), column);
    out += std::to_string(version);
    out += defined != 0 ? ":1:" : ":0:";
    AppendEscaped(ViewOf(text), out);
}

void AppendExternRow(const Row& row, const Columns& columns, std::string& out)
{
    for (int column = 0; column < row.GetCount(); ++column) {
        const ColumnType& type = *columns[static_cast<std::size_t>(column)].type;
        if (column != 0)
            out += kExternSeparator;
        try {
            AppendExternCell(row[column], type, column, out);
        } catch (const RowFault&) {
            if (type.exactText == nullptr)
                throw;
            out += "100:1:" + type.exactText(row[column]);
        }
    }
}

void SetFromExternCell(ZelDtBasis& value, std::string_view cell, int column)
{
    const std::optional<ExternCell> parts = ParseCell(cell);
    std::string text;
    if (!parts || !AppendUnescaped(parts->text, text))
        throw MakeFault(RowError::ExternCell, column);
    ForColumn(column, [&] {
        const ZelDtString given(ToCString(text));
        value.SetFromExtern(&given, parts->defined, parts->version);
        int defined = 0;
        unsigned short version = 0;
        if (parts->defined != 0 && ViewOf(value.ConvToExtern(defined, version)) != text)
            throw MakeFault(RowError::ExternText, column);
    });
}

std::string ExternHeader(const Columns& columns)
{
    std::string line(kExternBegin);
    for (const Column& column : columns) {
        line += kExternSeparator;
        AppendEscaped(column.name + ":" + column.TypeText(), line);
    }
    return line;
}

Columns ParseExternHeader(std::string_view line, ZelDtWorkingMode mode, const std::string& source)
{
    bool atEnd = false;
    std::string_view cell;
    TakeExternCell(line, atEnd, cell);
    if (cell != kExternBegin || atEnd)
        throw Failure(source + ": no file in extern form (its first line begins with \"" +
                      std::string(kExternBegin) + "\")");
    Columns columns;
    while (TakeExternCell(line, atEnd, cell)) {
        std::string text;
        const bool good = AppendUnescaped(cell, text);
        const std::size_t colon = text.rfind(':');
        if (!good || colon == std::string::npos)
            throw Failure(source + ": the line with the columns is damaged");
        AddColumn(columns, MakeColumn(text.substr(0, colon), text.substr(colon + 1), mode));
    }
    return columns;
}

} // namespace zelconv
