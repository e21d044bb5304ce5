#ifndef ZELDT_FOUNDATION_DT_IUTIL_H
#define ZELDT_FOUNDATION_DT_IUTIL_H

#include "../platform/framework/framework.h"
#include "export.h"

/// Direction of ZelDtConvertCodePageFkt.
enum ZelDtCodepageWandlung {
    ZelDtCpAnsiToOem850 = 0, ///< ANSI (1252) to OEM 850
    ZelDtCpAnsiToOem437 = 1, ///< ANSI (1252) to OEM 437
    ZelDtCpOem850ToAnsi = 2, ///< OEM 850 to ANSI (1252)
    ZelDtCpOem437ToAnsi = 3, ///< OEM 437 to ANSI (1252)
    ZelDtCpAnsiToOem = 4,    ///< ANSI to the system's OEM code page
    ZelDtCpOemToAnsi = 5,    ///< the system's OEM code page to ANSI
};

/// Whether two texts are equal: 1 or 0. A null text equals nothing, not even another null.
/// With `exact` not 0 the bytes must be the same; otherwise case does not count, that of the
/// accented letters of code page 1252 included. ß is not SS.
ZELDT_API int ZelDtVglString(const char* a, const char* b, int exact);

/// Compares two texts in the house sort order: -1, 0 or 1; 0 when one of them is null.
///
/// Symbols come before the blank, the blank before digits, digits before letters; letters are
/// ordered without regard to case, each accented letter right behind its base letter. Texts of
/// different length are never equal; texts of the same length are when their characters weigh the
/// same, which upper and lower case do, and ß and s.
ZELDT_API int ZelDtCompareUsingOrbeckSortOrder(const char* a, const char* b);

/// Converts a text in place, byte for byte up to its terminator. Returns 1; 0 without a change for
/// a null text or an unknown direction. A character that the target code page lacks becomes a
/// near one or a question mark.
ZELDT_API int ZelDtConvertCodePageFkt(char* text, ZelDtCodepageWandlung direction);

/// Sets `n` bytes from `p` on to `c` and returns `p`.
ZELDT_API char* ZelDtMemSetTCHAR(char* p, char c, unsigned int n);

/// Copies `text` into the buffer that `s` has, without moving it, because a record set has bound
/// it. A buffer for A characters keeps at most A - 1 of them; longer text is cut silently.
/// A null text is error 5, any exception error 1; `s` is then unchanged.
ZELDT_API void AssignRecordsetMemberCString(CString& s, const char* text);

/// Makes an array of two values of each class and deletes it again. Does nothing else: it is there
/// so that arrays of values made in the library or in the program may be deleted in either.
ZELDT_API void DummyFunctionForCreatingVectorDeletingDestruktor();

#endif
