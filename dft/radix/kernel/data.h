// How the points of a transform stand in memory, and in which portions kernels take them.
//
// A form offers element j by get(j) and set(j, x), a portion of kStep elements from j on by load(j) and
// store(j, x), and itself from element j on by from(j). Nothing needs alignment.
#pragma once

#include "arith/lanes.h"

namespace vor::dfti::radix {

// Interleaved: real part, imaginary part. Double precision goes one number at a time (x87), single
// precision by four.
template <class R>
struct Pairs;
// Real and imaginary parts in arrays of their own.
template <class R>
struct Split;

template <>
struct Pairs<double> {
    using Real = double;
    using Number = cdouble;
    static constexpr int kStep = 1;
    cdouble* x;

    // By parts: a copy of the whole would be made of words, which a load of the parts has to wait for.
    cdouble get(int j) const { return {x[j].re, x[j].im}; }
    void set(int j, cdouble v) const { x[j] = v; }
    cdouble load(int j) const { return get(j); }
    void store(int j, cdouble v) const { set(j, v); }
    Pairs from(int j) const { return {x + j}; }
    double* re() const { return &x->re; }
    double* im() const { return &x->im; }
};

template <>
struct Split<double> {
    using Real = double;
    using Number = cdouble;
    static constexpr int kStep = 1;
    double *x, *y;

    cdouble get(int j) const { return {x[j], y[j]}; }
    void set(int j, cdouble v) const {
        x[j] = v.re;
        y[j] = v.im;
    }
    cdouble load(int j) const { return get(j); }
    void store(int j, cdouble v) const { set(j, v); }
    Split from(int j) const { return {x + j, y + j}; }
    double* re() const { return x; }
    double* im() const { return y; }
};

// Four rows of four by columns.
inline void transpose(__m128& a, __m128& b, __m128& c, __m128& d) {
    const __m128 ab = _mm_unpacklo_ps(a, b), cd = _mm_unpacklo_ps(c, d);
    const __m128 ef = _mm_unpackhi_ps(a, b), gh = _mm_unpackhi_ps(c, d);
    a = _mm_movelh_ps(ab, cd);
    b = _mm_movehl_ps(cd, ab);
    c = _mm_movelh_ps(ef, gh);
    d = _mm_movehl_ps(gh, ef);
}
inline void transpose(Four (&x)[4]) {
    transpose(x[0].re, x[1].re, x[2].re, x[3].re);
    transpose(x[0].im, x[1].im, x[2].im, x[3].im);
}

// A block of sixteen: lane b of x[i] is element 4b + i.
template <class Form>
void load_block(Form data, Four (&x)[4]) {
#pragma GCC unroll 4
    for (int i = 0; i < 4; ++i) x[i] = data.load(4 * i);
    transpose(x);
}
template <class Form>
void store_block(Form data, Four (&x)[4]) {
    transpose(x);
#pragma GCC unroll 4
    for (int i = 0; i < 4; ++i) data.store(4 * i, x[i]);
}

template <>
struct Pairs<float> {
    using Real = float;
    using Number = Four;
    static constexpr int kStep = 4;
    cfloat* x;

    cfloat get(int j) const { return x[j]; }
    void set(int j, cfloat v) const { x[j] = v; }
    Four load(int j) const { return Interleaved::load(&x[j].re); }
    void store(int j, Four v) const { Interleaved::store(&x[j].re, v); }
    Pairs from(int j) const { return {x + j}; }
    float* re() const { return &x->re; }
};

// The parts of four interleaved numbers.
inline Four parts(__m128 low, __m128 high) {
    return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
            _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
}

// Elements 0 to 3 of blocks b and b + 1 of four, by number: one of either block to a register.
inline void load_pair(Pairs<float> data, int b, __m128 (&x)[4]) {
    const float *const p = data.re() + 8 * b, *const q = p + 8;
#pragma GCC unroll 2
    for (int i = 0; i < 4; i += 2) {
        const __m128 a = _mm_loadu_ps(p + 2 * i), c = _mm_loadu_ps(q + 2 * i);
        x[i] = _mm_movelh_ps(a, c);
        x[i + 1] = _mm_movehl_ps(c, a);
    }
}
inline void store_pair(Pairs<float> data, int b, const __m128 (&x)[4]) {
    float *const p = data.re() + 8 * b, *const q = p + 8;
#pragma GCC unroll 2
    for (int i = 0; i < 4; i += 2) {
        _mm_storeu_ps(p + 2 * i, _mm_movelh_ps(x[i], x[i + 1]));
        _mm_storeu_ps(q + 2 * i, _mm_movehl_ps(x[i + 1], x[i]));
    }
}

template <>
struct Split<float> {
    using Real = float;
    using Number = Four;
    static constexpr int kStep = 4;
    float *x, *y;

