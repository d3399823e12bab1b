// Instruction choice on the x87 stack, for the loops that are bound by it.
#pragma once

namespace vor {

// a * y, where y is a factor of several products: a is loaded by an instruction of its own. Multiplying
// a copy of y by a number in memory looks shorter, but a copy of a register takes a turn of an
// arithmetic unit, which a load does not. The last product with y may be written plainly: it takes
// y's own register.
template <class T>
inline long double load_and_multiply(T a, long double y) {
    long double x = a;
    asm("" : "+t"(x));
    x *= y;

    return x;
}

} // namespace vor
