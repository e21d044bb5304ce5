#ifndef ZELDT_PLATFORM_RECORDSETS_SQLTEXT_H
#define ZELDT_PLATFORM_RECORDSETS_SQLTEXT_H

/// The parts of a statement: as much of SQL as is needed to tell texts and comments from the rest.

#include <cstddef>
#include <string>
#include <string_view>

namespace zelrs {

enum class SqlPart {
    Word,         ///< letters, digits, underscores, $, #, @ and everything above 7F
    SingleQuoted, ///< with its quotes, inner ones doubled
    DoubleQuoted,
    BackQuoted,
    Comment, ///< from -- to the end of the line, between /* and */
    Space,
    Symbol, ///< one character
    End,
};

struct SqlToken {
    SqlPart part = SqlPart::End;
    std::size_t begin = 0; ///< in the whole text
    std::string_view text;
    bool isClosed = true; ///< of a quoted part: there is a closing quote

    /// Compares a word, whatever the case of its letters; `word` is in capitals.
    bool Is(std::string_view word) const;
};

/// Walks through a statement.
class SqlScanner {
public:
    explicit SqlScanner(std::string_view sql) : m_sql(sql) {}

    SqlToken Next();

    /// The next one that is neither space nor comment.
    SqlToken NextMeaningful();

private:
    std::size_t QuotedLength(char quote, bool& isClosed) const;
    std::size_t LengthOf(SqlPart part, bool& isClosed) const;
    SqlPart PartAtPosition() const;

    std::string_view m_sql;
    std::size_t m_position = 0;
};

/// Without the quotes around it and with inner ones single; a text without quotes as it is. Square
/// brackets count as quotes too.
std::string WithoutQuotes(std::string_view name);

/// Whether two names mean the same column or table: without quotes and without case.
bool IsSameName(std::string_view left, std::string_view right);

} // namespace zelrs

#endif
