#ifndef ZELDT_TOOLS_ZELCONV_DATABASE_H
#define ZELDT_TOOLS_ZELCONV_DATABASE_H

/// What reading and writing tables have in common: the connection, names and messages.

#include "tools/zelconv/fault.h"

#include <platform/recordsets/database.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// A name, in code page 1252, as statements have it; Failure if it cannot stand there.
std::string QuotedName(std::string_view name);

/// The name of a table from the command line. Points separate the schema.
class TableName {
public:
    /// UTF-8; Failure for a name that cannot stand in a statement.
    explicit TableName(const std::string& given);

    /// For messages, in UTF-8.
    const std::string& Given() const { return m_given; }
    /// For statements.
    const std::string& Quoted() const { return m_quoted; }
    /// The parts in code page 1252; the schema may be empty.
    const std::string& Schema() const { return m_schema; }
    const std::string& Name() const { return m_name; }

private:
    std::string m_given;
    std::string m_quoted;
    std::string m_schema;
    std::string m_name;
};

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

    /// The columns of a table; none when there is no such table.
    std::vector<TableColumn> ColumnsOf(const TableName& table);

private:
    void LearnDialect();

    CDatabase m_database;
    Dialect m_dialect = Dialect::Other;
};

} // namespace zelconv

#endif
