// Storage formats of the conjugate-even spectrum X of n reals, an array of reals. The first value is
// re X[0]; the pairs re X[k], im X[k], 0 < k < n/2, follow one another:
//
//     format    first pair at      re X[n/2], even n, at    zeros at            values
//     Perm      2; 1 for odd n     1                        none                n
//     Pack      1                  n - 1                    none                n
//     CCS       2                  n                        1; n + 1, even n    n + 2; n + 1 for odd n
#pragma once

#include <stddef.h>
#include <string.h>
#include <type_traits>

namespace vor::signal {

enum class Format { perm, pack, ccs };

constexpr int first_pair(Format format, int n) {
    return format == Format::ccs || (format == Format::perm && n % 2 == 0) ? 2 : 1;
}
constexpr int middle_value(Format format, int n) { // n even
    return format == Format::perm ? 1 : format == Format::pack ? n - 1 : n;
}
constexpr int stored_values(Format format, int n) {
    return format != Format::ccs ? n : n % 2 == 0 ? n + 2 : n + 1;
}

// A spectrum in memory. Values 2k and 2k+1 are `part` reals apart, and so many pairs of them follow at
// distances of `pair` reals.
template <class T>
struct Spectrum {
    T* first;
    ptrdiff_t part, pair;

    T& operator[](int i) const { return first[i / 2 * pair + i % 2 * part]; }
    bool contiguous() const { return part == 1 && pair == 2; }
};

// Reals, `step` reals apart.
template <class T>
constexpr Spectrum<T> reals(T* x, ptrdiff_t step = 1) {
    return {x, step, 2 * step};
}
// CCS as complex numbers, `step` of them apart; C may be const.
template <class C>
constexpr auto complexes(C* z, ptrdiff_t step = 1) {
    return Spectrum<std::remove_reference_t<decltype((z->re))>>{&z->re, 1, 2 * step};
}

// The spectrum x, of n reals, in another format at y. Both may be the same if both are contiguous.
template <Format kFrom, Format kTo, class T>
void convert(Spectrum<const T> x, Spectrum<T> y, int n) {
    const int from = first_pair(kFrom, n), to = first_pair(kTo, n), count = (n - 1) / 2 * 2;
    const bool even = n % 2 == 0;
    const T first = x[0], middle = even ? x[middle_value(kFrom, n)] : T{};
    if (!x.contiguous() || !y.contiguous())
        for (int i = 0; i < count; ++i) y[to + i] = x[from + i];
    else if (&x[from] != &y[to])
        memmove(&y[to], &x[from], static_cast<size_t>(count) * sizeof(T));
    y[0] = first;
    if (even) y[middle_value(kTo, n)] = middle;
    if constexpr (kTo == Format::ccs) {
        y[1] = 0;
        if (even) y[n + 1] = 0;
    }
}

// The same between arrays of neighbours.
template <Format kFrom, Format kTo, class T>
void convert(const T* x, T* y, int n) {
    convert<kFrom, kTo>(reals(x), reals(y), n);
}

} // namespace vor::signal
