#ifndef ZELDT_PLATFORM_RUNTIME_OLEAUTO_H
#define ZELDT_PLATFORM_RUNTIME_OLEAUTO_H

#include "export.h"
#include "wintypes.h"

/// The OLE automation conversions that this project uses, under the names they have on Windows.
///
/// On Windows they are the system's own; elsewhere the framework library supplies them. What they
/// promise stands in platform/framework/fwoleauto.h.

#ifdef _WIN32

#include <oleauto.h>

#else

extern "C" {

ZELRT_EXPORT HRESULT VarR8FromCy(CY cyIn, double* pdblOut);
ZELRT_EXPORT HRESULT VarCyFromR8(double dblIn, CY* pcyOut);
ZELRT_EXPORT HRESULT VarR8FromDate(DATE dateIn, double* pdblOut);
ZELRT_EXPORT HRESULT VarCyFromDate(DATE dateIn, CY* pcyOut);
ZELRT_EXPORT INT VariantTimeToSystemTime(double vtime, SYSTEMTIME* lpSystemTime);
ZELRT_EXPORT INT SystemTimeToVariantTime(SYSTEMTIME* lpSystemTime, double* pvtime);
}

#endif

#endif
