// What the files of the big-number layer share: argument checks, trimming, room.
#pragma once

#include "gmp/limb/limb.h"
#include "vor_bignum.h"

namespace vor::bn {

using limb::dword;
using limb::word;

constexpr unsigned kBigNumId = 0x4C4D5352;
constexpr unsigned kMontId = 0x4C4D5353;

template <class... P>
[[nodiscard]] inline bool any_null(P... pointer) {
    return (!pointer || ...);
}

// The state behind a caller's address: the next multiple of 4.
template <class S>
inline S* aligned(S* state) {
    return reinterpret_cast<S*>((reinterpret_cast<uintptr_t>(state) + 3) & ~uintptr_t{3});
}

inline bool of_its_kind(const BigNumState* state) {
    return state->idCtx == kBigNumId;
}
inline bool of_its_kind(const MontState* state) {
    return state->idCtx == kMontId;
}

// Takes the addresses to the states behind them; null pointers first, then the kind of each.
template <class... S>
[[nodiscard]] inline TavStatus open_states(S*&... state) {
    if (any_null(state...)) return tavStsNullPtrErr;
    ((state = aligned(state)), ...);
    return (of_its_kind(state) && ...) ? tavStsNoErr : tavStsContextMatchErr;
}

// n without top zeros, at least 1.
inline int trimmed(const word* a, int n) {
    const int size = limb::normal_size(a, n);
    return size ? size : 1;
}

inline bool is_zero(const BigNumState* a) {
    return a->size == 1 && a->number[0] == 0;
}

inline bool is_negative(const BigNumState* a) {
    return a->sgn == TavsBigNumNEG;
}

// Gives r its size and its sign; zero is positive.
inline void finish(BigNumState* r, int size, unsigned sgn) {
    r->size = size;
    r->sgn = is_zero(r) ? unsigned{TavsBigNumPOS} : sgn;
}

} // namespace vor::bn
