#ifndef ZELDT_PLATFORM_FRAMEWORK_FWOLEDT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWOLEDT_H

#include "../runtime/wintypes.h"
#include "export.h"

#include <ctime>

// An old system macro of this name would rename COleDateTime::GetCurrentTime.
#undef GetCurrentTime

class CArchive;

/// A length of time, positive or negative: the difference of two COleDateTime values.
///
/// Held as days with a fraction in `m_span`, which is exact to well below a second over the whole
/// range: less than 3615900 days either way, as much as two dates can lie apart. Beside it stands
/// a status; `null` says that there is no value, `invalid` that a computation left the range.
///
/// Nothing here throws except the archive operators. The parts are those of the span rounded to
/// the nearest second and all have the sign of the span: -1.5 days are -1 day and -12 hours. They
/// do not look at the status; outside the range they are 0.
class ZELFW_API COleDateTimeSpan {
public:
    enum DateTimeSpanStatus {
        valid = 0,
        invalid = 1,
        null = 2,
    };

    /// No time at all; valid.
    COleDateTimeSpan();

    /// A number of days; invalid outside the range.
    COleDateTimeSpan(double dblSpanSrc); // NOLINT(google-explicit-constructor)

    /// The sum of the parts, as SetDateTimeSpan().
    COleDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

    DateTimeSpanStatus GetStatus() const;

    /// Sets the status and leaves the number of days as it is.
    void SetStatus(DateTimeSpanStatus status);

    /// The whole span in one unit, fraction included.
    double GetTotalDays() const;
    double GetTotalHours() const;
    double GetTotalMinutes() const;
    double GetTotalSeconds() const;

    /// Whole days, and the hours (-23 to 23), minutes and seconds (-59 to 59) beyond them.
    LONG GetDays() const;
    LONG GetHours() const;
    LONG GetMinutes() const;
    LONG GetSeconds() const;

    /// Adds up the parts, each of any size and sign. Status valid, or invalid when the sum lies
    /// outside the range.
    void SetDateTimeSpan(LONG lDays, int nHours, int nMins, int nSecs);

    /// A number of days; status valid, or invalid outside the range.
    COleDateTimeSpan& operator=(double dblSpanSrc);

    /// Equal: the same status and, when that is valid, the same length.
    bool operator==(const COleDateTimeSpan& dateSpan) const;
    bool operator!=(const COleDateTimeSpan& dateSpan) const;

    /// Order of the lengths; meaningful when both spans are valid.
    bool operator<(const COleDateTimeSpan& dateSpan) const;
    bool operator>(const COleDateTimeSpan& dateSpan) const;
    bool operator<=(const COleDateTimeSpan& dateSpan) const;
    bool operator>=(const COleDateTimeSpan& dateSpan) const;

    /// Null when an operand is null, else invalid when an operand is invalid or the result leaves
    /// the range.
    COleDateTimeSpan operator+(const COleDateTimeSpan& dateSpan) const;
    COleDateTimeSpan operator-(const COleDateTimeSpan& dateSpan) const;
    COleDateTimeSpan& operator+=(const COleDateTimeSpan& dateSpan);
    COleDateTimeSpan& operator-=(const COleDateTimeSpan& dateSpan);
    COleDateTimeSpan operator-() const;

    /// The number of days, whatever the status.
    operator double() const; // NOLINT(google-explicit-constructor)

    double m_span;
    DateTimeSpanStatus m_status;

private:
    bool IsInRange() const;
    LONGLONG RoundedSeconds() const;
};

/// A moment in time: an automation date with a status.
///
/// `m_dt` counts days from 30 December 1899, 00:00; its fraction is the time of day, which counts
/// forward in negative dates too (-1.25 is 29 December 1899, 06:00). `m_status` is `valid`,
/// `invalid` (a moment that does not exist or cannot be held) or `null` (no moment). The range
/// is 1 January 100, 00:00:00 to 31 December 9999, 23:59:59.
///
/// Nothing here throws except the archive operators. Fields are those of the moment rounded to
/// the nearest second.
///
///     COleDateTime start(2024, 2, 29, 12, 0, 0);
///     COleDateTime end = start + COleDateTimeSpan(1, 0, 0, 0);   // 1 March 2024, 12:00
///     COleDateTime bad(2023, 2, 29, 12, 0, 0);                   // status invalid
class ZELFW_API COleDateTime {
public:
    enum DateTimeStatus {
        error = -1,
        valid = 0,
        invalid = 1,
        null = 2,
    };

