#ifndef ZELDT_TOOLS_ZELCONV_FAULT_H
#define ZELDT_TOOLS_ZELCONV_FAULT_H

/// What can go wrong: with the whole run (Failure), or with one row (RowFault).

#include <ZelDt.h>

#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace zelconv {

/// Ends the run with exit status 2. The message is one line of UTF-8.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What is wrong with a row beside the errors of the value library, whose numbers end at 31.
enum class RowError : unsigned long {
    TooFewCells = 101,
    TooManyCells = 102,
    Quotes = 103,
    OpenQuotes = 104,
    TooLong = 105,
    NulByte = 106,
    Malformed = 107,
    NotInAnsi = 108,
    NotInOutput = 109,
    ExternCell = 110,
    ExternText = 111,
    TooManyDigits = 112,
    Changed = 113,
    TimeOfDay = 114,
    FromDatabase = 115,
    IntoDatabase = 116,
};

/// What is wrong with a value, if anything is.
using Finding = std::optional<RowError>;

/// An error number with its German text in code page 1252.
struct Reason {
    unsigned long number;
    std::string text;
};

/// Why a row is rejected. Thrown by value.
struct RowFault {
    static constexpr int kWholeRow = -1;

    int column; ///< index of the column, or kWholeRow
    Reason error;
    Reason firstCause; ///< the error itself when nothing led to it
};

/// A fault that zelconv itself found; `detail` (code page 1252) is added to its text.
RowFault MakeFault(RowError error, int column = RowFault::kWholeRow,
                   const std::string& detail = {});

/// A fault of the column if there is a finding.
void Refuse(Finding finding, int column);

/// A fault that the value library reported. Takes over `error`; null (the library had no memory
/// left for an error) is std::bad_alloc.
RowFault TakeFault(ZelDtExcep* error, int column);

/// What a framework exception says. Takes it over.
std::string TakeMessage(CException* error);

/// Runs `body`; an error of the value library in there makes the row a reject.
template <typename Body>
decltype(auto) ForColumn(int column, Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (ZelDtExcep* error) {
        throw TakeFault(error, column);
    }
}

} // namespace zelconv

#endif
