#include "platform/codepages/ZelEusy.h"

#include "tests/support/oem_tables.h"

#include <gtest/gtest.h>

#include <string>

using zeltest::AllBytes;
using zeltest::Converted;

TEST(CodePages, ConvertEveryByteByTheTablesOfTheSystem)
{
    const std::string toOem = Converted(AllBytes(), zeltest::AnsiToSystemOem());
    const std::string toAnsi = Converted(AllBytes(), zeltest::SystemOemToAnsi());
    std::string target(256, 'x');
    ASSERT_EQ(ZelEusy_CharToOem(AllBytes().c_str(), target.data()), 1);
    EXPECT_EQ(target, toOem + '\0');
    target.assign(256, 'x');
    ASSERT_EQ(ZelEusy_OemToChar(AllBytes().c_str(), target.data()), 1);
    EXPECT_EQ(target, toAnsi + '\0');

    std::string inPlace = AllBytes();
    ASSERT_EQ(ZelEusy_CharToOem(inPlace.c_str(), inPlace.data()), 1);
    EXPECT_EQ(inPlace, toOem);
    inPlace = AllBytes();
    ASSERT_EQ(ZelEusy_OemToChar(inPlace.c_str(), inPlace.data()), 1);
    EXPECT_EQ(inPlace, toAnsi);
}

TEST(CodePages, UmlautsGoThereAndBack)
{
    char text[] = "Stra\337e \344\366\374\304\326\334 \351";
    ASSERT_EQ(ZelEusy_CharToOem(text, text), 1);
    EXPECT_STREQ(text, "Stra\341e \204\224\201\216\231\232 \202");
    ASSERT_EQ(ZelEusy_OemToChar(text, text), 1);
    EXPECT_STREQ(text, "Stra\337e \344\366\374\304\326\334 \351");
}

TEST(CodePages, WhatIsLackingBecomesANearCharacter)
{
    const char source[] = "\202\204\200";
    char target[4] = "xxx";
    ASSERT_EQ(ZelEusy_CharToOem(source, target), 1);
    EXPECT_STREQ(target, zeltest::SystemOemPage() == 850 ? "'\"?" : ",,?");
}

TEST(CodePages, NullPointersChangeNothing)
{
    char text[] = "\344";
    EXPECT_EQ(ZelEusy_CharToOem(nullptr, text), 0);
    EXPECT_EQ(ZelEusy_CharToOem(text, nullptr), 0);
    EXPECT_EQ(ZelEusy_OemToChar(nullptr, nullptr), 0);
    EXPECT_STREQ(text, "\344");
}

TEST(CodePages, EmptyAndLongTexts)
{
    char empty[] = "";
    EXPECT_EQ(ZelEusy_CharToOem(empty, empty), 1);
    EXPECT_STREQ(empty, "");

    for (std::size_t length = 1; length < 300; ++length) {
        std::string text(length, 'a');
        text[length - 1] = '\344';
        std::string expected(length, 'a');
        expected[length - 1] = '\204';
        ASSERT_EQ(ZelEusy_CharToOem(text.c_str(), text.data()), 1);
        EXPECT_EQ(text, expected);
    }
}
