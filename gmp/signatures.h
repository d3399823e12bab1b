// Argument lists of the integer operations, and the list of all operations that run the call frame.
// Engines are declared from the list here, entries with their spellings are made from it in
// entries.cpp: an operation is one row below, one engine, one prototype in vor_gmp.h.
#pragma once

#include "vor_gmp.h"

#define PARAMS_NONE ()
#define ARGS_NONE ()
#define PARAMS_Z (vor_mpz * x)
#define ARGS_Z (x)
#define PARAMS_CX (const vor_mpz* x)
#define ARGS_CX (x)
#define PARAMS_XI (vor_mpz * x, int i)
#define ARGS_XI (x, i)
#define PARAMS_CXI (const vor_mpz* x, int i)
#define ARGS_CXI (x, i)
#define PARAMS_XV (vor_mpz * x, unsigned v)
#define ARGS_XV (x, v)
#define PARAMS_CXV (const vor_mpz* x, unsigned v)
#define ARGS_CXV (x, v)
#define PARAMS_CXD (const vor_mpz* x, double d)
#define ARGS_CXD (x, d)
#define PARAMS_AB (const vor_mpz* a, const vor_mpz* b)
#define ARGS_AB (a, b)
#define PARAMS_SWAP (vor_mpz * a, vor_mpz * b)
#define ARGS_SWAP (a, b)
#define PARAMS_RA (vor_mpz * r, const vor_mpz* a)
#define ARGS_RA (r, a)
#define PARAMS_RAB (vor_mpz * r, const vor_mpz* a, const vor_mpz* b)
#define ARGS_RAB (r, a, b)
#define PARAMS_RAV (vor_mpz * r, const vor_mpz* a, unsigned v)
#define ARGS_RAV (r, a, v)
#define PARAMS_RAI (vor_mpz * r, const vor_mpz* a, int v)
#define ARGS_RAI (r, a, v)
#define PARAMS_RVA (vor_mpz * r, unsigned v, const vor_mpz* a)
#define ARGS_RVA (r, v, a)
#define PARAMS_RVE (vor_mpz * r, unsigned v, unsigned e)
#define ARGS_RVE (r, v, e)
#define PARAMS_QRND (vor_mpz * q, vor_mpz * r, const vor_mpz* n, const vor_mpz* d)
#define ARGS_QRND (q, r, n, d)
#define PARAMS_QRNV (vor_mpz * q, vor_mpz * r, const vor_mpz* n, unsigned d)
#define ARGS_QRNV (q, r, n, d)
#define PARAMS_ABD (const vor_mpz* a, const vor_mpz* b, const vor_mpz* d)
#define ARGS_ABD (a, b, d)
#define PARAMS_ABV (const vor_mpz* a, const vor_mpz* b, unsigned v)
#define ARGS_ABV (a, b, v)
#define PARAMS_AVV (const vor_mpz* a, unsigned c, unsigned d)
#define ARGS_AVV (a, c, d)

#define PARAMS_ARRAY (vor_mpz * array, int count, unsigned bits)
#define ARGS_ARRAY (array, count, bits)
#define PARAMS_BITS (unsigned bits)
#define ARGS_BITS (bits)
#define PARAMS_MEMORY                                                                              \
    (vor_gmp_allocator allocate, vor_gmp_reallocator reallocate, vor_gmp_deallocator deallocate)
#define ARGS_MEMORY (allocate, reallocate, deallocate)

