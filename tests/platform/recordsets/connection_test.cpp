// Opening and closing databases, statements, and what a closed database says.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <algorithm>
#include <fstream>
#include <type_traits>

#ifndef _WIN32
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>
#endif

using namespace zeltest;

namespace {

constexpr RETCODE kIllegal = AFX_SQL_ERROR_ILLEGAL_MODE;
constexpr RETCODE kNotConnected = AFX_SQL_ERROR_CONNECT_FAIL;

class Statements : public NamesTest {};

/// Whether a statement reaches the database.
bool Works(CDatabase& database)
{
    const CaughtDb caught = CatchDb([&] { database.ExecuteSQL("SELECT 1"); });
    EXPECT_EQ(caught.what, "nothing") << caught;
    return caught.what == "nothing";
}

#ifndef _WIN32
/// A server that neither answers nor goes away.
class FrozenServerOnMariaDb : public NamesTest {
protected:
    void SetUp() override
    {
        NamesTest::SetUp();
        Fill(1);
        m_database.Close();
        m_database.SetLoginTimeout(1);
        m_database.SetQueryTimeout(1);
        m_database.OpenEx(ConnectOfRun());
    }

    void TearDown() override
    {
        Signal(SIGCONT);
        NamesTest::TearDown();
    }

    /// The signal only asks: a thread that runs at that moment may still answer.
    static void Freeze()
    {
        Signal(SIGSTOP);
        for (int i = 0; i < 1000 && !IsFrozen(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ASSERT_TRUE(IsFrozen());
    }

    /// The server goes on and finds the connection gone; the program connects again.
    void Thaw()
    {
        Signal(SIGCONT);
        m_database.Close();
        m_database.OpenEx(ConnectOfRun());
    }

    /// Catches what an action throws; the driver waits for twice the time that is set.
    template <typename Action>
    static CaughtDb CatchInTime(Action&& action)
    {
        CaughtDb caught;
        const double seconds = Seconds([&] { caught = CatchDb(std::forward<Action>(action)); });
        EXPECT_GE(seconds, 0.8);
        EXPECT_LT(seconds, 10);
        return caught;
    }

private:
    static std::string Server() { return FromEnvironment("ZEL_TEST_SERVER_PID"); }

    static void Signal(int number) { ASSERT_EQ(kill(std::stoi(Server()), number), 0); }

    /// Whether every thread of the server stands still.
    static bool IsFrozen()
    {
        const std::filesystem::directory_iterator threads("/proc/" + Server() + "/task");
        return std::all_of(begin(threads), end(threads),
                           [](const auto& thread) { return IsStopped(thread.path() / "stat"); });
    }

    /// The letter of the state follows the name, which may hold blanks and parentheses.
    static bool IsStopped(const std::filesystem::path& stat)
    {
        std::string line;
        std::getline(std::ifstream(stat), line, '\0');
        const std::size_t name = line.rfind(')');
        return name != std::string::npos && line.compare(name, 3, ") T") == 0;
    }
};
#endif

void ExpectClosed(const CDatabase& database)
{
    EXPECT_FALSE(database.IsOpen());
    EXPECT_EQ(database.m_hdbc, nullptr);
}

} // namespace

static_assert(!std::is_copy_constructible_v<CDatabase>);
static_assert(!std::is_copy_assignable_v<CDatabase>);

TEST(Connections, OpenAndCloseAsOftenAsOneLikes)
{
    CDatabase database;
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CDatabase)));
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CObject)));
    ExpectClosed(database);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(database.OpenEx(ConnectOfRun(), CDatabase::noOdbcDialog));
        EXPECT_TRUE(database.IsOpen());
        EXPECT_NE(database.m_hdbc, nullptr);
        EXPECT_TRUE(Works(database));
        database.Close();
        ExpectClosed(database);
        database.Close();
        ExpectClosed(database);
    }
}

TEST(Connections, SayWhatTheyAreConnectedTo)
{
    CDatabase database;
    database.OpenEx(ConnectOfRun());
    const std::string connect = Str(database.GetConnect());
    EXPECT_EQ(connect.substr(0, 5), "ODBC;");
    const CString rest = Cs(connect.substr(5));
    EXPECT_EQ(AttributeOf(rest, "Driver"), AttributeOf(ConnectOfRun(), "Driver")) << connect;
    EXPECT_EQ(AttributeOf(rest, "Database"), AttributeOf(ConnectOfRun(), "Database")) << connect;
    const std::string name = Str(database.GetDatabaseName());
    if (IsSqlite())
        EXPECT_NE(name, "");
    else
        EXPECT_EQ(name, "test");
    EXPECT_TRUE(database.CanUpdate());
    EXPECT_TRUE(database.CanTransact());
}

