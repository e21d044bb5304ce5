#include "platform/framework/fwarchive.h"

#include "platform/framework/fwarchivetext.h"
#include "platform/framework/fwtext.h"

#include <algorithm>
#include <climits>
#include <new>
#include <utility>

namespace {

constexpr std::size_t kMinBufferSize = 128;

/// What is read at once of something whose length only the archive claims to know.
constexpr std::size_t kTrustedStep = std::size_t{64} * 1024;

constexpr BYTE kLongLength = CArchiveText::kLongLength;
constexpr WORD kVeryLongLength = 0xFFFF;
constexpr WORD kWideText = 0xFFFE;

[[noreturn]] void ThrowFor(const CFile* file, int cause)
{
    AfxThrowArchiveException(cause, file == nullptr ? CString() : file->GetFilePath());
}

/// Length of a text, and whether its characters have 16 bits.
struct TextHead {
    std::uint32_t length;
    bool wide;
};

TextHead ReadTextHead(CArchive& ar)
{
    TextHead head{0, false};
    for (;;) {
        BYTE shortLength = 0;
        ar >> shortLength;
        if (shortLength != kLongLength) {
            head.length = shortLength;
            return head;
        }
        WORD longLength = 0;
        ar >> longLength;
        if (longLength == kWideText && !head.wide) {
            head.wide = true;
            continue;
        }
        head.length = longLength;
        if (longLength == kVeryLongLength)
            ar >> head.length;
        if (longLength == kWideText || head.length > INT_MAX)
            ThrowFor(ar.GetFile(), CArchiveException::genericException);
        return head;
    }
}

void WriteTextHead(CArchive& ar, std::uint32_t length)
{
    if (length < kLongLength)
        ar << static_cast<BYTE>(length);
    else if (length < kWideText)
        ar << kLongLength << static_cast<WORD>(length);
    else
        ar << kLongLength << kVeryLongLength << length;
}

void ReadExactly(CArchive& ar, void* buffer, std::size_t count)
{
    if (ar.Read(buffer, static_cast<UINT>(count)) != count)
        ThrowFor(ar.GetFile(), CArchiveException::endOfFile);
}

/// Reads text whose length is only claimed: never makes room for much more than has been read.
CString ReadNarrowText(CArchive& ar, std::size_t length)
{
    CString text;
    std::size_t done = 0;
    while (done < length) {
        const std::size_t step = std::min(length - done, std::max(done, kTrustedStep));
        char* buffer = text.GetBufferSetLength(static_cast<int>(done + step));
        ReadExactly(ar, buffer + done, step);
        done += step;
    }
    return text;
}

CString ReadWideText(CArchive& ar, std::size_t length)
{
    CString text;
    for (std::size_t i = 0; i < length; ++i) {
        WORD unit = 0;
        ar >> unit;
        text.AppendChar(zelfw::AnsiFromUnicode(unit));
    }
    return text;
}

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize, void* buffer)
    : m_file(file), m_buffer(static_cast<BYTE*>(buffer)),
      m_bufferSize(static_cast<std::size_t>(std::max(bufferSize, 0))), m_mode(mode),
      m_ownsBuffer(false)
{
    if (file == nullptr)
        AfxThrowInvalidArgException();
    if (buffer == nullptr || m_bufferSize < kMinBufferSize) {
        m_bufferSize = std::max(m_bufferSize, kMinBufferSize);
        m_buffer = new (std::nothrow) BYTE[m_bufferSize];
        if (m_buffer == nullptr)
            AfxThrowMemoryException();
        m_ownsBuffer = true;
    }
    if (IsStoring()) {
        m_put = m_buffer;
        m_putEnd = m_buffer + m_bufferSize;
    } else {
        m_next = m_buffer;
        m_end = m_buffer;
    }
}

CArchive::~CArchive()
{
    if (m_file != nullptr && (m_mode & bNoFlushOnDelete) == 0) {
        try {
            Close();
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
            // A destructor has nobody to tell; the file's own exceptions may be of any type.
        }
    }
    Abort();
    if (m_ownsBuffer)
        delete[] m_buffer;
}

void CArchive::Throw(int cause) const
{
    ThrowFor(m_file, cause);
}

void CArchive::ThrowTooWide() const
{
    Throw(CArchiveException::genericException);
}

void CArchive::RequireStoring() const
{
    if (IsLoading())
        Throw(CArchiveException::readOnly);
    if (m_file == nullptr)
        Throw(CArchiveException::genericException);
}

void CArchive::RequireLoading() const
{
    if (IsStoring())
        Throw(CArchiveException::writeOnly);
    if (m_file == nullptr)
        Throw(CArchiveException::genericException);
}

/// Called when a number does not fit any more.
void CArchive::MakeRoom()
{
    RequireStoring();
    Flush();
}

/// Called when fewer than `count` bytes are there; `count` is not above the buffer's size.
void CArchive::Fetch(std::size_t count)
{
    RequireLoading();
    if (ReadAhead(count) < count)
        Throw(CArchiveException::endOfFile);
}

/// Reads as much as fits until `count` bytes are there or the file ends; returns their number.
std::size_t CArchive::ReadAhead(std::size_t count)
{
    auto available = static_cast<std::size_t>(m_end - m_next);
    std::memmove(m_buffer, m_next, available);
    m_next = m_buffer;
    m_end = m_buffer + available;
    while (available < count) {
        const UINT read =
            m_file->Read(m_buffer + available, static_cast<UINT>(m_bufferSize - available));
        if (read == 0)
            break;
        available += read;
        m_end = m_buffer + available;
    }
    return available;
}

