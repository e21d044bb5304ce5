/// Loads and unloads a library so many times and prints the microseconds of each, one a line:
///
///     zel_startup LIBRARY TIMES
///
/// Without arguments it does nothing, which shows what starting a program takes.

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
#else
#include <chrono>
#include <dlfcn.h>
#endif

namespace {

#ifdef _WIN32

bool LoadAndUnload(const char* library)
{
    const HMODULE module = LoadLibraryA(library);
    return module != nullptr && FreeLibrary(module) != 0;
}

double Microseconds()
{
    LARGE_INTEGER frequency;
    LARGE_INTEGER count;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return 1e6 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

#else

bool LoadAndUnload(const char* library)
{
    void* const module = dlopen(library, RTLD_NOW);
    return module != nullptr && dlclose(module) == 0;
}

double Microseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::micro>(now).count();
}

#endif

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1)
        return EXIT_SUCCESS;
    if (argc != 3) {
        std::fputs("zel_startup LIBRARY TIMES\n", stderr);
        return EXIT_FAILURE;
    }
    for (long left = std::strtol(argv[2], nullptr, 10); left > 0; --left) {
        const double begin = Microseconds();
        if (!LoadAndUnload(argv[1])) {
            std::fprintf(stderr, "zel_startup: %s cannot be loaded\n", argv[1]);
            return EXIT_FAILURE;
        }
        std::printf("%.1f\n", Microseconds() - begin);
    }
    return EXIT_SUCCESS;
}
