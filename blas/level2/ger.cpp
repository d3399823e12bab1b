// ger, geru, gerc: A := A + alpha * x * y^T, or y^H for gerc. A column whose element of y is 0 is
// passed over, whatever x holds.
#include "blas/kernel/gerin.h"
#include "blas/level2/entry.h"
#include "blas/level2/vector.h"

namespace {

using vor::number;

template <bool conjugate, class T>
void ger(void(*gerin) PARAMS_GERIN(T), const int* m, int n, T alpha, const T* x, const int* incx,
         const T* y, int incy, T* a, int lda) {
    using V = vor::wide_t<T>;
    if (*m < 1 || n < 1 || vor::is_zero(alpha)) return;
    const int one = 1;
    const vor::Vector<const T, int> v{vor::walk_start(y, n, incy), incy};
    for (int j = 0; j < n; ++j) {
        if (vor::is_zero(v[j])) continue;
        const T yj = conjugate ? vor::conjugated(v[j]) : v[j];
        const T t = vor::element<T>(number<V>(alpha) * number<V>(yj));
        gerin(m, &t, x, incx, a + j * lda, &one);
    }
}

} // namespace

#define MEMBER(p, P, T, op, OP, conjugate)                                                         \
    LEVEL2(p, P, T, op, OP, GER,                                                                   \
           ger<conjugate, T>(vor_blas_##p##gerin, m, *n, *alpha, x, incx, y, *incy, a, *lda))
MEMBER(s, S, float, ger, GER, false)
MEMBER(d, D, double, ger, GER, false)
MEMBER(c, C, vor::cfloat, geru, GERU, false)
MEMBER(z, Z, vor::cdouble, geru, GERU, false)
MEMBER(c, C, vor::cfloat, gerc, GERC, true)
MEMBER(z, Z, vor::cdouble, gerc, GERC, true)
