#include "platform/framework/fwblocks.h"

#include "platform/runtime/threadslot.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace zelfw {

#ifndef ZELDT_NO_POOL

namespace {

/// The sizes of blocks: those that malloc hands out anyway. The first ones are kept.
constexpr std::size_t kSmallest = 24;
constexpr std::size_t kStep = 16;
constexpr std::size_t kKeptSizes = 4;

/// Blocks of a size that a thread keeps at most.
constexpr std::size_t kMostKept = 64;

/// The thread slot; the first one belongs to the windows.
constexpr unsigned kSlot = 1;

constexpr std::size_t SizeIndex(std::size_t size)
{
    constexpr std::size_t kLeast = kSmallest - kStep + 1; // of the first size
    return (std::max(size, kLeast) - kLeast) / kStep;
}

constexpr std::size_t BlockSize(std::size_t index)
{
    return kSmallest + index * kStep;
}

static_assert(SizeIndex(0) == 0 && SizeIndex(kSmallest) == 0);
static_assert(SizeIndex(kSmallest + 1) == 1 && SizeIndex(kSmallest + kStep) == 1);

/// A block that nobody uses.
struct KeptBlock {
    KeptBlock* next;
};

/// The blocks of one size that a thread keeps.
struct KeptBlocks {
    KeptBlock* first;
    std::size_t count;
};

struct Cache {
    KeptBlocks ofSize[kKeptSizes];
};

constinit bool open = false;

Cache* CacheOfThread() noexcept
{
#ifdef _WIN32
    // Reading the slot resets the system's last error, which dropping a text must not do.
    const DWORD error = GetLastError();
    void* const cache = zelrt::GetThreadPointer(kSlot);
    SetLastError(error);
    return static_cast<Cache*>(cache);
#else
    return static_cast<Cache*>(zelrt::GetThreadPointer(kSlot));
#endif
}

void FreeAll(void* pointer)
{
    auto* const cache = static_cast<Cache*>(pointer);
    for (const KeptBlocks& kept : cache->ofSize) {
        for (KeptBlock* block = kept.first; block != nullptr;)
            std::free(std::exchange(block, block->next));
    }
    std::free(cache);
}

/// A thread's first block makes its cache.
__attribute__((noinline)) Cache* MakeCache() noexcept
{
    if (!open)
        return nullptr;
    auto* const cache = static_cast<Cache*>(std::calloc(1, sizeof(Cache)));
    if (cache != nullptr)
        zelrt::SetThreadPointer(cache, kSlot);
    return cache;
}

/// Opened before and closed after every other static object of the library.
struct Lifetime {
    Lifetime()
    {
        zelrt::OpenThreadSlot(&FreeAll, kSlot);
        open = true;
    }
    ~Lifetime()
    {
        Cache* const cache = CacheOfThread();
        open = false;
        zelrt::CloseThreadSlot(kSlot);
        if (cache != nullptr)
            FreeAll(cache);
    }
};
__attribute__((init_priority(101))) const Lifetime lifetime;

} // namespace

void* TakeBlock(std::size_t size) noexcept
{
    const std::size_t index = SizeIndex(size);
    if (index < kKeptSizes) {
        Cache* const cache = CacheOfThread();
        if (cache != nullptr && cache->ofSize[index].first != nullptr) {
            KeptBlocks& kept = cache->ofSize[index];
            --kept.count;
            return std::exchange(kept.first, kept.first->next);
        }
    }
    return std::malloc(BlockSize(index));
}

void ReturnBlock(void* block, std::size_t size) noexcept
{
    const std::size_t index = SizeIndex(size);
    if (index < kKeptSizes) {
        Cache* cache = CacheOfThread();
        if (cache == nullptr)
            cache = MakeCache();
        if (cache != nullptr && cache->ofSize[index].count < kMostKept) {
            KeptBlocks& kept = cache->ofSize[index];
            kept.first = new (block) KeptBlock{kept.first};
            ++kept.count;
            return;
        }
    }
    std::free(block);
}

#else

void* TakeBlock(std::size_t size) noexcept
{
    return std::malloc(size);
}

void ReturnBlock(void* block, std::size_t) noexcept
{
    std::free(block);
}

#endif

} // namespace zelfw
