#ifndef ZELDT_TESTS_SUPPORT_USED_MEMORY_H
#define ZELDT_TESTS_SUPPORT_USED_MEMORY_H

#include <cstddef>

namespace zeltest {

/// Memory that the process has in use, in bytes. Under a sanitizer that keeps freed memory for a
/// while, the memory that the program has allocated and not freed.
std::size_t UsedMemory();

} // namespace zeltest

#endif
