#include "report.h"

#include "../auftragsmaske/texte.h"

#include <algorithm>
#include <cstddef>

namespace rechnungslauf {

namespace {

using auftraege::NumberFormat;
using auftraege::Padded;
using auftraege::Utf8;

const ZelFormat kCount = NumberFormat(0);
const ZelFormat kAmount = NumberFormat(2);
const ZelFormat kWeight = NumberFormat(3);
const ZelFormat kPercentage = NumberFormat(3);

std::string Text(const ZelDtBasis& value, const ZelFormat* format = nullptr)
{
    return Utf8(value.ConvToOFL(format));
}

std::string Amount(const ZelDtDecimal& value)
{
    return Text(value, &kAmount);
}

bool IsInsideCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t Characters(const std::string& text)
{
    return text.size() -
           static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsInsideCharacter));
}

/// At the right of so many places.
std::string Right(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, Characters(text)), ' ') + text;
}

/// At the left of so many places, cut if it is longer.
std::string Left(const std::string& text, std::size_t width)
{
    if (Characters(text) <= width)
        return Padded(text, width);
    std::size_t end = 0;
    for (std::size_t characters = 0;; ++end) {
        if (!IsInsideCharacter(text[end]) && characters++ == width - 1)
            break;
    }
    return text.substr(0, end) + "…";
}

// The table of invoices

struct Line {
    std::string number;
    std::string customer;
    std::string name;
    std::string positions;
    std::string time;
    std::string net;
    std::string tax;
    std::string gross;
    std::string due;
};

std::string Joined(const Line& line)
{
    std::string text = Right(line.number, 8) + "  " + Right(line.customer, 6) + "  " +
                       Left(line.name, 30) + "  " + Right(line.positions, 5) + "  " +
                       Right(line.time, 8) + "  " + Right(line.net, 13) + "  " +
                       Right(line.tax, 12) + "  " + Right(line.gross, 13) + "  " + line.due;
    text.erase(text.find_last_not_of(' ') + 1);
    return text + "\n";
}

struct Sums {
    std::array<ZelDtDecimal, kTaxRates.size()> net;
    std::array<ZelDtDecimal, kTaxRates.size()> tax;
    ZelDtDecimal gross{0};
    ZelDtLong positions{0};
    ZelDtTime time{0L, 0L};
    ZelDtDouble weight{0.0};

    explicit Sums(const std::vector<Invoice>& invoices)
    {
        net.fill(ZelDtDecimal(0));
        tax.fill(ZelDtDecimal(0));
        for (const Invoice& invoice : invoices)
            Add(invoice);
    }

    void Add(const Invoice& invoice)
    {
        for (std::size_t i = 0; i < kTaxRates.size(); ++i) {
            net[i] += invoice.net[i];
            tax[i] += invoice.tax[i];
        }
        gross += invoice.gross;
        positions += static_cast<int>(invoice.positions.size());
        time += invoice.time;
        weight += invoice.weight;
    }
};

std::string InvoiceLines(const std::vector<Invoice>& invoices)
{
    std::string text = Joined(
        {"Rechnung", "Kunde", "Name", "Pos.", "Stunden", "Netto", "Steuer", "Brutto", "fällig am"});
    for (const Invoice& invoice : invoices)
        text += Joined({Text(invoice.number), Text(invoice.customer), Text(invoice.name),
                        std::to_string(invoice.positions.size()), Text(invoice.time),
                        Amount(invoice.Net()), Amount(invoice.Tax()), Amount(invoice.gross),
                        Shown(invoice.due)});
    return text;
}

std::string SumLines(const Sums& sums)
{
    std::string text;
    for (std::size_t i = 0; i < kTaxRates.size(); ++i)
        text += Joined({"", "", "Steuersatz " + std::to_string(kTaxRates[i]) + " %", "", "",
                        Amount(sums.net[i]), Amount(sums.tax[i]), Amount(sums.net[i] + sums.tax[i]),
                        ""});
    text += Joined({"", "", "Alle Rechnungen", Text(sums.positions, &kCount), Text(sums.time),
                    Amount(sums.net[0] + sums.net[1]), Amount(sums.tax[0] + sums.tax[1]),
                    Amount(sums.gross), ""});
    return text + "\nGewicht der Waren: " + Text(sums.weight, &kWeight) + " kg\n";
}

