// vor_blas_ssymm, dsymm, csymm, zsymm, chemm, zhemm: the product with a symmetric or Hermitian matrix on
// one thread or several. On the left the columns of B and C are shared out, on the right the rows; A is
// whole for every thread.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/letters.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"
#include "serv/team.h"

namespace vor::blas {
namespace {

// Up to here, in both dimensions, the work costs less than to wake a team.
constexpr int kSmall = 16;

template <class T, void(*engine) PARAMS_XSYMM(T)>
void symm_driver PARAMS_XSYMM(T) {
    const int threads = team_size();
    const bool scaling = is_zero(*alpha); // nothing to share out
    if (scaling || (*m <= kSmall && *n <= kSmall) || threads <= 1) return engine ARGS_XSYMM;
    if (*m == 0 || *n == 0) return;

    const bool left = is_letter(side, 'L');
    team_loop(threads, threads, [&](int i) {
        const Strip strip(left ? *n : *m, threads, i);
        engine(side, uplo, left ? m : &strip.length, left ? &strip.length : n, alpha, a, lda,
               ahead(b, strip.offset, left ? *ldb : 1), ldb, beta,
               ahead(c, strip.offset, left ? *ldc : 1), ldc);
    });
}

} // namespace

#define SYMM_DRIVER(name, engine, T)                                                               \
    VOR_ENGINE void name PARAMS_SYMM(T) {                                                          \
        symm_driver<T, engine> ARGS_XSYMM;                                                         \
    }
SYMM_DRIVER(vor_blas_ssymm, vor_blas_xssymm, float)
SYMM_DRIVER(vor_blas_dsymm, vor_blas_xdsymm, double)
SYMM_DRIVER(vor_blas_csymm, vor_blas_xcsymm, cfloat)
SYMM_DRIVER(vor_blas_zsymm, vor_blas_xzsymm, cdouble)
SYMM_DRIVER(vor_blas_chemm, vor_blas_xchemm, cfloat)
SYMM_DRIVER(vor_blas_zhemm, vor_blas_xzhemm, cdouble)

} // namespace vor::blas
