// How a record set's query becomes a statement.

#include "platform/recordsets/queryplan.h"

#include "platform/recordsets/querytext.h"
#include "platform/recordsets/sqltext.h"

#include <algorithm>

namespace zelrs {

namespace {

bool IsSame(const CString& left, const CString& right)
{
    return IsSameName(left.GetString(), right.GetString());
}

bool IsReal(CFieldKind kind)
{
    return kind == CFieldKind::Single || kind == CFieldKind::Double;
}

} // namespace

QueryPlanner::QueryPlanner(Statement& statement, const CRecordsetQuery& query, bool needsKeys)
    : m_statement(statement), m_query(query), m_needsKeys(needsKeys)
{}

void QueryPlanner::Prepare()
{
    const QueryForm form = FormOf(m_query.sql);
    if (form == QueryForm::Call) {
        // What a procedure returns shows when it has run.
        m_statement.Prepare(CallText(m_query.sql));
        return;
    }
    m_plan.table = TableOf(m_query.sql);
    if (form == QueryForm::Table)
        PrepareTable();
    else
        PrepareSelect(m_query.sql);
}

void QueryPlanner::PrepareTable()
{
    for (const CFieldDescription& field : m_query.columns)
        m_selected.push_back(field.name);
    if (m_needsKeys && !m_plan.table.IsEmpty())
        AddHiddenKeys();
    PrepareSelect(SelectText(m_selected, m_query.sql));
    if (m_statement.Owner().Kind() == SourceKind::Sqlite)
        SelectExactReals();
}

void QueryPlanner::PrepareSelect(const CString& select)
{
    m_statement.Prepare(WithConditions(select, m_query.filter, m_query.sort));
    if (m_results.empty())
        Describe();
}

const Table& QueryPlanner::LookUp(const CString& name)
{
    const auto known = std::find_if(m_tables.begin(), m_tables.end(),
                                    [&](const auto& table) { return table.first == name; });
    if (known != m_tables.end())
        return known->second;
    m_tables.emplace_back(name, LookUpTable(m_statement.Owner(), name));
    return m_tables.back().second;
}

/// Keys that are no fields of the record set are selected behind them.
void QueryPlanner::AddHiddenKeys()
{
    for (const CString& key : LookUp(m_plan.table).keys) {
        const bool isField =
            std::any_of(m_selected.begin(), m_selected.end(),
                        [&](const CString& selected) { return IsSame(selected, key); });
        if (!isField)
            m_hiddenKeys.push_back(key);
    }
    m_selected.insert(m_selected.end(), m_hiddenKeys.begin(), m_hiddenKeys.end());
}

void QueryPlanner::Describe()
{
    m_results = DescribeColumns(m_statement);
    if (m_results.size() < m_query.columns.size())
        AfxThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH,
                            "The query has fewer columns than the record set has fields.");
    if (m_statement.Owner().Kind() == SourceKind::Sqlite)
        DeclareSqliteTypes();
}

/// The driver reports every column as nullable and shortens what it was declared as.
void QueryPlanner::DeclareSqliteTypes()
{
    for (ResultColumn& result : m_results) {
        if (result.table.IsEmpty()) {
            result.type = ColumnType::Undeclared;
            continue;
        }
        for (const TableColumn& column :
             LookUp(QuotedName(m_statement.Owner(), result.table)).columns) {
            if (!IsSame(column.name, result.name))
                continue;
            result.type = column.type;
            result.isNullable = column.isNullable;
        }
    }
}

/// The driver asks for real numbers as texts of 15 digits. These have as many as tell every number
/// from every other; one more would take longer to read.
void QueryPlanner::SelectExactReals()
{
    bool hasReals = false;
    for (std::size_t i = 0; i < m_query.columns.size(); ++i) {
        if (!IsReal(m_query.columns[i].kind))
            continue;
        const CString name = m_selected[i];
        m_selected[i] = "CASE typeof(" + name + ") WHEN 'real' THEN printf('%!.19g'," + name +
                        ") ELSE " + name + " END";
        hasReals = true;
    }
    if (hasReals)
        PrepareSelect(SelectText(m_selected, m_query.sql));
}

bool QueryPlanner::IsDateParameter(const CFieldTransfer& parameter) const
{
    const std::size_t count = std::min(m_query.columns.size(), m_results.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (IsSame(m_query.columns[i].name, parameter.field.name))
            return m_results[i].type == ColumnType::Date;
    }
    return false;
}

QueryPlan QueryPlanner::Finish()
{
    if (m_results.empty())
        Describe();
    PlanFields();
    if (!HasTableColumn())
        m_plan.table.Empty();
    if (m_needsKeys && !m_plan.table.IsEmpty())
        PlanKeys();
    return std::move(m_plan);
}

void QueryPlanner::PlanFields()
{
    const SourceKind source = m_statement.Owner().Kind();
    for (std::size_t i = 0; i < m_query.columns.size(); ++i) {
        m_plan.columns.push_back(
            PlanColumn(static_cast<SQLUSMALLINT>(i + 1), m_results[i], m_query.columns[i], source));
        m_plan.fields.push_back(m_results[i]);
    }
}

/// A query of nothing but computed values, such as a sum, has no records to be written.
bool QueryPlanner::HasTableColumn() const
{
    return std::any_of(m_plan.fields.begin(), m_plan.fields.end(),
                       [](const ResultColumn& field) { return !field.table.IsEmpty(); });
}

/// Finds a key among the columns; a column behind the fields gets a plan of its own.
bool QueryPlanner::FindKey(const CString& key)
{
    const auto result = std::find_if(m_results.begin(), m_results.end(), [&](const auto& column) {
        return IsSame(column.name, key) && !column.table.IsEmpty();
    });
    if (result == m_results.end())
        return false;
    const auto index = static_cast<std::size_t>(result - m_results.begin());
    const bool isField = index < m_plan.fields.size();
    if (!isField && result->type == ColumnType::Binary)
        return false; // bytes are no text that finds the record again
    m_plan.keys.push_back({key, isField ? index : m_plan.columns.size()});
    if (!isField)
        m_plan.columns.push_back(
            PlanKey(static_cast<SQLUSMALLINT>(index + 1), *result, m_statement.Owner().Kind()));
    return true;
}

void QueryPlanner::PlanKeys()
{
    for (const CString& key : LookUp(m_plan.table).keys) {
        if (!FindKey(key)) {
            m_plan.keys.clear();
            return;
        }
    }
}

} // namespace zelrs
