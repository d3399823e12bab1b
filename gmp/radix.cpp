#include "gmp/radix.h"

using namespace vor;

namespace vor::gmp {

namespace {

// What room a power takes.
uint64_t room_of(int exponent) {
    return uint64_t{2} + static_cast<unsigned>(exponent);
}

void strip(Power* p, int n) {
    p->n = limb::normal_size(p->limbs, n);
    int low = 0;
    while (p->limbs[low] == 0) ++low;
    limb::copy(p->limbs, p->limbs + low, p->n - low);
    p->n -= low;
    p->zeros += low;
}

} // namespace

Powers::Powers(const Radix& radix, int groups, int smallest) {
    for (int e = groups; e > smallest && levels_ < kMostLevels; ++levels_) {
        e = e / 2 + e % 2;
        power_[levels_] = {e, 0, 0, nullptr, nullptr};
    }
    for (int i = levels_ - 1; i >= 0; --i) {
        power_[i].limbs = limb::allocate(room_of(power_[i].exponent));
        if (i == levels_ - 1)
            raise(&power_[i], radix);
        else
            square(&power_[i], power_[i + 1], radix);
    }
}

Powers::~Powers() {
    for (int i = 0; i < levels_; ++i) {
        const Power& p = power_[i];
        limb::deallocate(p.limbs, static_cast<int>(room_of(p.exponent)));
        if (p.inverse) limb::deallocate(p.inverse, p.n + 2);
    }
}

// The smallest power, limb by limb.
void Powers::raise(Power* p, const Radix& radix) {
    int n = 1;
    p->limbs[0] = radix.power;
    for (int e = 1; e < p->exponent; ++e) {
        p->limbs[n] = limb::mul_1(p->limbs, p->limbs, n, radix.power);
        n += p->limbs[n] != 0;
    }
    strip(p, n);
}

void Powers::square(Power* p, const Power& root, const Radix& radix) {
    p->zeros = 2 * root.zeros;
    // With a zero limb below: it holds all factors of two that a limb may ask back.
    Limbs<0> product(uint64_t{2} * static_cast<unsigned>(root.n) + 1);
    product[0] = 0;
    limb::square(product + 1, root.limbs, root.n);
    limb_t* from = product + 1;
    int n = limb::normal_size(from, 2 * root.n);
    if (p->exponent % 2) { // 2 e - 1
        if (p->zeros > 0) {
            --from;
            ++n;
            --p->zeros;
        }
        limb::divide_1(from, from, n, radix.power);
        n = limb::normal_size(from, n);
    }
    limb::copy(p->limbs, from, n);
    strip(p, n);
}

void Powers::invert(int shortest) {
    for (int i = 1; i < levels_; ++i) {
        Power* const p = &power_[i];
        if (p->n < shortest) return;
        Limbs<0> one(uint64_t{2} * static_cast<unsigned>(p->n) + 1);
        limb::clear(one, 2 * p->n);
        one[2 * p->n] = 1;
        p->inverse = limb::allocate(static_cast<unsigned>(p->n + 2));
        limb::divide(p->inverse, nullptr, one, 2 * p->n + 1, p->limbs, p->n);
    }
}

} // namespace vor::gmp
