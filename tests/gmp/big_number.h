// Objects of the big-number layer in memory of exactly the size asked for, at odd addresses, with
// poisoned surroundings.
#pragma once

#include "tests/gmp/integer.h"
#include "vor_bignum.h"
#include <gtest/gtest.h>

namespace vor::test {

inline size_t next_offset() {
    static size_t offset = 0;
    return ++offset % 4;
}

class Bn {
public:
    explicit Bn(int room) : bytes_(size_of(room), next_offset()) {
        EXPECT_EQ(tavsBigNumInit(room, *this), tavStsNoErr);
    }
    Bn(const Int& value, int room) : Bn(room) { set(value); }
    explicit Bn(const Int& value) : Bn(value, std::max(value.size(), 1)) {}
    ~Bn() { EXPECT_TRUE(bytes_.intact()); }

    operator BigNumState*() { return reinterpret_cast<BigNumState*>(bytes_.data()); }
    void set(const Int& value) {
        const uint32_t zero = 0;
        const bool empty = value.words.empty();
        ASSERT_EQ(tavsSet_BN(!value.negative, empty ? 1 : value.size(),
                             empty ? &zero : value.words.data(), *this),
                  tavStsNoErr);
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

private:
    static size_t size_of(int room) {
        int size;
        EXPECT_EQ(tavsBigNumGetSize(room, &size), tavStsNoErr);
        return static_cast<size_t>(size);
    }
    Guarded<unsigned char> bytes_;
};

class Mont {
public:
    explicit Mont(int room) : bytes_(size_of(room), next_offset()) {
        EXPECT_EQ(tavsMontInit(TavsSlidingWindows, room, *this), tavStsNoErr);
    }
    explicit Mont(const Int& n) : Mont(n.size()) {
        EXPECT_EQ(tavsMontSet(n.words.data(), n.size(), *this), tavStsNoErr);
    }
    ~Mont() { EXPECT_TRUE(bytes_.intact()); }
    operator MontState*() { return reinterpret_cast<MontState*>(bytes_.data()); }

private:
    static size_t size_of(int room) {
        int size;
        EXPECT_EQ(tavsMontGetSize(TavsSlidingWindows, room, &size), tavStsNoErr);
        return static_cast<size_t>(size);
    }
    Guarded<unsigned char> bytes_;
};

} // namespace vor::test
