#include "foundation/DTEXCEP.h"

#include "foundation/DTERRTAB.h"
#include "foundation/DTSTART.h"

IMPLEMENT_DYNAMIC(ZelDtExcep, ZelEhBasis)

namespace {

/// Errors that callers never deleted go before the code of their class does.
const ZelEhDeleteAtTerminate deleteAtTerminate(RUNTIME_CLASS(ZelDtExcep));

} // namespace

ZelDtExcep::ZelDtExcep(const char* module, const char* className, const char* signature,
                       unsigned long errorNo, unsigned long extra, int flag)
    : ZelDtExcep(module, className, signature, errorNo, zeldt::RowOf(errorNo).value1,
                 zeldt::RowOf(errorNo).value2, extra, flag)
{}

ZelDtExcep::ZelDtExcep(const char* module, const char* className, const char* signature,
                       unsigned long errorNo, unsigned long value1, unsigned long value2,
                       unsigned long extra, int flag)
    : ZelEhBasis(module, className, signature, zeldt::RowOf(errorNo).text, errorNo, value1, value2,
                 nullptr, 1, extra, flag)
{}

ZelDtExcep::ZelDtExcep(CException* cause, int causeFlag, const char* module, const char* className,
                       const char* signature, unsigned long errorNo, unsigned long extra, int flag)
    : ZelEhBasis(module, className, signature, zeldt::RowOf(errorNo).text, errorNo, 0, 0, cause,
                 causeFlag, extra, flag)
{}

ZelDtExcep::~ZelDtExcep()
{
    CheckBeforeDelete();
}

void ZelDtExcep::Log(ZelEhLogFile& file) const
{
    try {
        file << "Fehlerart: ZelDtExcep"
             << "\r\n";
        file.SetBlanks(6);
        ZelEhBasis::Log(file);
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
        // Swallowed by intention.
    }
}

const char* ZelDtExcep::GetResourceModulname() const
{
    return zeldt::LibraryFileName();
}

unsigned int ZelDtExcep::GetResIdForTextInfo() const
{
    return 1;
}

unsigned int ZelDtExcep::GetResIdForCaption() const
{
    return 2;
}
