// The carry chains in machine code. They need all seven general registers, which the compiler does
// not hand out around a flag that lives from one instruction to the next: so they are whole
// functions, arguments on the stack.
//
// What bounds them is the chain of dependent additions, one addition a cycle at best:
//   add_n, sub_n        1 adc a word
//   addmul_1 and kin    two words at a time: the product of both words and the addition of r do not
//                       depend on the incoming carry, which then takes 3 additions for two words
//   mul_basecase        by columns (Comba, IBM Systems Journal 29, 1990): one addition a product in
//                       each of three words of column sum, no store before a column is complete
#include "gmp/bn/limb_kernels.h"

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
            "add $16, %esi\n add $16, %edi\n decl 28(%esp)\n jnz 3b\n"                            \
            "4: mov %ecx, %eax\n"                                                                  \
            RESTORE "ret\n");                                                                      \
    }
// clang-format on
ROW(vor_limb_mul_1, LOAD_NONE, STORE_PLAIN, "", "mov %eax, (%edi)\n")
ROW(vor_limb_addmul_1, LOAD_ADD, STORE_PLAIN, "add (%edi), %eax\n adc $0, %edx\n",
    "mov %eax, (%edi)\n")
ROW(vor_limb_submul_1, LOAD_NONE, STORE_SUBTRACT, "", "sub %eax, (%edi)\n adc $0, %ecx\n")

// Column k of the product sums a[i] * b[k - i]. Registers: (ebx, ecx, ebp) the column sum, esi
// upward in a, edi downward in b. Each product is 13 bytes of code, eight of them a turn; a column
// of `length` products enters the turn where length mod 8 of them are left, with both pointers
// stepped back as far. The first product of a turn stands at displacement 4 (a displacement of 0
// would be encoded shorter).
//
// Frame below the saved registers: 0 turns, 4 length, 8 first of a, 12 first of b, 16 where the
// turn starts. Above: 40 r, 44 a, 48 an, 52 b, 56 bn. Columns left in a phase are counted in the
// arguments: bn columns grow, an - bn stay at length bn, bn - 1 shrink.
#define PRODUCT(at)                                                                                \
    "mov " #at "(%esi), %eax\n mull -" #at "(%edi)\n"                                              \
    "add %eax, %ebx\n adc %edx, %ecx\n adc $0, %ebp\n"

extern "C" __attribute__((naked)) void
vor_limb_mul_basecase(vor::limb::word*, const vor::limb::word*, int, const vor::limb::word*, int) {
    asm(SAVE "sub $20, %esp\n"
             "call 9f\n 9: pop %eax\n lea 2f-9b(%eax), %eax\n mov %eax, 16(%esp)\n"
             "movl $1, 4(%esp)\n"
             "mov 44(%esp), %eax\n sub $4, %eax\n mov %eax, 8(%esp)\n"
             "mov 52(%esp), %eax\n add $4, %eax\n mov %eax, 12(%esp)\n"
             "mov 56(%esp), %eax\n sub %eax, 48(%esp)\n dec %eax\n mov %eax, 52(%esp)\n"
             "xor %ebx, %ebx\n xor %ecx, %ecx\n"
             "1:\n" // one column
             "xor %ebp, %ebp\n"
             "mov 4(%esp), %eax\n lea 7(%eax), %edx\n shr $3, %edx\n mov %edx, (%esp)\n"
             "neg %eax\n and $7, %eax\n"
             "lea (,%eax,4), %edx\n"
             "mov 8(%esp), %esi\n sub %edx, %esi\n"
             "mov 12(%esp), %edi\n add %edx, %edi\n"
             "lea (%eax,%eax,2), %edx\n lea (%eax,%edx,4), %eax\n add 16(%esp), %eax\n"
             "jmp *%eax\n"
             "2:\n" PRODUCT(4) PRODUCT(8) PRODUCT(12) PRODUCT(16) //
        PRODUCT(20) PRODUCT(24) PRODUCT(28) PRODUCT(32)           //
        "add $32, %esi\n sub $32, %edi\n decl (%esp)\n jnz 2b\n"
        "mov 40(%esp), %eax\n mov %ebx, (%eax)\n add $4, %eax\n mov %eax, 40(%esp)\n"
        "mov %ecx, %ebx\n mov %ebp, %ecx\n"
        "decl 56(%esp)\n jle 3f\n"
        "incl 4(%esp)\n addl $4, 12(%esp)\n jmp 1b\n" // growing: b starts one higher
        "3: addl $4, 8(%esp)\n decl 48(%esp)\n jns 1b\n"
        "decl 4(%esp)\n jnz 1b\n" // shrinking
        "mov 40(%esp), %eax\n mov %ebx, (%eax)\n"
        "add $20, %esp\n" RESTORE "ret\n");
}

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

void vor_limb_mul_basecase(word* r, const word* a, int an, const word* b, int bn) {
    for (int i = 0; i < an; ++i) r[i] = 0;
    for (int j = 0; j < bn; ++j) r[an + j] = vor_limb_addmul_1(r + j, a, an, b[j]);
}
}
#endif
