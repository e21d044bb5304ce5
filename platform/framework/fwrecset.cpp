// Record sets: the fields of a record, their marks, and the way to the engine.

#include "platform/framework/fwrecset.h"

#include "platform/framework/fwfields.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>

IMPLEMENT_DYNAMIC(CRecordset, CObject)

namespace {

std::atomic<CRecordsetEngineFactory> engineFactory{nullptr};

/// Takes off the separator that follows the last field.
CString WithoutSeparator(const CString& text, LPCTSTR separator)
{
    return text.Left(text.GetLength() - CString(separator).GetLength());
}

void CheckOneRecord(LONGLONG count)
{
    if (count != 1)
        AfxThrowDBException(count < 1 ? AFX_SQL_ERROR_NO_ROWS_AFFECTED
                                      : AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
}

} // namespace

CRecordsetEngine::~CRecordsetEngine() = default;

// What is kept about the fields

void zelfw::RecordsetFields::NoteMembers()
{
    std::vector<const void*> addresses;
    for (const FieldState& field : columns)
        addresses.push_back(field.address);
    std::sort(addresses.begin(), addresses.end(), std::less<>());
    m_hasSharedMembers = std::adjacent_find(addresses.begin(), addresses.end()) != addresses.end();
    m_lastFound = 0;
    m_textsMode = EditMode::None;
}

std::vector<bool> zelfw::RecordsetFields::DirtyFields() const
{
    std::vector<bool> dirty;
    dirty.reserve(columns.size());
    for (const FieldState& field : columns)
        dirty.push_back(field.isDirty);
    return dirty;
}

const zelfw::RecordsetFields::Texts* zelfw::RecordsetFields::FindTexts() const
{
    return m_textsMode == mode && m_textsFields == DirtyFields() ? &m_texts : nullptr;
}

void zelfw::RecordsetFields::KeepTexts(const CFieldChanges& changes)
{
    m_texts = {changes.names, changes.markers};
    m_textsFields = DirtyFields();
    m_textsMode = mode;
}

zelfw::FieldState* zelfw::RecordsetFields::Find(const void* address)
{
    if (address == nullptr || m_hasSharedMembers)
        return nullptr;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        m_lastFound = m_lastFound + 1 < columns.size() ? m_lastFound + 1 : 0;
        if (columns[m_lastFound].address == address)
            return &columns[m_lastFound];
    }
    return nullptr;
}

CRecordset::CRecordset(CDatabase* pDatabase)
    : m_pDatabase(pDatabase), m_fields(std::make_unique<zelfw::RecordsetFields>())
{}

CRecordset::~CRecordset()
{
    if (m_engine)
        m_engine->Close();
}

CRecordsetEngineFactory CRecordset::SetEngineFactory(CRecordsetEngineFactory factory)
{
    return engineFactory.exchange(factory);
}

void CRecordset::DoFieldExchange(CFieldExchange*) {}

CString CRecordset::GetDefaultConnect()
{
    return CString();
}

CString CRecordset::GetDefaultSQL()
{
    return CString();
}

// Passes over the fields

void CRecordset::CheckCounts(const CFieldExchange& pass) const
{
    if ((m_nFields != 0 && m_nFields != pass.m_nFields) ||
        (m_nParams != 0 && m_nParams != pass.m_nParams))
        AfxThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH,
                            "The number of fields or parameters is wrong.");
}

void CRecordset::Exchange(UINT operation)
{
    CFieldExchange pass(operation, this);
    DoFieldExchange(&pass);
    CheckCounts(pass);
}

void CRecordset::Prepare()
{
    if (m_fields->isPrepared)
        return;
    m_fields->columns.clear();
    Exchange(CFieldExchange::BindFieldToColumn);
    m_fields->NoteMembers();
    m_fields->isPrepared = true;
}

BOOL CRecordset::ExchangeMark(UINT operation, const void* pv, BOOL mark)
{
    Prepare();
    CFieldExchange pass(operation, this, pv);
    pass.m_bMark = mark;
    DoFieldExchange(&pass);
    if (pv != nullptr && !pass.m_bFieldFound)
        AfxThrowDBException(ZELFW_SQL_ERROR_NO_SUCH_FIELD);
    return pass.m_bMark;
}

// Asking for null marks is what a program does for every field of every record: these two do not
// pass over all fields for one.

BOOL CRecordset::IsFieldNull(const void* pv)
{
    Prepare();
    if (const zelfw::FieldState* const field = m_fields->Find(pv))
        return field->isNull;
    return ExchangeMark(CFieldExchange::IsFieldNull, pv, FALSE);
}

