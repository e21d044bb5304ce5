#ifndef ZELDT_PLATFORM_RECORDSETS_QUERYPLAN_H
#define ZELDT_PLATFORM_RECORDSETS_QUERYPLAN_H

/// How a record set's query becomes a statement, and its result the values of fields.

#include "platform/recordsets/columns.h"

#include <vector>

namespace zelrs {

struct KeyColumn {
    CString name;           ///< as it stands in statements
    std::size_t column = 0; ///< which of the plan's columns holds it
};

struct QueryPlan {
    CString table;                    ///< where records are written to, empty for nowhere
    std::vector<ResultColumn> fields; ///< one for each field
    std::vector<ColumnPlan> columns;  ///< one for each field, then hidden keys
    std::vector<KeyColumn> keys;      ///< empty when records cannot be found again
};

/// Turns the query into a statement, runs it and plans how to fetch its result.
class QueryPlanner {
public:
    /// `needsKeys` when records are to be changed.
    QueryPlanner(Statement& statement, const CRecordsetQuery& query, bool needsKeys);

    /// Prepares the statement and describes its columns if they show already.
    void Prepare();

    /// Whether the value of a parameter is compared with a column that holds days without time.
    bool IsDateParameter(const CFieldTransfer& parameter) const;

    /// Plans; the statement has been executed.
    QueryPlan Finish();

private:
    void PrepareTable();
    void PrepareSelect(const CString& select);
    void Describe();
    void DeclareSqliteTypes();
    void SelectExactReals();
    const Table& LookUp(const CString& name);
    void AddHiddenKeys();
    void PlanFields();
    bool HasTableColumn() const;
    void PlanKeys();
    bool FindKey(const CString& key);

    Statement& m_statement;
    const CRecordsetQuery& m_query;
    bool m_needsKeys;
    std::vector<CString> m_selected; ///< what a composed SELECT selects
    std::vector<CString> m_hiddenKeys;
    std::vector<ResultColumn> m_results;
    std::vector<std::pair<CString, Table>> m_tables; ///< looked up so far
    QueryPlan m_plan;
};

} // namespace zelrs

#endif
