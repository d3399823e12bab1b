// The carry chains in machine code. They need all seven general registers, which the compiler does
// not hand out around a flag that lives from one instruction to the next: so they are whole
// functions, arguments on the stack.
//
// What bounds them is the chain of dependent additions, one addition a cycle at best:
//   add_n, sub_n        1 adc a word
//   addmul_1 and kin    two words at a time: the product of both words and the addition of r do not
//                       depend on the incoming carry, which then takes 3 additions for two words
#include "gmp/limb/kernel/carry_chains.h"

#ifndef __SANITIZE_ADDRESS__

#define SAVE "push %ebx\n push %esi\n push %edi\n push %ebp\n"
#define RESTORE "pop %ebp\n pop %edi\n pop %esi\n pop %ebx\n"

// Arguments r, a, b, n stand behind four saved registers and the return address. The carry flag
// survives lea and dec. Eight words a turn; the first turn is entered in its middle for the n mod 8
// words, by way of one word at a time.
#define ADD_SUB_N(name, operation)                                                                 \
    extern "C" __attribute__((naked)) vor::limb::word name(                                        \
        vor::limb::word*, const vor::limb::word*, const vor::limb::word*, int) {                   \
        asm("push %ebx\n push %esi\n push %edi\n"                                                  \
            "mov 16(%esp), %edi\n mov 20(%esp), %esi\n mov 24(%esp), %ebx\n"                       \
            "mov 28(%esp), %edx\n"                                                                 \
            "mov %edx, %ecx\n and $7, %edx\n shr $3, %ecx\n"                                       \
            "test %edx, %edx\n" /* clears the carry */                                             \
            "jz 2f\n"                                                                              \
            "1:\n"                                                                                 \
            "mov (%esi), %eax\n " operation " (%ebx), %eax\n mov %eax, (%edi)\n"                   \
            "lea 4(%esi), %esi\n lea 4(%ebx), %ebx\n lea 4(%edi), %edi\n"                          \
            "dec %edx\n jnz 1b\n"                                                                  \
            "2:\n"                                                                                 \
            "inc %ecx\n dec %ecx\n" /* tests for zero and leaves the carry */                      \
            "jz 4f\n"                                                                              \
            "3:\n"                                                                                 \
            "mov (%esi), %eax\n " operation " (%ebx), %eax\n mov %eax, (%edi)\n"                   \
            "mov 4(%esi), %eax\n " operation " 4(%ebx), %eax\n mov %eax, 4(%edi)\n"                \
            "mov 8(%esi), %eax\n " operation " 8(%ebx), %eax\n mov %eax, 8(%edi)\n"                \
            "mov 12(%esi), %eax\n " operation " 12(%ebx), %eax\n mov %eax, 12(%edi)\n"             \
            "mov 16(%esi), %eax\n " operation " 16(%ebx), %eax\n mov %eax, 16(%edi)\n"             \
            "mov 20(%esi), %eax\n " operation " 20(%ebx), %eax\n mov %eax, 20(%edi)\n"             \
            "mov 24(%esi), %eax\n " operation " 24(%ebx), %eax\n mov %eax, 24(%edi)\n"             \
            "mov 28(%esi), %eax\n " operation " 28(%ebx), %eax\n mov %eax, 28(%edi)\n"             \
            "lea 32(%esi), %esi\n lea 32(%ebx), %ebx\n lea 32(%edi), %edi\n"                       \
            "dec %ecx\n jnz 3b\n"                                                                  \
            "4:\n"                                                                                 \
            "setc %al\n movzbl %al, %eax\n"                                                        \
            "pop %edi\n pop %esi\n pop %ebx\n ret\n");                                             \
    }
ADD_SUB_N(vor_limb_add_n, "adc")
ADD_SUB_N(vor_limb_sub_n, "sbb")

// Rows by one word w. Registers: esi a, edi r, ecx the carry word; (ebx, eax, edx) the three words
// of a pair, ebp the word between. LOAD adds two words of r to a pair, STORE writes two words back,
// or takes them from r with the borrow into the carry word.
// clang-format off
#define PAIR(at, LOAD, STORE)                                                                      \
    "mov " #at "(%esi), %eax\n mull 32(%esp)\n mov %eax, %ebx\n mov %edx, %ebp\n"                  \
    "mov " #at "+4(%esi), %eax\n mull 32(%esp)\n add %ebp, %eax\n adc $0, %edx\n"                  \
    LOAD(at)                                                                                       \
    "add %ecx, %ebx\n adc $0, %eax\n mov %edx, %ecx\n adc $0, %ecx\n"                              \
    STORE(at)
