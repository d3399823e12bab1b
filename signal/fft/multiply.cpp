// Products of spectra of real sequences, element by element, in place on the second:
//   MulPerm      destination := destination * source, both in Perm
//   MulPackConj  destination := source * conj(destination), both in Pack
#include "signal/fft/lanes.h"
#include "signal/fft/real_kernels.h"
#include "vor_signal.h"

namespace {

using namespace vor;
using namespace vor::fft;
using vor::cdouble;
using vor::cfloat;

// x y, or x conj(y).
template <bool conjugate, class C>
inline C product(C x, C y) {
    if constexpr (conjugate)
        return {x.re * y.re + x.im * y.im, x.im * y.re - x.re * y.im};
    else
        return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}

template <bool conjugate, class C>
void multiply_each(const C* x, C* y, int count) {
    for (int i = 0; i < count; ++i) y[i] = product<conjugate>(x[i], y[i]);
}

template <bool conjugate>
void multiply_fours(const cfloat* x, cfloat* y, int count) {
    constexpr int kAhead = 128 / sizeof(cfloat); // of prefetches
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        _mm_prefetch(x + i + kAhead, _MM_HINT_T0);
        _mm_prefetch(y + i + kAhead, _MM_HINT_T0);
        for (int j = i; j < i + 4; j += 2)
            _mm_storeu_ps(&y[j].re, product_of_two<conjugate>(_mm_loadu_ps(&x[j].re),
                                                              _mm_loadu_ps(&y[j].re)));
    }
    multiply_each<conjugate>(x + i, y + i, count - i);
}

void multiply(const cfloat* x, cfloat* y, int count) {
    ownps_Mpy2_32fc(x, y, count);
}
void multiply(const cdouble* x, cdouble* y, int count) {
    multiply_each<false>(x, y, count);
}
void multiply_conjugate(const cfloat* x, cfloat* y, int count) {
    ownps_MpyConj2_32fc(x, y, count);
}
void multiply_conjugate(const cdouble* x, cdouble* y, int count) {
    multiply_each<true>(x, y, count);
}

TavStatus check(const void* source, const void* destination, int length) {
    if (!source || !destination) return tavStsNullPtrErr;
    return length < 1 ? tavStsSizeErr : tavStsNoErr;
}

template <class C, class R>
TavStatus multiply_perm(const R* source, R* destination, int length) {
    if (const TavStatus status = check(source, destination, length)) return status;
    const bool even = length % 2 == 0;
    destination[0] *= source[0];
    if (even) destination[1] *= source[1];
    const int first = even ? 2 : 1;
    multiply(reinterpret_cast<const C*>(source + first), reinterpret_cast<C*>(destination + first),
             (length - first) / 2);
    return tavStsNoErr;
}

template <class C, class R>
TavStatus multiply_pack_conjugate(const R* source, R* destination, int length) {
    if (const TavStatus status = check(source, destination, length)) return status;
    destination[0] *= source[0];
    if (length % 2 == 0) destination[length - 1] *= source[length - 1];
    multiply_conjugate(reinterpret_cast<const C*>(source + 1),
                       reinterpret_cast<C*>(destination + 1), (length - 1) / 2);
    return tavStsNoErr;
}

} // namespace

extern "C" void ownps_Mpy2_32fc(const cfloat* x, cfloat* y, int count) {
    multiply_fours<false>(x, y, count);
}
extern "C" void ownps_MpyConj2_32fc(const cfloat* x, cfloat* y, int count) {
    multiply_fours<true>(x, y, count);
}

#define MULTIPLY(X, R, C)                                                                          \
    extern "C" TavStatus tavsMulPerm_##X##_I(const R* source, R* destination, int length) {        \
        return multiply_perm<C>(source, destination, length);                                      \
    }                                                                                              \
    extern "C" TavStatus tavsMulPackConj_##X##_I(const R* source, R* destination, int length) {    \
        return multiply_pack_conjugate<C>(source, destination, length);                            \
    }
MULTIPLY(32f, float, cfloat)
MULTIPLY(64f, double, cdouble)
