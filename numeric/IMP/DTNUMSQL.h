#ifndef ZELDT_NUMERIC_IMP_DTNUMSQL_H
#define ZELDT_NUMERIC_IMP_DTNUMSQL_H

/// SQL texts of numbers in the memory of the caller; foundation/DTSQL.h says how. Private to the
/// library.

#include "foundation/DTPLAIN.h"
#include "foundation/DTSQL.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTDOUBLI.h"
#include "numeric/IMP/DTLONGI.h"
#include "numeric/IMP/DTSHORTI.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/doubletext.h"

#include <cmath>

namespace zeldt {

inline std::size_t WriteSql(const ZelDtLong& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        return zelrt::WriteDigits(PlainRep<LongRules>::Of(value), text);
    });
}

inline std::size_t WriteSql(const ZelDtShort& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        return zelrt::WriteDigits(std::int32_t{PlainRep<ShortRules>::Of(value)}, text);
    });
}

static_assert(zelrt::kDoubleTextRoom <= kSqlRoom);

/// NaN and infinities have no text.
inline std::size_t WriteSql(const ZelDtDouble& value, char* out)
{
    return WriteSqlOrNull(value, out, [&](char* text) {
        const double number = ZelDtDoubleAccess::Of(value);
        return std::isfinite(number) ? zelrt::WriteDouble(number, text) : text;
    });
}

} // namespace zeldt

#endif
