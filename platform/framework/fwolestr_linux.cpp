// The strings of OLE automation for hosts without it. In memory the number of bytes stands in
// front of the units, as the system's own strings have it.

#include "platform/framework/fwole.h"

#include <cstdlib>
#include <cstring>

namespace {

/// Room in front of the units: the count in its last four bytes, the rest for alignment.
constexpr std::size_t kHeader = 8;

char* BlockOf(BSTR string) noexcept
{
    return reinterpret_cast<char*>(string) - kHeader;
}

} // namespace

BSTR SysAllocStringLen(LPCOLESTR text, UINT length) noexcept
{
    constexpr UINT kMaxLength = 0x7FFFFFFF;
    if (length >= kMaxLength)
        return nullptr;
    const std::size_t bytes = std::size_t{length} * sizeof(OLECHAR);
    char* block = static_cast<char*>(std::calloc(1, kHeader + bytes + sizeof(OLECHAR)));
    if (block == nullptr)
        return nullptr;
    const auto byteCount = static_cast<DWORD>(bytes);
    std::memcpy(block + kHeader - sizeof byteCount, &byteCount, sizeof byteCount);
    if (text != nullptr)
        std::memcpy(block + kHeader, text, bytes);
    return reinterpret_cast<BSTR>(block + kHeader);
}

BSTR SysAllocString(LPCOLESTR text) noexcept
{
    if (text == nullptr)
        return nullptr;
    UINT length = 0;
    while (text[length] != 0)
        ++length;
    return SysAllocStringLen(text, length);
}

UINT SysStringLen(BSTR string) noexcept
{
    if (string == nullptr)
        return 0;
    DWORD byteCount;
    std::memcpy(&byteCount, BlockOf(string) + kHeader - sizeof byteCount, sizeof byteCount);
    return byteCount / static_cast<UINT>(sizeof(OLECHAR));
}

void SysFreeString(BSTR string) noexcept
{
    if (string != nullptr)
        std::free(BlockOf(string));
}
