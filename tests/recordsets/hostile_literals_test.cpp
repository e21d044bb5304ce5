/// Texts in statements that look like parts of them: each is stored and found as it is, and nothing
/// else happens.

#include "tests/recordsets/value_table.h"

#include <algorithm>
#include <random>

namespace {

using namespace zeltest;

std::string Repeated(const std::string& text, int count)
{
    std::string all;
    while (count-- > 0)
        all += text;
    return all;
}

std::vector<std::string> HostileTexts()
{
    std::vector<std::string> texts = {
        // quotes
        "'", "\"", "''", "\"\"", "'\"", "\"'", "O'Brien", "say \"hello\"", "'a'", "\"a\"", "`",
        "`a`", "\"'\"'\"", "'''\"\"\"", "a''b\"\"c", "[a]", "\xB4", "\x91quoted\x92",
        "\x84quoted\x93",
        // backslashes
        "\\", "\\\\", "a\\", "a\\\\", "\\'", "\\\"", "\\\\'", "\\\\\"", "a\\'b", "a\\\"b", "\\0",
        "\\n", "\\x27", "\\\\\\", "C:\\temp\\", "'\\", "\"\\", "\\'; --", "\\\"; --",
        "\\\" OR 1=1 --",
        // ends of statements
        ";", "a;b", "'; DROP TABLE ZEUGE; --", "\"; DROP TABLE ZEUGE; --",
        "\"); DROP TABLE ZEUGE; --", "'); DROP TABLE ZEUGE; --",
        "\"); DELETE FROM ZEUGE; SELECT (\"", "'); DELETE FROM ZEUGE; SELECT ('", "\", \"x",
        "', 'x", "\" OR \"1\"=\"1", "' OR '1'='1", "1 OR 1=1", ") OR (1=1",
        // comments
        "--", "-- x", "a--b", "#", "# x", "a#b", "/*", "*/", "/* x */", "a/*b*/c", "/*! x */",
        "\" /* x", "' /* x", "*/ ' \"", "/*\"*/", "/*'*/", "--\"", "--'", "\n-- x\n", "#\n\"",
        // marks of parameters and escapes of ODBC
        "?", "a?b", "???", ":a", "@a", "@@version", "$1", "%s", "%n%n",
        "{ts '2000-01-01 00:00:00'}", "{d '2000-01-01'}", "{fn now()}", "{call x()}", "{", "}",
        "{{}}", "{ts \"", "{oj", "\"{ts ?}\"",
        // patterns
        "%", "_", "a%b_c", "%_\\%\\_",
        // words of SQL, names
        "NULL", "null", "ID", "WERT", "wert", "WERTE", "ANZAHL", "WERTE.WERT", "rowid", "DEFAULT",
        "CURRENT_TIMESTAMP", "TRUE", "SELECT", "now()", "0x41", "X'41'", "1", "-1", "1e5", "0",
        // blanks and ends of lines
        " ", "   ", "a ", " a", "\t", "\n", "\r", "\r\n", "a\r\nb\n", "\tx\t", "\x1A", "\x01",
        "\x7F", "\x1B[0m", "\v\f\b", "\xA0",
        // beyond ASCII
        "\xE4\xF6\xFC\xDF\xC4\xD6\xDC", "\x80", "\xFF", "\x81\x8D\x8F\x90\x9D", "\xC3\xA4",
        "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xC0\x80", "\xFF\xFE", "\xEF\xBB\xBF", "\xBF'",
        "\xBF\\'", "\xBF\"", "\xBF\\\"", "\xE4'", "\xE4\"", "\x95\\", "\x83\\\"", "\xC2\"",
        "\xE0\"\"", ""};
    for (int from = 1; from < 256; from += 51) {
        std::string part;
        for (int code = from; code < from + 51 && code < 256; ++code)
            part.push_back(static_cast<char>(code));
        texts.push_back(part);
    }
    // every pair of what matters
    const std::string signs = "'\"\\;-#/*?{}\n %\xE4";
    for (const char a : signs)
        for (const char b : signs)
            texts.push_back({a, b});
    return texts;
}

std::vector<std::string> LongHostileTexts()
{
    const int length = 100000;
    std::vector<std::string> texts = {std::string(length, '"'),
                                      std::string(length, '\''),
                                      std::string(length, '\\'),
                                      std::string(length, '?'),
                                      std::string(length, '\xFC'),
                                      std::string(length - 1, '\\') + '"',
                                      Repeated("\"'\\;--", 16666),
                                      Repeated("/*\"*/", 16666),
                                      Repeated("{ts '", 20000),
                                      Repeated("a\r\n\"\"", 20000),
                                      "\"" + std::string(length, 'x') + "\""};
    std::mt19937_64 random(20261201);
    std::string bytes(length, ' ');
    for (char& c : bytes)
        c = static_cast<char>(1 + random() % 255);
    texts.push_back(bytes);
    return texts;
}

class HostileLiterals : public TableTest {
protected:
    void SetUp() override
    {
        TableTest::SetUp();
        // A table that no statement of these tests names.
        DatabaseTest::MakeTable("ZEUGE", "ID INTEGER NOT NULL PRIMARY KEY, WERT INTEGER");
        DatabaseTest::Execute("INSERT INTO ZEUGE (ID, WERT) VALUES (1, 5)");
        MakeTable("WERTE", "ID INTEGER NOT NULL PRIMARY KEY, WERT " + LongTextType());
        Execute("INSERT INTO WERTE (ID, WERT) VALUES (1000000, 'unchanged')");
    }

