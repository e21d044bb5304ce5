#ifndef ZELDT_TEXT_IMP_DTCODEPG_H
#define ZELDT_TEXT_IMP_DTCODEPG_H

/// The code pages of SQL texts. Private to the library.

#include "foundation/DT_IUTIL.h"
#include "platform/runtime/system.h"

#include <optional>

namespace zeldt {

/// How texts of an OEM code page are converted.
struct OemDirections {
    ZelDtCodepageWandlung toOem;
    ZelDtCodepageWandlung toAnsi;
};

/// The directions for a code page number; none for one that needs no conversion.
inline std::optional<OemDirections> DirectionsFor(unsigned int codePage)
{
    if (codePage == 850)
        return OemDirections{ZelDtCpAnsiToOem850, ZelDtCpOem850ToAnsi};
    if (codePage == 0)
        return std::nullopt; // no code page has this number; spares asking the system
    if (codePage == zelrt::OemCodePage())
        return OemDirections{ZelDtCpAnsiToOem, ZelDtCpOemToAnsi};
    if (codePage == 437)
        return OemDirections{ZelDtCpAnsiToOem437, ZelDtCpOem437ToAnsi};
    return std::nullopt;
}

} // namespace zeldt

#endif
