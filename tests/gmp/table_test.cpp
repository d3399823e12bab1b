// The checked-in cases: exact answers from another implementation of integers (oracle.py).
#include "tests/gmp/operations.h"

#include <gtest/gtest.h>

namespace vor::test {
namespace {

TEST(Table, EveryCase) {
    std::map<std::string, int> count;
    for_each_case([&](const std::string& line) { ++count[run_case(line)]; });
    for (const auto& [name, operation] : operations())
        EXPECT_GT(count[name], 0) << "no case for " << name;
}

} // namespace
} // namespace vor::test
