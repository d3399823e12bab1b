// What the drivers of all storage formats share: the letters of a call, the factors alpha and beta, and the
// way from a descriptor to a kernel.
//
//   product   C := alpha * op(A) * B + beta * C    m, n or k = 0: nothing, beta is not applied either;
//                                                  beta = 0: C is not read; alpha = 0: A and B are not
//   solve     C := alpha * op(A)^-1 * B            m = 0: nothing; alpha = 0: C := 0, A and B are not read
//
// A format is a type with one member function for each structure of A, which runs the kernel.
#pragma once

#include "arith/element.h"
#include "blas/level1/engines.h"
#include "serv/lsame.h"

#include <stddef.h>

namespace vor::spblas {

// What the characters of matdescra say: the structure, the triangle, the diagonal. What is not read counts as
// lower and not unit.
struct Descriptor {
    char structure; // G, S (symmetric or Hermitian), T, A (skew), D
    bool lower, nonunit;
};

inline Descriptor descriptor_of(const char* matdescra) {
    char structure = upper(matdescra[0]);
    if (structure == 'H') structure = 'S';
    const bool triangle = structure != 'G' && structure != 'D';
    const bool diagonal = structure != 'G' && structure != 'A';
    return {structure, !(triangle && begins_with(matdescra + 1, 'U')),
            !(diagonal && begins_with(matdescra + 2, 'U'))};
}

// Flags go to the kernels as logicals, of which bit 0 counts.
inline bool is_set(const int* flag) {
    return (*flag & 1) != 0;
}

// Column j of a column-major array.
template <class T>
T* column(T* a, int lda, int j) {
    return a + static_cast<ptrdiff_t>(j) * lda;
}

inline void scale(int n, double alpha, double* x) {
    const int step = 1;
    vor_blas_dscal(&n, &alpha, x, &step);
}
inline void add_scaled(int n, double alpha, const double* x, double* y) {
    const int step = 1;
    vor_blas_daxpy(&n, &alpha, x, &step, y, &step);
}
inline void copy(int n, const double* x, double* y) {
    const int step = 1;
    vor_blas_dcopy(&n, x, &step, y, &step);
}
inline void clear(int n, double* x) {
    for (int i = 0; i < n; ++i) x[i] = 0;
}

// x := beta * x; beta = 0 stores zeros over whatever x holds.
inline void apply_beta(int n, double beta, double* x) {
    if (beta == 0)
        clear(n, x);
    else if (beta != 1)
        scale(n, beta, x);
}

// The operands of a product apart from A, which is m by k.
struct Product {
    bool plain; // op(A) = A
    int m, n, k;
    double alpha;
    const double* b;
    int ldb;
    double beta;
    double* c;
    int ldc;

    // Rows of C.
    int rows() const { return plain ? m : k; }

    // One right side, of the least leading dimensions.
    static Product of_vector(const char* transa, int m, int k, double alpha, const double* x,
                             double beta, double* y) {
        const bool plain = begins_with(transa, 'N');
        return {plain, m, 1, k, alpha, x, plain ? k : m, beta, y, plain ? m : k};
    }
};

// C += alpha * B: the diagonal of ones that no kernel touches.
inline void add_unit_diagonal(const Product& p) {
    const int order = p.m < p.k ? p.m : p.k;
    for (int j = 0; j < p.n; ++j)
        add_scaled(order, p.alpha, column(p.b, p.ldb, j), column(p.c, p.ldc, j));
}

// `Format` tells by kKernelsApplyBeta who scales C, and by unit_diagonal_apart(structure) whether the ones of
// a unit diagonal are added here.
template <class Format>
void multiply(const Format& a, const char* matdescra, const Product& p) {
    if (p.m == 0 || p.n == 0 || p.k == 0) return;
    if (!Format::kKernelsApplyBeta || p.alpha == 0)
        for (int j = 0; j < p.n; ++j) apply_beta(p.rows(), p.beta, column(p.c, p.ldc, j));
    if (p.alpha == 0) return;
    const Descriptor d = descriptor_of(matdescra);
    switch (d.structure) {
    case 'G':
        return a.multiply_general(p);
    case 'T':
        a.multiply_triangle(p, d);
        break;
    case 'S':
        a.multiply_symmetric(p, d);
        break;
    case 'A':
        a.multiply_skew(p, d);
        break;
    case 'D':
        a.multiply_diagonal(p, d);
        break;
    default:
        return;
    }
    if (!d.nonunit && Format::unit_diagonal_apart(d.structure)) add_unit_diagonal(p);
}

// The operands of a solve with a matrix of order m.
struct Solve {
    bool plain;
    int m, n;
    double alpha;
    const double* b;
    int ldb;
    double* c;
    int ldc;

    static Solve of_vector(const char* transa, int m, double alpha, const double* x, double* y) {
        return {begins_with(transa, 'N'), m, 1, alpha, x, m, y, m};
    }
};

// Right sides are scaled first and solved in place: a.solve_diagonal(s) for a diagonal matrix that is not
// unit, a.solve_triangle(s, d) for a triangular one.
template <class Format>
void solve(const Format& a, const Descriptor& d, const Solve& s) {
    if (s.m == 0) return;
    for (int j = 0; j < s.n; ++j) {
        double* const c = column(s.c, s.ldc, j);
        if (s.alpha == 0) {
            clear(s.m, c);
            continue;
        }
        copy(s.m, column(s.b, s.ldb, j), c);
        if (s.alpha != 1) scale(s.m, s.alpha, c);
    }
    if (s.alpha == 0) return;
    if (d.structure != 'D') return a.solve_triangle(s, d);
    if (d.nonunit) a.solve_diagonal(s, d);
}

// The descriptor of a solve with several right sides, where any letter but L counts as upper and any but N
// as unit.
inline Descriptor descriptor_of_many(const char* matdescra) {
    return {upper(matdescra[0]), begins_with(matdescra + 1, 'L'), begins_with(matdescra + 2, 'N')};
}

// The descriptor that uplo and diag spell.
inline Descriptor triangle_of(const char* uplo, const char* diag) {
    return {'T', begins_with(uplo, 'L'), begins_with(diag, 'N')};
}

} // namespace vor::spblas
