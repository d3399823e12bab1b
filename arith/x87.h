// Loads and sums on the x87 stack.
#pragma once

#include "arith/element.h"

namespace vor {
inline namespace arith {

// The number at p, pushed onto the x87 stack by a load of its own. Left to itself the compiler copies
// the other factor of a product (fld %st(i)) and multiplies by memory. Where additions and
// multiplications have a port each, that copy takes a place on one of them, and this load does not.
template <class T>
inline extended loaded(const T& p) {
    extended x = p;
    asm("" : "+t"(x));
    return x;
}

// The same for an extended number where the load is wanted: the compiler does not take it out of a loop,
// and so does not keep many of them, for which the stack has no room.
inline extended reloaded(const extended& p) {
    extended x;
    asm volatile("fldt %1" : "=t"(x) : "m"(p));
    return x;
}

// sum += x*y in the precision of the sum. The extended ones need one place on the x87 stack beside the
// sums: the compiler would keep operands there, and store sums to make room.
inline void accumulate(float& sum, float x, float y) {
    sum += x * y;
}
inline void accumulate(extended& sum, const float& x, const float& y) {
    asm("flds %1\n\tfmuls %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}
inline void accumulate(extended& sum, const float& x, const double& y) {
    asm("flds %1\n\tfmull %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}
inline void accumulate(extended& sum, const double& x, const double& y) {
    asm("fldl %1\n\tfmull %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}

// The same with a factor that is kept on the stack.
inline void accumulate(extended& sum, const float& x, const extended& y) {
    asm("flds %2\n\tfmul %%st(2)\n\tfaddp" : "+t"(sum) : "u"(y), "m"(x) : "st(7)");
}
inline void accumulate(extended& sum, const double& x, const extended& y) {
    asm("fldl %2\n\tfmul %%st(2)\n\tfaddp" : "+t"(sum) : "u"(y), "m"(x) : "st(7)");
}

// sum += x*y + u*v, and sum += x*y - u*v, the two products added first. They need two places on the stack.
inline void accumulate_sum(extended& sum, const double& x, const double& y, const double& u,
                           const double& v) {
    asm("fldl %1\n\tfmull %2\n\tfldl %3\n\tfmull %4\n\tfaddp\n\tfaddp"
        : "+t"(sum)
        : "m"(x), "m"(y), "m"(u), "m"(v)
        : "st(6)", "st(7)");
}
inline void accumulate_difference(extended& sum, const double& x, const double& y, const double& u,
                                  const double& v) {
    asm("fldl %1\n\tfmull %2\n\tfldl %3\n\tfmull %4\n\tfsubrp %%st, %%st(1)\n\tfaddp"
        : "+t"(sum)
        : "m"(x), "m"(y), "m"(u), "m"(v)
        : "st(6)", "st(7)");
}

// y := (a*f + b*g) + y, and y := (a*f - b*g) + y, with factors that are kept on the stack.
inline void add_sum(double& y, const double& a, extended f, const double& b, extended g) {
    asm("fldl %1\n\tfmul %%st(1)\n\tfldl %2\n\tfmul %%st(3)\n\tfaddp\n\tfaddl %0\n\tfstpl %0"
        : "+m"(y)
        : "m"(a), "m"(b), "t"(f), "u"(g)
        : "st(6)", "st(7)");
}
inline void add_difference(double& y, const double& a, extended f, const double& b, extended g) {
    asm("fldl %1\n\tfmul %%st(1)\n\tfldl %2\n\tfmul %%st(3)\n\tfsubrp %%st, %%st(1)\n\tfaddl %0\n\t"
        "fstpl %0"
        : "+m"(y)
        : "m"(a), "m"(b), "t"(f), "u"(g)
        : "st(6)", "st(7)");
}

} // namespace arith
} // namespace vor