TEST(Connections, OpenAgainWithWhatGetConnectTells)
{
    CDatabase first;
    first.OpenEx(ConnectOfRun());
    CDatabase second;
    EXPECT_TRUE(second.OpenEx(first.GetConnect()));
    EXPECT_TRUE(Works(second));
    EXPECT_STREQ(second.GetDatabaseName(), first.GetDatabaseName());
}

TEST(Connections, DropTheWordInFrontOfTheString)
{
    CDatabase database;
    EXPECT_TRUE(database.OpenEx("ODBC;" + ConnectOfRun()));
    EXPECT_TRUE(Works(database));
    EXPECT_EQ(Str(database.GetConnect()).substr(0, 5), "ODBC;");
    EXPECT_NE(Str(database.GetConnect()).substr(5, 5), "ODBC;");
}

TEST(Connections, AcceptAndRefuseOptions)
{
    struct {
        DWORD options;
        bool isAccepted;
    } const kCases[] = {
        {0, true},
        {CDatabase::noOdbcDialog, true},
        {CDatabase::useCursorLib, true},
        {CDatabase::openReadOnly, true},
        {CDatabase::useCursorLib | CDatabase::noOdbcDialog | CDatabase::openReadOnly, true},
        {CDatabase::openExclusive, false},
        {CDatabase::forceOdbcDialog, false},
        {CDatabase::openExclusive | CDatabase::noOdbcDialog, false},
    };
    for (const auto& c : kCases) {
        CDatabase database;
        if (c.isAccepted) {
            EXPECT_TRUE(database.OpenEx(ConnectOfRun(), c.options)) << c.options;
            EXPECT_TRUE(Works(database)) << c.options;
            EXPECT_EQ(database.CanUpdate() != FALSE, (c.options & CDatabase::openReadOnly) == 0);
        } else {
            EXPECT_TRUE(
                FailsInDatabase([&] { database.OpenEx(ConnectOfRun(), c.options); }, kNotConnected))
                << c.options;
            ExpectClosed(database);
        }
    }
}

TEST(Connections, RefuseToOpenTwice)
{
    CDatabase database;
    database.OpenEx(ConnectOfRun());
    EXPECT_TRUE(FailsInDatabase([&] { database.OpenEx(ConnectOfRun()); }, kIllegal));
    EXPECT_TRUE(FailsInDatabase([&] { database.Open("zel_test"); }, kIllegal));
    EXPECT_TRUE(database.IsOpen());
    EXPECT_TRUE(Works(database));
}

TEST(Connections, OpenASourceByItsName)
{
    CDatabase database;
    EXPECT_TRUE(database.Open("zel_test"));
    EXPECT_TRUE(database.CanUpdate());
    // What depends on the kind of source holds although only the source tells which that is.
    database.ExecuteSQL("DROP TABLE IF EXISTS SOURCES");
    database.ExecuteSQL("CREATE TABLE SOURCES (A VARCHAR(20))");
    database.ExecuteSQL("INSERT INTO SOURCES VALUES ('\xE4\x80\\')");
    OtherConnection other;
    EXPECT_EQ(other.QueryOne("SELECT HEX(A) FROM SOURCES"), "C3A4E282AC5C");
    database.ExecuteSQL("DROP TABLE SOURCES");
    database.Close();

    EXPECT_TRUE(database.Open("zel_test", FALSE, TRUE));
    EXPECT_FALSE(database.CanUpdate());
    database.Close();
    EXPECT_TRUE(FailsInDatabase([&] { database.Open("zel_test", TRUE); }, kNotConnected));
    ExpectClosed(database);
}

TEST(Connections, TakeFurtherAttributesOfANamedSource)
{
    CDatabase database;
    if (IsSqlite()) {
        const std::string file = FileOfRun("further.db");
        EXPECT_TRUE(database.Open("zel_test", FALSE, FALSE, ("ODBC;Database=" + file).c_str()));
        database.ExecuteSQL("CREATE TABLE ONLY_HERE (A INTEGER)");
        EXPECT_TRUE(std::ifstream(file).good());
    } else {
        EXPECT_TRUE(database.Open("zel_test", FALSE, FALSE, "ODBC;DATABASE=mysql"));
        EXPECT_STREQ(database.GetDatabaseName(), "mysql");
    }
}

