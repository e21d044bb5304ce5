#ifndef ZELDT_TEXT_DTSTRING_H
#define ZELDT_TEXT_DTSTRING_H

#include "../foundation/DTBASIS.h"
#include "../foundation/DT_IUTIL.h"

#include <memory>
#include <string_view>
#include <type_traits>

namespace zeldt {
struct Operation;
}

class CRecordset;
class ZelDtBool;
class ZelDtChar;
class ZelDtDateTime;
class ZelDtDateZp;
class ZelDtDecimal;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;
class ZelDtString_Imp;
class ZelDtTime;

/// A text of bytes in the ANSI code page 1252, and the carrier of every other value's text.
///
/// Representation: a text terminated by NUL, its length, and the allocation length, the bytes that
/// fit without a new allocation. Positions and lengths count bytes from 0; NUL bytes inside are
/// carried by length. Longest text that an operation may reach: 2147483646
/// bytes; only an SQL literal and a text of NUL bytes may have one more. An empty value without
/// reserved room owns no memory for text.
///
/// Missing: reading is error 2. Null: reads, compares and prints as its text, empty after Clear.
/// Default value: undefined, empty.
///
/// `==` and `!=` compare bytes; `<` and its family follow the house sort order. Two texts that
/// differ only in case are unequal and still neither less nor greater. All of them, and searching,
/// go by length: NUL bytes count. Compare looks at the texts up to their first NUL byte.
///
/// Errors are thrown as ZelDtExcep* (delete it). Checks come before any change, so a failing call
/// leaves the value as it was, unless a function says otherwise; only an exhausted memory (error 1)
/// leaves it empty. Arguments may be the value itself or lie in its text.
///
///     ZelDtString name("M\xFCller");
///     name.Insert("Dr. ", 0);
///     name.GetPos("M", ZelDtString::kiFirst);   // 4
///     name.ConvToSQL();                         // "Dr. Müller" in double quotes
class ZELDT_API ZelDtString : public ZelDtBasis {
    DECLARE_SERIAL(ZelDtString)

public:
    static const int kiSingle = -10;         ///< the first occurrence only
    static const int kiAll = -11;            ///< every occurrence
    static const int kiFirst = -20;          ///< search from the start
    static const int kiNext = -21;           ///< search on behind the last match
    static const int kiNotFound = -1;        ///< nothing was found
    static const int kiLeft = -40;           ///< the left side
    static const int kiRight = -41;          ///< the right side
    static const int kiLeftRight = -42;      ///< both sides
    static const int kiDefaultLength = -100; ///< the length of the given text

    // Construction

    /// Undefined in `mode`, empty.
    ZelDtString(ZelDtWorkingMode mode = ZelDtWmDefault);
    /// Defined, with the first `length` bytes of `text` and room for `allocLength` bytes; a smaller
    /// allocation length is raised to the length. An empty text takes any length and is filled with
    /// NUL bytes. A null text is error 5; a negative length, one beyond a text that is not empty,
    /// or a text of 2147483647 bytes and more is error 6.
    ZelDtString(const char* text, int length = kiDefaultLength, int allocLength = kiDefaultLength);
    /// Defined, with the whole text, NUL bytes included.
    ZelDtString(const CString& text);
    /// Defined, from 16-bit text; '?' stands for what code page 1252 lacks. Null: empty.
    ZelDtString(unsigned short* const& text);
    /// Defined, with the one character; empty for NUL.
    ZelDtString(char character);
    /// Defined, with the decimal text and room for 11 bytes.
    ZelDtString(int number);
    ZelDtString(unsigned int number);
    /// Mode, flags and text of the source; the allocation length is the text's length.
    ZelDtString(const ZelDtString& source);
    /// Mode and flags of the source; its decimal text if it is defined.
    ZelDtString(const ZelDtLong& source);
    ZelDtString(const ZelDtShort& source);
    /// The same, with "Ja" or "Nein".
    ZelDtString(const ZelDtBool& source);
    /// The same, with the one character, none for NUL, and room for it.
    ZelDtString(const ZelDtChar& source);
    /// The same, with the text that ZelDtDouble::ConvToSQL shows and room for 316 bytes. NaN and
    /// infinities have none: error 8 behind error 1.
    ZelDtString(const ZelDtDouble& source);
    /// The same, with the text that ZelDtDecimal::DecimalToAscii gives, up to 38 bytes, and room
    /// for them. A longer one is error 4 behind error 1.
    ZelDtString(const ZelDtDecimal& source);
    /// The same, with the text "05.03.2000 14:07:09" and room for it. What its places cannot show
    /// is error 8 behind error 1.
    ZelDtString(const ZelDtDateTime& source);
    /// The same, with the text "05.03.2000" and room for it.
    ZelDtString(const ZelDtDateZp& source);
    /// The same, with the text that ZelDtTime::GetValue gives and room for it.
    ZelDtString(const ZelDtTime& source);
    ~ZelDtString() override;

