#include "texte.h"

#include "../auftraege.h"

#include <algorithm>
#include <vector>

namespace auftraege {

namespace {

/// Sixteen bits a character are enough for code page 1252. What is no UTF-8 becomes something else.
std::vector<OLECHAR> Wide(const std::string& utf8)
{
    std::vector<OLECHAR> wide;
    for (const char c : utf8) {
        const unsigned byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
            wide.push_back(static_cast<OLECHAR>(byte));
        else if (byte >= 0xC0)
            wide.push_back(static_cast<OLECHAR>(byte < 0xE0 ? byte & 0x1FU : byte & 0x0FU));
        else if (!wide.empty())
            wide.back() = static_cast<OLECHAR>(wide.back() << 6 | (byte & 0x3FU));
    }
    return wide;
}

bool IsControl(OLECHAR character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

} // namespace

CString Ansi(const std::string& utf8, const std::string& column)
{
    CString ansi = AnsiToLookAt(utf8);
    if (Utf8(ansi) != utf8)
        throw Refusal{column, "Zeichen, das Windows-1252 nicht hat"};
    const std::vector<OLECHAR> wide = Wide(utf8);
    if (std::any_of(wide.begin(), wide.end(), IsControl))
        throw Refusal{column, "Steuerzeichen im Text"};
    return ansi;
}

CString AnsiToLookAt(const std::string& utf8)
{
    const std::vector<OLECHAR> wide = Wide(utf8);
    return {wide.data(), static_cast<int>(wide.size())};
}

std::string Utf8(const CString& ansi)
{
    BSTR wide = ansi.AllocSysString();
    std::string utf8;
    for (int i = 0; i < ansi.GetLength(); ++i) {
        const unsigned character = wide[i];
        if (character < 0x80) {
            utf8 += static_cast<char>(character);
            continue;
        }
        if (character < 0x800) {
            utf8 += static_cast<char>(0xC0 | character >> 6);
        } else {
            utf8 += static_cast<char>(0xE0 | character >> 12);
            utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        }
        utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
    SysFreeString(wide);
    return utf8;
}

} // namespace auftraege
