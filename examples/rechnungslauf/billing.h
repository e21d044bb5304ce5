#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_BILLING_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_BILLING_H

// The invoice run in the database.

#include "invoice.h"
#include "records.h"

#include <functional>
#include <string>
#include <vector>

namespace rechnungslauf {

/// An order that no invoice can be made of, and why.
struct Unbilled {
    ZelDtLong order{ZelDtWmMissing};
    Refusal refusal;
};

struct Outcome {
    ZelDtDateZp until{ZelDtWmMissing}; ///< the date of the invoices
    int invoices = 0;                  ///< new ones
    int positions = 0;
    std::vector<Unbilled> unbilled; ///< by number of the order
};

/// Told how many of how many invoices are written.
using Counter = std::function<void(std::size_t done, std::size_t all)>;

/// Invoices what was delivered up to the date and is on no invoice yet, one invoice for a customer,
/// in one transaction: either all of them are in the database afterwards or, when something is
/// thrown, none. Orders that cannot be invoiced are left out and told of, those that are not
/// delivered yet included. An undefined date stands for the end of the month of the latest order.
Outcome WriteInvoices(CDatabase& database, const ZelDtDateZp& until, const Counter& count);

/// All invoices, by number, with their positions.
std::vector<Invoice> ReadInvoices(CDatabase& database);

/// The rows of the sample files that were refused.
std::vector<RefusedRow> ReadRefusedRows(CDatabase& database);

} // namespace rechnungslauf

#endif
