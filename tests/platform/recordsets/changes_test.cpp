// Records that are added, changed and deleted through record sets.

#include "tests/platform/recordsets/recordsets_testing.h"

using namespace zeltest;

namespace {

constexpr RETCODE kIllegal = AFX_SQL_ERROR_ILLEGAL_MODE;
constexpr RETCODE kNoRecord = AFX_SQL_ERROR_NO_CURRENT_RECORD;
constexpr RETCODE kNoRows = AFX_SQL_ERROR_NO_ROWS_AFFECTED;
constexpr RETCODE kReadOnly = AFX_SQL_ERROR_RECORDSET_READONLY;

class Changes : public NamesTest {
protected:
    void SetUp() override
    {
        NamesTest::SetUp();
        Fill(3);
    }

    static std::string At(CNames& names) { return names.Record(); }

    void ExpectUnchanged() { EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2", "3 n3"})); }
};

} // namespace

TEST_F(Changes, AddRecords)
{
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    EXPECT_TRUE(names.CanAppend());
    names.AddNew();
    EXPECT_TRUE(names.IsFieldNull(&names.m_name));
    names.m_id = 4;
    names.m_name = "four";
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(At(names), "2 n2") << "the current record is back";
    names.AddNew();
    names.m_id = 5;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2", "3 n3", "4 four", "5 <NULL>"}));
    names.Requery();
    EXPECT_EQ(names.Rest().size(), 5U);
}

TEST_F(Changes, AddToAnEmptySet)
{
    Execute("DELETE FROM NAMES");
    CNames names(&m_database);
    names.Open();
    EXPECT_TRUE(names.IsEOF());
    names.AddNew();
    names.m_id = 1;
    names.m_name = "first";
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), Records{"1 first"});
}

TEST_F(Changes, OfTheCurrentRecordAreWritten)
{
    const UINT kTypes[] = {CRecordset::dynaset, CRecordset::snapshot};
    for (const UINT type : kTypes) {
        CNames names(&m_database);
        names.Open(type);
        EXPECT_TRUE(names.CanUpdate());
        names.MoveNext();
        names.Edit();
        names.m_name = "zwei";
        EXPECT_TRUE(names.Update());
        EXPECT_EQ(At(names), "2 zwei");
        EXPECT_EQ(Stored(), (Records{"1 n1", "2 zwei", "3 n3"}));
        names.MoveNext();
        names.MovePrev();
        EXPECT_EQ(At(names), "2 zwei") << "the set itself knows it";
        names.Edit();
        names.m_name = "n2";
        EXPECT_TRUE(names.Update());
        names.MoveFirst();
        EXPECT_EQ(names.Rest(), (Records{"1 n1", "2 n2", "3 n3"}));
        ExpectUnchanged();
    }
}

TEST_F(Changes, ToNullAndBack)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    names.SetFieldNull(&names.m_name);
    EXPECT_TRUE(names.Update());
    EXPECT_TRUE(names.IsFieldNull(&names.m_name));
    EXPECT_EQ(Stored()[0], "1 <NULL>");
    names.MoveNext();
    names.MovePrev();
    EXPECT_TRUE(names.IsFieldNull(&names.m_name));
    names.Edit();
    names.m_name = "";
    names.SetFieldNull(&names.m_name, FALSE);
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored()[0], "1 ");
    names.Edit();
    names.m_name = "n1";
    EXPECT_TRUE(names.Update());
    ExpectUnchanged();
}

TEST_F(Changes, ThatAreNoneWriteNothing)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    EXPECT_FALSE(names.Update());
    names.Edit();
    names.m_name = "n1";
    EXPECT_FALSE(names.Update()) << "the value that it had";
    names.AddNew();
    EXPECT_FALSE(names.Update());
    EXPECT_TRUE(FailsInDatabase([&] { names.Update(); }, kIllegal));
    EXPECT_EQ(At(names), "1 n1");
    ExpectUnchanged();
}

TEST_F(Changes, ConcernTheChangedFieldsOnly)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    OtherConnection().Execute("UPDATE NAMES SET NAME='theirs' WHERE ID=1");
    names.m_id = 10;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), (Records{"2 n2", "3 n3", "10 theirs"}));
}

TEST_F(Changes, FollowTheDirtyMarks)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    EXPECT_FALSE(names.IsFieldDirty(&names.m_name));
    names.m_name = "not to be written";
    names.SetFieldDirty(&names.m_name, FALSE);
    EXPECT_FALSE(names.Update());
    ExpectUnchanged();

    names.Requery();
    OtherConnection().Execute("UPDATE NAMES SET NAME='theirs' WHERE ID=1");
    names.Edit();
    names.SetFieldDirty(&names.m_name);
    EXPECT_TRUE(names.IsFieldDirty(&names.m_name));
    EXPECT_TRUE(names.Update()) << "the same value once more";
    ExpectUnchanged();
}

