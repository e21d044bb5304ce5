#include "datetime/DTDATIME.h"

#include "datetime/IMP/DTDATIMI.h"
#include "foundation/DTCHECK.h"

namespace {

using zeldt::Count;
using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Narrowed;
using zeldt::Operation;
using zeldt::Raise;
using zeldt::RequireReadable;

using Access = ZelDtDateTimeAccess;
using Imp = ZelDtDateTime_Imp;

constexpr Operation Op(const char* signature)
{
    return {"DTDATIMF", "ZelDtDateTime", signature};
}

constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kGetDay365 = Op("GetDay365()");
constexpr Operation kGetMonth = Op("GetMonth()");
constexpr Operation kGetYear = Op("GetYear()");
constexpr Operation kGetHour = Op("GetHour()");
constexpr Operation kGetMin = Op("GetMin()");
constexpr Operation kGetSecond = Op("GetSecond()");
constexpr Operation kSetDateTime = Op("SetDateTime(LPCTSTR)");
constexpr Operation kSetDate = Op("SetDate(LPCTSTR)");
constexpr Operation kSetTime = Op("SetTime(LPCTSTR)");
constexpr Operation kSetDay365 = Op("SetDay365(SHORT)");
constexpr Operation kSetMonth = Op("SetMonth(SHORT)");
constexpr Operation kSetYear = Op("SetYear(SHORT)");
constexpr Operation kSetHour = Op("SetHour(SHORT)");
constexpr Operation kSetMin = Op("SetMin(SHORT)");
constexpr Operation kSetSecond = Op("SetSecond(SHORT)");
constexpr Operation kAddDay365 = Op("AddDay365(SHORT)");
constexpr Operation kSubDay365 = Op("SubDay365(SHORT)");
constexpr Operation kAddMonth = Op("AddMonth(SHORT)");
constexpr Operation kSubMonth = Op("SubMonth(SHORT)");
constexpr Operation kAddYear = Op("AddYear(SHORT)");
constexpr Operation kSubYear = Op("SubYear(SHORT)");
constexpr Operation kAddHour = Op("AddHour(LONG)");
constexpr Operation kSubHour = Op("SubHour(LONG)");
constexpr Operation kAddMin = Op("AddMin(LONG)");
constexpr Operation kSubMin = Op("SubMin(LONG)");

constexpr unsigned kHoursPerDay = 24;
constexpr unsigned kMinutesPerHour = 60;
constexpr std::int64_t kMinutesPerDay = std::int64_t{kHoursPerDay} * kMinutesPerHour;

/// One field of a value that is not missing.
short Read(const Operation& operation, const ZelDtDateTime& value, std::int64_t number)
{
    RequireReadable(operation, value);
    return Narrowed<short>(operation, number);
}

/// Sets one field through its setter; a number that equals `stored` only makes the value defined.
template <typename Number>
void SetField(const Operation& operation, ZelDtDateTime& value, std::int64_t stored,
              std::int64_t number, void (Imp::*set)(Number))
{
    RequireReadable(operation, value);
    if (number != stored) {
        value.SetModified(1);
        Guarded(operation, [&] { (Access::Of(value).*set)(static_cast<Number>(number)); });
    }
    Access::SetDefined(value);
}

/// Marks a value modified when it goes, if the fields are others than before.
class ChangeMarker {
public:
    explicit ChangeMarker(ZelDtDateTime& value) : m_value(value), m_before(Access::Of(value).fields)
    {}
    ~ChangeMarker()
    {
        if (zeldt::Differ(Access::Of(m_value).fields, m_before))
            m_value.SetModified(1);
    }
    ChangeMarker(const ChangeMarker&) = delete;
    ChangeMarker& operator=(const ChangeMarker&) = delete;

private:
    ZelDtDateTime& m_value;
    const zeldt::DateTimeFields m_before;
};

/// Runs a change of several fields on a value that is not missing. What it changed before a failure
/// stays and is marked.
template <typename Body>
void Change(const Operation& operation, ZelDtDateTime& value, Body&& body)
{
    RequireReadable(operation, value);
    Guarded(operation, [&] {
        const ChangeMarker marker(value);
        body(Access::Of(value));
    });
}

void SetText(const Operation& operation, ZelDtDateTime& value, const char* text,
             void (Imp::*set)(const char*))
{
    Change(operation, value, [&](Imp& imp) {
        (imp.*set)(text);
        Access::SetDefined(value);
    });
}

// Arithmetic. Counts are wide, so that none is too large to be turned round; each operation hands a
// negative one to its counterpart, except AddYears

void SubDays(ZelDtDateTime& value, std::int64_t days);

void AddDays(ZelDtDateTime& value, std::int64_t days)
{
    Change(kAddDay365, value, [&](Imp& imp) {
        if (days < 0) {
            SubDays(value, -days);
            return;
        }
        imp.AddDays(days);
        Access::SetDefined(value);
    });
}

void SubDays(ZelDtDateTime& value, std::int64_t days)
{
    Change(kSubDay365, value, [&](Imp& imp) {
        if (days < 0) {
            AddDays(value, -days);
            return;
        }
        imp.SubtractDays(days);
        Access::SetDefined(value);
        imp.CheckYear(zeldt::InsideDateTime(kSubDay365.signature));
    });
}

void SubMonths(ZelDtDateTime& value, int months);

void AddMonths(ZelDtDateTime& value, int months)
{
    Change(kAddMonth, value, [&](Imp& imp) {
        if (months < 0) {
            SubMonths(value, -months);
            return;
        }
        std::int64_t month = imp.Month() + months;
        if (month > zeldt::kMonthsPerYear) {
            // A multiple of 12 is a year too much, and no month is left for SetMonth.
            imp.SetYear(imp.Year() + month / zeldt::kMonthsPerYear);
            month %= zeldt::kMonthsPerYear;
        }
        Access::SetDefined(value);
        imp.SetMonth(month);
    });
}

void SubMonths(ZelDtDateTime& value, int months)
{
    Change(kSubMonth, value, [&](Imp& imp) {
        if (months < 0) {
            AddMonths(value, -months);
            return;
        }
        const std::int64_t index = imp.Month() - 1 - months;
        const std::int64_t years =
            index < 0 ? -zeldt::FloorDivide(index, zeldt::kMonthsPerYear) : 0;
        imp.SubtractYears(zeldt::InsideDateTime(kSubMonth.signature), years);
        imp.SetMonth(index + years * zeldt::kMonthsPerYear + 1);
        Access::SetDefined(value);
    });
}

void SetYearTo(ZelDtDateTime& value, std::int64_t year)
{
    SetField(kSetYear, value, Access::Of(value).Year(), year, &Imp::SetYear);
}

/// A negative count too, so that a year of two digits is read as one.
void AddYears(ZelDtDateTime& value, int years)
{
    Change(kAddYear, value, [&](Imp& imp) { SetYearTo(value, imp.Year() + years); });
}

void SubYears(ZelDtDateTime& value, int years)
{
    Change(kSubYear, value, [&](Imp& imp) {
        if (years < 0) {
            AddYears(value, -years);
            return;
        }
        imp.SubtractYears(zeldt::InsideDateTime(kSubYear.signature), years);
        imp.ClampLeapDay();
        Access::SetDefined(value);
    });
}

/// The days are narrowed to 16 bits.
void AddHours(ZelDtDateTime& value, Count hours)
{
    Change(kAddHour, value, [&](Imp& imp) {
        const zeldt::Carried sum = zeldt::AddWithCarry(imp.fields.hour, hours, kHoursPerDay);
        if (sum.carry != 0)
            AddDays(value, static_cast<std::int16_t>(sum.carry));
        imp.fields.hour = static_cast<std::int32_t>(sum.field);
        Access::SetDefined(value);
    });
}

void SubHours(ZelDtDateTime& value, Count hours)
{
    Change(kSubHour, value, [&](Imp& imp) {
        const zeldt::Carried rest = zeldt::SubtractWithBorrow(imp.fields.hour, hours, kHoursPerDay);
        if (rest.carry != 0)
            SubDays(value, rest.carry);
        imp.fields.hour = static_cast<std::int32_t>(rest.field);
        Access::SetDefined(value);
    });
}

void AddMinutes(ZelDtDateTime& value, Count minutes)
{
    Change(kAddMin, value, [&](Imp& imp) {
        const zeldt::Carried sum = zeldt::AddWithCarry(imp.fields.minute, minutes, kMinutesPerHour);
        if (sum.carry != 0)
            AddHours(value, static_cast<Count>(sum.carry));
        imp.fields.minute = static_cast<std::int32_t>(sum.field);
        Access::SetDefined(value);
    });
}

void SubMinutes(ZelDtDateTime& value, Count minutes)
{
    Change(kSubMin, value, [&](Imp& imp) {
        const zeldt::Carried rest =
            zeldt::SubtractWithBorrow(imp.fields.minute, minutes, kMinutesPerHour);
        if (rest.carry != 0)
            SubHours(value, static_cast<Count>(rest.carry));
        imp.fields.minute = static_cast<std::int32_t>(rest.field);
        Access::SetDefined(value);
    });
}

/// Does `move`, or, for a negative count, `counterMove` under the name of the operation.
void Move(const Operation& operation, ZelDtDateTime& value, std::int64_t count,
          void (*move)(ZelDtDateTime&, Count), void (*counterMove)(ZelDtDateTime&, Count))
{
    if (count >= 0) {
        move(value, zeldt::Magnitude(count));
        return;
    }
    RequireReadable(operation, value);
    Guarded(operation, [&] { counterMove(value, zeldt::Magnitude(count)); });
}

} // namespace

