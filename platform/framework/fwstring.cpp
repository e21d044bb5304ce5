#include "platform/framework/fwstring.h"

#include "platform/framework/fwblocks.h"
#include "platform/framework/fwexcept.h"
#include "platform/framework/fwole.h"
#include "platform/framework/fwtext.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

using zelfw::View;

constinit zelfw::EmptyText zelfw::emptyText{{1, 0, 0}, '\0'};
static_assert(offsetof(zelfw::EmptyText, end) == sizeof(CStringData));

namespace {

char* TextOf(CStringData* data) noexcept
{
    return reinterpret_cast<char*>(data + 1);
}

/// The size of the block for a text of so many bytes at most.
std::size_t BlockSizeOf(int allocLength) noexcept
{
    return sizeof(CStringData) + static_cast<std::size_t>(allocLength) + 1;
}

/// A text of `length` bytes, which the caller sets, and room for `room`.
[[gnu::always_inline]] inline CStringData* Allocate(int length, int room)
{
    void* memory = zelfw::TakeBlock(BlockSizeOf(room));
    if (memory == nullptr)
        AfxThrowMemoryException();
    auto* data = new (memory) CStringData{1, length, room};
    TextOf(data)[length] = '\0';
    return data;
}

void SetLengthOf(CStringData* data, int length) noexcept
{
    data->nDataLength = length;
    TextOf(data)[length] = '\0';
}

/// A new text of these bytes; the shared empty one when there are none.
CStringData* Duplicate(LPCTSTR text, int length)
{
    if (length == 0)
        return &zelfw::emptyText.data;
    CStringData* const data = Allocate(length, length);
    zelfw::CopyBytes(text, static_cast<std::size_t>(length), TextOf(data));
    return data;
}

bool IsLocked(const CStringData* data) noexcept
{
    return data->nRefs.load(std::memory_order_relaxed) < 0;
}

int RequireLength(int length)
{
    if (length < 0)
        AfxThrowInvalidArgException();
    return length;
}

/// The length of a text that is not null unless it is empty.
int RequireText(LPCTSTR text, int length)
{
    if (text == nullptr && length != 0)
        AfxThrowInvalidArgException();
    return RequireLength(length);
}

std::size_t WideLength(LPCOLESTR text) noexcept
{
    std::size_t length = 0;
    while (text != nullptr && text[length] != 0)
        ++length;
    return length;
}

} // namespace

