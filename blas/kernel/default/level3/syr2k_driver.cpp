// vor_blas_ssyr2k, dsyr2k, csyr2k, zsyr2k, cher2k, zher2k: rank-2k updates on one thread or several.
#include "blas/kernel/default/level3/rank_update_driver.h"
#include "serv/entry.h"

namespace vor::blas {

#define RANK_2K_DRIVER(name, engine, T, S, Hermitian)                                              \
    VOR_ENGINE void name PARAMS_RANK_2K(T, S) {                                                    \
        const auto update = RANK_2K_UPDATE(T, Hermitian);                                          \
        rank_update_driver(update, *beta, [&](int i, int length, const S& scale) {                 \
            engine(uplo, trans, &length, k, alpha, update.a_at(i), lda, update.b_at(i), ldb,       \
                   &scale, update.c_at(i, i), ldc);                                                \
        });                                                                                        \
    }
RANK_2K_DRIVER(vor_blas_ssyr2k, vor_blas_xssyr2k, float, float, false)
RANK_2K_DRIVER(vor_blas_dsyr2k, vor_blas_xdsyr2k, double, double, false)
RANK_2K_DRIVER(vor_blas_csyr2k, vor_blas_xcsyr2k, cfloat, cfloat, false)
RANK_2K_DRIVER(vor_blas_zsyr2k, vor_blas_xzsyr2k, cdouble, cdouble, false)
RANK_2K_DRIVER(vor_blas_cher2k, vor_blas_xcher2k, cfloat, float, true)
RANK_2K_DRIVER(vor_blas_zher2k, vor_blas_xzher2k, cdouble, double, true)

} // namespace vor::blas
