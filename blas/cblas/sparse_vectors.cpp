// The sparse-vector routines for C: n values x at the positions indx, counted from 0, of a full vector
// y. (Dodson, Grimes, Lewis: Sparse Extensions to the Fortran BLAS, ACM TOMS 17 (1991) 253-263.)
//
// They stand alone: no entry is called, no configuration file read. The elements are worked through in
// their order, so that repeated positions accumulate, or the later one wins. Every step is calculated
// in extended precision, in single precision too, and every sum is kept in it and rounded once.
//
// n < 1: nothing is read or written, and a sum is 0. axpyi with alpha = 0 (both parts) and roti with
// c = 1 and s = 0 return at once.
#include "blas/level1/sparse_vectors.h"
#include "blas/cblas/interface.h"

namespace {

using namespace vor;
using namespace vor::blas;
using namespace vor::cblas;

// Elements in straight-line code. Complex ones fill a cache line soon enough.
template <class T, int real>
inline constexpr int kGroup = is_complex<T> ? 1 : real;

Positions<0> from_zero(const int* indx) {
    return {indx};
}

} // namespace

extern "C" {

#define FOR_ALL(axpyi, gthr, gthrz, sctr, T)                                                       \
    void axpyi(int n, Scalar<T> alpha, const Array<T>* x, const int* indx, Array<T>* y) {          \
        add_sparse<kGroup<T, 4>>(n, *reference<const T*>(alpha), static_cast<const T*>(x),         \
                                 from_zero(indx), static_cast<T*>(y));                             \
    }                                                                                              \
    void gthr(int n, const Array<T>* y, Array<T>* x, const int* indx) {                            \
        gather<kGroup<T, 5>>(n, static_cast<const T*>(y), static_cast<T*>(x), from_zero(indx));    \
    }                                                                                              \
    void gthrz(int n, Array<T>* y, Array<T>* x, const int* indx) {                                 \
        gather_and_zero<kGroup<T, 4>>(n, static_cast<T*>(y), static_cast<T*>(x), from_zero(indx)); \
    }                                                                                              \
    void sctr(int n, const Array<T>* x, const int* indx, Array<T>* y) {                            \
        scatter<kGroup<T, 5>>(n, static_cast<const T*>(x), from_zero(indx), static_cast<T*>(y));   \
    }
FOR_ALL(cblas_saxpyi, cblas_sgthr, cblas_sgthrz, cblas_ssctr, float)
FOR_ALL(cblas_daxpyi, cblas_dgthr, cblas_dgthrz, cblas_dsctr, double)
FOR_ALL(cblas_caxpyi, cblas_cgthr, cblas_cgthrz, cblas_csctr, cfloat)
FOR_ALL(cblas_zaxpyi, cblas_zgthr, cblas_zgthrz, cblas_zsctr, cdouble)

#define FOR_REAL(doti, roti, T)                                                                    \
    T doti(int n, const T* x, const int* indx, const T* y) {                                       \
        return dot_sparse<extended, 4>(n, x, from_zero(indx), y);                                  \
    }                                                                                              \
    void roti(int n, T* x, const int* indx, T* y, T c, T s) {                                      \
        rotate_sparse<extended>(n, x, from_zero(indx), y, c, s);                                   \
    }
FOR_REAL(cblas_sdoti, cblas_sroti, float)
FOR_REAL(cblas_ddoti, cblas_droti, double)

#define FOR_COMPLEX(name, T, conjugate)                                                            \
    void name(int n, const void* x, const int* indx, const void* y, void* result) {                \
        *static_cast<T*>(result) = complex_dot_sparse<extended, conjugate>(                        \
            n, static_cast<const T*>(x), from_zero(indx), static_cast<const T*>(y));               \
    }
FOR_COMPLEX(cblas_cdotui_sub, cfloat, false)
FOR_COMPLEX(cblas_cdotci_sub, cfloat, true)
FOR_COMPLEX(cblas_zdotui_sub, cdouble, false)
FOR_COMPLEX(cblas_zdotci_sub, cdouble, true)
}
