#ifndef ZELDT_PLATFORM_FRAMEWORK_FWARCHIVE_H
#define ZELDT_PLATFORM_FRAMEWORK_FWARCHIVE_H

/// CArchive: values and objects as bytes in a file.
///
/// Numbers are little-endian and unpadded, with the widths they have on Windows on every target:
/// `long` has 4 bytes, `wchar_t` 2, `bool` 1. A number that does not fit those widths is never
/// cut: writing it throws CArchiveException* (genericException). For 8 bytes use LONGLONG and
/// ULONGLONG, since std::int64_t is `long` on some systems.
///
/// Objects are written with the name and the version of their class the first time, and each
/// object once; later mentions are numbers. Objects may contain objects, 512 levels deep at
/// most, in both directions: what could be written can be read.
///
/// Failures: CArchiveException* with its cause; what the file itself throws passes through. No
/// number read from the file decides an allocation before the bytes are there. After a failure
/// the archive may only be closed, aborted or destroyed.
///
///     CMemFile file;
///     CArchive out(&file, CArchive::store);
///     out << 42 << CString("text");
///     out.Close();

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwexcept.h"
#include "fwfile.h"
#include "fwobject.h"
#include "fwstring.h"

struct CArchiveMap;
struct CArchiveText;

class ZELFW_API CArchive {
public:
    /// What the archive is for; bNoFlushOnDelete may be or-ed to it.
    enum Mode : UINT {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2 ///< the destructor drops what was not flushed
    };

    /// `file` must be open and outlive the archive. `buffer`, if given, must hold `bufferSize`
    /// bytes and outlive it too. The archive buffers at least 128 bytes; a smaller buffer is not
    /// used.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096, void* buffer = nullptr);
    /// Closes the archive; an error at that moment is lost, Close reports it.
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const noexcept { return (m_mode & load) != 0; }
    BOOL IsStoring() const noexcept { return (m_mode & load) == 0; }
    /// The file, null after Close.
    CFile* GetFile() const noexcept { return m_file; }
    BOOL IsBufferEmpty() const noexcept { return m_next == m_end; }

    /// Reads up to `count` bytes; returns fewer only at the end of the file.
    UINT Read(void* buffer, UINT count)
    {
        if (count == 0 || count > static_cast<std::size_t>(m_end - m_next))
            return ReadPieces(buffer, count);
        std::memcpy(buffer, m_next, count);
        m_next += count;
        return count;
    }
    void Write(const void* buffer, UINT count)
    {
        if (count == 0 || count > static_cast<std::size_t>(m_putEnd - m_put)) {
            WriteThrough(buffer, count);
            return;
        }
        std::memcpy(m_put, buffer, count);
        m_put += count;
    }
    /// Storing: passes everything on to the file. Loading: gives bytes read ahead back, so that
    /// the file stands where the archive does.
    void Flush();
    /// Flushes and lets go of the file, which stays open.
    void Close();
    /// Lets go of the file without flushing; never throws.
    void Abort();

    /// A line without its line end, of at most `max` - 1 characters and a NUL; null at the end
    /// of the file.
    LPTSTR ReadString(LPTSTR buffer, UINT max);
    /// A whole line without its line end; FALSE at the end of the file.
    BOOL ReadString(CString& line);
    /// The characters alone, without length or NUL.
    void WriteString(LPCTSTR text);

    /// A count of elements: a word below 0xFFFF; else FFFF and a double word; else eight bytes.
    ULONGLONG ReadCount();
    void WriteCount(ULONGLONG count);

    /// A new object, the caller's, of the class or one derived from it, or one that was read
    /// before, or null. Errors: badClass for an unknown or another class, badIndex for a
    /// reference to nothing, badSchema for another version, genericException for objects nested
    /// too deep. If reading the object fails, it is deleted.
    CObject* ReadObject(const CRuntimeClass* required);
    /// CNotSupportedException* when the object's class is not serialisable.
    /// An object is known by its address: it must live until the archive is closed.
    void WriteObject(const CObject* object);
    /// Reads a class. Where an object may stand instead, `objectTag` receives its number and the
    /// result is null; without `objectTag` that is badIndex. `schema` receives the version.
    CRuntimeClass* ReadClass(const CRuntimeClass* required = nullptr, UINT* schema = nullptr,
                             DWORD* objectTag = nullptr);
    void WriteClass(const CRuntimeClass* runtimeClass);
    /// Writes the class, or reads it and checks that it is of the given one.
    void SerializeClass(const CRuntimeClass* runtimeClass);
    /// Gives a number to an object that is not stored itself, so that others can refer to it.
    /// To be called at the same place when storing and when loading.
    void MapObject(const CObject* object);

