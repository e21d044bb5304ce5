#ifndef ZELDT_PLATFORM_ERRORS_EXPORT_H
#define ZELDT_PLATFORM_ERRORS_EXPORT_H

#include "../runtime/export.h"

/// Marks what the error library ZELQRNEH011 exports.
#ifdef ZELQRNEH011_BUILD
#define ZELEH_API ZELRT_EXPORT
#else
#define ZELEH_API ZELRT_IMPORT
#endif

#endif
