#ifndef ZELDT_TEXT_DTCHAR_H
#define ZELDT_TEXT_DTCHAR_H

#include "../foundation/DTBASIS.h"
#include "../foundation/DTNOMIX.h"

#include <type_traits>

class CRecordset;
class ZelDtChar_Imp;
class ZelDtString;

namespace zeldt {
template <typename Rules>
class PlainRep;
struct CharRules;
} // namespace zeldt

/// One character of the ANSI code page 1252.
///
/// Representation: one byte. NUL stands for no character; a value may be defined and hold NUL.
///
/// Missing: reading and comparing is error 2. Null: reads and compares as the byte it stores (NUL
/// after Clear). Default value: undefined, NUL.
///
/// Errors are thrown as ZelDtExcep* (delete it). Unless said otherwise a failure leaves the value
/// as it was.
///
///     ZelDtChar status('x');
///     status.ToUpper();      // 'X'
///     status.ConvToSQL();    // X in double quotes
class ZELDT_API ZelDtChar : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtChar)

public:
    // Construction

    /// Undefined in `mode`, NUL.
    ZelDtChar(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined.
    ZelDtChar(char character);
    /// Defined, with the first byte of the text, NUL for an empty one. A null text: error 5.
    ZelDtChar(const char* text);
    /// Mode and flags of the source; the first byte of its text if it is defined, else NUL.
    ZelDtChar(const ZelDtString& source);
    /// Mode, flags and byte of the source, defined or not.
    ZelDtChar(const ZelDtChar& source);
    ~ZelDtChar() override;

    // Assignment

    /// Takes over the byte, a changed one marking the value modified, and the definedness.
    ZelDtChar& operator=(const ZelDtChar& source);
    /// Takes over the byte; defined afterwards.
    ZelDtChar& operator=(char character);
    /// `source` must be a ZelDtChar, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// The byte becomes NUL, then as ZelDtBasis::Clear.
    void Clear() override;

    // Reading

    /// Missing: error 2.
    char GetValue() const;
    /// The byte without any check.
    operator char() const;

    // Changing; the case of code page 1252. The sharp s stays. Marks modified only what changed;
    // undefined values are treated like others

    void ToUpper();
    void ToLower();

    // SQL

    /// The character in double quotes, a double quote doubled, NUL as two quotes; NULL without
    /// quotes when undefined. `codePage` converts the result as ZelDtString::ConvToSQL says.
    virtual ZelDtString ConvToSQL(unsigned int codePage = 0) const;
    /// Takes over the bare character, converted from `codePage` 850 or 437 or the system's OEM code
    /// page, taken as it is from any other; defined afterwards. A conversion that is not possible:
    /// error 19.
    virtual void SetFromSQL(char character, unsigned int codePage);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    /// Version 100; the value as a ZelDtString, undefined when the value is.
    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    /// A version other than 100: error 14. With `defined` 1 and a text the value becomes defined;
    /// an undefined text is then error 13, else its first byte is taken. Anything but 1, or no
    /// text, clears the value.
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes the first byte of the field, NUL of an empty one, or clears the value when the record
    /// set reports it null.
    virtual void SetFromRecordSet(CRecordset& rs, const CString& field);
    /// Sets the field of a defined value, in the field's own buffer, and marks it null or not.
    virtual void ConvToRecordSet(CRecordset& rs, CString& field) const;
    /// Defined word, then the byte. A failing archive leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Comparison of the bytes, case counts. Missing operand: error 2

    int operator==(const ZelDtChar& right) const;
    int operator!=(const ZelDtChar& right) const;

    /// As texts: a string of more than one character is unequal. Missing operand: error 2.
    int operator==(const ZelDtString& right) const;
    int operator!=(const ZelDtString& right) const;
    friend int operator==(const ZelDtString& l, const ZelDtChar& r) { return r.operator==(l); }
    friend int operator!=(const ZelDtString& l, const ZelDtChar& r) { return r.operator!=(l); }

    // Plain characters and texts mean what they say, on either side. Of a text the first byte
    // counts; a null text is unequal to everything

    friend int operator==(const ZelDtChar& l, char r) { return l == ZelDtChar(r); }
    friend int operator!=(const ZelDtChar& l, char r) { return l != ZelDtChar(r); }
    friend int operator==(char l, const ZelDtChar& r) { return r == ZelDtChar(l); }
    friend int operator!=(char l, const ZelDtChar& r) { return r != ZelDtChar(l); }
    int operator==(const char* right) const;
    int operator!=(const char* right) const;
    friend int operator==(const char* l, const ZelDtChar& r) { return r == l; }
    friend int operator!=(const char* l, const ZelDtChar& r) { return r != l; }

    // Joining with plain characters and texts, as the operator for two characters below

    friend ZELDT_API ZelDtString operator+(const ZelDtChar& left, char right);
    friend ZELDT_API ZelDtString operator+(char left, const ZelDtChar& right);
    friend ZELDT_API ZelDtString operator+(const ZelDtChar& left, const char* right);
    friend ZELDT_API ZelDtString operator+(const char* left, const ZelDtChar& right);
    friend ZELDT_API ZelDtString operator+(const ZelDtChar& left, const CString& right);
    friend ZELDT_API ZelDtString operator+(const CString& left, const ZelDtChar& right);

    // A number is no character

    template <typename Plain>
    using IfNoChar =
        std::enable_if_t<std::conjunction<std::is_arithmetic<Plain>,
                                          std::negation<std::is_same<Plain, char>>>::value,
                         int>;

    template <typename Plain, typename = IfNoChar<Plain>>
    ZelDtChar(Plain) = delete;
    template <typename Plain, typename = IfNoChar<Plain>>
    ZelDtChar& operator=(Plain) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator==(const ZelDtChar&, Plain) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator!=(const ZelDtChar&, Plain) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator==(Plain, const ZelDtChar&) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator!=(Plain, const ZelDtChar&) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator+(const ZelDtChar&, Plain) = delete;
    template <typename Plain>
    friend IfNoChar<Plain> operator+(Plain, const ZelDtChar&) = delete;
    template <typename Value, typename = zeldt::IfNoSource<Value, ZelDtChar>>
    ZelDtChar& operator=(const Value&) = delete;

    // Characters have no order but that of strings: the bytes beyond 127 would come first

    template <typename Other>
    friend int operator<(const ZelDtChar&, const Other&) = delete;
    template <typename Other>
    friend int operator>(const ZelDtChar&, const Other&) = delete;
    template <typename Other>
    friend int operator<=(const ZelDtChar&, const Other&) = delete;
    template <typename Other>
    friend int operator>=(const ZelDtChar&, const Other&) = delete;
    template <typename Other>
    friend int operator<(const Other&, const ZelDtChar&) = delete;
    template <typename Other>
    friend int operator>(const Other&, const ZelDtChar&) = delete;
    template <typename Other>
    friend int operator<=(const Other&, const ZelDtChar&) = delete;
    template <typename Other>
    friend int operator>=(const Other&, const ZelDtChar&) = delete;

    // Nor is a character a place in a text

    friend int operator-(const char*, const ZelDtChar&) = delete;

private:
    friend class zeldt::PlainRep<zeldt::CharRules>;

    ZelDtChar_Imp* m_pImp;
};

/// The text of two characters, defined in the default mode; if one is undefined, the other as a
/// string.
ZELDT_API ZelDtString operator+(const ZelDtChar& left, const ZelDtChar& right);

#endif
