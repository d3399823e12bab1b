// The peer of the transforms: a plan of the FFTW library, if its shared object is installed.
#pragma once

#include "arith/element.h"
#include "bench/common/suite.h"

#include <memory>
#include <stdexcept>
#include <vector>

namespace vor::bench {

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
            return [=, keep = x] { execute(planned); };
        } catch (const std::runtime_error&) {
            return {};
        }
    };
    return {.name = "fftw", .bind = bind};
}

} // namespace vor::bench
