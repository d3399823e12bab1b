// The threaded matrix product C := alpha * op(A) * op(B) + beta * C: whether one thread does it or
// several, and how C is cut. No numerics: each strip is a call of the serial engine with shifted
// pointers, k is never cut, and the strips of C are disjoint.
//
// m < 1 or n < 1   nothing is read or written, whatever beta is
// k = 0            the engine scales C
#pragma once

#include "blas/letters.h"
#include "blas/signatures.h"
#include "serv/team.h"

namespace vor::blas {

// Up to here, in all three dimensions, a product costs less than to wake a team.
inline constexpr int kGemmSmall = 16;

// The longer side of C is cut; the operand that is cut with it is stepped along a column of its array
// where it stands as it is, across the columns where it is transposed.
template <class T, void(*engine) PARAMS_XGEMM(T)>
[[gnu::noinline]] void gemm_in_strips(int threads, const char* transa, const char* transb,
                                      const int* m, const int* n, const int* k, const T* alpha,
                                      const T* a, const int* lda, const T* b, const int* ldb,
                                      const T* beta, T* c, const int* ldc) {
    const bool rows = *m > *n;
    const int step_a = is_letter(transa, 'N') ? 1 : *lda;
    const int step_b = is_letter(transb, 'N') ? *ldb : 1;
    team_loop(threads, threads, [&](int i) {
        const Strip strip(rows ? *m : *n, threads, i);
        if (rows)
            engine(transa, transb, &strip.length, n, k, alpha, ahead(a, strip.offset, step_a), lda,
                   b, ldb, beta, ahead(c, strip.offset), ldc);
        else
            engine(transa, transb, m, &strip.length, k, alpha, a, lda,
                   ahead(b, strip.offset, step_b), ldb, beta, ahead(c, strip.offset, *ldc), ldc);
    });
}

template <class T, void(*engine) PARAMS_XGEMM(T)>
inline void gemm_driver PARAMS_XGEMM(T) {
    if (*m < 1 || *n < 1) return;
    const bool small = *m <= kGemmSmall && *n <= kGemmSmall && *k <= kGemmSmall;
    // The first call of all takes the decision about threads, a small one too, but asks for no team.
    const bool alone = vor_serv_in_serial() == 1 || small;
    const int threads = alone ? 1 : team_size();
    if (threads <= 1) return engine ARGS_XGEMM;
    gemm_in_strips<T, engine>(threads, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c,
                              ldc);
}

} // namespace vor::blas
