// Literals as the value classes write them, as sources take them.

#include "platform/recordsets/connection.h"

#include "platform/recordsets/literals.h"
#include "platform/recordsets/sqltext.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

namespace {

/// "in ""double"" quotes" as 'in "double" quotes'.
void AppendStandardLiteral(std::string& sql, std::string_view quoted)
{
    sql += '\'';
    const std::string_view inside = quoted.substr(1, quoted.size() - 2);
    for (std::size_t i = 0; i < inside.size(); ++i) {
        sql += inside[i];
        if (inside[i] == '\'')
            sql += '\'';
        else if (inside[i] == '"')
            ++i;
    }
    sql += '\'';
}

std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

CString TextOf(const std::string& text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

std::size_t CountDigits(std::string_view text)
{
    return std::min(text.find_first_not_of("0123456789"), text.size());
}

/// How long the number is that begins there: digits, and a point with digits if there is one. 0 for
/// anything else, numbers with an exponent too.
std::size_t NumberLength(std::string_view text)
{
    std::size_t length = CountDigits(text);
    if (length != 0 && length < text.size() && text[length] == '.')
        length += 1 + CountDigits(text.substr(length + 1));
    const bool goesOn =
        length < text.size() && std::isalnum(static_cast<unsigned char>(text[length])) != 0;
    return goesOn ? 0 : length;
}

/// Whether SQLite keeps the number as it is written, in a column for texts too: it has integers of
/// 64 bits and doubles, and writes small ones with an exponent.
bool IsKeptBySqlite(std::string_view number)
{
    constexpr std::size_t kIntegerDigits = 18;
    constexpr std::size_t kDoubleDigits = 15;
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    const std::size_t point = number.find('.');
    if (point == std::string_view::npos)
        return number.size() <= kIntegerDigits;
    const std::size_t zeros = point == 0 ? number.substr(1).find_first_not_of('0') : 0;
    if (zeros == std::string_view::npos)
        return true; // a zero
    return zeros < 4 && number.size() - 1 - zeros <= kDoubleDigits;
}

/// Whether a minus at the end of the statement so far is the sign of what follows.
bool EndsWithSign(std::string_view sql)
{
    if (sql.empty() || sql.back() != '-')
        return false;
    const std::size_t before = sql.find_last_not_of(" \t\r\n", sql.size() - 2);
    return sql.size() > 1 && before != std::string_view::npos &&
           std::string_view("(,=<>").find(sql[before]) != std::string_view::npos;
}

/// Appends a number in quotes, its sign with it. A column for numbers takes such a text for the
/// same number, one for texts keeps every digit.
void AppendQuotedNumber(std::string& sql, std::string_view number)
{
    const bool isNegative = EndsWithSign(sql);
    if (isNegative)
        sql.pop_back();
    sql += isNegative ? "'-" : "'";
    sql += number;
    sql += '\'';
}

/// The statement with those numbers in quotes that SQLite would shorten.
CString ForSqlite(const CString& statement)
{
    const std::string_view sql = ViewOf(statement);
    std::string result;
    std::size_t done = 0;
    zelrs::SqlScanner scanner(sql);
    for (zelrs::SqlToken token = scanner.Next(); token.part != zelrs::SqlPart::End;
         token = scanner.Next()) {
        if (token.begin < done)
            continue; // point and decimals of a number
        const std::string_view number =
            sql.substr(token.begin, NumberLength(sql.substr(token.begin)));
        const bool isNumber = token.part == zelrs::SqlPart::Word && !number.empty() &&
                              number.size() >= token.text.size() &&
                              (result.empty() || result.back() != '.');
        const std::string_view part = isNumber ? number : token.text;
        if (isNumber && !IsKeptBySqlite(number))
            AppendQuotedNumber(result, number);
        else
            result += part;
        done = token.begin + part.size();
    }
    return TextOf(result);
}

} // namespace

CString ZelRsStandardLiterals(const CString& sql)
{
    std::string result;
    zelrs::SqlScanner scanner(ViewOf(sql));
    for (zelrs::SqlToken token = scanner.Next(); token.part != zelrs::SqlPart::End;
         token = scanner.Next()) {
        if (!token.isClosed)
            AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE,
                                "A quote in the statement is not closed.");
        if (token.part == zelrs::SqlPart::DoubleQuoted)
            AppendStandardLiteral(result, token.text);
        else
            result += token.text;
    }
    return TextOf(result);
}

LONGLONG ZelRsExecute(CDatabase& database, const CString& sql)
{
    const std::shared_ptr<zelrs::Connection> connection = zelrs::Connection::Of(database);
    if (!connection)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, "The database is not open.");
    if (ViewOf(sql).find('\0') != std::string_view::npos)
        AfxThrowDBException(AFX_SQL_ERROR_DATA_TRUNCATED,
                            "A statement cannot hold a character with the value 0.");
    zelrs::Statement statement(*connection);
    const CString standard = ZelRsStandardLiterals(sql);
    const bool isSqlite = connection->Kind() == zelrs::SourceKind::Sqlite;
    statement.ExecuteDirect(isSqlite ? ForSqlite(standard) : standard);
    return statement.ColumnCount() > 0 ? -1 : statement.RowCount();
}
