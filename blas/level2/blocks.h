// A triangle in blocks: the diagonal blocks one after the other, and beside each of them a rectangle
// that goes to the matrix-vector product.
#pragma once

#include "blas/level2/gemv_engine.h"
#include "blas/level2/triangular_operator.h"

namespace vor::blas {

// A vector of n elements whose pieces are handed on with their step.
template <class T>
struct Pieces {
    T* first; // element 0
    int inc;

    Pieces(T* x, int n, int step) : first(walk_start(x, n, step)), inc(step) {}
    T* element(int i) const { return first + i * inc; }
    // Elements i to i + count - 1, as a routine takes them: by the lowest address.
    T* piece(int i, int count) const { return element(inc > 0 ? i : i + count - 1); }
};

// f(j, count) on blocks of `size` from either end of n elements; the last one may be shorter.
template <class F>
void in_blocks(int n, int size, bool ascending, F f) {
    for (int done = 0; done < n; done += size) {
        const int count = n - done < size ? n - done : size;
        f(ascending ? done : n - done - count, count);
    }
}

// The letter of op.
template <class A>
constexpr char letter_of() {
    return !A::kTransposed ? 'N' : A::kConjugated ? 'C' : 'T';
}

} // namespace vor::blas
