// dcabs1: abs(re) + abs(im) of one complex number.
#include "blas/level1/entry.h"

namespace vor::blas {

LEVEL1(double, dcabs1, DCABS1, vor_blas_dcabs1, PARAMS_DCABS1(cdouble), ARGS_DCABS1,
       return static_cast<double>(__builtin_fabsl(z->re) + __builtin_fabsl(z->im)))

} // namespace vor::blas
