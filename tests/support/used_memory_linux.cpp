#include "tests/support/used_memory.h"

#if defined(__SANITIZE_ADDRESS__)

// From the sanitizer's runtime; its header is not always installed with the compiler.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

std::size_t zeltest::UsedMemory()
{
    return __sanitizer_get_current_allocated_bytes();
}

#else

#include <fstream>
#include <unistd.h>

std::size_t zeltest::UsedMemory()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

#endif