    /// The version of the object being read, (UINT)-1 when unknown and on a second call.
    UINT GetObjectSchema() noexcept;
    void SetObjectSchema(UINT schema) noexcept { m_objectSchema = schema; }

    CArchive& operator<<(bool value) { return Put<BYTE>(value ? 1 : 0); }
    CArchive& operator<<(char value) { return Put(static_cast<BYTE>(value)); }
    CArchive& operator<<(signed char value) { return Put(static_cast<BYTE>(value)); }
    CArchive& operator<<(unsigned char value) { return Put(value); }
    CArchive& operator<<(short value) { return Put(static_cast<std::uint16_t>(value)); }
    CArchive& operator<<(unsigned short value) { return Put<std::uint16_t>(value); }
    CArchive& operator<<(int value) { return Put(static_cast<std::uint32_t>(value)); }
    CArchive& operator<<(unsigned int value) { return Put<std::uint32_t>(value); }
    CArchive& operator<<(long value) { return PutChecked<std::int32_t>(value); }
    CArchive& operator<<(unsigned long value) { return PutChecked<std::uint32_t>(value); }
    CArchive& operator<<(long long value) { return Put(static_cast<std::uint64_t>(value)); }
    CArchive& operator<<(unsigned long long value) { return Put<std::uint64_t>(value); }
    CArchive& operator<<(wchar_t value) { return PutChecked<std::uint16_t>(value); }
    CArchive& operator<<(float value) { return Put(BitsOf<std::uint32_t>(value)); }
    CArchive& operator<<(double value) { return Put(BitsOf<std::uint64_t>(value)); }
    /// Pointers other than to objects are no values; without this they would count as bool.
    CArchive& operator<<(const void*) = delete;

    CArchive& operator>>(bool& value);
    CArchive& operator>>(char& value) { return Get<BYTE>(value); }
    CArchive& operator>>(signed char& value) { return Get<BYTE>(value); }
    CArchive& operator>>(unsigned char& value) { return Get<BYTE>(value); }
    CArchive& operator>>(short& value) { return Get<std::uint16_t>(value); }
    CArchive& operator>>(unsigned short& value) { return Get<std::uint16_t>(value); }
    CArchive& operator>>(int& value) { return Get<std::uint32_t>(value); }
    CArchive& operator>>(unsigned int& value) { return Get<std::uint32_t>(value); }
    CArchive& operator>>(long& value);
    CArchive& operator>>(unsigned long& value) { return Get<std::uint32_t>(value); }
    CArchive& operator>>(long long& value) { return Get<std::uint64_t>(value); }
    CArchive& operator>>(unsigned long long& value) { return Get<std::uint64_t>(value); }
    CArchive& operator>>(wchar_t& value) { return Get<std::uint16_t>(value); }
    CArchive& operator>>(float& value);
    CArchive& operator>>(double& value);

private:
    friend struct CArchiveText;

    template <typename Bits, typename Value>
    static Bits BitsOf(Value value) noexcept
    {
        static_assert(sizeof(Bits) == sizeof(Value));
        Bits bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits;
    }

    // Byte by byte in the source, one instruction in the program: compilers join shifts that are
    // written out, and know that a local array does not overlap the archive's own members.

    template <typename Bits, std::size_t... I>
    static void Store(BYTE* target, Bits bits, std::index_sequence<I...>) noexcept
    {
        const BYTE bytes[] = {static_cast<BYTE>(bits >> (8 * I))...};
        std::memcpy(target, bytes, sizeof bytes);
    }

