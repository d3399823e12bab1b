// gerin: y := y + alpha * x over m elements, each sum in extended precision and rounded once, for all
// types. An alpha of 0, of either sign, leaves y alone, whatever x holds.
#include "blas/kernel/gerin.h"
#include "blas/level2/columns.h"
#include "serv/entry.h"

namespace {

template <class T>
void gerin(int m, T alpha, const T* x, int incx, T* y, int incy) {
    if (m < 1 || vor::is_zero(alpha)) return;
    const auto t = vor::number<vor::wide_t<T>>(alpha);
    vor::on_vectors(m, x, incx, m, y, incy,
                    [&](auto from, auto to) { vor::update_column(m, to, t, from); });
}

} // namespace

#define GERIN(p, T)                                                                                \
    VOR_ENGINE void vor_blas_##p##gerin PARAMS_GERIN(T) {                                          \
        gerin(*m, *alpha, x, *incx, y, *incy);                                                     \
    }
GERIN(s, float)
GERIN(d, double)
GERIN(c, vor::cfloat)
GERIN(z, vor::cdouble)