    // Assignment

    /// Takes over text and definedness; a changed text marks the value modified. An undefined
    /// source leaves the value without text; the value itself as source changes nothing.
    ZelDtString& operator=(const ZelDtString& source);
    /// Takes over the text; defined afterwards. A null text is error 5, a text of 2147483647 bytes
    /// and more error 8.
    ZelDtString& operator=(const char* text);
    ZelDtString& operator=(const CString& text);
    ZelDtString& operator=(unsigned short* const& text);
    /// The text becomes the one character, NUL included; defined afterwards.
    ZelDtString& operator=(char character);
    /// A defined character as above; an undefined one leaves the value undefined and without text.
    ZelDtString& operator=(const ZelDtChar& source);

    /// `source` must be a ZelDtString, else error 10.
    void Assign(const ZelDtBasis& source) override;
    ZelDtBasis* NewObject() const override;

    // State

    ZelDtTyps GetDtTyp() const override;
    /// Undefined unless the mode forbids it; the text is empty and its memory freed. A text that
    /// was not empty marks the value modified.
    void Clear() override;

    // Reading

    /// The text; valid until the value changes. Missing: error 2.
    const char* GetValue() const;
    /// Copies text and terminator into `buffer` of `size` bytes and returns it. Missing: error 2; a
    /// size not above the length: error 4; a null buffer: error 5.
    char* GetValue(char* buffer, int size) const;
    /// A defined text of `count` bytes from `position` on. Missing: error 2; null: a defined empty
    /// text; a range that is not inside the text: error 3.
    ZelDtString GetnValue(int position, int count) const;
    int GetLength() const;
    /// Bytes that fit without a new allocation.
    int GetAllocLength() const;
    /// Missing: error 2.
    int IsEmpty() const;
    /// Position of the first match of `pattern`: with kiNext behind the last match, else from the
    /// start. kiNotFound, with the last match kept, when there is none or a text is empty.
    int GetPos(const ZelDtString& pattern, int mode);
    /// 1 if the texts count as equal: both undefined, one null and the other empty, or equal as
    /// ZelDtVglString(text, text, exact) says.
    int Compare(const ZelDtString& other, int exact) const;

    /// The text without any check; empty when undefined. Valid until the value changes.
    operator const char*() const;
    /// Error 1 when memory is exhausted.
    operator CString() const;
    /// A new 16-bit text (SysAllocString); the caller frees it with SysFreeString. Error 1 when
    /// memory is exhausted.
    operator unsigned short*() const;
    /// The byte at `index`; outside the text error 3.
    char operator[](int index) const;

    // Changing; functions that return a number tell whether the text changed

    /// Removes `part`: the first occurrence (kiSingle), or every one (kiAll), those included that a
    /// removal joins; or as many bytes as it has from the position `mode` on, at most to the end. A
    /// mode that is neither nor a position up to the length: error 3.
    int DeleteParts(const ZelDtString& part, int mode);
    /// Replaces `oldPart` by `newPart`; the modes are those of DeleteParts. What was put in is not
    /// searched again. Nothing happens for an empty text, an empty `oldPart` or a missing
    /// `newPart`. Equal parts: 1 without a change. A text that would reach 2147483647 bytes:
    /// error 8.
    int Change(const ZelDtString& oldPart, const ZelDtString& newPart, int mode);
    /// Keeps `position` bytes and appends `source`. Always marks modified. Missing: error 2; a
    /// position outside: error 3; too long: error 8.
    void Copy(const ZelDtString& source, int position);
    /// Overwrites from `position` on; the text may get longer. Errors as Copy.
    void CopyParts(const ZelDtString& source, int position);
    /// Inserts `source` before `position`. Errors as Copy.
    void Insert(const ZelDtString& source, int position);
    /// Keeps `position` bytes. A position outside 0 to length: error 3.
    void Cut(int position);
    /// `left` gets the bytes before `position`, `right` the others; `right` is
    /// cleared when there are none, both are for an undefined value. Negative position: error 3.
    void Split(ZelDtString& left, ZelDtString& right, int position) const;
    /// Removes blanks (0x20 only) at the given side; both sides for any other argument.
    void Trim(int side);
    /// Extends to `newLength` with `fill`, in front for kiLeft, else behind; defined afterwards.
    /// Nothing happens for a missing value and for a length not above the present one. 2147483647
    /// is error 8.
    void FillUp(char fill, int newLength, int side);
    /// Case of code page 1252. Also marks modified when only bytes without case were met. ToLower
    /// and ToUpper leave the sharp s alone.
    void ToUpper();
    void ToLower();
    /// Outside the text: error 3; a NUL character: error 5.
    void SetAt(int index, char character);
    /// Converts a defined text; error 19 if that is not possible, the text may then be converted in
    /// part.
    void ConvertCodePage(ZelDtCodepageWandlung direction);

