#ifndef ZELDT_TOOLS_ZELCONV_COLUMN_H
#define ZELDT_TOOLS_ZELCONV_COLUMN_H

/// Columns and their types. A new type is one row of the table in columntypes.cpp.

#include "tools/zelconv/fault.h"

#include <ZelDt.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

/// The texts that values have. Csv has the display form, or plain texts for the numeric types.
enum class TextForm { Sql, Extern, Display, Plain };

/// The format of displayed and plain texts; null: what the class shows by itself.
const ZelFormat* FormatOf(TextForm form);

/// What a type must know beyond the common interface of the value classes. Functions that may be
/// null are for defined values.
struct ColumnType {
    static constexpr int kNoParameter = -1;
    static constexpr std::size_t kSqlRoom = 64;

    const char* name;
    bool numeric; ///< shown at the right edge of its column, and may have plain texts
    bool isText;  ///< may have any characters in SQL; the others have ASCII there
    std::unique_ptr<ZelDtBasis> (*create)(ZelDtWorkingMode mode);
    /// Writes the text of ConvToSQL, in code page 1252, into `room` bytes, at least kSqlRoom, and
    /// returns its length. A text that is not shorter than `room` is not written.
    std::size_t (*writeSql)(const ZelDtBasis& value, char* out, std::size_t room);
    /// Whether `a` comes before `b`; both are defined.
    bool (*less)(const ZelDtBasis& a, const ZelDtBasis& b);

    /// Largest parameter in parentheses, which may be left out; kNoParameter: takes none.
    int mostParameter = kNoParameter;
    /// Makes a value that was read what the parameter of its column asks for. Null: nothing to do.
    Finding (*fit)(ZelDtBasis& value, int parameter) = nullptr;
    /// Whether the value lacks something of the displayed or plain text that it was read from.
    /// Null: the class reads all of a text or none.
    Finding (*checkTyped)(const ZelDtBasis& value, TextForm form, std::string_view text) = nullptr;
    /// Makes up for what extern form and archives do not tell of a value, whatever the one before
    /// it was. Null: they tell everything.
    Finding (*complete)(ZelDtBasis& value) = nullptr;
    /// Whether a text that was made of the value reads back as the same value. Null: always.
    bool (*readsBack)(const ZelDtBasis& value, TextForm form, std::string_view text) = nullptr;
    /// A text that tells every value apart, where the one in extern form does not read back. Null:
    /// it always does.
    std::string (*exactText)(const ZelDtBasis& value) = nullptr;
};

/// The type of that name; null if there is none.
const ColumnType* FindType(std::string_view name);

/// The names of all types, with their parameters, for people.
std::string TypeNames();

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

} // namespace zelconv

#endif
