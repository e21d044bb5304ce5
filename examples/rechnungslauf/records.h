#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_RECORDS_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_RECORDS_H

// The tables as record sets. Each class names its columns once, in ForColumns: what a column is
// called, the value and the record set's member that belong together, and how long a text may be.
// Everything else follows from that list: the exchange with the database, the way from the members
// to the values and back, and statements with the values as literals.

#include "invoice.h"

#include <ZELQRNDT017/platform/recordsets/literals.h>

#include <string>

namespace rechnungslauf {

/// A row of a sample file that was refused.
struct RefusedRow {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtString file{ZelDtWmMissing};
    ZelDtLong line{ZelDtWmMissing};
    ZelDtString column{ZelDtWmNull}; ///< Null: the row as a whole
    ZelDtString reason{ZelDtWmMissing};
};

/// The row of Nummernkreis. It is there when the sample data are.
struct Numbers {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtLong next{ZelDtWmMissing}; ///< number of the next invoice

    static constexpr int kOnlyRow = 1;
};

/// Longest text of a number that is kept exactly.
inline constexpr int kNumberLength = 40;

/// One member each, by the class of the value that it serves.
struct BindMembers {
    CFieldExchange* pFX;

    void operator()(const char* name, ZelDtLong&, long& member) { RFX_Long(pFX, name, member); }
    void operator()(const char* name, ZelDtTime&, long& member) { RFX_Long(pFX, name, member); }
    void operator()(const char* name, ZelDtShort&, int& member) { RFX_Int(pFX, name, member); }
    void operator()(const char* name, ZelDtBool&, int& member) { RFX_Bool(pFX, name, member); }
    void operator()(const char* name, ZelDtDouble&, double& member)
    {
        RFX_Double(pFX, name, member);
    }
    void operator()(const char* name, ZelDtDateTime&, TIMESTAMP_STRUCT& member)
    {
        RFX_Date(pFX, name, member);
    }
    void operator()(const char* name, ZelDtDecimal&, CString& member)
    {
        RFX_Text(pFX, name, member, kNumberLength);
    }
    void operator()(const char* name, ZelDtChar&, CString& member)
    {
        RFX_Text(pFX, name, member, 1);
    }
    void operator()(const char* name, ZelDtString&, CString& member, int length)
    {
        RFX_Text(pFX, name, member, length);
    }
};

/// A value that does not get through, or would not whole, is a Refusal in its column's name.
struct FromMembers {
    CRecordset& records;

    template <typename Value, typename Member>
    void operator()(const char* name, Value& value, const Member& member, int = 0)
    {
        try {
            value.SetFromRecordSet(records, member);
        } catch (ZelDtExcep* error) {
            throw Refusal{name, auftraege::ReasonOf(error)};
        }
    }
};

struct ToMembers {
    CRecordset& records;

    template <typename Value, typename Member>
    void operator()(const char* name, const Value& value, Member& member, int = 0)
    {
        try {
            value.ConvToRecordSet(records, member);
        } catch (ZelDtExcep* error) {
            throw Refusal{name, auftraege::ReasonOf(error)};
        }
    }
};

struct CheckLengths {
    template <typename Value, typename Member>
    void operator()(const char*, const Value&, const Member&)
    {}
    void operator()(const char* name, const ZelDtString& value, const CString&, int length)
    {
        if (value.IsDefined() && value.GetLength() > length)
            throw Refusal{name, "Der Text ist zu lang"};
    }
};

struct Literals {
    CString names;
    CString values;

    template <typename Value, typename Member>
    void operator()(const char* name, const Value& value, const Member&, int = 0)
    {
        const char* const separator = names.IsEmpty() ? "" : ", ";
        names += CString(separator) + name;
        values += CString(separator) + CString(Literal(value));
    }

private:
    template <typename Value>
    static ZelDtString Literal(const Value& value)
    {
        return value.ConvToSQL();
    }

    /// As a text, because a number with a point is a floating one to SQLite. A column of decimals
    /// takes it too.
    static ZelDtString Literal(const ZelDtDecimal& value)
    {
        const ZelDtString number = value.ConvToSQL();
        return value.IsDefined() ? number.ConvToSQL() : number;
    }
};

/// `Records` is the class derived from this one, `Values` what a row of its table holds.
template <typename Records, typename Values>
class ValueRecords : public CRecordset {
public:
    explicit ValueRecords(CDatabase& database) : CRecordset(&database) {}

