#ifndef ZELDT_PLATFORM_RECORDSETS_LITERALS_H
#define ZELDT_PLATFORM_RECORDSETS_LITERALS_H

/// Statements that hold their values as literals, as the value classes write them: texts in double
/// quotes, inner double quotes doubled.
///
/// To SQLite and to the standard a double quote encloses a name. SQLite takes such a name for a
/// text only where no column is called so: `UPDATE T SET A = "B"` copies a column B if there is
/// one. So these functions turn the literals into those of the standard, 'in single quotes', which
/// every source takes for texts.

#include "database.h"

/// `sql` with every literal in double quotes as one in single quotes; what is already in single
/// quotes and in comments stays. For conditions too:
///
///     customers.m_strFilter = ZelRsStandardLiterals("ORT = " + ort.ConvToSQL());
///
/// Throws CDBException (illegal mode) when a quote is not closed.
ZELRS_API CString ZelRsStandardLiterals(const CString& sql);

/// Executes a statement with such literals and returns how many rows it changed, -1 when that
/// cannot be told. SQLite would read a number of more digits than a double has as that double,
/// whatever column it is for: such numbers are given to it as texts, of which a column for numbers
/// makes numbers and a column for texts keeps every digit.
///
/// Throws CDBException: as CDatabase::ExecuteSQL; data truncated when the statement holds a NUL
/// byte, which statement text cannot carry; illegal mode when a quote is not closed.
ZELRS_API LONGLONG ZelRsExecute(CDatabase& database, const CString& sql);

#endif
