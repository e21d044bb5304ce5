#ifndef ZELDT_NUMERIC_DTSHORT_H
#define ZELDT_NUMERIC_DTSHORT_H

#include "../foundation/DTBASIS.h"
#include "DTMIXED.h"

class CRecordset;
class ZelDtDecimal;
class ZelDtLong;
class ZelDtShort_Imp;
class ZelDtString;

namespace zeldt {
template <typename Rules>
class IntegerOperators;
template <typename Rules>
class PlainRep;
struct ShortRules;
} // namespace zeldt

/// A whole number of 16 bits, -32768 to 32767, that reports overflow instead of wrapping.
///
/// Representation: one signed 16-bit number. Plain `int` and `long` operands enter a calculation as
/// they are; only the result has to fit.
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
///     ZelDtShort items("12");
///     items += 30;
///     items = items * 2;                                // 84
///     const ZelDtLong all = items + ZelDtLong(100000);  // 100084
class ZELDT_API ZelDtShort : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtShort)

public:
    // Construction

    /// Undefined in `mode`, 0.
    ZelDtShort(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined.
    ZelDtShort(short number);
    /// The same. Outside 16 bits: error 8 behind error 1.
    ZelDtShort(int number);
    ZelDtShort(long number);
    /// Defined, from white space, a sign and digits; nothing may follow. With a comma or point in
    /// the text only the digits in the first 6 bytes count and the rest is passed over, so "12,9"
    /// is 12 and "x,1" is 0. An empty text is 0. A null text is no number.
    ZelDtShort(const char* text);
    /// Mode and flags of the source; its number if it is defined, decimals cut off, else 0. Outside
    /// 16 bits: error 8 behind error 1.
    ZelDtShort(const ZelDtLong& source);
    ZelDtShort(const ZelDtDecimal& source);
    /// Mode and flags of the source; its text, read as above, if it is defined, else 0.
    ZelDtShort(const ZelDtString& source);
    /// Mode, flags and stored number of the source, defined or not.
    ZelDtShort(const ZelDtShort& source);
    ~ZelDtShort() override;

    // Assignment

    /// Takes over the number, a changed one marking the value modified, and the definedness.
    ZelDtShort& operator=(const ZelDtShort& source);
    /// Takes over the number; defined afterwards. Outside 16 bits: error 8.
    ZelDtShort& operator=(int number);
    ZelDtShort& operator=(long number);
    /// `source` must be a ZelDtShort, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The number becomes 0, then as ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// Missing: error 2.
    short GetValue() const;
    /// The stored number without any check.
    operator short() const;

    // SQL

    /// The decimal digits; NULL when undefined.
    virtual ZelDtString ConvToSQL() const;
    /// Takes over the number; defined afterwards.
    virtual void SetFromSQL(short number);
    /// The same. Outside 16 bits: error 8.
    void SetFromSQL(int number);
    void SetFromSQL(long number);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; the value as a ZelDtString, undefined when the value is.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// A version other than 100: error 14. Takes over `defined` first; 1 with an undefined text is
    /// error 13. Anything but 1, or no text, clears the value.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the low 16 bits of the field without a check, or clears the value when the record
    /// set reports it null.
    virtual void SetFromRecordSet(CRecordset& rs, const int& field);
    /// Sets the field of a defined value and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, int& field) const;
    /// Defined word, then the number as a 16-bit word. A failing archive leaves the value as it
    /// was.
    void Serialize(CArchive& ar) override;

    // Arithmetic

    ZelDtShort operator+(const ZelDtShort& right) const;
    ZelDtShort operator-(const ZelDtShort& right) const;
    ZelDtShort operator*(const ZelDtShort& right) const;
    /// Truncates toward zero.
    ZelDtShort operator/(const ZelDtShort& right) const;
    ZelDtShort operator+(int right) const;
    ZelDtShort operator-(int right) const;
    ZelDtShort operator*(int right) const;
    ZelDtShort operator/(int right) const;
    ZelDtShort operator+(long right) const;
    ZelDtShort operator-(long right) const;
    ZelDtShort operator*(long right) const;
    ZelDtShort operator/(long right) const;

    /// Computed as decimal; a Null operand leaves the other one as the result.
    ZelDtDecimal operator*(const ZelDtDecimal& right) const;

    /// With an undefined result the number becomes 0. An overflow leaves the number, but has marked
    /// the value modified; `-=` has by then also made it defined.
    ZelDtShort& operator+=(const ZelDtShort& right);
    ZelDtShort& operator-=(const ZelDtShort& right);
    /// A missing value stays missing; any other is defined afterwards.
    ZelDtShort& operator+=(int right);
    ZelDtShort& operator-=(int right);
    ZelDtShort& operator+=(long right);
    ZelDtShort& operator-=(long right);

    /// One up or down; a missing value stays missing. Both forms of each are alike.
    void operator++();
    void operator++(int);
    void operator--();
    void operator--(int);

    // Comparison. Missing operand: error 2

    int operator<(const ZelDtShort& right) const;
    int operator>(const ZelDtShort& right) const;
    int operator<=(const ZelDtShort& right) const;
    int operator>=(const ZelDtShort& right) const;
    int operator==(const ZelDtShort& right) const;
    int operator!=(const ZelDtShort& right) const;
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

    friend int operator<(int l, const ZelDtShort& r) { return r > l; }
    friend int operator>(int l, const ZelDtShort& r) { return r < l; }
    friend int operator<=(int l, const ZelDtShort& r) { return r >= l; }
    friend int operator>=(int l, const ZelDtShort& r) { return r <= l; }
    friend int operator==(int l, const ZelDtShort& r) { return r == l; }
    friend int operator!=(int l, const ZelDtShort& r) { return r != l; }
    friend int operator<(long l, const ZelDtShort& r) { return r > l; }
    friend int operator>(long l, const ZelDtShort& r) { return r < l; }
    friend int operator<=(long l, const ZelDtShort& r) { return r >= l; }
    friend int operator>=(long l, const ZelDtShort& r) { return r <= l; }
    friend int operator==(long l, const ZelDtShort& r) { return r == l; }
    friend int operator!=(long l, const ZelDtShort& r) { return r != l; }

    // A number with a fraction would lose it without a word

    ZelDtShort(double) = delete;
    ZelDtShort& operator=(double) = delete;
    ZelDtShort& operator+=(double) = delete;
    ZelDtShort& operator-=(double) = delete;
    ZelDtShort operator+(double) const = delete;
    friend ZelDtShort operator+(double, const ZelDtShort&) = delete;
    ZelDtShort operator-(double) const = delete;
    friend ZelDtShort operator-(double, const ZelDtShort&) = delete;
    ZelDtShort operator*(double) const = delete;
    friend ZelDtShort operator*(double, const ZelDtShort&) = delete;
    ZelDtShort operator/(double) const = delete;
    friend ZelDtShort operator/(double, const ZelDtShort&) = delete;
    int operator<(double) const = delete;
    friend int operator<(double, const ZelDtShort&) = delete;
    int operator>(double) const = delete;
    friend int operator>(double, const ZelDtShort&) = delete;
    int operator<=(double) const = delete;
    friend int operator<=(double, const ZelDtShort&) = delete;
    int operator>=(double) const = delete;
    friend int operator>=(double, const ZelDtShort&) = delete;
    int operator==(double) const = delete;
    friend int operator==(double, const ZelDtShort&) = delete;
    int operator!=(double) const = delete;
    friend int operator!=(double, const ZelDtShort&) = delete;

    // Nor is the sum of a text and a number a place in the text

    friend ZelDtShort operator+(const char*, const ZelDtShort&) = delete;
    friend ZelDtShort operator+(const ZelDtShort&, const char*) = delete;
    friend ZelDtShort operator-(const char*, const ZelDtShort&) = delete;
    friend ZelDtShort operator-(const ZelDtShort&, const char*) = delete;

    // The plain value of a boolean or character does not say that it is missing

    template <typename Value>
    zeldt::IfFlagOrChar<Value, ZelDtShort&> operator=(const Value&) = delete;

private:
    friend class zeldt::IntegerOperators<zeldt::ShortRules>;
    friend class zeldt::PlainRep<zeldt::ShortRules>;

    ZelDtShort_Imp* m_pImp;
};

/// A missing operand gives an undefined result; a Null one is neutral in products and as divisor.
ZELDT_API ZelDtShort operator+(int left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator-(int left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator*(int left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator/(int left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator+(long left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator-(long left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator*(long left, const ZelDtShort& right);
ZELDT_API ZelDtShort operator/(long left, const ZelDtShort& right);

#endif
