// The checked-in cases: exact answers from another implementation of integers (oracle.py).
#include "tests/gmp/operations.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace vor::test {
namespace {

TEST(Table, EveryCase) {
    std::ifstream file(std::filesystem::path(__FILE__).parent_path() / "cases.txt");
    std::map<std::string, int> count;
    for (std::string line; std::getline(file, line);) {
        ++count[run_case(line)];
        ASSERT_FALSE(::testing::Test::HasFailure());
    }
    for (const auto& [name, operation] : operations())
        EXPECT_GT(count[name], 0) << "no case for " << name;
}

} // namespace
} // namespace vor::test
