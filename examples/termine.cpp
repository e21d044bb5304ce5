// Delivery dates: reads orders from a CSV file, promises each for a month after it came in, and
// prints by month what that comes to, as a German report in UTF-8.
//
//     termine auftraege.csv
//
// It shows date-times and dates, months that end on different days, the days between two dates,
// times in minutes and hundredths that are rounded and added, yes and no, single characters, and
// what null values do. A row that is no order is refused with its reason; the others go on.

#include "auftraege.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace auftraege;

/// The same day of the next month, or its last one where it does not have that day: 31.01. gives
/// 28.02. or 29.02.
ZelDtDateZp PromisedFor(const Order& order)
{
    ZelDtDateZp promised(order.ordered); // without the time of day
    promised.AddMonth(1);
    promised.GetYear(); // an error for one that no report could show
    return promised;
}

long DaysBetween(const ZelDtDateZp& early, const ZelDtDateZp& late)
{
    const ZelDtTime span = late - early;
    return span.GetTime(ZelDtTime::Stunden) / 24;
}

/// An open order that is promised for later than its customer wants it.
struct Late {
    Order order;
    ZelDtDateZp promised;
    long days;
};

/// Sums over orders.
struct Sums {
    ZelDtLong orders{0};
    ZelDtDateZp first{ZelDtWmMissing}; ///< of the dates promised
    ZelDtDateZp last{ZelDtWmMissing};
    ZelDtLong atMonthEnd{0}; ///< promised for a month's last day because theirs is missing there
    ZelDtLong late{0};
    ZelDtTime worked{0, 0}; ///< hours, minutes

    void Add(const ZelDtDateZp& promised, bool movedToMonthEnd, bool isLate, const ZelDtTime& time)
    {
        worked += time;
        ++orders;
        atMonthEnd += movedToMonthEnd ? 1 : 0;
        late += isLate ? 1 : 0;
        if (first.IsMissing() || promised < first)
            first = promised;
        if (last.IsMissing() || promised > last)
            last = promised;
    }
};

class Report {
public:
    void ReadOrders(const std::string& name)
    {
        CsvFile file(name, OrderColumns());
        m_refused.ForRows(file, "Aufträge", [&](const Row& row) { Add(Order(file, row)); });
    }

    void Print();

private:
    void Add(const Order& order);
    static void PrintSums(const std::string& label, const Sums& sums);
    void PrintLate();

    std::map<std::pair<short, short>, Sums> m_months; ///< by year and month of the order
    Sums m_all;
    std::vector<Late> m_late;
    Refused m_refused;
};

void Report::Add(const Order& order)
{
    const ZelDtDateZp promised = PromisedFor(order);
    const bool movedToMonthEnd = promised.GetDay365() != order.ordered.GetDay365();
    const bool isLate =
        order.status == Order::kOpen && order.due.IsDefined() && order.due < promised;
    // Every order counts by started quarters of an hour.
    ZelDtTime worked = order.worked;
    worked.Round(ZelDtTime::RundenViertelstunde);

    const std::pair key(order.ordered.GetYear(), order.ordered.GetMonth());
    const long days = isLate ? DaysBetween(order.due, promised) : 0;

    // In copies, so that an order that is refused half-way is in no sum.
    Sums all = m_all;
    Sums month = m_months.count(key) != 0 ? m_months[key] : Sums();
    all.Add(promised, movedToMonthEnd, isLate, worked);
    month.Add(promised, movedToMonthEnd, isLate, worked);
    m_all = all;
    m_months[key] = month;
    if (isLate)
        m_late.push_back({order, promised, days});
}

const ZelFormat kCount = NumberFormat(0);

/// As the standard format of the value's class shows it.
std::string Shown(const ZelDtBasis& value, const ZelFormat* format = nullptr)
{
    return value.ConvToOFL(format).GetString();
}

void Report::PrintSums(const std::string& label, const Sums& sums)
{
    std::printf("%-7s  %8s  %10s  %10s  %10s  %6s  %11s\n", label.c_str(),
                Shown(sums.orders, &kCount).c_str(), Shown(sums.first).c_str(),
                Shown(sums.last).c_str(), Shown(sums.atMonthEnd, &kCount).c_str(),
                Shown(sums.late, &kCount).c_str(), Shown(sums.worked).c_str());
}

void Report::PrintLate()
{
    constexpr std::size_t most = 10;
    // Of equal delays the order that stands first in the file comes first.
    std::stable_sort(m_late.begin(), m_late.end(),
                     [](const Late& a, const Late& b) { return a.days > b.days; });
    std::printf("%9s  %6s  %-16s  %-10s  %-10s  %4s  %s\n", "Auftrag", "Kunde", "vom", "Termin",
                "Wunsch", "Tage", "Express");
    for (std::size_t i = 0; i < std::min(most, m_late.size()); ++i) {
        const Late& late = m_late[i];
        std::printf("%9s  %6s  %-16s  %-10s  %-10s  %4ld  %s\n", Shown(late.order.number).c_str(),
                    Shown(late.order.customer).c_str(), Shown(late.order.ordered).c_str(),
                    Shown(late.promised).c_str(), Shown(late.order.due).c_str(), late.days,
                    Shown(late.order.express).c_str());
    }
}

void Report::Print()
{
    std::printf("Termine: einen Monat nach dem Auftrag\n\n%-7s  %8s  %10s  %10s  %10s  %6s  %11s\n",
                "Monat", "Aufträge", "von", "bis", "Monatsende", "Verzug", "Arbeitszeit");
    for (const auto& [month, sums] : m_months) {
        char label[16];
        std::snprintf(label, sizeof label, "%02d.%d", month.second, month.first);
        PrintSums(label, sums);
    }
    std::printf("\n");
    PrintSums("Alle", m_all);
    std::printf("\nMonatsende: der Folgemonat hat den Tag nicht, der Termin ist sein letzter.\n"
                "Verzug: offen, und der Termin liegt hinter dem Wunsch des Kunden.\n"
                "Arbeitszeit: jeder Auftrag auf Viertelstunden aufgerundet.\n\n"
                "Der längste Verzug\n\n");
    PrintLate();
    m_refused.Print();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "termine AUFTRAEGE.CSV\n");
        return 2;
    }
    return RunProgram("termine", [argv] {
        Report report;
        report.ReadOrders(argv[1]);
        report.Print();
    });
}
