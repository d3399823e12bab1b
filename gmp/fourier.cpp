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
#include "gmp/fourier.h"
#include "dft/signatures.h"
#include "vor_dfti.h"

#include <math.h>

extern "C" {
int vor_dft_create_descriptor_highd PARAMS_DFTI_CREATE;
int vor_dft_commit_descriptor_external PARAMS_DFTI_HANDLE;
int vor_dft_set_value_dblval PARAMS_DFTI_SET(double);
int vor_dft_compute_forward_d PARAMS_DFTI_IN_PLACE;
int vor_dft_compute_backward_d PARAMS_DFTI_IN_PLACE;
int vor_dft_free_descriptor_external PARAMS_DFTI_HANDLE;
}

namespace vor::gmp {

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
// prime factors cost several times as much.
int64_t transform_length(int64_t n) {
    constexpr int kFactors[] = {8, 9, 10, 12};
    int64_t power = 1;
    while (16 * power < n) power *= 2;
    for (const int factor : kFactors)
        if (factor * power >= n) return factor * power;
    return 16 * power;
}

// f(i, digit) for the balanced digits of a.
template <class F>
void each_digit(const limb_t* a, int n, int width, F f) {
    const unsigned last = static_cast<unsigned>(digits_in(n, width) - 1);
    const int32_t base = int32_t{1} << width, half = base / 2;
    dlimb_t bits = 0;
    int held = 0, carry = 0, next = 0;
    for (unsigned i = 0; i <= last; ++i) {
        if (held < width && next < n) {
            bits |= dlimb_t{a[next++]} << held;
            held += 32;
        }
        int32_t digit = static_cast<int32_t>(bits & (base - 1)) + carry;
        bits >>= width;
        held -= width;
        carry = (digit >= half) & (i != last);
        digit -= carry << width;
        f(i, digit);
    }
}

// The Euclidean length of the digits of any operand of n limbs, and of this one.
long double largest_norm(int n, int width) {
    const long double most = static_cast<long double>(int64_t{1} << (width - 1));
    // The top digit is up to twice as large as the others.
    return most * __builtin_sqrtl(static_cast<long double>(digits_in(n, width) + 3));
}

long double norm(const limb_t* a, int n, int width) {
    uint64_t squares = 0; // below 2^63: 2^32 digits of 30 bits would be 2^62
    each_digit(a, n, width, [&](unsigned, int32_t digit) {
        squares += static_cast<uint64_t>(int64_t{digit} * digit);
    });
    return __builtin_sqrtl(static_cast<long double>(squares));
}

// r = sum of round(x[i]) 2^(width i) over n limbs. The coefficients are below 2^49.
void join(limb_t* r, int n, const double* x, int digits, int width) {
    constexpr double kRounder = 0x1.8p52; // adding it leaves the nearest integer in the low bits
    constexpr int64_t kRounderBits = 0x4338000000000000;
    int64_t carry = 0;
    dlimb_t bits = 0;
    int held = 0, next = 0;
    for (int i = 0; next < n; ++i) {
        if (i < digits) {
            const double shifted = x[i] + kRounder;
            int64_t coefficient;
            memcpy(&coefficient, &shifted, sizeof coefficient);
            carry += coefficient - kRounderBits;
        }
        bits |= static_cast<dlimb_t>(carry & ((int64_t{1} << width) - 1)) << held;
        carry >>= width;
        held += width;
        if (held < 32) continue;
        r[next++] = static_cast<limb_t>(bits);
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

// Two arrays for a transform of length n in its packed format, zero from the start.
class Samples {
public:
    explicit Samples(int n) : bytes_(2 * (static_cast<unsigned>(n) + 2) * sizeof(double)) {
        x = static_cast<double*>(vor_gmp_vor_gmp_allocate(bytes_));
        if (!x) return;
        y = x + n + 2;
        memset(x, 0, bytes_);
    }
    ~Samples() {
        if (x) vor_gmp_vor_gmp_free(x, bytes_);
    }
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

    double *x = nullptr, *y = nullptr;

private:
    unsigned bytes_;
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

// Factors and places of a product, the transform that its digits need, and the proof.
struct Plan {
    const limb_t *a, *b;
    int an, bn;

    int64_t product_digits(int width) const {
        return digits_in(an, width) + digits_in(bn, width) - 1;
    }
    int64_t length(int width) const { return transform_length(product_digits(width)); }
    bool proved(int width, long double norms) const {
        const long double levels = log2(static_cast<double>(length(width)));
        return norms * (12 * levels + 32) * 0x1p-53L < kErrorLimit;
    }
    bool proved(int width) const {
        const long double largest = largest_norm(an, width) * largest_norm(bn, width);
        if (proved(width, largest)) return true;
        // Of random digits the norms are a third of the largest; for less they are not worth a look.
        return proved(width, largest / 4) && proved(width, norm(a, an, width) * norm(b, bn, width));
    }
    // The widest digits for which the error stays below the limit.
    int width() const {
        int width = kWidestDigit;
        while (width > kNarrowestDigit && !proved(width)) --width;
        return width;
    }
};

} // namespace

bool fourier_product(limb_t* r, const limb_t* a, int an, const limb_t* b, int bn) {
    const Plan plan{a, b, an, bn};
    const int width = plan.width();
    const int64_t length = plan.length(width);
    if (length > kLongestTransform) return false;
    const int n = static_cast<int>(length);
    Samples samples(n);
    if (!samples.x) return false;
    const bool square = a == b && an == bn;
    double *const x = samples.x, *const y = square ? x : samples.y;
    each_digit(a, an, width, [x](unsigned i, int32_t digit) { x[i] = digit; });
    if (!square) each_digit(b, bn, width, [y](unsigned i, int32_t digit) { y[i] = digit; });
    if (!convolve(x, y, n)) return false;
    join(r, an + bn, x, static_cast<int>(plan.product_digits(width)), width);
    return true;
}

} // namespace vor::gmp