void CRecordset::SetFieldNull(const void* pv, BOOL bNull)
{
    Prepare();
    zelfw::FieldState* const field = bNull ? nullptr : m_fields->Find(pv);
    if (field != nullptr) {
        field->isNull = false;
        field->wasSetNull = false;
        return;
    }
    ExchangeMark(CFieldExchange::SetFieldNull, pv, bNull);
}

BOOL CRecordset::IsFieldDirty(const void* pv)
{
    return ExchangeMark(CFieldExchange::IsFieldDirty, pv, FALSE);
}

void CRecordset::SetFieldDirty(const void* pv, BOOL bDirty)
{
    ExchangeMark(CFieldExchange::SetFieldDirty, pv, bDirty);
}

BOOL CRecordset::IsFieldNullable(const void* pv)
{
    return ExchangeMark(CFieldExchange::IsFieldNullable, pv, FALSE);
}

// Opening

CRecordsetEngine& CRecordset::Engine() const
{
    if (!m_engine)
        AfxThrowDBException(ZELFW_SQL_ERROR_NO_DATABASE);
    return *m_engine;
}

CRecordsetQuery CRecordset::MakeQuery()
{
    CRecordsetQuery query;
    query.openType = m_nOpenType;
    query.options = m_dwOptions;
    query.sql = m_strSQL;
    query.connect = GetDefaultConnect();
    query.filter = m_strFilter;
    query.sort = m_strSort;
    for (const zelfw::FieldState& field : m_fields->columns)
        query.columns.push_back(field.description);

    CFieldExchange pass(CFieldExchange::BindParam, this);
    pass.m_pTransfers = &query.parameters;
    DoFieldExchange(&pass);
    CheckCounts(pass);
    return query;
}

void CRecordset::RunQuery()
{
    m_fields->mode = zelfw::EditMode::None;
    try {
        Engine().Open(MakeQuery());
        MoveTo(CRecordMove::First, 0);
    } catch (...) {
        Close();
        throw;
    }
}

BOOL CRecordset::Open(UINT nOpenType, LPCTSTR lpszSQL, DWORD dwOptions)
{
    if (m_engine)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
    const CRecordsetEngineFactory factory = engineFactory.load();
    std::unique_ptr<CRecordsetEngine> engine = factory != nullptr ? factory(*this) : nullptr;
    if (!engine)
        AfxThrowDBException(ZELFW_SQL_ERROR_NO_DATABASE);
    m_fields->isPrepared = false;
    Prepare();
    if (m_fields->columns.empty())
        AfxThrowDBException(AFX_SQL_ERROR_EMPTY_COLUMN_LIST);

    m_nOpenType = nOpenType == AFX_DB_USE_DEFAULT_TYPE ? m_nDefaultType : nOpenType;
    m_dwOptions = dwOptions;
    m_strSQL = lpszSQL != nullptr ? CString(lpszSQL) : GetDefaultSQL();
    m_engine = std::move(engine);
    m_fields->engine = m_engine.get();
    RunQuery();
    return TRUE;
}

BOOL CRecordset::Requery()
{
    Engine().Close();
    RunQuery();
    return TRUE;
}

void CRecordset::Close()
{
    if (m_engine)
        m_engine->Close();
    m_fields->engine = nullptr;
    m_fields->mode = zelfw::EditMode::None;
    m_engine.reset();
    m_position = CRecordPosition::Empty;
    m_hasRecord = false;
    m_isDeleted = false;
}

BOOL CRecordset::IsOpen() const
{
    return m_engine != nullptr;
}

const CString& CRecordset::GetSQL() const
{
    return m_strSQL;
}

// Moving

void CRecordset::ReadRecord()
{
    // All columns are fetched and checked before the first member changes.
    CRecordsetEngine& engine = Engine();
    UINT column = 0;
    for (zelfw::FieldState& field : m_fields->columns) {
        zelfw::ResetValue(field.fetched, field.description.kind);
        engine.GetValue(++column, field.fetched);
        zelfw::CheckFieldValue(field.description, field.fetched);
    }
    Exchange(CFieldExchange::Fixup);
    m_hasRecord = true;
}

void CRecordset::MoveTo(CRecordMove move, LONGLONG rows)
{
    CRecordsetEngine& engine = Engine();
    CancelUpdate();
    m_hasRecord = false;
    m_isDeleted = false;
    m_position = engine.Move(move, rows);
    if (m_position == CRecordPosition::OnRecord)
        ReadRecord();
}

