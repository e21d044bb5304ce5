#include "billing.h"

#include "transaction.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>

namespace rechnungslauf {

namespace {

using auftraege::ReasonOf;

/// What one customer is to pay.
struct Account {
    std::vector<Position> positions;
    std::vector<ZelDtLong> orders;
    ZelDtDouble weight{0.0};
};

/// What orders refer to. Of a row that is damaged the refusal is kept: it is that of the orders.
template <typename Key, typename Values>
struct Known {
    std::map<Key, Values> rows;
    std::map<Key, Refusal> refused;

    /// Null when there is none. Throws the refusal of one that is damaged.
    const Values* Find(const Key& key) const
    {
        const auto damaged = refused.find(key);
        if (damaged != refused.end())
            throw damaged->second;
        const auto row = rows.find(key);
        return row != rows.end() ? &row->second : nullptr;
    }
};

class Run {
public:
    explicit Run(CDatabase& database) : m_database(database) {}

    Outcome Make(const ZelDtDateZp& until, const Counter& count);

private:
    void ReadCustomers();
    void ReadArticles();
    void ReadWork();
    void ChooseDate(const ZelDtDateZp& until);
    void ReadOrders();
    void Take(const Order& order);
    std::vector<Invoice> MakeInvoices(ZelDtLong number);
    void Write(const std::vector<Invoice>& invoices, const Counter& count);
    void WritePositions(const Invoice& invoice);
    void Refuse(const ZelDtLong& order, const Refusal& refusal);

    const Customer& CustomerOf(const Order& order) const;
    const Article& ArticleOf(const Order& order) const;

