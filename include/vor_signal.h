/* vor_signal.h: signal primitives of the Orbel Numeric Library. */
#ifndef VOR_SIGNAL_H
#define VOR_SIGNAL_H

#include "vor_status.h"
#include "vor_types.h"

VOR_BEGIN_C

/* Common to all functions of this header: they run without configuration file and without threads, and
 * hold no state of their own; any number of threads may call them. Lengths are counted in elements, an
 * array may stand at any address unless said otherwise, and all alignments give the same bits, but in the
 * direct correlation of floats, where the address of the results decides the order of additions. Where a
 * status is returned, pointers are tested first, then lengths; a function that returns an error has
 * written nothing, but where said. */

/* ---- Memory --------------------------------------------------------------------------------- */

/* A block of the given number of bytes, floats or doubles, at a multiple of 32 bytes; the contents are
 * undefined. Null if the count is below 1 or the memory cannot be had, as where the size in bytes plus 36
 * does not fit 32 bits. tavsFree takes blocks of all three, and null. Objects and work buffers of this layer
 * may come from here, but need not. */
void* tavsMalloc_8u(int bytes);
float* tavsMalloc_32f(int count);
double* tavsMalloc_64f(int count);
void tavsFree(void* block);

/* Clears, or copies, `count` elements. Source and destination of a copy do not overlap. Large blocks
 * (20480 bytes cleared, 8192 copied) go around the cache and are visible to other processors on return.
 * A copy preserves all bits, those of signalling NaNs too. Status: tavStsNullPtrErr, tavStsSizeErr
 * (count below 1). */
TavStatus tavsZero_8u(void* destination, int bytes);
TavStatus tavsZero_32f(float* destination, int count);
TavStatus tavsZero_64f(double* destination, int count);
TavStatus tavsCopy_32f(const float* source, float* destination, int count);
TavStatus tavsCopy_64f(const double* source, double* destination, int count);

/* ---- Scaling flags of FFT and DFT objects ---------------------------------------------------- */

enum {
    TAV_FFT_DIV_FWD_BY_N = 1, /* forward by 1/N */
    TAV_FFT_DIV_INV_BY_N = 2, /* inverse by 1/N */
    TAV_FFT_DIV_BY_SQRTN = 4, /* both by 1/sqrt(N) */
    TAV_FFT_NODIV_BY_ANY = 8  /* neither */
};

/* ---- FFT objects: lengths that are powers of two ---------------------------------------------- */

/* Transforms of N = 2^order points, W = exp(-2 pi i / N):
 *
 *   forward   X[k] = scale * sum over n of x[n] W^(n k)
 *   inverse   x[n] = scale * sum over k of X[k] W^(-n k)
 *
 * with the scale of the object's flag. Decimation in time in passes of radix 4 (Cooley and Tukey, Math.
 * Comp. 19, 1965); transforms that exceed the cache run as rows and columns (Bailey, J. Supercomputing
 * 4, 1990).
 *
 * Object life. InitAlloc builds all tables of one order, 0 to 30, one kind of data and one flag, and
 * writes the object's pointer on success only; Free gives everything back. Between the two the object
 * is read, never written: any number of threads may transform on one object at the same time, each
 * with a work buffer of its own, or with none. The calls of one kind refuse objects of another. `hint` is
 * stored.
 *
 * Work buffer. GetBufSize tells its size in bytes, which may be 0; the buffer may stand at any address.
 * A transform that is given a null pointer takes the buffer itself and gives it back.
 *
 * Data. Source and destination hold N elements, and may be the same array; otherwise they do not
 * overlap, and the source is left as it was. Values are the same in place and out of place.
 *
 * Status, in the order of the tests. InitAlloc: tavStsNullPtrErr, tavStsFftOrderErr, tavStsMemAllocErr (no
 * memory for the object), tavStsFftFlagErr, tavStsMemAllocErr (no memory for the tables). Free and
 * GetBufSize: tavStsNullPtrErr, tavStsContextMatchErr. Transforms: tavStsNullPtrErr (object),
 * tavStsContextMatchErr, tavStsNullPtrErr (source or destination), tavStsMemAllocErr (a work buffer of
 * their own). */
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

/* Real data, by a complex transform of N/2 points. The first half of the spectrum, all that is needed of
 * it, is stored in N reals:
 *
 *   Perm   re X[0], re X[N/2], re X[1], im X[1], re X[2], im X[2], ...
 *   Pack   re X[0], re X[1], im X[1], re X[2], im X[2], ..., re X[N/2]
 *
 * (N = 1: re X[0]; N = 2: re X[0], re X[1]). Perm is the faster one. */
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

