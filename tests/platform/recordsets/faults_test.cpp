// What goes wrong outside the program: servers that die, files that cannot be written, tables that
// are gone. Every failure is an exception with the driver's text, nothing is half-written, nothing
// waits for ever, and the program goes on.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <fstream>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

using namespace zeltest;

namespace {

/// What a failure may take.
constexpr double kPatience = 30;

/// Catches what an action throws and sees to it that the action does not take long.
template <typename Action>
CaughtDb CatchSoon(Action&& action)
{
    CaughtDb caught;
    EXPECT_LT(Seconds([&] { caught = CatchDb(std::forward<Action>(action)); }), kPatience);
    return caught;
}

class Faults : public NamesTest {
protected:
    void Insert(int id)
    {
        Execute("INSERT INTO NAMES VALUES (" + std::to_string(id) + ",'n" + std::to_string(id) +
                "')");
    }

    /// The table is as it was and the program can use it, with the same objects.
    void ExpectUsable(const Records& stored)
    {
        EXPECT_EQ(Stored(), stored);
        if (!m_database.IsOpen())
            m_database.OpenEx(ConnectOfRun());
        m_database.BeginTrans();
        Insert(9999);
        EXPECT_TRUE(m_database.CommitTrans());
        CNames names(&m_database);
        names.m_strFilter = "ID = 9999";
        names.Open();
        EXPECT_EQ(names.Rest(), Records{"9999 n9999"});
        EXPECT_EQ(Stored().size(), stored.size() + 1);
    }
};

/// A server that dies or cuts the connection.
class LostServerOnMariaDb : public Faults {
protected:
    void SetUp() override
    {
        Faults::SetUp();
        Insert(1);
    }

    /// Lets the server end this connection alone.
    void Disconnect()
    {
        CNames number(&m_database);
        number.m_strSort = "";
        number.Open(CRecordset::forwardOnly, "SELECT CONNECTION_ID(), NULL");
        const long id = number.m_id;
        number.Close();
        OtherConnection().Execute("KILL CONNECTION " + std::to_string(id));
    }

    void StartAgain()
    {
        StartServer();
        m_database.Close();
        m_database.OpenEx(ConnectOfRun());
    }
};

class FileOnSqlite : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_file = FileOfRun(::testing::UnitTest::GetInstance()->current_test_info()->name());
        m_connect = ConnectWith("Database", m_file);
        OtherConnection other{Str(m_connect)};
        other.Execute("CREATE TABLE NAMES (ID INTEGER NOT NULL PRIMARY KEY, NAME TEXT)");
        other.Execute("INSERT INTO NAMES VALUES (1,'n1')");
    }

    std::string CountOfRecords()
    {
        return OtherConnection(Str(m_connect)).QueryOne("SELECT COUNT(*) FROM NAMES");
    }

    /// Adds records of 1000 bytes until the database refuses one; the rest is up to the caller.
    static CaughtDb FillUp(CDatabase& database)
    {
        const std::string text(1000, 'x');
        for (int id = 2; id < 100000; ++id) {
            const CaughtDb caught = CatchDb([&] {
                database.ExecuteSQL(
                    ("INSERT INTO NAMES VALUES (" + std::to_string(id) + ",'" + text + "')")
                        .c_str());
            });
            if (caught.what != "nothing")
                return caught;
        }
        return {"nothing", 0, "", ""};
    }

    std::string m_file;
    CString m_connect;
};

} // namespace

TEST_F(LostServerOnMariaDb, InATransactionUndoesIt)
{
    m_database.BeginTrans();
    Insert(2);
    KillServer();
    EXPECT_TRUE(MatchesDriverError(
        CatchSoon([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (3,'n3')"); }), "erver"));
    BOOL isUndone = TRUE;
    EXPECT_EQ(CatchSoon([&] { isUndone = m_database.Rollback(); }).what, "nothing");
    EXPECT_FALSE(isUndone) << "the server does it";
    EXPECT_EQ(CatchSoon([&] { m_database.Close(); }).what, "nothing");
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { m_database.OpenEx(ConnectOfRun()); })));
    EXPECT_FALSE(m_database.IsOpen());
    StartAgain();
    ExpectUsable({"1 n1"});
}

TEST_F(LostServerOnMariaDb, CannotCommit)
{
    m_database.BeginTrans();
    Insert(2);
    KillServer();
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { m_database.CommitTrans(); }), "erver"));
    EXPECT_FALSE(m_database.Rollback());
    StartAgain();
    ExpectUsable({"1 n1"});
}

