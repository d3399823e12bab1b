// The butterflies with twiddles of the 64-bit transforms, by hand. Where additions and multiplications have
// a port each, a copy or an exchange on the x87 stack takes a place on one of them and a load does not: what
// stands in memory is loaded for each use, and the 22 additions are left with 8 copies and exchanges.
//
// The comments show the stack, its top to the left; t = c + d, v = c - d, s = a + b, u = a - b.
#pragma once

#include "serv/element.h"

#include <stddef.h>

namespace vor::fft {

// Pushes the real part of x w, of x conj(w) with RE an addition; the imaginary part.
#define VOR_PRODUCT_RE(re, im, w, RE)                                                              \
    "fldl " re "\n fmull " w "(%[w])\n fldl " im "\n fmull 8+" w "(%[w])\n" RE " %%st,%%st(1)\n"
#define VOR_PRODUCT_IM(re, im, w, IM)                                                              \
    "fldl " im "\n fmull " w "(%[w])\n fldl " re "\n fmull 8+" w "(%[w])\n" IM " %%st,%%st(1)\n"
#define VOR_PRODUCT(re, im, w, RE, IM) VOR_PRODUCT_RE(re, im, w, RE) VOR_PRODUCT_IM(re, im, w, IM)

// d.im d.re c.im c.re  ->  t.im t.re v.im v.re
#define VOR_SUMS                                                                                   \
    "fld %%st(1)\n fadd %%st(4),%%st\n fxch %%st(2)\n fsubrp %%st,%%st(4)\n"                       \
    "fld %%st(0)\n fadd %%st(3),%%st\n fxch %%st(1)\n fsubrp %%st,%%st(3)\n"
// s.re b.im u.re t.im t.re v.im v.re  ->  b.im u.re t.im X2.re v.im v.re
#define VOR_FIRST_RESULT(x0re)                                                                     \
    "fld %%st(4)\n fadd %%st(1),%%st\n fstpl " x0re "\n fsubp %%st,%%st(4)\n"
// s.im u.im u.re t.im X2.re v.im v.re  ->  empty. The inverse exchanges X1 and X3.
#define VOR_OTHER_RESULTS(x0im, x1re, x1im, x2re, x2im, x3re, x3im)                                \
    "fld %%st(3)\n fadd %%st(1),%%st\n fstpl " x0im "\n fsubp %%st,%%st(3)\n"                      \
    "fld %%st(5)\n fadd %%st(1),%%st\n fstpl " x3im "\n fsubp %%st,%%st(5)\n"                      \
    "fld %%st(3)\n fadd %%st(1),%%st\n fstpl " x1re "\n fsubp %%st,%%st(3)\n"                      \
    "fstpl " x2im "\n fstpl " x2re "\n fstpl " x3re "\n fstpl " x1im "\n"

#define VOR_STACK "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)"

#define VOR_A "(%[x])"
#define VOR_A_IM "8(%[x])"
#define VOR_B "(%[x],%[q])"
#define VOR_B_IM "8(%[x],%[q])"
#define VOR_C "(%[x],%[q],2)"
#define VOR_C_IM "8(%[x],%[q],2)"
#define VOR_D "(%[y],%[q],2)"
#define VOR_D_IM "8(%[y],%[q],2)"

// a, b, c, d stand a quarter apart and are replaced; w: W^k, W^2k, W^3k.
template <bool inverse>
inline void butterfly_in_place(cdouble* x, size_t quarter, const cdouble* w) {
#define VOR_IN_PLACE(RE, IM, x1re, x1im, x3re, x3im)                                               \
    asm volatile(                                                                                  \
        VOR_PRODUCT(VOR_C, VOR_C_IM, "0", RE, IM) VOR_PRODUCT(VOR_D, VOR_D_IM, "32", RE, IM)       \
            VOR_SUMS VOR_PRODUCT(                                                                  \
                VOR_B, VOR_B_IM, "16", RE,                                                         \
                IM) "fldl " VOR_A "\n fadd %%st(2),%%st\n fldl " VOR_A                             \
                    "\n fsubp %%st,%%st(3)\n" VOR_FIRST_RESULT(                                    \
                        VOR_A) "fldl " VOR_A_IM "\n fadd %%st(1),%%st\n fldl " VOR_A_IM            \
                               "\n fsubp %%st,%%st(2)\n" VOR_OTHER_RESULTS(                        \
                                   VOR_A_IM, x1re, x1im, VOR_C, VOR_C_IM, x3re, x3im)              \
        :                                                                                          \
        : [x] "r"(x), [y] "r"(x + quarter), [q] "r"(quarter * sizeof(cdouble)), [w] "r"(w)         \
        : "memory", VOR_STACK)
    if constexpr (inverse)
        VOR_IN_PLACE("faddp", "fsubrp", VOR_D, VOR_D_IM, VOR_B, VOR_B_IM);
    else
        VOR_IN_PLACE("fsubrp", "faddp", VOR_B, VOR_B_IM, VOR_D, VOR_D_IM);
#undef VOR_IN_PLACE
}

// a, b, c, d stand a stride apart, their twiddles four elements apart at w; four results at `out`.
template <bool inverse>
inline void butterfly_of_products(const cdouble* x, size_t stride, const cdouble* w, cdouble* out) {
#define VOR_OF_PRODUCTS(RE, IM, x1, x3)                                                            \
    asm volatile(                                                                                  \
        VOR_PRODUCT(VOR_C, VOR_C_IM, "128", RE, IM) VOR_PRODUCT(VOR_D, VOR_D_IM, "192", RE, IM)    \
            VOR_SUMS VOR_PRODUCT(VOR_B, VOR_B_IM, "64", RE, IM) VOR_PRODUCT_RE(                    \
                VOR_A, VOR_A_IM, "0",                                                              \
                RE) "fld %%st(0)\n fadd %%st(3),%%st\n fxch %%st(1)\n fsubp "                      \
                    "%%st,%%st(3)\n" VOR_FIRST_RESULT("(%[out])")                                  \
                        VOR_PRODUCT_IM(                                                            \
                            VOR_A, VOR_A_IM, "0",                                                  \
                            IM) "fld %%st(0)\n fadd %%st(2),%%st\n fxch %%st(1)\n fsubp "          \
                                "%%st,%%st(2)\n" VOR_OTHER_RESULTS("8(%[out])", x1 "(%[out])",     \
                                                                   "8+" x1 "(%[out])",             \
                                                                   "32(%[out])", "40(%[out])",     \
                                                                   x3 "(%[out])",                  \
                                                                   "8+" x3 "(%[out])")             \
        :                                                                                          \
        : [x] "r"(x), [y] "r"(x + stride), [q] "r"(stride * sizeof(cdouble)), [w] "r"(w),          \
          [out] "r"(out)                                                                           \
        : "memory", VOR_STACK)
    if constexpr (inverse)
        VOR_OF_PRODUCTS("faddp", "fsubrp", "48", "16");
    else
        VOR_OF_PRODUCTS("fsubrp", "faddp", "16", "48");
#undef VOR_OF_PRODUCTS
}

} // namespace vor::fft
