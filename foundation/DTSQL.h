#ifndef ZELDT_FOUNDATION_DTSQL_H
#define ZELDT_FOUNDATION_DTSQL_H

/// SQL texts of values in the memory of the caller: what the functions of the classes share.
/// Private to the library.
///
/// Each class has a WriteSql of its own, which its ConvToSQL uses too. It writes what ConvToSQL
/// gives into `out`, which has room for kSqlRoom bytes, and returns the length. The bytes behind
/// the text may be overwritten too. 0: the value has no text, and ConvToSQL tells why.
///
/// Where texts may be longer than kSqlRoom, the function is told the room. A text that does not fit
/// is not written; the result is then the length that it would have.

#include "foundation/DTSTATE.h"
#include "text/DTSTRING.h"

#include <cstddef>
#include <string_view>

class ZelDtBool;
class ZelDtChar;
class ZelDtDateTime;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;
class ZelDtTime;

namespace zeldt {

inline constexpr std::size_t kSqlRoom = 64;

inline constexpr std::string_view kSqlNull = "NULL";

/// What `write` puts into `out`, whose end it returns, or NULL of an undefined value.
template <typename Write>
std::size_t WriteSqlOrNull(const ZelDtBasis& value, char* out, Write write)
{
    if (StateAccess::Of(value).defined == 1)
        return static_cast<std::size_t>(write(out) - out);
    kSqlNull.copy(out, kSqlNull.size());
    return kSqlNull.size();
}

// In numeric/IMP/DTNUMSQL.h
inline std::size_t WriteSql(const ZelDtLong& value, char* out);
inline std::size_t WriteSql(const ZelDtShort& value, char* out);
inline std::size_t WriteSql(const ZelDtDouble& value, char* out);
// In text/IMP/DTTXTSQL.h
inline std::size_t WriteSql(const ZelDtBool& value, char* out);
inline std::size_t WriteSql(const ZelDtChar& value, char* out);
inline std::size_t WriteSql(const ZelDtString& value, char* out, std::size_t room);
// In datetime/IMP/DTDATSQL.h
inline std::size_t WriteSql(const ZelDtDateTime& value, char* out);
inline std::size_t WriteSql(const ZelDtTime& value, char* out);

/// The text of a value as a string with exactly its room, or with `room` bytes of it where the
/// value is defined.
template <typename Value>
ZelDtString SqlText(const Value& value, int room = 0)
{
    char text[kSqlRoom];
    const auto length = static_cast<int>(WriteSql(value, text));
    return {text, length, StateAccess::Of(value).defined == 1 ? room : 0};
}

} // namespace zeldt

#endif
