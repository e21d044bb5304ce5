#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_REPORT_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_REPORT_H

// What people are shown, and a table for their spreadsheets; German, in UTF-8.

#include "billing.h"

#include <string>
#include <vector>

namespace rechnungslauf {

/// The invoices as a table, their sums by tax rate and in all, the orders and the rows of the
/// sample files that were left out.
std::string Report(const ZelDtDateZp& date, const std::vector<Invoice>& invoices,
                   const std::vector<Unbilled>& unbilled, const std::vector<RefusedRow>& refused);

/// A line of CSV for each invoice, behind one with the names of the columns.
std::string Table(const std::vector<Invoice>& invoices);

/// One invoice with its positions.
std::string Shown(const Invoice& invoice);

/// "03.01.2022".
std::string Shown(const ZelDtDateZp& date);

} // namespace rechnungslauf

#endif
