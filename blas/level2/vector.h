// A vector of a call: its first element and the step to the next. A step of 1 is a type of its own,
// so that a loop is compiled once for neighbours and once for any step.
#pragma once

#include "blas/level2/number.h"

namespace vor {

struct Unit {
    constexpr operator int() const { return 1; }
};

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

// Element 0 of n: with a negative step it lies at the far end of the array.
template <class T>
T* start(T* x, int n, int inc) {
    return inc > 0 ? x : x - (n - 1) * inc;
}

// f(x, y) or f(x) on the vectors of the call.
template <class T, class F>
void on_vector(int n, T* x, int incx, F f) {
    if (incx == 1) return f(Vector<T, Unit>{x, {}});
    f(Vector<T, int>{start(x, n, incx), incx});
}
template <class T, class U, class F>
void on_vectors(int nx, T* x, int incx, int ny, U* y, int incy, F f) {
    if (incx == 1 && incy == 1) return f(Vector<T, Unit>{x, {}}, Vector<U, Unit>{y, {}});
    f(Vector<T, int>{start(x, nx, incx), incx}, Vector<U, int>{start(y, ny, incy), incy});
}

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

} // namespace vor
