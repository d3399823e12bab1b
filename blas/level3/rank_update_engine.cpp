// syrk, herk, syr2k, her2k on the calling thread: formulas in rank_update.h. One triangle of C is read
// and written.
//
// alpha = 0 or k = 0: C := beta * C, A and B are not read; with beta = 1 besides nothing happens.
// beta = 0: C is not read. The diagonal of a Hermitian C becomes real.
//
// C is scaled first. A diagonal block goes through a dense square: its product is taken whole, and the
// stored triangle added. What lies beyond the block in its columns is one product (two for rank 2k).
//
// In a rank-2k update both halves of the square are needed, so that it can be large. In a rank-k update
// one half is lost, n times the side of the square in all: the squares are small and lie inside large
// blocks, whose rectangles are wide enough for the product's kernels. zherk has no square: sums of
// products go straight into the triangle.
#include "blas/kernel/gemm_kernels.h"
#include "blas/level3/dense_block.h"
#include "blas/level3/rank_update.h"
#include "serv/entry.h"

#include <algorithm>

namespace vor::blas {
namespace {

// Columns of the blocks of a rank-k update, and of the triangles of zherk.
constexpr int kWideBlock = 128, kDotBlock = 32;

template <class T, bool Hermitian>
class Engine : RankUpdate<T, Hermitian> {
    using Base = RankUpdate<T, Hermitian>;
    using Base::a, Base::a_at, Base::alpha, Base::b, Base::b_at, Base::c_at, Base::k, Base::lda,
        Base::ldb, Base::ldc, Base::n, Base::upper;

public:
    explicit Engine(const Base& update) : Base(update) {}

    void run() {
        if (b) {
            DenseBlock<T> dense;
            walk(0, n, dense.size(), [&](int i, int length) {
                square(i, length, b_at(i), ldb, dense.data(), dense.size());
            });
        } else {
            halve(0, n, kWideBlock);
        }
    }

private:
    static constexpr bool kDots = Hermitian && std::is_same_v<T, cdouble>;
    // The x87 kernels take as few as 4 rows, the vector kernels of s 16.
    static constexpr bool kExtended = std::is_same_v<real_t<T>, double>;
    static constexpr int kSmallest = kDots ? kDotBlock : kExtended ? kSmallBlock / 2 : kSmallBlock;

    // Diagonal blocks of `size` between first and first + count by diagonal(i, length), and what lies
    // beyond each in its columns.
    template <class F>
    void walk(int first, int count, int size, F diagonal) {
        const int end = first + count;
        for (int i = first; i < end; i += size) {
            const int length = std::min(size, end - i), behind = i + length;
            diagonal(i, length);
            this->rectangle(multiply<T>, upper ? first : behind, upper ? i - first : end - behind,
                            i, length, real_element<T>(1));
        }
    }

    // The blocks of a rank-k update: of `size`, each in halves down to the smallest.
    void halve(int first, int count, int size) {
        walk(first, count, size, [&](int i, int length) {
            if (size == kSmallest)
                triangle(i, length);
            else
                halve(i, length, size / 2);
        });
    }

    // The stored part of column j among the rows i to i + length.
    int first_row(int i, int j) const { return upper ? i : j; }
    int rows(int i, int length, int j) const { return upper ? j + 1 - i : i + length - j; }

    // Adds a diagonal block's product, and for rank 2k its transposed one, by way of the dense square t.
    void square(int i, int length, const T* other, int ld, T* t, int ldt) {
        multiply(this->first_letter(), this->second_letter(), length, length, k, alpha, a_at(i),
                 lda, other, ld, T{}, t, ldt);
        for (int j = 0; j < length; ++j) {
            const int first = first_row(0, j);
            for (int r = first; r < first + rows(0, length, j); ++r) {
                T term = t[r + j * ldt];
                if (b) term += mirrored<Hermitian>(t[j + r * ldt]);
                *c_at(i + r, i + j) += term;
            }
        }
        make_diagonal_real(i, length);
    }

    // A diagonal block of a rank-k update.
    void triangle(int i, int length) {
        if constexpr (kDots) {
            const auto add = this->plain ? vor_blas_zpst_nc : vor_blas_zpst_cn;
            constexpr int one = 1;
            for (int j = i; j < i + length; ++j) {
                const int first = first_row(i, j), count = rows(i, length, j);
                add("", "", &count, &one, &k, &alpha, a_at(first), &lda, a_at(j), &lda, &alpha,
                    c_at(first, j), &ldc);
            }
            make_diagonal_real(i, length);
        } else {
            T small[kSmallest * kSmallest];
            square(i, length, a_at(i), lda, small, kSmallest);
        }
    }

    void make_diagonal_real(int i, int length) {
        if constexpr (Hermitian)
            for (int j = i; j < i + length; ++j) c_at(j, j)->im = 0;
    }
};

template <class T, bool Hermitian, class S>
void run(const RankUpdate<T, Hermitian>& update, S beta) {
    if (update.n < 1 || (update.is_empty() && is_one(beta))) return;
    scale_triangle<Hermitian>(update.upper, update.n, beta, update.c, update.ldc);
    if (!update.is_empty()) Engine<T, Hermitian>(update).run();
}

} // namespace

#define RANK_K(name, T, S, Hermitian)                                                              \
    VOR_ENGINE void name PARAMS_XRANK_K(T, S) {                                                    \
        run(RANK_K_UPDATE(T, Hermitian), *beta);                                                   \
    }
#define RANK_2K(name, T, S, Hermitian)                                                             \
    VOR_ENGINE void name PARAMS_XRANK_2K(T, S) {                                                   \
        run(RANK_2K_UPDATE(T, Hermitian), *beta);                                                  \
    }
RANK_K(vor_blas_xssyrk, float, float, false)
RANK_K(vor_blas_xdsyrk, double, double, false)
RANK_K(vor_blas_xcsyrk, cfloat, cfloat, false)
RANK_K(vor_blas_xzsyrk, cdouble, cdouble, false)
RANK_K(vor_blas_xcherk, cfloat, float, true)
RANK_K(vor_blas_xzherk, cdouble, double, true)
RANK_2K(vor_blas_xssyr2k, float, float, false)
RANK_2K(vor_blas_xdsyr2k, double, double, false)
RANK_2K(vor_blas_xcsyr2k, cfloat, cfloat, false)
RANK_2K(vor_blas_xzsyr2k, cdouble, cdouble, false)
RANK_2K(vor_blas_xcher2k, cfloat, float, true)
RANK_2K(vor_blas_xzher2k, cdouble, double, true)

} // namespace vor::blas
