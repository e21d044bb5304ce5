#ifndef ZELDT_PLATFORM_FRAMEWORK_FWBLOCKS_H
#define ZELDT_PLATFORM_FRAMEWORK_FWBLOCKS_H

/// Memory for texts. Short texts come and go with every call, so each thread keeps some of the
/// small blocks that it gives back and takes them again first; all others, and what a thread has
/// when it ends, go to malloc. A block that is given back on another thread stays there. With
/// ZELDT_NO_POOL none is kept, so that sanitizers see each of them.
/// Private to the framework.

#include <cstddef>

namespace zelfw {

/// A block of `size` bytes; null when memory is exhausted.
void* TakeBlock(std::size_t size) noexcept;

/// Gives a block back; `size` is the one that it was taken with.
void ReturnBlock(void* block, std::size_t size) noexcept;

} // namespace zelfw

#endif
