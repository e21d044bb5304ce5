// What a record set asks the database for: tables, statements, filters, orders and parameters.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <cfloat>
#include <climits>

using namespace zeltest;

namespace {

constexpr UINT kDefaultType = AFX_DB_USE_DEFAULT_TYPE;

class Queries : public NamesTest {
protected:
    void SetUp() override
    {
        NamesTest::SetUp();
        Execute("INSERT INTO NAMES VALUES (1,'c'),(2,'a'),(3,NULL),(4,'b'),(5,'a')");
    }

    Records Read(CNames& names, const char* sql = nullptr)
    {
        names.Open(kDefaultType, sql);
        Records records = names.Rest();
        names.Close();
        return records;
    }

    /// Reads, adds, changes and deletes records of a table of that name, which it makes first.
    void ExpectTable(const std::string& table)
    {
        SCOPED_TRACE(table);
        MakeTable(table, "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
        CNames names(&m_database, table.c_str());
        const CaughtDb caught = CatchDb([&] {
            names.Open();
            for (const long id : {1, 2}) {
                names.AddNew();
                names.m_id = id;
                names.m_name = "x";
                names.Update();
            }
            names.Requery();
            EXPECT_TRUE(names.CanUpdate());
            names.Edit();
            names.m_name = "z";
            EXPECT_TRUE(names.Update());
            names.MoveNext();
            names.Delete();
            names.Requery();
            EXPECT_EQ(names.Rest(), Records{"1 z"});
            names.Close();
        });
        EXPECT_EQ(caught.what, "nothing") << caught;
        Execute("DROP TABLE " + table);
        EXPECT_EQ(Stored().size(), 5U) << "nothing happened to another table";
    }
};

std::string Enclosed(const std::string& name, char quote)
{
    std::string text(1, quote);
    for (const char c : name) {
        text += c;
        if (c == quote)
            text += c;
    }
    return text + quote;
}

class Parameters : public ValuesTest {
protected:
    /// Each of the values as parameter finds its own record only.
    template <typename T>
    void ExpectFound(const std::string& type, const std::vector<T>& values)
    {
        SCOPED_TRACE(type);
        MakeValues(type);
        COne<T> writer(&m_database);
        writer.Open();
        long id = 0;
        for (const T& value : values)
            writer.Add(++id, &value);
        writer.Add(++id, nullptr);

        COne<T> reader(&m_database);
        reader.m_hasParameter = true;
        reader.m_strFilter = "V = ?";
        reader.m_parameter = values.front();
        reader.Open();
        for (std::size_t i = 0; i < values.size(); ++i) {
            reader.m_parameter = values[i];
            reader.Requery();
            ASSERT_FALSE(reader.IsEOF()) << "value " << i;
            EXPECT_EQ(reader.m_id, static_cast<long>(i) + 1);
            reader.MoveNext();
            EXPECT_TRUE(reader.IsEOF()) << "value " << i;
        }
    }
};

/// Fields and parameters of several kinds that alternate.
class CMixed : public CRecordset {
public:
    explicit CMixed(CDatabase* database) : CRecordset(database)
    {
        m_nFields = 2;
        m_nParams = 3;
        m_strFilter = "(ID = ? OR ID = ?) AND NAME = ?";
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::param);
        RFX_Int(pFX, "FIRST", m_first);
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
        pFX->SetFieldType(CFieldExchange::param);
        RFX_Long(pFX, "SECOND", m_second);
        RFX_Text(pFX, "WHICH", m_which, 40);
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "NAME", m_name, 40);
    }
    CString GetDefaultSQL() override { return "NAMES"; }

    long m_id = 0;
    CString m_name;
    int m_first = 0;
    long m_second = 0;
    CString m_which;
};

/// A set that connects by itself.
class CAlone : public CNames {
public:
    explicit CAlone(CString connect) : CNames(nullptr), m_connect(connect) {}
    CString GetDefaultConnect() override { return m_connect; }

private:
    CString m_connect;
};

} // namespace

TEST_F(Queries, TakeTheDefault)
{
    CNames names(&m_database);
    names.Open();
    EXPECT_STREQ(names.GetSQL(), "NAMES");
    EXPECT_EQ(names.Rest(), (Records{"1 c", "2 a", "3 <NULL>", "4 b", "5 a"}));
}

