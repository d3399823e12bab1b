// The serial or parallel decision, and the locks.
#include "serv/threads.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

using vor::test::expect_answers;
using vor::test::Folder;

TEST(Decision, ComesFromTheEnvironmentAndIsFrozenAtTheFirstQuestion) {
    const Folder folder;
    folder.write("yes", "vor_serial=yes");
    folder.write("no", "vor_serial=no");
    folder.write("omp", "vor_serial=omp");
    expect_answers(
        folder,
        {
            {"", "in_serial in_serial", "1 1"},
            {"VOR_SERIAL=", "in_serial", "1"},
            {"VOR_SERIAL=YES", "in_serial", "1"},
            {"VOR_SERIAL=yes", "in_serial", "1"},
            {"VOR_SERIAL=NO", "in_serial in_serial", "0 0"},
            {"VOR_SERIAL=Yes", "in_serial", "0"},
            {"VOR_SERIAL=YES ", "in_serial", "0"},
            {"OMP_NUM_THREADS=4", "in_serial", "0"},
            {"OMP_NUM_THREADS=1;VOR_SERIAL=", "in_serial", "0"},
            {"OMP_NUM_THREADS=4;VOR_SERIAL=yes", "in_serial", "1"},
            {"OMP_NUM_THREADS=;omp_num_threads=4", "in_serial", "1"},
            {"OMP_NUM_THREADS=4;omp_num_threads=", "in_serial", "0"},
            {"omp_num_threads=4", "in_serial", "0"},

            {"", "set_parallel set_serial in_serial", "0 0 1"},
            {"", "in_serial set_parallel in_serial getenv VOR_SERIAL", "1 0 1 NO"},
            {"VOR_SERIAL=NO", "in_serial set_serial in_serial getenv VOR_SERIAL", "0 0 0 YES"},
            {"VOR_SERIAL=mine", "set_serial getenv VOR_SERIAL in_serial", "0 YES 1"},
            {"", "in_serial setenv OMP_NUM_THREADS 2 in_serial", "1 1"},
            {"VOR_CFG_FILE=@/no", "in_serial lsame in_serial getenv VOR_SERIAL", "1 1 NO"},
            // The file has the last word until the question is asked.
            {"VOR_CFG_FILE=@/no", "lsame set_serial lsame in_serial", "0 0"},
            {"VOR_CFG_FILE=@/no", "lsame set_serial in_serial", "0 1"},
            {"VOR_CFG_FILE=@/yes;OMP_NUM_THREADS=2", "lsame in_serial", "1"},
            {"VOR_CFG_FILE=@/omp;OMP_NUM_THREADS=2", "lsame in_serial", "0"},
        });
}

TEST(ThreadId, IsThatOfTheThread) {
    const auto own = [] { return VOR_ThreadID() == static_cast<unsigned>(pthread_self()); };
    bool other = false;
    std::thread([&] { other = own(); }).join();
    EXPECT_TRUE(own() && other);
}

// Two locks: holding both at once would not return if they were one. Each keeps threads apart.
TEST(Locks, KeepThreadsApartAndAreTwo) {
    vor_serv_lock();
    vor_serv_dft_lock();
    vor_serv_dft_unlock();
    vor_serv_unlock();
    const std::pair<void (*)(), void (*)()> locks[] = {{vor_serv_lock, vor_serv_unlock},
                                                       {vor_serv_dft_lock, vor_serv_dft_unlock}};
    for (const auto& pair : locks) {
        constexpr int kRounds = 300;
        volatile int count = 0;
        const auto work = [&] {
            for (int i = 0; i < kRounds; ++i) {
                pair.first();
                const int seen = count;
                std::this_thread::yield(); // a chance for the other one to come in
                count = seen + 1;
                pair.second();
            }
        };
        std::thread a(work), b(work);
        a.join();
        b.join();
        EXPECT_EQ(count, 2 * kRounds);
    }
}

// A child finds no lock held, however busy the parent's other threads were, and stays on one thread: its
// OpenMP runtime would wait for threads that are not there.
TEST(Fork, ChildrenGoOnAlone) {
    const Folder folder;
    expect_answers(folder, {{"", "hammer forks 50", "50"},
                            {"OMP_NUM_THREADS=2", "in_serial fork in_serial", "0 1"},
                            {"OMP_NUM_THREADS=2", "fork in_serial", "0"}});
    const std::string twice = vor::test::probe("products 37f 1f80 products 37f 1f80", {}, "/");
    EXPECT_EQ(vor::test::probe("products 37f 1f80 fork products 37f 1f80", {"OMP_NUM_THREADS=2"}),
              twice);
}

// The threads of a team compute as the caller's thread does: extended and double precision, rounding to
// the nearest and upward, denormals kept and flushed to zero.
TEST(Teams, ComputeUnderTheWordsOfTheCaller) {
    std::vector<std::string> seen;
    for (const std::string words : {"37f 1f80", "27f 1f80", "b7f 5f80", "37f 9f80"}) {
        // Threads begin with the words of the one that starts them: a first product starts them all.
        const std::string commands = "products 37f 1f80 products " + words;
        const std::string alone = vor::test::probe(commands);
        for (const std::string threads : {"2", "3"})
            EXPECT_EQ(vor::test::probe(commands, {"OMP_NUM_THREADS=" + threads}), alone)
                << words << ", " << threads << " threads";
        EXPECT_EQ(std::count(seen.begin(), seen.end(), alone), 0) << words << " make no difference";
        seen.push_back(alone);
    }
}
