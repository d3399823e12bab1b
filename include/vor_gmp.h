/* vor_gmp.h: multi-precision integers of the Orbel Numeric Library.
 *
 * An integer is a record of 12 bytes, passed by its address; mpz_t is an array of one record, so that
 * a variable of that type is its address already. A record lives from an initialiser to
 * __gmpz_clear. Words (v, d), bit counts and bit numbers are passed by value.
 *
 * Aliases. Every function accepts the same record more than once, unless it says otherwise. A record
 * that is an operand only is not changed. (Two threads may read one record at the same time, but for
 * __gmpz_sizeinbase on a record with zero limbs on top, which drops them.)
 *
 * Null. No pointer may be null, but for a block that is freed or reallocated, and the quotients of limb
 * arrays where this is said. No pointer is tested: a null one faults.
 *
 * Failures. A division by zero raises SIGFPE, as the processor's own division does, before any
 * result has changed. When memory runs out, or a result would be larger than the address space, one
 * line on stderr names the size, and the process aborts. Nothing else is reported.
 *
 * Spellings. Each function of a VOR_SPELLINGS line stands under four names at one address.
 *
 * Other libraries. The names __gmp... are those of libgmp as well. In one process the library that comes first
 * in the order of linking (or of LD_PRELOAD) serves both its own callers and the other's, and a block of one
 * is not a block of the other: records must not pass between code that was bound to different ones, which ends
 * in a damaged heap. A program that needs both, itself or through a third library, loads this one by dlopen
 * with RTLD_LOCAL | RTLD_DEEPBIND, or links libgmp first and does without these functions.
 *
 * Threads. Different records are independent. The allocation functions and the scratch block are
 * shared by the process and have no lock. */
#ifndef VOR_GMP_H
#define VOR_GMP_H

#include "vor_types.h"

#include <stdio.h>

VOR_BEGIN_C

/* ---- The record ------------------------------------------------------------------------------- */

/* A limb is an unsigned 32-bit word; limb arrays run from the least significant limb up. The
 * magnitude has no zero limb on top. */
typedef struct vor_mpz {
    int _mp_alloc;   /* limbs at _mp_d, at least 8 */
    int _mp_size;    /* limbs in use, negative for a negative number, 0 for 0 */
    unsigned* _mp_d; /* owned; what stands above the limbs in use has no meaning */
} vor_mpz;
typedef vor_mpz mpz_t[1];

/* ---- Memory ----------------------------------------------------------------------------------- */

/* All limbs and all scratch on the heap come from three functions, which a program may replace
 * before it makes its first record. Sizes are in bytes; the old size is what was asked for. An
 * allocation function that returns null ends the process, but where a long product asks for room for
 * its transforms: it then goes by shorter ones. */
typedef void* (*vor_gmp_allocator)(unsigned size);
typedef void* (*vor_gmp_reallocator)(void* block, unsigned old_size, unsigned size);
typedef void (*vor_gmp_deallocator)(void* block, unsigned size);

VOR_SPELLINGS(void, __gmp_set_memory_functions, __GMP_SET_MEMORY_FUNCTIONS,
              (vor_gmp_allocator allocate, vor_gmp_reallocator reallocate,
               vor_gmp_deallocator deallocate))
VOR_SPELLINGS(vor_gmp_allocator, __gmp_allocate_func_ptr, __GMP_ALLOCATE_FUNC_PTR, (void))
VOR_SPELLINGS(vor_gmp_reallocator, __gmp_reallocate_func_ptr, __GMP_REALLOCATE_FUNC_PTR, (void))
VOR_SPELLINGS(vor_gmp_deallocator, __gmp_free_func_ptr, __GMP_FREE_FUNC_PTR, (void))

/* The default functions: malloc blocks aligned to 32 bytes, with a header of their own, so that only
 * these functions free and move them. They return null without memory. Reallocation always moves;
 * of a null block it is allocation; where it fails the old block stays. */
void* __gmp_default_allocate(unsigned size);
void* __gmp_default_reallocate(void* block, unsigned old_size, unsigned size);
void __gmp_default_free(void* block, unsigned size);
void* _impMalloc(unsigned size);
void* _impRealloc(void* block, unsigned size);
void _impFree(void* block);
/* -1 without the guard word 0x27182818 at block - 8, 1 without 0x31415926 behind the block, else 0.
 * The functions above write neither: for blocks of a program's own. */
int _impCheckMemoryBlock(const void* block);

/* One scratch block for the process. _impTmpMalloc forgets, and does not free, a block that is held;
 * _impTmpMark and _impTmpFree free it. */
VOR_MIXED_SPELLINGS(void*, _impTmpMalloc, _imptmpmalloc, _IMPTMPMALLOC, (unsigned size))
VOR_MIXED_SPELLINGS(void, _impTmpMark, _imptmpmark, _IMPTMPMARK, (void))
VOR_MIXED_SPELLINGS(void, _impTmpFree, _imptmpfree, _IMPTMPFREE, (void))

/* Bytes and limbs that hold so many bits, (bits + 7) / 8 and (bits + 31) / 32 in 32-bit arithmetic,
 * at least 1. */
VOR_MIXED_SPELLINGS(unsigned, _impBits2Chars, _impbits2chars, _IMPBITS2CHARS, (unsigned bits))
VOR_MIXED_SPELLINGS(unsigned, _impBits2Chunks, _impbits2chunks, _IMPBITS2CHUNKS, (unsigned bits))

/* x = 0, with room for 8 limbs or for so many bits. */
VOR_SPELLINGS(void, __gmpz_init, __GMPZ_INIT, (vor_mpz * x))
VOR_SPELLINGS(void, __gmpz_init2, __GMPZ_INIT2, (vor_mpz * x, unsigned bits))
VOR_SPELLINGS(void, __gmpz_array_init, __GMPZ_ARRAY_INIT,
              (vor_mpz * array, int count, unsigned bits))
