// dcabs1: abs(re) + abs(im) of one complex number.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

VOR_ENGINE double vor_blas_dcabs1 PARAMS_DCABS1(vor::cdouble) {
    return static_cast<double>(__builtin_fabsl(z->re) + __builtin_fabsl(z->im));
}
VOR_ENTRY(double, dcabs1, DCABS1, vor_blas_dcabs1, PARAMS_DCABS1(vor::cdouble), ARGS_DCABS1)
