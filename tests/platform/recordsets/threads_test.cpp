// Threads that work at the same time, each with a connection of its own.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <functional>
#include <thread>

using namespace zeltest;

namespace {

constexpr int kRounds = 40;

class Threads : public NamesTest {
protected:
    /// Runs a job in two threads at once; it gets the thread's number, 1 or 2, and a connection.
    static void RunTwice(const std::function<void(int, CDatabase&)>& job)
    {
        const auto run = [&](int number) {
            const CaughtDb caught = CatchDb([&] {
                CDatabase database;
                database.OpenEx(ConnectOfRun());
                job(number, database);
            });
            EXPECT_EQ(caught.what, "nothing") << "thread " << number << ": " << caught;
        };
        std::thread second([&] { run(2); });
        run(1);
        second.join();
    }
};

/// The record that a thread makes in a round; every text has characters beyond ASCII.
int IdOf(int thread, int round)
{
    return thread * 1000 + round;
}

std::string NameOf(int thread, int round)
{
    return "M\xFCller " + std::to_string(thread) + "-" + std::to_string(round) + " \x80";
}

/// Transactions begin with it: SQLite refuses one that begins with reading at once if another one
/// has written by the time it wants to.
void Add(CDatabase& database, int thread, int round)
{
    const std::string id = std::to_string(IdOf(thread, round));
    database.ExecuteSQL(("INSERT INTO NAMES VALUES (" + id + ",'new')").c_str());
}

/// Gives the record its name and returns what then stands in it.
std::string Rename(CDatabase& database, int thread, int round)
{
    CNames names(&database);
    names.m_strFilter = ("ID=" + std::to_string(IdOf(thread, round))).c_str();
    names.Open();
    names.Edit();
    names.m_name = NameOf(thread, round).c_str();
    names.Update();
    names.Requery();
    return names.Record();
}

} // namespace

TEST_F(Threads, ChangeRecordsOfOneTable)
{
    RunTwice([](int thread, CDatabase& database) {
        for (int round = 1; round <= kRounds; ++round) {
            database.BeginTrans();
            Add(database, thread, round);
            EXPECT_EQ(Rename(database, thread, round),
                      std::to_string(IdOf(thread, round)) + " " + NameOf(thread, round));
            EXPECT_TRUE(round % 4 == 0 ? database.Rollback() : database.CommitTrans());
        }
    });
    Records expected;
    for (int thread : {1, 2}) {
        for (int round = 1; round <= kRounds; ++round) {
            if (round % 4 != 0)
                expected.push_back(std::to_string(IdOf(thread, round)) + " " +
                                   NameOf(thread, round));
        }
    }
    CNames names(&m_database);
    names.Open();
    EXPECT_EQ(names.Rest(), expected);
}

TEST_F(Threads, LoseNoChangeOfTheSameRecord)
{
    MakeTable("COUNTERS", "N INTEGER");
    Execute("INSERT INTO COUNTERS VALUES (0)");
    RunTwice([](int, CDatabase& database) {
        for (int round = 0; round < kRounds; ++round)
            database.ExecuteSQL("UPDATE COUNTERS SET N=N+1");
    });
    EXPECT_EQ(OtherConnection().QueryOne("SELECT N FROM COUNTERS"), std::to_string(2 * kRounds));
}

TEST_F(Threads, GetErrorsOfTheirOwn)
{
    Fill(2);
    RunTwice([](int thread, CDatabase& database) {
        const std::string number = std::to_string(thread);
        for (int round = 0; round < kRounds; ++round) {
            EXPECT_TRUE(
                FailsInDriver([&] { database.ExecuteSQL(("SELECT 1 FROM NONE" + number).c_str()); },
                              "NONE" + number, ByDatabase(1, 1146)));
            EXPECT_TRUE(FailsInDriver(
                [&] {
                    database.ExecuteSQL(("INSERT INTO NAMES VALUES (" + number + ",'x')").c_str());
                },
                "", ByDatabase(19, 1062)));
        }
    });
    EXPECT_EQ(Stored(), (Records{"1 n1", "2 n2"}));
}

/// Opening reads what a driver and a source are like, for all connections.
TEST_F(Threads, OpenAndReadAtOnce)
{
    Fill(300);
    RunTwice([](int, CDatabase& database) {
        for (int round = 0; round < kRounds / 4; ++round) {
            database.Close();
            database.OpenEx(ConnectOfRun());
            CNames names(&database);
            names.Open(round % 2 == 0 ? CRecordset::forwardOnly : CRecordset::snapshot);
            const Records read = names.Rest();
            ASSERT_EQ(read.size(), 300U);
            EXPECT_EQ(read.front(), "1 n1");
            EXPECT_EQ(read.back(), "300 n300");
        }
    });
}
