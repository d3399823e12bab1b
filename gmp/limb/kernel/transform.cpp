// The passes of the transforms and their roots.
#include "gmp/limb/kernel/transform.h"

#include <math.h>

namespace vor::limb {

namespace {

using extended = long double;

constexpr extended kTurn = 6.283185307179586476925286766559L;
constexpr int kCached = 1024; // points that stay in the first cache while all their passes are made

struct Root {
    extended re, im;
};

// e^(2 pi i t)
Root root_at(extended t) {
    Root w;
    sincosl(kTurn * t, &w.im, &w.re);
    return w;
}

constexpr Root operator*(Root a, Root b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// The same for 0 <= t <= 1/4 where a constant is formed: the series of e^x.
constexpr Root constant_root(extended t) {
    const Root x{0, kTurn * t};
    Root sum{1, 0}, term{1, 0};
    for (int n = 1; n < 40; ++n) {
        term = term * Root{0, x.im / n};
        sum = {sum.re + term.re, sum.im + term.im};
    }
    return sum;
}

// The roots e^(2 pi i rev(b) / 4), rev(b) the number 0.b of the digits of b to base 4, the last one first.
struct LowRoots {
    static constexpr int kCount = 64;
    Root at[kCount];

    constexpr LowRoots() : at{} {
        for (int b = 0; b < kCount; ++b) {
            extended t = 0, weight = 0.25L;
            for (int digits = b; digits; digits /= 4) {
                weight /= 4;
                t += weight * (digits % 4);
            }
            at[b] = constant_root(t);
        }
    }
};

constexpr LowRoots kLowRoots;

Point rounded(Root w) {
    return {static_cast<double>(w.re), static_cast<double>(w.im)};
}

// ---- Butterflies -----------------------------------------------------------------------------------
//
// Written in the order in which eight registers hold all numbers, so that none is stored but results.
// Left to itself the compiler keeps what it has loaded for a second use, and stores others for it: loads
// and products with memory are instructions that it does not merge.

extended pushed(const double& x) {
    extended value;
    asm volatile("fldl %1" : "=t"(value) : "m"(x));
    return value;
}

extended plus(extended x, const double& y) {
    asm volatile("faddl %1" : "+t"(x) : "m"(y));
    return x;
}

extended minus(extended x, const double& y) {
    asm volatile("fsubl %1" : "+t"(x) : "m"(y));
    return x;
}

extended times(extended x, const double& y) {
    asm volatile("fmull %1" : "+t"(x) : "m"(y));
    return x;
}

// The parts of z w.
extended product_re(const Point& z, const Point& w) {
    extended value;
    asm volatile("fldl %1\n\tfmull %2\n\tfldl %3\n\tfmull %4\n\tfsubrp"
                 : "=t"(value)
                 : "m"(z.re), "m"(w.re), "m"(z.im), "m"(w.im)
                 : "st(7)");
    return value;
}

extended product_im(const Point& z, const Point& w) {
    extended value;
    asm volatile("fldl %1\n\tfmull %2\n\tfldl %3\n\tfmull %4\n\tfaddp"
                 : "=t"(value)
                 : "m"(z.re), "m"(w.im), "m"(z.im), "m"(w.re)
                 : "st(7)");
    return value;
}

// z = (re + i im) conj(w)
[[gnu::always_inline]] inline void put_conjugate_product(Point& z, extended re, extended im,
                                                         const Point& w) {
    z.re = static_cast<double>(times(re, w.re) + times(im, w.im));
    z.im = static_cast<double>(times(im, w.re) - times(re, w.im));
}

// (z0, z1) = (z0 + w z1, z0 - w z1)
[[gnu::always_inline]] inline void split_2(Point& z0, Point& z1, const Point& w) {
    const extended re = product_re(z1, w), im = product_im(z1, w), z0_re = pushed(z0.re);
    z1.re = static_cast<double>(z0_re - re);
    z0.re = static_cast<double>(z0_re + re);
    const extended z0_im = pushed(z0.im);
    z1.im = static_cast<double>(z0_im - im);
    z0.im = static_cast<double>(z0_im + im);
}

// The inverse of split_2, times 2.
[[gnu::always_inline]] inline void join_2(Point& z0, Point& z1, const Point& w) {
    const extended re = minus(pushed(z0.re), z1.re), im = minus(pushed(z0.im), z1.im);
    z0.re = static_cast<double>(plus(pushed(z0.re), z1.re));
    z0.im = static_cast<double>(plus(pushed(z0.im), z1.im));
    put_conjugate_product(z1, re, im, w);
}

// z_k = sum over j of z_j w^j i^(j k), with the roots w, w^2, w^3
[[gnu::always_inline]] inline void split_4(Point& z0, Point& z1, Point& z2, Point& z3,
                                           const Point* w) {
    const extended r1 = product_re(z1, w[0]), r3 = product_re(z3, w[2]);
    const extended s13_re = r1 + r3, d13_re = r1 - r3;
    const extended i1 = product_im(z1, w[0]), i3 = product_im(z3, w[2]);
    const extended s13_im = i1 + i3, d13_im = i1 - i3;
    const extended r2 = product_re(z2, w[1]), i2 = product_im(z2, w[1]);
    const extended z0_re = pushed(z0.re);
    const extended s02_re = z0_re + r2, d02_re = z0_re - r2;
    z0.re = static_cast<double>(s02_re + s13_re);
    z2.re = static_cast<double>(s02_re - s13_re);
    z1.re = static_cast<double>(d02_re - d13_im);
    z3.re = static_cast<double>(d02_re + d13_im);
    const extended z0_im = pushed(z0.im);
    const extended s02_im = z0_im + i2, d02_im = z0_im - i2;
    z0.im = static_cast<double>(s02_im + s13_im);
    z2.im = static_cast<double>(s02_im - s13_im);
    z1.im = static_cast<double>(d02_im + d13_re);
    z3.im = static_cast<double>(d02_im - d13_re);
}

// The inverse of split_4, times 4.
[[gnu::always_inline]] inline void join_4(Point& z0, Point& z1, Point& z2, Point& z3,
                                          const Point* w) {
    const extended z1_re = pushed(z1.re), z3_re = pushed(z3.re);
    const extended s13_re = z1_re + z3_re, d13_re = z1_re - z3_re;
    const extended z1_im = pushed(z1.im), z3_im = pushed(z3.im);
    const extended s13_im = z1_im + z3_im, d13_im = z1_im - z3_im;
    const extended d02_re = minus(pushed(z0.re), z2.re);
    const extended u1_re = d02_re + d13_im, u3_re = d02_re - d13_im;
    const extended d02_im = minus(pushed(z0.im), z2.im);
    const extended u1_im = d02_im - d13_re, u3_im = d02_im + d13_re;
    put_conjugate_product(z1, u1_re, u1_im, w[0]);
    put_conjugate_product(z3, u3_re, u3_im, w[2]);
    const extended s02_re = plus(pushed(z0.re), z2.re), s02_im = plus(pushed(z0.im), z2.im);
    z0.re = static_cast<double>(s02_re + s13_re);
    z0.im = static_cast<double>(s02_im + s13_im);
    put_conjugate_product(z2, s02_re - s13_re, s02_im - s13_im, w[1]);
}

constexpr double kHalf = 0.5;
constexpr extended kSine60 = 0.866025403784438646763723170752936L;

// z_k = sum over j of z_j w^j e^(2 pi i j k / 3), with the roots w, w^2
[[gnu::always_inline]] inline void split_3(Point& z0, Point& z1, Point& z2, const Point* w) {
    const extended r1 = product_re(z1, w[0]), r2 = product_re(z2, w[1]);
    const extended s_re = r1 + r2, d_re = (r1 - r2) * kSine60;
    const extended i1 = product_im(z1, w[0]), i2 = product_im(z2, w[1]);
    const extended s_im = i1 + i2, d_im = (i1 - i2) * kSine60;
    const extended z0_re = pushed(z0.re), t_re = z0_re - times(s_re, kHalf);
    z0.re = static_cast<double>(z0_re + s_re);
    z1.re = static_cast<double>(t_re - d_im);
    z2.re = static_cast<double>(t_re + d_im);
    const extended z0_im = pushed(z0.im), t_im = z0_im - times(s_im, kHalf);
    z0.im = static_cast<double>(z0_im + s_im);
    z1.im = static_cast<double>(t_im + d_re);
    z2.im = static_cast<double>(t_im - d_re);
}

// The inverse of split_3, times 3.
[[gnu::always_inline]] inline void join_3(Point& z0, Point& z1, Point& z2, const Point* w) {
    const extended s_re = plus(pushed(z1.re), z2.re), s_im = plus(pushed(z1.im), z2.im);
    const extended d_re = minus(pushed(z1.re), z2.re) * kSine60;
    const extended d_im = minus(pushed(z1.im), z2.im) * kSine60;
    const extended z0_re = pushed(z0.re), t_re = z0_re - times(s_re, kHalf);
    z0.re = static_cast<double>(z0_re + s_re);
    const extended z0_im = pushed(z0.im), t_im = z0_im - times(s_im, kHalf);
    z0.im = static_cast<double>(z0_im + s_im);
    put_conjugate_product(z1, t_re + d_im, t_im - d_re, w[0]);
    put_conjugate_product(z2, t_re - d_im, t_im + d_re, w[1]);
}

// ---- Passes ----------------------------------------------------------------------------------------

// f(z + j, roots) for the first point of every butterfly of `blocks` blocks of `size` points.
template <class F>
[[gnu::always_inline]] inline void each_block(Point* z, int size, int radix, int blocks,
                                              const Point* w, F f) {
    const int step = size / radix;
    for (; blocks > 0; --blocks, z += size, w += radix - 1)
        for (int j = 0; j < step; ++j) f(z + j, step, w);
}

void split_blocks(Point* z, int size, int radix, int blocks, const Point* w) {
    if (radix == 2)
        return each_block(z, size, 2, blocks, w, [](Point* p, int step, const Point* roots) {
            split_2(p[0], p[step], *roots);
        });
    if (radix == 3)
        return each_block(z, size, 3, blocks, w, [](Point* p, int step, const Point* roots) {
            split_3(p[0], p[step], p[2 * step], roots);
        });
    each_block(z, size, 4, blocks, w, [](Point* p, int step, const Point* roots) {
        split_4(p[0], p[step], p[2 * step], p[3 * step], roots);
    });
}

void join_blocks(Point* z, int size, int radix, int blocks, const Point* w) {
    if (radix == 2)
        return each_block(z, size, 2, blocks, w, [](Point* p, int step, const Point* roots) {
            join_2(p[0], p[step], *roots);
        });
    if (radix == 3)
        return each_block(z, size, 3, blocks, w, [](Point* p, int step, const Point* roots) {
            join_3(p[0], p[step], p[2 * step], roots);
        });
    each_block(z, size, 4, blocks, w, [](Point* p, int step, const Point* roots) {
        join_4(p[0], p[step], p[2 * step], p[3 * step], roots);
    });
}

} // namespace

int Transform::table_size(int m) {
    int points = 0, blocks = 1;
    for (int size = m, radix; size > 1; size /= radix, blocks *= radix) {
        radix = radix_of(size);
        points += blocks * (radix - 1);
    }
    return points;
}

Transform::Transform(int m, Point* table) : m_(m), passes_(0) {
    for (int size = m, blocks = 1; size > 1; ++passes_) {
        const int radix = radix_of(size);
        pass_[passes_] = {radix, blocks, table};
        table = roots_of_pass(passes_, table);
        blocks *= radix;
        size /= radix;
    }
}

// The root of block b of a pass is e^(2 pi i t_b / radix). b is written as b1 c + b0, c a power of 4:
// t_b = rev(b0) + t_b1 / c. So where the passes above have radix 4, a root is the product of one of 64
// constants and of one of blocks / 64 roots, in extended precision.
Point* Transform::roots_of_pass(int pass, Point* table) const {
    const Pass& here = pass_[pass];
    int first = pass, c = 1; // the first pass whose digit belongs to b0
    while (here.radix == 4 && first > 0 && pass_[first - 1].radix == 4 && c < LowRoots::kCount) {
        --first;
        c *= 4;
    }
    for (int b1 = 0; b1 < here.blocks / c; ++b1) {
        extended t = 0.25L;
        for (int i = 0, above = here.blocks / c; i < first; ++i) {
            above /= pass_[i].radix;
            t = (t + b1 / above % pass_[i].radix) / pass_[i].radix;
        }
        const Root high = root_at(t / (c * here.radix));
        for (int b0 = 0; b0 < c; ++b0) {
            const Root w = high * kLowRoots.at[b0];
            Root power = w;
            *table++ = rounded(power);
            for (int j = 2; j < here.radix; ++j) *table++ = rounded(power = power * w);
        }
    }
    return table;
}

// Blocks that do not fit the first cache are finished part after part.
void Transform::forward(Point* z, int m, int pass, int block) const {
    if (m > kCached) {
        const Pass& here = pass_[pass];
        split_blocks(z, m, here.radix, 1, here.roots + block * (here.radix - 1));
        const int part = m / here.radix;
        for (int k = 0; k < here.radix; ++k)
            forward(z + k * part, part, pass + 1, here.radix * block + k);
        return;
    }
    for (int blocks = 1, size = m; size > 1; ++pass) {
        const Pass& here = pass_[pass];
        split_blocks(z, size, here.radix, blocks, here.roots + block * (here.radix - 1));
        blocks *= here.radix;
        block *= here.radix;
        size /= here.radix;
    }
}

void Transform::backward(Point* z, int m, int pass, int block) const {
    if (m > kCached) {
        const Pass& here = pass_[pass];
        const int part = m / here.radix;
        for (int k = 0; k < here.radix; ++k)
            backward(z + k * part, part, pass + 1, here.radix * block + k);
        return join_blocks(z, m, here.radix, 1, here.roots + block * (here.radix - 1));
    }
    int blocks = m, size = 1;
    for (int i = pass; i < passes_; ++i) block *= pass_[i].radix;
    for (int i = passes_ - 1; i >= pass; --i) {
        const Pass& here = pass_[i];
        blocks /= here.radix;
        block /= here.radix;
        size *= here.radix;
        join_blocks(z, size, here.radix, blocks, here.roots + block * (here.radix - 1));
    }
}

void multiply_points(Point* x, const Point* y, int m, long double scale) {
    for (int k = 0; k < m; ++k) {
        const extended a = x[k].re * scale, b = x[k].im * scale, c = y[k].re, d = y[k].im;
        x[k].re = static_cast<double>(a * c - b * d);
        x[k].im = static_cast<double>(a * d + b * c);
    }
}

} // namespace vor::limb
