/* vor_signal.h: signal primitives of the Orbel Numeric Library. */
#ifndef VOR_SIGNAL_H
#define VOR_SIGNAL_H

#include "vor_status.h"
#include "vor_types.h"

VOR_BEGIN_C

/* ---- Memory --------------------------------------------------------------------------------- */

void* tavsMalloc_8u(int bytes);
float* tavsMalloc_32f(int count);
double* tavsMalloc_64f(int count);
void tavsFree(void* block);
TavStatus tavsZero_8u(void* destination, int bytes);
TavStatus tavsZero_32f(float* destination, int count);
TavStatus tavsZero_64f(double* destination, int count);
TavStatus tavsCopy_32f(const float* source, float* destination, int count);
TavStatus tavsCopy_64f(const double* source, double* destination, int count);

/* ---- Scaling flags of FFT and DFT objects ---------------------------------------------------- */

enum {
    TAV_FFT_DIV_FWD_BY_N = 1,
    TAV_FFT_DIV_INV_BY_N = 2,
    TAV_FFT_DIV_BY_SQRTN = 4,
    TAV_FFT_NODIV_BY_ANY = 8
};

/* ---- FFT objects: lengths that are powers of two ---------------------------------------------- */

typedef struct FftCtx FftCtx;

TavStatus tavsFFTInitAlloc_C_32fc(FftCtx** object, int order, int flag, int hint);
TavStatus tavsFFTInitAlloc_C_64fc(FftCtx** object, int order, int flag, int hint);
TavStatus tavsFFTInitAlloc_R_32f(FftCtx** object, int order, int flag, int hint);
TavStatus tavsFFTInitAlloc_R_64f(FftCtx** object, int order, int flag, int hint);
TavStatus tavsFFTFree_C_32fc(FftCtx* object);
TavStatus tavsFFTFree_C_64fc(FftCtx* object);
TavStatus tavsFFTFree_R_32f(FftCtx* object);
TavStatus tavsFFTFree_R_64f(FftCtx* object);
TavStatus tavsFFTGetBufSize_C_32fc(const FftCtx* object, int* bytes);
TavStatus tavsFFTGetBufSize_C_64fc(const FftCtx* object, int* bytes);
TavStatus tavsFFTGetBufSize_R_32f(const FftCtx* object, int* bytes);
TavStatus tavsFFTGetBufSize_R_64f(const FftCtx* object, int* bytes);

TavStatus tavsFFTFwd_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                               const FftCtx* object, void* buffer);
TavStatus tavsFFTInv_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                               const FftCtx* object, void* buffer);
TavStatus tavsFFTFwd_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                               const FftCtx* object, void* buffer);
TavStatus tavsFFTInv_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                               const FftCtx* object, void* buffer);

TavStatus tavsFFTFwd_RToPerm_32f(const float* source, float* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTFwd_RToPerm_64f(const double* source, double* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTFwd_RToPack_32f(const float* source, float* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTFwd_RToPack_64f(const double* source, double* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTInv_PermToR_32f(const float* source, float* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTInv_PermToR_64f(const double* source, double* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTInv_PackToR_32f(const float* source, float* destination, const FftCtx* object,
                                 void* buffer);
TavStatus tavsFFTInv_PackToR_64f(const double* source, double* destination, const FftCtx* object,
                                 void* buffer);

/* ---- Products of spectra in a packed format ---------------------------------------------------- */

TavStatus tavsMulPerm_32f_I(const float* source, float* destination, int length);
TavStatus tavsMulPerm_64f_I(const double* source, double* destination, int length);
TavStatus tavsMulPackConj_32f_I(const float* source, float* destination, int length);
TavStatus tavsMulPackConj_64f_I(const double* source, double* destination, int length);

/* ---- Convolution and cross-correlation ---------------------------------------------------------- */

TavStatus tavsConv_32f(const float* src1, int len1, const float* src2, int len2, float* dst);
TavStatus tavsConv_64f(const double* src1, int len1, const double* src2, int len2, double* dst);
TavStatus tavsCrossCorr_32f(const float* src1, int len1, const float* src2, int len2, float* dst,
                            int dstLen, int lowLag);
TavStatus tavsCrossCorr_64f(const double* src1, int len1, const double* src2, int len2, double* dst,
                            int dstLen, int lowLag);

/* ---- DFT objects: lengths of any kind --------------------------------------------------------- */

typedef struct DftCtx DftCtx;

VOR_END_C

#endif
