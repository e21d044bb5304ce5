// A library that brings a class along and does nothing else about it.

#include "platform/framework/framework.h"

class CFromPlainLibrary : public CObject {
    DECLARE_SERIAL(CFromPlainLibrary)
};

IMPLEMENT_SERIAL(CFromPlainLibrary, CObject, 1)
