// The peer of the transforms: a plan of the FFTW library, if its shared object is installed.
#pragma once

#include "arith/element.h"
#include "bench/common/suite.h"

#include <memory>
#include <stdexcept>
#include <vector>

namespace vor::bench {

// The peer's AVX code leaves the upper halves of the vector registers dirty, which slows the SSE code that
// is timed after it.
inline void clear_upper_halves() {
    static const bool kAvx = __builtin_cpu_supports("avx");
    if (kAvx)
        asm volatile("vzeroupper" ::
                         : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7");
}

// A forward transform of n complex values out of place, planned by measurement.
template <class T>
Rival fftw_rival(int n) {
    constexpr bool kSingle = sizeof(real_t<T>) == 4;
    const auto bind = [n](const Library&) -> Call {
        using Plan = void*(int, T*, T*, int, unsigned);
        using Execute = void(void*);
        const std::string prefix = kSingle ? "fftwf_" : "fftw_";
        try {
            const Library peer = other_library(kSingle ? "libfftw3f.so.3" : "libfftw3.so.3");
            auto* const plan = peer.function<Plan>((prefix + "plan_dft_1d").c_str());
            auto* const execute = peer.function<Execute>((prefix + "execute").c_str());
            if (!plan || !execute) return {};
            const auto x = std::make_shared<std::vector<T>>(2 * size_t(n));
            void* const planned = plan(n, x->data(), x->data() + n, -1, 0);
            return [=, keep = x] {
                execute(planned);
                clear_upper_halves();
            };
        } catch (const std::runtime_error&) {
            return {};
        }
    };
    return {.name = "fftw", .bind = bind};
}

} // namespace vor::bench
