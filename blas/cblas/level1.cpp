// The Level 1 routines for C: each hands its arguments to the entry of the same name. Nothing is
// tested.
#include "blas/cblas/interface.h"

using namespace vor::cblas;
using vor::cdouble, vor::cfloat;

extern "C" {

#define AXPY(name, entry, T)                                                                       \
    void name(int n, Scalar<T> alpha, const Array<T>* x, int incx, Array<T>* y, int incy) {        \
        call(entry, n, alpha, x, incx, y, incy);                                                   \
    }
AXPY(cblas_saxpy, saxpy, float)
AXPY(cblas_daxpy, daxpy, double)
AXPY(cblas_caxpy, caxpy, cfloat)
AXPY(cblas_zaxpy, zaxpy, cdouble)

#define COPY(name, entry, T)                                                                       \
    void name(int n, const Array<T>* x, int incx, Array<T>* y, int incy) {                         \
        call(entry, n, x, incx, y, incy);                                                          \
    }
COPY(cblas_scopy, scopy, float)
COPY(cblas_dcopy, dcopy, double)
COPY(cblas_ccopy, ccopy, cfloat)
COPY(cblas_zcopy, zcopy, cdouble)

#define SWAP(name, entry, T)                                                                       \
    void name(int n, Array<T>* x, int incx, Array<T>* y, int incy) {                               \
        call(entry, n, x, incx, y, incy);                                                          \
    }
SWAP(cblas_sswap, sswap, float)
SWAP(cblas_dswap, dswap, double)
SWAP(cblas_cswap, cswap, cfloat)
SWAP(cblas_zswap, zswap, cdouble)

#define SCAL(name, entry, T, S)                                                                    \
    void name(int n, S alpha, Array<T>* x, int incx) {                                             \
        call(entry, n, alpha, x, incx);                                                            \
    }
SCAL(cblas_sscal, sscal, float, float)
SCAL(cblas_dscal, dscal, double, double)
SCAL(cblas_cscal, cscal, cfloat, const void*)
SCAL(cblas_zscal, zscal, cdouble, const void*)
SCAL(cblas_csscal, csscal, cfloat, float)
SCAL(cblas_zdscal, zdscal, cdouble, double)

// sdot leaves its value unrounded in st(0), and so does this call.
#define DOT(R, name, entry, T)                                                                     \
    R name(int n, const T* x, int incx, const T* y, int incy) {                                    \
        return call(entry, n, x, incx, y, incy);                                                   \
    }
DOT(float, cblas_sdot, sdot, float)
DOT(double, cblas_ddot, ddot, double)
DOT(double, cblas_dsdot, dsdot, float)

float cblas_sdsdot(int n, float sb, const float* x, int incx, const float* y, int incy) {
    return call(sdsdot, n, sb, x, incx, y, incy);
}

#define DOT_SUB(name, entry)                                                                       \
    void name(int n, const void* x, int incx, const void* y, int incy, void* result) {             \
        call(entry, result, n, x, incx, y, incy);                                                  \
    }
DOT_SUB(cblas_cdotu_sub, cdotu)
DOT_SUB(cblas_zdotu_sub, zdotu)
DOT_SUB(cblas_cdotc_sub, cdotc)
DOT_SUB(cblas_zdotc_sub, zdotc)

#define VALUE(R, name, entry, T)                                                                   \
    R name(int n, const Array<T>* x, int incx) {                                                   \
        return call(entry, n, x, incx);                                                            \
    }
VALUE(float, cblas_snrm2, snrm2, float)
VALUE(double, cblas_dnrm2, dnrm2, double)
VALUE(float, cblas_scnrm2, scnrm2, cfloat)
VALUE(double, cblas_dznrm2, dznrm2, cdouble)
VALUE(float, cblas_sasum, sasum, float)
VALUE(double, cblas_dasum, dasum, double)
VALUE(float, cblas_scasum, scasum, cfloat)
VALUE(double, cblas_dzasum, dzasum, cdouble)

// Counted from 0; an empty vector gives 0 too.
#define POSITION(name, entry, T)                                                                   \
    int name(int n, const Array<T>* x, int incx) {                                                 \
        return n < 1 || incx < 1 ? 0 : call(entry, n, x, incx) - 1;                                \
    }
POSITION(cblas_isamax, isamax, float)
POSITION(cblas_idamax, idamax, double)
POSITION(cblas_icamax, icamax, cfloat)
POSITION(cblas_izamax, izamax, cdouble)
POSITION(cblas_isamin, isamin, float)
POSITION(cblas_idamin, idamin, double)
POSITION(cblas_icamin, icamin, cfloat)
POSITION(cblas_izamin, izamin, cdouble)

double cblas_dcabs1(const void* z) {
    return call(dcabs1, z);
}

#define ROT(name, entry, T, R)                                                                     \
    void name(int n, Array<T>* x, int incx, Array<T>* y, int incy, R c, R s) {                     \
        call(entry, n, x, incx, y, incy, c, s);                                                    \
    }
ROT(cblas_srot, srot, float, float)
ROT(cblas_drot, drot, double, double)
ROT(cblas_csrot, csrot, cfloat, float)
ROT(cblas_zdrot, zdrot, cdouble, double)

#define ROTG(name, entry, T)                                                                       \
    void name(T* a, T* b, T* c, T* s) {                                                            \
        entry(a, b, c, s);                                                                         \
    }
ROTG(cblas_srotg, srotg, float)
ROTG(cblas_drotg, drotg, double)

#define CROTG(name, entry, R)                                                                      \
    void name(void* a, const void* b, R* c, void* s) {                                             \
        call(entry, a, b, c, s);                                                                   \
    }
CROTG(cblas_crotg, crotg, float)
CROTG(cblas_zrotg, zrotg, double)

#define ROTM(name, entry, T)                                                                       \
    void name(int n, T* x, int incx, T* y, int incy, const T* param) {                             \
        call(entry, n, x, incx, y, incy, param);                                                   \
    }
ROTM(cblas_srotm, srotm, float)
ROTM(cblas_drotm, drotm, double)

#define ROTMG(name, entry, T)                                                                      \
    void name(T* d1, T* d2, T* b1, const T* b2, T* param) {                                        \
        entry(d1, d2, b1, b2, param);                                                              \
    }
ROTMG(cblas_srotmg, srotmg, float)
ROTMG(cblas_drotmg, drotmg, double)
}
