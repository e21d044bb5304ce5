// Databases: the connection and its transactions.

#include "platform/recordsets/connection.h"
#include "platform/recordsets/connecttext.h"

IMPLEMENT_DYNAMIC(CDatabase, CObject)

CDatabase::CDatabase() : m_hdbc(nullptr) {}

CDatabase::~CDatabase()
{
    CDatabase::Close();
}

zelrs::Connection& CDatabase::Opened() const
{
    if (!m_connection)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, "The database is not open.");
    return *m_connection;
}

void CDatabase::RequireTransaction(bool isWanted) const
{
    if (Opened().IsInTransaction() != isWanted)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE,
                            isWanted ? "There is no transaction." : "There is a transaction.");
}

// Opening

BOOL CDatabase::OpenEx(LPCTSTR lpszConnectString, DWORD dwOptions)
{
    if (m_connection)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "The database is open.");
    if (lpszConnectString == nullptr || (dwOptions & (openExclusive | forceOdbcDialog)) != 0)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL);
    zelrs::ConnectionSettings settings;
    settings.connect = zelrs::WithoutPrefix(lpszConnectString);
    settings.loginTimeout = m_dwLoginTimeout;
    settings.queryTimeout = m_dwQueryTimeout;
    settings.isReadOnly = (dwOptions & openReadOnly) != 0;
    m_connection = std::make_shared<zelrs::Connection>(settings);
    m_hdbc = m_connection->Get();
    return TRUE;
}

BOOL CDatabase::Open(LPCTSTR lpszDSN, BOOL bExclusive, BOOL bReadOnly, LPCTSTR lpszConnect,
                     BOOL bUseCursorLib)
{
    DWORD options = noOdbcDialog;
    if (bExclusive)
        options |= openExclusive;
    if (bReadOnly)
        options |= openReadOnly;
    if (bUseCursorLib)
        options |= useCursorLib;
    const std::string attributes = lpszConnect != nullptr ? lpszConnect : "";
    const std::string connect = lpszDSN != nullptr ? zelrs::ForDataSource(lpszDSN, attributes)
                                                   : zelrs::WithoutPrefix(attributes);
    return OpenEx(connect.c_str(), options);
}

void CDatabase::Close()
{
    if (m_connection)
        m_connection->Disconnect();
    m_connection.reset();
    m_hdbc = nullptr;
}

// State

BOOL CDatabase::IsOpen() const
{
    return m_connection != nullptr;
}

const CString& CDatabase::GetConnect() const
{
    return Opened().ConnectText();
}

CString CDatabase::GetDatabaseName() const
{
    return Opened().Name();
}

BOOL CDatabase::CanUpdate() const
{
    return !Opened().IsReadOnly();
}

BOOL CDatabase::CanTransact() const
{
    return Opened().CanTransact();
}

void CDatabase::SetLoginTimeout(DWORD dwSeconds)
{
    m_dwLoginTimeout = dwSeconds;
}

void CDatabase::SetQueryTimeout(DWORD dwSeconds)
{
    m_dwQueryTimeout = dwSeconds;
    if (m_connection)
        m_connection->SetQueryTimeout(dwSeconds);
}

// Transactions

BOOL CDatabase::BeginTrans()
{
    RequireTransaction(false);
    if (!m_connection->CanTransact())
        return FALSE;
    m_connection->Begin();
    return TRUE;
}

BOOL CDatabase::CommitTrans()
{
    RequireTransaction(true);
    m_connection->Commit();
    return TRUE;
}

BOOL CDatabase::Rollback()
{
    RequireTransaction(true);
    return m_connection->Rollback();
}

// Statements

void CDatabase::ExecuteSQL(LPCTSTR lpszSQL)
{
    zelrs::Connection& connection = Opened();
    if (lpszSQL == nullptr)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "There is no statement.");
    zelrs::Statement(connection).ExecuteDirect(lpszSQL);
}
