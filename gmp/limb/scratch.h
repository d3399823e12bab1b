// Scratch of limbs. It comes from the allocation functions of the integers (gmp/memory.cpp), where a
// size that 32 bits cannot address, or that the allocator refuses, ends the process with a report: so
// no operation sees a null block, and none looks for one.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

#pragma GCC visibility push(hidden)
// n limbs with undefined contents.
word* allocate(uint64_t n);
// The same, or null.
word* try_allocate(uint64_t n);
void deallocate(word* limbs, int n);
#pragma GCC visibility pop

// Scratch of n limbs for one call: on the stack up to `Local` limbs, else allocated.
template <int Local>
class Limbs {
public:
    explicit Limbs(uint64_t n) {
        if (n <= Local) return;
        size_ = static_cast<int>(n);
        limbs_ = allocate(n);
    }
    ~Limbs() {
        if (limbs_ != local_) deallocate(limbs_, size_);
    }
    Limbs(const Limbs&) = delete;
    Limbs& operator=(const Limbs&) = delete;
    operator word*() { return limbs_; }

private:
    word local_[Local];
    word* limbs_ = local_;
    int size_ = 0;
};

// Scratch that is always allocated.
template <>
class Limbs<0> {
public:
    explicit Limbs(uint64_t n) : size_(static_cast<int>(n)), limbs_(allocate(n)) {}
    ~Limbs() { deallocate(limbs_, size_); }
    Limbs(const Limbs&) = delete;
    Limbs& operator=(const Limbs&) = delete;
    operator word*() { return limbs_; }

private:
    int size_;
    word* limbs_;
};

} // namespace vor::limb
