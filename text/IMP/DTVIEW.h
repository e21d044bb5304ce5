#ifndef ZELDT_TEXT_IMP_DTVIEW_H
#define ZELDT_TEXT_IMP_DTVIEW_H

/// Texts with their lengths, so that NUL bytes inside count. Private to the library.

#include "platform/framework/framework.h"
#include "text/DTSTRING.h"

#include <string_view>

namespace zeldt {

inline std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

inline std::string_view ViewOf(const ZelDtString& text)
{
    return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

} // namespace zeldt

#endif
