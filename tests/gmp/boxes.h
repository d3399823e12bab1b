// What holds an integer on its way through the library: records, limb arrays, objects of the big-number
// layer. What surrounds a value is poison, and a value read back is checked for its invariants.
#pragma once

#include "tests/gmp/integer.h"
#include "vor_bignum.h"
#include "vor_gmp.h"
#include <gtest/gtest.h>

namespace vor::test {

class Z {
public:
    explicit Z(const Int& value = Int()) {
        __gmpz_init(&x_);
        set(value);
    }
    ~Z() { __gmpz_clear(&x_); }
    Z(const Z&) = delete;
    Z& operator=(const Z&) = delete;

    operator vor_mpz*() { return &x_; }
    vor_mpz* operator->() { return &x_; }
    void set(const Int& value) {
        if (x_._mp_alloc < value.size()) __gmpz_realloc(&x_, value.size());
        std::copy(value.words.begin(), value.words.end(), x_._mp_d);
        x_._mp_size = value.negative ? -value.size() : value.size();
        std::fill(x_._mp_d + value.size(), x_._mp_d + x_._mp_alloc, 0xa5a5a5a5);
    }
    Int value() const {
        const int n = std::abs(x_._mp_size);
        EXPECT_GE(x_._mp_alloc, std::max(8, n));
        EXPECT_TRUE(n == 0 || x_._mp_d[n - 1] != 0) << "zero on top";
        return Int(x_._mp_d, static_cast<size_t>(n), x_._mp_size < 0);
    }

private:
    vor_mpz x_;
};

// n limbs, and the carry that a function on them returned.
class Row {
public:
    Row(const Int& value, size_t n) : limbs_(n) {
        std::fill(limbs_.begin(), limbs_.end(), 0);
        std::copy(value.words.begin(), value.words.end(), limbs_.begin());
    }
    ~Row() { EXPECT_TRUE(limbs_.intact()); }
    operator uint32_t*() { return limbs_.data(); }
    operator const uint32_t*() const { return limbs_.data(); }
    Int value() const {
        std::vector<uint32_t> words = limbs_.copy();
        words.push_back(carry);
        return Int(words.data(), words.size());
    }
    uint32_t carry = 0;

private:
    Guarded<uint32_t> limbs_;
};

// An object in exactly the memory that it asks for, at odd addresses.
template <class State>
class Object {
public:
    ~Object() { EXPECT_TRUE(bytes_.intact()); }
    operator State*() { return reinterpret_cast<State*>(bytes_.data()); }

protected:
    template <class GetSize, class... P>
    explicit Object(GetSize get_size, P... p) : bytes_(asked(get_size, p...), next()) {}

private:
    template <class GetSize, class... P>
    static size_t asked(GetSize get_size, P... p) {
        int size;
        EXPECT_EQ(get_size(p..., &size), tavStsNoErr);
        return static_cast<size_t>(size);
    }
    static size_t next() {
        static size_t offset = 0;
        return ++offset % 4;
    }
    Guarded<unsigned char> bytes_;
};

class Bn : public Object<BigNumState> {
public:
    Bn(const Int& value, int room) : Object(tavsBigNumGetSize, room) {
        EXPECT_EQ(tavsBigNumInit(room, *this), tavStsNoErr);
        set(value);
    }
    explicit Bn(const Int& value) : Bn(value, std::max(value.size(), 1)) {}
    void set(const Int& value) {
        std::vector<uint32_t> words = value.words;
        if (words.empty()) words.push_back(0);
        const int n = static_cast<int>(words.size());
        ASSERT_EQ(tavsSet_BN(!value.negative, n, words.data(), *this), tavStsNoErr);
    }
    Int value() {
        unsigned sgn;
        int size, room;
        EXPECT_EQ(tavsGetSize_BN(*this, &room), tavStsNoErr);
        std::vector<uint32_t> words(static_cast<size_t>(room));
        EXPECT_EQ(tavsGet_BN(&sgn, &size, words.data(), *this), tavStsNoErr);
        EXPECT_TRUE(size == 1 || words[static_cast<size_t>(size) - 1] != 0) << "zero on top";
        EXPECT_TRUE(sgn == TavsBigNumPOS || size > 1 || words[0] != 0) << "negative zero";
        return Int(words.data(), static_cast<size_t>(size), sgn == TavsBigNumNEG);
    }
};

class Mont : public Object<MontState> {
public:
    explicit Mont(const Int& n) : Object(tavsMontGetSize, 0, n.size()) {
        EXPECT_EQ(tavsMontInit(0, n.size(), *this), tavStsNoErr);
        EXPECT_EQ(tavsMontSet(n.words.data(), n.size(), *this), tavStsNoErr);
    }
};

} // namespace vor::test
