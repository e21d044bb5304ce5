#ifndef ZELDT_PLATFORM_RUNTIME_MODULEENTRY_H
#define ZELDT_PLATFORM_RUNTIME_MODULEENTRY_H

/// The events of a library's life, the same on both targets. A library that takes part compiles
/// moduleentry.cpp as its last source and defines the two functions.
/// Private to this project; not installed.

#include "platform/runtime/wintypes.h"

namespace zelrt {

/// Called when the library has been loaded, after its static objects were made. On Windows false
/// makes the loading fail.
bool OnModuleAttach(HINSTANCE module);

/// Called when the library is about to be unloaded, before its static objects go; at the end of a
/// Linux process that never unloaded it, after they went.
void OnModuleDetach();

} // namespace zelrt

#endif
