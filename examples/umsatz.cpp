// Sales by customer: reads customers and orders from CSV files, computes what every order comes to,
// exact to the cent, and prints a German report in UTF-8.
//
//     umsatz kunden.csv auftraege.csv
//
// It shows decimal arithmetic with commercial rounding, display formats, and what null values do;
// auftraege.h, how typed cells get into values of several classes, and where errors came from. A
// row that is no order is refused with its reason; the others go on.

#include "auftraege.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace auftraege;

/// Every step is exact; only the end is rounded, ties away from zero.
ZelDtDecimal TotalOf(const Order& order)
{
    ZelDtDecimal total = order.quantity * order.price * (100 - order.discount) / 100;
    return total.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
}

// Report

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
    void PrintLine(const std::string& number, const std::string& name, const ZelDtLong& orders,
                   const ZelDtDecimal& total) const;

    std::map<long, Customer> m_customers;
    ZelDtLong m_orders{0};
    ZelDtDecimal m_total{0};
    ZelDtDouble m_weight{0};
    Refused m_refused;
};

void Report::ReadCustomers(const std::string& name)
{
    CsvFile file(name, {"Nr", "Name", "Strasse", "PLZ", "Ort", "Bemerkung"});
    m_refused.ForRows(file, "Kunden", [&](const Row& row) {
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
    CsvFile file(name, OrderColumns());
    m_refused.ForRows(file, "Aufträge", [&](const Row& row) { Add(Order(file, row)); });
}

void Report::Add(const Order& order)
{
    const auto customer = m_customers.find(order.customer.GetValue());
    if (customer == m_customers.end())
        throw Refusal{"Kunde", "Kunde unbekannt"};
    // What may fail comes first, so that a refused order is in no sum.
    const ZelDtDecimal total = TotalOf(order);
    const ZelDtDecimal all = m_total + total;
    customer->second.total += total;
    ++customer->second.orders;
    m_total = all;
    m_weight += order.weight;
    ++m_orders;
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
    m_refused.Print();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "umsatz KUNDEN.CSV AUFTRAEGE.CSV\n");
        return 2;
    }
    return RunProgram("umsatz", [argv] {
        Report report;
        report.ReadCustomers(argv[1]);
        report.ReadOrders(argv[2]);
        report.Print();
    });
}
