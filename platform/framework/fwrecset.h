#ifndef ZELDT_PLATFORM_FRAMEWORK_FWRECSET_H
#define ZELDT_PLATFORM_FRAMEWORK_FWRECSET_H

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwobject.h"
#include "fwrfx.h"
#include "fwstring.h"

#include <memory>
#include <vector>

class CDatabase;
class CRecordset;

/// What a record set asks its engine for when it opens.
struct ZELFW_API CRecordsetQuery {
    UINT openType = 0; ///< CRecordset::OpenType
    DWORD options = 0; ///< CRecordset::OpenOptions
    CString sql;       ///< a table name, a SELECT or a CALL
    CString connect;   ///< for an engine that has to connect by itself
    CString filter;    ///< a condition without WHERE; may be empty
    CString sort;      ///< columns without ORDER BY; may be empty
    std::vector<CFieldDescription> columns;
    std::vector<CFieldTransfer> parameters;
};

/// The changed fields of a record on their way to the engine. The texts are parts of the
/// statement: for an insertion `names` is "A,B" and `markers` "?,?", for an update `names` is
/// empty and `markers` "A=?,B=?". `fields` holds the values in the same order, at least one.
struct ZELFW_API CFieldChanges {
    CString names;
    CString markers;
    std::vector<CFieldTransfer> fields;
};

enum class CRecordMove {
    First,
    Last,
    Relative, ///< `rows` records on, or back when negative
    Absolute, ///< to record `rows`, from 1; negative ones count from the end
};

enum class CRecordPosition {
    OnRecord,
    BeforeFirst,
    AfterLast,
    Empty, ///< there are no records at all
};

/// What stands between a record set and a database: implemented by the library that knows how
/// to reach one.
///
/// The record set calls it between Open and Close only; column numbers count from 1 in the order
/// of the query's columns. An engine reports failures as CDBException.
class ZELFW_API CRecordsetEngine {
public:
    virtual ~CRecordsetEngine();

    /// Runs the query. Columns whose type cannot be brought to the field's kind are a schema
    /// mismatch. Called again by Requery, after Close.
    virtual void Open(const CRecordsetQuery& query) = 0;

    /// Frees what Open acquired. Must not throw; also called after an Open that did.
    virtual void Close() = 0;

    /// Moves to another record and tells where that is.
    virtual CRecordPosition Move(CRecordMove move, LONGLONG rows) = 0;

    /// Writes a column of the current record to `value`, whose kind says in which form it is
    /// wanted, and sets `isNull` in any case. A text may be longer than the field takes: the
    /// record set refuses it.
    virtual void GetValue(UINT column, CFieldValue& value) = 0;

    virtual bool IsNullable(UINT column) = 0;
    virtual bool CanAppend() const = 0;
    virtual bool CanUpdate() const = 0;
    virtual bool CanScroll() const = 0;

    /// Number of records as far as known, -1 when it cannot be told.
    virtual LONG GetRecordCount() const = 0;

    /// Add a record, change and delete the current one. They return how many records that
    /// concerned; the record set takes everything but 1 for a failure.
    virtual LONGLONG Insert(const CFieldChanges& changes) = 0;
    virtual LONGLONG Update(const CFieldChanges& changes) = 0;
    virtual LONGLONG Delete() = 0;
};

/// Makes the engine of a record set that is about to open; null when it cannot serve it.
using CRecordsetEngineFactory = std::unique_ptr<CRecordsetEngine> (*)(CRecordset& recordset);

/// Open with the record set's own default type.
inline constexpr UINT AFX_DB_USE_DEFAULT_TYPE = 0xFFFFFFFF;

/// A set of records, one of which is current and held in the members of a derived class.
///
/// The derived class lists its members in DoFieldExchange (see fwrfx.h) and sets `m_nFields` and
/// `m_nParams` to their number; a number other than 0 that disagrees with the list is a
/// CDBException (schema mismatch).
///
/// Every field has a null mark and a dirty mark. They work from the beginning, whether or not
/// the record set is open, and so do AddNew, Edit and CancelUpdate. What needs a database throws
/// CDBException (ZELFW_SQL_ERROR_NO_DATABASE) as long as no library has registered an engine.
///
/// Fields are changed between AddNew or Edit and Update. A field is written if its value or null
/// mark changed, or if SetFieldDirty said so; of a new record also those that SetFieldNull marked
/// null, while untouched ones are left to the database. A member that is assigned a value while it
/// is marked null counts as not null from Update on; SetFieldNull(&member, FALSE) says so at once,
/// and is needed for a value that the member held already.
///
///     CCustomers customers(&database);
///     customers.Open();
///     while (!customers.IsEOF()) {
///         if (customers.IsFieldNull(&customers.m_strName)) {
///             customers.Edit();
///             customers.m_strName = "?";
///             customers.Update();
///         }
///         customers.MoveNext();
///     }
class ZELFW_API CRecordset : public CObject {
    DECLARE_DYNAMIC(CRecordset)

public:
    enum OpenType {
        dynaset,
        snapshot,
        forwardOnly,
        dynamic,
    };

