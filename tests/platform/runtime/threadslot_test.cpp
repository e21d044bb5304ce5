#include "platform/runtime/threadslot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

std::atomic<void*> handedOver{nullptr};
std::atomic<int> calls{0};

void RememberPointer(void* pointer)
{
    EXPECT_EQ(zelrt::GetThreadPointer(), nullptr);
    handedOver = pointer;
    ++calls;
}

} // namespace

TEST(ThreadSlot, HandsThePointerOverWhenTheThreadEnds)
{
    zelrt::OpenThreadSlot(&RememberPointer);
    int here = 0;
    int there = 0;
    zelrt::SetThreadPointer(&here);

    std::thread([&] {
        EXPECT_EQ(zelrt::GetThreadPointer(), nullptr);
        zelrt::SetThreadPointer(&there);
        EXPECT_EQ(zelrt::GetThreadPointer(), &there);
    }).join();
    EXPECT_EQ(handedOver, &there);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(zelrt::GetThreadPointer(), &here);

    std::thread([] { EXPECT_EQ(zelrt::GetThreadPointer(), nullptr); }).join();
    EXPECT_EQ(calls, 1);

    zelrt::CloseThreadSlot();
    EXPECT_EQ(calls, 1);
}