/* Products of the spectra of `length` reals, element by element of the spectrum, in place:
 *
 *   MulPerm       destination := destination * source         both in Perm
 *   MulPackConj   destination := source * conj(destination)   both in Pack
 *
 * The length may be odd (DFT objects): then only the first value has no partner. Status:
 * tavStsNullPtrErr, tavStsSizeErr (length below 1). */
TavStatus tavsMulPerm_32f_I(const float* source, float* destination, int length);
TavStatus tavsMulPerm_64f_I(const double* source, double* destination, int length);
TavStatus tavsMulPackConj_32f_I(const float* source, float* destination, int length);
TavStatus tavsMulPackConj_64f_I(const double* source, double* destination, int length);

/* ---- Convolution and cross-correlation ---------------------------------------------------------- */

/* Conv writes the len1 + len2 - 1 values of the linear convolution,
 *
 *   dst[k] = sum over i of src1[i] * src2[k - i],
 *
 * CrossCorr writes dstLen values of the cross-correlation from the lag lowLag on, which may be negative,
 *
 *   dst[n] = sum over i of src1[i] * src2[i + n + lowLag],
 *
 * elements outside the arrays being 0. dst overlaps neither source. Both choose by the lengths between
 * the direct sum, which needs no memory, and products of spectra (long convolutions by overlap-save:
 * Stockham, AFIPS 28, 1966); then an infinity or NaN anywhere may spread to all results.
 *
 * Status: tavStsNullPtrErr, tavStsSizeErr (a length below 1), tavStsMemAllocErr (spectra only; dst is
 * as it was), tavStsFftOrderErr (more than 2^30 values). */
TavStatus tavsConv_32f(const float* src1, int len1, const float* src2, int len2, float* dst);
TavStatus tavsConv_64f(const double* src1, int len1, const double* src2, int len2, double* dst);
TavStatus tavsCrossCorr_32f(const float* src1, int len1, const float* src2, int len2, float* dst,
                            int dstLen, int lowLag);
TavStatus tavsCrossCorr_64f(const double* src1, int len1, const double* src2, int len2, double* dst,
                            int dstLen, int lowLag);

/* ---- DFT objects: lengths of any kind --------------------------------------------------------- */

/* Discrete Fourier transforms of any length N from 1 to 2^31 - 1, on W = exp(-2 pi i / N):
 *
 *   forward   X[k] = scale * sum over n of x[n] W^(n k)
 *   inverse   x[n] = scale * sum over k of X[k] W^(-n k)
 *
 * Object life. InitAlloc builds all tables of one length, one kind of data and one scaling flag, and
 * writes the object's pointer on success only; Free gives everything back. Between the two the object
 * is read, never written: any number of threads may transform on one object at the same time, each
 * with a work buffer of its own, or with none. The calls of one kind refuse objects of another.
 *
 * Scale. 1/N forward (TAV_FFT_DIV_FWD_BY_N), 1/N inverse (TAV_FFT_DIV_INV_BY_N), 1/sqrt(N) both
 * ways (TAV_FFT_DIV_BY_SQRTN), 1 both ways (TAV_FFT_NODIV_BY_ANY). `hint` is stored and passed on.
 *
 * Method. N up to 4: straight-line code. Powers of two: an FFT object. N with no prime factor above
 * 149 that is not prime itself: mixed-radix stages (Cooley and Tukey, Math. Comp. 19, 1965). Other N
 * up to 150 (180 for real odd N): a direct sum over symmetric pairs. The rest: convolution with a
 * chirp (Bluestein, IEEE Trans. Audio Electroacoust. 18, 1970). Real data of even N run as N/2
 * complex values.
 *
 * Work buffer. GetBufSize tells its size in bytes, which may be 0; the buffer may stand at any
 * address. A transform that is given a null pointer takes the buffer itself and gives it back.
 *
 * Data. Source and destination hold N elements, at any alignment, and may be the same array;
 * otherwise they do not overlap, and the source is left as it was. Values are the same in place and
 * out of place. The spectrum of N reals is stored in one of three formats, all real arrays:
 *
 *   Perm   N values      re X[0], for even N re X[N/2], then re X[k], im X[k] for 0 < k < N/2
 *   Pack   N values      re X[0], then re X[k], im X[k] for 0 < k < N/2, then for even N re X[N/2]
 *   CCS    N + 2 values, N + 1 for odd N: re X[0], 0, re X[1], im X[1], ..., for even N re X[N/2], 0
 *
 * Out-of-order objects take the same calls for complex data. From N = 2001 (32-bit) or 5001 (64-bit)
 * on, lengths that run by stages give the forward result in digit-reversed order and take that order
 * in the inverse, which saves both reorderings, as in convolutions: with the prime factors of N in
 * ascending order, twos in pairs, f_0, f_1, ..., f_m (a single two goes first), the frequency
 * k = k_m + f_m (k_(m-1) + f_(m-1) (... + f_1 k_0)) stands at k_0 + f_0 (k_1 + f_1 (... + k_m)).
 * Other lengths are in natural order.
 *
 * Status, in the order of the tests. InitAlloc: tavStsNullPtrErr (object null), tavStsSizeErr (N
 * below 1), tavStsMemAllocErr (no memory for the object), tavStsFftFlagErr, tavStsMemAllocErr (no
 * memory for the tables). Free and GetBufSize: tavStsNullPtrErr, tavStsContextMatchErr. Transforms:
 * tavStsNullPtrErr (object), tavStsContextMatchErr, tavStsNullPtrErr (source or destination),
 * tavStsMemAllocErr (a work buffer of their own). After an error nothing was written. */
