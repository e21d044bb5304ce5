// The engine of record sets whose records lie in an ODBC data source.

#include "platform/recordsets/odbcengine.h"

#include "platform/recordsets/connecttext.h"
#include "platform/recordsets/querytext.h"

#include <algorithm>
#include <limits>

namespace zelrs {

// Statements that change records

void ChangeStatement::PrepareText(Connection& connection, const CString& text,
                                  const CFieldChanges& changes, std::size_t keys)
{
    Reset();
    auto statement = std::make_unique<Statement>(connection);
    statement->Prepare(text);
    m_parameters = std::make_unique<Parameters>(*statement, changes.fields.size() + keys);
    m_statement = std::move(statement);
    m_names = changes.names;
    m_markers = changes.markers;
}

LONGLONG ChangeStatement::Execute()
{
    m_statement->Execute();
    return m_statement->RowCount();
}

LONGLONG ChangeStatement::ReadNumber()
{
    m_statement->Execute();
    const CString number = m_statement->Fetch() ? m_statement->Text(1) : CString();
    m_statement->CloseCursor();
    return std::strtoll(number, nullptr, 10);
}

void ChangeStatement::Reset() noexcept
{
    m_statement.reset();
    m_parameters.reset();
}

// Opening and closing

OdbcEngine::OdbcEngine(CRecordset& recordset) : m_recordset(recordset)
{
    if (recordset.m_pDatabase != nullptr)
        m_connection = Connection::Of(*recordset.m_pDatabase);
}

OdbcEngine::~OdbcEngine()
{
    OdbcEngine::Close();
}

void OdbcEngine::Connect(const CRecordsetQuery& query)
{
    if (!m_connection && m_recordset.m_pDatabase != nullptr)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, "The database is not open.");
    if (!m_connection) {
        ConnectionSettings settings;
        settings.connect = WithoutPrefix(query.connect.GetString());
        settings.isReadOnly = (query.options & CRecordset::readOnly) != 0;
        m_connection = std::make_shared<Connection>(settings);
    }
    m_connection->RequireConnected();
}

void OdbcEngine::Open(const CRecordsetQuery& query)
{
    Close();
    Connect(query);
    m_connection->Attach(*this);
    m_fields = query.columns;
    m_canScroll = query.openType != CRecordset::forwardOnly;
    const bool isWritable =
        m_canScroll && (query.options & CRecordset::readOnly) == 0 && !m_connection->IsReadOnly();
    m_canAppend = isWritable;
    m_canUpdate = isWritable && (query.options & CRecordset::appendOnly) == 0;
    RunQuery(query);
    m_canAppend = m_canAppend && !m_plan.table.IsEmpty();
    m_canUpdate = m_canUpdate && !m_plan.keys.empty();
}

void OdbcEngine::RunQuery(const CRecordsetQuery& query)
{
    if (query.sql.IsEmpty())
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "The record set has no query.");
    m_select = std::make_unique<Statement>(*m_connection);
    QueryPlanner planner(*m_select, query, m_canUpdate);
    planner.Prepare();
    SetParameters(query, planner);
    m_select->Execute();
    m_plan = planner.Finish();
    m_rows = m_canScroll ? MakeScrollingCursor(*m_select, m_plan.columns)
                         : MakeForwardCursor(*m_select, m_plan.columns);
}

void OdbcEngine::SetParameters(const CRecordsetQuery& query, const QueryPlanner& planner)
{
    m_parameters = std::make_unique<Parameters>(*m_select, query.parameters.size());
    std::size_t number = 0;
    for (const CFieldTransfer& parameter : query.parameters)
        m_parameters->Set(number++, parameter, planner.IsDateParameter(parameter));
}

void OdbcEngine::Release() noexcept
{
    m_rows.reset();
    m_select.reset();
    m_parameters.reset();
    m_insert.Reset();
    m_update.Reset();
    m_delete.Reset();
    m_count.Reset();
}

void OdbcEngine::Close()
{
    Release();
    if (m_connection)
        m_connection->Detach(*this);
}

/// The connection ends: so does the record set, and this object with it.
void OdbcEngine::Abandon() noexcept
{
    Release();
    try {
        m_recordset.Close();
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
        // A record set of somebody else's making may throw what it wants.
    }
}

void OdbcEngine::RequireOpen() const
{
    if (!m_rows)
        AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, "The database is closed.");
}

