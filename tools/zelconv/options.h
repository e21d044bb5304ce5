#ifndef ZELDT_TOOLS_ZELCONV_OPTIONS_H
#define ZELDT_TOOLS_ZELCONV_OPTIONS_H

/// The command line.

#include "tools/zelconv/charset.h"

#include <ZelDt.h>

#include <optional>
#include <string>

namespace zelconv {

/// The forms that rows have outside.
enum class Form { Csv, Sql, Extern, Archive, Display, Odbc };

struct Options {
    std::string columns; ///< as given; empty: those of the input
    Form from = Form::Csv;
    Form to = Form::Csv;
    std::string table;     ///< that is written, in UTF-8; may name its schema
    std::string fromTable; ///< that is read
    bool create = false;   ///< makes a table that is not there
    Charset inputCharset = Charset::Utf8;
    Charset outputCharset = Charset::Utf8;
    std::string sort;    ///< name of a column; empty: no sorting
    std::string rejects; ///< file name; empty: rejects are only told of
    std::optional<ZelDtWorkingMode> empty;
    char separator = ';';
    bool header = true;
    bool plainNumbers = false; ///< csv has 1234.50, not 1.234,50
    std::string input;  ///< file name, or kStandardStream; of a database what to connect with
    std::string output; ///< the same

    /// The mode of columns that the command line describes.
    ZelDtWorkingMode ModeOfEmpty() const { return empty.value_or(ZelDtWmMissing); }
};

inline constexpr const char* kStandardStream = "-";

/// The options of a call; nothing when it only asked for help or the version, which is then
/// written to standard output. Failure for a call that makes no sense.
std::optional<Options> ParseOptions(int argc, char** argv);

} // namespace zelconv

#endif
