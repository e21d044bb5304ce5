#ifndef ZELDT_PLATFORM_FRAMEWORK_FWSTRING_H
#define ZELDT_PLATFORM_FRAMEWORK_FWSTRING_H

/// CString: text of single bytes in code page 1252.
///
/// Representation: one pointer to the text. The text ends with a NUL that is not counted; its
/// length is kept, so NUL bytes inside are carried along by everything that works on a CString.
/// Copies share the text until one of them changes it; different objects may share a text across
/// threads. At most 2147483647 bytes less some overhead.
///
/// A null text pointer counts as an empty text everywhere except where stated. Positions count
/// from 0; where a range is asked for, what lies outside the text is cut off silently. Arguments
/// may point into the object's own text.
///
/// Failures: memory that cannot be had, and lengths that no text can have, throw
/// CMemoryException*; arguments that make no sense throw CInvalidArgException*. Either way the
/// object stays as it was.

#include <atomic>
#include <cstdarg>
#include <cstdio>

#include "../runtime/wintypes.h"
#include "export.h"

#if defined(__MINGW_PRINTF_FORMAT)
#define ZELFW_PRINTF(text, first) __attribute__((format(__MINGW_PRINTF_FORMAT, text, first)))
#elif defined(__GNUC__)
#define ZELFW_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define ZELFW_PRINTF(text, first)
#endif

class CArchive;

namespace zelfw {
class TextArgument;
}

/// What lies in front of the text of a CString.
struct CStringData {
    std::atomic<int> nRefs; ///< objects that share the text; -1 when locked to one object
    int nDataLength;        ///< bytes of the text
    int nAllocLength;       ///< bytes there is room for, the final NUL not counted
};

namespace zelfw {

/// The text of every empty string that has no buffer. Shared by all of them, never written.
struct EmptyText {
    CStringData data;
    char end;
};

extern ZELFW_API EmptyText emptyText;

} // namespace zelfw

class ZELFW_API CString {
public:
    // Construction

    CString() noexcept : m_pszData(&zelfw::emptyText.end) {}
    CString(const CString& source);
    CString(CString&& source) noexcept : m_pszData(source.m_pszData)
    {
        source.m_pszData = &zelfw::emptyText.end;
    }
    CString(LPCTSTR text);
    CString(const unsigned char* text);
    /// The first `length` bytes at `text`, NUL bytes included. A null text needs length 0.
    CString(LPCTSTR text, int length);
    /// `repeat` times the character; an empty text if `repeat` is not above 0.
    explicit CString(TCHAR character, int repeat = 1);
    /// From 16-bit text; '?' stands for what code page 1252 lacks.
    explicit CString(LPCOLESTR text);
    CString(LPCOLESTR text, int length);
    ~CString()
    {
        if (HasBuffer())
            Release(Data());
    }

    // Assignment

    CString& operator=(const CString& source);
    /// A locked text is copied, for which memory may lack.
    CString& operator=(CString&& source); // NOLINT(performance-noexcept-move-constructor)
    CString& operator=(LPCTSTR text);
    CString& operator=(const unsigned char* text);
    CString& operator=(LPCOLESTR text);
    CString& operator=(TCHAR character);
    void SetString(LPCTSTR text);
    void SetString(LPCTSTR text, int length);

    // Reading

    int GetLength() const noexcept { return Data()->nDataLength; }
    BOOL IsEmpty() const noexcept { return Data()->nDataLength == 0; }
    /// Bytes the present buffer has room for, the final NUL not counted.
    int GetAllocLength() const noexcept { return Data()->nAllocLength; }
    LPCTSTR GetString() const noexcept { return m_pszData; }
    operator LPCTSTR() const noexcept { return m_pszData; }
    /// The character at `index`; the position behind the last one gives the NUL, any other
    /// CInvalidArgException*.
    TCHAR GetAt(int index) const
    {
        if (index < 0 || index > GetLength())
            ThrowBadIndex();
        return m_pszData[index];
    }
    TCHAR operator[](int index) const { return GetAt(index); }

    /// Negative, 0 or positive as this text comes before, equals or comes after the other one,
    /// byte by byte.
    int Compare(LPCTSTR text) const noexcept;
    /// The same with upper and lower case of code page 1252 taken as equal.
    int CompareNoCase(LPCTSTR text) const noexcept;

    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Left(int count) const;
    CString Right(int count) const;
    /// The longest beginning made only of characters of the set.
    CString SpanIncluding(LPCTSTR characters) const;
    /// The longest beginning without any character of the set.
    CString SpanExcluding(LPCTSTR characters) const;
    /// The next part between characters of the set, from position `start` on, which moves behind
    /// it. After the last part an empty text, and `start` is -1.
    CString Tokenize(LPCTSTR separators, int& start) const;

    /// Position of the first match at or after `start`; -1 without one, for a null text, and for
    /// a start outside the text.
    int Find(LPCTSTR text, int start = 0) const noexcept;
    int Find(TCHAR character, int start = 0) const noexcept;
    int ReverseFind(TCHAR character) const noexcept;
    int FindOneOf(LPCTSTR characters) const noexcept;

    // Changing

    void Empty() noexcept;
    void SetAt(int index, TCHAR character);
    CString& operator+=(const CString& text);
    CString& operator+=(LPCTSTR text);
    CString& operator+=(TCHAR character);
    void Append(const CString& text);
    void Append(LPCTSTR text);
    void Append(LPCTSTR text, int length);
    void AppendChar(TCHAR character);

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();