    // SQL

    /// The text in double quotes, inner double quotes doubled; NULL without quotes when undefined.
    /// `codePage` 850, 437 or the system's OEM code page converts the result; any other number
    /// does not. The conversion comes last and knows no quotes: a character that becomes a double
    /// quote there (the low one, 0x84, in 850) ends the literal, so texts from outside are better
    /// passed unconverted. A result above 2147483647 bytes: error 8;
    /// a conversion that is not possible: error 19.
    virtual ZelDtString ConvToSQL(unsigned int codePage = 0) const;
    /// Takes exactly the first `length` bytes of a column's content as they are, converted from
    /// `codePage`; defined afterwards. A null text: error 5; a length that is not above 0 or
    /// exceeds the text: error 6; 2147483647 bytes: error 8; a conversion that is not possible:
    /// error 19.
    virtual void SetFromSQL(const char* text, int length, unsigned int codePage);

    // Display

    CString ConvToOFL(const ZelFormat* format) const override;
    void SetFromOFL(const char* text, const ZelFormat* format) override;

    // External text

    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override;
    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override;

    // Record set and archive

    /// Takes over the field, or clears the value when the record set reports it null.
    virtual void SetFromRecordSet(CRecordset& rs, const CString& field);
    /// Copies a defined text into the field's own buffer (what does not fit is cut) and marks the
    /// field null or not.
    virtual void ConvToRecordSet(CRecordset& rs, CString& field) const;
    /// Defined word, then the text as a CString. A failing archive leaves the value as it was.
    void Serialize(CArchive& ar) override;

    // Operators

    /// Appends; defined afterwards unless both are undefined. Reaching 2147483647 bytes:
    /// error 8; a null text: error 5.
    ZelDtString& operator+=(const ZelDtString& source);
    ZelDtString& operator+=(const char* text);
    ZelDtString& operator+=(const CString& text);
    ZelDtString& operator+=(char character);
    ZelDtString& operator+=(const ZelDtChar& source);

    /// A defined text in the default mode; if one operand is undefined, a copy of the other. Errors
    /// as `+=`.
    ZelDtString operator+(const ZelDtString& right) const;
    ZelDtString operator+(const char* right) const;
    ZelDtString operator+(const CString& right) const;
    ZelDtString operator+(char right) const;
    ZelDtString operator+(const ZelDtChar& right) const;

    /// Byte for byte. Missing operand: error 2. A null text is unequal to everything.
    int operator==(const ZelDtString& right) const;
    int operator!=(const ZelDtString& right) const;
    int operator==(const char* right) const;
    int operator!=(const char* right) const;

    /// In the house sort order. Missing operand: error 2.
    int operator<(const ZelDtString& right) const;
    int operator>(const ZelDtString& right) const;
    int operator<=(const ZelDtString& right) const;
    int operator>=(const ZelDtString& right) const;

    // Plain texts in comparisons mean what they say, on either side. In the house order a null
    // text is error 5

    friend int operator==(const char* l, const ZelDtString& r) { return r == l; }
    friend int operator!=(const char* l, const ZelDtString& r) { return r != l; }
    friend int operator<(const char* l, const ZelDtString& r) { return ZelDtString(l) < r; }
    friend int operator>(const char* l, const ZelDtString& r) { return ZelDtString(l) > r; }
    friend int operator<=(const char* l, const ZelDtString& r) { return ZelDtString(l) <= r; }
    friend int operator>=(const char* l, const ZelDtString& r) { return ZelDtString(l) >= r; }
    friend int operator<(const ZelDtString& l, const char* r) { return l < ZelDtString(r); }
    friend int operator>(const ZelDtString& l, const char* r) { return l > ZelDtString(r); }
    friend int operator<=(const ZelDtString& l, const char* r) { return l <= ZelDtString(r); }
    friend int operator>=(const ZelDtString& l, const char* r) { return l >= ZelDtString(r); }