#define PARAMS_LIMBS2 (unsigned* r, const unsigned* a, const unsigned* b, int n)
#define ARGS_LIMBS2 (r, a, b, n)
#define PARAMS_LIMBS1 (unsigned* r, const unsigned* a, int n, unsigned v)
#define ARGS_LIMBS1 (r, a, n, v)
#define PARAMS_COMPARE (const unsigned* a, const unsigned* b, int n)
#define ARGS_COMPARE (a, b, n)
#define PARAMS_PRODUCT (unsigned* r, const unsigned* a, int an, const unsigned* b, int bn)
#define ARGS_PRODUCT (r, a, an, b, bn)
#define PARAMS_KARATSUBA (const unsigned* a, const unsigned* b, unsigned* r, int n)
#define ARGS_KARATSUBA (a, b, r, n)
#define PARAMS_FOURIER (const unsigned* a, int an, const unsigned* b, int bn, unsigned* r)
#define ARGS_FOURIER (a, an, b, bn, r)
#define PARAMS_INCREMENT (unsigned* p, unsigned v)
#define ARGS_INCREMENT (p, v)
#define PARAMS_SCAN (const unsigned* limbs, int n, unsigned i)
#define ARGS_SCAN (limbs, n, i)
#define PARAMS_NONZERO (const unsigned* p, int n)
#define ARGS_NONZERO (p, n)
#define PARAMS_UMUL (unsigned* hi, unsigned a, unsigned b)
#define ARGS_UMUL (hi, a, b)
#define PARAMS_TWO_LIMBS                                                                           \
    (unsigned* hi, unsigned* lo, unsigned ah, unsigned al, unsigned bh, unsigned bl)
#define ARGS_TWO_LIMBS (hi, lo, ah, al, bh, bl)

#define PARAMS_DIV_Q (vor_mpz * q, const vor_mpz* n, const vor_mpz* d)
#define ARGS_DIV_Q (q, n, d)
#define PARAMS_DIV_R (vor_mpz * r, const vor_mpz* n, const vor_mpz* d)
#define ARGS_DIV_R (r, n, d)
#define PARAMS_DIV_Q_WORD (vor_mpz * q, const vor_mpz* n, unsigned d)
#define ARGS_DIV_Q_WORD (q, n, d)
#define PARAMS_DIV_R_WORD (vor_mpz * r, const vor_mpz* n, unsigned d)
#define ARGS_DIV_R_WORD (r, n, d)
#define PARAMS_DIV_WORD (const vor_mpz* n, unsigned d)
#define ARGS_DIV_WORD (n, d)

#define PARAMS_DIVMOD_1 (unsigned* q, const unsigned* n, int nn, unsigned d)
#define ARGS_DIVMOD_1 (q, n, nn, d)
#define PARAMS_MOD_1 (const unsigned* n, int nn, unsigned d)
#define ARGS_MOD_1 (n, nn, d)
#define PARAMS_DIVQR_LONG                                                                          \
    (unsigned* q, unsigned* r, const unsigned* n, int nn, const unsigned* d, int dn)
#define ARGS_DIVQR_LONG (q, r, n, nn, d, dn)
#define PARAMS_DIVQR_DC                                                                            \
    (unsigned* q, int* qsize, unsigned* r, int* rsize, const unsigned* n, int nn,                  \
     const unsigned* d, int dn)
#define ARGS_DIVQR_DC (q, qsize, r, rsize, n, nn, d, dn)
#define PARAMS_DIVQR_SQ (unsigned* q, int* qsize, unsigned* n, int nn, const unsigned* d, int dn)
#define ARGS_DIVQR_SQ (q, qsize, n, nn, d, dn)
#define PARAMS_DIVQ_SQ (unsigned* q, const unsigned* n, int nn, const unsigned* d, int dn)
#define ARGS_DIVQ_SQ (q, n, nn, d, dn)
#define PARAMS_BLOCK (unsigned* q, unsigned* a, const unsigned* b, int n)
#define ARGS_BLOCK (q, a, b, n)
#define PARAMS_DIV_3_BY_2 (const unsigned* p, unsigned d1, unsigned d0, unsigned v)
#define ARGS_DIV_3_BY_2 (p, d1, d0, v)
#define PARAMS_DIV_2_BY_1 (unsigned nh, unsigned nl, unsigned d)
#define ARGS_DIV_2_BY_1 (nh, nl, d)
#define PARAMS_DIV_PREINV (unsigned* r, unsigned nh, unsigned nl, unsigned d, unsigned v)
#define ARGS_DIV_PREINV (r, nh, nl, d, v)

