// The threaded driver of syrk, herk, syr2k and her2k. The triangle of C is cut into diagonal squares, one
// for each thread, and the rectangles between a square and all later ones. The squares are shared
// out; the rectangles run one after the other, each as a threaded matrix product.
#pragma once

#include "blas/kernel/default/level3/drivers.h"
#include "blas/level3/rank_update.h"
#include "serv/team.h"

namespace vor::blas {

// The threaded matrix product on arguments by value.
template <class T>
void multiply_threaded(char transa, char transb, int m, int n, int k, T alpha, const T* a, int lda,
                       const T* b, int ldb, T beta, T* c, int ldc) {
    GemmDriver<T>::run(&transa, &transb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc, 1,
                       1);
}

// square(i, length, beta) is the serial engine on the diagonal square of C from i on. S is the type of
// beta; a Hermitian C, whose beta is real, is scaled before any thread starts.
template <class T, bool Hermitian, class S, class F>
void rank_update_driver(const RankUpdate<T, Hermitian>& update, S beta, F square) {
    // Up to here the work costs less than to wake a team.
    constexpr int kSmall = 16;
    const int n = update.n;
    const int threads = team_size();
    if (n <= kSmall || update.is_empty() || threads <= 1) return square(0, n, beta);

    T rectangle_beta;
    if constexpr (Hermitian) {
        scale_triangle<true>(update.upper, n, beta, update.c, update.ldc);
        beta = 1;
        rectangle_beta = real_element<T>(1);
    } else {
        rectangle_beta = beta;
    }
    team_loop(threads, threads, [&](int i) {
        const Strip strip(n, threads, i);
        square(strip.offset, strip.length, beta);
    });
    for (int i = 0; i < threads - 1; ++i) {
        const Strip strip(n, threads, i);
        const int behind = strip.offset + strip.length;
        if (update.upper)
            update.rectangle(multiply_threaded<T>, strip.offset, strip.length, behind, n - behind,
                             rectangle_beta);
        else
            update.rectangle(multiply_threaded<T>, behind, n - behind, strip.offset, strip.length,
                             rectangle_beta);
    }
}

} // namespace vor::blas
