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

// sum += x*y in the precision of the sum. The extended ones need one place on the x87 stack beside the
// sums: the compiler would keep operands there, and store sums to make room.
inline void accumulate(float& sum, float x, float y) {
    sum += x * y;
}
inline void accumulate(extended& sum, const float& x, const float& y) {
    asm("flds %1\n\tfmuls %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}
inline void accumulate(extended& sum, const double& x, const double& y) {
    asm("fldl %1\n\tfmull %2\n\tfaddp" : "+t"(sum) : "m"(x), "m"(y) : "st(7)");
}

} // namespace arith
} // namespace vor
