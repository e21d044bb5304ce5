#ifndef ZELDT_DATETIME_DTDATZP_H
#define ZELDT_DATETIME_DTDATZP_H

#include "DTDATIME.h"

/// A calendar date: a ZelDtDateTime whose time of day is midnight.
///
/// Construction, assignment, display input, loading and the sum with a time bring the time back to
/// midnight.
/// All else is inherited unchanged, so a setter, a sum of hours or a database text can give a date
/// a time of day, until the next operation that wipes it; comparing looks at it.
///
///     ZelDtDateZp due("31.01.2000");
///     due.AddMonth(1);                 // 29.02.2000
///     ZelDtString(due);                // 29.02.2000
class ZELDT_API ZelDtDateZp : public ZelDtDateTime {
    DECLARE_SERIAL(ZelDtDateZp)

public:
    // Construction; arguments, errors and what they are reported under as ZelDtDateTime's

    ZelDtDateZp(ZelDtWorkingMode mode = ZelDtWmDefault);
    ZelDtDateZp(const std::tm* record);
    /// Mode, flags and date of the source.
    ZelDtDateZp(const ZelDtDateTime& source);
    ZelDtDateZp(const ZelDtDateZp& source);
    ZelDtDateZp(std::time_t moment);
    template <typename Moment, zeldt::IfLongMoment<Moment> = 0>
    ZelDtDateZp(Moment moment) : ZelDtDateZp(static_cast<std::time_t>(moment))
    {}
    ZelDtDateZp(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year);
    ZelDtDateZp(short day, short month, short year);
    ZelDtDateZp(int day, int month, int year);
    template <typename Day, typename Month, typename Year,
              zeldt::IfShortsOrInts<Day, Month, Year> = 0>
    ZelDtDateZp(Day day, Month month, Year year)
        : ZelDtDateZp(static_cast<int>(day), static_cast<int>(month), static_cast<int>(year))
    {}
    /// The layout of a date: "15.03.2000", "1.3.00".
    ZelDtDateZp(const char* text);
    ZelDtDateZp(const ZelDtString& source);
    ~ZelDtDateZp() override;

    /// A fraction is no moment, nor is a number that may be missing, and no field has a fraction.
    ZelDtDateZp(double) = delete;
    ZelDtDateZp(const ZelDtLong&) = delete;
    template <typename Day, typename Month, typename Year,
              typename = zeldt::IfFractions<Day, Month, Year>>
    ZelDtDateZp(Day, Month, Year) = delete;

    // Assignment

    ZelDtDateZp& operator=(const ZelDtDateZp& source);
    /// `source` must be a ZelDtDateZp, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State and reading

    ZelDtTyps GetDtTyp() const override;
    /// All nine fields, without any check.
    operator std::tm() const;

    // Display

    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // Archive

    /// Defined word, then year since 1900, month from 0 and day as 32-bit words, read without any
    /// check. A failing archive leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Spans

    /// The date of the moment that is the time later or earlier, from midnight unless the date has
    /// a time of day: 23:59 later is the same date, 24:00 the next one. Definedness, mode and flags
    /// as ZelDtDateTime's.
    ZelDtDateZp operator+(const ZelDtTime& span) const;
    ZelDtDateZp operator-(const ZelDtTime& span) const;
    using ZelDtDateTime::operator-;
    /// The text of a date is no time.
    ZelDtDateZp operator+(const char*) const = delete;
    ZelDtDateZp operator-(const char*) const = delete;
};

#endif
