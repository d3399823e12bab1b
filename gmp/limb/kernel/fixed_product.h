// Products of a fixed number of words, by columns and without a loop: column k sums a[i] * b[k - i]
// in three words. The compiler is left no register: keep these out of line.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

// The sum of a column, carried along from one to the next.
struct Column {
    word low = 0, middle = 0, high = 0;

    // += a * b
    [[gnu::always_inline]] void add_product(const word& a, const word& b) {
#ifndef __SANITIZE_ADDRESS__
        asm("movl %[a], %%eax\n\t"
            "mull %[b]\n\t"
            "addl %%eax, %[low]\n\t"
            "adcl %%edx, %[middle]\n\t"
            "adcl $0, %[high]"
            : [low] "+r"(low), [middle] "+r"(middle), [high] "+r"(high)
            : [a] "m"(a), [b] "m"(b)
            : "eax", "edx", "cc");
#else
        const dword sum = dword{a} * b + low;
        const dword upper = (sum >> 32) + middle;
        low = static_cast<word>(sum);
        middle = static_cast<word>(upper);
        high += static_cast<word>(upper >> 32);
#endif
    }

    // += the column `other`, doubled
    [[gnu::always_inline]] void add_doubled(Column other) {
        for (int twice = 0; twice < 2; ++twice) {
            const dword sum = dword{low} + other.low;
            const dword upper = dword{middle} + other.middle + (sum >> 32);
            low = static_cast<word>(sum);
            middle = static_cast<word>(upper);
            high += other.high + static_cast<word>(upper >> 32);
        }
    }

    // The lowest word, which is complete; what remains belongs to the next column.
    [[gnu::always_inline]] word next() {
        const word complete = low;
        low = middle;
        middle = high;
        high = 0;
        return complete;
    }
};

// r[0 .. 2N) = a * b, N words each. r may overlap neither. Aligned, since where the straight code starts
// changes its speed by some percent.
template <int N>
[[gnu::noinline, gnu::aligned(64)]] void mul_fixed(word* r, const word* a, const word* b) {
    Column column;
#pragma GCC unroll 64
    for (int k = 0; k < 2 * N - 1; ++k) {
#pragma GCC unroll 64
        for (int i = k < N ? 0 : k - N + 1; i <= (k < N ? k : N - 1); ++i)
            column.add_product(a[i], b[k - i]);
        r[k] = column.next();
    }
    r[2 * N - 1] = column.next();
}

// r[0 .. 2N) = a * a: the products of two different words once, doubled, and the squares.
template <int N>
[[gnu::noinline]] void sqr_fixed(word* r, const word* a) {
    Column column;
#pragma GCC unroll 64
    for (int k = 0; k < 2 * N - 1; ++k) {
        Column mixed;
#pragma GCC unroll 64
        for (int i = k < N ? 0 : k - N + 1; 2 * i < k; ++i) mixed.add_product(a[i], a[k - i]);
        column.add_doubled(mixed);
        if (k % 2 == 0) column.add_product(a[k / 2], a[k / 2]);
        r[k] = column.next();
    }
    r[2 * N - 1] = column.next();
}

} // namespace vor::limb
