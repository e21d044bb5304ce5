#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_SCHEMA_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_SCHEMA_H

// The tables.

#include <ZELQRNDT017/platform/recordsets/database.h>

namespace rechnungslauf {

/// Makes the table of the number range if it is missing; its row tells whether the others are
/// filled.
void MakeNumberTable(CDatabase& database);

/// Makes the other tables that are missing.
///
/// Amounts stay exact: in SQLite, whose numbers are floating ones, they are texts; elsewhere
/// decimals. Times are counts of 1/1200 hour.
void MakeTables(CDatabase& database);

} // namespace rechnungslauf

#endif
