#ifndef ZELDT_PLATFORM_FRAMEWORK_FWDBEXC_H
#define ZELDT_PLATFORM_FRAMEWORK_FWDBEXC_H

#include "../runtime/odbctypes.h"
#include "../runtime/wintypes.h"
#include "export.h"
#include "fwexcept.h"
#include "fwstring.h"

/// Causes of a CDBException, beside the return codes of ODBC itself.
inline constexpr RETCODE AFX_SQL_ERROR_CONNECT_FAIL = 1001;
inline constexpr RETCODE AFX_SQL_ERROR_DATA_TRUNCATED = 1002;
inline constexpr RETCODE AFX_SQL_ERROR_EMPTY_COLUMN_LIST = 1003;
inline constexpr RETCODE AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH = 1004;
inline constexpr RETCODE AFX_SQL_ERROR_ILLEGAL_MODE = 1005;
inline constexpr RETCODE AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED = 1006;
inline constexpr RETCODE AFX_SQL_ERROR_NO_CURRENT_RECORD = 1007;
inline constexpr RETCODE AFX_SQL_ERROR_NO_ROWS_AFFECTED = 1008;
inline constexpr RETCODE AFX_SQL_ERROR_RECORDSET_FORWARD_ONLY = 1009;
inline constexpr RETCODE AFX_SQL_ERROR_RECORDSET_READONLY = 1010;
/// Further ones of this framework: no engine for a call that needs a database; an address that is
/// no field of the record set.
inline constexpr RETCODE ZELFW_SQL_ERROR_NO_DATABASE = 1101;
inline constexpr RETCODE ZELFW_SQL_ERROR_NO_SUCH_FIELD = 1102;

/// A record set or database failed. Thrown by pointer; the receiver calls Delete.
class ZELFW_API CDBException : public CException {
    DECLARE_DYNAMIC(CDBException)

public:
    explicit CDBException(RETCODE nRetCode = 0);

    /// The text of `m_strError`, as CException::GetErrorMessage().
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;

    RETCODE m_nRetCode;             ///< one of the constants above, or what an ODBC call returned
    CString m_strError;             ///< readable text
    CString m_strStateNativeOrigin; ///< "State:%s,Native:%ld,Origin:%s" of ODBC; may be empty
};

/// Throws a CDBException. A null `lpszError` stands for the usual text of the cause.
[[noreturn]] ZELFW_API void AfxThrowDBException(RETCODE nRetCode, LPCTSTR lpszError = nullptr,
                                                LPCTSTR lpszStateNativeOrigin = nullptr);

#endif
