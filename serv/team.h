// Teams of threads: how many may work, who takes which part, and the loop that runs them.
//
// Threads come only from here: one OpenMP loop with a static schedule, never inside a parallel region.
// A worker computes under the x87 control word and the MXCSR of the caller, so that rounding, precision
// and flush-to-zero are the same in every part, and gets its own words back at the end.
#pragma once

#include "serv/kernel/float_environment.h"
#include "serv/threads.h"

#include <omp.h>

namespace vor {
inline namespace serv {

// The threads that a driver may put to work; at most 1 keeps the call on the calling thread. A call
// from inside a parallel region never forks another.
inline int team_size() {
    if (vor_serv_in_serial() == 1 || omp_in_parallel()) return 1;
    return omp_get_max_threads();
}

// body(i) for i from 0 to chunks - 1, shared out in order over `threads` threads.
template <class Body>
void team_loop(int chunks, int threads, Body body) {
    const FloatEnvironment callers = FloatEnvironment::current();
#pragma omp parallel num_threads(threads)
    {
        const FloatEnvironment own = FloatEnvironment::current();
        callers.set();
#pragma omp for schedule(static) nowait
        for (int i = 0; i < chunks; ++i) body(i);
        own.set();
    }
}

// Part i of a dimension that is cut into `parts`: equal lengths, and the last one takes the remainder.
// With more parts than elements all parts but the last are empty.
struct Strip {
    int offset, length;

    Strip(int dimension, int parts, int i) {
        const int chunk = dimension / parts;
        const int start = chunk * i;                        // at most `dimension`: no overflow
        offset = start < dimension ? start : dimension - 1; // also an empty strip begins inside
        length = i < parts - 1 ? chunk : dimension - start;
    }
};

// The pointer `count` elements behind p. The product wraps like an address does.
template <class T>
T* ahead(T* p, int count, int step = 1) {
    return p + static_cast<unsigned>(count) * static_cast<unsigned>(step);
}

} // namespace serv
} // namespace vor
