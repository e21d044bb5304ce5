#ifndef ZELDT_TOOLS_ZELCONV_OUTPUTTABLE_H
#define ZELDT_TOOLS_ZELCONV_OUTPUTTABLE_H

/// The table of a database that rows are added to: all of them, in one transaction, or none.

#include "tools/zelconv/column.h"
#include "tools/zelconv/database.h"
#include "tools/zelconv/options.h"
#include "tools/zelconv/output.h"
#include "tools/zelconv/statementqueue.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

class OutputTable final : public Output {
public:
    /// Begins the transaction. Makes the table if it is missing and --create allows it; else it is
    /// a Failure.
    OutputTable(const Options& options, const Columns& columns);
    /// Undoes what was not published.
    ~OutputTable() override;
    OutputTable(const OutputTable&) = delete;
    OutputTable& operator=(const OutputTable&) = delete;

    const TableName& GetName() const { return m_table; }
    Dialect GetDialect() const { return m_database.GetDialect(); }
    /// The columns that the table has.
    const std::vector<TableColumn>& GetColumns() const { return m_found; }

    /// Takes the values of a row, in parentheses.
    void Write(std::string_view values) override;

    /// Sends the last rows.
    void Finish() override;

    /// Commits.
    void Publish() override;

private:
    void Create(const Columns& columns);
    void Send();
    void Undo() noexcept;

    TableName m_table;
    Database m_database;
    StatementQueue m_queue;
    std::vector<TableColumn> m_found;
    bool m_isPublished = false;
    bool m_isLeftByRollback = false; ///< the table was made and is not undone with the rows
    std::string m_beginning;         ///< of every statement, up to the values
    std::string m_statement;
    std::size_t m_rows = 0; ///< in the statement
};

} // namespace zelconv

#endif
