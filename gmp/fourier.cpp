// The product of integers as a cyclic convolution of their digits, by real transforms in double
// precision (Schoenhage and Strassen, Computing 7, 1971, section 2).
//
// Digits have w bits and lie between -2^(w-1) and 2^(w-1), the top one excepted, which takes what is
// left. A coefficient of the convolution is an integer; it is exact as long as the transforms are off
// by less than 1/2. The bound on their error (docs/numerics.md)
//
//     |error| <= |x| |y| (12 log2 N + 32) 2^-53,     |x| the Euclidean length of the digits
//
// is evaluated with the digits at hand, and w taken so that it stays below 1/4: 16 bits for operands
// of up to 5000 limbs whatever they are, fewer for longer ones.
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
constexpr int kNarrowestDigit = 8; // proves the product of any operands that memory holds
constexpr long double kErrorLimit = 0.45L;
constexpr int kLongestTransform = 1 << 27; // two arrays of doubles for it fill the address space

int64_t digits_in(int limbs, int width) {
    return int64_t{32} * (limbs / width) + (32 * (limbs % width) + width - 1) / width;
}

// A transform length of at least n that is 4, 5, 6 or 8 times a power of two: lengths with larger
// prime factors cost several times as much.
int64_t transform_length(int64_t n) {
    int64_t power = 2;
    while (8 * power < n) power *= 2;
    int factor = 4;
    while (factor * power < n) factor += factor == 6 ? 2 : 1;
    return factor * power;
}

// x[0 .. digits) = the balanced digits of a; the sum of their squares.
long double split(double* x, int64_t digits, const limb_t* a, int n, int width) {
    const int32_t base = int32_t{1} << width, half = base / 2;
    long double squares = 0;
    dlimb_t bits = 0;
    int held = 0, carry = 0, next = 0;
    for (int64_t i = 0; i < digits; ++i) {
        if (held < width && next < n) {
            bits |= dlimb_t{a[next++]} << held;
            held += 32;
        }
        int32_t digit = static_cast<int32_t>(bits & (base - 1)) + carry;
        bits >>= width;
        held -= width;
        carry = digit >= half && i + 1 < digits;
        if (carry) digit -= base;
        x[i] = digit;
        squares += static_cast<long double>(digit) * digit;
    }
    return squares;
}

// r = sum of round(x[i]) 2^(width i) over n limbs. The coefficients are below 2^49.
void join(limb_t* r, int n, const double* x, int64_t digits, int width) {
    constexpr double kRounder = 0x1.8p52; // adding it leaves the nearest integer in the low bits
    constexpr int64_t kRounderBits = 0x4338000000000000;
    int64_t carry = 0;
    dlimb_t bits = 0;
    int held = 0, next = 0;
    for (int64_t i = 0; next < n; ++i) {
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

enum class Attempt { done, too_wide, refused };

// With digits of so many bits.
Attempt product(limb_t* r, const limb_t* a, int an, const limb_t* b, int bn, int width) {
    const int64_t x_digits = digits_in(an, width), y_digits = digits_in(bn, width);
    const int64_t length = transform_length(x_digits + y_digits);
    if (length > kLongestTransform) return Attempt::refused;
    const int n = static_cast<int>(length);
    Samples samples(n);
    if (!samples.x) return Attempt::refused;
    const bool square = a == b && an == bn;
    const long double x_squares = split(samples.x, x_digits, a, an, width);
    const long double y_squares = square ? x_squares : split(samples.y, y_digits, b, bn, width);
    const long double error = __builtin_sqrtl(x_squares) * __builtin_sqrtl(y_squares) *
                              (12 * static_cast<long double>(log2(n)) + 32) * 0x1p-53L;
    if (error >= kErrorLimit) return Attempt::too_wide;
    if (!convolve(samples.x, square ? samples.x : samples.y, n)) return Attempt::refused;
    join(r, an + bn, samples.x, x_digits + y_digits - 1, width);
    return Attempt::done;
}

} // namespace

bool fourier_product(limb_t* r, const limb_t* a, int an, const limb_t* b, int bn) {
    for (int width = kWidestDigit; width >= kNarrowestDigit; --width) {
        const Attempt attempt = product(r, a, an, b, bn, width);
        if (attempt != Attempt::too_wide) return attempt == Attempt::done;
    }
    return false;
}

} // namespace vor::gmp
