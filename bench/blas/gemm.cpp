// Products of square matrices: shares of the unit that bounds them, for every pair of letters; small
// ones beside a plain loop.
#include "bench/blas/square.h"
#include "bench/common/families.h"

namespace vor::bench {

namespace {

template <class T>
T multiply_add(T x, T y, T z) {
    if constexpr (is_complex<T>)
        return {z.re + x.re * y.re - x.im * y.im, z.im + x.re * y.im + x.im * y.re};
    else
        return z + x * y;
}

// What a caller would write instead of a call.
template <class T>
void plain_loop(const char*, const char*, const int* m, const int* n, const int* k, const T* alpha,
                const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,
                const int* ldc, int, int) {
    for (int j = 0; j < *n; ++j)
        for (int i = 0; i < *m; ++i) {
            T sum{};
            for (int l = 0; l < *k; ++l) sum = multiply_add(a[i + l * *lda], b[l + j * *ldb], sum);
            T& x = c[i + j * *ldc];
            x = multiply_add(*alpha, sum, multiply_add(*beta, x, T{}));
        }
}

struct Size {
    int n;
    double extended_share = 0, vector_share = 0, extended_ratio = 0, vector_ratio = 0;
};

// Goals: shares of the machine's rate, and ratios to a library with kernels for the same processor level.
// The sizes without goals fill the curve over n.
constexpr Size kSizes[] = {{32, 0.85, 0.45, 0.9, 0.9},
                           {64},
                           {100, 0.93, 0.58, 1.0, 1.0},
                           {128},
                           {200},
                           {256, 0.96, 0.63, 1.0, 1.05},
                           {400},
                           {512, 0.96, 0.63, 1.0, 1.05},
                           {700},
                           {1000, 0.96, 0.63, 1.0, 1.05}};
constexpr int kSmallSizes[] = {1, 2, 3, 4, 6, 8, 12, 16};
constexpr double kPlainRatio = 0.5;     // at most twice the time of a plain loop
constexpr int kLevel = 256;             // from this size on no pair of letters may fall behind
constexpr double kLevelRatio = 0.9;     // by more than this
constexpr int kLargestOfAllPairs = 512; // of complex products, which take seconds above it
constexpr int kThreadedSize = 1000;
constexpr double kThreadedGain = 1.9;

template <class T>
Case product_case(char type, std::string letters, const Size& size) {
    constexpr int operations = 2 * kComplexFactor<T>;
    return {.name = std::string(1, type) + "gemm " + letters + " n=" + std::to_string(size.n),
            .formula = std::to_string(operations) + "n^3 operations",
            .work = double(operations) * size.n * size.n * size.n,
            .limit = kUnit<T>,
            .bind = gemm<T>(type, letters, size.n),
            .goal = is_extended<T> ? size.extended_share : size.vector_share,
            .rivals = {},
            .against_goal = is_extended<T> ? size.extended_ratio : size.vector_ratio};
}

template <class T>
void add_all_pairs(Suite& suite, char type, const Size& size) {
    const bool curve_only = size.extended_share == 0;
    suite.push_back(product_case<T>(type, "NN", size));
    if (curve_only || (is_complex<T> && size.n > kLargestOfAllPairs)) return;
    for (const char* letters : {"TN", "NT", "TT"}) {
        suite.push_back(product_case<T>(type, letters, size));
        if (!is_complex<T> && size.n >= kLevel)
            suite.back().rivals.push_back(
                {.name = "NN", .bind = gemm<T>(type, "NN", size.n), .goal = kLevelRatio});
    }
}

} // namespace

Suite gemm_cases() {
    return all_types([]<class T>(Suite& suite, char type) {
        for (const int n : kSmallSizes) {
            suite.push_back(product_case<T>(type, "NN", {n}));
            suite.back().rivals.push_back(
                {.name = "plain loop",
                 .bind = [n](const Library&) { return repeat_product(plain_loop<T>, "NN", n); },
                 .goal = kPlainRatio});
        }
        for (const Size& size : kSizes) add_all_pairs<T>(suite, type, size);
        suite.push_back(
            on_two_threads(product_case<T>(type, "NN", {kThreadedSize}), kThreadedGain));
    });
}

} // namespace vor::bench
