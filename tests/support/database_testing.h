#ifndef ZELDT_TESTS_SUPPORT_DATABASE_TESTING_H
#define ZELDT_TESTS_SUPPORT_DATABASE_TESTING_H

/// What tests on real databases share. Such a program runs under tests/support/with_database.py,
/// once with SQLite and once with MariaDB (zel_add_database_test in cmake/ZelTesting.cmake).

#include "platform/recordsets/database.h"
#include "tests/support/other_connection.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace zeltest {

enum class DatabaseKind { Sqlite, Mariadb };

/// Which database this run has.
DatabaseKind DatabaseOfRun();

inline bool IsSqlite()
{
    return DatabaseOfRun() == DatabaseKind::Sqlite;
}

/// `sqlite` or `mariadb`: what differs between the two.
template <typename T>
T ByDatabase(T sqlite, T mariadb)
{
    return IsSqlite() ? std::move(sqlite) : std::move(mariadb);
}

/// The connection string.
CString ConnectOfRun();

/// The same with another value for an attribute, which is added when it is missing:
/// ConnectWith("PORT", "1").
CString ConnectWith(const std::string& attribute, const std::string& value);

/// The value of an attribute of a connection string, empty when it is missing.
std::string AttributeOf(const CString& connect, const std::string& attribute);

/// Full name of a file in a folder that is empty when the program starts and gone afterwards.
std::string FileOfRun(const std::string& name);

/// Kills the server (MariaDB), with all that was not committed; starts it again with what was.
/// They return when that is done.
void KillServer();
void StartServer();

/// What an action threw, read before it was deleted.
struct CaughtDb {
    std::string what; ///< "a CDBException", "nothing" or what else was thrown
    RETCODE code = 0;
    std::string error;  ///< the readable text
    std::string origin; ///< state, native error and origin

    bool isDb() const { return what == "a CDBException"; }
    friend std::ostream& operator<<(std::ostream& os, const CaughtDb& c)
    {
        return os << c.what << ", code " << c.code << ", \"" << c.error << "\", \"" << c.origin
                  << '"';
    }
};

/// Reads and deletes what is being thrown; for the catch blocks of CatchDb.
CaughtDb DescribeDb();

template <typename Action>
CaughtDb CatchDb(Action&& action)
{
    try {
        std::forward<Action>(action)();
    } catch (...) {
        return DescribeDb();
    }
    return {"nothing", 0, "", ""};
}

/// Whether it is a CDBException with that code and a text that holds `part`.
::testing::AssertionResult MatchesDb(const CaughtDb& caught, RETCODE code,
                                     const std::string& part = "");

/// Whether it is a CDBException that a driver led to: SQL_ERROR, a text that holds `part`, and
/// state, native error and origin in their form. `native` unless 0 is the error's number.
::testing::AssertionResult MatchesDriverError(const CaughtDb& caught, const std::string& part = "",
                                              long native = 0);

template <typename Action>
::testing::AssertionResult FailsInDatabase(Action&& action, RETCODE code,
                                           const std::string& part = "")
{
    return MatchesDb(CatchDb(std::forward<Action>(action)), code, part);
}

template <typename Action>
::testing::AssertionResult FailsInDriver(Action&& action, const std::string& part = "",
                                         long native = 0)
{
    return MatchesDriverError(CatchDb(std::forward<Action>(action)), part, native);
}

/// A test with an open database. Tables made with MakeTable are gone after it.
class DatabaseTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A new table, also where one of that name was: MakeTable("T", "ID INTEGER PRIMARY KEY").
    void MakeTable(const std::string& name, const std::string& columns);

    /// Executes a statement in the program's code page.
    void Execute(const std::string& sql);

    CDatabase m_database;

private:
    std::vector<std::string> m_tables;
};

} // namespace zeltest

#endif
