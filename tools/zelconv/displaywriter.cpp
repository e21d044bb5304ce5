#include "tools/zelconv/textview.h"
#include "tools/zelconv/writer.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace zelconv {

namespace {

/// Rows that decide how wide the columns are; they are kept until then.
constexpr std::size_t kSample = 1000;

/// No column is made wider; a longer text pushes what stands behind it to the right.
constexpr std::size_t kMostCharacters = 40;

constexpr std::string_view kGap = "  ";

/// Between the cells of a record. No cell has control characters.
constexpr char kCellEnd = '\x1F';

/// Control characters and the bytes of code page 1252 that stand for none.
bool IsUnprintable(char character)
{
    constexpr std::string_view kOpen = "\x81\x8D\x8F\x90\x9D";
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F || kOpen.find(character) != std::string_view::npos;
}

/// A table of plain text for people. What would break the table is shown as \n, \x1B and so on.
class DisplayWriter final : public Writer {
public:
    DisplayWriter(const Columns& columns, const Options& options)
        : m_columns(columns), m_charset(options.outputCharset)
    {
        for (const Column& column : columns) {
            std::string name;
            if (FromAnsi(m_charset, column.name, name).status != CharsetResult::Status::Ok)
                throw Failure("a column name has a character that the charset of the output lacks");
            m_names += name + kCellEnd;
            m_widths.push_back(CountCharacters(m_charset, name));
        }
    }

    void Begin(Output&) override {}
    void Encode(const Row& row, std::string& record) override;
    void Put(const std::string& record, Output& output) override;
    void End(Output& output) override;

private:
    void AppendShown(std::string_view text, std::string& out) const;
    void Widen(std::string_view record);
    void WriteSample(Output& output);
    void WriteLine(std::string_view record, Output& output);

    const Columns& m_columns;
    Charset m_charset;
    std::string m_names;
    std::vector<std::size_t> m_widths;
    std::vector<std::string> m_sample;
    bool m_sampling = true;
    std::string m_shown;
    std::string m_line;
};

std::string_view TakeCell(std::string_view& record)
{
    const std::size_t end = record.find(kCellEnd);
    const std::string_view cell = record.substr(0, end);
    record.remove_prefix(end + 1);
    return cell;
}

void DisplayWriter::AppendShown(std::string_view text, std::string& out) const
{
    for (const char character : text) {
        if (!IsUnprintable(character)) {
            out += character;
        } else if (character == '\n') {
            out += "\\n";
        } else if (character == '\r') {
            out += "\\r";
        } else if (character == '\t') {
            out += "\\t";
        } else {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(character)));
            out += escape.data();
        }
    }
}

void DisplayWriter::Encode(const Row& row, std::string& record)
{
    record.clear();
    for (int column = 0; column < row.GetCount(); ++column) {
        const CString text = ForColumn(column, [&] { return row[column].ConvToOFL(nullptr); });
        RequireReadsBack(*m_columns[static_cast<std::size_t>(column)].type, row[column],
                         TextForm::Display, ViewOf(text), column);
        m_shown.clear();
        AppendShown(ViewOf(text), m_shown);
        EncodeCell(m_charset, m_shown, column, record);
        record += kCellEnd;
    }
}

void DisplayWriter::Widen(std::string_view record)
{
    for (std::size_t& width : m_widths) {
        const std::size_t characters = CountCharacters(m_charset, TakeCell(record));
        width = std::max(width, std::min(characters, kMostCharacters));
    }
}

void DisplayWriter::Put(const std::string& record, Output& output)
{
    if (!m_sampling) {
        WriteLine(record, output);
        return;
    }
    Widen(record);
    m_sample.push_back(record);
    if (m_sample.size() == kSample)
        WriteSample(output);
}

void DisplayWriter::End(Output& output)
{
    if (m_sampling)
        WriteSample(output);
}

void DisplayWriter::WriteSample(Output& output)
{
    m_sampling = false;
    WriteLine(m_names, output);
    std::string rules;
    for (const std::size_t width : m_widths)
        rules += std::string(width, '-') + kCellEnd;
    WriteLine(rules, output);
    for (const std::string& record : m_sample)
        WriteLine(record, output);
    m_sample = {};
}

void DisplayWriter::WriteLine(std::string_view record, Output& output)
{
    m_line.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const std::string_view cell = TakeCell(record);
        const std::size_t characters = CountCharacters(m_charset, cell);
        const std::size_t fill = m_widths[i] - std::min(m_widths[i], characters);
        if (i != 0)
            m_line += kGap;
        if (m_columns[i].type->numeric)
            m_line.append(fill, ' ').append(cell);
        else
            m_line.append(cell).append(fill, ' ');
    }
    m_line.erase(m_line.find_last_not_of(' ') + 1);
    m_line += '\n';
    output.Write(m_line);
}

} // namespace

std::unique_ptr<Writer> NewDisplayWriter(const Columns& columns, const Options& options)
{
    return std::make_unique<DisplayWriter>(columns, options);
}

} // namespace zelconv
