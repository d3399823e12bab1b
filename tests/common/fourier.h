// Fourier transforms for tests: an oracle in long double, the storage formats of real spectra, and
// the error of a transform in the units in which docs/numerics.md states the bounds.
#pragma once

#include "signal/direction.h"
#include "tests/common/numbers.h"

#include <complex>
#include <cstdio>

namespace vor::test {

using Wide = std::complex<long double>;
using Spectrum = std::vector<Wide>;

using vor::Direction;

// exp(-+ 2 pi i * k / n), k from 0 to n-1, each from the first octant.
inline Spectrum unit_roots(size_t n, Direction direction) {
    const long double sign = direction == Direction::forward ? -1 : 1;
    const long double turn = 2 * acosl(-1.0L) / n;
    Spectrum roots(n);
    for (size_t k = 0; k < n; ++k) {
        const size_t quarter = (4 * k + n / 2) / n; // the nearest multiple of a right angle
        const long double angle =
            (4 * static_cast<long double>(k) - static_cast<long double>(quarter) * n) / 4 * turn;
        const Wide near(cosl(angle), sinl(angle));
        const Wide turned[] = {near, Wide(-near.imag(), near.real()), -near,
                               Wide(near.imag(), -near.real())};
        roots[k] = {turned[quarter % 4].real(), sign * turned[quarter % 4].imag()};
    }
    return roots;
}

// X[k] = sum over j of x[j] root[j k mod n], term by term.
inline Spectrum direct_transform(const Spectrum& x, Direction direction) {
    const size_t n = x.size();
    const Spectrum roots = unit_roots(n, direction);
    Spectrum result(n);
    for (size_t k = 0; k < n; ++k)
        for (size_t j = 0, exponent = 0; j < n; ++j, exponent = (exponent + k) % n)
            result[k] += x[j] * roots[exponent];
    return result;
}

// The same sum for long sequences, split by the smallest prime factor of the length down to direct
// sums. `roots` are those of step * n points.
inline void split_transform(const Wide* x, size_t n, size_t step, const Spectrum& roots,
                            Wide* out) {
    size_t p = 2;
    while (p * p <= n && n % p) ++p;
    if (n % p) p = n;
    const size_t m = n / p;
    if (n == 1) {
        *out = *x;
        return;
    }
    Spectrum part(n);
    for (size_t j = 0; j < p; ++j)
        split_transform(x + j * step, m, step * p, roots, part.data() + j * m);
    for (size_t k = 0; k < n; ++k) {
        Wide sum = 0;
        for (size_t j = 0, exponent = 0; j < p; ++j) { // j k mod n
            const Wide a = part[j * m + k % m], w = roots[exponent * step];
            sum += Wide(a.real() * w.real() - a.imag() * w.imag(),
                        a.real() * w.imag() + a.imag() * w.real());
            exponent += exponent + k < n ? k : k - n;
        }
        out[k] = sum;
    }
}

inline Spectrum transform(const Spectrum& x, Direction direction) {
    Spectrum result(x.size());
    split_transform(x.data(), x.size(), 1, unit_roots(x.size(), direction), result.data());
    return result;
}

// Elements of the library's types, real ones with imaginary part 0, widened.
template <class T>
Spectrum widen(const T* x, size_t n) {
    Spectrum result(n);
    for (size_t i = 0; i < n; ++i) {
        if constexpr (is_complex<T>)
            result[i] = Wide(x[i].re, x[i].im);
        else
            result[i] = x[i];
    }
    return result;
}

// The storage formats of the conjugate-even spectrum of n real values, as real arrays.
enum class Format { perm, pack, ccs };

inline std::vector<long double> stored(const Spectrum& x, Format format) {
    const size_t n = x.size(), half = (n - 1) / 2;
    std::vector<long double> r{x[0].real()};
    if (format == Format::ccs) r.push_back(0);
    if (format == Format::perm && n % 2 == 0) r.push_back(x[n / 2].real());
    for (size_t k = 1; k <= half; ++k) {
        r.push_back(x[k].real());
        r.push_back(x[k].imag());
    }
    if (format != Format::perm && n % 2 == 0) r.push_back(x[n / 2].real());
    if (format == Format::ccs && n % 2 == 0) r.push_back(0);
    return r;
}

// Root mean square of got - want, relative to that of want, in units of eps * log2 n (of eps if n is
// below 4). By Parseval it is the error relative to the input of the transform. A NaN counts as
// infinite. `n` is the length of the transform that `count` values came from.
template <class R>
double relative_error(const R* got, const long double* want, size_t count, size_t n) {
    long double difference = 0, size = 0;
    for (size_t i = 0; i < count; ++i) {
        difference += (got[i] - want[i]) * (got[i] - want[i]);
        size += want[i] * want[i];
    }
    if (difference == 0) return 0;
    const long double unit =
        std::numeric_limits<R>::epsilon() * std::max(1.0L, log2l(static_cast<long double>(n)));
    const long double ratio = sqrtl(difference / size) / unit;
    return ratio == ratio ? static_cast<double>(ratio) : HUGE_VAL;
}

template <class R>
double relative_error(const R* got, const std::vector<long double>& want, size_t n) {
    return relative_error(got, want.data(), want.size(), n);
}

template <class T>
double relative_error(const T* got, const Spectrum& want) requires is_complex<T> {
    return relative_error(&got->re, reinterpret_cast<const long double*>(want.data()),
                          2 * want.size(), want.size());
}

// The worst error of a family of transforms; says it at the end.
class WorstError {
public:
    explicit WorstError(const char* what) : what_(what) {}
    ~WorstError() { std::printf("    worst error of %s: %.3f eps log2 n\n", what_, worst_); }
    double add(double error) {
        worst_ = std::max(worst_, error);
        return error;
    }

private:
    const char* what_;
    double worst_ = 0;
};

} // namespace vor::test
