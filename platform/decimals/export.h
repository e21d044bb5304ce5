#ifndef ZELDT_PLATFORM_DECIMALS_EXPORT_H
#define ZELDT_PLATFORM_DECIMALS_EXPORT_H

#include "../runtime/export.h"

#ifdef ZELQRNRW_BCD011_BUILD
#define ZELRW_API ZELRT_EXPORT
#else
#define ZELRW_API ZELRT_IMPORT
#endif

/// For functions that are written out where they are used. The library exports them too.
#ifdef ZELQRNRW_BCD011_BUILD
#define ZELRW_INLINE ZELRW_API __attribute__((used)) inline
#else
#define ZELRW_INLINE inline
#endif

#endif
