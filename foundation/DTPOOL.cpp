#include "foundation/DTPOOL.h"

#ifndef ZELDT_NO_POOL

#include "platform/runtime/lock.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <utility>

namespace zeldt {

namespace {

constexpr std::size_t kChunkSize = std::size_t{64} * 1024;
constexpr std::size_t kCacheLine = 64;

struct Chunk {
    Chunk* next;
    void* blocks;
};

/// The cache of a thread and its place in the list of all of them.
struct ListedCache : ThreadCache {
    ListedCache* previous;
    ListedCache* next;
};

/// What all threads share. Trivially constructed and never destroyed, so that it can be used
/// before and after every static object; Close gives back what it can.
struct Store {
    zelrt::Lock lock;
    FreeBlock* batches[kBlockSizeCount]; // lists of batches
    std::ptrdiff_t freeBlocks[kBlockSizeCount];
    std::ptrdiff_t carvedBlocks[kBlockSizeCount];
    Chunk* chunks;
    ListedCache* caches;
    bool closed;
};

constinit Store store{};

std::ptrdiff_t Count(const FreeBlock* block)
{
    std::ptrdiff_t count = 0;
    for (; block != nullptr; block = block->next)
        ++count;
    return count;
}

/// Both need the lock.
void AddBatch(std::size_t index, FreeBlock* first, std::ptrdiff_t count)
{
    first->nextBatch = store.batches[index];
    store.batches[index] = first;
    store.freeBlocks[index] += count;
}

FreeBlock* TakeBatch(std::size_t index)
{
    FreeBlock* const first = store.batches[index];
    if (first == nullptr)
        return nullptr;
    store.batches[index] = first->nextBatch;
    store.freeBlocks[index] -= Count(first);
    return first;
}

/// Makes a chunk, files all but the first batch of it and returns that one; null when memory is
/// exhausted. Needs the lock.
FreeBlock* CarveChunk(std::size_t index)
{
    const std::size_t size = kBlockSizes[index];
    auto* const chunk = static_cast<Chunk*>(std::malloc(sizeof(Chunk)));
    void* const memory = std::malloc(kChunkSize + kCacheLine);
    if (chunk == nullptr || memory == nullptr) {
        std::free(chunk);
        std::free(memory);
        return nullptr;
    }
    store.chunks = new (chunk) Chunk{store.chunks, memory};

    void* aligned = memory;
    std::size_t space = kChunkSize + kCacheLine;
    std::align(kCacheLine, kChunkSize, aligned, space);
    auto* const bytes = static_cast<unsigned char*>(aligned);
    const auto blocks = static_cast<std::ptrdiff_t>(kChunkSize / size);
    store.carvedBlocks[index] += blocks;
    // From the end, so that each batch lists its blocks in ascending order and the batch with the
    // lowest addresses comes first.
    for (std::ptrdiff_t end = blocks; end != 0; end -= kBatchLength) {
        FreeBlock* first = nullptr;
        for (std::ptrdiff_t i = end; i != end - kBatchLength; --i)
            first = new (bytes + static_cast<std::size_t>(i - 1) * size) FreeBlock{first, nullptr};
        AddBatch(index, first, kBatchLength);
    }
    return TakeBatch(index);
}
static_assert(kChunkSize / kBlockSizes[0] % std::size_t{kBatchLength} == 0);
static_assert(kChunkSize / kBlockSizes[1] % std::size_t{kBatchLength} == 0);

/// The cache of the calling thread, made if need be; null after the end of the library or when
/// memory is exhausted.
ThreadCache* CacheOfThread()
{
    if (void* const known = zelrt::GetThreadPointer())
        return static_cast<ThreadCache*>(known);
    const std::lock_guard guard(store.lock);
    if (store.closed)
        return nullptr;
    auto* const cache = static_cast<ListedCache*>(std::calloc(1, sizeof(ListedCache)));
    if (cache == nullptr)
        return nullptr;
    for (FreeList& list : cache->lists)
        list.room = kMaxListLength;
    cache->next = store.caches;
    if (store.caches != nullptr)
        store.caches->previous = cache;
    store.caches = cache;
    zelrt::SetThreadPointer(static_cast<ThreadCache*>(cache));
    return cache;
}

/// Hands all blocks of a cache to the store and deletes the cache. Needs the lock.
void Dissolve(ListedCache* cache)
{
    for (std::size_t index = 0; index < kBlockSizeCount; ++index) {
        const FreeList list = cache->lists[index];
        if (list.first != nullptr)
            AddBatch(index, list.first, kMaxListLength - list.room);
    }
    (cache->previous != nullptr ? cache->previous->next : store.caches) = cache->next;
    if (cache->next != nullptr)
        cache->next->previous = cache->previous;
    std::free(cache);
}

void AtThreadEnd(void* pointer)
{
    const std::lock_guard guard(store.lock);
    Dissolve(static_cast<ListedCache*>(static_cast<ThreadCache*>(pointer)));
}

/// Gives the chunks back when no block is in use any more and no other thread keeps free ones; else
/// all of them stay. Only the calling thread's cache may be touched: others may be at work.
void Close()
{
    auto* const own = static_cast<ThreadCache*>(zelrt::GetThreadPointer());
    zelrt::CloseThreadSlot();
    const std::lock_guard guard(store.lock);
    store.closed = true;
    if (own != nullptr)
        Dissolve(static_cast<ListedCache*>(own));
    if (store.caches != nullptr)
        return;
    if (!std::equal(store.freeBlocks, store.freeBlocks + kBlockSizeCount, store.carvedBlocks))
        return;
    while (Chunk* const chunk = store.chunks) {
        store.chunks = chunk->next;
        std::free(chunk->blocks);
        std::free(chunk);
    }
}

/// Opened before and closed after every other static object of the library.
struct Lifetime {
    Lifetime() { zelrt::OpenThreadSlot(&AtThreadEnd); }
    ~Lifetime() { Close(); }
};
__attribute__((init_priority(101))) const Lifetime lifetime;

} // namespace

[[gnu::noinline]] void* TakeFromStore(std::size_t sizeIndex)
{
    void* const block = TakeFromStoreOrNull(sizeIndex);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

[[gnu::noinline]] void* TakeFromStoreOrNull(std::size_t sizeIndex) noexcept
{
    ThreadCache* const cache = CacheOfThread();
    if (cache == nullptr)
        return ::operator new(kBlockSizes[sizeIndex], std::nothrow);
    FreeBlock* batch = nullptr;
    {
        const std::lock_guard guard(store.lock);
        batch = TakeBatch(sizeIndex);
        if (batch == nullptr)
            batch = CarveChunk(sizeIndex);
    }
    if (batch == nullptr)
        return nullptr;
    cache->lists[sizeIndex] = {batch->next, kMaxListLength - Count(batch->next)};
    return batch;
}

[[gnu::noinline]] void ReturnToStore(void* block, std::size_t sizeIndex) noexcept
{
    ThreadCache* const cache = CacheOfThread();
    if (cache == nullptr) {
        // The library is about to go, or there is no memory for a list of the thread's own.
        auto* const single = new (block) FreeBlock{nullptr, nullptr};
        const std::lock_guard guard(store.lock);
        if (!store.closed)
            AddBatch(sizeIndex, single, 1);
        return;
    }
    FreeList& list = cache->lists[sizeIndex];
    if (list.room < 0) {
        FreeBlock* last = list.first;
        for (std::ptrdiff_t i = 1; i < kBatchLength; ++i)
            last = last->next;
        FreeBlock* const batch = std::exchange(list.first, std::exchange(last->next, nullptr));
        list.room += kBatchLength; // one of them is for this block
        const std::lock_guard guard(store.lock);
        AddBatch(sizeIndex, batch, kBatchLength);
    } else {
        --list.room;
    }
    list.Push(block);
}

} // namespace zeldt

#endif
