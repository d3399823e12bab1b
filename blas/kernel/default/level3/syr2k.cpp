// vor_blas_ssyr2k, dsyr2k, csyr2k, zsyr2k, cher2k, zher2k: rank-2k updates on one thread or several.
#include "blas/kernel/default/level3/rank_update_driver.h"
#include "serv/entry.h"

#define DRIVER(name, T, S, Hermitian)                                                              \
    VOR_ENGINE void vor_blas_##name PARAMS_RANK_2K(T, S) {                                         \
        const auto update = RANK_2K_UPDATE(T, Hermitian);                                          \
        vor::rank_update_driver(update, *beta, [&](int i, int length, const S& scale) {            \
            vor_blas_x##name(uplo, trans, &length, k, alpha, update.a_at(i), lda, update.b_at(i),  \
                             ldb, &scale, update.c_at(i, i), ldc);                                 \
        });                                                                                        \
    }
DRIVER(ssyr2k, float, float, false)
DRIVER(dsyr2k, double, double, false)
DRIVER(csyr2k, vor::cfloat, vor::cfloat, false)
DRIVER(zsyr2k, vor::cdouble, vor::cdouble, false)
DRIVER(cher2k, vor::cfloat, float, true)
DRIVER(zher2k, vor::cdouble, double, true)
