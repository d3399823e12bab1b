// The value of words of any size, byte by byte from the least significant one.
#include "gmp/integer.h"
#include "gmp/word_bytes.h"

using namespace vor::gmp;

VOR_GMP(void, __gmpz_import, __GMPZ_IMPORT, vor_gmp___gmpz_import,
        (vor_mpz * r, unsigned count, int order, unsigned size, int endian, unsigned nails,
         const void* src),
        (r, count, order, size, endian, nails, src)) {
    const WordBytes words(size, order, endian, nails);
    const uint64_t bits = words.value_bits() * count;
    if (bits == 0) {
        r->_mp_size = 0;
        return;
    }
    const int n = bits_to_limbs(bits);
    limb_t* const limbs = grow(r, (bits + 31) / 32);
    limb_t* next = limbs;
    dlimb_t held = 0;
    unsigned held_bits = 0;
    words.each(static_cast<const unsigned char*>(src), count,
               [&](unsigned char byte, unsigned bits_here) {
                   held |= dlimb_t{byte & ((1u << bits_here) - 1)} << held_bits;
                   held_bits += bits_here;
                   if (held_bits < 32) return;
                   *next++ = static_cast<limb_t>(held);
                   held >>= 32;
                   held_bits -= 32;
               });
    if (held_bits > 0) *next = static_cast<limb_t>(held);
    finish(r, n, false);
}
