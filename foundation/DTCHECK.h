#ifndef ZELDT_FOUNDATION_DTCHECK_H
#define ZELDT_FOUNDATION_DTCHECK_H

#include "foundation/DTBASIS.h"
#include "foundation/DTGUARD.h"

#include <cstdint>
#include <limits>

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

/// The number as one of a smaller type; error 8 under the name of the operation if that does not
/// hold it.
template <typename Number>
Number Narrowed(const Operation& operation, std::int64_t number)
{
    if (number < std::numeric_limits<Number>::min() || number > std::numeric_limits<Number>::max())
        Raise(operation, ErrorNo::OutOfRange);
    return static_cast<Number>(number);
}

} // namespace zeldt

#endif
