#include "tools/zelconv/outputtable.h"

#include "tools/zelconv/databasetypes.h"

namespace zelconv {

namespace {

Database::Access AccessOf(const Options& options)
{
    return options.create ? Database::Access::Create : Database::Access::Write;
}

} // namespace

OutputTable::OutputTable(const Options& options, const Columns& columns)
    : m_table(options.table), m_database(options.output, AccessOf(options)),
      m_found(m_database.ColumnsOf(m_table))
{
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
    std::string sql = "CREATE TABLE " + m_database.Quoted(m_table);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const DatabaseType& type = DatabaseTypeOf(*columns[i].type);
        sql += (i == 0 ? " (" : ",") + m_database.Quoted(columns[i].name) + " " +
               type.declare(columns[i], GetDialect());
    }
    m_database.Get().ExecuteSQL((sql + ")").c_str());
    m_isLeftByRollback = GetDialect() != Dialect::Sqlite;
    m_found = m_database.ColumnsOf(m_table);
}

const RowSink& OutputTable::OpenSink(const Columns& columns)
{
    m_sink = NewRowSink(m_database, m_table, columns);
    m_queue.emplace(*m_sink);
    return *m_sink;
}

void OutputTable::Publish()
{
    OnDatabase(m_table.Given(), [&] { m_database.Get().CommitTrans(); });
    m_isPublished = true;
}

void OutputTable::Undo() noexcept
{
    // Ends the thread, and with it what is being inserted.
    m_queue.reset();
    try {
        m_database.Get().Rollback();
        if (m_isLeftByRollback)
            m_database.Get().ExecuteSQL(("DROP TABLE " + m_database.Quoted(m_table)).c_str());
    } catch (CException* error) {
        // A connection that is lost undoes the rows by itself.
        error->Delete();
    }
}

} // namespace zelconv
