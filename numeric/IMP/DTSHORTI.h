#ifndef ZELDT_NUMERIC_IMP_DTSHORTI_H
#define ZELDT_NUMERIC_IMP_DTSHORTI_H

/// What a ZelDtShort keeps, and what is particular to it among the integer classes. Private to the
/// library.

#include "foundation/DTFORMAT.h"
#include "foundation/DTGUARD.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/usualtexts.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

class ZelDtShort;

class ZelDtShort_Imp final : public zeldt::PartOfCell<ZelDtShort_Imp> {
public:
    explicit ZelDtShort_Imp(std::int16_t number) : value(number) {}

    std::int16_t value;
};

namespace zeldt {

struct ShortRules {
    using Object = ZelDtShort;
    using Number = std::int16_t;

    /// The bytes that are read in front of a separator; the longest number has that many.
    static constexpr std::size_t kTextCut = 6;
    static constexpr auto kShow = &ZelFormat::FormatShort;
    static constexpr auto kParse = &ZelFormat::ParseShort;
    static bool ReadUsual(const ZelFormat& format, std::string_view text, Number& number) noexcept
    {
        return zelformat::ReadUsualInteger(format, text, number);
    }
    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format = WholeNumberFormat(6);
        return format;
    }

    /// Whether a copy of an undefined value keeps the number that is stored there.
    static constexpr bool kCopiesUndefined = true;
    /// Whether SetFromExtern takes over the defined flag before it looks at anything else.
    static constexpr bool kTakesAnyDefinedFlag = true;
    /// Whether a record-set field must fit; else only its low bits count.
    static constexpr bool kChecksFields = false;

    /// What conversions and arithmetic report errors under.
    static constexpr Operation kFromText = {"IMP/DTSHORTI", "ZelDtShort_Imp",
                                            "FromString(LPCTSTR)"};
    static constexpr Operation kFromDouble = {"IMP/DTSHORTI", "ZelDtShort_Imp",
                                              "ZelDtShort_Imp(double)"};

    /// In the order of Arithmetic.
    static constexpr Operation kArithmetic[] = {
        {"IMP/DTSHORTI", "Funktionen f\374r ZelDtShort", "AddierenShort(LONG,LONG)"},
        {"IMP/DTSHORTI", "Funktionen f\374r ZelDtShort", "SubtrahierenShort(LONG,LONG)"},
        {"IMP/DTSHORTI", "Funktionen f\374r ZelDtShort", "MultiplizierenShort(LONG,LONG)"},
        {"IMP/DTSHORTI", "Funktionen f\374r ZelDtShort", "DividierenShort(LONG,LONG)"},
    };
};

} // namespace zeldt

#endif