void ZelDtDateTimeAccess::Shift(ZelDtDateTime& value, std::int64_t minutes)
{
    if (minutes < 0) {
        SubMinutes(value, zeldt::Magnitude(minutes));
        return;
    }
    if (minutes >= kMinutesPerDay)
        AddDays(value, minutes / kMinutesPerDay);
    AddMinutes(value, zeldt::Magnitude(minutes % kMinutesPerDay));
}

void ZelDtDateTime::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtDateTime)))
        Raise(kAssign, ErrorNo::DifferentTypes);
    Guarded(kAssign, [&] { *this = static_cast<const ZelDtDateTime&>(source); });
}

ZelDtBasis* ZelDtDateTime::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtDateTime(*this); });
}

// State

ZelDtTyps ZelDtDateTime::GetDtTyp() const
{
    return ZelDtTypDateTime;
}

void ZelDtDateTime::Clear()
{
    Access::Replace(*this, zeldt::DateTimeFields{});
    ZelDtBasis::Clear();
}

// Reading

std::tm ZelDtDateTime::GetValue() const
{
    RequireReadable(kGetValue, *this);
    return zeldt::RecordOf(m_pImp->fields);
}

short ZelDtDateTime::GetDay365() const
{
    return Read(kGetDay365, *this, IsNull() ? 0 : m_pImp->fields.day);
}

