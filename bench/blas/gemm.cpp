// Products of square matrices: shares of the unit that bounds them, for every pair of letters; small
// ones beside a plain loop.
#include "bench/common/families.h"
#include "serv/element.h"

#include <memory>

namespace vor::bench {

namespace {

template <class T>
using Gemm = void(const char*, const char*, const int*, const int*, const int*, const T*, const T*,
                  const int*, const T*, const int*, const T*, T*, const int*, int, int);

// C := A B + 0 C: however often it is repeated, nothing grows.
template <class T>
struct Matrices {
    explicit Matrices(int order)
        : n(order), a(size_t(order) * size_t(order)), b(a.size()), c(a.size()) {
        for (auto* matrix : {&a, &b})
            for (size_t i = 0; i < matrix->size(); ++i)
                reinterpret_cast<real_t<T>&>((*matrix)[i]) = real_t<T>(1) / real_t<T>(1 + i % 97);
        reinterpret_cast<real_t<T>&>(one) = 1;
    }
    int n;
    T one{}, zero{};
    std::vector<T> a, b, c;
};

template <class T>
Call repeat(Gemm<T>* f, std::string letters, int n) {
    if (!f) return {};
    const auto x = std::make_shared<Matrices<T>>(n);
    return [=] {
        f(&letters[0], &letters[1], &x->n, &x->n, &x->n, &x->one, x->a.data(), &x->n, x->b.data(),
          &x->n, &x->zero, x->c.data(), &x->n, 1, 1);
    };
}

template <class T>
Binder gemm(char type, std::string letters, int n) {
    return [=](const Library& library) {
        return repeat(library.function<Gemm<T>>((std::string(1, type) + "gemm_").c_str()), letters,
                      n);
    };
}

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

struct Goal {
    int n;
    double extended_share, vector_share, extended_ratio, vector_ratio;
};

// Shares of the machine's rate, and ratios to a library with kernels for the same processor level.
constexpr Goal kGoals[] = {{32, 0.85, 0.45, 0.9, 0.9},
                           {100, 0.93, 0.58, 1.0, 1.0},
                           {256, 0.96, 0.63, 1.0, 1.05},
                           {512, 0.96, 0.63, 1.0, 1.05},
                           {1000, 0.96, 0.63, 1.0, 1.05}};
constexpr int kLevel = 256;             // from this size on no pair of letters may fall behind
constexpr double kLevelRatio = 0.9;     // by more than this
constexpr int kLargestOfAllPairs = 512; // of complex products, which take seconds above it

template <class T>
void add_type(Suite& suite, char type) {
    const bool extended = sizeof(real_t<T>) == 8;
    const int operations = is_complex<T> ? 8 : 2;
    const std::string formula = std::to_string(operations) + "n^3 operations";
    for (const Goal& goal : kGoals)
        for (const char* letters : {"NN", "TN", "NT", "TT"}) {
            const bool first = std::string(letters) == "NN";
            if (is_complex<T> && !first && goal.n > kLargestOfAllPairs) continue;
            std::vector<Rival> rivals;
            if (!is_complex<T> && !first && goal.n >= kLevel)
                rivals.push_back(
                    {.name = "NN", .bind = gemm<T>(type, "NN", goal.n), .goal = kLevelRatio});
            suite.push_back(
                {.name = std::string(1, type) + "gemm " + letters + " n=" + std::to_string(goal.n),
                 .formula = formula,
                 .work = double(operations) * goal.n * goal.n * goal.n,
                 .limit = extended ? Limit::x87 : Limit::vector,
                 .bind = gemm<T>(type, letters, goal.n),
                 .goal = extended ? goal.extended_share : goal.vector_share,
                 .rivals = rivals,
                 .against_goal = extended ? goal.extended_ratio : goal.vector_ratio});
        }
    for (const int n : {1, 2, 3, 4, 6, 8, 12, 16})
        suite.push_back(
            {.name = std::string(1, type) + "gemm NN n=" + std::to_string(n),
             .formula = formula,
             .work = double(operations) * n * n * n,
             .limit = Limit::none,
             .bind = gemm<T>(type, "NN", n),
             .rivals = {{.name = "plain loop",
                         .bind = [n](const Library&) { return repeat(plain_loop<T>, "NN", n); },
                         .goal = 0.5}}});
}

} // namespace

Suite gemm_cases() {
    Suite suite;
    add_type<float>(suite, 's');
    add_type<double>(suite, 'd');
    add_type<cfloat>(suite, 'c');
    add_type<cdouble>(suite, 'z');
    return suite;
}

} // namespace vor::bench
