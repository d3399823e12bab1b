// What the integer engines share: sizes and signs of records, room, temporaries.
//
// Every size in limbs that an operation needs is formed in 64 bits and goes through the allocation of
// the limb floor (gmp/limb/scratch.h): no engine sees a null block.
#pragma once

#include "gmp/engines.h"
#include "gmp/entry.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "serv/bits.h"

namespace vor::gmp {

using limb::Limbs;
using limb_t = limb::word;
using dlimb_t = limb::dword;

constexpr int kMinimumLimbs = 8; // small values never reallocate

#pragma GCC visibility push(hidden)
// A block of n limbs for x in place of its own, with `kept` limbs of the old one and zeros above.
void move_limbs(vor_mpz* x, uint64_t n, int kept);
#pragma GCC visibility pop

inline int limbs_of(const vor_mpz* x) {
    return x->_mp_size < 0 ? -x->_mp_size : x->_mp_size;
}

inline bool negative(const vor_mpz* x) {
    return x->_mp_size < 0;
}

inline int with_sign(int size, bool minus) {
    return minus ? -size : size;
}

inline void set_sign(vor_mpz* x, bool minus) {
    x->_mp_size = with_sign(limbs_of(x), minus);
}

// Limb count of the magnitude, where a single zero limb counts as none.
inline int value_size(const vor_mpz* x) {
    const int n = limbs_of(x);
    return n == 1 && x->_mp_d[0] == 0 ? 0 : n;
}

// The same with the sign of the number.
inline int signed_size(const vor_mpz* x) {
    const int n = x->_mp_size;
    return (n == 1 || n == -1) && x->_mp_d[0] == 0 ? 0 : n;
}

// Limbs that hold so many bits, at least 1.
inline int bits_to_limbs(uint64_t bits) {
    return bits == 0 ? 1 : static_cast<int>((bits + 31) / 32);
}

inline uint64_t bit_length(const vor_mpz* x) {
    const int n = limb::normal_size(x->_mp_d, limbs_of(x));
    return n == 0 ? 0 : uint64_t{32} * n - __builtin_clz(x->_mp_d[n - 1]);
}

// The lowest set bit of the magnitude, in 64 bits since a record may hold more than 2^32; of zero, the bit
// behind its limbs.
inline uint64_t lowest_bit(const vor_mpz* x) {
    const int n = limbs_of(x);
    int k = 0;
    while (k < n && x->_mp_d[k] == 0) ++k;
    return uint64_t{32} * static_cast<unsigned>(k) +
           static_cast<unsigned>(k < n ? trailing_zeros(x->_mp_d[k]) : 0);
}

// x with room for n limbs: value kept, fresh limbs zero. The limbs, wherever they are now.
inline limb_t* grow(vor_mpz* x, uint64_t n) {
    if (n > static_cast<uint64_t>(x->_mp_alloc)) move_limbs(x, n, x->_mp_alloc);
    return x->_mp_d;
}

// For sums of few sizes of records, each below 2^30: no sum of 64 bits on the way of small numbers.
inline limb_t* grow(vor_mpz* x, int n) {
    if (n > x->_mp_alloc) move_limbs(x, static_cast<unsigned>(n), x->_mp_alloc);
    return x->_mp_d;
}

// Zeros in x from limb `from` to the end of its allocation.
inline void clear_above(vor_mpz* x, int from) {
    limb::clear(x->_mp_d + from, x->_mp_alloc - from);
}

// Gives x the magnitude in its n low limbs.
inline void finish(vor_mpz* x, int n, bool minus) {
    x->_mp_size = with_sign(limb::normal_size(x->_mp_d, n), minus);
}

// A temporary record.
class Temporary {
public:
    explicit Temporary(uint64_t limbs = kMinimumLimbs) : x_{0, 0, nullptr} {
        move_limbs(&x_, limbs < kMinimumLimbs ? kMinimumLimbs : limbs, 0);
    }
    ~Temporary() { limb::deallocate(x_._mp_d, x_._mp_alloc); }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    operator vor_mpz*() { return &x_; }
    vor_mpz* operator->() { return &x_; }

private:
    vor_mpz x_;
};

// The value of a word, or of a word with a sign, as a read-only record.
class WordValue {
public:
    explicit WordValue(limb_t v, bool minus = false)
        : limb_(v), x_{1, with_sign(v != 0, minus), &limb_} {}
    WordValue(const WordValue&) = delete;
    WordValue& operator=(const WordValue&) = delete;
    operator const vor_mpz*() const { return &x_; }

private:
    limb_t limb_;
    vor_mpz x_;
};

} // namespace vor::gmp
