// Instruction choice on the x87 stack, for the loops that are bound by it.
#pragma once

namespace vor {

// x, loaded by an instruction of its own. Multiplying the copy of a common factor by a number in
// memory looks shorter, but a copy of a register takes a turn of an arithmetic unit, which a load does
// not: where each of several sums takes a * y with the same y, load every a but the last, whose
// product may take y's own register.
inline long double loaded(double x) {
    long double result = x;
    asm("" : "+t"(result));
    return result;
}

} // namespace vor
