#ifndef ZELDT_PLATFORM_FRAMEWORK_FWARCHIVETEXT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWARCHIVETEXT_H

/// Texts in the buffer of an archive, written and read where they lie. Private to this project; not
/// installed.

#include "platform/framework/fwarchive.h"
#include "platform/framework/fwtext.h"

#include <cstddef>
#include <string_view>

struct CArchiveText {
    /// Texts from this length on have a longer head than one byte.
    static constexpr BYTE kLongLength = 0xFF;

    /// Whether so many bytes can be written into the buffer; 0 are never asked for.
    static bool HasRoom(const CArchive& ar, std::size_t size) noexcept
    {
        return size <= static_cast<std::size_t>(ar.m_putEnd - ar.m_put);
    }

    /// Where they go.
    static char* Room(CArchive& ar) noexcept { return reinterpret_cast<char*>(ar.m_put); }

    /// Takes over what was written from Room up to `end`.
    static void Finish(CArchive& ar, const char* end) noexcept
    {
        ar.m_put += end - reinterpret_cast<const char*>(ar.m_put);
    }

    /// Reads a short text that lies in the buffer, with `behind` bytes behind it; it stays there
    /// until more than these are read. False, and nothing is read, if it does not.
    static bool Take(CArchive& ar, std::string_view& text, std::size_t behind = 0) noexcept
    {
        const auto available = static_cast<std::size_t>(ar.m_end - ar.m_next);
        if (available == 0 || *ar.m_next == kLongLength || *ar.m_next + behind >= available)
            return false;
        const std::size_t length = *ar.m_next;
        text = {reinterpret_cast<const char*>(ar.m_next + 1), length};
        ar.m_next += 1 + length;
        return true;
    }

    /// Writes a text of any length that a CString may have.
    static void Write(CArchive& ar, std::string_view text)
    {
        if (text.size() >= kLongLength || !HasRoom(ar, 1 + text.size())) {
            WriteLong(ar, text);
            return;
        }
        char* const out = Room(ar);
        *out = static_cast<char>(text.size());
        zelfw::CopyBytes(text.data(), text.size(), out + 1);
        Finish(ar, out + 1 + text.size());
    }

    ZELFW_API static void WriteLong(CArchive& ar, std::string_view text);
    /// Reads a text of any kind.
    static void ReadLong(CArchive& ar, CString& text);
};

#endif
