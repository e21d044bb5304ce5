#ifndef ZELDT_PLATFORM_FRAMEWORK_FWOLE_H
#define ZELDT_PLATFORM_FRAMEWORK_FWOLE_H

/// The strings of OLE automation: the host's own where it has them, else these.

#include "../runtime/wintypes.h"
#include "export.h"

#if __has_include(<oleauto.h>)

#include <oleauto.h>

#else

/// A new system string with `length` units of `text` (zeros for a null text) and a final zero;
/// null when memory runs out. The caller frees it with SysFreeString.
ZELFW_API BSTR SysAllocStringLen(LPCOLESTR text, UINT length) noexcept;
/// The same up to the first zero; null for a null text.
ZELFW_API BSTR SysAllocString(LPCOLESTR text) noexcept;
/// Number of units, zeros inside included; 0 for a null string.
ZELFW_API UINT SysStringLen(BSTR string) noexcept;
/// Null is allowed.
ZELFW_API void SysFreeString(BSTR string) noexcept;

#endif

#endif