TEST_F(LostServerOnMariaDb, KeepsWhatWasCommitted)
{
    m_database.BeginTrans();
    Insert(2);
    m_database.CommitTrans();
    KillServer();
    StartAgain();
    ExpectUsable({"1 n1", "2 n2"});
}

TEST_F(LostServerOnMariaDb, DuringARecordsetsChange)
{
    CNames names(&m_database);
    names.Open();
    m_database.BeginTrans();
    names.AddNew();
    names.m_id = 2;
    names.Update();
    names.Edit();
    names.m_name = "lost";
    KillServer();
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Update(); }), "erver"));
    EXPECT_STREQ(names.m_name, "lost");
    names.CancelUpdate();
    EXPECT_EQ(names.Record(), "1 n1");
    EXPECT_TRUE(CatchSoon([&] { names.Delete(); }).isDb());
    EXPECT_TRUE(CatchSoon([&] { names.Requery(); }).isDb());
    EXPECT_FALSE(names.IsOpen());
    StartAgain();
    names.Open();
    EXPECT_EQ(names.Record(), "1 n1");
    names.Close();
    ExpectUsable({"1 n1"});
}

TEST_F(LostServerOnMariaDb, WhileRecordsAreRead)
{
    Execute("DELETE FROM NAMES");
    Execute("INSERT INTO NAMES SELECT seq, REPEAT('x',40) FROM seq_1_to_300000");
    const UINT kTypes[] = {CRecordset::forwardOnly, CRecordset::snapshot};
    for (const UINT type : kTypes) {
        CNames names(&m_database);
        names.Open(type);
        names.Move(10);
        KillServer();
        long count = 10;
        const CaughtDb caught = CatchSoon([&] {
            for (; !names.IsEOF(); names.MoveNext()) {
                ASSERT_EQ(names.m_id, ++count);
                ASSERT_EQ(names.m_name.GetLength(), 40);
            }
        });
        // Either the driver had them all, or it says that it has not.
        if (caught.what == "nothing")
            EXPECT_EQ(count, 300000);
        else
            EXPECT_TRUE(MatchesDriverError(caught, "erver"));
        EXPECT_EQ(CatchSoon([&] { names.Close(); }).what, "nothing");
        StartAgain();
    }
    Execute("DELETE FROM NAMES");
    ExpectUsable({});
}

TEST_F(LostServerOnMariaDb, CutsASingleConnection)
{
    m_database.BeginTrans();
    Insert(2);
    Disconnect();
    EXPECT_TRUE(MatchesDriverError(
        CatchSoon([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (3,'n3')"); })));
    EXPECT_FALSE(m_database.Rollback());
    m_database.Close();
    ExpectUsable({"1 n1"});
}

TEST_F(LostServerOnMariaDb, DoesNotBringATransactionBack)
{
    m_database.BeginTrans();
    Insert(2);
    Disconnect();
    EXPECT_TRUE(CatchSoon([&] { m_database.ExecuteSQL("SELECT 1"); }).isDb());
    // A connection that came back by itself would commit the second half alone.
    CatchSoon([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (3,'n3')"); });
    EXPECT_TRUE(CatchSoon([&] { m_database.CommitTrans(); }).isDb());
    m_database.Close();
    ExpectUsable({"1 n1"});
}

TEST_F(LostServerOnMariaDb, IsNoHindranceForTheEndOfObjects)
{
    {
        CDatabase database;
        database.OpenEx(ConnectOfRun());
        database.BeginTrans();
        database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
        CNames names(&database);
        names.Open(CRecordset::forwardOnly);
        KillServer();
    }
    StartAgain();
    ExpectUsable({"1 n1"});
}

TEST_F(Faults, TableThatIsDropped)
{
    Insert(1);
    CNames names(&m_database);
    names.Open();
    OtherConnection().Execute("DROP TABLE NAMES");
    names.Edit();
    names.m_name = "lost";
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Update(); }), "NAMES"));
    names.CancelUpdate();
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Delete(); }), "NAMES"));
    EXPECT_TRUE(
        MatchesDriverError(CatchSoon([&] { names.Requery(); }), "NAMES", ByDatabase(1, 1146)));
    EXPECT_FALSE(names.IsOpen());
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    ExpectUsable({});
}

