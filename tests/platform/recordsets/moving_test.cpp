// Moving through the records of a query.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <random>

using namespace zeltest;

namespace {

constexpr RETCODE kNoRecord = AFX_SQL_ERROR_NO_CURRENT_RECORD;
constexpr RETCODE kForwardOnly = AFX_SQL_ERROR_RECORDSET_FORWARD_ONLY;

class Moving : public NamesTest {};

/// Record sets of the types that scroll.
class Scrolling : public NamesTest, public ::testing::WithParamInterface<UINT> {};

std::string NameOfType(const ::testing::TestParamInfo<UINT>& type)
{
    return type.param == CRecordset::snapshot ? "Snapshot" : "Dynaset";
}

INSTANTIATE_TEST_SUITE_P(Types, Scrolling,
                         ::testing::Values(CRecordset::snapshot, CRecordset::dynaset), NameOfType);

void ExpectAt(CNames& names, long id)
{
    ASSERT_FALSE(names.IsBOF());
    ASSERT_FALSE(names.IsEOF());
    EXPECT_EQ(names.Record(), std::to_string(id) + " n" + std::to_string(id));
}

/// Where a set is: the record's number, 0 before the first, `count` + 1 after the last.
long PlaceOf(CNames& names, long count)
{
    if (names.IsBOF())
        return 0;
    return names.IsEOF() ? count + 1 : names.m_id;
}

} // namespace

TEST_P(Scrolling, ReachesEveryRecordInBothDirections)
{
    Fill(5);
    CNames names(&m_database);
    names.Open(GetParam());
    EXPECT_TRUE(names.CanScroll());
    EXPECT_TRUE(names.CanRestart());
    for (long id = 1; id <= 5; ++id) {
        ExpectAt(names, id);
        names.MoveNext();
    }
    EXPECT_TRUE(names.IsEOF());
    EXPECT_FALSE(names.IsBOF());
    EXPECT_EQ(names.GetRecordCount(), 5);
    for (long id = 5; id >= 1; --id) {
        names.MovePrev();
        ExpectAt(names, id);
    }
    names.MovePrev();
    EXPECT_TRUE(names.IsBOF());
    EXPECT_FALSE(names.IsEOF());
    names.MoveNext();
    ExpectAt(names, 1);
}

