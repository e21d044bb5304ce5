#ifndef ZELDT_PLATFORM_RECORDSETS_QUERYTEXT_H
#define ZELDT_PLATFORM_RECORDSETS_QUERYTEXT_H

/// The statements behind a record set. Names stand in them as the caller wrote them.

#include "platform/framework/fwstring.h"

#include <string_view>
#include <vector>

namespace zelrs {

enum class QueryForm {
    Table,  ///< names of tables
    Select, ///< a SELECT, or WITH in front of one
    Call,   ///< {CALL procedure(...)}, {?=CALL ...} or CALL procedure(...)
};

QueryForm FormOf(const CString& sql);

/// The one table that a query reads its records from one by one, empty when it joins, groups or
/// combines records: those cannot be written back.
CString TableOf(const CString& sql);

/// SELECT of columns or expressions from a table.
CString SelectText(const std::vector<CString>& columns, const CString& table);

/// A SELECT with a further condition and a sort order that goes before its own. Throws CDBException
/// (illegal mode) for a SELECT that combines others.
CString WithConditions(const CString& select, const CString& filter, const CString& sort);

/// A CALL in the form that drivers know.
CString CallText(const CString& sql);

CString InsertText(const CString& table, const CString& names, const CString& markers);
CString UpdateText(const CString& table, const CString& changes, const std::vector<CString>& keys);
CString DeleteText(const CString& table, const std::vector<CString>& keys);

/// How many records have the key.
CString CountText(const CString& table, const std::vector<CString>& keys);

/// `text` in single quotes, inner ones doubled.
CString Literal(const CString& text);

} // namespace zelrs

#endif
