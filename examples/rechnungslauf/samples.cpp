#include "samples.h"

#include "../auftragsmaske/texte.h"
#include "records.h"
#include "schema.h"
#include "transaction.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <vector>

namespace rechnungslauf {

namespace {

using auftraege::CsvFile;
using auftraege::Read;
using auftraege::ReasonOf;
using auftraege::Require;
using auftraege::Row;

/// The cells of a row, by the names of their columns.
class Cells {
public:
    Cells(const CsvFile& file, const Row& row) : m_file(file), m_row(row) { file.Check(row); }

    /// A number, a date and what else is typed as Germans do.
    void Take(const char* column, ZelDtBasis& value) const { Read(Cell(column), column, value); }

    /// A text of one line.
    void Take(const char* column, ZelDtString& value) const
    {
        Take(value, column, auftraege::Ansi(Cell(column), column));
    }

    /// A text that may have several lines.
    void TakeLines(const char* column, ZelDtString& value) const
    {
        const CString text = auftraege::AnsiToLookAt(Cell(column));
        if (auftraege::Utf8(text) != Cell(column))
            throw Refusal{column, "Zeichen, das Windows-1252 nicht hat"};
        if (text.Find('\0') >= 0)
            throw Refusal{column, "Steuerzeichen im Text"};
        Take(value, column, text);
    }

private:
    const std::string& Cell(const std::string& column) const
    {
        const std::vector<std::string>& columns = m_file.GetColumns();
        const auto found = std::find(columns.begin(), columns.end(), column);
        return m_row.cells.at(static_cast<std::size_t>(found - columns.begin()));
    }

    static void Take(ZelDtString& value, const char* column, const CString& text)
    {
        value.Clear();
        if (!text.IsEmpty())
            value = text;
        Require(value, column);
    }

    const CsvFile& m_file;
    const Row& m_row;
};

class Filling {
public:
    Filling(CDatabase& database, std::string folder, const Teller& tell)
        : m_database(database), m_folder(std::move(folder)), m_tell(tell), m_refused(database)
    {
        m_refused.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    }

    void Fill()
    {
        ReadCustomers();
        ReadTerms();
        WriteCustomers();
        ReadArticles();
        ReadOrders();
        ReadTimes();
    }

private:
    void ReadCustomers();
    void ReadTerms();
    void WriteCustomers();
    void ReadArticles();
    void ReadOrders();
    void ReadTimes();

    template <typename Body>
    void ForRows(const std::string& name, const std::vector<std::string>& columns, Body&& body);
    void Refuse(const std::string& file, const Row& row, const Refusal& refusal);

