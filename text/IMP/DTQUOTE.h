#ifndef ZELDT_TEXT_IMP_DTQUOTE_H
#define ZELDT_TEXT_IMP_DTQUOTE_H

/// SQL literals: texts in double quotes with the inner double quotes doubled. Private to the
/// library.

#include "platform/runtime/shorttext.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace zeldt {

inline constexpr char kQuote = '"';

/// Where the next quote stands, or the end. Short texts are looked through at once, which is faster
/// than the call.
inline const char* FindQuote(const char* first, const char* last) noexcept
{
    const auto size = static_cast<std::size_t>(last - first);
    if (size > zelrt::kShortText) {
        const void* const found = std::memchr(first, kQuote, size);
        return found != nullptr ? static_cast<const char*>(found) : last;
    }
    const __m128i quotes = _mm_cmpeq_epi8(zelrt::LoadUpTo16(first, size), _mm_set1_epi8(kQuote));
    const auto marks = static_cast<unsigned>(_mm_movemask_epi8(quotes));
    return marks == 0 ? last : first + std::countr_zero(marks);
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
        const auto size = static_cast<std::size_t>(end - p);
        if (size <= zelrt::kShortText)
            zelrt::CopyUpTo16(p, size, out);
        else
            std::memcpy(out, p, size);
        out += size;
        if (quote != last)
            *out++ = kQuote;
        p = end;
    }
    *out = kQuote;
}

} // namespace zeldt

#endif