TEST(Connections, TellWhyTheyFail)
{
    struct Case {
        CString connect;
        std::string part; ///< of the text
    };
    std::vector<Case> cases = {
        {"DSN=there_is_no_such_source", "not found"},
        {"Driver=/there/is/no/driver.so;Database=x", "/there/is/no/driver.so"},
        {"", ""},
        {"ODBC;", ""},
        {"this is no connection string", ""},
        {";;;=;=", ""},
    };
    if (!IsSqlite()) {
        cases.push_back({ConnectWith("DATABASE", "there_is_none"), "there_is_none"});
        cases.push_back({ConnectWith("PORT", "1"), "127.0.0.1"});
        cases.push_back({ConnectWith("UID", "nobody_knows"), "nobody_knows"});
        cases.push_back({ConnectWith("PWD", "secret_word"), "root"});
    }
    CDatabase database;
    for (const Case& c : cases) {
        const CaughtDb caught = CatchDb([&] { database.OpenEx(c.connect); });
        EXPECT_TRUE(MatchesDriverError(caught, c.part)) << c.connect;
        // Messages end up in logs.
        EXPECT_EQ(caught.error.find("secret_word"), std::string::npos) << caught;
        ExpectClosed(database);
    }
    EXPECT_TRUE(FailsInDriver([&] { database.Open("there_is_no_such_source"); }, "not found"));
    ExpectClosed(database);
    EXPECT_TRUE(database.OpenEx(ConnectOfRun()));
    EXPECT_TRUE(Works(database));
}

/// Only SQLite opens files.
TEST(Connections, FailOverAFileThatCannotBeOpenedOnSqlite)
{
    // The driver may notice with the first statement only.
    const auto use = [](const std::string& file) {
        CDatabase database;
        database.OpenEx(ConnectWith("Database", file));
        database.ExecuteSQL("CREATE TABLE T (A INTEGER)");
    };
    EXPECT_TRUE(FailsInDriver([&] { use("/there/is/no/folder/x.db"); }, "", 14));

    const std::string noDatabase = FileOfRun("no_database.db");
    std::ofstream(noDatabase) << std::string(4096, 'x');
    EXPECT_TRUE(FailsInDriver([&] { use(noDatabase); }, "not a database", 26));
}

TEST(Connections, DoNothingWhileClosed)
{
    CDatabase database;
    const auto expectRefusals = [&] {
        const std::function<void()> kCalls[] = {
            [&] { database.ExecuteSQL("SELECT 1"); }, [&] { database.BeginTrans(); },
            [&] { database.CommitTrans(); },          [&] { database.Rollback(); },
            [&] { database.GetDatabaseName(); },      [&] { database.CanUpdate(); },
            [&] { database.CanTransact(); },
        };
        int number = 0;
        for (const auto& call : kCalls)
            EXPECT_TRUE(FailsInDatabase(call, kNotConnected)) << "call " << number++;
    };
    expectRefusals();
    database.OpenEx(ConnectOfRun());
    database.Close();
    expectRefusals();

    CNames names(&database);
    EXPECT_TRUE(CatchDb([&] { names.Open(); }).isDb());
    EXPECT_FALSE(names.IsOpen());
}

TEST_F(Statements, ChangeTheDatabaseAtOnce)
{
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'one')");
    EXPECT_EQ(Stored(), Records{"1 one"});
    m_database.ExecuteSQL("UPDATE NAMES SET NAME='two'");
    EXPECT_EQ(Stored(), Records{"1 two"});
    m_database.ExecuteSQL("DELETE FROM NAMES");
    EXPECT_EQ(Stored(), Records{});
}

TEST_F(Statements, MayConcernNoRow)
{
    m_database.ExecuteSQL("UPDATE NAMES SET NAME='x' WHERE 1=0");
    m_database.ExecuteSQL("DELETE FROM NAMES WHERE ID=7");
    EXPECT_EQ(Stored(), Records{});
}

TEST_F(Statements, DropRowsThatTheyReturn)
{
    Fill(300);
    for (int i = 0; i < 5; ++i)
        m_database.ExecuteSQL("SELECT ID, NAME FROM NAMES");
    // Nothing that is still being read stands in the way of others.
    OtherConnection().Execute("UPDATE NAMES SET NAME='x' WHERE ID=1");
    m_database.ExecuteSQL("DROP TABLE NAMES");
}

TEST_F(Statements, FailWithTheTextOfTheDriver)
{
    struct {
        const char* sql;
        const char* part;
        long sqlite;
        long mariadb;
    } const kCases[] = {
        {"SELEKT 1", "SELEKT", 1, 1064},
        {"SELECT * FROM NO_SUCH_TABLE", "NO_SUCH_TABLE", 1, 1146},
        {"UPDATE NAMES SET NO_SUCH_COLUMN=1", "NO_SUCH_COLUMN", 1, 1054},
        {"INSERT INTO NAMES VALUES (1)", "", 1, 1136},
        {"CREATE TABLE NAMES (A INTEGER)", "NAMES", 1, 1050},
    };
    for (const auto& c : kCases) {
        EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL(c.sql); }, c.part,
                                  ByDatabase(c.sqlite, c.mariadb)))
            << c.sql;
    }
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'n')");
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'m')"); },
                              "", ByDatabase(19, 1062)));
    EXPECT_EQ(Stored(), Records{"1 n"});
}