namespace zelfw {

int CheckedLength(std::uint64_t length)
{
    if (length > INT_MAX)
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

CString Join(std::string_view first, std::string_view second, std::string_view third)
{
    CString result;
    char* out = result.GetBufferSetLength(
        CheckedLength(std::uint64_t{first.size()} + second.size() + third.size()));
    for (const std::string_view part : {first, second, third})
        out = std::copy(part.begin(), part.end(), out);
    return result;
}

} // namespace zelfw

// Construction

CString::CString(const CString& source) : CString()
{
    *this = source;
}

CString::CString(LPCTSTR text) : CString(text, zelfw::CheckedLength(View(text).size())) {}

CString::CString(const unsigned char* text) : CString(reinterpret_cast<LPCTSTR>(text)) {}

CString::CString(LPCTSTR text, int length)
    : m_pszData(TextOf(Duplicate(text, RequireText(text, length))))
{}

CString::CString(TCHAR character, int repeat) : CString()
{
    if (repeat > 0)
        std::memset(GetBufferSetLength(repeat), character, static_cast<std::size_t>(repeat));
}

CString::CString(LPCOLESTR text) : CString(text, zelfw::CheckedLength(WideLength(text))) {}

CString::CString(LPCOLESTR text, int length) : CString()
{
    if (text == nullptr && length != 0)
        AfxThrowInvalidArgException();
    if (RequireLength(length) == 0)
        return;
    char* out = GetBufferSetLength(length);
    std::transform(text, text + length, out, [](OLECHAR unit) {
        return zelfw::AnsiFromUnicode(static_cast<char16_t>(unit));
    });
}

void CString::Release(CStringData* data) noexcept
{
    // Who holds the last reference, or a locked text, needs no atomic subtraction: nobody else can
    // add one.
    if (data->nRefs.load(std::memory_order_acquire) <= 1 ||
        data->nRefs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        zelfw::ReturnBlock(data, BlockSizeOf(data->nAllocLength));
}

// Assignment

CString& CString::operator=(const CString& source)
{
    if (m_pszData == source.m_pszData)
        return *this;
    if (IsLocked(Data()) || IsLocked(source.Data())) {
        SetString(source.m_pszData, source.GetLength());
        return *this;
    }
    if (source.HasBuffer())
        source.Data()->nRefs.fetch_add(1, std::memory_order_relaxed);
    if (HasBuffer())
        Release(Data());
    m_pszData = source.m_pszData;
    return *this;
}

CString& CString::operator=(CString&& source) // NOLINT(performance-noexcept-move-constructor)
{
    if (IsLocked(Data()) || IsLocked(source.Data()))
        return *this = static_cast<const CString&>(source);
    std::swap(m_pszData, source.m_pszData);
    return *this;
}

CString& CString::operator=(LPCTSTR text)
{
    SetString(text);
    return *this;
}

CString& CString::operator=(const unsigned char* text)
{
    SetString(reinterpret_cast<LPCTSTR>(text));
    return *this;
}

CString& CString::operator=(LPCOLESTR text)
{
    return *this = CString(text);
}

CString& CString::operator=(TCHAR character)
{
    SetString(&character, 1);
    return *this;
}

void CString::SetString(LPCTSTR text)
{
    SetString(text, zelfw::CheckedLength(View(text).size()));
}

void CString::SetString(LPCTSTR text, int length)
{
    if (RequireText(text, length) == 0) {
        Empty();
    } else if (!HasBuffer()) {
        m_pszData = TextOf(Duplicate(text, length));
    } else if (IsOwn(length)) {
        std::memmove(m_pszData, text, static_cast<std::size_t>(length));
        SetLengthOf(Data(), length);
    } else {
        Adopt(Duplicate(text, length));
    }
}

void CString::Empty() noexcept
{
    if (IsLocked(Data())) {
        SetLengthOf(Data(), 0);
        return;
    }
    if (HasBuffer())
        Release(Data());
    m_pszData = &zelfw::emptyText.end;
}

void CString::Append(const CString& text)
{
    Append(text.m_pszData, text.GetLength());
}

void CString::Append(LPCTSTR text)
{
    Append(text, zelfw::CheckedLength(View(text).size()));
}

void CString::Append(LPCTSTR text, int length)
{
    if (RequireText(text, length) == 0)
        return;
    const int oldLength = GetLength();
    const int newLength = zelfw::CheckedLength(std::uint64_t{0} + static_cast<unsigned>(oldLength) +
                                               static_cast<unsigned>(length));
    const auto size = static_cast<std::size_t>(length);
    if (IsOwn(newLength)) {
        std::memmove(m_pszData + oldLength, text, size);
    } else {
        // A text that grows once usually grows again: half as much more, so that appending
        // costs constant time a byte. A first text gets exactly what it needs.
        const std::int64_t generous = std::int64_t{oldLength} + oldLength / 2;
        const int room = static_cast<int>(std::clamp<std::int64_t>(generous, newLength, INT_MAX));
        CStringData* data = Allocate(newLength, room);
        std::memcpy(TextOf(data), m_pszData, static_cast<std::size_t>(oldLength));
        std::memcpy(TextOf(data) + oldLength, text, size);
        Adopt(data);
        return;
    }
    SetLengthOf(Data(), newLength);
}

void CString::AppendChar(TCHAR character)
{
    Append(&character, 1);
}

CString& CString::operator+=(const CString& text)
{
    Append(text);
    return *this;
}

CString& CString::operator+=(LPCTSTR text)
{
    Append(text);
    return *this;
}

CString& CString::operator+=(TCHAR character)
{
    AppendChar(character);
    return *this;
}

// Characters

void CString::ThrowBadIndex()
{
    AfxThrowInvalidArgException();
}

void CString::SetAt(int index, TCHAR character)
{
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    GetBuffer()[index] = character;
}

// Buffer access

/// Whether the buffer is this object's alone and has room for `length` bytes.
bool CString::IsOwn(int length) const noexcept
{
    return HasBuffer() && Data()->nAllocLength >= length &&
           Data()->nRefs.load(std::memory_order_acquire) <= 1;
}

/// Takes the new text in place of the old one, locked if that was.
void CString::Adopt(CStringData* data) noexcept
{
    if (IsLocked(Data()))
        data->nRefs.store(-1, std::memory_order_relaxed);
    if (HasBuffer())
        Release(Data());
    m_pszData = TextOf(data);
}

/// Makes the buffer this object's alone, with room for `length` bytes and the present text.
void CString::MakeOwn(int length)
{
    if (IsOwn(length))
        return;
    const int kept = GetLength();
    CStringData* data = Allocate(kept, std::max(length, kept));
    std::memcpy(TextOf(data), m_pszData, static_cast<std::size_t>(kept));
    Adopt(data);
}

LPTSTR CString::GetBuffer(int minLength)
{
    MakeOwn(RequireLength(minLength));
    return m_pszData;
}

LPTSTR CString::GetBuffer()
{
    return GetBuffer(0);
}

LPTSTR CString::GetBufferSetLength(int length)
{
    GetBuffer(length);
    SetLengthOf(Data(), length);
    return m_pszData;
}

void CString::ReleaseBuffer(int newLength)
{
    if (newLength == -1) {
        const auto room = static_cast<std::size_t>(GetAllocLength());
        const void* end = std::memchr(m_pszData, '\0', room);
        newLength = end == nullptr ? GetAllocLength()
                                   : static_cast<int>(static_cast<const char*>(end) - m_pszData);
    }
    ReleaseBufferSetLength(newLength);
}

void CString::ReleaseBufferSetLength(int newLength)
{
    if (newLength < 0 || newLength > GetAllocLength())
        AfxThrowInvalidArgException();
    if (!HasBuffer())
        return;
    MakeOwn(newLength);
    SetLengthOf(Data(), newLength);
}

void CString::Preallocate(int length)
{
    MakeOwn(RequireLength(length));
}

void CString::FreeExtra()
{
    const int length = GetLength();
    if (GetAllocLength() == length)
        return;
    if (length == 0 && !IsLocked(Data())) {
        Empty();
        return;
    }
    CStringData* data = Allocate(length, length);
    std::memcpy(TextOf(data), m_pszData, static_cast<std::size_t>(length));
    Adopt(data);
}

void CString::Truncate(int length)
{
    if (RequireLength(length) < GetLength())
        GetBufferSetLength(length);
}

LPTSTR CString::LockBuffer()
{
    MakeOwn(0);
    Data()->nRefs.store(-1, std::memory_order_relaxed);
    return m_pszData;
}

void CString::UnlockBuffer() noexcept
{
    if (IsLocked(Data()))
        Data()->nRefs.store(1, std::memory_order_relaxed);
}

// Conversions

BSTR CString::AllocSysString() const
{
    BSTR string = SysAllocStringLen(nullptr, static_cast<UINT>(GetLength()));
    if (string == nullptr)
        AfxThrowMemoryException();
    const std::string_view text = View(*this);
    std::transform(text.begin(), text.end(), string, [](char character) {
        return static_cast<OLECHAR>(zelrt::AnsiToUnicode(static_cast<unsigned char>(character)));
    });
    return string;
}

BSTR CString::SetSysString(BSTR* target) const
{
    BSTR string = AllocSysString();
    SysFreeString(*target);
    *target = string;
    return string;
}
