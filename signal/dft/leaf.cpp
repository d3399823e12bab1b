// In-order complex leaves: the first transforms, read from the input with strides. Block by block,
// for t = 0 to c-1
//
//     y[t r + k] = sum over m of x[offset + t p + m p c] W^(m k),   W = exp(-2 pi i / r)
//
// or with the conjugate in the inverse direction. Source and destination do not overlap.
//
// Single precision takes four transforms at a time, whichever blocks they belong to. A last group that
// is not full repeats the last transform.
#include "signal/dft/kernels.h"
#include "signal/dft/lanes.h"

namespace vor::dft {
namespace {

template <Direction D, class Radix, Complex C>
VOR_INLINE inline void leaf(Radix radix, const C* x, int p, C* y, int c, int blocks,
                            const int* offsets) {
    for (int b = 0; b < blocks; ++b) {
        const C* from = x + offsets[b];
        for (int t = 0; t < c; ++t, from += p, y += radix.size())
            column<D>(radix, from, y, p * c, 1);
    }
}

// The transforms of all blocks one after the other, and where each reads.
class Starts {
public:
    Starts(int p, int c, int blocks, const int* offsets)
        : p_(p), length_(p * c), blocks_(blocks), offset_(offsets), start_(*offsets) {}

    // The next transform; the last one again when there is none.
    int next() {
        const int start = start_;
        within_ += p_;
        if (within_ != length_)
            start_ += p_;
        else if (blocks_ > 1) {
            --blocks_;
            within_ = 0;
            start_ = *++offset_;
        } else
            within_ -= p_;
        return start;
    }

private:
    int p_, length_, blocks_;
    const int* offset_;
    int start_, within_ = 0;
};

template <Direction D, class Radix>
VOR_INLINE inline void leaf(Radix radix, const cfloat* x, int p, cfloat* y, int c, int blocks,
                            const int* offsets) {
    const Wide<Radix> wide(radix);
    if (!wide.fits()) return leaf<D, Radix, cfloat>(radix, x, p, y, c, blocks, offsets);
    const int r = radix.size();
    Starts starts(p, c, blocks, offsets);
    for (int left = c * blocks; left > 0; left -= kLanes, y += kLanes * r) {
        const int first = starts.next(), second = starts.next();
        const int third = starts.next(), fourth = starts.next();
        const int last = left < kLanes ? left - 1 : kLanes - 1;
        columns<D>(wide.radix, Apart{second - first, third - first, fourth - first}, x + first,
                   p * c, Apart{last < 1 ? 0 : r, (last < 2 ? last : 2) * r, last * r}, y, 1);
    }
}

constexpr int kNoOffset = 0;

} // namespace
} // namespace vor::dft

#define LEAF(R, Dir, D, suffix, C)                                                                 \
    extern "C" void tavs_cDft##Dir##_Prime##R##_##suffix(const C* source, int p, C* destination,   \
                                                         int c, int blocks, const int* offsets) {  \
        vor::dft::leaf<vor::dft::Direction::D>(vor::dft::FixedRadix<R>{}, source, p, destination,  \
                                               c, blocks, offsets);                                \
    }
#define LEAVES(Dir, D, suffix, T, C)                                                               \
    LEAF(3, Dir, D, suffix, C)                                                                     \
    LEAF(5, Dir, D, suffix, C)                                                                     \
    extern "C" void tavs_cDft##Dir##_Prime_##suffix(const C* source, int p, C* destination, int r, \
                                                    int c, const C* table, void* scratch) {        \
        const vor::dft::TableRadix<T> radix{r, table, scratch};                                    \
        vor::dft::leaf<vor::dft::Direction::D>(radix, source, p, destination, c, 1,                \
                                               &vor::dft::kNoOffset);                              \
    }
LEAVES(Fwd, forward, 32fc, float, vor::cfloat)
LEAVES(Inv, inverse, 32fc, float, vor::cfloat)
LEAVES(Fwd, forward, 64fc, double, vor::cdouble)
LEAVES(Inv, inverse, 64fc, double, vor::cdouble)
