#include "platform/runtime/moduleentry.h"

#ifdef _WIN32

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        return zelrt::OnModuleAttach(module);
    if (reason == DLL_PROCESS_DETACH)
        zelrt::OnModuleDetach();
    return TRUE;
}

#else

#include <dlfcn.h>

namespace {

/// The address at which this library was loaded.
HINSTANCE ThisModule()
{
    static const char inThisModule = 0;
    Dl_info info{};
    return dladdr(&inThisModule, &info) != 0 ? static_cast<HINSTANCE>(info.dli_fbase) : nullptr;
}

__attribute__((constructor)) void AtLoad()
{
    zelrt::OnModuleAttach(ThisModule());
}

__attribute__((destructor)) void AtUnload()
{
    zelrt::OnModuleDetach();
}

} // namespace

#endif
