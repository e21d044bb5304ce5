#ifndef ZELDT_PLATFORM_FRAMEWORK_EXPORT_H
#define ZELDT_PLATFORM_FRAMEWORK_EXPORT_H

#include "../runtime/export.h"

/// Marks what the framework library ZELQRNFW001 exports.
#ifdef ZELQRNFW001_BUILD
#define ZELFW_API ZELRT_EXPORT
#else
#define ZELFW_API ZELRT_IMPORT
#endif

#endif
