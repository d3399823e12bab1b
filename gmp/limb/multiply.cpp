// The product of limb arrays by a ladder of methods: schoolbook, Karatsuba's, Toom's, Fourier
// transforms. Where
// memory for transforms is refused, the next lower method serves, and its parts come back here.
#include "gmp/limb/fourier.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

using namespace vor::gmp; // thresholds

void multiply_n(word* r, const word* a, const word* b, int n) {
    if (a == b) return square(r, a, n);
    if (n >= kFourierLength && fourier_product(r, a, n, b, n)) return;
    if (n >= kToomLength && n < kFourierLength) return multiply_toom4(r, a, b, n);
    multiply_karatsuba(r, a, b, n);
}

void square(word* r, const word* a, int n) {
    if (n >= kFourierSquare && fourier_product(r, a, n, a, n)) return;
    if (n >= kToomSquare && n < kFourierSquare) return multiply_toom4(r, a, a, n);
    square_karatsuba(r, a, n);
}

namespace {

// A much longer operand is cut into pieces of a few times the shorter one's length.
bool by_transforms(word* r, const word* a, int an, const word* b, int bn) {
    const int pieces = (an - 1) / (kFourierPiece * bn) + 1;
    if (pieces == 1) return fourier_product(r, a, an, b, bn);
    const int length = (an - 1) / pieces + 1;
    Limbs<0> product(length + bn);
    clear(r, bn);
    for (int at = 0; at < an; at += length) {
        const int n = an - at < length ? an - at : length;
        multiply(product, a + at, n, b, bn);
        copy(r + at + bn, product + bn, n);
        increment(r + at + bn, n, add_n(r + at, r + at, product, bn));
    }
    return true;
}

} // namespace

// A longer operand is cut into pieces as long as the shorter one. The products of the even pieces
// do not overlap and go into r, those of the odd ones into scratch; one addition joins them.
void multiply(word* r, const word* a, int an, const word* b, int bn) {
    if (an < bn) return multiply(r, b, bn, a, an);
    if (bn == 0) return clear(r, an);
    if (a == b && an == bn) return square(r, a, an);
    if (bn <= kSchoolbookFactor) return mul_basecase(r, a, an, b, bn);
    if (an == bn) return multiply_n(r, a, b, an);
    if (bn >= kFourierFactor && an + bn >= kFourierSum && by_transforms(r, a, an, b, bn)) return;
    const int whole = (an - 1) / bn; // pieces
    const int rest = an - whole * bn;
    Limbs<0> odd(an);
    for (int j = 0; j < whole; ++j) {
        word* const place = j % 2 == 0 ? r + j * bn : odd + (j - 1) * bn;
        multiply_n(place, a + j * bn, b, bn);
    }
    word* const last = whole % 2 == 0 ? r + whole * bn : odd + (whole - 1) * bn;
    multiply(last, b, bn, a + whole * bn, rest);
    const word carry = add_n(r + bn, r + bn, odd, whole * bn);
    add_1(r + (whole + 1) * bn, last + bn, rest, carry);
}

} // namespace vor::limb
