// The checked-in cases: exact answers from another implementation of integers (oracle.py).
#include "tests/gmp/operations.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace vor::test {

namespace {

std::string digests(const Ints& values) {
    std::string text;
    for (const Int& value : values) text += (text.empty() ? "" : " ") + value.digest();
    return text;
}

TEST(Table, EveryCase) {
    std::ifstream file(std::filesystem::path(__FILE__).parent_path() / "cases.txt");
    std::string line, word;
    std::map<std::string, int> count;
    while (std::getline(file, line)) {
        SCOPED_TRACE(line.substr(0, 300));
        const size_t equals = line.find(" = ");
        std::istringstream question(line.substr(0, equals));
        std::string name;
        question >> name;
        Ints operands;
        while (question >> word) operands.emplace_back(word);
        const auto operation = operations().find(name);
        ASSERT_TRUE(operation != operations().end());
        ASSERT_EQ(digests(operation->second(operands)), line.substr(equals + 3));
        ASSERT_FALSE(::testing::Test::HasFailure());
        ++count[name];
    }
    for (const auto& [name, operation] : operations())
        EXPECT_GT(count[name], 0) << "no case for " << name;
}

} // namespace
} // namespace vor::test
