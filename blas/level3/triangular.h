// The walk of solves and products with a triangle over the diagonal blocks, short block last, and what
// they do on the way: hand a block on, multiply with a rectangle beside it.
#pragma once

#include "blas/kernel/triangular_problem.h"
#include "blas/level3/level3_engines.h"

#include <algorithm>

namespace vor::blas {

// A diagonal block, and the part of the triangular dimension that the walk has not come to yet.
struct Block {
    int at, length;
    int rest, rest_length;
};

template <class T>
struct BlockedTriangle : TriangularProblem<T> {
    using P = TriangularProblem<T>;
    using P::a, P::b_at, P::diag, P::lda, P::ldb, P::left, P::order, P::side, P::transa, P::uplo;
    using Routine = void PARAMS_XTRMM(T);

    // The first stored element of the block of op(A) that begins at (i, j).
    const T* a_at(int i, int j) const { return &Operand<T>(P::op(), a, lda)(i, j); }
    // Calls visit(block) for the diagonal blocks of at most `size`.
    template <class F>
    void walk(int size, bool ascending, F visit) const {
        for (int done = 0; done < order(); done += size) {
            const int length = std::min(size, order() - done);
            const int remaining = order() - done - length;
            if (ascending)
                visit(Block{done, length, done + length, remaining});
            else
                visit(Block{remaining, length, 0, remaining});
        }
    }

    // Hands the diagonal block with `width` right sides from q on to `next`.
    void descend(Routine* next, const Block& block, int q, int width, const T& alpha) const {
        next(side, uplo, transa, diag, left() ? &block.length : &width,
             left() ? &width : &block.length, &alpha, a_at(block.at, block.at), &lda,
             b_at(block.at, q), &ldb);
    }

    // B(to) += alpha * op(A)(to, from) * B(from), on the right alpha * B(from) * op(A)(from, to), for
    // `width` right sides from q on.
    void add_product(T alpha, int to, int to_length, int from, int from_length, int q,
                     int width) const {
        const T one = real_element<T>(1);
        if (to_length == 0 || from_length == 0) return;
        if (left())
            multiply(*transa, 'N', to_length, width, from_length, alpha, a_at(to, from), lda,
                     b_at(from, q), ldb, one, b_at(to, q), ldb);
        else
            multiply('N', *transa, width, to_length, from_length, alpha, b_at(from, q), ldb,
                     a_at(from, to), lda, one, b_at(to, q), ldb);
    }
};

} // namespace vor::blas
