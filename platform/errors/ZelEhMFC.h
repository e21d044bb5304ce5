#ifndef ZELDT_PLATFORM_ERRORS_ZELEHMFC_H
#define ZELDT_PLATFORM_ERRORS_ZELEHMFC_H

#include "ZelEhBasis.h"

/// A framework exception as an error of this family, for code that handles one kind only.
/// Error number 0; the text is the exception's own message.
class ZELEH_API ZelEhMFC : public ZelEhBasis {
    DECLARE_DYNAMIC(ZelEhMFC)

public:
    /// Takes ownership of `cause` (may be null; the text is then empty).
    ZelEhMFC(CException* cause, const char* module, const char* className, const char* signature);
    ~ZelEhMFC() override;
};

#endif
