// Products of many words: by halves, so that long factors are of one length.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

constexpr int kProductLeaf = 16; // limbs that are multiplied one after another

// r = factor(first) * ... * factor(end - 1), of words that are not 0; 1 if there are none.
template <class Factor>
void product_tree(vor_mpz* r, uint64_t first, uint64_t end, const Factor& factor) {
    if (end - first > 2 * kProductLeaf) {
        const uint64_t middle = first + (end - first) / 2;
        Temporary upper;
        product_tree(r, first, middle, factor);
        product_tree(upper, middle, end, factor);
        return vor_gmp___gmpz_mul(r, r, upper);
    }
    vor_gmp___gmpz_set_ui(r, 1);
    limb_t product = 1;
    for (; first < end; ++first) {
        const limb_t next = factor(first);
        if (dlimb_t{product} * next >> 32) {
            vor_gmp___gmpz_mul_ui(r, r, product);
            product = 1;
        }
        product *= next;
    }
    vor_gmp___gmpz_mul_ui(r, r, product);
}

} // namespace vor::gmp
