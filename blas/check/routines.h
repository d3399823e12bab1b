// The routines that have an argument check: Level 2 and Level 3, 96 of them, and their checks.
//
// VOR_CHECKED_ROUTINES(X) expands X(letter, op, check, T, tests, LIST, report) for each: the type letter
// and the rest of its name, the name of its check, the element type, the row of tests
// (blas/check/check.cpp), the argument list (PARAMS_LIST in blas/signatures.h), which it shares with
// others of its family, and the name in reports.
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

#define VOR_CHECKED_ROUTINES(X)                                                                    \
    X(s, gemm, vor_blas_errchk_sgemm, float, kGemm, GEMM, "SGEMM ")                                \
    X(d, gemm, vor_blas_errchk_dgemm, double, kGemm, GEMM, "DGEMM ")                               \
    X(c, gemm, vor_blas_errchk_cgemm, vor::cfloat, kGemm, GEMM, "CGEMM ")                          \
    X(z, gemm, vor_blas_errchk_zgemm, vor::cdouble, kGemm, GEMM, "ZGEMM ")                         \
    X(s, symm, vor_blas_errchk_ssymm, float, kSymm, SYMM, "SSYMM ")                                \
    X(d, symm, vor_blas_errchk_dsymm, double, kSymm, SYMM, "DSYMM ")                               \
    X(c, symm, vor_blas_errchk_csymm, vor::cfloat, kSymm, SYMM, "CSYMM ")                          \
    X(z, symm, vor_blas_errchk_zsymm, vor::cdouble, kSymm, SYMM, "ZSYMM ")                         \
    X(c, hemm, vor_blas_errchk_chemm, vor::cfloat, kSymm, SYMM, "CHEMM ")                          \
    X(z, hemm, vor_blas_errchk_zhemm, vor::cdouble, kSymm, SYMM, "ZHEMM ")                         \
    X(s, syrk, vor_blas_errchk_ssyrk, float, kRankK<kTrans>, SYRK, "SSYRK ")                       \
    X(d, syrk, vor_blas_errchk_dsyrk, double, kRankK<kTrans>, SYRK, "DSYRK ")                      \
    X(c, syrk, vor_blas_errchk_csyrk, vor::cfloat, kRankK<kPlain>, SYRK, "CSYRK ")                 \
    X(z, syrk, vor_blas_errchk_zsyrk, vor::cdouble, kRankK<kPlain>, SYRK, "ZSYRK ")                \
    X(c, herk, vor_blas_errchk_cherk, vor::cfloat, kRankK<kConjugated>, HERK, "CHERK ")            \
    X(z, herk, vor_blas_errchk_zherk, vor::cdouble, kRankK<kConjugated>, HERK, "ZHERK ")           \
    X(s, syr2k, vor_blas_errchk_ssyr2k, float, kRank2k<kTrans>, SYR2K, "SSYR2K")                   \
    X(d, syr2k, vor_blas_errchk_dsyr2k, double, kRank2k<kTrans>, SYR2K, "DSYR2K")                  \
    X(c, syr2k, vor_blas_errchk_csyr2k, vor::cfloat, kRank2k<kPlain>, SYR2K, "CSYR2K")             \
    X(z, syr2k, vor_blas_errchk_zsyr2k, vor::cdouble, kRank2k<kPlain>, SYR2K, "ZSYR2K")            \
    X(c, her2k, vor_blas_errchk_cher2k, vor::cfloat, kRank2k<kConjugated>, HER2K, "CHER2K")        \
    X(z, her2k, vor_blas_errchk_zher2k, vor::cdouble, kRank2k<kConjugated>, HER2K, "ZHER2K")       \
    X(s, trmm, vor_blas_errchk_strmm, float, kTrmm, TRMM, "STRMM ")                                \
    X(d, trmm, vor_blas_errchk_dtrmm, double, kTrmm, TRMM, "DTRMM ")                               \
    X(c, trmm, vor_blas_errchk_ctrmm, vor::cfloat, kTrmm, TRMM, "CTRMM ")                          \
    X(z, trmm, vor_blas_errchk_ztrmm, vor::cdouble, kTrmm, TRMM, "ZTRMM ")                         \
    X(s, trsm, vor_blas_errchk_strsm, float, kTrmm, TRMM, "STRSM ")                                \
    X(d, trsm, vor_blas_errchk_dtrsm, double, kTrmm, TRMM, "DTRSM ")                               \
    X(c, trsm, vor_blas_errchk_ctrsm, vor::cfloat, kTrmm, TRMM, "CTRSM ")                          \
    X(z, trsm, vor_blas_errchk_ztrsm, vor::cdouble, kTrmm, TRMM, "ZTRSM ")                         \
    X(s, gemv, vor_blas_errchk_sgemv, float, kGemv, GEMV, "SGEMV ")                                \
    X(d, gemv, vor_blas_errchk_dgemv, double, kGemv, GEMV, "DGEMV ")                               \
    X(c, gemv, vor_blas_errchk_cgemv, vor::cfloat, kGemv, GEMV, "CGEMV ")                          \
    X(z, gemv, vor_blas_errchk_zgemv, vor::cdouble, kGemv, GEMV, "ZGEMV ")                         \
    X(s, gbmv, vor_blas_errchk_sgbmv, float, kGbmv, GBMV, "SGBMV ")                                \
    X(d, gbmv, vor_blas_errchk_dgbmv, double, kGbmv, GBMV, "DGBMV ")                               \
    X(c, gbmv, vor_blas_errchk_cgbmv, vor::cfloat, kGbmv, GBMV, "CGBMV ")                          \
    X(z, gbmv, vor_blas_errchk_zgbmv, vor::cdouble, kGbmv, GBMV, "ZGBMV ")                         \
    X(s, ger, vor_blas_errchk_sger, float, kGer, GER, "SGER  ")                                    \
    X(d, ger, vor_blas_errchk_dger, double, kGer, GER, "DGER  ")                                   \
    X(c, geru, vor_blas_errchk_cgeru, vor::cfloat, kGer, GER, "CGERU ")                            \
    X(z, geru, vor_blas_errchk_zgeru, vor::cdouble, kGer, GER, "ZGERU ")                           \
    X(c, gerc, vor_blas_errchk_cgerc, vor::cfloat, kGer, GER, "CGERC ")                            \
    X(z, gerc, vor_blas_errchk_zgerc, vor::cdouble, kGer, GER, "ZGERC ")                           \
    X(s, symv, vor_blas_errchk_ssymv, float, kSymv, SYMV, "SSYMV ")                                \
    X(d, symv, vor_blas_errchk_dsymv, double, kSymv, SYMV, "DSYMV ")                               \
    X(c, hemv, vor_blas_errchk_chemv, vor::cfloat, kSymv, SYMV, "CHEMV ")                          \
    X(z, hemv, vor_blas_errchk_zhemv, vor::cdouble, kSymv, SYMV, "ZHEMV ")                         \
    X(s, sbmv, vor_blas_errchk_ssbmv, float, kSbmv, SBMV, "SSBMV ")                                \
    X(d, sbmv, vor_blas_errchk_dsbmv, double, kSbmv, SBMV, "DSBMV ")                               \
    X(c, hbmv, vor_blas_errchk_chbmv, vor::cfloat, kSbmv, SBMV, "CHBMV ")                          \
    X(z, hbmv, vor_blas_errchk_zhbmv, vor::cdouble, kSbmv, SBMV, "ZHBMV ")                         \
    X(s, spmv, vor_blas_errchk_sspmv, float, kSpmv, SPMV, "SSPMV ")                                \
    X(d, spmv, vor_blas_errchk_dspmv, double, kSpmv, SPMV, "DSPMV ")                               \
    X(c, hpmv, vor_blas_errchk_chpmv, vor::cfloat, kSpmv, SPMV, "CHPMV ")                          \
    X(z, hpmv, vor_blas_errchk_zhpmv, vor::cdouble, kSpmv, SPMV, "ZHPMV ")                         \
    X(s, syr, vor_blas_errchk_ssyr, float, kSyr, SYR, "SSYR  ")                                    \
    X(d, syr, vor_blas_errchk_dsyr, double, kSyr, SYR, "DSYR  ")                                   \
    X(c, her, vor_blas_errchk_cher, vor::cfloat, kSyr, SYR, "CHER  ")                              \
    X(z, her, vor_blas_errchk_zher, vor::cdouble, kSyr, SYR, "ZHER  ")                             \
    X(s, syr2, vor_blas_errchk_ssyr2, float, kSyr2, SYR2, "SSYR2 ")                                \
    X(d, syr2, vor_blas_errchk_dsyr2, double, kSyr2, SYR2, "DSYR2 ")                               \
    X(c, her2, vor_blas_errchk_cher2, vor::cfloat, kSyr2, SYR2, "CHER2 ")                          \
    X(z, her2, vor_blas_errchk_zher2, vor::cdouble, kSyr2, SYR2, "ZHER2 ")                         \
    X(s, spr, vor_blas_errchk_sspr, float, kSpr, SPR, "SSPR  ")                                    \
    X(d, spr, vor_blas_errchk_dspr, double, kSpr, SPR, "DSPR  ")                                   \
    X(c, hpr, vor_blas_errchk_chpr, vor::cfloat, kSpr, SPR, "CHPR  ")                              \
    X(z, hpr, vor_blas_errchk_zhpr, vor::cdouble, kSpr, SPR, "ZHPR  ")                             \
    X(s, spr2, vor_blas_errchk_sspr2, float, kSpr2, SPR2, "SSPR2 ")                                \
    X(d, spr2, vor_blas_errchk_dspr2, double, kSpr2, SPR2, "DSPR2 ")                               \
    X(c, hpr2, vor_blas_errchk_chpr2, vor::cfloat, kSpr2, SPR2, "CHPR2 ")                          \
    X(z, hpr2, vor_blas_errchk_zhpr2, vor::cdouble, kSpr2, SPR2, "ZHPR2 ")                         \
    X(s, trmv, vor_blas_errchk_strmv, float, kTrmv, TRMV, "STRMV ")                                \
    X(d, trmv, vor_blas_errchk_dtrmv, double, kTrmv, TRMV, "DTRMV ")                               \
    X(c, trmv, vor_blas_errchk_ctrmv, vor::cfloat, kTrmv, TRMV, "CTRMV ")                          \
    X(z, trmv, vor_blas_errchk_ztrmv, vor::cdouble, kTrmv, TRMV, "ZTRMV ")                         \
    X(s, trsv, vor_blas_errchk_strsv, float, kTrmv, TRMV, "STRSV ")                                \
    X(d, trsv, vor_blas_errchk_dtrsv, double, kTrmv, TRMV, "DTRSV ")                               \
    X(c, trsv, vor_blas_errchk_ctrsv, vor::cfloat, kTrmv, TRMV, "CTRSV ")                          \
    X(z, trsv, vor_blas_errchk_ztrsv, vor::cdouble, kTrmv, TRMV, "ZTRSV ")                         \
    X(s, tbmv, vor_blas_errchk_stbmv, float, kTbmv, TBMV, "STBMV ")                                \
    X(d, tbmv, vor_blas_errchk_dtbmv, double, kTbmv, TBMV, "DTBMV ")                               \
    X(c, tbmv, vor_blas_errchk_ctbmv, vor::cfloat, kTbmv, TBMV, "CTBMV ")                          \
    X(z, tbmv, vor_blas_errchk_ztbmv, vor::cdouble, kTbmv, TBMV, "ZTBMV ")                         \
    X(s, tbsv, vor_blas_errchk_stbsv, float, kTbmv, TBMV, "STBSV ")                                \
    X(d, tbsv, vor_blas_errchk_dtbsv, double, kTbmv, TBMV, "DTBSV ")                               \
    X(c, tbsv, vor_blas_errchk_ctbsv, vor::cfloat, kTbmv, TBMV, "CTBSV ")                          \
    X(z, tbsv, vor_blas_errchk_ztbsv, vor::cdouble, kTbmv, TBMV, "ZTBSV ")                         \
    X(s, tpmv, vor_blas_errchk_stpmv, float, kTpmv, TPMV, "STPMV ")                                \
    X(d, tpmv, vor_blas_errchk_dtpmv, double, kTpmv, TPMV, "DTPMV ")                               \
    X(c, tpmv, vor_blas_errchk_ctpmv, vor::cfloat, kTpmv, TPMV, "CTPMV ")                          \
    X(z, tpmv, vor_blas_errchk_ztpmv, vor::cdouble, kTpmv, TPMV, "ZTPMV ")                         \
    X(s, tpsv, vor_blas_errchk_stpsv, float, kTpmv, TPMV, "STPSV ")                                \
    X(d, tpsv, vor_blas_errchk_dtpsv, double, kTpmv, TPMV, "DTPSV ")                               \
    X(c, tpsv, vor_blas_errchk_ctpsv, vor::cfloat, kTpmv, TPMV, "CTPSV ")                          \
    X(z, tpsv, vor_blas_errchk_ztpsv, vor::cdouble, kTpmv, TPMV, "ZTPSV ")

// 0 if the arguments are fit for use; 1 after the first unfit one, in the order of the list, has been
// reported through xerbla_ under the routine's upper-case name. Only integers
// and first characters are read.
#define VOR_DECLARE_CHECK(letter, op, check, T, tests, LIST, report) int check PARAMS_##LIST(T);
extern "C" {
VOR_CHECKED_ROUTINES(VOR_DECLARE_CHECK)
}
#undef VOR_DECLARE_CHECK
