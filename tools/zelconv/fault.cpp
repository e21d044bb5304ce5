#include "tools/zelconv/fault.h"

#include <array>
#include <memory>

namespace zelconv {

namespace {

struct ErrorRow {
    RowError error;
    const char* text;
};

// Code page 1252, as the texts of the library.
constexpr std::array<ErrorRow, 16> kErrors = {{
    {RowError::TooFewCells, "Zu wenige Zellen"},
    {RowError::TooManyCells, "Zu viele Zellen"},
    {RowError::Quotes, "Anf\374hrungszeichen falsch gesetzt"},
    {RowError::OpenQuotes, "Anf\374hrungszeichen am Dateiende noch offen"},
    {RowError::TooLong, "Zeile zu lang"},
    {RowError::NulByte, "NUL-Byte im Text"},
    {RowError::Malformed, "Ung\374ltiges UTF-8"},
    {RowError::NotInAnsi, "Zeichen fehlt in Codepage 1252"},
    {RowError::NotInOutput, "Zeichen fehlt in der Codepage der Ausgabe"},
    {RowError::ExternCell, "Ung\374ltige Zelle in externer Darstellung"},
    {RowError::ExternText, "Externer Text k\344me nicht unver\344ndert zur\374ck"},
    {RowError::TooManyDigits, "Zahl hat mehr Stellen, als ihr Typ fasst"},
    {RowError::Changed, "Wert k\344me nicht unver\344ndert in die Ausgabe"},
    {RowError::TimeOfDay, "Uhrzeit bei einem Datum"},
    {RowError::FromDatabase, "Wert der Datenbank passt nicht zum Typ der Spalte"},
    {RowError::IntoDatabase, "Wert passt nicht in die Spalte der Datenbank"},
}};

const char* TextOf(RowError error)
{
    for (const ErrorRow& row : kErrors) {
        if (row.error == error)
            return row.text;
    }
    return "";
}

} // namespace

RowFault MakeFault(RowError error, int column, const std::string& detail)
{
    Reason reason{static_cast<unsigned long>(error), TextOf(error)};
    if (!detail.empty())
        reason.text += ": " + detail;
    return {column, reason, reason};
}

void Refuse(Finding finding, int column)
{
    if (finding)
        throw MakeFault(*finding, column);
}

RowFault TakeFault(ZelDtExcep* error, int column)
{
    const std::unique_ptr<ZelDtExcep> owner(error);
    if (owner == nullptr)
        throw std::bad_alloc();
    const ZelEhBasis& first = owner->GetFirstCause();
    return {column,
            {owner->GetErrorNo(), owner->GetErrorText()},
            {first.GetErrorNo(), first.GetErrorText()}};
}

std::string TakeMessage(CException* error)
{
    std::array<char, 512> text{};
    error->GetErrorMessage(text.data(), static_cast<UINT>(text.size()));
    error->Delete();
    return text.data();
}

} // namespace zelconv
