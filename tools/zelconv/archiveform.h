#ifndef ZELDT_TOOLS_ZELCONV_ARCHIVEFORM_H
#define ZELDT_TOOLS_ZELCONV_ARCHIVEFORM_H

/// The archive form: a header, the rows, an end mark, all through CArchive, and a checksum behind.
/// docs/zelconv.md describes the bytes.

#include "tools/zelconv/column.h"
#include "tools/zelconv/input.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

inline constexpr std::string_view kArchiveMagic("ZELCONV\x1A", 8);
inline constexpr WORD kArchiveVersion = 1;

/// What stands in front of a row, and in place of one behind the last.
inline constexpr BYTE kRowMark = 1;
inline constexpr BYTE kEndMark = 0;

/// CRC-32 as in ISO 3309 and zip files. Any single damaged byte changes it.
class Checksum {
public:
    static constexpr std::size_t kSize = 4;
    using Bytes = std::array<char, kSize>;

    void Add(std::string_view bytes);
    /// The checksum as it stands in the file, lowest byte first.
    Bytes GetBytes() const;

private:
    std::uint32_t m_state = 0xFFFFFFFF;
};

/// What an archive writes, in memory.
class ArchiveSink final : public CFile {
public:
    void Write(const void* buffer, UINT count) override;
    void Flush() override {}

    const std::string& GetBytes() const { return m_bytes; }
    void Clear() { m_bytes.clear(); }

private:
    std::string m_bytes;
};

/// What an archive reads: an input without its checksum, which is the last four bytes.
class ArchiveSource final : public CFile {
public:
    explicit ArchiveSource(InputFile& file);

    UINT Read(void* buffer, UINT count) override;

    /// Whether everything was read and the checksum behind it is right.
    bool IsGood() const;

private:
    bool FillBeyondChecksum();

    InputFile& m_file;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    Checksum m_checksum;
};

/// Writes or reads what stands in front of the rows. Reading: CArchiveException for a file that
/// is cut off, Failure for columns that make no sense.
void WriteArchiveHeader(CArchive& ar, const Columns& columns);
Columns ReadArchiveHeader(CArchive& ar, const std::string& source);

} // namespace zelconv

#endif
