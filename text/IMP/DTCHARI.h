#ifndef ZELDT_TEXT_IMP_DTCHARI_H
#define ZELDT_TEXT_IMP_DTCHARI_H

/// What a ZelDtChar keeps. Private to the library.

#include "foundation/DTPLAIN.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/usualtexts.h"

#include <string_view>

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
    static bool ReadUsual(const ZelFormat& format, std::string_view text, Number& number) noexcept
    {
        return zelformat::ReadUsualChar(format, text, number);
    }
    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format(ZelFormat::ZelFoStandard);
        return format;
    }
};

} // namespace zeldt

#endif
