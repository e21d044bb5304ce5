// Names of tables and columns in statements for databases with quotes of any kind.

#include "tools/zelconv/databasenames.h"
#include "tools/zelconv/fault.h"

#include <gtest/gtest.h>

#include <string>

using zelconv::QuotedName;
using zelconv::TableName;

namespace {

/// The message of the Failure that an action ends with; empty if it ends with none.
template <typename Action>
std::string Refusal(Action&& action)
{
    try {
        action();
    } catch (const zelconv::Failure& failure) {
        return failure.what();
    }
    return "";
}

std::string RefusalOf(const std::string& name, const char* quote)
{
    return Refusal([&] { QuotedName(name, quote); });
}

} // namespace

TEST(DatabaseNames, StandInTheQuotesOfTheDatabase)
{
    EXPECT_EQ(QuotedName("Haus-Nr", "`"), "`Haus-Nr`");
    EXPECT_EQ(QuotedName("Haus-Nr", "\""), "\"Haus-Nr\"");
    EXPECT_EQ(QuotedName("Select", "|"), "|Select|");
    EXPECT_EQ(QuotedName("Gr\xF6\xDF"
                         "e in \x80",
                         "\""),
              "\"Gr\xF6\xDF"
              "e in \x80\"");
}

TEST(DatabaseNames, StandAloneWhereNothingEnclosesThem)
{
    for (const char* quote : {"", " "}) {
        EXPECT_EQ(QuotedName("KUNDEN", quote), "KUNDEN");
        EXPECT_EQ(QuotedName("_a9Z", quote), "_a9Z");
        for (const char* name : {"Haus-Nr", "9a", "a b", "a;b", "a.b", "[a]"})
            EXPECT_EQ(RefusalOf(name, quote),
                      "'" + std::string(name) + "' cannot be the name of a column or table");
    }
}

TEST(DatabaseNames, CannotHoldQuotesOrControlCharacters)
{
    for (const char* name : {"", "a`", "a\"b", "'a", "a\tb", "\n", "a\x1F"}) {
        for (const char* quote : {"`", "\"", "|", " "})
            EXPECT_NE(RefusalOf(name, quote), "") << name << quote;
    }
    EXPECT_EQ(RefusalOf("\xFC", ""), "'\xC3\xBC' cannot be the name of a column or table");
    EXPECT_EQ(RefusalOf("a|b", "|"), "'a|b' cannot be the name of a column or table");
    EXPECT_EQ(RefusalOf("a|b", "`"), "");
    EXPECT_EQ(RefusalOf("\xFC`", "`"), "'\xC3\xBC`' cannot be the name of a column or table");
}

TEST(DatabaseNames, OfTablesMayHaveASchema)
{
    const TableName table("Gr\xC3\xB6\xC3\x9F"
                          "e.a b");
    EXPECT_EQ(table.Given(), "Gr\xC3\xB6\xC3\x9F"
                             "e.a b");
    EXPECT_EQ(table.Schema(), "Gr\xF6\xDF"
                              "e");
    EXPECT_EQ(table.Name(), "a b");
    EXPECT_EQ(table.Quoted("\""), "\"Gr\xF6\xDF"
                                  "e\".\"a b\"");
    EXPECT_EQ(TableName("a.b.c").Quoted("`"), "`a.b`.`c`");
    EXPECT_EQ(TableName("a.b").Quoted(""), "a.b");
    EXPECT_EQ(TableName("T").Quoted("`"), "`T`");
    EXPECT_EQ(TableName("T").Schema(), "");
}

TEST(DatabaseNames, OfTablesAreRefusedBeforeADatabaseIsReached)
{
    for (const char* name : {"", ".T", "T.", "a`.T", "T\"", "T'", "\xC5\x81"})
        EXPECT_NE(Refusal([&] { TableName table(name); }), "") << name;
}
