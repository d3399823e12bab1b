// tpsv: x := op(A)^-1 * x, A triangular, packed.
//
// ap     the columns of the stored triangle one after the other, without gaps
// A zero on the diagonal gives the infinities and NaNs of the division.
#include "blas/level2/entry.h"
#include "blas/level2/triangular_operator.h"

namespace vor::blas {
namespace {

template <class Triangle, class T>
void tpsv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    on_triangle(a, trans, diag, [&](auto op) {
        on_vector(a.n, x, incx, [&](auto v) {
            triangular_solve<ScaledDivision, kPackedGroup<T, decltype(v.step)>>(op, v);
        });
    });
}

} // namespace

#define TPSV(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_TPMV(T), ARGS_TPMV,                                   \
           tpsv(PackedTriangle<const T>{is_letter(uplo, 'U'), *n, ap}, trans, diag, x, *incx))
TPSV(stpsv, STPSV, vor_blas_stpsv, vor_blas_errchk_stpsv, float)
TPSV(dtpsv, DTPSV, vor_blas_dtpsv, vor_blas_errchk_dtpsv, double)
TPSV(ctpsv, CTPSV, vor_blas_ctpsv, vor_blas_errchk_ctpsv, cfloat)
TPSV(ztpsv, ZTPSV, vor_blas_ztpsv, vor_blas_errchk_ztpsv, cdouble)

} // namespace vor::blas
