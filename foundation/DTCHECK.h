#ifndef ZELDT_FOUNDATION_DTCHECK_H
#define ZELDT_FOUNDATION_DTCHECK_H

#include "foundation/DTBASIS.h"
#include "foundation/DTGUARD.h"

namespace zeldt {

/// Error 2 under the name of the operation if the value is missing.
inline void RequireReadable(const Operation& operation, const ZelDtBasis& value)
{
    if (value.IsMissing())
        Raise(operation, ErrorNo::UndefinedValue);
}

inline void RequireReadable(const Operation& operation, const ZelDtBasis& left,
                            const ZelDtBasis& right)
{
    RequireReadable(operation, left);
    RequireReadable(operation, right);
}

} // namespace zeldt

#endif
