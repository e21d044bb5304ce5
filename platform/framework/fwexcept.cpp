#include "platform/framework/fwexcept.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(COleException, CException)

namespace {

constexpr const char* kArchiveTexts[] = {
    "No error.",
    "The archive could not be read or written.",
    "The archive is open for reading only.",
    "The archive ended too early.",
    "The archive is open for writing only.",
    "The archive refers to something that it does not contain.",
    "The archive contains an object of an unknown or unexpected class.",
    "The archive contains an object of another version of its class.",
};
static_assert(std::size(kArchiveTexts) == CArchiveException::badSchema + 1);

constexpr const char* kFileTexts[] = {
    "No error.",
    "The file operation failed.",
    "The file was not found.",
    "The path is not valid.",
    "Too many files are open.",
    "Access to the file was denied.",
    "The file is not open or its handle is not valid.",
    "The current folder cannot be removed.",
    "The folder is full.",
    "The position in the file is not valid.",
    "The device reported an error.",
    "The file is in use.",
    "A part of the file is locked.",
    "The disk is full.",
    "The file ended too early.",
};
static_assert(std::size(kFileTexts) == CFileException::endOfFile + 1);

template <std::size_t Count>
const char* TextFor(const char* const (&texts)[Count], int cause) noexcept
{
    return cause >= 0 && cause < static_cast<int>(Count) ? texts[cause] : texts[1];
}

/// Appends as much of a text as the buffer holds.
class MessageBuffer {
public:
    MessageBuffer(LPTSTR buffer, UINT size, UINT* helpContext) noexcept
        : m_next(buffer), m_left(buffer == nullptr || size == 0 ? 0 : size - 1)
    {
        if (buffer != nullptr && size != 0)
            *buffer = '\0';
        if (helpContext != nullptr)
            *helpContext = 0;
    }

    MessageBuffer& operator<<(std::string_view text) noexcept
    {
        const std::size_t count = std::min(text.size(), m_left);
        if (count > 0) {
            std::memcpy(m_next, text.data(), count);
            m_next += count;
            *m_next = '\0';
            m_left -= count;
        }
        return *this;
    }

    /// A file's name in front of what happened to it.
    MessageBuffer& Subject(const CString& name) noexcept
    {
        return name.IsEmpty() ? *this : *this << name.GetString() << ": ";
    }

private:
    LPTSTR m_next;
    std::size_t m_left;
};

BOOL Message(LPCTSTR text, LPTSTR error, UINT maxError, UINT* helpContext) noexcept
{
    MessageBuffer(error, maxError, helpContext) << text;
    return TRUE;
}

/// One object of the class for the whole process, never destroyed: it may be thrown while static
/// objects are being destroyed.
template <typename Exception>
Exception* Preallocated()
{
    alignas(Exception) static unsigned char storage[sizeof(Exception)];
    static Exception* const object = new (storage) Exception(FALSE);
    return object;
}

} // namespace

CException::CException() : m_bAutoDelete(TRUE) {}

CException::CException(BOOL autoDelete) : m_bAutoDelete(autoDelete) {}

CException::~CException() = default;

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    MessageBuffer(error, maxError, helpContext) << "";
    return FALSE;
}

CMemoryException::CMemoryException() = default;

CMemoryException::CMemoryException(BOOL autoDelete) : CException(autoDelete) {}

BOOL CMemoryException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    return Message("Out of memory.", error, maxError, helpContext);
}

CNotSupportedException::CNotSupportedException() = default;

CNotSupportedException::CNotSupportedException(BOOL autoDelete) : CException(autoDelete) {}

BOOL CNotSupportedException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    return Message("The operation is not supported.", error, maxError, helpContext);
}

CInvalidArgException::CInvalidArgException() = default;

CInvalidArgException::CInvalidArgException(BOOL autoDelete) : CException(autoDelete) {}

BOOL CInvalidArgException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    return Message("An argument is not valid.", error, maxError, helpContext);
}

