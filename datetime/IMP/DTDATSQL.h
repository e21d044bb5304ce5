#ifndef ZELDT_DATETIME_IMP_DTDATSQL_H
#define ZELDT_DATETIME_IMP_DTDATSQL_H

/// SQL texts of date-times, dates and times in the memory of the caller; foundation/DTSQL.h says
/// how. Private to the library.

#include "datetime/IMP/DTDATIMI.h"
#include "datetime/IMP/DTDATTXT.h"
#include "datetime/IMP/DTTIMI.h"
#include "foundation/DTSQL.h"
#include "platform/runtime/digits.h"

namespace zeldt {

static_assert(kDateTextRoom <= kSqlRoom);

/// In the layout SQL_Deutsch. Fields that have no room there have no text.
inline std::size_t WriteSql(const ZelDtDateTime& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        const DateTimeFields& fields = ZelDtDateTimeAccess::Of(value).fields;
        char* const end = WriteQuotedMoment(fields, fields.day, MonthOf(fields), text);
        return end != nullptr ? end : text;
    });
}

inline std::size_t WriteSql(const ZelDtTime& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        return zelrt::WriteDigits(PlainRep<TimeRules>::Of(value), text);
    });
}

} // namespace zeldt

#endif
