// The sparse-vector routines for C: n values x at the positions indx, counted from 0, of a full vector
// y. (Dodson, Grimes, Lewis: Sparse Extensions to the Fortran BLAS, ACM TOMS 17 (1991) 253-263.)
//
// They stand alone: no entry is called, no configuration file read. The elements are worked through in
// their order, so that repeated positions accumulate, or the later one wins. Every step is calculated
// in extended precision, in single precision too, and every sum is kept in it and rounded once.
//
// n < 1: nothing is read or written, and a sum is 0. axpyi with alpha = 0 (both parts) and roti with
// c = 1 and s = 0 return at once.
#include "blas/cblas/interface.h"

#include "blas/level1/vector.h"

namespace {

using namespace vor;
using namespace vor::cblas;

// step(0) to step(n - 1), Group of them in a round while more than that remain.
template <int Group, class Step>
[[gnu::always_inline]] inline void in_order(int n, Step step) {
    int i = 0;
    for (; n - i > Group; i += Group)
#pragma GCC unroll 8
        for (int k = 0; k < Group; ++k) step(i + k);
    for (; i < n; ++i) step(i);
}
// Complex elements fill a cache line soon enough: their loops are not unrolled.
template <class T, int Group>
inline constexpr int kGroup = is_complex<T> ? 1 : Group;

template <class T>
void axpyi(int n, const T& alpha, const T* x, const int* indx, T* y) {
    if (is_zero(alpha)) return;
    const auto factor = widen(alpha);
    in_order<kGroup<T, 4>>(n, [&](int i) { add_product(factor, x[i], y[indx[i]]); });
}

template <class R>
R doti(int n, const R* x, const int* indx, const R* y) {
    extended sum = 0;
    in_order<4>(n, [&](int i) { accumulate(sum, x[i], y[indx[i]]); });
    return static_cast<R>(sum);
}

template <bool Conjugate, class T>
T doti(int n, const T* x, const int* indx, const T* y) {
    ProductSums<extended> sums;
    in_order<1>(n, [&](int i) { sums.add(x[i], y[indx[i]]); });
    return sums.template value<Conjugate, T>();
}

template <class T>
void gthr(int n, const T* y, T* x, const int* indx) {
    in_order<kGroup<T, 5>>(n, [&](int i) { x[i] = y[indx[i]]; });
}

template <class T>
void gthrz(int n, T* y, T* x, const int* indx) {
    in_order<kGroup<T, 4>>(n, [&](int i) {
        x[i] = y[indx[i]];
        y[indx[i]] = T{};
    });
}

template <class T>
void sctr(int n, const T* x, const int* indx, T* y) {
    in_order<kGroup<T, 5>>(n, [&](int i) { y[indx[i]] = x[i]; });
}

template <class R>
void roti(int n, R* x, const int* indx, R* y, extended c, extended s) {
    if (c == 1 && s == 0) return;
    in_order<1>(n, [&](int i) { rotate(c, s, x[i], y[indx[i]]); });
}

} // namespace

extern "C" {

#define FOR_ALL(p, T)                                                                              \
    void cblas_##p##axpyi(int n, Scalar<T> alpha, const Array<T>* x, const int* indx,              \
                          Array<T>* y) {                                                           \
        axpyi(n, *reference<const T*>(alpha), static_cast<const T*>(x), indx, static_cast<T*>(y)); \
    }                                                                                              \
    void cblas_##p##gthr(int n, const Array<T>* y, Array<T>* x, const int* indx) {                 \
        gthr(n, static_cast<const T*>(y), static_cast<T*>(x), indx);                               \
    }                                                                                              \
    void cblas_##p##gthrz(int n, Array<T>* y, Array<T>* x, const int* indx) {                      \
        gthrz(n, static_cast<T*>(y), static_cast<T*>(x), indx);                                    \
    }                                                                                              \
    void cblas_##p##sctr(int n, const Array<T>* x, const int* indx, Array<T>* y) {                 \
        sctr(n, static_cast<const T*>(x), indx, static_cast<T*>(y));                               \
    }
FOR_ALL(s, float)
FOR_ALL(d, double)
FOR_ALL(c, cfloat)
FOR_ALL(z, cdouble)

#define FOR_REAL(p, T)                                                                             \
    T cblas_##p##doti(int n, const T* x, const int* indx, const T* y) {                            \
        return doti(n, x, indx, y);                                                                \
    }                                                                                              \
    void cblas_##p##roti(int n, T* x, const int* indx, T* y, T c, T s) {                           \
        roti(n, x, indx, y, c, s);                                                                 \
    }
FOR_REAL(s, float)
FOR_REAL(d, double)

#define FOR_COMPLEX(name, T, conjugate)                                                            \
    void cblas_##name##_sub(int n, const void* x, const int* indx, const void* y, void* result) {  \
        *static_cast<T*>(result) =                                                                 \
            doti<conjugate>(n, static_cast<const T*>(x), indx, static_cast<const T*>(y));          \
    }
FOR_COMPLEX(cdotui, cfloat, false)
FOR_COMPLEX(cdotci, cfloat, true)
FOR_COMPLEX(zdotui, cdouble, false)
FOR_COMPLEX(zdotci, cdouble, true)
}
