#ifndef ZELDT_TESTS_TEXT_CODEPAGE_TESTING_H
#define ZELDT_TESTS_TEXT_CODEPAGE_TESTING_H

/// What SQL texts become in the OEM code pages.

#include "foundation/DT_IUTIL.h"
#include "tests/support/oem_tables.h"

#include <gtest/gtest.h>

#include <string>

namespace zeltest {

inline std::string Converted(std::string text, const UpperHalf& table)
{
    for (char& c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x80)
            c = static_cast<char>(table[code - 0x80]);
    }
    return text;
}

/// The system's OEM code page, told by a character that becomes another near one in each.
inline unsigned int OemCodePage()
{
    char lowQuote[] = "\x84";
    EXPECT_EQ(ZelDtConvertCodePageFkt(lowQuote, ZelDtCpAnsiToOem), 1);
    return lowQuote[0] == '"' ? 850U : 437U;
}

} // namespace zeltest

#endif
