#ifndef ZELDT_EXAMPLES_AUFTRAGSMASKE_ABLAGE_H
#define ZELDT_EXAMPLES_AUFTRAGSMASKE_ABLAGE_H

// Orders in files. What fails is std::runtime_error.

#include "auftrag.h"

#include <memory>
#include <string>

namespace auftraege {

/// Writes the SQL statement and the archive. Both are complete before one of them gets its name;
/// until then the files of these names stay as they are.
void SaveOrder(const CAuftrag& order, const std::string& sqlName, const std::string& archiveName);

/// Reads what SaveOrder put into the archive.
std::unique_ptr<CAuftrag> LoadOrder(const std::string& archiveName);

} // namespace auftraege

#endif
