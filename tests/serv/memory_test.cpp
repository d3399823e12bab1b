// The block cache: what malloc receives, which block comes back, and what is given up when.
#include "serv/memory.h"
#include "tests/common/allocations.h"
#include "tests/common/numbers.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using vor::test::Allocations;
using vor::test::expect_answers;
using vor::test::Folder;
using vor::test::Random;

namespace {

constexpr unsigned kLargest = 40u << 20; // bytes, of a request that is kept
constexpr size_t kSlots = 512;

// Each test starts and ends with an empty cache, and gives back all but what it says is lost.
class Memory : public testing::Test {
protected:
    void TearDown() override {
        give_back();
        VOR_FreeBuffers();
        EXPECT_EQ(allocations.live(), lost);
    }
    void* take(unsigned size) {
        held_.push_back(vor_serv_allocate(size));
        return held_.back();
    }
    void take(size_t count, unsigned size) {
        for (size_t i = 0; i < count; ++i) take(size);
    }
    void give_back(size_t first = 0, size_t last = ~size_t{0}) {
        for (size_t i = first; i < std::min(last, held_.size()); ++i) {
            if (held_[i]) vor_serv_deallocate(held_[i]);
            held_[i] = nullptr;
        }
    }
    const bool emptied_ = (VOR_FreeBuffers(), true);
    Allocations allocations;
    long lost = 0;
    std::vector<void*> held_;
};

} // namespace

TEST_F(Memory, GrowthUpToTheLargestThatIsKept) {
    const std::pair<unsigned, unsigned> cases[] = {
        {1, 1},    {4, 4},      {5, 5},       {6, 7},       {10, 11},
        {99, 118}, {999, 1198}, {1000, 1199}, {1001, 1201}, {kLargest, 50331647},
        {0, 0}};
    take(kLargest + 1);
    EXPECT_EQ(allocations.last_size(), kLargest + 1);
    for (const auto& [asked, taken] : cases) {
        void* block = take(asked);
        EXPECT_EQ(allocations.last_size(), taken);
        const long calls = allocations.calls();
        give_back(1);
        EXPECT_EQ(take(asked), block);
        EXPECT_EQ(allocations.calls(), calls);
        give_back(1);
        vor_freebuffers_();
        lost = taken > 0 ? 0 : 1; // no bytes, nothing to give back
        EXPECT_EQ(allocations.live(), 1 + lost);
    }
    give_back();
    EXPECT_EQ(allocations.live(), lost);
}

TEST_F(Memory, AnExactFitWinsElseTheFirstFit) {
    void* large = take(2000); // 2399 bytes
    void* exact = take(1000); // 1199
    give_back();
    EXPECT_EQ(take(1199), exact);
    EXPECT_EQ(take(1199), large);
    give_back();
    EXPECT_EQ(take(1100), large); // not the tighter one
    EXPECT_EQ(take(1100), exact);
    EXPECT_EQ(allocations.calls(), 2);
    give_back();
    take(2400); // fits neither
    EXPECT_EQ(allocations.calls(), 3);
}

TEST_F(Memory, ABlockReturnsToTheThreadThatTookIt) {
    void* block = take(1000);
    held_.clear();
    void* others = nullptr;
    std::thread([&] {
        vor_serv_deallocate(block);
        others = vor_serv_allocate(1000);
    }).join();
    EXPECT_NE(others, block);
    EXPECT_EQ(take(1000), block);
    EXPECT_EQ(allocations.calls(), 2);
    vor_serv_deallocate(others);
}

// Blocks of 11999999 bytes: thirteen fit the surplus of 156028108 bytes that may stay.
TEST_F(Memory, TheSurplusIsTrimmedAtTheNextAllocation) {
    constexpr unsigned kSize = 10000000;
    take(14, kSize);
    const std::vector<void*> blocks = held_;
    give_back();
    take(kLargest + 1); // not from the cache: trims nothing
    EXPECT_EQ(allocations.live(), 15);
    give_back();
    for (size_t i = 0; i < 13; ++i) EXPECT_EQ(take(kSize), blocks[i]); // the highest is gone
    EXPECT_EQ(allocations.live(), 13);
}

TEST_F(Memory, TheSurplusMayBeTheWholeBudget) {
    // With the last one four blocks have the budget, or one byte more.
    for (const auto& [last, kept] : {std::pair<unsigned, long>{4194306, 4}, {4194307, 3}}) {
        take(3, kLargest); // 50331647 bytes each
        take(last);
        give_back();
        take(1);
        EXPECT_EQ(allocations.live(), kept);
        give_back();
        VOR_FreeBuffers();
    }
}

