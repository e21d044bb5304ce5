#ifndef ZELDT_TEXT_DTBOOL_H
#define ZELDT_TEXT_DTBOOL_H

#include "../foundation/DTBASIS.h"
#include "../foundation/DTNOMIX.h"

#include <type_traits>

class CRecordset;
class ZelDtBool_Imp;
class ZelDtString;

namespace zeldt {
template <typename Rules>
class PlainRep;
struct BoolRules;
} // namespace zeldt

/// A yes or no, as a check box shows and a database column keeps it.
///
/// Representation: one signed 32-bit number, kept as it is given: 0 is no, everything else is yes,
/// but a value made from 5 holds 5 and is unequal to one that holds 1. A three-state check box
/// stores its third state as 2.
///
/// Missing: reading and comparing is error 2. Null: reads and compares as the number it stores (0
/// after Clear), and is neither true nor false. Default value: undefined, 0.
///
/// Errors are thrown as ZelDtExcep* (delete it). Unless said otherwise a failure leaves the value
/// as it was.
///
///     ZelDtBool paid("Ja");
///     if (paid.IsTrue())
///         paid.ConvToSQL();   // the digit 1 in double quotes
class ZELDT_API ZelDtBool : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtBool)

public:
    // Construction

    /// Undefined in `mode`, 0.
    ZelDtBool(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined, with the number as it is.
    ZelDtBool(BOOL value);
    /// Defined, from "Ja" or "Nein" in any case, or exactly "1" or "0". Anything else, blanks
    /// around it and the empty and the null text included: error 5.
    ZelDtBool(const char* text);
    /// Mode and flags of the source; its text, read as above, if it is defined, else 0.
    ZelDtBool(const ZelDtString& source);
    /// Mode, flags and number of the source, defined or not.
    ZelDtBool(const ZelDtBool& source);
    ~ZelDtBool() override;

    // Assignment

    /// Takes over the number, a changed one marking the value modified, and the definedness.
    ZelDtBool& operator=(const ZelDtBool& source);
    /// Takes over the number as it is; defined afterwards.
    ZelDtBool& operator=(BOOL value);
    /// `source` must be a ZelDtBool, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The number becomes 0, then as ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// The stored number: not 0 for yes. Missing: error 2.
    BOOL IsTrue() const;
    /// 1 for a defined no; 0 for a null value. Missing: error 2.
    BOOL IsFalse() const;
    /// As IsTrue.
    BOOL GetValue() const;
    /// The stored number without any check.
    operator int() const;

    // SQL

    /// The digit 1 or 0 in double quotes; NULL when undefined.
    virtual ZelDtString ConvToSQL() const;
    /// Takes the characters '1' and '0'; defined afterwards. Any other: error 5.
    virtual void SetFromSQL(char digit);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; J or N, an undefined string when the value is undefined.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// A version other than 100: error 14. With `defined` 1 and a text: an undefined text is error
    /// 13; else the value becomes defined, J and N set it, any other text leaves the number.
    /// Anything but 1, or no text, clears the value.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field as it is, or clears the value when the record set reports it null.
    virtual void SetFromRecordSet(CRecordset& rs, const int& field);
    /// Sets the field of a defined value and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, int& field) const;
    /// Defined word, then the number as a 32-bit word. A failing archive leaves the value as it
    /// was.
    void Serialize(CArchive& ar) override;

    // Comparison of the stored numbers. Missing operand: error 2

    int operator==(const ZelDtBool& right) const;
    int operator!=(const ZelDtBool& right) const;

    // Plain numbers and words mean what they say, on either side. A null text is unequal to
    // everything, an unknown word error 5

    friend int operator==(const ZelDtBool& l, BOOL r) { return l == ZelDtBool(r); }
    friend int operator!=(const ZelDtBool& l, BOOL r) { return l != ZelDtBool(r); }
    friend int operator==(BOOL l, const ZelDtBool& r) { return r == ZelDtBool(l); }
    friend int operator!=(BOOL l, const ZelDtBool& r) { return r != ZelDtBool(l); }
    int operator==(const char* right) const;
    int operator!=(const char* right) const;
    friend int operator==(const char* l, const ZelDtBool& r) { return r == l; }
    friend int operator!=(const char* l, const ZelDtBool& r) { return r != l; }

    // A number that an int does not hold would be cut, and the digit '0' would be a yes

    template <typename Plain>
    using IfNoBool = std::enable_if_t<
        std::conjunction<
            std::is_arithmetic<Plain>,
            std::disjunction<std::is_same<Plain, char>, std::is_same<Plain, wchar_t>,
                             std::negation<std::is_same<decltype(+Plain()), int>>>>::value,
        int>;

    template <typename Plain, typename = IfNoBool<Plain>>
    ZelDtBool(Plain) = delete;
    template <typename Plain, typename = IfNoBool<Plain>>
    ZelDtBool& operator=(Plain) = delete;
    template <typename Plain>
    friend IfNoBool<Plain> operator==(const ZelDtBool&, Plain) = delete;
    template <typename Plain>
    friend IfNoBool<Plain> operator!=(const ZelDtBool&, Plain) = delete;
    template <typename Plain>
    friend IfNoBool<Plain> operator==(Plain, const ZelDtBool&) = delete;
    template <typename Plain>
    friend IfNoBool<Plain> operator!=(Plain, const ZelDtBool&) = delete;

    // Nor is a number value a boolean, of which a missing one would be a no

    template <typename Value, typename = zeldt::IfNoSource<Value, ZelDtBool>>
    ZelDtBool& operator=(const Value&) = delete;

    // Yes is not more than no, and a boolean is no place in a text

    template <typename Other>
    friend int operator<(const ZelDtBool&, const Other&) = delete;
    template <typename Other>
    friend int operator>(const ZelDtBool&, const Other&) = delete;
    template <typename Other>
    friend int operator<=(const ZelDtBool&, const Other&) = delete;
    template <typename Other>
    friend int operator>=(const ZelDtBool&, const Other&) = delete;
    template <typename Other>
    friend int operator<(const Other&, const ZelDtBool&) = delete;
    template <typename Other>
    friend int operator>(const Other&, const ZelDtBool&) = delete;
    template <typename Other>
    friend int operator<=(const Other&, const ZelDtBool&) = delete;
    template <typename Other>
    friend int operator>=(const Other&, const ZelDtBool&) = delete;
    friend int operator+(const char*, const ZelDtBool&) = delete;
    friend int operator+(const ZelDtBool&, const char*) = delete;
    friend int operator-(const char*, const ZelDtBool&) = delete;

private:
    friend class zeldt::PlainRep<zeldt::BoolRules>;

    ZelDtBool_Imp* m_pImp;
};

#endif
