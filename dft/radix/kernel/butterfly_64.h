// The butterflies of four with twiddles in double precision, by hand: see signal/fft/kernel/butterfly_64.h for what
// the x87 unit likes. Forward multiplies first, which is the butterfly of that file on elements in natural order;
// the inverse multiplies last and is told here.
//
// Real and imaginary parts may stand apart, so that one text serves interleaved and split data.
//
// The comments show the stack, its top to the left; s = x0 + x1, u = x0 - x1, t = x2 + x3, v = x2 - x3,
// g = u + i v, h = u - i v, p = s - t.
#pragma once

#include "dft/radix/kernel/data.h"
#include "signal/direction.h"
#include "signal/fft/kernel/butterfly_64.h"

namespace vor::dfti::radix {

// clang-format off
// Elements 0 to 3.
#define VOR_X0 "(%[x])", "(%[y])"
#define VOR_X1 "(%[x],%[q])", "(%[y],%[q])"
#define VOR_X2 "(%[x],%[q],2)", "(%[y],%[q],2)"
#define VOR_X3 "(%[x],%[p])", "(%[y],%[p])"
#define VOR_CALL(macro, ...) macro(__VA_ARGS__)

// Pushes a - b of two elements in memory.
#define VOR_DIFFERENCE(a, b) "fldl " a "\n fsubl " b "\n"
// y x  ->  x - y, x + y; the other way round.
#define VOR_DOWN_AND_UP "fld %%st(1)\n fsub %%st(1),%%st\n fxch %%st(2)\n faddp %%st,%%st(1)\n"
// Pushes p, stores s + t.
#define VOR_S_AND_T(x0, x1, x2, x3)                                                                \
    "fldl " x0 "\n faddl " x1 "\n fldl " x2 "\n faddl " x3 "\n"                                    \
    "fld %%st(1)\n fadd %%st(1),%%st\n fstpl " x0 "\n fsubrp %%st,%%st(1)\n"
// im .. re  ->  ..; stores the product with conj(w). The real part, `below` deep under one more, stays.
#define VOR_STORE_PRODUCT(below, w, out_re, out_im)                                            \
    "fldl " w "(%[w])\n fmul %%st(" below "),%%st\n fldl 8+" w "(%[w])\n fmul %%st(2),%%st\n"      \
    "faddp %%st,%%st(1)\n fstpl " out_re "\n"                                                      \
    "fmull " w "(%[w])\n fldl 8+" w "(%[w])\n fmul %%st(" below "),%%st\n"                         \
    "fsubrp %%st,%%st(1)\n fstpl " out_im "\n"

#define VOR_PARTS(a_re, a_im, b_re, b_im, c_re, c_im, d_re, d_im)                                  \
    VOR_DIFFERENCE(a_re, b_re) VOR_DIFFERENCE(c_im, d_im) VOR_DOWN_AND_UP /* h.re g.re */          \
    VOR_DIFFERENCE(a_im, b_im) VOR_DIFFERENCE(c_re, d_re) VOR_DOWN_AND_UP /* g.im h.im h.re g.re */\
    VOR_S_AND_T(a_re, b_re, c_re, d_re)                                                            \
    VOR_S_AND_T(a_im, b_im, c_im, d_im) /* p.im p.re g.im h.im h.re g.re */                        \
    VOR_STORE_PRODUCT("2", "16", c_re, c_im) "fstp %%st(0)\n"                                 \
    VOR_STORE_PRODUCT("4", "0", b_re, b_im)                                                   \
    VOR_STORE_PRODUCT("2", "32", d_re, d_im) "fstp %%st(0)\n fstp %%st(0)\n"

// Replaces the four elements a quarter apart; w: those of elements 1, 2 and 3.
inline void butterfly_multiplied_last(double* re, double* im, size_t quarter_bytes, const double* w) {
    asm volatile(VOR_CALL(VOR_PARTS, VOR_X0, VOR_X1, VOR_X2, VOR_X3)
        : : [x] "r"(re), [y] "r"(im), [q] "r"(quarter_bytes), [p] "r"(3 * quarter_bytes), [w] "r"(w)
        : "memory", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)");
}
#undef VOR_X0
#undef VOR_X1
#undef VOR_X2
#undef VOR_X3
#undef VOR_CALL
#undef VOR_DIFFERENCE
#undef VOR_DOWN_AND_UP
#undef VOR_S_AND_T
#undef VOR_STORE_PRODUCT
#undef VOR_PARTS
// clang-format on

// `quarter` butterflies of neighbours with one triple of twiddles.
template <Direction D, class Form>
void run_by_hand(Form x, int quarter, const double* w) {
    double *re = x.re(), *im = x.im();
    double* const end = x.from(quarter).re();
    const size_t step = x.from(1).re() - re, bytes = size_t(quarter) * step * sizeof(double);
    for (; re < end; re += step, im += step) {
        if constexpr (D == Direction::forward)
            fft::butterfly_multiplied_first(re, im, bytes, w);
        else
            butterfly_multiplied_last(re, im, bytes, w);
    }
}

} // namespace vor::dfti::radix