void CRecordset::RequireRecords() const
{
    Engine();
    if (m_position == CRecordPosition::Empty)
        AfxThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

void CRecordset::Move(long nRows)
{
    RequireRecords();
    if ((nRows > 0 && IsEOF()) || (nRows < 0 && IsBOF()))
        AfxThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
    MoveTo(CRecordMove::Relative, nRows);
}

void CRecordset::MoveNext()
{
    Move(1);
}

void CRecordset::MovePrev()
{
    Move(-1);
}

void CRecordset::MoveFirst()
{
    RequireRecords();
    MoveTo(CRecordMove::First, 0);
}

void CRecordset::MoveLast()
{
    RequireRecords();
    MoveTo(CRecordMove::Last, 0);
}

void CRecordset::SetAbsolutePosition(long nRows)
{
    RequireRecords();
    MoveTo(CRecordMove::Absolute, nRows);
}

BOOL CRecordset::IsBOF() const
{
    return m_position == CRecordPosition::BeforeFirst || m_position == CRecordPosition::Empty;
}

BOOL CRecordset::IsEOF() const
{
    return m_position == CRecordPosition::AfterLast || m_position == CRecordPosition::Empty;
}

BOOL CRecordset::IsDeleted() const
{
    return m_isDeleted;
}

BOOL CRecordset::CanAppend() const
{
    return Engine().CanAppend();
}

BOOL CRecordset::CanUpdate() const
{
    return Engine().CanUpdate();
}

BOOL CRecordset::CanScroll() const
{
    return Engine().CanScroll();
}

BOOL CRecordset::CanRestart() const
{
    return Engine().CanScroll();
}

long CRecordset::GetRecordCount() const
{
    return m_engine ? m_engine->GetRecordCount() : 0;
}

// Changing

void CRecordset::RequireUpdatable(bool can) const
{
    if (!can)
        AfxThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY);
}

void CRecordset::RequireRecord() const
{
    if (!m_hasRecord)
        AfxThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

void CRecordset::AddNew()
{
    RequireUpdatable(!m_engine || m_engine->CanAppend());
    Prepare();
    CancelUpdate();
    Exchange(CFieldExchange::StoreField);
    m_fields->mode = zelfw::EditMode::Adding;
    Exchange(CFieldExchange::ClearField);
}

void CRecordset::Edit()
{
    if (m_engine) {
        RequireRecord();
        RequireUpdatable(m_engine->CanUpdate());
    }
    Prepare();
    CancelUpdate();
    Exchange(CFieldExchange::StoreField);
    m_fields->mode = zelfw::EditMode::Editing;
}

void CRecordset::CancelUpdate()
{
    if (m_fields->mode == zelfw::EditMode::None)
        return;
    Exchange(CFieldExchange::LoadField);
    m_fields->mode = zelfw::EditMode::None;
}

CFieldChanges CRecordset::CollectChanges()
{
    const bool isNew = m_fields->mode == zelfw::EditMode::Adding;
    Exchange(isNew ? CFieldExchange::MarkForAddNew : CFieldExchange::MarkForUpdate);

    CFieldChanges changes;
    changes.fields.reserve(m_fields->columns.size());
    CFieldExchange values(isNew ? CFieldExchange::Value : CFieldExchange::NameValue, this);
    values.m_pTransfers = &changes.fields;
    if (const zelfw::RecordsetFields::Texts* const texts = m_fields->FindTexts()) {
        DoFieldExchange(&values);
        changes.names = texts->names;
        changes.markers = texts->markers;
        return changes;
    }
    values.m_pstr = &changes.markers;
    DoFieldExchange(&values);
    changes.markers = WithoutSeparator(changes.markers, values.m_lpszSeparator);
    if (isNew) {
        CFieldExchange names(CFieldExchange::Name, this);
        names.m_pstr = &changes.names;
        DoFieldExchange(&names);
        changes.names = WithoutSeparator(changes.names, names.m_lpszSeparator);
    }
    m_fields->KeepTexts(changes);
    return changes;
}

BOOL CRecordset::Update()
{
    if (m_fields->mode == zelfw::EditMode::None)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
    CRecordsetEngine& engine = Engine();
    const bool isNew = m_fields->mode == zelfw::EditMode::Adding;
    const CFieldChanges changes = CollectChanges();
    const bool hasChanges = !changes.fields.empty();
    if (hasChanges)
        CheckOneRecord(isNew ? engine.Insert(changes) : engine.Update(changes));
    // What was written becomes what later changes are compared with.
    Exchange(isNew ? CFieldExchange::LoadField : CFieldExchange::StoreField);
    m_fields->mode = zelfw::EditMode::None;
    return hasChanges;
}

void CRecordset::Delete()
{
    CRecordsetEngine& engine = Engine();
    if (m_fields->mode != zelfw::EditMode::None)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
    RequireRecord();
    RequireUpdatable(engine.CanUpdate());
    CheckOneRecord(engine.Delete());
    Exchange(CFieldExchange::ClearField);
    m_hasRecord = false;
    m_isDeleted = true;
}
