// The threaded driver of solves and products with a triangle: the right sides are independent of one
// another, so that they are shared out, columns of B on the left, rows on the right. A is read by all.
#pragma once

#include "blas/letters.h"
#include "blas/signatures.h"
#include "serv/team.h"

namespace vor::blas {

template <class T, void(*engine) PARAMS_XTRMM(T)>
void triangular_driver PARAMS_XTRMM(T) {
    // Up to here, in both dimensions, the work costs less than to wake a team.
    constexpr int kSmall = 16;
    const bool small = *m <= kSmall && *n <= kSmall;
    const int threads = team_size();
    if (small || threads <= 1) return engine ARGS_XTRMM;
    if (*n == 0) return;

    const bool left = is_letter(side, 'L');
    team_loop(threads, threads, [&](int i) {
        const Strip strip(left ? *n : *m, threads, i);
        engine(side, uplo, transa, diag, left ? m : &strip.length, left ? &strip.length : n, alpha,
               a, lda, ahead(b, strip.offset, left ? *ldb : 1), ldb);
    });
}

} // namespace vor::blas