    CDatabase& m_database;
    Outcome m_outcome;
    Known<long, Customer> m_customers;
    Known<std::string, Article> m_articles;
    Known<long, std::vector<Work>> m_work; ///< by order
    std::map<long, Account> m_accounts;    ///< by customer
};

/// Lets no other run in until this transaction ends.
void Lock(CDatabase& database)
{
    ZelRsExecute(database, "UPDATE Nummernkreis SET Naechste = Naechste WHERE Nr = " +
                               CString(ZelDtLong(Numbers::kOnlyRow).ConvToSQL()));
}

/// The record of the number range, as the current one of `records`.
Numbers OpenNumbers(CNummernkreis& records)
{
    records.Open();
    if (records.IsEOF())
        throw std::runtime_error("Der Nummernkreis ist leer");
    return records.Get();
}

void Run::ReadCustomers()
{
    CKunden records(m_database);
    ForRecords(records, "Nr", [&](CKunden& record) {
        try {
            const Customer& customer = record.Get();
            m_customers.rows.emplace(customer.number.GetValue(), customer);
        } catch (const Refusal& refusal) {
            m_customers.refused.emplace(record.GetAsFarAsRead().number, refusal);
        }
    });
}

void Run::ReadArticles()
{
    CArtikel records(m_database);
    ForRecords(records, "Nr", [&](CArtikel& record) {
        try {
            const Article& article = record.Get();
            m_articles.rows.emplace(article.name.GetValue(), article);
        } catch (const Refusal& refusal) {
            m_articles.refused.emplace(record.GetAsFarAsRead().name.operator const char*(),
                                       refusal);
        }
    });
}

void Run::ReadWork()
{
    CArbeitszeiten records(m_database);
    ForRecords(records, "Nr", [&](CArbeitszeiten& record) {
        try {
            const Work& work = record.Get();
            m_work.rows[work.order.GetValue()].push_back(work);
        } catch (const Refusal& refusal) {
            m_work.refused.emplace(record.GetAsFarAsRead().order, refusal);
        }
    });
}

void Run::ChooseDate(const ZelDtDateZp& until)
{
    m_outcome.until = until;
    if (until.IsDefined())
        return;
    CAuftraege records(m_database);
    records.m_strFilter = "Auftragsdatum IS NOT NULL";
    ForRecords(records, "Nr", [&](CAuftraege& record) {
        try {
            const ZelDtDateZp end = EndOfMonth(record.Get().ordered);
            if (m_outcome.until.IsMissing() || end > m_outcome.until)
                m_outcome.until = end;
        } catch (const Refusal&) { // told of when it is to be invoiced
        } catch (ZelDtExcep* error) {
            delete error;
        }
    });
    if (m_outcome.until.IsMissing())
        throw std::runtime_error("Es gibt keine Aufträge");
}

void Run::ReadOrders()
{
    CAuftraege records(m_database);
    const ZelDtChar paid(Order::kPaid);
    records.m_strFilter = ZelRsStandardLiterals(
        "Rechnung IS NULL AND (Status IS NULL OR Status <> " + CString(paid.ConvToSQL()) + ")");
    ForRecords(records, "Nr", [&](CAuftraege& record) {
        try {
            Take(record.Get());
        } catch (const Refusal& refusal) {
            Refuse(record.GetAsFarAsRead().number, refusal);
        } catch (ZelDtExcep* error) {
            Refuse(record.GetAsFarAsRead().number, {"", ReasonOf(error)});
        }
    });
}

/// Puts the order on its customer's account if its time has come.
void Run::Take(const Order& order)
{
    if (order.ordered.IsDefined() && ZelDtDateZp(order.ordered) > m_outcome.until)
        return;
    order.CheckForInvoice();
    const Customer& customer = CustomerOf(order);
    const Article& article = ArticleOf(order);
    const std::vector<Work>* const work = m_work.Find(order.number.GetValue());
    const std::vector<Position> positions =
        PositionsOf(order, article, work != nullptr ? *work : std::vector<Work>(), customer);
    if (order.status != Order::kDelivered)
        return;
    Account& account = m_accounts[customer.number.GetValue()];
    account.positions.insert(account.positions.end(), positions.begin(), positions.end());
    account.orders.push_back(order.number);
    account.weight += order.weight;
}

const Customer& Run::CustomerOf(const Order& order) const
{
    const Customer* const customer = m_customers.Find(order.customer.GetValue());
    if (customer == nullptr)
        throw Refusal{"Kunde", "Kunde unbekannt"};
    return *customer;
}

/// The article whose name the text begins with, up to a blank or a comma; the longest of several.
const Article& Run::ArticleOf(const Order& order) const
{
    std::string name = order.article.GetValue();
    for (;;) {
        const Article* const article = m_articles.Find(name);
        if (article != nullptr)
            return *article;
        const std::size_t end = name.find_last_of(" ,");
        if (end == std::string::npos)
            throw Refusal{"Artikel", "Artikel unbekannt"};
        name.resize(end);
    }
}

void Run::Refuse(const ZelDtLong& order, const Refusal& refusal)
{
    m_outcome.unbilled.push_back({order, refusal});
}

std::vector<Invoice> Run::MakeInvoices(ZelDtLong number)
{
    std::vector<Invoice> invoices;
    for (const auto& [customer, account] : m_accounts) {
        try {
            invoices.push_back(MakeInvoice(number, m_customers.rows.at(customer), m_outcome.until,
                                           account.positions, account.weight));
            ++number;
        } catch (ZelDtExcep* error) { // more than an amount can hold
            const std::string reason = ReasonOf(error);
            for (const ZelDtLong& order : account.orders)
                Refuse(order, {"", reason});
        }
    }
    return invoices;
}

/// Positions go as statements with their values as literals.
void Run::WritePositions(const Invoice& invoice)
{
    CPositionen positions(m_database);
    for (const Position& position : invoice.positions) {
        ZelRsExecute(m_database, positions.InsertStatement(position));
        if (position.kind == Position::kGoods)
            ZelRsExecute(m_database,
                         "UPDATE Auftraege SET Rechnung = " + CString(invoice.number.ConvToSQL()) +
                             " WHERE Nr = " + CString(position.order.ConvToSQL()));
    }
    m_outcome.positions += static_cast<int>(invoice.positions.size());
}

/// Invoices go through a record set.
void Run::Write(const std::vector<Invoice>& invoices, const Counter& count)
{
    CRechnungen records(m_database);
    records.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    for (const Invoice& invoice : invoices) {
        records.Append(invoice);
        WritePositions(invoice);
        ++m_outcome.invoices;
        count(static_cast<std::size_t>(m_outcome.invoices), invoices.size());
    }
}

Outcome Run::Make(const ZelDtDateZp& until, const Counter& count)
{
    Transaction transaction(m_database);
    Lock(m_database);
    ReadCustomers();
    ReadArticles();
    ReadWork();
    ChooseDate(until);
    ReadOrders();

    CNummernkreis records(m_database);
    Numbers numbers = OpenNumbers(records);
    const std::vector<Invoice> invoices = MakeInvoices(numbers.next);
    std::stable_sort(m_outcome.unbilled.begin(), m_outcome.unbilled.end(),
                     [](const Unbilled& a, const Unbilled& b) { return a.order < b.order; });
    if (invoices.empty())
        return m_outcome; // and nothing was changed
    Write(invoices, count);
    numbers.next += static_cast<int>(invoices.size());
    records.Change(numbers);
    records.Close();
    transaction.Commit();
    return m_outcome;
}

} // namespace

Outcome WriteInvoices(CDatabase& database, const ZelDtDateZp& until, const Counter& count)
{
    return Run(database).Make(until, count);
}

std::vector<Invoice> ReadInvoices(CDatabase& database)
{
    std::vector<Invoice> invoices;
    std::map<long, std::size_t> indexes;
    CRechnungen records(database);
    ForRecords(records, "Nr", [&](CRechnungen& record) {
        indexes[record.Get().number.GetValue()] = invoices.size();
        invoices.push_back(record.Get());
        invoices.back().SetPlaces();
    });
    CPositionen positions(database);
    ForRecords(positions, "Rechnung, Zeile", [&](CPositionen& record) {
        const Position& position = record.Get();
        const auto index = indexes.find(position.invoice.GetValue());
        if (index == indexes.end())
            throw std::runtime_error("Eine Position steht auf keiner Rechnung");
        std::vector<Position>& target = invoices[index->second].positions;
        target.push_back(position);
        target.back().SetPlaces();
    });
    return invoices;
}

std::vector<RefusedRow> ReadRefusedRows(CDatabase& database)
{
    std::vector<RefusedRow> rows;
    CAbgewiesen records(database);
    ForRecords(records, "Nr", [&](CAbgewiesen& record) { rows.push_back(record.Get()); });
    return rows;
}

} // namespace rechnungslauf