#define PARAMS_STATE (vor_randstate * state)
#define ARGS_STATE (state)
#define PARAMS_STATE_WORD (vor_randstate * state, unsigned v)
#define ARGS_STATE_WORD (state, v)
#define PARAMS_STATE_LC (vor_randstate * state, const vor_mpz* a, unsigned c, unsigned bits)
#define ARGS_STATE_LC (state, a, c, bits)
#define PARAMS_RAND (unsigned* limbs, vor_randstate* state, unsigned bits)
#define ARGS_RAND (limbs, state, bits)
#define PARAMS_RANDOM_BITS (vor_mpz * r, vor_randstate * state, unsigned bits)
#define ARGS_RANDOM_BITS (r, state, bits)
#define PARAMS_RANDOM_BELOW (vor_mpz * r, vor_randstate * state, const vor_mpz* n)
#define ARGS_RANDOM_BELOW (r, state, n)

// X(result, lower-case name, upper-case name, argument list)
#define VOR_GMP_MEMORY_OPERATIONS(X)                                                               \
    X(vor_gmp_allocator, __gmp_allocate_func_ptr, __GMP_ALLOCATE_FUNC_PTR, NONE)                   \
    X(vor_gmp_reallocator, __gmp_reallocate_func_ptr, __GMP_REALLOCATE_FUNC_PTR, NONE)             \
    X(vor_gmp_deallocator, __gmp_free_func_ptr, __GMP_FREE_FUNC_PTR, NONE)                         \
    X(void, __gmp_set_memory_functions, __GMP_SET_MEMORY_FUNCTIONS, MEMORY)                        \
    X(void, __gmpz_init, __GMPZ_INIT, Z)                                                           \
    X(void, __gmpz_init2, __GMPZ_INIT2, XV)                                                        \
    X(void, __gmpz_clear, __GMPZ_CLEAR, Z)                                                         \
    X(void, __gmpz_array_init, __GMPZ_ARRAY_INIT, ARRAY)                                           \
    X(int, __gmpz_realloc, __GMPZ_REALLOC, XI)                                                     \
    X(void, __gmpz_realloc2, __GMPZ_REALLOC2, XV)

#define VOR_GMP_LIMB_OPERATIONS(X)                                                                 \
    X(unsigned, __gmpn_add_n, __GMPN_ADD_N, LIMBS2)                                                \
    X(unsigned, __gmpn_sub_n, __GMPN_SUB_N, LIMBS2)                                                \
    X(unsigned, __gmpn_add_1, __GMPN_ADD_1, LIMBS1)                                                \
    X(unsigned, __gmpn_sub_1, __GMPN_SUB_1, LIMBS1)                                                \
    X(unsigned, __gmpn_addmul_1, __GMPN_ADDMUL_1, LIMBS1)                                          \
    X(unsigned, __gmpn_submul_1, __GMPN_SUBMUL_1, LIMBS1)                                          \
    X(int, __gmpn_cmp, __GMPN_CMP, COMPARE)                                                        \
    X(void, mpn_incr_u, MPN_INCR_U, INCREMENT)                                                     \
    X(int, mpl_is_nonzero, MPL_IS_NONZERO, NONZERO)                                                \
    X(unsigned, mpl_umul_ppmm, MPL_UMUL_PPMM, UMUL)                                                \
    X(void, mpl_add_ssaaaa, MPL_ADD_SSAAAA, TWO_LIMBS)                                             \
    X(void, mpl_sub_ddssss, MPL_SUB_DDSSSS, TWO_LIMBS)                                             \
    X(void, mpn_mul_basecase, MPN_MUL_BASECASE, PRODUCT)                                           \
    X(void, __gmpn_mul, __GMPN_MUL, PRODUCT)                                                       \
    X(void, __gmpn_mul_n, __GMPN_MUL_N, LIMBS2)                                                    \
    X(void, vor_gmp_mul_dft, VOR_GMP_MUL_DFT, FOURIER)                                             \
    X(void, vor_gmp_mul_n_kara, VOR_GMP_MUL_N_KARA, KARATSUBA)

