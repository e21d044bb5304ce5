// Dates and spans of time.

#include "platform/framework/fwoledt.h"

#include "platform/framework/fwarchive.h"
#include "platform/framework/fwcalend.h"
#include "platform/framework/fwexcept.h"
#include "platform/runtime/localtime.h"

#include <cmath>
#include <optional>

namespace {

using zelfw::CalendarFields;

constexpr double kHoursPerDay = 24;
constexpr double kMinutesPerDay = 24 * 60;
constexpr double kSecondsPerDay = static_cast<double>(zelfw::kSecondsPerDay);

/// Days from before the first to after the last day: no two dates lie that far apart.
constexpr double kSpanLimit = static_cast<double>(zelfw::kLastSerial - zelfw::kFirstSerial + 1);

/// The status of a result whose operands have these; valid when both are.
template <class Result, class Left, class Right>
Result CombinedStatus(const Left& left, const Right& right)
{
    if (left.m_status == Left::null || right.m_status == Right::null)
        return Result::null;
    if (left.m_status == Left::invalid || right.m_status == Right::invalid)
        return Result::invalid;
    return Result::valid;
}

/// The moment of a date that is valid and within the range.
std::optional<zelfw::SplitMoment> MomentOf(const COleDateTime& date)
{
    return date.m_status == COleDateTime::valid ? zelfw::SplitSerial(date.m_dt) : std::nullopt;
}

int FieldOf(const COleDateTime& date, int CalendarFields::*field)
{
    const auto moment = MomentOf(date);
    return moment ? zelfw::FieldsFromMoment(*moment).*field : int{COleDateTime::error};
}

double LinearOf(const COleDateTime& date)
{
    return zelfw::LinearFromSerial(date.m_dt);
}

/// The date `days` after `date`, with the status that belongs to it.
COleDateTime Moved(const COleDateTime& date, const COleDateTimeSpan& span, double days)
{
    COleDateTime result;
    result.m_status = CombinedStatus<COleDateTime::DateTimeStatus>(date, span);
    if (result.m_status == COleDateTime::valid)
        result = COleDateTime(zelfw::SerialFromLinear(LinearOf(date) + days));
    return result;
}

COleDateTimeSpan Added(const COleDateTimeSpan& left, const COleDateTimeSpan& right, double days)
{
    COleDateTimeSpan result;
    result.m_status = CombinedStatus<COleDateTimeSpan::DateTimeSpanStatus>(left, right);
    if (result.m_status == COleDateTimeSpan::valid)
        result = left.m_span + days;
    return result;
}

CArchive& Store(CArchive& ar, LONG status, double number)
{
    return ar << status << number;
}

/// Reads a value; its constructor decides whether the number lies within the range.
template <class Value>
CArchive& Load(CArchive& ar, Value& value)
{
    LONG status = 0;
    double number = 0;
    ar >> status >> number;
    if (status < Value::valid || status > Value::null)
        AfxThrowArchiveException(CArchiveException::genericException);
    Value loaded(number);
    if (status != Value::valid)
        loaded.m_status = static_cast<decltype(loaded.m_status)>(status);
    value = loaded;
    return ar;
}

} // namespace

COleDateTimeSpan::COleDateTimeSpan() : m_span(0), m_status(valid) {}

COleDateTimeSpan::COleDateTimeSpan(double dblSpanSrc) : m_span(dblSpanSrc), m_status(valid)
{
    if (!IsInRange())
        m_status = invalid;
}

COleDateTimeSpan::COleDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
    : m_span(0), m_status(valid)
{
    SetDateTimeSpan(lDays, nHours, nMins, nSecs);
}

bool COleDateTimeSpan::IsInRange() const
{
    return std::fabs(m_span) < kSpanLimit;
}

COleDateTimeSpan::DateTimeSpanStatus COleDateTimeSpan::GetStatus() const
{
    return m_status;
}

void COleDateTimeSpan::SetStatus(DateTimeSpanStatus status)
{
    m_status = status;
}

double COleDateTimeSpan::GetTotalDays() const
{
    return m_span;
}

double COleDateTimeSpan::GetTotalHours() const
{
    return m_span * kHoursPerDay;
}

double COleDateTimeSpan::GetTotalMinutes() const
{
    return m_span * kMinutesPerDay;
}

double COleDateTimeSpan::GetTotalSeconds() const
{
    return m_span * kSecondsPerDay;
}

LONGLONG COleDateTimeSpan::RoundedSeconds() const
{
    return IsInRange() ? std::llround(GetTotalSeconds()) : 0;
}

