// The parts of a statement.

#include "platform/recordsets/sqltext.h"

#include <algorithm>

namespace zelrs {

namespace {

char Upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool IsSameText(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Upper(a) == Upper(b); });
}

bool IsWordCharacter(char character)
{
    const char upper = Upper(character);
    return (upper >= 'A' && upper <= 'Z') || (character >= '0' && character <= '9') ||
           character == '_' || character == '$' || character == '#' || character == '@' ||
           static_cast<unsigned char>(character) >= 0x80;
}

bool IsSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

template <class Condition>
std::size_t LengthWhile(std::string_view text, Condition condition)
{
    const auto end = std::find_if_not(text.begin(), text.end(), condition);
    return static_cast<std::size_t>(end - text.begin());
}

} // namespace

bool SqlToken::Is(std::string_view word) const
{
    return part == SqlPart::Word && IsSameText(text, word);
}

SqlPart SqlScanner::PartAtPosition() const
{
    const std::string_view rest = m_sql.substr(m_position);
    if (rest.empty())
        return SqlPart::End;
    switch (rest[0]) {
    case '\'':
        return SqlPart::SingleQuoted;
    case '"':
        return SqlPart::DoubleQuoted;
    case '`':
        return SqlPart::BackQuoted;
    default:
        break;
    }
    if (rest.substr(0, 2) == "--" || rest.substr(0, 2) == "/*")
        return SqlPart::Comment;
    if (IsSpace(rest[0]))
        return SqlPart::Space;
    return IsWordCharacter(rest[0]) ? SqlPart::Word : SqlPart::Symbol;
}

std::size_t SqlScanner::QuotedLength(char quote, bool& isClosed) const
{
    std::size_t end = m_position + 1;
    for (;;) {
        end = m_sql.find(quote, end);
        isClosed = end != std::string_view::npos;
        if (!isClosed)
            return m_sql.size() - m_position;
        if (end + 1 >= m_sql.size() || m_sql[end + 1] != quote)
            return end + 1 - m_position;
        end += 2;
    }
}

std::size_t SqlScanner::LengthOf(SqlPart part, bool& isClosed) const
{
    const std::string_view rest = m_sql.substr(m_position);
    switch (part) {
    case SqlPart::SingleQuoted:
    case SqlPart::DoubleQuoted:
    case SqlPart::BackQuoted:
        return QuotedLength(rest[0], isClosed);
    case SqlPart::Comment: {
        const bool isLine = rest[0] == '-';
        const std::size_t end = isLine ? rest.find('\n') : rest.find("*/", 2);
        return end == std::string_view::npos ? rest.size() : end + (isLine ? 1 : 2);
    }
    case SqlPart::Space:
        return LengthWhile(rest, IsSpace);
    case SqlPart::Word:
        return LengthWhile(rest, IsWordCharacter);
    default:
        return 1;
    }
}

SqlToken SqlScanner::Next()
{
    SqlToken token;
    token.part = PartAtPosition();
    token.begin = m_position;
    if (token.part == SqlPart::End)
        return token;
    const std::size_t length = LengthOf(token.part, token.isClosed);
    token.text = m_sql.substr(m_position, length);
    m_position += length;
    return token;
}

SqlToken SqlScanner::NextMeaningful()
{
    SqlToken token = Next();
    while (token.part == SqlPart::Space || token.part == SqlPart::Comment)
        token = Next();
    return token;
}

std::string WithoutQuotes(std::string_view name)
{
    const bool isLong = name.size() >= 2;
    const char first = isLong ? name.front() : '\0';
    const bool isBracket = first == '[' && name.back() == ']';
    const bool isQuote = (first == '"' || first == '`' || first == '\'') && name.back() == first;
    if (!isBracket && !isQuote)
        return std::string(name);
    std::string inside;
    for (std::size_t i = 1; i + 1 < name.size(); ++i) {
        inside += name[i];
        i += isQuote && name[i] == first;
    }
    return inside;
}

bool IsSameName(std::string_view left, std::string_view right)
{
    return IsSameText(WithoutQuotes(left), WithoutQuotes(right));
}

} // namespace zelrs
