/* vor_bignum.h: big-number primitives and Montgomery arithmetic of the Orbel Numeric Library, the
 * floor under the integers of vor_gmp.h.
 *
 * Numbers are arrays of unsigned 32-bit words, the least significant first; all lengths count words.
 * Three levels:
 *   word arrays   cp*_BNU and kin: no checks, no state. tavs*_BNU: the same with checks
 *   objects       tavs*_BN: signed numbers with a fixed room, in memory of the caller
 *   Montgomery    tavsMont*: arithmetic modulo an odd number, in memory of the caller
 *
 * Nothing here allocates. A state is scratch to the operations that use it, operands included
 * (their `buffer`): one state, one thread at a time. Different states are independent.
 *
 * Statuses (vor_status.h): null pointers are tested first (-8), then the kind of each object (-17),
 * then what the function names, in the order named. On an error no output has changed. */
#ifndef VOR_BIGNUM_H
#define VOR_BIGNUM_H

#include "vor_status.h"
#include "vor_types.h"

VOR_BEGIN_C

#ifdef __GNUC__
__extension__
#endif
    typedef unsigned long long vor_dword; /* two words in one */

/* ---- Objects -------------------------------------------------------------------------------- */

enum { TavsBigNumNEG = 0, TavsBigNumPOS = 1 };

/* A signed number. Its block may have any address: every function rounds the address up to a
 * multiple of 4 first. Zero is positive, of size 1. */
typedef struct BigNumState {
    unsigned idCtx;
    unsigned sgn;     /* TavsBigNumPOS or TavsBigNumNEG */
    int size;         /* words in use, the top one not 0 (but in the number 0) */
    int room;         /* words that `number` may take */
    unsigned* number; /* room + 1 words */
    unsigned* buffer; /* room + 1 words of scratch */
} BigNumState;

/* Bytes of an object for numbers of len words. len below 1, or a size beyond 2^31: -119. */
TavStatus tavsBigNumGetSize(int len, int* size);
/* Lays the object out; it has no value before tavsSet_BN. len below 1: -119. */
TavStatus tavsBigNumInit(int len, BigNumState* state);
TavStatus tavsGetSize_BN(const BigNumState* state, int* room);

/* The number sgn * data. len below 1: -119; len above the room: -11. */
TavStatus tavsSet_BN(unsigned sgn, int len, const unsigned* data, BigNumState* state);
/* data receives `size` words. */
TavStatus tavsGet_BN(unsigned* sgn, int* size, unsigned* data, const BigNumState* state);

TavStatus tavsCmpZero_BN(const BigNumState* state, unsigned* result); /* 0: =, 1: >, 2: < */
TavStatus tavsCmp_BN(const BigNumState* a, const BigNumState* b, unsigned* result);

/* r = a + b, r = a - b. r may be an operand. No room for an operand or for the carry: -11. */
TavStatus tavsAdd_BN(const BigNumState* a, const BigNumState* b, BigNumState* r);
TavStatus tavsSub_BN(const BigNumState* a, const BigNumState* b, BigNumState* r);

/* r = a * b, r = r + a * b. r may be an operand. -11: the room is below a.size + b.size - 1, or,
 * where r is both operands, below a.size + b.size, or too small for the result. */
TavStatus tavsMul_BN(const BigNumState* a, const BigNumState* b, BigNumState* r);
TavStatus tavsMAC_BN_I(const BigNumState* a, const BigNumState* b, BigNumState* r);

/* a = q * b + r, |r| < |b|, r with the sign of a. q and r may be operands, but not one another.
 * b longer than r's room: -11; b = 0: -10; no room for the quotient: -11. */
TavStatus tavsDiv_BN(BigNumState* a, BigNumState* b, BigNumState* q, BigNumState* r);
/* r = a mod m, 0 <= r < m. r may be an operand. m longer than r's room: -11; m <= 0: -118. */
TavStatus tavsMod_BN(BigNumState* a, BigNumState* m, BigNumState* r);

