#include "foundation/DTPOOL.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <thread>
#include <vector>

// This program has a pool of its own: it compiles the source of it.

namespace {

struct Small : zeldt::Pooled<Small> {
    std::uint64_t numbers[3] = {1, 2, 3};
};

struct Large : zeldt::Pooled<Large> {
    std::uint64_t numbers[7] = {1, 2, 3, 4, 5, 6, 7};
};

template <typename Object>
void FillAndFree(std::size_t count)
{
    std::vector<Object*> objects;
    for (std::size_t i = 0; i < count; ++i) {
        objects.push_back(new Object);
        objects.back()->numbers[0] = i;
    }
    EXPECT_EQ(std::set<Object*>(objects.begin(), objects.end()).size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(objects[i]->numbers[0], i);
        EXPECT_EQ(objects[i]->numbers[2], 3U);
        delete objects[i];
    }
}

} // namespace

TEST(Pool, BlocksDoNotOverlap)
{
    FillAndFree<Small>(10000);
    FillAndFree<Large>(10000);
    FillAndFree<Small>(3);
}

TEST(Pool, ANullPointerIsNoBlock)
{
    Small* none = nullptr;
    delete none;
    FillAndFree<Small>(1);
}

TEST(Pool, ThreadsUseItIndependently)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int round = 0; round < 20; ++round) {
                FillAndFree<Small>(5000);
                FillAndFree<Large>(500);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

#ifndef ZELDT_NO_POOL

TEST(Pool, ABlockIsReusedAtOnce)
{
    const Small* const first = new Small;
    const void* const place = first;
    delete first;
    const Small* const second = new Small;
    EXPECT_EQ(static_cast<const void*>(second), place);
    delete second;
}

TEST(Pool, FreshPairsShareACacheLine)
{
    // A new thread begins with a fresh batch, or with one that another thread returned whole.
    std::thread([] {
        std::vector<Small*> blocks;
        for (int i = 0; i < 64; ++i)
            blocks.push_back(new Small);
        int pairs = 0;
        for (std::size_t i = 0; i + 1 < blocks.size(); i += 2) {
            const auto line = [](const Small* p) {
                return reinterpret_cast<std::uintptr_t>(p) / 64;
            };
            pairs += line(blocks[i]) == line(blocks[i + 1]);
        }
        EXPECT_GE(pairs, 1);
        for (const Small* block : blocks)
            delete block;
    }).join();
}

TEST(Pool, MemoryStaysBoundedWhenOneThreadMakesAndAnotherFrees)
{
    // Every block that one thread made is freed on another one that makes none. What it frees has
    // to find its way back: the addresses in use stay few.
    std::set<const void*> addresses;
    for (int round = 0; round < 100; ++round) {
        std::vector<Small*> blocks;
        for (int i = 0; i < 4000; ++i) {
            blocks.push_back(new Small);
            addresses.insert(blocks.back());
        }
        std::thread([&blocks] {
            for (const Small* block : blocks)
                delete block;
        }).join();
    }
    EXPECT_LT(addresses.size(), 4 * 4000U);
}

TEST(Pool, ALongLivedThreadHandsBackWhatItFrees)
{
    std::vector<Small*> blocks;
    for (int i = 0; i < 100000; ++i)
        blocks.push_back(new Small);
    const std::set<const void*> before(blocks.begin(), blocks.end());
    for (const Small* block : blocks)
        delete block;
    // Another thread finds most of them while this one lives on.
    std::size_t known = 0;
    std::thread([&] {
        std::vector<Small*> found;
        for (int i = 0; i < 50000; ++i) {
            found.push_back(new Small);
            known += before.count(found.back());
        }
        for (const Small* block : found)
            delete block;
    }).join();
    EXPECT_EQ(known, 50000U);
}

#endif
