#ifndef ZELDT_PLATFORM_RECORDSETS_CHARSET_H
#define ZELDT_PLATFORM_RECORDSETS_CHARSET_H

/// Code page 1252, which the program speaks, and UTF-8, which databases do.

#include "platform/framework/fwstring.h"

#include <string>
#include <string_view>

namespace zelrs {

/// How the bytes of a text are to be understood.
enum class Charset {
    Ansi, ///< code page 1252, or whatever else: the bytes stay as they are
    Utf8,
};

/// Whether the text is the same in both.
bool IsPlain(std::string_view text);

/// The text of code page 1252 in the given form.
std::string Encode(std::string_view ansi, Charset charset);

/// Puts the text into `ansi`; false when code page 1252 lacks one of its characters or when it is
/// no such text. `ansi` is undefined then.
bool Decode(std::string_view text, Charset charset, CString& ansi);

/// The same with '?' for what is missing: for messages, which must not fail.
CString DecodeMessage(std::string_view text, Charset charset);

} // namespace zelrs

#endif