/* Gives the limbs back; the fields stay. */
VOR_SPELLINGS(void, __gmpz_clear, __GMPZ_CLEAR, (vor_mpz * x))
/* Room for `limbs` limbs, at least 8. More than there is: the value is kept. Less: the value is cut
 * to that many low limbs, the room stays. The result is 0. */
VOR_SPELLINGS(int, __gmpz_realloc, __GMPZ_REALLOC, (vor_mpz * x, int limbs))
/* Room for exactly so many bits, at least 8 limbs; a value that does not fit becomes 0. */
VOR_SPELLINGS(void, __gmpz_realloc2, __GMPZ_REALLOC2, (vor_mpz * x, unsigned bits))

/* ---- Assignment and queries -------------------------------------------------------------------- */

/* r = a, v; the initialisers make the record as well, and must not be given a live one. */
VOR_SPELLINGS(void, __gmpz_set, __GMPZ_SET, (vor_mpz * r, const vor_mpz* a))
VOR_SPELLINGS(void, __gmpz_set_ui, __GMPZ_SET_UI, (vor_mpz * r, unsigned v))
VOR_SPELLINGS(void, __gmpz_set_si, __GMPZ_SET_SI, (vor_mpz * r, int v))
VOR_SPELLINGS(void, __gmpz_init_set, __GMPZ_INIT_SET, (vor_mpz * r, const vor_mpz* a))
VOR_SPELLINGS(void, __gmpz_init_set_ui, __GMPZ_INIT_SET_UI, (vor_mpz * r, unsigned v))
VOR_SPELLINGS(void, __gmpz_init_set_si, __GMPZ_INIT_SET_SI, (vor_mpz * r, int v))
/* Exchanges two values, without a copy of limbs; r = -a; r = |a|. */
VOR_SPELLINGS(void, __gmpz_swap, __GMPZ_SWAP, (vor_mpz * a, vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_neg, __GMPZ_NEG, (vor_mpz * r, const vor_mpz* a))
VOR_SPELLINGS(void, __gmpz_abs, __GMPZ_ABS, (vor_mpz * r, const vor_mpz* a))

/* The lowest limb of |x|; negated as a word for a negative x; limb i of |x|, 0 where there is none. */
VOR_SPELLINGS(unsigned, __gmpz_get_ui, __GMPZ_GET_UI, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_get_si, __GMPZ_GET_SI, (const vor_mpz* x))
VOR_SPELLINGS(unsigned, __gmpz_getlimbn, __GMPZ_GETLIMBN, (const vor_mpz* x, int i))
VOR_SPELLINGS(int, __gmpz_size, __GMPZ_SIZE, (const vor_mpz* x)) /* limbs in use */
VOR_SPELLINGS(int, __gmpz_sgn, __GMPZ_SGN, (const vor_mpz* x))   /* 1, 0, -1 */
/* Digits of |x| in a base of 2 or more: exact for powers of two, else possibly one too many. */
VOR_SPELLINGS(unsigned, __gmpz_sizeinbase, __GMPZ_SIZEINBASE, (const vor_mpz* x, int base))

/* 1 if x has a value of the type, else 0. */
VOR_SPELLINGS(int, __gmpz_fits_sint_p, __GMPZ_FITS_SINT_P, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_fits_slong_p, __GMPZ_FITS_SLONG_P, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_fits_uint_p, __GMPZ_FITS_UINT_P, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_fits_ulong_p, __GMPZ_FITS_ULONG_P, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_fits_sshort_p, __GMPZ_FITS_SSHORT_P, (const vor_mpz* x))
VOR_SPELLINGS(int, __gmpz_fits_ushort_p, __GMPZ_FITS_USHORT_P, (const vor_mpz* x))

/* 1, 0, -1 as the first is above, equal to or below the second; cmpabs: their magnitudes. The
 * comparison with a double is exact; zeros, subnormal numbers, infinities and NaN count as 0. */
VOR_SPELLINGS(int, __gmpz_cmp, __GMPZ_CMP, (const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(int, __gmpz_cmp_ui, __GMPZ_CMP_UI, (const vor_mpz* a, unsigned v))
VOR_SPELLINGS(int, __gmpz_cmp_si, __GMPZ_CMP_SI, (const vor_mpz* a, int v))
VOR_SPELLINGS(int, __gmpz_cmp_d, __GMPZ_CMP_D, (const vor_mpz* a, double d))
VOR_SPELLINGS(int, __gmpz_cmpabs, __GMPZ_CMPABS, (const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(int, __gmpz_cmpabs_ui, __GMPZ_CMPABS_UI, (const vor_mpz* a, unsigned v))
VOR_SPELLINGS(int, __gmpz_cmpabs_d, __GMPZ_CMPABS_D, (const vor_mpz* a, double d))

/* ---- Sums and products -------------------------------------------------------------------------- */

/* r = a + b, a - b, a + v, a - v, v - a, a * b, a * v, exact, with their signs; v is as signed as its
 * type. */
VOR_SPELLINGS(void, __gmpz_add, __GMPZ_ADD, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_sub, __GMPZ_SUB, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_add_ui, __GMPZ_ADD_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
VOR_SPELLINGS(void, __gmpz_sub_ui, __GMPZ_SUB_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
VOR_SPELLINGS(void, __gmpz_ui_sub, __GMPZ_UI_SUB, (vor_mpz * r, unsigned v, const vor_mpz* a))
VOR_SPELLINGS(void, __gmpz_mul, __GMPZ_MUL, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_mul_ui, __GMPZ_MUL_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
VOR_SPELLINGS(void, __gmpz_mul_si, __GMPZ_MUL_SI, (vor_mpz * r, const vor_mpz* a, int v))
/* r = r + a * b, r = r - a * b. */
VOR_SPELLINGS(void, __gmpz_addmul, __GMPZ_ADDMUL, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_submul, __GMPZ_SUBMUL, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_addmul_ui, __GMPZ_ADDMUL_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
VOR_SPELLINGS(void, __gmpz_submul_ui, __GMPZ_SUBMUL_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
/* r = a * 2^bits; r = a^e, v^e, with 0^0 = 1. */
VOR_SPELLINGS(void, __gmpz_mul_2exp, __GMPZ_MUL_2EXP,
              (vor_mpz * r, const vor_mpz* a, unsigned bits))
VOR_SPELLINGS(void, __gmpz_pow_ui, __GMPZ_POW_UI, (vor_mpz * r, const vor_mpz* a, unsigned e))
VOR_SPELLINGS(void, __gmpz_ui_pow_ui, __GMPZ_UI_POW_UI, (vor_mpz * r, unsigned v, unsigned e))

/* ---- Division ----------------------------------------------------------------------------------- */
/* n = q * d + r. Rounding of the quotient, and sign of the remainder:
 *   tdiv  toward zero           r has the sign of n
 *   fdiv  toward minus infinity r has the sign of d
 *   cdiv  toward plus infinity  r has the sign opposite to d
 * q and r may be n or d, but not one record. The forms with a word d return the magnitude of their
 * remainder. The _2exp forms divide by 2^bits. */

VOR_SPELLINGS(void, __gmpz_tdiv_qr, __GMPZ_TDIV_QR,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_tdiv_q, __GMPZ_TDIV_Q, (vor_mpz * q, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_tdiv_r, __GMPZ_TDIV_R, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(unsigned, __gmpz_tdiv_qr_ui, __GMPZ_TDIV_QR_UI,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_tdiv_q_ui, __GMPZ_TDIV_Q_UI,
              (vor_mpz * q, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_tdiv_r_ui, __GMPZ_TDIV_R_UI,
              (vor_mpz * r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_tdiv_ui, __GMPZ_TDIV_UI, (const vor_mpz* n, unsigned d))
VOR_SPELLINGS(void, __gmpz_tdiv_q_2exp, __GMPZ_TDIV_Q_2EXP,
              (vor_mpz * q, const vor_mpz* n, unsigned bits))
VOR_SPELLINGS(void, __gmpz_tdiv_r_2exp, __GMPZ_TDIV_R_2EXP,
              (vor_mpz * r, const vor_mpz* n, unsigned bits))

VOR_SPELLINGS(void, __gmpz_fdiv_qr, __GMPZ_FDIV_QR,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_fdiv_q, __GMPZ_FDIV_Q, (vor_mpz * q, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_fdiv_r, __GMPZ_FDIV_R, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(unsigned, __gmpz_fdiv_qr_ui, __GMPZ_FDIV_QR_UI,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_fdiv_q_ui, __GMPZ_FDIV_Q_UI,
              (vor_mpz * q, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_fdiv_r_ui, __GMPZ_FDIV_R_UI,
              (vor_mpz * r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_fdiv_ui, __GMPZ_FDIV_UI, (const vor_mpz* n, unsigned d))
VOR_SPELLINGS(void, __gmpz_fdiv_q_2exp, __GMPZ_FDIV_Q_2EXP,
              (vor_mpz * q, const vor_mpz* n, unsigned bits))
VOR_SPELLINGS(void, __gmpz_fdiv_r_2exp, __GMPZ_FDIV_R_2EXP,
              (vor_mpz * r, const vor_mpz* n, unsigned bits))

VOR_SPELLINGS(void, __gmpz_cdiv_qr, __GMPZ_CDIV_QR,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_cdiv_q, __GMPZ_CDIV_Q, (vor_mpz * q, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_cdiv_r, __GMPZ_CDIV_R, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(unsigned, __gmpz_cdiv_qr_ui, __GMPZ_CDIV_QR_UI,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_cdiv_q_ui, __GMPZ_CDIV_Q_UI,
              (vor_mpz * q, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_cdiv_r_ui, __GMPZ_CDIV_R_UI,
              (vor_mpz * r, const vor_mpz* n, unsigned d))
VOR_SPELLINGS(unsigned, __gmpz_cdiv_ui, __GMPZ_CDIV_UI, (const vor_mpz* n, unsigned d))
VOR_SPELLINGS(void, __gmpz_cdiv_q_2exp, __GMPZ_CDIV_Q_2EXP,
              (vor_mpz * q, const vor_mpz* n, unsigned bits))
VOR_SPELLINGS(void, __gmpz_cdiv_r_2exp, __GMPZ_CDIV_R_2EXP,
              (vor_mpz * r, const vor_mpz* n, unsigned bits))

/* 0 <= r < |d|. */
VOR_SPELLINGS(void, __gmpz_mod, __GMPZ_MOD, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(unsigned, __gmpz_mod_ui, __GMPZ_MOD_UI, (vor_mpz * r, const vor_mpz* n, unsigned d))
/* n / d where d divides n. */
VOR_SPELLINGS(void, __gmpz_divexact, __GMPZ_DIVEXACT,
              (vor_mpz * q, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, __gmpz_divexact_ui, __GMPZ_DIVEXACT_UI,
              (vor_mpz * q, const vor_mpz* n, unsigned d))
/* 1 if d, or 2^bits, divides n; if it divides a - c. */
VOR_SPELLINGS(int, __gmpz_divisible_p, __GMPZ_DIVISIBLE_P, (const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(int, __gmpz_divisible_ui_p, __GMPZ_DIVISIBLE_UI_P, (const vor_mpz* n, unsigned d))
VOR_SPELLINGS(int, __gmpz_divisible_2exp_p, __GMPZ_DIVISIBLE_2EXP_P,
              (const vor_mpz* n, unsigned bits))
VOR_SPELLINGS(int, __gmpz_congruent_p, __GMPZ_CONGRUENT_P,
              (const vor_mpz* a, const vor_mpz* c, const vor_mpz* d))
VOR_SPELLINGS(int, __gmpz_congruent_ui_p, __GMPZ_CONGRUENT_UI_P,
              (const vor_mpz* a, unsigned c, unsigned d))
VOR_SPELLINGS(int, __gmpz_congruent_2exp_p, __GMPZ_CONGRUENT_2EXP_P,
              (const vor_mpz* a, const vor_mpz* c, unsigned bits))

/* The engines of the families, on magnitudes: signs of n and d are ignored, results are not negative. */
VOR_SPELLINGS(void, vor_gmp_div_qr, VOR_GMP_DIV_QR,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, vor_gmp_div_q, VOR_GMP_DIV_Q, (vor_mpz * q, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, vor_gmp_div_r, VOR_GMP_DIV_R, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d))
VOR_SPELLINGS(void, vor_gmp_divqr_2exp, VOR_GMP_DIVQR_2EXP,
              (vor_mpz * q, vor_mpz* r, const vor_mpz* n, unsigned bits))

/* ---- Bits --------------------------------------------------------------------------------------- */
/* A negative number is an infinite two's complement, with ones on top without end. Bit numbers count
 * from 0 at the bottom; 0xFFFFFFFF is "none". */

VOR_SPELLINGS(void, __gmpz_and, __GMPZ_AND, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_ior, __GMPZ_IOR, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_xor, __GMPZ_XOR, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_com, __GMPZ_COM, (vor_mpz * r, const vor_mpz* a)) /* -a - 1 */
VOR_SPELLINGS(void, __gmpz_setbit, __GMPZ_SETBIT, (vor_mpz * x, unsigned i))
VOR_SPELLINGS(void, __gmpz_clrbit, __GMPZ_CLRBIT, (vor_mpz * x, unsigned i))
VOR_SPELLINGS(int, __gmpz_tstbit, __GMPZ_TSTBIT, (const vor_mpz* x, unsigned i))
/* The first 0 or 1 at or after bit i. */
VOR_SPELLINGS(unsigned, __gmpz_scan0, __GMPZ_SCAN0, (const vor_mpz* x, unsigned i))
VOR_SPELLINGS(unsigned, __gmpz_scan1, __GMPZ_SCAN1, (const vor_mpz* x, unsigned i))
/* Ones of x, none for a negative x; bits in which a and b differ, none if one is negative only. */
VOR_SPELLINGS(unsigned, __gmpz_popcount, __GMPZ_POPCOUNT, (const vor_mpz* x))
VOR_SPELLINGS(unsigned, __gmpz_hamdist, __GMPZ_HAMDIST, (const vor_mpz* a, const vor_mpz* b))

/* The same search in n limbs. Without a 1: none. Without a 0: the larger of i and 32 n. */
VOR_SPELLINGS(unsigned, vor_gmp_scan0, VOR_GMP_SCAN0, (const unsigned* limbs, int n, unsigned i))
VOR_SPELLINGS(unsigned, vor_gmp_scan1, VOR_GMP_SCAN1, (const unsigned* limbs, int n, unsigned i))

/* ---- Powers modulo m ---------------------------------------------------------------------------- */

/* 0 <= r < |m| in all of them; m = 0: SIGFPE. Up to 30 limbs, for 0 < e <= the odd part of m > 0
 * and a > 0: binary powers in Montgomery's form (tavsMontExp); else sliding windows in that form
 * for the odd part, the other part modulo a power of two (Montgomery, Mathematics of Computation
 * 44, 1985; Menezes, van Oorschot and Vanstone, Handbook of Applied Cryptography, 14.6). Not for
 * secrets: time depends on the operands. */

/* r = a^e mod m. A negative e takes powers of the inverse of a modulo m; where there is none, r
 * stays as it was. 0^0 = 1. */
VOR_SPELLINGS(void, __gmpz_powm, __GMPZ_POWM,
              (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m))
VOR_SPELLINGS(void, __gmpz_powm_ui, __GMPZ_POWM_UI,
              (vor_mpz * r, const vor_mpz* a, unsigned e, const vor_mpz* m))
/* The same, always by windows. */
VOR_SPELLINGS(void, mpz_powm_mary, MPZ_POWM_MARY,
              (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m))
/* r = a^e mod 2^k, a and e not negative; r = the inverse of an odd q modulo 2^k, 1 for k below 2. */
VOR_SPELLINGS(void, mpl_powm_exp2, MPL_POWM_EXP2,
              (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, unsigned k))
VOR_SPELLINGS(void, mpl_modinv_exp2, MPL_MODINV_EXP2, (vor_mpz * r, const vor_mpz* q, unsigned k))
/* r = a^(2^k); r = a^(2^k) mod m. */
VOR_MIXED_SPELLINGS(void, _impPow2Exp, _imppow2exp, _IMPPOW2EXP,
                    (vor_mpz * r, const vor_mpz* a, unsigned k))
VOR_MIXED_SPELLINGS(void, _impPowm2Exp, _imppowm2exp, _IMPPOWM2EXP,
                    (vor_mpz * r, const vor_mpz* a, unsigned k, const vor_mpz* m))

/* ---- Number theory ------------------------------------------------------------------------------ */

/* g = the greatest common divisor of |a| and |b|, with gcd(0, b) = |b|; r = the least common
 * multiple, not negative, 0 if an operand is (Lehmer, American Mathematical Monthly 45, 1938;
 * Knuth, 4.5.2). */
VOR_SPELLINGS(void, __gmpz_gcd, __GMPZ_GCD, (vor_mpz * g, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_lcm, __GMPZ_LCM, (vor_mpz * r, const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(void, __gmpz_lcm_ui, __GMPZ_LCM_UI, (vor_mpz * r, const vor_mpz* a, unsigned v))
/* g may be null. The divisor as a word, 0 if it is none, as of a long a and v = 0. */
VOR_SPELLINGS(unsigned, __gmpz_gcd_ui, __GMPZ_GCD_UI, (vor_mpz * g, const vor_mpz* a, unsigned v))
/* s a + t b = g, t may be null; g, s and t are different records. With g = |a|: s is the sign of
 * a and t = 0. Else s is the inverse of a/g modulo |b/g|, in 1 to |b/g| - 1, and 0 for |b/g| = 1.
 */
VOR_SPELLINGS(void, __gmpz_gcdext, __GMPZ_GCDEXT,
              (vor_mpz * g, vor_mpz* s, vor_mpz* t, const vor_mpz* a, const vor_mpz* b))
/* 1 and r = 1/a modulo |m|, in 1 to |m| - 1; or 0, and r without a value, where there is no
 * inverse and for |m| = 1. m = 0: SIGFPE. */
VOR_SPELLINGS(int, __gmpz_invert, __GMPZ_INVERT, (vor_mpz * r, const vor_mpz* a, const vor_mpz* m))
/* Takes all factors f from n; their number. For n = 0 and |f| = 1 it is 0, and r = n; f = 0:
 * SIGFPE. */
VOR_SPELLINGS(unsigned, __gmpz_remove, __GMPZ_REMOVE,
              (vor_mpz * r, const vor_mpz* n, const vor_mpz* f))

/* The symbol (a/b) of Jacobi as Kronecker extended it to every b: 1, -1 or 0 (Cohen, A Course in
 * Computational Algebraic Number Theory, 1.4.10). mpn_jacobi_base: of words, b odd. */
VOR_SPELLINGS(int, __gmpz_jacobi, __GMPZ_JACOBI, (const vor_mpz* a, const vor_mpz* b))
VOR_SPELLINGS(int, __gmpz_kronecker_si, __GMPZ_KRONECKER_SI, (const vor_mpz* a, int b))
VOR_SPELLINGS(int, __gmpz_kronecker_ui, __GMPZ_KRONECKER_UI, (const vor_mpz* a, unsigned b))
VOR_SPELLINGS(int, __gmpz_si_kronecker, __GMPZ_SI_KRONECKER, (int a, const vor_mpz* b))
VOR_SPELLINGS(int, __gmpz_ui_kronecker, __GMPZ_UI_KRONECKER, (unsigned a, const vor_mpz* b))
VOR_SPELLINGS(int, mpn_jacobi_base, MPN_JACOBI_BASE, (unsigned a, unsigned b))

/* Of |n|. 2: a prime, as division by the primes below 1000 tells. 0: composite. 1: `reps` rounds
 * of Miller and Rabin with random bases found no witness; a composite number passes each with a
 * probability of at most 1/4 (Rabin, Journal of Number Theory 12, 1980). 2 as well for reps below
 * 1 and a number without a prime factor below 1000. */
VOR_SPELLINGS(int, __gmpz_probab_prime_p, __GMPZ_PROBAB_PRIME_P, (const vor_mpz* n, int reps))
/* One such round with the base y: 1 for a pass, 0 for a witness. n odd, nm1 = n - 1 = q * 2^k; t
 * takes q, x the powers. t, x and the others are different records. */
int _impMRtest(const vor_mpz* q, vor_mpz* t, const vor_mpz* y, vor_mpz* x, const vor_mpz* n,
               const vor_mpz* nm1, unsigned k);
/* The least r > n with r = 2 or five such rounds passed. */
VOR_SPELLINGS(void, __gmpz_nextprime, __GMPZ_NEXTPRIME, (vor_mpz * r, const vor_mpz* n))

/* r = floor(n^(1/k)), also of a negative n and an odd k; of a negative n and an even k 0. 1 if
 * r^k = n, else 0. k = 0: SIGFPE. sqrtrem: s = floor(sqrt(n)), rest = n - s^2, two records
 * (Zimmermann, Karatsuba Square Root, INRIA report 3805, 1999; Brent and Zimmermann, Modern
 * Computer Arithmetic, 1.5). */
VOR_SPELLINGS(int, __gmpz_root, __GMPZ_ROOT, (vor_mpz * r, const vor_mpz* n, unsigned k))
VOR_SPELLINGS(void, __gmpz_sqrt, __GMPZ_SQRT, (vor_mpz * r, const vor_mpz* n))
VOR_SPELLINGS(void, __gmpz_sqrtrem, __GMPZ_SQRTREM, (vor_mpz * s, vor_mpz* rest, const vor_mpz* n))
/* 1 if n = a^k for a k of 2 or more (0 and 1 are); if n = a^2. */
VOR_SPELLINGS(int, __gmpz_perfect_power_p, __GMPZ_PERFECT_POWER_P, (const vor_mpz* n))
VOR_SPELLINGS(int, __gmpz_perfect_square_p, __GMPZ_PERFECT_SQUARE_P, (const vor_mpz* n))

/* r = n!; the binomial coefficient of n over k, with (-n over k) = (-1)^k (n + k - 1 over k). */
VOR_SPELLINGS(void, __gmpz_fac_ui, __GMPZ_FAC_UI, (vor_mpz * r, unsigned n))
VOR_SPELLINGS(void, __gmpz_bin_ui, __GMPZ_BIN_UI, (vor_mpz * r, const vor_mpz* n, unsigned k))
VOR_SPELLINGS(void, __gmpz_bin_uiui, __GMPZ_BIN_UIUI, (vor_mpz * r, unsigned n, unsigned k))
/* Numbers of Fibonacci, F(0) = 0, F(1) = 1, and of Lucas, L(0) = 2, L(1) = 1; the second result
 * is the number before, F(-1) = 1, L(-1) = -1, in another record. */
VOR_SPELLINGS(void, __gmpz_fib_ui, __GMPZ_FIB_UI, (vor_mpz * f, unsigned n))
VOR_SPELLINGS(void, __gmpz_fib2_ui, __GMPZ_FIB2_UI, (vor_mpz * f, vor_mpz* f1, unsigned n))
VOR_SPELLINGS(void, __gmpz_lucnum_ui, __GMPZ_LUCNUM_UI, (vor_mpz * l, unsigned n))
VOR_SPELLINGS(void, __gmpz_lucnum2_ui, __GMPZ_LUCNUM2_UI, (vor_mpz * l, vor_mpz* l1, unsigned n))

/* ---- Text ----------------------------------------------------------------------------------------- */
/* Bases 2 to 36; digits above 9 are letters, written upper case and read in either. */

/* The digits of x, with a minus in front and NUL behind: into str, which has room for them
 * (__gmpz_sizeinbase(x, |base|) + 2 bytes are enough), or for a null str into a block of exactly
 * their length + 1 from the allocation function, which the caller gives back. Base 0 is 10, and
 * the sign of the base is not read. Null for any other base, with nothing written. */
VOR_SPELLINGS(char*, __gmpz_get_str, __GMPZ_GET_STR, (char* str, int base, const vor_mpz* x))
/* The same in base 16; a block has one byte for each digit and the sign, and one more. */
VOR_SPELLINGS(char*, vor_gmp_get_hexstr, VOR_GMP_GET_HEXSTR, (char* str, const vor_mpz* x))
/* Reads a sign and digits, with spaces (no other white space) in front and behind. Base 0: 16
 * behind "0x" or "0X", 8 behind another "0", else 10. The result is 0; -1 for a text of spaces or
 * of none, a base that is none, where r stays as it was, and for a bad digit, where r is the
 * value, not negative, of the digits behind the last bad one. A sign alone is 0. init_set_str
 * makes the record as well, in every case. */
VOR_SPELLINGS(int, __gmpz_set_str, __GMPZ_SET_STR, (vor_mpz * r, const char* s, int base))
VOR_SPELLINGS(int, __gmpz_init_set_str, __GMPZ_INIT_SET_STR, (vor_mpz * r, const char* s, int base))
/* 0 to 35; -1 for a character that is no digit in any base. */
VOR_MIXED_SPELLINGS(int, _impGetDigitValue, _impgetdigitvalue, _IMPGETDIGITVALUE, (int c))

/* ---- Streams -------------------------------------------------------------------------------------- */
/* A null stream is stdout or stdin. */

/* A fraction, numerator in front. */
typedef struct vor_mpq {
    vor_mpz _mp_num, _mp_den;
} vor_mpq;
typedef vor_mpq mpq_t[1];

/* Writes the text of x; the sum of what fprintf returned for the minus and for the digits. 0 for
 * a base that is none. */
int __gmpz_out_str(FILE* stream, int base, const vor_mpz* x);
/* Reads what stands between spaces, or up to the end of the stream (a newline is part of it), as
 * __gmpz_set_str does. The characters read, spaces in front included; the one behind is put back.
 * 0 for a text that __gmpz_set_str refuses. */
int __gmpz_inp_str(vor_mpz* r, FILE* stream, int base);
/* Writes x in base 16, whatever the format says: it is not read. The result is -1. */
int __gmp_fprintf(FILE* stream, const char* format, const vor_mpz* x);
/* Writes the numerator's limbs, from the top, as eight digits of base 16 each, and unless the
 * denominator is 1 " / " and its limbs. The base is not read. The result is 0. */
VOR_SPELLINGS(int, __gmpq_out_str, __GMPQ_OUT_STR, (FILE * stream, int base, const vor_mpq* q))
/* Four bytes of a count with the sign of x, then so many bytes of |x|, both with the most
 * significant byte first. The bytes written: fewer than 4 + count if the stream fails, none if 31
 * bits do not hold the count. */
unsigned __gmpz_out_raw(FILE* stream, const vor_mpz* x);
/* Reads this form. The bytes read; if they end too early, r stays as it was. */
unsigned __gmpz_inp_raw(vor_mpz* r, FILE* stream);

/* ---- Doubles -------------------------------------------------------------------------------------- */

/* x rounded toward zero; too large: infinity. d in [0.5, 1), rounded toward zero, with
 * x = d * 2^exponent; 0 and the exponent 0 for 0. */
VOR_SPELLINGS(double, __gmpz_get_d, __GMPZ_GET_D, (const vor_mpz* x))
VOR_SPELLINGS(double, __gmpz_get_d_2exp, __GMPZ_GET_D_2EXP, (int* exponent, const vor_mpz* x))
/* r = the integer next to d, the even one of two. Infinities and NaN leave r as it was;
 * init_set_d makes the record as well, 0 for them. */
VOR_SPELLINGS(void, __gmpz_set_d, __GMPZ_SET_D, (vor_mpz * r, double d))
VOR_SPELLINGS(void, __gmpz_init_set_d, __GMPZ_INIT_SET_D, (vor_mpz * r, double d))
/* Of the 53 bits of a significand, numbered from the leading one, in bit 20 of hi, downward: not
 * 0 if bit i is set; if any bit behind i is. 0 where there are none; behind a negative i there
 * are all. */
VOR_MIXED_SPELLINGS(unsigned, _impGetFloatBit, _impgetfloatbit, _IMPGETFLOATBIT,
                    (unsigned hi, unsigned lo, int i))
VOR_MIXED_SPELLINGS(unsigned, _impGetFloatTail, _impgetfloattail, _IMPGETFLOATTAIL,
                    (unsigned hi, unsigned lo, int i))

/* ---- Words of any size ------------------------------------------------------------------------------ */
/* A magnitude as words of `size` bytes with their top `nails` bits 0, nails < 8 size. Order 1:
 * the most significant word first, -1: last. Endian 1 and 0: the most significant byte of a word
 * first, -1: last. */

/* The words of |x|, as many as it needs, at dst, or for a null dst in a block of exactly so many
 * from the allocation function; their address. Their number in *count, which may be null; 0 for x
 * = 0, and then dst is returned as it is. Without a bit to a word: SIGFPE. */
VOR_SPELLINGS(void*, __gmpz_export, __GMPZ_EXPORT,
              (void* dst, unsigned* count, int order, unsigned size, int endian, unsigned nails,
               const vor_mpz* x))
/* r = the value of so many words, not negative; nails are not read. Without a bit to a word: 0. */
VOR_SPELLINGS(void, __gmpz_import, __GMPZ_IMPORT,
              (vor_mpz * r, unsigned count, int order, unsigned size, int endian, unsigned nails,
               const void* src))

/* ---- Random numbers ------------------------------------------------------------------------------ */

/* A stream of uniform bits: xoshiro128** (Blackman and Vigna, ACM Transactions on Mathematical
 * Software 47, 2021). Each state is seeded from the time and a counter: no sequence can be repeated,
 * and none is fit for secrets. A state lives from an initialiser to __gmp_randclear, for one thread
 * at a time. */
typedef struct vor_randstate {
    void* cell;
} vor_randstate;

/* One generator: the arguments behind the state are not read. lc_2exp_size returns 0. */
VOR_SPELLINGS(void, __gmp_randinit_default, __GMP_RANDINIT_DEFAULT, (vor_randstate * state))
VOR_SPELLINGS(void, __gmp_randinit_lc_2exp, __GMP_RANDINIT_LC_2EXP,
              (vor_randstate * state, const vor_mpz* a, unsigned c, unsigned bits))
VOR_SPELLINGS(int, __gmp_randinit_lc_2exp_size, __GMP_RANDINIT_LC_2EXP_SIZE,
              (vor_randstate * state, unsigned size))
void __gmp_randinit(vor_randstate* state, ...);
/* Does nothing. */
VOR_SPELLINGS(void, __gmp_randseed_ui, __GMP_RANDSEED_UI, (vor_randstate * state, unsigned seed))
VOR_SPELLINGS(void, __gmp_randclear, __GMP_RANDCLEAR, (vor_randstate * state))

/* r uniform below 2^bits (below 2^32 for bits = 0), below |n| (n = 0: SIGFPE); r below 2^bits with
 * long runs of equal bits. */
VOR_SPELLINGS(void, __gmpz_urandomb, __GMPZ_URANDOMB,
              (vor_mpz * r, vor_randstate* state, unsigned bits))
VOR_SPELLINGS(void, __gmpz_urandomm, __GMPZ_URANDOMM,
              (vor_mpz * r, vor_randstate* state, const vor_mpz* n))
VOR_SPELLINGS(void, __gmpz_rrandomb, __GMPZ_RRANDOMB,
              (vor_mpz * r, vor_randstate* state, unsigned bits))
/* As urandomb and rrandomb with 32 * limbs bits, from a state of their own. */
void __gmpz_random(vor_mpz* r, int limbs);
void __gmpz_random2(vor_mpz* r, int limbs);
/* As urandomb, into an array; a draw of 32 bits modulo n (n = 0: SIGFPE). */
VOR_SPELLINGS(void, _gmp_rand, _GMP_RAND, (unsigned* limbs, vor_randstate* state, unsigned bits))
VOR_SPELLINGS(unsigned, mpl_rand_ui, MPL_RAND_UI, (vor_randstate * state, unsigned n))

/* ---- Limb arrays --------------------------------------------------------------------------------- */

/* r = a + b, r = a - b over n limbs; r may be a or b. The carry or borrow; 0 for n = 0. */
VOR_SPELLINGS(unsigned, __gmpn_add_n, __GMPN_ADD_N,
              (unsigned* r, const unsigned* a, const unsigned* b, int n))
VOR_SPELLINGS(unsigned, __gmpn_sub_n, __GMPN_SUB_N,
              (unsigned* r, const unsigned* a, const unsigned* b, int n))
/* r = a + v, r = a - v over n limbs, all written; r may be a. The carry or borrow; v for n = 0. */
VOR_SPELLINGS(unsigned, __gmpn_add_1, __GMPN_ADD_1,
              (unsigned* r, const unsigned* a, int n, unsigned v))
VOR_SPELLINGS(unsigned, __gmpn_sub_1, __GMPN_SUB_1,
              (unsigned* r, const unsigned* a, int n, unsigned v))
/* r = r + a * v, r = r - a * v over n limbs; r may be a. The carry or borrow limb; 0 for n = 0.
 * __gmpn_cmp: 1, 0, -1. */
VOR_SPELLINGS(unsigned, __gmpn_addmul_1, __GMPN_ADDMUL_1,
              (unsigned* r, const unsigned* a, int n, unsigned v))
VOR_SPELLINGS(unsigned, __gmpn_submul_1, __GMPN_SUBMUL_1,
              (unsigned* r, const unsigned* a, int n, unsigned v))
VOR_SPELLINGS(int, __gmpn_cmp, __GMPN_CMP, (const unsigned* a, const unsigned* b, int n))

/* r[0 .. an + bn) = a * b, an >= bn >= 0, r apart from both: schoolbook for short operands,
 * Karatsuba's and Toom's methods for longer ones, then Fourier transforms, exact at every size and under
 * any control word. With bn = 0 only r[0 .. an) = 0 is written. */
VOR_SPELLINGS(void, __gmpn_mul, __GMPN_MUL,
              (unsigned* r, const unsigned* a, int an, const unsigned* b, int bn))
VOR_SPELLINGS(void, __gmpn_mul_n, __GMPN_MUL_N,
              (unsigned* r, const unsigned* a, const unsigned* b, int n))
/* The same by one method: Karatsuba's, Fourier transforms (r has 2 max(an, bn) limbs, all written;
 * where memory for them is refused, by the other methods), schoolbook. */
VOR_SPELLINGS(void, vor_gmp_mul_n_kara, VOR_GMP_MUL_N_KARA,
              (const unsigned* a, const unsigned* b, unsigned* r, int n))
VOR_SPELLINGS(void, vor_gmp_mul_dft, VOR_GMP_MUL_DFT,
              (const unsigned* a, int an, const unsigned* b, int bn, unsigned* r))
VOR_SPELLINGS(void, mpn_mul_basecase, MPN_MUL_BASECASE,
              (unsigned* r, const unsigned* a, int an, const unsigned* b, int bn))
/* r = r + a * b, rn limbs on entry, with room for max(rn, an + bn) + 1; its new size, trimmed. */
int mpn_addmul(unsigned* r, int rn, const unsigned* a, int an, const unsigned* b, int bn);

/* Division by one limb d: nn limbs of quotient, q may be n; the remainder. */
VOR_SPELLINGS(unsigned, mpn_divmod_1, MPN_DIVMOD_1,
              (unsigned* q, const unsigned* n, int nn, unsigned d))
VOR_SPELLINGS(unsigned, mpn_mod_1, MPN_MOD_1, (const unsigned* n, int nn, unsigned d))
/* Division of nn by dn limbs, nn >= dn, d without a zero limb on top. q apart from n and d, r apart
 * from q.
 *   mpl_divqr_long  schoolbook; quotient limbs 0 to nn - dn - 1 into q (for dn = 1 all nn), which may
 *                   be null, limb nn - dn is the result (without q: 0 for dn = 1 and for nn = 2); r,
 *                   dn limbs, may be n
 *   mpl_divqr_dc    recursive; q, nn - dn + 1 limbs, and qsize may be null together
 *   mpl_divqr_sq    for a short quotient, q of nn - dn + 2 limbs; n becomes the remainder; its size
 *   mpl_divq_sq     the quotient only, q of nn - dn + 2 limbs; the quotient's size; n is not changed
 */
VOR_SPELLINGS(unsigned, mpl_divqr_long, MPL_DIVQR_LONG,
              (unsigned* q, unsigned* r, const unsigned* n, int nn, const unsigned* d, int dn))
VOR_SPELLINGS(void, mpl_divqr_dc, MPL_DIVQR_DC,
              (unsigned* q, int* qsize, unsigned* r, int* rsize, const unsigned* n, int nn,
               const unsigned* d, int dn))
VOR_SPELLINGS(int, mpl_divqr_sq, MPL_DIVQR_SQ,
              (unsigned* q, int* qsize, unsigned* n, int nn, const unsigned* d, int dn))
VOR_SPELLINGS(int, mpl_divq_sq, MPL_DIVQ_SQ,
              (unsigned* q, const unsigned* n, int nn, const unsigned* d, int dn))
/* Steps of the recursion, b normalised (top bit set) and above the top limbs of a, so that the quotient
 * fits: 4h limbs at a by 2h at b, q of 2h; 3n limbs by 2n, q of n, n even. The remainder replaces the low
 * limbs of a; the rest of a is scratch. */
VOR_SPELLINGS(void, vor_gmp_div_n4_d2, VOR_GMP_DIV_N4_D2,
              (unsigned* q, unsigned* a, const unsigned* b, int h))
VOR_SPELLINGS(void, vor_gmp_div_n3_d2, VOR_GMP_DIV_N3_D2,
              (unsigned* q, unsigned* a, const unsigned* b, int n))
/* Quotient limbs: (p[0], p[-1], p[-2]) by (d1, d0), d1 normalised, v its inverse
 * floor((2^64 - 1) / d1) - 2^32, at most 2^32 - 1; (nh, nl) by d, nh < d; the same with d normalised and its inverse v. */
VOR_SPELLINGS(unsigned, mpl_divq_3_by_2, MPL_DIVQ_3_BY_2,
              (const unsigned* p, unsigned d1, unsigned d0, unsigned v))
VOR_SPELLINGS(unsigned, mpl_udiv_qqrnnd, MPL_UDIV_QQRNND, (unsigned nh, unsigned nl, unsigned d))
VOR_SPELLINGS(unsigned, vor_gmp_udiv_qrnnd_preinv, VOR_GMP_UDIV_QRNND_PREINV,
              (unsigned* r, unsigned nh, unsigned nl, unsigned d, unsigned v))

/* p = p + v, with a carry upward that the caller knows to end. */
VOR_SPELLINGS(void, mpn_incr_u, MPN_INCR_U, (unsigned* p, unsigned v))
VOR_SPELLINGS(int, mpl_is_nonzero, MPL_IS_NONZERO, (const unsigned* p, int n)) /* 1 or 0 */
int mpl_adjust_size(const unsigned* limbs, int n); /* n without zero limbs on top, may be 0 */

/* The low limb of a * b; two limbs by two, wrapping. */
VOR_SPELLINGS(unsigned, mpl_umul_ppmm, MPL_UMUL_PPMM, (unsigned* hi, unsigned a, unsigned b))
VOR_SPELLINGS(void, mpl_add_ssaaaa, MPL_ADD_SSAAAA,
              (unsigned* hi, unsigned* lo, unsigned ah, unsigned al, unsigned bh, unsigned bl))
VOR_SPELLINGS(void, mpl_sub_ddssss, MPL_SUB_DDSSSS,
              (unsigned* hi, unsigned* lo, unsigned ah, unsigned al, unsigned bh, unsigned bl))

/* Copies and fills of n elements, ascending; n may be 0. */
void _impMemcpy(void* d, const void* s, int n);
void _impMemset(void* d, int v, int n);
void _impMemcpy_32(unsigned* d, const unsigned* s, int n);
void _impMemset_32(unsigned* d, unsigned v, int n);
void _impMemcpy_limb(unsigned* d, const unsigned* s, int n);
void _impMemset_limb(unsigned* d, unsigned v, int n);

VOR_END_C

#endif
