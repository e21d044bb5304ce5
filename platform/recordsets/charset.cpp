// Code page 1252 to UTF-8 and back.

#include "platform/recordsets/charset.h"

#include "platform/runtime/ansi.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace zelrs {

namespace {

/// The bytes at the beginning that mean the same in both.
std::size_t PlainLength(std::string_view text)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t length = 0;
    for (; length + sizeof kHighBits <= text.size(); length += sizeof kHighBits) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + length, sizeof eight);
        if ((eight & kHighBits) != 0)
            break;
    }
    while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80)
        ++length;
    return length;
}

void AppendUtf8(std::string& text, unsigned char ansi)
{
    const unsigned code = zelrt::AnsiToUnicode(ansi);
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
    } else {
        text += static_cast<char>(0xE0 | code >> 12);
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (code & 0x3F));
}

/// The byte of code page 1252 for a character, -1 if there is none.
int AnsiOf(unsigned code)
{
    if (code < 0x80 || (code >= 0xA0 && code < 0x100))
        return static_cast<int>(code);
    for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
        if (zelrt::AnsiToUnicode(static_cast<unsigned char>(byte)) == code)
            return static_cast<int>(byte);
    }
    return -1;
}

/// One character of UTF-8: how long it is and what it is in code page 1252, -1 for nothing.
struct Character {
    std::size_t length;
    int ansi;
};

/// Four bytes and more are beyond anything in the code page; they are told by their length only.
std::size_t SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2)
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

Character NextCharacter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = SequenceLength(lead);
    if (length == 0 || length > text.size())
        return {1, -1};
    unsigned code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80)
            return {i, -1};
        code = code << 6 | (next & 0x3FU);
    }
    const bool isOverlong = length == 3 && code < 0x800;
    return {length, isOverlong ? -1 : AnsiOf(code)};
}

/// Converts into `ansi`, which has room for as many bytes as the text, and returns the length;
/// -1 when a character is missing and there is no `substitute`.
std::ptrdiff_t Convert(std::string_view text, char* ansi, char substitute)
{
    char* end = ansi;
    for (;;) {
        const std::size_t plain = PlainLength(text);
        std::memcpy(end, text.data(), plain);
        end += plain;
        text.remove_prefix(plain);
        if (text.empty())
            return end - ansi;
        const Character next = NextCharacter(text);
        if (next.ansi < 0 && substitute == '\0')
            return -1;
        *end++ = next.ansi < 0 ? substitute : static_cast<char>(next.ansi);
        text.remove_prefix(next.length);
    }
}

bool DecodeUtf8(std::string_view text, CString& ansi, char substitute)
{
    const std::size_t plain = PlainLength(text);
    if (plain == text.size()) {
        ansi.SetString(text.data(), static_cast<int>(plain));
        return true;
    }
    char* const buffer = ansi.GetBuffer(static_cast<int>(text.size()));
    const std::ptrdiff_t length = Convert(text, buffer, substitute);
    ansi.ReleaseBuffer(length < 0 ? 0 : static_cast<int>(length));
    return length >= 0;
}

} // namespace

bool IsPlain(std::string_view text)
{
    return PlainLength(text) == text.size();
}

std::string Encode(std::string_view ansi, Charset charset)
{
    const std::size_t plain = charset == Charset::Ansi ? ansi.size() : PlainLength(ansi);
    std::string text(ansi.substr(0, plain));
    for (const char character : ansi.substr(plain))
        AppendUtf8(text, static_cast<unsigned char>(character));
    return text;
}

bool Decode(std::string_view text, Charset charset, CString& ansi)
{
    if (charset == Charset::Utf8)
        return DecodeUtf8(text, ansi, '\0');
    ansi.SetString(text.data(), static_cast<int>(text.size()));
    return true;
}

CString DecodeMessage(std::string_view text, Charset charset)
{
    CString ansi;
    if (charset == Charset::Utf8)
        DecodeUtf8(text, ansi, '?');
    else
        ansi.SetString(text.data(), static_cast<int>(text.size()));
    return ansi;
}

} // namespace zelrs