short ZelDtDateTime::GetMonth() const
{
    return Read(kGetMonth, *this, m_pImp->Month());
}

short ZelDtDateTime::GetYear() const
{
    return Read(kGetYear, *this, m_pImp->Year());
}

short ZelDtDateTime::GetHour() const
{
    return Read(kGetHour, *this, m_pImp->fields.hour);
}

short ZelDtDateTime::GetMin() const
{
    return Read(kGetMin, *this, m_pImp->fields.minute);
}

short ZelDtDateTime::GetSecond() const
{
    return Read(kGetSecond, *this, m_pImp->fields.second);
}

// Changing

void ZelDtDateTime::SetDateTime(const char* text)
{
    SetText(kSetDateTime, *this, text, &Imp::SetDateTime);
}

void ZelDtDateTime::SetDate(const char* text)
{
    SetText(kSetDate, *this, text, &Imp::SetDate);
}

void ZelDtDateTime::SetTime(const char* text)
{
    SetText(kSetTime, *this, text, &Imp::SetTime);
}

void ZelDtDateTime::SetDay365(short day)
{
    SetField(kSetDay365, *this, m_pImp->fields.day, day, &Imp::SetDay365);
}

void ZelDtDateTime::SetMonth(short month)
{
    SetField(kSetMonth, *this, m_pImp->Month(), month, &Imp::SetMonth);
}

