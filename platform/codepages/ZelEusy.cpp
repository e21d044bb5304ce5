#include "platform/codepages/ZelEusy.h"

#include "platform/runtime/system.h"

namespace {

using SystemConversion = void (*)(const char* source, char* target) noexcept;

int Convert(const char* source, char* target, SystemConversion convert)
{
    if (source == nullptr || target == nullptr)
        return 0;
    convert(source, target);
    return 1;
}

} // namespace

int ZelEusy_CharToOem(const char* source, char* target)
{
    return Convert(source, target, &zelrt::SystemAnsiToOem);
}

int ZelEusy_OemToChar(const char* source, char* target)
{
    return Convert(source, target, &zelrt::SystemOemToAnsi);
}
