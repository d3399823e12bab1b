// Limb arrays by one limb. The dividend is read through the shift that normalises the divisor, from
// the top down.
#include "gmp/limb/divide_preinv.h"
#include "gmp/limb/limb.h"
#include "serv/bits.h"

namespace vor::limb {

namespace {

// The remainder of a by d; store(i, limb) takes the quotient limbs.
template <class F>
word divide_each(const word* a, int n, word d, F store) {
    const unsigned s = static_cast<unsigned>(__builtin_clz(d));
    const word dn = d << s, v = inverse_of(dn);
    // Limb i of a shifted left by s bits; limb n is what leaves the top, below d.
    word above = a[n - 1];
    word x = static_cast<word>(dword{above} << s >> 32);
    for (int i = n - 1; i >= 0; --i) {
        const word below = i > 0 ? a[i - 1] : 0;
        const word low = static_cast<word>((dword{above} << 32 | below) << s >> 32);
        const QuotientRemainder step = divide_preinv(x, low, dn, v);
        store(i, step.quotient);
        x = step.remainder;
        above = below;
    }
    return x >> s;
}

} // namespace

word divide_1(word* q, const word* a, int n, word d) {
    if (n <= 0) return 0;
    if (n == 1) {
        const word whole = a[0];
        if (q) q[0] = whole / d;
        return whole % d;
    }
    if ((d & (d - 1)) == 0) {
        const word rest = a[0] & (d - 1);
        if (q) rshift(q, a, n, static_cast<unsigned>(trailing_zeros(d)));
        return rest;
    }
    if (!q) return divide_each(a, n, d, [](int, word) {});
    return divide_each(a, n, d, [q](int i, word x) { q[i] = x; });
}

} // namespace vor::limb
