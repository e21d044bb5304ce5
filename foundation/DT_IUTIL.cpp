#include "foundation/DT_IUTIL.h"

#include "foundation/DTGUARD.h"
#include "foundation/DTSORT.h"
#include "platform/codepages/ZelEusy.h"
#include "platform/runtime/oemtables.h"
#include "platform/runtime/system.h"

#include <algorithm>
#include <cstring>

namespace {

using zeldt::ErrorNo;
using zeldt::Operation;

constexpr Operation kAssignMember = {"DT_IUTIL", "Globale Funktionen",
                                     "AssignRecordsetMemberCString(CString,LPCTSTR)"};

/// A table, and the system setting under which the system converts itself.
struct TableConversion {
    const zelrt::ByteMap& map;
    UINT oemCodePage;
    int (*systemConversion)(const char* source, char* target);
};

int ConvertByTable(char* text, const TableConversion& conversion)
{
    if (zelrt::AnsiCodePage() == 1252 && zelrt::OemCodePage() == conversion.oemCodePage)
        return conversion.systemConversion(text, text);
    zelrt::TranslateInPlace(text, std::strlen(text), conversion.map);
    return 1;
}

} // namespace

int ZelDtVglString(const char* a, const char* b, int exact)
{
    if (a == nullptr || b == nullptr)
        return 0;
    if (exact != 0)
        return std::strcmp(a, b) == 0;
    while (*a != '\0' && zelrt::AnsiToUpper(static_cast<unsigned char>(*a)) ==
                             zelrt::AnsiToUpper(static_cast<unsigned char>(*b))) {
        ++a;
        ++b;
    }
    return *a == '\0' && *b == '\0';
}

int ZelDtCompareUsingOrbeckSortOrder(const char* a, const char* b)
{
    if (a == nullptr || b == nullptr)
        return 0;
    return zeldt::CompareInHouseOrder(a, std::strlen(a), b, std::strlen(b));
}

int ZelDtConvertCodePageFkt(char* text, ZelDtCodepageWandlung direction)
{
    if (text == nullptr)
        return 0;
    switch (direction) {
    case ZelDtCpAnsiToOem850:
        return ConvertByTable(text, {zelrt::kAnsiToOem850, 850, &ZelEusy_CharToOem});
    case ZelDtCpAnsiToOem437:
        return ConvertByTable(text, {zelrt::kAnsiToOem437, 437, &ZelEusy_CharToOem});
    case ZelDtCpOem850ToAnsi:
        return ConvertByTable(text, {zelrt::kOem850ToAnsi, 850, &ZelEusy_OemToChar});
    case ZelDtCpOem437ToAnsi:
        return ConvertByTable(text, {zelrt::kOem437ToAnsi, 437, &ZelEusy_OemToChar});
    case ZelDtCpAnsiToOem:
        return ZelEusy_CharToOem(text, text);
    case ZelDtCpOemToAnsi:
        return ZelEusy_OemToChar(text, text);
    }
    return 0;
}

char* ZelDtMemSetTCHAR(char* p, char c, unsigned int n)
{
    if (n != 0)
        std::memset(p, c, n);
    return p;
}

void AssignRecordsetMemberCString(CString& s, const char* text)
{
    if (text == nullptr)
        zeldt::Raise(kAssignMember, ErrorNo::InitialValue);
    zeldt::Guarded(kAssignMember, [&] {
        const int capacity = s.GetAllocLength();
        if (capacity <= 0)
            return;
        const std::size_t limit = static_cast<std::size_t>(capacity) - 1;
        const std::size_t length = strnlen(text, limit);
        char* const buffer = s.GetBuffer(capacity);
        std::memmove(buffer, text, length);
        buffer[length] = '\0';
        s.ReleaseBuffer(-1);
    });
}
