#include "tools/zelconv/charset.h"

#include "platform/runtime/ansi.h"
#include "tools/zelconv/fault.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdio>

namespace zelconv {

namespace {

using Status = CharsetResult::Status;

constexpr unsigned kFirstBeyondAscii = 0x80;
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

unsigned char ByteOf(char character)
{
    return static_cast<unsigned char>(character);
}

/// Bytes at the beginning that stand for themselves in every charset.
std::size_t AsciiLength(std::string_view text)
{
    std::size_t length = 0;
    while (length < text.size() && ByteOf(text[length]) < kFirstBeyondAscii)
        ++length;
    return length;
}

// UTF-8

struct Utf8Character {
    char32_t value;
    std::size_t length;
};

/// The character at the beginning of a text that is not empty; kNoCharacter if that is none:
/// wrong or missing bytes, more bytes than needed, surrogates, beyond 10FFFF.
Utf8Character FirstUtf8(std::string_view text)
{
    const unsigned char lead = ByteOf(text[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || text.size() < length)
        return {kNoCharacter, 1};
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char byte = ByteOf(text[i]);
        if ((byte & 0xC0U) != 0x80)
            return {kNoCharacter, 1};
        value = (value << 6) | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value < 0xE000;
    if (value < kLeast[length] || surrogate || value > 0x10FFFF)
        return {kNoCharacter, 1};
    return {value, length};
}

/// Characters of code page 1252 lie below 10000 hexadecimal.
void AppendUtf8(char16_t character, std::string& out)
{
    if (character < 0x80) {
        out += static_cast<char>(character);
        return;
    }
    if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
    } else {
        out += static_cast<char>(0xE0 | (character >> 12));
        out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    }
    out += static_cast<char>(0x80 | (character & 0x3F));
}

/// The byte of code page 1252 for a character, or -1. The code page differs from Latin-1 in the
/// 32 bytes from 80 on.
int AnsiByteOf(char32_t character)
{
    if (character < 0x100 && zelrt::AnsiToUnicode(static_cast<unsigned char>(character)) ==
                                 static_cast<char16_t>(character))
        return static_cast<int>(character);
    for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
        if (zelrt::AnsiToUnicode(static_cast<unsigned char>(byte)) == character)
            return static_cast<int>(byte);
    }
    return -1;
}

CharsetResult AnsiFromUtf8(std::string_view text, std::string& out)
{
    while (!text.empty()) {
        const std::size_t plain = AsciiLength(text);
        out += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const Utf8Character character = FirstUtf8(text);
        if (character.value == kNoCharacter)
            return {Status::Malformed, 0};
        const int byte = AnsiByteOf(character.value);
        if (byte < 0)
            return {Status::Missing, character.value};
        out += static_cast<char>(byte);
        text.remove_prefix(character.length);
    }
    return {};
}

// OEM code pages

/// The conversion of the library in one direction, and where it keeps the character.
struct OemTable {
    std::array<char, 256> target{};
    std::bitset<256> exact;
};

std::array<char, 256> ConvertEveryByte(ZelDtCodepageWandlung direction)
{
    std::array<char, 256> bytes{};
    for (std::size_t i = 1; i < bytes.size(); ++i)
        bytes[i - 1] = static_cast<char>(i);
    // The last byte is the terminator.
    ZelDtConvertCodePageFkt(bytes.data(), direction);
    std::rotate(bytes.begin(), bytes.end() - 1, bytes.end());
    return bytes;
}

/// A conversion that comes back to the byte it began with has kept the character, all but one:
/// the broken bar and the half block of code page 437 are each other's nearest characters.
OemTable MakeTable(ZelDtCodepageWandlung there, ZelDtCodepageWandlung back)
{
    constexpr unsigned char kAnsiBrokenBar = 0xA6;
    constexpr unsigned char kOem437HalfBlock = 0xDD;

    OemTable table;
    table.target = ConvertEveryByte(there);
    const std::array<char, 256> returned = ConvertEveryByte(back);
    for (std::size_t i = 0; i < table.target.size(); ++i)
        table.exact[i] = ByteOf(returned[ByteOf(table.target[i])]) == i;
    if (there == ZelDtCpAnsiToOem437)
        table.exact[kAnsiBrokenBar] = false;
    if (there == ZelDtCpOem437ToAnsi)
        table.exact[kOem437HalfBlock] = false;
    return table;
}

struct OemTables {
    OemTable toAnsi;
    OemTable fromAnsi;
};

const OemTables& TablesOf(Charset charset)
{
    static const OemTables oem850{MakeTable(ZelDtCpOem850ToAnsi, ZelDtCpAnsiToOem850),
                                  MakeTable(ZelDtCpAnsiToOem850, ZelDtCpOem850ToAnsi)};
    static const OemTables oem437{MakeTable(ZelDtCpOem437ToAnsi, ZelDtCpAnsiToOem437),
                                  MakeTable(ZelDtCpAnsiToOem437, ZelDtCpOem437ToAnsi)};
    return charset == Charset::Oem850 ? oem850 : oem437;
}

/// The index of the first byte that the table does not keep, or the length.
std::size_t Translate(const OemTable& table, std::string_view text, std::string& out)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char byte = ByteOf(text[i]);
        if (!table.exact[byte])
            return i;
        out += table.target[byte];
    }
    return text.size();
}

