#ifndef ZELDT_TEXT_IMP_DTARCTXT_H
#define ZELDT_TEXT_IMP_DTARCTXT_H

/// Texts on their way into archives and out of them. Private to the library.

#include "platform/framework/fwarchivetext.h"
#include "text/IMP/DTVIEW.h"

#include <string_view>

namespace zeldt {

/// Writes what a CString of that text writes.
inline void WriteText(CArchive& ar, std::string_view text)
{
    CArchiveText::Write(ar, text);
}

/// Writes the text that `write` makes of at most `room` bytes, some of which it may overwrite
/// behind the text whose length it returns. Nearly always that is the archive's own buffer.
template <std::size_t room, typename Write>
void WriteMadeText(CArchive& ar, Write write)
{
    static_assert(room < CArchiveText::kLongLength);
    if (CArchiveText::HasRoom(ar, 1 + room)) {
        char* const out = CArchiveText::Room(ar);
        const std::size_t length = write(out + 1);
        *out = static_cast<char>(length);
        CArchiveText::Finish(ar, out + 1 + length);
        return;
    }
    char text[room];
    WriteText(ar, {text, write(text)});
}

/// A text that is read from an archive; where it lies, if it is short and the buffer has it.
class IncomingText {
public:
    IncomingText() = default;
    IncomingText(const IncomingText&) = delete;
    IncomingText& operator=(const IncomingText&) = delete;

    /// So many bytes behind it may be read while the text is needed.
    void Read(CArchive& ar, std::size_t behind = 0)
    {
        if (CArchiveText::Take(ar, m_view, behind))
            return;
        ar >> m_text;
        m_view = ViewOf(m_text);
    }

    std::string_view View() const noexcept { return m_view; }

private:
    CString m_text;
    std::string_view m_view;
};

} // namespace zeldt

#endif
