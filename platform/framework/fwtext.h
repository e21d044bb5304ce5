#ifndef ZELDT_PLATFORM_FRAMEWORK_FWTEXT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWTEXT_H

/// What the sources of the framework share about texts. Private to this project; not installed.

#include "platform/framework/fwstring.h"
#include "platform/runtime/ansi.h"
#include "platform/runtime/shorttext.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace zelfw {

inline std::string_view View(const CString& text) noexcept
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

/// A null text is an empty one.
inline std::string_view View(LPCTSTR text) noexcept
{
    return text == nullptr ? std::string_view() : std::string_view(text);
}

/// memcpy, without a call for the lengths that names have.
inline void CopyBytes(const char* text, std::size_t size, char* out) noexcept
{
    if (size <= zelrt::kShortText)
        zelrt::CopyUpTo16(text, size, out);
    else
        std::memcpy(out, text, size);
}

/// The byte of code page 1252 for a 16-bit unit, '?' where there is none.
constexpr char AnsiFromUnicode(char16_t unit) noexcept
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<char>(static_cast<unsigned char>(unit));
    for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
        if (zelrt::AnsiToUnicode(static_cast<unsigned char>(byte)) == unit)
            return static_cast<char>(static_cast<unsigned char>(byte));
    }
    return '?';
}

/// A length as int; throws CMemoryException* for one that no text can have.
int CheckedLength(std::uint64_t length);

/// The parts one behind the other.
CString Join(std::string_view first, std::string_view second, std::string_view third = {});

} // namespace zelfw

#endif
