// ger, geru, gerc: A := A + alpha * x * y^T, or y^H for gerc. A column whose element of y is 0 is
// passed over, whatever x holds.
#include "blas/kernel/gerin.h"
#include "blas/level2/entry.h"
#include "blas/level2/vector.h"

namespace vor::blas {
namespace {

template <bool conjugate, class T>
void ger(void(*gerin) PARAMS_GERIN(T), const int* m, int n, T alpha, const T* x, const int* incx,
         const T* y, int incy, T* a, int lda) {
    using V = wide_t<T>;
    if (*m < 1 || n < 1 || has_zero_bits(alpha)) return;
    const int one = 1;
    const Vector<const T, int> v{walk_start(y, n, incy), incy};
    for (int j = 0; j < n; ++j) {
        if (is_zero(v[j])) continue;
        const T yj = conjugate ? conjugated(v[j]) : v[j];
        const T t = element<T>(number<V>(alpha) * number<V>(yj));
        gerin(m, &t, x, incx, a + j * lda, &one);
    }
}

} // namespace

#define GER(name, NAME, engine, check, T, gerin, conjugate)                                        \
    LEVEL2(name, NAME, engine, check, PARAMS_GER(T), ARGS_GER,                                     \
           ger<conjugate, T>(gerin, m, *n, *alpha, x, incx, y, *incy, a, *lda))
GER(sger, SGER, vor_blas_sger, vor_blas_errchk_sger, float, vor_blas_sgerin, false)
GER(dger, DGER, vor_blas_dger, vor_blas_errchk_dger, double, vor_blas_dgerin, false)
GER(cgeru, CGERU, vor_blas_cgeru, vor_blas_errchk_cgeru, cfloat, vor_blas_cgerin, false)
GER(zgeru, ZGERU, vor_blas_zgeru, vor_blas_errchk_zgeru, cdouble, vor_blas_zgerin, false)
GER(cgerc, CGERC, vor_blas_cgerc, vor_blas_errchk_cgerc, cfloat, vor_blas_cgerin, true)
GER(zgerc, ZGERC, vor_blas_zgerc, vor_blas_errchk_zgerc, cdouble, vor_blas_zgerin, true)

} // namespace vor::blas