typedef struct DftCtx DftCtx;

TavStatus tavsDFTInitAlloc_C_32fc(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTInitAlloc_C_64fc(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTInitAlloc_R_32f(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTInitAlloc_R_64f(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTOutOrdInitAlloc_C_32fc(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTOutOrdInitAlloc_C_64fc(DftCtx** object, int length, int flag, int hint);
TavStatus tavsDFTFree_C_32fc(DftCtx* object);
TavStatus tavsDFTFree_C_64fc(DftCtx* object);
TavStatus tavsDFTFree_R_32f(DftCtx* object);
TavStatus tavsDFTFree_R_64f(DftCtx* object);
TavStatus tavsDFTOutOrdFree_C_32fc(DftCtx* object);
TavStatus tavsDFTOutOrdFree_C_64fc(DftCtx* object);
TavStatus tavsDFTGetBufSize_C_32fc(const DftCtx* object, int* bytes);
TavStatus tavsDFTGetBufSize_C_64fc(const DftCtx* object, int* bytes);
TavStatus tavsDFTGetBufSize_R_32f(const DftCtx* object, int* bytes);
TavStatus tavsDFTGetBufSize_R_64f(const DftCtx* object, int* bytes);
TavStatus tavsDFTOutOrdGetBufSize_C_32fc(const DftCtx* object, int* bytes);
TavStatus tavsDFTOutOrdGetBufSize_C_64fc(const DftCtx* object, int* bytes);

/* Complex to complex. */
TavStatus tavsDFTFwd_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                               const DftCtx* object, void* buffer);
TavStatus tavsDFTFwd_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                               const DftCtx* object, void* buffer);
TavStatus tavsDFTInv_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                               const DftCtx* object, void* buffer);
TavStatus tavsDFTInv_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                               const DftCtx* object, void* buffer);
TavStatus tavsDFTOutOrdFwd_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                                     const DftCtx* object, void* buffer);
TavStatus tavsDFTOutOrdFwd_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                                     const DftCtx* object, void* buffer);
TavStatus tavsDFTOutOrdInv_CToC_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination,
                                     const DftCtx* object, void* buffer);
TavStatus tavsDFTOutOrdInv_CToC_64fc(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination,
                                     const DftCtx* object, void* buffer);

/* Real to spectrum and back. */
TavStatus tavsDFTFwd_RToPerm_32f(const float* source, float* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTFwd_RToPerm_64f(const double* source, double* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTFwd_RToPack_32f(const float* source, float* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTFwd_RToPack_64f(const double* source, double* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTFwd_RToCCS_32f(const float* source, float* destination, const DftCtx* object,
                                void* buffer);
TavStatus tavsDFTFwd_RToCCS_64f(const double* source, double* destination, const DftCtx* object,
                                void* buffer);
TavStatus tavsDFTInv_PermToR_32f(const float* source, float* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTInv_PermToR_64f(const double* source, double* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTInv_PackToR_32f(const float* source, float* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTInv_PackToR_64f(const double* source, double* destination, const DftCtx* object,
                                 void* buffer);
TavStatus tavsDFTInv_CCSToR_32f(const float* source, float* destination, const DftCtx* object,
                                void* buffer);
TavStatus tavsDFTInv_CCSToR_64f(const double* source, double* destination, const DftCtx* object,
                                void* buffer);

VOR_END_C

#endif
