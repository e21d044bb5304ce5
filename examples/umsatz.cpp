// Sales by customer: reads customers and orders from CSV files, computes what every order comes to,
// exact to the cent, and prints a German report in UTF-8.
//
//     umsatz kunden.csv auftraege.csv
//
// It shows how typed cells get into values of several classes, what missing and null values do,
// decimal arithmetic with commercial rounding, display formats, and where errors came from. A row
// that is no order is refused with its reason; the others go on.

#include <ZelDt.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Files

/// A row of a file: its cells in UTF-8 and the number of its first line.
struct Row {
    int line = 0;
    std::vector<std::string> cells;
    bool quotesRight = true;
};

/// Why a row is refused. Thrown by value.
struct Refusal {
    std::string column; ///< empty: the row as a whole
    std::string reason; ///< UTF-8
};

/// Rows of cells parted by semicolons, in quotes where they hold a separator, a quote or a line
/// end.
class CsvFile {
public:
    /// The first row must hold these names.
    CsvFile(const std::string& name, const std::vector<std::string>& columns)
        : m_file(name, std::ios::binary), m_columns(columns)
    {
        Row header;
        if (!m_file || !Next(header) || header.cells != columns)
            throw std::runtime_error(name + ": no such file, or other columns in it");
    }

    /// Takes the next row; false at the end.
    bool Next(Row& row);

    /// Refuses a row that has the wrong cells.
    void Check(const Row& row) const
    {
        if (!row.quotesRight)
            throw Refusal{"", "Anführungszeichen falsch gesetzt"};
        if (row.cells.size() < m_columns.size())
            throw Refusal{m_columns[row.cells.size()], "Zelle fehlt"};
        if (row.cells.size() > m_columns.size())
            throw Refusal{"", "Zu viele Zellen"};
    }

    const std::vector<std::string>& GetColumns() const { return m_columns; }

private:
    static constexpr int kEnd = std::char_traits<char>::eof();

    std::ifstream m_file;
    std::vector<std::string> m_columns;
    int m_line = 1;
};

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

// Values

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

/// What was wrong first: the error that arrives merely names the operation that it stopped.
std::string ReasonOf(ZelDtExcep* error)
{
    const std::unique_ptr<ZelDtExcep> owner(error);
    return error != nullptr ? Utf8(error->GetFirstCause().GetErrorText()) : "Speicher erschöpft";
}

/// Reads a cell as Germans write it, whatever the class of the value. An empty one makes the value
/// undefined; whether that will do is a matter of its working mode.
void Read(const std::string& cell, const std::string& column, ZelDtBasis& value)
{
    try {
        value.SetFromOFL(cell.c_str(), nullptr);
    } catch (ZelDtExcep* error) {
        throw Refusal{column, ReasonOf(error)};
    }
    if (value.IsMissing())
        throw Refusal{column, "Angabe fehlt"};
}

struct Order {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtLong customer{ZelDtWmMissing};
    ZelDtShort quantity{ZelDtWmMissing};
    ZelDtDecimal price{ZelDtWmMissing};
    // An order may lack these. They are Null then, and Null adds as 0.
    ZelDtDecimal discount{ZelDtWmNull};
    ZelDtDouble weight{ZelDtWmNull};

    Order(const CsvFile& file, const Row& row)
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
        // A price has two decimals.
        price.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
    }

    /// Every step is exact; only the end is rounded, ties away from zero.
    ZelDtDecimal GetTotal() const
    {
        ZelDtDecimal total = quantity * price * (100 - discount) / 100;
        return total.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
    }
};

// Report

/// Numbers as Germans write them, of any length.
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

const ZelFormat kMoney = NumberFormat(2);
const ZelFormat kCount = NumberFormat(0);
const ZelFormat kWeight = NumberFormat(3);

struct Customer {
    long number = 0;
    std::string name; ///< UTF-8: it only passes through
    ZelDtLong orders{0};
    ZelDtDecimal total{0};
};

class Report {
public:
    void ReadCustomers(const std::string& name);
    void ReadOrders(const std::string& name);
    void Print() const;

private:
    void Add(const Order& order);
    /// Runs `body` for each row; what it refuses is noted.
    template <typename Body>
    void ForRows(CsvFile& file, const char* kind, Body&& body);
    void PrintLine(const std::string& number, const std::string& name, const ZelDtLong& orders,
                   const ZelDtDecimal& total) const;