void OdbcEngine::RequireRow() const
{
    RequireOpen();
    if (!m_rows->IsOnRow())
        AfxThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

// Reading

CRecordPosition OdbcEngine::Move(CRecordMove move, LONGLONG rows)
{
    RequireOpen();
    return m_rows->Move(move, rows);
}

void OdbcEngine::GetValue(UINT column, CFieldValue& value)
{
    RequireRow();
    const std::size_t index = column - 1;
    DecodeValue(m_rows->Value(index), m_plan.columns[index].wire, m_connection->ReceivedCharset(),
                m_fields[index].name, value);
}

bool OdbcEngine::IsNullable(UINT column)
{
    return m_plan.fields[column - 1].isNullable;
}

LONG OdbcEngine::GetRecordCount() const
{
    if (!m_rows)
        return -1;
    return static_cast<LONG>(
        std::min<LONGLONG>(m_rows->RowCount(), std::numeric_limits<LONG>::max()));
}

// Changing

bool OdbcEngine::IsDateField(UINT ordinal) const
{
    return m_plan.fields[ordinal - 1].type == ColumnType::Date;
}

void OdbcEngine::SetFields(Parameters& parameters, const CFieldChanges& changes) const
{
    std::size_t number = 0;
    for (const CFieldTransfer& change : changes.fields) {
        const ResultColumn& column = m_plan.fields[change.ordinal - 1];
        if (m_connection->Kind() != SourceKind::Sqlite && !IsKeptWhole(change.value, column))
            ThrowTruncated(change.field.name);
        parameters.Set(number++, change, column.type == ColumnType::Date);
    }
}

void OdbcEngine::SetKey(Parameters& parameters, std::size_t first) const
{
    for (const KeyColumn& key : m_plan.keys) {
        const RawValue raw = m_rows->Value(key.column);
        if (raw.state != RawValue::State::Present)
            AfxThrowDBException(AFX_SQL_ERROR_NO_ROWS_AFFECTED,
                                "The record has no key. (" + key.name + ")");
        parameters.Set(first++, raw, m_plan.columns[key.column].wire);
    }
}

std::vector<CString> OdbcEngine::KeyNames() const
{
    std::vector<CString> names;
    for (const KeyColumn& key : m_plan.keys)
        names.push_back(key.name);
    return names;
}

LONGLONG OdbcEngine::Insert(const CFieldChanges& changes)
{
    RequireOpen();
    Parameters& parameters = m_insert.Prepare(*m_connection, changes, 0, [&] {
        return InsertText(m_plan.table, changes.names, changes.markers);
    });
    SetFields(parameters, changes);
    const LONGLONG count = m_insert.Execute();
    return count < 0 ? 1 : count;
}

/// Some sources count only records whose values became others: a record that is there is a record
/// that was found.
LONGLONG OdbcEngine::Confirm(LONGLONG count)
{
    return count > 0 ? count : KeyExists() ? 1 : 0;
}

bool OdbcEngine::KeyExists()
{
    Parameters& parameters = m_count.Prepare(*m_connection, CFieldChanges(), m_plan.keys.size(),
                                             [&] { return CountText(m_plan.table, KeyNames()); });
    SetKey(parameters, 0);
    return m_count.ReadNumber() > 0;
}

LONGLONG OdbcEngine::Update(const CFieldChanges& changes)
{
    RequireRow();
    Parameters& parameters = m_update.Prepare(*m_connection, changes, m_plan.keys.size(), [&] {
        return UpdateText(m_plan.table, changes.markers, KeyNames());
    });
    SetFields(parameters, changes);
    SetKey(parameters, changes.fields.size());
    const LONGLONG count = Confirm(m_update.Execute());
    if (count == 1)
        KeepChanges(changes);
    return count;
}

/// Whoever comes back to the record finds it as it was written.
void OdbcEngine::KeepChanges(const CFieldChanges& changes)
{
    std::vector<RawValue> values;
    for (std::size_t column = 0; column < m_plan.columns.size(); ++column)
        values.push_back(m_rows->Value(column));
    std::vector<std::string> written(changes.fields.size());
    std::size_t number = 0;
    for (const CFieldTransfer& change : changes.fields) {
        RawValue& value = values[change.ordinal - 1];
        std::string& bytes = written[number++];
        bytes = EncodeValue(change.value, m_plan.columns[change.ordinal - 1].wire,
                            m_connection->ReceivedCharset(), IsDateField(change.ordinal));
        value.state = change.value.isNull ? RawValue::State::Null : RawValue::State::Present;
        value.bytes = change.value.isNull ? std::string_view() : std::string_view(bytes);
    }
    m_rows->ReplaceRow(values);
}

LONGLONG OdbcEngine::Delete()
{
    RequireRow();
    Parameters& parameters = m_delete.Prepare(*m_connection, CFieldChanges(), m_plan.keys.size(),
                                              [&] { return DeleteText(m_plan.table, KeyNames()); });
    SetKey(parameters, 0);
    const LONGLONG count = m_delete.Execute();
    if (count == 1 || count < 0)
        m_rows->DeleteRow();
    return count < 0 ? 1 : count;
}

namespace {

std::unique_ptr<CRecordsetEngine> MakeEngine(CRecordset& recordset)
{
    return std::make_unique<OdbcEngine>(recordset);
}

/// Serves record sets as long as this library is loaded.
struct Registration {
    Registration() { CRecordset::SetEngineFactory(&MakeEngine); }
    ~Registration()
    {
        // Somebody else's factory, set since then, stays.
        const CRecordsetEngineFactory last = CRecordset::SetEngineFactory(nullptr);
        if (last != &MakeEngine)
            CRecordset::SetEngineFactory(last);
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
};

const Registration registration;

} // namespace

} // namespace zelrs
