#ifndef ZELDT_TOOLS_ZELCONV_COLUMN_H
#define ZELDT_TOOLS_ZELCONV_COLUMN_H

/// Columns and their types. A new type is one row of the table in column.cpp.

#include <ZelDt.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

/// What a type must know beyond the common interface of the value classes. Functions that may be
/// null are for defined values.
struct ColumnType {
    static constexpr int kNoParameter = -1;

    const char* name;
    bool numeric; ///< shown at the right edge of its column
    std::unique_ptr<ZelDtBasis> (*create)(ZelDtWorkingMode mode);
    ZelDtString (*toSql)(const ZelDtBasis& value);
    /// Whether `a` comes before `b`; both are defined.
    bool (*less)(const ZelDtBasis& a, const ZelDtBasis& b);

    /// Largest parameter in parentheses, which may be left out; kNoParameter: takes none.
    int mostParameter = kNoParameter;
    /// Makes a value that was read what the parameter of its column asks for; false if it cannot
    /// be. Null: nothing to do.
    bool (*fit)(ZelDtBasis& value, int parameter) = nullptr;
    /// The decimals that the value holds: fewer than were read if it had to be rounded. Null: a
    /// type without decimals, or one that rounds by its nature.
    int (*countDecimals)(const ZelDtBasis& value) = nullptr;
    /// Whether the value's text in SQL or extern form reads back as the same value. Null: always.
    bool (*readsBack)(const ZelDtBasis& value, const ZelDtString& text) = nullptr;
    /// A text that tells every value apart. Null: the text in extern form does.
    std::string (*exactText)(const ZelDtBasis& value) = nullptr;
};

struct Column {
    std::string name; ///< code page 1252
    const ColumnType* type = nullptr;
    int parameter = ColumnType::kNoParameter;
    ZelDtWorkingMode mode = ZelDtWmMissing;

    /// The type as it is written behind the name, for example "long".
    std::string TypeText() const;
    std::unique_ptr<ZelDtBasis> NewValue() const;
};

using Columns = std::vector<Column>;

/// Most columns of a row.
inline constexpr std::size_t kMostColumns = 4096;

/// One column from its name and the text of its type, in code page 1252; Failure for a name that
/// is empty or has control characters, and for an unknown type.
Column MakeColumn(std::string_view name, std::string_view typeText, ZelDtWorkingMode mode);

/// Appends a column; Failure for a name that is there already and for too many columns.
void AddColumn(Columns& columns, Column column);

/// Columns from "Nr:long,Name:string" in UTF-8. The last colon of each part separates; names have
/// no commas.
Columns ParseColumns(std::string_view text, ZelDtWorkingMode mode);

/// Index of the column of that name, given in UTF-8; Failure if there is none.
std::size_t FindColumn(const Columns& columns, std::string_view name);

/// Failure naming `source` unless both have the same names and types in the same order.
void RequireSameColumns(const Columns& wanted, const Columns& found, const std::string& source);

/// Numbers as programs write them: a point before the decimals, no groups.
const ZelFormat& PlainNumbers();

} // namespace zelconv

#endif
