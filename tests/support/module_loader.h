#ifndef ZELDT_TESTS_SUPPORT_MODULE_LOADER_H
#define ZELDT_TESTS_SUPPORT_MODULE_LOADER_H

/// Null when the library cannot be loaded.
void* LoadModule(const char* fileName);

/// Whether the library was let go.
bool UnloadModule(void* module);

#endif
