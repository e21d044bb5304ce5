#include "platform/runtime/system.h"

#include <algorithm>
#include <cstring>

#ifndef _WIN32
#include "platform/runtime/oemtables.h"

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

void SystemAnsiToOem(const char* source, char* target) noexcept
{
    CharToOemA(source, target);
}

void SystemOemToAnsi(const char* source, char* target) noexcept
{
    OemToCharA(source, target);
}

std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept
{
    buffer[0] = '\0';
    HMODULE module = nullptr;
    if (address == nullptr || !GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                                      GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                                  static_cast<const char*>(address), &module))
        return 0;
    const DWORD written = GetModuleFileNameA(module, buffer, static_cast<DWORD>(size));
    buffer[size - 1] = '\0';
    return std::min<std::size_t>(written, size - 1);
}

std::size_t ProgramFileName(char* buffer, std::size_t size) noexcept
{
    buffer[0] = '\0';
    const DWORD written = GetModuleFileNameA(nullptr, buffer, static_cast<DWORD>(size));
    buffer[size - 1] = '\0';
    return std::min<std::size_t>(written, size - 1);
}

namespace {

/// A module opened for its resources alone.
class ResourceModule {
public:
    explicit ResourceModule(const char* name) noexcept
        : m_hModule(name == nullptr || *name == '\0'
                        ? nullptr
                        : LoadLibraryExA(name, nullptr, LOAD_LIBRARY_AS_DATAFILE))
    {}
    ~ResourceModule()
    {
        if (m_hModule != nullptr)
            FreeLibrary(m_hModule);
    }
    ResourceModule(const ResourceModule&) = delete;
    ResourceModule& operator=(const ResourceModule&) = delete;

    HMODULE Handle() const noexcept { return m_hModule; }

private:
    HMODULE m_hModule;
};

} // namespace

bool HasResources(const char* moduleName) noexcept
{
    return ResourceModule(moduleName).Handle() != nullptr;
}

void ResourceText(const char* moduleName, UINT id, char* buffer, std::size_t size) noexcept
{
    const ResourceModule module(moduleName);
    const bool found = module.Handle() != nullptr && id != 0 &&
                       LoadStringA(module.Handle(), id, buffer, static_cast<int>(size)) > 0;
    if (!found)
        buffer[0] = '\0';
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

namespace {

void CopyTranslated(const char* source, char* target, const ByteMap& map) noexcept
{
    const std::size_t length = std::strlen(source);
    if (target != source)
        std::memcpy(target, source, length + 1);
    TranslateInPlace(target, length, map);
}

} // namespace

void SystemAnsiToOem(const char* source, char* target) noexcept
{
    CopyTranslated(source, target, OemCodePage() == 850 ? kAnsiToOem850 : kAnsiToOem437);
}

void SystemOemToAnsi(const char* source, char* target) noexcept
{
    CopyTranslated(source, target, OemCodePage() == 850 ? kOem850ToAnsi : kOem437ToAnsi);
}

namespace {

/// Writes the file name with every link on its way followed, as far as that is possible.
std::size_t CopyAbsoluteName(const char* fileName, char* buffer, std::size_t size) noexcept
{
    char* const absolute = realpath(fileName, nullptr);
    const char* const name = absolute != nullptr ? absolute : fileName;
    const std::size_t length = std::min(std::strlen(name), size - 1);
    std::memcpy(buffer, name, length);
    buffer[length] = '\0';
    std::free(absolute);
    return length;
}

} // namespace

std::size_t ModuleFileName(const void* address, char* buffer, std::size_t size) noexcept
{
    buffer[0] = '\0';
    Dl_info info{};
    if (dladdr(address, &info) == 0 || info.dli_fname == nullptr)
        return 0;
    return CopyAbsoluteName(info.dli_fname, buffer, size);
}

std::size_t ProgramFileName(char* buffer, std::size_t size) noexcept
{
    return CopyAbsoluteName("/proc/self/exe", buffer, size);
}

bool HasResources(const char*) noexcept
{
    return false;
}

void ResourceText(const char*, UINT, char* buffer, std::size_t) noexcept
{
    buffer[0] = '\0';
}

#endif

} // namespace zelrt
