#ifndef ZELDT_TEXT_IMP_DTQUOTE_H
#define ZELDT_TEXT_IMP_DTQUOTE_H

/// SQL literals: texts in double quotes with the inner double quotes doubled. Private to the
/// library.

#include <cstddef>
#include <cstring>
#include <string_view>

namespace zeldt {

inline constexpr char kQuote = '"';

/// Where the next quote stands, or the end. Short texts are looked through byte by byte, which is
/// faster than the call.
inline const char* FindQuote(const char* first, const char* last) noexcept
{
    constexpr std::ptrdiff_t kShort = 16;
    if (last - first > kShort) {
        const void* const found =
            std::memchr(first, kQuote, static_cast<std::size_t>(last - first));
        return found != nullptr ? static_cast<const char*>(found) : last;
    }
    while (first != last && *first != kQuote)
        ++first;
    return first;
}

/// Bytes of the literal of `text`.
inline std::size_t QuotedLength(std::string_view text) noexcept
{
    const char* const last = text.data() + text.size();
    std::size_t quotes = 2;
    for (const char* p = FindQuote(text.data(), last); p != last; p = FindQuote(p + 1, last))
        ++quotes;
    return text.size() + quotes;
}

/// Writes the literal to `out`, which has room for QuotedLength bytes.
inline void WriteQuoted(std::string_view text, char* out) noexcept
{
    const char* p = text.data();
    const char* const last = p + text.size();
    *out++ = kQuote;
    while (p != last) {
        const char* const quote = FindQuote(p, last);
        const char* const end = quote != last ? quote + 1 : last;
        std::memcpy(out, p, static_cast<std::size_t>(end - p));
        out += end - p;
        if (quote != last)
            *out++ = kQuote;
        p = end;
    }
    *out = kQuote;
}

} // namespace zeldt

#endif
