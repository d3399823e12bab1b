// The integer nearest to an extended number, by the processor's own store.
#pragma once

#include <stdint.h>

namespace vor::limb {

// x below 2^63 in magnitude; rounds as the control word says.
inline int64_t nearest(long double x) {
    int64_t integer;
    asm("fistpll %0" : "=m"(integer) : "t"(x) : "st");
    return integer;
}

} // namespace vor::limb
