#include "tools/zelconv/archiveform.h"
#include "tools/zelconv/externtext.h"
#include "tools/zelconv/reader.h"

#include <utility>

namespace zelconv {

namespace {

/// What a library error says about a file: the framework's cause if there is one.
std::string TakeCause(ZelDtExcep* error)
{
    const std::unique_ptr<ZelDtExcep> owner(error);
    if (owner == nullptr)
        throw std::bad_alloc();
    const ZelEhBasis& first = owner->GetFirstCause();
    if (first.GetCause() == nullptr)
        return Utf8FromAnsi(first.GetErrorText());
    std::array<char, 512> text{};
    first.GetCause()->GetErrorMessage(text.data(), static_cast<UINT>(text.size()));
    return text.data();
}

/// An archive is read to its end or not at all: one wrong byte and nothing behind it can be
/// trusted, so there are no rejects here, only failures.
class ArchiveReader final : public Reader {
public:
    ArchiveReader(InputFile& file, const Options& options)
        : m_name(file.GetName()), m_source(file),
          m_archive(&m_source, CArchive::load | CArchive::bNoFlushOnDelete)
    {
        Guarded([&] { m_columns = ReadArchiveHeader(m_archive, m_name); });
        if (!options.columns.empty())
            RequireSameColumns(ParseColumns(options.columns, options.ModeOfEmpty()), m_columns,
                               m_name);
        if (options.empty) {
            for (Column& column : m_columns)
                column.mode = *options.empty;
        }
    }

    const Columns& GetColumns() const override { return m_columns; }
    bool Next() override;
    void Fill(Row& row) override;
    std::uint64_t GetLineNumber() const override { return m_row; }
    /// A row of an archive has no text of its own; its extern form shows every byte.
    void AppendRaw(const Row& row, std::string& out) const override;
    Charset GetRawCharset() const override { return Charset::Utf8; }

private:
    template <typename Body>
    void Guarded(Body&& body);
    void CheckEnd();
    [[noreturn]] void FailAsDamaged(const std::string& cause) const;

    std::string m_name;
    ArchiveSource m_source;
    CArchive m_archive;
    Columns m_columns;
    std::uint64_t m_row = 0;
};

template <typename Body>
void ArchiveReader::Guarded(Body&& body)
{
    try {
        std::forward<Body>(body)();
    } catch (CException* error) {
        FailAsDamaged(TakeMessage(error));
    } catch (ZelDtExcep* error) {
        FailAsDamaged(TakeCause(error));
    }
}

void ArchiveReader::FailAsDamaged(const std::string& cause) const
{
    const std::string place =
        m_row == 0 ? std::string("in its header") : "at row " + std::to_string(m_row);
    throw Failure(m_name + ": the archive is damaged or cut off " + place +
                  (cause.empty() ? "" : ": " + cause));
}

bool ArchiveReader::Next()
{
    BYTE mark = kEndMark;
    ++m_row;
    Guarded([&] { m_archive >> mark; });
    if (mark == kRowMark)
        return true;
    if (mark != kEndMark)
        FailAsDamaged("neither a row nor the end");
    CheckEnd();
    return false;
}

void ArchiveReader::CheckEnd()
{
    ULONGLONG count = 0;
    Guarded([&] { m_archive >> count; });
    BYTE further = 0;
    if (count != m_row - 1 || m_archive.Read(&further, 1) != 0 || !m_source.IsGood())
        FailAsDamaged("the checksum or the number of rows at its end is wrong");
}

void ArchiveReader::Fill(Row& row)
{
    Guarded([&] {
        for (int column = 0; column < row.GetCount(); ++column) {
            // Public in the root class.
            CObject& value = row[column];
            value.Serialize(m_archive);
        }
    });
    CompleteRow(row, m_columns);
}

void ArchiveReader::AppendRaw(const Row& row, std::string& out) const
{
    std::string line;
    AppendExternRow(row, m_columns, line);
    out += Utf8FromAnsi(line);
}

} // namespace

std::unique_ptr<Reader> NewArchiveReader(InputFile& file, const Options& options)
{
    return std::make_unique<ArchiveReader>(file, options);
}

} // namespace zelconv
