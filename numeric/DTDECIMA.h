#ifndef ZELDT_NUMERIC_DTDECIMA_H
#define ZELDT_NUMERIC_DTDECIMA_H

#include "../foundation/DTBASIS.h"
#include "DTMIXED.h"

#include <cstdint>

class CRecordset;
class RWDecimal96;
class ZelDtDecimal_Imp;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;
class ZelDtString;

namespace zeldt {
struct DecimalAccess;
}

#pragma pack(push, 2)
/// A decimal as record managers keep it: 14 bytes, little-endian.
/// value = (sign ? -1 : 1) * magnitude / 10^scale, the magnitude being high and low together.
struct DEC {
    std::uint16_t sign; ///< 0: positive, anything else: negative
    std::int16_t scale; ///< decimal places
    std::uint32_t low;
    std::uint32_t high;
    std::uint16_t reserved; ///< 0
};
#pragma pack(pop)
static_assert(sizeof(DEC) == 14, "the layout of the records");

/// A decimal number for money and other exact amounts: up to 28 digits, up to 27 of them behind the
/// point.
///
/// Representation: a 96-bit whole number and its number of decimal places. The places are not a
/// property of the class: a whole number has none, a currency amount 4, a text those that are
/// written (1.50 has 2), a sum the larger number of its terms, a product those of both factors. A
/// quotient is exact with the fewest places where that is possible, else it has as many digits as
/// fit. Results beyond 28 digits or 27 places are rounded once, ties away from zero, places first;
/// more than 28 digits before the point are an overflow. Positive numbers below 1 may be read with
/// up to 36 places. Only the record-manager form brings others: any 16-bit scale, negative ones
/// too. Computing with such a number gives one within the limits or an overflow; its own text may
/// be too long for some conversions, and its external text is not read back where it exceeds the
/// limits.
///
/// Missing: reading and comparing is error 2, computing gives an undefined result in the default
/// working mode. Null: reads, compares and adds as the number it stores (0 after Clear); in
/// products, as divisor and under `%` it is the neutral element 1. Default value: undefined, 0.
///
/// Plain `int` and `long` operands enter exactly; a `double` as the shortest decimal number that
/// reads back as the same double, so 0.1 is exactly one tenth. NaN, infinities and doubles of more
/// than 28 digits before the point fail.
///
/// Errors are thrown as ZelDtExcep* (delete it). What goes wrong inside a call (a bad text, an
/// overflow, a division by zero) is reported as error 1 under the name of the call, with the first
/// cause behind it: 5 null pointer, 11 too long, 20 not a number, 24 overflow, a zero divisor
/// included (12 where a plain number is divided). A failing call leaves the value as it was, except
/// where SetFromExtern says otherwise.
///
///     ZelDtDecimal price("19.99");
///     ZelDtDecimal total = price * 3 * 1.19;                     // 71.3643
///     total.Round(-2, ZelDtDecimal::RundungKaufmaennisch);       // 71.36
///     total.ConvToSQL();                                         // 71.36
class ZELDT_API ZelDtDecimal : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtDecimal)

