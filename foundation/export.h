#ifndef ZELDT_FOUNDATION_EXPORT_H
#define ZELDT_FOUNDATION_EXPORT_H

#include "../platform/runtime/export.h"

/// Marks what the value library ZELQRNDT017 exports.
#ifdef ZELQRNDT017_BUILD
#define ZELDT_API ZELRT_EXPORT
#else
#define ZELDT_API ZELRT_IMPORT
#endif

#endif
