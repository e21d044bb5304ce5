#ifndef ZELDT_TESTS_PLATFORM_FRAMEWORK_STRING_TESTING_H
#define ZELDT_TESTS_PLATFORM_FRAMEWORK_STRING_TESTING_H

/// What the tests of texts use.

#include "platform/framework/fwstring.h"

#include <gtest/gtest.h>

#include <string>

/// The text with its length; checks the final NUL on the way.
inline std::string Text(const CString& text)
{
    EXPECT_EQ(text.GetString()[text.GetLength()], '\0');
    EXPECT_GE(text.GetAllocLength(), text.GetLength());
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

inline CString Make(const std::string& text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

/// A text with NUL bytes inside and at its end.
inline const std::string kEmbedded("a\0b\0", 4);

#endif
