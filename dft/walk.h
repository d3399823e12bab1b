// Walks over the index tuples of some dimensions, and the shares of a dimension that a team divides.
#pragma once

#include "dft/record.h"
#include "serv/team.h"

namespace vor::dfti {

// Part i of `total` elements cut into `parts` equal chunks, the last ones shorter or empty.
struct Share {
    int first, count;

    explicit Share(int total) : first(0), count(total) {}
    Share(int total, int parts, int i) {
        const int chunk = (total - 1) / parts + 1;
        const long long start = static_cast<long long>(chunk) * i;
        first = start < total ? static_cast<int>(start) : total;
        count = total - first < chunk ? total - first : chunk;
    }
};

// body(share, i) for share i of `total` on each of `threads` threads, i from 0 up. The first failure to
// arrive is the result; the other shares run to their end. An empty share does nothing.
template <class Body>
int in_shares(int total, int threads, Body body) {
    int shared = DFTI_NO_ERROR;
    team_loop(threads, threads, [&](int i) {
        const Share share(total, threads, i);
        const int status = share.count > 0 ? body(share, i) : DFTI_NO_ERROR;
        int none = DFTI_NO_ERROR;
        if (status != DFTI_NO_ERROR)
            __atomic_compare_exchange_n(&shared, &none, status, false, __ATOMIC_RELAXED,
                                        __ATOMIC_RELAXED);
    });
    return shared;
}

// All index tuples of some dimensions, with the offsets of two sides. Offsets wrap as addresses do.
class Tuples {
public:
    void add(int length, int in_step, int out_step) {
        axes_[dimensions_++] = {length, static_cast<unsigned>(in_step),
                                static_cast<unsigned>(out_step)};
    }
    // visit(in offset, out offset) for each tuple, the dimension added first fastest; the first failure
    // ends the walk.
    template <class Visit>
    int walk(Visit visit) const {
        int counters[kMaxDimension] = {};
        unsigned in = 0, out = 0;
        for (;;) {
            if (const int status = visit(static_cast<int>(in), static_cast<int>(out)))
                return status;
            int d = 0;
            for (; d < dimensions_; ++d) {
                in += axes_[d].in_step;
                out += axes_[d].out_step;
                if (++counters[d] < axes_[d].length) break;
                in -= axes_[d].in_step * static_cast<unsigned>(axes_[d].length);
                out -= axes_[d].out_step * static_cast<unsigned>(axes_[d].length);
                counters[d] = 0;
            }
            if (d == dimensions_) return DFTI_NO_ERROR;
        }
    }

private:
    struct Axis {
        int length;
        unsigned in_step, out_step;
    } axes_[kMaxDimension];
    int dimensions_ = 0;
};

// The region of the workspace that belongs to share i.
inline void* workspace_region(const DftiRecord& head, int i) {
    return ahead(static_cast<char*>(head.workspace), i, head.max_buffer_size);
}

} // namespace vor::dfti