#define VOR_GMP_ARITHMETIC_OPERATIONS(X)                                                           \
    X(void, __gmpz_add, __GMPZ_ADD, RAB)                                                           \
    X(void, __gmpz_sub, __GMPZ_SUB, RAB)                                                           \
    X(void, __gmpz_add_ui, __GMPZ_ADD_UI, RAV)                                                     \
    X(void, __gmpz_sub_ui, __GMPZ_SUB_UI, RAV)                                                     \
    X(void, __gmpz_ui_sub, __GMPZ_UI_SUB, RVA)                                                     \
    X(void, __gmpz_mul, __GMPZ_MUL, RAB)                                                           \
    X(void, __gmpz_mul_ui, __GMPZ_MUL_UI, RAV)                                                     \
    X(void, __gmpz_mul_si, __GMPZ_MUL_SI, RAI)                                                     \
    X(void, __gmpz_addmul, __GMPZ_ADDMUL, RAB)                                                     \
    X(void, __gmpz_submul, __GMPZ_SUBMUL, RAB)                                                     \
    X(void, __gmpz_addmul_ui, __GMPZ_ADDMUL_UI, RAV)                                               \
    X(void, __gmpz_submul_ui, __GMPZ_SUBMUL_UI, RAV)                                               \
    X(void, __gmpz_mul_2exp, __GMPZ_MUL_2EXP, RAV)                                                 \
    X(void, __gmpz_pow_ui, __GMPZ_POW_UI, RAV)                                                     \
    X(void, __gmpz_ui_pow_ui, __GMPZ_UI_POW_UI, RVE)

#define VOR_GMP_BASIC_OPERATIONS(X)                                                                \
    X(void, __gmpz_set, __GMPZ_SET, RA)                                                            \
    X(void, __gmpz_set_ui, __GMPZ_SET_UI, XV)                                                      \
    X(void, __gmpz_set_si, __GMPZ_SET_SI, XI)                                                      \
    X(void, __gmpz_init_set, __GMPZ_INIT_SET, RA)                                                  \
    X(void, __gmpz_init_set_ui, __GMPZ_INIT_SET_UI, XV)                                            \
    X(void, __gmpz_init_set_si, __GMPZ_INIT_SET_SI, XI)                                            \
    X(void, __gmpz_swap, __GMPZ_SWAP, SWAP)                                                        \
    X(void, __gmpz_neg, __GMPZ_NEG, RA)                                                            \
    X(void, __gmpz_abs, __GMPZ_ABS, RA)                                                            \
    X(unsigned, __gmpz_get_ui, __GMPZ_GET_UI, CX)                                                  \
    X(int, __gmpz_get_si, __GMPZ_GET_SI, CX)                                                       \
    X(unsigned, __gmpz_getlimbn, __GMPZ_GETLIMBN, CXI)                                             \
    X(int, __gmpz_size, __GMPZ_SIZE, CX)                                                           \
    X(int, __gmpz_sgn, __GMPZ_SGN, CX)                                                             \
    X(unsigned, __gmpz_sizeinbase, __GMPZ_SIZEINBASE, CXI)                                         \
    X(int, __gmpz_fits_sint_p, __GMPZ_FITS_SINT_P, CX)                                             \
    X(int, __gmpz_fits_slong_p, __GMPZ_FITS_SLONG_P, CX)                                           \
    X(int, __gmpz_fits_uint_p, __GMPZ_FITS_UINT_P, CX)                                             \
    X(int, __gmpz_fits_ulong_p, __GMPZ_FITS_ULONG_P, CX)                                           \
    X(int, __gmpz_fits_sshort_p, __GMPZ_FITS_SSHORT_P, CX)                                         \
    X(int, __gmpz_fits_ushort_p, __GMPZ_FITS_USHORT_P, CX)                                         \
    X(int, __gmpz_cmp, __GMPZ_CMP, AB)                                                             \
    X(int, __gmpz_cmp_ui, __GMPZ_CMP_UI, CXV)                                                      \
    X(int, __gmpz_cmp_si, __GMPZ_CMP_SI, CXI)                                                      \
    X(int, __gmpz_cmpabs, __GMPZ_CMPABS, AB)                                                       \
    X(int, __gmpz_cmpabs_ui, __GMPZ_CMPABS_UI, CXV)                                                \
    X(int, __gmpz_cmp_d, __GMPZ_CMP_D, CXD)                                                        \
    X(int, __gmpz_cmpabs_d, __GMPZ_CMPABS_D, CXD)