/* g = gcd(|a|, |b|) by Lehmer's method (D. H. Lehmer, American Mathematical Monthly 45, 1938; Knuth,
 * The Art of Computer Programming, vol. 2, 4.5.2, algorithm L). g may be an operand. g's room below
 * the longer operand: -11; both operands 0: -5. */
TavStatus tavsGcd_BN(BigNumState* a, BigNumState* b, BigNumState* g);
/* a * inv = 1 mod m, 0 < inv < m; for m = 1 no a is in range. inv is neither a nor m. m longer than
 * inv's room: -11; a <= 0: -5; m <= 0: -118; a >= m: -13; no inverse: -118. */
TavStatus tavsModInv_BN(BigNumState* a, BigNumState* m, BigNumState* inv);

/* ---- Montgomery arithmetic ------------------------------------------------------------------- */

enum { TavsSlidingWindows = 1 };

/* Arithmetic modulo an odd N of k words (P. L. Montgomery, Mathematics of Computation 44, 1985).
 * A residue x is held in the form x * R mod N, with R = 2^(32 k). */
typedef struct MontState {
    unsigned idCtx;
    unsigned method; /* 0 */
    int size;        /* k; before tavsMontSet the length given to tavsMontInit */
    unsigned nPrime; /* -1/N mod 2^32 */
    BigNumState* modulus;
    BigNumState* identity; /* R mod N */
    BigNumState* product;  /* scratch of double length */
    unsigned reserved;
} MontState;

/* The method is not read: there is one. len below 1, or a size beyond 2^31: -119. */
TavStatus tavsMontGetSize(int method, int len, int* size);
TavStatus tavsMontInit(int method, int len, MontState* state);

/* len below 1: -119; n even: -118; len above the length given to tavsMontInit: -11. */
TavStatus tavsMontSet(const unsigned* n, int len, MontState* state);
TavStatus tavsMontGet(unsigned* n, int* len, const MontState* state);

/* r = a * R mod N. r may be a. a < 0: -5; a > N: -13; r's room below k: -11. */
TavStatus tavsMontForm(const BigNumState* a, MontState* state, BigNumState* r);
/* r = a * b / R mod N. r may be an operand. An operand < 0: -5; > N: -13; r's room below k: -11. */
TavStatus tavsMontMul(const BigNumState* a, const BigNumState* b, MontState* state, BigNumState* r);
/* r = x^e, x and r in Montgomery form, e an ordinary number not above N. r may be x or e. r's room
 * below k: -11; x or e < 0: -5; x or e > N: -13.
 *
 * What the time of a call tells: the squarings and multiplications of the exponent loop run one and
 * the same instruction stream over k words, which operand is multiplied is chosen by masks, and the
 * last step of a reduction is chosen by a mask as well: no branch and no address depends on the
 * residues or, within the loop, on the bits of e. The number of turns, though, is the number of
 * bits of e below the top one plus the number of ones among them: the time gives that sum away, and
 * e = 0, and the length k. An exponent whose weight is a secret needs blinding by the caller. */
TavStatus tavsMontExp(const BigNumState* x, const BigNumState* e, MontState* state, BigNumState* r);

/* ---- Word arrays, checked --------------------------------------------------------------------- */
/* As the cp* functions below. A null pointer: -8; n below 1: -119. */

TavStatus tavsAdd_BNU(const unsigned* a, const unsigned* b, unsigned* r, int n, unsigned* carry);
TavStatus tavsSub_BNU(const unsigned* a, const unsigned* b, unsigned* r, int n, unsigned* borrow);
TavStatus tavsMulOne_BNU(const unsigned* a, unsigned* r, int n, unsigned w, unsigned* carry);
TavStatus tavsMACOne_BNU_I(const unsigned* a, unsigned* r, int n, unsigned w, unsigned* carry);
TavStatus tavsMul_BNU4(const unsigned* a, const unsigned* b, unsigned* r);
TavStatus tavsMul_BNU8(const unsigned* a, const unsigned* b, unsigned* r);
TavStatus tavsSqr_BNU4(const unsigned* a, unsigned* r);
TavStatus tavsSqr_BNU8(const unsigned* a, unsigned* r);
/* q and r of hi * 2^32 + lo by d. d = 0: -10; d <= hi, where q has no room: -11. */
TavStatus tavsDiv_64u32u(unsigned lo, unsigned hi, unsigned d, unsigned* q, unsigned* r);
/* The squares of n words, each in two words of r. */
TavStatus tavsSqr_32u64u(const unsigned* a, int n, unsigned* r);

