// What the rank-k and rank-2k updates of one triangle share:
//
//   C := alpha * op(A) * op(A)^T + beta * C                                   (b null)
//   C := alpha * op(A) * op(B)^T + alpha' * op(B) * op(A)^T + beta * C
//
// with ^H for ^T and alpha' = conj(alpha) if Hermitian, alpha' = alpha otherwise; op(X) is n by k.
#pragma once

#include "blas/kernel/gemm_scale.h"
#include "blas/letters.h"
#include "blas/level3/level3_engines.h"

namespace vor::blas {

// C := beta * C in the stored triangle; beta is of T or real. beta = 0: C is not read. The diagonal of a
// Hermitian C becomes real whatever beta is.
template <bool Hermitian, class T, class S>
void scale_triangle(bool upper, int n, S beta, T* c, int ldc) {
    for (int j = 0; j < n; ++j, c += ldc) {
        const int first = upper ? 0 : j, count = upper ? j + 1 : n - j;
        if constexpr (std::is_same_v<S, T>) {
            scale_matrix(count, 1, beta, c + first, ldc);
        } else {
            // The parts of a complex column, scaled by a real number, are a real column.
            scale_matrix(2 * count, 1, beta, &c[first].re, ldc);
        }
        if constexpr (Hermitian) c[j].im = 0;
    }
}

// A scalar of T, or a real one that stands for it.
template <class T, class S>
constexpr T as_element(S x) {
    if constexpr (std::is_same_v<S, T>)
        return x;
    else
        return real_element<T>(x);
}

template <class T, bool Hermitian>
struct RankUpdate {
    bool upper, plain;
    int n, k;
    T alpha;
    const T* a;
    int lda;
    const T* b; // null for a rank-k update
    int ldb;
    T* c;
    int ldc;

    static constexpr char kTransposed = Hermitian ? 'C' : 'T';
    char first_letter() const { return plain ? 'N' : kTransposed; }
    char second_letter() const { return plain ? kTransposed : 'N'; }

    // Row i of op(A), op(B), and the element (i, j) of C.
    const T* a_at(int i) const { return a + i * (plain ? 1 : lda); }
    const T* b_at(int i) const { return b + i * (plain ? 1 : ldb); }
    T* c_at(int i, int j) const { return c + i + j * ldc; }

    bool is_empty() const { return is_zero(alpha) || k == 0; }

    T second_alpha() const { return Hermitian ? conjugated(alpha) : alpha; }

    // The update of a part of C that does not touch the diagonal, by `product`, which has the arguments
    // of multiply().
    template <class F>
    void rectangle(F product, int i, int rows, int j, int columns, T beta) const {
        const char ta = first_letter(), tb = second_letter();
        const auto add = [&](T factor, const T* x, int ldx, const T* y, int ldy, T scale) {
            product(ta, tb, rows, columns, k, factor, x, ldx, y, ldy, scale, c_at(i, j), ldc);
        };
        if (rows == 0 || columns == 0) return;
        if (!b) return add(alpha, a_at(i), lda, a_at(j), lda, beta);
        add(alpha, a_at(i), lda, b_at(j), ldb, beta);
        add(second_alpha(), b_at(i), ldb, a_at(j), lda, real_element<T>(1));
    }
};

} // namespace vor::blas

// The arguments of PARAMS_RANK_K and PARAMS_RANK_2K. A real alpha of herk becomes a complex one.
#define RANK_K_UPDATE(T, Hermitian)                                                                \
    ::vor::blas::RankUpdate<T, Hermitian> {                                                        \
        ::vor::blas::is_letter(uplo, 'U'), ::vor::blas::is_letter(trans, 'N'), *n, *k,             \
            ::vor::blas::as_element<T>(*alpha), a, *lda, nullptr, 0, c, *ldc                       \
    }
#define RANK_2K_UPDATE(T, Hermitian)                                                               \
    ::vor::blas::RankUpdate<T, Hermitian> {                                                        \
        ::vor::blas::is_letter(uplo, 'U'), ::vor::blas::is_letter(trans, 'N'), *n, *k, *alpha, a,  \
            *lda, b, *ldb, c, *ldc                                                                 \
    }
