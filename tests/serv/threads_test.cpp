// The serial or parallel decision, and the locks.
#include "serv/threads.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <atomic>
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

using vor::test::Folder;
using vor::test::probe;

TEST(Decision, Environment) {
    // Settings separated by semicolons, with the answer.
    const std::pair<std::string, const char*> cases[] = {
        {"", "1"},
        {"VOR_SERIAL=", "1"},
        {"VOR_SERIAL=YES", "1"},
        {"VOR_SERIAL=yes", "1"},
        {"VOR_SERIAL=NO", "0"},
        {"VOR_SERIAL=Yes", "0"},
        {"VOR_SERIAL=YES ", "0"},
        {"OMP_NUM_THREADS=4", "0"},
        {"OMP_NUM_THREADS=none", "0"},
        {"OMP_NUM_THREADS=1;VOR_SERIAL=", "0"},
        {"OMP_NUM_THREADS=4;VOR_SERIAL=yes", "1"},
        {"OMP_NUM_THREADS=4;VOR_SERIAL=Yes", "0"},
        {"OMP_NUM_THREADS=;omp_num_threads=4", "1"},
        {"OMP_NUM_THREADS=;omp_num_threads=4;VOR_SERIAL=x", "0"},
        {"OMP_NUM_THREADS=4;omp_num_threads=", "0"},
        {"omp_num_threads=4", "0"},
        {"omp_num_threads=4;VOR_SERIAL=YES", "1"},
        {"omp_num_threads=", "1"},
    };
    for (const auto& [settings, answer] : cases) {
        std::vector<std::string> environment;
        std::istringstream words(settings);
        for (std::string word; std::getline(words, word, ';');) environment.push_back(word);
        EXPECT_EQ(probe("in_serial in_serial", environment), answer + std::string(" ") + answer)
            << settings;
    }
}

TEST(Decision, IsFrozenAtTheFirstQuestion) {
    const Folder folder;
    const std::string yes = "VOR_CFG_FILE=" + folder.write("yes", "vor_serial=yes");
    const std::string no = "VOR_CFG_FILE=" + folder.write("no", "vor_serial=no");
    const std::string omp = "VOR_CFG_FILE=" + folder.write("omp", "vor_serial=omp");
    const struct {
        std::vector<std::string> environment;
        std::string commands, answers;
    } cases[] = {
        {{}, "set_parallel in_serial", "0 0"},
        {{}, "set_parallel set_serial in_serial", "0 0 1"},
        {{}, "in_serial set_parallel in_serial getenv VOR_SERIAL", "1 0 1 NO"},
        {{"VOR_SERIAL=NO"}, "in_serial set_serial in_serial getenv VOR_SERIAL", "0 0 0 YES"},
        {{"VOR_SERIAL=mine"}, "set_serial getenv VOR_SERIAL in_serial", "0 YES 1"},
        {{"OMP_NUM_THREADS=2"}, "set_serial in_serial", "0 1"},
        {{}, "in_serial setenv OMP_NUM_THREADS 2 in_serial", "1 1"},
        {{no}, "lsame in_serial", "0"},
        {{no}, "in_serial lsame in_serial getenv VOR_SERIAL", "1 1 NO"},
        {{no}, "lsame set_serial lsame in_serial", "0 0"}, // the file has the last word
        {{no}, "lsame set_serial in_serial", "0 1"},       // until the question is asked
        {{yes, "OMP_NUM_THREADS=2"}, "lsame in_serial", "1"},
        {{yes, "OMP_NUM_THREADS=2"}, "in_serial lsame in_serial", "0 0"},
        {{omp, "OMP_NUM_THREADS=2"}, "lsame in_serial", "0"},
        {{omp}, "lsame in_serial getenv VOR_SERIAL", "1 unset"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(probe(c.commands, c.environment), c.answers) << c.commands;
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
    for (const auto& [lock, unlock] : locks) {
        constexpr int kRounds = 300;
        std::atomic<int> ready{0};
        volatile int count = 0;
        const auto work = [&, lock = lock, unlock = unlock] {
            for (++ready; ready < 2;) std::this_thread::yield();
            for (int i = 0; i < kRounds; ++i) {
                lock();
                const int seen = count;
                if (i % 3 == 0) std::this_thread::yield(); // a chance for the other one to come in
                count = seen + 1;
                unlock();
            }
        };
        std::thread a(work), b(work);
        a.join();
        b.join();
        EXPECT_EQ(count, 2 * kRounds);
    }
}
