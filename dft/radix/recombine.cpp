// Recombination by name, and permutations by cycles.
//
// r, n, and the area of the recombination table; a third argument of the recombinations is not read. The table
// routines take the area and k - 1, the order of the complex transform of n/2 = 2^(k-1) points.
#include "dft/radix/recombine.h"
#include "dft/radix/coefficients.h"
#include "serv/memory.h"

using namespace vor::dfti::radix;

#define TABLE(name, R)                                                                             \
    extern "C" void name(R* area, const int* order) {                                              \
        fill_recombination(area, 2 << *order);                                                     \
    }
TABLE(vor_dft_csreccoef, float)
TABLE(vor_dft_zdreccoef, double)
TABLE(vor_dft_zdreccoefc, double)

#define RECOMBINATION(name, R, function)                                                           \
    extern "C" void name(R* r, const int* n, const void*, const R* table) {                        \
        function(r, *n, table);                                                                    \
    }
RECOMBINATION(vor_dft_screcom, float, recombine_forward)
RECOMBINATION(vor_dft_dzrecom, double, recombine_forward)
RECOMBINATION(vor_dft_csrecom, float, recombine_backward)
RECOMBINATION(vor_dft_zdrecom, double, recombine_backward)

namespace {

template <class R>
struct Pair {
    R re, im;
};

// n - 2 entries: 0 is passed over; the magnitude of any other is an index. The first one of a cycle is where it
// starts: that pair is carried from there on, exchanged at each index, and set down at the start after a negative
// entry.
template <class R>
void permute_by_cycles(const int* list, int n, R* re, R* im, int stride) {
    constexpr int kNone = -1;
    int start = kNone;
    Pair<R> carried{};
    for (int i = 0; i < n - 2; ++i) {
        const int v = list[i], m = v < 0 ? -v : v;
        if (v == 0) continue;
        R &x = re[m * stride], &y = im[m * stride];
        const Pair<R> here = {x, y};
        if (start == kNone) {
            start = m;
        } else {
            x = carried.re;
            y = carried.im;
        }
        carried = here;
        if (v > 0) continue;
        re[start * stride] = carried.re;
        im[start * stride] = carried.im;
        start = kNone;
    }
}

// Position i takes the pair at list[n + i]. With `adjacent` a stride of 2 means complex numbers in `re` alone.
// Without memory nothing is done.
template <class R>
void permute_by_copy(const int* list, int n, R* re, R* im, int stride, bool adjacent) {
    if (n < 1) return;
    const vor::Scratch<Pair<R>> gathered(static_cast<size_t>(n));
    if (!gathered) return;
    if (adjacent && stride == 2) im = re + 1;
    for (int i = 0; i < n; ++i) {
        const int from = list[n + i] * stride;
        gathered.get()[i] = {re[from], im[from]};
    }
    for (int i = 0; i < n; ++i) {
        re[i * stride] = gathered.get()[i].re;
        im[i * stride] = gathered.get()[i].im;
    }
}

} // namespace

#define MIX(cycles, copied, R)                                                                     \
    extern "C" void cycles(const int* list, const int* n, R* re, R* im, const int* stride) {       \
        permute_by_cycles(list, *n, re, im, *stride);                                              \
    }                                                                                              \
    extern "C" void copied(const int* list, const int* n, R* re, R* im, const int* stride) {       \
        permute_by_copy(list, *n, re, im, *stride, true);                                          \
    }
MIX(vor_dft_mix_revd, vor_dft_mix_revd_copy, double)
MIX(vor_dft_mix_revf, vor_dft_mix_revf_copy, float)
extern "C" void vor_dft_mix_revf_float(const int* list, const int* n, float* re, float* im,
                                       const int* stride) {
    permute_by_copy(list, *n, re, im, *stride, false);
}
