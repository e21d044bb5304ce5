#ifndef ZELDT_NUMERIC_DTDOUBLE_H
#define ZELDT_NUMERIC_DTDOUBLE_H

#include "../foundation/DTBASIS.h"
#include "DTMIXED.h"

class CRecordset;
class ZelDtDecimal;
class ZelDtDouble_Imp;
class ZelDtLong;
class ZelDtShort;
class ZelDtString;
struct ZelDtDoubleAccess;

/// A floating number: IEEE 754, 53 bits, about 15 decimal digits, up to about 1.8E+308.
///
/// Representation: one double. Arithmetic is that of the processor: it rounds, and what exceeds the
/// range becomes an infinity. Comparison is exact, without any tolerance: 0.1 + 0.2 is not 0.3.
/// NaN and infinities are kept like other numbers, but have no text: SQL, Extern and string
/// conversions of them are error 8 behind error 1.
///
/// Missing: reading and comparing is error 2, computing gives an undefined result. Null: reads,
/// compares and adds as the number it stores (0 after Clear); times or divided by another value of
/// the class it is neutral, as dividend it counts as its number. Default value: undefined, 0.
///
/// Plain `int` and `long` operands are converted to double; a `long` of more than 53 bits rounds.
///
/// Errors are thrown as ZelDtExcep* (delete it). A division by zero or NaN is error 1 under the
/// name of the operator with error 12 behind it. Currency conversions that fail throw the
/// framework's COleException* instead. Unless said otherwise a failure leaves the value as it was.
///
///     ZelDtDouble rate("0.19");
///     ZelDtDouble total = 100 * (1 + rate);     // 119
///     total.ConvToSQL();                        // 119.
class ZELDT_API ZelDtDouble : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtDouble)

