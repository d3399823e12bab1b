// The threaded Level 3 drivers, called by the entries and by one another.
#pragma once

#include "blas/signatures.h"

extern "C" {
void vor_blas_sgemm PARAMS_GEMM(float);
void vor_blas_dgemm PARAMS_GEMM(double);
void vor_blas_cgemm PARAMS_GEMM(vor::cfloat);
void vor_blas_zgemm PARAMS_GEMM(vor::cdouble);
void vor_blas_strsm PARAMS_TRMM(float);
void vor_blas_dtrsm PARAMS_TRMM(double);
void vor_blas_ctrsm PARAMS_TRMM(vor::cfloat);
void vor_blas_ztrsm PARAMS_TRMM(vor::cdouble);
void vor_blas_strmm PARAMS_TRMM(float);
void vor_blas_dtrmm PARAMS_TRMM(double);
void vor_blas_ctrmm PARAMS_TRMM(vor::cfloat);
void vor_blas_ztrmm PARAMS_TRMM(vor::cdouble);
void vor_blas_ssymm PARAMS_SYMM(float);
void vor_blas_dsymm PARAMS_SYMM(double);
void vor_blas_csymm PARAMS_SYMM(vor::cfloat);
void vor_blas_zsymm PARAMS_SYMM(vor::cdouble);
void vor_blas_chemm PARAMS_SYMM(vor::cfloat);
void vor_blas_zhemm PARAMS_SYMM(vor::cdouble);
void vor_blas_ssyrk PARAMS_SYRK(float);
void vor_blas_dsyrk PARAMS_SYRK(double);
void vor_blas_csyrk PARAMS_SYRK(vor::cfloat);
void vor_blas_zsyrk PARAMS_SYRK(vor::cdouble);
void vor_blas_cherk PARAMS_HERK(vor::cfloat);
void vor_blas_zherk PARAMS_HERK(vor::cdouble);
void vor_blas_ssyr2k PARAMS_SYR2K(float);
void vor_blas_dsyr2k PARAMS_SYR2K(double);
void vor_blas_csyr2k PARAMS_SYR2K(vor::cfloat);
void vor_blas_zsyr2k PARAMS_SYR2K(vor::cdouble);
void vor_blas_cher2k PARAMS_HER2K(vor::cfloat);
void vor_blas_zher2k PARAMS_HER2K(vor::cdouble);
}

namespace vor::blas {

// The threaded matrix product of a type.
template <class T>
struct GemmDriver;
template <>
struct GemmDriver<float> {
    static constexpr auto run = vor_blas_sgemm;
};
template <>
struct GemmDriver<double> {
    static constexpr auto run = vor_blas_dgemm;
};
template <>
struct GemmDriver<cfloat> {
    static constexpr auto run = vor_blas_cgemm;
};
template <>
struct GemmDriver<cdouble> {
    static constexpr auto run = vor_blas_zgemm;
};

} // namespace vor::blas
