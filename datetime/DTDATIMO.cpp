#include "datetime/DTDATIME.h"

#include "datetime/DTTIME.h"
#include "datetime/IMP/DTDATIMI.h"
#include "datetime/IMP/DTTIMI.h"
#include "foundation/DTCHECK.h"

namespace {

using zeldt::DateTimeFields;
using zeldt::Guarded;
using zeldt::Operation;

using Access = ZelDtDateTimeAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDATIMO", "ZelDtDateTime", signature};
}

constexpr Operation kAssignFrameworkDate = Op("operator=(COleDateTime&)");
constexpr Operation kToFrameworkDate = Op("operatorCOleDateTime()");
constexpr Operation kPlusTime = Op("operator+(ZelDtTime&)");
constexpr Operation kMinusTime = Op("operator-(ZelDtTime&)");
constexpr Operation kMinus = Op("operator-(ZelDateTime&)");
constexpr Operation kLess = Op("operator<(ZelDtDateTime&)");
constexpr Operation kGreater = Op("operator>(ZelDtDateTime&)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtDateTime&)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtDateTime&)");
constexpr Operation kEqual = Op("operator==(ZelDtDateTime&)");
constexpr Operation kUnequal = Op("operator!=(ZelDtDateTime&)");

/// How a readable value stands to another one: below 0, 0, above 0.
int Compare(const Operation& operation, const ZelDtDateTime& left, const ZelDtDateTime& right)
{
    zeldt::RequireReadable(operation, left, right);
    return zeldt::Compare(Access::Of(left).fields, Access::Of(right).fields);
}

/// Moves by a time; `direction` is 1 or -1.
ZelDtDateTime Moved(const Operation& operation, const ZelDtDateTime& start, const ZelDtTime& span,
                    int direction)
{
    return Guarded(operation, [&] {
        if (!Access::CheckDefined(start, span))
            return ZelDtDateTime(ZelDtWmDefault);
        ZelDtDateTime moved(start);
        Access::Shift(moved, std::int64_t{span.GetTime(ZelDtTime::Minuten)} * direction);
        return moved;
    });
}

/// The minutes from `from` to `to`, rounded down.
std::int64_t MinutesBetween(const DateTimeFields& from, const DateTimeFields& to)
{
    const auto difference = [](std::int64_t a, std::int64_t b) { return a - b; };
    const std::int64_t days =
        zeldt::DayNumber(zeldt::DateOf(to)) - zeldt::DayNumber(zeldt::DateOf(from));
    const std::int64_t borrowed = zeldt::FloorDivide(difference(to.second, from.second), 60);
    return (days * 24 + difference(to.hour, from.hour)) * 60 + difference(to.minute, from.minute) +
           borrowed;
}

} // namespace

void ZelDtDateTimeAccess::Replace(ZelDtDateTime& value, const COleDateTime& source)
{
    if (source.GetStatus() != COleDateTime::valid) {
        value.Clear();
        return;
    }
    const ZelDtDateTime_Imp read(source);
    Replace(value, read.fields);
    value.SetDefined(1);
}

// Assignment

ZelDtDateTime& ZelDtDateTime::operator=(const ZelDtDateTime& source)
{
    if (this != &source) {
        Access::Replace(*this, source.m_pImp->fields);
        ZelDtBasis::operator=(source);
    }
    return *this;
}

ZelDtDateTime& ZelDtDateTime::operator=(const COleDateTime& source)
{
    Guarded(kAssignFrameworkDate, [&] { Access::Replace(*this, source); });
    return *this;
}

ZelDtDateTime::operator COleDateTime() const
{
    return Guarded(kToFrameworkDate, [&] {
        COleDateTime result;
        if (!IsDefined()) {
            result.SetStatus(COleDateTime::null);
            return result;
        }
        const DateTimeFields& fields = m_pImp->fields;
        const auto year = static_cast<int>(m_pImp->Year());
        const auto month = static_cast<int>(m_pImp->Month());
        if (year == m_pImp->Year() && month == m_pImp->Month())
            result.SetDateTime(year, month, fields.day, fields.hour, fields.minute, fields.second);
        else
            result.SetStatus(COleDateTime::invalid);
        return result;
    });
}

// Spans

ZelDtDateTime ZelDtDateTime::operator+(const ZelDtTime& span) const
{
    return Moved(kPlusTime, *this, span, 1);
}

ZelDtDateTime ZelDtDateTime::operator-(const ZelDtTime& span) const
{
    return Moved(kMinusTime, *this, span, -1);
}

ZelDtTime ZelDtDateTime::operator-(const ZelDtDateTime& other) const
{
    return Guarded(kMinus, [&] {
        ZelDtTime result(ZelDtWmDefault);
        if (CheckDefinedForArithmetic(*this, other)) {
            const std::int64_t minutes = MinutesBetween(other.m_pImp->fields, m_pImp->fields);
            // More than any time holds.
            const std::int32_t hours =
                zeldt::Narrowed<std::int32_t>(kMinus, zeldt::FloorDivide(minutes, 60));
            ZelDtTime_Imp span(0, 0, ZelDtTime::Minuten);
            span.SetHours(hours);
            span.BuildTimeValue(hours, minutes - std::int64_t{hours} * 60, ZelDtTime::Minuten);
            ZelDtTimeAccess::Store(result, span.value);
        }
        return result;
    });
}

// Comparison

int ZelDtDateTime::operator<(const ZelDtDateTime& right) const
{
    return Compare(kLess, *this, right) < 0;
}

int ZelDtDateTime::operator>(const ZelDtDateTime& right) const
{
    return Compare(kGreater, *this, right) > 0;
}

int ZelDtDateTime::operator<=(const ZelDtDateTime& right) const
{
    return Compare(kLessOrEqual, *this, right) <= 0;
}

int ZelDtDateTime::operator>=(const ZelDtDateTime& right) const
{
    return Compare(kGreaterOrEqual, *this, right) >= 0;
}

int ZelDtDateTime::operator==(const ZelDtDateTime& right) const
{
    return Compare(kEqual, *this, right) == 0;
}

int ZelDtDateTime::operator!=(const ZelDtDateTime& right) const
{
    return Compare(kUnequal, *this, right) != 0;
}
