// The scaling of C in the s engine: contract in gemm_scale.h.
#include "blas/kernel/gemm_scale.h"
#include "arith/lanes.h"
#include "serv/entry.h"

namespace vor::blas {

VOR_ENGINE void vor_blas_sscalmz(const int* m, const int* n, float* c, const int* ldc) {
    zero_matrix(*m, *n, c, *ldc);
}

VOR_ENGINE void vor_blas_sscalm(const int* m, const int* n, const float* beta, float* c,
                                const int* ldc) {
    const int rows = *m;
    const __m128 factor = _mm_set1_ps(*beta);
    for (int j = 0; j < *n; ++j, c += *ldc) {
        int i = 0;
        for (; i + 4 <= rows; i += 4) store<false>(c + i, _mm_mul_ps(load<false>(c + i), factor));
        for (; i < rows; ++i) c[i] *= *beta;
    }
}

} // namespace vor::blas
