// The two processor instructions behind the inquiries and the timers.
#pragma once

#include <cpuid.h>

namespace vor {
inline namespace serv {

struct CpuidWords {
    unsigned eax, ebx, ecx, edx;
};

inline CpuidWords cpuid(unsigned leaf) {
    CpuidWords w;
    __cpuid(leaf, w.eax, w.ebx, w.ecx, w.edx);
    return w;
}

// Ticks of the time-stamp counter since the processor's start. Not ordered against its neighbours.
inline long long time_stamp() {
    return static_cast<long long>(__builtin_ia32_rdtsc());
}

} // namespace serv
} // namespace vor
