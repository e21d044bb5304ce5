#ifndef ZELDT_TOOLS_ZELCONV_CHARSET_H
#define ZELDT_TOOLS_ZELCONV_CHARSET_H

/// Texts outside, in the charset of a file, and inside, in code page 1252. Nothing is ever
/// replaced by a near character: what the other side lacks is reported.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace zelconv {

enum class Charset { Utf8, Ansi1252, Oem850, Oem437 };

/// Whether a text has ASCII characters only and no NUL: it is the same in every charset.
inline bool IsPlain(std::string_view text)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    // Without high bits only a zero borrows.
    const auto isPlain = [](std::uint64_t word) {
        return (((word - kOnes) | word) & kHighBits) == 0;
    };
    const auto wordAt = [text](std::size_t position) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + position, sizeof word);
        return word;
    };
    constexpr std::size_t kStep = sizeof(std::uint64_t);
    if (text.size() < kStep)
        return std::all_of(text.begin(), text.end(), [](char c) {
            return c != '\0' && static_cast<unsigned char>(c) < 0x80;
        });
    for (std::size_t i = 0; i + kStep < text.size(); i += kStep) {
        if (!isPlain(wordAt(i)))
            return false;
    }
    return isPlain(wordAt(text.size() - kStep));
}

/// How a conversion ended. `missing` is the character that the target lacks.
struct CharsetResult {
    enum class Status { Ok, Malformed, Missing };
    Status status = Status::Ok;
    char32_t missing = 0;
};

/// Appends `text`, which is in `charset`, to `out` in code page 1252. Unless Ok, `out` holds what
/// came before.
CharsetResult ToAnsi(Charset charset, std::string_view text, std::string& out);

/// Appends `text`, which is in code page 1252, to `out` in `charset`; never Malformed.
CharsetResult FromAnsi(Charset charset, std::string_view text, std::string& out);

/// ToAnsi for a cell: a fault of column `column` unless Ok.
void DecodeCell(Charset charset, std::string_view text, int column, std::string& out);

/// FromAnsi for a cell: a fault of column `column` unless Ok.
void EncodeCell(Charset charset, std::string_view text, int column, std::string& out);

/// The text, in code page 1252, as UTF-8.
std::string Utf8FromAnsi(std::string_view text);

/// Characters that a text in `charset` shows.
std::size_t CountCharacters(Charset charset, std::string_view text);

} // namespace zelconv

#endif
