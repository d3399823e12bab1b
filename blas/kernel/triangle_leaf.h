// A diagonal block as its leaf sees it: the side, the triangle and the transposition are in the steps,
// so that one loop serves every case.
#pragma once

#include "blas/kernel/triangular_problem.h"

namespace vor::blas {

inline constexpr int kLeafOrder = 32; // the most unknowns of a leaf

// Unknown i of right side q stands at b[i * step + q * next], its coefficient in equation l at
// t[l * row + i * column], conjugated if `conjugate`. Unknowns are numbered in the order in which a
// leaf takes them: a solve finds unknown i from those before it, a product from those behind it.
template <class T>
struct Leaf {
    int order, others;
    const T* t;
    int row, column;
    T* b;
    int step, next;
    bool unit, conjugate;

    Leaf(const TriangularProblem<T>& p, bool ascending)
        : order(p.order()), others(p.others()), t(p.a), b(p.b), unit(p.unit()),
          conjugate(p.op() == Op::conjugated) {
        const bool down = p.left() == p.plain(); // equations run down the columns of A
        row = down ? 1 : p.lda;
        column = down ? p.lda : 1;
        step = p.left() ? 1 : p.ldb;
        next = p.left() ? p.ldb : 1;
        if (ascending) return;
        t += (order - 1) * (row + column);
        b += (order - 1) * step;
        row = -row, column = -column, step = -step;
    }

    const T* at(int i, int l) const { return t + i * row + l * column; }
    T coefficient(int i, int l) const { return conjugate ? conjugated(*at(i, l)) : *at(i, l); }
    T* side(int q) const { return b + q * next; }

    // The coefficients of `count` unknowns from l on in equation i.
    void pack_row(int i, int l, int count, T* packed) const {
        for (int k = 0; k < count; ++k) packed[k] = coefficient(i, l + k);
    }
};

} // namespace vor::blas
