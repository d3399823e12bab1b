// tpmv: x := op(A) * x, A triangular, packed.
//
// ap     the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/triangular.h"

namespace {

template <class Triangle, class T>
void tpmv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    vor::on_triangle(a, trans, diag, [&](auto op) {
        vor::on_vector(a.n, x, incx, [&](auto v) {
            vor::triangular_product<vor::kPackedGroup<T, decltype(v.step)>>(op, v);
        });
    });
}

} // namespace

#define MEMBER(p, P, T)                                                                            \
    LEVEL2(p, P, T, tpmv, TPMV, TPMV,                                                              \
           tpmv(vor::PackedTriangle<const T>{vor::is_letter(uplo, 'U'), *n, ap}, trans, diag, x,   \
                *incx))
MEMBER(s, S, float)
MEMBER(d, D, double)
MEMBER(c, C, vor::cfloat)
MEMBER(z, Z, vor::cdouble)
