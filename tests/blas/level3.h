// What the tests of the structured Level 3 routines share: the entries by element type, problems with
// everything that must not be read set to NaN, bounds.
#pragma once

#include "blas/signatures.h"
#include "tests/blas/level2_errors.h"
#include "tests/common/allocations.h"
#include "tests/common/matrix.h"
#include "vor_blas.h"
#include "vor_service.h"

#include <gtest/gtest.h>
#include <omp.h>

#include <cstdlib>
#include <string>

namespace vor::test {

// Decided at the library's first question: threads may be used.
inline const int parallel_mode = setenv("VOR_SERIAL", "NO", 1);

using AllTypes = testing::Types<float, double, cfloat, cdouble>;
using ComplexTypes = testing::Types<cfloat, cdouble>;

inline const int kThreads[] = {1, 2, 3, 5};

// Sets the number of threads for a scope.
class Threads {
public:
    explicit Threads(int n) { omp_set_num_threads(n); }
    ~Threads() { omp_set_num_threads(2); }
};

// Rounding errors that an element made of `terms` products may carry, in units of eps times their sum:
// s and c round at every operation, d and z where a stage or a block ends, 16 steps being the
// shortest, and a few times more for alpha, beta and the diagonal.
template <class T>
double bound(int terms) {
    if (std::is_same_v<real_t<T>, double>) return 0.5 * (terms / 16 + 10);
    return 0.5 * ((is_complex<T> ? 2 : 1) * terms + 10);
}

inline bool is_upper(char uplo) {
    return uplo == 'U' || uplo == 'u';
}
inline bool in_triangle(char uplo, int i, int j) {
    return is_upper(uplo) ? i <= j : i >= j;
}

// A matrix of NaNs but for value(i, j) in one triangle.
template <class T, class F>
Matrix<T> triangle(char uplo, int order, int gap, F value) {
    Matrix<T> result(order, order, gap, sizeof(T));
    result.fill(
        [&](int i, int j) { return in_triangle(uplo, i, j) ? value(i, j) : not_a_number<T>(); });
    return result;
}

// The k-th allocation of run() fails, for every k until none does; then all of them.
template <class F>
void with_failing_allocations(F run) {
    for (int k = 1;; ++k) {
        VOR_FreeBuffers();
        Allocations allocations;
        allocations.fail_at(k);
        run();
        const bool failed = allocations.failed();
        VOR_FreeBuffers();
        EXPECT_EQ(allocations.live(), 0) << k;
        if (!failed) break;
    }
    VOR_FreeBuffers();
    Allocations allocations;
    allocations.fail_from(1);
    run();
}

} // namespace vor::test
