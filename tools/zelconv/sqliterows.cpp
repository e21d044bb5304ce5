#include "tools/zelconv/sqliterows.h"

#include "tools/zelconv/charset.h"

#include <cstring>
#include <sqlite3.h>
#include <utility>

struct sqlite3_api_routines;

namespace zelconv {

namespace {

sqlite3* lastConnection = nullptr;

/// SQLite calls it for every connection that it opens.
int NoteConnection(sqlite3* connection, char**, const sqlite3_api_routines*)
{
    lastConnection = connection;
    return SQLITE_OK;
}

/// As SQLite wants it.
void (*EntryPoint())()
{
    return reinterpret_cast<void (*)()>(&NoteConnection);
}

// A cell is one of these letters and what belongs to it: nothing, 8 bytes, 8 bytes, or a length and
// that many bytes of UTF-8.
constexpr char kNull = 'N';
constexpr char kWhole = 'W';
constexpr char kDouble = 'D';
constexpr char kText = 'T';

template <typename Number>
void AppendBytes(Number number, std::string& row)
{
    row.append(reinterpret_cast<const char*>(&number), sizeof number);
}

template <typename Number>
Number TakeBytes(std::string_view& rows)
{
    Number number{};
    std::memcpy(&number, rows.data(), sizeof number);
    rows.remove_prefix(sizeof number);
    return number;
}

class SqliteRows final : public RowSink {
public:
    SqliteRows(sqlite3* connection, std::string place, const std::string& statement, int columns);
    ~SqliteRows() override { sqlite3_finalize(m_statement); }
    SqliteRows(const SqliteRows&) = delete;
    SqliteRows& operator=(const SqliteRows&) = delete;

    void AddNull(std::string& row) const override { row += kNull; }
    void AddWhole(std::int64_t number, std::string& row) const override
    {
        row += kWhole;
        AppendBytes(number, row);
    }
    void AddDouble(double number, std::string& row) const override
    {
        row += kDouble;
        AppendBytes(number, row);
    }
    void AddText(std::string_view text, std::string& row) const override;
    void EndRow(std::string&) const override {}

    void Insert(std::string_view rows) override;

private:
    using Length = std::uint32_t;

    int Bind(int column, std::string_view& rows);
    void Check(int code) const;

    sqlite3* m_connection;
    std::string m_place;
    int m_columns;
    sqlite3_stmt* m_statement = nullptr;
};

SqliteRows::SqliteRows(sqlite3* connection, std::string place, const std::string& statement,
                       int columns)
    : m_connection(connection), m_place(std::move(place)), m_columns(columns)
{
    Check(sqlite3_prepare_v2(m_connection, statement.c_str(), -1, &m_statement, nullptr));
}

void SqliteRows::AddText(std::string_view text, std::string& row) const
{
    row += kText;
    const std::size_t begin = row.size();
    AppendBytes(Length{0}, row);
    FromAnsi(Charset::Utf8, text, row);
    const auto length = static_cast<Length>(row.size() - begin - sizeof(Length));
    std::memcpy(&row[begin], &length, sizeof length);
}

void SqliteRows::Insert(std::string_view rows)
{
    while (!rows.empty()) {
        for (int column = 1; column <= m_columns; ++column)
            Check(Bind(column, rows));
        sqlite3_step(m_statement);
        Check(sqlite3_reset(m_statement));
    }
}

/// Takes a cell off the rows. What it returns is SQLite's.
int SqliteRows::Bind(int column, std::string_view& rows)
{
    const char kind = rows.front();
    rows.remove_prefix(1);
    if (kind == kWhole)
        return sqlite3_bind_int64(m_statement, column, TakeBytes<std::int64_t>(rows));
    if (kind == kDouble)
        return sqlite3_bind_double(m_statement, column, TakeBytes<double>(rows));
    if (kind == kNull)
        return sqlite3_bind_null(m_statement, column);
    const auto length = TakeBytes<Length>(rows);
    // The bytes stay until the row is inserted; SQLite need not copy them.
    const int code = sqlite3_bind_text(m_statement, column, rows.data(), static_cast<int>(length),
                                       SQLITE_STATIC);
    rows.remove_prefix(length);
    return code;
}

void SqliteRows::Check(int code) const
{
    if (code != SQLITE_OK)
        throw Failure(m_place + ": " + InOneLine(sqlite3_errmsg(m_connection)));
}

} // namespace

SqliteWatch::SqliteWatch()
{
    lastConnection = nullptr;
    sqlite3_auto_extension(EntryPoint());
}

SqliteWatch::~SqliteWatch()
{
    sqlite3_cancel_auto_extension(EntryPoint());
}

sqlite3* SqliteWatch::GetLast() const
{
    return lastConnection;
}

std::unique_ptr<RowSink> NewSqliteRows(Database& database, const TableName& table,
                                       const std::string& names, std::size_t columns)
{
    const std::string beginning = "INSERT INTO " + database.Quoted(table) + " (" + names + ") ";
    // The driver begins the transaction with the first statement. This one inserts nothing, but it
    // reserves the file for writing and shows what cannot be written at all.
    const std::string nothing =
        beginning + "SELECT " + names + " FROM " + database.Quoted(table) + " WHERE 0";
    OnDatabase(table.Given(), [&] { database.Get().ExecuteSQL(nothing.c_str()); });
    if (database.GetSqlite() == nullptr || sqlite3_get_autocommit(database.GetSqlite()) != 0)
        throw Failure(table.Given() + ": the driver does not use the shared library of SQLite");

    std::string values = "VALUES (?";
    for (std::size_t i = 1; i < columns; ++i)
        values += ",?";
    return std::make_unique<SqliteRows>(database.GetSqlite(), table.Given(),
                                        Utf8FromAnsi(beginning) + values + ")",
                                        static_cast<int>(columns));
}

} // namespace zelconv
