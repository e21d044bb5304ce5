#ifndef ZELDT_TOOLS_ZELCONV_SQLITEROWS_H
#define ZELDT_TOOLS_ZELCONV_SQLITEROWS_H

/// Inserting rows into SQLite by its own library: its ODBC driver prepares every statement anew,
/// which takes longer than inserting the row, and gives it doubles as texts.

#include "tools/zelconv/rowsink.h"

#include <cstddef>
#include <memory>
#include <string>

namespace zelconv {

/// While it lives, it sees which connections SQLite's shared library opens, whoever asks it to.
/// There may be one at a time.
class SqliteWatch {
public:
    SqliteWatch();
    ~SqliteWatch();
    SqliteWatch(const SqliteWatch&) = delete;
    SqliteWatch& operator=(const SqliteWatch&) = delete;

    /// The latest connection; null if there was none.
    sqlite3* GetLast() const;
};

/// The sink for a table of SQLite: a statement with a value of its own type for every cell, in the
/// transaction of `database`. `names` is the list of the columns for statements, in code page 1252.
std::unique_ptr<RowSink> NewSqliteRows(Database& database, const TableName& table,
                                       const std::string& names, std::size_t columns);

} // namespace zelconv

#endif
