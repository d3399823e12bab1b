/* vor_fft.h: one-call Fourier transforms of the Orbel Numeric Library, for powers of two, in place. */
#ifndef VOR_FFT_H
#define VOR_FFT_H

#include "vor_types.h"

VOR_BEGIN_C

/* Common to all of them. Every routine stands under four spellings (vor_types.h). The stems that end in c are
 * for C: they take integers by value and split data, the real parts and the imaginary parts each in an array
 * or a part of the array of their own. The others take integers by reference and interleaved data. The
 * letters in front: c and z complex data, sc and dz from real data to a spectrum, cs and zd back; single and
 * double precision.
 *
 *   forward   X[k] = sum over j of x[j] exp(-2 pi i j k / n)
 *   inverse   x[j] = 1/n times the sum over k of X[k] exp(+2 pi i j k / n)
 *
 * in both directions of a plane. Data may stand at any address. In one dimension n of 0 or 1 does nothing; in a
 * plane m or n of 1 is a dimension that stays as it is.
 *
 * A bad argument is reported through xerbla_ under the routine's name, with the number of the argument, and
 * the call ends with all data unchanged (unless the configuration switches the checks off). The tests run in
 * the order in which they are listed for each family. A plane, and a split real vector, need scratch memory:
 * if it cannot be had, that is reported as condition 0, and the data of a plane may be partly transformed.
 *
 * wsave, of the precision of the data, is the caller's. A call with isign 0 fills it for one length and does
 * nothing else; from then on it is only read, by any number of calls, also at the same time on several
 * threads. Word 0 holds the length of its complex transform, n or n/2. Its length in words:
 *
 *              single    double
 *   complex    3n + 64   3n + 32
 *   real       2n + 64   2n + 32
 *
 * Long vectors and planes run on a team of threads where the library may use threads (vor_service.h).
 *
 * Radix-4 passes between natural and bit-reversed order (Gentleman and Sande, Proc. AFIPS 29, 1966; Cooley and
 * Tukey, Math. Comp. 19, 1965), blocked for the caches by twiddles in bit-reversed order; real data as
 * half as many complex numbers (Cooley, Lewis, Welch, J. Sound Vib. 12, 1970). No scratch in one dimension but
 * for split real vectors. */

/* ---- Complex vectors --------------------------------------------------------------------------- */

/* n complex numbers.
 *
 *   isign    0   fill wsave for n; the data is not touched and may be any pointer but null
 *           -1   forward
 *           -2   forward, the spectrum left in bit-reversed order
 *           +1   inverse
 *           +2   inverse of a spectrum in bit-reversed order
 *
 * -2 and +2 have no pass that reorders: where the order is of no matter, as in a convolution, they are
 * faster. Tests: n not a power of two; isign not in -2 .. 2; wsave null, or not filled for n; data null. The
 * arguments are numbered as listed, from 1. */
VOR_SPELLINGS(void, cfft1d, CFFT1D,
              (VOR_SCOMPLEX * r, const int* n, const int* isign, float* wsave))
VOR_SPELLINGS(void, zfft1d, ZFFT1D,
              (VOR_DCOMPLEX * r, const int* n, const int* isign, double* wsave))
VOR_SPELLINGS(void, cfft1dc, CFFT1DC, (float* rr, float* ri, int n, int isign, float* wsave))
VOR_SPELLINGS(void, zfft1dc, ZFFT1DC, (double* rr, double* ri, int n, int isign, double* wsave))

/* ---- Complex planes ---------------------------------------------------------------------------- */

/* n columns of m complex numbers, one behind the other. isign -1, -2, +1, +2 as above, in both dimensions.
 * Tests: m, then n, not a power of two; isign not one of the four (split forms: not in -2 .. 2, and 0 is
 * -1); data null. */
VOR_SPELLINGS(void, cfft2d, CFFT2D,
              (VOR_SCOMPLEX * r, const int* m, const int* n, const int* isign))
