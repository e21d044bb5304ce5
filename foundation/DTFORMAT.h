#ifndef ZELDT_FOUNDATION_DTFORMAT_H
#define ZELDT_FOUNDATION_DTFORMAT_H

#include "platform/formats/ZelFormat.h"
#include "platform/framework/fwargument.h"

namespace zeldt {

/// What a displayed text is passed to a format as.
using zelfw::TextArgument;

/// The format for a display conversion: the one passed to the call, else the value's own, else the
/// default of its class.
inline const ZelFormat& ChooseFormat(const ZelFormat* passed, const ZelFormat* own,
                                     const ZelFormat& classDefault)
{
    if (passed != nullptr)
        return *passed;
    return own != nullptr ? *own : classDefault;
}

/// Whole numbers of at most so many characters, as they are written: a minus in front, nothing
/// else.
inline ZelFormat WholeNumberFormat(unsigned long places)
{
    return {places,
            0,
            ZelFormat::ZelFoDezimalOhne,
            ZelFormat::ZelFoTausenderOhne,
            ZelFormat::ZelFoVorzeichenVorne,
            ZelFormat::ZelFoNurMinus,
            0,
            '0',
            0,
            '0'};
}

} // namespace zeldt

#endif
