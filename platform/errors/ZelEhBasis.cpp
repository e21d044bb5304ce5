#include "platform/errors/errors.h"

#include "platform/runtime/lock.h"
#include "platform/runtime/system.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <utility>

IMPLEMENT_DYNAMIC(ZelEhBasis, CObject)

struct ZelEhBasis::Data {
    std::string module;
    std::string className;
    std::string signature;
    std::string text;
    unsigned long errorNo;
    unsigned long textNo;
    unsigned long value1;
    unsigned long value2;
    unsigned long extra;
    int flag;
    int causeFlag;
    CException* cause;
    ZelEhBasis* replaced;
};

/// The errors that exist, newest first, so that none is lost when its library goes.
class ZelEhLiveErrors {
public:
    static ZelEhLiveErrors& Instance()
    {
        // Needs no destruction: errors may be deleted after every static object is gone.
        static constinit ZelEhLiveErrors instance;
        return instance;
    }

    void Add(ZelEhBasis& error)
    {
        const std::lock_guard guard(m_lock);
        error.m_pNext = m_pFirst;
        if (m_pFirst != nullptr)
            m_pFirst->m_pPrevious = &error;
        m_pFirst = &error;
        error.m_bListed = true;
        ++m_nCount;
    }

    void Remove(ZelEhBasis& error)
    {
        const std::lock_guard guard(m_lock);
        Unlink(error);
    }

    /// Takes one error of the kind off the list; null when there is none.
    ZelEhBasis* TakeAny(const CRuntimeClass* kind)
    {
        const std::lock_guard guard(m_lock);
        ZelEhBasis* error = m_pFirst;
        const auto isWanted = [kind](const ZelEhBasis& candidate) {
            return !candidate.m_bTakenOver && (kind == nullptr || candidate.IsKindOf(kind));
        };
        while (error != nullptr && !isWanted(*error))
            error = error->m_pNext;
        if (error != nullptr)
            Unlink(*error);
        return error;
    }

    std::size_t Count()
    {
        const std::lock_guard guard(m_lock);
        return m_nCount;
    }

private:
    void Unlink(ZelEhBasis& error)
    {
        if (!error.m_bListed)
            return;
        (error.m_pPrevious != nullptr ? error.m_pPrevious->m_pNext : m_pFirst) = error.m_pNext;
        if (error.m_pNext != nullptr)
            error.m_pNext->m_pPrevious = error.m_pPrevious;
        error.m_pPrevious = nullptr;
        error.m_pNext = nullptr;
        error.m_bListed = false;
        --m_nCount;
    }

    zelrt::Lock m_lock;
    ZelEhBasis* m_pFirst = nullptr;
    std::size_t m_nCount = 0;
};

namespace {

std::string TextOrEmpty(const char* text)
{
    return text != nullptr ? text : "";
}

std::string MessageOf(CException& exception)
{
    char buffer[512];
    if (exception.GetErrorMessage(buffer, sizeof buffer) && buffer[0] != '\0')
        return buffer;
    return exception.GetRuntimeClass()->m_lpszClassName;
}

void DisplayOnStandardError(const char* caption, const char* text)
{
    std::fprintf(stderr, "%s: %s\n", caption, text);
}

std::atomic<ZelEhDisplay> currentDisplay{&DisplayOnStandardError};

} // namespace

ZelEhBasis::ZelEhBasis(const char* module, const char* className, const char* signature,
                       const char* text, unsigned long errorNo, unsigned long value1,
                       unsigned long value2, CException* cause, int causeFlag, unsigned long extra,
                       int flag)
    : m_pData(new Data{TextOrEmpty(module), TextOrEmpty(className), TextOrEmpty(signature),
                       TextOrEmpty(text), errorNo, errorNo, value1, value2, extra, flag, causeFlag,
                       cause, nullptr})
{
    ZelEhLiveErrors::Instance().Add(*this);
}

ZelEhBasis::~ZelEhBasis()
{
    CheckBeforeDelete();
    // One after another: a long chain must not be deleted recursively.
    ZelEhBasis* replaced = std::exchange(m_pData->replaced, nullptr);
    while (replaced != nullptr) {
        ZelEhBasis* const next = std::exchange(replaced->m_pData->replaced, nullptr);
        delete replaced;
        replaced = next;
    }
    if (m_pData->cause != nullptr)
        m_pData->cause->Delete();
    delete m_pData;
}

void* ZelEhBasis::operator new(std::size_t size) noexcept
{
    return std::malloc(size);
}

void ZelEhBasis::operator delete(void* p) noexcept
{
    std::free(p);
}

unsigned long ZelEhBasis::GetErrorNo() const
{
    return m_pData->errorNo;
}

void ZelEhBasis::SetErrorNo(unsigned long errorNo)
{
    m_pData->errorNo = errorNo;
}

unsigned long ZelEhBasis::GetErrorTextNo() const
{
    return m_pData->textNo;
}

void ZelEhBasis::SetErrorTextNo(unsigned long textNo)
{
    m_pData->textNo = textNo;
}

const char* ZelEhBasis::GetSourceModule() const
{
    return m_pData->module.c_str();
}

const char* ZelEhBasis::GetClassText() const
{
    return m_pData->className.c_str();
}

const char* ZelEhBasis::GetSignature() const
{
    return m_pData->signature.c_str();
}

const char* ZelEhBasis::GetErrorText() const
{
    return m_pData->text.c_str();
}

