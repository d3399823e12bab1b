// The next prime: a sieve of the odd numbers that follow by the primes below 1000, and the test of Miller
// and Rabin for what it leaves.
#include "gmp/primes.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kRounds = 5;
constexpr limb_t kWindow = 2048; // odd numbers to a sieve

// Marks the i for which start + 2 i has a factor among the small primes.
void sieve(bool* composite, const vor_mpz* start) {
    memset(composite, 0, kWindow);
    for (int i = 0; i < kSmallPrimes;) {
        const PrimeBatch batch(i);
        const limb_t rest = limb::divide_1(nullptr, start->_mp_d, limbs_of(start), batch.product);
        for (; i < batch.end; ++i) {
            const limb_t p = kPrimes.prime[i], r = rest % p;
            // The least j >= 0 with r + 2 j = 0 modulo p.
            const limb_t gap = r ? p - r : 0;
            for (limb_t j = (gap % 2 ? gap + p : gap) / 2; j < kWindow; j += p) composite[j] = true;
        }
    }
}

// The least prime from the odd r on, by single tests: below 1000^2 the sieve would take the primes too.
void test_each(vor_mpz* r) {
    while (!vor_gmp___gmpz_probab_prime_p(r, kRounds)) vor_gmp___gmpz_add_ui(r, r, 2);
}

} // namespace

VOR_GMP(void, __gmpz_nextprime, __GMPZ_NEXTPRIME, vor_gmp___gmpz_nextprime,
        (vor_mpz * r, const vor_mpz* a), (r, a)) {
    if (vor_gmp___gmpz_cmp_ui(a, 2) < 0) return vor_gmp___gmpz_set_ui(r, 2);
    vor_gmp___gmpz_add_ui(r, a, a->_mp_d[0] % 2 ? 2 : 1);
    if (limbs_of(r) == 1) return test_each(r);
    Temporary start;
    vor_gmp___gmpz_set(start, r);
    bool composite[kWindow];
    for (;;) {
        sieve(composite, start);
        for (limb_t i = 0; i < kWindow; ++i) {
            if (composite[i]) continue;
            vor_gmp___gmpz_add_ui(r, start, 2 * i);
            if (vor_gmp___gmpz_probab_prime_p(r, kRounds)) return;
        }
        vor_gmp___gmpz_add_ui(start, start, 2 * kWindow);
    }
}
