// Positions in files have 64 bits on every target.
#define _FILE_OFFSET_BITS 64 // NOLINT(bugprone-reserved-identifier): the system reads it

#include "platform/framework/fwfile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string_view>
#include <unistd.h>

IMPLEMENT_DYNAMIC(CFile, CObject)

namespace {

constexpr UINT kAccessMask = 0x0003;

constexpr int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};

/// Makes or empties the file, as the mode says.
bool MakeFile(LPCTSTR name, LPCTSTR mode) noexcept
{
    std::FILE* file = std::fopen(name, mode);
    return file != nullptr && std::fclose(file) == 0;
}

/// Null with errno set on failure.
std::FILE* OpenStream(LPCTSTR name, UINT flags) noexcept
{
    if ((flags & CFile::modeCreate) != 0 &&
        !MakeFile(name, (flags & CFile::modeNoTruncate) != 0 ? "ab" : "wb"))
        return nullptr;
    const bool readOnly = (flags & kAccessMask) == CFile::modeRead;
    return std::fopen(name, readOnly ? "rb" : "rb+");
}

/// Folders open for reading on some systems. Names that the library cannot look at are left to
/// the system.
bool IsFolder(LPCTSTR name) noexcept
{
    try {
        std::error_code error;
        return std::filesystem::is_directory(name, error);
    } catch (...) {
        return false;
    }
}

CString FullName(LPCTSTR name)
{
    try {
        return CString(std::filesystem::absolute(name).string().c_str());
    } catch (const std::exception&) {
        return CString(name);
    }
}

/// The position that a seek in memory means; throws badSeek for one that cannot be.
ULONGLONG SeekTarget(LONGLONG offset, ULONGLONG origin, const CString& fileName)
{
    constexpr auto kLimit = static_cast<ULONGLONG>(std::numeric_limits<LONGLONG>::max());
    const bool back = offset < 0;
    const ULONGLONG distance =
        back ? 0 - static_cast<ULONGLONG>(offset) : static_cast<ULONGLONG>(offset);
    if (back ? distance > origin : distance > kLimit - origin)
        AfxThrowFileException(CFileException::badSeek, -1, fileName);
    return back ? origin - distance : origin + distance;
}

} // namespace

CFile::CFile() = default;

CFile::CFile(LPCTSTR fileName, UINT openFlags)
{
    CFileException error;
    if (!CFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    CFile::Abort();
}

BOOL CFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error)
{
    CFile::Abort();

    int errorNumber = 0;
    if (fileName == nullptr || *fileName == '\0')
        errorNumber = ENOENT;
    else if ((openFlags & kAccessMask) == kAccessMask)
        errorNumber = EINVAL;
    else if (IsFolder(fileName))
        errorNumber = EACCES;

    std::FILE* file = nullptr;
    if (errorNumber == 0) {
        CString fullName = FullName(fileName);
        errno = 0;
        file = OpenStream(fileName, openFlags);
        errorNumber = errno;
        if (file != nullptr) {
            std::setvbuf(file, nullptr, _IONBF, 0);
            m_file = file;
            m_access = openFlags & kAccessMask;
            m_lastAction = LastAction::None;
            m_strFileName = std::move(fullName);
            return TRUE;
        }
    }
    if (error != nullptr) {
        error->m_cause = CFileException::ErrnoToException(errorNumber);
        error->m_lOsError = errorNumber;
        error->m_strFileName = fileName;
    }
    return FALSE;
}

std::FILE* CFile::OpenedFile() const
{
    if (m_file == nullptr)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    return m_file;
}

void CFile::ThrowLastError() const
{
    const int errorNumber = errno != 0 ? errno : EIO;
    CFileException::ThrowErrno(errorNumber, m_strFileName);
}

/// The C library wants a seek between reading and writing.
void CFile::SwitchTo(LastAction action)
{
    std::FILE* file = OpenedFile();
    const UINT forbidden = action == LastAction::Read ? UINT{modeWrite} : UINT{modeRead};
    if (m_access == forbidden)
        AfxThrowFileException(CFileException::accessDenied, EACCES, m_strFileName);
    if (m_lastAction != LastAction::None && m_lastAction != action &&
        fseeko(file, 0, SEEK_CUR) != 0)
        ThrowLastError();
    m_lastAction = action;
    errno = 0;
}

void CFile::Close()
{
    std::FILE* file = OpenedFile();
    const CString name = m_strFileName;
    m_file = nullptr;
    m_strFileName.Empty();
    errno = 0;
    if (std::fclose(file) != 0)
        CFileException::ThrowErrno(errno != 0 ? errno : EIO, name);
}

void CFile::Abort()
{
    if (m_file != nullptr)
        std::fclose(m_file);
    m_file = nullptr;
    m_strFileName.Empty();
}

UINT CFile::Read(void* buffer, UINT count)
{
    SwitchTo(LastAction::Read);
    if (count == 0)
        return 0;
    const std::size_t read = std::fread(buffer, 1, count, m_file);
    const bool failed = std::ferror(m_file) != 0;
    const int errorNumber = errno;
    std::clearerr(m_file);
    errno = errorNumber;
    if (failed)
        ThrowLastError();
    return static_cast<UINT>(read);
}

void CFile::Write(const void* buffer, UINT count)
{
    SwitchTo(LastAction::Write);
    if (count == 0)
        return;
    const bool failed = std::fwrite(buffer, 1, count, m_file) != count;
    const int errorNumber = errno;
    std::clearerr(m_file);
    errno = errorNumber;
    if (failed)
        ThrowLastError();
}

