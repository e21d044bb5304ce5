// An invoice run: fills a database with customers, articles, orders and times worked, writes an
// invoice for every customer who got something, archives the invoices, and reports in German.
//
//     rechnungslauf --data examples/data --out rechnungen
//     rechnungslauf --dsn "Driver=...;SERVER=...;DATABASE=..." --until 31.12.2023
//     rechnungslauf --show rechnungen/rechnung-000001.arc
//
// It shows record sets over tables in both directions, statements with values as literals,
// transactions, decimal arithmetic with its kinds of rounding, dates and times, null values, and
// objects in archives. The invoices are written in one transaction; what there is in files is made
// of what the database holds then. So a run that was interrupted, wherever that was, is completed
// by the next one, and a run after a complete one changes nothing.
//
// The report goes to standard output, what the run did to standard error. It ends with status 0, or
// 2 when something was wrong with the call, a file or the database.

#include "archive.h"
#include "billing.h"
#include "faults.h"
#include "files.h"
#include "options.h"
#include "report.h"
#include "samples.h"
#include "source.h"
#include "tools/common/progressbar.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace rechnungslauf;

std::string ArchiveName(const Options& options, const Invoice& invoice)
{
    char number[32];
    std::snprintf(number, sizeof number, "%06ld", invoice.number.GetValue());
    return options.out + "/rechnung-" + number + ".arc";
}

std::string TableName(const Options& options, const ZelDtDateZp& date)
{
    char day[32];
    std::snprintf(day, sizeof day, "%04d-%02d-%02d", date.GetYear(), date.GetMonth(),
                  date.GetDay365());
    return options.out + "/rechnungen-" + day + ".csv";
}

std::vector<Invoice> OfDate(const std::vector<Invoice>& invoices, const ZelDtDateZp& date)
{
    std::vector<Invoice> result;
    std::copy_if(invoices.begin(), invoices.end(), std::back_inserter(result),
                 [&](const Invoice& invoice) { return invoice.date == date; });
    return result;
}

/// Writes what is not there yet; returns how many files that were.
int WriteFiles(const Options& options, const std::vector<Invoice>& invoices,
               const ZelDtDateZp& date, zeltools::ProgressBar& bar)
{
    int written = 0;
    std::size_t done = 0;
    for (const Invoice& invoice : invoices) {
        written += BringTo(ArchiveName(options, invoice), ArchiveOf(invoice)) ? 1 : 0;
        ++done;
        if (bar.IsDue())
            bar.Show(done, invoices.size(), "Archive");
    }
    const std::string table = Table(OfDate(invoices, date));
    return written + (BringTo(TableName(options, date), table) ? 1 : 0);
}

void Print(const std::string& text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0)
        throw std::runtime_error("Der Bericht kann nicht ausgegeben werden");
}

std::string Summary(const Outcome& outcome, int files)
{
    if (outcome.invoices == 0 && files == 0)
        return "nichts geändert; bis zum " + Shown(outcome.until) +
               " ist alles berechnet, was sich berechnen lässt";
    return std::to_string(outcome.invoices) + " Rechnungen mit " +
           std::to_string(outcome.positions) + " Positionen geschrieben, " + std::to_string(files) +
           " Dateien abgelegt";
}

/// Returns what was done, in a line.
std::string RunInvoices(const Options& options)
{
    MakeFolder(options.out);
    zeltools::ProgressBar bar;
    CDatabase database;
    database.OpenEx(ConnectString(options).c_str(), CDatabase::noOdbcDialog);
    FillDatabase(database, options.data, [&](const std::string& words) {
        if (bar.IsDue())
            bar.Say(words);
    });
    const std::vector<RefusedRow> refused = ReadRefusedRows(database);
    const Outcome outcome =
        WriteInvoices(database, options.until, [&](std::size_t done, std::size_t all) {
            if (bar.IsDue())
                bar.Show(done, all, "Rechnungen");
        });
    const std::vector<Invoice> invoices = ReadInvoices(database);
    database.Close();

    const int files = WriteFiles(options, invoices, outcome.until, bar);
    bar.Clear();
    Print(Report(outcome.until, OfDate(invoices, outcome.until), outcome.unbilled, refused));
    return Summary(outcome, files);
}

/// Returns what is to be told at the end; nothing where that was printed.
std::string Run(int argc, char** argv)
{
    const std::optional<Options> options = ParseOptions(argc, argv);
    if (!options)
        return "";
    if (options->archiveToShow.empty())
        return RunInvoices(*options);
    Print(Shown(LoadInvoice(options->archiveToShow)));
    return "";
}

} // namespace

int main(int argc, char** argv)
{
    std::string words;
    const std::string fault = FaultOf([&] { words = Run(argc, argv); });
    if (!fault.empty())
        words = fault;
    if (!words.empty())
        std::fprintf(stderr, "rechnungslauf: %s\n", words.c_str());
    return fault.empty() ? 0 : 2;
}
