#ifndef ZELDT_TEXT_IMP_DTCHARI_H
#define ZELDT_TEXT_IMP_DTCHARI_H

/// What a ZelDtChar keeps. Private to the library.

#include "foundation/DTPLAIN.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/ZelFormat.h"

class ZelDtChar;

class ZelDtChar_Imp final : public zeldt::PartOfCell<ZelDtChar_Imp> {
public:
    explicit ZelDtChar_Imp(char character) : value(character) {}

    char value;
};

namespace zeldt {

struct CharRules {
    using Object = ZelDtChar;
    using Number = char;

    static constexpr auto kShow = &ZelFormat::FormatChar;
    static constexpr auto kParse = &ZelFormat::ParseChar;
    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format(ZelFormat::ZelFoStandard);
        return format;
    }
};

} // namespace zeldt

#endif
