// Random operands against another implementation of integers: as many cases of oracle.py as fit into
// VOR_LONG_SECONDS (30 if it is not set), from the seed VOR_LONG_SEED (the time if it is not set),
// which is printed.
#include "tests/gmp/operations.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace vor::test {
namespace {

long setting(const char* name, long otherwise) {
    const char* const text = std::getenv(name);
    return text ? std::atol(text) : otherwise;
}

TEST(Long, RandomOperands) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(setting("VOR_LONG_SECONDS", 30));
    const auto oracle = std::filesystem::path(__FILE__).parent_path().parent_path() / "oracle.py";
    const long seed =
        setting("VOR_LONG_SEED", Clock::now().time_since_epoch().count() % 1000000007);
    const std::string command =
        "exec python3 '" + oracle.string() + "' --random " + std::to_string(seed);
    std::printf("seed %ld\n", seed);
    FILE* const cases = popen(command.c_str(), "r");
    char* line = nullptr;
    size_t room = 0;
    long count = 0;
    for (; Clock::now() < end && !HasFailure(); ++count) {
        const ssize_t n = getline(&line, &room, cases);
        ASSERT_GT(n, 1) << "the oracle has ended";
        run_case(std::string(line, static_cast<size_t>(n - 1)));
    }
    std::free(line);
    pclose(cases);
    std::printf("%ld operations\n", count);
    EXPECT_GT(count, 0);
}

} // namespace
} // namespace vor::test
