// Statements that hold their values as literals in double quotes.

#include "platform/recordsets/literals.h"
#include "tests/platform/recordsets/recordsets_testing.h"

#include <random>

using namespace zeltest;

namespace {

constexpr RETCODE kIllegal = AFX_SQL_ERROR_ILLEGAL_MODE;
constexpr RETCODE kTruncated = AFX_SQL_ERROR_DATA_TRUNCATED;

/// A text as literal, with the quote doubled inside.
std::string Quoted(const std::string& text, char quote)
{
    std::string literal(1, quote);
    for (const char c : text) {
        literal += c;
        if (c == quote)
            literal += c;
    }
    return literal + quote;
}

std::string Standard(const std::string& sql)
{
    return Str(ZelRsStandardLiterals(Cs(sql)));
}

std::string HostileText(std::mt19937& random)
{
    static const std::string kPieces[] = {"\"", "'",  "\"\"", "''", "\\",   ";",
                                          "--", "/*", "*/",   "`",  "\n",   " ",
                                          "a",  "?",  "\xE4", "#",  "\x80", "%"};
    std::string text;
    for (unsigned length = random() % 12; length > 0; --length)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

class Literals : public NamesTest {};

} // namespace

TEST(StandardLiterals, AreInSingleQuotes)
{
    struct {
        const char* sql;
        const char* standard;
    } const kCases[] = {
        {"", ""},
        {"SELECT 1", "SELECT 1"},
        {"\"\"", "''"},
        {"\"a\"", "'a'"},
        {"A = \"B\"", "A = 'B'"},
        {"\"a\"\"b\"", "'a\"b'"},
        {"\"\"\"\"", "'\"'"},
        {"\"\"\"\"\"\"", "'\"\"'"},
        {"\"it's\"", "'it''s'"},
        {"\"''\"", "''''''"},
        {"\"'\"\"'\"", "'''\"'''"},
        {"\"a\" \"b\"", "'a' 'b'"},
        {"(\"a\",\"b\",NULL,3)", "('a','b',NULL,3)"},
        // Backslashes are plain characters.
        {"\"\\\"", "'\\'"},
        {"\"\\\\\"", "'\\\\'"},
        {"\"\\\"\"\"", "'\\\"'"},
        {"'\\' \"x\"", "'\\' 'x'"},
        // What stands in single quotes already.
        {"'a'", "'a'"},
        {"'say \"hi\"'", "'say \"hi\"'"},
        {"'it''s \"x\"'", "'it''s \"x\"'"},
        {"'\"' \"'\"", "'\"' ''''"},
        // Comments, and what only looks like them.
        {"1 -- \"x\"", "1 -- \"x\""},
        {"1 -- it's \"x\n\"y\"", "1 -- it's \"x\n'y'"},
        {"1 /* it's \"x\" */ \"y\"", "1 /* it's \"x\" */ 'y'"},
        {"/* a\n\"b\n*/\"c\"", "/* a\n\"b\n*/'c'"},
        {"\"a -- b\" \"c\"", "'a -- b' 'c'"},
        {"\"a /* b\" \"c\"", "'a /* b' 'c'"},
        {"'-- ' \"x\"", "'-- ' 'x'"},
        {"'/*' \"x\" '*/'", "'/*' 'x' '*/'"},
        {"-- '\n\"a\" -- \"\n\"b\"", "-- '\n'a' -- \"\n'b'"},
        {"5 - \"1\" / \"2\"", "5 - '1' / '2'"},
        {"/**/\"x\"/***/\"y\"", "/**/'x'/***/'y'"},
        // Everything else stays.
        {"\"\xC4\x80\xFF\x81\"", "'\xC4\x80\xFF\x81'"},
        {"\"a\nb\r\tc\"", "'a\nb\r\tc'"},
        {"\"; DROP TABLE T; --\"", "'; DROP TABLE T; --'"},
        {"T?=\"?\"", "T?='?'"},
        {"INSERT INTO T (A,B) VALUES (\"x\",'y')", "INSERT INTO T (A,B) VALUES ('x','y')"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(Standard(c.sql), c.standard) << c.sql;
}

TEST(StandardLiterals, MustBeClosed)
{
    for (const char* sql :
         {"\"", "'", "A = \"b", "A = 'b", "\"a\"\"", "'a''", "\"a'", "'a\"", "\"a\" \"", "\"\"\"",
          "'''", "\"a\\", "-- x\n\"", "/* */ '", "\"-- \n", "\"/* */"})
        EXPECT_TRUE(FailsInDatabase([&] { ZelRsStandardLiterals(sql); }, kIllegal)) << sql;
}

TEST(StandardLiterals, LeaveOpenQuotesInCommentsAlone)
{
    for (const char* sql : {"1 -- it's", "1 -- say \"", "/* it's */ 1", "1 /* \" */"})
        EXPECT_EQ(Standard(sql), sql);
}

TEST(StandardLiterals, KeepNulBytes)
{
    EXPECT_EQ(Standard(std::string("\"a\0b\" '\0'", 9)), std::string("'a\0b' '\0'", 9));
}

TEST(StandardLiterals, FollowTheTextAndNothingElse)
{
    std::mt19937 random(20265);
    for (int i = 0; i < 20000; ++i) {
        const std::string first = HostileText(random);
        const std::string second = HostileText(random);
        const std::string sql =
            "A=" + Quoted(first, '"') + " AND B=" + Quoted(second, '\'') + ",\"\"";
        const std::string standard =
            "A=" + Quoted(first, '\'') + " AND B=" + Quoted(second, '\'') + ",''";
        ASSERT_EQ(Standard(sql), standard) << sql;
        ASSERT_EQ(Standard(standard), standard);
    }
}

TEST(StandardLiterals, TakeLongTexts)
{
    const std::string text(1000000, '\'');
    EXPECT_TRUE(Standard(Quoted(text, '"')) == Quoted(text, '\''));
}

TEST_F(Literals, AreExecutedAndRowsCounted)
{
    EXPECT_EQ(ZelRsExecute(m_database, "INSERT INTO NAMES VALUES (1,\"a\")"), 1);
    EXPECT_EQ(ZelRsExecute(m_database, "INSERT INTO NAMES VALUES (2,\"a\"),(3,'a'),(4,\"b\")"), 3);
    EXPECT_EQ(ZelRsExecute(m_database, "UPDATE NAMES SET NAME=\"c\" WHERE NAME=\"a\""), 3);
    EXPECT_EQ(ZelRsExecute(m_database, "UPDATE NAMES SET NAME=\"c\" WHERE NAME=\"a\""), 0);
    // A row that is given the value it has was found all the same.
    EXPECT_EQ(ZelRsExecute(m_database, "UPDATE NAMES SET NAME=\"c\" WHERE ID=1"), 1);
    EXPECT_EQ(ZelRsExecute(m_database, "DELETE FROM NAMES WHERE NAME=\"none\""), 0);
    EXPECT_EQ(ZelRsExecute(m_database, "DELETE FROM NAMES WHERE ID<=2"), 2);
    EXPECT_EQ(Stored(), (Records{"3 c", "4 b"}));
}

TEST_F(Literals, AreTextsEvenWhereAColumnIsCalledSo)
{
    Execute("INSERT INTO NAMES VALUES (1,'x')");
    EXPECT_EQ(ZelRsExecute(m_database, "UPDATE NAMES SET NAME=\"ID\""), 1);
    EXPECT_EQ(Stored(), Records{"1 ID"});
    EXPECT_EQ(ZelRsExecute(m_database, "UPDATE NAMES SET NAME=\"NAME\" WHERE NAME=\"ID\""), 1);
    EXPECT_EQ(Stored(), Records{"1 NAME"});
}

TEST_F(Literals, WorkInConditions)
{
    Execute("INSERT INTO NAMES VALUES (1,'NAME'),(2,'it''s \"so\"')");
    CNames names(&m_database);
    names.m_strFilter = ZelRsStandardLiterals("NAME = \"it's \"\"so\"\"\"");
    names.Open();
    EXPECT_EQ(names.Rest(), Records{"2 it's \"so\""});
}

TEST_F(Literals, WithANulByteAreRefused)
{
    const CString sql = Cs(std::string("INSERT INTO NAMES VALUES (1,\"a\0b\")", 34));
    EXPECT_TRUE(FailsInDatabase([&] { ZelRsExecute(m_database, sql); }, kTruncated));
    const CString hidden = Cs(std::string("DELETE FROM NAMES\0 WHERE 1=0", 28));
    Execute("INSERT INTO NAMES VALUES (1,'n1')");
    EXPECT_TRUE(FailsInDatabase([&] { ZelRsExecute(m_database, hidden); }, kTruncated));
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

TEST_F(Literals, ThatAreNotClosedAreNotExecuted)
{
    Execute("INSERT INTO NAMES VALUES (1,'n1')");
    for (const char* sql : {"DELETE FROM NAMES WHERE NAME <> \"x", "DELETE FROM NAMES -- \n'"})
        EXPECT_TRUE(FailsInDatabase([&] { ZelRsExecute(m_database, sql); }, kIllegal)) << sql;
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

TEST_F(Literals, FailAsStatementsDo)
{
    EXPECT_TRUE(FailsInDriver([&] { ZelRsExecute(m_database, "SELEKT \"x\""); }, "SELEKT",
                              ByDatabase(1, 1064)));
    Execute("INSERT INTO NAMES VALUES (1,'n1')");
    EXPECT_TRUE(
        FailsInDriver([&] { ZelRsExecute(m_database, "INSERT INTO NAMES VALUES (1,\"x\")"); }, "",
                      ByDatabase(19, 1062)));
    CDatabase closed;
    EXPECT_TRUE(
        FailsInDatabase([&] { ZelRsExecute(closed, "SELECT \"x\""); }, AFX_SQL_ERROR_CONNECT_FAIL));
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

TEST_F(Literals, BelongToTransactions)
{
    m_database.BeginTrans();
    EXPECT_EQ(ZelRsExecute(m_database, "INSERT INTO NAMES VALUES (1,\"a\")"), 1);
    EXPECT_EQ(Stored(), Records{});
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(Stored(), Records{});
}

TEST_F(Literals, OfAnyTextComeBack)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    std::vector<std::string> texts;
    for (int b = 1; b < 256; ++b)
        texts.push_back(std::string("<") + static_cast<char>(b) + ">");
    std::mt19937 random(20266);
    for (int i = 0; i < 500; ++i)
        texts.push_back(HostileText(random));
    m_database.BeginTrans();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string id = std::to_string(i);
        ASSERT_EQ(ZelRsExecute(m_database, Cs("INSERT INTO NAMES VALUES (" + id + "," +
                                              Quoted(texts[i], '"') + ")")),
                  1)
            << texts[i];
        // The record is found by its text again.
        ASSERT_EQ(
            ZelRsExecute(m_database, Cs("UPDATE NAMES SET NAME=" + Quoted(texts[i], '"') +
                                        " WHERE ID=" + id + " AND NAME=" + Quoted(texts[i], '"'))),
            1)
            << texts[i];
    }
    m_database.CommitTrans();
    CNames names(&m_database);
    names.Open();
    for (const std::string& text : texts) {
        ASSERT_FALSE(names.IsEOF());
        EXPECT_EQ(Str(names.m_name), text);
        names.MoveNext();
    }
    EXPECT_TRUE(names.IsEOF());
}
