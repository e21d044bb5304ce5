#ifndef ZELDT_TOOLS_ZELCONV_REJECTS_H
#define ZELDT_TOOLS_ZELCONV_REJECTS_H

/// The rows that could not be converted, each unchanged behind a line that tells why. Without a
/// file the first of them are told of on standard error.

#include "tools/zelconv/output.h"
#include "tools/zelconv/reader.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zelconv {

class Rejects {
public:
    /// `fileName` may be empty.
    explicit Rejects(const std::string& fileName);

    /// Takes the present row of `reader`; `row` is what was read of it.
    void Add(const Reader& reader, const Row& row, const RowFault& fault);

    std::uint64_t GetCount() const { return m_count; }

    /// Null without a file.
    OutputFile* GetFile() { return m_file.get(); }

private:
    void Write(const Reader& reader, const Row& row, const RowFault& fault);
    void Tell(const Reader& reader, const RowFault& fault) const;

    std::unique_ptr<OutputFile> m_file;
    std::uint64_t m_count = 0;
};

} // namespace zelconv

#endif
