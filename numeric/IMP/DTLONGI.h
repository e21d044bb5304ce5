#ifndef ZELDT_NUMERIC_IMP_DTLONGI_H
#define ZELDT_NUMERIC_IMP_DTLONGI_H

/// What a ZelDtLong keeps, and what is particular to it among the integer classes. Private to the
/// library.

#include "foundation/DTGUARD.h"
#include "foundation/DTPOOL.h"

#include <cstddef>
#include <cstdint>

class ZelDtLong;

class ZelDtLong_Imp final : public zeldt::Pooled<ZelDtLong_Imp> {
public:
    explicit ZelDtLong_Imp(std::int32_t number) : value(number) {}

    std::int32_t value;
};

namespace zeldt {

struct LongRules {
    using Object = ZelDtLong;
    using Number = std::int32_t;

    /// The longest number has 11 characters.
    static constexpr std::size_t kTextCut = 11;

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
