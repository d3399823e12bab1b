// Panels of A and B for sgemm, dgemm and zgemm: layouts in gemm_pack.h.
//
// Copies move whole vectors; a transposition goes through registers in square blocks, one cache line
// of the source wide, so that every line is read once. Doubles are moved as bits.
#include "blas/kernel/gemm_pack.h"
#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "serv/entry.h"

#include <algorithm>
#include <string.h>

namespace vor::blas {
namespace {

constexpr int kLine = 64; // bytes
constexpr int kAhead = 8; // columns

// A vector holds kLanes<T> elements.
template <class T>
constexpr int kLanes = 16 / sizeof(T);

template <class T>
__m128 load_vector(const T* x) {
    return load<false>(reinterpret_cast<const float*>(x));
}

template <class T>
void store_vector(T* x, __m128 value) {
    store<false>(reinterpret_cast<float*>(x), value);
}

// What is done to the elements on their way: on one, and on a vector of them.
template <class T>
struct Copy {
    T operator()(T x) const { return x; }
    __m128 operator()(__m128 x) const { return x; }
};

struct Multiply {
    float factor;
    float operator()(float x) const { return x * factor; }
    __m128 operator()(__m128 x) const { return _mm_mul_ps(x, _mm_set1_ps(factor)); }
};

struct Conjugate {
    cdouble operator()(cdouble x) const { return conjugated(x); }
    __m128 operator()(__m128 x) const { return _mm_xor_ps(x, _mm_setr_ps(0, 0, 0, -0.0f)); }
};

// out[y * out_step + x] = value(in[x * in_step + y]) for a square block of kLanes<T> rows and columns.
template <class T, class F>
inline void transpose_block(const T* in, int in_step, T* out, int out_step, F value) {
    __m128 x0 = value(load_vector(in));
    if constexpr (kLanes<T> == 4) {
        __m128 x1 = value(load_vector(in + in_step)), x2 = value(load_vector(in + 2 * in_step));
        __m128 x3 = value(load_vector(in + 3 * in_step));
        _MM_TRANSPOSE4_PS(x0, x1, x2, x3);
        store_vector(out, x0);
        store_vector(out + out_step, x1);
        store_vector(out + 2 * out_step, x2);
        store_vector(out + 3 * out_step, x3);
    } else if constexpr (kLanes<T> == 2) {
        const __m128 x1 = value(load_vector(in + in_step));
        store_vector(out, _mm_movelh_ps(x0, x1));
        store_vector(out + out_step, _mm_movehl_ps(x1, x0));
    } else {
        store_vector(out, x0);
    }
}

// The same for nx by ny elements.
template <class T, class F>
void transpose(int nx, int ny, const T* in, int in_step, T* out, int out_step, F value) {
    constexpr int L = kLanes<T>, chunk = kLine / sizeof(T);
    const int full_x = nx / L * L, full_y = ny / L * L;
    for (int begin = 0; begin < full_y; begin += chunk) {
        const int count = std::min(chunk, full_y - begin) / L;
        for (int x = 0; x < full_x; x += L) {
            const T* from = in + x * in_step + begin;
            T* to = out + begin * out_step + x;
            for (int y = 0; y < count; ++y, from += L, to += L * out_step)
                transpose_block(from, in_step, to, out_step, value);
        }
    }
    const auto single = [&](int x, int y) { out[y * out_step + x] = value(in[x * in_step + y]); };
    for (int y = 0; y < ny; ++y)
        for (int x = y < full_y ? full_x : 0; x < nx; ++x) single(x, y);
}

// ---- Panels of A: groups of G rows, each for `depth` steps, of which k are written.

template <class T>
constexpr int kGroup = is_complex<T>    ? 2
                       : sizeof(T) == 4 ? 16
                                        : 4;

template <class T, class F>
void pack_a(Op op, const T* a, int lda, int m, int k, int depth, T* pack, F value) {
    constexpr int G = kGroup<T>;
    if (op != Op::plain) {
        for (int i = 0; i < m; i += G)
            transpose(G, k, a + i * lda, lda, pack + i * depth, G, value);
        return;
    }
    for (int l = 0; l < k; ++l, a += lda, pack += G) {
        // The columns may lie too far apart for the hardware to guess, and a column takes less time
        // than memory. Behind the last one there may be nothing: a prefetch does not fault.
        for (int i = 0; i < m; i += kLine / static_cast<int>(sizeof(T)))
            prefetch(a + kAhead * lda + i);
        for (int i = 0; i < m; i += G)
            for (int r = 0; r < G; r += kLanes<T>)
                store_vector(pack + i * depth + r, value(load_vector(a + i + r)));
    }
}

void pack_scaled(Op op, const float* a, int lda, int m, int k, int depth, float* pack,
                 float alpha) {
    pack_a(op, a, lda, m, k, depth, pack, Multiply{alpha});
}

// There are no vectors of doubles: a second walk multiplies, where there is something to multiply.
void pack_scaled(Op op, const double* a, int lda, int m, int k, int depth, double* pack,
                 double alpha) {
    pack_a(op, a, lda, m, k, depth, pack, Copy<double>{});
    if (alpha == 1) return;
    constexpr int G = kGroup<double>;
    for (int i = 0; i < m; i += G, pack += G * depth)
        for (int x = 0; x < G * k; ++x) pack[x] = scaled(pack[x], alpha);
}

// ---- Panels of B: columns of k steps, followed by zeros up to `depth`.

template <class T, class F>
void pack_b(Op op, const T* b, int ldb, int n, int k, int depth, T* pack, int ldp, F value) {
    if (op != Op::plain) transpose(k, n, b, ldb, pack, ldp, value);
    for (int j = 0; j < n; ++j, b += ldb, pack += ldp) {
        if (op == Op::plain) memcpy(pack, b, static_cast<size_t>(k) * sizeof(T));
        for (int l = k; l < depth; ++l) pack[l] = T{};
    }
}

} // namespace

#define PACK_A(name, T, op)                                                                        \
    VOR_ENGINE void name PARAMS_PACK_A(T) {                                                        \
        pack_scaled(Op::op, a, *lda, *m, *k, *k, pack, *alpha);                                    \
    }
#define PACK_A_PADDED(name, T, op)                                                                 \
    VOR_ENGINE void name PARAMS_PACK_A_PADDED(T) {                                                 \
        pack_scaled(Op::op, a, *lda, *m, *k, *kpad, pack, *alpha);                                 \
    }
#define PACK_B(name, T, op)                                                                        \
    VOR_ENGINE void name PARAMS_PACK_B(T) {                                                        \
        pack_b(Op::op, b, *ldb, *n, *k & ~7, 0, pack, *ldp, Copy<T>{});                            \
    }
#define PACK_B_PADDED(name, T, op)                                                                 \
    VOR_ENGINE void name PARAMS_PACK_B_PADDED(T) {                                                 \
        pack_b(Op::op, b, *ldb, *n, *k, *kpad, pack, *ldp, Copy<T>{});                             \
    }
PACK_A(vor_blas_sgtran, float, plain)
PACK_A(vor_blas_sgtrat, float, transposed)
PACK_A_PADDED(vor_blas_sgtranp, float, plain)
PACK_A_PADDED(vor_blas_sgtratp, float, transposed)
PACK_B(vor_blas_sgtrbn, float, transposed)
PACK_B_PADDED(vor_blas_sgtrbnp, float, plain)
PACK_B_PADDED(vor_blas_sgtrbtp, float, transposed)
PACK_A(vor_blas_dgtran, double, plain)
PACK_A(vor_blas_dgtrat, double, transposed)
PACK_A_PADDED(vor_blas_dgtranp, double, plain)
PACK_A_PADDED(vor_blas_dgtratp, double, transposed)
PACK_B(vor_blas_dgtrbn, double, transposed)
PACK_B_PADDED(vor_blas_dgtrbnp, double, plain)
PACK_B_PADDED(vor_blas_dgtrbtp, double, transposed)

#define PACK_COMPLEX_A(name, op, Value)                                                            \
    VOR_ENGINE void name PARAMS_PACK_A_Z(cdouble) {                                                \
        pack_a(Op::op, a, *lda, *m, *k, *k, pack, Value{});                                        \
    }
#define PACK_COMPLEX_B(name, op, Value)                                                            \
    VOR_ENGINE void name PARAMS_PACK_B(cdouble) {                                                  \
        pack_b(Op::op, b, *ldb, *n, *k, 0, pack, *ldp, Value{});                                   \
    }
PACK_COMPLEX_A(vor_blas_zgtran, plain, Copy<cdouble>)
PACK_COMPLEX_A(vor_blas_zgtrat, transposed, Copy<cdouble>)
PACK_COMPLEX_A(vor_blas_zgtrac, conjugated, Conjugate)
PACK_COMPLEX_B(vor_blas_zgtrbt, transposed, Copy<cdouble>)
PACK_COMPLEX_B(vor_blas_zgtrbc, conjugated, Conjugate)

} // namespace vor::blas
