// xssexy, xdsexy: C := A^T * B for two tall matrices, k by m, all three stored without gaps. The one
// product whose k is cut among threads: each part gives an m by m partial product, and these are added
// in the order of the parts.
//
// The thread decision does not ask whether the caller is in a parallel region already; there the
// runtime gives a team of one, which does the parts one after the other.
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"
#include "serv/memory.h"
#include "serv/team.h"
#include "vor_blas.h"

namespace vor::blas {
namespace {

// slice := A^T * B over `rows` rows; with none of them the slice is zero.
template <class T>
void partial_product(int rows, int k, int m, const T* a, const T* b, T* slice) {
    multiply<T>('T', 'N', m, m, rows, 1, a, k, b, k, 0, slice, m);
}

template <class T>
void inner_products(int k, int m, const T* a, const T* b, T* c) {
    if (m < 1) return;
    const int depth = k > 0 ? k : 0, leading = k > 1 ? k : 1;
    if (vor_serv_in_serial() == 1) return partial_product(depth, leading, m, a, b, c);

    const int parts = omp_get_max_threads() + 1;
    const size_t size = static_cast<size_t>(m) * static_cast<size_t>(m);
    size_t all;
    const Scratch<T> slices(__builtin_mul_overflow(size, parts, &all) ? ~size_t{0} : all);
    if (!slices) return partial_product(depth, leading, m, a, b, c);

    T* const first = slices.get();
    team_loop(parts, parts - 1, [&](int i) {
        const int chunk = depth / parts, start = chunk * i;
        const int rows = i < parts - 1 ? chunk : depth - start;
        partial_product(rows, leading, m, a + start, b + start,
                        first + size * static_cast<size_t>(i));
    });
    for (size_t e = 0; e < size; ++e) c[e] = 0;
    for (int i = 0; i < parts; ++i)
        for (size_t e = 0; e < size; ++e) c[e] += first[size * static_cast<size_t>(i) + e];
}

} // namespace

#define SEXY(name, NAME, engine, T)                                                                \
    VOR_ENGINE void engine PARAMS_SEXY(T) {                                                        \
        inner_products(*k, *m, a, b, c);                                                           \
    }                                                                                              \
    VOR_ENTRY(void, name, NAME, engine, PARAMS_SEXY(T), ARGS_SEXY)
SEXY(xssexy, XSSEXY, vor_blas_xssexy, float)
SEXY(xdsexy, XDSEXY, vor_blas_xdsexy, double)

} // namespace vor::blas
