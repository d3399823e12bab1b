#include "tests/common/call.h"

asm(R"(
    .text
    .globl vor_test_call
    .type vor_test_call, @function
vor_test_call:
    push %ebp
    mov %esp, %ebp
    push %esi
    push %edi
    mov 16(%ebp), %ecx
    lea 15(,%ecx,4), %eax
    and $-16, %eax
    and $-16, %esp
    sub 20(%ebp), %esp
    sub %eax, %esp
    mov 12(%ebp), %esi
    mov %esp, %edi
    rep movsl
    call *8(%ebp)
    mov 24(%ebp), %ecx
    fnstenv (%ecx)
    fldenv (%ecx)
    stmxcsr 28(%ecx)
    lea -8(%ebp), %esp
    pop %edi
    pop %esi
    pop %ebp
    ret
    .size vor_test_call, . - vor_test_call
)");
