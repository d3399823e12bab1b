// Row copies: N adjacent columns of `length` units between an array and contiguous vectors.
//
// Unit i of column j lies i * stride + j * Bytes bytes behind the array's start; vector j begins
// j * distance bytes behind the buffer's start.
#pragma once

#include "arith/element.h"

namespace vor::dfti {

using Gather = void(const void* source, unsigned stride, int length, void* buffer,
                    unsigned distance);
using Scatter = void(void* destination, unsigned stride, int length, const void* buffer,
                     unsigned distance);

// `elements` of type T in bytes, which wrap as an address does.
template <class T>
unsigned bytes_of(int elements) {
    return static_cast<unsigned>(elements) * sizeof(T);
}

// The copies of n columns of units of 4, 8 or 16 bytes, n from 1 to 16, into the buffer and back.
template <int Bytes>
Gather* gather_for(int n);
template <int Bytes>
Scatter* scatter_for(int n);

} // namespace vor::dfti
