// The product of integers as a negacyclic convolution of their digits, by complex transforms in double
// precision (Schoenhage and Strassen, Computing 7, 1971, section 2).
//
// Digits have w bits and lie between -2^(w-1) and 2^(w-1), the top one excepted, which takes what is
// left. A coefficient of the convolution is an integer; it is exact as long as the transforms are off
// by less than 1/2. The bound on their error (docs/numerics.md), for p passes,
//
//     |error| <= |x| |y| (3 p 1.75 + 3) 2^-53,     |x| the Euclidean length of the digits,
//
// is kept below 0.45: evaluated with the digits at hand, for the widest digits that promise to do.
#include "gmp/limb/fourier.h"
#include "gmp/limb/kernel/nearest.h"
#include "gmp/limb/kernel/transform.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "serv/kernel/float_environment.h"

#include <string.h>

namespace vor::limb {

namespace {

constexpr int kWidestDigit = 20;
constexpr int kNarrowestDigit = 8; // proves every product that kLongest admits
constexpr long double kErrorLimit = 0.45L;

// ceil(32 limbs / width), without a division of 64 bits.
int64_t digits_in(int limbs, int width) {
    return int64_t{32} * (limbs / width) + (32 * (limbs % width) + width - 1) / width;
}

// The square root of at least x.
long double root_above(uint64_t x) {
    return __builtin_sqrtl(static_cast<long double>(x)) * (1 + 0x1p-60L);
}

// The transform that the digits of a product need, and the proof that it is exact.
struct Plan {
    int an, bn; // limbs of the factors
    int width = 0, m = 0;

    int64_t digits(int limbs) const { return digits_in(limbs, width); }
    // Does a product of digits with the product `norms` of Euclidean lengths come out exact?
    bool proved(long double norms) const {
        const long double error =
            3 * Transform::passes_of(m) * Transform::kPassError + 3 * 0x1p-53L;
        return norms * error < kErrorLimit;
    }
    // The largest product of Euclidean lengths of any operands of these lengths: the top digit is up to
    // twice as large as the others.
    long double largest() const {
        const long double most = static_cast<long double>(int64_t{1} << (width - 1));
        return most * most * root_above(static_cast<uint64_t>(digits(an) + 3)) *
               root_above(static_cast<uint64_t>(digits(bn) + 3));
    }
    // The widest digits below `bound` that may do: the norms of random digits are a third of the largest;
    // for less than a quarter they are not worth a look. False if the transform would be too long.
    bool choose(int bound) {
        for (width = bound - 1;; --width) {
            const int64_t points = (digits(an) + digits(bn)) / 2;
            if (points > Transform::kLongest) return false;
            m = Transform::length_for(static_cast<int>(points));
            if (width == kNarrowestDigit || proved(largest() / 4)) return true;
        }
    }
};

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

// r = sum of round(x[j]) 2^(width j) over n limbs, x[j] the `digits` real numbers in the points of z.
void join(word* r, int n, const Point* z, int m, int digits, int width) {
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

} // namespace

bool fourier_product(word* r, const word* a, int an, const word* b, int bn) {
    const ExactScope exact;
    const bool square = a == b && an == bn;
    Plan plan{.an = an, .bn = bn};
    for (int bound = kWidestDigit + 1; plan.choose(bound); bound = plan.width) {
        const int m = plan.m;
        Points memory(int64_t{square ? 1 : 2} * m + Transform::table_size(m));
        if (!memory) return false;
        Point *const x = memory, *const y = square ? x : x + m, *const table = y + m;
        const uint64_t x_squares = split(x, m, a, an, plan.width);
        const uint64_t y_squares = square ? x_squares : split(y, m, b, bn, plan.width);
        if (plan.width > kNarrowestDigit &&
            !plan.proved(root_above(x_squares) * root_above(y_squares)))
            continue;
        const Transform transform(m, table);
        transform.forward(x);
        if (!square) transform.forward(y);
        multiply_points(x, y, m, 1.0L / m);
        transform.backward(x);
        join(r, an + bn, x, m, static_cast<int>(plan.digits(an) + plan.digits(bn)) - 1, plan.width);
        return true;
    }
    return false;
}

} // namespace vor::limb
