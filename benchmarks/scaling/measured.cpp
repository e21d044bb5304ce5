#include "benchmarks/scaling/measured.h"

#include <cstdio>
#include <cstdlib>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zelbench {

#ifdef _WIN32

int RunMeasured(char**)
{
    std::fputs("zel_scaling: commands are measured on Linux only\n", stderr);
    return EXIT_FAILURE;
}

#else

namespace {

double SecondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

int RunMeasured(char** command)
{
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        std::perror(command[0]);
        _exit(EXIT_FAILURE);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        std::perror("zel_scaling");
        return EXIT_FAILURE;
    }
    std::fprintf(stderr, "%.6f,%.3f\n", SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime),
                 static_cast<double>(usage.ru_maxrss) / 1024);
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

#endif

} // namespace zelbench