    /// 30 December 1899, 00:00; valid.
    COleDateTime();

    /// An automation date; invalid outside the range.
    COleDateTime(DATE dtSrc); // NOLINT(google-explicit-constructor)

    /// The local calendar time of `timeSrc`; invalid when the system cannot express it.
    COleDateTime(time_t timeSrc); // NOLINT(google-explicit-constructor)

    /// The fields of a system time without its milliseconds; as SetDateTime().
    COleDateTime(const SYSTEMTIME& systimeSrc); // NOLINT(google-explicit-constructor)

    /// As SetDateTime() on a default object.
    COleDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);

    /// The local time now, to the second.
    static COleDateTime GetCurrentTime();

    DateTimeStatus GetStatus() const;

    /// Sets the status and leaves the date as it is.
    void SetStatus(DateTimeStatus status);

    /// Sets the moment and returns the status: `valid`, or, for fields that do not exist together
    /// (30 February, 24:00, the year 99), `invalid`; then only the status changes.
    int SetDateTime(int nYear, int nMonth, int nDay, int nHour, int nMin, int nSec);

    /// As SetDateTime() with midnight as time.
    int SetDate(int nYear, int nMonth, int nDay);

    /// As SetDateTime() with 30 December 1899, the zero day, as date.
    int SetTime(int nHour, int nMin, int nSec);

    /// Writes the fields to `sysTime`, milliseconds 0. False, with `sysTime` unchanged, unless the
    /// status is valid and the date within the range.
    bool GetAsSystemTime(SYSTEMTIME& sysTime) const;

    /// One field each: year 100 to 9999, month and day from 1, hour 0 to 23, minute and second
    /// 0 to 59, day of the week 1 (Sunday) to 7, day of the year 1 to 366. `error` (-1) unless the
    /// status is valid and the date within the range.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetDayOfWeek() const;
    int GetDayOfYear() const;

    /// As the constructors of the same argument.
    COleDateTime& operator=(DATE dtSrc);
    COleDateTime& operator=(time_t timeSrc);
    COleDateTime& operator=(const SYSTEMTIME& systimeSrc);

    /// Equal: the same status and, when that is valid, the same moment.
    bool operator==(const COleDateTime& date) const;
    bool operator!=(const COleDateTime& date) const;

    /// Order in time; meaningful when both moments are valid.
    bool operator<(const COleDateTime& date) const;
    bool operator>(const COleDateTime& date) const;
    bool operator<=(const COleDateTime& date) const;
    bool operator>=(const COleDateTime& date) const;

    /// Null when an operand is null, else invalid when an operand is invalid or the result leaves
    /// the range.
    COleDateTime operator+(const COleDateTimeSpan& dateSpan) const;
    COleDateTime operator-(const COleDateTimeSpan& dateSpan) const;
    COleDateTime& operator+=(const COleDateTimeSpan& dateSpan);
    COleDateTime& operator-=(const COleDateTimeSpan& dateSpan);
    COleDateTimeSpan operator-(const COleDateTime& date) const;

    /// The automation date, whatever the status.
    operator DATE() const; // NOLINT(google-explicit-constructor)

    DATE m_dt;
    DateTimeStatus m_status;
};

/// Writes status (LONG) and date (double), whatever the status.
ZELFW_API CArchive& operator<<(CArchive& ar, const COleDateTime& dateSrc);

/// Reads what `<<` wrote. A status that does not exist throws CArchiveException
/// (genericException); then, and when the archive ends too soon, `dateSrc` stays unchanged. A
/// valid status beside a date outside the range becomes invalid.
ZELFW_API CArchive& operator>>(CArchive& ar, COleDateTime& dateSrc);

/// Writes status (LONG) and days (double); reads as a COleDateTime is read.
ZELFW_API CArchive& operator<<(CArchive& ar, const COleDateTimeSpan& dateSpan);
ZELFW_API CArchive& operator>>(CArchive& ar, COleDateTimeSpan& dateSpan);

#endif
