#include "platform/framework/fwargument.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using zelfw::TextArgument;

std::string Bytes(const CString& text)
{
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

CString Kept(const CString& text)
{
    return text;
}

} // namespace

TEST(TextArgument, OfEveryLengthIsTheText)
{
    for (std::size_t length = 0; length <= 2 * TextArgument::kRoom; ++length) {
        const std::string text(length, 'x');
        EXPECT_EQ(Bytes(TextArgument(text.c_str())), text);
        EXPECT_EQ(Bytes(TextArgument(text.c_str(), length)), text);
    }
}

TEST(TextArgument, CopiesOutliveIt)
{
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, TextArgument::kRoom, TextArgument::kRoom + 1}) {
        const std::string text(length, 'y');
        const CString kept = Kept(TextArgument(text.c_str()));
        CString assigned("before");
        assigned = TextArgument(text.c_str());
        EXPECT_EQ(Bytes(kept), text);
        EXPECT_EQ(Bytes(assigned), text);
    }
}

TEST(TextArgument, IsACopyItself)
{
    std::string text = "before";
    const TextArgument argument(text.c_str());
    text = "after";
    EXPECT_EQ(Bytes(argument), "before");
}
