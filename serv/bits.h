// Bits of words.
#pragma once

namespace vor {
inline namespace serv {

// Zero bits below the lowest one bit of x, which is not 0. (Asked for directly, the compiler writes an
// instruction of a later level here, which older processors happen to read as an earlier one.)
inline int trailing_zeros(unsigned x) {
    return 31 - __builtin_clz(x & -x);
}

} // namespace serv
} // namespace vor
