#ifndef ZELDT_TOOLS_ZELCONV_DATABASETYPES_H
#define ZELDT_TOOLS_ZELCONV_DATABASETYPES_H

/// How the types of columns are kept in databases. A new type is one row of the table in
/// databasetypes.cpp.

#include "tools/zelconv/column.h"
#include "tools/zelconv/database.h"
#include "tools/zelconv/rowsink.h"

#include <memory>
#include <string>

namespace zelconv {

/// The member of a record that stands for a column.
class Field {
public:
    Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    /// Does for the member what DoFieldExchange does; `name` as statements have it.
    virtual void Exchange(CFieldExchange* pass, const char* name) = 0;

    /// Takes the member over into a value; what the value would lose is a finding. Throws what the
    /// value's class throws.
    virtual Finding Load(CRecordset& record, ZelDtBasis& value) const = 0;
};

struct DatabaseType {
    const char* name; ///< of the column type
    /// What columns of tables can take every value, one bit for each Content; the second one for
    /// SQLite.
    unsigned contents;
    unsigned sqliteContents;
    /// `mostCharacters` of a text.
    std::unique_ptr<Field> (*newField)(std::size_t mostCharacters);
    /// The type in CREATE TABLE.
    std::string (*declare)(const Column& column, Dialect dialect);
    /// Appends a defined value to a row; a finding if the column has no room for it.
    Finding (*append)(const ZelDtBasis& value, const TableColumn& place, const RowSink& sink,
                      std::string& row);

    bool Fits(Content content, Dialect dialect) const;
};

const DatabaseType& DatabaseTypeOf(const ColumnType& type);

} // namespace zelconv

#endif