    friend int operator==(const CString& l, const ZelDtString& r) { return r == ZelDtString(l); }
    friend int operator!=(const CString& l, const ZelDtString& r) { return r != ZelDtString(l); }
    friend int operator<(const CString& l, const ZelDtString& r) { return ZelDtString(l) < r; }
    friend int operator>(const CString& l, const ZelDtString& r) { return ZelDtString(l) > r; }
    friend int operator<=(const CString& l, const ZelDtString& r) { return ZelDtString(l) <= r; }
    friend int operator>=(const CString& l, const ZelDtString& r) { return ZelDtString(l) >= r; }
    friend int operator==(const ZelDtString& l, const CString& r) { return l == ZelDtString(r); }
    friend int operator!=(const ZelDtString& l, const CString& r) { return l != ZelDtString(r); }
    friend int operator<(const ZelDtString& l, const CString& r) { return l < ZelDtString(r); }
    friend int operator>(const ZelDtString& l, const CString& r) { return l > ZelDtString(r); }
    friend int operator<=(const ZelDtString& l, const CString& r) { return l <= ZelDtString(r); }
    friend int operator>=(const ZelDtString& l, const CString& r) { return l >= ZelDtString(r); }
    friend ZelDtString operator+(const CString& l, const ZelDtString& r)
    {
        return ZelDtString(l) + r;
    }

    // Where the system's BSTR is another type than unsigned short*, it works the same

    template <typename Unit>
    using IfSystemText = std::enable_if_t<std::is_same<Unit*, BSTR>::value &&
                                          !std::is_same<Unit, unsigned short>::value>;

    template <typename Unit, typename = IfSystemText<Unit>>
    ZelDtString(Unit* text) : ZelDtString(reinterpret_cast<unsigned short*>(text))
    {}
    template <typename Unit, typename = IfSystemText<Unit>>
    ZelDtString& operator=(Unit* text)
    {
        return *this = reinterpret_cast<unsigned short*>(text);
    }
    template <typename Unit, typename = IfSystemText<Unit>>
    operator Unit*() const
    {
        return reinterpret_cast<Unit*>(operator unsigned short*());
    }

    // A number is no character

    ZelDtString& operator=(int) = delete;
    ZelDtString& operator+=(int) = delete;
    ZelDtString operator+(int) const = delete;
    friend ZelDtString operator+(int, const ZelDtString&) = delete;

    /// An index of another integer type is not cut: what exceeds an int is outside the text.
    template <typename Index, typename = std::enable_if_t<std::is_integral<Index>::value>>
    char operator[](Index index) const
    {
        const bool fits = static_cast<Index>(static_cast<int>(index)) == index &&
                          (static_cast<int>(index) < 0) == (index < Index());
        return (*this)[fits ? static_cast<int>(index) : -1];
    }

private:
    /// Defined in the default mode; takes over `imp`.
    explicit ZelDtString(std::unique_ptr<ZelDtString_Imp> imp);

    friend ZELDT_API ZelDtString operator+(const char* left, const ZelDtString& right);
    friend ZELDT_API ZelDtString operator+(char left, const ZelDtString& right);
    friend ZELDT_API ZelDtString operator+(const ZelDtChar& left, const ZelDtString& right);

    int ChangeAt(const ZelDtString& oldPart, const ZelDtString& newPart, int position);
    void AssignText(const zeldt::Operation& operation, std::string_view text);
    void AppendText(const zeldt::Operation& operation, std::string_view text);
    static ZelDtString Joined(const zeldt::Operation& operation, std::string_view left,
                              std::string_view right);

    ZelDtString_Imp* m_pImp;
};

/// The plain text followed by the string; a defined text in the default mode, or a copy of the
/// plain text alone when the string is undefined. Reaching 2147483647 bytes: error 8; null:
/// error 5.
ZELDT_API ZelDtString operator+(const char* left, const ZelDtString& right);
ZELDT_API ZelDtString operator+(char left, const ZelDtString& right);

/// A defined text in the default mode; if one operand is undefined, the other as a string.
ZELDT_API ZelDtString operator+(const ZelDtChar& left, const ZelDtString& right);

#endif
