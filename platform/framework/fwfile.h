#ifndef ZELDT_PLATFORM_FRAMEWORK_FWFILE_H
#define ZELDT_PLATFORM_FRAMEWORK_FWFILE_H

/// Files of bytes, on disk and in memory. Every failure is a CFileException* that names the
/// file, unless stated otherwise.

#include <cstdio>

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwexcept.h"
#include "fwobject.h"
#include "fwstring.h"

/// A binary file on disk, without a buffer of its own.
class ZELFW_API CFile : public CObject {
    DECLARE_DYNAMIC(CFile)

public:
    /// How to open; one of the three access modes and any of the others. The share and type
    /// flags are taken and have no effect: files are binary and may be opened by others.
    enum OpenFlags : UINT {
        modeRead = 0x0000,      ///< reading only
        modeWrite = 0x0001,     ///< writing only
        modeReadWrite = 0x0002, ///< both
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,     ///< makes the file; one that exists loses its contents
        modeNoTruncate = 0x2000, ///< with modeCreate: one that exists keeps its contents
        typeText = 0x4000,
        typeBinary = 0x8000
    };

    /// Where Seek counts from.
    enum SeekPosition { begin, current, end };

    CFile();
    /// Opens the file or throws.
    CFile(LPCTSTR fileName, UINT openFlags);
    /// Closes the file; an error at that moment is lost, Close reports it.
    ~CFile() override;

    /// Opens the file. On failure returns FALSE and describes the error in `error` if given.
    /// A file that is open already is closed first.
    virtual BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr);
    virtual void Close();
    /// Closes and never throws.
    virtual void Abort();

    /// Reads up to `count` bytes; returns fewer only at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    /// Writes all bytes.
    virtual void Write(const void* buffer, UINT count);
    virtual void Flush();

    /// Moves to a position and returns it, counted from the beginning. A position behind the end
    /// is allowed and changes nothing until something is written there; one before the beginning
    /// is the error badSeek and moves nothing.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    void SeekToBegin();
    ULONGLONG SeekToEnd();
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    /// Cuts the file or extends it with zero bytes; the position becomes the new end.
    virtual void SetLength(ULONGLONG length);

    /// The name the file was opened with, without folders; empty when not open.
    virtual CString GetFileName() const;
    /// The full name as far as the system tells it, else as given; empty when not open.
    virtual CString GetFilePath() const;

protected:
    CString m_strFileName; ///< the full name

private:
    enum class LastAction { None, Read, Write };

    std::FILE* OpenedFile() const;
    void SwitchTo(LastAction action);
    [[noreturn]] void ThrowLastError() const;

    std::FILE* m_file = nullptr;
    UINT m_access = modeRead;
    LastAction m_lastAction = LastAction::None;
};

/// A file in memory.
///
/// Memory that the object allocates itself (malloc) is freed with it; attached memory stays the
/// caller's. When memory runs out, and when an attached block that must not grow is full, Write
/// and SetLength throw CMemoryException* and the contents stay as they were.
class ZELFW_API CMemFile : public CFile {
    DECLARE_DYNAMIC(CMemFile)

public:
    /// An empty file whose block grows by at least `growBytes` at a time.
    explicit CMemFile(UINT growBytes = 1024);
    /// As Attach.
    CMemFile(BYTE* buffer, UINT bufferSize, UINT growBytes = 0);
    ~CMemFile() override;

    /// Works on the caller's memory. With `growBytes` 0 the block is the contents and cannot
    /// grow; otherwise the file begins empty and the block, which must come from malloc, grows
    /// by realloc: get it back with Detach.
    void Attach(BYTE* buffer, UINT bufferSize, UINT growBytes = 0);
    /// Gives the block to the caller, who frees it with free, and leaves an empty file. Ask
    /// GetLength first. Null when nothing was ever written.
    BYTE* Detach();

    /// Always FALSE with the error invalidFile: there is no file on disk.
    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    /// Frees what the object allocated; the file is empty then and can be written again.
    void Close() override;
    void Abort() override;
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    void Flush() override;
    /// Never allocates.
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;

private:
    void Grow(ULONGLONG size);

    BYTE* m_buffer = nullptr;
    ULONGLONG m_capacity = 0;
    ULONGLONG m_length = 0;
    ULONGLONG m_position = 0;
    UINT m_growBytes;
    bool m_ownsBuffer = true;
};

#endif