    CDatabase& m_database;
    std::string m_folder;
    const Teller& m_tell;
    CAbgewiesen m_refused;
    int m_refusedRows = 0;
    std::vector<Customer> m_customers;
    std::map<long, std::size_t> m_indexOfCustomer;
    std::set<long> m_orders;
};

ZelDtString Text(const std::string& utf8)
{
    return ZelDtString(auftraege::AnsiToLookAt(utf8));
}

/// Numbers must differ.
void Note(std::set<long>& numbers, const ZelDtLong& number)
{
    if (!numbers.insert(number.GetValue()).second)
        throw Refusal{"Nr", "Nummer doppelt"};
}

void Filling::Refuse(const std::string& file, const Row& row, const Refusal& refusal)
{
    RefusedRow refused;
    refused.number = ++m_refusedRows;
    refused.file = Text(file);
    refused.line = row.line;
    if (!refusal.column.empty())
        refused.column = Text(refusal.column);
    refused.reason = Text(refusal.reason);
    m_refused.Append(refused);
}

/// What `body` refuses is noted, the other rows go on.
template <typename Body>
void Filling::ForRows(const std::string& name, const std::vector<std::string>& columns, Body&& body)
{
    constexpr int rowsBetweenWords = 256;
    CsvFile file(m_folder + "/" + name, columns);
    Row row;
    for (int rows = 1; file.Next(row); ++rows) {
        try {
            body(file, row);
        } catch (const Refusal& refusal) {
            Refuse(name, row, refusal);
        } catch (ZelDtExcep* error) {
            Refuse(name, row, {"", ReasonOf(error)});
        }
        if (rows % rowsBetweenWords == 0)
            m_tell(name + " wird eingelesen: Zeile " + std::to_string(rows));
    }
}

void Filling::ReadCustomers()
{
    CKunden records(m_database);
    ForRows("kunden.csv", {"Nr", "Name", "Strasse", "PLZ", "Ort", "Bemerkung"},
            [&](const CsvFile& file, const Row& row) {
                const Cells cells(file, row);
                Customer customer;
                cells.Take("Nr", customer.number);
                cells.Take("Name", customer.name);
                cells.Take("Strasse", customer.street);
                cells.Take("PLZ", customer.code);
                cells.Take("Ort", customer.town);
                cells.TakeLines("Bemerkung", customer.remark);
                records.Check(customer);
                const long number = customer.number.GetValue();
                if (!m_indexOfCustomer.emplace(number, m_customers.size()).second)
                    throw Refusal{"Nr", "Nummer doppelt"};
                m_customers.push_back(customer);
            });
}

void Filling::ReadTerms()
{
    std::set<long> known;
    ForRows("konditionen.csv", {"Kunde", "Zahlungsziel", "Skonto", "Stundensatz"},
            [&](const CsvFile& file, const Row& row) {
                const Cells cells(file, row);
                Customer terms;
                cells.Take("Kunde", terms.number);
                cells.Take("Zahlungsziel", terms.daysToPay);
                cells.Take("Skonto", terms.cashDiscount);
                cells.Take("Stundensatz", terms.hourPrice);
                terms.hourPrice.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
                terms.CheckTerms();
                const auto customer = m_indexOfCustomer.find(terms.number.GetValue());
                if (customer == m_indexOfCustomer.end())
                    throw Refusal{"Kunde", "Kunde unbekannt"};
                if (!known.insert(customer->first).second)
                    throw Refusal{"Kunde", "Kunde doppelt"};
                Customer& target = m_customers[customer->second];
                target.daysToPay = terms.daysToPay;
                target.cashDiscount = terms.cashDiscount;
                target.hourPrice = terms.hourPrice;
            });
}

void Filling::WriteCustomers()
{
    CKunden records(m_database);
    records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    for (const Customer& customer : m_customers)
        records.Append(customer);
}

void Filling::ReadArticles()
{
    CArtikel records(m_database);
    records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    std::set<long> numbers;
    std::set<std::string> names;
    ForRows("artikel.csv", {"Nr", "Bezeichnung", "Einheit", "Steuersatz"},
            [&](const CsvFile& file, const Row& row) {
                const Cells cells(file, row);
                Article article;
                cells.Take("Nr", article.number);
                cells.Take("Bezeichnung", article.name);
                cells.Take("Einheit", article.unit);
                cells.Take("Steuersatz", article.taxRate);
                article.Check();
                records.Check(article);
                if (names.count(article.name.GetValue()) != 0)
                    throw Refusal{"Bezeichnung", "Artikel doppelt"};
                Note(numbers, article.number);
                names.insert(article.name.GetValue());
                records.Append(article);
            });
}

void Filling::ReadOrders()
{
    CAuftraege records(m_database);
    records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    ForRows("auftraege.csv", auftraege::OrderColumns(), [&](const CsvFile& file, const Row& row) {
        Order order(file, row);
        Cells(file, row).Take("Artikel", order.article);
        order.CheckForInvoice();
        records.Check(order);
        Note(m_orders, order.number);
        records.Append(order);
    });
}

void Filling::ReadTimes()
{
    CArbeitszeiten records(m_database);
    records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    std::set<long> numbers;
    ForRows("arbeitszeiten.csv", {"Nr", "Auftrag", "Mitarbeiter", "Beginn", "Ende", "Pause"},
            [&](const CsvFile& file, const Row& row) {
                const Cells cells(file, row);
                Work work;
                cells.Take("Nr", work.number);
                cells.Take("Auftrag", work.order);
                cells.Take("Mitarbeiter", work.worker);
                cells.Take("Beginn", work.begin);
                cells.Take("Ende", work.end);
                cells.Take("Pause", work.pause);
                work.Duration();
                records.Check(work);
                if (m_orders.count(work.order.GetValue()) == 0)
                    throw Refusal{"Auftrag", "Auftrag unbekannt"};
                Note(numbers, work.number);
                records.Append(work);
            });
}

/// Whether the sample data are there.
bool IsFilled(CDatabase& database)
{
    CNummernkreis numbers(database);
    numbers.Open(CRecordset::forwardOnly, nullptr, CRecordset::readOnly);
    return !numbers.IsEOF();
}

} // namespace

void FillDatabase(CDatabase& database, const std::string& folder, const Teller& tell)
{
    MakeNumberTable(database);
    if (IsFilled(database))
        return;
    MakeTables(database);
    Transaction transaction(database);
    // First, because two programs cannot both do this.
    {
        CNummernkreis records(database);
        records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
        Numbers numbers;
        numbers.number = Numbers::kOnlyRow;
        numbers.next = 1;
        records.Append(numbers);
    }
    Filling(database, folder, tell).Fill();
    transaction.Commit();
}

} // namespace rechnungslauf
