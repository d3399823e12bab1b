// The Level 1 routines for C: each hands its arguments to the entry of the same name. Nothing is
// tested.
#include "blas/cblas/interface.h"

using namespace vor::cblas;
using vor::cdouble, vor::cfloat;

#define FOR_REAL_TYPES(X) X(s, float) X(d, double)
#define FOR_COMPLEX_TYPES(X) X(c, cfloat) X(z, cdouble)
#define FOR_ALL_TYPES(X) FOR_REAL_TYPES(X) FOR_COMPLEX_TYPES(X)

extern "C" {

#define AXPY(p, T)                                                                                 \
    void cblas_##p##axpy(int n, Scalar<T> alpha, const Array<T>* x, int incx, Array<T>* y,         \
                         int incy) {                                                               \
        call(p##axpy, n, alpha, x, incx, y, incy);                                                 \
    }
FOR_ALL_TYPES(AXPY)

#define COPY(p, T)                                                                                 \
    void cblas_##p##copy(int n, const Array<T>* x, int incx, Array<T>* y, int incy) {              \
        call(p##copy, n, x, incx, y, incy);                                                        \
    }
FOR_ALL_TYPES(COPY)

#define SWAP(p, T)                                                                                 \
    void cblas_##p##swap(int n, Array<T>* x, int incx, Array<T>* y, int incy) {                    \
        call(p##swap, n, x, incx, y, incy);                                                        \
    }
FOR_ALL_TYPES(SWAP)

#define SCAL(p, T, S)                                                                              \
    void cblas_##p##scal(int n, S alpha, Array<T>* x, int incx) {                                  \
        call(p##scal, n, alpha, x, incx);                                                          \
    }
SCAL(s, float, float)
SCAL(d, double, double)
SCAL(c, cfloat, const void*)
SCAL(z, cdouble, const void*)
SCAL(cs, cfloat, float)
SCAL(zd, cdouble, double)

// sdot leaves its value unrounded in st(0), and so does this call.
#define DOT(R, name, T)                                                                            \
    R cblas_##name(int n, const T* x, int incx, const T* y, int incy) {                            \
        return call(name, n, x, incx, y, incy);                                                    \
    }
DOT(float, sdot, float)
DOT(double, ddot, double)
DOT(double, dsdot, float)

float cblas_sdsdot(int n, float sb, const float* x, int incx, const float* y, int incy) {
    return call(sdsdot, n, sb, x, incx, y, incy);
}

#define DOT_SUB(name)                                                                              \
    void cblas_##name##_sub(int n, const void* x, int incx, const void* y, int incy,               \
                            void* result) {                                                        \
        call(name, result, n, x, incx, y, incy);                                                   \
    }
DOT_SUB(cdotu)
DOT_SUB(zdotu)
DOT_SUB(cdotc)
DOT_SUB(zdotc)

#define VALUE(R, name, T)                                                                          \
    R cblas_##name(int n, const Array<T>* x, int incx) {                                           \
        return call(name, n, x, incx);                                                             \
    }
VALUE(float, snrm2, float)
VALUE(double, dnrm2, double)
VALUE(float, scnrm2, cfloat)
VALUE(double, dznrm2, cdouble)
VALUE(float, sasum, float)
VALUE(double, dasum, double)
VALUE(float, scasum, cfloat)
VALUE(double, dzasum, cdouble)

// Counted from 0; an empty vector gives 0 too.
#define POSITION(name, T)                                                                          \
    int cblas_##name(int n, const Array<T>* x, int incx) {                                         \
        return n < 1 || incx < 1 ? 0 : call(name, n, x, incx) - 1;                                 \
    }
#define POSITIONS(p, T) POSITION(i##p##amax, T) POSITION(i##p##amin, T)
FOR_ALL_TYPES(POSITIONS)

double cblas_dcabs1(const void* z) {
    return call(dcabs1, z);
}

#define ROT(p, T, R)                                                                               \
    void cblas_##p##rot(int n, Array<T>* x, int incx, Array<T>* y, int incy, R c, R s) {           \
        call(p##rot, n, x, incx, y, incy, c, s);                                                   \
    }
ROT(s, float, float)
ROT(d, double, double)
ROT(cs, cfloat, float)
ROT(zd, cdouble, double)

#define ROTG(p, T)                                                                                 \
    void cblas_##p##rotg(T* a, T* b, T* c, T* s) {                                                 \
        p##rotg(a, b, c, s);                                                                       \
    }
FOR_REAL_TYPES(ROTG)

#define CROTG(p, T)                                                                                \
    void cblas_##p##rotg(void* a, const void* b, vor::real_t<T>* c, void* s) {                     \
        call(p##rotg, a, b, c, s);                                                                 \
    }
FOR_COMPLEX_TYPES(CROTG)

#define ROTM(p, T)                                                                                 \
    void cblas_##p##rotm(int n, T* x, int incx, T* y, int incy, const T* param) {                  \
        call(p##rotm, n, x, incx, y, incy, param);                                                 \
    }                                                                                              \
    void cblas_##p##rotmg(T* d1, T* d2, T* b1, const T* b2, T* param) {                            \
        p##rotmg(d1, d2, b1, b2, param);                                                           \
    }
FOR_REAL_TYPES(ROTM)
}