    template <typename Bits, std::size_t... I>
    static Bits Load(const BYTE* source, std::index_sequence<I...>) noexcept
    {
        using Wide = std::common_type_t<Bits, unsigned>;
        BYTE bytes[sizeof(Bits)];
        std::memcpy(bytes, source, sizeof bytes);
        return static_cast<Bits>((... | (static_cast<Wide>(bytes[I]) << (8 * I))));
    }

    /// Writes an unsigned number.
    template <typename Bits>
    CArchive& Put(Bits bits)
    {
        if (static_cast<std::size_t>(m_putEnd - m_put) < sizeof bits)
            MakeRoom();
        Store(m_put, bits, std::make_index_sequence<sizeof bits>());
        m_put += sizeof bits;
        return *this;
    }

    /// Writes a number that may be wider here than in the archive.
    template <typename Stored, typename Value>
    CArchive& PutChecked(Value value)
    {
        if (static_cast<Value>(static_cast<Stored>(value)) != value)
            ThrowTooWide();
        return *this << static_cast<Stored>(value);
    }

    /// Reads an unsigned number.
    template <typename Bits>
    Bits Take()
    {
        if (static_cast<std::size_t>(m_end - m_next) < sizeof(Bits))
            Fetch(sizeof(Bits));
        const Bits bits = Load<Bits>(m_next, std::make_index_sequence<sizeof(Bits)>());
        m_next += sizeof bits;
        return bits;
    }

    template <typename Bits, typename Value>
    CArchive& Get(Value& value)
    {
        value = static_cast<Value>(Take<Bits>());
        return *this;
    }

    // What does not lie in the buffer, or has no room there. Who may read or write at all is
    // checked only here: without a file, or with one for the other direction, the buffer is empty
    // and full.

    UINT ReadPieces(void* buffer, UINT count);
    void WriteThrough(const void* buffer, UINT count);
    void MakeRoom();
    void Fetch(std::size_t count);
    std::size_t ReadAhead(std::size_t count);
    const BYTE* TakeBytes(std::size_t count);
    void RequireStoring() const;
    void RequireLoading() const;
    [[noreturn]] void Throw(int cause) const;
    [[noreturn]] void ThrowTooWide() const;
    CArchiveMap& Map();
    void DropMap() noexcept;
    DWORD ReadTag();
    void WriteTag(DWORD tag);
    CRuntimeClass* ReadNewClass(UINT& schema);
    CObject* ReadNewObject(CRuntimeClass* runtimeClass, UINT schema);

    CFile* m_file;
    BYTE* m_buffer;
    std::size_t m_bufferSize;
    BYTE* m_put = nullptr;        ///< storing: where the next byte goes
    BYTE* m_putEnd = nullptr;     ///< storing: end of the buffer; null when loading
    const BYTE* m_next = nullptr; ///< loading: the next byte
    const BYTE* m_end = nullptr;  ///< loading: end of the bytes read ahead; null when storing
    UINT m_mode;
    UINT m_objectSchema = static_cast<UINT>(-1);
    int m_depth = 0;              ///< objects being read or written, one inside the other
    CArchiveMap* m_map = nullptr; ///< numbers of classes and objects, made when needed
    bool m_ownsBuffer;
};

inline CArchive& CArchive::operator>>(bool& value)
{
    value = Take<BYTE>() != 0;
    return *this;
}

inline CArchive& CArchive::operator>>(long& value)
{
    value = static_cast<std::int32_t>(Take<std::uint32_t>());
    return *this;
}

inline CArchive& CArchive::operator>>(float& value)
{
    value = BitsOf<float>(Take<std::uint32_t>());
    return *this;
}

inline CArchive& CArchive::operator>>(double& value)
{
    value = BitsOf<double>(Take<std::uint64_t>());
    return *this;
}

inline CArchive& operator<<(CArchive& ar, const CObject* object)
{
    ar.WriteObject(object);
    return ar;
}

inline CArchive& operator>>(CArchive& ar, CObject*& object)
{
    object = ar.ReadObject(nullptr);
    return ar;
}

inline CArchive& operator>>(CArchive& ar, const CObject*& object)
{
    object = ar.ReadObject(nullptr);
    return ar;
}

#endif
