// The parts of the DFT that stand in files of their own, each instantiated there for float and double.
// T is the real type, C the complex one; n counts elements of what is transformed. Scratch holds n complex
// elements for a direct sum; `work` is what the object asks for, from an aligned address on.
#pragma once

#include "signal/dft/context.h"

namespace vor::dft {

#pragma GCC visibility push(hidden)

// ---- Tables. They are null if they cannot be had; tavsFree takes them.

// w[k] := W^k, W = exp(-2 pi i / n), k = 0 to n-1.
template <class T>
void fill_base(complex_t<T>* w, int n);

// The base table of n values, of which all others are cut. Its memory is taken at once and its values are
// computed at their first use, so that a build which lacks memory for its large tables finds that out
// before it spends time on sines.
template <class T>
class Base {
public:
    using C = complex_t<T>;

    explicit Base(int64_t n) : length_(static_cast<int>(n)) {
        if (n <= INT_MAX) values_ = owned_ = allocate<C>(static_cast<size_t>(n));
    }
    // A table that is there.
    Base(const C* values, int n) : length_(n), filled_(true), values_(values) {}
    ~Base() { tavsFree(owned_); }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    bool missing() const { return !values_; }
    int length() const { return length_; }
    const C* values() {
        if (!filled_) fill_base<T>(owned_, length_);
        filled_ = true;
        return values_;
    }

private:
    int length_;
    bool filled_ = false;
    C* owned_ = nullptr;
    const C* values_ = nullptr;
};

// W^(k step), k = 0 to n-1, of the base table. In single precision the chain of offsets of the vector
// kernel follows.
template <class C>
C* direct_table(const C* base, int n, int step);
// The roots of signal/recombine.h for a real length n, halves for the forward direction, else whole.
template <Direction D, class C>
C* recombination_table(const C* base, int n);

// ---- Plans: what an object needs for n elements by stages, whose base table has a multiple of n entries,
// or by a chirp, whose base table has 2n.

// Factors `length` into the `factor` fields and sets lastFactor; false if it is prime or has a prime
// factor above kLargestRadix.
template <class T>
bool factorise(Context<T>& ctx, int length);
template <class T>
TavStatus init_stages(Context<T>& ctx, int n, Base<T>& base);
template <class T>
TavStatus init_chirp(Context<T>& ctx, int n, Base<T>& base);

// ---- Transforms without scale. x and y may be the same array, and real spectra stand in Perm order.

// By stages; the out-of-order ones leave, or take, digit-reversed order; the real ones have odd lengths.
template <Direction D, class T>
void in_order(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, void* work);
template <Direction D, class T>
void out_of_order(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, void* work);
template <Direction D, class T>
void real_in_order(const Context<T>& ctx, const T* x, T* y, void* work);

// By the direct sum.
template <Direction D, class C>
void complex_direct(const C* x, C* y, int n, const C* table, void* scratch);
template <Direction D, class T>
void real_direct(const T* x, T* y, int n, const complex_t<T>* table, void* scratch);

// By convolution with a chirp; the real ones have odd lengths. The status is that of the FFT object.
template <Direction D, class T>
TavStatus complex_chirp(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, int n,
                        void* work);
template <Direction D, class T>
TavStatus real_chirp(const Context<T>& ctx, const T* x, T* y, void* work);

#pragma GCC visibility pop

} // namespace vor::dft
