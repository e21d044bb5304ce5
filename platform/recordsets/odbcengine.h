#ifndef ZELDT_PLATFORM_RECORDSETS_ODBCENGINE_H
#define ZELDT_PLATFORM_RECORDSETS_ODBCENGINE_H

/// The engine of record sets whose records lie in an ODBC data source.

#include "platform/recordsets/parameters.h"
#include "platform/recordsets/queryplan.h"
#include "platform/recordsets/rowcursor.h"

#include <memory>
#include <vector>

namespace zelrs {

/// A statement that changes records and stays prepared as long as it is about the same fields.
class ChangeStatement {
public:
    /// The parameters of the statement that `makeText` makes for the changes, `keys` of them behind
    /// those of the changed fields.
    template <class MakeText>
    Parameters& Prepare(Connection& connection, const CFieldChanges& changes, std::size_t keys,
                        MakeText makeText)
    {
        if (!m_statement || m_names != changes.names || m_markers != changes.markers)
            PrepareText(connection, makeText(), changes, keys);
        return *m_parameters;
    }

    /// Runs it and returns how many records that concerned, -1 when the source does not tell.
    LONGLONG Execute();

    /// The number in the first column of its first row, after Prepare.
    LONGLONG ReadNumber();

    void Reset() noexcept;

private:
    void PrepareText(Connection& connection, const CString& text, const CFieldChanges& changes,
                     std::size_t keys);

    CString m_names;
    CString m_markers;
    std::unique_ptr<Statement> m_statement;
    std::unique_ptr<Parameters> m_parameters;
};

class OdbcEngine : public CRecordsetEngine, private ConnectionUser {
public:
    explicit OdbcEngine(CRecordset& recordset);
    ~OdbcEngine() override;

    void Open(const CRecordsetQuery& query) override;
    void Close() override;
    CRecordPosition Move(CRecordMove move, LONGLONG rows) override;
    void GetValue(UINT column, CFieldValue& value) override;
    bool IsNullable(UINT column) override;
    bool CanAppend() const override { return m_canAppend; }
    bool CanUpdate() const override { return m_canUpdate; }
    bool CanScroll() const override { return m_canScroll; }
    LONG GetRecordCount() const override;
    LONGLONG Insert(const CFieldChanges& changes) override;
    LONGLONG Update(const CFieldChanges& changes) override;
    LONGLONG Delete() override;

private:
    void Abandon() noexcept override;
    void Release() noexcept;
    void Connect(const CRecordsetQuery& query);
    void RunQuery(const CRecordsetQuery& query);
    void SetParameters(const CRecordsetQuery& query, const QueryPlanner& planner);
    void RequireOpen() const;
    void RequireRow() const;
    void SetFields(Parameters& parameters, const CFieldChanges& changes) const;
    void SetKey(Parameters& parameters, std::size_t first) const;
    std::vector<CString> KeyNames() const;
    bool KeyExists();
    LONGLONG Confirm(LONGLONG count);
    void KeepChanges(const CFieldChanges& changes);
    bool IsDateField(UINT ordinal) const;

    CRecordset& m_recordset;
    std::shared_ptr<Connection> m_connection;
    std::vector<CFieldDescription> m_fields;
    QueryPlan m_plan;
    std::unique_ptr<Statement> m_select;
    std::unique_ptr<Parameters> m_parameters;
    std::unique_ptr<RowCursor> m_rows;
    ChangeStatement m_insert;
    ChangeStatement m_update;
    ChangeStatement m_delete;
    ChangeStatement m_count;
    bool m_canAppend = false;
    bool m_canUpdate = false;
    bool m_canScroll = false;
};

} // namespace zelrs

#endif
