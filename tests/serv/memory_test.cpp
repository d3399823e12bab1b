// The block cache: what malloc receives, and which block comes back.
#include "serv/memory.h"
#include "tests/common/allocations.h"
#include "vor_service.h"

#include <gtest/gtest.h>

using vor::test::Allocations;

TEST(Memory, ABlockIsReusedByItsSizeAndGrownSize) {
    Allocations allocations;
    void* block = vor_serv_allocate(1000);
    EXPECT_EQ(allocations.last_size(), 1199u); // 1.2 is below 6/5, and nothing is rounded up
    vor_serv_deallocate(block);
    EXPECT_EQ(vor_serv_allocate(1000), block);
    vor_serv_deallocate(block);
    EXPECT_EQ(vor_serv_allocate(1199), block);
    EXPECT_EQ(allocations.calls(), 1);
    vor_serv_deallocate(block);
    VOR_FREEBUFFERS_();
    EXPECT_EQ(allocations.live(), 0);
}
