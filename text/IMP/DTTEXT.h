#ifndef ZELDT_TEXT_IMP_DTTEXT_H
#define ZELDT_TEXT_IMP_DTTEXT_H

/// What the sources of the string class share. Private to the library.

#include "foundation/DTCHECK.h"
#include "text/IMP/DTVIEW.h"
#include "text/IMP/dtstrini.h"

#include <string_view>

namespace zeldt {

/// Error 8 under the name of the operation if no text can be that long.
inline void RequireLength(const Operation& operation, std::size_t length)
{
    if (length >= static_cast<std::size_t>(ZelDtString_Imp::kMaxLength))
        Raise(operation, ErrorNo::OutOfRange);
}

/// The text of an argument; error 5 under the name of the operation if it is null.
inline std::string_view RequiredView(const Operation& operation, const char* text)
{
    if (text == nullptr)
        Raise(operation, ErrorNo::InitialValue);
    return text;
}

} // namespace zeldt

#endif
