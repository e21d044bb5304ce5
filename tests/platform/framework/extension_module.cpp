// A library that brings a class along as an extension module.

#include "platform/framework/framework.h"

class CFromExtension : public CObject {
    DECLARE_SERIAL(CFromExtension)
};

IMPLEMENT_SERIAL(CFromExtension, CObject, 1)

namespace {

AFX_EXTENSION_MODULE extensionModule = {FALSE, nullptr};

/// Attaches the module when the library is loaded and detaches it when it goes.
struct Attachment {
    Attachment()
    {
        if (AfxInitExtensionModule(extensionModule, nullptr))
            new CDynLinkLibrary(extensionModule);
    }
    ~Attachment() { AfxTermExtensionModule(extensionModule); }
};

const Attachment attachment;

} // namespace

/// Constructed after the module was attached.
class CLateFromExtension : public CFromExtension {
    DECLARE_DYNCREATE(CLateFromExtension)
};

IMPLEMENT_DYNCREATE(CLateFromExtension, CFromExtension)
