#ifndef ZELDT_NUMERIC_IMP_DTDECSQL_H
#define ZELDT_NUMERIC_IMP_DTDECSQL_H

/// SQL texts of decimal values in the memory of the caller. Private to the library.

#include "numeric/DTDECIMA.h"
#include "numeric/IMP/DTDECIMI.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace zeldt {

/// Room for the SQL texts of all values but those that only records of record managers bring.
inline constexpr std::size_t kDecimalSqlRoom = RWDecimal96::kTextRoom;

/// Writes what ConvToSQL gives and a NUL into `room` bytes, at least kDecimalSqlRoom, and returns
/// the length of the text. The other bytes may be overwritten too. A text that needs more room is
/// not written: the result is then the length that it would have.
inline std::size_t WriteSql(const ZelDtDecimal& value, char* out, std::size_t room)
{
    if (value.IsDefined())
        return DecimalAccess::Number(value).print(out, room);
    constexpr std::string_view kNull = "NULL";
    std::memcpy(out, kNull.data(), kNull.size() + 1);
    return kNull.size();
}

} // namespace zeldt

#endif
