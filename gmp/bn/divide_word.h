// Two words by one, as the processor divides them.
#pragma once

#include "gmp/bn/bignum.h"

namespace vor::bn {

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

} // namespace vor::bn
