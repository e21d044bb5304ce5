// Strings, characters and booleans.

#include "tests/platform/formats/formats_testing.h"

#include <random>
#include <utility>

namespace {

using namespace formats_testing;
using namespace std::string_view_literals;

ZelFormat Text(unsigned long most, unsigned long mask = kAll,
               ZelFormat::FormatAuffuellen fill = ZelFormat::ZelFoAuffuellenOhne,
               char fillChar = ' ')
{
    return ZelFormat(most, mask, fill, fillChar);
}

std::string ShowChar(const ZelFormat& format, char value)
{
    return Shown("FormatChar(CHAR,CString&)",
                 [&](CString& text) { format.FormatChar(value, text); });
}

Read<char> ReadChar(const ZelFormat& format, std::string_view text)
{
    Read<char> read{0, '?'};
    read.error = ErrorOf("ParseChar(CString&,CHAR*)",
                         [&] { format.ParseChar(ToCString(text), &read.value); });
    return read;
}

std::string ShowBool(const ZelFormat& format, BOOL value)
{
    return Shown("FormatBool(BOOL,CString&)",
                 [&](CString& text) { format.FormatBool(value, text); });
}

Read<BOOL> ReadBool(const ZelFormat& format, std::string_view text, BOOL before)
{
    Read<BOOL> read{0, before};
    read.error = ErrorOf("ParseBool(CString&,BOOL*)",
                         [&] { format.ParseBool(ToCString(text), &read.value); });
    return read;
}

TEST(Strings, UnchangedByDefaultAndByTheModes)
{
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    const std::string texts[] = {"",
                                 " ",
                                 "  a b  ",
                                 "1.234,50",
                                 "Stra\xDF"
                                 "e",
                                 everyByte,
                                 std::string(100'000, 'x')};
    for (const std::string& text : texts) {
        for (const ZelFormat& format : {Text(0), Standard(), Technical()}) {
            EXPECT_EQ(ShowText(format, text), text);
            EXPECT_EQ(ReadText(format, text), (Read<std::string>{0, text}));
        }
    }
}

TEST(Strings, LengthAndFill)
{
    const ZelFormat left = Text(5, kAll, ZelFormat::ZelFoAuffuellenLinks, '.');
    const ZelFormat right = Text(5, kAll, ZelFormat::ZelFoAuffuellenRechts, ' ');
    EXPECT_EQ(ShowText(Text(5), "abcde"), "abcde");
    EXPECT_EQ(ShowText(Text(5), "abcdef"), "<11>");
    EXPECT_EQ(ShowText(Text(5), "ab"), "ab");
    EXPECT_EQ(ShowText(Text(5, kAll, ZelFormat::ZelFoAuffuellenOhne, '\0'), "ab"), "ab");
    EXPECT_EQ(ShowText(left, "ab"), "...ab");
    EXPECT_EQ(ShowText(right, "ab"), "ab   ");
    EXPECT_EQ(ShowText(right, ""), "     ");
    EXPECT_EQ(ShowText(right, "abcde"), "abcde");
    EXPECT_EQ(ShowText(right, "abcdef"), "<11>");
    EXPECT_EQ(ShowText(Text(0, kAll, ZelFormat::ZelFoAuffuellenRechts, ' '), "ab"), "ab");

    const std::pair<const char*, Read<std::string>> rows[] = {
        {"ab", {0, "ab"}},       {"ab   ", {0, "ab"}},       {"ab         ", {0, "ab"}},
        {" ab  ", {0, " ab"}},   {"     ", {0, ""}},         {"", {0, ""}},
        {"abcde", {0, "abcde"}}, {"abcdef", {11, "before"}}, {"a    b", {11, "before"}}};
    for (const auto& [text, read] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReadText(right, text), read);
    }
    EXPECT_EQ(ReadText(left, "...ab"), (Read<std::string>{0, "ab"}));
    EXPECT_EQ(ReadText(left, "ab..."), (Read<std::string>{0, "ab..."}));
    EXPECT_EQ(ReadText(Text(5), "ab    "), (Read<std::string>{11, "before"}));
}

TEST(Strings, Mask)
{
    struct Row {
        unsigned long mask;
        std::string_view allowed;
        std::string_view refused; ///< each of these bytes
    };
    const Row rows[] = {{1, "azAZ\xC4\xDF\xFC\x8A\x83\xB5"sv, "09 _\t\xD7\xF7\x80"sv},
                        {2, "0123456789"sv, "a \xB2-"sv},
                        {4, "   "sv, "a0\xA0\t\0"sv},
                        {8, "!~_\xD7\xF7\x80\xA0\xA7"sv, "a0 \x7F\x81"sv},
                        {16, "\0\t\r\n\x1F\x7F\x81\x8D\x9D"sv, "a0 !"sv},
                        {3, "a0\xC4"sv, " !"sv},
                        {31, "a0 !\n\0"sv, ""sv},
                        {0, ""sv, "a0 !\n"sv}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.mask);
        const ZelFormat format = Text(0, row.mask);
        EXPECT_EQ(ReadText(format, row.allowed), (Read<std::string>{0, std::string(row.allowed)}));
        EXPECT_EQ(ShowText(format, row.allowed), row.allowed);
        for (const char c : row.refused) {
            const std::string text = std::string(row.allowed) + c;
            EXPECT_EQ(ReadText(format, text).error, 21U) << static_cast<int>(c);
            EXPECT_EQ(ShowText(format, text), "<21>") << static_cast<int>(c);
        }
    }
    // What fills a text up need not be in the mask.
    const ZelFormat digits = Text(5, 2, ZelFormat::ZelFoAuffuellenLinks, '*');
    EXPECT_EQ(ShowText(digits, "12"), "***12");
    EXPECT_EQ(ReadText(digits, "***12"), (Read<std::string>{0, "12"}));
    EXPECT_EQ(ReadText(digits, "1*2").error, 21U);
    // Too long comes first.
    EXPECT_EQ(ReadText(digits, "abcdefg").error, 11U);
}

TEST(Strings, SameObjectAsSourceAndTarget)
{
    CString text("12");
    Text(4, kAll, ZelFormat::ZelFoAuffuellenLinks, '0')
        .FormatString(text, ZelFormat::ZelFoReinerText, text);
    EXPECT_STREQ(text, "0012");
    Standard().ParseString(text, ZelFormat::ZelFoZahlText, &text);
    EXPECT_STREQ(text, "12");
}

TEST(Strings, UnknownKindOfText)
{
    const auto unknown = static_cast<ZelFormat::FormatTextArt>(2);
    EXPECT_EQ(ShowText(Standard(), "1", unknown), "<20>");
    EXPECT_EQ(ReadText(Standard(), "1", unknown).error, 20U);
}

TEST(Strings, RoundTrip)
{
    std::mt19937 random(20);
    for (const ZelFormat::FormatAuffuellen side :
         {ZelFormat::ZelFoAuffuellenOhne, ZelFormat::ZelFoAuffuellenLinks,
          ZelFormat::ZelFoAuffuellenRechts}) {
        const ZelFormat format = Text(40, kAll, side, '\x01');
        for (int i = 0; i < 2000; ++i) {
            std::string value(random() % 41, ' ');
            for (char& c : value)
                c = static_cast<char>(random() % 254 + 2); // any byte but NUL and the fill
            ASSERT_EQ(ReadText(format, ShowText(format, value)), (Read<std::string>{0, value}));
        }
    }
}

TEST(Characters, EveryByte)
{
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        for (const ZelFormat& format : {Standard(), Technical(), Text(0)}) {
            EXPECT_EQ(ShowChar(format, c), std::string(1, c));
            EXPECT_EQ(ReadChar(format, std::string(1, c)), (Read<char>{0, c}));
        }
    }
}

