// The next prime: a sieve of the odd numbers that follow, by the more primes the longer they are, and the
// test of Miller and Rabin for what it leaves.
#include "gmp/primes.h"
#include "gmp/sieve.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kRounds = 5;
constexpr int kMostCandidates = 2048;

// Odd numbers to a sieve: about six gaps between primes of so many bits.
int candidates_for(uint64_t bits) {
    return bits < kMostCandidates / 2 ? static_cast<int>(2 * bits) : kMostCandidates;
}

// A power costs the cube of the length, a residue the length: the bound of the sieve grows with the square of
// the bits. The factor is a choice that no measurement has confirmed.
limb_t largest_divisor(uint64_t bits) {
    return bits < 1280 ? static_cast<limb_t>(bits * bits / 16 + 100) : 102500;
}

// The odd numbers start, start + 2, ..., and which of them have small factors.
class Candidates {
public:
    Candidates(const vor_mpz* start, int count) : count_(count) {
        const uint64_t bits = bit_length(start);
        memset(composite_, 0, static_cast<size_t>(count));
        const Sieve sieve(largest_divisor(bits));
        limb_t batch[kMostBatch], product = 1;
        int n = 0;
        const auto divide = [&] {
            const limb_t rest = limb::divide_1(nullptr, start->_mp_d, limbs_of(start), product);
            for (int i = 0; i < n; ++i) strike(batch[i], rest % batch[i]);
            product = 1;
            n = 0;
        };
        sieve.each(largest_divisor(bits), [&](limb_t p) {
            if (dlimb_t{product} * p >> 32) divide();
            product *= p;
            batch[n++] = p;
        });
        divide();
    }
    bool composite(int i) const { return composite_[i]; }

private:
    static constexpr int kMostBatch = 10; // 3 * 5 * ... * 29 is the longest product

    // The i with rest + 2 i = 0 modulo p.
    void strike(limb_t p, limb_t rest) {
        const limb_t gap = rest ? p - rest : 0;
        for (limb_t i = (gap % 2 ? gap + p : gap) / 2; i < static_cast<limb_t>(count_); i += p)
            composite_[i] = true;
    }

    int count_;
    bool composite_[kMostCandidates];
};

} // namespace

VOR_GMP(void, __gmpz_nextprime, __GMPZ_NEXTPRIME, vor_gmp___gmpz_nextprime,
        (vor_mpz * r, const vor_mpz* a), (r, a)) {
    if (vor_gmp___gmpz_cmp_ui(a, 2) < 0) return vor_gmp___gmpz_set_ui(r, 2);
    vor_gmp___gmpz_add_ui(r, a, a->_mp_d[0] % 2 ? 2 : 1);
    // A prime of one limb may be among those that sieve.
    while (limbs_of(r) == 1) {
        if (vor_gmp___gmpz_probab_prime_p(r, kRounds)) return;
        vor_gmp___gmpz_add_ui(r, r, 2);
    }
    Temporary start;
    vor_gmp___gmpz_set(start, r);
    const int count = candidates_for(bit_length(start));
    for (;;) {
        const Candidates candidates(start, count);
        for (int i = 0; i < count; ++i) {
            if (candidates.composite(i)) continue;
            vor_gmp___gmpz_add_ui(r, start, 2 * static_cast<unsigned>(i));
            if (vor_gmp___gmpz_probab_prime_p(r, kRounds)) return;
        }
        vor_gmp___gmpz_add_ui(start, start, 2 * static_cast<unsigned>(count));
    }
}
