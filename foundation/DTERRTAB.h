#ifndef ZELDT_FOUNDATION_DTERRTAB_H
#define ZELDT_FOUNDATION_DTERRTAB_H

/// The errors of the library: their numbers and their German texts (Latin-1).

#include <array>
#include <cstddef>

namespace zeldt {

/// The error numbers. They are the interface's; the names serve the code.
enum class ErrorNo : unsigned long {
    Other = 0,
    FollowUp = 1,
    UndefinedValue = 2,
    StringIndex = 3,
    BufferTooSmall = 4,
    InitialValue = 5,
    InitialLength = 6,
    AllocLength = 7,
    OutOfRange = 8,
    WrongType = 9,
    DifferentTypes = 10,
    InputTooLong = 11,
    DivisionByZero = 12,
    InconsistentDefinedness = 13,
    WrongVersion = 14,
    Reset = 15,
    DecimalPlaces = 16,
    TimeMode = 17,
    ExternForm = 18,
    CodePage = 19,
    FormatNotAllowed = 20,
    FormatNotKept = 21,
    FrameworkException = 22,
    WideText = 23,
    DecimalArithmetic = 24,
    Day = 25,
    Month = 26,
    Year = 27,
    Hour = 28,
    Minute = 29,
    Second = 30,
    UnknownOption = 31,
};

/// One row of the error table.
struct ErrorRow {
    ErrorNo number;
    const char* text;
    unsigned long value1;
    unsigned long value2;
};

inline constexpr std::array<ErrorRow, 32> kErrorTable = {{
    {ErrorNo::Other, "Sonstiger Fehler", 1, 1},
    {ErrorNo::FollowUp, "Default-Catch / Folgefehler", 1, 1},
    {ErrorNo::UndefinedValue, "Undefinierter Wert", 1, 1},
    {ErrorNo::StringIndex, "Ung\374ltiger Stringindex", 1, 1},
    {ErrorNo::BufferTooSmall, "Puffer zu klein", 1, 1},
    {ErrorNo::InitialValue, "Ung\374ltiger Initialwert", 1, 1},
    {ErrorNo::InitialLength, "Ung\374ltige Initiall\344nge", 1, 1},
    {ErrorNo::AllocLength, "Alloc-L\344nge zu kurz", 1, 1},
    {ErrorNo::OutOfRange, "Wert au\337erhalb des Wertebereichs", 1, 1},
    {ErrorNo::WrongType, "Falscher Typ zugeordnet", 1, 1},
    {ErrorNo::DifferentTypes, "Basistypen unterschiedlich", 1, 1},
    {ErrorNo::InputTooLong, "Der Eingabetext ist zu lang", 1, 1},
    {ErrorNo::DivisionByZero, "Division durch 0", 1, 1},
    {ErrorNo::InconsistentDefinedness, "Inkonsistente Definiertheit", 1, 1},
    {ErrorNo::WrongVersion, "Falsche Versionsnummer", 1, 1},
    {ErrorNo::Reset, "Fehler beim Zur\374cksetzen", 1, 1},
    {ErrorNo::DecimalPlaces, "Ung\374ltige NK-Stellenanzahl", 1, 1},
    {ErrorNo::TimeMode, "Ung\374ltiger Zeitmodus", 1, 1},
    {ErrorNo::ExternForm, "Ung\374ltige Externe Darstellung", 1, 1},
    {ErrorNo::CodePage, "Codepagewandlung nicht m\366glich", 1, 1},
    {ErrorNo::FormatNotAllowed, "Format nicht zugelassen", 1, 1},
    {ErrorNo::FormatNotKept, "Format nicht eingehalten", 1, 1},
    {ErrorNo::FrameworkException, "Folgefehler aufgrund einer MFC-Exception", 1, 1},
    {ErrorNo::WideText, "Wandlung in Wide-Charakter-Format nicht m\366glich", 1, 1},
    {ErrorNo::DecimalArithmetic, "Fehler bei Berechung mit Dezimalwerten", 1, 1},
    {ErrorNo::Day, "Tagesangabe ist ung\374ltig oder nicht zur Monatsangabe passend", 1, 1},
    {ErrorNo::Month, "Monatsangabe ist ung\374ltig, d.h. <1 oder > 12", 1, 1},
    {ErrorNo::Year, "Jahresangabe ist ung\374ltig, Jahreszahl < 1753", 1, 1},
    {ErrorNo::Hour, "Stundenangabe ist ung\374ltig, d.h. <0 oder > 23", 1, 1},
    {ErrorNo::Minute, "Minutenangabe ist ung\374ltig, d.h. < 0 oder > 59", 1, 1},
    {ErrorNo::Second, "Sekundenangabe ist ung\374ltig, d.h. <0 oder > 59", 1, 1},
    {ErrorNo::UnknownOption, "Unbekannte Option", 1, 1},
}};

constexpr bool ErrorTableIsInOrder()
{
    for (std::size_t i = 0; i < kErrorTable.size(); ++i) {
        if (static_cast<std::size_t>(kErrorTable[i].number) != i)
            return false;
    }
    return true;
}
static_assert(ErrorTableIsInOrder(), "an error number is the index of its row");

/// The row of an error number; row 0 for a number that the table does not know.
constexpr const ErrorRow& RowOf(unsigned long errorNo)
{
    return kErrorTable[errorNo < kErrorTable.size() ? errorNo : 0];
}

} // namespace zeldt

#endif
