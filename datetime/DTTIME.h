#ifndef ZELDT_DATETIME_DTTIME_H
#define ZELDT_DATETIME_DTTIME_H

#include "../foundation/DTBASIS.h"
#include "../foundation/DTNOMIX.h"
#include "DTCOUNT.h"

namespace zeldt {
template <typename Rules>
class PlainRep;
struct TimeRules;
} // namespace zeldt

class CRecordset;
class ZelDtDateTime;
class ZelDtLong;
class ZelDtString;
class ZelDtTime_Imp;
struct ZelDtTimeAccess;

/// A signed amount of time, such as a working time or the span between two date-times.
///
/// Representation: a signed 32-bit count of units of 1/1200 hour (3 seconds; 20 to the minute, 12
/// to the hundredth of an hour), about 1789569 hours either way, and the mode in which the fraction
/// of an hour is read and written. One amount reads in every mode: 1800 units are 1:30 in minutes
/// and 1,50 in hundredths. Fractions below the last place of a mode are dropped when read.
///
/// Missing: reading and comparing is error 2, computing gives an undefined result. Null: reads,
/// compares and adds as the amount it stores (0 after Clear). Default value: undefined, 0, mode
/// Minuten.
///
/// Errors are thrown as ZelDtExcep* (delete it). A mode outside 0 to 3 is error 17 wherever one is
/// taken. An amount that does not fit is error 8. Unless said otherwise a failure leaves the value
/// as it was.
///
///     ZelDtTime day("7:45");
///     day += ZelDtTime("0,50");    // 8:15
///     day.Round(ZelDtTime::RundenHalbeStunde);
///     ZelDtString(day);            // 08:30
class ZELDT_API ZelDtTime : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtTime)

