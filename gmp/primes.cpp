// Primality: division by the primes below 1000, then the test of Miller and Rabin with random bases
// (Rabin, Journal of Number Theory 12, 1980; Knuth, 4.5.4, algorithm P).
#include "gmp/primes.h"

using namespace vor;
using namespace vor::gmp;

namespace {

enum Answer { composite = 0, probably_prime = 1, prime = 2, unknown = -1 };

// v odd
Answer divide_word(limb_t v) {
    if (v == 1) return composite;
    for (const limb_t p : kPrimes.prime) {
        const limb_t q = v / p;
        if (q < p) return prime;
        if (q * p == v) return composite;
    }
    return unknown;
}

bool has_small_factor(const limb_t* n, int size) {
    for (int i = 0; i < kSmallPrimes;) {
        const PrimeBatch batch(i);
        const limb_t rest = limb::divide_1(nullptr, n, size, batch.product);
        for (; i < batch.end; ++i)
            if (rest % kPrimes.prime[i] == 0) return true;
    }
    return false;
}

class RandomState {
public:
    RandomState() { vor_gmp___gmp_randinit_default(&state_); }
    ~RandomState() { vor_gmp___gmp_randclear(&state_); }
    RandomState(const RandomState&) = delete;
    RandomState& operator=(const RandomState&) = delete;
    operator vor_randstate*() { return &state_; }

private:
    vor_randstate state_;
};

// n odd and above 2
Answer miller_rabin(const vor_mpz* n, int reps) {
    RandomState state;
    Temporary nm1, q, t, x, y;
    vor_gmp___gmpz_sub_ui(nm1, n, 1);
    const unsigned k = vor_gmp___gmpz_scan1(nm1, 0);
    vor_gmp___gmpz_tdiv_q_2exp(q, nm1, k);
    Answer answer = prime; // as far as division tells
    for (int i = 0; i < reps && answer != composite; ++i) {
        do vor_gmp___gmpz_urandomm(y, state, nm1);
        while (y->_mp_size == 0);
        answer = _impMRtest(q, t, y, x, n, nm1, k) ? probably_prime : composite;
    }
    return answer;
}

} // namespace

extern "C" int _impMRtest(const vor_mpz* q, vor_mpz* t, const vor_mpz* y, vor_mpz* x,
                          const vor_mpz* n, const vor_mpz* nm1, unsigned k) {
    vor_gmp___gmpz_set(t, q);
    vor_gmp_mpz_powm_mary(x, y, t, n); // the power that __gmpz_powm finds, sooner
    if (vor_gmp___gmpz_cmp_ui(x, 1) == 0 || vor_gmp___gmpz_cmp(x, nm1) == 0) return 1;
    for (unsigned i = 1; i < k; ++i) {
        vor_gmp___gmpz_mul(x, x, x);
        vor_gmp___gmpz_mod(x, x, n);
        if (vor_gmp___gmpz_cmp(x, nm1) == 0) return 1;
    }
    return 0;
}

VOR_GMP(int, __gmpz_probab_prime_p, __GMPZ_PROBAB_PRIME_P, vor_gmp___gmpz_probab_prime_p,
        (const vor_mpz* x, int i), (x, i)) {
    const vor_mpz magnitude{x->_mp_alloc, value_size(x), x->_mp_d};
    const vor_mpz* const n = &magnitude;
    const int reps = i, size = limbs_of(n);
    if (size == 0 || n->_mp_d[0] % 2 == 0)
        return vor_gmp___gmpz_cmp_ui(n, 2) == 0 ? prime : composite;
    const Answer answer = size == 1                          ? divide_word(n->_mp_d[0])
                          : has_small_factor(n->_mp_d, size) ? composite
                                                             : unknown;
    return answer != unknown ? answer : miller_rabin(n, reps);
}