TEST_F(Statements, NeedAText)
{
    EXPECT_TRUE(FailsInDatabase([&] { m_database.ExecuteSQL(nullptr); }, kIllegal));
    EXPECT_TRUE(Works(m_database));
}

TEST_F(Statements, AreInTheCodePageOfTheProgram)
{
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'Gr\xF6\xDF"
                          "e \x80')");
    EXPECT_EQ(OtherConnection().QueryOne("SELECT HEX(NAME) FROM NAMES"), "4772C3B6C39F6520E282AC");
    // So are messages.
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("SELECT 1 FROM K\xE4se"); }, "K\xE4se"));
}

TEST_F(Statements, LeaveBackslashesAlone)
{
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'a\\'),(2,'b\\n\\\\')");
    EXPECT_EQ(Stored(), (Records{"1 a\\", "2 b\\n\\\\"}));
}

/// SQLite looks for a column of that name first.
TEST_F(Statements, TakeDoubleQuotesForTextsOnMariaDb)
{
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,\"it's \"\"so\"\" \\\")");
    EXPECT_EQ(Stored(), Records{"1 it's \"so\" \\"});
}

TEST_F(Statements, AreGivenUpAfterTheSetTime)
{
    m_database.Close();
    m_database.SetQueryTimeout(1);
    m_database.OpenEx(ConnectOfRun());
    Fill(1);
    OtherConnection other;
    other.Execute(ByDatabase("BEGIN EXCLUSIVE", "BEGIN"));
    other.Execute("UPDATE NAMES SET NAME='theirs' WHERE ID=1");
    CaughtDb caught;
    const double seconds = Seconds(
        [&] { caught = CatchDb([&] { m_database.ExecuteSQL("UPDATE NAMES SET NAME='ours'"); }); });
    EXPECT_TRUE(MatchesDriverError(caught));
    EXPECT_GE(seconds, 0.8);
    EXPECT_LT(seconds, 10);
    other.Execute("COMMIT");
    EXPECT_EQ(Stored(), Records{"1 theirs"});
    m_database.ExecuteSQL("UPDATE NAMES SET NAME='ours'");
    EXPECT_EQ(Stored(), Records{"1 ours"});
}

TEST_F(Statements, WaitForALockThatGoes)
{
    // Unlimited patience is accepted too.
    m_database.SetQueryTimeout(0);
    m_database.SetLoginTimeout(0);
    m_database.Close();
    m_database.OpenEx(ConnectOfRun());
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'n1')");
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

TEST_F(Statements, AreRefusedByNobodyOnTwoConnections)
{
    CDatabase second;
    second.OpenEx(ConnectOfRun());
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'n1')");
    second.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
}

#ifndef _WIN32
TEST_F(FrozenServerOnMariaDb, EndsAStatementInTime)
{
    m_database.BeginTrans();
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
    Freeze();
    EXPECT_TRUE(MatchesDriverError(
        CatchInTime([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (3,'n3')"); })));
    BOOL isUndone = TRUE;
    EXPECT_LT(Seconds([&] { isUndone = m_database.Rollback(); }), 10);
    EXPECT_FALSE(isUndone) << "the server does it";
    Thaw();
    EXPECT_EQ(Stored(), Records{"1 n1"});
    EXPECT_TRUE(Works(m_database));
}

TEST_F(FrozenServerOnMariaDb, EndsReadingInTime)
{
    CNames names(&m_database);
    Freeze();
    EXPECT_TRUE(MatchesDriverError(CatchInTime([&] { names.Open(); })));
    EXPECT_FALSE(names.IsOpen());
    Thaw();
    names.Open();
    EXPECT_EQ(names.Rest(), Records{"1 n1"});
}

TEST_F(FrozenServerOnMariaDb, EndsACommitInTime)
{
    m_database.BeginTrans();
    m_database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
    Freeze();
    EXPECT_TRUE(MatchesDriverError(CatchInTime([&] { m_database.CommitTrans(); })));
    EXPECT_LT(Seconds([&] { m_database.Rollback(); }), 10);
    Thaw();
    EXPECT_TRUE(Works(m_database));
}

TEST_F(FrozenServerOnMariaDb, EndsConnectingInTime)
{
    CDatabase other;
    other.SetLoginTimeout(1);
    other.SetQueryTimeout(1);
    Freeze();
    EXPECT_TRUE(MatchesDriverError(CatchInTime([&] { other.OpenEx(ConnectOfRun()); })));
    ExpectClosed(other);
    Thaw();
    other.OpenEx(ConnectOfRun());
    EXPECT_TRUE(Works(other));
}
#endif