LONG COleDateTimeSpan::GetDays() const
{
    return static_cast<LONG>(RoundedSeconds() / zelfw::kSecondsPerDay);
}

LONG COleDateTimeSpan::GetHours() const
{
    return static_cast<LONG>(RoundedSeconds() / 3600 % 24);
}

LONG COleDateTimeSpan::GetMinutes() const
{
    return static_cast<LONG>(RoundedSeconds() / 60 % 60);
}

LONG COleDateTimeSpan::GetSeconds() const
{
    return static_cast<LONG>(RoundedSeconds() % 60);
}

void COleDateTimeSpan::SetDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs)
{
    const LONGLONG seconds = lDays * zelfw::kSecondsPerDay + nHours * 3600LL + nMins * 60LL + nSecs;
    *this = static_cast<double>(seconds) / kSecondsPerDay;
}

COleDateTimeSpan& COleDateTimeSpan::operator=(double dblSpanSrc)
{
    return *this = COleDateTimeSpan(dblSpanSrc);
}

bool COleDateTimeSpan::operator==(const COleDateTimeSpan& dateSpan) const
{
    return m_status == dateSpan.m_status && (m_status != valid || m_span == dateSpan.m_span);
}

bool COleDateTimeSpan::operator!=(const COleDateTimeSpan& dateSpan) const
{
    return !(*this == dateSpan);
}

bool COleDateTimeSpan::operator<(const COleDateTimeSpan& dateSpan) const
{
    return m_span < dateSpan.m_span;
}

bool COleDateTimeSpan::operator>(const COleDateTimeSpan& dateSpan) const
{
    return dateSpan < *this;
}

bool COleDateTimeSpan::operator<=(const COleDateTimeSpan& dateSpan) const
{
    return m_span <= dateSpan.m_span;
}

bool COleDateTimeSpan::operator>=(const COleDateTimeSpan& dateSpan) const
{
    return dateSpan <= *this;
}

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& dateSpan) const
{
    return Added(*this, dateSpan, dateSpan.m_span);
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& dateSpan) const
{
    return Added(*this, dateSpan, -dateSpan.m_span);
}

COleDateTimeSpan& COleDateTimeSpan::operator+=(const COleDateTimeSpan& dateSpan)
{
    return *this = *this + dateSpan;
}

COleDateTimeSpan& COleDateTimeSpan::operator-=(const COleDateTimeSpan& dateSpan)
{
    return *this = *this - dateSpan;
}

COleDateTimeSpan COleDateTimeSpan::operator-() const
{
    COleDateTimeSpan result = *this;
    result.m_span = -m_span;
    return result;
}

COleDateTimeSpan::operator double() const
{
    return m_span;
}

COleDateTime::COleDateTime() : m_dt(0), m_status(valid) {}

COleDateTime::COleDateTime(DATE dtSrc)
    : m_dt(dtSrc), m_status(zelfw::SplitSerial(dtSrc) ? valid : invalid)
{}

COleDateTime::COleDateTime(time_t timeSrc) : m_dt(0), m_status(invalid)
{
    std::tm fields{};
    // The system may count a leap second as second 60; the serial number knows none.
    if (zelrt::LocalTime(timeSrc, fields) && fields.tm_year <= zelfw::kLastYear)
        SetDateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
                    fields.tm_min, fields.tm_sec > 59 ? 59 : fields.tm_sec);
}

COleDateTime::COleDateTime(const SYSTEMTIME& systimeSrc)
    : COleDateTime(systimeSrc.wYear, systimeSrc.wMonth, systimeSrc.wDay, systimeSrc.wHour,
                   systimeSrc.wMinute, systimeSrc.wSecond)
{}

COleDateTime::COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec)
    : m_dt(0), m_status(valid)
{
    SetDateTime(nYear, nMonth, nDay, nHour, nMin, nSec);
}

COleDateTime COleDateTime::GetCurrentTime()
{
    return COleDateTime(std::time(nullptr));
}

COleDateTime::DateTimeStatus COleDateTime::GetStatus() const
{
    return m_status;
}

void COleDateTime::SetStatus(DateTimeStatus status)
{
    m_status = status;
}

int COleDateTime::SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec)
{
    const CalendarFields fields{nYear, nMonth, nDay, nHour, nMin, nSec};
    m_status = zelfw::IsCalendarMoment(fields) ? valid : invalid;
    if (m_status == valid)
        m_dt = zelfw::SerialFromFields(fields);
    return m_status;
}

