#ifndef ZELDT_PLATFORM_RECORDSETS_CONNECTION_H
#define ZELDT_PLATFORM_RECORDSETS_CONNECTION_H

/// One connection to a data source: its handles, its settings, its transaction.

#include "platform/recordsets/odbc.h"

#include "platform/recordsets/charset.h"
#include "platform/recordsets/database.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelrs {

/// What is known about a source beyond what it says through ODBC.
enum class SourceKind {
    Sqlite, ///< gets and gives UTF-8; columns take values of any type
    MySql,  ///< MariaDB and MySQL: gets latin1, their name for 1252, and gives UTF-8
    Other,  ///< bytes as they are
};

/// Owns an ODBC handle.
class Handle {
public:
    Handle() = default;
    ~Handle() { Free(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    /// Returns what ODBC says to it.
    SQLRETURN Allocate(SQLSMALLINT type, SQLHANDLE parent) noexcept;
    void Free() noexcept;
    SQLHANDLE Get() const noexcept { return m_handle; }

private:
    SQLSMALLINT m_type = 0;
    SQLHANDLE m_handle = nullptr;
};

struct ConnectionSettings {
    std::string connect; ///< without "ODBC;" in front
    DWORD loginTimeout = 15;
    DWORD queryTimeout = 15;
    bool isReadOnly = false;
};

/// Something that holds statements of a connection and must let go of them before it ends.
class ConnectionUser {
public:
    virtual void Abandon() noexcept = 0;

protected:
    ~ConnectionUser() = default;
};

/// A connection stays an object when it has ended, for those who still hold it.
class Connection {
public:
    /// Connects; throws CDBException.
    explicit Connection(const ConnectionSettings& settings);
    ~Connection() { Disconnect(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The connection of a database, null when it is not open.
    static std::shared_ptr<Connection> Of(const CDatabase& database)
    {
        return database.m_connection;
    }

    /// Rolls back, lets all users abandon it and ends.
    void Disconnect() noexcept;
    bool IsConnected() const noexcept { return m_isConnected; }

    /// Throws CDBException unless connected.
    void RequireConnected() const;

    SQLHDBC Get() const noexcept { return m_dbc.Get(); }
    SourceKind Kind() const noexcept { return m_kind; }
    bool IsReadOnly() const noexcept { return m_settings.isReadOnly; }
    const CString& ConnectText() const noexcept { return m_connectText; }
    CString Name() const { return m_name; }

    /// What encloses names, empty when nothing does.
    CString IdentifierQuote() const { return Info(SQL_IDENTIFIER_QUOTE_CHAR).c_str(); }

    void SetQueryTimeout(DWORD seconds);
    DWORD QueryTimeout() const noexcept { return m_settings.queryTimeout; }

    // Texts: what the program writes and what the source answers.

    Charset SentCharset() const noexcept
    {
        return m_kind == SourceKind::Sqlite ? Charset::Utf8 : Charset::Ansi;
    }
    Charset ReceivedCharset() const noexcept
    {
        return m_kind == SourceKind::Other ? Charset::Ansi : Charset::Utf8;
    }

    // Transactions

    bool CanTransact() const;
    bool IsInTransaction() const noexcept { return m_isInTransaction; }
    void Begin();
    void Commit();
    bool Rollback() noexcept;

    /// Throws CDBException (illegal mode) when the source has undone the transaction by itself.
    /// What is written before the program has rolled back would be kept as if there had been none.
    void RequireTransactionIntact() const;

    /// Passes a return code that is no failure on; otherwise throws what the handle says about it.
    SQLRETURN Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle)
    {
        if (code == SQL_ERROR || code == SQL_INVALID_HANDLE)
            Fail(code, type, handle);
        return code;
    }

    void Attach(ConnectionUser& user) { m_users.push_back(&user); }
    void Detach(ConnectionUser& user) noexcept;

private:
    [[noreturn]] void Fail(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle);
    bool HasLostTransaction(SQLINTEGER error) noexcept;
    void Connect(const std::string& connect);
    std::string ConnectTextFor(SourceKind kind) const;
    void LearnKind();
    void Configure();
    void ConfigureSqlite();
    void ConfigureMySql();
    void LimitTime();
    std::string Info(SQLUSMALLINT what) const;
    void SetAutoCommit(bool isOn);
    void Run(const char* sql);

    ConnectionSettings m_settings;
    Handle m_environment;
    Handle m_dbc;
    SourceKind m_kind = SourceKind::Other;
    CString m_connectText;
    CString m_name;
    bool m_isConnected = false;
    bool m_isInTransaction = false;
    bool m_isUndone = false; ///< the transaction, by the source itself
    std::vector<ConnectionUser*> m_users;
};

/// A statement of a connection.
class Statement {
public:
    explicit Statement(Connection& connection);

    SQLHSTMT Get() const noexcept { return m_handle.Get(); }
    Connection& Owner() const noexcept { return m_connection; }

    /// Both take the program's text.
    void Prepare(const CString& sql);
    void ExecuteDirect(const CString& sql);

    /// The same, false when that fails.
    bool TryExecuteDirect(const CString& sql);

    void Execute();

    /// Ends the cursor; the statement can be executed again.
    void CloseCursor() noexcept;

    SQLSMALLINT ColumnCount() const;

    /// Records that the execution concerned, -1 when the source does not tell.
    LONGLONG RowCount() const;

    /// To the next row; false when there is none.
    bool Fetch();

    /// A column of the current row as text of the program; empty when null.
    CString Text(SQLUSMALLINT column) const;

    SQLRETURN Check(SQLRETURN code) const
    {
        return m_connection.Check(code, SQL_HANDLE_STMT, Get());
    }

private:
    std::string Sent(const CString& sql) const;

    Connection& m_connection;
    Handle m_handle;
    bool m_hasNoRows = false; ///< the execution said that it concerned none
};

} // namespace zelrs

#endif
