#ifndef ZELDT_PLATFORM_RUNTIME_THREADSLOT_H
#define ZELDT_PLATFORM_RUNTIME_THREADSLOT_H

/// Pointers that each thread has for itself, as cheap to read as the target allows, and a call when
/// a thread ends. Each library that links the runtime has slots of its own, numbered from 0.
/// Private to this project; not installed.

namespace zelrt {

inline constexpr unsigned kThreadSlots = 2;

/// Called on the ending thread with the pointer that the thread had set.
using ThreadEndHandler = void (*)(void* pointer);

/// Opens the slot. To be called once while the library is being loaded.
void OpenThreadSlot(ThreadEndHandler handler, unsigned slot = 0) noexcept;

/// Closes the slot: no handler is called any more, and the calling thread's pointer is null. To be
/// called once while the library is being unloaded.
void CloseThreadSlot(unsigned slot = 0) noexcept;

/// Sets the pointer of the calling thread. One that is not null is handed to the handler when the
/// thread ends; the pointer is null by then.
void SetThreadPointer(void* pointer, unsigned slot = 0) noexcept;

} // namespace zelrt

#ifdef _WIN32

#include "platform/runtime/wintypes.h"

namespace zelrt {

extern DWORD threadSlotIndices[kThreadSlots];

/// The pointer of the calling thread; null before it was set.
inline void* GetThreadPointer(unsigned slot = 0) noexcept
{
    return TlsGetValue(threadSlotIndices[slot]);
}

} // namespace zelrt

#else

namespace zelrt {

extern constinit thread_local void* threadSlotPointers[kThreadSlots]
    __attribute__((tls_model("initial-exec")));

/// The pointer of the calling thread; null before it was set.
inline void* GetThreadPointer(unsigned slot = 0) noexcept
{
    return threadSlotPointers[slot];
}

} // namespace zelrt

#endif

#endif