/* ---- Word arrays, unchecked --------------------------------------------------------------------- */
/* Lengths are at least 1 unless told otherwise. r may be an operand where that is told. */

/* r = a + b, r = a - b over n words, and the carry or borrow, 0 or 1. r may be a or b. */
void cpAdd_BNU(const unsigned* a, const unsigned* b, unsigned* r, int n, unsigned* carry);
void cpSub_BNU(const unsigned* a, const unsigned* b, unsigned* r, int n, unsigned* borrow);
/* r = a * w; r = r + a * w; r = r - a * w; and the word beyond. r may be a in the first. */
void cpMulDgt_BNU(const unsigned* a, unsigned* r, int n, unsigned w, unsigned* carry);
void cpAddMulDgt_BNU(const unsigned* a, unsigned* r, int n, unsigned w, unsigned* carry);
void cpSubMulDgt_BNU(const unsigned* a, unsigned* r, int n, unsigned w, unsigned* borrow);
/* r[0 .. an + bn) = a * b, in an * bn word products. */
void cpMul_BNU_FullSize(const unsigned* a, int an, const unsigned* b, int bn, unsigned* r);
/* r = a * b, r = a * a: 4 or 8 words by as many. */
void cpMul_BNU4(const unsigned* a, const unsigned* b, unsigned* r);
void cpMul_BNU8(const unsigned* a, const unsigned* b, unsigned* r);
void cpSqr_BNU4(const unsigned* a, unsigned* r);
void cpSqr_BNU8(const unsigned* a, unsigned* r);

/* 1, -1 or 0 as a is above, below or equal to b: over n words; by length first; after top zeros. */
int cpCmp_BNU(const unsigned* a, const unsigned* b, int n);
int cpCompare_BNUs(const unsigned* a, int an, const unsigned* b, int bn);
int Cmp_BNU(const unsigned* a, int an, const unsigned* b, int bn);

/* r = a + b of different lengths, *rn words. 1; 0 if a carry needs a word beyond `room`. r may be an
 * operand. */
int cpAdd_BNUs(const unsigned* a, int an, const unsigned* b, int bn, unsigned* r, int* rn,
               int room);
/* r = |a - b|, trimmed to *rn words, at least one; *sgn = a >= b. Operands have no top zeros; r may
 * be one of them. */
void cpSub_BNUs(const unsigned* a, int an, const unsigned* b, int bn, unsigned* r, int* rn,
                unsigned* sgn);
/* r = a * b, trimmed. *rn is the room of r on entry, at least an + bn - 1, the length on return.
 * 1; 0 if the top word has no room. */
int cpMul_BNUs(const unsigned* a, int an, const unsigned* b, int bn, unsigned* r, int* rn);
/* r = r + a * b, trimmed, operands without top zeros. 1; 0 if the result has no room. */
int cpMAC_BNU(const unsigned* a, int an, const unsigned* b, int bn, unsigned* r, int* rn, int room);

/* Division (Knuth, The Art of Computer Programming, vol. 2, 4.3.1, algorithm D). a, an + 1 words of
 * room, becomes the remainder, *rn words; q, an - bn + 1 words of room, the quotient, *qn words, or
 * null. b is shifted on the way and restored; it is not 0. */
