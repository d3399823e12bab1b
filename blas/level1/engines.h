// The engines of the vector routines, for callers inside the library: the routines without the entry's frame.
// They allocate nothing, start no threads and ask for no settings, so they may be called from parallel
// regions.
//
// vor_blas_sdot hands its value back in extended precision (see dot.cpp): a caller that wants a float
// stores it into one.
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

extern "C" {
void vor_blas_saxpy PARAMS_AXPY(float);
void vor_blas_scopy PARAMS_COPY(float);
void vor_blas_sswap PARAMS_SWAP(float);
void vor_blas_sscal PARAMS_SCAL(float, float);
void vor_blas_daxpy PARAMS_AXPY(double);
void vor_blas_dcopy PARAMS_COPY(double);
void vor_blas_dswap PARAMS_SWAP(double);
void vor_blas_dscal PARAMS_SCAL(double, double);
void vor_blas_caxpy PARAMS_AXPY(vor::cfloat);
void vor_blas_ccopy PARAMS_COPY(vor::cfloat);
void vor_blas_cswap PARAMS_SWAP(vor::cfloat);
void vor_blas_cscal PARAMS_SCAL(vor::cfloat, vor::cfloat);
void vor_blas_csscal PARAMS_SCAL(vor::cfloat, float);
void vor_blas_zaxpy PARAMS_AXPY(vor::cdouble);
void vor_blas_zcopy PARAMS_COPY(vor::cdouble);
void vor_blas_zswap PARAMS_SWAP(vor::cdouble);
void vor_blas_zscal PARAMS_SCAL(vor::cdouble, vor::cdouble);
void vor_blas_zdscal PARAMS_SCAL(vor::cdouble, double);
long double vor_blas_sdot PARAMS_DOT(float);
double vor_blas_ddot PARAMS_DOT(double);
}

namespace vor::blas {

// The engines of an element type. real_scal takes a factor of the real type.
template <class T>
struct Routines;
template <>
struct Routines<float> {
    static constexpr auto axpy = vor_blas_saxpy;
    static constexpr auto copy = vor_blas_scopy;
    static constexpr auto swap = vor_blas_sswap;
    static constexpr auto scal = vor_blas_sscal;
    static constexpr auto real_scal = vor_blas_sscal;
};
template <>
struct Routines<double> {
    static constexpr auto axpy = vor_blas_daxpy;
    static constexpr auto copy = vor_blas_dcopy;
    static constexpr auto swap = vor_blas_dswap;
    static constexpr auto scal = vor_blas_dscal;
    static constexpr auto real_scal = vor_blas_dscal;
};
template <>
struct Routines<cfloat> {
    static constexpr auto axpy = vor_blas_caxpy;
    static constexpr auto copy = vor_blas_ccopy;
    static constexpr auto swap = vor_blas_cswap;
    static constexpr auto scal = vor_blas_cscal;
    static constexpr auto real_scal = vor_blas_csscal;
};
template <>
struct Routines<cdouble> {
    static constexpr auto axpy = vor_blas_zaxpy;
    static constexpr auto copy = vor_blas_zcopy;
    static constexpr auto swap = vor_blas_zswap;
    static constexpr auto scal = vor_blas_zscal;
    static constexpr auto real_scal = vor_blas_zdscal;
};

} // namespace vor::blas