unsigned long ZelEhBasis::GetValue1() const
{
    return m_pData->value1;
}

unsigned long ZelEhBasis::GetValue2() const
{
    return m_pData->value2;
}

unsigned long ZelEhBasis::GetExtra() const
{
    return m_pData->extra;
}

int ZelEhBasis::GetFlag() const
{
    return m_pData->flag;
}

CException* ZelEhBasis::GetCause() const
{
    return m_pData->cause;
}

int ZelEhBasis::GetCauseFlag() const
{
    return m_pData->causeFlag;
}

const ZelEhBasis* ZelEhBasis::GetReplaced() const
{
    return m_pData->replaced;
}

const ZelEhBasis& ZelEhBasis::GetFirstCause() const
{
    const ZelEhBasis* error = this;
    while (error->m_pData->replaced != nullptr)
        error = error->m_pData->replaced;
    return *error;
}

void ZelEhBasis::TakeOver(ZelEhBasis* replaced)
{
    if (replaced == this || replaced == m_pData->replaced)
        return;
    delete std::exchange(m_pData->replaced, replaced);
    if (replaced != nullptr)
        replaced->m_bTakenOver = true;
}

CString ZelEhBasis::GetErrorMessage() const
{
    std::string message;
    for (const ZelEhBasis* error = this; error != nullptr; error = error->m_pData->replaced) {
        const Data& data = *error->m_pData;
        if (error != this)
            message += "\r\n";
        message += data.text + " (" + std::to_string(data.errorNo) + ") " + data.module + " " +
                   data.className + "::" + data.signature;
        if (data.cause != nullptr)
            message += "\r\n" + MessageOf(*data.cause);
    }
    return CString(message.c_str());
}

void ZelEhBasis::Log(ZelEhLogFile& file) const
{
    for (const ZelEhBasis* error = this; error != nullptr; error = error->m_pData->replaced)
        error->LogOne(file);
}

void ZelEhBasis::LogOne(ZelEhLogFile& file) const
{
    const Data& data = *m_pData;
    file << "Modul: " << data.module.c_str() << "\r\n";
    file << "Klasse: " << data.className.c_str() << "\r\n";
    file << "Funktion: " << data.signature.c_str() << "\r\n";
    file << "Fehlernummer: " << data.errorNo << "\r\n";
    file << "Fehlertext: " << data.text.c_str() << "\r\n";
    if (data.cause != nullptr)
        file << "Ursache: " << MessageOf(*data.cause).c_str() << "\r\n";
}

void ZelEhBasis::ReportError() const
{
    ReportErrorOnObject(nullptr);
}

void ZelEhBasis::ReportErrorOnObject(const CObject* object) const
{
    const CString logName = GetLogFileInfos();
    CFile log;
    if (!logName.IsEmpty() &&
        log.Open(logName, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite)) {
        log.SeekToEnd();
        ZelEhLogFile logFile(log);
        if (object != nullptr)
            logFile << "Objekt: " << object->GetRuntimeClass()->m_lpszClassName << "\r\n";
        Log(logFile);
    }
    ShowError();
}

void ZelEhBasis::ShowError() const
{
    currentDisplay.load()(GetCaptionText(), GetErrorMessage());
}

CString ZelEhBasis::GetErrorTextInfo() const
{
    return GetResourceEntry(GetResIdForTextInfo());
}

CString ZelEhBasis::GetCaptionText() const
{
    const CString caption = GetResourceEntry(GetResIdForCaption());
    return caption.IsEmpty() ? CString(GetRuntimeClass()->m_lpszClassName) : caption;
}

CString ZelEhBasis::GetResourceEntry(unsigned int id) const
{
    char buffer[512];
    zelrt::ResourceText(GetResourceModulname(), id, buffer, sizeof buffer);
    return CString(buffer);
}

bool ZelEhBasis::LoadResourceModule() const
{
    return zelrt::HasResources(GetResourceModulname());
}

CString ZelEhBasis::GetLogFileInfos() const
{
    return CString();
}

CString ZelEhBasis::GetApplication() const
{
    char buffer[zelrt::kMaxModuleFileName];
    zelrt::ProgramFileName(buffer, sizeof buffer);
    return CString(buffer);
}

const char* ZelEhBasis::GetResourceModulname() const
{
    return "";
}

unsigned int ZelEhBasis::GetResIdForTextInfo() const
{
    return 0;
}

unsigned int ZelEhBasis::GetResIdForCaption() const
{
    return 0;
}

void ZelEhBasis::CheckBeforeDelete() noexcept
{
    ZelEhLiveErrors::Instance().Remove(*this);
}

ZelEhDisplay ZelEhSetDisplay(ZelEhDisplay display)
{
    return currentDisplay.exchange(display != nullptr ? display : &DisplayOnStandardError);
}

std::size_t ZelEhCountLiveErrors()
{
    return ZelEhLiveErrors::Instance().Count();
}

ZelEhDeleteAtTerminate::ZelEhDeleteAtTerminate(const CRuntimeClass* kind) : m_pKind(kind) {}

ZelEhDeleteAtTerminate::~ZelEhDeleteAtTerminate()
{
    while (ZelEhBasis* error = ZelEhLiveErrors::Instance().TakeAny(m_pKind))
        delete error;
}

int ZelEhOrbeckNewHandler(std::size_t)
{
    AfxThrowMemoryException();
}