TEST_F(Faults, InTheMiddleOfManyRecordsUndoAll)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(10) NOT NULL" +
                           ByDatabase<std::string>(", CHECK (LENGTH(NAME) <= 10)", ""));
    Insert(1);
    struct {
        const char* what;
        long id;
        const char* name; ///< null for null
        long sqlite;
        long mariadb;
    } const kCases[] = {
        {"a key that is there", 1, "x", 19, 1062},
        {"a column that is too short", 500, "more than ten", 19, 1406},
        {"no null", 500, nullptr, 19, 1048},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        m_database.BeginTrans();
        CNames names(&m_database);
        names.Open();
        const CaughtDb caught = CatchSoon([&] {
            for (long id = 2; id <= 100; ++id) {
                names.AddNew();
                names.m_id = id == 60 ? c.id : id;
                names.m_name = id == 60 ? c.name : "good";
                if (id == 60 && c.name == nullptr)
                    names.SetFieldNull(&names.m_name);
                names.Update();
            }
        });
        EXPECT_TRUE(MatchesDriverError(caught, "", ByDatabase(c.sqlite, c.mariadb)));
        names.Close();
        EXPECT_TRUE(m_database.Rollback());
        EXPECT_EQ(Stored(), Records{"1 n1"});
    }
    ExpectUsable({"1 n1"});
}

TEST_F(Faults, StatementOfManyRowsIsAllOrNothing)
{
    Insert(50);
    EXPECT_TRUE(FailsInDriver(
        [&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'a'),(2,'b'),(50,'c'),(4,'d')"); },
        "", ByDatabase(19, 1062)));
    EXPECT_EQ(Stored(), Records{"50 n50"});
    Insert(51);
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("UPDATE NAMES SET ID=7"); }, "",
                              ByDatabase(19, 1062)));
    EXPECT_EQ(Stored(), (Records{"50 n50", "51 n51"}));
}

/// Files of SQLite have tests of their own.
TEST_F(Faults, LockThatStaysIsTheDatabasesErrorOnMariaDb)
{
    Insert(1);
    Insert(2);
    Execute("SET innodb_lock_wait_timeout=3");
    OtherConnection other;
    other.Execute("BEGIN");
    other.Execute("UPDATE NAMES SET NAME='theirs' WHERE ID=2");
    m_database.BeginTrans();
    Execute("UPDATE NAMES SET NAME='ours' WHERE ID=1");
    EXPECT_TRUE(MatchesDriverError(
        CatchSoon([&] { m_database.ExecuteSQL("UPDATE NAMES SET NAME='ours' WHERE ID=2"); }), "",
        1205));
    EXPECT_TRUE(m_database.Rollback());
    other.Execute("COMMIT");
    ExpectUsable({"1 n1", "2 theirs"});
}

/// Files of SQLite have tests of their own.
TEST_F(Faults, TableThatIsFullOnMariaDb)
{
    Execute("SET max_heap_table_size=16384");
    Execute("CREATE TABLE SMALL (ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)) ENGINE=MEMORY");
    CNames names(&m_database, "SMALL");
    names.Open();
    const CaughtDb caught = CatchSoon([&] {
        for (long id = 1; id < 100000; ++id) {
            names.AddNew();
            names.m_id = id;
            names.Update();
        }
    });
    EXPECT_TRUE(MatchesDriverError(caught, "full", 1114));
    names.Close();
    Execute("DROP TABLE SMALL");
    ExpectUsable({});
}

TEST_F(FileOnSqlite, ThatIsReadOnly)
{
    {
        // From a version of the format that it does not know SQLite only reads; permissions would
        // not stop an administrator.
        std::fstream file(m_file, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(18);
        file.put(3);
    }
    CDatabase database;
    database.OpenEx(m_connect);
    database.BeginTrans();
    EXPECT_TRUE(MatchesDriverError(
        CatchSoon([&] { database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')"); }), "readonly",
        8));
    EXPECT_TRUE(database.Rollback());
    CNames names(&database);
    names.Open();
    EXPECT_EQ(names.Record(), "1 n1");
    names.Edit();
    names.m_name = "x";
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Update(); }), "readonly", 8));
    names.CancelUpdate();
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Delete(); }), "readonly", 8));
    EXPECT_EQ(names.Rest(), Records{"1 n1"});
    names.Close();
    EXPECT_EQ(CountOfRecords(), "1");
}

