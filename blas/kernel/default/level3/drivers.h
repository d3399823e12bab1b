// The threaded Level 3 drivers, called by the entries and by one another.
#pragma once

#include "blas/signatures.h"

#define VOR_LEVEL3_DRIVERS(p, T)                                                                   \
    void vor_blas_##p##gemm PARAMS_GEMM(T);                                                        \
    void vor_blas_##p##trsm PARAMS_TRMM(T);                                                        \
    void vor_blas_##p##trmm PARAMS_TRMM(T);                                                        \
    void vor_blas_##p##symm PARAMS_SYMM(T);                                                        \
    void vor_blas_##p##syrk PARAMS_SYRK(T);                                                        \
    void vor_blas_##p##syr2k PARAMS_SYR2K(T);
#define VOR_HERMITIAN_DRIVERS(p, T)                                                                \
    void vor_blas_##p##hemm PARAMS_SYMM(T);                                                        \
    void vor_blas_##p##herk PARAMS_HERK(T);                                                        \
    void vor_blas_##p##her2k PARAMS_HER2K(T);

extern "C" {
VOR_LEVEL3_DRIVERS(s, float)
VOR_LEVEL3_DRIVERS(d, double)
VOR_LEVEL3_DRIVERS(c, vor::cfloat)
VOR_LEVEL3_DRIVERS(z, vor::cdouble)
VOR_HERMITIAN_DRIVERS(c, vor::cfloat)
VOR_HERMITIAN_DRIVERS(z, vor::cdouble)
}
#undef VOR_LEVEL3_DRIVERS
#undef VOR_HERMITIAN_DRIVERS
