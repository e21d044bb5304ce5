#ifndef ZELDT_PLATFORM_FORMATS_TEXTBUFFER_H
#define ZELDT_PLATFORM_FORMATS_TEXTBUFFER_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

namespace zelformat {

/// A text that is being put together: in place as long as it is short, else on
/// the heap.
class TextBuffer {
public:
    TextBuffer() noexcept = default;
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    /// Room for `length` bytes, which are the text from now on; all of them are
    /// to be written. What the text was before is lost. Throws std::bad_alloc; it
    /// is then what it was.
    char* Make(std::size_t length)
    {
        if (length > sizeof m_own)
            m_heap.reset(new char[length]);
        char* const room = length > sizeof m_own ? m_heap.get() : m_own;
        m_text = {room, length};
        return room;
    }

    /// Ends the text at `end`, a place in the room that Make gave.
    void EndAt(const char* end) noexcept
    {
        m_text = m_text.substr(0, static_cast<std::size_t>(end - m_text.data()));
    }

    /// The text is one that lies elsewhere and stays there.
    void Refer(std::string_view text) noexcept { m_text = text; }

    std::string_view View() const noexcept { return m_text; }

private:
    std::string_view m_text;
    std::unique_ptr<char[]> m_heap;
    char m_own[64]; ///< not set before it is used
};

/// Writes the text to `out`; returns the end.
inline char* Put(std::string_view text, char* out) noexcept
{
    return std::copy(text.begin(), text.end(), out);
}

} // namespace zelformat

#endif
