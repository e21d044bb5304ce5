#ifndef ZELDT_PLATFORM_RECORDSETS_EXPORT_H
#define ZELDT_PLATFORM_RECORDSETS_EXPORT_H

#include "../runtime/export.h"

/// Marks what the record-set library ZELQRNRS001 exports.
#ifdef ZELQRNRS001_BUILD
#define ZELRS_API ZELRT_EXPORT
#else
#define ZELRS_API ZELRT_IMPORT
#endif

#endif
