#include "platform/runtime/threadslot.h"

#ifdef _WIN32

namespace zelrt {

DWORD threadSlotIndices[kThreadSlots] = {TLS_OUT_OF_INDEXES, TLS_OUT_OF_INDEXES};

namespace {

/// What is told when a thread ends.
struct ThreadEnd {
    DWORD index = FLS_OUT_OF_INDEXES;
    ThreadEndHandler handler = nullptr;
};

ThreadEnd threadEnds[kThreadSlots];

template <unsigned Slot>
void WINAPI AtThreadEnd(void* pointer)
{
    if (pointer == nullptr)
        return;
    TlsSetValue(threadSlotIndices[Slot], nullptr);
    threadEnds[Slot].handler(pointer);
}

constexpr PFLS_CALLBACK_FUNCTION kAtThreadEnd[kThreadSlots] = {&AtThreadEnd<0>, &AtThreadEnd<1>};

} // namespace

void OpenThreadSlot(ThreadEndHandler handler, unsigned slot) noexcept
{
    threadEnds[slot].handler = handler;
    threadSlotIndices[slot] = TlsAlloc();
    threadEnds[slot].index = FlsAlloc(kAtThreadEnd[slot]);
}

void CloseThreadSlot(unsigned slot) noexcept
{
    // Freeing the slot calls the handler for every thread that still has a pointer; none of them
    // is to be handed back then.
    threadEnds[slot].handler = [](void*) {};
    FlsFree(threadEnds[slot].index);
    TlsFree(threadSlotIndices[slot]);
    threadSlotIndices[slot] = TLS_OUT_OF_INDEXES;
}

void SetThreadPointer(void* pointer, unsigned slot) noexcept
{
    TlsSetValue(threadSlotIndices[slot], pointer);
    FlsSetValue(threadEnds[slot].index, pointer);
}

} // namespace zelrt

#else

#include <pthread.h>

namespace zelrt {

constinit thread_local void* threadSlotPointers[kThreadSlots] = {};

namespace {

/// What is told when a thread ends.
struct ThreadEnd {
    pthread_key_t key = 0;
    bool hasKey = false;
    ThreadEndHandler handler = nullptr;
};

ThreadEnd threadEnds[kThreadSlots];

template <unsigned Slot>
void AtThreadEnd(void* pointer)
{
    threadSlotPointers[Slot] = nullptr;
    threadEnds[Slot].handler(pointer);
}

constexpr ThreadEndHandler kAtThreadEnd[kThreadSlots] = {&AtThreadEnd<0>, &AtThreadEnd<1>};

} // namespace

void OpenThreadSlot(ThreadEndHandler handler, unsigned slot) noexcept
{
    ThreadEnd& end = threadEnds[slot];
    end.handler = handler;
    end.hasKey = pthread_key_create(&end.key, kAtThreadEnd[slot]) == 0;
}

void CloseThreadSlot(unsigned slot) noexcept
{
    if (threadEnds[slot].hasKey)
        pthread_key_delete(threadEnds[slot].key);
    threadSlotPointers[slot] = nullptr;
}

void SetThreadPointer(void* pointer, unsigned slot) noexcept
{
    threadSlotPointers[slot] = pointer;
    if (threadEnds[slot].hasKey)
        pthread_setspecific(threadEnds[slot].key, pointer);
}

} // namespace zelrt

#endif
