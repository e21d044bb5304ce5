#include "tools/zelconv/textview.h"
#include "tools/zelconv/writer.h"

namespace zelconv {

namespace {

class CsvWriter final : public Writer {
public:
    CsvWriter(const Columns& columns, const Options& options)
        : m_columns(columns), m_charset(options.outputCharset), m_separator(options.separator),
          m_header(options.header),
          m_plainNumbers(options.plainNumbers), m_special{m_separator, '"', '\n', '\r'}
    {}

    void Begin(Output& output) override;
    void Encode(const Row& row, std::string& record) override;

private:
    void AppendCell(std::string_view text, bool defined, int column, std::string& record);
    bool NeedsQuotes(std::string_view text, bool defined) const;

    const Columns& m_columns;
    Charset m_charset;
    char m_separator;
    bool m_header;
    bool m_plainNumbers;
    std::string m_special; ///< characters that only quotes make harmless
    std::string m_quoted;
};

/// Blanks at the edges are quoted because many readers drop them. So is a text that is there but
/// empty, which tells it from none.
bool CsvWriter::NeedsQuotes(std::string_view text, bool defined) const
{
    if (text.empty())
        return defined;
    const auto isBlank = [](char character) { return character == ' ' || character == '\t'; };
    return isBlank(text.front()) || isBlank(text.back()) ||
           text.find_first_of(m_special) != std::string_view::npos;
}

void CsvWriter::AppendCell(std::string_view text, bool defined, int column, std::string& record)
{
    if (column != 0)
        record += m_separator;
    if (text.find('\0') != std::string_view::npos)
        throw MakeFault(RowError::NulByte, column);
    if (!NeedsQuotes(text, defined)) {
        EncodeCell(m_charset, text, column, record);
        return;
    }
    m_quoted = '"';
    for (const char character : text)
        m_quoted.append(character == '"' ? 2 : 1, character);
    m_quoted += '"';
    EncodeCell(m_charset, m_quoted, column, record);
}

void CsvWriter::Begin(Output& output)
{
    if (!m_header)
        return;
    std::string line;
    try {
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            AppendCell(m_columns[i].name, true, static_cast<int>(i), line);
    } catch (const RowFault&) {
        throw Failure("a column name has a character that the charset of the output lacks");
    }
    output.Write(line + "\n");
}

void CsvWriter::Encode(const Row& row, std::string& record)
{
    record.clear();
    for (int column = 0; column < row.GetCount(); ++column) {
        const ColumnType& type = *m_columns[static_cast<std::size_t>(column)].type;
        const TextForm form = m_plainNumbers && type.numeric ? TextForm::Plain : TextForm::Display;
        const CString text =
            ForColumn(column, [&] { return row[column].ConvToOFL(FormatOf(form)); });
        RequireReadsBack(type, row[column], form, ViewOf(text), column);
        AppendCell(ViewOf(text), row[column].IsDefined() != 0, column, record);
    }
    record += '\n';
}

} // namespace

std::unique_ptr<Writer> NewCsvWriter(const Columns& columns, const Options& options)
{
    return std::make_unique<CsvWriter>(columns, options);
}

} // namespace zelconv
