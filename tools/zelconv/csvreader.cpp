#include "tools/zelconv/csvparser.h"
#include "tools/zelconv/reader.h"

#include <algorithm>
#include <deque>
#include <optional>

namespace zelconv {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutLineEnd(std::string_view line)
{
    if (!line.empty() && line.back() == '\n')
        line.remove_suffix(1);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

/// Whether a quoted cell that was open before the text is closed behind it, or the reverse, if the
/// quotes are right at all.
bool HasOddQuotes(std::string_view text)
{
    return std::count(text.begin(), text.end(), '"') % 2 != 0;
}

/// How the cells of a column are read.
struct CellForm {
    CellForm(const Column& column, bool plainNumbers)
        : form(plainNumbers && column.type->numeric ? TextForm::Plain : TextForm::Display),
          format(FormatOf(form)), check(column.type->checkTyped)
    {}

    TextForm form;
    const ZelFormat* format;
    decltype(ColumnType::checkTyped) check;
};

/// Reads rows line by line. A row with a quoted line end goes on in the next lines; if such a row
/// turns out to be wrong, its first line alone is rejected and reading goes on behind that, so that
/// one stray quote does not cost the rows below it.
class CsvReader final : public Reader {
public:
    CsvReader(InputFile& file, const Options& options)
        : m_name(file.GetName()), m_charset(options.inputCharset), m_lines(file),
          m_columns(ParseColumns(options.columns, options.ModeOfEmpty())),
          m_parser(options.separator, m_columns.size())
    {
        for (const Column& column : m_columns)
            m_forms.emplace_back(column, options.plainNumbers);
        if (options.header)
            ReadHeader();
    }

    const Columns& GetColumns() const override { return m_columns; }
    bool Next() override;
    void Fill(Row& row) override;
    std::uint64_t GetLineNumber() const override { return m_lineNumber; }
    void AppendRaw(const Row&, std::string& out) const override { out += m_raw; }
    Charset GetRawCharset() const override { return m_charset; }

private:
    void ReadHeader();
    bool NextLine(std::string_view& line);
    bool JoinLines();
    void RejectFirstLine(RowError error);
    void CheckRow() const;
    void SetFromCell(ZelDtBasis& value, int column);
    std::string_view TextOfCell(int column);

    std::string m_name;
    Charset m_charset;
    LineReader m_lines;
    std::deque<std::string> m_waiting; ///< lines to be read again
    Columns m_columns;
    CsvParser m_parser;
    std::vector<CellForm> m_forms; ///< of the columns

    std::string_view m_raw; ///< the present row
    std::string m_firstLine;
    std::vector<std::string> m_joined; ///< its lines if there are several
    std::string m_joinedText;
    std::optional<RowError> m_error;
    std::uint64_t m_lineNumber = 0; ///< of the first line of the row
    std::uint64_t m_linesGiven = 0; ///< lines that were taken into rows
    std::string m_decoded;          ///< a cell
};

void CsvReader::ReadHeader()
{
    if (!Next())
        throw Failure(m_name + ": the line with the column names is missing");
    bool good = !m_error && m_parser.GetCount() == m_columns.size();
    for (std::size_t i = 0; good && i < m_columns.size(); ++i) {
        m_decoded.clear();
        good = ToAnsi(m_charset, m_parser[i], m_decoded).status == CharsetResult::Status::Ok &&
               m_decoded == m_columns[i].name;
    }
    if (!good)
        throw Failure(m_name + ": the first line does not hold the names of --columns in their "
                               "order (--header no: there is no such line)");
}

bool CsvReader::NextLine(std::string_view& line)
{
    if (!m_waiting.empty()) {
        m_firstLine = std::move(m_waiting.front());
        m_waiting.pop_front();
        line = m_firstLine;
    } else if (!m_lines.Next(line)) {
        return false;
    }
    ++m_linesGiven;
    if (m_linesGiven == 1 && m_charset == Charset::Utf8 && line.starts_with(kByteOrderMark))
        line.remove_prefix(kByteOrderMark.size());
    return true;
}

bool CsvReader::Next()
{
    m_error.reset();
    m_joined.clear();
    if (!NextLine(m_raw))
        return false;
    m_lineNumber = m_linesGiven;
    CsvParser::Quotes quotes = m_parser.Parse(WithoutLineEnd(m_raw));
    if (quotes == CsvParser::Quotes::Open) {
        if (!JoinLines())
            return true;
        quotes = m_parser.Parse(WithoutLineEnd(m_raw));
    }
    if (quotes != CsvParser::Quotes::Right)
        RejectFirstLine(RowError::Quotes);
    return true;
}

/// Adds lines to the row until its quotes are even; false if that does not come about.
bool CsvReader::JoinLines()
{
    m_joined.assign(1, std::string(m_raw));
    std::size_t size = m_raw.size();
    for (bool open = true; open;) {
        std::string_view line;
        if (!NextLine(line)) {
            RejectFirstLine(RowError::OpenQuotes);
            return false;
        }
        m_joined.emplace_back(line);
        size += line.size();
        if (size > LineReader::kMostBytes) {
            RejectFirstLine(RowError::TooLong);
            return false;
        }
        open = !HasOddQuotes(line);
    }
    m_joinedText.clear();
    for (const std::string& line : m_joined)
        m_joinedText += line;
    m_raw = m_joinedText;
    return true;
}

/// Makes the first line the present row, which is wrong, and keeps the others for the next ones.
void CsvReader::RejectFirstLine(RowError error)
{
    m_error = error;
    if (m_joined.empty())
        return;
    m_waiting.insert(m_waiting.begin(), std::make_move_iterator(m_joined.begin() + 1),
                     std::make_move_iterator(m_joined.end()));
    m_linesGiven = m_lineNumber;
    m_firstLine = std::move(m_joined.front());
    m_raw = m_firstLine;
    m_joined.clear();
}

void CsvReader::CheckRow() const
{
    if (m_error)
        throw MakeFault(*m_error);
    if (m_parser.GetCount() < m_columns.size())
        throw MakeFault(RowError::TooFewCells, static_cast<int>(m_parser.GetCount()));
    if (m_parser.GetCount() > m_columns.size())
        throw MakeFault(RowError::TooManyCells);
}

/// The cell in code page 1252 with a NUL behind it, valid until the next call.
std::string_view CsvReader::TextOfCell(int column)
{
    const std::string_view text = m_parser[static_cast<std::size_t>(column)];
    if (m_parser.ArePlain() || IsPlain(text))
        return text;
    if (text.find('\0') != std::string_view::npos)
        throw MakeFault(RowError::NulByte, column);
    m_decoded.clear();
    DecodeCell(m_charset, text, column, m_decoded);
    return m_decoded;
}

/// The forms that csv has replace all of a value.
void CsvReader::SetFromCell(ZelDtBasis& value, int column)
{
    const CellForm& form = m_forms[static_cast<std::size_t>(column)];
    const std::string_view text = TextOfCell(column);
    ForColumn(column, [&] {
        value.SetFromOFL(text.data(), form.format);
        if (form.check != nullptr && value.IsDefined())
            Refuse(form.check(value, form.form, text), column);
    });
}

void CsvReader::Fill(Row& row)
{
    CheckRow();
    for (int column = 0; column < row.GetCount(); ++column)
        SetFromCell(row[column], column);
}

} // namespace

std::unique_ptr<Reader> NewCsvReader(InputFile& file, const Options& options)
{
    return std::make_unique<CsvReader>(file, options);
}

} // namespace zelconv
