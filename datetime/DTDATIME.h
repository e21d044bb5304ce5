#ifndef ZELDT_DATETIME_DTDATIME_H
#define ZELDT_DATETIME_DTDATIME_H

#include "../foundation/DTBASIS.h"
#include "../foundation/DTNOMIX.h"
#include "../platform/runtime/odbctypes.h"
#include "DTCOUNT.h"

#include <ctime>
#include <type_traits>

class CRecordset;
class ZelDtDateTime_Imp;
class ZelDtDecimal;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;
class ZelDtString;
class ZelDtTime;
struct ZelDtDateTimeAccess;

namespace zeldt {

/// Exists for a long that is not the type of moments.
template <typename Moment>
using IfLongMoment =
    std::enable_if_t<std::is_same<Moment, long>::value && !std::is_same<long, std::time_t>::value,
                     int>;

/// Exists for the framework's date alone, not for what one can be made of.
template <typename Date>
using IfFrameworkDate = std::enable_if_t<std::is_same<Date, COleDateTime>::value>;

} // namespace zeldt

/// The layouts that ZelDtDateTime::ConvToSQL writes.
enum SQL_Language : int {
    SQL_Deutsch = 0,         ///< "05.03.2000 14:07", in double quotes
    SQL_Englisch = 1,        ///< "03.05.2000 14:07", month before day, in double quotes
    SQL_Ziffern = 1100,      ///< 05032000
    SQL_DatumUhrzeit = 1101, ///< 05.03.2000 14:07:09
    SQL_Datum = 1102,        ///< 05.03.2000
};

/// A calendar date with a time of day to the second, from the year 1753 on, without time zone.
///
/// Representation: the nine fields of the C standard's `tm`. Day of the week, day of the year and
/// daylight flag are not kept up and never compared. A new value is 1 January 1900, 00:00:00.
/// There is no latest year, but what the fields cannot hold is an error.
///
/// Years of two digits, 0 to 99, mean the current century, in texts as well as numbers; see
/// ZelDtSetClock. Operations named Day365 are about the day of the month.
///
/// Missing: reading, comparing and changing is error 2, computing gives an undefined result. Null:
/// reads and compares as the fields it stores (those of a new value after Clear), except that its
/// day reads as 0. Default value: undefined, 1 January 1900.
///
/// Errors are thrown as ZelDtExcep* (delete it). Constructors, setters and arithmetic report what
/// they find (5 layout, 25 day, 26 month, 27 year before 1753, 28 hour, 29 minute, 30 second, 8 a
/// year beyond the fields) as error 1 under their own name, with the first cause behind it. Fields
/// are set one after the other: a failing text or arithmetic operation keeps those that were set
/// before, and a year is set before it is found to be too early; where nothing else is said, other
/// failures leave the value as it was.
///
///     ZelDtDateTime due("31.01.2000 12:30", ZelDtDateTime::DateTimeString);
///     due.AddMonth(1);                            // 29.02.2000 12:30:00
///     ZelDtTime open = due - ordered;             // whole hours and minutes
class ZELDT_API ZelDtDateTime : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtDateTime)

