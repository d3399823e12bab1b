// lasr: a sequence of plane rotations applied to A from the left, m by n, in place. Rotation j, with
// cosine c[j] and sine s[j], j = 0 .. m-2, turns two rows of every column:
//
//   v  rows j and j+1     variable pivot
//   t  rows 0 and j+1     top pivot
//   b  rows j and m-1     bottom pivot
//
//   upper row := s * lower + c * upper,  lower row := c * lower - s * upper
//
// f applies them in ascending order of j, b in descending order. c and s are real for all types. No
// rotation is tested for being trivial. With m < 2 or n < 1 nothing is read or written.
#include "blas/level2/vector.h"
#include "blas/signatures.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using vor::element;
using vor::number;

enum class Pivot { v, t, b };

// All rotations on `columns` columns of A together: each c[j], s[j] is loaded once for them.
template <Pivot pivot, bool forward, int columns, class T>
[[gnu::always_inline]] inline void rotate(int m, const vor::real_t<T>* c, const vor::real_t<T>* s,
                                          T* a, int lda) {
    using V = vor::work_t<T>;
    for (int step = 0; step < m - 1; ++step) {
        const int j = forward ? step : m - 2 - step;
        const vor::work_real_t<T> cosine = c[j], sine = s[j];
        T* const upper = a + (pivot == Pivot::t ? 0 : j);
        T* const lower = a + (pivot == Pivot::b ? m - 1 : j + 1);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) {
            const V p = number<V>(upper[q * lda]), r = number<V>(lower[q * lda]);
            upper[q * lda] = element<T>(r * sine + p * cosine);
            lower[q * lda] = element<T>(r * cosine - p * sine);
        }
    }
}

template <Pivot pivot, bool forward, class T>
void lasr(int m, int n, const vor::real_t<T>* c, const vor::real_t<T>* s, T* a, int lda) {
    constexpr int kGroup = 4;
    if (m < 2) return;
    int j = 0;
    for (; j + kGroup <= n; j += kGroup) rotate<pivot, forward, kGroup>(m, c, s, a + j * lda, lda);
    for (; j < n; ++j) rotate<pivot, forward, 1>(m, c, s, a + j * lda, lda);
}

} // namespace

#define LASR(p, P, type, pivot, PIVOT, direction, DIRECTION, forward)                              \
    VOR_ENGINE void vor_blas_##p##lasr_l##pivot##direction PARAMS_LASR(type) {                     \
        lasr<Pivot::pivot, forward>(*m, *n, c, s, a, *lda);                                        \
    }                                                                                              \
    VOR_ENTRY(void, p##lasr_l##pivot##direction, P##LASR_L##PIVOT##DIRECTION,                      \
              vor_blas_##p##lasr_l##pivot##direction, PARAMS_LASR(type), ARGS_LASR)
#define MEMBERS(p, P, type)                                                                        \
    LASR(p, P, type, v, V, f, F, true)                                                             \
    LASR(p, P, type, v, V, b, B, false)                                                            \
    LASR(p, P, type, t, T, f, F, true)                                                             \
    LASR(p, P, type, t, T, b, B, false)                                                            \
    LASR(p, P, type, b, B, f, F, true)                                                             \
    LASR(p, P, type, b, B, b, B, false)
MEMBERS(s, S, float)
MEMBERS(d, D, double)
MEMBERS(c, C, vor::cfloat)
MEMBERS(z, Z, vor::cdouble)
