#ifndef ZELDT_PLATFORM_RECORDSETS_ODBC_H
#define ZELDT_PLATFORM_RECORDSETS_ODBC_H

/// The driver manager's headers beside our own types. Private; to be included first.

#include "platform/runtime/wintypes.h"

#ifndef _WIN32

// unixODBC makes up for a missing windows.h in its own way. These are the names of it that its
// headers go on using; the rest are ours.
#define ALREADY_HAVE_WINDOWS_TYPE
#define FAR
#define SQL_API
typedef unsigned short WCHAR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef DWORD* LPDWORD;
typedef unsigned char UCHAR;
typedef signed char SCHAR;
typedef SCHAR SQLSCHAR;
typedef int SDWORD;
typedef unsigned int UDWORD;
typedef signed short SWORD;
typedef unsigned short UWORD;
typedef signed long SLONG;
typedef signed short SSHORT;
typedef double SDOUBLE;
typedef double LDOUBLE;
typedef float SFLOAT;
typedef void* PTR;
typedef signed short RETCODE;
typedef void* SQLHWND;

#endif

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace zelrs {

/// The functions take texts to read as unsigned characters that they might write to.
inline SQLCHAR* OdbcText(const std::string& text)
{
    return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.c_str()));
}

/// Attributes whose value is a number travel in place of a pointer.
inline SQLPOINTER OdbcNumber(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number);
}

} // namespace zelrs

#endif
