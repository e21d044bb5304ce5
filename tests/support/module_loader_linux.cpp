#include "tests/support/module_loader.h"

#include <cstdlib>
#include <dlfcn.h>
#include <link.h>

void* LoadModule(const char* fileName)
{
    return dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
}

bool UnloadModule(void* module)
{
    return dlclose(module) == 0;
}

void* FindInModule(void* module, const char* name)
{
    return dlsym(module, name);
}

std::string FileOfModule(void* module)
{
    link_map* map = nullptr;
    if (dlinfo(module, RTLD_DI_LINKMAP, &map) != 0)
        return {};
    char* const name = realpath(map->l_name, nullptr);
    const std::string result = name == nullptr ? "" : name;
    std::free(name);
    return result;
}

std::string LoadError()
{
    const char* const text = dlerror();
    return text == nullptr ? "" : text;
}
