// The butterflies with twiddles of the 64-bit transforms, by hand. Where additions and multiplications have
// a port each, a copy or an exchange on the x87 stack takes a place on one of them and a load does not: what
// stands in memory is loaded for each use, and the 22 additions are left with 8 copies and exchanges.
//
// The comments show the stack, its top to the left; t = c + d, v = c - d, s = a + b, u = a - b.
#pragma once

#include "arith/element.h"

#include <stddef.h>

namespace vor::fft {

// One step of the stack to a line.
// clang-format off

// Pushes the real part of x w, of x conj(w) with RE an addition; the imaginary part.
#define VOR_PRODUCT_RE(re, im, w, RE)                                                              \
    "fldl " re "\n fmull " w "(%[w])\n fldl " im "\n fmull 8+" w "(%[w])\n" RE " %%st,%%st(1)\n"
#define VOR_PRODUCT_IM(re, im, w, IM)                                                              \
    "fldl " im "\n fmull " w "(%[w])\n fldl " re "\n fmull 8+" w "(%[w])\n" IM " %%st,%%st(1)\n"
#define VOR_PRODUCT(re, im, w, RE, IM)                                                             \
    VOR_PRODUCT_RE(re, im, w, RE)                                                                  \
    VOR_PRODUCT_IM(re, im, w, IM)

// Pushes a + b and puts a - b in the place of b. `at`: the depth of b below the first a, on top or loaded;
// `above` is one less.
#define VOR_SUM_OF_TOP(at)                                                                         \
    "fld %%st(0)\n fadd %%st(" at "),%%st\n fxch %%st(1)\n fsubp %%st,%%st(" at ")\n"
#define VOR_SUM_OF_MEMORY(a, at, above)                                                            \
    "fldl " a "\n fadd %%st(" above "),%%st\n fldl " a "\n fsubp %%st,%%st(" at ")\n"

// d.im d.re c.im c.re  ->  t.im t.re v.im v.re
#define VOR_T_AND_V                                                                                \
    "fld %%st(1)\n fadd %%st(4),%%st\n fxch %%st(2)\n fsubrp %%st,%%st(4)\n"                       \
    "fld %%st(0)\n fadd %%st(3),%%st\n fxch %%st(1)\n fsubrp %%st,%%st(3)\n"
// s.re b.im u.re t.im t.re v.im v.re  ->  b.im u.re t.im X2.re v.im v.re
#define VOR_X0_RE(x0re)                                                                            \
    "fld %%st(4)\n fadd %%st(1),%%st\n fstpl " x0re "\n fsubp %%st,%%st(4)\n"
// s.im u.im u.re t.im X2.re v.im v.re  ->  empty. The inverse exchanges X1 and X3.
#define VOR_ALL_ELSE(x0im, x1re, x1im, x2re, x2im, x3re, x3im)                                     \
    "fld %%st(3)\n fadd %%st(1),%%st\n fstpl " x0im "\n fsubp %%st,%%st(3)\n"                      \
    "fld %%st(5)\n fadd %%st(1),%%st\n fstpl " x3im "\n fsubp %%st,%%st(5)\n"                      \
    "fld %%st(3)\n fadd %%st(1),%%st\n fstpl " x1re "\n fsubp %%st,%%st(3)\n"                      \
    "fstpl " x2im "\n fstpl " x2re "\n fstpl " x3re "\n fstpl " x1im "\n"

// The operands at x, x + q, x + 2q, x + 3q with y = x + q.
#define VOR_A "(%[x])", "8(%[x])"
#define VOR_B "(%[x],%[q])", "8(%[x],%[q])"
#define VOR_C "(%[x],%[q],2)", "8(%[x],%[q],2)"
#define VOR_D "(%[y],%[q],2)", "8(%[y],%[q],2)"
#define VOR_CALL(macro, ...) macro(__VA_ARGS__)

// The same in natural order, the imaginary parts from y on: b and c change places.
#define VOR_NATURAL_B "(%[x],%[q],2)", "(%[y],%[q],2)"
#define VOR_NATURAL_C "(%[x],%[q])", "(%[y],%[q])"
#define VOR_NATURAL_D "(%[x],%[p])", "(%[y],%[p])"

#define VOR_IN_PLACE(RE, IM, a_re, a_im, B, C, D, X1, X3)                                          \
    VOR_CALL(VOR_PRODUCT, C, "0", RE, IM)                                                          \
    VOR_CALL(VOR_PRODUCT, D, "32", RE, IM)                                                         \
    VOR_T_AND_V                                                                                    \
    VOR_CALL(VOR_PRODUCT, B, "16", RE, IM)                                                         \
    VOR_SUM_OF_MEMORY(a_re, "3", "2")                                                              \
    VOR_X0_RE(a_re)                                                                                \
    VOR_SUM_OF_MEMORY(a_im, "2", "1")                                                              \
    VOR_CALL(VOR_ALL_ELSE, a_im, X1, C, X3)

#define VOR_OF_PRODUCTS(RE, IM, X1, X3)                                                            \
    VOR_CALL(VOR_PRODUCT, VOR_C, "128", RE, IM)                                                    \
    VOR_CALL(VOR_PRODUCT, VOR_D, "192", RE, IM)                                                    \
    VOR_T_AND_V                                                                                    \
    VOR_CALL(VOR_PRODUCT, VOR_B, "64", RE, IM)                                                     \
    VOR_CALL(VOR_PRODUCT_RE, VOR_A, "0", RE)                                                       \
    VOR_SUM_OF_TOP("3")                                                                            \
    VOR_X0_RE("(%[out])")                                                                          \
    VOR_CALL(VOR_PRODUCT_IM, VOR_A, "0", IM)                                                       \
    VOR_SUM_OF_TOP("2")                                                                            \
    VOR_CALL(VOR_ALL_ELSE, "8(%[out])", X1, VOR_OUT(32), X3)
#define VOR_OUT(bytes) #bytes "(%[out])", "8+" #bytes "(%[out])"

#define VOR_STACK "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)"

// a, b, c, d stand a quarter apart and are replaced; w: W^k, W^2k, W^3k.
template <bool inverse>
inline void butterfly_in_place(cdouble* x, size_t quarter, const cdouble* w) {
#define VOR_OPERANDS                                                                               \
    : : [x] "r"(x), [y] "r"(x + quarter), [q] "r"(quarter * sizeof(cdouble)), [w] "r"(w)           \
    : "memory", VOR_STACK
    if constexpr (inverse)
        asm volatile(VOR_IN_PLACE("faddp", "fsubrp", "(%[x])", "8(%[x])", VOR_B, VOR_C, VOR_D,
                                  VOR_D, VOR_B) VOR_OPERANDS);
    else
        asm volatile(VOR_IN_PLACE("fsubrp", "faddp", "(%[x])", "8(%[x])", VOR_B, VOR_C, VOR_D,
                                  VOR_B, VOR_D) VOR_OPERANDS);
#undef VOR_OPERANDS
}

// Forward, a, c, b, d in this order a quarter apart, real and imaginary parts each from a pointer of their own.
inline void butterfly_multiplied_first(double* re, double* im, size_t quarter_bytes, const double* w) {
    asm volatile(VOR_IN_PLACE("fsubrp", "faddp", "(%[x])", "(%[y])", VOR_NATURAL_B, VOR_NATURAL_C,
                              VOR_NATURAL_D, VOR_NATURAL_B, VOR_NATURAL_D)
        : : [x] "r"(re), [y] "r"(im), [q] "r"(quarter_bytes), [p] "r"(3 * quarter_bytes), [w] "r"(w)
        : "memory", VOR_STACK);
}

// a, b, c, d stand a stride apart, their twiddles four elements apart at w; four results at `out`.
template <bool inverse>
inline void butterfly_of_products(const cdouble* x, size_t stride, const cdouble* w, cdouble* out) {
#define VOR_OPERANDS                                                                               \
    : : [x] "r"(x), [y] "r"(x + stride), [q] "r"(stride * sizeof(cdouble)), [w] "r"(w),            \
        [out] "r"(out)                                                                             \
    : "memory", VOR_STACK
    if constexpr (inverse)
        asm volatile(VOR_OF_PRODUCTS("faddp", "fsubrp", VOR_OUT(48), VOR_OUT(16)) VOR_OPERANDS);
    else
        asm volatile(VOR_OF_PRODUCTS("fsubrp", "faddp", VOR_OUT(16), VOR_OUT(48)) VOR_OPERANDS);
#undef VOR_OPERANDS
}

#undef VOR_PRODUCT_RE
#undef VOR_PRODUCT_IM
#undef VOR_PRODUCT
#undef VOR_SUM_OF_TOP
#undef VOR_SUM_OF_MEMORY
#undef VOR_T_AND_V
#undef VOR_X0_RE
#undef VOR_ALL_ELSE
#undef VOR_A
#undef VOR_B
#undef VOR_C
#undef VOR_D
#undef VOR_CALL
#undef VOR_NATURAL_B
#undef VOR_NATURAL_C
#undef VOR_NATURAL_D
#undef VOR_IN_PLACE
#undef VOR_OF_PRODUCTS
#undef VOR_OUT
#undef VOR_STACK
// clang-format on

} // namespace vor::fft
