#ifndef ZELDT_NUMERIC_IMP_DTLONGI_H
#define ZELDT_NUMERIC_IMP_DTLONGI_H

/// What a ZelDtLong keeps, and what is particular to it among the integer classes. Private to the
/// library.

#include "foundation/DTFORMAT.h"
#include "foundation/DTGUARD.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/usualtexts.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

class ZelDtLong;

class ZelDtLong_Imp final : public zeldt::PartOfCell<ZelDtLong_Imp> {
public:
    explicit ZelDtLong_Imp(std::int32_t number) : value(number) {}

    std::int32_t value;
};

namespace zeldt {

struct LongRules {
    using Object = ZelDtLong;
    using Number = std::int32_t;

    /// The bytes that are read in front of a separator; the longest number has that many.
    static constexpr std::size_t kTextCut = 11;
    static constexpr auto kShow = &ZelFormat::FormatLong;
    static constexpr auto kParse = &ZelFormat::ParseLong;
    static bool ReadUsual(const ZelFormat& format, std::string_view text, Number& number) noexcept
    {
        return zelformat::ReadUsualInteger(format, text, number);
    }
    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format = WholeNumberFormat(11);
        return format;
    }

    /// Whether a copy of an undefined value keeps the number that is stored there.
    static constexpr bool kCopiesUndefined = false;
    /// Whether SetFromExtern takes over the defined flag before it looks at anything else.
    static constexpr bool kTakesAnyDefinedFlag = false;
    /// Whether a record-set field must fit; else only its low bits count.
    static constexpr bool kChecksFields = true;

    /// What conversions and arithmetic report errors under.
    static constexpr Operation kFromText = {"IMP/DTLONGI", "ZelDtLong_Imp", "FromString(LPCTSTR)"};
    static constexpr Operation kFromDouble = {"IMP/DTLONGI", "ZelDtLong_Imp",
                                              "ZelDtLong_Imp(double)"};

    /// In the order of Arithmetic.
    static constexpr Operation kArithmetic[] = {
        {"IMP/DTLONGI", "Funktionen f\374r ZelDtLong", "AddierenLong(double,double)"},
        {"IMP/DTLONGI", "Funktionen f\374r ZelDtLong", "SubtrahierenLong(double,double)"},
        {"IMP/DTLONGI", "Funktionen f\374r ZelDtLong", "MultiplizierenLong(double,double)"},
        {"IMP/DTLONGI", "Funktionen f\374r ZelDtLong", "DividierenLong(double,double)"},
    };
};

} // namespace zeldt

#endif
