#ifndef ZELDT_PLATFORM_FRAMEWORK_FWARGUMENT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWARGUMENT_H

/// Private to this project; not installed.

#include "platform/framework/fwstring.h"

#include <cstddef>
#include <cstring>
#include <new>

namespace zelfw {

/// A terminated text for a call that wants a CString. A short one lies in this object and takes no
/// memory; it counts as locked, so that whoever copies the CString gets a text of its own.
class TextArgument {
public:
    /// The longest text that lies in the object.
    static constexpr std::size_t kRoom = 63;

    /// `text` is not null.
    explicit TextArgument(const char* text) : TextArgument(text, std::strlen(text)) {}

    /// The same where the length is known.
    TextArgument(const char* text, std::size_t length)
    {
        if (length > kRoom) {
            new (&m_string) CString(text);
            return;
        }
        new (&m_own.data) CStringData{-1, static_cast<int>(length), static_cast<int>(kRoom)};
        std::memcpy(m_own.text, text, length + 1);
        new (&m_string) CString(&m_own.data);
    }

    ~TextArgument()
    {
        if (m_string.GetString() != m_own.text)
            m_string.~CString();
    }

    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;

    operator const CString&() const noexcept { return m_string; }

private:
    /// A text behind its data, as a CString has them.
    struct Own {
        CStringData data;
        char text[kRoom + 1];
    };
    static_assert(offsetof(Own, text) == sizeof(CStringData));

    // The length decides which of these begin and end.
    union {
        Own m_own;
    };
    union {
        CString m_string;
    };
};

} // namespace zelfw

#endif
