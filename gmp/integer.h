// What the integer engines share: sizes and signs of records, room, scratch, temporaries.
//
// Every size in limbs that an operation needs is formed in 64 bits and goes through
// `allocate_limbs`, where a size that 32 bits cannot address, or that the allocator refuses, ends
// the process with a report. So no engine sees a null block, and none looks for one.
#pragma once

#include "gmp/bn/bignum.h"
#include "gmp/signatures.h"
#include "serv/entry.h"

#include <string.h>

// The current allocation functions (memory.cpp).
extern "C" vor_gmp_allocator vor_gmp_vor_gmp_allocate;
extern "C" vor_gmp_reallocator vor_gmp_vor_gmp_reallocate;
extern "C" vor_gmp_deallocator vor_gmp_vor_gmp_free;

namespace vor::gmp {

using limb_t = limb::word;
using dlimb_t = limb::dword;

constexpr int kMinimumLimbs = 8; // small values never reallocate

#pragma GCC visibility push(hidden)
// Reports on stderr that `function` could not have `bytes` bytes, and aborts.
[[noreturn]] void out_of_memory(const char* function, uint64_t bytes);
// n limbs with undefined contents from the current allocation function.
limb_t* allocate_limbs(uint64_t n, const char* function = __builtin_FUNCTION());
void free_limbs(limb_t* limbs, int n);
// A block of n limbs for x in place of its own, with `kept` limbs of the old one and zeros above.
void move_limbs(vor_mpz* x, uint64_t n, int kept, const char* function);
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

// n without zero limbs on top, may be 0.
inline int normal_size(const limb_t* p, int n) {
    while (n > 0 && p[n - 1] == 0) --n;
    return n;
}

// Limb count of the magnitude, where a single zero limb counts as none.
inline int value_size(const vor_mpz* x) {
    const int n = limbs_of(x);
    return n == 1 && x->_mp_d[0] == 0 ? 0 : n;
}

// Limbs that hold so many bits, at least 1.
inline int bits_to_limbs(uint64_t bits) {
    return bits == 0 ? 1 : static_cast<int>((bits + 31) / 32);
}

inline uint64_t bit_length(const vor_mpz* x) {
    const int n = normal_size(x->_mp_d, limbs_of(x));
    return n == 0 ? 0 : uint64_t{32} * n - __builtin_clz(x->_mp_d[n - 1]);
}

// x with room for n limbs: value kept, fresh limbs zero. The limbs, wherever they are now.
inline limb_t* grow(vor_mpz* x, uint64_t n, const char* function = __builtin_FUNCTION()) {
    if (n > static_cast<uint64_t>(x->_mp_alloc)) move_limbs(x, n, x->_mp_alloc, function);
    return x->_mp_d;
}

inline void copy_limbs(limb_t* d, const limb_t* s, int n) {
    for (int i = 0; i < n; ++i) d[i] = s[i];
}

inline void clear_limbs(limb_t* d, int n) {
    for (int i = 0; i < n; ++i) d[i] = 0;
}

// Zeros in x from limb `from` to the end of its allocation.
inline void clear_above(vor_mpz* x, int from) {
    clear_limbs(x->_mp_d + from, x->_mp_alloc - from);
}

// Gives x the magnitude in its n low limbs.
inline void finish(vor_mpz* x, int n, bool minus) {
    x->_mp_size = with_sign(normal_size(x->_mp_d, n), minus);
}

// Scratch of n limbs for one call: on the stack up to `Local` limbs, else allocated.
template <int Local>
class Limbs {
public:
    explicit Limbs(uint64_t n, const char* function = __builtin_FUNCTION()) {
        if (n <= Local) return;
        size_ = static_cast<int>(n);
        limbs_ = allocate_limbs(n, function);
    }
    ~Limbs() {
        if (limbs_ != local_) free_limbs(limbs_, size_);
    }
    Limbs(const Limbs&) = delete;
    Limbs& operator=(const Limbs&) = delete;
    operator limb_t*() { return limbs_; }

private:
    limb_t local_[Local];
    limb_t* limbs_ = local_;
    int size_ = 0;
};

// Scratch that is always allocated.
template <>
class Limbs<0> {
public:
    explicit Limbs(uint64_t n, const char* function = __builtin_FUNCTION())
        : size_(static_cast<int>(n)), limbs_(allocate_limbs(n, function)) {}
    ~Limbs() { free_limbs(limbs_, size_); }
    Limbs(const Limbs&) = delete;
    Limbs& operator=(const Limbs&) = delete;
    operator limb_t*() { return limbs_; }

private:
    int size_;
    limb_t* limbs_;
};

// A temporary record.
class Temporary {
public:
    explicit Temporary(uint64_t limbs = kMinimumLimbs, const char* function = __builtin_FUNCTION())
        : x_{0, 0, nullptr} {
        move_limbs(&x_, limbs < kMinimumLimbs ? kMinimumLimbs : limbs, 0, function);
    }
    ~Temporary() { vor_gmp___gmpz_clear(&x_); }
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
