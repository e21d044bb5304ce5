#ifndef ZELDT_PLATFORM_FORMATS_EXPORT_H
#define ZELDT_PLATFORM_FORMATS_EXPORT_H

#include "../runtime/export.h"

/// Marks what the format library ZELQRNFOMT005 exports.
#ifdef ZELQRNFOMT005_BUILD
#define ZELFOMT_API ZELRT_EXPORT
#else
#define ZELFOMT_API ZELRT_IMPORT
#endif

#endif
