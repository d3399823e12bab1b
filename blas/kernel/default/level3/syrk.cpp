// vor_blas_ssyrk, dsyrk, csyrk, zsyrk, cherk, zherk: rank-k updates on one thread or several.
#include "blas/kernel/default/level3/rank_update_driver.h"
#include "serv/entry.h"

#define DRIVER(name, T, S, Hermitian, factor)                                                      \
    VOR_ENGINE void vor_blas_##name PARAMS_RANK_K(T, S) {                                          \
        const auto update = RANK_K_UPDATE(T, Hermitian, factor);                                   \
        vor::rank_update_driver(update, *beta, [&](int i, int length, const S& scale) {            \
            vor_blas_x##name(uplo, trans, &length, k, alpha, update.a_at(i), lda, &scale,          \
                             update.c_at(i, i), ldc);                                              \
        });                                                                                        \
    }
#define SYRK(p, T) DRIVER(p##syrk, T, T, false, *alpha)
#define HERK(p, T) DRIVER(p##herk, T, vor::real_t<T>, true, vor::real_element<T>(*alpha))
SYRK(s, float)
SYRK(d, double)
SYRK(c, vor::cfloat)
SYRK(z, vor::cdouble)
HERK(c, vor::cfloat)
HERK(z, vor::cdouble)