public:
    /// As hour: the current date and time.
    static const short ksDateTimeNow = 32767;

    /// What a text holds.
    enum FormOfDateTimeString : int {
        DateTimeString = 0, ///< "15.03.2000 12:30" or "15.03.2000 12:30:45"
        DateString = 1,     ///< "15.03.2000", "1.3.00"; the time stays
        TimeString = 2,     ///< "12:30", "12:30:45"; the date stays
    };

    // Construction

    /// Undefined in `mode`.
    ZelDtDateTime(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined, from the record's fields. Its year, which counts from 1900, goes through SetYear as
    /// if it were a calendar year: records of 1900 to 1999 become years of the current century,
    /// those of 2000 and later are errors. So is null.
    ZelDtDateTime(const std::tm* record);
    /// The moment of a valid framework date, defined; undefined for any other.
    ZelDtDateTime(const COleDateTime& source);
    /// Mode, flags and fields of the source, defined or not.
    ZelDtDateTime(const ZelDtDateTime& source);
    /// Defined, the local calendar time of the moment. One that the system cannot express is error
    /// 5 behind error 1.
    ZelDtDateTime(std::time_t moment);
    /// The same for a long where that is another type.
    template <typename Moment, zeldt::IfLongMoment<Moment> = 0>
    ZelDtDateTime(Moment moment) : ZelDtDateTime(static_cast<std::time_t>(moment))
    {}
    /// Defined, midnight. A missing argument: error 1; a Null one counts as the number it stores.
    ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year);
    /// Defined. The date is checked from the year down.
    ZelDtDateTime(short day, short month, short year, short hour, short minute, short second);
    /// Defined, on 1 January 1900; ksDateTimeNow as hour: now, by the local calendar.
    ZelDtDateTime(short hour, short minute);
    /// The same. A missing argument: error 1; a Null one counts as the number it stores.
    ZelDtDateTime(const ZelDtShort& hour, const ZelDtShort& minute);
    ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year,
                  const ZelDtShort& hour, const ZelDtShort& minute, const ZelDtShort& second);
    /// The same with plain numbers. Outside 16 bits: error 8 behind error 1.
    ZelDtDateTime(int day, int month, int year, int hour, int minute, int second);
    ZelDtDateTime(int hour, int minute);
    template <typename Hour, typename Minute, zeldt::IfShortsOrInts<Hour, Minute> = 0>
    ZelDtDateTime(Hour hour, Minute minute)
        : ZelDtDateTime(static_cast<int>(hour), static_cast<int>(minute))
    {}
    template <typename Day, typename Month, typename Year, typename Hour, typename Minute,
              typename Second, zeldt::IfShortsOrInts<Day, Month, Year, Hour, Minute, Second> = 0>
    ZelDtDateTime(Day day, Month month, Year year, Hour hour, Minute minute, Second second)
        : ZelDtDateTime(static_cast<int>(day), static_cast<int>(month), static_cast<int>(year),
                        static_cast<int>(hour), static_cast<int>(minute), static_cast<int>(second))
    {}
    /// Defined. A date has a day and a month of one or two digits and a year of two or four, with
    /// points between; a time has two digits each, the hour's first may be a blank, the seconds may
    /// be missing. In a text of both the date takes ten places and a blank.
    ZelDtDateTime(const char* text, FormOfDateTimeString form);
    /// Mode and flags of the source; its text, read as above, if it is defined.
    ZelDtDateTime(const ZelDtString& source, FormOfDateTimeString form);
    ~ZelDtDateTime() override;

    /// A fraction is no moment, nor is a number that may be missing, and no field has a fraction.
    ZelDtDateTime(double) = delete;
    ZelDtDateTime(const ZelDtLong&) = delete;
    template <typename Hour, typename Minute, typename = zeldt::IfFractions<Hour, Minute>>
    ZelDtDateTime(Hour, Minute) = delete;
    template <typename Day, typename Month, typename Year, typename Hour, typename Minute,
              typename Second,
              typename = zeldt::IfFractions<Day, Month, Year, Hour, Minute, Second>>
    ZelDtDateTime(Day, Month, Year, Hour, Minute, Second) = delete;

    // Assignment

    /// Takes over the fields, changed ones marking the value modified, and the definedness.
    ZelDtDateTime& operator=(const ZelDtDateTime& source);
    /// Takes over the moment of a valid framework date and is defined then; else as Clear.
    ZelDtDateTime& operator=(const COleDateTime& source);
    /// `source` must be of this class or derived from it, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The fields become those of a new value, then as ZelDtBasis::Clear.
    void Clear() override;

    // Reading. Missing: error 2. A field that 16 bits cannot hold: error 8

    /// All nine fields.
    std::tm GetValue() const;
    /// The day of the month, from 1; 0 for a null value.
    short GetDay365() const;
    /// From 1.
    short GetMonth() const;
    /// The calendar year.
    short GetYear() const;
    short GetHour() const;
    short GetMin() const;
    short GetSecond() const;
    /// A null framework date for an undefined value; an invalid one for what it cannot hold.
    operator COleDateTime() const;

    // Changing. Missing: error 2. The value is defined afterwards. A number that differs from the
    // stored one marks the value modified, whether it is accepted or not; a number of more than 16
    // bits is error 8

    /// Layouts as in the constructors.
    void SetDateTime(const char* text);
    void SetDate(const char* text);
    void SetTime(const char* text);
    /// The day of the month.
    void SetDay365(short day);
    /// 1 to 12; a day that the month does not have becomes its last one.
    void SetMonth(short month);
    /// 0 to 99 and below: in the current century. On 29 February the day becomes 28 in a common
    /// year.
    void SetYear(short year);
    void SetHour(short hour);
    void SetMin(short minute);
    void SetSecond(short second);
    /// 00:00:00, whatever the state; marks nothing.
    void WipeTime();

    // Arithmetic. Missing: error 2. The value is defined afterwards, changed fields mark it
    // modified. A negative count does the opposite. A count of days, months or years of more than
    // 16 bits is error 8

    /// Exact by the calendar.
    void AddDay365(short days);
    /// Exact by the calendar from January and February. From March on, a date that arrives in an
    /// earlier leap year comes out a day early, except on 1 January: 1 March 2001 less 365 days is
    /// 29 February 2000.
    void SubDay365(short days);
    /// A day that the month does not have becomes its last one. A sum of months that is a multiple
    /// of 12 above 12, such as December plus 12, is an error and leaves the year two changed.
    void AddMonth(short months);
    void SubMonth(short months);
    /// A resulting year of 99 or less, such as that of 2000 with -1950 years added, is read as one
    /// of two digits.
    void AddYear(short years);
    /// No such reading: a resulting year before 1753 is an error.
    void SubYear(short years);
    /// The days that the hours make are narrowed to 16 bits.
    void AddHour(long hours);
    void SubHour(long hours);
    /// Seconds stay.
    void AddMin(long minutes);
    void SubMin(long minutes);

    // The same with plain numbers, which are checked against 16 bits first

    void SetDay365(int day);
    void SetMonth(int month);
    void SetYear(int year);
    void SetHour(int hour);
    void SetMin(int minute);
    void SetSecond(int second);
    void AddDay365(int days);
    void SubDay365(int days);
    void AddMonth(int months);
    void SubMonth(int months);
    void AddYear(int years);
    void SubYear(int years);

    // A count that a long would cut is none

    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void AddHour(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SubHour(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void AddMin(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SubMin(Number) = delete;

    // SQL

    /// The text of MakeFormatString; NULL when undefined.
    virtual ZelDtString ConvToSQL(SQL_Language language = SQL_Deutsch) const;
    /// Takes a database server's date text, such as "Jan 15 2000 12:30AM", to the minute; defined
    /// afterwards. The seconds stay. "NULL" clears the value. Error 1, with 5 behind it for a text
    /// of another layout.
    virtual void SetFromSQL(const char* text);
    /// The stored fields in the layout of the code, one of SQL_Language; of any other code as
    /// SQL_DatumUhrzeit. No check of definedness.
    ZelDtString MakeFormatString(unsigned short code) const;

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    /// A year before 1753 that the value does not hold already: error 27 behind error 1.
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; "D05032000" at midnight, "C05032000140709" else; an undefined string when the
    /// value is undefined.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// A version other than 100: error 14. With `defined` 1 and a text the value becomes defined;
    /// an undefined text is then error 13, one of an unknown kind error 18, fields that the setters
    /// reject error 1 and nothing is taken over. Anything but 1, or no text, clears the value.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field without its fraction, or clears the value when the record set reports
    /// it null.
    virtual void SetFromRecordSet(CRecordset& rs, const TIMESTAMP_STRUCT& field);
    /// Sets the field of a defined value, except its fraction, and marks it null or not. A year
    /// that the field cannot hold: error 8 behind error 1.
    virtual void ConvToRecordSet(CRecordset& rs, TIMESTAMP_STRUCT& field) const;
    /// Defined word, then second, minute, hour, year since 1900, month from 0 and day as 32-bit
    /// words. They are read without any check: what has no place in a calendar is kept, and every
    /// operation on it ends with a value or an error. A failing archive leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Spans

    /// Later or earlier by the hours and minutes of the time: a defined value in the mode of this
    /// one, with its modified flag, set if it moves. Undefined, in the default mode, where an
    /// operand is missing or both are undefined.
    ZelDtDateTime operator+(const ZelDtTime& span) const;
    ZelDtDateTime operator-(const ZelDtTime& span) const;
    /// The true span in hours and minutes, rounded down to the minute; a time cannot hold more than
    /// about 204 years: error 8 behind error 1.
    ZelDtTime operator-(const ZelDtDateTime& other) const;

    // Comparison, year down to second. Missing operand: error 2

    int operator<(const ZelDtDateTime& right) const;
    int operator>(const ZelDtDateTime& right) const;
    int operator<=(const ZelDtDateTime& right) const;
    int operator>=(const ZelDtDateTime& right) const;
    int operator==(const ZelDtDateTime& right) const;
    int operator!=(const ZelDtDateTime& right) const;

    // Framework dates in comparisons mean the date-times made of them, on either side

    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator<(const ZelDtDateTime& l, const Date& r)
    {
        return l < ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator>(const ZelDtDateTime& l, const Date& r)
    {
        return l > ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator<=(const ZelDtDateTime& l, const Date& r)
    {
        return l <= ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator>=(const ZelDtDateTime& l, const Date& r)
    {
        return l >= ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator==(const ZelDtDateTime& l, const Date& r)
    {
        return l == ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator!=(const ZelDtDateTime& l, const Date& r)
    {
        return l != ZelDtDateTime(r);
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator<(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) < r;
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator>(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) > r;
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator<=(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) <= r;
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator>=(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) >= r;
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator==(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) == r;
    }
    template <typename Date, typename = zeldt::IfFrameworkDate<Date>>
    friend int operator!=(const Date& l, const ZelDtDateTime& r)
    {
        return ZelDtDateTime(l) != r;
    }

    // No number is a character to put in front of the text

    friend ZelDtDateTime operator+(int, const ZelDtDateTime&) = delete;

private:
    friend struct ZelDtDateTimeAccess;

    ZelDtDateTime_Imp* m_pImp;
};

#endif
