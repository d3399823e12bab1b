// The straight-line transforms of 1, 2, 4 and 8 points, by the order of the object. All input is read
// before the first output is written, so that source and destination may be the same. The scaled forms
// multiply by the factor as the last step of each output.
#pragma once

#include "signal/fft/context.h"

namespace vor::fft {

template <class R>
R scaled(R x, R factor) {
    return x * factor;
}
template <class R>
complex_t<R> scaled(complex_t<R> x, R factor) {
    return {x.re * factor, x.im * factor};
}

// Arithmetic::compute<inverse, n>(source, out) is the transform; E its elements, R their parts.
template <class Arithmetic, class E, class R>
class StraightLine {
public:
    // Orders 0 to 3.
    template <bool inverse>
    static void run(const FftCtx& object, const E* source, E* destination) {
        if (scales<inverse>(object))
            kScaled[inverse][object.order](source, destination, Traits<R>::norm(object));
        else
            kPlain[inverse][object.order](source, destination);
    }

private:
    template <bool inverse, int n>
    static void plain(const E* source, E* destination) {
        E out[n];
        Arithmetic::template compute<inverse>(source, out);
        for (int k = 0; k < n; ++k) destination[k] = out[k];
    }
    template <bool inverse, int n>
    static void times_factor(const E* source, E* destination, R factor) {
        E out[n];
        Arithmetic::template compute<inverse>(source, out);
        for (int k = 0; k < n; ++k) destination[k] = scaled(out[k], factor);
    }

    // One and two points serve both directions.
    static constexpr void (*kPlain[2][4])(const E*, E*) = {
        {plain<false, 1>, plain<false, 2>, plain<false, 4>, plain<false, 8>},
        {plain<false, 1>, plain<false, 2>, plain<true, 4>, plain<true, 8>}};
    static constexpr void (*kScaled[2][4])(const E*, E*,
                                           R) = {{times_factor<false, 1>, times_factor<false, 2>,
                                                  times_factor<false, 4>, times_factor<false, 8>},
                                                 {times_factor<false, 1>, times_factor<false, 2>,
                                                  times_factor<true, 4>, times_factor<true, 8>}};
};

} // namespace vor::fft