CUserException::CUserException() = default;

CUserException::CUserException(BOOL autoDelete) : CException(autoDelete) {}

CArchiveException::CArchiveException(int cause, LPCTSTR archiveName)
    : m_cause(cause), m_strFileName(archiveName)
{}

BOOL CArchiveException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    MessageBuffer(error, maxError, helpContext).Subject(m_strFileName)
        << TextFor(kArchiveTexts, m_cause);
    return TRUE;
}

CFileException::CFileException(int cause, LONG osError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
{}

BOOL CFileException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    MessageBuffer(error, maxError, helpContext).Subject(m_strFileName)
        << TextFor(kFileTexts, m_cause);
    return TRUE;
}

int CFileException::OsErrorToException(LONG osError) noexcept
{
    switch (osError) {
    case 0:
        return none;
    case 2:  // file not found
    case 18: // no more files
        return fileNotFound;
    case 3:   // path not found
    case 15:  // invalid drive
    case 53:  // network path not found
    case 67:  // network name not found
    case 123: // invalid name
    case 161: // bad path name
    case 206: // name too long
        return badPath;
    case 4: // too many open files
        return tooManyOpenFiles;
    case 5:  // access denied
    case 19: // write protected
    case 65: // network access denied
        return accessDenied;
    case 6: // invalid handle
        return invalidFile;
    case 16: // current directory
        return removeCurrentDir;
    case 82: // cannot make
        return directoryFull;
    case 25:  // seek
    case 131: // negative seek
    case 132: // seek on device
        return badSeek;
    case 23: // checksum
    case 27: // sector not found
    case 29: // write fault
    case 30: // read fault
    case 31: // general failure
        return hardIO;
    case 32: // sharing violation
        return sharingViolation;
    case 33:  // lock violation
    case 167: // lock failed
        return lockViolation;
    case 39:  // handle disk full
    case 112: // disk full
        return diskFull;
    case 38: // handle end of file
        return endOfFile;
    default:
        return genericException;
    }
}

int CFileException::ErrnoToException(int errorNumber) noexcept
{
    switch (errorNumber) {
    case 0:
        return none;
    case ENOENT:
        return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return badPath;
    case EMFILE:
    case ENFILE:
        return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return accessDenied;
    case EBADF:
        return invalidFile;
    case ESPIPE:
        return badSeek;
    case EIO:
        return hardIO;
    case EBUSY:
    case EAGAIN:
        return sharingViolation;
    case EDEADLK:
        return lockViolation;
    case ENOSPC:
    case EFBIG:
        return diskFull;
    default:
        return genericException;
    }
}

void CFileException::ThrowOsError(LONG osError, LPCTSTR fileName)
{
    AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

void CFileException::ThrowErrno(int errorNumber, LPCTSTR fileName)
{
    AfxThrowFileException(ErrnoToException(errorNumber), errorNumber, fileName);
}

COleException::COleException() : m_sc(S_OK) {}

BOOL COleException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const
{
    char text[64];
    std::snprintf(text, sizeof text, "OLE automation failed with code 0x%08lX.",
                  static_cast<unsigned long>(static_cast<DWORD>(m_sc)));
    return Message(text, error, maxError, helpContext);
}

void AfxThrowMemoryException()
{
    throw Preallocated<CMemoryException>();
}

void AfxThrowNotSupportedException()
{
    throw Preallocated<CNotSupportedException>();
}

void AfxThrowInvalidArgException()
{
    throw Preallocated<CInvalidArgException>();
}

void AfxThrowUserException()
{
    throw Preallocated<CUserException>();
}

void AfxThrowArchiveException(int cause, LPCTSTR archiveName)
{
    throw new CArchiveException(cause, archiveName);
}

void AfxThrowFileException(int cause, LONG osError, LPCTSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}

void AfxThrowOleException(SCODE code)
{
    auto* exception = new COleException;
    exception->m_sc = code;
    throw exception;
}
