#include "tools/zelconv/archiveform.h"
#include "tools/zelconv/writer.h"

#include <array>
#include <utility>

namespace zelconv {

namespace {

class ArchiveWriter final : public Writer {
public:
    explicit ArchiveWriter(const Columns& columns) : m_columns(columns) {}

    void Begin(Output& output) override
    {
        WriteSummed(Stored([&](CArchive& ar) { WriteArchiveHeader(ar, m_columns); }), output);
    }

    void Encode(const Row& row, std::string& record) override
    {
        record = Stored([&](CArchive& ar) {
            ar << kRowMark;
            for (int column = 0; column < row.GetCount(); ++column) {
                // One function reads and writes, so it is not const; writing changes nothing.
                CObject& value = const_cast<ZelDtBasis&>(row[column]);
                ForColumn(column, [&] { value.Serialize(ar); });
            }
        });
    }

    void Put(const std::string& record, Output& output) override
    {
        WriteSummed(record, output);
        ++m_rows;
    }

    void End(Output& output) override
    {
        WriteSummed(Stored([&](CArchive& ar) { ar << kEndMark << m_rows; }), output);
        const Checksum::Bytes checksum = m_checksum.GetBytes();
        output.Write({checksum.data(), checksum.size()});
    }

private:
    /// The bytes that `body` puts into an archive; valid until the next call.
    template <typename Body>
    const std::string& Stored(Body&& body)
    {
        m_sink.Clear();
        CArchive archive(&m_sink, CArchive::store | CArchive::bNoFlushOnDelete,
                         static_cast<int>(m_buffer.size()), m_buffer.data());
        std::forward<Body>(body)(archive);
        archive.Close();
        return m_sink.GetBytes();
    }

    void WriteSummed(const std::string& bytes, Output& output)
    {
        m_checksum.Add(bytes);
        output.Write(bytes);
    }

    const Columns& m_columns;
    std::array<char, 4096> m_buffer{};
    ArchiveSink m_sink;
    Checksum m_checksum;
    ULONGLONG m_rows = 0;
};

} // namespace

std::unique_ptr<Writer> NewArchiveWriter(const Columns& columns)
{
    return std::make_unique<ArchiveWriter>(columns);
}

} // namespace zelconv
