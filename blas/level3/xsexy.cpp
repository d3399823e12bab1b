// xssexy, xdsexy: C := A^T * B for two tall matrices, k by m, all three stored without gaps. The one
// product whose k is cut among threads: each part gives an m by m partial product, and these are added
// in the order of the parts.
//
// The thread decision does not ask whether the caller is in a parallel region already; there the
// runtime gives a team of one, which does the parts one after the other.
#include "serv/team.h"
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"
#include "serv/memory.h"
#include "vor_blas.h"

namespace {

template <class T>
using Engine = void PARAMS_XGEMM(T);

// slice := A^T * B over `rows` rows; with none of them the slice is zero.
template <class T>
void partial_product(Engine<T>* engine, int rows, int k, int m, const T* a, const T* b, T* slice) {
    const T one = 1, zero = 0;
    engine("T", "N", &m, &m, &rows, &one, a, &k, b, &k, &zero, slice, &m);
}

template <class T>
void inner_products(Engine<T>* engine, int k, int m, const T* a, const T* b, T* c) {
    if (m < 1) return;
    const int depth = k > 0 ? k : 0, leading = k > 1 ? k : 1;
    if (vor_serv_in_serial() == 1) return partial_product(engine, depth, leading, m, a, b, c);

    const int parts = omp_get_max_threads() + 1;
    const size_t size = static_cast<size_t>(m) * static_cast<size_t>(m);
    size_t all;
    const vor::Scratch<T> slices(__builtin_mul_overflow(size, parts, &all) ? ~size_t{0} : all);
    if (!slices) return partial_product(engine, depth, leading, m, a, b, c);

    T* const first = slices.get();
#pragma omp parallel for num_threads(parts - 1) schedule(static, 1)
    for (int i = 0; i < parts; ++i) {
        const int chunk = depth / parts, start = chunk * i;
        const int rows = i < parts - 1 ? chunk : depth - start;
        partial_product(engine, rows, leading, m, a + start, b + start,
                        first + size * static_cast<size_t>(i));
    }
    for (size_t e = 0; e < size; ++e) c[e] = 0;
    for (int i = 0; i < parts; ++i)
        for (size_t e = 0; e < size; ++e) c[e] += first[size * static_cast<size_t>(i) + e];
}

} // namespace

#define SEXY(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_x##p##sexy PARAMS_SEXY(T) {                                           \
        inner_products(vor_blas_x##p##gemm, *k, *m, a, b, c);                                      \
    }                                                                                              \
    VOR_ENTRY(void, x##p##sexy, X##P##SEXY, vor_blas_x##p##sexy, PARAMS_SEXY(T), ARGS_SEXY)
SEXY(s, S, float)
SEXY(d, D, double)
