#ifndef ZELDT_PLATFORM_DECIMALS_RWCSTRING_H
#define ZELDT_PLATFORM_DECIMALS_RWCSTRING_H

#include "export.h"

#include <cstddef>

/// The text of a number: bytes with a length and a terminating NUL.
///
/// Texts of up to 47 bytes, which is every number that arithmetic makes, need no memory of their
/// own. Positions and lengths count bytes from 0. An exhausted memory throws std::bad_alloc and
/// leaves the text as it was.
class ZELRW_API RWCString {
public:
    /// Empty.
    RWCString();
    /// The text up to its NUL; null is empty.
    RWCString(const char* text); // NOLINT(google-explicit-constructor)
    /// `length` bytes from `text` on; they must be there.
    RWCString(const char* text, std::size_t length);
    /// `count` times the character.
    RWCString(std::size_t count, char character);
    RWCString(const RWCString& source);
    RWCString& operator=(const RWCString& source);
    RWCString& operator=(const char* text);
    ~RWCString();

    /// Terminated by NUL; valid until the text changes.
    const char* data() const { return m_text; }
    /// The bytes to write into; the length stays.
    char* data() { return m_text; }
    std::size_t length() const { return m_length; }
    bool isNull() const { return m_length == 0; }
    operator const char*() const { return m_text; } // NOLINT(google-explicit-constructor)

    /// Puts `text` in place of `count` bytes from `position` on, both limited to the end; null
    /// removes them. `text` may lie in this text.
    RWCString& replace(std::size_t position, std::size_t count, const char* text);
    /// The same with `length` bytes from `text` on.
    RWCString& replace(std::size_t position, std::size_t count, const char* text,
                       std::size_t length);

private:
    static constexpr std::size_t kOwnRoom = 48;

    /// Makes an empty text one of `length` bytes that are not set yet.
    void Reserve(std::size_t length);
    void Release();
    /// Takes the text of `source`, which is at its end.
    void TakeOver(RWCString& source);

    char* m_text;
    std::size_t m_length;
    char m_own[kOwnRoom];
};

#endif
