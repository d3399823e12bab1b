// Bits of words.
#pragma once

namespace vor {

// Zero bits below the lowest one bit of x, which is not 0. (Left to itself the compiler writes an
// instruction of a later level here, which older processors happen to read as this one.)
inline int trailing_zeros(unsigned x) {
    int count;
    asm("bsfl %1, %0" : "=r"(count) : "rm"(x) : "cc");
    return count;
}

} // namespace vor
