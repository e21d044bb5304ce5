// Connection strings.

#include "platform/recordsets/connecttext.h"

#include "platform/recordsets/sqltext.h"

#include <cstdlib>
#include <vector>

namespace zelrs {

namespace {

struct Attribute {
    std::string_view name;
    std::string_view text; ///< "NAME=value"
};

/// Where an attribute ends: at a semicolon that is not inside braces.
std::size_t AttributeLength(std::string_view text)
{
    bool isBraced = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '{' || text[i] == '}')
            isBraced = text[i] == '{';
        if (text[i] == ';' && !isBraced)
            return i;
    }
    return text.size();
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

std::vector<Attribute> Split(std::string_view connect)
{
    std::vector<Attribute> attributes;
    while (!connect.empty()) {
        const std::size_t length = AttributeLength(connect);
        const std::string_view text = connect.substr(0, length);
        if (!Trimmed(text).empty())
            attributes.push_back({Trimmed(text.substr(0, text.find('='))), text});
        connect.remove_prefix(length < connect.size() ? length + 1 : length);
    }
    return attributes;
}

} // namespace

std::string WithoutPrefix(std::string_view connect)
{
    const bool hasPrefix = connect.size() >= 5 && IsSameName(connect.substr(0, 5), "ODBC;");
    return std::string(connect.substr(hasPrefix ? 5 : 0));
}

bool NamesDriver(std::string_view connect, std::string_view name)
{
    for (const Attribute& attribute : Split(connect)) {
        if (!IsSameName(attribute.name, "DRIVER"))
            continue;
        const std::string_view text = attribute.text;
        for (std::size_t i = 0; i + name.size() <= text.size(); ++i) {
            if (IsSameName(text.substr(i, name.size()), name))
                return true;
        }
    }
    return false;
}

std::string ForMySql(std::string_view connect, const TimeLimits& limits)
{
    constexpr long kCountFoundRows = 2;
    long option = kCountFoundRows;
    std::string result;
    for (const Attribute& attribute : Split(connect)) {
        const std::string text(attribute.text);
        if (IsSameName(attribute.name, "OPTION") || IsSameName(attribute.name, "OPTIONS"))
            option |= std::strtol(text.c_str() + text.find('=') + 1, nullptr, 10);
        else if (!IsSameName(attribute.name, "CHARSET"))
            result += text + ";";
    }
    // What the caller wrote comes first, and of two the first counts.
    if (limits.login != 0)
        result += "CONN_TIMEOUT=" + std::to_string(limits.login) + ";";
    // The server itself ends a statement after the time; this is for one that does nothing at all.
    const std::string silence = std::to_string(2ULL * limits.query);
    if (limits.query != 0)
        result += "READ_TIMEOUT=" + silence + ";WRITE_TIMEOUT=" + silence + ";";
    return result + "CHARSET=latin1;OPTION=" + std::to_string(option);
}

std::string ForSqlite(std::string_view connect)
{
    std::string result;
    for (const Attribute& attribute : Split(connect)) {
        if (!IsSameName(attribute.name, "Timeout"))
            result += std::string(attribute.text) + ";";
    }
    return result + "Timeout=1";
}

std::string ForDataSource(std::string_view name, std::string_view attributes)
{
    return "DSN=" + std::string(name) + ";" + WithoutPrefix(attributes);
}

} // namespace zelrs
