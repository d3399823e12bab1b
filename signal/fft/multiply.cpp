// Products of spectra of real sequences, element by element, in place on the second:
//   MulPerm      destination := destination * source, both in Perm
//   MulPackConj  destination := source * conj(destination), both in Pack
#include "signal/fft/products.h"
#include "signal/fft/real_kernels.h"
#include "vor_signal.h"

namespace vor::fft {
namespace {

// Both operations on `count` pairs of values.
template <class R>
struct Products;
template <>
struct Products<float> {
    static constexpr auto plain = ownps_Mpy2_32fc, conjugated = ownps_MpyConj2_32fc;
};
template <>
struct Products<double> {
    static constexpr auto plain = multiply_each<false, cdouble>;
    static constexpr auto conjugated = multiply_each<true, cdouble>;
};

TavStatus check(const void* source, const void* destination, int length) {
    if (!source || !destination) return tavStsNullPtrErr;
    return length < 1 ? tavStsSizeErr : tavStsNoErr;
}

template <class R, class C = complex_t<R>>
TavStatus multiply_perm(const R* source, R* destination, int length) {
    if (const TavStatus status = check(source, destination, length)) return status;
    const bool even = length % 2 == 0;
    destination[0] *= source[0];
    if (even) destination[1] *= source[1];
    const int first = even ? 2 : 1;
    Products<R>::plain(reinterpret_cast<const C*>(source + first),
                       reinterpret_cast<C*>(destination + first), (length - first) / 2);
    return tavStsNoErr;
}

template <class R, class C = complex_t<R>>
TavStatus multiply_pack_conjugate(const R* source, R* destination, int length) {
    if (const TavStatus status = check(source, destination, length)) return status;
    destination[0] *= source[0];
    if (length % 2 == 0) destination[length - 1] *= source[length - 1];
    Products<R>::conjugated(reinterpret_cast<const C*>(source + 1),
                            reinterpret_cast<C*>(destination + 1), (length - 1) / 2);
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define MULTIPLY(perm_name, pack_name, R)                                                          \
    extern "C" TavStatus perm_name(const R* source, R* destination, int length) {                  \
        return vor::fft::multiply_perm(source, destination, length);                               \
    }                                                                                              \
    extern "C" TavStatus pack_name(const R* source, R* destination, int length) {                  \
        return vor::fft::multiply_pack_conjugate(source, destination, length);                     \
    }
MULTIPLY(tavsMulPerm_32f_I, tavsMulPackConj_32f_I, float)
MULTIPLY(tavsMulPerm_64f_I, tavsMulPackConj_64f_I, double)
