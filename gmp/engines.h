// Engines that files other than their own call, with the types of the entries over them.
#pragma once

#include "vor_gmp.h"

// The current allocation functions (memory.cpp).
extern "C" vor_gmp_allocator vor_gmp_vor_gmp_allocate;
extern "C" vor_gmp_reallocator vor_gmp_vor_gmp_reallocate;
extern "C" vor_gmp_deallocator vor_gmp_vor_gmp_free;

#define VOR_GMP_ENGINE(entry, engine) extern "C" decltype(entry) engine;
VOR_GMP_ENGINE(__gmpz_abs, vor_gmp___gmpz_abs)
VOR_GMP_ENGINE(__gmpz_add, vor_gmp___gmpz_add)
VOR_GMP_ENGINE(__gmpz_add_ui, vor_gmp___gmpz_add_ui)
VOR_GMP_ENGINE(__gmpz_cmp, vor_gmp___gmpz_cmp)
VOR_GMP_ENGINE(__gmpz_cmpabs, vor_gmp___gmpz_cmpabs)
VOR_GMP_ENGINE(__gmpz_divisible_2exp_p, vor_gmp___gmpz_divisible_2exp_p)
VOR_GMP_ENGINE(__gmpz_fdiv_ui, vor_gmp___gmpz_fdiv_ui)
VOR_GMP_ENGINE(__gmpz_init, vor_gmp___gmpz_init)
VOR_GMP_ENGINE(__gmpz_init2, vor_gmp___gmpz_init2)
VOR_GMP_ENGINE(__gmpz_mul, vor_gmp___gmpz_mul)
VOR_GMP_ENGINE(__gmpz_neg, vor_gmp___gmpz_neg)
VOR_GMP_ENGINE(__gmpz_set, vor_gmp___gmpz_set)
VOR_GMP_ENGINE(__gmpz_set_ui, vor_gmp___gmpz_set_ui)
VOR_GMP_ENGINE(__gmpz_sgn, vor_gmp___gmpz_sgn)
VOR_GMP_ENGINE(__gmpz_sub, vor_gmp___gmpz_sub)
VOR_GMP_ENGINE(__gmpz_sub_ui, vor_gmp___gmpz_sub_ui)
VOR_GMP_ENGINE(__gmpz_swap, vor_gmp___gmpz_swap)
VOR_GMP_ENGINE(__gmpz_xor, vor_gmp___gmpz_xor)
VOR_GMP_ENGINE(mpl_divqr_long, vor_gmp_mpl_divqr_long)
VOR_GMP_ENGINE(mpl_divqr_sq, vor_gmp_mpl_divqr_sq)
VOR_GMP_ENGINE(vor_gmp_div_n3_d2, vor_gmp_vor_gmp_div_n3_d2)
VOR_GMP_ENGINE(vor_gmp_div_q, vor_gmp_vor_gmp_div_q)
VOR_GMP_ENGINE(vor_gmp_div_qr, vor_gmp_vor_gmp_div_qr)
VOR_GMP_ENGINE(vor_gmp_div_r, vor_gmp_vor_gmp_div_r)
