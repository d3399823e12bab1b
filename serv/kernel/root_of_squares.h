// The square root of a sum of two squares in extended precision, whatever the precision control of the
// caller.
#pragma once

namespace vor {
inline namespace serv {

// sqrt(a*a + b*b) with the precision control at 64 bits; the caller's control word comes back.
inline long double root_of_squares(double a, double b) {
    constexpr unsigned short kPrecision64 = 0x300;
    unsigned short caller, full;
    asm volatile("fnstcw %0" : "=m"(caller));
    full = caller | kPrecision64;
    long double root;
    asm volatile("fldcw %[full]\n\t"
                 "fmul %%st(0), %%st\n\t"
                 "fxch %%st(1)\n\t"
                 "fmul %%st(0), %%st\n\t"
                 "faddp\n\t"
                 "fsqrt\n\t"
                 "fldcw %[caller]"
                 : "=t"(root)
                 : "0"(static_cast<long double>(a)),
                   "u"(static_cast<long double>(b)), [full] "m"(full), [caller] "m"(caller)
                 : "st(1)");
    return root;
}

} // namespace serv
} // namespace vor
