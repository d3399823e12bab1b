// vor_blas_ssymm, dsymm, csymm, zsymm, chemm, zhemm: the product with a symmetric or Hermitian matrix on
// one thread or several. On the left the columns of B and C are shared out, on the right the rows; A is
// whole for every thread.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/letters.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"
#include "serv/team.h"

namespace {

// Up to here, in both dimensions, the work costs less than to wake a team.
constexpr int kSmall = 16;

template <class T, void(*engine) PARAMS_XSYMM(T)>
void drive PARAMS_XSYMM(T) {
    const int threads = vor::team_size();
    const bool scaling = vor::is_zero(*alpha); // nothing to share out
    if (scaling || (*m <= kSmall && *n <= kSmall) || threads <= 1) return engine ARGS_XSYMM;
    if (*m == 0 || *n == 0) return;

    const bool left = vor::is_letter(side, 'L');
    vor::team_loop(threads, threads, [&](int i) {
        const vor::Strip strip(left ? *n : *m, threads, i);
        engine(side, uplo, left ? m : &strip.length, left ? &strip.length : n, alpha, a, lda,
               vor::ahead(b, strip.offset, left ? *ldb : 1), ldb, beta,
               vor::ahead(c, strip.offset, left ? *ldc : 1), ldc);
    });
}

} // namespace

#define DRIVER(name, T)                                                                            \
    VOR_ENGINE void vor_blas_##name PARAMS_SYMM(T) {                                               \
        drive<T, vor_blas_x##name> ARGS_XSYMM;                                                     \
    }
DRIVER(ssymm, float)
DRIVER(dsymm, double)
DRIVER(csymm, vor::cfloat)
DRIVER(zsymm, vor::cdouble)
DRIVER(chemm, vor::cfloat)
DRIVER(zhemm, vor::cdouble)
