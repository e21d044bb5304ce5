#ifndef ZELDT_PLATFORM_RUNTIME_ODBCTYPES_H
#define ZELDT_PLATFORM_RUNTIME_ODBCTYPES_H

#include "wintypes.h"

/// The ODBC types that the record-set interface shows: the return code, the time stamp and the
/// handle of a connection.
///
/// They are the system's own on Windows. On Linux they are defined here, so that a program which
/// only hands records around needs no ODBC installed; one that includes the driver manager's
/// headers too must include those first.

#ifdef _WIN32

#include <sqltypes.h>

#elif !defined(__SQLTYPES_H)

typedef signed short RETCODE;
typedef void* HDBC;

/// A moment as ODBC exchanges it: month 1 to 12, day 1 to 31, hour 0 to 23, `fraction` in
/// billionths of a second.
typedef struct tagTIMESTAMP_STRUCT {
    SHORT year;
    USHORT month;
    USHORT day;
    USHORT hour;
    USHORT minute;
    USHORT second;
    UINT fraction;
} TIMESTAMP_STRUCT;

#endif

#endif
