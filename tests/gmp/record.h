// Integer records of the tests: what stands above the value is poison, and a value read back is
// checked for the invariants of a record.
#pragma once

#include "tests/gmp/integer.h"
#include "vor_gmp.h"
#include <gtest/gtest.h>

namespace vor::test {

class Z {
public:
    Z() {
        __gmpz_init(&x_);
        poison();
    }
    explicit Z(const Int& value) : Z() { set(value); }
    ~Z() { __gmpz_clear(&x_); }
    Z(const Z&) = delete;
    Z& operator=(const Z&) = delete;

    operator vor_mpz*() { return &x_; }
    vor_mpz* operator->() { return &x_; }
    void set(const Int& value) {
        if (x_._mp_alloc < value.size()) __gmpz_realloc(&x_, value.size());
        std::copy(value.words.begin(), value.words.end(), x_._mp_d);
        x_._mp_size = value.negative ? -value.size() : value.size();
        poison();
    }
    Int value() const {
        const int n = std::abs(x_._mp_size);
        EXPECT_GE(x_._mp_alloc, std::max(8, n));
        EXPECT_TRUE(n == 0 || x_._mp_d[n - 1] != 0) << "zero on top";
        return Int(x_._mp_d, static_cast<size_t>(n), x_._mp_size < 0);
    }

private:
    void poison() {
        for (int i = std::abs(x_._mp_size); i < x_._mp_alloc; ++i) x_._mp_d[i] = 0xa5a5a5a5;
    }
    vor_mpz x_;
};

} // namespace vor::test
