#include "platform/runtime/system.h"

#include "tests/support/oem_tables.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

TEST(CodePageNumbers, AreThoseOfTheSystemSettings)
{
    EXPECT_EQ(zelrt::AnsiCodePage(), 1252U);
    EXPECT_EQ(zelrt::OemCodePage(), zeltest::SystemOemPage());
}

TEST(ModuleFileName, IsTheProgramForAnAddressInIt)
{
    static const char here = 0;
    char name[zelrt::kMaxModuleFileName];
    const std::size_t length = zelrt::ModuleFileName(&here, name, sizeof name);
    EXPECT_EQ(length, std::strlen(name));
    EXPECT_NE(std::string(name).find("runtime_test"), std::string::npos);

    char program[zelrt::kMaxModuleFileName];
    zelrt::ProgramFileName(program, sizeof program);
    EXPECT_STREQ(name, program);
}

TEST(ModuleFileName, IsCutToTheBuffer)
{
    static const char here = 0;
    char whole[zelrt::kMaxModuleFileName];
    zelrt::ModuleFileName(&here, whole, sizeof whole);
    char cut[5];
    EXPECT_EQ(zelrt::ModuleFileName(&here, cut, sizeof cut), 4U);
    EXPECT_EQ(std::string(cut), std::string(whole).substr(0, 4));
}

TEST(ModuleFileName, IsEmptyForAnAddressInNoModule)
{
    char name[8] = "x";
    EXPECT_EQ(zelrt::ModuleFileName(nullptr, name, sizeof name), 0U);
    EXPECT_STREQ(name, "");
}

TEST(Resources, OfAMissingModuleAreEmpty)
{
    EXPECT_FALSE(zelrt::HasResources("no-such-module.dll"));
    EXPECT_FALSE(zelrt::HasResources(""));
    EXPECT_FALSE(zelrt::HasResources(nullptr));
    char text[8] = "x";
    zelrt::ResourceText("no-such-module.dll", 1, text, sizeof text);
    EXPECT_STREQ(text, "");
}
