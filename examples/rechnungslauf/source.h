#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_SOURCE_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_SOURCE_H

#include "options.h"

#include <string>

namespace rechnungslauf {

/// The connection string that the options mean. std::runtime_error for a name of a file that such
/// a string cannot hold.
std::string ConnectString(const Options& options);

} // namespace rechnungslauf

#endif
