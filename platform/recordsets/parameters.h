#ifndef ZELDT_PLATFORM_RECORDSETS_PARAMETERS_H
#define ZELDT_PLATFORM_RECORDSETS_PARAMETERS_H

/// The values behind the question marks of a statement.

#include "platform/recordsets/values.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelrs {

/// Buffers bound to the parameters of a statement. They stay bound from one execution to the next.
class Parameters {
public:
    Parameters(Statement& statement, std::size_t count);
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    /// The value of a field; `isDate` for a column that keeps days without time. Throws
    /// CDBException (data truncated) for a value that the source would change.
    void Set(std::size_t number, const CFieldTransfer& transfer, bool isDate);

    /// A value that was fetched.
    void Set(std::size_t number, const RawValue& raw, Wire wire);

private:
    struct Parameter {
        SQLSMALLINT type = SQL_C_DEFAULT;
        std::vector<char> value;
        SQLLEN length = SQL_NULL_DATA;
    };

    void SetNull(std::size_t number);
    void SendText(std::size_t number, std::string_view ansi);
    void SetText(std::size_t number, std::string_view text);
    void SetBytes(std::size_t number, SQLSMALLINT type, const void* bytes, std::size_t length);
    void SetMoment(std::size_t number, const CFieldTransfer& transfer, bool isDate);
    void Bind(std::size_t number);

    Statement& m_statement;
    std::vector<Parameter> m_parameters;
};

} // namespace zelrs

#endif
