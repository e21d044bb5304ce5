#ifndef ZELDT_PLATFORM_RUNTIME_EXPORT_H
#define ZELDT_PLATFORM_RUNTIME_EXPORT_H

/// How a symbol leaves a shared library, and how its users name it.
///
/// Every library has one header that picks ZELRT_EXPORT while the library itself is built and
/// ZELRT_IMPORT for everybody else.

#ifdef _WIN32
#define ZELRT_EXPORT __declspec(dllexport)
#define ZELRT_IMPORT __declspec(dllimport)
#else
#define ZELRT_EXPORT __attribute__((visibility("default")))
#define ZELRT_IMPORT __attribute__((visibility("default")))
#endif

#endif
