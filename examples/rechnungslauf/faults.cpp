#include "faults.h"

#include "../auftraege.h"
#include "../auftragsmaske/texte.h"

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <stdexcept>
#include <typeinfo>

namespace rechnungslauf {

namespace {

/// How errors of databases are told from each other: by the beginning of the state, which SQLite's
/// driver does not know, or by a part of the text, which others write in their own language.
struct Fault {
    const char* state; ///< null: none
    const char* text;
    const char* german;
};

constexpr const char* kNoMemory = "Der Speicher ist erschöpft";
constexpr const char* kMissingTable = "Eine Tabelle fehlt";
constexpr const char* kReadOnly = "Die Datenbank darf nicht beschrieben werden";
constexpr const char* kFull = "Der Speicherplatz der Datenbank ist erschöpft";
constexpr const char* kLocked = "Die Datenbank ist von einem anderen Programm gesperrt";
constexpr const char* kUnreachable = "Die Datenbank ist nicht erreichbar";
constexpr const char* kViolation = "Ein Datensatz verletzt eine Bedingung der Datenbank";
constexpr const char* kNoDriver = "Der ODBC-Treiber oder die Datenquelle fehlt";
constexpr const char* kUnusableFile = "Die Datei ist keine Datenbank oder beschädigt";
constexpr const char* kDoesNotFit = "Ein Wert passt nicht in seine Spalte";
constexpr const char* kOtherColumns = "Eine Tabelle hat andere Spalten";

constexpr std::array<Fault, 27> kFaults = {{
    {"42S02", "no such table", kMissingTable},
    {nullptr, "readonly", kReadOnly},
    {nullptr, "read-only", kReadOnly},
    {nullptr, "read only", kReadOnly},
    {nullptr, "command denied", kReadOnly},
    {nullptr, "is full", kFull},
    {nullptr, "disk full", kFull},
    {nullptr, "disk I/O error", "Die Datenbank kann nicht gelesen oder geschrieben werden"},
    {"40001", "is locked", kLocked},
    {nullptr, "Lock wait timeout", kLocked},
    {nullptr, "Deadlock found", kLocked},
    {"23", "constraint failed", kViolation},
    {nullptr, "not a database", kUnusableFile},
    {nullptr, "malformed", kUnusableFile},
    {nullptr, "unable to open database", "Die Datei der Datenbank kann nicht geöffnet werden"},
    {nullptr, "connect failed", "Die Datei der Datenbank kann nicht geöffnet werden"},
    {"42S22", "no such column", kOtherColumns},
    {nullptr, "has no column", kOtherColumns},
    {"28", "Access denied", "Die Datenbank weist die Anmeldung ab"},
    {"08", "gone away", kUnreachable},
    {nullptr, "Lost connection", kUnreachable},
    {nullptr, "Can't connect", kUnreachable},
    {"IM", "Can't open lib", kNoDriver},
    {nullptr, "data source name not found", kNoDriver},
    {"HYT0", "timeout", "Die Datenbank antwortet nicht rechtzeitig"},
    {"22", "too long", kDoesNotFit},
    {nullptr, "out of range", kDoesNotFit},
}};

bool Matches(const Fault& fault, const std::string& origin, const std::string& text)
{
    return text.find(fault.text) != std::string::npos ||
           (fault.state != nullptr && origin.rfind(std::string("State:") + fault.state, 0) == 0);
}

std::string KindOf(const CDBException& error, const std::string& text)
{
    const std::string origin = error.m_strStateNativeOrigin.GetString();
    const auto found = std::find_if(kFaults.begin(), kFaults.end(), [&](const Fault& fault) {
        return Matches(fault, origin, text);
    });
    if (found != kFaults.end())
        return found->german;
    switch (error.m_nRetCode) {
    case AFX_SQL_ERROR_DATA_TRUNCATED:
        return kDoesNotFit;
    case AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH:
        return kOtherColumns;
    case AFX_SQL_ERROR_CONNECT_FAIL:
        return kUnreachable;
    default:
        return "Die Datenbank meldet einen Fehler";
    }
}

std::string OneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

/// The error in German, and what the driver said.
std::string Describe(const CDBException& error)
{
    const std::string text = OneLine(auftraege::Utf8(error.m_strError));
    return KindOf(error, text) + (text.empty() ? "" : " (Treiber: " + text + ")");
}

} // namespace

std::string FaultOf(const std::function<void()>& body)
{
    try {
        body();
        return "";
    } catch (const auftraege::Refusal& refusal) {
        return "Ein Datensatz ist beschädigt (" +
               (refusal.column.empty() ? "" : refusal.column + ": ") + refusal.reason + ")";
    } catch (const std::bad_alloc&) {
        return kNoMemory;
    } catch (const std::exception& error) {
        // What this program throws itself is for people; what libraries throw is not.
        std::string words = OneLine(error.what());
        return typeid(error) == typeid(std::runtime_error) ? words
                                                           : "Unerwarteter Fehler (" + words + ")";
    } catch (CMemoryException* error) {
        error->Delete();
        return kNoMemory;
    } catch (CDBException* error) {
        std::string words = Describe(*error);
        error->Delete();
        return words;
    } catch (CException* error) {
        error->Delete();
        return "Ein Archiv kann nicht geschrieben werden";
    } catch (ZelDtExcep* error) {
        return auftraege::ReasonOf(error);
    }
}

} // namespace rechnungslauf
