#include "tools/zelconv/tablerows.h"

#include <limits>

namespace zelconv {

namespace {

/// Makes the engines proper.
CRecordsetEngineFactory engineFactory = nullptr;

bool IsAboutOneValue(const CDBException& error)
{
    return error.m_nRetCode == AFX_SQL_ERROR_DATA_TRUNCATED ||
           error.m_nRetCode == AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH;
}

/// Whether the record set would refuse the value.
bool IsBeyond(const CFieldDescription& field, const CFieldValue& value)
{
    using Integer = std::numeric_limits<LONG>;
    switch (value.kind) {
    case CFieldKind::Integer:
        return value.integer < Integer::min() || value.integer > Integer::max();
    case CFieldKind::Bool:
        return value.integer != 0 && value.integer != 1;
    case CFieldKind::Text:
        return value.text.GetLength() > field.maxLength;
    default:
        return false;
    }
}

} // namespace

/// Passes everything on but the values that the record set cannot take.
class TableRows::Tolerant final : public CRecordsetEngine {
public:
    Tolerant(std::unique_ptr<CRecordsetEngine> engine, std::vector<std::string>& problems)
        : m_engine(std::move(engine)), m_problems(problems)
    {}

    void Open(const CRecordsetQuery& query) override
    {
        m_fields = query.columns;
        m_problems.assign(m_fields.size(), {});
        m_engine->Open(query);
    }
    void Close() override { m_engine->Close(); }
    CRecordPosition Move(CRecordMove move, LONGLONG rows) override
    {
        return m_engine->Move(move, rows);
    }
    void GetValue(UINT column, CFieldValue& value) override;
    bool IsNullable(UINT column) override { return m_engine->IsNullable(column); }
    bool CanAppend() const override { return m_engine->CanAppend(); }
    bool CanUpdate() const override { return m_engine->CanUpdate(); }
    bool CanScroll() const override { return m_engine->CanScroll(); }
    LONG GetRecordCount() const override { return m_engine->GetRecordCount(); }
    LONGLONG Insert(const CFieldChanges& changes) override { return m_engine->Insert(changes); }
    LONGLONG Update(const CFieldChanges& changes) override { return m_engine->Update(changes); }
    LONGLONG Delete() override { return m_engine->Delete(); }

private:
    std::unique_ptr<CRecordsetEngine> m_engine;
    std::vector<CFieldDescription> m_fields;
    std::vector<std::string>& m_problems;
};

void TableRows::Tolerant::GetValue(UINT column, CFieldValue& value)
{
    std::string& problem = m_problems[column - 1];
    problem.clear();
    try {
        m_engine->GetValue(column, value);
        if (!value.isNull && IsBeyond(m_fields[column - 1], value))
            AfxThrowDBException(AFX_SQL_ERROR_DATA_TRUNCATED);
    } catch (CDBException* error) {
        if (!IsAboutOneValue(*error))
            throw;
        problem = TakeDriverMessage(error);
        value.isNull = true;
    }
}

TableRows::TableRows(CDatabase& database, std::vector<Member> members)
    : CRecordset(&database), m_members(std::move(members)), m_problems(m_members.size())
{
    m_nFields = static_cast<UINT>(m_members.size());
    m_nDefaultType = forwardOnly;
    if (engineFactory == nullptr)
        engineFactory = SetEngineFactory(&NewEngine);
}

std::unique_ptr<CRecordsetEngine> TableRows::NewEngine(CRecordset& rows)
{
    std::unique_ptr<CRecordsetEngine> engine = engineFactory(rows);
    auto* const tolerant = dynamic_cast<TableRows*>(&rows);
    if (engine == nullptr || tolerant == nullptr)
        return engine;
    return std::make_unique<Tolerant>(std::move(engine), tolerant->m_problems);
}

void TableRows::DoFieldExchange(CFieldExchange* pass)
{
    pass->SetFieldType(CFieldExchange::outputColumn);
    for (const Member& member : m_members)
        member.field->Exchange(pass, member.name.c_str());
}

const Field& TableRows::GetField(int column) const
{
    return *m_members[static_cast<std::size_t>(column)].field;
}

const std::string& TableRows::GetProblem(int column) const
{
    return m_problems[static_cast<std::size_t>(column)];
}

} // namespace zelconv
