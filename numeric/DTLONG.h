#ifndef ZELDT_NUMERIC_DTLONG_H
#define ZELDT_NUMERIC_DTLONG_H

#include "../foundation/DTBASIS.h"
#include "DTMIXED.h"

class CRecordset;
class ZelDtDecimal;
class ZelDtDouble;
class ZelDtLong_Imp;
class ZelDtShort;
class ZelDtString;

namespace zeldt {
template <typename Rules>
class IntegerOperators;
template <typename Rules>
class PlainRep;
struct LongRules;
} // namespace zeldt

/// A whole number of 32 bits, -2147483648 to 2147483647, that reports overflow instead of wrapping.
///
/// Representation: one signed 32-bit number. `long` stays `long` in the signatures; where it is
/// wider, a number outside 32 bits is error 8 and never cut.
///
/// Missing: reading and comparing is error 2, computing gives an undefined result in the default
/// working mode. Null: reads, compares and adds as the number it stores (0 after Clear); in
/// products and as divisor it is the neutral element, as dividend it counts as 0. Default value:
/// undefined, 0.
///
/// Errors are thrown as ZelDtExcep* (delete it). Constructors and arithmetic report what their
/// conversions and checks find (5 no number, 8 out of range, 12 division by zero) as error 1 under
/// their own name, with the first cause behind it. Unless said otherwise a failure leaves the value
/// as it was.
///
///     ZelDtLong count("12");
///     count += 30;
///     count = count * 2;        // 84
///     count.ConvToSQL();        // 84
class ZELDT_API ZelDtLong : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtLong)

