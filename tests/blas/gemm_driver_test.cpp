// The threaded matrix-product driver: which strips it cuts, on how many threads, and that together
// they are the whole product. The block engines work behind a record of their calls.
#include "blas/kernel/default/level3/gemm_driver.h"
#include "tests/blas/gemm_engines.h"

#include <cstdlib>
#include <mutex>
#include <thread>
#include <utility>

using namespace vor::test;

namespace {

// The library decides at its first question whether it may use threads: the answer is to be yes.
const int parallel_mode = setenv("VOR_SERIAL", "NO", 1);

struct Call {
    int m, n;
    std::thread::id thread;
};
std::mutex mutex;
std::vector<Call> calls;

std::vector<Call> take_calls() {
    return std::exchange(calls, {});
}

template <class T>
void recorded PARAMS_XGEMM(T) {
    {
        const std::lock_guard lock(mutex);
        calls.push_back({*m, *n, std::this_thread::get_id()});
    }
    engine<T>() ARGS_XGEMM;
}

using Strips = std::vector<std::pair<int, int>>;

Strips sizes(const std::vector<Call>& made) {
    Strips s;
    for (const Call& call : made) s.emplace_back(call.m, call.n);
    std::sort(s.begin(), s.end());
    return s;
}

// The rows and columns of each strip.
struct Cut {
    Size size;
    int threads;
    Strips strips;
};
const Cut kCuts[] = {
    {{16, 16, 16}, 3, {{16, 16}}},
    {{16, 16, 17}, 2, {{16, 8}, {16, 8}}},
    {{17, 17, 1}, 2, {{17, 8}, {17, 9}}},
    {{18, 17, 1}, 2, {{9, 17}, {9, 17}}},
    {{100, 50, 3}, 3, {{33, 50}, {33, 50}, {34, 50}}},
    {{50, 101, 3}, 5, {{50, 20}, {50, 20}, {50, 20}, {50, 20}, {50, 21}}},
    {{100, 50, 3}, 1, {{100, 50}}},
    {{3, 2, 40}, 4, {{0, 2}, {0, 2}, {0, 2}, {3, 2}}},
    {{2, 3, 40}, 4, {{2, 0}, {2, 0}, {2, 0}, {2, 3}}},
    {{40, 30, 0}, 3, {{13, 30}, {13, 30}, {14, 30}}},
    {{0, 40, 40}, 2, {}},
    {{40, 0, 40}, 2, {}},
    {{-1, 40, 40}, 2, {}},
};

template <class T>
class GemmDriver : public testing::Test {
protected:
    void SetUp() override { take_calls(); }
    void TearDown() override {
        omp_set_num_threads(2);
        omp_set_max_active_levels(1);
    }
    // One driven product; its strips.
    Strips drive(const char* letters, Size size) {
        const Size stored = {std::max(0, size.m), size.n, size.k};
        Product<T> p(random_, letters[0], letters[1], stored, element<T>(0.75, 0.5),
                     element<T>(-1.5, 0.25), 3);
        p.size = size;
        p.run(vor::blas::gemm_driver<T, recorded<T>>);
        EXPECT_LE(p.error(), p.bound()) << p.name();
        EXPECT_TRUE(p.c.intact()) << p.name();
        made_ = take_calls();
        return sizes(made_);
    }
    Random random_{7};
    std::vector<Call> made_;
};
TYPED_TEST_SUITE(GemmDriver, AllTypes);

TYPED_TEST(GemmDriver, CutsTheLongerSideOfC) {
    for (const Cut& cut : kCuts)
        for (const char* letters : {"NN", "nt", "Cn", "tT", "Tc", "cC"}) {
            omp_set_num_threads(cut.threads);
            EXPECT_EQ(this->drive(letters, cut.size), cut.strips) << letters;
        }
}

// What the runtime makes of the loop is its own business: one thread gives the same strips.
TYPED_TEST(GemmDriver, RunsItsStripsWithoutATeam) {
    omp_set_num_threads(3);
    omp_set_max_active_levels(0);
    EXPECT_EQ(this->drive("NT", {50, 40, 5}), (Strips{{16, 40}, {16, 40}, {18, 40}}));
    for (const Call& call : this->made_) EXPECT_EQ(call.thread, std::this_thread::get_id());
}

TYPED_TEST(GemmDriver, NeverForksInsideAParallelRegion) {
    omp_set_num_threads(3);
    omp_set_max_active_levels(4);
    Strips strips;
#pragma omp parallel num_threads(2)
#pragma omp single
    strips = this->drive("TN", {50, 40, 5});
    EXPECT_EQ(strips, (Strips{{50, 40}}));
}

} // namespace
