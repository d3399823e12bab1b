// The serial or parallel decision, and the locks.
#include "serv/threads.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>

using vor::test::Folder;
using vor::test::probe;

TEST(Decision, Environment) {
    const struct {
        const char *omp, *lower_omp, *serial; // null: unset
        const char* answer;
    } cases[] = {
        {nullptr, nullptr, nullptr, "1"},
        {nullptr, nullptr, "", "1"},
        {nullptr, nullptr, "YES", "1"},
        {nullptr, nullptr, "yes", "1"},
        {nullptr, nullptr, "NO", "0"},
        {nullptr, nullptr, "Yes", "0"},
        {nullptr, nullptr, "YES ", "0"},
        {"4", nullptr, nullptr, "0"},
        {"1", nullptr, "", "0"},
        {"none", nullptr, nullptr, "0"},
        {"4", nullptr, "YES", "1"},
        {"4", nullptr, "yes", "1"},
        {"4", nullptr, "Yes", "0"},
        {"4", nullptr, "NO", "0"},
        {"", nullptr, nullptr, "1"},
        {"", "4", nullptr, "1"},
        {"", "4", "x", "0"},
        {nullptr, "4", nullptr, "0"},
        {nullptr, "4", "YES", "1"},
        {nullptr, "", nullptr, "1"},
        {"4", "", nullptr, "0"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> environment;
        const auto set = [&](const char* name, const char* value) {
            if (value) environment.push_back(std::string(name) + "=" + value);
        };
        set("OMP_NUM_THREADS", c.omp);
        set("omp_num_threads", c.lower_omp);
        set("VOR_SERIAL", c.serial);
        EXPECT_EQ(probe("in_serial in_serial", environment), c.answer + std::string(" ") + c.answer)
            << testing::PrintToString(environment);
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

TEST(Locks, KeepThreadsApartAndAreTwo) {
    const struct {
        void (*lock)();
        void (*unlock)();
    } locks[] = {{vor_serv_lock, vor_serv_unlock}, {vor_serv_dft_lock, vor_serv_dft_unlock}};
    for (const auto& l : locks) {
        constexpr int kRounds = 20000;
        volatile int count = 0;
        const auto work = [&] {
            for (int i = 0; i < kRounds; ++i) {
                l.lock();
                count = count + 1;
                l.unlock();
            }
        };
        std::thread a(work), b(work);
        a.join();
        b.join();
        EXPECT_EQ(count, 2 * kRounds);
    }
    vor_serv_lock();
    vor_serv_dft_lock(); // would not return if both were one
    vor_serv_dft_unlock();
    vor_serv_unlock();
}
