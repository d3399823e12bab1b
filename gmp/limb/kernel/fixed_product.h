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

// r[0 .. 2N) = the products of two different words of a, each once.
template <int N>
[[gnu::noinline, gnu::aligned(64)]] void mixed_products(word* r, const word* a) {
    Column column;
    r[0] = 0;
#pragma GCC unroll 64
    for (int k = 1; k < 2 * N - 2; ++k) {
#pragma GCC unroll 64
        for (int i = k < N ? 0 : k - N + 1; 2 * i < k; ++i) column.add_product(a[i], a[k - i]);
        r[k] = column.next();
    }
    r[2 * N - 2] = column.next();
    r[2 * N - 1] = 0;
}

// r[0 .. 2n) = 2 r + the squares of the n words of a.
[[gnu::noinline]] inline void double_and_add_squares(word* r, const word* a, int n) {
    word carry = 0; // up to 2. The instructions leave their result in memory: volatile.
    for (int i = 0; i < n; ++i) {
#ifndef __SANITIZE_ADDRESS__
        word next;
        asm volatile("movl (%[a]), %%eax\n\tmull %%eax\n\tmovl $0, %[next]\n\t"
                     "addl (%[r]), %%eax\n\tadcl 4(%[r]), %%edx\n\tadcl $0, %[next]\n\t"
                     "addl (%[r]), %%eax\n\tadcl 4(%[r]), %%edx\n\tadcl $0, %[next]\n\t"
                     "addl %[carry], %%eax\n\tadcl $0, %%edx\n\tadcl $0, %[next]\n\t"
                     "movl %%eax, (%[r])\n\tmovl %%edx, 4(%[r])"
                     : [next] "=&r"(next)
                     : [a] "r"(a + i), [r] "r"(r + 2 * i), [carry] "r"(carry)
                     : "eax", "edx", "cc", "memory");
        carry = next;
#else
        const dword pair = dword{r[2 * i + 1]} << 32 | r[2 * i];
        dword sum = dword{a[i]} * a[i];
        word next = __builtin_add_overflow(sum, pair, &sum);
        next += __builtin_add_overflow(sum, pair, &sum);
        next += __builtin_add_overflow(sum, carry, &sum);
        r[2 * i] = static_cast<word>(sum);
        r[2 * i + 1] = static_cast<word>(sum >> 32);
        carry = next;
#endif
    }
}

// r[0 .. 2N) = a * a.
template <int N>
inline void sqr_fixed(word* r, const word* a) {
    mixed_products<N>(r, a);
    double_and_add_squares(r, a, N);
}

} // namespace vor::limb
