#include "auftraege.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace auftraege {

namespace {

constexpr int kEnd = std::char_traits<char>::eof();

/// A text of the library, which is Latin-1.
std::string Utf8(const char* latin1)
{
    std::string text;
    for (; *latin1 != '\0'; ++latin1) {
        const auto byte = static_cast<unsigned char>(*latin1);
        if (byte < 0x80) {
            text += *latin1;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

} // namespace

// Files

CsvFile::CsvFile(const std::string& name, const std::vector<std::string>& columns)
    : m_file(name, std::ios::binary), m_columns(columns)
{
    Row header;
    if (!m_file || !Next(header) || header.cells != columns)
        throw std::runtime_error(name + ": keine solche Datei, oder mit anderen Spalten");
}

bool CsvFile::Next(Row& row)
{
    row = {m_line, {""}, true};
    if (m_file.peek() == kEnd)
        return false;
    bool open = false;   // inside quotes
    bool closed = false; // behind them
    for (int c = m_file.get(); c != kEnd; c = m_file.get()) {
        std::string& cell = row.cells.back();
        m_line += c == '\n' ? 1 : 0;
        if (open && c == '"' && m_file.peek() != '"') {
            open = false;
            closed = true;
        } else if (open) {
            if (c == '"')
                m_file.get(); // the second of two stands for nothing
            cell += static_cast<char>(c);
        } else if (c == '\n') {
            return true;
        } else if (c == ';') {
            row.cells.emplace_back();
            closed = false;
        } else if (c == '"' && cell.empty() && !closed) {
            open = true;
        } else if (c != '\r' || m_file.peek() != '\n') {
            row.quotesRight = row.quotesRight && c != '"' && !closed;
            cell += static_cast<char>(c);
        }
    }
    row.quotesRight = row.quotesRight && !open;
    return true;
}

void CsvFile::Check(const Row& row) const
{
    if (!row.quotesRight)
        throw Refusal{"", "Anführungszeichen falsch gesetzt"};
    if (row.cells.size() < m_columns.size())
        throw Refusal{m_columns[row.cells.size()], "Zelle fehlt"};
    if (row.cells.size() > m_columns.size())
        throw Refusal{"", "Zu viele Zellen"};
}

// Values

std::string ReasonOf(ZelDtExcep* error)
{
    const std::unique_ptr<ZelDtExcep> owner(error);
    return error != nullptr ? Utf8(error->GetFirstCause().GetErrorText()) : "Speicher erschöpft";
}

void Read(const std::string& cell, const std::string& column, ZelDtBasis& value)
{
    try {
        value.SetFromOFL(cell.c_str(), nullptr);
    } catch (ZelDtExcep* error) {
        throw Refusal{column, ReasonOf(error)};
    }
    Require(value, column);
}

void Require(const ZelDtBasis& value, const std::string& column)
{
    if (value.IsMissing())
        throw Refusal{column, "Angabe fehlt"};
}

std::vector<std::string> OrderColumns()
{
    return {"Nr",      "Kunde",         "Artikel", "Menge",       "Preis",   "Rabatt",
            "Gewicht", "Auftragsdatum", "Faellig", "Arbeitszeit", "Express", "Status"};
}

Order::Order(const CsvFile& file, const Row& row)
{
    file.Check(row);
    const auto read = [&](std::size_t cell, ZelDtBasis& value) {
        Read(row.cells[cell], file.GetColumns()[cell], value);
    };
    read(0, number);
    read(1, customer);
    read(3, quantity);
    read(4, price);
    read(5, discount);
    read(6, weight);
    read(7, ordered);
    read(8, due);
    read(9, worked);
    read(10, express);
    read(11, status);
    // A price has two decimals.
    price.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
    Check();
}

void Order::Check() const
{
    if (due.IsDefined() && due < ZelDtDateZp(ordered))
        throw Refusal{"Faellig", "Fällig vor dem Auftrag"};
    if (status != kOpen && status != kDelivered && status != kPaid)
        throw Refusal{"Status", "Status unbekannt"};
}

// Reports

void Refused::Note(const char* kind, const Row& row, const Refusal& refusal)
{
    m_lines.push_back(std::string(kind) + ", Zeile " + std::to_string(row.line) +
                      (refusal.column.empty() ? "" : ", " + refusal.column) + ": " +
                      refusal.reason);
}

void Refused::Print() const
{
    std::printf("\nAbgewiesene Zeilen: %d\n", static_cast<int>(m_lines.size()));
    for (const std::string& line : m_lines)
        std::printf("%s\n", line.c_str());
}

ZelFormat NumberFormat(unsigned long decimals)
{
    return {0,
            decimals,
            ZelFormat::ZelFoDezimalKomma,
            ZelFormat::ZelFoTausenderPunkt,
            ZelFormat::ZelFoVorzeichenVorne,
            ZelFormat::ZelFoNurMinus,
            0,
            ' ',
            0,
            ' '};
}

std::string Padded(const std::string& text, std::size_t width)
{
    const auto characters =
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        }));
    return text + std::string(width - std::min(width, characters), ' ');
}

int RunProgram(const char* name, const std::function<void()>& body)
{
    try {
        body();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name, error.what());
    } catch (ZelDtExcep* error) {
        std::fprintf(stderr, "%s: %s\n", name, ReasonOf(error).c_str());
    }
    return 2;
}

} // namespace auftraege
