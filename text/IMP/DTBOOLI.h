#ifndef ZELDT_TEXT_IMP_DTBOOLI_H
#define ZELDT_TEXT_IMP_DTBOOLI_H

/// What a ZelDtBool keeps, and how its number is read from a word. Private to the library.

#include "foundation/DTPLAIN.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/usualtexts.h"

#include <cstdint>
#include <string_view>

class ZelDtBool;

class ZelDtBool_Imp final : public zeldt::PartOfCell<ZelDtBool_Imp> {
public:
    explicit ZelDtBool_Imp(std::int32_t number) : value(number) {}

    /// 1 for "Ja" in any case and "1", 0 for "Nein" in any case and "0"; anything else is error 5.
    /// The text is terminated; a NUL byte inside is part of it.
    static std::int32_t NumberOf(std::string_view text);

    std::int32_t value;
};

namespace zeldt {

struct BoolRules {
    using Object = ZelDtBool;
    using Number = std::int32_t;

    static constexpr auto kShow = &ZelFormat::FormatBool;
    static constexpr auto kParse = &ZelFormat::ParseBool;
    static bool ReadUsual(const ZelFormat& format, std::string_view text, Number& number) noexcept
    {
        return zelformat::ReadUsualBool(format, text, number);
    }
    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format(ZelFormat::ZelFoStandard);
        return format;
    }
};

} // namespace zeldt

#endif
