#ifndef ZELDT_TEXT_IMP_DTARCTXT_H
#define ZELDT_TEXT_IMP_DTARCTXT_H

/// Texts on their way into archives. Private to the library.

#include "platform/framework/framework.h"

#include <string_view>

namespace zeldt {

/// Writes what a CString of that text writes. A short one, whose length takes one byte, does not
/// become a CString for it.
inline void WriteText(CArchive& ar, std::string_view text)
{
    constexpr std::size_t kLongLength = 0xFF;
    if (text.size() >= kLongLength) {
        ar << CString(text.data(), static_cast<int>(text.size()));
        return;
    }
    ar << static_cast<BYTE>(text.size());
    ar.Write(text.data(), static_cast<UINT>(text.size()));
}

} // namespace zeldt

#endif
