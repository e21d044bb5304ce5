#ifndef ZELDT_PLATFORM_RECORDSETS_ROWBLOCK_H
#define ZELDT_PLATFORM_RECORDSETS_ROWBLOCK_H

/// The rows that one call fetches.

#include "platform/recordsets/values.h"

#include <string>
#include <vector>

namespace zelrs {

/// Buffers for a number of rows, bound to a statement.
///
/// A column whose texts may be long is not bound: its values are fetched one by one, in pieces, as
/// long as they are. Then a block is one row.
class RowBlock {
public:
    /// Binds; the statement must have been executed and must outlive the block.
    RowBlock(Statement& statement, const std::vector<ColumnPlan>& plans);
    ~RowBlock();
    RowBlock(const RowBlock&) = delete;
    RowBlock& operator=(const RowBlock&) = delete;

    /// Fetches the next rows; false when there are none.
    bool Fetch();

    std::size_t RowCount() const noexcept { return m_rowCount; }

    /// Valid until the next Fetch.
    RawValue Value(std::size_t row, std::size_t index) const;

private:
    struct Column {
        ColumnPlan plan;
        bool isLong = false;
        std::vector<char> values;
        std::vector<SQLLEN> lengths;
    };

    std::size_t ChooseRows() const;
    void Bind(Column& column);
    void ReadLong(Column& column);
    void CheckRows();

    Statement& m_statement;
    std::vector<Column> m_columns;
    std::vector<SQLUSMALLINT> m_states; ///< one for each row
    SQLULEN m_rowCount = 0;
};

} // namespace zelrs

#endif
