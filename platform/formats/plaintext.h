#ifndef ZELDT_PLATFORM_FORMATS_PLAINTEXT_H
#define ZELDT_PLATFORM_FORMATS_PLAINTEXT_H

/// Texts, characters and booleans. `text` and the targets of reading are set on success only.

#include "platform/formats/rules.h"
#include "platform/formats/status.h"
#include "platform/formats/textbuffer.h"

#include <cstdint>
#include <string_view>

namespace zelformat {

/// The text, filled up to the most bytes; refers to `value` where nothing is filled. TooLong beyond
/// them, Mismatch for a byte outside the mask.
Status ShowText(std::string_view value, const TextRules& rules, TextBuffer& text);

/// Refers to `text` without what fills it up; the failures are those of ShowText.
Status ReadText(std::string_view text, const TextRules& rules, TextBuffer& value);

/// "Ja" and "Nein", in the technical mode "1" and "0".
std::string_view BoolText(bool value, const ModeRules& mode) noexcept;

/// Ja, J, 1, Nein, N, 0 in any case, blanks around them ignored; else Mismatch.
Status ReadBool(std::string_view text, bool& value) noexcept;

} // namespace zelformat

#endif
