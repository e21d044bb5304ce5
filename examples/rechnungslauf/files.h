#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_FILES_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_FILES_H

// Files that are there as a whole or not at all.

#include <string>

namespace rechnungslauf {

/// Makes the folder if it is missing, and tries whether files can be written there.
/// std::runtime_error if not.
void MakeFolder(const std::string& folder);

/// Brings the file to these contents: they are written beside it, then get its name. A program that
/// is killed leaves the old file or the new one; what it left beside, the next call replaces.
/// Returns false, without touching anything, when the file has these contents already.
/// std::runtime_error when it cannot be written; it is then as it was.
bool BringTo(const std::string& name, const std::string& contents);

} // namespace rechnungslauf

#endif
