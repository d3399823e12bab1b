// The threaded matrix-product driver: which strips it cuts, on how many threads, and that together
// they are the whole product. A plain engine that keeps a record stands in for the block engines.
#include "blas/kernel/default/level3/gemm_driver.h"
#include "tests/common/numbers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <utility>

namespace {

using namespace vor::test;
using vor::cdouble;
using vor::cfloat;

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

cdouble wide(cdouble x) {
    return x;
}
cdouble wide(cfloat x) {
    return {x.re, x.im};
}
cdouble wide(double x) {
    return {x, 0};
}

template <class T>
T narrow(cdouble x) {
    if constexpr (vor::is_complex<T>)
        return {static_cast<vor::real_t<T>>(x.re), static_cast<vor::real_t<T>>(x.im)};
    else
        return static_cast<T>(x.re);
}

cdouble times(cdouble x, cdouble y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}

template <class T>
cdouble element(const char* trans, const T* a, int lda, int i, int j) {
    const bool plain = *trans == 'N' || *trans == 'n';
    cdouble x = wide(plain ? a[i + j * lda] : a[j + i * lda]);
    if (*trans == 'C' || *trans == 'c') x.im = -x.im;
    return x;
}

template <class T>
void plain_engine PARAMS_XGEMM(T) {
    {
        const std::lock_guard lock(mutex);
        calls.push_back({*m, *n, std::this_thread::get_id()});
    }
    for (int j = 0; j < *n; ++j)
        for (int i = 0; i < *m; ++i) {
            cdouble sum = {};
            for (int l = 0; l < *k; ++l) {
                const cdouble term =
                    times(element(transa, a, *lda, i, l), element(transb, b, *ldb, l, j));
                sum = {sum.re + term.re, sum.im + term.im};
            }
            T& out = c[i + j * *ldc];
            const cdouble ab = times(wide(*alpha), sum), bc = times(wide(*beta), wide(out));
            out = narrow<T>({ab.re + bc.re, ab.im + bc.im});
        }
}

// A product with loose leading dimensions and its own data.
template <class T>
struct Product {
    Product(int rows, int columns, int depth, char letter_a, char letter_b)
        : transa(letter_a), transb(letter_b), m(rows), n(columns), k(depth),
          lda(std::max(m, k) + 3), ldb(std::max(k, n) + 2), ldc(m + 1),
          a(static_cast<size_t>(lda) * static_cast<size_t>(std::max(m, k))),
          b(static_cast<size_t>(ldb) * static_cast<size_t>(std::max(k, n))),
          c(static_cast<size_t>(ldc) * static_cast<size_t>(n)) {
        Random random(7);
        a.fill(random);
        b.fill(random);
        c.fill(random);
    }
    template <class F>
    std::vector<T> run(F* product) {
        Guarded<T> out(c.size());
        std::copy(c.begin(), c.end(), out.begin());
        product(&transa, &transb, &m, &n, &k, &alpha, a.data(), &lda, b.data(), &ldb, &beta,
                out.data(), &ldc);
        EXPECT_TRUE(out.intact());
        return out.copy();
    }
    std::vector<T> whole() { return run(plain_engine<T>); }
    std::vector<T> driven() { return run(vor::gemm_driver<T, plain_engine<T>>); }

