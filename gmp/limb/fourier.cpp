// The product of integers as a cyclic convolution of their digits, by real transforms in double
// precision (Schoenhage and Strassen, Computing 7, 1971, section 2).
//
// Digits have w bits and lie between -2^(w-1) and 2^(w-1), the top one excepted, which takes what is
// left. A coefficient of the convolution is an integer; it is exact as long as the transforms are off
// by less than 1/2. The bound on their error (docs/numerics.md)
//
//     |error| <= |x| |y| (12 log2 N + 32) 2^-53,     |x| the Euclidean length of the digits
//
// stays below 0.45 with 16 bits for all operands of up to 8800 limbs; for longer ones it is evaluated
// with the digits at hand, and w taken as wide as it allows.
#include "gmp/limb/fourier.h"
#include "dft/engines.h"
#include "gmp/limb/kernel/nearest.h"
#include "gmp/limb/scratch.h"

#include <math.h>
#include <string.h>

namespace vor::limb {

namespace {

constexpr int kWidestDigit = 16;
constexpr int kNarrowestDigit = 8; // proves every product that kLongestTransform admits
constexpr long double kErrorLimit = 0.45L;
constexpr int kLongestTransform = 1 << 27; // two arrays of doubles for it fill the address space

// ceil(32 limbs / width), without a division of 64 bits.
int64_t digits_in(int limbs, int width) {
    return int64_t{32} * (limbs / width) + (32 * (limbs % width) + width - 1) / width;
}

// A transform length of at least n that is 8, 9, 10 or 12 times a power of two: lengths with larger
// prime factors cost several times as much. A multiple of 4.
int64_t transform_length(int64_t n) {
    constexpr int kFactors[] = {8, 9, 10, 12};
    int64_t power = 4;
    while (16 * power < n) power *= 2;
    for (const int factor : kFactors)
        if (factor * power >= n) return factor * power;
    return 16 * power;
}

// The balanced digits of a into x, zeros above up to x[length).
void split(double* x, int length, const word* a, int n, int width) {
    const unsigned count = static_cast<unsigned>(digits_in(n, width));
    const int32_t base = int32_t{1} << width;
    const word mask = static_cast<word>(base - 1);
    int32_t carry = 0;
    unsigned bit = 0; // n < 2^27, since the transform is not too long
    for (unsigned i = 0; i < count; ++i, bit += static_cast<unsigned>(width)) {
        const int k = static_cast<int>(bit / 32);
        const dword above = k + 1 < n ? a[k + 1] : 0;
        const word window = static_cast<word>((above << 32 | a[k]) >> bit % 32);
        const int32_t digit = static_cast<int32_t>(window & mask) + carry;
        carry = (digit + base / 2) >> width;
        x[i] = digit - carry * base;
    }
    x[count - 1] += carry * base;
    memset(x + count, 0, (static_cast<unsigned>(length) - count) * sizeof(double));
}

// The largest Euclidean length of the digits of any operand of n limbs.
long double largest_norm(int n, int width) {
    const long double most = static_cast<long double>(int64_t{1} << (width - 1));
    // The top digit is up to twice as large as the others.
    return most * __builtin_sqrtl(static_cast<long double>(digits_in(n, width) + 3));
}

// The Euclidean length of the digits at hand, in four sums that do not wait for each other. n is a
// multiple of 4. The error of the sums, below n 2^-64, does not count against kErrorLimit.
long double norm(const double* x, int n) {
    long double squares[4] = {};
    for (int i = 0; i < n; i += 4)
        for (int k = 0; k < 4; ++k) squares[k] += static_cast<long double>(x[i + k]) * x[i + k];
    return __builtin_sqrtl(squares[0] + squares[1] + squares[2] + squares[3]);
}

long double nearest_integer(long double x) {
    constexpr long double kRounder = 0x1.8p63L; // one unit in its last place is 1
    return x + kRounder - kRounder;
}

// r = sum of round(x[i]) 2^(width i) over n limbs, two coefficients at a time. They are below |x| |y|,
// which the bound on the error keeps below 2^46: two of them and a carry stay below 2^63. Behind the
// last one x goes on with zeros, as far as a pair reaches.
void join(word* r, int n, const double* x, int digits, int width) {
    const long double base = static_cast<long double>(1 << width);
    const word mask = ~word{0} >> (32 - 2 * width);
    int64_t carry = 0;
    dword bits = 0;
    int held = 0, next = 0;
    for (int i = 0; next < n; i += 2) {
        if (i < digits) {
            carry += nearest(nearest_integer(x[i + 1]) * base + nearest_integer(x[i]));
        }
        bits |= dword{static_cast<word>(carry) & mask} << held;
        carry >>= 2 * width;
        held += 2 * width;
        if (held < 32) continue;
        r[next++] = static_cast<word>(bits);
        bits >>= 32;
        held -= 32;
    }
}

// The committed descriptor of real transforms of length n, backward by 1/n; null inside if refused.
class Transform {
public:
    explicit Transform(int n) {
        const int precision = DFTI_DOUBLE, domain = DFTI_REAL, dimension = 1;
        const int parameter = DFTI_BACKWARD_SCALE;
        const double scale = 1.0 / n;
        ready_ =
            vor_dft_create_descriptor_highd(&handle_, &precision, &domain, &dimension, &n) == 0 &&
            vor_dft_set_value_dblval(&handle_, &parameter, &scale) == 0 &&
            vor_dft_commit_descriptor_external(&handle_) == 0;
    }
    ~Transform() {
        if (handle_) vor_dft_free_descriptor_external(&handle_);
    }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    explicit operator bool() const { return ready_; }
    bool forward(double* x) { return vor_dft_compute_forward_d(&handle_, x) == 0; }
    bool backward(double* x) { return vor_dft_compute_backward_d(&handle_, x) == 0; }

private:
    DftiRecord* handle_ = nullptr;
    bool ready_;
};

// Two arrays for a transform of length n in its packed format.
class Samples {
public:
    explicit Samples(int n)
        : limbs_(4 * (n + 2)), x(reinterpret_cast<double*>(try_allocate(limbs_))) {
        if (x) y = x + n + 2;
    }
    ~Samples() {
        if (x) deallocate(reinterpret_cast<word*>(x), limbs_);
    }
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

private:
    int limbs_;

public:
    double *x, *y = nullptr;
};

// x[k] *= y[k], n / 2 + 1 complex numbers; y may be x.
void multiply_spectra(double* x, const double* y, int n) {
    for (int i = 0; i < n + 2; i += 2) {
        const long double a = x[i], b = x[i + 1], c = y[i], d = y[i + 1];
        x[i] = static_cast<double>(a * c - b * d);
        x[i + 1] = static_cast<double>(a * d + b * c);
    }
}

bool convolve(double* x, double* y, int n) {
    Transform transform(n);
    if (!transform || !transform.forward(x)) return false;
    if (y != x && !transform.forward(y)) return false;
    multiply_spectra(x, y, n);
    return transform.backward(x);
}

// The transform that the digits of a product need, and the proof that it is exact.
struct Plan {
    int an, bn; // limbs of the factors

