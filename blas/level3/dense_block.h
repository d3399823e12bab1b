// The dense square temporary of the routines that store one triangle.
#pragma once

#include "arith/element.h"
#include "serv/memory.h"

namespace vor::blas {

// The side of a diagonal block: a temporary of that size stays in the second-level cache.
inline constexpr int kDenseBlock = 128;
// What is used when that temporary cannot be had, and where a small one will do: fits any stack.
inline constexpr int kSmallBlock = 16;

template <class T>
class DenseBlock {
public:
    DenseBlock() : scratch_(kDenseBlock * kDenseBlock) {}
    int size() const { return scratch_ ? kDenseBlock : kSmallBlock; }
    T* data() { return scratch_ ? scratch_.get() : small_; }

private:
    Scratch<T> scratch_;
    T small_[kSmallBlock * kSmallBlock];
};

// What stands on the other side of the diagonal.
template <bool Hermitian, class T>
constexpr T mirrored(T x) {
    return Hermitian ? conjugated(x) : x;
}

} // namespace vor::blas