    void TearDown() override
    {
        EXPECT_EQ(CountFrom("ZEUGE WHERE ID = 1 AND WERT = 5"), 1);
        EXPECT_EQ(CountFrom("ZEUGE"), 1);
        EXPECT_EQ(CountWhere("ID = 1000000 AND WERT = 'unchanged'"), 1);
        TableTest::TearDown();
    }

    /// The literal as the class writes it.
    static std::string LiteralOf(const std::string& text)
    {
        return ToText(ZelDtString(ToCString(text)).ConvToSQL());
    }

    static std::string Insertion(long id, const std::string& text)
    {
        return "INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(id) + ", " +
               LiteralOf(text) + ")";
    }

    /// Checks that the rows from 1 on hold the texts and that there are no others.
    void ExpectRows(const std::vector<std::string>& texts)
    {
        EXPECT_EQ(CountRows(), static_cast<long>(texts.size()) + 1);
        TextSet<1000000> set(m_database);
        set.m_strFilter = "ID < 1000000";
        std::size_t count = 0;
        for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
            ASSERT_LT(count, texts.size());
            ZelDtString value(ZelDtWmNull);
            value.SetFromRecordSet(set, set.m_value);
            ASSERT_TRUE(value.IsDefined());
            ExpectText(ToText(value), texts[count]);
        }
        EXPECT_EQ(count, texts.size());
    }

    static void ExpectText(const std::string& found, const std::string& text)
    {
        if (text.size() < 1000)
            EXPECT_EQ(Bytes(found), Bytes(text));
        else
            EXPECT_TRUE(found == text)
                << "a text of " << text.size() << " bytes came back as one of " << found.size();
    }

    /// Rows whose text is that one, looked for by statement and by filter.
    void ExpectFound(const std::string& text, long id)
    {
        const std::string condition = "WERT = " + LiteralOf(text);
        EXPECT_EQ(CountWhere(condition), 1);
        TextSet<1000000> set(m_database);
        set.m_strFilter = ZelRsStandardLiterals(ToCString(condition));
        set.Open();
        ASSERT_FALSE(set.IsEOF());
        EXPECT_EQ(set.m_id, id);
        ExpectText(ToText(set.m_value), text);
    }

    void Insert(const std::vector<std::string>& texts)
    {
        long id = 0;
        for (const std::string& text : texts)
            EXPECT_EQ(Execute(Insertion(++id, text)), 1) << Bytes(text.substr(0, 100));
    }
};

/// Without the texts that came before.
std::vector<std::string> Distinct(const std::vector<std::string>& texts)
{
    std::vector<std::string> distinct;
    for (const std::string& text : texts)
        if (std::find(distinct.begin(), distinct.end(), text) == distinct.end())
            distinct.push_back(text);
    return distinct;
}

std::vector<std::string> RandomTexts(unsigned seed, int count)
{
    std::mt19937_64 random(seed);
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        // All bytes, or those that mean something often.
        const std::string often = "'\"\\;-#/*?{}\n\r %_()=,:@$`";
        std::string text(static_cast<std::size_t>(random() % 60), ' ');
        for (char& c : text)
            c = random() % 2 == 0 ? often[random() % often.size()]
                                  : static_cast<char>(1 + random() % 255);
        texts.push_back(text);
    }
    return texts;
}

TEST_F(HostileLiterals, AreInsertedAndFound)
{
    const std::vector<std::string> texts = Distinct(HostileTexts());
    Insert(texts);
    ExpectRows(texts);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        SCOPED_TRACE(Bytes(texts[i]));
        ExpectFound(texts[i], static_cast<long>(i) + 1);
    }
}

TEST_F(HostileLiterals, AreInsertedByTheStatementAsItIs)
{
    const std::vector<std::string> texts = HostileTexts();
    long id = 0;
    for (const std::string& text : texts)
        m_database.ExecuteSQL(Insertion(++id, text).c_str());
    ExpectRows(texts);
}

