#ifndef ZELDT_DATETIME_IMP_DTTIMI_H
#define ZELDT_DATETIME_IMP_DTTIMI_H

/// What a ZelDtTime keeps, and how its amount is made from and written as hours and texts. Private
/// to the library.

#include "datetime/DTTIME.h"
#include "foundation/DTPLAIN.h"
#include "foundation/DTSTATE.h"
#include "platform/formats/ZelFormat.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Modes are the caller's to check. An error leaves the object as it was.
class ZelDtTime_Imp final : public zeldt::PartOfCell<ZelDtTime_Imp> {
public:
    using TimeMode = ZelDtTime::TimeMode;

    static constexpr std::int32_t kUnitsPerHour = 1200;

    /// The unit in which a mode counts a whole amount: 1 minute, 1/100 hour or 1 hour.
    static constexpr std::int32_t UnitsPerStep(TimeMode mode)
    {
        constexpr std::int32_t units[] = {12, 20, kUnitsPerHour};
        return units[mode];
    }

    /// Eigener counts as Minuten.
    ZelDtTime_Imp(std::int64_t hours, std::int64_t fraction, TimeMode mode);
    /// Eigener takes the mode that the text shows.
    ZelDtTime_Imp(std::string_view text, TimeMode mode);

    /// The amount becomes the hours and the fraction in steps of the mode, which Stunden ignores.
    /// It is exact whatever the numbers; one that does not fit is error 8.
    void BuildTimeValue(std::int64_t hours, std::int64_t fraction, TimeMode mode);

    /// Replaces the whole hours; what is beside them stays. Error 8 as there.
    void SetHours(std::int64_t hours);

    /// Takes the amount from a text: whole hours, or hours, separator and two digits. Returns the
    /// mode that was used, which is not stored. Errors 8 and 21.
    TimeMode ConvStringToTime(std::string_view text, TimeMode wanted);

    TimeMode ModeOr(TimeMode wanted) const { return wanted == ZelDtTime::Eigener ? mode : wanted; }

    std::int32_t value; ///< units of 1/1200 hour
    TimeMode mode;      ///< never Eigener
};

namespace zeldt {

/// The class shows and reads its amount itself, since a mode goes with it.
struct TimeRules {
    using Object = ZelDtTime;
    using Number = std::int32_t;

    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format(ZelFormat::ZelFoStandard);
        return format;
    }
};

/// The text of an amount in a mode other than Eigener.
class TimeText {
public:
    TimeText(std::int32_t units, ZelDtTime::TimeMode mode) noexcept;
    std::string_view View() const noexcept { return {m_text, m_length}; }

private:
    char m_text[sizeof "-1789569:42"];
    std::size_t m_length;
};

/// The external text of an amount.
class ExternTime {
public:
    explicit ExternTime(std::int32_t units) noexcept;
    const char* Text() const noexcept { return m_text; }

private:
    char m_text[sizeof "C-DDMMYYYYhhmm00"];
};

/// The units of an external text, which may exceed an amount. Nothing for a text of another form.
std::optional<std::int64_t> ReadExternTime(std::string_view text) noexcept;

} // namespace zeldt

/// What the functions of the class's source may touch.
struct ZelDtTimeAccess : zeldt::PlainRep<zeldt::TimeRules> {
    static ZelDtTime_Imp& Content(ZelDtTime& object) { return *object.m_pImp; }

    static int CheckDefined(const ZelDtTime& a, const ZelDtTime& b)
    {
        return a.CheckDefinedForArithmetic(a, b);
    }
};

#endif
