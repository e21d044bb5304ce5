#ifndef ZELDT_PLATFORM_RECORDSETS_DATABASE_H
#define ZELDT_PLATFORM_RECORDSETS_DATABASE_H

#include "../framework/framework.h"
#include "export.h"

#include <memory>

namespace zelrs {
class Connection;
}

/// A connection to an ODBC data source, and the transactions on it.
///
/// A CRecordset that is given an open database reads and writes through it; loading this library
/// is what makes CRecordset::Open work. A record set without a database opens one of its own from
/// GetDefaultConnect().
///
/// Texts of the program are in code page 1252, whatever the database keeps: names, statements,
/// values and messages. A SQLite database gets and gives UTF-8, MariaDB and MySQL are told to speak
/// latin1 (their name for 1252), any other source gets the bytes as they are. A text from the
/// database that 1252 cannot hold is a CDBException (data truncated), never replaced.
///
/// MariaDB and MySQL are also told that a backslash in a literal is a plain character
/// (sql_mode NO_BACKSLASH_ESCAPES) and that double quotes enclose texts, because that is how the
/// value classes write SQL text: they double quotes and leave backslashes alone. Without that a
/// text could end its own literal. And they are told to refuse values that a column cannot hold
/// (STRICT_ALL_TABLES). What their driver gives as null, such as the date 0000-00-00, is null.
///
/// Failures are thrown as CDBException with the driver's return code, its text in `m_strError` and
/// "State:%s,Native:%ld,Origin:%s" in `m_strStateNativeOrigin`. Members called while there is no
/// connection throw CDBException (AFX_SQL_ERROR_CONNECT_FAIL) unless something else is said.
///
///     CDatabase database;
///     database.OpenEx("Driver=/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so;Database=kasse.db",
///                     CDatabase::noOdbcDialog);
///     database.BeginTrans();
///     database.ExecuteSQL("DELETE FROM KUNDEN WHERE ORT IS NULL");
///     database.CommitTrans();
class ZELRS_API CDatabase : public CObject {
    DECLARE_DYNAMIC(CDatabase)

public:
    enum DbOpenOptions {
        openExclusive = 1, ///< not supported: CDBException (AFX_SQL_ERROR_CONNECT_FAIL)
        openReadOnly = 2,
        useCursorLib = 4,     ///< accepted; record sets scroll without it
        noOdbcDialog = 8,     ///< what always holds: this library never asks
        forceOdbcDialog = 16, ///< not supported: CDBException (AFX_SQL_ERROR_CONNECT_FAIL)
    };

    CDatabase();

    /// Closes; never throws.
    ~CDatabase() override;

    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;

    /// Connects with an ODBC connection string; a leading "ODBC;" is dropped. Returns TRUE. Throws
    /// when the source cannot be reached, and then is not open; CDBException (illegal mode) when
    /// open already.
    virtual BOOL OpenEx(LPCTSTR lpszConnectString, DWORD dwOptions = 0);

    /// The same by the name of a data source; `lpszConnect` holds further attributes.
    virtual BOOL Open(LPCTSTR lpszDSN, BOOL bExclusive = FALSE, BOOL bReadOnly = FALSE,
                      LPCTSTR lpszConnect = "ODBC;", BOOL bUseCursorLib = TRUE);

    /// Rolls back what was not committed, closes the record sets that are open on the connection
    /// and disconnects. Does nothing when not open; never throws.
    virtual void Close();

    BOOL IsOpen() const;

    /// The connection string in full, with "ODBC;" in front. It holds passwords.
    const CString& GetConnect() const;

    /// What the source calls the database that is open.
    CString GetDatabaseName() const;

    BOOL CanUpdate() const;
    BOOL CanTransact() const;

    /// Seconds to wait for a connection, 0 for ever; 15 before it is set. Used by the next OpenEx.
    void SetLoginTimeout(DWORD dwSeconds);

    /// Seconds that a statement may take, 0 for ever; 15 before it is set. Drivers that know no
    /// such limit take the time they need; for SQLite it is how long a locked database is waited
    /// for.
    void SetQueryTimeout(DWORD dwSeconds);

    /// Begins a transaction; what is written from now on counts only after CommitTrans. FALSE when
    /// the source has no transactions; CDBException (illegal mode) within a transaction.
    BOOL BeginTrans();

    /// Ends the transaction. A failure to commit is thrown; the transaction is then still open and
    /// can be rolled back. CDBException (illegal mode) without BeginTrans.
    BOOL CommitTrans();

    /// Undoes the transaction; record sets keep what their members hold. FALSE when that failed
    /// because the connection is lost: the server undoes it then. CDBException (illegal mode)
    /// without BeginTrans.
    BOOL Rollback();

    /// Executes a statement; rows that it returns are dropped. Null is CDBException (illegal mode).
    void ExecuteSQL(LPCTSTR lpszSQL);

    /// The ODBC handle of the connection, null when not open. For calls that this class lacks;
    /// texts are the driver's there.
    HDBC m_hdbc;

private:
    friend class zelrs::Connection;

    zelrs::Connection& Opened() const;
    void RequireTransaction(bool isWanted) const;

    std::shared_ptr<zelrs::Connection> m_connection;
    DWORD m_dwLoginTimeout = 15;
    DWORD m_dwQueryTimeout = 15;
};

#endif
