// How record sets find the record that they change or delete.

#include "tests/platform/recordsets/recordsets_testing.h"

using namespace zeltest;

namespace {

constexpr RETCODE kReadOnly = AFX_SQL_ERROR_RECORDSET_READONLY;

/// All columns of the table PAIRS.
class CPairs : public CRecordset {
public:
    explicit CPairs(CDatabase* database, const char* sort = "A,B") : CRecordset(database)
    {
        m_strSort = sort;
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "A", m_a, 20);
        RFX_Text(pFX, "B", m_b, 20);
        RFX_Text(pFX, "C", m_c, 20);
    }
    CString GetDefaultSQL() override { return "PAIRS"; }

    CString m_a;
    CString m_b;
    CString m_c;
};

/// One text of the table PAIRS and nothing that tells its records apart.
class CTextOnly : public CRecordset {
public:
    explicit CTextOnly(CDatabase* database) : CRecordset(database) { m_strSort = "A"; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "C", m_c, 20);
    }
    CString GetDefaultSQL() override { return "PAIRS"; }
    CString m_c;
};

class Keys : public DatabaseTest {
protected:
    static Rows Stored()
    {
        return OtherConnection().Query("SELECT A, B, C FROM PAIRS ORDER BY A, B, C");
    }
};

} // namespace

TEST_F(Keys, OfSeveralColumns)
{
    MakeTable("PAIRS", "A VARCHAR(20) NOT NULL, B VARCHAR(20) NOT NULL, C VARCHAR(20), "
                       "PRIMARY KEY (B, A)");
    Execute("INSERT INTO PAIRS VALUES ('a','x','same'),('a','y','same'),('b','x','same'),"
            "('b','y','same')");
    CPairs pairs(&m_database);
    pairs.Open();
    pairs.MoveNext();
    pairs.Edit();
    pairs.m_c = "ay";
    EXPECT_TRUE(pairs.Update());
    pairs.MoveNext();
    pairs.Delete();
    pairs.MoveNext();
    pairs.Edit();
    pairs.m_a = "c";
    EXPECT_TRUE(pairs.Update());
    EXPECT_EQ(Stored(), (Rows{{"a", "x", "same"}, {"a", "y", "ay"}, {"c", "y", "same"}}));
}

TEST_F(Keys, OfAnyTexts)
{
    MakeTable("PAIRS", "A VARCHAR(20) NOT NULL PRIMARY KEY, B VARCHAR(20), C VARCHAR(20)");
    const std::vector<std::string> kKeys = {"it's", "\"q\"", "\\",           "?",     "%",
                                            "_",    " x",    "\xE4\xDF\x80", "'; --", "\x81\x9D"};
    CPairs pairs(&m_database);
    pairs.Open();
    for (const std::string& key : kKeys) {
        pairs.AddNew();
        pairs.m_a = Cs(key);
        pairs.m_c = "old";
        ASSERT_TRUE(pairs.Update());
    }
    pairs.Requery();
    std::size_t count = 0;
    for (; !pairs.IsEOF(); pairs.MoveNext()) {
        pairs.Edit();
        pairs.m_c = pairs.m_a;
        EXPECT_TRUE(pairs.Update()) << pairs.m_a;
        ++count;
    }
    EXPECT_EQ(count, kKeys.size());
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS WHERE A = C"),
              std::to_string(kKeys.size()));
    for (pairs.MoveFirst(); !pairs.IsEOF(); pairs.MoveNext())
        pairs.Delete();
    EXPECT_EQ(Stored(), Rows{});
}

TEST_F(Keys, ThatNoFieldHolds)
{
    MakeTable("PAIRS", "A VARCHAR(20) NOT NULL PRIMARY KEY, B VARCHAR(20), C VARCHAR(20)");
    Execute("INSERT INTO PAIRS VALUES ('1',NULL,'same'),('2',NULL,'same'),('3',NULL,'same')");
    CTextOnly texts(&m_database);
    texts.Open();
    texts.MoveNext();
    // Whoever cannot tell the records apart must not change one.
    if (!texts.CanUpdate()) {
        EXPECT_TRUE(FailsInDatabase([&] { texts.Edit(); }, kReadOnly));
        EXPECT_TRUE(FailsInDatabase([&] { texts.Delete(); }, kReadOnly));
        EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C='same'"), "3");
        return;
    }
    texts.Edit();
    texts.m_c = "second";
    EXPECT_TRUE(texts.Update());
    EXPECT_EQ(Stored(), (Rows{{"1", kNull, "same"}, {"2", kNull, "second"}, {"3", kNull, "same"}}));
    texts.Delete();
    EXPECT_EQ(Stored(), (Rows{{"1", kNull, "same"}, {"3", kNull, "same"}}));
}