#define VOR_GMP_BIT_OPERATIONS(X)                                                                  \
    X(void, __gmpz_and, __GMPZ_AND, RAB)                                                           \
    X(void, __gmpz_ior, __GMPZ_IOR, RAB)                                                           \
    X(void, __gmpz_xor, __GMPZ_XOR, RAB)                                                           \
    X(void, __gmpz_com, __GMPZ_COM, RA)                                                            \
    X(void, __gmpz_setbit, __GMPZ_SETBIT, XV)                                                      \
    X(void, __gmpz_clrbit, __GMPZ_CLRBIT, XV)                                                      \
    X(int, __gmpz_tstbit, __GMPZ_TSTBIT, CXV)                                                      \
    X(unsigned, __gmpz_scan0, __GMPZ_SCAN0, CXV)                                                   \
    X(unsigned, __gmpz_scan1, __GMPZ_SCAN1, CXV)                                                   \
    X(unsigned, vor_gmp_scan0, VOR_GMP_SCAN0, SCAN)                                                \
    X(unsigned, vor_gmp_scan1, VOR_GMP_SCAN1, SCAN)                                                \
    X(unsigned, __gmpz_popcount, __GMPZ_POPCOUNT, CX)                                              \
    X(unsigned, __gmpz_hamdist, __GMPZ_HAMDIST, AB)

