#include "tests/support/module_loader.h"
#include "tests/support/used_memory.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// 0 if the library could be loaded and unloaded, else 1 or 2; tells what the system says.
int LoadOnce(const char* fileName)
{
    void* const module = LoadModule(fileName);
    if (module == nullptr) {
        std::puts(LoadError().c_str());
        return 1;
    }
    return UnloadModule(module) ? 0 : 2;
}

} // namespace

/// load_program LIBRARY [TIMES]: loads and unloads the library so many times, once if nothing is
/// said. This program uses none of its siblings, so they come and go with it. Exit code 0 if that
/// worked; 1 when the library cannot be loaded, 2 when it cannot be unloaded, 4 when the memory of
/// the process grows.
int main(int argc, char* argv[])
{
    if (argc < 2 || argc > 3)
        return 3;
    const int times = argc == 3 ? std::atoi(argv[2]) : 1;
    constexpr int kFirst = 100; ///< what the system needs for loading at all
    std::size_t before = 0;
    for (int i = 0; i < times; ++i) {
        if (i == kFirst)
            before = zeltest::UsedMemory();
        if (const int failed = LoadOnce(argv[1]))
            return failed;
    }
    const std::size_t after = zeltest::UsedMemory();
    if (times <= kFirst || after <= before + 32 * 1024)
        return 0;
    std::printf("memory grew from %zu to %zu bytes\n", before, after);
    return 4;
}