TEST_F(Memory, CompactionMovesTheHighestBlockIntoTheLowestHole) {
    take(4, kLargest);
    void* lower = take(1000);
    void* upper = take(1000);
    give_back(0, 4);
    take(3, kLargest); // the first gives up the fourth block, whose slot the upper one takes
    give_back(4, 6);
    EXPECT_EQ(take(1100), upper);
    EXPECT_EQ(take(1100), lower);
}

TEST_F(Memory, TheFullTable) {
    const long slots = static_cast<long>(kSlots);
    take(kSlots, 100); // 119 bytes each
    take(100);         // has no slot
    EXPECT_EQ(allocations.last_size(), 119u);
    give_back(kSlots);
    EXPECT_EQ(allocations.live(), slots);

    // A block that is given back is the next to go, the highest first, however small the surplus.
    void* lower = held_[3];
    give_back(3, 4);
    give_back(7, 8);
    EXPECT_EQ(allocations.live(), slots);
    EXPECT_EQ(take(100), lower);
    EXPECT_EQ(allocations.live(), slots - 1);
    take(2, 500); // the last slot again, then none
    EXPECT_EQ(allocations.live(), slots + 1);
    give_back();
    EXPECT_EQ(allocations.live(), slots);
}

TEST_F(Memory, AFailureLeavesTheTableAsItWas) {
    const auto fails = [&](unsigned size) {
        const long live = allocations.live();
        allocations.fail_at(1);
        EXPECT_EQ(vor_serv_allocate(size), nullptr);
        EXPECT_TRUE(allocations.failed());
        EXPECT_EQ(allocations.live(), live);
    };
    void* kept = take(1000);
    give_back();
    fails(2000);
    fails(kLargest + 1);
    EXPECT_EQ(take(1000), kept);
    take(kSlots - 1, 100);
    fails(2000);
    give_back(); // all still have their slots
    EXPECT_EQ(allocations.live(), static_cast<long>(kSlots));
}

// Blocks wander from thread to thread, each filled with its own size throughout.
TEST_F(Memory, ManyThreadsAtOnce) {
    constexpr int kThreads = 8, kRounds = 3000, kExchange = 16;
    std::atomic<unsigned*> exchange[kExchange] = {};
    std::atomic<int> faults{0};
    const auto give = [&](unsigned* block) {
        if (!block) return;
        for (unsigned i = 0; i < block[0]; ++i) faults += block[i] != block[0];
        vor_serv_deallocate(block);
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            Random random(static_cast<uint64_t>(t) + 1);
            for (int i = 0; i < kRounds; ++i) {
                const auto words = static_cast<unsigned>(random.below(500)) + 1;
                auto* block = static_cast<unsigned*>(vor_serv_allocate(4 * words));
                std::fill(block, block + words, words);
                give(exchange[random.below(kExchange)].exchange(block));
            }
        });
    for (auto& thread : threads) thread.join();
    for (auto& block : exchange) give(block.exchange(nullptr));
    EXPECT_EQ(faults, 0);
}

TEST(MemorySettings, BudgetAndCache) {
    // 14 blocks are given back. A thread has 39007027.2 bytes, which keep 3 of them.
    const std::pair<std::string, std::string> kept[] = {
        {"1", "3"},   {"3", "9"}, {"5", "14"},  {"110", "14"}, {"0", "13"},
        {"-3", "13"}, {"", "13"}, {" 2x", "6"}, {"111", "2"}}; // the last wraps at 32 bits, to 34812723
    const Folder folder;
    for (const auto& [threads, blocks] : kept)
        expect_answers(folder, {{"VOR_MM_MAX_THREADS=" + threads, "keep 10000000 14",
                                 "11999999 14 " + blocks}});
    expect_answers(folder,
                   {{"VOR_DISABLE_FAST_MM=", "keep 1000 3 free_held", "1000 0 1 2"},
                    {"VOR_MM_DISABLE=no", "keep 1000 3 free_held", "1000 0 1 2"},
                    {"VOR_MM_NUMA_MODE=1", "keep 10000000 14", "11999999 14 13"},
                    {"", "free_held", "0"},
                    {"", "keep 1000 3 setenv VOR_MM_DISABLE 1 keep 1000 3", "1199 3 3 0 0 0"}});
}
