// What the threaded Level 3 drivers share: how many threads, and who takes which part.
#pragma once

#include "serv/threads.h"

#include <omp.h>

namespace vor {

// The threads that a driver may put to work; at most 1 keeps the call on the calling thread. A call
// from inside a parallel region never forks another.
inline int team_size() {
    if (vor_serv_in_serial() == 1 || omp_in_parallel()) return 1;
    return omp_get_max_threads();
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

} // namespace vor