#define SINGLE(LOAD, STORE)                                                                        \
    "mov (%esi), %eax\n mull 32(%esp)\n"                                                           \
    LOAD                                                                                           \
    "add %ecx, %eax\n adc $0, %edx\n mov %edx, %ecx\n"                                             \
    STORE

#define LOAD_NONE(at)
#define LOAD_ADD(at) "add " #at "(%edi), %ebx\n adc " #at "+4(%edi), %eax\n adc $0, %edx\n"
#define STORE_PLAIN(at) "mov %ebx, " #at "(%edi)\n mov %eax, " #at "+4(%edi)\n"
#define STORE_SUBTRACT(at)                                                                         \
    "sub %ebx, " #at "(%edi)\n sbb %eax, " #at "+4(%edi)\n adc $0, %ecx\n"

#define ROW(name, LOAD, STORE, LOAD_1, STORE_1)                                                    \
    extern "C" __attribute__((naked)) vor::limb::word name(                                        \
        vor::limb::word*, const vor::limb::word*, int, vor::limb::word) {                          \
        asm(SAVE                                                                                   \
            "mov 20(%esp), %edi\n mov 24(%esp), %esi\n xor %ecx, %ecx\n"                           \
            "testl $1, 28(%esp)\n jz 1f\n"                                                         \
            SINGLE(LOAD_1, STORE_1)                                                                \
            "add $4, %esi\n add $4, %edi\n"                                                        \
            "1: testl $2, 28(%esp)\n jz 2f\n"                                                      \
            PAIR(0, LOAD, STORE)                                                                   \
            "add $8, %esi\n add $8, %edi\n"                                                        \
            "2: shrl $2, 28(%esp)\n jz 4f\n"                                                       \
            "3:\n"                                                                                 \
            PAIR(0, LOAD, STORE) PAIR(8, LOAD, STORE)                                              \
            "add $16, %esi\n add $16, %edi\n decl 28(%esp)\n jnz 3b\n"                             \
            "4: mov %ecx, %eax\n"                                                                  \
            RESTORE "ret\n");                                                                      \
    }
// clang-format on
ROW(vor_limb_mul_1, LOAD_NONE, STORE_PLAIN, "", "mov %eax, (%edi)\n")
ROW(vor_limb_addmul_1, LOAD_ADD, STORE_PLAIN, "add (%edi), %eax\n adc $0, %edx\n",
    "mov %eax, (%edi)\n")
ROW(vor_limb_submul_1, LOAD_NONE, STORE_SUBTRACT, "", "sub %eax, (%edi)\n adc $0, %ecx\n")

#else
// Under the address sanitizer the same functions in plain words: it sees every access.

namespace {

using namespace vor::limb;

template <class F>
word each(word* r, int n, F f) {
    word carry = 0;
    for (int i = 0; i < n; ++i) {
        const dword x = f(i, carry);
        r[i] = static_cast<word>(x);
        carry = static_cast<word>(x >> 32);
    }
    return carry;
}

} // namespace

extern "C" {
word vor_limb_add_n(word* r, const word* a, const word* b, int n) {
    return each(r, n, [=](int i, word carry) { return dword{a[i]} + b[i] + carry; });
}

word vor_limb_sub_n(word* r, const word* a, const word* b, int n) {
    return each(r, n, [=](int i, word carry) { return dword{a[i]} - b[i] - (carry & 1); }) & 1;
}

word vor_limb_mul_1(word* r, const word* a, int n, word w) {
    return each(r, n, [=](int i, word carry) { return dword{a[i]} * w + carry; });
}

word vor_limb_addmul_1(word* r, const word* a, int n, word w) {
    return each(r, n, [=](int i, word carry) { return dword{a[i]} * w + r[i] + carry; });
}

word vor_limb_submul_1(word* r, const word* a, int n, word w) {
    word borrow = 0;
    for (int i = 0; i < n; ++i) {
        const dword x = dword{a[i]} * w + borrow;
        borrow = static_cast<word>(x >> 32) + (r[i] < static_cast<word>(x));
        r[i] -= static_cast<word>(x);
    }
    return borrow;
}
}
#endif
