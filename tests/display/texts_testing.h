#ifndef ZELDT_TESTS_DISPLAY_TEXTS_TESTING_H
#define ZELDT_TESTS_DISPLAY_TEXTS_TESTING_H

/// Text formats as plain numbers, and the classes of bytes that their masks tell apart.

#include "tests/display/display_testing.h"
#include "tests/text/character_testing.h"

#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

/// The arguments of a text format. Fill: 0 none, 1 left, 2 right.
struct TextOptions {
    unsigned long most = 0;
    unsigned long mask = ZelFormat::kulZelFoValidAll;
    int fill = 0;
    char fillChar = ' ';

    ZelFormat Format() const
    {
        return ZelFormat(most, mask, static_cast<ZelFormat::FormatAuffuellen>(fill), fillChar);
    }

    friend std::ostream& operator<<(std::ostream& os, const TextOptions& o)
    {
        return os << "most " << o.most << ", mask " << o.mask << ", fill " << o.fill << " '"
                  << o.fillChar << '\'';
    }
};

inline constexpr unsigned long kLetter = 1;
inline constexpr unsigned long kDigit = 2;
inline constexpr unsigned long kBlank = 4;
inline constexpr unsigned long kPrintable = 8;
inline constexpr unsigned long kControl = 16;

/// The class of a byte of code page 1252.
inline unsigned long ClassOf(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    static const std::string kLettersBeyondAscii =
        "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA"; // f with hook to y, ordinals, micro
    static const std::string kUnassigned = "\x81\x8D\x8F\x90\x9D";
    if (code < 0x20 || code == 0x7F || kUnassigned.find(byte) != std::string::npos)
        return kControl;
    if (code == 0x20)
        return kBlank;
    if (code >= '0' && code <= '9')
        return kDigit;
    if ((code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') ||
        kLettersBeyondAscii.find(byte) != std::string::npos ||
        (code >= 0xC0 && code != 0xD7 && code != 0xF7)) // the signs for times and divided by
        return kLetter;
    return kPrintable;
}

inline bool Allows(unsigned long mask, const std::string& text)
{
    for (const char byte : text)
        if ((mask & ClassOf(byte)) == 0)
            return false;
    return true;
}

/// All that can be seen of a string.
struct Words {
    State state;
    std::string text;

    friend bool operator==(const Words&, const Words&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Words& w)
    {
        return os << Escaped(w.text) << " (" << w.state << ')';
    }
};

inline Words Look(const ZelDtString& value)
{
    return {StateOf(value), BytesOf(value)};
}

/// An undefined string has no text.
inline void Bring(ZelDtString& target, const Words& words)
{
    BringString(target, words.text, words.state);
    ASSERT_EQ(Look(target), words);
}

/// Every state with every one of the texts, the undefined ones without.
inline std::vector<Words> AllWords(const std::vector<std::string>& texts)
{
    std::vector<Words> all;
    for (const State& state : AllStates()) {
        if (!state.defined)
            all.push_back({state, ""});
        else
            for (const std::string& text : texts)
                all.push_back({state, text});
    }
    return all;
}

inline Words Taken(Words before, const std::string& text)
{
    if (before.text != text)
        before.state.modified = 1;
    before.text = text;
    SetDefined(before.state, 1);
    return before;
}

inline Words Cleared(Words before)
{
    if (!before.text.empty())
        before.state.modified = 1;
    before.text.clear();
    SetUndefined(before.state);
    return before;
}

inline Error ShowBoolError()
{
    return {1, "DTBOOL", "ZelDtBool",
            "CString  ZelDtBool :: ConvToOFL ( const ZelFormat * ) const"};
}

inline Error ReadBoolError()
{
    return {1, "DTBOOL", "ZelDtBool",
            "VOID  ZelDtBool :: SetFromOFL ( LPCTSTR, const ZelFormat * )"};
}

inline Error ShowCharError()
{
    return {1, "DTCHAR", "ZelDtChar", "ConvToOFL(ZelFormat*)"};
}

inline Error ReadCharError()
{
    return {1, "DTCHAR", "ZelDtChar", "SetFromOFL(LPCTSTR,ZelFormat*)"};
}

inline Error ShowStringError()
{
    return FunctionError(1, "ConvToOFL(ZelFormat)");
}

inline Error ReadStringError()
{
    return FunctionError(1, "SetFromOFL(LPCTSTR,ZelFormat*)");
}

/// A defined value in mode Missing, not modified.
inline Truth Defined(int number)
{
    return {{ZelDtWmMissing, 1, 0}, number};
}

inline Letter Defined(char character)
{
    return {{ZelDtWmMissing, 1, 0}, character};
}

inline Words Defined(const std::string& text)
{
    return {{ZelDtWmMissing, 1, 0}, text};
}

} // namespace zeltest

#endif
