#ifndef ZELDT_PLATFORM_FRAMEWORK_FWEXCEPT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWEXCEPT_H

/// The framework's exceptions. They are thrown by pointer; whoever catches one and does not
/// throw it on calls its Delete, never `delete`:
///
///     catch (CException* e) {
///         char text[200];
///         e->GetErrorMessage(text, sizeof text);
///         e->Delete();
///     }

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwobject.h"
#include "fwstring.h"

class ZELFW_API CException : public CObject {
    DECLARE_DYNAMIC(CException)

public:
    CException();
    /// FALSE for objects that Delete must not free: preallocated ones, or those on the stack.
    explicit CException(BOOL autoDelete);
    ~CException() override;

    /// Frees the object if it was made to be freed.
    void Delete();

    /// Puts a readable English text, cut to fit, and a NUL into the buffer of `maxError` bytes.
    /// Returns FALSE, with an empty text if there is room for one, when there is no message.
    /// `helpContext` receives 0. Allocates nothing and never throws.
    virtual BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const;

private:
    BOOL m_bAutoDelete;
};

/// Memory ran out. The object is preallocated: throwing it needs no memory.
class ZELFW_API CMemoryException : public CException {
    DECLARE_DYNAMIC(CMemoryException)
public:
    CMemoryException();
    explicit CMemoryException(BOOL autoDelete);
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

/// Something was asked for that the class does not offer. Preallocated.
class ZELFW_API CNotSupportedException : public CException {
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    CNotSupportedException();
    explicit CNotSupportedException(BOOL autoDelete);
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

/// An argument made no sense. Preallocated.
class ZELFW_API CInvalidArgException : public CException {
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    CInvalidArgException();
    explicit CInvalidArgException(BOOL autoDelete);
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

/// An operation stopped because of something the user has been told already. Preallocated.
class ZELFW_API CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)
public:
    CUserException();
    explicit CUserException(BOOL autoDelete);
};

/// Reading or writing an archive failed.
class ZELFW_API CArchiveException : public CException {
    DECLARE_DYNAMIC(CArchiveException)
public:
    enum {
        none,             ///< no error
        genericException, ///< anything else
        readOnly,         ///< writing to an archive opened for loading
        endOfFile,        ///< the data ended too early
        writeOnly,        ///< reading from an archive opened for storing
        badIndex,         ///< a reference to a class or object that is not there
        badClass,         ///< an unknown class, or an object of the wrong one
        badSchema         ///< an object of another version of its class
    };

    explicit CArchiveException(int cause = none, LPCTSTR archiveName = nullptr);

    int m_cause;
    CString m_strFileName; ///< the archive's file; empty when unknown
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

/// A file operation failed.
class ZELFW_API CFileException : public CException {
    DECLARE_DYNAMIC(CFileException)
public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr);

    /// The cause for an error number of the Windows system, the same on every target.
    static int OsErrorToException(LONG osError) noexcept;
    /// The cause for a number that the C library left in errno.
    static int ErrnoToException(int errorNumber) noexcept;
    [[noreturn]] static void ThrowOsError(LONG osError, LPCTSTR fileName = nullptr);
    [[noreturn]] static void ThrowErrno(int errorNumber, LPCTSTR fileName = nullptr);

    int m_cause;
    LONG m_lOsError;       ///< the system's or the C library's own number; -1 when unknown
    CString m_strFileName; ///< empty when unknown
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

/// An OLE automation call failed.
class ZELFW_API COleException : public CException {
    DECLARE_DYNAMIC(COleException)
public:
    COleException();

    SCODE m_sc; ///< the failure code
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const override;
};

[[noreturn]] ZELFW_API void AfxThrowMemoryException();
[[noreturn]] ZELFW_API void AfxThrowNotSupportedException();
[[noreturn]] ZELFW_API void AfxThrowInvalidArgException();
[[noreturn]] ZELFW_API void AfxThrowUserException();
[[noreturn]] ZELFW_API void AfxThrowArchiveException(int cause, LPCTSTR archiveName = nullptr);
[[noreturn]] ZELFW_API void AfxThrowFileException(int cause, LONG osError = -1,
                                                  LPCTSTR fileName = nullptr);
[[noreturn]] ZELFW_API void AfxThrowOleException(SCODE code);

#endif
