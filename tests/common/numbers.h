// Data for tests: reproducible numbers, buffers with poisoned surroundings, comparison of bits,
// errors in units of eps times the sum of the terms.
#pragma once

#include "arith/element.h"
#include "tests/common/fenced.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace vor::test {

// What stands for element type T among the values for (s, d), (c, z) or all four.
template <class T, class Single, class Double>
constexpr auto of_type(Single s, Double d) {
    if constexpr (sizeof(real_t<T>) == sizeof(float))
        return s;
    else
        return d;
}
template <class T, class S, class D, class C, class Z>
constexpr auto of_type(S s, D d, C c, Z z) {
    if constexpr (is_complex<T>)
        return of_type<T>(c, z);
    else
        return of_type<T>(s, d);
}

// Reproducible numbers (SplitMix64: Steele, Lea, Flood, OOPSLA 2014).
class Random {
public:
    explicit Random(uint64_t seed = 1) : state_(seed) {}
    uint64_t bits() {
        uint64_t z = (state_ += 0x9e3779b97f4a7c15u);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }
    int below(int n) { return static_cast<int>(bits() % static_cast<unsigned>(n)); }
    // Between -1 and 1, both parts of a complex number.
    template <class T>
    T next() {
        if constexpr (is_complex<T>) {
            const real_t<T> re = next<real_t<T>>();
            return {re, next<real_t<T>>()};
        } else {
            return static_cast<T>(static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0);
        }
    }

private:
    uint64_t state_;
};

// n elements at an address that is `offset` bytes above a multiple of 16, poisoned before and behind:
// intact() tells whether both margins still hold what they held at the start. Objects made one after the
// other have different poisons, so that copying from margin to margin shows. The margin behind is as
// short as the address allows, and ends at a page that cannot be touched: where there is none, the read
// of one element too many ends the test.
template <class T>
class Guarded {
public:
    static constexpr size_t kAnyOffset = ~size_t{0};

    explicit Guarded(size_t n, size_t offset = 0)
        : n_(n), offset_(offset),
          behind_(offset == kAnyOffset ? 0 : (0 - n * sizeof(T) - offset) % 16),
          bytes_(kMargin + n * sizeof(T) + behind_),
          memory_(std::make_unique<Fenced<unsigned char>>(bytes_, true)) {
        std::memset(memory_->data(), poison_, bytes_);
        data_ = reinterpret_cast<T*>(memory_->data() + kMargin);
    }
    Guarded(const Guarded& other) : Guarded(other.n_, other.offset_) {
        std::copy(other.data_, other.data_ + n_, data_);
    }
    Guarded(Guarded&&) = default;
    Guarded& operator=(Guarded&&) = default;
    T* data() { return data_; }
    const T* data() const { return data_; }
    size_t size() const { return n_; }
    T& operator[](size_t i) { return data_[i]; }
    const T& operator[](size_t i) const { return data_[i]; }
    T* begin() { return data_; }
    T* end() { return data_ + n_; }
    void fill(Random& random) {
        for (T& x : *this) x = random.next<T>();
    }
    std::vector<T> copy() const { return {data_, data_ + n_}; }
    bool intact() const {
        const unsigned char* const first = memory_->data();
        const auto poisoned = [this](unsigned char c) { return c == poison_; };
        return std::all_of(first, first + kMargin, poisoned) &&
               std::all_of(first + bytes_ - behind_, first + bytes_, poisoned);
    }

private:
    static constexpr size_t kMargin = 64;
    static inline unsigned char latest_poison_ = 0xa5;
    unsigned char poison_ = latest_poison_ ^= 0xff;
    size_t n_, offset_, behind_, bytes_;
    std::unique_ptr<Fenced<unsigned char>> memory_;
    T* data_;
};

template <class T>
bool same_bits(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

template <class T>
bool same_bits(const T* a, const T* b, size_t n) {
    return std::memcmp(a, b, n * sizeof(T)) == 0;
}

// The worst error seen, in units of eps(T) times the given scale (as a rule the sum of the
// magnitudes of the terms). A NaN counts as infinite.
template <class T>
class ErrorMeter {
public:
    void add(long double got, long double want, long double scale) {
        const long double unit = scale * std::numeric_limits<real_t<T>>::epsilon();
        const long double error = std::fabs(got - want);
        const long double ratio = error == 0 ? 0 : error / unit;
        worst_ = ratio <= worst_ ? worst_ : ratio == ratio ? ratio : HUGE_VALL;
    }
    double worst() const { return static_cast<double>(worst_); }

private:
    long double worst_ = 0;
};

} // namespace vor::test
