#include "tools/zelconv/outputtable.h"

#include "tools/zelconv/databasetypes.h"

#include <utility>

namespace zelconv {

namespace {

/// How much goes into a statement. More rows save round trips to a server; SQLite needs none, and
/// long statements cost it more than they save.
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;
constexpr std::size_t kMostRows = 1000;
constexpr std::size_t kMostRowsSqlite = 32;

Database::Access AccessOf(const Options& options)
{
    return options.create ? Database::Access::Create : Database::Access::Write;
}

} // namespace

OutputTable::OutputTable(const Options& options, const Columns& columns)
    : m_table(options.table), m_database(options.output, AccessOf(options)),
      m_queue(m_database, m_table.Given()), m_beginning("INSERT INTO " + m_table.Quoted())
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        m_beginning += (i == 0 ? " (" : ",") + QuotedName(columns[i].name);
    m_beginning += ") VALUES ";
    m_found = m_database.ColumnsOf(m_table);
    if (m_found.empty() && !options.create)
        throw Failure(m_table.Given() + ": there is no such table (--create yes makes it)");
    OnDatabase(m_table.Given(), [&] {
        if (!m_database.Get().BeginTrans())
            throw Failure(m_table.Given() + ": the database has no transactions");
        if (m_found.empty())
            Create(columns);
    });
}

OutputTable::~OutputTable()
{
    if (!m_isPublished)
        Undo();
}

/// SQLite makes tables in the transaction; others do it at once.
void OutputTable::Create(const Columns& columns)
{
    std::string sql = "CREATE TABLE " + m_table.Quoted();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const DatabaseType& type = DatabaseTypeOf(*columns[i].type);
        sql += (i == 0 ? " (" : ",") + QuotedName(columns[i].name) + " " +
               type.declare(columns[i], GetDialect());
    }
    m_database.Get().ExecuteSQL((sql + ")").c_str());
    m_isLeftByRollback = GetDialect() != Dialect::Sqlite;
    m_found = m_database.ColumnsOf(m_table);
}

void OutputTable::Write(std::string_view values)
{
    if (m_rows != 0 && m_statement.size() + values.size() > kMostBytes)
        Send();
    m_statement += m_rows == 0 ? m_beginning : ",";
    m_statement += values;
    ++m_rows;
    if (m_rows == (GetDialect() == Dialect::Sqlite ? kMostRowsSqlite : kMostRows))
        Send();
}

void OutputTable::Send()
{
    m_queue.Add(std::exchange(m_statement, {}));
    m_rows = 0;
}

void OutputTable::Finish()
{
    if (m_rows != 0)
        Send();
    m_queue.Finish();
}

void OutputTable::Publish()
{
    OnDatabase(m_table.Given(), [&] { m_database.Get().CommitTrans(); });
    m_isPublished = true;
}

void OutputTable::Undo() noexcept
{
    m_queue.Abandon();
    try {
        m_database.Get().Rollback();
        if (m_isLeftByRollback)
            m_database.Get().ExecuteSQL(("DROP TABLE " + m_table.Quoted()).c_str());
    } catch (CException* error) {
        // A connection that is lost undoes the rows by itself.
        error->Delete();
    }
}

} // namespace zelconv