std::string HexadecimalNumber(char32_t character)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04lX", static_cast<unsigned long>(character));
    return text.data();
}

/// What the detail of a fault says about the missing character; OEM bytes have no number here.
std::string DetailOf(const CharsetResult& result)
{
    return result.missing != 0 ? HexadecimalNumber(result.missing) : std::string();
}

} // namespace

CharsetResult ToAnsi(Charset charset, std::string_view text, std::string& out)
{
    const std::size_t plain = AsciiLength(text);
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty())
        return {};
    if (charset == Charset::Utf8)
        return AnsiFromUtf8(text, out);
    if (charset == Charset::Ansi1252) {
        out += text;
        return {};
    }
    if (Translate(TablesOf(charset).toAnsi, text, out) == text.size())
        return {};
    return {Status::Missing, 0};
}

CharsetResult FromAnsi(Charset charset, std::string_view text, std::string& out)
{
    const std::size_t plain = charset == Charset::Ansi1252 ? text.size() : AsciiLength(text);
    out += text.substr(0, plain);
    text.remove_prefix(plain);
    if (charset == Charset::Utf8) {
        for (const char character : text)
            AppendUtf8(zelrt::AnsiToUnicode(ByteOf(character)), out);
        return {};
    }
    if (text.empty())
        return {};
    const std::size_t kept = Translate(TablesOf(charset).fromAnsi, text, out);
    if (kept == text.size())
        return {};
    return {Status::Missing, zelrt::AnsiToUnicode(ByteOf(text[kept]))};
}

void DecodeCell(Charset charset, std::string_view text, int column, std::string& out)
{
    const CharsetResult result = ToAnsi(charset, text, out);
    if (result.status == Status::Malformed)
        throw MakeFault(RowError::Malformed, column);
    if (result.status == Status::Missing)
        throw MakeFault(RowError::NotInAnsi, column, DetailOf(result));
}

void EncodeCell(Charset charset, std::string_view text, int column, std::string& out)
{
    const CharsetResult result = FromAnsi(charset, text, out);
    if (result.status == Status::Missing)
        throw MakeFault(RowError::NotInOutput, column, DetailOf(result));
}

std::string Utf8FromAnsi(std::string_view text)
{
    std::string out;
    FromAnsi(Charset::Utf8, text, out);
    return out;
}

std::size_t CountCharacters(Charset charset, std::string_view text)
{
    if (charset != Charset::Utf8)
        return text.size();
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char byte) { return (ByteOf(byte) & 0xC0U) != 0x80; }));
}

} // namespace zelconv
