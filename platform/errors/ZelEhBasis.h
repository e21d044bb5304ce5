#ifndef ZELDT_PLATFORM_ERRORS_ZELEHBASIS_H
#define ZELDT_PLATFORM_ERRORS_ZELEHBASIS_H

#include "../framework/framework.h"
#include "export.h"

#include <cstddef>

class ZelEhLogFile;

/// One error: where it arose, its number and text, what caused it and what it replaced.
///
/// Errors are made with `new` and thrown as pointers; whoever catches one owns it and deletes it.
/// An error that was replaced by a follow-up error on its way to the caller stays readable through
/// GetReplaced() and is deleted together with the error that replaced it. The same holds for a
/// framework exception attached as cause. Errors that nobody deleted are deleted by a
/// ZelEhDeleteAtTerminate object.
///
/// ZelEhBasis derives from CObject, never from CException: a `catch (CException*)` clause does not
/// see it.
///
/// All texts are copied, so an error outlives the library that threw it as far as its data goes.
/// Texts are Latin-1 and are returned as stored; a null text counts as empty.
class ZELEH_API ZelEhBasis : public CObject {
    DECLARE_DYNAMIC(ZelEhBasis)

public:
    /// Takes ownership of `cause` (may be null). Throws nothing but what an exhausted memory
    /// gives (std::bad_alloc); `cause` then stays the caller's.
    ZelEhBasis(const char* module, const char* className, const char* signature, const char* text,
               unsigned long errorNo, unsigned long value1, unsigned long value2, CException* cause,
               int causeFlag, unsigned long extra, int flag);
    ~ZelEhBasis() override;

    ZelEhBasis(const ZelEhBasis&) = delete;
    ZelEhBasis& operator=(const ZelEhBasis&) = delete;

    /// Null when memory is exhausted; then no constructor runs and `throw new ...` throws a null
    /// pointer.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* p) noexcept;

    // Reading an error

    virtual unsigned long GetErrorNo() const;
    virtual void SetErrorNo(unsigned long errorNo);

    /// Number of the text in the table of whoever raised the error; the error number unless it
    /// was set apart.
    virtual unsigned long GetErrorTextNo() const;
    virtual void SetErrorTextNo(unsigned long textNo);

    /// Name of the source that raised the error, for example "DTLONG".
    const char* GetSourceModule() const;
    /// Name of the class, for example "ZelDtLong".
    const char* GetClassText() const;
    /// The operation, for example "operator+(ZelDtLong&)".
    const char* GetSignature() const;
    /// The message alone, without its origin.
    const char* GetErrorText() const;

    unsigned long GetValue1() const;
    unsigned long GetValue2() const;
    unsigned long GetExtra() const;
    /// 1: whoever raised the error found it; 0: it reports another one that was caught.
    int GetFlag() const;

    /// The framework exception that led to this error, or null. Owned by this error.
    CException* GetCause() const;
    int GetCauseFlag() const;

    /// The error that this one replaced, or null. Owned by this error.
    const ZelEhBasis* GetReplaced() const;

    /// Where the chain of replaced errors began: the error that nothing led to; this error itself
    /// when it replaced none. Never null.
    const ZelEhBasis& GetFirstCause() const;

    /// Makes `replaced` (may be null) the error that this one replaced and takes it over. An error
    /// taken over earlier is deleted. An error cannot replace itself; the call is then ignored.
    void TakeOver(ZelEhBasis* replaced);

    /// The whole story, a line for each error down to the first cause, lines parted by "\r\n":
    /// text, number, source, class and operation. A framework cause has its line too.
    virtual CString GetErrorMessage() const;

    // Reporting

    /// Writes the fields, a line each, then those of the replaced errors.
    virtual void Log(ZelEhLogFile& file) const;

    /// Logs the error if GetLogFileInfos names a file, then shows it.
    virtual void ReportError() const;
    /// ReportError with the run-time class of `object` (may be null) named in the log. A log that
    /// cannot be written leaves as CFileException*, and nothing is shown then.
    virtual void ReportErrorOnObject(const CObject* object) const;
    /// Hands caption and message to the display that ZelEhSetDisplay set.
    virtual void ShowError() const;

    /// Additional text from the resources of the module that GetResourceModulname names; empty
    /// when there is none.
    virtual CString GetErrorTextInfo() const;
    /// The caption from those resources; the name of the run-time class when there is none.
    virtual CString GetCaptionText() const;
    /// The text resource `id` of that module; empty when the module or the resource is missing.
    virtual CString GetResourceEntry(unsigned int id) const;
    /// Whether that module can be opened for its resources.
    virtual bool LoadResourceModule() const;
    /// File that ReportError appends to; empty (the default): none.
    virtual CString GetLogFileInfos() const;
    /// File name of the running program.
    virtual CString GetApplication() const;

    /// Module that holds the text resources; empty in the base.
    virtual const char* GetResourceModulname() const;
    /// Resource numbers of the additional text and of the caption; 0 (none) in the base.
    virtual unsigned int GetResIdForTextInfo() const;
    virtual unsigned int GetResIdForCaption() const;

    /// To be called first by the destructor of every derived class: takes the error off the list
    /// of live errors before its parts go.
    void CheckBeforeDelete() noexcept;

private:
    friend class ZelEhLiveErrors;
    struct Data;

    void LogOne(ZelEhLogFile& file) const;

    Data* m_pData;
    ZelEhBasis* m_pPrevious = nullptr; // neighbours in the list of live errors
    ZelEhBasis* m_pNext = nullptr;
    bool m_bListed = false;
    bool m_bTakenOver = false;
};

/// Shows `text` under `caption` to whoever uses the program.
using ZelEhDisplay = void (*)(const char* caption, const char* text);

/// Sets the display for ZelEhBasis::ShowError and returns the one before. Null restores the
/// standard display, which writes to standard error.
ZELEH_API ZelEhDisplay ZelEhSetDisplay(ZelEhDisplay display);

/// Number of errors made and not yet deleted.
ZELEH_API std::size_t ZelEhCountLiveErrors();

/// Deletes, when it is destroyed, every live error of a class and of those derived from it; errors
/// that were taken over go with those that took them.
/// A library that throws errors keeps one as a static object, so that none of its errors outlives
/// the code of its class.
class ZELEH_API ZelEhDeleteAtTerminate {
public:
    /// `kind` is the run-time class; null means every error of the process.
    explicit ZelEhDeleteAtTerminate(const CRuntimeClass* kind = nullptr);
    ~ZelEhDeleteAtTerminate();

    ZelEhDeleteAtTerminate(const ZelEhDeleteAtTerminate&) = delete;
    ZelEhDeleteAtTerminate& operator=(const ZelEhDeleteAtTerminate&) = delete;

private:
    const CRuntimeClass* m_pKind;
};

/// To be called when an allocation of `size` bytes failed: throws the framework's
/// CMemoryException*. It never returns; the type is that of the runtime's new-handlers.
[[noreturn]] ZELEH_API int ZelEhOrbeckNewHandler(std::size_t size);

#endif
