// Division by an inverse that is found by Newton's iteration (Knuth, 4.3.3, algorithm R). Of the products
// whose upper half is known already, only the residue modulo B^n + 1 is formed, which takes transforms of
// half the length.
//
// Neither the inverse nor the estimate of the quotient needs to be exact: a wrong one is too large or too
// small by a few units, and the remainder, which is exact, tells by how many.
#include "gmp/limb/divide_newton.h"
#include "gmp/limb/fourier.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

namespace {

uint64_t residue_room(int least) {
    return uint64_t{3} * least / 2 + 65;
}

// A number modulo B^n + 1, kept in n + 1 limbs, at most B^n.
struct Residue {
    word* limbs;
    int n;

    void add_modulus() {
        increment(limbs, n + 1, 1);
        ++limbs[n];
    }
    // += B^k or -= B^k, k < 2n
    void add_power(int k, bool subtract) {
        if (k >= n) return add_power(k - n, !subtract);
        if (subtract) {
            if (decrement(limbs + k, n + 1 - k, 1)) add_modulus();
            return;
        }
        increment(limbs + k, n + 1 - k, 1);
        reduce();
    }
    // = x, xn limbs, n <= xn <= 2n
    void set(const word* x, int xn) {
        limbs[n] = 0;
        if (sub(limbs, x, n, x + n, xn - n)) limbs[n] = increment(limbs, n, 1);
    }
    void subtract(const Residue& x) {
        if (sub_n(limbs, limbs, x.limbs, n + 1)) add_modulus();
    }
    // As a number between -B^n / 2 and B^n / 2: its magnitude in place, true if it is negative.
    bool to_magnitude() {
        if (limbs[n] == 0 && limbs[n - 1] >> 31 == 0) return false;
        negate(limbs, limbs, n + 1);
        add_modulus();
        return true;
    }

private:
    // From at most 2 B^n.
    void reduce() {
        const word above = limbs[n];
        if (above == 0 || (above == 1 && normal_size(limbs, n) == 0)) return;
        limbs[n] = 0;
        decrement(limbs, n, above);
    }
};

// x = floor((B^2n - 1) / e)
void divide_for_inverse(word* x, const word* e, int n) {
    Limbs<0> all_ones(2 * n);
    fill(all_ones, 2 * n, ~word{0});
    divide(x, nullptr, all_ones, 2 * n, e, n);
}

} // namespace

// With I = x_h the inverse of the upper h limbs, h a little above n / 2, and d = e I - B^(n + h), which is
// small: B^2n / e = I B^(n - h) - I d / B^2h, but for some units.
bool inverse(word* x, const word* e, int n) {
    if (n < gmp::kNewtonInverse) {
        divide_for_inverse(x, e, n);
        return true;
    }
    const int h = n / 2 + 2, l = n - h;
    word* const upper = x + l; // where the inverse of the upper limbs stands in the result
    if (!inverse(upper, e + l, h)) return false;
    Limbs<0> memory(residue_room(n + 1));
    Residue d{memory, fourier_product_modulo(memory, e, n, upper, h + 1, n + 1)};
    if (d.n == 0) return false;
    d.add_power(n + h, true);
    const bool minus = d.to_magnitude();
    const int dn = normal_size(d.limbs + h, d.n + 1 - h);
    Limbs<0> product(uint64_t{1} + h + dn);
    multiply(product, upper, h + 1, d.limbs + h, dn);
    clear(x, l);
    if (minus)
        add(x, x, n + 1, product + h, 1 + dn);
    else
        sub(x, x, n + 1, product + h, 1 + dn);
    return true;
}

bool divide_by_inverse(word* q, word* w, const word* e, int n, const word* x) {
    {
        Limbs<0> product(uint64_t{2} * n + 1);
        multiply(product, w + n, n, x, n + 1);
        if (product[2 * n])
            fill(q, n, ~word{0});
        else
            copy(q, product + n, n);
    }
    Limbs<0> memory(2 * residue_room(n + 1));
    Residue multiple{memory, fourier_product_modulo(memory, q, n, e, n, n + 1)};
    if (multiple.n == 0) return false;
    Residue rest{memory + multiple.n + 1, multiple.n};
    rest.set(w, 2 * n);
    rest.subtract(multiple);
    const bool minus = rest.to_magnitude();
    word* const r = rest.limbs;
    if (minus) { // the quotient is too large
        word left;
        do {
            decrement(q, n, 1);
            left = sub(r, r, n + 1, e, n);
        } while (left == 0 && normal_size(r, n + 1) > 0);
        if (left) negate(r, r, n + 1);
    }
    while (r[n] || compare(r, e, n) >= 0) {
        increment(q, n, 1);
        sub(r, r, n + 1, e, n);
    }
    copy(w, r, n);
    return true;
}

} // namespace vor::limb
