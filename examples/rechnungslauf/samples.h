#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_SAMPLES_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_SAMPLES_H

// Filling the database from the sample files.

#include <ZELQRNDT017/platform/recordsets/database.h>

#include <functional>
#include <string>

namespace rechnungslauf {

/// Told now and then what is going on, in UTF-8.
using Teller = std::function<void(const std::string&)>;

/// Makes tables and fills them from kunden.csv, artikel.csv, konditionen.csv, auftraege.csv and
/// arbeitszeiten.csv, all or nothing. A row that is none goes to the table Abgewiesen with its
/// reason. Does nothing when that was done before.
///
/// Throws what the database throws; std::runtime_error for a file that cannot be read.
void FillDatabase(CDatabase& database, const std::string& folder, const Teller& tell);

} // namespace rechnungslauf

#endif