    /// Without argument: blank, tab, line feed, vertical tab, form feed, carriage return.
    CString& Trim();
    CString& Trim(TCHAR character);
    CString& Trim(LPCTSTR characters);
    CString& TrimLeft();
    CString& TrimLeft(TCHAR character);
    CString& TrimLeft(LPCTSTR characters);
    CString& TrimRight();
    CString& TrimRight(TCHAR character);
    CString& TrimRight(LPCTSTR characters);

    /// Replaces every match, from the left; what was put in is not searched again. Returns the
    /// number of matches; an empty `oldText` matches nothing.
    int Replace(LPCTSTR oldText, LPCTSTR newText);
    int Replace(TCHAR oldCharacter, TCHAR newCharacter);
    /// Removes every occurrence; returns their number.
    int Remove(TCHAR character);
    /// Inserts before `index`, at the end if that lies behind it. Returns the new length.
    int Insert(int index, LPCTSTR text);
    int Insert(int index, TCHAR character);
    /// Returns the new length.
    int Delete(int index, int count = 1);
    /// Shortens the text to `length`; a longer one is no change.
    void Truncate(int length);

    /// Formats as printf does, with '.' as decimal point whatever the locale. Known conversions:
    /// d i u o x X c s p e E f F g G %, with flags (# for integers only), width, precision and the
    /// length modifiers h hh l ll j z t I32 I64; anything else throws CInvalidArgException*. A
    /// null text is shown as "(null)".
    void Format(LPCTSTR format, ...) ZELFW_PRINTF(2, 3);
    void AppendFormat(LPCTSTR format, ...) ZELFW_PRINTF(2, 3);
    void FormatV(LPCTSTR format, va_list arguments) ZELFW_PRINTF(2, 0);
    void AppendFormatV(LPCTSTR format, va_list arguments) ZELFW_PRINTF(2, 0);

    // Buffer access

    /// A buffer of this object's own with room for `minLength` bytes and a NUL that begins with
    /// the present text. Call ReleaseBuffer after writing and before any other function.
    LPTSTR GetBuffer(int minLength);
    LPTSTR GetBuffer();
    /// The same for exactly `length` bytes, which become the text's length.
    LPTSTR GetBufferSetLength(int length);
    /// Ends the access; the text is `newLength` bytes long, or up to its first NUL for -1.
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength);
    /// Makes room without changing the text.
    void Preallocate(int length);
    /// Gives back the room that the text does not need.
    void FreeExtra();
    /// From here on copies get a text of their own and the buffer stays this object's.
    LPTSTR LockBuffer();
    void UnlockBuffer() noexcept;

    // Conversions

    /// A new system string with this text in 16-bit units; the caller frees it (SysFreeString).
    BSTR AllocSysString() const;
    /// Replaces the system string at `target` (freeing what it held) and returns it.
    BSTR SetSysString(BSTR* target) const;

    // Operators

    friend ZELFW_API CString operator+(const CString& left, const CString& right);
    friend ZELFW_API CString operator+(const CString& left, LPCTSTR right);
    friend ZELFW_API CString operator+(LPCTSTR left, const CString& right);
    friend ZELFW_API CString operator+(const CString& left, TCHAR right);
    friend ZELFW_API CString operator+(TCHAR left, const CString& right);

    /// A length (one byte below 255; else FF and a word below 0xFFFE; else FF FF FF and a double
    /// word) and the bytes. Reading takes 16-bit texts too.
    friend ZELFW_API CArchive& operator<<(CArchive& ar, const CString& text);
    friend ZELFW_API CArchive& operator>>(CArchive& ar, CString& text);

    friend bool operator==(const CString& a, const CString& b) noexcept { return a.Order(b) == 0; }
    friend bool operator!=(const CString& a, const CString& b) noexcept { return a.Order(b) != 0; }
    friend bool operator<(const CString& a, const CString& b) noexcept { return a.Order(b) < 0; }
    friend bool operator>(const CString& a, const CString& b) noexcept { return a.Order(b) > 0; }
    friend bool operator<=(const CString& a, const CString& b) noexcept { return a.Order(b) <= 0; }
    friend bool operator>=(const CString& a, const CString& b) noexcept { return a.Order(b) >= 0; }

    friend bool operator==(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) == 0; }
    friend bool operator!=(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) != 0; }
    friend bool operator<(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) < 0; }
    friend bool operator>(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) > 0; }
    friend bool operator<=(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) <= 0; }
    friend bool operator>=(const CString& a, LPCTSTR b) noexcept { return a.Compare(b) >= 0; }

    friend bool operator==(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) == 0; }
    friend bool operator!=(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) != 0; }
    friend bool operator<(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) > 0; }
    friend bool operator>(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) < 0; }
    friend bool operator<=(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) >= 0; }
    friend bool operator>=(LPCTSTR a, const CString& b) noexcept { return b.Compare(a) <= 0; }

private:
    friend class zelfw::TextArgument;

    /// With the text behind `data`.
    explicit CString(CStringData* data) noexcept : m_pszData(reinterpret_cast<LPTSTR>(data + 1)) {}

    CStringData* Data() const noexcept { return reinterpret_cast<CStringData*>(m_pszData) - 1; }
    bool HasBuffer() const noexcept { return m_pszData != &zelfw::emptyText.end; }
    /// Drops a text that is not the shared empty one.
    static void Release(CStringData* data) noexcept;
    [[noreturn]] static void ThrowBadIndex();
    int Order(const CString& other) const noexcept;
    bool IsOwn(int length) const noexcept;
    void Adopt(CStringData* data) noexcept;
    void MakeOwn(int length);

    /// The text, never null. Its CStringData lies in front of it.
    LPTSTR m_pszData;
};

#endif
