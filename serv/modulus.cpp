// Modulus and principal square root of complex numbers, in extended precision.
//
// The modulus comes back in st(0) with its 64-bit significand, unrounded: a caller that stores it as
// a double rounds it then. Two doubles squared stay far inside the extended range, so nothing needs
// scaling.
#include "serv/kernel/root_of_squares.h"
#include "vor_service.h"

#include <math.h>
#include <string.h>

namespace {

constexpr int kExponentMask = 0x7ff;
// |b| below 2^-58 |a| adds less than 2^-117 |a|, far under half a unit of the 64-bit significand.
constexpr int kFarApart = 58;

int biased_exponent(double x) {
    unsigned long long bits;
    memcpy(&bits, &x, sizeof bits);
    return static_cast<int>(bits >> 52) & kExponentMask;
}

// The overflow flag, by a product that no double holds.
void raise_overflow() {
    volatile double large = 0x1p1000;
    large = large * large;
}

} // namespace

extern "C" long double vor_serv_hypot(double a, double b) {
    const int exponent_a = biased_exponent(a), exponent_b = biased_exponent(b);
    if (exponent_a == kExponentMask || exponent_b == kExponentMask) {
        if (isinf(a)) return fabs(a);
        if (isinf(b)) return fabs(b);
        return static_cast<long double>(a) * b;
    }
    if (exponent_a - exponent_b > kFarApart || exponent_b - exponent_a > kFarApart)
        return fabsl(a) + fabsl(b);
    const long double modulus = vor::root_of_squares(a, b);
    if (modulus >= 0x1p1024L) raise_overflow();
    return modulus;
}

extern "C" long double vor_serv_z_abs(const VOR_DCOMPLEX* z) {
    return vor_serv_hypot(z->re, z->im);
}

extern "C" long double vor_serv_c_abs(const VOR_SCOMPLEX* z) {
    return vor_serv_hypot(z->re, z->im);
}

extern "C" void vor_serv_sqrt(double* re_out, double* im_out, double x, double y) {
    const long double m = vor_serv_hypot(x, y);
    long double re = 0, im = 0;
    if (x > 0) {
        re = sqrtl((m + x) * 0.5L);
        im = 0.5L * y / re;
    } else if (m != 0) {
        const long double t = sqrtl((m - x) * 0.5L);
        im = y < 0 ? -t : t;
        re = 0.5L * y / im;
    }
    *re_out = static_cast<double>(re);
    *im_out = static_cast<double>(im);
}

extern "C" void vor_serv_z_sqrt(VOR_DCOMPLEX* out, const VOR_DCOMPLEX* z) {
    vor_serv_sqrt(&out->re, &out->im, z->re, z->im);
}

extern "C" void vor_serv_c_sqrt(VOR_SCOMPLEX* out, const VOR_SCOMPLEX* z) {
    double re, im;
    vor_serv_sqrt(&re, &im, z->re, z->im);
    *out = {static_cast<float>(re), static_cast<float>(im)};
}