public:
    // Construction

    /// Undefined in `mode`, 0.
    ZelDtDouble(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined.
    ZelDtDouble(double number);
    ZelDtDouble(int number);
    ZelDtDouble(long number);
    /// Defined, from white space, a sign, decimal digits with or without a point, and an exponent.
    /// Whatever follows is passed over: "12abc" is 12, and a text without a number is 0. A number
    /// too large, or too small with something behind it: error 8; a null text: error 5.
    ZelDtDouble(const char* text);
    /// The number of a valid amount, defined and marked modified; else undefined, 0.
    ZelDtDouble(const COleCurrency& amount);
    /// Mode and flags of the source; its number if it is defined, else 0.
    ZelDtDouble(const ZelDtLong& source);
    ZelDtDouble(const ZelDtShort& source);
    ZelDtDouble(const ZelDtDecimal& source);
    /// The same; the text is read as above.
    ZelDtDouble(const ZelDtString& source);
    /// Mode, flags and number of the source, defined or not.
    ZelDtDouble(const ZelDtDouble& source);
    ~ZelDtDouble() override;

    // Assignment

    /// Takes over the number, a different one marking the value modified, and the definedness.
    ZelDtDouble& operator=(const ZelDtDouble& source);
    /// Takes over the number; defined afterwards.
    ZelDtDouble& operator=(const double& number);
    ZelDtDouble& operator=(int number);
    ZelDtDouble& operator=(long number);
    /// Takes over a valid amount, defined afterwards; any other clears the value.
    ZelDtDouble& operator=(const COleCurrency& amount);
    /// A narrower number class: as the double made of it.
    template <typename Source, typename = zeldt::IfWidens<Source, ZelDtDouble>>
    ZelDtDouble& operator=(const Source& source)
    {
        return *this = ZelDtDouble(source);
    }
    /// `source` must be a ZelDtDouble, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The number becomes 0, a different one marking the value modified, then as
    /// ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// Missing: error 2.
    double GetValue() const;
    /// The stored number without any check.
    operator double() const;
    /// Rounded to 4 places, ties to the even one; status null when undefined, invalid when the
    /// number exceeds what a currency holds.
    operator COleCurrency() const;

    // SQL

    /// Takes over the number; defined afterwards.
    virtual void SetFromSQL(double number);
    /// 15 significant digits without trailing zeros, the point always kept: 1 is "1.", half is
    /// "0.5", negative zero "-0.". From 1E+15 on and below 0.1 with an exponent: "1.e+020". NULL
    /// when undefined.
    virtual ZelDtString ConvToSQL() const;

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; 16 significant digits, with an exponent from 1E+16 on and below 0.0001. That is
    /// one digit less than some doubles need to come back unchanged. Undefined when the value is.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// Reads a number as the constructor does, and the text of the largest double, which its 16
    /// digits round beyond the range, as that. All failures, a wrong version and a contradicting
    /// definedness included, are error 1. The value is by then defined, unless the version failed.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field, or clears the value when the record set reports it null.
    virtual void SetFromRecordSet(CRecordset& rs, const double& field);
    /// Sets the field of a defined value and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, double& field) const;
    /// Defined word, then the number's 8 bytes, NaN and infinities included. A failing archive
    /// leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Arithmetic. A Null value counts as its number beside a plain one

    ZelDtDouble operator+(const ZelDtDouble& right) const;
    ZelDtDouble operator+(const double& right) const;
    ZelDtDouble operator+(int right) const;
    ZelDtDouble operator+(long right) const;
    ZelDtDouble operator-(const ZelDtDouble& right) const;
    ZelDtDouble operator-(const double& right) const;
    ZelDtDouble operator-(int right) const;
    ZelDtDouble operator-(long right) const;
    ZelDtDouble operator*(const ZelDtDouble& right) const;
    ZelDtDouble operator*(const double& right) const;
    ZelDtDouble operator*(int right) const;
    ZelDtDouble operator*(long right) const;
    ZelDtDouble operator/(const ZelDtDouble& right) const;
    ZelDtDouble operator/(const double& right) const;
    ZelDtDouble operator/(int right) const;
    ZelDtDouble operator/(long right) const;

    /// With an undefined result the value is cleared. A right side of 0 does not mark it modified.
    ZelDtDouble& operator+=(const ZelDtDouble& right);
    ZelDtDouble& operator-=(const ZelDtDouble& right);
    /// A missing value stays missing; any other is defined afterwards.
    ZelDtDouble& operator+=(const double& right);
    ZelDtDouble& operator+=(int right);
    ZelDtDouble& operator+=(long right);
    ZelDtDouble& operator-=(const double& right);
    ZelDtDouble& operator-=(int right);
    ZelDtDouble& operator-=(long right);

    /// One up or down; a missing value stays missing. Both forms of each are alike.
    void operator++();
    void operator++(int);
    void operator--();
    void operator--(int);

    // Comparison, exact. NaN is neither smaller nor greater than any number, and what is neither
    // counts as equal. Missing operand: error 2

    int operator<(const ZelDtDouble& right) const;
    int operator<(const double& right) const;
    int operator<(int right) const;
    int operator<(long right) const;
    int operator>(const ZelDtDouble& right) const;
    int operator>(const double& right) const;
    int operator>(int right) const;
    int operator>(long right) const;
    int operator<=(const ZelDtDouble& right) const;
    int operator<=(const double& right) const;
    int operator<=(int right) const;
    int operator<=(long right) const;
    int operator>=(const ZelDtDouble& right) const;
    int operator>=(const double& right) const;
    int operator>=(int right) const;
    int operator>=(long right) const;
    int operator==(const ZelDtDouble& right) const;
    int operator==(const double& right) const;
    int operator==(int right) const;
    int operator==(long right) const;
    int operator!=(const ZelDtDouble& right) const;
    int operator!=(const double& right) const;
    int operator!=(int right) const;
    int operator!=(long right) const;

    // Plain numbers on the left mean what they say

    friend int operator<(const double& l, const ZelDtDouble& r) { return r > l; }
    friend int operator>(const double& l, const ZelDtDouble& r) { return r < l; }
    friend int operator<=(const double& l, const ZelDtDouble& r) { return r >= l; }
    friend int operator>=(const double& l, const ZelDtDouble& r) { return r <= l; }
    friend int operator==(const double& l, const ZelDtDouble& r) { return r == l; }
    friend int operator!=(const double& l, const ZelDtDouble& r) { return r != l; }
    friend int operator<(int l, const ZelDtDouble& r) { return r > l; }
    friend int operator>(int l, const ZelDtDouble& r) { return r < l; }
    friend int operator<=(int l, const ZelDtDouble& r) { return r >= l; }
    friend int operator>=(int l, const ZelDtDouble& r) { return r <= l; }
    friend int operator==(int l, const ZelDtDouble& r) { return r == l; }
    friend int operator!=(int l, const ZelDtDouble& r) { return r != l; }
    friend int operator<(long l, const ZelDtDouble& r) { return r > l; }
    friend int operator>(long l, const ZelDtDouble& r) { return r < l; }
    friend int operator<=(long l, const ZelDtDouble& r) { return r >= l; }
    friend int operator>=(long l, const ZelDtDouble& r) { return r <= l; }
    friend int operator==(long l, const ZelDtDouble& r) { return r == l; }
    friend int operator!=(long l, const ZelDtDouble& r) { return r != l; }

    // The plain value of a boolean or character does not say that it is missing

    template <typename Value>
    zeldt::IfFlagOrChar<Value, ZelDtDouble&> operator=(const Value&) = delete;

    // The sum of a text and a number is no place in the text

    friend ZelDtDouble operator+(const char*, const ZelDtDouble&) = delete;
    friend ZelDtDouble operator+(const ZelDtDouble&, const char*) = delete;
    friend ZelDtDouble operator-(const char*, const ZelDtDouble&) = delete;
    friend ZelDtDouble operator-(const ZelDtDouble&, const char*) = delete;

    // Only decimals have remainders

    friend ZelDtDouble operator%(const ZelDtDouble&, const ZelDtDouble&) = delete;

private:
    friend struct ZelDtDoubleAccess;

    ZelDtDouble_Imp* m_pImp;
};

/// A missing right side gives a copy of it. A Null one counts as its number in sums and
/// differences and is neutral in products and as divisor.
ZELDT_API ZelDtDouble operator+(double left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator+(int left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator+(long left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator-(double left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator-(int left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator-(long left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator*(double left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator*(int left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator*(long left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator/(double left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator/(int left, const ZelDtDouble& right);
ZELDT_API ZelDtDouble operator/(long left, const ZelDtDouble& right);

#endif
