// Sums over the lanes of vectors, shared by the kernels that keep four partial sums in one register.
#pragma once

#include <xmmintrin.h>

namespace vor::blas {

// The four lanes of each of four vectors added as (0 + 2) + (1 + 3): one sum in each lane.
inline __m128 sums_of_lanes(__m128 x0, __m128 x1, __m128 x2, __m128 x3) {
    const __m128 low = _mm_add_ps(_mm_unpacklo_ps(x0, x1), _mm_unpackhi_ps(x0, x1));
    const __m128 high = _mm_add_ps(_mm_unpacklo_ps(x2, x3), _mm_unpackhi_ps(x2, x3));
    return _mm_add_ps(_mm_movelh_ps(low, high), _mm_movehl_ps(high, low));
}

} // namespace vor::blas
