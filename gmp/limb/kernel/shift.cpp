// Two limbs at a time in a 64-bit media register: the pair that starts at limb i is the shifted pair
// at i, with the bits that come in from its neighbour or'ed in. The neighbour is read as the pair that
// starts one limb to its side, so that both shifts leave the same bits where they overlap.
#include "gmp/limb/kernel/shift.h"
#include "gmp/limb/limb.h"

#include <mmintrin.h>

namespace vor::limb {

namespace {

constexpr int kShort = 8; // below, changing to media registers and back costs more than it saves

__m64 load(const word* p) {
    __m64 pair;
    __builtin_memcpy(&pair, p, sizeof pair);
    return pair;
}

void store(word* p, __m64 pair) {
    __builtin_memcpy(p, &pair, sizeof pair);
}

} // namespace

word lshift(word* r, const word* a, int n, unsigned bits) {
    if (n <= 0) return 0;
    if (bits == 0) {
        copy_down(r, a, n);
        return 0;
    }
    const word out = a[n - 1] >> (32 - bits);
    int i = n;
    if (n >= kShort) {
        const __m64 up = _mm_cvtsi32_si64(static_cast<int>(bits));
        const __m64 down = _mm_cvtsi32_si64(static_cast<int>(32 - bits));
        for (; i >= 3; i -= 2)
            store(r + i - 2, _mm_or_si64(_mm_sll_si64(load(a + i - 2), up),
                                         _mm_srl_si64(load(a + i - 3), down)));
        _mm_empty();
    }
    for (; i > 1; --i) r[i - 1] = a[i - 1] << bits | a[i - 2] >> (32 - bits);
    r[0] = a[0] << bits;
    return out;
}

void rshift(word* r, const word* a, int n, unsigned bits) {
    if (n <= 0) return;
    if (bits == 0) return copy(r, a, n);
    int i = 0;
    if (n >= kShort) {
        const __m64 down = _mm_cvtsi32_si64(static_cast<int>(bits));
        const __m64 up = _mm_cvtsi32_si64(static_cast<int>(32 - bits));
        for (; i < n - 2; i += 2)
            store(r + i,
                  _mm_or_si64(_mm_srl_si64(load(a + i), down), _mm_sll_si64(load(a + i + 1), up)));
        _mm_empty();
    }
    for (; i < n - 1; ++i) r[i] = a[i] >> bits | a[i + 1] << (32 - bits);
    r[n - 1] = a[n - 1] >> bits;
}

} // namespace vor::limb