TEST_F(Changes, AreGivenUpByCancelUpdate)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    names.m_name = "x";
    names.CancelUpdate();
    EXPECT_EQ(At(names), "1 n1");
    names.AddNew();
    names.m_id = 9;
    names.CancelUpdate();
    EXPECT_EQ(At(names), "1 n1");
    EXPECT_TRUE(FailsInDatabase([&] { names.Update(); }, kIllegal));
    names.Edit();
    names.m_name = "x";
    names.MoveNext();
    EXPECT_TRUE(FailsInDatabase([&] { names.Update(); }, kIllegal));
    names.Edit();
    names.m_name = "x";
    names.Close();
    ExpectUnchanged();
}

TEST_F(Changes, DeleteTheCurrentRecord)
{
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    names.Edit();
    EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kIllegal));
    names.CancelUpdate();
    EXPECT_FALSE(names.IsDeleted());
    names.Delete();
    EXPECT_TRUE(names.IsDeleted());
    EXPECT_TRUE(names.IsFieldNull(&names.m_id));
    EXPECT_TRUE(names.IsFieldNull(&names.m_name));
    EXPECT_EQ(Stored(), (Records{"1 n1", "3 n3"}));
    EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.Edit(); }, kNoRecord));
    names.MoveNext();
    EXPECT_FALSE(names.IsDeleted());
    EXPECT_EQ(At(names), "3 n3");
    names.Delete();
    names.MoveNext();
    EXPECT_TRUE(names.IsEOF());
    EXPECT_EQ(Stored(), Records{"1 n1"});
    names.MoveFirst();
    EXPECT_EQ(At(names), "1 n1");
    names.Delete();
    names.Requery();
    EXPECT_TRUE(names.IsBOF());
    EXPECT_TRUE(names.IsEOF());
    EXPECT_EQ(Stored(), Records{});
}

TEST_F(Changes, DeleteAllInALoop)
{
    CNames names(&m_database);
    names.Open();
    int count = 0;
    for (; !names.IsEOF(); names.MoveNext()) {
        names.Delete();
        ++count;
    }
    EXPECT_EQ(count, 3);
    EXPECT_EQ(Stored(), Records{});
}

TEST_F(Changes, OfARecordThatIsGoneAreErrors)
{
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    OtherConnection().Execute("DELETE FROM NAMES WHERE ID=2");
    names.Edit();
    names.m_name = "lost";
    EXPECT_TRUE(FailsInDatabase([&] { names.Update(); }, kNoRows));
    names.CancelUpdate();
    EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kNoRows));
    EXPECT_FALSE(names.IsDeleted());
    EXPECT_EQ(Stored(), (Records{"1 n1", "3 n3"}));

    names.MoveNext();
    OtherConnection().Execute("UPDATE NAMES SET ID=30 WHERE ID=3");
    names.Edit();
    names.m_name = "lost";
    EXPECT_TRUE(FailsInDatabase([&] { names.Update(); }, kNoRows));
    EXPECT_EQ(Stored(), (Records{"1 n1", "30 n3"}));
}

TEST_F(Changes, ThatOthersMadeAlreadyAreNoErrors)
{
    CNames names(&m_database);
    names.Open();
    names.Edit();
    OtherConnection().Execute("UPDATE NAMES SET NAME='same' WHERE ID=1");
    names.m_name = "same";
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored()[0], "1 same");
}

TEST_F(Changes, OfTheKeyAreFollowed)
{
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    names.Edit();
    names.m_id = 20;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), (Records{"1 n1", "3 n3", "20 n2"}));
    names.Edit();
    names.m_name = "twenty";
    EXPECT_TRUE(names.Update());
    names.MoveNext();
    names.MovePrev();
    EXPECT_EQ(At(names), "20 twenty");
    names.Edit();
    names.m_id = 2;
    EXPECT_TRUE(names.Update());
    names.Delete();
    EXPECT_EQ(Stored(), (Records{"1 n1", "3 n3"}));
}

TEST_F(Changes, ThatTheDatabaseRefusesCanBeCorrected)
{
    CNames names(&m_database);
    names.Open();
    names.AddNew();
    names.m_id = 1;
    names.m_name = "four";
    EXPECT_TRUE(FailsInDriver([&] { names.Update(); }, "", ByDatabase(19, 1062)));
    EXPECT_EQ(names.m_id, 1) << "the change is still begun";
    EXPECT_STREQ(names.m_name, "four");
    names.m_id = 4;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(At(names), "1 n1");

    names.Edit();
    names.m_id = 3;
    EXPECT_TRUE(FailsInDriver([&] { names.Update(); }, "", ByDatabase(19, 1062)));
    names.CancelUpdate();
    EXPECT_EQ(At(names), "1 n1");
    names.Edit();
    names.m_name = "one";
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), (Records{"1 one", "2 n2", "3 n3", "4 four"}));
}

