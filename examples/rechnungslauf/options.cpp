#include "options.h"

#include "../auftraege.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <stdexcept>

namespace rechnungslauf {

namespace {

constexpr const char* kDescription = "Schreibt Rechnungen über gelieferte Aufträge.";

constexpr const char* kFooter =
    R"(Eine leere Datenbank wird aus den Dateien kunden.csv, artikel.csv, konditionen.csv,
auftraege.csv und arbeitszeiten.csv gefüllt. Was schon berechnet ist, wird nicht noch einmal
berechnet: ein zweiter Lauf ändert nichts, und ein abgebrochener wird durch einen neuen vollendet.

Ende: 0 gut, 2 Aufruf, Datei oder Datenbank unbrauchbar.

Beispiele:
  rechnungslauf --data examples/data --out rechnungen
  rechnungslauf --dsn "Driver=libmaodbc.so;SERVER=127.0.0.1;DATABASE=handel" --until 31.12.2023
  rechnungslauf --show rechnungen/rechnung-000001.arc)";

constexpr const char* kFile = "DATEI";
constexpr const char* kFolder = "ORDNER";

void Describe(CLI::App& app, Options& options, std::string& until)
{
    app.footer(kFooter);
    app.get_formatter()->label("Usage", "Aufruf");
    app.get_formatter()->label("OPTIONS", "OPTIONEN");
    app.get_formatter()->column_width(24);
    app.option_defaults()->group("Optionen")->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    app.set_help_flag("-h,--help", "zeigt diese Hilfe");
    app.get_help_ptr()->group("Optionen");
    CLI::Option* const dsn =
        app.add_option("--dsn", options.dsn, "ODBC-Quelle, in der die Tabellen stehen")
            ->option_text("VERBINDUNG");
    app.add_option("--database", options.database,
                   "SQLite-Datei statt einer ODBC-Quelle (rechnungen.db im Ordner von --out)")
        ->option_text(kFile)
        ->excludes(dsn);
    app.add_option("--driver", options.driver, "ODBC-Treiber für SQLite (der des Systems)")
        ->option_text(kFile)
        ->excludes(dsn);
    app.add_option("--data", options.data, "Ordner der CSV-Dateien (" + options.data + ")")
        ->option_text(kFolder);
    app.add_option("--out", options.out, "Ordner für Archive und Tabelle (" + options.out + ")")
        ->option_text(kFolder);
    app.add_option("--until", until,
                   "Rechnungsdatum; Aufträge bis zu diesem Tag (Ende des letzten Monats)")
        ->option_text("TT.MM.JJJJ");
    app.add_option("--show", options.archiveToShow, "zeigt eine archivierte Rechnung")
        ->option_text(kFile);
}

/// The first word of an English message is the name of the option.
std::string NameIn(const std::string& message)
{
    return message.substr(0, message.find_first_of(": "));
}

std::string German(const CLI::ParseError& error)
{
    const std::string message = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return "unbekannte Angabe:" + message.substr(message.rfind(": ") + 1);
    if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr)
        return NameIn(message) + " und" + message.substr(message.rfind(' ')) +
               " vertragen sich nicht";
    return NameIn(message) + ": Angabe fehlt oder ist unbrauchbar";
}

/// The computation needs a margin on both sides.
ZelDtDateZp ParseDate(const std::string& text)
{
    constexpr short firstYear = 1900;
    constexpr short lastYear = 2199;
    ZelDtDateZp date(ZelDtWmMissing);
    try {
        auftraege::Read(text, "--until", date);
    } catch (const auftraege::Refusal& refusal) {
        throw std::runtime_error(refusal.column + ": " + refusal.reason);
    }
    if (date.GetYear() < firstYear || date.GetYear() > lastYear)
        throw std::runtime_error("--until: ein Jahr von 1900 bis 2199 ist nötig");
    return date;
}

} // namespace

std::optional<Options> ParseOptions(int argc, char** argv)
{
    Options options;
    std::string until;
    CLI::App app(kDescription, "rechnungslauf");
    Describe(app, options, until);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        app.exit(request);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw std::runtime_error(German(error) + " (rechnungslauf --help sagt mehr)");
    }
    if (app.count("--until") != 0)
        options.until = ParseDate(until);
    if (options.database.empty())
        options.database = options.out + "/rechnungen.db";
    return options;
}

} // namespace rechnungslauf
