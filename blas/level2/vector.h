// The vectors of a Level 2 call.
#pragma once

#include "arith/number.h"
#include "arith/walk.h"

namespace vor::blas {

// y := beta * y; a beta of 0 stores without reading, one of 1 leaves y alone.
template <class T>
void scale(int n, T beta, T* y, int incy) {
    if (is_one(beta)) return;
    on_vector(n, y, incy, [&](auto v) {
        if (is_zero(beta))
            for (int i = 0; i < n; ++i) v[i] = T{};
        else
            for (int i = 0; i < n; ++i)
                v[i] = element<T>(number<work_t<T>>(beta) * number<work_t<T>>(v[i]));
    });
}

} // namespace vor::blas
