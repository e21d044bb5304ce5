// The values behind the question marks of a statement.

#include "platform/recordsets/parameters.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zelrs {

namespace {

struct SqlType {
    SQLSMALLINT type;
    SQLULEN size;
    SQLSMALLINT digits;
};

/// What a buffer of the given type is to the source. `length` is that of a text.
SqlType SqlTypeOf(SQLSMALLINT type, std::size_t length)
{
    constexpr std::size_t kLongestVarchar = 8000;
    constexpr SQLULEN kMomentSize = 29; // YYYY-MM-DD hh:mm:ss.fffffffff
    switch (type) {
    case SQL_C_SBIGINT:
        return {SQL_BIGINT, 19, 0};
    case SQL_C_DOUBLE:
        return {SQL_DOUBLE, 15, 0};
    case SQL_C_TYPE_TIMESTAMP:
        return {SQL_TYPE_TIMESTAMP, kMomentSize, 9};
    default:
        break;
    }
    const bool isLong = length > kLongestVarchar;
    return {static_cast<SQLSMALLINT>(isLong ? SQL_LONGVARCHAR : SQL_VARCHAR),
            static_cast<SQLULEN>(length), 0};
}

} // namespace

Parameters::Parameters(Statement& statement, std::size_t count)
    : m_statement(statement), m_parameters(count)
{}

void Parameters::Set(std::size_t number, const CFieldTransfer& transfer, bool isDate)
{
    const CFieldValue& value = transfer.value;
    if (value.isNull) {
        SetNull(number);
        return;
    }
    switch (value.kind) {
    case CFieldKind::Text: {
        const std::string_view text(value.text.GetString(),
                                    static_cast<std::size_t>(value.text.GetLength()));
        // The driver of SQLite takes a text to end at the first NUL.
        if (m_statement.Owner().Kind() == SourceKind::Sqlite &&
            text.find('\0') != std::string_view::npos)
            ThrowTruncated(transfer.field.name);
        SendText(number, text);
        break;
    }
    case CFieldKind::Integer:
    case CFieldKind::Byte:
    case CFieldKind::Bool:
        SetBytes(number, SQL_C_SBIGINT, &value.integer, sizeof value.integer);
        break;
    case CFieldKind::Single:
    case CFieldKind::Double:
        if (!std::isfinite(value.real))
            ThrowTruncated(transfer.field.name);
        SetBytes(number, SQL_C_DOUBLE, &value.real, sizeof value.real);
        break;
    case CFieldKind::Time:
        SetMoment(number, transfer, isDate);
        break;
    }
}

void Parameters::SetMoment(std::size_t number, const CFieldTransfer& transfer, bool isDate)
{
    const TIMESTAMP_STRUCT& moment = transfer.value.time;
    if (!IsMoment(moment))
        ThrowTruncated(transfer.field.name);
    if (m_statement.Owner().Kind() == SourceKind::Sqlite)
        SetText(number, MomentText(moment, isDate));
    else
        SetBytes(number, SQL_C_TYPE_TIMESTAMP, &moment, sizeof moment);
}

void Parameters::Set(std::size_t number, const RawValue& raw, Wire wire)
{
    switch (wire) {
    case Wire::BigInt:
        SetBytes(number, SQL_C_SBIGINT, raw.bytes.data(), raw.bytes.size());
        return;
    case Wire::Double:
        SetBytes(number, SQL_C_DOUBLE, raw.bytes.data(), raw.bytes.size());
        return;
    case Wire::Moment:
        SetBytes(number, SQL_C_TYPE_TIMESTAMP, raw.bytes.data(), raw.bytes.size());
        return;
    case Wire::Text:
        break;
    }
    CString text;
    if (!Decode(raw.bytes, m_statement.Owner().ReceivedCharset(), text))
        ThrowTruncated("key");
    SendText(number, {text.GetString(), static_cast<std::size_t>(text.GetLength())});
}

/// A text of the program.
void Parameters::SendText(std::size_t number, std::string_view ansi)
{
    if (IsPlain(ansi))
        SetText(number, ansi);
    else
        SetText(number, Encode(ansi, m_statement.Owner().SentCharset()));
}

void Parameters::SetNull(std::size_t number)
{
    Parameter& parameter = m_parameters[number];
    if (parameter.type == SQL_C_DEFAULT)
        SetText(number, std::string_view());
    parameter.length = SQL_NULL_DATA;
}

void Parameters::SetText(std::size_t number, std::string_view text)
{
    SetBytes(number, SQL_C_CHAR, text.data(), text.size());
}

void Parameters::SetBytes(std::size_t number, SQLSMALLINT type, const void* bytes,
                          std::size_t length)
{
    constexpr std::size_t kLeastRoom = 64;
    Parameter& parameter = m_parameters[number];
    const bool hasRoom = parameter.value.size() >= length;
    if (!hasRoom || parameter.value.empty())
        parameter.value.resize(std::max(2 * length, kLeastRoom));
    const bool isBound = hasRoom && parameter.type == type;
    parameter.type = type;
    if (length != 0)
        std::memcpy(parameter.value.data(), bytes, length);
    parameter.length = static_cast<SQLLEN>(length);
    if (!isBound)
        Bind(number);
}

void Parameters::Bind(std::size_t number)
{
    Parameter& parameter = m_parameters[number];
    const SqlType sqlType = SqlTypeOf(parameter.type, parameter.value.size());
    m_statement.Check(SQLBindParameter(
        m_statement.Get(), static_cast<SQLUSMALLINT>(number + 1), SQL_PARAM_INPUT, parameter.type,
        sqlType.type, sqlType.size, sqlType.digits, parameter.value.data(),
        static_cast<SQLLEN>(parameter.value.size()), &parameter.length));
}

} // namespace zelrs
