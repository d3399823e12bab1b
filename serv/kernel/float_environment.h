// The words of a thread that decide how it rounds: the x87 control word and the MXCSR.
#pragma once

#include <xmmintrin.h>

namespace vor {
inline namespace serv {

struct FloatEnvironment {
    unsigned short control;
    unsigned mxcsr;

    static FloatEnvironment current() {
        FloatEnvironment words;
        asm volatile("fnstcw %0" : "=m"(words.control));
        words.mxcsr = _mm_getcsr();
        return words;
    }
    // Takes over rounding, precision, masks and flush-to-zero. The sticky exception flags of the thread
    // stay, as far as no unmasked one is among them.
    void set() const {
        constexpr unsigned kFlags = 0x3f;
        asm volatile("fldcw %0" : : "m"(control));
        _mm_setcsr((mxcsr & ~kFlags) | (_mm_getcsr() & kFlags));
    }
};

// The x87 control word that exact code needs, for one scope: 64 bits of significand, rounding to the
// nearest, exceptions masked. The caller's comes back at the end.
class ExactScope {
public:
    ExactScope() {
        const unsigned short exact = 0x37f;
        asm volatile("fnstcw %0" : "=m"(callers_));
        asm volatile("fldcw %0" : : "m"(exact));
    }
    ~ExactScope() {
        asm volatile("fnclex"); // an exception of the scope is not the caller's
        asm volatile("fldcw %0" : : "m"(callers_));
    }
    ExactScope(const ExactScope&) = delete;
    ExactScope& operator=(const ExactScope&) = delete;

private:
    unsigned short callers_;
};

} // namespace serv
} // namespace vor
