#ifndef ZELDT_TOOLS_ZELCONV_EXTERNTEXT_H
#define ZELDT_TOOLS_ZELCONV_EXTERNTEXT_H

/// The extern form: rows as lines of cells parted by tabs, each cell VERSION:DEFINED:TEXT as
/// ConvToExtern gives them. Everything here is in code page 1252.
///
/// Tabs, line ends, backslashes and NUL bytes in texts are written \t \n \r \\ \0.

#include "tools/zelconv/column.h"
#include "tools/zelconv/row.h"

#include <string>
#include <string_view>

namespace zelconv {

inline constexpr char kExternSeparator = '\t';

/// First cell of the line that names the columns, and of the line that counts the rows.
inline constexpr std::string_view kExternBegin = "#zelconv-extern 1";
inline constexpr std::string_view kExternEnd = "#end";

/// Appends `text` with the special characters escaped.
void AppendEscaped(std::string_view text, std::string& out);

/// Appends `text` without its escapes; false for an escape that is none.
bool AppendUnescaped(std::string_view text, std::string& out);

/// Takes the cell in front, and the separator behind it, off `line`; false when nothing is left
/// because the last cell was taken before.
bool TakeExternCell(std::string_view& line, bool& atEnd, std::string_view& cell);

/// Appends the cell of a value; a fault of `column` if the value has none that reads back.
void AppendExternCell(const ZelDtBasis& value, const ColumnType& type, int column,
                      std::string& out);

/// Appends the line of a row without line end, for people: it has also the values that extern form
/// would change or lacks, each with all that it holds.
void AppendExternRow(const Row& row, const Columns& columns, std::string& out);

/// Reads a value from its cell; a fault of `column` if that is not possible. A defined value must
/// give the same text again, so that nothing of it is lost.
void SetFromExternCell(ZelDtBasis& value, std::string_view cell, int column);

/// The line that names the columns, and the reverse; Failure naming `source` for a bad one.
std::string ExternHeader(const Columns& columns);
Columns ParseExternHeader(std::string_view line, ZelDtWorkingMode mode, const std::string& source);

} // namespace zelconv

#endif