void ZelDtDateTime::SetYear(short year)
{
    SetYearTo(*this, year);
}

void ZelDtDateTime::SetHour(short hour)
{
    SetField(kSetHour, *this, m_pImp->fields.hour, hour, &Imp::SetHour);
}

void ZelDtDateTime::SetMin(short minute)
{
    SetField(kSetMin, *this, m_pImp->fields.minute, minute, &Imp::SetMin);
}

void ZelDtDateTime::SetSecond(short second)
{
    SetField(kSetSecond, *this, m_pImp->fields.second, second, &Imp::SetSecond);
}

void ZelDtDateTime::WipeTime()
{
    m_pImp->fields.second = 0;
    m_pImp->fields.minute = 0;
    m_pImp->fields.hour = 0;
}

// Arithmetic

void ZelDtDateTime::AddDay365(short days)
{
    AddDays(*this, days);
}

void ZelDtDateTime::SubDay365(short days)
{
    SubDays(*this, days);
}

void ZelDtDateTime::AddMonth(short months)
{
    AddMonths(*this, months);
}

void ZelDtDateTime::SubMonth(short months)
{
    SubMonths(*this, months);
}

void ZelDtDateTime::AddYear(short years)
{
    AddYears(*this, years);
}

void ZelDtDateTime::SubYear(short years)
{
    SubYears(*this, years);
}

void ZelDtDateTime::AddHour(long hours)
{
    Move(kAddHour, *this, hours, AddHours, SubHours);
}

void ZelDtDateTime::SubHour(long hours)
{
    Move(kSubHour, *this, hours, SubHours, AddHours);
}

void ZelDtDateTime::AddMin(long minutes)
{
    Move(kAddMin, *this, minutes, AddMinutes, SubMinutes);
}

void ZelDtDateTime::SubMin(long minutes)
{
    Move(kSubMin, *this, minutes, SubMinutes, AddMinutes);
}

// The same with plain numbers

void ZelDtDateTime::SetDay365(int day)
{
    SetDay365(Narrowed<short>(kSetDay365, day));
}

void ZelDtDateTime::SetMonth(int month)
{
    SetMonth(Narrowed<short>(kSetMonth, month));
}

void ZelDtDateTime::SetYear(int year)
{
    SetYear(Narrowed<short>(kSetYear, year));
}

void ZelDtDateTime::SetHour(int hour)
{
    SetHour(Narrowed<short>(kSetHour, hour));
}

void ZelDtDateTime::SetMin(int minute)
{
    SetMin(Narrowed<short>(kSetMin, minute));
}

void ZelDtDateTime::SetSecond(int second)
{
    SetSecond(Narrowed<short>(kSetSecond, second));
}

void ZelDtDateTime::AddDay365(int days)
{
    AddDay365(Narrowed<short>(kAddDay365, days));
}

void ZelDtDateTime::SubDay365(int days)
{
    SubDay365(Narrowed<short>(kSubDay365, days));
}

void ZelDtDateTime::AddMonth(int months)
{
    AddMonth(Narrowed<short>(kAddMonth, months));
}

void ZelDtDateTime::SubMonth(int months)
{
    SubMonth(Narrowed<short>(kSubMonth, months));
}

void ZelDtDateTime::AddYear(int years)
{
    AddYear(Narrowed<short>(kAddYear, years));
}

void ZelDtDateTime::SubYear(int years)
{
    SubYear(Narrowed<short>(kSubYear, years));
}
