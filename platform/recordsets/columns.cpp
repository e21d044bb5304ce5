// Columns of results, and how they are fetched.

#include "platform/recordsets/columns.h"

#include "platform/recordsets/sqltext.h"

#include <algorithm>
#include <array>

namespace zelrs {

namespace {

ColumnType TypeOf(SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ColumnType::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return ColumnType::Decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ColumnType::Real;
    case SQL_TYPE_DATE:
        return ColumnType::Date;
    case SQL_TYPE_TIME:
        return ColumnType::TimeOfDay;
    case SQL_TYPE_TIMESTAMP:
        return ColumnType::Moment;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return ColumnType::Binary;
    default:
        return ColumnType::Character;
    }
}

CString TextAttribute(const Statement& statement, SQLUSMALLINT ordinal, SQLUSMALLINT what)
{
    std::array<char, 512> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN code =
        SQLColAttribute(statement.Get(), ordinal, what, text.data(),
                        static_cast<SQLSMALLINT>(text.size() - 1), &length, nullptr);
    return SQL_SUCCEEDED(code) ? DecodeMessage(text.data(), statement.Owner().ReceivedCharset())
                               : CString();
}

ResultColumn DescribeColumn(const Statement& statement, SQLUSMALLINT ordinal)
{
    std::array<SQLCHAR, 512> label{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    statement.Check(SQLDescribeCol(statement.Get(), ordinal, label.data(),
                                   static_cast<SQLSMALLINT>(label.size()), &length, &type, &size,
                                   &digits, &nullable));
    SQLLEN isUnsigned = SQL_FALSE;
    SQLColAttribute(statement.Get(), ordinal, SQL_DESC_UNSIGNED, nullptr, 0, nullptr, &isUnsigned);

    ResultColumn column;
    column.name = TextAttribute(statement, ordinal, SQL_DESC_BASE_COLUMN_NAME);
    column.table = TextAttribute(statement, ordinal, SQL_DESC_BASE_TABLE_NAME);
    column.type = TypeOf(type);
    column.digits = digits;
    column.isUnsigned = isUnsigned == SQL_TRUE && type != SQL_BIT;
    column.isNullable = nullable != SQL_NO_NULLS;
    // Drivers call the type of an expression a text when they do not know it.
    if (column.type == ColumnType::Character && column.table.IsEmpty())
        column.type = ColumnType::Undeclared;
    return column;
}

[[noreturn]] void ThrowMismatch(const CFieldDescription& field)
{
    AfxThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH,
                        "A field does not match its column. (" + field.name + ")");
}

bool IsNumber(CFieldKind kind)
{
    return kind != CFieldKind::Text && kind != CFieldKind::Time;
}

bool IsFitting(ColumnType type, CFieldKind kind)
{
    switch (type) {
    case ColumnType::Undeclared:
        return true;
    case ColumnType::Integer:
    case ColumnType::Decimal:
    case ColumnType::Real:
        return kind != CFieldKind::Time;
    case ColumnType::Character:
    case ColumnType::Date:
    case ColumnType::Moment:
        return !IsNumber(kind);
    case ColumnType::TimeOfDay:
        return kind == CFieldKind::Text;
    case ColumnType::Binary:
        break;
    }
    return false;
}

/// SQLite keeps values as it got them and its driver converts them without saying what is lost:
/// they are fetched as texts.
Wire WireOf(const ResultColumn& column, CFieldKind kind, SourceKind source)
{
    if (source == SourceKind::Sqlite)
        return Wire::Text;
    const bool isMoment = column.type == ColumnType::Date || column.type == ColumnType::Moment;
    if (kind == CFieldKind::Time)
        return isMoment ? Wire::Moment : Wire::Text;
    if (column.type == ColumnType::Real)
        return Wire::Double;
    if (column.type == ColumnType::Integer && !column.isUnsigned)
        return kind == CFieldKind::Text ? Wire::Text : Wire::BigInt;
    return Wire::Text;
}

/// Bytes that a character of code page 1252 can take in UTF-8.
constexpr std::size_t kMostBytes = 3;

/// Enough for every number and every moment, and as much of anything else as shows that it is
/// neither.
constexpr std::size_t kShortText = 96;

std::size_t WidthOf(Wire wire, const CFieldDescription& field)
{
    switch (wire) {
    case Wire::BigInt:
        return sizeof(LONGLONG);
    case Wire::Double:
        return sizeof(double);
    case Wire::Moment:
        return sizeof(TIMESTAMP_STRUCT);
    case Wire::Text:
        break;
    }
    return field.kind == CFieldKind::Text
               ? kMostBytes * static_cast<std::size_t>(field.maxLength) + 1
               : kShortText;
}

} // namespace

std::vector<ResultColumn> DescribeColumns(const Statement& statement)
{
    const SQLSMALLINT count = statement.ColumnCount();
    std::vector<ResultColumn> columns;
    for (SQLSMALLINT ordinal = 1; ordinal <= count; ++ordinal)
        columns.push_back(DescribeColumn(statement, static_cast<SQLUSMALLINT>(ordinal)));
    return columns;
}

ColumnPlan PlanColumn(SQLUSMALLINT ordinal, const ResultColumn& column,
                      const CFieldDescription& field, SourceKind source)
{
    if (!IsFitting(column.type, field.kind))
        ThrowMismatch(field);
    ColumnPlan plan;
    plan.ordinal = ordinal;
    plan.wire = WireOf(column, field.kind, source);
    plan.width = WidthOf(plan.wire, field);
    return plan;
}

ColumnPlan PlanKey(SQLUSMALLINT ordinal, const ResultColumn& column, SourceKind source)
{
    constexpr int kLongestKey = 1024;
    CFieldDescription field;
    field.name = column.name;
    field.maxLength = kLongestKey;
    const bool isInteger = column.type == ColumnType::Integer;
    field.kind = isInteger ? CFieldKind::Integer : CFieldKind::Text;
    return PlanColumn(ordinal, column, field, source);
}

} // namespace zelrs
