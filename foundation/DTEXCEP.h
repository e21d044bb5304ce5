#ifndef ZELDT_FOUNDATION_DTEXCEP_H
#define ZELDT_FOUNDATION_DTEXCEP_H

#include "../platform/errors/errors.h"
#include "export.h"

/// The error that every failing operation of the library throws, as a pointer.
///
/// The receiver owns the object and deletes it:
///
///     try {
///         total += amount;
///     } catch (ZelDtExcep* e) {
///         Show(e->GetErrorMessage());
///         delete e;
///     }
///
/// GetErrorNo() is 0 to 31; GetErrorText() the German text of that number. An operation that failed
/// because something that it called failed throws error 1 ("Default-Catch / Folgefehler") under its
/// own name; GetReplaced() then leads to the error below, GetFirstCause() to the first one, and
/// GetCause() to a framework exception.
///
/// When memory does not even suffice for the error, a null pointer is thrown.
class ZELDT_API ZelDtExcep : public ZelEhBasis {
    DECLARE_DYNAMIC(ZelDtExcep)

public:
    /// An error with the text and the two further values of the row `errorNo` of the error table,
    /// without cause (cause flag 1). A number above 31 takes the text of number 0.
    ZelDtExcep(const char* module, const char* className, const char* signature,
               unsigned long errorNo, unsigned long extra, int flag);

    /// The same with `value1` and `value2` in place of the row's further values.
    ZelDtExcep(const char* module, const char* className, const char* signature,
               unsigned long errorNo, unsigned long value1, unsigned long value2,
               unsigned long extra, int flag);

    /// An error that a framework exception led to. Takes over `cause`; both further values are 0.
    ZelDtExcep(CException* cause, int causeFlag, const char* module, const char* className,
               const char* signature, unsigned long errorNo, unsigned long extra, int flag);

    ~ZelDtExcep() override;

    /// Writes the kind of error, then the fields, six blanks indented. Whatever fails in there is
    /// swallowed: a log that cannot be written must not hide the error it was to tell of.
    void Log(ZelEhLogFile& file) const override;

    /// Full file name of this library, recorded when it was loaded.
    const char* GetResourceModulname() const override;
    unsigned int GetResIdForTextInfo() const override;
    unsigned int GetResIdForCaption() const override;
};

#endif
