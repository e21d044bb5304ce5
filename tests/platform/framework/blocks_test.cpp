#include "platform/framework/fwblocks.h"
#include "tests/support/used_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

// This program has blocks of its own: it compiles the source of them.

namespace {

/// Sizes of texts that are kept, and larger ones.
constexpr std::size_t kMostBytes = 200;

struct Block {
    void* memory;
    std::size_t size;
};

unsigned char FillOf(std::size_t index)
{
    return static_cast<unsigned char>(index % 251 + 1);
}

/// `count` blocks of each size, all bytes written.
std::vector<Block> TakeOfAllSizes(std::size_t count)
{
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t size = 1; size <= kMostBytes; ++size) {
            void* const memory = zelfw::TakeBlock(size);
            EXPECT_NE(memory, nullptr);
            std::memset(memory, FillOf(blocks.size()), size);
            blocks.push_back({memory, size});
        }
    }
    return blocks;
}

void Return(const std::vector<Block>& blocks)
{
    for (const Block& block : blocks)
        zelfw::ReturnBlock(block.memory, block.size);
}

} // namespace

TEST(Blocks, DoNotOverlap)
{
    for (int round = 0; round < 3; ++round) {
        const std::vector<Block> blocks = TakeOfAllSizes(100);
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const std::vector<unsigned char> expected(blocks[i].size, FillOf(i));
            ASSERT_EQ(std::memcmp(blocks[i].memory, expected.data(), blocks[i].size), 0);
        }
        Return(blocks);
    }
}

TEST(Blocks, ManyThreadsHaveTheirOwn)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 20; ++round)
                Return(TakeOfAllSizes(20));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Blocks, OfThreadsThatEndedDoNotAddUp)
{
    const auto takeAndReturn = [](int threads) {
        for (int i = 0; i < threads; ++i)
            std::thread([] { Return(TakeOfAllSizes(3)); }).join();
    };
    takeAndReturn(50);
    const std::size_t before = zeltest::UsedMemory();
    takeAndReturn(1000);
    // Each of them keeps some 8000 bytes while it lives.
    EXPECT_LT(zeltest::UsedMemory(), before + 3'000'000);
}

TEST(Blocks, OfAnotherThreadStayWhereTheyAreReturned)
{
    // One thread takes, the other returns: what that one keeps is bounded.
    const std::size_t before = zeltest::UsedMemory();
    std::thread([] {
        for (int round = 0; round < 300; ++round) {
            std::vector<Block> blocks;
            std::thread([&blocks] { blocks = TakeOfAllSizes(20); }).join();
            Return(blocks);
        }
    }).join();
    EXPECT_LT(zeltest::UsedMemory(), before + 1'000'000);
}

#ifndef ZELDT_NO_POOL

TEST(Blocks, AShortOneIsTakenAgainAtOnce)
{
    for (const std::size_t size : {13U, 24U, 25U, 40U, 72U}) {
        void* const block = zelfw::TakeBlock(size);
        zelfw::ReturnBlock(block, size);
        void* const again = zelfw::TakeBlock(size);
        EXPECT_EQ(again, block) << size;
        zelfw::ReturnBlock(again, size);
    }
}

#endif