VOR_SPELLINGS(void, zfft2d, ZFFT2D,
              (VOR_DCOMPLEX * r, const int* m, const int* n, const int* isign))
VOR_SPELLINGS(void, cfft2dc, CFFT2DC, (float* rr, float* ri, int m, int n, int isign))
VOR_SPELLINGS(void, zfft2dc, ZFFT2DC, (double* rr, double* ri, int m, int n, int isign))

/* ---- Real vectors ------------------------------------------------------------------------------ */

/* r has n + 2 words: n real values, and the n/2 + 1 numbers X[0] .. X[n/2] of their spectrum, whose other half
 * is its conjugate. Interleaved (CCS):
 *
 *   re X[0], 0, re X[1], im X[1], .., re X[n/2], 0
 *
 * split:
 *
 *   re X[0], .., re X[n/2], im X[0], .., im X[n/2]
 *
 * Forward, the two imaginary parts that are 0 are written; inverse, they are not used. isign 0 fills wsave
 * (the same for both forms and directions), anything else transforms. Tests: n not a power of two; isign not
 * in -2 .. 2; wsave null, or not filled for n real values; r null. */
VOR_SPELLINGS(void, scfft1d, SCFFT1D, (float* r, const int* n, const int* isign, float* wsave))
VOR_SPELLINGS(void, dzfft1d, DZFFT1D, (double* r, const int* n, const int* isign, double* wsave))
VOR_SPELLINGS(void, csfft1d, CSFFT1D, (float* r, const int* n, const int* isign, float* wsave))
VOR_SPELLINGS(void, zdfft1d, ZDFFT1D, (double* r, const int* n, const int* isign, double* wsave))
VOR_SPELLINGS(void, scfft1dc, SCFFT1DC, (float* r, int n, int isign, float* wsave))
VOR_SPELLINGS(void, dzfft1dc, DZFFT1DC, (double* r, int n, int isign, double* wsave))
VOR_SPELLINGS(void, csfft1dc, CSFFT1DC, (float* r, int n, int isign, float* wsave))
VOR_SPELLINGS(void, zdfft1dc, ZDFFT1DC, (double* r, int n, int isign, double* wsave))

/* ---- Real planes ------------------------------------------------------------------------------- */

/* r has n + 2 columns of m + 2 words. The signal: m values in each of the first n columns. The spectrum
 * X[j, k], j from 0 to m/2, of which n columns k determine the rest:
 *
 *   0 < j < m/2    X[j, k] for k from 0 to n - 1, in column k: at words 2j and 2j + 1; split, at words j and
 *                  m/2 + 1 + j
 *   j = 0, m/2     conjugate-even in k, hence X[j, k] for k from 0 to n/2 only, its words along the row as
 *                  those of a real vector of n above (interleaved or split): row 0, and row m (split: row m/2)
 *
 * The words of the other two rows belong to imaginary parts of columns; forward they become 0 in the first n
 * columns, inverse they are not used. With m = 1 there is no row of m/2, with n = 1 rows are not transformed.
 * Tests: m, then n, not a power of two; r null. The split forms give 1 for a refused call, else 0. */
VOR_SPELLINGS(void, scfft2d, SCFFT2D, (float* r, const int* m, const int* n))
VOR_SPELLINGS(void, dzfft2d, DZFFT2D, (double* r, const int* m, const int* n))
VOR_SPELLINGS(void, csfft2d, CSFFT2D, (float* r, const int* m, const int* n))
VOR_SPELLINGS(void, zdfft2d, ZDFFT2D, (double* r, const int* m, const int* n))
VOR_SPELLINGS(int, scfft2dc, SCFFT2DC, (float* r, int m, int n))
VOR_SPELLINGS(int, dzfft2dc, DZFFT2DC, (double* r, int m, int n))
VOR_SPELLINGS(int, csfft2dc, CSFFT2DC, (float* r, int m, int n))
VOR_SPELLINGS(int, zdfft2dc, ZDFFT2DC, (double* r, int m, int n))

VOR_END_C

#endif
