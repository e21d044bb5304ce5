// What counts, and when.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <memory>

using namespace zeltest;

namespace {

constexpr RETCODE kIllegal = AFX_SQL_ERROR_ILLEGAL_MODE;

class Transactions : public NamesTest {
protected:
    void Insert(int id)
    {
        Execute("INSERT INTO NAMES VALUES (" + std::to_string(id) + ",'n" + std::to_string(id) +
                "')");
    }

    /// Whether no transaction is open: both ends of one are refused.
    void ExpectNoTransaction()
    {
        EXPECT_TRUE(FailsInDatabase([&] { m_database.CommitTrans(); }, kIllegal));
        EXPECT_TRUE(FailsInDatabase([&] { m_database.Rollback(); }, kIllegal));
    }
};

} // namespace

TEST_F(Transactions, CountFromCommitOn)
{
    EXPECT_TRUE(m_database.BeginTrans());
    Insert(1);
    Insert(2);
    EXPECT_EQ(Stored(), Records{});
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
    ExpectNoTransaction();
    Insert(3);
    EXPECT_EQ(Stored().size(), 3U) << "statements count at once again";
}

TEST_F(Transactions, AreUndoneByRollback)
{
    Insert(1);
    EXPECT_TRUE(m_database.BeginTrans());
    Insert(2);
    Execute("UPDATE NAMES SET NAME='x'");
    Execute("DELETE FROM NAMES WHERE ID=1");
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(Stored(), Records{"1 n1"});
    ExpectNoTransaction();
    Insert(3);
    EXPECT_EQ(Stored(), (Records{"1 n1", "3 n3"}));
}

TEST_F(Transactions, FollowEachOther)
{
    for (int i = 1; i <= 6; ++i) {
        EXPECT_TRUE(m_database.BeginTrans());
        Insert(i);
        EXPECT_TRUE(i % 2 == 0 ? m_database.CommitTrans() : m_database.Rollback());
    }
    EXPECT_EQ(Stored(), (Records{"2 n2", "4 n4", "6 n6"}));
}

TEST_F(Transactions, MayBeEmpty)
{
    EXPECT_TRUE(m_database.BeginTrans());
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_TRUE(m_database.BeginTrans());
    EXPECT_TRUE(m_database.Rollback());
    ExpectNoTransaction();
}

TEST_F(Transactions, DoNotNest)
{
    m_database.BeginTrans();
    Insert(1);
    EXPECT_TRUE(FailsInDatabase([&] { m_database.BeginTrans(); }, kIllegal));
    Insert(2);
    EXPECT_EQ(Stored(), Records{});
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
    ExpectNoTransaction();
}