/// The next bytes where they lie, until the next call; `count` is not above the buffer's size.
const BYTE* CArchive::TakeBytes(std::size_t count)
{
    if (static_cast<std::size_t>(m_end - m_next) < count)
        Fetch(count);
    return std::exchange(m_next, m_next + count);
}

UINT CArchive::ReadPieces(void* buffer, UINT count)
{
    RequireLoading();
    auto* out = static_cast<BYTE*>(buffer);
    std::size_t left = count;
    while (left > 0) {
        if (m_next == m_end) {
            // Large pieces go past the buffer.
            if (left >= m_bufferSize) {
                const UINT read = m_file->Read(out, static_cast<UINT>(left));
                out += read;
                left -= read;
                if (read == 0)
                    break;
                continue;
            }
            if (ReadAhead(1) == 0)
                break;
        }
        const std::size_t step = std::min(left, static_cast<std::size_t>(m_end - m_next));
        std::memcpy(out, m_next, step);
        m_next += step;
        out += step;
        left -= step;
    }
    return count - static_cast<UINT>(left);
}

void CArchive::WriteThrough(const void* buffer, UINT count)
{
    RequireStoring();
    if (count == 0)
        return;
    if (count > static_cast<std::size_t>(m_putEnd - m_put))
        Flush();
    if (count > m_bufferSize) {
        m_file->Write(buffer, count);
        return;
    }
    std::memcpy(m_put, buffer, count);
    m_put += count;
}

void CArchive::Flush()
{
    if (m_file == nullptr)
        return;
    if (IsStoring()) {
        if (m_put != m_buffer)
            m_file->Write(m_buffer, static_cast<UINT>(m_put - m_buffer));
        m_put = m_buffer;
    } else if (m_next != m_end) {
        m_file->Seek(m_next - m_end, CFile::current);
        m_next = m_end;
    }
}

void CArchive::Close()
{
    Flush();
    Abort();
}

void CArchive::Abort()
{
    DropMap();
    m_file = nullptr;
    m_put = nullptr;
    m_putEnd = nullptr;
    m_next = nullptr;
    m_end = nullptr;
}

LPTSTR CArchive::ReadString(LPTSTR buffer, UINT max)
{
    RequireLoading();
    if (buffer == nullptr || max == 0)
        AfxThrowInvalidArgException();
    UINT length = 0;
    bool any = false;
    while (length < max - 1) {
        if (m_next == m_end && ReadAhead(1) == 0)
            break;
        any = true;
        const char character = static_cast<char>(*m_next++);
        if (character == '\n') {
            if (length > 0 && buffer[length - 1] == '\r')
                --length;
            break;
        }
        buffer[length++] = character;
    }
    buffer[length] = '\0';
    return any || max == 1 ? buffer : nullptr;
}

BOOL CArchive::ReadString(CString& line)
{
    RequireLoading();
    CString text;
    bool ended = false;
    bool any = false;
    while (!ended && (m_next != m_end || ReadAhead(1) > 0)) {
        any = true;
        const auto available = static_cast<std::size_t>(m_end - m_next);
        const void* found = std::memchr(m_next, '\n', available);
        ended = found != nullptr;
        const std::size_t count =
            ended ? static_cast<std::size_t>(static_cast<const BYTE*>(found) - m_next) : available;
        text.Append(reinterpret_cast<const char*>(m_next), static_cast<int>(count));
        m_next += count + (ended ? 1 : 0);
    }
    if (ended && !text.IsEmpty() && text.GetAt(text.GetLength() - 1) == '\r')
        text.Truncate(text.GetLength() - 1);
    line = std::move(text);
    return any ? TRUE : FALSE;
}

void CArchive::WriteString(LPCTSTR text)
{
    const std::string_view characters = zelfw::View(text);
    Write(characters.data(), static_cast<UINT>(zelfw::CheckedLength(characters.size())));
}

ULONGLONG CArchive::ReadCount()
{
    WORD word = 0;
    *this >> word;
    if (word != 0xFFFF)
        return word;
    std::uint32_t doubleWord = 0;
    *this >> doubleWord;
    if (doubleWord != 0xFFFFFFFF)
        return doubleWord;
    ULONGLONG count = 0;
    *this >> count;
    return count;
}

void CArchive::WriteCount(ULONGLONG count)
{
    if (count < 0xFFFF)
        *this << static_cast<WORD>(count);
    else if (count < 0xFFFFFFFF)
        *this << WORD{0xFFFF} << static_cast<std::uint32_t>(count);
    else
        *this << WORD{0xFFFF} << std::uint32_t{0xFFFFFFFF} << count;
}

// Texts

[[gnu::noinline]] void CArchiveText::WriteLong(CArchive& ar, std::string_view text)
{
    WriteTextHead(ar, static_cast<std::uint32_t>(text.size()));
    ar.Write(text.data(), static_cast<UINT>(text.size()));
}

/// A text is read where it lies if the buffer can hold it.
[[gnu::noinline]] void CArchiveText::ReadLong(CArchive& ar, CString& text)
{
    const TextHead head = ReadTextHead(ar);
    if (head.wide)
        text = ReadWideText(ar, head.length);
    else if (head.length > ar.m_bufferSize)
        text = ReadNarrowText(ar, head.length);
    else
        text.SetString(reinterpret_cast<LPCTSTR>(ar.TakeBytes(head.length)),
                       static_cast<int>(head.length));
}

CArchive& operator<<(CArchive& ar, const CString& text)
{
    CArchiveText::Write(ar, zelfw::View(text));
    return ar;
}

CArchive& operator>>(CArchive& ar, CString& text)
{
    std::string_view shortText;
    if (CArchiveText::Take(ar, shortText))
        text.SetString(shortText.data(), static_cast<int>(shortText.size()));
    else
        CArchiveText::ReadLong(ar, text);
    return ar;
}