    CString GetDefaultSQL() override { return Records::kTable; }

    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        ForColumns(BindMembers{pFX});
    }

    /// The values of the current record.
    const Values& Get()
    {
        m_values = Values();
        ForColumns(FromMembers{*this});
        return m_values;
    }

    /// What Get put into the first columns, also when it refused another one.
    const Values& GetAsFarAsRead() const { return m_values; }

    /// Refuses values that the columns cannot hold.
    void Check(const Values& values)
    {
        m_values = values;
        ForColumns(CheckLengths{});
    }

    /// Adds a record.
    void Append(const Values& values)
    {
        Check(values);
        AddNew();
        ForColumns(ToMembers{*this});
        Update();
    }

    /// Changes the current record.
    void Change(const Values& values)
    {
        Check(values);
        Edit();
        ForColumns(ToMembers{*this});
        Update();
    }

    /// A statement that adds a record, with its values as literals.
    CString InsertStatement(const Values& values)
    {
        Check(values);
        Literals literals;
        ForColumns(literals);
        return CString("INSERT INTO ") + Records::kTable + " (" + literals.names + ") VALUES (" +
               literals.values + ")";
    }

protected:
    Values m_values;

private:
    template <typename Visit>
    void ForColumns(Visit&& visit)
    {
        static_cast<Records&>(*this).ForColumns(visit);
    }
};

class CKunden final : public ValueRecords<CKunden, Customer> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Kunden";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Name", m_values.name, m_strName, 80);
        column("Strasse", m_values.street, m_strStrasse, 80);
        column("PLZ", m_values.code, m_strPLZ, 10);
        column("Ort", m_values.town, m_strOrt, 60);
        column("Bemerkung", m_values.remark, m_strBemerkung, 200);
        column("Zahlungsziel", m_values.daysToPay, m_nZahlungsziel);
        column("Skonto", m_values.cashDiscount, m_strSkonto);
        column("Stundensatz", m_values.hourPrice, m_strStundensatz);
    }

private:
    long m_lNr = 0;
    CString m_strName;
    CString m_strStrasse;
    CString m_strPLZ;
    CString m_strOrt;
    CString m_strBemerkung;
    int m_nZahlungsziel = 0;
    CString m_strSkonto;
    CString m_strStundensatz;
};

class CArtikel final : public ValueRecords<CArtikel, Article> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Artikel";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Bezeichnung", m_values.name, m_strBezeichnung, 60);
        column("Einheit", m_values.unit, m_strEinheit, 20);
        column("Steuersatz", m_values.taxRate, m_nSteuersatz);
    }

private:
    long m_lNr = 0;
    CString m_strBezeichnung;
    CString m_strEinheit;
    int m_nSteuersatz = 0;
};

class CAuftraege final : public ValueRecords<CAuftraege, Order> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Auftraege";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Kunde", m_values.customer, m_lKunde);
        column("Artikel", m_values.article, m_strArtikel, 60);
        column("Menge", m_values.quantity, m_nMenge);
        column("Preis", m_values.price, m_strPreis);
        column("Rabatt", m_values.discount, m_strRabatt);
        column("Gewicht", m_values.weight, m_dGewicht);
        column("Auftragsdatum", m_values.ordered, m_tsAuftragsdatum);
        column("Faellig", m_values.due, m_tsFaellig);
        column("Arbeitszeit", m_values.worked, m_lArbeitszeit);
        column("Express", m_values.express, m_bExpress);
        column("Status", m_values.status, m_strStatus);
        column("Rechnung", m_values.invoice, m_lRechnung);
    }

private:
    long m_lNr = 0;
    long m_lKunde = 0;
    CString m_strArtikel;
    int m_nMenge = 0;
    CString m_strPreis;
    CString m_strRabatt;
    double m_dGewicht = 0;
    TIMESTAMP_STRUCT m_tsAuftragsdatum{};
    TIMESTAMP_STRUCT m_tsFaellig{};
    long m_lArbeitszeit = 0;
    BOOL m_bExpress = FALSE;
    CString m_strStatus;
    long m_lRechnung = 0;
};

class CArbeitszeiten final : public ValueRecords<CArbeitszeiten, Work> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Arbeitszeiten";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Auftrag", m_values.order, m_lAuftrag);
        column("Mitarbeiter", m_values.worker, m_strMitarbeiter, 60);
        column("Beginn", m_values.begin, m_tsBeginn);
        column("Ende", m_values.end, m_tsEnde);
        column("Pause", m_values.pause, m_lPause);
    }

