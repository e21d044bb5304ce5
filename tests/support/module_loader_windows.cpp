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

void* FindInModule(void* module, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

std::string FileOfModule(void* module)
{
    char name[MAX_PATH] = {};
    GetModuleFileNameA(static_cast<HMODULE>(module), name, MAX_PATH);
    return name;
}

std::string LoadError()
{
    return "error " + std::to_string(GetLastError());
}
