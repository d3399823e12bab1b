// The argument checks of the one-call transforms: 0 if a call may go on; 1 if it ends, because an argument is
// unfit, which has been reported through xerbla_, or, in one dimension, because there is nothing to do
// (n of 0 or 1). Of the arrays only the words of wsave that tell its length are read.
#pragma once

#include "arith/element.h"
#include "dft/onecall/signatures.h"

extern "C" {
int vor_dft_errchk_cfft1d PARAMS_FFT1D(vor::cfloat, float);
int vor_dft_errchk_zfft1d PARAMS_FFT1D(vor::cdouble, double);
int vor_dft_errchk_cfft1dc PARAMS_FFT1DC(float);
int vor_dft_errchk_zfft1dc PARAMS_FFT1DC(double);
int vor_dft_errchk_cfft2d PARAMS_FFT2D(vor::cfloat);
int vor_dft_errchk_zfft2d PARAMS_FFT2D(vor::cdouble);
int vor_dft_errchk_cfft2dc PARAMS_FFT2DC(float);
int vor_dft_errchk_zfft2dc PARAMS_FFT2DC(double);
int vor_dft_errchk_scfft1d PARAMS_REAL_FFT1D(float);
int vor_dft_errchk_dzfft1d PARAMS_REAL_FFT1D(double);
int vor_dft_errchk_csfft1d PARAMS_REAL_FFT1D(float);
int vor_dft_errchk_zdfft1d PARAMS_REAL_FFT1D(double);
int vor_dft_errchk_scfft1dc PARAMS_REAL_FFT1DC(float);
int vor_dft_errchk_dzfft1dc PARAMS_REAL_FFT1DC(double);
int vor_dft_errchk_csfft1dc PARAMS_REAL_FFT1DC(float);
int vor_dft_errchk_zdfft1dc PARAMS_REAL_FFT1DC(double);
int vor_dft_errchk_scfft2d PARAMS_REAL_FFT2D(float);
int vor_dft_errchk_dzfft2d PARAMS_REAL_FFT2D(double);
int vor_dft_errchk_csfft2d PARAMS_REAL_FFT2D(float);
int vor_dft_errchk_zdfft2d PARAMS_REAL_FFT2D(double);
int vor_dft_errchk_scfft2dc PARAMS_REAL_FFT2DC(float);
int vor_dft_errchk_dzfft2dc PARAMS_REAL_FFT2DC(double);
int vor_dft_errchk_csfft2dc PARAMS_REAL_FFT2DC(float);
int vor_dft_errchk_zdfft2dc PARAMS_REAL_FFT2DC(double);
}
