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

namespace vor::blas {
namespace {

enum class Pivot { v, t, b };

// All rotations on `columns` columns of A together: each c[j], s[j] is loaded once for them.
template <Pivot pivot, bool forward, int columns, class T>
[[gnu::always_inline]] inline void rotate(int m, const real_t<T>* c, const real_t<T>* s, T* a,
                                          int lda) {
    using V = work_t<T>;
    for (int step = 0; step < m - 1; ++step) {
        const int j = forward ? step : m - 2 - step;
        const work_real_t<T> cosine = c[j], sine = s[j];
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
void lasr(int m, int n, const real_t<T>* c, const real_t<T>* s, T* a, int lda) {
    constexpr int kGroup = 4;
    if (m < 2) return;
    int j = 0;
    for (; j + kGroup <= n; j += kGroup) rotate<pivot, forward, kGroup>(m, c, s, a + j * lda, lda);
    for (; j < n; ++j) rotate<pivot, forward, 1>(m, c, s, a + j * lda, lda);
}

} // namespace

#define LASR(name, NAME, engine, T, pivot, forward)                                                \
    VOR_ENGINE void engine PARAMS_LASR(T) {                                                        \
        lasr<Pivot::pivot, forward>(*m, *n, c, s, a, *lda);                                        \
    }                                                                                              \
    VOR_ENTRY(void, name, NAME, engine, PARAMS_LASR(T), ARGS_LASR)
LASR(slasr_lvf, SLASR_LVF, vor_blas_slasr_lvf, float, v, true)
LASR(slasr_lvb, SLASR_LVB, vor_blas_slasr_lvb, float, v, false)
LASR(slasr_ltf, SLASR_LTF, vor_blas_slasr_ltf, float, t, true)
LASR(slasr_ltb, SLASR_LTB, vor_blas_slasr_ltb, float, t, false)
LASR(slasr_lbf, SLASR_LBF, vor_blas_slasr_lbf, float, b, true)
LASR(slasr_lbb, SLASR_LBB, vor_blas_slasr_lbb, float, b, false)
LASR(dlasr_lvf, DLASR_LVF, vor_blas_dlasr_lvf, double, v, true)
LASR(dlasr_lvb, DLASR_LVB, vor_blas_dlasr_lvb, double, v, false)
LASR(dlasr_ltf, DLASR_LTF, vor_blas_dlasr_ltf, double, t, true)
LASR(dlasr_ltb, DLASR_LTB, vor_blas_dlasr_ltb, double, t, false)
LASR(dlasr_lbf, DLASR_LBF, vor_blas_dlasr_lbf, double, b, true)
LASR(dlasr_lbb, DLASR_LBB, vor_blas_dlasr_lbb, double, b, false)
LASR(clasr_lvf, CLASR_LVF, vor_blas_clasr_lvf, cfloat, v, true)
LASR(clasr_lvb, CLASR_LVB, vor_blas_clasr_lvb, cfloat, v, false)
LASR(clasr_ltf, CLASR_LTF, vor_blas_clasr_ltf, cfloat, t, true)
LASR(clasr_ltb, CLASR_LTB, vor_blas_clasr_ltb, cfloat, t, false)
LASR(clasr_lbf, CLASR_LBF, vor_blas_clasr_lbf, cfloat, b, true)
LASR(clasr_lbb, CLASR_LBB, vor_blas_clasr_lbb, cfloat, b, false)
LASR(zlasr_lvf, ZLASR_LVF, vor_blas_zlasr_lvf, cdouble, v, true)
LASR(zlasr_lvb, ZLASR_LVB, vor_blas_zlasr_lvb, cdouble, v, false)
LASR(zlasr_ltf, ZLASR_LTF, vor_blas_zlasr_ltf, cdouble, t, true)
LASR(zlasr_ltb, ZLASR_LTB, vor_blas_zlasr_ltb, cdouble, t, false)
LASR(zlasr_lbf, ZLASR_LBF, vor_blas_zlasr_lbf, cdouble, b, true)
LASR(zlasr_lbb, ZLASR_LBB, vor_blas_zlasr_lbb, cdouble, b, false)

} // namespace vor::blas
