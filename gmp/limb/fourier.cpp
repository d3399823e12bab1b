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
        const long double error = 3 * Transform::passes_of(m) * Transform::kPassError + 3 * 0x1p-53L;
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

// The balanced digits of a into z: digit j into the real part of point j, those from m on into the
// imaginary parts. The sum of their squares.
uint64_t split(Point* z, int m, const word* a, int n, int width) {
    const int count = static_cast<int>(digits_in(n, width));
    const int32_t base = int32_t{1} << width;
    const word mask = static_cast<word>(base - 1);
    int32_t carry = 0;
    unsigned bit = 0; // n < 2^27, since the transform is not too long
    uint64_t squares = 0;
    double* place = &z[0].re;
    for (int i = 0; i < count; ++i, bit += static_cast<unsigned>(width), place += 2) {
        if (i == m) place = &z[0].im;
        const int k = static_cast<int>(bit / 32);
        const dword above = k + 1 < n ? a[k + 1] : 0;
        const word window = static_cast<word>((above << 32 | a[k]) >> bit % 32);
        int32_t digit = static_cast<int32_t>(window & mask) + carry;
        carry = (digit + base / 2) >> width;
        if (i < count - 1) digit -= carry * base;
        squares += static_cast<uint64_t>(static_cast<int64_t>(digit) * digit);
        *place = digit;
    }
    for (int i = count; i < 2 * m; ++i, place += 2) {
        if (i == m) place = &z[0].im;
        *place = 0;
    }
    return squares;
}

// r = sum of round(x[j]) 2^(width j) over n limbs, x[j] the `digits` real numbers in the points of z.
void join(word* r, int n, const Point* z, int m, int digits, int width) {
    const word mask = ~word{0} >> (32 - width);
    const double* place = &z[0].re;
    int64_t carry = 0;
    dword bits = 0;
    int held = 0;
    for (int j = 0, next = 0; next < n; ++j, place += 2) {
        if (j == m) place = &z[0].im;
        if (j < digits) carry += nearest(*place);
        bits |= dword{static_cast<word>(carry) & mask} << held;
        carry >>= width;
        held += width;
        if (held < 32) continue;
        r[next++] = static_cast<word>(bits);
        bits >>= 32;
        held -= 32;
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
