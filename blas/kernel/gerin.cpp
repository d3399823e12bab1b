// gerin: y := y + alpha * x over m elements, each sum in extended precision and rounded once, for all
// types. An alpha of 0, of either sign, leaves y alone, whatever x holds; a subnormal one does not, also
// where the processor flushes such numbers to 0.
#include "blas/kernel/gerin.h"
#include "arith/prefetch.h"
#include "blas/kernel/columns.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kRound = 8; // elements, all of them in straight-line code

template <class T, class V>
void add_rounds(int rounds, V alpha, const T* x, T* y) {
    for (; rounds > 0; --rounds, x += kRound, y += kRound) {
        prefetch(y + kRound);
#pragma GCC unroll 8
        for (int i = 0; i < kRound; ++i)
            y[i] = element<T>(product<false>(factor<V>(x[i]), alpha) + number<V>(y[i]));
    }
}

template <class T>
void gerin(int m, const T& alpha, const T* x, int incx, T* y, int incy) {
    if (m < 1 || has_zero_bits(alpha)) return;
    const auto t = number<wide_t<T>>(alpha);
    int done = 0;
    if (incx == 1 && incy == 1) {
        done = m / kRound * kRound;
        add_rounds(m / kRound, t, x, y);
    }
    on_vectors(m, x, incx, m, y, incy, [&](auto from, auto to) {
        update_column(m - done, to.from(done), t, from.from(done));
    });
}

} // namespace

#define GERIN(name, T)                                                                             \
    VOR_ENGINE void name PARAMS_GERIN(T) {                                                         \
        gerin(*m, *alpha, x, *incx, y, *incy);                                                     \
    }
GERIN(vor_blas_sgerin, float)
GERIN(vor_blas_dgerin, double)
GERIN(vor_blas_cgerin, cfloat)
GERIN(vor_blas_zgerin, cdouble)

} // namespace vor::blas
