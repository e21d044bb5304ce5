// Connections and statements.

#include "platform/recordsets/connection.h"

#include "platform/recordsets/connecttext.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zelrs {

namespace {

/// "[vendor][component]" in front of a driver's message.
std::size_t OriginLength(std::string_view message)
{
    std::size_t length = 0;
    while (length < message.size() && message[length] == '[') {
        const std::size_t end = message.find(']', length);
        if (end == std::string_view::npos)
            break;
        length = end + 1;
    }
    return length;
}

struct Diagnostics {
    CString text;
    CString stateNativeOrigin; ///< of the first record
    SQLINTEGER native = 0;     ///< of the first record
};

Diagnostics ReadDiagnostics(SQLSMALLINT type, SQLHANDLE handle, Charset charset)
{
    Diagnostics result;
    for (SQLSMALLINT number = 1;; ++number) {
        std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
        std::array<SQLCHAR, 2048> text{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        const SQLRETURN code =
            SQLGetDiagRec(type, handle, number, state.data(), &native, text.data(),
                          static_cast<SQLSMALLINT>(text.size()), &length);
        if (!SQL_SUCCEEDED(code))
            return result;
        const std::string_view message(reinterpret_cast<const char*>(text.data()));
        const std::size_t origin = OriginLength(message);
        if (!result.text.IsEmpty())
            result.text += "\n";
        result.text += DecodeMessage(message.substr(origin), charset);
        if (number != 1)
            continue;
        result.native = native;
        result.stateNativeOrigin.Format(
            "State:%s,Native:%ld,Origin:%s", reinterpret_cast<const char*>(state.data()),
            static_cast<long>(native),
            DecodeMessage(message.substr(0, origin), charset).GetString());
    }
}

SourceKind KindOf(std::string_view product)
{
    const auto contains = [&](const char* name) {
        return product.find(name) != std::string_view::npos;
    };
    if (contains("SQLite"))
        return SourceKind::Sqlite;
    return contains("MariaDB") || contains("MySQL") ? SourceKind::MySql : SourceKind::Other;
}

/// From the name of its driver, if that tells.
SourceKind LikelyKind(std::string_view connect)
{
    if (NamesDriver(connect, "sqlite"))
        return SourceKind::Sqlite;
    const bool isMySql = NamesDriver(connect, "maodbc") || NamesDriver(connect, "mariadb") ||
                         NamesDriver(connect, "myodbc") || NamesDriver(connect, "mysql");
    return isMySql ? SourceKind::MySql : SourceKind::Other;
}

} // namespace

// Handles

SQLRETURN Handle::Allocate(SQLSMALLINT type, SQLHANDLE parent) noexcept
{
    Free();
    m_type = type;
    const SQLRETURN code = SQLAllocHandle(type, parent, &m_handle);
    if (!SQL_SUCCEEDED(code))
        m_handle = nullptr;
    return code;
}

void Handle::Free() noexcept
{
    if (m_handle != nullptr)
        SQLFreeHandle(m_type, m_handle);
    m_handle = nullptr;
}

// Connecting

Connection::Connection(const ConnectionSettings& settings)
    : m_settings(settings), m_connectText(("ODBC;" + settings.connect).c_str())
{
    Check(m_environment.Allocate(SQL_HANDLE_ENV, SQL_NULL_HANDLE), SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    Check(SQLSetEnvAttr(m_environment.Get(), SQL_ATTR_ODBC_VERSION, OdbcNumber(SQL_OV_ODBC3), 0),
          SQL_HANDLE_ENV, m_environment.Get());
    try {
        LearnKind();
        Configure();
    } catch (...) {
        Disconnect();
        throw;
    }
}

void Connection::Connect(const std::string& connect)
{
    Check(m_dbc.Allocate(SQL_HANDLE_DBC, m_environment.Get()), SQL_HANDLE_ENV, m_environment.Get());
    // A driver that lacks one of these does without.
    SQLSetConnectAttr(m_dbc.Get(), SQL_ATTR_LOGIN_TIMEOUT, OdbcNumber(m_settings.loginTimeout), 0);
    if (m_settings.isReadOnly)
        SQLSetConnectAttr(m_dbc.Get(), SQL_ATTR_ACCESS_MODE, OdbcNumber(SQL_MODE_READ_ONLY), 0);
    std::array<SQLCHAR, 1024> completed{};
    SQLSMALLINT length = 0;
    Check(SQLDriverConnect(m_dbc.Get(), nullptr, OdbcText(connect), SQL_NTS, completed.data(),
                           static_cast<SQLSMALLINT>(completed.size()), &length,
                           SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, m_dbc.Get());
    m_isConnected = true;
}

std::string Connection::Info(SQLUSMALLINT what) const
{
    std::array<char, 1024> text{};
    SQLSMALLINT length = 0;
    SQLGetInfo(m_dbc.Get(), what, text.data(), static_cast<SQLSMALLINT>(text.size() - 1), &length);
    return text.data();
}

std::string Connection::ConnectTextFor(SourceKind kind) const
{
    switch (kind) {
    case SourceKind::Sqlite:
        return ForSqlite(m_settings.connect);
    case SourceKind::MySql:
        return ForMySql(m_settings.connect, {m_settings.loginTimeout, m_settings.queryTimeout});
    case SourceKind::Other:
        break;
    }
    return m_settings.connect;
}

/// Some drivers take their settings from the connection string only, and what kind of source it is
/// shows for certain when the connection is there.
void Connection::LearnKind()
{
    const SourceKind likely = LikelyKind(m_settings.connect);
    Connect(ConnectTextFor(likely));
    m_kind = KindOf(Info(SQL_DBMS_NAME));
    if (m_kind == likely)
        return;
    SQLDisconnect(m_dbc.Get());
    m_isConnected = false;
    Connect(ConnectTextFor(m_kind));
}

void Connection::Configure()
{
    if (m_kind == SourceKind::Sqlite)
        ConfigureSqlite();
    if (m_kind == SourceKind::MySql)
        ConfigureMySql();
    LimitTime();
    m_name = DecodeMessage(Info(SQL_DATABASE_NAME), ReceivedCharset());
}

void Connection::ConfigureSqlite()
{
    if (m_settings.isReadOnly)
        Run("PRAGMA query_only=ON");
}

void Connection::ConfigureMySql()
{
    // Answers come in UTF-8, so that a character which 1252 lacks is seen rather than replaced.
    Run("SET character_set_results=utf8mb4");
    Run("SET SESSION sql_mode=CONCAT_WS(',',REPLACE(@@SESSION.sql_mode,'ANSI_QUOTES',''),"
        "'NO_BACKSLASH_ESCAPES','STRICT_ALL_TABLES')");
    if (m_settings.isReadOnly)
        Run("SET SESSION TRANSACTION READ ONLY");
}

/// Where statements themselves take no limit: SQLite has one for waiting until somebody else has
/// finished, which its driver waits twice.
void Connection::LimitTime()
{
    constexpr DWORD kForEver = std::numeric_limits<int>::max() / 1000;
    const DWORD seconds = m_settings.queryTimeout;
    if (m_kind == SourceKind::Sqlite) {
        const DWORD limited = seconds == 0 || seconds > kForEver ? kForEver : seconds;
        Run(("PRAGMA busy_timeout=" + std::to_string(limited * 500)).c_str());
    }
    // MySQL has it by another name and in other units, for SELECT only.
    if (m_kind == SourceKind::MySql)
        Statement(*this).TryExecuteDirect(
            ("SET SESSION max_statement_time=" + std::to_string(seconds)).c_str());
}

void Connection::Run(const char* sql)
{
    Statement(*this).ExecuteDirect(sql);
}

void Connection::Disconnect() noexcept
{
    if (m_isInTransaction)
        Rollback();
    while (!m_users.empty()) {
        ConnectionUser* const user = m_users.back();
        m_users.pop_back();
        user->Abandon();
    }
    if (m_isConnected)
        SQLDisconnect(m_dbc.Get());
    m_isConnected = false;
    m_dbc.Free();
}

void Connection::Detach(ConnectionUser& user) noexcept
{
    m_users.erase(std::remove(m_users.begin(), m_users.end(), &user), m_users.end());
}

void Connection::RequireConnected() const
{
    if (!m_isConnected)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, "The database is closed.");
}

void Connection::SetQueryTimeout(DWORD seconds)
{
    m_settings.queryTimeout = seconds;
    LimitTime();
}

/// Whether the source has ended the transaction because of an error.
bool Connection::HasLostTransaction(SQLINTEGER error) noexcept
{
    constexpr SQLINTEGER kMySqlDeadlock = 1213;
    if (m_kind != SourceKind::Sqlite)
        return m_kind == SourceKind::MySql && error == kMySqlDeadlock;
    // SQLite does so on several errors, and where a constraint says so. Its driver does not notice.
    // A new transaction can be begun then and only then; that is the one for the driver to end.
    Handle statement;
    return SQL_SUCCEEDED(statement.Allocate(SQL_HANDLE_STMT, m_dbc.Get())) &&
           SQL_SUCCEEDED(SQLExecDirect(statement.Get(), OdbcText("BEGIN"), SQL_NTS));
}

void Connection::Fail(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle)
{
    const Diagnostics diagnostics = ReadDiagnostics(type, handle, ReceivedCharset());
    if (m_isInTransaction && !m_isUndone)
        m_isUndone = HasLostTransaction(diagnostics.native);
    AfxThrowDBException(code, diagnostics.text.IsEmpty() ? nullptr : diagnostics.text.GetString(),
                        diagnostics.stateNativeOrigin);
}

// Transactions

bool Connection::CanTransact() const
{
    SQLUSMALLINT capable = SQL_TC_NONE;
    SQLSMALLINT length = 0;
    SQLGetInfo(m_dbc.Get(), SQL_TXN_CAPABLE, &capable, sizeof capable, &length);
    return capable != SQL_TC_NONE;
}

void Connection::SetAutoCommit(bool isOn)
{
    const SQLULEN mode = isOn ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    Check(SQLSetConnectAttr(m_dbc.Get(), SQL_ATTR_AUTOCOMMIT, OdbcNumber(mode), 0), SQL_HANDLE_DBC,
          m_dbc.Get());
}

void Connection::Begin()
{
    SetAutoCommit(false);
    m_isInTransaction = true;
}

void Connection::RequireTransactionIntact() const
{
    if (m_isUndone)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "The database has undone the transaction.");
}

void Connection::Commit()
{
    RequireTransactionIntact();
    Check(SQLEndTran(SQL_HANDLE_DBC, m_dbc.Get(), SQL_COMMIT), SQL_HANDLE_DBC, m_dbc.Get());
    m_isInTransaction = false;
    SetAutoCommit(true);
}

bool Connection::Rollback() noexcept
{
    const SQLRETURN ended = SQLEndTran(SQL_HANDLE_DBC, m_dbc.Get(), SQL_ROLLBACK);
    m_isInTransaction = false;
    m_isUndone = false;
    const SQLRETURN restored =
        SQLSetConnectAttr(m_dbc.Get(), SQL_ATTR_AUTOCOMMIT, OdbcNumber(SQL_AUTOCOMMIT_ON), 0);
    return SQL_SUCCEEDED(ended) && SQL_SUCCEEDED(restored);
}

// Statements

Statement::Statement(Connection& connection) : m_connection(connection)
{
    connection.RequireConnected();
    connection.Check(m_handle.Allocate(SQL_HANDLE_STMT, connection.Get()), SQL_HANDLE_DBC,
                     connection.Get());
    // A driver without such a limit refuses, and takes the time it needs.
    SQLSetStmtAttr(Get(), SQL_ATTR_QUERY_TIMEOUT, OdbcNumber(connection.QueryTimeout()), 0);
}

std::string Statement::Sent(const CString& sql) const
{
    return Encode({sql.GetString(), static_cast<std::size_t>(sql.GetLength())},
                  m_connection.SentCharset());
}

void Statement::Prepare(const CString& sql)
{
    const std::string text = Sent(sql);
    Check(SQLPrepare(Get(), OdbcText(text), static_cast<SQLINTEGER>(text.size())));
}

void Statement::ExecuteDirect(const CString& sql)
{
    m_connection.RequireTransactionIntact();
    const std::string text = Sent(sql);
    const auto length = static_cast<SQLINTEGER>(text.size());
    m_hasNoRows = Check(SQLExecDirect(Get(), OdbcText(text), length)) == SQL_NO_DATA;
}

bool Statement::TryExecuteDirect(const CString& sql)
{
    const std::string text = Sent(sql);
    const auto length = static_cast<SQLINTEGER>(text.size());
    return SQL_SUCCEEDED(SQLExecDirect(Get(), OdbcText(text), length));
}

void Statement::Execute()
{
    m_connection.RequireTransactionIntact();
    m_hasNoRows = Check(SQLExecute(Get())) == SQL_NO_DATA;
}

void Statement::CloseCursor() noexcept
{
    SQLFreeStmt(Get(), SQL_CLOSE);
}

SQLSMALLINT Statement::ColumnCount() const
{
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(Get(), &count));
    return count;
}

LONGLONG Statement::RowCount() const
{
    if (m_hasNoRows)
        return 0;
    SQLLEN count = -1;
    Check(SQLRowCount(Get(), &count));
    return count;
}

bool Statement::Fetch()
{
    return Check(SQLFetch(Get())) != SQL_NO_DATA;
}

CString Statement::Text(SQLUSMALLINT column) const
{
    std::array<char, 1024> text{};
    SQLLEN length = 0;
    Check(SQLGetData(Get(), column, SQL_C_CHAR, text.data(), static_cast<SQLLEN>(text.size()),
                     &length));
    if (length == SQL_NULL_DATA)
        return CString();
    return DecodeMessage(text.data(), m_connection.ReceivedCharset());
}

} // namespace zelrs