    char transa, transb;
    int m, n, k, lda, ldb, ldc;
    T alpha = narrow<T>({0.75, 0.5}), beta = narrow<T>({-1.5, 0.25});
    Guarded<T> a, b, c;
};

// The strips of a cut, in the order in which they lie in C; `rows` and `columns` of each.
struct Cut {
    int m, n, k, threads;
    std::vector<std::pair<int, int>> strips;
};
const Cut kCuts[] = {
    {16, 16, 16, 3, {{16, 16}}},
    {16, 16, 17, 2, {{16, 8}, {16, 8}}},
    {17, 17, 1, 2, {{17, 8}, {17, 9}}},
    {18, 17, 1, 2, {{9, 17}, {9, 17}}},
    {100, 50, 3, 3, {{33, 50}, {33, 50}, {34, 50}}},
    {50, 101, 3, 5, {{50, 20}, {50, 20}, {50, 20}, {50, 20}, {50, 21}}},
    {100, 50, 3, 1, {{100, 50}}},
    {3, 2, 40, 4, {{0, 2}, {0, 2}, {0, 2}, {3, 2}}},
    {2, 3, 40, 4, {{2, 0}, {2, 0}, {2, 0}, {2, 3}}},
    {40, 30, 0, 3, {{13, 30}, {13, 30}, {14, 30}}},
    {0, 40, 40, 2, {}},
    {40, 0, 40, 2, {}},
    {-1, 40, 40, 2, {}},
};

std::vector<std::pair<int, int>> sizes(const std::vector<Call>& made) {
    std::vector<std::pair<int, int>> s;
    for (const Call& call : made) s.emplace_back(call.m, call.n);
    std::sort(s.begin(), s.end());
    return s;
}

template <class T>
class GemmDriver : public testing::Test {
protected:
    void SetUp() override { take_calls(); }
    void TearDown() override {
        omp_set_num_threads(2);
        omp_set_max_active_levels(1);
    }
};
using Elements = testing::Types<float, double, cfloat, cdouble>;
TYPED_TEST_SUITE(GemmDriver, Elements);

TYPED_TEST(GemmDriver, CutsTheLongerSideOfC) {
    for (const Cut& cut : kCuts)
        for (const char* letters : {"NN", "nt", "Cn", "tT", "Tc", "cC"}) {
            SCOPED_TRACE(std::to_string(cut.m) + " " + std::to_string(cut.n) + " " +
                         std::to_string(cut.k) + " " + letters);
            omp_set_num_threads(cut.threads);
            if (cut.m < 1 || cut.n < 1) {
                const int ld = 64;
                const TypeParam one = narrow<TypeParam>({1, 0});
                const auto no_data = static_cast<TypeParam*>(nullptr);
                vor::gemm_driver<TypeParam, plain_engine<TypeParam>>(
                    letters, letters + 1, &cut.m, &cut.n, &cut.k, &one, no_data, &ld, no_data, &ld,
                    &one, no_data, &ld);
                EXPECT_TRUE(take_calls().empty());
                continue;
            }
            Product<TypeParam> product(cut.m, cut.n, cut.k, letters[0], letters[1]);
            const auto want = product.whole();
            take_calls();
            const auto got = product.driven();
            EXPECT_TRUE(same_bits(got.data(), want.data(), want.size()));
            EXPECT_EQ(sizes(take_calls()), cut.strips);
        }
}

// What the runtime makes of the loop is its own business: one thread gives the same strips.
TYPED_TEST(GemmDriver, RunsItsStripsWithoutATeam) {
    omp_set_num_threads(3);
    omp_set_max_active_levels(0);
    Product<TypeParam> product(50, 40, 5, 'N', 'T');
    const auto want = product.whole();
    take_calls();
    EXPECT_TRUE(same_bits(product.driven().data(), want.data(), want.size()));
    const auto made = take_calls();
    EXPECT_EQ(made.size(), 3u);
    for (const Call& call : made) EXPECT_EQ(call.thread, std::this_thread::get_id());
}

TYPED_TEST(GemmDriver, NeverForksInsideAParallelRegion) {
    omp_set_num_threads(3);
    omp_set_max_active_levels(4);
    Product<TypeParam> product(50, 40, 5, 'T', 'N');
    const auto want = product.whole();
    take_calls();
    int right = 0;
#pragma omp parallel num_threads(2) reduction(+ : right)
    right = same_bits(product.driven().data(), want.data(), want.size());
    EXPECT_EQ(right, 2);
    EXPECT_EQ(sizes(take_calls()), (std::vector<std::pair<int, int>>{{50, 40}, {50, 40}}));
}

TYPED_TEST(GemmDriver, ServesManyCallersAtOnce) {
    Product<TypeParam> product(40, 50, 5, 'N', 'N');
    const auto want = product.whole();
    std::atomic<int> right = 0;
    std::vector<std::thread> callers;
    for (int t = 0; t < 6; ++t)
        callers.emplace_back([&] {
            omp_set_num_threads(2);
            for (int round = 0; round < 20; ++round)
                right += same_bits(product.driven().data(), want.data(), want.size());
        });
    for (std::thread& caller : callers) caller.join();
    EXPECT_EQ(right, 6 * 20);
}

} // namespace
