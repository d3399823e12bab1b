// The parts of the DFT that stand in files of their own, each instantiated there for float and double.
// T is the real type, C the complex one; n counts elements of what is transformed. Scratch holds n complex
// elements for a direct sum; `work` is what the object asks for, from an aligned address on.
#pragma once

#include "signal/dft/context.h"

namespace vor::dft {

#pragma GCC visibility push(hidden)

// ---- Tables. They are null if they cannot be had; tavsFree takes them.

// W^k = exp(-2 pi i k / n), k = 0 to n-1.
template <class T>
complex_t<T>* base_table(int n);
// W^(k step), k = 0 to n-1, of the base table. In single precision the chain of offsets of the vector
// kernel follows.
template <class C>
C* direct_table(const C* base, int n, int step);
// The roots of signal/recombine.h for a real length n, halves for the forward direction, else whole.
template <Direction D, class C>
C* recombination_table(const C* base, int n);

// ---- Plans: what an object of length n, whose base table has baseLength entries, needs for stages or for
// a chirp.

// Factors `length` into the `factor` fields and sets lastFactor; false if it is prime or has a prime
// factor above kLargestRadix.
template <class T>
bool factorise(Context<T>& ctx, int length);
template <class T>
TavStatus init_stages(Context<T>& ctx, int n, const complex_t<T>* base, int baseLength);
template <class T>
TavStatus init_chirp(Context<T>& ctx, int n, const complex_t<T>* base, int baseLength);

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