std::string Reason(const std::string& column, const std::string& reason)
{
    return (column.empty() ? "" : ", " + column) + ": " + reason + "\n";
}

// Cells of CSV

std::string Cell(const std::string& text)
{
    if (text.find_first_of(";\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

} // namespace

std::string Shown(const ZelDtDateZp& date)
{
    return Text(date);
}

std::string Report(const ZelDtDateZp& date, const std::vector<Invoice>& invoices,
                   const std::vector<Unbilled>& unbilled, const std::vector<RefusedRow>& refused)
{
    std::string text = "Rechnungen vom " + Shown(date) + "\n\n" + InvoiceLines(invoices) + "\n" +
                       SumLines(Sums(invoices));
    text += "\nNicht berechenbare Aufträge: " + std::to_string(unbilled.size()) + "\n";
    for (const Unbilled& order : unbilled)
        text += "Auftrag " + Text(order.order) + Reason(order.refusal.column, order.refusal.reason);
    text += "\nAbgewiesene Zeilen: " + std::to_string(refused.size()) + "\n";
    for (const RefusedRow& row : refused)
        text += Text(row.file) + ", Zeile " + Text(row.line) +
                Reason(Text(row.column), Text(row.reason));
    return text;
}

std::string Table(const std::vector<Invoice>& invoices)
{
    std::string text = "Rechnung;Kunde;Name;Datum;Faellig;Positionen;Arbeitszeit;Gewicht;Netto19;"
                       "Steuer19;Netto7;Steuer7;Brutto;Skonto\n";
    for (const Invoice& invoice : invoices) {
        text += Text(invoice.number) + ";" + Text(invoice.customer) + ";" +
                Cell(Text(invoice.name)) + ";" + Shown(invoice.date) + ";" + Shown(invoice.due) +
                ";" + std::to_string(invoice.positions.size()) + ";" + Text(invoice.time) + ";" +
                Text(invoice.weight, &kWeight);
        for (std::size_t i = 0; i < kTaxRates.size(); ++i)
            text += ";" + Amount(invoice.net[i]) + ";" + Amount(invoice.tax[i]);
        text += ";" + Amount(invoice.gross) + ";" + Amount(invoice.cashDiscount) + "\n";
    }
    return text;
}

std::string Shown(const Invoice& invoice)
{
    std::string text = "Rechnung " + Text(invoice.number) + " vom " + Shown(invoice.date) +
                       "\nKunde " + Text(invoice.customer) + ": " + Text(invoice.name) + "\n\n" +
                       "Pos.  Auftrag  " + Padded("Bezeichnung", 40) +
                       "     Menge          Preis   Rabatt  Steuer          Netto\n";
    for (const Position& position : invoice.positions) {
        const bool isWork = position.kind == Position::kWork;
        text += Right(Text(position.line), 4) + "  " + Right(Text(position.order), 7) + "  " +
                Left(Text(position.text), 40) + "  " +
                Right(isWork ? Text(position.time) : Text(position.quantity, &kCount), 8) + "  " +
                Right(Amount(position.price), 13) + "  " +
                Right(Text(position.discount, &kPercentage), 7) + "  " +
                Right(Text(position.taxRate) + " %", 6) + "  " + Right(Amount(position.net), 13) +
                "\n";
    }
    text += "\n";
    for (std::size_t i = 0; i < kTaxRates.size(); ++i)
        text += std::to_string(kTaxRates[i]) + " % Steuer auf " + Amount(invoice.net[i]) + ": " +
                Amount(invoice.tax[i]) + "\n";
    text += "Zu zahlen bis " + Shown(invoice.due) + ": " + Amount(invoice.gross) + "\n";
    if (invoice.cashDiscount.IsDefined())
        text += "Skonto bei Barzahlung: " + Amount(invoice.cashDiscount) + "\n";
    return text;
}

} // namespace rechnungslauf