TEST_F(HostileLiterals, AreThereForOthers)
{
    std::vector<std::string> texts;
    for (const std::string& text : Distinct(HostileTexts()))
        if (std::none_of(text.begin(), text.end(), IsLeftOut))
            texts.push_back(text);
    Insert(texts);
    Commit();
    const Rows rows =
        OtherConnection().Query("SELECT ID, HEX(WERT) FROM WERTE WHERE ID < 1000000 ORDER BY ID");
    ASSERT_EQ(rows.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(rows[i], (zeltest::Row{std::to_string(i + 1), HexInDatabase(texts[i])}))
            << Bytes(texts[i]);
}

TEST_F(HostileLiterals, ChangeAndDeleteTheirRowAlone)
{
    std::vector<std::string> texts = Distinct(HostileTexts());
    Insert(texts);
    // Each text takes the place of the one before.
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
        const std::string next = texts[i + 1] + "\x01" + texts[i];
        EXPECT_EQ(Execute("UPDATE WERTE SET WERT = " + LiteralOf(next) + " WHERE WERT = " +
                          LiteralOf(texts[i]) + " AND ID = " + std::to_string(i + 1)),
                  1)
            << Bytes(texts[i]);
        texts[i] = next;
    }
    ExpectRows(texts);
    for (const std::string& text : texts)
        EXPECT_EQ(Execute("DELETE FROM WERTE WHERE WERT = " + LiteralOf(text)), 1) << Bytes(text);
    ExpectRows({});
}

TEST_F(HostileLiterals, OfRandomBytesComeBack)
{
    const std::vector<std::string> texts = Distinct(RandomTexts(20261202, 300));
    Insert(texts);
    ExpectRows(texts);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        SCOPED_TRACE(Bytes(texts[i]));
        ExpectFound(texts[i], static_cast<long>(i) + 1);
    }
}

TEST_F(HostileLiterals, OfRandomBytesComeBackFromTheStatementAsItIs)
{
    const std::vector<std::string> texts = RandomTexts(20261203, 300);
    long id = 0;
    for (const std::string& text : texts)
        m_database.ExecuteSQL(Insertion(++id, text).c_str());
    ExpectRows(texts);
}

TEST_F(HostileLiterals, OfManyBytesComeBack)
{
    const std::vector<std::string> texts = LongHostileTexts();
    Insert(texts);
    ExpectRows(texts);
    ExpectFound(texts.back(), static_cast<long>(texts.size()));
    ExpectFound(texts.front(), 1);
}

TEST_F(HostileLiterals, OfManyBytesComeBackFromTheStatementAsItIs)
{
    const std::vector<std::string> texts = LongHostileTexts();
    long id = 0;
    for (const std::string& text : texts)
        m_database.ExecuteSQL(Insertion(++id, text).c_str());
    ExpectRows(texts);
}

TEST_F(HostileLiterals, SeveralStandInOneStatement)
{
    const std::vector<std::string> texts = Distinct(HostileTexts());
    std::string sql = "INSERT INTO WERTE (ID, WERT) VALUES ";
    for (std::size_t i = 0; i < texts.size(); ++i)
        sql += (i == 0 ? "(" : ", (") + std::to_string(i + 1) + ", " + LiteralOf(texts[i]) + ")";
    EXPECT_EQ(Execute(sql), static_cast<LONGLONG>(texts.size()));
    ExpectRows(texts);
    std::string condition = "ID < 1000000 AND (WERT = 'none'";
    for (const std::string& text : texts)
        condition += " OR WERT = " + LiteralOf(text);
    EXPECT_EQ(CountWhere(condition + ")"), static_cast<long>(texts.size()));
}

TEST_F(HostileLiterals, ComeBackThroughMembersToo)
{
    std::vector<std::string> texts = HostileTexts();
    for (const std::string& text : RandomTexts(20261204, 100))
        texts.push_back(text);
    for (const std::string& text : LongHostileTexts())
        texts.push_back(text);
    TextSet<1000000> set(m_database);
    set.Open();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        set.BeginRow(static_cast<long>(i) + 1);
        ZelDtString(texts[i].c_str()).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(set.Update());
    }
    set.Close();
    ExpectRows(texts);
}

/// Texts that are names of columns are texts all the same.
TEST_F(HostileLiterals, NamesOfColumnsAreNoColumns)
{
    Insert({"first", "second"});
    EXPECT_EQ(Execute("UPDATE WERTE SET WERT = " + LiteralOf("ID") + " WHERE ID = 1"), 1);
    EXPECT_EQ(Execute("UPDATE WERTE SET WERT = " + LiteralOf("WERT") + " WHERE ID = 2"), 1);
    ExpectRows({"ID", "WERT"});
    EXPECT_EQ(CountWhere("WERT = " + LiteralOf("WERT")), 1);
    EXPECT_EQ(Execute("DELETE FROM WERTE WHERE WERT = " + LiteralOf("wert")), 0);
    EXPECT_EQ(Execute("DELETE FROM WERTE WHERE WERT = " + LiteralOf("WERT")), 1);
    ExpectRows({"ID"});
}

