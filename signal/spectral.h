// A real FFT object with its work size, and blocks of memory, for the length of one call.
#pragma once

#include "signal/routines.h"

#include <limits.h>
#include <stdint.h>

namespace vor::signal {

// Memory of one call, null inside if it cannot be had or nothing is asked for.
template <class R>
class Block {
public:
    explicit Block(int64_t count)
        : memory_(count > 0 && count <= static_cast<int64_t>(INT_MAX / sizeof(R))
                      ? Routines<R>::allocate(static_cast<int>(count))
                      : nullptr) {}
    ~Block() { tavsFree(memory_); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    R* get() const { return memory_; }

private:
    R* memory_;
};

// Transforms of N = 2^order reals, the inverse divided by N.
template <class R>
class RealFft {
public:
    explicit RealFft(int order) : n_(1 << order) {
        status_ = Routines<R>::build(&object_, order, TAV_FFT_DIV_INV_BY_N, 0);
        if (status_ == tavStsNoErr) status_ = Routines<R>::buffer_size(object_, &bytes_);
    }
    ~RealFft() {
        if (object_) Routines<R>::release(object_);
    }
    RealFft(const RealFft&) = delete;
    RealFft& operator=(const RealFft&) = delete;

    TavStatus status() const { return status_; }
    const FftCtx* object() const { return object_; }
    int n() const { return n_; }
    int work_bytes() const { return bytes_; }
    int work_elements() const { return static_cast<int>((bytes_ + sizeof(R) - 1) / sizeof(R)); }

private:
    int n_;
    FftCtx* object_ = nullptr;
    int bytes_ = 0;
    TavStatus status_;
};

// x, count elements, padded with zeros to n.
template <class R>
void copy_padded(const R* x, int count, R* out, int n) {
    Routines<R>::copy(x, out, count);
    if (n > count) Routines<R>::zero(out + count, n - count);
}

// The least order whose power of two is at least `points`, not below `least`; 31 if there is none.
constexpr int order_of(int64_t points, int least) {
    int order = least;
    while (order < 31 && int64_t{1} << order < points) ++order;
    return order;
}

} // namespace vor::signal