void CFile::Flush()
{
    std::FILE* file = OpenedFile();
    errno = 0;
    if (m_lastAction == LastAction::Write && std::fflush(file) != 0)
        ThrowLastError();
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    std::FILE* file = OpenedFile();
    if (from > end)
        AfxThrowInvalidArgException();
    if (fseeko(file, offset, kOrigins[from]) != 0)
        AfxThrowFileException(CFileException::badSeek, errno, m_strFileName);
    m_lastAction = LastAction::None;
    return GetPosition();
}

void CFile::SeekToBegin()
{
    Seek(0, begin);
}

ULONGLONG CFile::SeekToEnd()
{
    return Seek(0, end);
}

ULONGLONG CFile::GetPosition() const
{
    const auto position = ftello(OpenedFile());
    if (position < 0)
        ThrowLastError();
    return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetLength() const
{
    const auto position = static_cast<LONGLONG>(GetPosition());
    errno = 0;
    if (fseeko(m_file, 0, SEEK_END) != 0)
        ThrowLastError();
    const ULONGLONG length = GetPosition();
    if (fseeko(m_file, position, SEEK_SET) != 0)
        ThrowLastError();
    return length;
}

void CFile::SetLength(ULONGLONG length)
{
    SwitchTo(LastAction::Write);
    if (length > static_cast<ULONGLONG>(std::numeric_limits<LONGLONG>::max()))
        AfxThrowFileException(CFileException::badSeek, -1, m_strFileName);
    if (ftruncate(fileno(m_file), static_cast<LONGLONG>(length)) != 0)
        ThrowLastError();
    Seek(static_cast<LONGLONG>(length), begin);
}

CString CFile::GetFilePath() const
{
    return m_strFileName;
}

CString CFile::GetFileName() const
{
    const int folder = std::max(m_strFileName.ReverseFind('/'), m_strFileName.ReverseFind('\\'));
    return m_strFileName.Mid(folder + 1);
}

IMPLEMENT_DYNAMIC(CMemFile, CFile)

CMemFile::CMemFile(UINT growBytes) : m_growBytes(growBytes) {}

CMemFile::CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes) : m_growBytes(growBytes)
{
    CMemFile::Attach(buffer, bufferSize, growBytes);
}

CMemFile::~CMemFile()
{
    CMemFile::Abort();
}

void CMemFile::Attach(BYTE* buffer, UINT bufferSize, UINT growBytes)
{
    if (buffer == nullptr && bufferSize != 0)
        AfxThrowInvalidArgException();
    CMemFile::Abort();
    m_buffer = buffer;
    m_capacity = bufferSize;
    m_length = growBytes == 0 ? bufferSize : 0;
    m_growBytes = growBytes;
    m_ownsBuffer = false;
}

BYTE* CMemFile::Detach()
{
    BYTE* buffer = m_buffer;
    m_ownsBuffer = false;
    CMemFile::Abort();
    return buffer;
}

BOOL CMemFile::Open(LPCTSTR fileName, UINT, CFileException* error)
{
    if (error != nullptr) {
        error->m_cause = CFileException::invalidFile;
        error->m_lOsError = -1;
        error->m_strFileName = fileName;
    }
    return FALSE;
}

void CMemFile::Close()
{
    Abort();
}

void CMemFile::Abort()
{
    if (m_ownsBuffer)
        std::free(m_buffer);
    m_buffer = nullptr;
    m_capacity = 0;
    m_length = 0;
    m_position = 0;
    m_ownsBuffer = true;
}

UINT CMemFile::Read(void* buffer, UINT count)
{
    if (m_position >= m_length)
        return 0;
    const auto read = static_cast<UINT>(std::min<ULONGLONG>(count, m_length - m_position));
    if (read != 0)
        std::memcpy(buffer, m_buffer + m_position, read);
    m_position += read;
    return read;
}

void CMemFile::Write(const void* buffer, UINT count)
{
    if (count == 0)
        return;
    const ULONGLONG last = m_position + count;
    Grow(last);
    if (m_position > m_length)
        std::memset(m_buffer + m_length, 0, static_cast<std::size_t>(m_position - m_length));
    std::memcpy(m_buffer + m_position, buffer, count);
    m_position = last;
    m_length = std::max(m_length, last);
}

/// Makes the block at least `size` bytes large; half as large again as it was, so that writing
/// many small pieces costs constant time a byte.
void CMemFile::Grow(ULONGLONG size)
{
    if (size <= m_capacity)
        return;
    if (m_growBytes == 0)
        AfxThrowMemoryException();
    const ULONGLONG wanted = std::max(size, m_capacity + m_capacity / 2);
    const ULONGLONG steps = wanted / m_growBytes + (wanted % m_growBytes != 0 ? 1 : 0);
    const ULONGLONG capacity = steps * m_growBytes;
    if (capacity > static_cast<ULONGLONG>(std::numeric_limits<std::ptrdiff_t>::max()))
        AfxThrowMemoryException();
    void* buffer = std::realloc(m_buffer, static_cast<std::size_t>(capacity));
    if (buffer == nullptr)
        AfxThrowMemoryException();
    m_buffer = static_cast<BYTE*>(buffer);
    m_capacity = capacity;
}

void CMemFile::Flush() {}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    if (from > end)
        AfxThrowInvalidArgException();
    const ULONGLONG origins[] = {0, m_position, m_length};
    m_position = SeekTarget(offset, origins[from], m_strFileName);
    return m_position;
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_position;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_length;
}

void CMemFile::SetLength(ULONGLONG length)
{
    Grow(length);
    if (length > m_length)
        std::memset(m_buffer + m_length, 0, static_cast<std::size_t>(length - m_length));
    m_length = length;
    m_position = length;
}
