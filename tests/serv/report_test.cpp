// Error reports: every form of the line, and who receives it.
#include "tests/common/child.h"

#include <gtest/gtest.h>

extern "C" const char* named_errors[2];

using vor::test::Outcome;
using vor::test::run;

TEST(Report, Forms) {
    const auto wrong = [](std::string code, std::string name) {
        return "VOR ERROR : Parameter " + code + " was incorrect on entry to " + name;
    };
    const auto condition = [](std::string code, std::string name) {
        return "VOR INTERNAL ERROR : Condition " + code + " detected in function " + name;
    };
    const std::string memory = named_errors[0], optional = named_errors[1];
    EXPECT_EQ(memory, "VOR INTERNAL ERROR : Not enough work memory in function ");
    EXPECT_EQ(optional, "VOR ERROR : Incompatible optional parameters on entry to ");
    const struct {
        std::string name, length, code, line; // length empty: the C-level report
    } cases[] = {
        {"DGEMM ", "6", "8", wrong("8", "DGEMM ")},
        {"DGEMMxx", "5", "12", wrong("12", "DGEMM")},
        {"VOR_DCOOTRSV", "12", "3", wrong("3", "VOR_DCOOTRSV")},
        {"ABCDEFGHIJKLM", "13", "2", wrong("2", "ABCDEFGHIJKL")},
        {"DGEMM", "0", "999", wrong("999", "")},
        {"F", "1", "1000", memory + "F"},
        {"F", "1", "1001", optional + "F"},
        {"F", "1", "1002", wrong("1002", "F")},
        {"F", "1", "2147483647", wrong("2147483647", "F")},
        {"CFFT2DC", "7", "0", condition("0", "CFFT2DC")},
        {"F", "1", "-1000", condition("1000", "F")},
        {"cblas_dgemv", "", "7", wrong("7", "cblas_dgemv")},
        {"cblas_zsyr2kxx", "", "9", wrong("9", "cblas_zsyr2k")},
        {"cblas_dgemv", "", "-1", condition("1", "cblas_dgemv")},
    };
    for (const auto& c : cases) {
        std::vector<std::string> report = {"xerbla", c.name, c.length, c.code};
        if (c.length.empty()) report = {"cblas_xerbla", c.name, c.code};
        std::vector<std::string> command = {VOR_PROBE};
        for (int i = 0; i < 2; ++i) // every failing call prints again
            command.insert(command.end(), report.begin(), report.end());
        const Outcome o = run(command);
        EXPECT_EQ(o.err, c.line + "\n" + c.line + "\n");
        EXPECT_EQ(o.out, "");
        EXPECT_EQ(o.status, 0);
    }
}

TEST(Interposition, OnlyTheReportsGoToTheProgramAndMayLeaveByAnException) {
    const Outcome o = run({VOR_INTERPOSER});
    EXPECT_EQ(o.out, "report cblas_zsyr2k 9\nlsame -1\nin_serial 1\nreport DGEMM  4\ncaught 4\n"
                     "report cblas_dgemv 3\ncaught 3\n");
    EXPECT_EQ(o.err, "");
    EXPECT_EQ(o.status, 0);
}