TEST_P(Scrolling, EndsAtBothEnds)
{
    Fill(3);
    CNames names(&m_database);
    names.Open(GetParam());
    names.MovePrev();
    EXPECT_TRUE(names.IsBOF());
    EXPECT_TRUE(FailsInDatabase([&] { names.MovePrev(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.Edit(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kNoRecord));
    EXPECT_TRUE(names.IsBOF());
    names.MoveLast();
    ExpectAt(names, 3);
    names.MoveNext();
    EXPECT_TRUE(names.IsEOF());
    EXPECT_TRUE(FailsInDatabase([&] { names.MoveNext(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.Edit(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.Delete(); }, kNoRecord));
    EXPECT_TRUE(names.IsEOF());
    names.MoveFirst();
    ExpectAt(names, 1);
    EXPECT_EQ(Stored().size(), 3U);
}

TEST_P(Scrolling, MovesAnyDistance)
{
    Fill(10);
    CNames names(&m_database);
    names.Open(GetParam());
    names.Move(4);
    ExpectAt(names, 5);
    names.Move(-3);
    ExpectAt(names, 2);
    names.Move(0);
    ExpectAt(names, 2);
    names.Move(8);
    ExpectAt(names, 10);
    names.Move(100);
    EXPECT_TRUE(names.IsEOF());
    names.Move(-1);
    ExpectAt(names, 10);
    names.Move(-100);
    EXPECT_TRUE(names.IsBOF());
    names.Move(10);
    ExpectAt(names, 10);
    names.Move(2147483647);
    EXPECT_TRUE(names.IsEOF());
    names.Move(-2147483647);
    EXPECT_TRUE(names.IsBOF());
}

TEST_P(Scrolling, GoesToARecordByItsNumber)
{
    Fill(10);
    CNames names(&m_database);
    names.Open(GetParam());
    struct {
        long number;
        long id; ///< 0 before the first, 11 after the last
    } const kCases[] = {{7, 7}, {1, 1},   {10, 10}, {-1, 10},         {-10, 1},  {11, 11},
                        {5, 5}, {-11, 0}, {5, 5},   {2147483647, 11}, {-100, 0}, {-5, 6}};
    for (const auto& c : kCases) {
        names.SetAbsolutePosition(c.number);
        EXPECT_EQ(PlaceOf(names, 10), c.id) << c.number;
    }
}

TEST_P(Scrolling, KeepsManyRecordsApart)
{
    constexpr long kCount = 3000;
    Fill(kCount);
    CNames names(&m_database);
    names.Open(GetParam());
    std::mt19937 random(20264);
    long place = 1;
    for (int i = 0; i < 2000; ++i) {
        const long to = static_cast<long>(random() % (kCount + 2));
        if (random() % 2 == 0) {
            // At an end there is only one direction.
            if ((place == 0 && to == 0) || (place == kCount + 1 && to == place))
                continue;
            names.Move(to - place);
        } else if (to != 0) {
            names.SetAbsolutePosition(to);
        } else {
            names.SetAbsolutePosition(-kCount - 1);
        }
        place = to;
        ASSERT_EQ(PlaceOf(names, kCount), place) << "step " << i;
        if (place != 0 && place != kCount + 1) {
            ASSERT_EQ(Str(names.m_name), "n" + std::to_string(place));
        }
    }
}

TEST_P(Scrolling, GoesToTheLastRecordFirst)
{
    Fill(1200);
    CNames names(&m_database);
    names.Open(GetParam());
    names.MoveLast();
    ExpectAt(names, 1200);
    EXPECT_EQ(names.GetRecordCount(), 1200);
    names.MovePrev();
    ExpectAt(names, 1199);
    names.MoveFirst();
    ExpectAt(names, 1);
}

TEST_P(Scrolling, OfNoRecordsIsAtBothEnds)
{
    CNames names(&m_database);
    EXPECT_TRUE(names.Open(GetParam()));
    EXPECT_TRUE(names.IsOpen());
    EXPECT_TRUE(names.IsBOF());
    EXPECT_TRUE(names.IsEOF());
    EXPECT_EQ(names.GetRecordCount(), 0);
    const std::function<void()> kCalls[] = {
        [&] { names.MoveNext(); }, [&] { names.MovePrev(); }, [&] { names.MoveFirst(); },
        [&] { names.MoveLast(); }, [&] { names.Move(0); },    [&] { names.SetAbsolutePosition(1); },
        [&] { names.Edit(); },     [&] { names.Delete(); },
    };
    for (const auto& call : kCalls)
        EXPECT_TRUE(FailsInDatabase(call, kNoRecord));
    Execute("INSERT INTO NAMES VALUES (1,'n1')");
    names.Requery();
    ExpectAt(names, 1);
}

TEST_P(Scrolling, ReadsTheRecordAgain)
{
    Fill(3);
    CNames names(&m_database);
    names.Open(GetParam());
    names.MoveNext();
    names.m_name = "changed by hand";
    names.Move(0);
    ExpectAt(names, 2);
    names.Edit();
    names.m_name = "given up";
    names.MoveNext();
    names.MovePrev();
    ExpectAt(names, 2);
    EXPECT_EQ(Stored()[1], "2 n2");
}

TEST_F(Moving, OfASnapshotIsNotDisturbedByOthers)
{
    Fill(500);
    CNames names(&m_database);
    names.Open(CRecordset::snapshot);
    Execute("DELETE FROM NAMES WHERE ID > 250");
    Execute("UPDATE NAMES SET NAME='x'");
    Execute("INSERT INTO NAMES VALUES (1000,'late')");
    long count = 0;
    for (; !names.IsEOF(); names.MoveNext())
        ExpectAt(names, ++count);
    EXPECT_EQ(count, 500);
    names.MoveFirst();
    ExpectAt(names, 1);
    names.Requery();
    EXPECT_EQ(names.Record(), "1 x");
    names.MoveLast();
    EXPECT_EQ(names.Record(), "1000 late");
    EXPECT_EQ(names.GetRecordCount(), 251);
}

TEST_F(Moving, ForwardOnlyGoesForward)
{
    Fill(10);
    CNames names(&m_database);
    names.Open(CRecordset::forwardOnly);
    EXPECT_FALSE(names.CanScroll());
    EXPECT_FALSE(names.CanRestart());
    ExpectAt(names, 1);
    names.MoveNext();
    ExpectAt(names, 2);
    names.Move(3);
    ExpectAt(names, 5);
    const std::function<void()> kCalls[] = {
        [&] { names.MovePrev(); },
        [&] { names.Move(-2); },
        [&] { names.MoveFirst(); },
        [&] { names.SetAbsolutePosition(1); },
        [&] { names.SetAbsolutePosition(-1); },
    };
    for (const auto& call : kCalls)
        EXPECT_TRUE(FailsInDatabase(call, kForwardOnly));
    names.MoveNext();
    ExpectAt(names, 6);
    names.Move(100);
    EXPECT_TRUE(names.IsEOF());
    EXPECT_FALSE(names.IsBOF());
    EXPECT_TRUE(FailsInDatabase([&] { names.MoveNext(); }, kNoRecord));
    EXPECT_TRUE(FailsInDatabase([&] { names.MovePrev(); }, kForwardOnly));
    EXPECT_TRUE(names.IsEOF());
}

TEST_F(Moving, ForwardOnlyReadsManyRecordsAndStartsAgain)
{
    Fill(3000);
    CNames names(&m_database);
    names.Open(CRecordset::forwardOnly);
    for (int i = 0; i < 2; ++i) {
        long count = 0;
        for (; !names.IsEOF(); names.MoveNext())
            ASSERT_EQ(names.m_id, ++count);
        EXPECT_EQ(count, 3000);
        names.Requery();
    }
    ExpectAt(names, 1);
    names.Close();
    EXPECT_FALSE(names.IsOpen());
    names.Open(CRecordset::forwardOnly);
    ExpectAt(names, 1);
}

TEST_F(Moving, ForwardOnlyOfNoRecordsIsAtBothEnds)
{
    CNames names(&m_database);
    names.Open(CRecordset::forwardOnly);
    EXPECT_TRUE(names.IsBOF());
    EXPECT_TRUE(names.IsEOF());
    EXPECT_TRUE(FailsInDatabase([&] { names.MoveNext(); }, kNoRecord));
}

TEST_F(Moving, OfSeveralSetsDoesNotMixThem)
{
    Fill(700);
    CNames forward(&m_database);
    CNames again(&m_database);
    CNames backward(&m_database);
    forward.Open(CRecordset::forwardOnly);
    again.Open(CRecordset::forwardOnly);
    backward.Open(CRecordset::dynaset);
    again.MoveNext();
    backward.MoveLast();
    for (long id = 1; id < 700; ++id) {
        ExpectAt(forward, id);
        ExpectAt(again, id + 1);
        ExpectAt(backward, 701 - id);
        forward.MoveNext();
        again.MoveNext();
        backward.MovePrev();
        if (id % 100 == 0) {
            CNames inner(&m_database);
            inner.Open(CRecordset::forwardOnly);
            ExpectAt(inner, 1);
        }
    }
    EXPECT_TRUE(again.IsEOF());
}

TEST_F(Moving, EndsWithTheDatabase)
{
    Fill(5);
    CNames names(&m_database);
    names.Open();
    names.MoveNext();
    m_database.Close();
    EXPECT_FALSE(names.IsOpen());
    EXPECT_TRUE(CatchDb([&] { names.MoveNext(); }).isDb());
    EXPECT_TRUE(CatchDb([&] { names.Requery(); }).isDb());
    names.Close();
    m_database.OpenEx(ConnectOfRun());
    EXPECT_TRUE(names.Open());
    ExpectAt(names, 1);
}
