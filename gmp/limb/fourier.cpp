// The product of integers as a negacyclic convolution of their digits, by complex transforms in double
// precision (Schoenhage and Strassen, Computing 7, 1971, section 2). Digits, and the proof that the
// result is exact: fourier_plan.h.
#include "gmp/limb/fourier.h"
#include "gmp/limb/fourier_plan.h"
#include "gmp/limb/kernel/nearest.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "serv/kernel/float_environment.h"

#include <string.h>

namespace vor::limb {

namespace {

// Windows of 25 bits of a limb array, zeros behind its end.
class Bits {
public:
    Bits(const word* a, int n) : limbs_(a), last_bit_(32 * (static_cast<unsigned>(n) - 1)) {
        last_[0] = a[n - 1];
    }
    word at(unsigned bit) const {
        word window;
        if (bit <= last_bit_)
            memcpy(&window, reinterpret_cast<const char*>(limbs_) + bit / 8, sizeof window);
        else
            memcpy(&window, reinterpret_cast<const char*>(last_) + (bit - last_bit_) / 8,
                   sizeof window);
        return window >> bit % 8;
    }

private:
    const word* limbs_;
    unsigned last_bit_; // where the last limb begins
    word last_[2] = {};
};

// The balanced digits of a into z: digit j into the real part of point j, those from m on into the
// imaginary parts. The sum of their squares.
uint64_t split(Point* z, int m, const word* a, int n, int width) {
    const int count = static_cast<int>(digits_in(n, width));
    const int32_t base = int32_t{1} << width, half = base / 2;
    const Bits bits(a, n);
    int32_t carry = 0;
    unsigned bit = 0; // n < 2^27, since the transform is not too long
    uint64_t squares = 0;
    for (int part = 0; part < 2; ++part) {
        double* const place = part ? &z[0].im : &z[0].re;
        const int left = count - part * m, filled = left < 0 ? 0 : left < m ? left : m;
        for (int j = 0; j < filled; ++j, bit += static_cast<unsigned>(width)) {
            int32_t digit =
                static_cast<int32_t>(bits.at(bit) & static_cast<word>(base - 1)) + carry;
            carry = (digit + half) >> width;
            if (j < left - 1) digit -= carry << width; // the top one keeps what is left
            squares += static_cast<uint64_t>(static_cast<int64_t>(digit) * digit);
            place[2 * j] = digit;
        }
        for (int j = filled; j < m; ++j) place[2 * j] = 0;
    }
    return squares;
}

// r = sum of round(x[j]) 2^(width j) over n limbs, x[j] the `digits` real numbers in the points of z;
// what leaves the top.
int64_t join(word* r, int n, const Point* z, int m, int digits, int width) {
    const word mask = ~word{0} >> (32 - width);
    int64_t carry = 0;
    word bits = 0;
    int held = 0, next = 0;
    for (int part = 0; part < 3 && next < n; ++part) {
        const double* const place = part ? &z[0].im : &z[0].re;
        const int left = digits - part * m;
        for (int j = 0; (j < m || part == 2) && next < n; ++j) {
            if (j < left) carry += nearest(place[2 * j]);
            const word digit = static_cast<word>(carry) & mask;
            carry >>= width;
            bits |= digit << held;
            held += width;
            if (held < 32) continue;
            r[next++] = bits;
            held -= 32;
            bits = digit >> (width - held);
        }
    }
    return carry;
}

// Memory for points; null inside if refused.
class Points {
public:
    explicit Points(int64_t n)
        : limbs_(n * static_cast<int>(sizeof(Point) / sizeof(word))),
          points_(reinterpret_cast<Point*>(try_allocate(static_cast<uint64_t>(limbs_)))) {}
    ~Points() {
        if (points_) deallocate(reinterpret_cast<word*>(points_), static_cast<int>(limbs_));
    }
    Points(const Points&) = delete;
    Points& operator=(const Points&) = delete;
    operator Point*() { return points_; }

private:
    int64_t limbs_;
    Point* points_;
};

// Forms the convolution of a and b by the widest digits that are proved, and hands it to
// take(points, plan). False without memory.
template <class Take>
bool convolve(FourierPlan plan, const word* a, const word* b, Take take) {
    const ExactScope exact;
    const bool square = a == b && plan.an == plan.bn;
    for (int bound = FourierPlan::kWidestDigit + 1; plan.choose(bound); bound = plan.width) {
        const int m = plan.m;
        Points memory(int64_t{square ? 1 : 2} * m + Transform::table_size(m));
        if (!memory) return false;
        Point *const x = memory, *const y = square ? x : x + m, *const table = y + m;
        const uint64_t x_squares = split(x, m, a, plan.an, plan.width);
        const uint64_t y_squares = square ? x_squares : split(y, m, b, plan.bn, plan.width);
        if (!plan.proved(root_above(x_squares) * root_above(y_squares))) continue;
        const Transform transform(m, table);
        transform.forward(x);
        if (!square) transform.forward(y);
        multiply_points(x, y, m, 1.0L / m);
        transform.backward(x);
        take(x, plan);
        return true;
    }
    return false;
}

} // namespace

bool fourier_product(word* r, const word* a, int an, const word* b, int bn) {
    return convolve({.an = an, .bn = bn}, a, b, [=](const Point* x, const FourierPlan& plan) {
        const int digits = static_cast<int>(plan.digits(an) + plan.digits(bn)) - 1;
        join(r, an + bn, x, plan.m, digits, plan.width);
    });
}

int fourier_product_modulo(word* r, const word* a, int an, const word* b, int bn, int least) {
    int n = 0;
    convolve({.an = an, .bn = bn, .modulus = least}, a, b,
             [&](const Point* x, const FourierPlan& plan) {
                 n = plan.limbs();
                 const int64_t above = join(r, n, x, plan.m, 2 * plan.m, plan.width);
                 // B^n = -1, and -1 = B^n: what is one too small or too large is put right by B^n + 1.
                 r[n] = 0;
                 if (above >= 0) {
                     if (decrement(r, n, static_cast<word>(above))) r[n] = increment(r, n, 1);
                 } else if (increment(r, n, static_cast<word>(-above)) && decrement(r, n, 1)) {
                     clear(r, n);
                     r[n] = 1;
                 }
             });
    return n;
}

} // namespace vor::limb
