// Vectors with a step: where a walk begins, rounds of a loop, distances to a boundary of memory.
#pragma once

#include "arith/element.h"

#include <stdint.h>

namespace vor {
inline namespace arith {

// Element 0 of n: with a negative step it lies at the far end of the array.
template <class T>
inline T* walk_start(T* x, int n, int inc) {
    return inc < 0 ? x + (1 - n) * inc : x;
}

// A step of 1 is a type of its own, so that a loop is compiled once for neighbours and once for any
// step.
struct Unit {
    constexpr operator int() const { return 1; }
};

// A vector of a call: its element 0 and the step to the next.
template <class T, class Step>
struct Vector {
    using Element = std::remove_const_t<T>;
    T* first;
    [[no_unique_address]] Step step;

    T& operator[](int i) const { return first[i * step]; }
    // The vector from element i on.
    Vector from(int i) const { return {first + i * step, step}; }
};

// The same vector for reading.
template <class T, class Step>
Vector<const T, Step> read_only(Vector<T, Step> x) {
    return {x.first, x.step};
}

// f(x) or f(x, y) on the vectors of a call.
template <class T, class F>
void on_vector(int n, T* x, int incx, F f) {
    if (incx == 1) return f(Vector<T, Unit>{x, {}});
    f(Vector<T, int>{walk_start(x, n, incx), incx});
}
template <class T, class U, class F>
void on_vectors(int nx, T* x, int incx, int ny, U* y, int incy, F f) {
    if (incx == 1 && incy == 1) return f(Vector<T, Unit>{x, {}}, Vector<U, Unit>{y, {}});
    f(Vector<T, int>{walk_start(x, nx, incx), incx}, Vector<U, int>{walk_start(y, ny, incy), incy});
}

// Runs step() n times, Group times in a round, and ahead() at the start of each full round.
template <int Group, class Ahead, class Step>
[[gnu::always_inline]] inline void in_rounds(int n, Ahead ahead, Step step) {
    for (; n >= Group; n -= Group) {
        ahead();
#pragma GCC unroll 8
        for (int i = 0; i < Group; ++i) step();
    }
    for (; n > 0; --n) step();
}

// Steps of whole elements from p to the next multiple of Boundary bytes, but not more than n;
// -1 if such steps never get there.
template <int Boundary, class T>
inline int steps_to(const T* p, int n) {
    const unsigned gap = -reinterpret_cast<uintptr_t>(p) % Boundary;
    if (gap % sizeof(T) != 0) return -1;
    const int steps = static_cast<int>(gap / sizeof(T));
    return steps < n ? steps : n;
}

} // namespace arith
} // namespace vor
