// Row copies of elements: adjacent columns of `length` rows between an array and contiguous vectors.
//
// Element i of column j lies `stride` steps of type Step times i behind the array's start, plus j units;
// vector j begins j * distance units behind the buffer's start.
#pragma once

#include "dft/kernel/row_copy.h"

namespace vor::dfti {

// The copies of n columns, n from 1 to 16, into the buffer and back.
template <class Unit, class Step>
auto gather_for(int n) {
    return [copy = gather_for<sizeof(Unit)>(n)](const Step* source, int stride, int length,
                                                Unit* buffer, int distance) {
        copy(source, bytes_of<Step>(stride), length, buffer, bytes_of<Unit>(distance));
    };
}
template <class Unit, class Step>
auto scatter_for(int n) {
    return [copy = scatter_for<sizeof(Unit)>(n)](Step* destination, int stride, int length,
                                                 const Unit* buffer, int distance) {
        copy(destination, bytes_of<Step>(stride), length, buffer, bytes_of<Unit>(distance));
    };
}

} // namespace vor::dfti
