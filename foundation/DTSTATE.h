#ifndef ZELDT_FOUNDATION_DTSTATE_H
#define ZELDT_FOUNDATION_DTSTATE_H

/// The record that every value object owns. Private to the library.

#include "foundation/DTBASIS.h"
#include "foundation/DTPOOL.h"

#include <cstdint>

class ZelDtBasisState final : public zeldt::Pooled<ZelDtBasisState> {
public:
    ZelDtBasisState(ZelDtWorkingMode workingMode, int isDefined, int isModified)
        : mode(workingMode), defined(isDefined), modified(isModified)
    {}

    std::int32_t mode;
    std::int32_t defined;
    std::int32_t modified;
    const ZelFormat* format = nullptr;
};

#endif
