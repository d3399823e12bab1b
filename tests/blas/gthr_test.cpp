#include "tests/common/numbers.h"
#include "vor_blas.h"
#include <gtest/gtest.h>
TEST(Gthr, Basics) {
    const int n = 3, indx[] = {5, 1, 5};
    const double y[] = {1, 2, 3, 4, 5};
    vor::test::Guarded<double> x(3);
    dgthr_(&n, y, x.data(), indx);
    EXPECT_EQ(x.copy(), (std::vector<double>{5, 1, 5}));
    EXPECT_TRUE(x.intact());
}
