// The magnitude of an integer as words of any size, byte by byte from the least significant one.
#include "gmp/bytes.h"
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"
#include "gmp/word_bytes.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// Bits of a magnitude in order, zeros without end above it.
class Bits {
public:
    Bits(const limb_t* limbs, int n) : next_(limbs), end_(limbs + n) {}

    unsigned take(unsigned count) { // at most 8
        if (held_ < count) {
            bits_ |= dlimb_t{next_ < end_ ? *next_++ : 0} << held_;
            held_ += 32;
        }
        const unsigned taken = static_cast<unsigned>(bits_) & ((1u << count) - 1);
        bits_ >>= count;
        held_ -= count;
        return taken;
    }

private:
    const limb_t* next_;
    const limb_t* end_;
    dlimb_t bits_ = 0;
    unsigned held_ = 0;
};

// bits / value_bits, rounded up, without a division of 64 bits: more than 2^32 value bits go into the longest
// number a few times only.
uint64_t words_for(uint64_t bits, uint64_t value_bits) {
    const uint64_t above = bits + value_bits - 1;
    if (value_bits > UINT32_MAX) {
        uint64_t count = 0;
        for (uint64_t rest = above; rest >= value_bits; rest -= value_bits) ++count;
        return count;
    }
    limb_t quotient[] = {static_cast<limb_t>(above), static_cast<limb_t>(above >> 32)};
    limb::divide_1(quotient, quotient, 2, static_cast<limb_t>(value_bits));
    return uint64_t{quotient[1]} << 32 | quotient[0];
}

} // namespace

VOR_GMP(void*, __gmpz_export, __GMPZ_EXPORT, vor_gmp___gmpz_export,
        (void* dst, unsigned* count, int order, unsigned size, int endian, unsigned nails,
         const vor_mpz* x),
        (dst, count, order, size, endian, nails, x)) {
    if (count) *count = 0;
    const uint64_t bits = bit_length(x);
    if (bits == 0) return dst;
    const WordBytes words(size, order, endian, nails);
    if (words.value_bits() == 0) limb::divide_by_zero();
    const uint64_t n = words_for(bits, words.value_bits());
    if (!dst) dst = allocate_bytes(n > UINT32_MAX / size ? UINT64_MAX : n * size);
    if (count) *count = static_cast<unsigned>(n);
    Bits source(x->_mp_d, limbs_of(x));
    words.each(static_cast<unsigned char*>(dst), static_cast<unsigned>(n),
               [&](unsigned char& byte, unsigned bits_here) {
                   byte = static_cast<unsigned char>(source.take(bits_here));
               });
    return dst;
}
