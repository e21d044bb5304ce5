#ifndef ZELDT_TOOLS_ZELCONV_OUTPUTTABLE_H
#define ZELDT_TOOLS_ZELCONV_OUTPUTTABLE_H

/// The table of a database that rows are added to: all of them, in one transaction, or none.

#include "tools/zelconv/column.h"
#include "tools/zelconv/database.h"
#include "tools/zelconv/options.h"
#include "tools/zelconv/output.h"
#include "tools/zelconv/rowqueue.h"
#include "tools/zelconv/rowsink.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

class OutputTable final : public Output {
public:
    /// Makes the table if it is missing and --create allows it; else it is a Failure.
    OutputTable(const Options& options, const Columns& columns);
    /// Undoes what was not published.
    ~OutputTable() override;
    OutputTable(const OutputTable&) = delete;
    OutputTable& operator=(const OutputTable&) = delete;

    const TableName& GetName() const { return m_table; }
    Dialect GetDialect() const { return m_database.GetDialect(); }
    /// The columns that the table has.
    const std::vector<TableColumn>& GetColumns() const { return m_found; }

    /// Gets ready for rows. Write takes what the sink has made.
    const RowSink& OpenSink(const Columns& columns);

    void Write(std::string_view row) override { m_queue->Add(row); }

    /// Sends the last rows.
    void Finish() override { m_queue->Finish(); }

    /// Commits.
    void Publish() override;

private:
    void Create(const Columns& columns);
    void Undo() noexcept;

    TableName m_table;
    Database m_database;
    std::vector<TableColumn> m_found;
    bool m_isPublished = false;
    bool m_isLeftByRollback = false; ///< the table was made and is not undone with the rows
    std::unique_ptr<RowSink> m_sink;
    std::optional<RowQueue> m_queue;
};

} // namespace zelconv

#endif