public:
    // Construction

    /// Undefined in `mode`, 0.
    ZelDtLong(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined.
    ZelDtLong(int number);
    ZelDtLong(long number);
    /// Defined, from white space, a sign and digits; nothing may follow. With a comma or point in
    /// the text only the digits in the first 11 bytes count and the rest is passed over, so "12,9"
    /// is 12 and "x,1" is 0. An empty text is 0. A null text is no number.
    ZelDtLong(const char* text);
    /// Mode and flags of the source; its text, read as above, if it is defined, else 0.
    ZelDtLong(const ZelDtString& source);
    /// Mode and flags of the source; its number if it is defined, decimals cut off, else 0. Outside
    /// 32 bits: error 8 behind error 1.
    ZelDtLong(const ZelDtDecimal& source);
    ZelDtLong(const ZelDtDouble& source);
    /// Mode, flags and, if it is defined, number of the source.
    ZelDtLong(const ZelDtShort& source);
    ZelDtLong(const ZelDtLong& source);
    ~ZelDtLong() override;

    // Assignment

    /// Takes over the number, a changed one marking the value modified, and the definedness.
    ZelDtLong& operator=(const ZelDtLong& source);
    /// Takes over the number; defined afterwards.
    ZelDtLong& operator=(int number);
    /// Outside 32 bits: error 8.
    ZelDtLong& operator=(long number);
    /// A short: as the long made of it.
    template <typename Source, typename = zeldt::IfWidens<Source, ZelDtLong>>
    ZelDtLong& operator=(const Source& source)
    {
        return *this = ZelDtLong(source);
    }
    /// `source` must be a ZelDtLong, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The number becomes 0, then as ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// Missing: error 2.
    long GetValue() const;
    /// The stored number without any check.
    operator long() const;

    // SQL

    /// The decimal digits; NULL when undefined.
    virtual ZelDtString ConvToSQL() const;
    /// Takes over the number; defined afterwards. Outside 32 bits: error 8.
    virtual void SetFromSQL(long number);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; the digits of the stored number, also of an undefined value.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field, or clears the value when the record set reports it null. A field
    /// outside 32 bits: error 8.
    virtual void SetFromRecordSet(CRecordset& rs, const long& field);
    /// Sets the field of a defined value and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, long& field) const;
    /// Defined word, then the number as a 32-bit word. A failing archive leaves the value as it
    /// was.
    void Serialize(CArchive& ar) override;

    // Arithmetic

    ZelDtLong operator+(const ZelDtLong& right) const;
    ZelDtLong operator-(const ZelDtLong& right) const;
    ZelDtLong operator*(const ZelDtLong& right) const;
    /// Truncates toward zero.
    ZelDtLong operator/(const ZelDtLong& right) const;
    ZelDtLong operator+(int right) const;
    ZelDtLong operator-(int right) const;
    ZelDtLong operator*(int right) const;
    ZelDtLong operator/(int right) const;
    ZelDtLong operator+(long right) const;
    ZelDtLong operator-(long right) const;
    ZelDtLong operator*(long right) const;
    ZelDtLong operator/(long right) const;

    /// Computed as decimal or double; a Null operand leaves the other one as the result.
    ZelDtDecimal operator*(const ZelDtDecimal& right) const;
    ZelDtDouble operator*(const ZelDtDouble& right) const;

    /// With an undefined result the number becomes 0. An overflow leaves the number, but has marked
    /// the value modified; `-=` has by then also made it defined.
    ZelDtLong& operator+=(const ZelDtLong& right);
    ZelDtLong& operator-=(const ZelDtLong& right);
    /// A missing value stays missing; any other is defined afterwards.
    ZelDtLong& operator+=(int right);
    ZelDtLong& operator-=(int right);
    ZelDtLong& operator+=(long right);
    ZelDtLong& operator-=(long right);

    /// One up or down; a missing value stays missing. Both forms of each are alike.
    void operator++();
    void operator++(int);
    void operator--();
    void operator--(int);

    // Comparison. Missing operand: error 2

    int operator<(const ZelDtLong& right) const;
    int operator>(const ZelDtLong& right) const;
    int operator<=(const ZelDtLong& right) const;
    int operator>=(const ZelDtLong& right) const;
    int operator==(const ZelDtLong& right) const;
    int operator!=(const ZelDtLong& right) const;
    int operator<(int right) const;
    int operator>(int right) const;
    int operator<=(int right) const;
    int operator>=(int right) const;
    int operator==(int right) const;
    int operator!=(int right) const;
    int operator<(long right) const;
    int operator>(long right) const;
    int operator<=(long right) const;
    int operator>=(long right) const;
    int operator==(long right) const;
    int operator!=(long right) const;

    // Plain numbers on the left mean what they say

    friend int operator<(int l, const ZelDtLong& r) { return r > l; }
    friend int operator>(int l, const ZelDtLong& r) { return r < l; }
    friend int operator<=(int l, const ZelDtLong& r) { return r >= l; }
    friend int operator>=(int l, const ZelDtLong& r) { return r <= l; }
    friend int operator==(int l, const ZelDtLong& r) { return r == l; }
    friend int operator!=(int l, const ZelDtLong& r) { return r != l; }
    friend int operator<(long l, const ZelDtLong& r) { return r > l; }
    friend int operator>(long l, const ZelDtLong& r) { return r < l; }
    friend int operator<=(long l, const ZelDtLong& r) { return r >= l; }
    friend int operator>=(long l, const ZelDtLong& r) { return r <= l; }
    friend int operator==(long l, const ZelDtLong& r) { return r == l; }
    friend int operator!=(long l, const ZelDtLong& r) { return r != l; }

    // A number with a fraction would lose it without a word

    ZelDtLong(double) = delete;
    ZelDtLong& operator=(double) = delete;
    ZelDtLong& operator+=(double) = delete;
    ZelDtLong& operator-=(double) = delete;
    ZelDtLong operator+(double) const = delete;
    friend ZelDtLong operator+(double, const ZelDtLong&) = delete;
    ZelDtLong operator-(double) const = delete;
    friend ZelDtLong operator-(double, const ZelDtLong&) = delete;
    ZelDtLong operator*(double) const = delete;
    friend ZelDtLong operator*(double, const ZelDtLong&) = delete;
    ZelDtLong operator/(double) const = delete;
    friend ZelDtLong operator/(double, const ZelDtLong&) = delete;
    int operator<(double) const = delete;
    friend int operator<(double, const ZelDtLong&) = delete;
    int operator>(double) const = delete;
    friend int operator>(double, const ZelDtLong&) = delete;
    int operator<=(double) const = delete;
    friend int operator<=(double, const ZelDtLong&) = delete;
    int operator>=(double) const = delete;
    friend int operator>=(double, const ZelDtLong&) = delete;
    int operator==(double) const = delete;
    friend int operator==(double, const ZelDtLong&) = delete;
    int operator!=(double) const = delete;
    friend int operator!=(double, const ZelDtLong&) = delete;

    // Nor is the sum of a text and a number a place in the text

    friend ZelDtLong operator+(const char*, const ZelDtLong&) = delete;
    friend ZelDtLong operator+(const ZelDtLong&, const char*) = delete;
    friend ZelDtLong operator-(const char*, const ZelDtLong&) = delete;
    friend ZelDtLong operator-(const ZelDtLong&, const char*) = delete;

    // The plain value of a boolean or character does not say that it is missing

    template <typename Value>
    zeldt::IfFlagOrChar<Value, ZelDtLong&> operator=(const Value&) = delete;

private:
    friend class zeldt::IntegerOperators<zeldt::LongRules>;
    friend class zeldt::PlainRep<zeldt::LongRules>;

    ZelDtLong_Imp* m_pImp;
};

/// A missing operand gives an undefined result; a Null one is neutral in products and as divisor.
ZELDT_API ZelDtLong operator+(int left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator-(int left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator*(int left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator/(int left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator+(long left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator-(long left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator*(long left, const ZelDtLong& right);
ZELDT_API ZelDtLong operator/(long left, const ZelDtLong& right);

#endif
