#ifndef ZELDT_PLATFORM_RECORDSETS_COLUMNS_H
#define ZELDT_PLATFORM_RECORDSETS_COLUMNS_H

/// Columns of tables and results, and in which form their values are fetched for a field.

#include "platform/recordsets/connection.h"

#include <string_view>
#include <vector>

namespace zelrs {

/// What a column says that it holds.
enum class ColumnType {
    Undeclared, ///< an expression whose values have any type
    Integer,
    Decimal, ///< exact number with a fraction
    Real,
    Character,
    Date,
    Moment, ///< date and time of day
    TimeOfDay,
    Binary,
};

struct TableColumn {
    CString name;
    ColumnType type = ColumnType::Undeclared;
    bool isNullable = true;
};

struct Table {
    std::vector<TableColumn> columns; ///< for SQLite only: others tell with every result
    std::vector<CString> keys;        ///< what identifies a record, as names in a statement
};

/// What a source says about a table; without keys when there is no such table. `name` as written
/// in a statement.
Table LookUpTable(Connection& connection, const CString& name);

/// A name as it stands in statements.
CString QuotedName(const Connection& connection, const CString& name);

struct ResultColumn {
    CString name;  ///< in the table it comes from, or what the statement calls it
    CString table; ///< the one it comes from, empty for an expression
    ColumnType type = ColumnType::Undeclared;
    int digits = 0; ///< behind the decimal point, of a second
    bool isUnsigned = false;
    bool isNullable = true;
};

/// The columns of a statement that is prepared.
std::vector<ResultColumn> DescribeColumns(const Statement& statement);

/// The form in which a value is fetched and kept.
enum class Wire {
    Text, ///< in the source's character set
    BigInt,
    Double,
    Moment, ///< TIMESTAMP_STRUCT
};

struct ColumnPlan {
    SQLUSMALLINT ordinal = 0;
    Wire wire = Wire::Text;
    std::size_t width = 0; ///< most bytes of a value; of a text with the NUL behind it
};

/// How to fetch a column for a field. Throws CDBException (schema mismatch) when a value of that
/// type is no value for the field.
ColumnPlan PlanColumn(SQLUSMALLINT ordinal, const ResultColumn& column,
                      const CFieldDescription& field, SourceKind source);

/// How to fetch a column that identifies the record.
ColumnPlan PlanKey(SQLUSMALLINT ordinal, const ResultColumn& column, SourceKind source);

} // namespace zelrs

#endif