TEST(Characters, ExactlyOneByte)
{
    for (const std::string_view text : {""sv, "ab"sv, " a"sv, "a "sv, "a\0"sv})
        EXPECT_EQ(ReadChar(Standard(), text), (Read<char>{11, '?'}));
    EXPECT_EQ(ReadChar(Standard(), " "), (Read<char>{0, ' '}));
    EXPECT_EQ(ReadChar(Text(1, 1), "5").error, 21U);
    EXPECT_EQ(ShowChar(Text(1, 1), '5'), "<21>");
    EXPECT_EQ(ShowChar(Text(3, kAll, ZelFormat::ZelFoAuffuellenRechts, '.'), 'x'), "x..");
    EXPECT_EQ(ReadChar(Text(3, kAll, ZelFormat::ZelFoAuffuellenRechts, '.'), "x.."),
              (Read<char>{0, 'x'}));
}

TEST(Booleans, Texts)
{
    EXPECT_EQ(ShowBool(Standard(), 1), "Ja");
    EXPECT_EQ(ShowBool(Standard(), 5), "Ja");
    EXPECT_EQ(ShowBool(Standard(), -1), "Ja");
    EXPECT_EQ(ShowBool(Standard(), 0), "Nein");
    EXPECT_EQ(ShowBool(Technical(), 5), "1");
    EXPECT_EQ(ShowBool(Technical(), 0), "0");

    for (const ZelFormat& format : {Standard(), Technical()}) {
        for (const char* text : {"Ja", "JA", "ja", "jA", "J", "j", "1", "  ja\t"}) {
            SCOPED_TRACE(text);
            EXPECT_EQ(ReadBool(format, text, 0), (Read<BOOL>{0, 1}));
            EXPECT_EQ(ReadBool(format, text, 5), (Read<BOOL>{0, 5}));
        }
        for (const char* text : {"Nein", "NEIN", "nein", "N", "n", "0", " Nein "}) {
            SCOPED_TRACE(text);
            EXPECT_EQ(ReadBool(format, text, 0), (Read<BOOL>{0, 0}));
            EXPECT_EQ(ReadBool(format, text, 5), (Read<BOOL>{0, 0}));
        }
        for (const std::string_view text : {""sv, "  "sv, "2"sv, "Jaa"sv, "yes"sv, "true"sv,
                                            "Ne in"sv, "01"sv, "-1"sv, "J\0"sv}) {
            SCOPED_TRACE(text);
            EXPECT_EQ(ReadBool(format, text, 5), (Read<BOOL>{21, 5}));
        }
    }
}

TEST(Booleans, NullTarget)
{
    EXPECT_EQ(ErrorOf("ParseBool(CString&,BOOL*)", [] { Standard().ParseBool("Ja", nullptr); }),
              0U);
    EXPECT_EQ(ErrorOf("ParseBool(CString&,BOOL*)", [] { Standard().ParseBool("x", nullptr); }),
              21U);
    EXPECT_EQ(ErrorOf("ParseChar(CString&,CHAR*)", [] { Standard().ParseChar("x", nullptr); }), 0U);
    EXPECT_EQ(ErrorOf("ParseString(CString&,FormatTextArt,CString*)",
                      [] { Standard().ParseString("x", ZelFormat::ZelFoZahlText, nullptr); }),
              21U);
}

} // namespace