public:
    /// How Round drops digits. Any other number rounds as RundungKaufmaennisch.
    enum Rundungsart : int {
        RundungKaufmaennisch = 0, ///< to the nearest, ties away from zero
        RundungAufwaerts = 1,     ///< toward plus infinity
        RundungAbwaerts = 2,      ///< toward minus infinity
        RundungWegVonNull = 3,    ///< away from zero
        RundungZuNull = 4,        ///< toward zero
        RundungFuenfer = 5,       ///< to steps of 0.05
    };

    // Construction

    /// Undefined in `mode`, 0.
    ZelDtDecimal(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined, without places.
    ZelDtDecimal(int number);
    ZelDtDecimal(long number);
    /// Defined.
    ZelDtDecimal(double number);
    /// Defined, from digits with a sign in front and a point. Commas and blanks are passed over
    /// wherever they stand: "1,234.50" is 1234.50, and "1,5" is 15. At most 38 bytes, and 28 digits
    /// unless the number begins with 0; what is passed over counts. A text without digits ("", "-",
    /// ".") is 0.
    ZelDtDecimal(const char* text);
    /// The amount with 4 places, defined and marked modified, if the currency is valid; else
    /// undefined, 0.
    ZelDtDecimal(const COleCurrency& amount);
    /// Mode and flags of the source; its value if it is defined, else 0.
    ZelDtDecimal(const ZelDtLong& source);
    ZelDtDecimal(const ZelDtShort& source);
    ZelDtDecimal(const ZelDtDouble& source);
    /// The same; the text is read as above.
    ZelDtDecimal(const ZelDtString& source);
    /// Mode, flags and number of the source, places included, defined or not.
    ZelDtDecimal(const ZelDtDecimal& source);
    ~ZelDtDecimal() override;

    // Assignment

    /// Takes over the definedness and, if it differs in value, the number: of equal numbers the
    /// value keeps its own places. A changed number marks the value modified.
    ZelDtDecimal& operator=(const ZelDtDecimal& source);
    /// Takes over the number; defined afterwards. Marks the value modified if the number differs
    /// from the present one without its decimals: 5 in place of 5.7 does not. A present number
    /// beyond 32 bits always counts as different.
    ZelDtDecimal& operator=(int number);
    ZelDtDecimal& operator=(long number);
    /// Takes over the number; defined afterwards. A changed number marks the value modified.
    ZelDtDecimal& operator=(double number);
    /// Takes over a valid amount, defined afterwards; any other clears the value. A modified value
    /// gets 4 places in any case, another keeps an equal number.
    ZelDtDecimal& operator=(const COleCurrency& amount);
    /// Another number class: as the decimal made of it.
    template <typename Source, typename = zeldt::IfWidens<Source, ZelDtDecimal>>
    ZelDtDecimal& operator=(const Source& source)
    {
        return *this = ZelDtDecimal(source);
    }
    /// `source` must be a ZelDtDecimal, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The number becomes 0 without places, a changed one marking the value modified, then as
    /// ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// The nearest double. Missing: error 2.
    double GetValue() const;
    /// The number of decimal places. Missing: error 2.
    int GetPrecision() const;
    /// Whether the stored number is 0, defined or not.
    BOOL IsDecimal0() const;
    /// Writes the stored number, defined or not, without trailing zeros behind the point, and
    /// returns `buffer`, which must have room for 33 bytes. A text of more than 32 characters is
    /// error 4 behind error 1; nothing is then written.
    const char* DecimalToAscii(char* buffer) const;
    /// The nearest double, without any check.
    operator double() const;
    /// Rounded to 4 places, ties away from zero; status null when undefined. Beyond the range of
    /// currencies: error 1.
    operator COleCurrency() const;

    // Changing

    /// Rounds to the power of ten `position`: -2 keeps hundredths, 0 whole units, 1 rounds to tens.
    /// Nothing happens to an undefined value or when there is no digit to drop; else the value is
    /// marked modified. RundungFuenfer takes off what exceeds a multiple of 0.1, a further 0.1 if
    /// the rest is negative, and gives back 0.05 if more than that is missing. A positive number
    /// keeps at most 36 decimals, a negative one 27.
    ZelDtDecimal& Round(short position, Rundungsart kind);
    /// Drops the decimals beyond `places`, toward zero, defined or not; marks the value modified
    /// unless it has exactly that many already. The same limits hold.
    ZelDtDecimal& Truncate(unsigned short places);

    // SQL

    /// Takes over a text as the constructor reads it; defined afterwards.
    virtual void SetFromSQL(const char* text);
    /// Digits with all decimals, '.' before them; NULL when undefined.
    virtual ZelDtString ConvToSQL() const;

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    /// Keeps the decimals as they were typed.
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // Record-manager form

    /// Takes over the record, any scale included; with `defined` 0 clears the value instead.
    void SetFromBTR(const DEC& record, BOOL defined);
    /// The record of the stored number; `defined` tells whether the value is. Decimals of a
    /// positive number that does not fit 64 bits are dropped; one that still does not fit is
    /// error 8 behind error 1. Of a negative number only the low 64 bits are kept.
    DEC ConvToBTR(BOOL& defined) const;

    // External text

    /// Version 100; scientific with all places: 123.450 is "1.23450E+002", 5 is "5.E+000". Zero is
    /// "0E+000". Undefined when the value is. A text of more than 48 bytes is error 4 behind error
    /// 1.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// An optional '-', digits with one point or none, 'E', a sign and the exponent; at most 48
    /// bytes. The first digit counts as the one before the point, wherever that stands. The
    /// character behind the 'E' is passed over unless it is a '-', and so is what follows the
    /// digits of the exponent. All failures, a wrong version and a contradicting definedness
    /// included, are error 1; except with a wrong version the value has by then taken over
    /// `defined`.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field's text, or clears the value when the record set reports it null. The
    /// text has a sign in front or none, digits and one point or none; blanks around it are passed
    /// over, and behind 38 bytes the digits are cut off. A text without digits is 0.
    virtual void SetFromRecordSet(CRecordset& rs, const CString& field);
    /// Writes the number of a defined value into the field's own buffer, "0.00" for zero and
    /// otherwise with at least one decimal, and marks the field null or not. A text that does not
    /// fit is error 4 behind error 1; the field is then unchanged.
    virtual void ConvToRecordSet(CRecordset& rs, CString& field) const;
    /// Defined word, then the external text as a CString and its version. Failures: error 1, that
    /// of SetFromExtern for a text that cannot be read.
    void Serialize(CArchive& ar) override;

    // Arithmetic

    ZelDtDecimal operator+(const ZelDtDecimal& right) const;
    ZelDtDecimal operator+(int right) const;
    ZelDtDecimal operator+(long right) const;
    ZelDtDecimal operator+(double right) const;
    ZelDtDecimal operator-(const ZelDtDecimal& right) const;
    ZelDtDecimal operator-(int right) const;
    ZelDtDecimal operator-(long right) const;
    ZelDtDecimal operator-(double right) const;
    ZelDtDecimal operator*(const ZelDtDecimal& right) const;
    ZelDtDecimal operator*(int right) const;
    ZelDtDecimal operator*(long right) const;
    ZelDtDecimal operator*(double right) const;
    ZelDtDecimal operator/(const ZelDtDecimal& right) const;
    ZelDtDecimal operator/(int right) const;
    ZelDtDecimal operator/(long right) const;
    ZelDtDecimal operator/(double right) const;
    /// What a division truncated toward zero leaves; exact, with the sign of this value.
    ZelDtDecimal operator%(const ZelDtDecimal& right) const;
    ZelDtDecimal operator%(int right) const;
    ZelDtDecimal operator%(long right) const;
    ZelDtDecimal operator%(double right) const;

    /// With an undefined result the value is cleared. A right side of 0 does not mark it modified.
    ZelDtDecimal& operator+=(const ZelDtDecimal& right);
    ZelDtDecimal& operator-=(const ZelDtDecimal& right);
    /// A missing value stays missing; any other is defined afterwards.
    ZelDtDecimal& operator+=(int right);
    ZelDtDecimal& operator+=(long right);
    ZelDtDecimal& operator+=(double right);
    ZelDtDecimal& operator-=(int right);
    ZelDtDecimal& operator-=(long right);
    ZelDtDecimal& operator-=(double right);

    /// One up or down; a missing value stays missing. Both forms of each are alike.
    void operator++();
    void operator++(int);
    void operator--();
    void operator--(int);

    // Comparison by value: 1.5 equals 1.50. Missing operand: error 2

    int operator<(const ZelDtDecimal& right) const;
    int operator<(int right) const;
    int operator<(long right) const;
    int operator<(double right) const;
    int operator>(const ZelDtDecimal& right) const;
    int operator>(int right) const;
    int operator>(long right) const;
    int operator>(double right) const;
    int operator<=(const ZelDtDecimal& right) const;
    int operator<=(int right) const;
    int operator<=(long right) const;
    int operator<=(double right) const;
    int operator>=(const ZelDtDecimal& right) const;
    int operator>=(int right) const;
    int operator>=(long right) const;
    int operator>=(double right) const;
    int operator==(const ZelDtDecimal& right) const;
    int operator==(int right) const;
    int operator==(long right) const;
    int operator==(double right) const;
    int operator!=(const ZelDtDecimal& right) const;
    int operator!=(int right) const;
    int operator!=(long right) const;
    int operator!=(double right) const;

    // Plain numbers on the left mean what they say

    friend int operator<(int l, const ZelDtDecimal& r) { return r > l; }
    friend int operator>(int l, const ZelDtDecimal& r) { return r < l; }
    friend int operator<=(int l, const ZelDtDecimal& r) { return r >= l; }
    friend int operator>=(int l, const ZelDtDecimal& r) { return r <= l; }
    friend int operator==(int l, const ZelDtDecimal& r) { return r == l; }
    friend int operator!=(int l, const ZelDtDecimal& r) { return r != l; }
    friend int operator<(long l, const ZelDtDecimal& r) { return r > l; }
    friend int operator>(long l, const ZelDtDecimal& r) { return r < l; }
    friend int operator<=(long l, const ZelDtDecimal& r) { return r >= l; }
    friend int operator>=(long l, const ZelDtDecimal& r) { return r <= l; }
    friend int operator==(long l, const ZelDtDecimal& r) { return r == l; }
    friend int operator!=(long l, const ZelDtDecimal& r) { return r != l; }
    friend int operator<(double l, const ZelDtDecimal& r) { return r > l; }
    friend int operator>(double l, const ZelDtDecimal& r) { return r < l; }
    friend int operator<=(double l, const ZelDtDecimal& r) { return r >= l; }
    friend int operator>=(double l, const ZelDtDecimal& r) { return r <= l; }
    friend int operator==(double l, const ZelDtDecimal& r) { return r == l; }
    friend int operator!=(double l, const ZelDtDecimal& r) { return r != l; }

    // What would go through the conversion to double, and there lose digits, or compute with
    // pointers

    ZelDtDecimal operator+() const = delete;
    ZelDtDecimal operator-() const = delete;
    friend ZelDtDecimal operator+(const char*, const ZelDtDecimal&) = delete;
    friend ZelDtDecimal operator+(const ZelDtDecimal&, const char*) = delete;
    friend ZelDtDecimal operator-(const char*, const ZelDtDecimal&) = delete;
    friend ZelDtDecimal operator-(const ZelDtDecimal&, const char*) = delete;

    // The plain value of a boolean or character does not say that it is missing

    template <typename Value>
    zeldt::IfFlagOrChar<Value, ZelDtDecimal&> operator=(const Value&) = delete;

private:
    friend struct zeldt::DecimalAccess;

    /// The result of an operation: undefined in the default mode, then made defined with `number`.
    explicit ZelDtDecimal(const RWDecimal96& number);

    ZelDtDecimal_Imp* m_pImp;
};

/// A missing right side gives an undefined result; a Null one is neutral in products and as
/// divisor. Zero plus a decimal is a copy of it, undefined if it is.
ZELDT_API ZelDtDecimal operator+(int left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator+(long left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator+(double left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator-(int left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator-(long left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator-(double left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator*(int left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator*(long left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator*(double left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator/(int left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator/(long left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator/(double left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator%(int left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator%(long left, const ZelDtDecimal& right);
ZELDT_API ZelDtDecimal operator%(double left, const ZelDtDecimal& right);

#endif
