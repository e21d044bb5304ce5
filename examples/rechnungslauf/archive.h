#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_ARCHIVE_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_ARCHIVE_H

// Invoices as objects in archives.

#include "invoice.h"

#include <string>

namespace rechnungslauf {

/// An object for archives: the values of the invoice, then those of each position, each as its
/// class writes it.
class CRechnung : public CObject {
    DECLARE_SERIAL(CRechnung)

public:
    CRechnung() = default;
    explicit CRechnung(Invoice values);

    void Serialize(CArchive& ar) override;

    Invoice invoice;
};

/// The bytes of an archive with this one invoice.
std::string ArchiveOf(const Invoice& invoice);

/// Reads such an archive; std::runtime_error for a file that is none.
Invoice LoadInvoice(const std::string& name);

} // namespace rechnungslauf

#endif
