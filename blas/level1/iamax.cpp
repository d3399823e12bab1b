// i?amax, i?amin: position, from 1, of the first element of largest or smallest magnitude, which is
// abs(x), for complex elements abs(re) + abs(im); 0 with n < 1 or a step below 1.
//
// Four candidates share the elements: element 4j+k competes with candidate k, what is left behind the
// last full group of four with candidate 4. Among equal candidates the smallest position wins, so that
// the result is that of a sequential scan. A NaN beats every candidate, and every next element beats a
// NaN candidate. The magnitudes of single-precision complex elements are rounded to float.
#include "blas/kernel/iamax_lanes.h"
#include "blas/level1/entry.h"

namespace vor::blas {
namespace {

template <class T>
using Measure = decltype(measure(T{}));

// 2 or 3 elements. The largest: all but the first compete with candidate 4. The smallest: in order.
template <class Order, class T>
int find_among_few(int n, const T* x, int incx) {
    constexpr bool kLargest = std::is_same_v<Order, Largest>;
    Candidates<Order, Measure<T>> candidates{{0, -1, -1, -1}, {0, 0, 0, 0}};
    candidates.enter(0, *x, 1);
    for (int i = 1; i < n; ++i) candidates.compete(kLargest ? 3 : 0, x[i * incx], i + 1);
    return kLargest ? candidates.winner() : candidates.position[0];
}

template <class Order, class T>
int find_strided(int n, const T* x, int incx) {
    Candidates<Order, Measure<T>> candidates;
    for (int k = 0; k < 4; ++k, x += incx) candidates.enter(k, *x, k + 1);
    int i = 4;
    for (; i + 4 <= n; i += 4)
#pragma GCC unroll 4
        for (int k = 0; k < 4; ++k, x += incx) candidates.compete(k, *x, i + k + 1);
    for (; i < n; ++i, x += incx) candidates.compete(3, *x, i + 1);
    return candidates.winner();
}

template <class Order, class T>
int find(int n, const T* x, int incx) {
    if (n < 1 || incx < 1) return 0;
    if (n == 1) return 1;
    if (n < 4) return find_among_few<Order>(n, x, incx);
    if constexpr (std::is_same_v<Measure<T>, float>)
        if (incx == 1) return find_vectors<Order>(n, x);
    return find_strided<Order>(n, x, incx);
}

} // namespace

#define EXTREME(name, NAME, engine, T, Order)                                                      \
    LEVEL1(int, name, NAME, engine, PARAMS_VALUE(T), ARGS_VALUE, return find<Order>(*n, x, *incx))
EXTREME(isamax, ISAMAX, vor_blas_isamax, float, Largest)
EXTREME(idamax, IDAMAX, vor_blas_idamax, double, Largest)
EXTREME(icamax, ICAMAX, vor_blas_icamax, cfloat, Largest)
EXTREME(izamax, IZAMAX, vor_blas_izamax, cdouble, Largest)
EXTREME(isamin, ISAMIN, vor_blas_isamin, float, Smallest)
EXTREME(idamin, IDAMIN, vor_blas_idamin, double, Smallest)
EXTREME(icamin, ICAMIN, vor_blas_icamin, cfloat, Smallest)
EXTREME(izamin, IZAMIN, vor_blas_izamin, cdouble, Smallest)

} // namespace vor::blas
