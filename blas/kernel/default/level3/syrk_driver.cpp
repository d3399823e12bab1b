// vor_blas_ssyrk, dsyrk, csyrk, zsyrk, cherk, zherk: rank-k updates on one thread or several.
#include "blas/kernel/default/level3/rank_update_driver.h"
#include "serv/entry.h"

namespace vor::blas {

#define RANK_K_DRIVER(name, engine, T, S, Hermitian)                                               \
    VOR_ENGINE void name PARAMS_RANK_K(T, S) {                                                     \
        const auto update = RANK_K_UPDATE(T, Hermitian);                                           \
        rank_update_driver(update, *beta, [&](int i, int length, const S& scale) {                 \
            engine(uplo, trans, &length, k, alpha, update.a_at(i), lda, &scale, update.c_at(i, i), \
                   ldc);                                                                           \
        });                                                                                        \
    }
RANK_K_DRIVER(vor_blas_ssyrk, vor_blas_xssyrk, float, float, false)
RANK_K_DRIVER(vor_blas_dsyrk, vor_blas_xdsyrk, double, double, false)
RANK_K_DRIVER(vor_blas_csyrk, vor_blas_xcsyrk, cfloat, cfloat, false)
RANK_K_DRIVER(vor_blas_zsyrk, vor_blas_xzsyrk, cdouble, cdouble, false)
RANK_K_DRIVER(vor_blas_cherk, vor_blas_xcherk, cfloat, float, true)
RANK_K_DRIVER(vor_blas_zherk, vor_blas_xzherk, cdouble, double, true)

} // namespace vor::blas
