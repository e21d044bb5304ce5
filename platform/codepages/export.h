#ifndef ZELDT_PLATFORM_CODEPAGES_EXPORT_H
#define ZELDT_PLATFORM_CODEPAGES_EXPORT_H

#include "../runtime/export.h"

/// Marks what the code-page library ZELQRNEUSY004 exports.
#ifdef ZELQRNEUSY004_BUILD
#define ZELEUSY_API ZELRT_EXPORT
#else
#define ZELEUSY_API ZELRT_IMPORT
#endif

#endif
