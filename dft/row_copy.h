// Row copies: N adjacent columns of `length` rows between an array and contiguous vectors.
//
// Element i of column j lies `stride` steps of type Step times i behind the array's start, plus j units;
// vector j begins j * distance units behind the buffer's start.
#pragma once

#include "arith/element.h"

#include <stddef.h>

namespace vor::dfti {

template <class Unit, class Step>
using Gather = void(const Step* source, int stride, int length, Unit* buffer, int distance);
template <class Unit, class Step>
using Scatter = void(Step* destination, int stride, int length, const Unit* buffer, int distance);

// The copies of n columns, n from 1 to 16, into the buffer and back.
template <class Unit, class Step>
Gather<Unit, Step>* gather_for(int n);
template <class Unit, class Step>
Scatter<Unit, Step>* scatter_for(int n);

} // namespace vor::dfti