private:
    long m_lNr = 0;
    long m_lAuftrag = 0;
    CString m_strMitarbeiter;
    TIMESTAMP_STRUCT m_tsBeginn{};
    TIMESTAMP_STRUCT m_tsEnde{};
    long m_lPause = 0;
};

class CAbgewiesen final : public ValueRecords<CAbgewiesen, RefusedRow> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Abgewiesen";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Datei", m_values.file, m_strDatei, 30);
        column("Zeile", m_values.line, m_lZeile);
        column("Spalte", m_values.column, m_strSpalte, 30);
        column("Grund", m_values.reason, m_strGrund, 120);
    }

private:
    long m_lNr = 0;
    CString m_strDatei;
    long m_lZeile = 0;
    CString m_strSpalte;
    CString m_strGrund;
};

class CNummernkreis final : public ValueRecords<CNummernkreis, Numbers> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Nummernkreis";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Naechste", m_values.next, m_lNaechste);
    }

private:
    long m_lNr = 0;
    long m_lNaechste = 0;
};

class CRechnungen final : public ValueRecords<CRechnungen, Invoice> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Rechnungen";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Nr", m_values.number, m_lNr);
        column("Kunde", m_values.customer, m_lKunde);
        column("Name", m_values.name, m_strName, 80);
        column("Datum", m_values.date, m_tsDatum);
        column("Faellig", m_values.due, m_tsFaellig);
        column("Netto19", m_values.net[0], m_strNetto19);
        column("Netto7", m_values.net[1], m_strNetto7);
        column("Steuer19", m_values.tax[0], m_strSteuer19);
        column("Steuer7", m_values.tax[1], m_strSteuer7);
        column("Brutto", m_values.gross, m_strBrutto);
        column("Skonto", m_values.cashDiscount, m_strSkonto);
        column("Arbeitszeit", m_values.time, m_lArbeitszeit);
        column("Gewicht", m_values.weight, m_dGewicht);
    }

private:
    long m_lNr = 0;
    long m_lKunde = 0;
    CString m_strName;
    TIMESTAMP_STRUCT m_tsDatum{};
    TIMESTAMP_STRUCT m_tsFaellig{};
    CString m_strNetto19;
    CString m_strNetto7;
    CString m_strSteuer19;
    CString m_strSteuer7;
    CString m_strBrutto;
    CString m_strSkonto;
    long m_lArbeitszeit = 0;
    double m_dGewicht = 0;
};

class CPositionen final : public ValueRecords<CPositionen, Position> {
public:
    using ValueRecords::ValueRecords;
    static constexpr const char* kTable = "Positionen";

    template <typename Visit>
    void ForColumns(Visit&& column)
    {
        column("Rechnung", m_values.invoice, m_lRechnung);
        column("Zeile", m_values.line, m_nZeile);
        column("Auftrag", m_values.order, m_lAuftrag);
        column("Art", m_values.kind, m_strArt);
        column("Bezeichnung", m_values.text, m_strBezeichnung, 60);
        column("Menge", m_values.quantity, m_nMenge);
        column("Arbeitszeit", m_values.time, m_lArbeitszeit);
        column("Preis", m_values.price, m_strPreis);
        column("Rabatt", m_values.discount, m_strRabatt);
        column("Steuersatz", m_values.taxRate, m_nSteuersatz);
        column("Netto", m_values.net, m_strNetto);
    }

private:
    long m_lRechnung = 0;
    int m_nZeile = 0;
    long m_lAuftrag = 0;
    CString m_strArt;
    CString m_strBezeichnung;
    int m_nMenge = 0;
    long m_lArbeitszeit = 0;
    CString m_strPreis;
    CString m_strRabatt;
    int m_nSteuersatz = 0;
    CString m_strNetto;
};

/// Runs `body` with each record, in the order of these columns.
template <typename Records, typename Body>
void ForRecords(Records& records, const char* order, Body&& body)
{
    records.m_strSort = order;
    for (records.Open(CRecordset::forwardOnly, nullptr, CRecordset::readOnly); !records.IsEOF();
         records.MoveNext())
        body(records);
    records.Close();
}

} // namespace rechnungslauf

#endif
