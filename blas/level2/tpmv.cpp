// tpmv: x := op(A) * x, A triangular, packed.
//
// ap     the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/triangular_operator.h"

namespace vor::blas {
namespace {

template <class Triangle, class T>
void tpmv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    on_triangle(a, trans, diag, [&](auto op) {
        on_vector(a.n, x, incx,
                  [&](auto v) { triangular_product<kPackedGroup<T, decltype(v.step)>>(op, v); });
    });
}

} // namespace

#define TPMV(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_TPMV(T), ARGS_TPMV,                                   \
           tpmv(PackedTriangle<const T>{is_letter(uplo, 'U'), *n, ap}, trans, diag, x, *incx))
TPMV(stpmv, STPMV, vor_blas_stpmv, vor_blas_errchk_stpmv, float)
TPMV(dtpmv, DTPMV, vor_blas_dtpmv, vor_blas_errchk_dtpmv, double)
TPMV(ctpmv, CTPMV, vor_blas_ctpmv, vor_blas_errchk_ctpmv, cfloat)
TPMV(ztpmv, ZTPMV, vor_blas_ztpmv, vor_blas_errchk_ztpmv, cdouble)

} // namespace vor::blas
