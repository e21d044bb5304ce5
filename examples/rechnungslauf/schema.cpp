#include "schema.h"

#include <array>
#include <string>

namespace rechnungslauf {

namespace {

/// How a kind of database calls its types.
struct Dialect {
    const char* probe; ///< a statement that no other kind accepts; null: any kind
    const char* amount;
    const char* percentage;
    const char* moment;
    const char* tableOptions;
};

constexpr std::array<Dialect, 3> kDialects = {{
    {"SELECT sqlite_version()", "VARCHAR(40)", "VARCHAR(40)", "TIMESTAMP", ""},
    // Names that differ in an accent only are different names; without transactions nothing here
    // would hold.
    {"SELECT @@sql_mode", "DECIMAL(30,2)", "DECIMAL(6,3)", "DATETIME",
     " ENGINE=InnoDB DEFAULT CHARSET=latin1 COLLATE=latin1_bin"},
    {nullptr, "DECIMAL(30,2)", "DECIMAL(6,3)", "TIMESTAMP", ""},
}};

struct Table {
    const char* name;
    const char* columns; ///< AMOUNT, PERCENTAGE and MOMENT stand for types of the dialect
};

constexpr Table kNumberTable = {"Nummernkreis", "Nr INTEGER NOT NULL PRIMARY KEY, "
                                                "Naechste INTEGER NOT NULL"};

constexpr std::array<Table, 7> kTables = {{
    {"Kunden", "Nr INTEGER NOT NULL PRIMARY KEY, "
               "Name VARCHAR(80) NOT NULL, "
               "Strasse VARCHAR(80), "
               "PLZ VARCHAR(10), "
               "Ort VARCHAR(60), "
               "Bemerkung VARCHAR(200), "
               "Zahlungsziel SMALLINT, "
               "Skonto PERCENTAGE, "
               "Stundensatz AMOUNT"},
    {"Artikel", "Nr INTEGER NOT NULL PRIMARY KEY, "
                "Bezeichnung VARCHAR(60) NOT NULL UNIQUE, "
                "Einheit VARCHAR(20), "
                "Steuersatz SMALLINT NOT NULL"},
    // What an order may lack, other programs may leave out; the run tells of it.
    {"Auftraege", "Nr INTEGER NOT NULL PRIMARY KEY, "
                  "Kunde INTEGER, "
                  "Artikel VARCHAR(60), "
                  "Menge SMALLINT, "
                  "Preis AMOUNT, "
                  "Rabatt PERCENTAGE, "
                  "Gewicht DOUBLE PRECISION, "
                  "Auftragsdatum MOMENT, "
                  "Faellig DATE, "
                  "Arbeitszeit INTEGER, "
                  "Express SMALLINT, "
                  "Status CHAR(1), "
                  "Rechnung INTEGER"},
    {"Arbeitszeiten", "Nr INTEGER NOT NULL PRIMARY KEY, "
                      "Auftrag INTEGER NOT NULL, "
                      "Mitarbeiter VARCHAR(60), "
                      "Beginn MOMENT, "
                      "Ende MOMENT, "
                      "Pause INTEGER"},
    {"Abgewiesen", "Nr INTEGER NOT NULL PRIMARY KEY, "
                   "Datei VARCHAR(30) NOT NULL, "
                   "Zeile INTEGER NOT NULL, "
                   "Spalte VARCHAR(30), "
                   "Grund VARCHAR(120) NOT NULL"},
    {"Rechnungen", "Nr INTEGER NOT NULL PRIMARY KEY, "
                   "Kunde INTEGER NOT NULL, "
                   "Name VARCHAR(80) NOT NULL, "
                   "Datum DATE NOT NULL, "
                   "Faellig DATE NOT NULL, "
                   "Netto19 AMOUNT NOT NULL, "
                   "Netto7 AMOUNT NOT NULL, "
                   "Steuer19 AMOUNT NOT NULL, "
                   "Steuer7 AMOUNT NOT NULL, "
                   "Brutto AMOUNT NOT NULL, "
                   "Skonto AMOUNT, "
                   "Arbeitszeit INTEGER NOT NULL, "
                   "Gewicht DOUBLE PRECISION NOT NULL"},
    // No order is invoiced twice.
    {"Positionen", "Rechnung INTEGER NOT NULL, "
                   "Zeile SMALLINT NOT NULL, "
                   "Auftrag INTEGER NOT NULL, "
                   "Art CHAR(1) NOT NULL, "
                   "Bezeichnung VARCHAR(60) NOT NULL, "
                   "Menge SMALLINT, "
                   "Arbeitszeit INTEGER, "
                   "Preis AMOUNT NOT NULL, "
                   "Rabatt PERCENTAGE, "
                   "Steuersatz SMALLINT NOT NULL, "
                   "Netto AMOUNT NOT NULL, "
                   "PRIMARY KEY (Rechnung, Zeile), "
                   "UNIQUE (Auftrag, Art)"},
}};

bool Accepts(CDatabase& database, const char* statement)
{
    try {
        database.ExecuteSQL(statement);
        return true;
    } catch (CDBException* error) {
        error->Delete();
        return false;
    }
}

const Dialect& DialectOf(CDatabase& database)
{
    for (const Dialect& dialect : kDialects) {
        if (dialect.probe == nullptr || Accepts(database, dialect.probe))
            return dialect;
    }
    return kDialects.back();
}

void Replace(std::string& text, const std::string& word, const char* by)
{
    for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos;)
        text.replace(at, word.size(), by);
}

void Make(CDatabase& database, const Dialect& dialect, const Table& table)
{
    std::string columns = table.columns;
    Replace(columns, "AMOUNT", dialect.amount);
    Replace(columns, "PERCENTAGE", dialect.percentage);
    Replace(columns, "MOMENT", dialect.moment);
    const std::string statement = std::string("CREATE TABLE IF NOT EXISTS ") + table.name + " (" +
                                  columns + ")" + dialect.tableOptions;
    database.ExecuteSQL(statement.c_str());
}

} // namespace

void MakeNumberTable(CDatabase& database)
{
    Make(database, DialectOf(database), kNumberTable);
}

void MakeTables(CDatabase& database)
{
    const Dialect& dialect = DialectOf(database);
    for (const Table& table : kTables)
        Make(database, dialect, table);
}

} // namespace rechnungslauf