TEST_F(Keys, ThatATableLacks)
{
    MakeTable("PAIRS", "A VARCHAR(20), B VARCHAR(20), C VARCHAR(20)");
    Execute("INSERT INTO PAIRS VALUES ('a','b','c'),('a','b','c'),('a','b','c')");
    CPairs pairs(&m_database);
    pairs.Open();
    EXPECT_TRUE(pairs.CanAppend());
    pairs.AddNew();
    pairs.m_a = "new";
    EXPECT_TRUE(pairs.Update());
    EXPECT_EQ(Stored().size(), 4U);
    if (!pairs.CanUpdate()) {
        EXPECT_TRUE(FailsInDatabase([&] { pairs.Edit(); }, kReadOnly));
        EXPECT_TRUE(FailsInDatabase([&] { pairs.Delete(); }, kReadOnly));
        EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C='c'"), "3");
        return;
    }
    pairs.Edit();
    pairs.m_c = "changed";
    EXPECT_TRUE(pairs.Update());
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C='changed'"), "1");
    pairs.Delete();
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C='c'"), "2");
}

/// MariaDB has no null in a primary key.
TEST_F(Keys, ThatAreNullConcernNoOtherRecordOnSqlite)
{
    MakeTable("PAIRS", "A VARCHAR(20), B VARCHAR(20), C VARCHAR(20), PRIMARY KEY (A, B)");
    Execute("INSERT INTO PAIRS VALUES ('a',NULL,'1'),('a',NULL,'2'),('a','x','3')");
    CPairs pairs(&m_database, "C");
    pairs.Open();
    pairs.Edit();
    pairs.m_c = "changed";
    // Two records have this key: either the right one alone, or none and an error.
    const bool isWritten = CatchDb([&] { pairs.Update(); }).what == "nothing";
    OtherConnection other;
    EXPECT_EQ(other.QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C='changed'"),
              isWritten ? "1" : "0");
    EXPECT_EQ(other.QueryOne("SELECT COUNT(*) FROM PAIRS WHERE C IN ('2','3')"), "2");
}

TEST_F(Keys, OfOtherTypes)
{
    struct {
        const char* type;
        std::vector<const char*> literals;
    } const kCases[] = {
        {"DOUBLE", {"0.1", "0.3", "1e300", "0.30000000000000004"}},
        {"BIGINT", {"9223372036854775807", "9223372036854775806", "-9223372036854775808", "0"}},
        {"DATETIME", {"'2000-01-01 00:00:00'", "'2000-01-01 00:00:01'", "'9999-12-31 23:59:59'"}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.type);
        MakeTable("PAIRS", std::string("A ") + c.type +
                               " NOT NULL PRIMARY KEY, B VARCHAR(20), C VARCHAR(20)");
        for (const char* literal : c.literals)
            Execute(std::string("INSERT INTO PAIRS VALUES (") + literal + ",'b','same')");
        CTextOnly texts(&m_database);
        texts.Open();
        if (!texts.CanUpdate())
            continue;
        int number = 0;
        for (; !texts.IsEOF(); texts.MoveNext()) {
            texts.Edit();
            texts.m_c = Cs("c" + std::to_string(++number));
            EXPECT_TRUE(texts.Update());
        }
        EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(DISTINCT C) FROM PAIRS"),
                  std::to_string(c.literals.size()));
        for (texts.MoveFirst(); !texts.IsEOF(); texts.MoveNext())
            texts.Delete();
        EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM PAIRS"), "0");
    }
}

TEST_F(Keys, OfBytesDoNotHinderReading)
{
    MakeTable("PAIRS", ByDatabase<std::string>("A BLOB", "A VARBINARY(20)") +
                           " NOT NULL PRIMARY KEY, B VARCHAR(20), C VARCHAR(20)");
    Execute("INSERT INTO PAIRS VALUES (X'00FF','b','same'),(X'00FE','b','same')");
    CTextOnly texts(&m_database);
    EXPECT_TRUE(texts.Open());
    EXPECT_STREQ(texts.m_c, "same");
    if (texts.CanUpdate()) {
        texts.Edit();
        texts.m_c = "first";
        EXPECT_TRUE(texts.Update());
        EXPECT_EQ(OtherConnection().QueryOne("SELECT HEX(A) FROM PAIRS WHERE C='first'"), "00FE");
    }
}
