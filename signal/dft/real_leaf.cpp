// Real leaves of odd length r. Block by block, for t = 0 to c-1: forward, the reals
// x[offset + t p + m p c], m = 0 to r-1, become a half-complex result of r values, one result behind
// the other; inverse, such results become reals at those places. Source and destination do not
// overlap.
#include "signal/dft/kernels.h"
#include "signal/dft/radix.h"

namespace vor::dft {
namespace {

template <class Radix, class T>
VOR_INLINE inline void analyse(Radix radix, const T* x, int stride, T* y) {
    radix.run(
        x[0],
        [&](int m) VOR_INLINE { return make_pair(x[m * stride], x[(radix.size() - m) * stride]); },
        [&](T y0) VOR_INLINE { y[0] = y0; },
        [&](int k, Sums<T> t) VOR_INLINE { y[2 * k - 1] = t.a, y[2 * k] = t.b; });
}

template <class Radix, class T>
VOR_INLINE inline void synthesise(Radix radix, const T* x, T* y, int stride) {
    radix.run(
        x[0],
        [&](int k) VOR_INLINE {
            return Pair<T>{2 * x[2 * k - 1], 2 * x[2 * k]};
        },
        [&](T y0) VOR_INLINE { y[0] = y0; },
        [&](int m, Sums<T> t) VOR_INLINE {
            y[m * stride] = t.a + t.b;
            y[(radix.size() - m) * stride] = t.a - t.b;
        });
}

template <Direction D, class Radix, class T>
VOR_INLINE inline void real_leaf(Radix radix, const T* x, int p, T* y, int c, int blocks,
                                 const int* offsets) {
    const int r = radix.size();
    for (int b = 0; b < blocks; ++b)
        for (int t = 0; t < c; ++t) {
            const int strided = offsets[b] + t * p, packed = (b * c + t) * r;
            if constexpr (D == Direction::forward)
                analyse(radix, x + strided, p * c, y + packed);
            else
                synthesise(radix, x + packed, y + strided, p * c);
        }
}

constexpr int kNoOffset = 0;

} // namespace
} // namespace vor::dft

#define LEAF(R, Dir, D, suffix, T)                                                                 \
    extern "C" void tavs_rDft##Dir##_Prime##R##_##suffix(const T* source, int p, T* destination,   \
                                                         int c, int blocks, const int* offsets) {  \
        vor::dft::real_leaf<vor::dft::Direction::D>(vor::dft::FixedRadix<R>{}, source, p,          \
                                                    destination, c, blocks, offsets);              \
    }
#define LEAVES(Dir, D, suffix, T, C)                                                               \
    LEAF(3, Dir, D, suffix, T)                                                                     \
    LEAF(5, Dir, D, suffix, T)                                                                     \
    extern "C" void tavs_rDft##Dir##_Prime_##suffix(const T* source, int p, T* destination, int r, \
                                                    int c, const C* table, void* scratch) {        \
        const vor::dft::TableRadix<T> radix{r, table, scratch};                                    \
        vor::dft::real_leaf<vor::dft::Direction::D>(radix, source, p, destination, c, 1,           \
                                                    &vor::dft::kNoOffset);                         \
    }
LEAVES(Fwd, forward, 32f, float, vor::cfloat)
LEAVES(Inv, inverse, 32f, float, vor::cfloat)
LEAVES(Fwd, forward, 64f, double, vor::cdouble)
LEAVES(Inv, inverse, 64f, double, vor::cdouble)
