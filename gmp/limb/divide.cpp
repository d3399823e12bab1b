// Quotient and remainder of limb arrays.
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

using namespace vor::gmp; // thresholds

void divide(word* q, word* r, const word* a, int an, const word* b, int bn) {
    if (bn == 1) {
        const word rest = divide_1(q, a, an, b[0]);
        if (r) r[0] = rest;
        return;
    }
    const unsigned s = static_cast<unsigned>(__builtin_clz(b[bn - 1]));
    Limbs<kLocal + 1> w(uint64_t{1} + an);
    w[an] = lshift(w, a, an, s);
    Limbs<kLocal> shifted(s ? bn : 0);
    if (s) lshift(shifted, b, bn, s);
    const word top = divide_schoolbook(q, w, an, s ? shifted : b, bn);
    if (q) q[an - bn] = top;
    if (r) rshift(r, w, bn, s);
}

} // namespace vor::limb
