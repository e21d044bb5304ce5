#include "tests/support/used_memory.h"

#include <windows.h>

#include <psapi.h>

std::size_t zeltest::UsedMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}
