// The post-passes: row groups and their rests, short and long sums, both bit for bit where the order of
// the sum is promised and against a plain sum where it is not.
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_scale.h"
#include "tests/blas/gemm_engines.h"

#include <gtest/gtest.h>

using namespace vor::test;
using vor::cdouble;
using vor::cfloat;

namespace {

template <class T>
struct Post {
    const char* letters;
    void(*run) PARAMS_GEMM_POST(T);
};

// One call; false if the bits differ from element(i, j).
template <class T, class F>
bool matches(Random& random, const Post<T>& post, Size s, F element_of) {
    Product<T> p(random, post.letters[0], post.letters[1], s, random.next<T>(), T(1), 2);
    const Operand<T> a(p.a, p.transa), b(p.b, p.transb);
    Matrix<T> want = p.c;
    want.fill([&](int i, int j) { return element_of(p, a, b, i, j); });
    post.run(&s.m, &s.n, &s.k, &p.alpha, p.a.data(), &p.a.ld(), p.b.data(), &p.b.ld(), p.c.data(),
             &p.c.ld());
    return p.c.same_as(want) && p.c.intact();
}

template <class T>
T extended(const Product<T>& p, const Operand<T>& a, const Operand<T>& b, int i, int j) {
    long double sum = 0;
    for (int l = 0; l < p.size.k; ++l) sum += static_cast<long double>(a(i, l)) * b(l, j);
    return static_cast<T>(sum * p.alpha + p.before(i, j));
}

float single(const Product<float>& p, const Operand<float>& a, const Operand<float>& b, int i,
             int j) {
    float sum = 0;
    for (int l = 0; l < p.size.k; ++l) sum += a(i, l) * b(l, j);
    return sum * p.alpha + p.before(i, j);
}

constexpr int kRows[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 15, 16, 23, 31};
constexpr int kColumns[] = {1, 2, 3, 4, 7};
constexpr int kDepths[] = {1, 2, 3, 4, 7, 8, 10, 11, 15, 16, 33, 64};

template <class F>
void every_size(F check) {
    for (const int m : kRows)
        for (const int n : kColumns)
            for (const int k : kDepths) check(Size{m, n, k});
}

std::string text(const char* letters, Size s) {
    return std::string(letters) + " " + std::to_string(s.m) + " x " + std::to_string(s.n) + " x " +
           std::to_string(s.k);
}

} // namespace

TEST(GemmPost, ExtendedSumsInOrder) {
    Random random(1);
    const Post<double> d[] = {{"NN", vor_blas_dpst_nnk},
                              {"NT", vor_blas_dpst_ntk},
                              {"TN", vor_blas_dpst_tnk},
                              {"TT", vor_blas_dpst_ttk}};
    const Post<double> edge[] = {{"NN", vor_blas_dpst_nnm},
                                 {"NT", vor_blas_dpst_ntm},
                                 {"TN", vor_blas_dpst_tnm},
                                 {"TT", vor_blas_dpst_ttm}};
    const Post<float> s[] = {{"NT", vor_blas_spst_ntk}, {"TT", vor_blas_spst_ttk}};
    every_size([&](Size size) {
        for (const auto& post : d)
            EXPECT_TRUE(matches(random, post, size, extended<double>)) << text(post.letters, size);
        for (const auto& post : s)
            EXPECT_TRUE(matches(random, post, size, extended<float>)) << text(post.letters, size);
        if (size.m > 3 || size.k % 8 != 0) return;
        for (const auto& post : edge)
            EXPECT_TRUE(matches(random, post, size, extended<double>)) << text(post.letters, size);
    });
}

// With A transposed and many steps the sum has lanes: its order depends on an address.
TEST(GemmPost, SingleSums) {
    Random random(2);
    const Post<float> posts[] = {{"NN", vor_blas_spst_nnk}, {"TN", vor_blas_spst_tnk}};
    every_size([&](Size size) {
        for (const auto& post : posts) {
            if (post.letters[0] == 'N' || size.k < 11) {
                EXPECT_TRUE(matches(random, post, size, single)) << text(post.letters, size);
                continue;
            }
            Product<float> p(random, 'T', 'N', size, 0.8f, 1.0f, size.k % 5);
            post.run(&size.m, &size.n, &size.k, &p.alpha, p.a.data(), &p.a.ld(), p.b.data(),
                     &p.b.ld(), p.c.data(), &p.c.ld());
            EXPECT_LE(p.error(), p.bound()) << p.name();
            EXPECT_TRUE(p.c.intact());
        }
    });
}

// The letters that a z post-pass is given do not count; its name does. cgemmpst honours them, and beta.
TEST(GemmPost, ComplexProducts) {
    const struct {
        const char* letters;
        Engine<cdouble>* run;
    } posts[] = {{"NN", vor_blas_zpst_nn}, {"NT", vor_blas_zpst_nt}, {"NC", vor_blas_zpst_nc},
                 {"TN", vor_blas_zpst_tn}, {"TT", vor_blas_zpst_tt}, {"TC", vor_blas_zpst_tc},
                 {"CN", vor_blas_zpst_cn}, {"CT", vor_blas_zpst_ct}, {"CC", vor_blas_zpst_cc}};
    Random random(3);
    every_size([&](Size size) {
        for (const auto& [letters, run] : posts) {
            Product<cdouble> z(random, letters[0], letters[1], size, {0.4, -0.7}, {1, 0}, 1);
            const cdouble ignored = {5, 5};
            run("?", "?", &size.m, &size.n, &size.k, &z.alpha, z.a.data(), &z.a.ld(), z.b.data(),
                &z.b.ld(), &ignored, z.c.data(), &z.c.ld());
            EXPECT_LE(z.error(), 1) << z.name();
            EXPECT_TRUE(z.c.intact());
            for (const cfloat beta : {cfloat{0, 0}, {1, 0}, {0.5f, 0.25f}}) {
                Product<cfloat> c(random, letters[0], letters[1], size, {0.4f, -0.7f}, beta, 1);
                c.run(vor_blas_cgemmpst);
                EXPECT_LE(c.error(), c.bound()) << c.name();
                EXPECT_TRUE(c.c.intact());
            }
        }
    });
}

// The s engine's scaling: zeros are written unread, every other beta multiplies.
TEST(GemmScale, SingleMatrices) {
    Random random(4);
    for (const int m : {1, 3, 4, 9, 16}) {
        const int n = 3;
        auto c = Matrix<float>::random(random, 'N', m, n, 2, 4);
        Matrix<float> want = c;
        const float beta = -0.3f, zero = 0;
        vor_blas_sscalm(&m, &n, &beta, c.data(), &c.ld());
        Matrix<float> old = want;
        want.fill([&](int i, int j) { return old(i, j) * beta; });
        EXPECT_TRUE(c.same_as(want) && c.intact());
        c.fill(not_a_number<float>());
        vor_blas_sscalm(&m, &n, &zero, c.data(), &c.ld());
        EXPECT_NE(c(0, 0), c(0, 0));
        vor_blas_sscalmz(&m, &n, c.data(), &c.ld());
        want.fill(0.0f);
        EXPECT_TRUE(c.same_as(want) && c.intact());
    }
}
