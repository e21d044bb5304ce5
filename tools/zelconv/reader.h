#ifndef ZELDT_TOOLS_ZELCONV_READER_H
#define ZELDT_TOOLS_ZELCONV_READER_H

/// Where rows come from.
///
///     while (reader->Next()) {
///         try { reader->Fill(row); }
///         catch (const RowFault& fault) { rejects.Add(*reader, row, fault); }
///     }

#include "tools/zelconv/fault.h"
#include "tools/zelconv/input.h"
#include "tools/zelconv/options.h"
#include "tools/zelconv/row.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zelconv {

class Reader {
public:
    virtual ~Reader() = default;

    /// The columns of the rows, from the command line or from the file.
    virtual const Columns& GetColumns() const = 0;

    /// Goes to the next row; false behind the last one. Failure for a file that is no good.
    virtual bool Next() = 0;

    /// Reads the present row; throws RowFault if that is not possible. Call once for each row.
    virtual void Fill(Row& row) = 0;

    /// Number of the first line of the present row, or of the row where there are no lines; from 1.
    virtual std::uint64_t GetLineNumber() const = 0;

    /// Appends the present row as it stands in the file.
    virtual void AppendRaw(const Row& row, std::string& out) const = 0;

    /// The charset of AppendRaw.
    virtual Charset GetRawCharset() const = 0;
};

/// `file` must outlive the readers; each reads what stands in front of the rows.
std::unique_ptr<Reader> NewCsvReader(InputFile& file, const Options& options);
std::unique_ptr<Reader> NewExternReader(InputFile& file, const Options& options);
std::unique_ptr<Reader> NewArchiveReader(InputFile& file, const Options& options);

/// The rows of a table; reaches the database at once.
std::unique_ptr<Reader> NewDatabaseReader(const Options& options);

} // namespace zelconv

#endif
