// The matrix-product entries, from the caller's side: threads, checks, settings.
#include "tests/blas/gemm_engines.h"
#include "tests/blas/reports.h"
#include "vor_blas.h"

#include <omp.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace vor::test;

namespace {

// Decided at the library's first question: threads may be used.
const int parallel_mode = setenv("VOR_SERIAL", "NO", 1);

template <class T>
Engine<T>* entry() {
    if constexpr (std::is_same_v<T, float>) return sgemm_;
    if constexpr (std::is_same_v<T, double>) return DGEMM;
    if constexpr (std::is_same_v<T, vor::cfloat>) return cgemm;
    if constexpr (std::is_same_v<T, vor::cdouble>) return ZGEMM_;
}

template <class T>
Product<T> product(const char* letters, Size size, int gap = 0) {
    Random random(11);
    return {random, letters[0], letters[1], size, element<T>(0.7, -0.3), element<T>(-1.1, 0.2),
            gap};
}

template <class T>
class Gemm : public testing::Test {
protected:
    void TearDown() override { omp_set_num_threads(2); }
};
TYPED_TEST_SUITE(Gemm, AllTypes);

// Strips of rows that begin where a panel begins, and strips of columns: the same bits.
TYPED_TEST(Gemm, GivesTheSameBitsWhereStripsMeetPanels) {
    for (const char* letters : {"NN", "TC"})
        for (const Size& size : {Size{960, 40, 70}, Size{40, 120, 70}}) {
            omp_set_num_threads(1);
            auto one = product<TypeParam>(letters, size);
            one.run(entry<TypeParam>());
            for (const int threads : {2, 3, 5}) {
                omp_set_num_threads(threads);
                auto many = product<TypeParam>(letters, size);
                many.run(entry<TypeParam>());
                EXPECT_TRUE(many.c.same_as(one.c)) << many.name() << " on " << threads;
            }
        }
}

TYPED_TEST(Gemm, ServesManyThreadsAtOnce) {
    auto reference = product<TypeParam>("NT", {70, 80, 90});
    reference.run(engine<TypeParam>());
    std::atomic<int> right = 0;
    std::vector<std::thread> callers;
    for (int t = 0; t < 4; ++t)
        callers.emplace_back([&] {
            omp_set_num_threads(2);
            for (int round = 0; round < 10; ++round) {
                auto p = product<TypeParam>("NT", {70, 80, 90});
                p.run(entry<TypeParam>());
                right += p.error() <= p.bound();
            }
        });
    for (std::thread& caller : callers) caller.join();
    EXPECT_EQ(right, 40);
    int same = 0;
#pragma omp parallel num_threads(3) reduction(+ : same)
    {
        auto p = product<TypeParam>("NT", {70, 80, 90});
        p.run(entry<TypeParam>());
        same = p.c.same_as(reference.c);
    }
    EXPECT_EQ(same, 3);
}

TYPED_TEST(Gemm, LeavesCAloneAfterAReport) {
    Reports reports;
    auto p = product<TypeParam>("NX", {3, 3, 3});
    p.run(entry<TypeParam>());
    const char upper = type_letter<TypeParam>() - ('a' - 'A');
    EXPECT_EQ(reports.take(), (std::vector<Report>{{upper + std::string("GEMM "), 2}}));
    EXPECT_TRUE(p.c.same_as(p.before));
}

// A leading dimension of 1 for two rows: the columns overlap, and the product is that of what lies
// there. Run in a process of its own, for the file is read once.
int unchecked_product(const char* configuration) {
    setenv("VOR_CFG_FILE", configuration, 1);
    Reports reports;
    const double a[] = {1, 2, 3}, b[] = {1, 1, 0, 1}, one = 1, zero = 0;
    double c[4] = {};
    const int two = 2, lda = 1;
    dgemm_("N", "N", &two, &two, &two, &one, a, &lda, b, &two, &zero, c, &two);
    const double want[] = {3, 5, 2, 3};
    return reports.take().empty() && same_bits(c, want, 4) ? 0 : 1;
}

TEST(GemmSettings, ChecksCanBeSwitchedOff) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string path = testing::TempDir() + "vor_gemm_test.cfg";
    for (const bool off : {true, false}) {
        std::FILE* file = std::fopen(path.c_str(), "w");
        ASSERT_NE(file, nullptr);
        std::fprintf(file, "vor_input_check=%s\n", off ? "off" : "on");
        std::fclose(file);
        EXPECT_EXIT(std::exit(unchecked_product(path.c_str())),
                    testing::ExitedWithCode(off ? 0 : 1), "");
    }
    std::remove(path.c_str());
}

} // namespace