TEST_F(Changes, KeepConstraints)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40) NOT NULL, "
                       "CHECK (ID < 100)");
    CNames names(&m_database);
    names.Open();
    names.AddNew();
    names.m_id = 1;
    names.SetFieldNull(&names.m_name);
    EXPECT_TRUE(FailsInDriver([&] { names.Update(); }, "NAME", ByDatabase(19, 1048)));
    names.m_name = "x";
    names.m_id = 100;
    EXPECT_TRUE(FailsInDriver([&] { names.Update(); }, "", ByDatabase(19, 4025)));
    EXPECT_EQ(Stored(), Records{});
    names.m_id = 99;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), Records{"99 x"});
}

TEST_F(Changes, LeaveUntouchedFieldsToTheDatabase)
{
    MakeTable("NAMES", ByDatabase<std::string>("ID INTEGER PRIMARY KEY AUTOINCREMENT",
                                               "ID INTEGER AUTO_INCREMENT PRIMARY KEY") +
                           ", NAME VARCHAR(40) DEFAULT 'nobody'");
    CNames names(&m_database);
    names.Open();
    names.AddNew();
    names.m_name = "a";
    EXPECT_TRUE(names.Update());
    names.AddNew();
    names.m_id = 7;
    EXPECT_TRUE(names.Update());
    names.AddNew();
    names.SetFieldNull(&names.m_name);
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored(), (Records{"1 a", "7 nobody", "8 <NULL>"}));
}

TEST_F(Changes, AreRefusedWhereTheSetOrTheDatabaseIsReadOnly)
{
    const auto expectRefused = [&](CNames& names, bool canAppend) {
        EXPECT_EQ(names.CanAppend() != FALSE, canAppend);
        EXPECT_FALSE(names.CanUpdate());
        if (!canAppend) {
            EXPECT_TRUE(FailsInDatabase([&] { names.AddNew(); }, kReadOnly));
        }
        EXPECT_TRUE(FailsInDatabase([&] { names.Edit(); }, kReadOnly));
        EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kReadOnly));
        EXPECT_EQ(At(names), "1 n1");
    };
    CNames names(&m_database);
    names.Open(CRecordset::dynaset, nullptr, CRecordset::readOnly);
    expectRefused(names, false);
    names.Close();
    names.Open(CRecordset::snapshot, nullptr, CRecordset::readOnly);
    expectRefused(names, false);
    names.Close();

    CDatabase readOnly;
    readOnly.OpenEx(ConnectOfRun(), CDatabase::openReadOnly);
    CNames others(&readOnly);
    others.Open();
    expectRefused(others, false);
    ExpectUnchanged();
}

TEST_F(Changes, OfASetForAddingAreNewRecordsOnly)
{
    CNames names(&m_database);
    names.Open(CRecordset::dynaset, nullptr, CRecordset::appendOnly);
    EXPECT_TRUE(names.CanAppend());
    EXPECT_FALSE(names.CanUpdate());
    names.AddNew();
    names.m_id = 4;
    EXPECT_TRUE(names.Update());
    EXPECT_EQ(Stored().size(), 4U);
}

TEST_F(Changes, OfJoinsAreRefused)
{
    CNames names(&m_database);
    names.m_strSort = "";
    for (const char* sql :
         {"SELECT A.ID, B.NAME FROM NAMES A JOIN NAMES B ON A.ID = B.ID",
          "SELECT A.ID, B.NAME FROM NAMES A, NAMES B WHERE A.ID = B.ID",
          "SELECT COUNT(*), MAX(NAME) FROM NAMES", "SELECT ID, NAME FROM NAMES UNION SELECT 7, 'x'",
          "SELECT MIN(ID), NAME FROM NAMES GROUP BY NAME"}) {
        names.Open(AFX_DB_USE_DEFAULT_TYPE, sql);
        EXPECT_FALSE(names.CanUpdate()) << sql;
        EXPECT_FALSE(names.CanAppend()) << sql;
        EXPECT_TRUE(FailsInDatabase([&] { names.AddNew(); }, kReadOnly)) << sql;
        EXPECT_TRUE(FailsInDatabase([&] { names.Edit(); }, kReadOnly)) << sql;
        EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kReadOnly)) << sql;
        names.Close();
    }
    ExpectUnchanged();
}

TEST_F(Changes, ReachAllRecordsOfALongSet)
{
    Execute("DELETE FROM NAMES");
    Fill(1500);
    CNames names(&m_database);
    m_database.BeginTrans();
    names.Open();
    for (; !names.IsEOF(); names.MoveNext()) {
        if (names.m_id % 3 == 0) {
            names.Delete();
        } else {
            names.Edit();
            names.m_name = "m" + names.m_name;
            ASSERT_TRUE(names.Update());
        }
    }
    EXPECT_TRUE(m_database.CommitTrans());
    const Records stored = Stored();
    ASSERT_EQ(stored.size(), 1000U);
    EXPECT_EQ(stored[0], "1 mn1");
    EXPECT_EQ(stored[999], "1499 mn1499");
    EXPECT_EQ(OtherConnection().QueryOne("SELECT COUNT(*) FROM NAMES WHERE NAME LIKE 'mn%'"),
              "1000");
}
