#include "platform/runtime/system.h"

#include <algorithm>
#include <cstring>

#ifndef _WIN32
#include <cstdlib>
#include <dlfcn.h>
#include <string_view>
#endif

namespace zelrt {

#ifdef _WIN32

UINT AnsiCodePage() noexcept
{
    return GetACP();
}

UINT OemCodePage() noexcept
{
    return GetOEMCP();
}

std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept
{
    buffer[0] = '\0';
    HMODULE module = nullptr;
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<const char*>(address), &module))
        return 0;
    const DWORD written = GetModuleFileNameA(module, buffer, static_cast<DWORD>(size));
    buffer[size - 1] = '\0';
    return std::min<std::size_t>(written, size - 1);
}

#else

namespace {

UINT OemCodePageOfLocale(std::string_view locale) noexcept
{
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    const bool american = name.empty() || name == "C" || name == "POSIX" || name == "en_US";
    return american ? 437U : 850U;
}

UINT OemCodePageOfEnvironment() noexcept
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return OemCodePageOfLocale(value);
    }
    return OemCodePageOfLocale("C");
}

} // namespace

UINT AnsiCodePage() noexcept
{
    return 1252;
}

UINT OemCodePage() noexcept
{
    static const UINT codePage = OemCodePageOfEnvironment();
    return codePage;
}

std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept
{
    buffer[0] = '\0';
    Dl_info info{};
    if (dladdr(address, &info) == 0 || info.dli_fname == nullptr)
        return 0;
    char* absolute = realpath(info.dli_fname, nullptr);
    const char* name = absolute != nullptr ? absolute : info.dli_fname;
    const std::size_t length = std::min(std::strlen(name), size - 1);
    std::memcpy(buffer, name, length);
    buffer[length] = '\0';
    std::free(absolute);
    return length;
}

#endif

} // namespace zelrt