    cfloat get(int j) const { return {x[j], y[j]}; }
    void set(int j, cfloat v) const {
        x[j] = v.re;
        y[j] = v.im;
    }
    Four load(int j) const { return {_mm_loadu_ps(x + j), _mm_loadu_ps(y + j)}; }
    void store(int j, Four v) const {
        _mm_storeu_ps(x + j, v.re);
        _mm_storeu_ps(y + j, v.im);
    }
    Split from(int j) const { return {x + j, y + j}; }
};
inline void load_pair(Split<float> data, int b, __m128 (&x)[4]) {
    const Four p = data.load(4 * b), q = data.load(4 * b + 4);
    const __m128 a = _mm_unpacklo_ps(p.re, p.im), c = _mm_unpacklo_ps(q.re, q.im);
    x[0] = _mm_movelh_ps(a, c);
    x[1] = _mm_movehl_ps(c, a);
    const __m128 d = _mm_unpackhi_ps(p.re, p.im), e = _mm_unpackhi_ps(q.re, q.im);
    x[2] = _mm_movelh_ps(d, e);
    x[3] = _mm_movehl_ps(e, d);
}
inline void store_pair(Split<float> data, int b, const __m128 (&x)[4]) {
    data.store(4 * b, parts(_mm_movelh_ps(x[0], x[1]), _mm_movelh_ps(x[2], x[3])));
    data.store(4 * b + 4, parts(_mm_movehl_ps(x[1], x[0]), _mm_movehl_ps(x[3], x[2])));
}

// Interleaved points whose order is reversed: blocks of sixteen are read from, or written to, the places where
// bit reversal takes them.
struct Reversed {
    using Real = float;
    using Number = Four;
    static constexpr int kStep = 4;
    cfloat* x;
    int n;
    const int* reverses; // of four times the number of a block; not read for the first
    int first = 0;

    Reversed from(int j) const { return {x, n, reverses, first + j}; }
    // Element i of block b (0 or 2) of four; that of block b + 1 stands n/8 behind it.
    __m64* place(int b, int i) const {
        constexpr int kReverse[] = {0, 2, 1, 3};
        const int sixteen = first ? reverses[first / 16] / 4 : 0;
        return as_bits(x + sixteen + kReverse[i] * (n / 4) + b / 2 * (n / 16));
    }
    static __m64* as_bits(cfloat* p) { return reinterpret_cast<__m64*>(p); }
};
inline void load_pair(Reversed data, int b, __m128 (&x)[4]) {
#pragma GCC unroll 4
    for (int i = 0; i < 4; ++i) {
        const __m64* const p = data.place(b, i);
        x[i] = _mm_loadh_pi(_mm_loadl_pi(_mm_setzero_ps(), p), p + data.n / 8);
    }
}
inline void store_pair(Reversed data, int b, const __m128 (&x)[4]) {
#pragma GCC unroll 4
    for (int i = 0; i < 4; ++i) {
        __m64* const p = data.place(b, i);
        _mm_storel_pi(p, x[i]);
        _mm_storeh_pi(p + data.n / 8, x[i]);
    }
}
// Between the passes interleaved single-precision data stand in four-lane form: four real parts, then
// four imaginary parts.
struct InLanes {
    using Real = float;
    using Number = Four;
    static constexpr int kStep = 4;
    float* x;

    Four load(int j) const { return LanesAnywhere::load(x + 2 * j); }
    void store(int j, Four v) const { LanesAnywhere::store(x + 2 * j, v); }
    InLanes from(int j) const { return {x + 2 * j}; }
};

template <class Form>
Form in_flight(Form data) {
    return data;
}
inline InLanes in_flight(Pairs<float> data) {
    return {&data.x->re};
}
template <class Form>
using Flight = decltype(in_flight(Form()));

// One element at a time, for transforms of fewer than sixteen points.
template <class Form>
struct Singly {
    using Real = typename Form::Real;
    using Number = complex_t<Real>;
    static constexpr int kStep = 1;
    Form data;

    Number load(int j) const { return data.get(j); }
    void store(int j, Number v) const { data.set(j, v); }
    Singly from(int j) const { return {data.from(j)}; }
};

// What is stored is multiplied first: the scale of the last sweep.
template <class Form>
struct Scaled {
    using Real = typename Form::Real;
    using Number = typename Form::Number;
    static constexpr int kStep = Form::kStep;
    Form data;
    Real factor;

    void store(int j, Number v) const { data.store(j, factor * v); }
    Scaled from(int j) const { return {data.from(j), factor}; }
};

template <class Form>
Scaled<Form> scaled(Form data, typename Form::Real factor) {
    return {data, factor};
}
template <class Form>
Singly<Form> singly(Form data) {
    return {data};
}
template <class Form>
Scaled<Singly<Form>> singly(Scaled<Form> data) {
    return {{data.data}, data.factor};
}

} // namespace vor::dfti::radix
