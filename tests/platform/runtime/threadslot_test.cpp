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

TEST(ThreadSlot, SlotsAreIndependent)
{
    static std::atomic<void*> ended[zelrt::kThreadSlots];
    zelrt::OpenThreadSlot([](void* pointer) { ended[0] = pointer; }, 0);
    zelrt::OpenThreadSlot([](void* pointer) { ended[1] = pointer; }, 1);
    int first = 0;
    int second = 0;
    std::thread([&] {
        zelrt::SetThreadPointer(&second, 1);
        EXPECT_EQ(zelrt::GetThreadPointer(0), nullptr);
        zelrt::SetThreadPointer(&first, 0);
        EXPECT_EQ(zelrt::GetThreadPointer(0), &first);
        EXPECT_EQ(zelrt::GetThreadPointer(1), &second);
    }).join();
    EXPECT_EQ(ended[0], &first);
    EXPECT_EQ(ended[1], &second);

    zelrt::CloseThreadSlot(0);
    zelrt::SetThreadPointer(&second, 1);
    EXPECT_EQ(zelrt::GetThreadPointer(1), &second);
    zelrt::CloseThreadSlot(1);
    EXPECT_EQ(zelrt::GetThreadPointer(1), nullptr);
}
