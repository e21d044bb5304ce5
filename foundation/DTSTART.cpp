#include "foundation/DTSTART.h"

#include "platform/framework/framework.h"
#include "platform/runtime/moduleentry.h"
#include "platform/runtime/system.h"

#include <new>

namespace {

AFX_EXTENSION_MODULE extensionModule;

char libraryFileName[zelrt::kMaxModuleFileName];

} // namespace

const char* zeldt::LibraryFileName() noexcept
{
    return libraryFileName;
}

bool zelrt::OnModuleAttach(HINSTANCE module)
{
    if (!AfxInitExtensionModule(extensionModule, module))
        return false;
    // Not owned here: the framework disposes of it when the module is terminated.
    if (new (std::nothrow) CDynLinkLibrary(extensionModule) == nullptr) {
        AfxTermExtensionModule(extensionModule);
        return false;
    }
    ModuleFileName(&extensionModule, libraryFileName, sizeof libraryFileName);
    return true;
}

void zelrt::OnModuleDetach()
{
    AfxTermExtensionModule(extensionModule);
}
