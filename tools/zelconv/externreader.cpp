#include "tools/zelconv/externtext.h"
#include "tools/zelconv/reader.h"

namespace zelconv {

namespace {

std::string_view WithoutLineEnd(std::string_view line)
{
    line.remove_suffix(1);
    // Those in texts are escaped; this one is of the line end.
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

class ExternReader final : public Reader {
public:
    ExternReader(InputFile& file, const Options& options)
        : m_name(file.GetName()), m_charset(options.inputCharset), m_lines(file)
    {
        ReadHeader(options);
    }

    const Columns& GetColumns() const override { return m_columns; }
    bool Next() override;
    void Fill(Row& row) override;
    std::uint64_t GetLineNumber() const override { return m_lines.GetLineNumber(); }
    void AppendRaw(const Row&, std::string& out) const override { out += m_raw; }
    Charset GetRawCharset() const override { return m_charset; }

private:
    void ReadHeader(const Options& options);
    bool NextWholeLine();
    void CheckEnd();

    std::string m_name;
    Charset m_charset;
    LineReader m_lines;
    Columns m_columns;
    std::string_view m_raw; ///< the present line
    std::uint64_t m_rows = 0;
    std::string m_cell;
};

void ExternReader::ReadHeader(const Options& options)
{
    std::string line;
    if (!NextWholeLine() ||
        ToAnsi(m_charset, WithoutLineEnd(m_raw), line).status != CharsetResult::Status::Ok)
        throw Failure(m_name + ": the line with the columns cannot be read");
    m_columns = ParseExternHeader(line, options.ModeOfEmpty(), m_name);
    if (!options.columns.empty())
        RequireSameColumns(ParseColumns(options.columns, options.ModeOfEmpty()), m_columns, m_name);
}

/// False at the end of the file; a line without line end counts as cut off.
bool ExternReader::NextWholeLine()
{
    return m_lines.Next(m_raw) && m_raw.back() == '\n';
}

bool ExternReader::Next()
{
    if (!NextWholeLine())
        throw Failure(m_name + ": the file is cut off; its last line, \"" +
                      std::string(kExternEnd) + "\" with the number of rows, is missing");
    if (m_raw.starts_with(kExternEnd)) {
        CheckEnd();
        return false;
    }
    ++m_rows;
    return true;
}

void ExternReader::CheckEnd()
{
    const std::string expected =
        std::string(kExternEnd) + kExternSeparator + std::to_string(m_rows);
    if (WithoutLineEnd(m_raw) != expected)
        throw Failure(m_name + ": the number of rows in the last line is not the number of rows "
                               "in the file");
    if (m_lines.Next(m_raw))
        throw Failure(m_name + ": the file goes on behind its last line");
}

void ExternReader::Fill(Row& row)
{
    std::string_view line = WithoutLineEnd(m_raw);
    bool atEnd = false;
    std::string_view cell;
    for (int column = 0; column < row.GetCount(); ++column) {
        if (!TakeExternCell(line, atEnd, cell))
            throw MakeFault(RowError::TooFewCells, column);
        m_cell.clear();
        DecodeCell(m_charset, cell, column, m_cell);
        SetFromExternCell(row[column], m_cell, column);
    }
    if (!atEnd)
        throw MakeFault(RowError::TooManyCells);
    CompleteRow(row, m_columns);
}

} // namespace

std::unique_ptr<Reader> NewExternReader(InputFile& file, const Options& options)
{
    return std::make_unique<ExternReader>(file, options);
}

} // namespace zelconv
