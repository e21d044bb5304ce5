#ifndef ZELDT_TOOLS_ZELCONV_ROWSINK_H
#define ZELDT_TOOLS_ZELCONV_ROWSINK_H

/// How rows get into a table.

#include "tools/zelconv/column.h"
#include "tools/zelconv/database.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zelconv {

/// Makes the bytes of rows and inserts them; the bytes stay in between, and rows are inserted in
/// one thread while the next ones are made in another.
class RowSink {
public:
    RowSink() = default;
    virtual ~RowSink() = default;
    RowSink(const RowSink&) = delete;
    RowSink& operator=(const RowSink&) = delete;

    /// These append a cell to a row; a text is in code page 1252 and has no NUL byte. A row begins
    /// empty.
    virtual void AddNull(std::string& row) const = 0;
    virtual void AddWhole(std::int64_t number, std::string& row) const = 0;
    virtual void AddDouble(double number, std::string& row) const = 0; ///< finite
    virtual void AddText(std::string_view text, std::string& row) const = 0;

    /// Behind the last cell of a row.
    virtual void EndRow(std::string& row) const = 0;

    /// Inserts rows, one behind the other, at least one. Failure if the database refuses one; no
    /// further rows may be inserted then.
    virtual void Insert(std::string_view rows) = 0;
};

/// The sink for a table that is there. A transaction is open, and `database` outlives the sink.
std::unique_ptr<RowSink> NewRowSink(Database& database, const TableName& table,
                                    const Columns& columns);

} // namespace zelconv

#endif
