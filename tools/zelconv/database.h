#ifndef ZELDT_TOOLS_ZELCONV_DATABASE_H
#define ZELDT_TOOLS_ZELCONV_DATABASE_H

/// What reading and writing tables have in common: the connection, columns and messages.

#include "tools/zelconv/databasenames.h"
#include "tools/zelconv/fault.h"

#include <platform/recordsets/database.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sqlite3;

namespace zelconv {

/// What a database says and takes differently from others.
enum class Dialect { Sqlite, MariaDb, Other };

/// What a column of a table holds.
enum class Content {
    Anything, ///< what it is given, of any type
    Whole,
    Decimal,  ///< exact numbers with a fixed number of decimals
    Floating, ///< doubles; in SQLite also what calls itself decimal
    Single,   ///< floating numbers of less than 15 digits
    Text,
    FixedText, ///< blanks at the end are lost
    Date,
    Moment, ///< date and time of day
    Other,
};

struct TableColumn {
    std::string name;     ///< code page 1252
    std::string typeName; ///< as the database calls it
    Content content = Content::Other;
    std::size_t length = 0; ///< most characters of a text, digits of a number; 0: no limit is known
    std::size_t places = 0; ///< decimals of a number
};

/// The column of that name, in code page 1252, whatever the case of its letters; null if there is
/// none.
const TableColumn* FindTableColumn(const std::vector<TableColumn>& columns, std::string_view name);

/// A message of a database without the ends of lines in it.
std::string InOneLine(std::string text);

/// What the driver says, in one line of UTF-8. Takes the exception over.
std::string TakeDriverMessage(CDBException* error);

/// Runs `body`; what the database refuses in there is a Failure that begins with `place`.
template <typename Body>
decltype(auto) OnDatabase(const std::string& place, Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (CDBException* error) {
        throw Failure(place + ": " + TakeDriverMessage(error));
    }
}

/// A connection from the command line: a connection string, or the file of a SQLite database.
class Database {
public:
    enum class Access {
        Read,
        Write,  ///< a SQLite file must be there
        Create, ///< it may be missing
    };

    Database(const std::string& connect, Access access);

    CDatabase& Get() { return m_database; }
    Dialect GetDialect() const { return m_dialect; }
    /// SQLite's own connection, through which its driver works. Null for other databases, and where
    /// the driver has a SQLite of its own instead of the shared library.
    sqlite3* GetSqlite() const { return m_sqlite; }

    /// Names as statements have them; Failure for those that cannot stand there.
    std::string Quoted(std::string_view name) const { return QuotedName(name, m_quote); }
    std::string Quoted(const TableName& table) const { return table.Quoted(m_quote); }

    /// The columns of a table; none when there is no such table.
    std::vector<TableColumn> ColumnsOf(const TableName& table);

private:
    void Open(const std::string& connect, const std::string& text, Access access);
    void LearnDialect();

    CDatabase m_database;
    sqlite3* m_sqlite = nullptr;
    Dialect m_dialect = Dialect::Other;
    std::string m_quote; ///< encloses names
};

} // namespace zelconv

#endif