    enum OpenOptions {
        none = 0,
        appendOnly = 4,
        readOnly = 8,
    };

    /// The database must outlive the record set.
    explicit CRecordset(CDatabase* pDatabase = nullptr);
    ~CRecordset() override;

    /// Sets what makes the engines of record sets that open from now on; null for nothing.
    /// Returns what was set before.
    static CRecordsetEngineFactory SetEngineFactory(CRecordsetEngineFactory factory);

    // Opening

    /// Runs the query and reads the first record. A null `lpszSQL` stands for GetDefaultSQL().
    /// Throws on failure, and then is not open; CDBException (illegal mode) when open already.
    virtual BOOL Open(UINT nOpenType = AFX_DB_USE_DEFAULT_TYPE, LPCTSTR lpszSQL = nullptr,
                      DWORD dwOptions = none);

    /// Runs the query again, with the parameters, filter and sort order there are now.
    virtual BOOL Requery();

    virtual void Close();

    BOOL IsOpen() const;

    /// The query that was opened.
    const CString& GetSQL() const;

    virtual CString GetDefaultConnect();
    virtual CString GetDefaultSQL();

    // Moving. A change that was begun and not written is given up. CDBException (no current
    // record) when there are no records, or beyond the end that was reached already.

    virtual void Move(long nRows);
    void MoveNext();
    void MovePrev();
    void MoveFirst();
    void MoveLast();

    /// To a record by number, from 1; negative numbers count from the end.
    void SetAbsolutePosition(long nRows);

    /// Before the first, after the last record; both when there are none.
    BOOL IsBOF() const;
    BOOL IsEOF() const;

    /// Whether the current record was deleted.
    BOOL IsDeleted() const;

    BOOL CanAppend() const;
    BOOL CanUpdate() const;
    BOOL CanScroll() const;
    BOOL CanRestart() const;

    /// Number of records as far as known, -1 when it cannot be told, 0 when not open.
    long GetRecordCount() const;

    // Changing

    /// Begins a new record: all fields empty and null. A change that was begun is given up.
    virtual void AddNew();

    /// Begins changing the current record. An open record set needs one: CDBException (no current
    /// record).
    virtual void Edit();

    /// Writes what AddNew or Edit began; then the fields of a new record make way for those of
    /// the current one. FALSE when there was nothing to write. CDBException (illegal mode) without
    /// AddNew or Edit; after an exception the change is still begun and can be corrected.
    virtual BOOL Update();

    /// Gives the fields back the values and null marks from before AddNew or Edit.
    void CancelUpdate();

    /// Deletes the current record; its fields become empty and null, and the next call should
    /// move on.
    virtual void Delete();

    // Marks. `pv` is the address of a member listed as column, otherwise CDBException
    // (ZELFW_SQL_ERROR_NO_SUCH_FIELD); null stands for all columns, and for any when asking.

    BOOL IsFieldNull(const void* pv);
    void SetFieldNull(const void* pv, BOOL bNull = TRUE);
    BOOL IsFieldDirty(const void* pv);

    /// FALSE keeps a field out of the next Update, whatever its value.
    void SetFieldDirty(const void* pv, BOOL bDirty = TRUE);

    /// Whether the column can be null; every field can as long as the record set is not open.
    BOOL IsFieldNullable(const void* pv);

    /// Lists the members; the derived class calls one RFX function for each.
    virtual void DoFieldExchange(CFieldExchange* pFX);

    CDatabase* m_pDatabase;
    CString m_strFilter; ///< a condition without WHERE, set before Open or Requery
    CString m_strSort;   ///< columns without ORDER BY, set before Open or Requery
    UINT m_nFields = 0;  ///< columns that DoFieldExchange lists
    UINT m_nParams = 0;  ///< parameters that DoFieldExchange lists
    UINT m_nDefaultType = dynaset;

private:
    friend class CFieldExchange;

    void Prepare();
    void CheckCounts(const CFieldExchange& pass) const;
    void Exchange(UINT operation);
    BOOL ExchangeMark(UINT operation, const void* pv, BOOL mark);
    CRecordsetQuery MakeQuery();
    void RunQuery();
    void MoveTo(CRecordMove move, LONGLONG rows);
    void ReadRecord();
    CRecordsetEngine& Engine() const;
    void RequireRecords() const;
    void RequireRecord() const;
    void RequireUpdatable(bool can) const;
    CFieldChanges CollectChanges();

    std::unique_ptr<zelfw::RecordsetFields> m_fields;
    std::unique_ptr<CRecordsetEngine> m_engine;
    CString m_strSQL;
    UINT m_nOpenType = dynaset;
    DWORD m_dwOptions = none;
    CRecordPosition m_position = CRecordPosition::Empty;
    bool m_hasRecord = false; ///< the members hold the record at the position
    bool m_isDeleted = false;
};

#endif