#define VOR_GMP_DIVISION_OPERATIONS(X)                                                             \
    X(unsigned, mpn_divmod_1, MPN_DIVMOD_1, DIVMOD_1)                                              \
    X(unsigned, mpn_mod_1, MPN_MOD_1, MOD_1)                                                       \
    X(unsigned, mpl_divqr_long, MPL_DIVQR_LONG, DIVQR_LONG)                                        \
    X(void, mpl_divqr_dc, MPL_DIVQR_DC, DIVQR_DC)                                                  \
    X(int, mpl_divqr_sq, MPL_DIVQR_SQ, DIVQR_SQ)                                                   \
    X(int, mpl_divq_sq, MPL_DIVQ_SQ, DIVQ_SQ)                                                      \
    X(void, vor_gmp_div_n4_d2, VOR_GMP_DIV_N4_D2, BLOCK)                                           \
    X(void, vor_gmp_div_n3_d2, VOR_GMP_DIV_N3_D2, BLOCK)                                           \
    X(unsigned, mpl_divq_3_by_2, MPL_DIVQ_3_BY_2, DIV_3_BY_2)                                      \
    X(unsigned, mpl_udiv_qqrnnd, MPL_UDIV_QQRNND, DIV_2_BY_1)                                      \
    X(unsigned, vor_gmp_udiv_qrnnd_preinv, VOR_GMP_UDIV_QRNND_PREINV, DIV_PREINV)                  \
    X(void, vor_gmp_div_qr, VOR_GMP_DIV_QR, QRND)                                                  \
    X(void, vor_gmp_div_q, VOR_GMP_DIV_Q, DIV_Q)                                                   \
    X(void, vor_gmp_div_r, VOR_GMP_DIV_R, DIV_R)                                                   \
    X(void, vor_gmp_divqr_2exp, VOR_GMP_DIVQR_2EXP, QRNV)                                          \
    X(void, __gmpz_tdiv_qr, __GMPZ_TDIV_QR, QRND)                                                  \
    X(void, __gmpz_tdiv_q, __GMPZ_TDIV_Q, DIV_Q)                                                   \
    X(void, __gmpz_tdiv_r, __GMPZ_TDIV_R, DIV_R)                                                   \
    X(unsigned, __gmpz_tdiv_qr_ui, __GMPZ_TDIV_QR_UI, QRNV)                                        \
    X(unsigned, __gmpz_tdiv_q_ui, __GMPZ_TDIV_Q_UI, DIV_Q_WORD)                                    \
    X(unsigned, __gmpz_tdiv_r_ui, __GMPZ_TDIV_R_UI, DIV_R_WORD)                                    \
    X(unsigned, __gmpz_tdiv_ui, __GMPZ_TDIV_UI, DIV_WORD)                                          \
    X(void, __gmpz_tdiv_q_2exp, __GMPZ_TDIV_Q_2EXP, DIV_Q_WORD)                                    \
    X(void, __gmpz_tdiv_r_2exp, __GMPZ_TDIV_R_2EXP, DIV_R_WORD)                                    \
    X(void, __gmpz_fdiv_qr, __GMPZ_FDIV_QR, QRND)                                                  \
    X(void, __gmpz_fdiv_q, __GMPZ_FDIV_Q, DIV_Q)                                                   \
    X(void, __gmpz_fdiv_r, __GMPZ_FDIV_R, DIV_R)                                                   \
    X(unsigned, __gmpz_fdiv_qr_ui, __GMPZ_FDIV_QR_UI, QRNV)                                        \
    X(unsigned, __gmpz_fdiv_q_ui, __GMPZ_FDIV_Q_UI, DIV_Q_WORD)                                    \
    X(unsigned, __gmpz_fdiv_r_ui, __GMPZ_FDIV_R_UI, DIV_R_WORD)                                    \
    X(unsigned, __gmpz_fdiv_ui, __GMPZ_FDIV_UI, DIV_WORD)                                          \
    X(void, __gmpz_fdiv_q_2exp, __GMPZ_FDIV_Q_2EXP, DIV_Q_WORD)                                    \
    X(void, __gmpz_fdiv_r_2exp, __GMPZ_FDIV_R_2EXP, DIV_R_WORD)                                    \
    X(void, __gmpz_cdiv_qr, __GMPZ_CDIV_QR, QRND)                                                  \
    X(void, __gmpz_cdiv_q, __GMPZ_CDIV_Q, DIV_Q)                                                   \
    X(void, __gmpz_cdiv_r, __GMPZ_CDIV_R, DIV_R)                                                   \
    X(unsigned, __gmpz_cdiv_qr_ui, __GMPZ_CDIV_QR_UI, QRNV)                                        \
    X(unsigned, __gmpz_cdiv_q_ui, __GMPZ_CDIV_Q_UI, DIV_Q_WORD)                                    \
    X(unsigned, __gmpz_cdiv_r_ui, __GMPZ_CDIV_R_UI, DIV_R_WORD)                                    \
    X(unsigned, __gmpz_cdiv_ui, __GMPZ_CDIV_UI, DIV_WORD)                                          \
    X(void, __gmpz_cdiv_q_2exp, __GMPZ_CDIV_Q_2EXP, DIV_Q_WORD)                                    \
    X(void, __gmpz_cdiv_r_2exp, __GMPZ_CDIV_R_2EXP, DIV_R_WORD)                                    \
    X(void, __gmpz_mod, __GMPZ_MOD, DIV_R)                                                         \
    X(unsigned, __gmpz_mod_ui, __GMPZ_MOD_UI, DIV_R_WORD)                                          \
    X(void, __gmpz_divexact, __GMPZ_DIVEXACT, DIV_Q)                                               \
    X(void, __gmpz_divexact_ui, __GMPZ_DIVEXACT_UI, DIV_Q_WORD)                                    \
    X(int, __gmpz_divisible_p, __GMPZ_DIVISIBLE_P, AB)                                             \
    X(int, __gmpz_divisible_ui_p, __GMPZ_DIVISIBLE_UI_P, DIV_WORD)                                 \
    X(int, __gmpz_divisible_2exp_p, __GMPZ_DIVISIBLE_2EXP_P, DIV_WORD)                             \
    X(int, __gmpz_congruent_p, __GMPZ_CONGRUENT_P, ABD)                                            \
    X(int, __gmpz_congruent_ui_p, __GMPZ_CONGRUENT_UI_P, AVV)                                      \
    X(int, __gmpz_congruent_2exp_p, __GMPZ_CONGRUENT_2EXP_P, ABV)

