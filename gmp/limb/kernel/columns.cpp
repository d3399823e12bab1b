// Products by columns (Comba, IBM Systems Journal 29, 1990) in machine code: one addition a product in
// each of three limbs of column sum, no store before a column is complete. Both additions with carry and
// one step of the product go through the same two units of the processors in use: 1.5 cycles a product at
// best. It takes all seven general registers: a whole function, arguments on the stack.
#include "gmp/limb/kernel/columns.h"

#ifndef __SANITIZE_ADDRESS__

#define SAVE "push %ebx\n push %esi\n push %edi\n push %ebp\n"
#define RESTORE "pop %ebp\n pop %edi\n pop %esi\n pop %ebx\n"

// Products by columns: column k sums a[i] * b[k - i]. Registers: (ebx, ecx, ebp) the column sum, esi
// one word behind the last factor in a, edi 32 words behind the last one in b. The strip below ends
// with the last product of a column; a column of n products enters it 13 n bytes, the code of n
// products, before its end. One column goes to the next by moving one pointer and that entry.
//
// Arguments: 24 r, 28 a, 32 an, 36 b, 40 bn, with 1 <= bn <= 32 and bn <= an; at 0 the entry. In
// their places are counted the columns left in a phase: bn grow, an - bn stay at bn products, bn - 1
// shrink. BEGIN may add the word of r at (eax) to a column.
// clang-format off
#define PRODUCT(ahead, behind)                                                                     \
    "mov -" #ahead "(%esi), %eax\n mull -" #behind "(%edi)\n"                                      \
    "add %eax, %ebx\n adc %edx, %ecx\n adc $0, %ebp\n"
#define STRIP                                                                                      \
    PRODUCT(128, 4) PRODUCT(124, 8) PRODUCT(120, 12) PRODUCT(116, 16)                              \
    PRODUCT(112, 20) PRODUCT(108, 24) PRODUCT(104, 28) PRODUCT(100, 32)                            \
    PRODUCT(96, 36) PRODUCT(92, 40) PRODUCT(88, 44) PRODUCT(84, 48)                                \
    PRODUCT(80, 52) PRODUCT(76, 56) PRODUCT(72, 60) PRODUCT(68, 64)                                \
    PRODUCT(64, 68) PRODUCT(60, 72) PRODUCT(56, 76) PRODUCT(52, 80)                                \
    PRODUCT(48, 84) PRODUCT(44, 88) PRODUCT(40, 92) PRODUCT(36, 96)                                \
    PRODUCT(32, 100) PRODUCT(28, 104) PRODUCT(24, 108) PRODUCT(20, 112)                            \
    PRODUCT(16, 116) PRODUCT(12, 120) PRODUCT(8, 124) PRODUCT(4, 128)

#define COLUMNS(name, BEGIN)                                                                       \
    extern "C" __attribute__((naked)) void name(vor::limb::word*, const vor::limb::word*, int,     \
                                                const vor::limb::word*, int) {                     \
        asm(SAVE                                                                                   \
            "call 1f\n 1: addl $2f-13-1b, (%esp)\n"                                                \
            "mov 28(%esp), %esi\n add $4, %esi\n"                                                  \
            "mov 36(%esp), %edi\n sub $-128, %edi\n"                                               \
            "mov 40(%esp), %eax\n sub %eax, 32(%esp)\n mov %eax, 36(%esp)\n"                       \
            "xor %ebx, %ebx\n xor %ecx, %ecx\n xor %ebp, %ebp\n"                                   \
            "jmp *(%esp)\n"                                                                        \
            STRIP                                                                                  \
            "2: mov 24(%esp), %eax\n"                                                              \
            BEGIN                                                                                  \
            "mov %ebx, (%eax)\n add $4, %eax\n mov %eax, 24(%esp)\n"                               \
            "mov %ecx, %ebx\n mov %ebp, %ecx\n xor %ebp, %ebp\n"                                   \
            "decl 40(%esp)\n jle 3f\n"                                                             \
            "add $4, %esi\n subl $13, (%esp)\n jmp *(%esp)\n"                                      \
            "3: decl 32(%esp)\n js 4f\n"                                                           \
            "add $4, %esi\n jmp *(%esp)\n"                                                         \
            "4: decl 36(%esp)\n jz 5f\n"                                                           \
            "add $4, %edi\n addl $13, (%esp)\n jmp *(%esp)\n"                                      \
            "5: mov %ebx, (%eax)\n add $4, %esp\n"                                                 \
            RESTORE "ret\n");                                                                      \
    }
COLUMNS(vor_limb_mul_columns, "")
COLUMNS(vor_limb_addmul_columns, "add (%eax), %ebx\n adc $0, %ecx\n adc $0, %ebp\n")
// clang-format on

#else
// Under the address sanitizer the same in plain words: it sees every access.
#include "gmp/limb/limb.h"

using namespace vor::limb;

extern "C" {
void vor_limb_mul_columns(word* r, const word* a, int an, const word* b, int bn) {
    for (int i = 0; i < an + bn; ++i) r[i] = 0;
    vor_limb_addmul_columns(r, a, an, b, bn);
}

void vor_limb_addmul_columns(word* r, const word* a, int an, const word* b, int bn) {
    for (int j = 0; j < bn; ++j) r[an + j] = vor_limb_addmul_1(r + j, a, an, b[j]);
}
}
#endif