public:
    /// How the fraction of an hour is read and written.
    enum TimeMode : int {
        Hundertstel = 0, ///< hundredths of an hour, "1,50"
        Minuten = 1,     ///< minutes, "01:30"
        Stunden = 2,     ///< whole hours, "01"; a fraction is dropped
        Eigener = 3,     ///< the stored mode, or the one that a text shows; never stored
    };

    /// The step of Round.
    enum RoundMode : int {
        RundenViertelstunde = 0,
        RundenHalbeStunde = 1,
        RundenStunde = 2,
    };

    // Construction

    /// Undefined in `mode`, 0, in minutes.
    ZelDtTime(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined, from hours alone ("8"; mode Eigener stores Stunden) or hours, separator and a
    /// fraction of two digits ("8:15", "8,25"; mode Eigener stores what the separator shows). A
    /// sign in front counts for both parts. Another separator than that of the mode, or none at the
    /// third place from the end: error 21. 60 minutes and more, or more than 1789568 hours: error
    /// 8. A null text: error 5.
    ZelDtTime(const char* text, TimeMode mode = Eigener);
    /// Defined: the hours and, by the mode, minutes or hundredths, which may have any size and
    /// sign. Mode Stunden takes the hours only; Eigener counts as Minuten. Too much: error 8.
    ZelDtTime(long hours, long fraction, TimeMode mode = Eigener);
    /// The same. A missing argument is error 1; a Null one counts as the number it stores.
    ZelDtTime(const ZelDtLong& hours, const ZelDtLong& fraction, TimeMode mode = Eigener);
    /// Mode and flags of the source; its text, read as above, if it is defined, else 0 in the mode,
    /// Eigener counting as Minuten.
    ZelDtTime(const ZelDtString& source, TimeMode mode = Eigener);
    /// Working mode, flags, amount and time mode of the source, defined or not.
    ZelDtTime(const ZelDtTime& source);
    ~ZelDtTime() override;

    /// A number alone is no text, and a mode is no fraction.
    ZelDtTime(int) = delete;
    ZelDtTime(int, TimeMode) = delete;
    /// Nor is a date, whose text would read as hours.
    ZelDtTime(const ZelDtDateTime&, TimeMode = Eigener) = delete;

    // Assignment

    /// Takes over amount and time mode, a changed amount marking the value modified, and the
    /// definedness.
    ZelDtTime& operator=(const ZelDtTime& source);
    /// `source` must be a ZelDtTime, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The amount becomes 0, then as ZelDtBasis::Clear. The time mode stays.
    void Clear() override;
    /// Amount 0 in the mode, defined; modified if the amount changed. Eigener keeps the mode.
    void Reset(TimeMode mode);
    /// The mode alone; Eigener keeps it. Marks nothing.
    void SetMode(TimeMode mode);
    TimeMode GetMode() const;

    // Reading. Missing: error 2

    /// Writes the text of the stored mode and its terminator into `buffer` of `size` bytes and
    /// returns it: 12 bytes always suffice. A size not above the length: error 4; a null buffer:
    /// error 5.
    char* GetValue(char* buffer, int size) const;
    /// The whole hours, cut toward zero.
    long GetHour() const;
    /// What the mode shows beside the whole hours, with the amount's sign: minutes, hundredths, or
    /// 0 in Stunden.
    long GetMin(TimeMode mode = Eigener) const;
    /// The whole amount in minutes, hundredths of an hour or hours, cut toward zero.
    long GetTime(TimeMode mode = Eigener) const;

    // Changing. The value is defined afterwards, a changed amount marks it modified. An amount that
    // does not fit: error 8

    /// Reads the text as the constructor does and takes over its mode. Errors as there.
    void SetValue(const char* text, TimeMode mode = Eigener);
    /// Replaces the whole hours; what is beside them stays.
    void SetHour(long hours);
    /// Replaces what is beside the whole hours by `fraction` minutes or hundredths, which may have
    /// any size and sign: SetMin(30, Minuten) makes -1:00 to -0:30. Stunden sets 0.
    void SetMin(long fraction, TimeMode mode = Eigener);
    /// The whole amount in minutes, hundredths of an hour or hours.
    void SetTime(long amount, TimeMode mode = Eigener);

    // Adding. Missing: error 2. A Null value counts as its amount and becomes defined. An amount
    // that does not fit: error 8 behind error 1

    void AddHour(long hours);
    void SubHour(long hours);
    /// `fraction` minutes, hundredths or, in Stunden, hours.
    void AddMin(long fraction, TimeMode mode = Eigener);
    void SubMin(long fraction, TimeMode mode = Eigener);

    /// Moves a defined amount that is no multiple of the step away from zero to the next one: 1:01
    /// to 1:15, -1:01 to -1:15. An undefined value stays as it is. An unknown step: error 31; an
    /// amount that does not fit: error 8 behind error 1.
    void Round(RoundMode step);

    // SQL

    /// The count of units in decimal: 1800 for 90 minutes; NULL when undefined.
    virtual ZelDtString ConvToSQL() const;
    /// Takes over a count of units; defined afterwards. Outside 32 bits: error 8.
    virtual void SetFromSQL(long units);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    /// Takes over the mode of the text too, as SetValue does.
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; whole minutes, split into years of 12 months of 30 days of 24 hours:
    /// "T013000" for 90 minutes, "C-02000000020000" for -50 hours, "D..." for whole days. The sign
    /// is that of the whole hours: -0:30 reads back as 0:30. What is below a minute is dropped, and
    /// so is the mode. SQL text and archive keep the exact amount.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// A version other than 100: error 14. With `defined` 1 and a text the value becomes defined;
    /// an undefined text is then error 13, one of another form error 18, too much error 8. The mode
    /// stays. Anything but 1, or no text, clears the value.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field, a count of units, or clears the value when the record set reports it
    /// null. Outside 32 bits: error 8 behind error 1.
    virtual void SetFromRecordSet(CRecordset& rs, const long& field);
    /// Sets the field of a defined value and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, long& field) const;
    /// Defined word, then the count of units as a 32-bit word; the mode stays. A failing archive
    /// leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Arithmetic. An amount that does not fit: error 8 behind error 1

    /// In the mode of the left operand, if that is undefined of the right; undefined where an
    /// operand is missing or both are undefined.
    ZelDtTime operator+(const ZelDtTime& right) const;
    ZelDtTime operator-(const ZelDtTime& right) const;
    /// Keep the mode. With an undefined result the amount becomes 0.
    ZelDtTime& operator+=(const ZelDtTime& right);
    ZelDtTime& operator-=(const ZelDtTime& right);

    // Comparison of the amounts. Missing operand: error 2

    int operator<(const ZelDtTime& right) const;
    int operator>(const ZelDtTime& right) const;
    int operator<=(const ZelDtTime& right) const;
    int operator>=(const ZelDtTime& right) const;
    int operator==(const ZelDtTime& right) const;
    int operator!=(const ZelDtTime& right) const;

    // Half an hour is 30 minutes: what a long would cut, a fraction or more than it holds, is no
    // count

    template <typename Hours, typename Fraction, typename = zeldt::IfNoLongs<Hours, Fraction>>
    ZelDtTime(Hours, Fraction, TimeMode = Eigener) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SetHour(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SetMin(Number, TimeMode = Eigener) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SetTime(Number, TimeMode = Eigener) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void AddHour(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SubHour(Number) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void AddMin(Number, TimeMode = Eigener) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SubMin(Number, TimeMode = Eigener) = delete;
    template <typename Number, typename = zeldt::IfNoLongs<Number>>
    void SetFromSQL(Number) = delete;

    // A text or number in front of a time would be joined with the text of it

    friend ZelDtTime operator+(const char*, const ZelDtTime&) = delete;
    friend ZelDtTime operator+(int, const ZelDtTime&) = delete;

private:
    friend class zeldt::PlainRep<zeldt::TimeRules>;
    friend struct ZelDtTimeAccess;

    ZelDtTime_Imp* m_pImp;
};

#endif