#define VOR_GMP_RANDOM_OPERATIONS(X)                                                               \
    X(void, __gmp_randinit_default, __GMP_RANDINIT_DEFAULT, STATE)                                 \
    X(void, __gmp_randinit_lc_2exp, __GMP_RANDINIT_LC_2EXP, STATE_LC)                              \
    X(int, __gmp_randinit_lc_2exp_size, __GMP_RANDINIT_LC_2EXP_SIZE, STATE_WORD)                   \
    X(void, __gmp_randseed_ui, __GMP_RANDSEED_UI, STATE_WORD)                                      \
    X(void, __gmp_randclear, __GMP_RANDCLEAR, STATE)                                               \
    X(void, _gmp_rand, _GMP_RAND, RAND)                                                            \
    X(void, __gmpz_urandomb, __GMPZ_URANDOMB, RANDOM_BITS)                                         \
    X(void, __gmpz_urandomm, __GMPZ_URANDOMM, RANDOM_BELOW)                                        \
    X(void, __gmpz_rrandomb, __GMPZ_RRANDOMB, RANDOM_BITS)                                         \
    X(unsigned, mpl_rand_ui, MPL_RAND_UI, STATE_WORD)

#define VOR_GMP_OPERATIONS(X)                                                                      \
    VOR_GMP_MEMORY_OPERATIONS(X)                                                                   \
    VOR_GMP_LIMB_OPERATIONS(X)                                                                     \
    VOR_GMP_ARITHMETIC_OPERATIONS(X)                                                               \
    VOR_GMP_BASIC_OPERATIONS(X)                                                                    \
    VOR_GMP_BIT_OPERATIONS(X)                                                                      \
    VOR_GMP_DIVISION_OPERATIONS(X)                                                                 \
    VOR_GMP_RANDOM_OPERATIONS(X)

// Y(result, mixed-case name, lower-case name, upper-case name, argument list)
#define VOR_GMP_MIXED_OPERATIONS(Y)                                                                \
    Y(unsigned, _impBits2Chars, _impbits2chars, _IMPBITS2CHARS, BITS)                              \
    Y(unsigned, _impBits2Chunks, _impbits2chunks, _IMPBITS2CHUNKS, BITS)                           \
    Y(void, _impTmpMark, _imptmpmark, _IMPTMPMARK, NONE)                                           \
    Y(void*, _impTmpMalloc, _imptmpmalloc, _IMPTMPMALLOC, BITS)                                    \
    Y(void, _impTmpFree, _imptmpfree, _IMPTMPFREE, NONE)

#define VOR_GMP_DECLARE(R, lower, UPPER, LIST) extern "C" R vor_gmp_##lower PARAMS_##LIST;
#define VOR_GMP_DECLARE_MIXED(R, Mixed, lower, UPPER, LIST) VOR_GMP_DECLARE(R, lower, UPPER, LIST)
VOR_GMP_OPERATIONS(VOR_GMP_DECLARE)
VOR_GMP_MIXED_OPERATIONS(VOR_GMP_DECLARE_MIXED)
