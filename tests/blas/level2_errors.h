// The worst error of a family of Level 2 or Level 3 routines, against its bound; said at the end.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace vor::test {

class WorstShare {
public:
    explicit WorstShare(const char* family) : family_(family) {}
    ~WorstShare() {
        if (worst_ > 0) std::printf("    worst error of %s: %.2f of the bound\n", family_, worst_);
    }
    void expect(double error, double bound, const std::string& what) {
        EXPECT_LE(error, bound) << what;
#pragma omp critical(worst_share)
        worst_ = std::max(worst_, error / bound);
    }

private:
    const char* family_;
    double worst_ = 0;
};

} // namespace vor::test