    int64_t product_digits(int width) const {
        return digits_in(an, width) + digits_in(bn, width) - 1;
    }
    int64_t length(int width) const { return transform_length(product_digits(width)); }
    bool proved(int width, long double norms) const {
        const long double levels = log2(static_cast<double>(length(width)));
        return norms * (12 * levels + 32) * 0x1p-53L < kErrorLimit;
    }
    long double largest(int width) const {
        return largest_norm(an, width) * largest_norm(bn, width);
    }
    // The widest digits up to `width` that may do. The norms of random digits are a third of the
    // largest; for less than a quarter they are not worth a look.
    int promising(int width) const {
        while (width > kNarrowestDigit && !proved(width, largest(width) / 4)) --width;
        return width;
    }
};

} // namespace

bool fourier_product(word* r, const word* a, int an, const word* b, int bn) {
    const Plan plan{an, bn};
    const bool square = a == b && an == bn;
    for (int width = plan.promising(kWidestDigit);; width = plan.promising(width - 1)) {
        const int64_t length = plan.length(width);
        if (length > kLongestTransform) return false;
        const int n = static_cast<int>(length);
        Samples samples(n);
        if (!samples.x) return false;
        double *const x = samples.x, *const y = square ? x : samples.y;
        split(x, n, a, an, width);
        if (!square) split(y, n, b, bn, width);
        if (width > kNarrowestDigit && !plan.proved(width, plan.largest(width)) &&
            !plan.proved(width, norm(x, n) * norm(y, n)))
            continue;
        if (!convolve(x, y, n)) return false;
        join(r, an + bn, x, static_cast<int>(plan.product_digits(width)), width);
        return true;
    }
}

} // namespace vor::limb
