#include "tests/support/module_loader.h"

#include <dlfcn.h>

void* LoadModule(const char* fileName)
{
    return dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
}

bool UnloadModule(void* module)
{
    return dlclose(module) == 0;
}
