// Panels of A and B for sgemm, dgemm and zgemm: layouts in gemm_pack.h.
#include "blas/level3/gemm_pack.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "serv/entry.h"

namespace {

using vor::cdouble;
using vor::Op;
using vor::Operand;

template <class T>
constexpr int kGroup = vor::is_complex<T> ? 2
                       : sizeof(T) == 4   ? 16
                                          : 4;

template <class T>
T conjugate(T x) {
    return {x.re, 0 - x.im};
}

// m rows of a, k steps, into groups that hold `depth` steps; value(x) is stored for x.
template <class T, class F>
void pack_a(Operand<T> a, int m, int k, int depth, T* pack, F value) {
    constexpr int G = kGroup<T>;
    for (int i = 0; i < m; i += G, pack += G * depth)
        for (int l = 0; l < k; ++l)
            for (int r = 0; r < G; ++r) pack[l * G + r] = value(a(i + r, l));
}

template <class T>
void pack_scaled(Operand<T> a, int m, int k, int depth, T* pack, T alpha) {
    if (vor::is_one(alpha)) return pack_a(a, m, k, depth, pack, [](T x) { return x; });
    pack_a(a, m, k, depth, pack, [alpha](T x) { return vor::product(x, alpha); });
}

// n columns of b, k steps, followed by zeros up to `depth`.
template <class T, class F>
void pack_b(Operand<T> b, int n, int k, int depth, T* pack, int ldp, F value) {
    for (int j = 0; j < n; ++j, pack += ldp) {
        for (int l = 0; l < k; ++l) pack[l] = value(b(l, j));
        for (int l = k; l < depth; ++l) pack[l] = T{};
    }
}

template <class T>
void pack_copied(Operand<T> b, int n, int k, int depth, T* pack, int ldp) {
    pack_b(b, n, k, depth, pack, ldp, [](T x) { return x; });
}

} // namespace

#define PACK(p, T)                                                                                 \
    VOR_ENGINE void vor_blas_##p##gtran PARAMS_PACK_A(T) {                                         \
        pack_scaled(Operand<T>(Op::plain, a, *lda), *m, *k, *k, pack, *alpha);                     \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtrat PARAMS_PACK_A(T) {                                         \
        pack_scaled(Operand<T>(Op::transposed, a, *lda), *m, *k, *k, pack, *alpha);                \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtranp PARAMS_PACK_A_PADDED(T) {                                 \
        pack_scaled(Operand<T>(Op::plain, a, *lda), *m, *k, *kpad, pack, *alpha);                  \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtratp PARAMS_PACK_A_PADDED(T) {                                 \
        pack_scaled(Operand<T>(Op::transposed, a, *lda), *m, *k, *kpad, pack, *alpha);             \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtrbn PARAMS_PACK_B(T) {                                         \
        pack_copied(Operand<T>(Op::transposed, b, *ldb), *n, *k & ~7, 0, pack, *ldp);              \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtrbnp PARAMS_PACK_B_PADDED(T) {                                 \
        pack_copied(Operand<T>(Op::plain, b, *ldb), *n, *k, *kpad, pack, *ldp);                    \
    }                                                                                              \
    VOR_ENGINE void vor_blas_##p##gtrbtp PARAMS_PACK_B_PADDED(T) {                                 \
        pack_copied(Operand<T>(Op::transposed, b, *ldb), *n, *k, *kpad, pack, *ldp);               \
    }
PACK(s, float)
PACK(d, double)

#define PACK_COMPLEX_A(name, op, value)                                                            \
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_A_Z(cdouble) {                                     \
        pack_a(Operand<cdouble>(Op::op, a, *lda), *m, *k, *k, pack, value);                        \
    }
#define PACK_COMPLEX_B(name, op, value)                                                            \
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_B(cdouble) {                                       \
        pack_b(Operand<cdouble>(Op::op, b, *ldb), *n, *k, 0, pack, *ldp, value);                   \
    }
PACK_COMPLEX_A(zgtran, plain, [](cdouble x) { return x; })
PACK_COMPLEX_A(zgtrat, transposed, [](cdouble x) { return x; })
PACK_COMPLEX_A(zgtrac, conjugated, conjugate<cdouble>)
PACK_COMPLEX_B(zgtrbt, transposed, [](cdouble x) { return x; })
PACK_COMPLEX_B(zgtrbc, conjugated, conjugate<cdouble>)
