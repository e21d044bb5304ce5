#ifndef ZELDT_FOUNDATION_DTPOOL_H
#define ZELDT_FOUNDATION_DTPOOL_H

/// Small blocks for value objects: the state record and the implementation object of each value,
/// and short texts.
///
/// Every thread keeps free lists of blocks of two sizes; taking and returning a block touches only
/// its own list. A block that is freed on another thread joins that thread's list. A list that has
/// grown long hands a batch to a common store, where other threads find it, so memory stays
/// bounded by the blocks in use and a few batches a thread; a thread that ends hands back all.
/// Fresh blocks are carved in order from chunks aligned to cache lines, so the two blocks of a
/// value made by fresh blocks share a line.
///
/// With ZELDT_NO_POOL the blocks come from the global allocation functions, so that sanitizers see
/// each of them. Private to the library.

#include <cstddef>
#include <new>

#ifndef ZELDT_NO_POOL
#include "platform/runtime/threadslot.h"
#endif

namespace zeldt {

#ifndef ZELDT_NO_POOL

/// A block that nobody uses.
struct FreeBlock {
    FreeBlock* next;
    FreeBlock* nextBatch; ///< only in the first block of a batch in the common store
};

/// The free blocks of one size on one thread.
struct FreeList {
    FreeBlock* first;
    std::ptrdiff_t room; ///< how many more blocks it takes

    void Push(void* memory) noexcept
    {
        auto* const block = new (memory) FreeBlock;
        block->next = first;
        first = block;
    }
};

inline constexpr std::size_t kBlockSizes[] = {32, 64};
inline constexpr std::size_t kBlockSizeCount = sizeof kBlockSizes / sizeof kBlockSizes[0];

/// Longest list that a thread keeps to itself, and what it hands over when it grows beyond.
inline constexpr std::ptrdiff_t kMaxListLength = 2048;
inline constexpr std::ptrdiff_t kBatchLength = 256;

struct ThreadCache {
    FreeList lists[kBlockSizeCount];
};

/// The slow ways: the thread has no list yet, its list is empty, or its list is full, which its
/// room below 0 tells.
void* TakeFromStore(std::size_t sizeIndex);
void* TakeFromStoreOrNull(std::size_t sizeIndex) noexcept;
void ReturnToStore(void* block, std::size_t sizeIndex) noexcept;

constexpr std::size_t SizeIndexOf(std::size_t size)
{
    std::size_t index = 0;
    while (index < kBlockSizeCount && kBlockSizes[index] < size)
        ++index;
    return index;
}

/// A block that the thread keeps; null when it has none.
inline void* TakeKeptBlock(std::size_t sizeIndex) noexcept
{
    if (auto* cache = static_cast<ThreadCache*>(zelrt::GetThreadPointer())) {
        FreeList& list = cache->lists[sizeIndex];
        if (FreeBlock* const block = list.first) {
            list.first = block->next;
            ++list.room;
            return block;
        }
    }
    return nullptr;
}

/// A block of kBlockSizes[sizeIndex] bytes.
inline void* TakeBlock(std::size_t sizeIndex)
{
    void* const kept = TakeKeptBlock(sizeIndex);
    return kept != nullptr ? kept : TakeFromStore(sizeIndex);
}

/// The same; null when memory is exhausted.
inline void* TakeBlockOrNull(std::size_t sizeIndex) noexcept
{
    void* const kept = TakeKeptBlock(sizeIndex);
    return kept != nullptr ? kept : TakeFromStoreOrNull(sizeIndex);
}

inline void ReturnBlock(void* memory, std::size_t sizeIndex) noexcept
{
    if (auto* cache = static_cast<ThreadCache*>(zelrt::GetThreadPointer())) {
        FreeList& list = cache->lists[sizeIndex];
        if (--list.room >= 0) {
            list.Push(memory);
            return;
        }
    }
    ReturnToStore(memory, sizeIndex);
}

#endif

/// Base of a class without derived classes whose objects come from the pool. Throws std::bad_alloc
/// when memory is exhausted.
template <typename Object>
class Pooled {
public:
#ifndef ZELDT_NO_POOL
    static void* operator new(std::size_t)
    {
        return TakeBlock(SizeIndex());
    }

    static void operator delete(void* memory) noexcept
    {
        if (memory != nullptr)
            ReturnBlock(memory, SizeIndex());
    }

private:
    static constexpr std::size_t SizeIndex()
    {
        constexpr std::size_t index = SizeIndexOf(sizeof(Object));
        static_assert(index < kBlockSizeCount, "no block is that large");
        return index;
    }
#endif

protected:
    Pooled() = default;
    ~Pooled() = default;
};

} // namespace zeldt

#endif
