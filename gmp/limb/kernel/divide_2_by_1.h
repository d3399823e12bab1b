// Two limbs by one, as the processor divides them.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

struct QuotientRemainder {
    word quotient, remainder;
};

// (high, low) by d, with high < d.
inline QuotientRemainder divide_2_by_1(word high, word low, word d) {
    QuotientRemainder result;
    asm("divl %[d]"
        : "=a"(result.quotient), "=d"(result.remainder)
        : "0"(low), "1"(high), [d] "rm"(d)
        : "cc");
    return result;
}

// Divides by zero on the processor: SIGFPE.
[[noreturn]] inline void divide_by_zero() {
    word quotient, rest;
    for (;;) asm volatile("divl %[d]" : "=a"(quotient), "=d"(rest) : "0"(1), "1"(0), [d] "r"(0));
}

} // namespace vor::limb
