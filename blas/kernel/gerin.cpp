// gerin: y := y + alpha * x over m elements, each sum in extended precision and rounded once, for all
// types. An alpha of 0, of either sign, leaves y alone, whatever x holds.
#include "blas/kernel/gerin.h"
#include "blas/level2/columns.h"
#include "serv/entry.h"

namespace {

constexpr int kRound = 8; // elements, all of them in straight-line code

template <class T, class V>
void add_rounds(int rounds, V alpha, const T* x, T* y) {
    for (; rounds > 0; --rounds, x += kRound, y += kRound) {
        _mm_prefetch(reinterpret_cast<const char*>(y + kRound), _MM_HINT_T0);
#pragma GCC unroll 8
        for (int i = 0; i < kRound; ++i)
            y[i] = vor::element<T>(vor::product<false>(vor::factor<V>(x[i]), alpha) +
                                   vor::number<V>(y[i]));
    }
}

template <class T>
void gerin(int m, T alpha, const T* x, int incx, T* y, int incy) {
    if (m < 1 || vor::is_zero(alpha)) return;
    const auto t = vor::number<vor::wide_t<T>>(alpha);
    int done = 0;
    if (incx == 1 && incy == 1) {
        done = m / kRound * kRound;
        add_rounds(m / kRound, t, x, y);
    }
    vor::on_vectors(m, x, incx, m, y, incy, [&](auto from, auto to) {
        vor::update_column(m - done, to.from(done), t, from.from(done));
    });
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
