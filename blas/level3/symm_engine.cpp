// symm, hemm: C := alpha * A * B + beta * C (left) or C := alpha * B * A + beta * C (right) for a
// symmetric or Hermitian A of which one triangle is stored, on the calling thread.
//
// alpha = 0: C := beta * C, A and B are not read. beta = 0: C is not read. The other triangle of A and,
// of a Hermitian A, the imaginary parts of its diagonal are not read.
//
// A diagonal block of A is copied to a dense square and multiplied there; it also brings beta into its
// rows (columns) of C. The stored rectangle beside it, which links it to the earlier blocks, is
// multiplied twice, as it is and transposed. The s engine brings beta in beforehand.
#include "blas/kernel/gemm_scale.h"
#include "blas/letters.h"
#include "blas/level3/dense_block.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"

#include <algorithm>

extern "C" {
void vor_blas_sgescal(const int* m, const int* n, const float* beta, float* c, const int* ldc);
void vor_blas_dgescal(const int* m, const int* n, const double* beta, double* c, const int* ldc);
}

namespace vor::blas {
namespace {

// The whole of the block of A with the stored triangle at a.
template <bool Hermitian, class T>
void fill_block(bool upper, int n, const T* a, int lda, T* block, int ld) {
    for (int j = 0; j < n; ++j) {
        T on_diagonal = a[j + j * lda];
        if constexpr (Hermitian) on_diagonal.im = 0;
        block[j + j * ld] = on_diagonal;
        for (int i = upper ? 0 : j + 1; i < (upper ? j : n); ++i) {
            const T x = a[i + j * lda];
            block[i + j * ld] = x;
            block[j + i * ld] = mirrored<Hermitian>(x);
        }
    }
}

template <class T, bool Hermitian>
struct Symmetric {
    bool left, upper;
    int m, n;
    T alpha;
    const T* a;
    int lda;
    const T* b;
    int ldb;
    T beta;
    T* c;
    int ldc;

    void run() const {
        DenseBlock<T> dense;
        const int order = left ? m : n, size = dense.size();
        for (int k = 0; k < order; k += size) {
            const int length = std::min(size, order - k);
            fill_block<Hermitian>(upper, length, a + k + k * lda, lda, dense.data(), size);
            add('N', dense.data(), size, k, length, k, length, beta);
            if (k > 0) rectangle(k, length);
        }
    }

private:
    // The stored rectangle that links block k to the blocks before it.
    void rectangle(int k, int length) const {
        const T one = real_element<T>(1);
        const int row = upper ? 0 : k, rows = upper ? k : length;
        const int column = upper ? k : 0, columns = upper ? length : k;
        const T* const s = a + row + column * lda;
        add('N', s, lda, row, rows, column, columns, one);
        add(Hermitian ? 'C' : 'T', s, lda, column, columns, row, rows, one);
    }

    // op(s) is the part of A with `rows` rows from `row` on and `columns` columns from `column` on: its
    // product with B enters C, which is multiplied by `scale`.
    void add(char trans, const T* s, int lds, int row, int rows, int column, int columns,
             T scale) const {
        if (left)
            multiply(trans, 'N', rows, n, columns, alpha, s, lds, b + column, ldb, scale, c + row,
                     ldc);
        else
            multiply('N', trans, m, columns, rows, alpha, b + row * ldb, ldb, s, lds, scale,
                     c + column * ldc, ldc);
    }
};

template <bool Hermitian, class T>
void symm PARAMS_XSYMM(T) {
    const T one = real_element<T>(1);
    T rest = *beta;
    if (is_zero(*alpha) || std::is_same_v<T, float>) {
        scale_matrix(*m, *n, *beta, c, *ldc);
        rest = one;
    }
    if (is_zero(*alpha) || *m < 1 || *n < 1) return;
    Symmetric<T, Hermitian>{
        is_letter(side, 'L'), is_letter(uplo, 'U'), *m, *n, *alpha, a, *lda, b, *ldb, rest, c, *ldc}
        .run();
}

} // namespace

#define SYMM_ENGINE(name, T, Hermitian)                                                            \
    VOR_ENGINE void name PARAMS_XSYMM(T) {                                                         \
        symm<Hermitian, T> ARGS_XSYMM;                                                             \
    }
SYMM_ENGINE(vor_blas_xssymm, float, false)
SYMM_ENGINE(vor_blas_xdsymm, double, false)
SYMM_ENGINE(vor_blas_xcsymm, cfloat, false)
SYMM_ENGINE(vor_blas_xzsymm, cdouble, false)
SYMM_ENGINE(vor_blas_xchemm, cfloat, true)
SYMM_ENGINE(vor_blas_xzhemm, cdouble, true)

#define GESCAL(name, T)                                                                            \
    VOR_ENGINE void name(const int* m, const int* n, const T* beta, T* c, const int* ldc) {        \
        scale_matrix(*m, *n, *beta, c, *ldc);                                                      \
    }
GESCAL(vor_blas_sgescal, float)
GESCAL(vor_blas_dgescal, double)

} // namespace vor::blas
