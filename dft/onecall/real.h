// Transforms of one real vector of n values, n a power of two above 1, with the tables of a filled wsave.
#pragma once

#include "dft/onecall/report.h"
#include "dft/onecall/transform.h"
#include "dft/radix/recombine.h"
#include "dft/routines.h"
#include "serv/memory.h"

namespace vor::dfti::onecall {

// The recombination table stands behind the tables of n/2 complex numbers.
template <class R>
R* recombination_of(R* wsave, int n) {
    return wsave + n / 2 * 3;
}

template <class R>
void fill_real(R* wsave, int n) {
    radix::fill_coefficients(wsave, order_of(n) - 1);
    radix::fill_recombination(recombination_of(wsave, n), n);
}

// Between n reals and their spectrum in CCS; the inverse divides by n.
template <Direction D, class R>
void real_transform(R* r, int n, const R* wsave, Team team = {}) {
    const Pairs<R> pairs{reinterpret_cast<complex_t<R>*>(r)};
    const R* const table = recombination_of(wsave, n);
    constexpr bool forward = D == Direction::forward;
    if (!forward) radix::recombine_backward(r, n, table);
    if (n >= 4) transform(pairs, order_of(n) - 1, forward ? -1 : 1, wsave, team);
    if (forward) radix::recombine_forward(r, n, table);
}

// How a real member keeps a spectrum of n/2 + 1 numbers: as CCS, part by part, or all real parts and then all
// imaginary ones.
enum class Storage { pairs, split };

// Between a vector with a step and n + 2 neighbouring words in CCS.
template <Storage storage, class R>
void fetch_spectrum(const R* r, int step, int n, R* work) {
    const int half = n / 2 + 1;
    if (storage == Storage::pairs) return Routines<R>::copy(n + 2, r, step, work, 1);
    Routines<R>::copy(half, r, step, work, 2);
    Routines<R>::copy(half, ahead(r, half, step), step, work + 1, 2);
}
template <Storage storage, class R>
void put_spectrum(const R* work, int n, R* r, int step) {
    const int half = n / 2 + 1;
    if (storage == Storage::pairs) return Routines<R>::copy(n + 2, work, 1, r, step);
    Routines<R>::copy(half, work, 2, r, step);
    Routines<R>::copy(half, work + 1, 2, ahead(r, half, step), step);
}

// The transform of a vector with a step, by way of `work`, which has room for n + 2 words.
template <Direction D, Storage storage, class R>
void transform_apart(R* r, int step, int n, const R* wsave, R* work, Team team = {}) {
    if constexpr (D == Direction::forward) {
        Routines<R>::copy(n, r, step, work, 1);
        real_transform<D>(work, n, wsave, team);
        put_spectrum<storage>(work, n, r, step);
    } else {
        fetch_spectrum<storage>(r, step, n, work);
        real_transform<D>(work, n, wsave, team);
        Routines<R>::copy(n, work, 1, r, step);
    }
}

} // namespace vor::dfti::onecall
