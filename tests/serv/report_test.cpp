// Error reports: every form of the line, and who receives it.
#include "tests/common/child.h"

#include <gtest/gtest.h>

extern "C" const char* named_errors[2];

using vor::test::Outcome;
using vor::test::run;

TEST(Report, Forms) {
    const char kWrong[] = "VOR ERROR : Parameter ", kEntry[] = " was incorrect on entry to ";
    const char kCondition[] = "VOR INTERNAL ERROR : Condition ", kIn[] = " detected in function ";
    const struct {
        std::string name, length, code, line; // length empty: the C-level report
    } cases[] = {
        {"DGEMM ", "6", "8", std::string(kWrong) + "8" + kEntry + "DGEMM "},
        {"DGEMMxx", "5", "1", std::string(kWrong) + "1" + kEntry + "DGEMM"},
        {"VOR_DCOOTRSV", "12", "3", std::string(kWrong) + "3" + kEntry + "VOR_DCOOTRSV"},
        {"ABCDEFGHIJKLM", "13", "2", std::string(kWrong) + "2" + kEntry + "ABCDEFGHIJKL"},
        {"ABCDEFGHIJKLMNOP", "16", "2", std::string(kWrong) + "2" + kEntry + "ABCDEFGHIJKL"},
        {"DGEMM", "0", "2", std::string(kWrong) + "2" + kEntry},
        {"DGEMM", "5", "12", std::string(kWrong) + "12" + kEntry + "DGEMM"},
        {"F", "1", "999", std::string(kWrong) + "999" + kEntry + "F"},
        {"F", "1", "1000", "VOR INTERNAL ERROR : Not enough work memory in function F"},
        {"F", "1", "1001", "VOR ERROR : Incompatible optional parameters on entry to F"},
        {"F", "1", "1002", std::string(kWrong) + "1002" + kEntry + "F"},
        {"F", "1", "2147483647", std::string(kWrong) + "2147483647" + kEntry + "F"},
        {"CFFT2DC", "7", "0", std::string(kCondition) + "0" + kIn + "CFFT2DC"},
        {"F", "1", "-5", std::string(kCondition) + "5" + kIn + "F"},
        {"F", "1", "-1000", std::string(kCondition) + "1000" + kIn + "F"},
        {"cblas_dgemv", "", "7", std::string(kWrong) + "7" + kEntry + "cblas_dgemv"},
        {"cblas_zsyr2kxx", "", "9", std::string(kWrong) + "9" + kEntry + "cblas_zsyr2k"},
        {"cblas_dgemv", "", "-1", std::string(kCondition) + "1" + kIn + "cblas_dgemv"},
    };
    for (const auto& c : cases) {
        const Outcome o = c.length.empty() ? run({VOR_PROBE, "cblas_xerbla", c.name, c.code})
                                           : run({VOR_PROBE, "xerbla", c.name, c.length, c.code});
        EXPECT_EQ(o.err, c.line + "\n");
        EXPECT_EQ(o.out, "");
        EXPECT_EQ(o.status, 0);
    }
    EXPECT_STREQ(named_errors[0], "VOR INTERNAL ERROR : Not enough work memory in function ");
    EXPECT_STREQ(named_errors[1], "VOR ERROR : Incompatible optional parameters on entry to ");
}

TEST(Report, EveryFailingCallPrintsAgain) {
    const Outcome o = run({VOR_PROBE, "xerbla", "F", "1", "1", "xerbla", "F", "1", "1"});
    EXPECT_EQ(o.err, "VOR ERROR : Parameter 1 was incorrect on entry to F\n"
                     "VOR ERROR : Parameter 1 was incorrect on entry to F\n");
}

TEST(Interposition, OnlyTheReportsGoToTheProgram) {
    const Outcome o = run({VOR_INTERPOSER});
    EXPECT_EQ(o.out, "report cblas_zsyr2k 9\nlsame -1\nilaenv 6\nin_serial 1\n");
    EXPECT_EQ(o.err, "");
    EXPECT_EQ(o.status, 0);
}
