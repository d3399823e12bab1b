// Random integers. A state holds a cell, the cell holds a stream (generator.h).
//
// State, process-wide and without a lock: the two words below. Two threads that initialise at once
// may get the same seed, with no other harm.
#include "gmp/divide.h"
#include "gmp/generator.h"
#include "gmp/integer.h"

#include <stdlib.h>
#include <time.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr unsigned kGenerator = 0x100000;

int rnd_initialized;
unsigned rnd_seed;

void** cell_of(const vor_randstate* state) {
    return static_cast<void**>(state->cell);
}

// n limbs of uniform bits, `bits` of them kept; n is bits_to_limbs(bits), and so 1 for 0 bits, where
// the limb is kept whole.
void draw(limb_t* limbs, const vor_randstate* state, int n, uint64_t bits) {
    rngUniformBits(0, *cell_of(state), n, limbs);
    if (bits % 32) limbs[bits / 32] &= (limb_t{1} << bits % 32) - 1;
}

void uniform(vor_mpz* r, const vor_randstate* state, uint64_t bits) {
    const int n = bits_to_limbs(bits);
    draw(grow(r, n), state, n, bits);
    finish(r, n, false);
    clear_above(r, n);
}

// A bit of the draw, and the length of its run: the four bits above, of which the next is worth most.
class Runs {
public:
    Runs(limb_t* limbs, uint64_t bits) : limbs_(limbs), bits_(bits) {}

    void spread() {
        for (uint64_t i = 0; i < bits_;) {
            const bool value = get(i);
            int length = 0;
            for (int k = 1; k <= 4; ++k) length = 2 * length + get(i + k);
            for (++i; length > 0 && i < bits_; --length, ++i) set(i, value);
        }
    }

private:
    bool get(uint64_t i) const { return i < bits_ && (limbs_[i / 32] >> i % 32 & 1); }
    void set(uint64_t i, bool value) {
        const limb_t bit = limb_t{1} << i % 32;
        limbs_[i / 32] = value ? limbs_[i / 32] | bit : limbs_[i / 32] & ~bit;
    }

    limb_t* limbs_;
    uint64_t bits_;
};

void runs(vor_mpz* r, const vor_randstate* state, uint64_t bits) {
    const int n = bits_to_limbs(bits);
    draw(grow(r, n), state, n, bits);
    Runs(r->_mp_d, bits).spread();
    finish(r, n, false);
    clear_above(r, n);
}

using Distribution = void (*)(vor_mpz*, const vor_randstate*, uint64_t);

// From a state of its own, through the framed entries.
void once(vor_mpz* r, int limbs, Distribution distribution) {
    vor_randstate state;
    __gmp_randinit_default(&state);
    distribution(r, &state, uint64_t{32} * (limbs < 0 ? 0 : limbs));
    __gmp_randclear(&state);
}

} // namespace

VOR_GMP(void, __gmp_randinit_default, __GMP_RANDINIT_DEFAULT, vor_gmp___gmp_randinit_default,
        (vor_randstate * state), (state)) {
    // A cell is one pointer, as large as a limb.
    state->cell = limb::allocate(1);
    if (!rnd_initialized) {
        srand(static_cast<unsigned>(time(nullptr)));
        rnd_initialized = 1;
    }
    ++rnd_seed;
    rngNewStream(cell_of(state), kGenerator, rnd_seed + static_cast<unsigned>(rand()));
}

VOR_GMP(void, __gmp_randinit_lc_2exp, __GMP_RANDINIT_LC_2EXP, vor_gmp___gmp_randinit_lc_2exp,
        (vor_randstate * state, const vor_mpz* a, unsigned c, unsigned bits), (state, a, c, bits)) {
    (void)a, (void)c, (void)bits;
    vor_gmp___gmp_randinit_default(state);
}

VOR_GMP(int, __gmp_randinit_lc_2exp_size, __GMP_RANDINIT_LC_2EXP_SIZE,
        vor_gmp___gmp_randinit_lc_2exp_size, (vor_randstate * state, unsigned v), (state, v)) {
    (void)v;
    vor_gmp___gmp_randinit_default(state);
    return 0;
}

VOR_GMP(void, __gmp_randseed_ui, __GMP_RANDSEED_UI, vor_gmp___gmp_randseed_ui,
        (vor_randstate * state, unsigned v), (state, v)) {
    (void)state, (void)v;
}

VOR_GMP(void, __gmp_randclear, __GMP_RANDCLEAR, vor_gmp___gmp_randclear, (vor_randstate * state),
        (state)) {
    rngDeleteStream(cell_of(state));
    limb::deallocate(static_cast<limb_t*>(state->cell), 1);
}

extern "C" void __gmp_randinit(vor_randstate* state, ...) {
    __gmp_randinit_default(state);
}

VOR_GMP(void, _gmp_rand, _GMP_RAND, vor_gmp__gmp_rand,
        (unsigned* limbs, vor_randstate* state, unsigned bits), (limbs, state, bits)) {
    draw(limbs, state, bits_to_limbs(bits), bits);
}

VOR_GMP(void, __gmpz_urandomb, __GMPZ_URANDOMB, vor_gmp___gmpz_urandomb,
        (vor_mpz * r, vor_randstate* state, unsigned bits), (r, state, bits)) {
    uniform(r, state, bits);
}

VOR_GMP(void, __gmpz_rrandomb, __GMPZ_RRANDOMB, vor_gmp___gmpz_rrandomb,
        (vor_mpz * r, vor_randstate* state, unsigned bits), (r, state, bits)) {
    runs(r, state, bits);
}

VOR_GMP(void, __gmpz_urandomm, __GMPZ_URANDOMM, vor_gmp___gmpz_urandomm,
        (vor_mpz * r, vor_randstate* state, const vor_mpz* n), (r, state, n)) {
    if (value_size(n) == 0) limb::divide_by_zero();
    Temporary bound;
    vor_gmp___gmpz_abs(bound, n);
    const uint64_t bits = bit_length(bound);
    do uniform(r, state, bits);
    while (vor_gmp___gmpz_cmp(r, bound) >= 0);
}

VOR_GMP(unsigned, mpl_rand_ui, MPL_RAND_UI, vor_gmp_mpl_rand_ui,
        (vor_randstate * state, unsigned v), (state, v)) {
    if (v == 0) limb::divide_by_zero();
    limb_t limb;
    draw(&limb, state, 1, 32);
    return limb % v;
}

extern "C" void __gmpz_random(vor_mpz* r, int limbs) {
    once(r, limbs, uniform);
}

extern "C" void __gmpz_random2(vor_mpz* r, int limbs) {
    once(r, limbs, runs);
}
