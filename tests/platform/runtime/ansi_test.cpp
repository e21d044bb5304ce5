#include "platform/runtime/ansi.h"
#include "platform/runtime/oemtables.h"

#include <gtest/gtest.h>

#include <string>

using zelrt::AnsiIsLower;
using zelrt::AnsiIsUpper;
using zelrt::AnsiToLower;
using zelrt::AnsiToUpper;

TEST(AnsiCase, LettersMapToEachOther)
{
    const struct {
        unsigned char lower;
        unsigned char upper;
    } pairs[] = {{'a', 'A'},   {'z', 'Z'},   {0xE0, 0xC0}, {0xE4, 0xC4},
                 {0xF6, 0xD6}, {0xFC, 0xDC}, {0xFE, 0xDE}, {0xE9, 0xC9},
                 {0x9A, 0x8A}, {0x9C, 0x8C}, {0x9E, 0x8E}, {0xFF, 0x9F}};
    for (const auto& [lower, upper] : pairs) {
        EXPECT_EQ(AnsiToUpper(lower), upper);
        EXPECT_EQ(AnsiToLower(upper), lower);
        EXPECT_EQ(AnsiToUpper(upper), upper);
        EXPECT_EQ(AnsiToLower(lower), lower);
        EXPECT_TRUE(AnsiIsUpper(upper));
        EXPECT_FALSE(AnsiIsUpper(lower));
        EXPECT_TRUE(AnsiIsLower(lower));
        EXPECT_FALSE(AnsiIsLower(upper));
    }
}

TEST(AnsiCase, OtherBytesStay)
{
    for (unsigned char code : {0x00, 0x20, 0x30, 0x40, 0x5B, 0x60, 0x7B, 0x80, 0xD7, 0xF7}) {
        EXPECT_EQ(AnsiToUpper(code), code);
        EXPECT_EQ(AnsiToLower(code), code);
        EXPECT_FALSE(AnsiIsUpper(code));
        EXPECT_FALSE(AnsiIsLower(code));
    }
    for (unsigned char letter : {0xDF, 0xB5, 0x83}) {
        EXPECT_EQ(AnsiToUpper(letter), letter);
        EXPECT_EQ(AnsiToLower(letter), letter);
    }
}

TEST(AnsiUnicode, MapsTheBlockOfSpecialCharacters)
{
    EXPECT_EQ(zelrt::AnsiToUnicode('A'), u'A');
    EXPECT_EQ(zelrt::AnsiToUnicode(0x80), 0x20AC);
    EXPECT_EQ(zelrt::AnsiToUnicode(0x81), 0x0081);
    EXPECT_EQ(zelrt::AnsiToUnicode(0x9F), 0x0178);
    EXPECT_EQ(zelrt::AnsiToUnicode(0xA0), 0x00A0);
    EXPECT_EQ(zelrt::AnsiToUnicode(0xE4), 0x00E4);
}

TEST(AnsiCase, OfTextsIsThatOfTheirBytes)
{
    // All bytes, from each of them on, in texts of different lengths.
    for (std::size_t size = 0; size < 70; ++size) {
        for (std::size_t first = 0; first < 256; ++first) {
            std::string text;
            std::string upper;
            std::string lower;
            for (std::size_t i = 0; i < size; ++i) {
                const auto code = static_cast<unsigned char>(first + i);
                text += static_cast<char>(code);
                upper += static_cast<char>(AnsiToUpper(code));
                lower += static_cast<char>(AnsiToLower(code));
            }
            std::string changed = text;
            zelrt::AnsiMakeUpper(changed.data(), changed.size());
            ASSERT_EQ(changed, upper);
            zelrt::AnsiMakeLower(text.data(), text.size());
            ASSERT_EQ(text, lower);
        }
    }
}

TEST(OemTranslation, EqualsTheByteWiseOneForAllBytes)
{
    for (std::size_t size = 0; size < 150; size += 7) {
        for (std::size_t first = 0; first < 256; first += 3) {
            std::string text;
            std::string expected;
            for (std::size_t i = 0; i < size; ++i) {
                const auto code = static_cast<unsigned char>(first + i * 5);
                text += static_cast<char>(code);
                expected += static_cast<char>(zelrt::kOem850ToAnsi[code]);
            }
            zelrt::TranslateInPlace(text.data(), text.size(), zelrt::kOem850ToAnsi);
            ASSERT_EQ(text, expected);
        }
    }
}

TEST(OemTranslation, EqualsTheByteWiseOneAtEveryLengthAndPlace)
{
    // Plain text is passed over in large blocks: two of them and a rest.
    for (std::size_t length = 0; length < 300; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::string text(length, 'x');
            text[at] = '\344';
            std::string expected = text;
            expected[at] = '\204';
            zelrt::TranslateInPlace(text.data(), text.size(), zelrt::kAnsiToOem437);
            EXPECT_EQ(text, expected);
        }
    }
}

TEST(OemTranslation, LettersOfBothCodePagesSurviveTheWayBack)
{
    // Everything that German, French and Spanish texts need beyond ASCII.
    for (const char* letters = "\304\326\334\344\366\374\337\351\350\340\350\347\361\361\372";
         *letters != '\0'; ++letters) {
        const auto code = static_cast<unsigned char>(*letters);
        EXPECT_EQ(zelrt::kOem850ToAnsi[zelrt::kAnsiToOem850[code]], code);
        EXPECT_EQ(zelrt::kOem437ToAnsi[zelrt::kAnsiToOem437[code]], code);
    }
}
