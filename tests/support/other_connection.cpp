#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include "tests/support/other_connection.h"

#include <cstdlib>
#include <stdexcept>

namespace zeltest {

namespace {

SQLCHAR* Characters(const std::string& text)
{
    // ODBC takes texts that it only reads without saying so.
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

[[noreturn]] void ThrowFailure(const std::string& what, SQLSMALLINT type, SQLHANDLE handle)
{
    SQLCHAR state[6] = {};
    SQLCHAR text[1000] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (handle != SQL_NULL_HANDLE)
        SQLGetDiagRec(type, handle, 1, state, &native, text, sizeof text, &length);
    throw std::runtime_error(what + ": " + reinterpret_cast<const char*>(text));
}

/// A statement that frees itself.
class Statement {
public:
    Statement(SQLHDBC connection, const std::string& sql)
    {
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_handle)))
            ThrowFailure(sql, SQL_HANDLE_DBC, connection);
        const SQLRETURN result =
            SQLExecDirect(m_handle, Characters(sql), static_cast<SQLINTEGER>(sql.size()));
        if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
            return;
        try {
            ThrowFailure(sql, SQL_HANDLE_STMT, m_handle);
        } catch (...) {
            SQLFreeHandle(SQL_HANDLE_STMT, m_handle);
            throw;
        }
    }
    ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, m_handle); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Rows Fetch()
    {
        SQLSMALLINT columns = 0;
        SQLNumResultCols(m_handle, &columns);
        Rows rows;
        for (;;) {
            const SQLRETURN result = SQLFetch(m_handle);
            if (result == SQL_NO_DATA)
                return rows;
            if (!SQL_SUCCEEDED(result))
                ThrowFailure("fetching", SQL_HANDLE_STMT, m_handle);
            Row row;
            for (SQLSMALLINT column = 1; column <= columns; ++column)
                row.push_back(Value(static_cast<SQLUSMALLINT>(column)));
            rows.push_back(std::move(row));
        }
    }

private:
    std::string Value(SQLUSMALLINT column)
    {
        std::vector<char> buffer(1 << 16);
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(m_handle, column, SQL_C_CHAR, buffer.data(),
                                            static_cast<SQLLEN>(buffer.size()), &length);
        if (result != SQL_SUCCESS)
            ThrowFailure("reading a column", SQL_HANDLE_STMT, m_handle);
        return length == SQL_NULL_DATA
                   ? kNull
                   : std::string(buffer.data(), static_cast<std::size_t>(length));
    }

    SQLHSTMT m_handle = SQL_NULL_HANDLE;
};

} // namespace

std::string FromEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0')
        throw std::runtime_error(std::string(name) + " is not set: run the program with "
                                                     "tests/support/with_database.py");
    return value;
}

struct OtherConnection::Handles {
    SQLHENV environment = SQL_NULL_HANDLE;
    SQLHDBC connection = SQL_NULL_HANDLE;
    bool isConnected = false;

    explicit Handles(const std::string& connect)
    {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
        // ODBC wants a number where it says pointer.
        SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
        SQLCHAR out[1024];
        SQLSMALLINT length = 0;
        isConnected = SQL_SUCCEEDED(SQLDriverConnect(connection, nullptr, Characters(connect),
                                                     static_cast<SQLSMALLINT>(connect.size()), out,
                                                     sizeof out, &length, SQL_DRIVER_NOPROMPT));
    }
    ~Handles()
    {
        if (isConnected)
            SQLDisconnect(connection);
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
    }
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;
};

// The attribute is nothing to SQLite.
OtherConnection::OtherConnection()
    : OtherConnection(FromEnvironment("ZEL_TEST_CONNECT") + ";CHARSET=utf8mb4")
{}

OtherConnection::OtherConnection(const std::string& connect)
    : m_handles(std::make_unique<Handles>(connect))
{
    if (!m_handles->isConnected)
        ThrowFailure("connecting", SQL_HANDLE_DBC, m_handles->connection);
}

OtherConnection::~OtherConnection() = default;

void OtherConnection::Execute(const std::string& sql)
{
    Statement(m_handles->connection, sql);
}

Rows OtherConnection::Query(const std::string& sql)
{
    return Statement(m_handles->connection, sql).Fetch();
}

std::string OtherConnection::QueryOne(const std::string& sql)
{
    const Rows rows = Query(sql);
    if (rows.size() != 1 || rows.front().size() != 1)
        throw std::runtime_error(sql + ": not one value");
    return rows.front().front();
}

} // namespace zeltest
