#include "platform/runtime/wintypes.h"
#include "tests/support/module_loader.h"

void* LoadModule(const char* fileName)
{
    return LoadLibraryA(fileName);
}

bool UnloadModule(void* module)
{
    return FreeLibrary(static_cast<HMODULE>(module)) != FALSE;
}
