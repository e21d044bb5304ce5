/// The text class of the decimal library, against std::string.

#include "platform/decimals/RWCString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace {

/// Around the 47 bytes that need no memory.
constexpr std::size_t kLengths[] = {0, 1, 2, 5, 46, 47, 48, 49, 95, 96, 1000};

/// A text whose bytes differ from their neighbours.
std::string Sample(std::size_t length)
{
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text.push_back(static_cast<char>('a' + i % 23));
    return text;
}

std::string BytesOf(const RWCString& text)
{
    EXPECT_EQ(text.data()[text.length()], '\0');
    EXPECT_EQ(text.isNull(), text.length() == 0);
    EXPECT_EQ(static_cast<const char*>(text), text.data());
    return {text.data(), text.length()};
}

} // namespace

TEST(RWCStrings, AreMadeFromTexts)
{
    EXPECT_EQ(BytesOf(RWCString()), "");
    EXPECT_EQ(BytesOf(RWCString("")), "");
    EXPECT_EQ(BytesOf(RWCString(static_cast<const char*>(nullptr))), "");
    for (const std::size_t length : kLengths) {
        const std::string text = Sample(length);
        EXPECT_EQ(BytesOf(RWCString(text.c_str())), text);
        EXPECT_EQ(BytesOf(RWCString(text.data(), length)), text);
        EXPECT_EQ(BytesOf(RWCString(length, 'x')), std::string(length, 'x'));
    }
}

TEST(RWCStrings, CountTheBytesTheyAreGiven)
{
    EXPECT_EQ(BytesOf(RWCString("abcdef", 3)), "abc");
    EXPECT_EQ(BytesOf(RWCString("ab\0cd", 5)), std::string("ab\0cd", 5));
    EXPECT_EQ(BytesOf(RWCString(3, '\0')), std::string(3, '\0'));
    EXPECT_EQ(BytesOf(RWCString("abc", std::size_t{0})), "");
}

TEST(RWCStrings, AreCopiedAsValues)
{
    for (const std::size_t length : kLengths) {
        const std::string text = Sample(length);
        RWCString copy;
        {
            const RWCString original(text.data(), length);
            const RWCString second(original);
            EXPECT_EQ(BytesOf(second), text);
            EXPECT_NE(second.data(), original.data());
            copy = second;
        }
        EXPECT_EQ(BytesOf(copy), text);
        RWCString changed(copy);
        changed.replace(0, 1, "XY");
        EXPECT_EQ(BytesOf(copy), text);
    }
    EXPECT_EQ(BytesOf(RWCString(RWCString("a\0b", 3))), std::string("a\0b", 3));
}

TEST(RWCStrings, TakeOverTextsOfAnyLength)
{
    for (const std::size_t before : kLengths) {
        for (const std::size_t after : kLengths) {
            const std::string text = Sample(after);
            RWCString assigned(before, 'x');
            EXPECT_EQ(&(assigned = RWCString(text.data(), after)), &assigned);
            EXPECT_EQ(BytesOf(assigned), text);
            RWCString fromPointer(before, 'x');
            EXPECT_EQ(&(fromPointer = text.c_str()), &fromPointer);
            EXPECT_EQ(BytesOf(fromPointer), text);
        }
        RWCString emptied(before, 'x');
        emptied = static_cast<const char*>(nullptr);
        EXPECT_EQ(BytesOf(emptied), "");
    }
}

TEST(RWCStrings, TakeOverTheirOwnText)
{
    for (const std::size_t length : kLengths) {
        const std::string text = Sample(length);
        RWCString self(text.c_str());
        self = std::as_const(self);
        EXPECT_EQ(BytesOf(self), text);
        self = self.data();
        EXPECT_EQ(BytesOf(self), text);
        self = self.data() + length / 2;
        EXPECT_EQ(BytesOf(self), text.substr(length / 2));
    }
}

TEST(RWCStrings, ReplaceAtEveryPosition)
{
    for (const std::size_t length : {0U, 1U, 5U, 46U, 47U, 48U, 60U}) {
        const std::string text = Sample(length);
        for (std::size_t position = 0; position <= length + 2; ++position) {
            for (const std::size_t count :
                 {std::size_t{0}, std::size_t{1}, length, ~std::size_t{0}}) {
                for (const std::size_t put : {0U, 1U, 3U, 47U, 48U, 100U}) {
                    const std::string part(put, '#');
                    std::string expected = text;
                    expected.replace(std::min(position, length), count, part);
                    RWCString replaced(text.c_str());
                    EXPECT_EQ(&replaced.replace(position, count, part.c_str()), &replaced);
                    ASSERT_EQ(BytesOf(replaced), expected)
                        << length << " bytes, " << count << " from " << position << " by " << put;
                }
            }
        }
    }
}

TEST(RWCStrings, ReplaceByNullRemoves)
{
    RWCString text("1,234.50");
    text.replace(1, 1, nullptr);
    EXPECT_EQ(BytesOf(text), "1234.50");
    text.replace(~std::size_t{0}, ~std::size_t{0}, nullptr);
    EXPECT_EQ(BytesOf(text), "1234.50");
    text.replace(4, ~std::size_t{0}, nullptr);
    EXPECT_EQ(BytesOf(text), "1234");
}

TEST(RWCStrings, ReplaceByPartsOfThemselves)
{
    for (const std::size_t length : {3U, 24U, 40U, 47U, 48U, 60U}) {
        const std::string text = Sample(length);
        for (std::size_t position = 0; position <= length; ++position) {
            for (const std::size_t count : {std::size_t{0}, std::size_t{2}, length}) {
                for (std::size_t from = 0; from <= length; from += 1 + length / 10) {
                    std::string expected = text;
                    expected.replace(position, count, text.substr(from));
                    RWCString replaced(text.c_str());
                    replaced.replace(position, count, replaced.data() + from);
                    ASSERT_EQ(BytesOf(replaced), expected)
                        << length << " bytes, " << count << " from " << position
                        << " by those from " << from;
                }
            }
        }
    }
}

TEST(RWCStrings, ReplaceKeepsNulBytes)
{
    RWCString text("a\0b\0c", 5);
    text.replace(2, 1, "xyz");
    EXPECT_EQ(BytesOf(text), std::string("a\0xyz\0c", 7));
}
