#ifndef ZELDT_PLATFORM_CODEPAGES_ZELEUSY_H
#define ZELDT_PLATFORM_CODEPAGES_ZELEUSY_H

#include "export.h"

/// Conversion between the ANSI and the OEM code page of the system.
///
/// Both functions convert the text `source` up to its terminator, byte for byte, and write it with
/// the terminator to `target`, which must hold as many bytes as the source. `target` may be
/// `source`; otherwise the two must not overlap. A character that the target code page lacks
/// becomes a near one or a question mark. Returns 1, or 0 without a change when a pointer is null.

/// From the ANSI to the OEM code page.
ZELEUSY_API int ZelEusy_CharToOem(const char* source, char* target);

/// From the OEM to the ANSI code page.
ZELEUSY_API int ZelEusy_OemToChar(const char* source, char* target);

#endif