TEST_F(Transactions, EndOnlyWhereOneBegan)
{
    ExpectNoTransaction();
    Insert(1);
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

TEST_F(Transactions, AreUndoneByClosing)
{
    m_database.BeginTrans();
    Insert(1);
    m_database.Close();
    EXPECT_EQ(Stored(), Records{});
    m_database.OpenEx(ConnectOfRun());
    ExpectNoTransaction();
    Insert(2);
    EXPECT_EQ(Stored(), Records{"2 n2"});
}

TEST_F(Transactions, AreUndoneByTheEndOfTheObject)
{
    {
        auto database = std::make_unique<CDatabase>();
        database->OpenEx(ConnectOfRun());
        database->BeginTrans();
        database->ExecuteSQL("INSERT INTO NAMES VALUES (1,'n1')");
        CNames names(database.get());
        names.Open();
        names.Close();
    }
    EXPECT_EQ(Stored(), Records{});
    Insert(2);
    EXPECT_EQ(Stored(), Records{"2 n2"});
}

TEST_F(Transactions, OutliveAStatementThatFails)
{
    m_database.BeginTrans();
    Insert(1);
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'x')"); }));
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("NONSENSE"); }));
    EXPECT_EQ(Stored(), Records{});
    Insert(2);
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));

    m_database.BeginTrans();
    Insert(3);
    EXPECT_TRUE(FailsInDriver([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (1,'x')"); }));
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
}

TEST_F(Transactions, HoldWhatRecordSetsWrite)
{
    Fill(2);
    m_database.BeginTrans();
    CNames names(&m_database);
    names.Open();
    names.AddNew();
    names.m_id = 3;
    names.m_name = "three";
    names.Update();
    names.Edit();
    names.m_name = "one";
    names.Update();
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
    names.Requery();
    EXPECT_EQ(names.Rest(), (Records{"1 one", "2 n2", "3 three"})) << "the connection sees it";
    names.MoveFirst();
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(names.Record(), "1 one") << "members stay as they are";
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
    names.Requery();
    EXPECT_EQ(names.Rest(), (Records{"1 n1", "2 n2"}));
}

TEST_F(Transactions, MayBeginAndEndWhileRecordsAreRead)
{
    Fill(1500);
    const UINT kTypes[] = {CRecordset::forwardOnly, CRecordset::snapshot, CRecordset::dynaset};
    for (const UINT type : kTypes) {
        Execute("UPDATE NAMES SET NAME='old'");
        CNames names(&m_database);
        names.Open(type);
        int count = 0;
        m_database.BeginTrans();
        for (; !names.IsEOF(); names.MoveNext()) {
            ASSERT_EQ(names.m_id, ++count);
            Execute("UPDATE NAMES SET NAME='new' WHERE ID=" + std::to_string(count));
            if (count % 300 == 0) {
                ASSERT_TRUE(m_database.CommitTrans());
                ASSERT_TRUE(m_database.BeginTrans());
            }
        }
        EXPECT_TRUE(m_database.CommitTrans());
        EXPECT_EQ(count, 1500);
        EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM NAMES WHERE NAME='new'"),
                  "1500");
    }
}

TEST_F(Transactions, MayBeUndoneWhileRecordsAreRead)
{
    Fill(50);
    CNames names(&m_database);
    names.Open(CRecordset::snapshot);
    names.Move(9);
    m_database.BeginTrans();
    Execute("DELETE FROM NAMES");
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(names.Record(), "10 n10");
    names.MoveNext();
    EXPECT_EQ(names.Record(), "11 n11");
    names.MoveLast();
    EXPECT_EQ(names.Record(), "50 n50");
}

/// MariaDB checks constraints with every statement.
TEST_F(Transactions, StayOpenWhenTheCommitFailsOnSqlite)
{
    Execute("PRAGMA foreign_keys=ON");
    MakeTable("CHILDREN", "ID INTEGER PRIMARY KEY, PARENT INTEGER "
                          "REFERENCES NAMES(ID) DEFERRABLE INITIALLY DEFERRED");
    m_database.BeginTrans();
    Execute("INSERT INTO CHILDREN VALUES (1,7)");
    EXPECT_TRUE(FailsInDriver([&] { m_database.CommitTrans(); }, "FOREIGN KEY", 19));
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM CHILDREN"), "0");
    Insert(7);
    EXPECT_TRUE(m_database.CommitTrans()) << "what was wrong is corrected";
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM CHILDREN"), "1");

    m_database.BeginTrans();
    Execute("INSERT INTO CHILDREN VALUES (2,8)");
    EXPECT_TRUE(FailsInDriver([&] { m_database.CommitTrans(); }, "FOREIGN KEY", 19));
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM CHILDREN"), "1");
    ExpectNoTransaction();
}

/// Only SQLite lets readers hold a commit up.
TEST_F(Transactions, StayOpenWhenSomebodyReadsOnSqlite)
{
    m_database.Close();
    m_database.SetQueryTimeout(1);
    m_database.OpenEx(ConnectOfRun());
    OtherConnection reader;
    reader.Execute("BEGIN");
    reader.Query("SELECT * FROM NAMES");
    m_database.BeginTrans();
    Insert(1);
    EXPECT_TRUE(FailsInDriver([&] { m_database.CommitTrans(); }, "locked", 5));
    reader.Execute("COMMIT");
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_EQ(Stored(), Records{"1 n1"});
}

/// SQLite itself would keep the file and the table for whoever still reads; the driver has read
/// everything by then.
TEST_F(Transactions, AreNotHeldUpByAnUnfinishedResultOnSqlite)
{
    m_database.Close();
    m_database.SetQueryTimeout(1);
    m_database.OpenEx(ConnectOfRun());
    Fill(3);
    MakeTable("OTHERS", "ID INTEGER");
    CNames names(&m_database);
    names.Open(CRecordset::forwardOnly);
    EXPECT_EQ(names.Record(), "1 n1");
    OtherConnection().Execute("INSERT INTO NAMES VALUES (4,'n4')");
    m_database.BeginTrans();
    Insert(5);
    Execute("DROP TABLE OTHERS");
    EXPECT_TRUE(m_database.CommitTrans());
    m_database.BeginTrans();
    Insert(6);
    EXPECT_TRUE(m_database.Rollback());
    EXPECT_EQ(names.Rest(), (Records{"1 n1", "2 n2", "3 n3"}));
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2", "3 n3", "4 n4", "5 n5"}));
}

/// Only SQLite undoes a transaction because of a constraint.
TEST_F(Transactions, ThatTheDatabaseUndidAreOverOnSqlite)
{
    m_database.BeginTrans();
    Insert(1);
    EXPECT_TRUE(FailsInDriver(
        [&] { m_database.ExecuteSQL("INSERT OR ROLLBACK INTO NAMES VALUES (1,'x')"); }, "", 19));
    // What comes now belongs to what Rollback undoes, wherever the database itself stands.
    CatchDb([&] { m_database.ExecuteSQL("INSERT INTO NAMES VALUES (2,'n2')"); });
    m_database.Rollback();
    EXPECT_EQ(Stored(), Records{});
    ExpectNoTransaction();
    Insert(3);
    EXPECT_EQ(Stored(), Records{"3 n3"});
}

TEST_F(Transactions, AreOfOneConnectionAlone)
{
    CDatabase second;
    second.OpenEx(ConnectOfRun());
    m_database.BeginTrans();
    EXPECT_TRUE(FailsInDatabase([&] { second.CommitTrans(); }, kIllegal));
    EXPECT_TRUE(FailsInDatabase([&] { second.Rollback(); }, kIllegal));
    Insert(1);
    second.Close();
    EXPECT_TRUE(m_database.CommitTrans());
    EXPECT_EQ(Stored(), Records{"1 n1"});
}
