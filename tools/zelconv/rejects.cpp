#include "tools/zelconv/rejects.h"

#include <iostream>

namespace zelconv {

namespace {

constexpr std::uint64_t kMostTold = 20;

constexpr std::string_view kMark = "#zelconv";

/// The name of the column that a fault means, in code page 1252.
std::string ColumnOf(const Reader& reader, const RowFault& fault)
{
    if (fault.column == RowFault::kWholeRow)
        return "-";
    return reader.GetColumns()[static_cast<std::size_t>(fault.column)].name;
}

/// The text in the charset of the rows. It holds nothing but German letters and the names of
/// columns; a letter that a charset lacks there becomes a question mark.
std::string ForReader(Charset charset, std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t before = out.size();
        if (FromAnsi(charset, text, out).status == CharsetResult::Status::Ok)
            break;
        const std::size_t done = CountCharacters(charset, std::string_view(out).substr(before));
        out += '?';
        text.remove_prefix(done + 1);
    }
    return out;
}

} // namespace

Rejects::Rejects(const std::string& fileName)
{
    if (!fileName.empty())
        m_file = std::make_unique<OutputFile>(fileName);
}

void Rejects::Add(const Reader& reader, const Row& row, const RowFault& fault)
{
    ++m_count;
    if (m_file != nullptr)
        Write(reader, row, fault);
    else
        Tell(reader, fault);
}

void Rejects::Write(const Reader& reader, const Row& row, const RowFault& fault)
{
    std::string raw;
    reader.AppendRaw(row, raw);
    std::string line(kMark);
    for (const std::string& cell : {std::to_string(reader.GetLineNumber()), ColumnOf(reader, fault),
                                    std::to_string(fault.error.number), fault.error.text,
                                    std::to_string(fault.firstCause.number), fault.firstCause.text,
                                    std::to_string(raw.size())})
        line += '\t' + cell;
    line += '\n';
    m_file->Write(ForReader(reader.GetRawCharset(), line));
    if (raw.empty() || raw.back() != '\n')
        raw += '\n';
    m_file->Write(raw);
}

void Rejects::Tell(const Reader& reader, const RowFault& fault) const
{
    if (m_count > kMostTold)
        return;
    std::cerr << "zelconv: line " << reader.GetLineNumber() << ", column "
              << Utf8FromAnsi(ColumnOf(reader, fault)) << ": error " << fault.error.number << " "
              << Utf8FromAnsi(fault.error.text) << "; first cause " << fault.firstCause.number
              << " " << Utf8FromAnsi(fault.firstCause.text) << '\n';
    if (m_count == kMostTold)
        std::cerr << "zelconv: further rejected rows are not told of; --rejects FILE keeps them\n";
}

} // namespace zelconv