class HostileCharacters : public ValueTable<ZelDtChar> {};

TEST_F(HostileCharacters, OfAllCodesAreInsertedFoundAndDeleted)
{
    MakeValueTable();
    for (int code = 0; code < 256; ++code) {
        const std::string literal = ToText(ZelDtChar(static_cast<char>(code)).ConvToSQL());
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(code) + ", " +
                          literal + ")"),
                  1)
            << code;
        m_database.ExecuteSQL(("INSERT INTO WERTE (ID, WERT) VALUES (" +
                               std::to_string(1000 + code) + ", " + literal + ")")
                                  .c_str());
    }
    EXPECT_EQ(CountRows(), 512);
    for (int code = 0; code < 256; ++code) {
        const ZelDtChar value(static_cast<char>(code));
        const std::string text = ColumnOf<ZelDtChar>::Show(value);
        EXPECT_EQ(ReadRow(code).text, text) << code;
        EXPECT_EQ(ReadRow(1000 + code).text, text) << code;
        EXPECT_EQ(Execute("DELETE FROM WERTE WHERE WERT = " + ToText(value.ConvToSQL())), 2)
            << code;
    }
    EXPECT_EQ(CountRows(), 0);
}

// NUL bytes

TEST_F(HostileLiterals, ANulByteIsRefusedAndNothingIsWritten)
{
    Insert({"first"});
    const std::string nul(1, '\0');
    for (const std::string& text :
         {nul, "a" + nul, nul + "a", "a" + nul + "b", "\"" + nul, nul + "\"", nul + nul,
          "a" + nul + "\"); DELETE FROM ZEUGE; --", std::string(100000, 'x') + nul + "y"}) {
        EXPECT_TRUE(
            FailsInDatabase([&] { Execute(Insertion(2, text)); }, AFX_SQL_ERROR_DATA_TRUNCATED));
        EXPECT_TRUE(FailsInDatabase(
            [&] { Execute("UPDATE WERTE SET WERT = " + LiteralOf(text) + " WHERE ID = 1"); },
            AFX_SQL_ERROR_DATA_TRUNCATED));
        EXPECT_TRUE(
            FailsInDatabase([&] { Execute("DELETE FROM WERTE WHERE WERT <> " + LiteralOf(text)); },
                            AFX_SQL_ERROR_DATA_TRUNCATED));
    }
    ExpectRows({"first"});
}

TEST_F(HostileLiterals, ANulByteOfAValueReachesTheCheck)
{
    // As callers write it, by the string class alone.
    const ZelDtString value(CString("a\0b", 3));
    const ZelDtString literal = value.ConvToSQL();
    EXPECT_EQ(literal.GetLength(), 5);
    EXPECT_TRUE(FailsInDatabase(
        [&] {
            ZelRsExecute(m_database, "INSERT INTO WERTE (ID, WERT) VALUES (1, " + literal + ")");
        },
        AFX_SQL_ERROR_DATA_TRUNCATED));
    ExpectRows({});
}

TEST_F(HostileLiterals, ANulByteOutsideOfLiteralsIsRefusedToo)
{
    Insert({"first"});
    const std::string nul(1, '\0');
    for (const std::string& sql :
         {"DELETE FROM WERTE" + nul, "DELETE FROM WERTE" + nul + " WHERE ID = 5",
          nul + "DELETE FROM WERTE", "DELETE FROM WERTE WHERE WERT = 'a" + nul + "'",
          "DELETE FROM WERTE -- " + nul, "DELETE FROM WERTE /* " + nul + " */"})
        EXPECT_TRUE(FailsInDatabase([&] { Execute(sql); }, AFX_SQL_ERROR_DATA_TRUNCATED)) << sql;
    ExpectRows({"first"});
}

TEST_F(HostileLiterals, AQuoteThatIsNotClosedIsRefused)
{
    Insert({"first"});
    for (const char* sql :
         {"DELETE FROM WERTE WHERE WERT <> \"x", "DELETE FROM WERTE WHERE WERT <> 'x",
          "DELETE FROM WERTE WHERE WERT <> \"x\"\"", "DELETE FROM WERTE WHERE WERT <> 'x\""})
        EXPECT_TRUE(FailsInDatabase([&] { Execute(sql); }, AFX_SQL_ERROR_ILLEGAL_MODE)) << sql;
    ExpectRows({"first"});
}

} // namespace
