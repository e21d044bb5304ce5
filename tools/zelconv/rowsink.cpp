#include "tools/zelconv/rowsink.h"

#include "tools/zelconv/sqliterows.h"

#include <array>
#include <charconv>

namespace zelconv {

namespace {

/// The names of the columns as statements have them.
std::string NamesOf(const Database& database, const Columns& columns)
{
    std::string names;
    for (const Column& column : columns)
        names += (names.empty() ? "" : ",") + database.Quoted(column.name);
    return names;
}

/// Inserts rows by statements with many of them: fewer statements are fewer ways to a server.
class StatementRows final : public RowSink {
public:
    StatementRows(Database& database, const TableName& table, const Columns& columns)
        : m_database(database), m_place(table.Given()),
          m_beginning("INSERT INTO " + database.Quoted(table) + " (" + NamesOf(database, columns) +
                      ") VALUES ")
    {}

    // The comma of the first cell becomes a parenthesis.
    void AddNull(std::string& row) const override { row += ",NULL"; }
    void AddWhole(std::int64_t number, std::string& row) const override;
    void AddDouble(double number, std::string& row) const override;
    void AddText(std::string_view text, std::string& row) const override;
    void EndRow(std::string& row) const override
    {
        row.front() = '(';
        row += "),";
    }

    void Insert(std::string_view rows) override;

private:
    Database& m_database;
    std::string m_place;
    std::string m_beginning; ///< of every statement, up to the rows
};

void StatementRows::AddWhole(std::int64_t number, std::string& row) const
{
    std::array<char, 24> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
    row += ',';
    row.append(text.data(), end.ptr);
}

/// The exponent tells that it is a double.
void StatementRows::AddDouble(double number, std::string& row) const
{
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific);
    row += ',';
    row.append(text.data(), end.ptr);
}

/// In single quotes, as the standard has texts.
void StatementRows::AddText(std::string_view text, std::string& row) const
{
    row += ",'";
    for (std::size_t quote = text.find('\''); quote != text.npos; quote = text.find('\'')) {
        row.append(text, 0, quote + 1);
        row += '\'';
        text.remove_prefix(quote + 1);
    }
    row += text;
    row += '\'';
}

void StatementRows::Insert(std::string_view rows)
{
    rows.remove_suffix(1); // the comma behind the last one
    const std::string statement = m_beginning + std::string(rows);
    OnDatabase(m_place, [&] { m_database.Get().ExecuteSQL(statement.c_str()); });
}

} // namespace

std::unique_ptr<RowSink> NewRowSink(Database& database, const TableName& table,
                                    const Columns& columns)
{
    if (database.GetDialect() == Dialect::Sqlite)
        return NewSqliteRows(database, table, NamesOf(database, columns), columns.size());
    return std::make_unique<StatementRows>(database, table, columns);
}

} // namespace zelconv
