// op(X) of a stored matrix X, seen through two steps: the transposition is in the steps, so that one
// loop serves every combination of letters.
#pragma once

#include "arith/element.h"

namespace vor::blas {

enum class Op { plain, transposed, conjugated };

// Its place in a table of routines.
constexpr int index_of(Op op) {
    return static_cast<int>(op);
}

// N and n leave the matrix as it is, T and t transpose it, every other character transposes and
// conjugates it; a real matrix knows no conjugation.
template <class T>
constexpr Op op_of(char letter) {
    if (letter == 'N' || letter == 'n') return Op::plain;
    if (!is_complex<T> || letter == 'T' || letter == 't') return Op::transposed;
    return Op::conjugated;
}

// Element (i, j), not conjugated, stands `i * row + j * column` elements behind `at`.
template <class T>
struct Operand {
    const T* at;
    int row, column;

    Operand(Op op, const T* matrix, int ld)
        : at(matrix), row(op == Op::plain ? 1 : ld), column(op == Op::plain ? ld : 1) {}
    const T& operator()(int i, int j) const { return at[i * row + j * column]; }
    Operand from(int i, int j) const {
        Operand part = *this;
        part.at += i * row + j * column;
        return part;
    }
};

} // namespace vor::blas
