// The exception of record sets and databases.

#include "platform/framework/fwdbexc.h"

#include "platform/framework/fwfields.h"

#include <algorithm>
#include <cstring>
#include <memory>

IMPLEMENT_DYNAMIC(CDBException, CException)

namespace {

struct ErrorText {
    RETCODE code;
    LPCTSTR text;
};

constexpr ErrorText kErrorTexts[] = {
    {AFX_SQL_ERROR_CONNECT_FAIL, "The connection to the database failed."},
    {AFX_SQL_ERROR_DATA_TRUNCATED, "A value does not fit its field."},
    {AFX_SQL_ERROR_EMPTY_COLUMN_LIST, "The record set has no columns."},
    {AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH, "A field does not match its column."},
    {AFX_SQL_ERROR_ILLEGAL_MODE, "The record set is not in a state that allows this."},
    {AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED, "More than one record was changed."},
    {AFX_SQL_ERROR_NO_CURRENT_RECORD, "There is no current record."},
    {AFX_SQL_ERROR_NO_ROWS_AFFECTED, "No record was changed."},
    {AFX_SQL_ERROR_RECORDSET_FORWARD_ONLY, "The record set only moves forward."},
    {AFX_SQL_ERROR_RECORDSET_READONLY, "The record set is read-only."},
    {ZELFW_SQL_ERROR_NO_DATABASE, "No database is available."},
    {ZELFW_SQL_ERROR_NO_SUCH_FIELD, "The address is no field of the record set."},
};

LPCTSTR TextOf(RETCODE code)
{
    for (const ErrorText& row : kErrorTexts) {
        if (row.code == code)
            return row.text;
    }
    return "The database reported an error.";
}

} // namespace

CDBException::CDBException(RETCODE nRetCode) : m_nRetCode(nRetCode) {}

BOOL CDBException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    CException::GetErrorMessage(error, maxError, helpContext);
    if (error == nullptr || maxError == 0 || m_strError.IsEmpty())
        return FALSE;
    const std::size_t length = std::min(static_cast<std::size_t>(m_strError.GetLength()),
                                        static_cast<std::size_t>(maxError) - 1);
    std::memcpy(error, static_cast<LPCTSTR>(m_strError), length);
    error[length] = '\0';
    return TRUE;
}

void AfxThrowDBException(RETCODE nRetCode, LPCTSTR lpszError, LPCTSTR lpszStateNativeOrigin)
{
    auto exception = std::make_unique<CDBException>(nRetCode);
    exception->m_strError = lpszError != nullptr ? lpszError : TextOf(nRetCode);
    if (lpszStateNativeOrigin != nullptr)
        exception->m_strStateNativeOrigin = lpszStateNativeOrigin;
    throw exception.release();
}

void zelfw::ThrowFieldError(RETCODE code, const CString& fieldName)
{
    AfxThrowDBException(code, CString(TextOf(code)) + " (" + fieldName + ")");
}
