// The matrix-product engines by element type, and calls of them on test matrices.
#pragma once

#include "blas/level3/gemm_engines.h"
#include "tests/common/matrix.h"

#include <gtest/gtest.h>

namespace vor::test {

template <class T>
using Engine = void PARAMS_XGEMM(T);

template <class T>
Engine<T>* engine() {
    if constexpr (std::is_same_v<T, float>) return vor_blas_xsgemm;
    if constexpr (std::is_same_v<T, double>) return vor_blas_xdgemm;
    if constexpr (std::is_same_v<T, cfloat>) return vor_blas_xcgemm;
    if constexpr (std::is_same_v<T, cdouble>) return vor_blas_xzgemm;
}

template <class T>
constexpr char type_letter() {
    if constexpr (is_complex<T>) return sizeof(T) == 8 ? 'c' : 'z';
    return sizeof(T) == 4 ? 's' : 'd';
}

using AllTypes = testing::Types<float, double, cfloat, cdouble>;

struct Size {
    int m, n, k;
};

// One product: operands, the result, and what C was before.
template <class T>
struct Product {
    char transa, transb;
    Size size;
    T alpha, beta;
    Matrix<T> a, b, c, before;

    Product(Random& random, char ta, char tb, Size s, T al, T be, int gap = 0)
        : transa(ta), transb(tb), size(s), alpha(al), beta(be),
          a(Matrix<T>::random(random, ta, s.m, s.k, gap, sizeof(T))),
          b(Matrix<T>::random(random, tb, s.k, s.n, 2 * gap, sizeof(T))),
          c(Matrix<T>::random(random, 'N', s.m, s.n, gap, sizeof(T))), before(c) {}

    void run(Engine<T>* gemm = engine<T>()) {
        gemm(&transa, &transb, &size.m, &size.n, &size.k, &alpha, a.data(), &a.ld(), b.data(),
             &b.ld(), &beta, c.data(), &c.ld());
    }
    double error() const {
        const Operand<T> left(a, transa), right(b, transb);
        return worst_error(c, [&](int i, int j) {
            return product_element(alpha, left, right, size.k, beta, before, i, j);
        });
    }
    // Every rounding counted, in units of eps times the sum of the terms. d and z round where a stage
    // of the k loop enters C, s and c at every operation.
    double bound() const {
        const bool extended = std::is_same_v<real_t<T>, double>;
        const int stage = is_complex<T> ? 32 : 64;
        const int roundings = extended ? size.k / stage + 6 : (is_complex<T> ? 2 : 1) * size.k + 6;
        return 0.5 * roundings;
    }
    std::string name() const {
        return std::string{transa, transb} + " " + std::to_string(size.m) + " x " +
               std::to_string(size.n) + " x " + std::to_string(size.k);
    }
};

} // namespace vor::test
