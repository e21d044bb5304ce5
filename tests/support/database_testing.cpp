#include "tests/support/database_testing.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

#ifdef __SANITIZE_ADDRESS__
#include <dlfcn.h>
#endif

namespace zeltest {

namespace {

bool Exists(const std::string& file)
{
    return std::ifstream(file).good();
}

/// Asks with_database.py for something and waits until it is done.
void Request(const std::string& what)
{
    const std::string file = FileOfRun(what);
    std::ofstream(file).close();
    for (int i = 0; i < 3000; ++i) {
        if (!Exists(file))
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    throw std::runtime_error(what + " was not done");
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsSameName(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (Upper(a[i]) != Upper(b[i]))
            return false;
    }
    return true;
}

using Attributes = std::vector<std::pair<std::string, std::string>>;

/// The attributes of a connection string without braces.
Attributes Split(const std::string& connect)
{
    Attributes attributes;
    std::size_t begin = 0;
    while (begin < connect.size()) {
        const std::size_t end = std::min(connect.find(';', begin), connect.size());
        const std::string attribute = connect.substr(begin, end - begin);
        const std::size_t equals = attribute.find('=');
        if (equals != std::string::npos)
            attributes.emplace_back(attribute.substr(0, equals), attribute.substr(equals + 1));
        begin = end + 1;
    }
    return attributes;
}

/// Whether a text has the form State:HY000,Native:1,Origin:[...], and the number in it.
bool ReadOrigin(const std::string& text, long& native)
{
    char state[6] = {};
    int end = 0;
    const int count =
        std::sscanf(text.c_str(), "State:%5[0-9A-Z],Native:%ld,Origin:%n", state, &native, &end);
    return count == 2 && state[4] != '\0' && end != 0 &&
           text[static_cast<std::size_t>(end)] != '\0';
}

/// Tells what exceptions that escape from a test say; GoogleTest knows their types only.
class EscapedExceptions : public ::testing::EmptyTestEventListener {
    void OnTestPartResult(const ::testing::TestPartResult& result) override
    {
        if (result.failed() && std::current_exception() != nullptr)
            std::cout << DescribeDb() << std::endl;
    }
};

[[maybe_unused]] const bool isListening = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new EscapedExceptions);
    return true;
}();

#ifdef __SANITIZE_ADDRESS__
// What a driver reads about data sources by their name stays in a cache of this library until the
// end. When the last driver takes the library with it before, the cache counts as a leak.
[[maybe_unused]] void* const odbcInstaller = dlopen("libodbcinst.so.2", RTLD_LAZY | RTLD_NODELETE);
#endif

} // namespace

DatabaseKind DatabaseOfRun()
{
    static const DatabaseKind kKind = FromEnvironment("ZEL_TEST_DATABASE") == "sqlite"
                                          ? DatabaseKind::Sqlite
                                          : DatabaseKind::Mariadb;
    return kKind;
}

CString ConnectOfRun()
{
    return CString(FromEnvironment("ZEL_TEST_CONNECT").c_str());
}

CString ConnectWith(const std::string& attribute, const std::string& value)
{
    Attributes attributes = Split(FromEnvironment("ZEL_TEST_CONNECT"));
    bool isThere = false;
    std::string connect;
    for (auto& [name, now] : attributes) {
        if (IsSameName(name, attribute)) {
            now = value;
            isThere = true;
        }
        connect += name + "=" + now + ";";
    }
    if (!isThere)
        connect += attribute + "=" + value + ";";
    return CString(connect.c_str());
}

std::string AttributeOf(const CString& connect, const std::string& attribute)
{
    for (const auto& [name, value] : Split(static_cast<LPCTSTR>(connect))) {
        if (IsSameName(name, attribute))
            return value;
    }
    return "";
}

std::string FileOfRun(const std::string& name)
{
    return FromEnvironment("ZEL_TEST_FOLDER") + "/" + name;
}

void KillServer()
{
    Request("server-kill");
}

void StartServer()
{
    Request("server-start");
}

CaughtDb DescribeDb()
{
    CaughtDb caught;
    try {
        throw;
    } catch (CDBException* e) {
        caught.what = "a CDBException";
        caught.code = e->m_nRetCode;
        caught.error = e->m_strError;
        caught.origin = e->m_strStateNativeOrigin;
        char message[1000];
        if (!e->GetErrorMessage(message, sizeof message) ||
            caught.error.compare(0, sizeof message - 1, message) != 0)
            caught.what = "a CDBException with another message";
        e->Delete();
    } catch (CException* e) {
        caught.what = std::string("a ") + e->GetRuntimeClass()->m_lpszClassName;
        e->Delete();
    } catch (const std::exception& e) {
        caught.what = std::string("a standard exception: ") + e.what();
    } catch (...) {
        caught.what = "something foreign";
    }
    return caught;
}

::testing::AssertionResult MatchesDb(const CaughtDb& caught, RETCODE code, const std::string& part)
{
    if (caught.isDb() && caught.code == code && !caught.error.empty() &&
        caught.error.find(part) != std::string::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "expected a CDBException, code " << code << ", \"..."
                                         << part << "...\", thrown was " << caught;
}

::testing::AssertionResult MatchesDriverError(const CaughtDb& caught, const std::string& part,
                                              long native)
{
    constexpr RETCODE kError = -1;
    const ::testing::AssertionResult result = MatchesDb(caught, kError, part);
    if (!result)
        return result;
    long number = 0;
    if (!ReadOrigin(caught.origin, number))
        return ::testing::AssertionFailure() << "no state, native error and origin: " << caught;
    if (native != 0 && number != native)
        return ::testing::AssertionFailure()
               << "expected native error " << native << ", thrown was " << caught;
    return ::testing::AssertionSuccess();
}

void DatabaseTest::SetUp()
{
    const CaughtDb caught = CatchDb([&] { m_database.OpenEx(ConnectOfRun()); });
    ASSERT_EQ(caught.what, "nothing") << caught;
}

void DatabaseTest::TearDown()
{
    m_database.Close();
    if (m_tables.empty())
        return;
    const CaughtDb caught = CatchDb([&] {
        CDatabase database;
        database.OpenEx(ConnectOfRun());
        for (const std::string& table : m_tables)
            database.ExecuteSQL(("DROP TABLE IF EXISTS " + table).c_str());
    });
    EXPECT_EQ(caught.what, "nothing") << caught;
}

void DatabaseTest::MakeTable(const std::string& name, const std::string& columns)
{
    Execute("DROP TABLE IF EXISTS " + name);
    m_tables.push_back(name);
    Execute("CREATE TABLE " + name + " (" + columns + ")");
}

void DatabaseTest::Execute(const std::string& sql)
{
    const CaughtDb caught = CatchDb([&] { m_database.ExecuteSQL(sql.c_str()); });
    if (caught.what != "nothing")
        throw std::runtime_error(sql + ": " + caught.what + ", " + caught.error);
}

} // namespace zeltest
