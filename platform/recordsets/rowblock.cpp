// The rows that one call fetches.

#include "platform/recordsets/rowblock.h"

#include <algorithm>

namespace zelrs {

namespace {

/// Values up to here are fetched in blocks.
constexpr std::size_t kLongestBound = 8192;

/// What the buffers of a block take, about. More makes no call cheaper and spoils the caches.
constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr std::size_t kMostRows = 512;

constexpr SQLSMALLINT TypeOf(Wire wire)
{
    switch (wire) {
    case Wire::Text:
        return SQL_C_CHAR;
    case Wire::BigInt:
        return SQL_C_SBIGINT;
    case Wire::Double:
        return SQL_C_DOUBLE;
    case Wire::Moment:
        return SQL_C_TYPE_TIMESTAMP;
    }
    return SQL_C_DEFAULT;
}

} // namespace

RowBlock::RowBlock(Statement& statement, const std::vector<ColumnPlan>& plans)
    : m_statement(statement)
{
    for (const ColumnPlan& plan : plans) {
        Column column;
        column.plan = plan;
        column.isLong = plan.width > kLongestBound;
        m_columns.push_back(std::move(column));
    }
    const std::size_t rows = ChooseRows();
    m_states.assign(rows, SQL_ROW_SUCCESS);
    const SQLHSTMT handle = statement.Get();
    statement.Check(SQLSetStmtAttr(handle, SQL_ATTR_ROW_ARRAY_SIZE, OdbcNumber(rows), 0));
    statement.Check(SQLSetStmtAttr(handle, SQL_ATTR_ROW_STATUS_PTR, m_states.data(), 0));
    statement.Check(SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &m_rowCount, 0));
    for (Column& column : m_columns)
        Bind(column);
}

RowBlock::~RowBlock()
{
    // The statement must not keep addresses in here.
    SQLFreeStmt(m_statement.Get(), SQL_CLOSE);
    SQLFreeStmt(m_statement.Get(), SQL_UNBIND);
    SQLSetStmtAttr(m_statement.Get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
    SQLSetStmtAttr(m_statement.Get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
}

std::size_t RowBlock::ChooseRows() const
{
    std::size_t width = 1;
    for (const Column& column : m_columns) {
        if (column.isLong)
            return 1;
        width += column.plan.width;
    }
    return std::clamp<std::size_t>(kBlockBytes / width, 1, kMostRows);
}

void RowBlock::Bind(Column& column)
{
    const std::size_t rows = m_states.size();
    column.lengths.assign(rows, SQL_NULL_DATA);
    if (column.isLong)
        return;
    column.values.resize(rows * column.plan.width);
    m_statement.Check(SQLBindCol(m_statement.Get(), column.plan.ordinal, TypeOf(column.plan.wire),
                                 column.values.data(), static_cast<SQLLEN>(column.plan.width),
                                 column.lengths.data()));
}

bool RowBlock::Fetch()
{
    m_rowCount = 0;
    if (!m_statement.Fetch())
        return false;
    CheckRows();
    for (Column& column : m_columns) {
        if (column.isLong)
            ReadLong(column);
    }
    return true;
}

/// Of several rows a bad one makes a warning only.
void RowBlock::CheckRows()
{
    const auto end = m_states.begin() + static_cast<std::ptrdiff_t>(m_rowCount);
    if (std::find(m_states.begin(), end, SQL_ROW_ERROR) != end)
        m_statement.Check(SQL_ERROR);
}

/// In pieces, into a buffer that grows as the text does.
void RowBlock::ReadLong(Column& column)
{
    std::size_t length = 0;
    while (length + 1 < column.plan.width) {
        const std::size_t wanted = std::max(2 * length, kLongestBound);
        column.values.resize(std::max(column.values.size(), std::min(wanted, column.plan.width)));
        const std::size_t room = column.values.size() - length;
        SQLLEN rest = 0;
        const SQLRETURN code = m_statement.Check(
            SQLGetData(m_statement.Get(), column.plan.ordinal, SQL_C_CHAR,
                       column.values.data() + length, static_cast<SQLLEN>(room), &rest));
        const bool isNull = rest == SQL_NULL_DATA;
        const bool isLast = isNull || code == SQL_NO_DATA ||
                            (rest != SQL_NO_TOTAL && rest < static_cast<SQLLEN>(room));
        if (isLast) {
            const std::size_t piece = code == SQL_NO_DATA ? 0 : static_cast<std::size_t>(rest);
            column.lengths[0] = isNull ? rest : static_cast<SQLLEN>(length + piece);
            return;
        }
        length += room - 1;
    }
    column.lengths[0] = SQL_NO_TOTAL;
}

RawValue RowBlock::Value(std::size_t row, std::size_t index) const
{
    const Column& column = m_columns[index];
    const SQLLEN length = column.lengths[row];
    RawValue value;
    if (length == SQL_NULL_DATA)
        return value;
    const bool isText = column.plan.wire == Wire::Text;
    // A NUL has to fit behind a text.
    if (isText && (length < 0 || static_cast<std::size_t>(length) >= column.plan.width)) {
        value.state = RawValue::State::TooLong;
        return value;
    }
    value.state = RawValue::State::Present;
    const std::size_t bytes = isText ? static_cast<std::size_t>(length) : column.plan.width;
    const char* const first = column.values.data() + (column.isLong ? 0 : row * column.plan.width);
    value.bytes = std::string_view(first, bytes);
    return value;
}

} // namespace zelrs