void cpDiv_BNU(unsigned* a, int an, unsigned* b, int bn, unsigned* q, int* qn, int* rn);
/* Remainder * 2^32 + quotient of hi * 2^32 + lo by d, d > hi. */
vor_dword cpDiv64u32u(unsigned lo, unsigned hi, unsigned d);

/* inv = 1/a mod m by the extended method of Euclid, 0 < a < m. 0, or -118 if there is no inverse. m
 * takes the remainders on the way, and is rebuilt from the cofactors. m and wa have mn + 1 words of
 * room, inv, wx and wq mn + 1. */
TavStatus cpModInv_BNU(const unsigned* a, int an, unsigned* m, int mn, unsigned* inv, int* invn,
                       unsigned* wa, unsigned* wx, unsigned* wq);
unsigned cpGCD32u(unsigned a, unsigned b); /* cpGCD32u(a, 0) = a */

int NLZ32u(unsigned w); /* leading zeros; 32 for 0 */
int NTZ32u(unsigned w); /* trailing zeros; 32 for 0 */

/* r = a shifted by the low five bits of `bits`; the length of the result, with a shift to the left
 * n + 1 if bits leave the top word (then r has n + 1 words), with a shift to the right without a
 * zero top word that the shift has made, at least 1. r may be a. */
int LSL_BNU(const unsigned* a, unsigned* r, int n, unsigned bits);
int LSR_BNU(const unsigned* a, unsigned* r, int n, unsigned bits);
int LSB_BNU(const unsigned* a, int n); /* index of the lowest set bit; 32 n without one */
int MSB_BNU(const unsigned* a, int n); /* index of the highest set bit; -1 without one */

void Cpy_BNU(const unsigned* a, unsigned* r, int n); /* r = a, from the first word on */
void Set_BNU(unsigned w, unsigned* r, int n);        /* r[i] = w */
int Tst_BNU(const unsigned* a, int n);               /* words without top zeros, may be 0 */
int MSD_BNU(const unsigned* a, int n);               /* the same, at least 1 */

/* Moves of n bytes or words, ascending; n may be 0. */
void cpMemcpy(void* d, const void* s, int n);
void cpMemcpy32u(unsigned* d, const unsigned* s, int n);
void cpMemset(void* d, int v, int n);
void cpMemset32u(unsigned* d, unsigned v, int n);
void cpEndianChange(unsigned* a, int n); /* reverses the four bytes of each word */

/* ---- Objects, unchecked: aligned states ---------------------------------------------------------- */

const BigNumState* BN_OneRef(void); /* 1 and 2, read-only: operands of functions that take a */
const BigNumState* BN_TwoRef(void); /* const BigNumState */

void BN_Word(BigNumState* state, unsigned w);
void BN_Zero(BigNumState* state);
void BN_Power2(BigNumState* state, int k);          /* 2^k; nothing happens if that has no room */
void BN_copy(const BigNumState* a, BigNumState* r); /* clears r above; r has the room */
TavStatus cpBigNumInitSet(BigNumState* state, unsigned sgn, unsigned w); /* room 1, value w */

int Tst_BN(const BigNumState* a); /* 1, 0, -1: the sign */
int Cmp_BN(const BigNumState* a, const BigNumState* b);
int IsZero_BN(const BigNumState* a);
int IsOne_BN(const BigNumState* a);
int IsOdd_BN(const BigNumState* a);

/* t, 2 k words, becomes scratch. cpMontMul: r = a * b / R mod n, *rn words of k; a and b have at most
 * k words and are not above n. cpMontReduction: r = t / R mod n for t < n R. r, k words, may be a or
 * b, not t. */
void cpMontMul(const unsigned* a, int an, const unsigned* b, int bn, const unsigned* n, int k,
               unsigned* r, int* rn, unsigned nPrime, unsigned* t);
void cpMontReduction(unsigned* r, unsigned* t, const unsigned* n, int k, unsigned nPrime);
/* tavsMontExp without its checks. */
void cpMontExp_Binary(BigNumState* r, const BigNumState* x, const BigNumState* e, MontState* state);

VOR_END_C

#endif
