// The constants of the Fortran module are those of the C header, by name and value.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>

namespace {

std::map<std::string, int> constants(const std::string& file, const std::regex& line_form) {
    std::ifstream in(std::string(VOR_INCLUDE "/") + file);
    EXPECT_TRUE(in) << file;
    std::map<std::string, int> found;
    std::smatch match;
    for (std::string line; std::getline(in, line);)
        if (std::regex_search(line, match, line_form)) found[match[1]] = std::stoi(match[2]);
    return found;
}

TEST(Constants, OfTheFortranModuleAreThoseOfTheHeader) {
    const auto header =
        constants("vor_dfti.h", std::regex(R"(^\s*(?:#define )?(DFTI_[A-Z_]+) (?:= )?(\d+))"));
    const auto module =
        constants("vor_dfti.f90", std::regex(R"(parameter, public :: (DFTI_[A-Z_]+) = (\d+))"));
    EXPECT_GT(header.size(), 50u);
    EXPECT_EQ(header, module);
}

} // namespace
