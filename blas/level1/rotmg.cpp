// rotmg: the modified plane rotation H that takes (sqrt(d1)*x1, sqrt(d2)*y1) to a vector whose second
// part is 0, with new d1, d2 and x1. param as in rotm.
//
// d1 < 0, or a construction that would give a negative d: H, d1, d2 and x1 become 0, flag -1.
// d2*y1 = 0: flag -2, nothing else is written.
// (Lawson, Hanson, Kincaid, Krogh, ACM TOMS 5 (1979) 308-323.)
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

// d1 and d2 are kept between gamsq and its reciprocal. The reciprocals are the decimal values of the
// published routines, which are not the exact ones.
template <class T>
struct Bounds;
template <>
struct Bounds<float> {
    static constexpr float kGam = 4096, kGamsq = 16777216;
    static constexpr float kInverseGam = 0.000244141f, kInverseGamsq = 5.9604645e-08f;
};
template <>
struct Bounds<double> {
    static constexpr double kGam = 4096, kGamsq = 16777216;
    static constexpr double kInverseGam = 0.000244140625, kInverseGamsq = 5.960464477539e-08;
};

enum Flag { kFull = -1, kUnitDiagonal = 0, kUnitAntidiagonal = 1, kIdentity = -2 };

template <class W>
struct Rotation {
    Flag flag;
    W h11, h21, h12, h22;

    void make_explicit() {
        if (flag == kUnitDiagonal) h11 = h22 = 1;
        if (flag == kUnitAntidiagonal) h21 = -1, h12 = 1;
        flag = kFull;
    }
};

// Brings abs(d) between its bounds, scaling what belongs to it: row (h_1, h_2) of H and x. A d of 0
// stays; so does an infinite one, which no scaling brings back.
template <class T, class W>
void rescale(Rotation<W>& h, W& d, W& h_1, W& h_2, W& x) {
    using B = Bounds<T>;
    const auto scale = [&](W factor, W row_factor) {
        h.make_explicit();
        d *= factor;
        x *= row_factor;
        h_1 *= row_factor;
        h_2 *= row_factor;
    };
    const auto size = [&] { return d < 0 ? -d : d; };
    while (d != 0 && size() <= B::kInverseGamsq) scale(B::kGamsq, B::kInverseGam);
    while (size() >= B::kGamsq && !__builtin_isinf(d)) scale(B::kInverseGamsq, B::kGam);
}

template <class T, class W>
void store_rotation(const Rotation<W>& h, T* param) {
    if (h.flag != kUnitDiagonal) {
        param[1] = static_cast<T>(h.h11);
        param[4] = static_cast<T>(h.h22);
    }
    if (h.flag != kUnitAntidiagonal) {
        param[2] = static_cast<T>(h.h21);
        param[3] = static_cast<T>(h.h12);
    }
    param[0] = static_cast<T>(h.flag);
}

template <class T>
void rotmg(T* d1_, T* d2_, T* x1_, const T* y1_, T* param) {
    using W = work_real_t<T>;
    W d1 = *d1_, d2 = *d2_, x1 = *x1_;
    const W y1 = *y1_;
    const auto give_up = [&] {
        store_rotation<T, W>({kFull, 0, 0, 0, 0}, param);
        *d1_ = *d2_ = *x1_ = 0;
    };
    if (d1 < 0) return give_up();
    const W p2 = d2 * y1;
    if (p2 == 0) {
        param[0] = kIdentity;
        return;
    }
    const W p1 = d1 * x1, q2 = p2 * y1, q1 = p1 * x1;
    Rotation<W> h{};
    if ((q1 < 0 ? -q1 : q1) > (q2 < 0 ? -q2 : q2)) {
        h = {kUnitDiagonal, 0, -y1 / x1, p2 / p1, 0};
        const W u = 1 - h.h12 * h.h21;
        d1 /= u, d2 /= u, x1 *= u;
    } else if (q2 < 0) {
        return give_up();
    } else {
        h = {kUnitAntidiagonal, p1 / p2, 0, 0, x1 / y1};
        const W u = 1 + h.h11 * h.h22;
        const W old_d1 = d1;
        d1 = d2 / u, d2 = old_d1 / u, x1 = y1 * u;
    }
    W no_x = 0; // nothing but its row of H goes with d2
    rescale<T>(h, d1, h.h11, h.h12, x1);
    rescale<T>(h, d2, h.h21, h.h22, no_x);
    store_rotation(h, param);
    *d1_ = static_cast<T>(d1), *d2_ = static_cast<T>(d2), *x1_ = static_cast<T>(x1);
}

} // namespace

#define ROTMG(name, NAME, engine, T)                                                               \
    LEVEL1(void, name, NAME, engine, PARAMS_ROTMG(T), ARGS_ROTMG, rotmg(d1, d2, x1, y1, param))
ROTMG(srotmg, SROTMG, vor_blas_srotmg, float)
ROTMG(drotmg, DROTMG, vor_blas_drotmg, double)

} // namespace vor::blas
