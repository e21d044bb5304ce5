#ifndef ZELDT_FOUNDATION_DTFORMAT_H
#define ZELDT_FOUNDATION_DTFORMAT_H

#include "platform/formats/ZelFormat.h"

namespace zeldt {

/// The format for a display conversion: the one passed to the call, else the value's own, else the
/// default of its class.
inline const ZelFormat& ChooseFormat(const ZelFormat* passed, const ZelFormat* own,
                                     const ZelFormat& classDefault)
{
    if (passed != nullptr)
        return *passed;
    return own != nullptr ? *own : classDefault;
}

} // namespace zeldt

#endif
