#ifndef ZELDT_PLATFORM_FORMATS_ZELFORMATEXCEP_H
#define ZELDT_PLATFORM_FORMATS_ZELFORMATEXCEP_H

#include "../errors/errors.h"
#include "export.h"

/// What ZelFormat throws, as a pointer that the receiver deletes.
///
/// | number | text |
/// |---|---|
/// | 8 | the value lies outside the range of its type |
/// | 11 | the text is longer than the format or the type allows |
/// | 20 | the format has an unknown setting or does not fit the value |
/// | 21 | the text does not follow the format |
///
/// The messages are German, in Latin-1.
class ZELFOMT_API ZelFormatExcep : public ZelEhBasis {
    DECLARE_DYNAMIC(ZelFormatExcep)

public:
    /// The message is that of `errorNo`; empty for a number that is not in the table above.
    ZelFormatExcep(const char* module, const char* className, const char* signature,
                   unsigned long errorNo);
    ~ZelFormatExcep() override;
};

#endif
