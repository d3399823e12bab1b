// Probes of the machine's limits. The x87 and vector units are pipelined: a probe keeps seven
// chains in flight, as many as the registers hold beside the common operand, each too long ago to
// wait for at the latencies of the processors in use. Zeros and ones stay clear of slow values.
#include "bench/common/machine.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <numeric>

namespace vor::bench {

namespace {

constexpr int kLoops = 256;

// Seven operations of the names `a` and `b` by turns, each with the common operand in the first
// register.
#define X87_SEVEN(a, b)                                                                            \
    a " %%st, %%st(1)\n" b " %%st, %%st(2)\n" a " %%st, %%st(3)\n" b " %%st, %%st(4)\n" a          \
      " %%st, %%st(5)\n" b " %%st, %%st(6)\n" a " %%st, %%st(7)\n"
#define VECTOR_SEVEN(a)                                                                            \
    a " %%xmm0, %%xmm1\n" a " %%xmm0, %%xmm2\n" a " %%xmm0, %%xmm3\n" a " %%xmm0, %%xmm4\n" a      \
      " %%xmm0, %%xmm5\n" a " %%xmm0, %%xmm6\n" a " %%xmm0, %%xmm7\n"
#define TURN "decl %0\n jnz 1b\n"

#define X87_FILL "fld1\n fld1\n fld1\n fld1\n fld1\n fld1\n fld1\n fld1\n 1:\n"
#define X87_DROP                                                                                   \
    "fstp %%st(0)\n fstp %%st(0)\n fstp %%st(0)\n fstp %%st(0)\n"                                  \
    "fstp %%st(0)\n fstp %%st(0)\n fstp %%st(0)\n fstp %%st(0)\n"
#define X87_CLOBBERED "cc", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)"
#define VECTOR_FILL                                                                                \
    "xorps %%xmm0, %%xmm0\n xorps %%xmm1, %%xmm1\n xorps %%xmm2, %%xmm2\n xorps %%xmm3, %%xmm3\n"  \
    "xorps %%xmm4, %%xmm4\n xorps %%xmm5, %%xmm5\n xorps %%xmm6, %%xmm6\n xorps %%xmm7, %%xmm7\n"  \
    "1:\n"
#define VECTOR_CLOBBERED "cc", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7"

void x87_additions() {
    int loops = kLoops;
    asm volatile(X87_FILL X87_SEVEN("fadd", "fadd") TURN X87_DROP : "+r"(loops) : : X87_CLOBBERED);
}

void x87_multiplications() {
    int loops = kLoops;
    asm volatile(X87_FILL X87_SEVEN("fmul", "fmul") TURN X87_DROP : "+r"(loops) : : X87_CLOBBERED);
}

// For processors with a unit for each.
void x87_by_turns() {
    int loops = kLoops / 2;
    asm volatile(X87_FILL X87_SEVEN("fadd", "fmul") X87_SEVEN("fmul", "fadd") TURN X87_DROP
                 : "+r"(loops)
                 :
                 : X87_CLOBBERED);
}

void vector_additions() {
    int loops = kLoops;
    asm volatile(VECTOR_FILL VECTOR_SEVEN("addps") TURN : "+r"(loops) : : VECTOR_CLOBBERED);
}

void vector_multiplications() {
    int loops = kLoops;
    asm volatile(VECTOR_FILL VECTOR_SEVEN("mulps") TURN : "+r"(loops) : : VECTOR_CLOBBERED);
}

// The product stands in edx:eax; the move makes each independent of the one before.
void products() {
    int loops = kLoops;
    asm volatile("1:\n"
                 "movl %1, %%eax\n mull %1\n movl %1, %%eax\n mull %1\n movl %1, %%eax\n mull %1\n"
                 "movl %1, %%eax\n mull %1\n movl %1, %%eax\n mull %1\n movl %1, %%eax\n mull %1\n"
                 "movl %1, %%eax\n mull %1\n" TURN
                 : "+r"(loops)
                 : "r"(0x9e3779b9u)
                 : "eax", "edx", "cc");
}

void dependent_additions() {
    int loops = kLoops, sum = 0;
    asm volatile("1:\n"
                 "addl %2, %1\n addl %2, %1\n addl %2, %1\n addl %2, %1\n addl %2, %1\n"
                 "addl %2, %1\n addl %2, %1\n" TURN
                 : "+r"(loops), "+r"(sum)
                 : "r"(3)
                 : "cc");
}

constexpr double kWork = 7.0 * kLoops; // every loop above has seven operations a turn

// Past the caches of the machines in use, so that it is the memory that is measured.
constexpr size_t kBlock = size_t{64} << 20;

Probe copy_probe() {
    const std::shared_ptr<char[]> source(new char[kBlock]), destination(new char[kBlock]);
    std::memset(source.get(), 1, kBlock); // pages of its own, not the zero page
    std::memset(destination.get(), 2, kBlock);
    // The C library's own copy: the compiler would write a known size as one string instruction.
    void* (*volatile const copy)(void*, const void*, size_t) = std::memcpy;
    return {"memory copy", 2.0 * kBlock, [=] { copy(destination.get(), source.get(), kBlock); }};
}

} // namespace

std::vector<Probe> probes_of(Limit limit) {
    switch (limit) {
    case Limit::x87:
        return {{"x87 additions", kWork, x87_additions},
                {"x87 multiplications", kWork, x87_multiplications},
                {"x87 additions and multiplications by turns", kWork, x87_by_turns}};
    case Limit::vector:
        return {{"4-wide additions", kWork, vector_additions},
                {"4-wide multiplications", kWork, vector_multiplications}};
    case Limit::copy:
        return {copy_probe()};
    case Limit::product32:
        return {{"32 by 32 bit products", kWork, products}};
    case Limit::none:
        break;
    }
    return {};
}

double limit_rate(Limit limit, const std::vector<double>& probe_rates) {
    if (probe_rates.empty()) return 0;
    if (limit == Limit::vector)
        return 4 * std::accumulate(probe_rates.begin(), probe_rates.end(), 0.0);
    return *std::max_element(probe_rates.begin(), probe_rates.end());
}

Probe clock_probe() {
    return {"processor clock", kWork, dependent_additions};
}

const char* unit_of(Limit limit) {
    switch (limit) {
    case Limit::x87:
    case Limit::vector:
        return "Gop/s";
    case Limit::copy:
        return "GB/s";
    case Limit::product32:
        return "Gprod/s";
    case Limit::none:
        break;
    }
    return "";
}

const char* name_of(Limit limit) {
    switch (limit) {
    case Limit::x87:
        return "x87";
    case Limit::vector:
        return "4-wide";
    case Limit::copy:
        return "copy";
    case Limit::product32:
        return "product";
    case Limit::none:
        break;
    }
    return "none";
}

} // namespace vor::bench
