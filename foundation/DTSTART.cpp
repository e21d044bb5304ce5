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
    try {
        // Not owned here: the framework disposes of it when the module is terminated.
        new CDynLinkLibrary(extensionModule);
    } catch (const std::bad_alloc&) {
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
