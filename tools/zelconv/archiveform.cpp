#include "tools/zelconv/archiveform.h"

#include "tools/zelconv/fault.h"
#include "tools/zelconv/textview.h"

#include <algorithm>
#include <cstring>

namespace zelconv {

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

constexpr std::array<std::uint32_t, 256> MakeChecksumTable()
{
    constexpr std::uint32_t kReversedPolynomial = 0xEDB88320;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? kReversedPolynomial ^ (value >> 1) : value >> 1;
        table[byte] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> kChecksumTable = MakeChecksumTable();

WORD SchemaOf(const Column& column)
{
    return static_cast<WORD>(column.NewValue()->GetRuntimeClass()->m_wSchema);
}

Column ReadColumn(CArchive& ar, const std::string& source)
{
    CString name;
    CString typeText;
    WORD schema = 0;
    WORD mode = 0;
    ar >> name >> typeText >> schema >> mode;
    if (mode != ZelDtWmMissing && mode != ZelDtWmNull)
        throw Failure(source + ": the archive has a column of an unknown mode");
    Column column = MakeColumn(ViewOf(name), ViewOf(typeText), static_cast<ZelDtWorkingMode>(mode));
    if (schema != SchemaOf(column))
        throw Failure(source + ": the archive was made with another version of the type " +
                      column.TypeText());
    return column;
}

} // namespace

void Checksum::Add(std::string_view bytes)
{
    for (const char byte : bytes)
        m_state =
            kChecksumTable[(m_state ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (m_state >> 8);
}

Checksum::Bytes Checksum::GetBytes() const
{
    const std::uint32_t value = ~m_state;
    Bytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(value >> (8 * i));
    return bytes;
}

void ArchiveSink::Write(const void* buffer, UINT count)
{
    m_bytes.append(static_cast<const char*>(buffer), count);
}

ArchiveSource::ArchiveSource(InputFile& file) : m_file(file), m_buffer(kBufferSize) {}

/// Whether there are bytes in front of the checksum.
bool ArchiveSource::FillBeyondChecksum()
{
    if (m_end - m_begin > Checksum::kSize)
        return true;
    std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
    m_end -= m_begin;
    m_begin = 0;
    while (m_end <= Checksum::kSize) {
        const std::size_t count = m_file.Read(m_buffer.data() + m_end, m_buffer.size() - m_end);
        if (count == 0)
            return false;
        m_end += count;
    }
    return true;
}

UINT ArchiveSource::Read(void* buffer, UINT count)
{
    char* const out = static_cast<char*>(buffer);
    std::size_t done = 0;
    while (done < count && FillBeyondChecksum()) {
        const std::size_t ready = m_end - m_begin - Checksum::kSize;
        const std::size_t step = std::min(count - done, ready);
        std::memcpy(out + done, m_buffer.data() + m_begin, step);
        m_begin += step;
        done += step;
    }
    m_checksum.Add({out, done});
    return static_cast<UINT>(done);
}

bool ArchiveSource::IsGood() const
{
    const Checksum::Bytes expected = m_checksum.GetBytes();
    return std::string_view(m_buffer.data() + m_begin, m_end - m_begin) ==
           std::string_view(expected.data(), expected.size());
}

void WriteArchiveHeader(CArchive& ar, const Columns& columns)
{
    ar.Write(kArchiveMagic.data(), static_cast<UINT>(kArchiveMagic.size()));
    ar << kArchiveVersion << static_cast<WORD>(columns.size());
    for (const Column& column : columns)
        ar << ToCString(column.name) << ToCString(column.TypeText()) << SchemaOf(column)
           << static_cast<WORD>(column.mode);
}

Columns ReadArchiveHeader(CArchive& ar, const std::string& source)
{
    std::array<char, kArchiveMagic.size()> magic{};
    const UINT size = ar.Read(magic.data(), static_cast<UINT>(magic.size()));
    if (std::string_view(magic.data(), size) != kArchiveMagic)
        throw Failure(source + ": no archive of zelconv");
    WORD version = 0;
    WORD count = 0;
    ar >> version >> count;
    if (version != kArchiveVersion)
        throw Failure(source + ": the archive has the unknown version " + std::to_string(version));
    Columns columns;
    for (WORD i = 0; i < count; ++i)
        AddColumn(columns, ReadColumn(ar, source));
    if (columns.empty())
        throw Failure(source + ": the archive has no columns");
    return columns;
}

} // namespace zelconv