    std::map<long, Customer> m_customers;
    ZelDtLong m_orders{0};
    ZelDtDecimal m_total{0};
    ZelDtDouble m_weight{0};
    std::vector<std::string> m_refused;
};

template <typename Body>
void Report::ForRows(CsvFile& file, const char* kind, Body&& body)
{
    const auto refuse = [&](const Row& row, const Refusal& refusal) {
        m_refused.push_back(std::string(kind) + ", Zeile " + std::to_string(row.line) +
                            (refusal.column.empty() ? "" : ", " + refusal.column) + ": " +
                            refusal.reason);
    };
    Row row;
    while (file.Next(row)) {
        try {
            body(row);
        } catch (const Refusal& refusal) {
            refuse(row, refusal);
        } catch (ZelDtExcep* error) { // an overflow, for example
            refuse(row, {"", ReasonOf(error)});
        }
    }
}

void Report::ReadCustomers(const std::string& name)
{
    CsvFile file(name, {"Nr", "Name", "Strasse", "PLZ", "Ort", "Bemerkung"});
    ForRows(file, "Kunden", [&](const Row& row) {
        file.Check(row);
        ZelDtLong number(ZelDtWmMissing);
        Read(row.cells[0], "Nr", number);
        Customer& customer = m_customers[number.GetValue()];
        customer.number = number.GetValue();
        customer.name = row.cells[1];
    });
}

void Report::ReadOrders(const std::string& name)
{
    CsvFile file(name, {"Nr", "Kunde", "Artikel", "Menge", "Preis", "Rabatt", "Gewicht"});
    ForRows(file, "Aufträge", [&](const Row& row) { Add(Order(file, row)); });
}

void Report::Add(const Order& order)
{
    const auto customer = m_customers.find(order.customer.GetValue());
    if (customer == m_customers.end())
        throw Refusal{"Kunde", "Kunde unbekannt"};
    // What may fail comes first, so that a refused order is in no sum.
    const ZelDtDecimal total = order.GetTotal();
    const ZelDtDecimal all = m_total + total;
    customer->second.total += total;
    ++customer->second.orders;
    m_total = all;
    m_weight += order.weight;
    ++m_orders;
}

/// Names may have fewer characters than bytes, so that printf cannot align them.
std::string Padded(const std::string& text, std::size_t width)
{
    const auto characters =
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        }));
    return text + std::string(width - std::min(width, characters), ' ');
}

void Report::PrintLine(const std::string& number, const std::string& name, const ZelDtLong& orders,
                       const ZelDtDecimal& total) const
{
    std::printf("%6s  %s  %8s  %16s\n", number.c_str(), Padded(name, 34).c_str(),
                orders.ConvToOFL(&kCount).GetString(), total.ConvToOFL(&kMoney).GetString());
}

void Report::Print() const
{
    constexpr std::size_t most = 10;
    std::vector<const Customer*> largest;
    for (const auto& entry : m_customers)
        largest.push_back(&entry.second);
    // Of equal totals the smaller number comes first, as it does in the map.
    std::stable_sort(largest.begin(), largest.end(),
                     [](const Customer* a, const Customer* b) { return a->total > b->total; });
    largest.resize(std::min(most, largest.size()));

    std::printf("Die zehn größten Kunden\n\n%6s  %s  %8s  %16s\n", "Kunde",
                Padded("Name", 34).c_str(), "Aufträge", "Umsatz");
    for (const Customer* customer : largest)
        PrintLine(std::to_string(customer->number), customer->name, customer->orders,
                  customer->total);
    std::printf("\n");
    PrintLine("", "Alle Kunden", m_orders, m_total);
    std::printf("%6s  %s  %8s  %16s kg\n", "", Padded("Gewicht", 34).c_str(), "",
                m_weight.ConvToOFL(&kWeight).GetString());

    std::printf("\nAbgewiesene Zeilen: %d\n", static_cast<int>(m_refused.size()));
    for (const std::string& refused : m_refused)
        std::printf("%s\n", refused.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "umsatz KUNDEN.CSV AUFTRAEGE.CSV\n");
        return 2;
    }
    try {
        Report report;
        report.ReadCustomers(argv[1]);
        report.ReadOrders(argv[2]);
        report.Print();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "umsatz: %s\n", error.what());
        return 2;
    } catch (ZelDtExcep* error) {
        std::fprintf(stderr, "umsatz: %s\n", ReasonOf(error).c_str());
        return 2;
    }
    return 0;
}
