#include <ZelDt.h>

#include "tests/support/used_memory.h"

#include <gtest/gtest.h>

namespace {

/// Lets a constructor fail, its error wrapped once.
void FailOnce()
{
    try {
        ZelDtLong("12x");
        ADD_FAILURE() << "no error";
    } catch (ZelDtExcep* e) {
        EXPECT_EQ(e->GetErrorNo(), 1U);
        EXPECT_EQ(e->GetFirstCause().GetErrorNo(), 5U);
        delete e;
    }
}

} // namespace

TEST(Errors, AMillionOfThemLeaveTheMemoryWhereItWas)
{
    for (int i = 0; i < 1000; ++i)
        FailOnce();
    const std::size_t alive = ZelEhCountLiveErrors();
    const std::size_t before = zeltest::UsedMemory();
    for (int i = 0; i < 1000000; ++i)
        FailOnce();
    EXPECT_EQ(ZelEhCountLiveErrors(), alive);
    EXPECT_LE(zeltest::UsedMemory(), before + 256 * 1024);
}