TEST_F(Queries, AreFilteredAndSorted)
{
    struct {
        const char* filter;
        const char* sort;
        Records records;
    } const kCases[] = {
        {"", "ID", {"1 c", "2 a", "3 <NULL>", "4 b", "5 a"}},
        {"", "ID DESC", {"5 a", "4 b", "3 <NULL>", "2 a", "1 c"}},
        {"NAME IS NOT NULL", "NAME, ID DESC", {"5 a", "2 a", "4 b", "1 c"}},
        {"NAME = 'a'", "ID", {"2 a", "5 a"}},
        {"NAME = 'a' OR NAME = 'c'", "NAME, ID", {"2 a", "5 a", "1 c"}},
        {"ID BETWEEN 2 AND 4", "ID", {"2 a", "3 <NULL>", "4 b"}},
        {"NAME IS NULL", "", {"3 <NULL>"}},
        {"1 = 0", "ID", {}},
        {"NAME = ' ORDER BY WHERE '", "", {}},
    };
    for (const auto& c : kCases) {
        CNames names(&m_database);
        names.m_strFilter = c.filter;
        names.m_strSort = c.sort;
        EXPECT_EQ(Read(names), c.records) << c.filter << ", " << c.sort;
    }
}

TEST_F(Queries, AreRunAgainWithWhatHoldsThen)
{
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    names.m_strFilter = "ID > 2";
    names.m_strSort = "ID DESC";
    EXPECT_EQ(names.Record(), "2 a") << "not before Requery";
    EXPECT_TRUE(names.Requery());
    EXPECT_EQ(names.Rest(), (Records{"5 a", "4 b", "3 <NULL>"}));
    Execute("DELETE FROM NAMES WHERE ID > 3");
    names.Requery();
    EXPECT_EQ(names.Rest(), Records{"3 <NULL>"});
    names.m_strFilter = "";
    names.m_strSort = "ID";
    names.Requery();
    EXPECT_EQ(names.Rest(), (Records{"1 c", "2 a", "3 <NULL>"}));
}

TEST_F(Queries, ThatFailLeaveTheSetClosed)
{
    CNames names(&m_database);
    names.m_strFilter = "NO_SUCH_COLUMN = 1";
    EXPECT_TRUE(FailsInDriver([&] { names.Open(); }, "NO_SUCH_COLUMN", ByDatabase(1, 1054)));
    EXPECT_FALSE(names.IsOpen());
    names.m_strFilter = "";
    names.m_strSort = "NO_SUCH_COLUMN";
    EXPECT_TRUE(FailsInDriver([&] { names.Open(); }, "NO_SUCH_COLUMN", ByDatabase(1, 1054)));
    EXPECT_FALSE(names.IsOpen());
    names.m_strSort = "ID";
    EXPECT_TRUE(names.Open());
    names.m_strFilter = "this is nonsense";
    EXPECT_TRUE(FailsInDriver([&] { names.Requery(); }));
    EXPECT_FALSE(names.IsOpen());
    names.m_strFilter = "ID=1";
    EXPECT_TRUE(names.Open());
    EXPECT_EQ(names.Record(), "1 c");
    EXPECT_TRUE(FailsInDatabase([&] { names.Open(); }, AFX_SQL_ERROR_ILLEGAL_MODE));
    EXPECT_TRUE(names.IsOpen());
}

