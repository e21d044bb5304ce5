#ifndef ZELDT_TESTS_SUPPORT_MODULE_LOADER_H
#define ZELDT_TESTS_SUPPORT_MODULE_LOADER_H

#include <string>

/// Null when the library cannot be loaded.
void* LoadModule(const char* fileName);

/// Whether the library was let go.
bool UnloadModule(void* module);

/// The address of what the library exports under that name, null when it is not there.
void* FindInModule(void* module, const char* name);

/// Full name of the file that the library was loaded from, without links.
std::string FileOfModule(void* module);

/// What the system said when LoadModule failed last on this thread.
std::string LoadError();

#endif
