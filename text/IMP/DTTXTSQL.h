#ifndef ZELDT_TEXT_IMP_DTTXTSQL_H
#define ZELDT_TEXT_IMP_DTTXTSQL_H

/// SQL texts of strings, characters and booleans in the memory of the caller; foundation/DTSQL.h
/// says how. In code page 1252. Private to the library.

#include "foundation/DTSQL.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/IMP/DTBOOLI.h"
#include "text/IMP/DTCHARI.h"
#include "text/IMP/DTQUOTE.h"
#include "text/IMP/DTVIEW.h"

namespace zeldt {

inline std::size_t WriteSql(const ZelDtBool& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        text[0] = kQuote;
        text[1] = PlainRep<BoolRules>::Of(value) != 0 ? '1' : '0';
        text[2] = kQuote;
        return text + 3;
    });
}

/// The NUL character is an empty text.
inline std::size_t WriteSql(const ZelDtChar& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        const char character = PlainRep<CharRules>::Of(value);
        *text++ = kQuote;
        if (character != '\0')
            *text++ = character;
        // Of a quote that stands in the text there are two.
        if (character == kQuote)
            *text++ = kQuote;
        *text++ = kQuote;
        return text;
    });
}

inline std::size_t WriteSql(const ZelDtString& value, char* out, std::size_t room)
{
    const bool defined = StateAccess::Of(value).defined == 1;
    const std::string_view text = defined ? ViewOf(value) : kSqlNull;
    const std::size_t length = defined ? QuotedLength(text) : text.size();
    if (length > room)
        return length;
    if (defined)
        WriteQuoted(text, out);
    else
        text.copy(out, length);
    return length;
}

} // namespace zeldt

#endif
