// Interleaved vectors are the columns of a matrix of which each lies a unit behind the one before it.
#include "dft/interleaved.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

// The group exponent: small groups for few or short vectors.
template <class R>
int group_exponent(int length, int n) {
    if (sizeof(R) == sizeof(double)) return n <= 16384 && length < 33 ? 2 : 3;
    return n < 64 || (n <= 32768 && length < 33) ? 3 : 4;
}

} // namespace

template <class R, class In, class Out>
int transform_interleaved(const PlainColumns<const In>& in, const PlainColumns<Out>& out, int n,
                          const VectorTransform& transform) {
    constexpr bool complex = is_complex<In> && is_complex<Out>;
    const int length = transform.record->length;
    const int most = group_size<R>(group_exponent<R>(length, n));
    const int size = most < n ? most : n;
    const int distance = vector_distance<R>(complex ? 2 * length : half_spectrum(length));
    constexpr size_t kSlack = 320; // reals, so that the sizes follow from the group alone
    const Scratch<R> buffer(static_cast<size_t>(distance) * static_cast<size_t>(size) + kSlack);
    if (!buffer) return DFTI_MEMORY_ERROR;
    return transform_columns(in, out, n, transform, VectorGroup<R>{buffer.get(), distance, size});
}

#define INSTANTIATE(R, In, Out)                                                                    \
    template int transform_interleaved<R>(const PlainColumns<const In>&, const PlainColumns<Out>&, \
                                          int, const VectorTransform&);
#define INSTANTIATE_ALL(R, C)                                                                      \
    INSTANTIATE(R, R, R)                                                                           \
    INSTANTIATE(R, R, C)                                                                           \
    INSTANTIATE(R, C, R)                                                                           \
    INSTANTIATE(R, C, C)
INSTANTIATE_ALL(float, cfloat)
INSTANTIATE_ALL(double, cdouble)

} // namespace vor::dfti

// n interleaved complex vectors in place, by the function given.
#define INTERLEAVED(name, R, C)                                                                    \
    extern "C" int name(DftiRecord* head, void* data, vor::dfti::Transform* function, int n,       \
                        void* workspace) {                                                         \
        C* vectors = static_cast<C*>(data);                                                        \
        return vor::dfti::transform_interleaved<R, C, C>(                                          \
            {vectors, head->input_stride, 1, head->length},                                        \
            {vectors, head->input_stride, 1, head->length}, n, {function, head, workspace});       \
    }
INTERLEAVED(vor_dft_xcdft_mult, float, vor::cfloat)
INTERLEAVED(vor_dft_xzdft_mult, double, vor::cdouble)
