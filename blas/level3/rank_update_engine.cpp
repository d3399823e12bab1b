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

namespace {

using vor::cdouble;
using vor::cfloat;
using vor::RankUpdate;

// Columns of the blocks of a rank-k update, and of the triangles of zherk.
constexpr int kWideBlock = 128, kDotBlock = 32;

template <class T>
T sum(T x, T y) {
    if constexpr (vor::is_complex<T>)
        return {x.re + y.re, x.im + y.im};
    else
        return x + y;
}

template <bool Conj, class T>
T conjugate(T x) {
    if constexpr (Conj) x.im = -x.im;
    return x;
}

template <class T, bool Hermitian>
class Engine : RankUpdate<T, Hermitian> {
    using Base = RankUpdate<T, Hermitian>;
    using Base::a, Base::a_at, Base::alpha, Base::b, Base::b_at, Base::c_at, Base::k, Base::lda,
        Base::ldb, Base::ldc, Base::n, Base::upper;

public:
    explicit Engine(const Base& update) : Base(update) {}

    void run() {
        if (b) {
            vor::DenseBlock<T> dense;
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
    static constexpr bool kExtended = std::is_same_v<vor::real_t<T>, double>;
    static constexpr int kSmallest = kDots       ? kDotBlock
                                     : kExtended ? vor::kSmallBlock / 2
                                                 : vor::kSmallBlock;

    // Diagonal blocks of `size` between first and first + count by diagonal(i, length), and what lies
    // beyond each in its columns.
    template <class F>
    void walk(int first, int count, int size, F diagonal) {
        const int end = first + count;
        for (int i = first; i < end; i += size) {
            const int length = std::min(size, end - i), behind = i + length;
            diagonal(i, length);
            this->rectangle(vor::multiply<T>, upper ? first : behind,
                            upper ? i - first : end - behind, i, length, vor::real_element<T>(1));
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
        vor::multiply(this->first_letter(), this->second_letter(), length, length, k, alpha,
                      a_at(i), lda, other, ld, T{}, t, ldt);
        for (int j = 0; j < length; ++j) {
            const int first = first_row(0, j);
            for (int r = first; r < first + rows(0, length, j); ++r) {
                T term = t[r + j * ldt];
                if (b) term = sum(term, conjugate<Hermitian>(t[j + r * ldt]));
                T& x = *c_at(i + r, i + j);
                x = sum(x, term);
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
    if (update.n < 1 || (update.is_empty() && vor::is_one(beta))) return;
    vor::scale_triangle<Hermitian>(update.upper, update.n, beta, update.c, update.ldc);
    if (!update.is_empty()) Engine<T, Hermitian>(update).run();
}

} // namespace

#define SYMMETRIC(p, T)                                                                            \
    VOR_ENGINE void vor_blas_x##p##syrk PARAMS_XRANK_K(T, T) {                                     \
        run(RANK_K_UPDATE(T, false, *alpha), *beta);                                               \
    }                                                                                              \
    VOR_ENGINE void vor_blas_x##p##syr2k PARAMS_XRANK_2K(T, T) {                                   \
        run(RANK_2K_UPDATE(T, false), *beta);                                                      \
    }
SYMMETRIC(s, float)
SYMMETRIC(d, double)
SYMMETRIC(c, cfloat)
SYMMETRIC(z, cdouble)

#define HERMITIAN(p, T)                                                                            \
    VOR_ENGINE void vor_blas_x##p##herk PARAMS_XRANK_K(T, vor::real_t<T>) {                        \
        run(RANK_K_UPDATE(T, true, vor::real_element<T>(*alpha)), *beta);                          \
    }                                                                                              \
    VOR_ENGINE void vor_blas_x##p##her2k PARAMS_XRANK_2K(T, vor::real_t<T>) {                      \
        run(RANK_2K_UPDATE(T, true), *beta);                                                       \
    }
HERMITIAN(c, cfloat)
HERMITIAN(z, cdouble)
