#ifndef ZELDT_PLATFORM_RUNTIME_SYSTEM_H
#define ZELDT_PLATFORM_RUNTIME_SYSTEM_H

/// What the operating system knows: its code pages, the modules it has loaded.
/// Private to this project; not installed.

#include "platform/runtime/wintypes.h"

#include <cstddef>

namespace zelrt {

/// Longest module file name that is kept, terminator included.
inline constexpr std::size_t kMaxModuleFileName = 260;

/// Number of the ANSI code page. 1252 on Linux.
UINT AnsiCodePage() noexcept;

/// Number of the OEM code page. On Linux decided once by LC_ALL, LC_CTYPE or LANG (the first
/// that is set), as Wine decides it: 437 for the United States and the neutral locales "C" and
/// "POSIX", 850 elsewhere.
UINT OemCodePage() noexcept;

/// Writes the full file name of the module that contains `address` to `buffer` (`size` bytes,
/// terminator included; longer names are cut). Returns the bytes written without the terminator,
/// 0 with an empty text when the system knows no such module.
std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept;

} // namespace zelrt

#endif
