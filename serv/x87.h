// Loads onto the x87 stack.
#pragma once

namespace vor {

// The number at p, pushed onto the x87 stack by a load of its own. Left to itself the compiler copies
// the other factor of a product (fld %st(i)) and multiplies by memory. Where additions and
// multiplications have a port each, that copy takes a place on one of them, and this load does not.
template <class T>
inline long double loaded(const T& p) {
    long double x = p;
    asm("" : "+t"(x));
    return x;
}

} // namespace vor
