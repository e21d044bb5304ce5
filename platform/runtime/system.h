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

/// Copies `source` up to its terminator to `target`, converted from the ANSI to the OEM code page
/// or back, byte for byte. `target` may be `source`.
void SystemAnsiToOem(const char* source, char* target) noexcept;
void SystemOemToAnsi(const char* source, char* target) noexcept;

/// Writes the full file name of the module that contains `address` to `buffer` (`size` bytes,
/// terminator included; longer names are cut). Returns the bytes written without the terminator,
/// 0 with an empty text when the system knows no such module.
std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept;

/// Full file name of the running program; as ModuleFileName.
std::size_t ProgramFileName(char* buffer, std::size_t size) noexcept;

/// Whether the module file `moduleName` can be opened for its resources. Never on Linux, whose
/// libraries have none.
bool HasResources(const char* moduleName) noexcept;

/// Writes the text resource `id` of the module file `moduleName` to `buffer` (`size` bytes,
/// terminator included); an empty text when there is no such module or resource.
void ResourceText(const char* moduleName, UINT id, char* buffer, std::size_t size) noexcept;

} // namespace zelrt

#endif
