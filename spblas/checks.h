// The argument checks of the sparse routines: 0 if the arguments are fit for use, 1 after the first unfit one
// has been reported under the routine's upper-case name, unpadded. The arrays are not read.
#pragma once

#include "spblas/signatures.h"

extern "C" {
int vor_spblas_errchk_dcsrmm PARAMS_SPARSE_MM(LIST_CSR);
int vor_spblas_errchk_dcscmm PARAMS_SPARSE_MM(LIST_CSR);
int vor_spblas_errchk_dcoomm PARAMS_SPARSE_MM(LIST_COO);
int vor_spblas_errchk_ddiamm PARAMS_SPARSE_MM(LIST_DIA);
int vor_spblas_errchk_dskymm PARAMS_SPARSE_MM(LIST_SKY);
int vor_spblas_errchk_dcsrmv PARAMS_SPARSE_MV(LIST_CSR);
int vor_spblas_errchk_dcscmv PARAMS_SPARSE_MV(LIST_CSR);
int vor_spblas_errchk_dcoomv PARAMS_SPARSE_MV(LIST_COO);
int vor_spblas_errchk_ddiamv PARAMS_SPARSE_MV(LIST_DIA);
int vor_spblas_errchk_dskymv PARAMS_SPARSE_MV(LIST_SKY);
int vor_spblas_errchk_dcsrsv PARAMS_SPARSE_SV(LIST_CSR);
int vor_spblas_errchk_dcscsv PARAMS_SPARSE_SV(LIST_CSR);
int vor_spblas_errchk_dcoosv PARAMS_SPARSE_SV(LIST_COO);
int vor_spblas_errchk_ddiasv PARAMS_SPARSE_SV(LIST_DIA);
int vor_spblas_errchk_dskysv PARAMS_SPARSE_SV(LIST_SKY);
int vor_spblas_errchk_dcsrsm PARAMS_SPARSE_SM(LIST_CSR);
int vor_spblas_errchk_dcscsm PARAMS_SPARSE_SM(LIST_CSR);
int vor_spblas_errchk_dcoosm PARAMS_SPARSE_SM(LIST_COO);
int vor_spblas_errchk_ddiasm PARAMS_SPARSE_SM(LIST_DIA);
int vor_spblas_errchk_dskysm PARAMS_SPARSE_SM(LIST_SKY);
int vor_spblas_errchk_dcsrgemv PARAMS_SPARSE_GEMV(LIST_CSR3);
int vor_spblas_errchk_dcoogemv PARAMS_SPARSE_GEMV(LIST_COO);
int vor_spblas_errchk_ddiagemv PARAMS_SPARSE_GEMV(LIST_DIA);
int vor_spblas_errchk_dcsrsymv PARAMS_SPARSE_SYMV(LIST_CSR3);
int vor_spblas_errchk_dcoosymv PARAMS_SPARSE_SYMV(LIST_COO);
int vor_spblas_errchk_ddiasymv PARAMS_SPARSE_SYMV(LIST_DIA);
int vor_spblas_errchk_dcsrtrsv PARAMS_SPARSE_TRSV(LIST_CSR3);
int vor_spblas_errchk_dcootrsv PARAMS_SPARSE_TRSV(LIST_COO);
int vor_spblas_errchk_ddiatrsv PARAMS_SPARSE_TRSV(LIST_DIA);
}