TEST_F(Queries, OfAMissingTableAreTheDatabasesError)
{
    CNames names(&m_database, "NO_SUCH_TABLE");
    EXPECT_TRUE(FailsInDriver([&] { names.Open(); }, "NO_SUCH_TABLE", ByDatabase(1, 1146)));
    EXPECT_FALSE(names.IsOpen());
    MakeTable("NO_SUCH_TABLE", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    EXPECT_TRUE(names.Open());
}

TEST_F(Queries, MayBeStatementsOfTheirOwn)
{
    CNames names(&m_database);
    names.m_strSort = "";
    const Records kTwo = {"2 a", "5 a"};
    for (const char* sql : {
             "SELECT ID, NAME FROM NAMES WHERE NAME = 'a' ORDER BY ID",
             "select ID, NAME from NAMES where NAME = 'a' order by ID",
             " \t\r\n SELECT ID, NAME FROM NAMES WHERE NAME='a' ORDER BY ID",
             "SELECT\nID,NAME\nFROM NAMES\nWHERE NAME='a'\nORDER BY ID",
             "SELECT DISTINCT N.ID, N.NAME FROM NAMES N WHERE N.NAME='a' ORDER BY N.ID",
             "SELECT 2, 'a' UNION SELECT 5, 'a' ORDER BY 1",
         })
        EXPECT_EQ(Read(names, sql), kTwo) << sql;
}

TEST_F(Queries, OfTheirOwnAreFilteredAndSortedToo)
{
    CNames names(&m_database);
    names.m_strFilter = "NAME = 'a'";
    names.m_strSort = "ID DESC";
    EXPECT_EQ(Read(names, "SELECT ID, NAME FROM NAMES"), (Records{"5 a", "2 a"}));
}

/// SQLite has no procedures.
TEST_F(Queries, MayCallAProcedureOnMariaDb)
{
    Execute("CREATE PROCEDURE NAMES_FROM(IN LEAST INTEGER) "
            "SELECT ID, NAME FROM NAMES WHERE ID >= LEAST ORDER BY ID");
    CNames names(&m_database);
    names.m_strSort = "";
    EXPECT_EQ(Read(names, "CALL NAMES_FROM(4)"), (Records{"4 b", "5 a"}));
    EXPECT_EQ(Read(names, "{CALL NAMES_FROM(5)}"), Records{"5 a"});
    names.m_hasParameter = true;
    names.m_least = 4;
    EXPECT_EQ(Read(names, "CALL NAMES_FROM(?)"), (Records{"4 b", "5 a"}));
    m_database.ExecuteSQL("DROP PROCEDURE NAMES_FROM");
    names.m_hasParameter = false;
    EXPECT_EQ(Read(names, "SELECT ID, NAME FROM NAMES WHERE ID=1"), Records{"1 c"})
        << "the connection is free again";
}

TEST_F(Queries, TakeTablesOfAnyName)
{
    for (const char* table : {"SELECTION", "selected", "CALLER", "call_list",
                              "Stra\xDF"
                              "e"})
        ExpectTable(table);
    for (const char* name :
         {"select", "order", "a table", "T; DROP TABLE NAMES; --", "it's", "say \"so\"", "what?",
          "100%", "K\xE4ufer", "a`b", "back\\slash", "/* no */", "(x)", "a.b", "[x]"}) {
        // SQLite's driver does not know backticks, but SQLite does.
        const bool isPlain = std::string(name).find_first_of(";?'\"") == std::string::npos;
        if (!IsSqlite() || isPlain)
            ExpectTable(Enclosed(name, '`'));
        if (IsSqlite())
            ExpectTable(Enclosed(name, '"'));
    }
}

TEST_F(Queries, TakeTablesWithTheirSchema)
{
    const std::string schema = ByDatabase<std::string>("main", "test");
    for (const std::string& table : {schema + ".NAMES", "`" + schema + "`.`NAMES`"}) {
        SCOPED_TRACE(table);
        CNames names(&m_database, table.c_str());
        names.m_strFilter = "ID = 1";
        names.Open();
        EXPECT_TRUE(names.CanUpdate());
        names.Edit();
        names.m_name = "of " + Cs(schema);
        EXPECT_TRUE(names.Update());
        EXPECT_EQ(Stored()[0], "1 of " + schema);
        names.Edit();
        names.m_name = "c";
        names.Update();
    }
}

TEST_F(Queries, TellSimilarNamesApart)
{
    // An underline is a wildcard where catalogues are asked.
    MakeTable("AXB", "ID INTEGER NOT NULL, NAME VARCHAR(40) NOT NULL PRIMARY KEY");
    MakeTable("A_B", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    Execute("INSERT INTO A_B VALUES (1,'same'),(2,'same')");
    CNames names(&m_database, "A_B");
    names.Open();
    names.MoveNext();
    names.Edit();
    names.m_name = "other";
    EXPECT_TRUE(names.Update());
    names.Requery();
    EXPECT_EQ(names.Rest(), (Records{"1 same", "2 other"}));
}

TEST_F(Queries, DoNotExecuteWhatANameHides)
{
    for (const char* table : {"NAMES; DROP TABLE NAMES", "NAMES; DELETE FROM NAMES; --",
                              "NAMES WHERE 1=0; DELETE FROM NAMES"}) {
        CNames names(&m_database, table);
        names.m_strSort = "";
        CatchDb([&] { names.Open(); });
        CatchDb([&] { names.Close(); });
        EXPECT_EQ(Stored().size(), 5U) << table;
    }
    CNames names(&m_database);
    names.m_strSort = "";
    names.m_strFilter = "1=1; DELETE FROM NAMES";
    CatchDb([&] { names.Open(); });
    EXPECT_EQ(Stored().size(), 5U);
}

TEST_F(Queries, ConnectByThemselves)
{
    CAlone names("ODBC;" + ConnectOfRun());
    EXPECT_TRUE(names.Open());
    EXPECT_EQ(names.Rest().size(), 5U);
    names.AddNew();
    names.m_id = 6;
    names.m_name = "six";
    EXPECT_TRUE(names.Update());
    names.Close();
    EXPECT_EQ(Stored()[5], "6 six");
    EXPECT_TRUE(names.Open());
    EXPECT_EQ(names.Record(), "1 c");
}

TEST_F(Queries, NeedADatabaseThatCanBeReached)
{
    CAlone unknown("ODBC;DSN=there_is_no_such_source");
    EXPECT_TRUE(FailsInDriver([&] { unknown.Open(); }, "not found"));
    EXPECT_FALSE(unknown.IsOpen());
    CAlone nothing("");
    EXPECT_TRUE(CatchDb([&] { nothing.Open(); }).isDb());
    EXPECT_FALSE(nothing.IsOpen());
}

TEST_F(Parameters, OfEveryKindFindTheirRecord)
{
    ExpectFound<int>("INTEGER", {0, 1, -1, INT_MAX, INT_MIN});
    ExpectFound<long>("BIGINT", {0, 1, -1, INT_MAX, INT_MIN});
    ExpectFound<BYTE>("SMALLINT", {0, 1, 128, 255});
    ExpectFound<Truth>("SMALLINT", {{FALSE}, {TRUE}});
    ExpectFound<double>("DOUBLE", {0.0, 0.1, 1.0 / 3, DBL_MAX, DBL_MIN, -1e-300});
    ExpectFound<float>("DOUBLE", {0.0F, 0.5F, 0.1F, FLT_MAX, FLT_MIN});
    ExpectFound<TIMESTAMP_STRUCT>("DATETIME", {Stamp(1753, 1, 1), Stamp(2000, 2, 29, 1, 2, 3),
                                               Stamp(9999, 12, 31, 23, 59, 59)});
    ExpectFound<COleDateTime>(
        "DATETIME", {COleDateTime(1753, 1, 1, 0, 0, 0), COleDateTime(9999, 12, 31, 23, 59, 59)});
    ExpectFound<CString>("VARCHAR(40)",
                         {"", "x", "it's", "\"", "\\", "' OR '1'='1", "\xE4\xDF\x80", "?", "%"});
}

TEST_F(Parameters, AreTakenInTheirOrder)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    Execute("INSERT INTO NAMES VALUES (1,'a'),(2,'a'),(3,'b'),(4,'a')");
    CMixed set(&m_database);
    set.m_first = 1;
    set.m_second = 3;
    set.m_which = "a";
    set.Open();
    EXPECT_EQ(set.m_id, 1);
    set.MoveNext();
    EXPECT_TRUE(set.IsEOF());
    set.m_which = "b";
    set.Requery();
    EXPECT_EQ(set.m_id, 3);
    set.m_first = 2;
    set.m_second = 4;
    set.Requery();
    EXPECT_TRUE(set.IsEOF());
}

TEST_F(Parameters, MayStandInAStatement)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    Execute("INSERT INTO NAMES VALUES (1,'a?'),(2,'b'),(3,'c')");
    CNames names(&m_database);
    names.m_hasParameter = true;
    names.m_least = 2;
    names.m_strSort = "";
    names.Open(kDefaultType,
               "SELECT ID, NAME FROM NAMES WHERE ID >= ? AND NAME <> 'a?' ORDER BY ID");
    EXPECT_EQ(names.Rest(), (Records{"2 b", "3 c"}));
    names.m_least = 3;
    names.Requery();
    EXPECT_EQ(names.Rest(), Records{"3 c"});
}

TEST_F(Parameters, ThatDoNotFitAreRefused)
{
    MakeValues("VARCHAR(20)");
    Execute("INSERT INTO VALS VALUES (1,'abc')");
    COne<CString> set(&m_database, 5);
    set.m_hasParameter = true;
    set.m_strFilter = "V = ?";
    set.m_parameter = "abcdef";
    EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
    EXPECT_FALSE(set.IsOpen());
    if (IsSqlite()) {
        // The driver would cut it and find what was not asked for.
        set.m_parameter = Cs(std::string("abc\0d", 5));
        EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
    }
    set.m_parameter = "abc";
    EXPECT_TRUE(set.Open());
    EXPECT_EQ(set.m_id, 1);
}

TEST_F(Parameters, ThatAreNullFindNothing)
{
    MakeValues("DATETIME");
    Execute("INSERT INTO VALS VALUES (1,'2000-01-01 00:00:00'),(2,NULL)");
    COne<COleDateTime> set(&m_database);
    set.m_hasParameter = true;
    set.m_strFilter = "V = ?";
    set.m_parameter.m_status = COleDateTime::null;
    set.Open();
    EXPECT_TRUE(set.IsEOF());
}
