#ifndef ZELDT_TOOLS_ZELCONV_TEXTVIEW_H
#define ZELDT_TOOLS_ZELCONV_TEXTVIEW_H

/// The bytes of the library's texts, NUL bytes included. A view is valid until its text changes.

#include <ZelDt.h>

#include <cstddef>
#include <string_view>

namespace zelconv {

inline std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

inline std::string_view ViewOf(const ZelDtString& text)
{
    return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

/// A CString of a text whose length an int can hold.
inline CString ToCString(std::string_view text)
{
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace zelconv

#endif
