#ifndef ZELDT_TOOLS_ZELCONV_WRITER_H
#define ZELDT_TOOLS_ZELCONV_WRITER_H

/// Where rows go. Making the bytes of a row and putting them into the output are two steps: what
/// cannot be written is noticed before anything is, and sorting needs the bytes only.

#include "tools/zelconv/fault.h"
#include "tools/zelconv/options.h"
#include "tools/zelconv/output.h"
#include "tools/zelconv/row.h"

#include <memory>
#include <string>

namespace zelconv {

class Writer {
public:
    virtual ~Writer() = default;

    /// What stands in front of the rows.
    virtual void Begin(Output& output) = 0;

    /// Makes the bytes of a row, in place of what `record` held; throws RowFault for a row that
    /// the form or the charset cannot hold.
    virtual void Encode(const Row& row, std::string& record) = 0;

    /// Writes a row that was encoded.
    virtual void Put(const std::string& record, Output& output) { output.Write(record); }

    /// What stands behind the rows.
    virtual void End(Output&) {}
};

/// `columns` must outlive the writers.
std::unique_ptr<Writer> NewCsvWriter(const Columns& columns, const Options& options);
std::unique_ptr<Writer> NewSqlWriter(const Columns& columns, const Options& options);
std::unique_ptr<Writer> NewExternWriter(const Columns& columns, const Options& options);
std::unique_ptr<Writer> NewArchiveWriter(const Columns& columns);
std::unique_ptr<Writer> NewDisplayWriter(const Columns& columns, const Options& options);

/// A writer with the output that it writes for.
struct Target {
    std::unique_ptr<Writer> writer;
    std::unique_ptr<Output> output;
};

/// The table of a database. Failure if it cannot take the columns.
Target NewDatabaseTarget(const Columns& columns, const Options& options);

} // namespace zelconv

#endif
