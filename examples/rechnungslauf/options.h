#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_OPTIONS_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_OPTIONS_H

// The command line.

#include <ZelDt.h>

#include <optional>
#include <string>

namespace rechnungslauf {

struct Options {
    std::string dsn;      ///< connection string; empty: an SQLite file
    std::string database; ///< name of the SQLite file
    std::string driver;   ///< ODBC driver for SQLite; empty: the one of the system
    std::string data = "examples/data";
    std::string out = "rechnungen";
    ZelDtDateZp until{ZelDtWmMissing}; ///< missing: the end of the month of the latest order
    std::string archiveToShow;
};

/// The options of a call; nothing when it only asked for help, which is then written to standard
/// output. std::runtime_error for a call that makes no sense.
std::optional<Options> ParseOptions(int argc, char** argv);

} // namespace rechnungslauf

#endif