TEST_F(FileOnSqlite, ThatIsFull)
{
    CDatabase database;
    database.OpenEx(m_connect);
    // SQLite takes the last page for the end of the disk.
    database.ExecuteSQL("PRAGMA max_page_count=30");
    database.BeginTrans();
    EXPECT_TRUE(MatchesDriverError(FillUp(database), "full", 13));
    EXPECT_TRUE(database.Rollback());
    EXPECT_EQ(CountOfRecords(), "1");

    database.BeginTrans();
    EXPECT_TRUE(MatchesDriverError(FillUp(database), "full", 13));
    // What still fits belongs to the transaction all the same, or is refused.
    CatchDb([&] { database.ExecuteSQL("INSERT INTO NAMES VALUES (100000,'small')"); });
    database.Rollback();
    EXPECT_EQ(CountOfRecords(), "1");

    CNames names(&database);
    names.Open();
    database.BeginTrans();
    const CaughtDb caught = CatchSoon([&] {
        for (long id = 2; id < 100000; ++id) {
            names.AddNew();
            names.m_id = id;
            names.m_name = "a name of forty bytes, which fills pages";
            names.Update();
        }
    });
    EXPECT_TRUE(MatchesDriverError(caught, "full", 13));
    names.CancelUpdate();
    names.Close();
    EXPECT_TRUE(database.Rollback());
    EXPECT_EQ(CountOfRecords(), "1");

    database.ExecuteSQL("PRAGMA max_page_count=100000");
    database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
    EXPECT_EQ(CountOfRecords(), "2");
}

#ifndef _WIN32
TEST_F(FileOnSqlite, ThatMustNotGrow)
{
    // The system refuses to write beyond a size, as it does when the disk is full.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    CDatabase database;
    database.OpenEx(m_connect);
    database.ExecuteSQL("PRAGMA cache_size=5"); // so that it writes before the end
    rlimit limit = before;
    limit.rlim_cur = 100000;
    setrlimit(RLIMIT_FSIZE, &limit);
    database.BeginTrans();
    const CaughtDb caught = CatchSoon([&] {
        const CaughtDb filled = FillUp(database);
        EXPECT_TRUE(MatchesDriverError(filled)) << filled;
    });
    EXPECT_EQ(caught.what, "nothing") << caught;
    CatchDb([&] { database.ExecuteSQL("INSERT INTO NAMES VALUES (100000,'small')"); });
    CatchDb([&] { database.Rollback(); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_EQ(CountOfRecords(), "1");
    database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')");
    EXPECT_EQ(CountOfRecords(), "2");
}
#endif

TEST_F(FileOnSqlite, ThatOthersLock)
{
    OtherConnection other{Str(m_connect)};
    other.Execute("BEGIN IMMEDIATE");
    CDatabase database;
    database.SetQueryTimeout(1);
    database.OpenEx(m_connect);
    CNames names(&database);
    names.Open();
    EXPECT_EQ(names.Record(), "1 n1") << "reading is possible";
    names.Edit();
    names.m_name = "ours";
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] { names.Update(); }), "locked", 5));
    other.Execute("COMMIT");
    EXPECT_TRUE(names.Update()) << "the change was still begun";
    EXPECT_EQ(OtherConnection(Str(m_connect)).QueryOne("SELECT NAME FROM NAMES"), "ours");
}

TEST_F(FileOnSqlite, ThatOthersKeepToThemselves)
{
    OtherConnection other{Str(m_connect)};
    other.Execute("BEGIN EXCLUSIVE");
    CDatabase database;
    database.SetLoginTimeout(1);
    database.SetQueryTimeout(1);
    CNames names(&database);
    EXPECT_TRUE(MatchesDriverError(CatchSoon([&] {
                                       database.OpenEx(m_connect);
                                       names.Open();
                                   }),
                                   "locked", 5));
    EXPECT_FALSE(names.IsOpen());
    other.Execute("COMMIT");
    database.Close();
    database.OpenEx(m_connect);
    names.Open();
    EXPECT_EQ(names.Record(), "1 n1");
}

TEST_F(FileOnSqlite, ThatIsDamaged)
{
    {
        OtherConnection other{Str(m_connect)};
        for (int id = 2; id < 400; ++id)
            other.Execute("INSERT INTO NAMES VALUES (" + std::to_string(id) + ",'" +
                          std::string(100, 'x') + "')");
    }
    {
        std::fstream file(m_file, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(8192);
        file << std::string(20000, '\xFF');
    }
    CDatabase database;
    database.OpenEx(m_connect);
    COne<CString> set(&database, 200);
    set.m_strSort = "";
    const CaughtDb caught = CatchSoon([&] {
        set.Open(CRecordset::forwardOnly, "SELECT ID, NAME FROM NAMES");
        while (!set.IsEOF())
            set.MoveNext();
    });
    EXPECT_TRUE(MatchesDriverError(caught, "malformed", 11));
}