int COleDateTime::SetDate(int nYear, int nMonth, int nDay)
{
    return SetDateTime(nYear, nMonth, nDay, 0, 0, 0);
}

int COleDateTime::SetTime(int nHour, int nMin, int nSec)
{
    return SetDateTime(1899, 12, 30, nHour, nMin, nSec);
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& sysTime) const
{
    const auto moment = MomentOf(*this);
    if (moment)
        sysTime = zelfw::SystemTimeFromMoment(*moment);
    return moment.has_value();
}

int COleDateTime::GetYear() const
{
    return FieldOf(*this, &CalendarFields::year);
}

int COleDateTime::GetMonth() const
{
    return FieldOf(*this, &CalendarFields::month);
}

int COleDateTime::GetDay() const
{
    return FieldOf(*this, &CalendarFields::day);
}

int COleDateTime::GetHour() const
{
    return FieldOf(*this, &CalendarFields::hour);
}

int COleDateTime::GetMinute() const
{
    return FieldOf(*this, &CalendarFields::minute);
}

int COleDateTime::GetSecond() const
{
    return FieldOf(*this, &CalendarFields::second);
}

int COleDateTime::GetDayOfWeek() const
{
    const auto moment = MomentOf(*this);
    return moment ? static_cast<int>(zelfw::WeekdayOf(moment->day)) + 1 : int{error};
}

int COleDateTime::GetDayOfYear() const
{
    const auto moment = MomentOf(*this);
    if (!moment)
        return error;
    const int year = zelfw::FieldsFromMoment(*moment).year;
    return static_cast<int>(moment->day - zelfw::SerialOfMonth(year, 1)) + 1;
}

COleDateTime& COleDateTime::operator=(DATE dtSrc)
{
    return *this = COleDateTime(dtSrc);
}

COleDateTime& COleDateTime::operator=(time_t timeSrc)
{
    return *this = COleDateTime(timeSrc);
}

COleDateTime& COleDateTime::operator=(const SYSTEMTIME& systimeSrc)
{
    return *this = COleDateTime(systimeSrc);
}

bool COleDateTime::operator==(const COleDateTime& date) const
{
    return m_status == date.m_status && (m_status != valid || LinearOf(*this) == LinearOf(date));
}

bool COleDateTime::operator!=(const COleDateTime& date) const
{
    return !(*this == date);
}

bool COleDateTime::operator<(const COleDateTime& date) const
{
    return LinearOf(*this) < LinearOf(date);
}

bool COleDateTime::operator>(const COleDateTime& date) const
{
    return date < *this;
}

bool COleDateTime::operator<=(const COleDateTime& date) const
{
    return LinearOf(*this) <= LinearOf(date);
}

bool COleDateTime::operator>=(const COleDateTime& date) const
{
    return date <= *this;
}

COleDateTime COleDateTime::operator+(const COleDateTimeSpan& dateSpan) const
{
    return Moved(*this, dateSpan, dateSpan.m_span);
}

COleDateTime COleDateTime::operator-(const COleDateTimeSpan& dateSpan) const
{
    return Moved(*this, dateSpan, -dateSpan.m_span);
}

COleDateTime& COleDateTime::operator+=(const COleDateTimeSpan& dateSpan)
{
    return *this = *this + dateSpan;
}

COleDateTime& COleDateTime::operator-=(const COleDateTimeSpan& dateSpan)
{
    return *this = *this - dateSpan;
}

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& date) const
{
    COleDateTimeSpan result;
    result.m_status = CombinedStatus<COleDateTimeSpan::DateTimeSpanStatus>(*this, date);
    if (result.m_status == COleDateTimeSpan::valid)
        result = LinearOf(*this) - LinearOf(date);
    return result;
}

COleDateTime::operator DATE() const
{
    return m_dt;
}

CArchive& operator<<(CArchive& ar, const COleDateTime& dateSrc)
{
    return Store(ar, dateSrc.m_status, dateSrc.m_dt);
}

CArchive& operator>>(CArchive& ar, COleDateTime& dateSrc)
{
    return Load(ar, dateSrc);
}

CArchive& operator<<(CArchive& ar, const COleDateTimeSpan& dateSpan)
{
    return Store(ar, dateSpan.m_status, dateSpan.m_span);
}

CArchive& operator>>(CArchive& ar, COleDateTimeSpan& dateSpan)
{
    return Load(ar, dateSpan);
}
