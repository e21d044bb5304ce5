#include "tools/zelconv/databasenames.h"

#include "tools/zelconv/charset.h"
#include "tools/zelconv/fault.h"
#include "tools/zelconv/plainname.h"

#include <algorithm>

namespace zelconv {

namespace {

/// What no name has, so that none can end its own quotes, whatever they are.
bool IsNeverInNames(char character)
{
    return static_cast<unsigned char>(character) < ' ' || character == '`' || character == '"' ||
           character == '\'';
}

[[noreturn]] void RefuseName(std::string_view name)
{
    throw Failure("'" + Utf8FromAnsi(name) + "' cannot be the name of a column or table");
}

void RequireName(std::string_view name)
{
    if (name.empty() || std::any_of(name.begin(), name.end(), &IsNeverInNames))
        RefuseName(name);
}

} // namespace

std::string QuotedName(std::string_view name, std::string_view quote)
{
    RequireName(name);
    const bool isBare = quote.empty() || quote == " ";
    if (isBare ? !IsPlainName(name) : name.find(quote) != name.npos)
        RefuseName(name);
    const std::string around(isBare ? std::string_view() : quote);
    return around + std::string(name) + around;
}

TableName::TableName(const std::string& given) : m_given(given)
{
    std::string ansi;
    if (ToAnsi(Charset::Utf8, given, ansi).status != CharsetResult::Status::Ok)
        throw Failure("--table: a character that code page 1252 lacks");
    const std::size_t point = ansi.rfind('.');
    if (point != std::string::npos) {
        m_schema = ansi.substr(0, point);
        RequireName(m_schema);
    }
    m_name = ansi.substr(point == std::string::npos ? 0 : point + 1);
    RequireName(m_name);
}

std::string TableName::Quoted(std::string_view quote) const
{
    return (m_schema.empty() ? "" : QuotedName(m_schema, quote) + ".") + QuotedName(m_name, quote);
}

} // namespace zelconv
