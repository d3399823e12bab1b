#include "gmp/generator.h"
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kStateLimbs = 4;

limb_t rotate(limb_t x, int bits) {
    return x << bits | x >> (32 - bits);
}

uint64_t split_mix(uint64_t* state) {
    uint64_t z = (*state += 0x9e3779b97f4a7c15);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

limb_t next(limb_t* s) {
    const limb_t result = rotate(s[1] * 5, 7) * 9;
    const limb_t t = s[1] << 9;
    s[2] ^= s[0];
    s[3] ^= s[1];
    s[1] ^= s[2];
    s[0] ^= s[3];
    s[2] ^= t;
    s[3] = rotate(s[3], 11);
    return result;
}

} // namespace

extern "C" {
int rngNewStream(void** stream, unsigned, unsigned seed) {
    limb_t* const s = limb::allocate(kStateLimbs);
    uint64_t state = seed;
    for (int i = 0; i < kStateLimbs; i += 2) { // two different outputs: never all zero
        const uint64_t z = split_mix(&state);
        s[i] = static_cast<limb_t>(z);
        s[i + 1] = static_cast<limb_t>(z >> 32);
    }
    *stream = s;
    return 0;
}

int rngDeleteStream(void** stream) {
    limb::deallocate(static_cast<limb_t*>(*stream), kStateLimbs);
    *stream = nullptr;
    return 0;
}

int rngUniformBits(int, void* stream, int n, unsigned* words) {
    for (int i = 0; i < n; ++i) words[i] = next(static_cast<limb_t*>(stream));
    return 0;
}
}
