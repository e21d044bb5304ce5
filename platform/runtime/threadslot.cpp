#include "platform/runtime/threadslot.h"

#ifdef _WIN32

namespace zelrt {

namespace {

DWORD endSlotIndex = FLS_OUT_OF_INDEXES;
ThreadEndHandler endHandler = nullptr;

void WINAPI AtThreadEnd(void* pointer)
{
    if (pointer == nullptr)
        return;
    TlsSetValue(threadSlotIndex, nullptr);
    endHandler(pointer);
}

} // namespace

DWORD threadSlotIndex = TLS_OUT_OF_INDEXES;

void OpenThreadSlot(ThreadEndHandler handler) noexcept
{
    endHandler = handler;
    threadSlotIndex = TlsAlloc();
    endSlotIndex = FlsAlloc(&AtThreadEnd);
}

void CloseThreadSlot() noexcept
{
    // Freeing the slot calls the handler for every thread that still has a pointer; none of them
    // is to be handed back then.
    endHandler = [](void*) {};
    FlsFree(endSlotIndex);
    TlsFree(threadSlotIndex);
    threadSlotIndex = TLS_OUT_OF_INDEXES;
}

void SetThreadPointer(void* pointer) noexcept
{
    TlsSetValue(threadSlotIndex, pointer);
    FlsSetValue(endSlotIndex, pointer);
}

} // namespace zelrt

#else

#include <pthread.h>

namespace zelrt {

constinit thread_local void* threadSlotPointer = nullptr;

namespace {

pthread_key_t endKey;
bool hasEndKey = false;
ThreadEndHandler endHandler = nullptr;

void AtThreadEnd(void* pointer)
{
    threadSlotPointer = nullptr;
    endHandler(pointer);
}

} // namespace

void OpenThreadSlot(ThreadEndHandler handler) noexcept
{
    endHandler = handler;
    hasEndKey = pthread_key_create(&endKey, &AtThreadEnd) == 0;
}

void CloseThreadSlot() noexcept
{
    if (hasEndKey)
        pthread_key_delete(endKey);
    threadSlotPointer = nullptr;
}

void SetThreadPointer(void* pointer) noexcept
{
    threadSlotPointer = pointer;
    if (hasEndKey)
        pthread_setspecific(endKey, pointer);
}

} // namespace zelrt

#endif
