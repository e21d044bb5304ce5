#ifndef ZELDT_PLATFORM_DECIMALS_EXPORT_H
#define ZELDT_PLATFORM_DECIMALS_EXPORT_H

#include "../runtime/export.h"

#ifdef ZELQRNRW_BCD011_BUILD
#define ZELRW_API ZELRT_EXPORT
#else
#define ZELRW_API ZELRT_IMPORT
#endif

#endif
