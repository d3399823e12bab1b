// Calls library functions as the least careful caller does, with a stack that is aligned to 4 bytes
// only, and checks what every function has to leave alone: the control words and the x87 stack.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

namespace vor::test {

// What the floating-point units hold: the layout of the processor's own report, then MXCSR.
struct UnitState {
    uint32_t x87_control, x87_status, x87_tags, x87_pointers[4];
    uint32_t mxcsr;
};

// Calls `function` with `count` argument words and a stack pointer that is `shift` bytes (0, 4, 8, 12)
// from a 16-byte boundary; gives back what it gives back, in the same registers.
extern "C" void vor_test_call(const void* function, const uint32_t* words, int count, int shift,
                              UnitState* after);

// One argument of parameter type P: passed as it is or, where the routine takes a reference and the
// caller has a value, by the address of a copy (for void*, of the value itself).
template <class P, class A>
class Argument {
    static constexpr bool kAsItIs = std::is_convertible_v<A, P>;
    using Pointed = std::remove_const_t<std::remove_pointer_t<P>>;
    using Held =
        std::conditional_t<kAsItIs, P, std::conditional_t<std::is_void_v<Pointed>, A, Pointed>>;
    Held held_;

public:
    explicit Argument(A a) : held_(static_cast<Held>(a)) {}
    std::vector<uint32_t> words() const {
        if constexpr (kAsItIs) {
            std::vector<uint32_t> w((sizeof held_ + 3) / 4);
            std::memcpy(w.data(), &held_, sizeof held_);
            return w;
        } else {
            return {static_cast<uint32_t>(reinterpret_cast<uintptr_t>(&held_))};
        }
    }
};

template <class R, class... P>
R call_words(R (*)(P...), const void* function,
             std::initializer_list<std::vector<uint32_t>> parts) {
    static int shift = 0;
    shift = (shift + 4) % 16;
    std::vector<uint32_t> words;
    for (const auto& part : parts) words.insert(words.end(), part.begin(), part.end());
    UnitState before, after;
    asm volatile("fnstenv %0\n\tfldenv %0\n\tstmxcsr %1" : "=m"(before), "=m"(before.mxcsr));
    const auto check = [&] {
        const uint32_t result_slot = std::is_floating_point_v<R> ? 0xc000 : 0;
        EXPECT_EQ(before.x87_control & 0xffff, after.x87_control & 0xffff) << "x87 control word";
        EXPECT_EQ((after.x87_tags & 0xffff) | result_slot, 0xffffu) << "x87 stack left in use";
        EXPECT_EQ(before.mxcsr & ~0x3fu, after.mxcsr & ~0x3fu) << "MXCSR";
    };
    using Shifted = R(const void*, const uint32_t*, int, int, UnitState*);
    auto* shifted = reinterpret_cast<Shifted*>(reinterpret_cast<void*>(vor_test_call));
    const int count = static_cast<int>(words.size());
    if constexpr (std::is_void_v<R>) {
        shifted(function, words.data(), count, shift, &after);
        check();
    } else {
        const R result = shifted(function, words.data(), count, shift, &after);
        check();
        return result;
    }
}

// f(a...) on a shifted stack: scalars may be given by value where f takes pointers. The shift changes
// from call to call.
template <class R, class... P, class... A>
R call(R (*f)(P...), A... a) {
    return call_words(f, reinterpret_cast<const void*>(f), {Argument<P, A>(a).words()...});
}

// The same of a function that leaves more than a float or double in st(0).
template <class R, class... P, class... A>
long double call_extended(R (*f)(P...), A... a) {
    return call(reinterpret_cast<long double (*)(P...)>(reinterpret_cast<void*>(f)), a...);
}

} // namespace vor::test
