// Shared by the tests of the vector routines: strided vectors, the lengths, steps and addresses that
// are tried, error bounds.
#pragma once

#include "tests/common/call.h"
#include "tests/common/matrix.h"
#include "vor_blas.h"

#include <gtest/gtest.h>

namespace vor::test {

// The routine of element type T by the end of its name: of those that all types have, the real ones,
// the complex ones.
#define ALL(op) vor::test::of_type<T>(s##op, d##op, c##op, z##op)
#define REAL(op) vor::test::of_type<T>(s##op, d##op)
#define COMPLEX(op) vor::test::of_type<T>(c##op, z##op)

using AllTypes = testing::Types<float, double, cfloat, cdouble>;
using RealTypes = testing::Types<float, double>;
using ComplexTypes = testing::Types<cfloat, cdouble>;

// A suite of tests that run for each of the types.
#define TYPED_SUITE(Name, Types)                                                                   \
    template <class T>                                                                             \
    struct Name : testing::Test {};                                                                \
    TYPED_TEST_SUITE(Name, Types)

// n elements with step inc, `offset` bytes above a boundary. at(i) is element i of the walk.
template <class T>
class Vector {
public:
    Vector(int n, int inc, size_t offset)
        : n_(n), inc_(inc), memory_(n < 1 ? 0 : size_t(n - 1) * size_t(std::abs(inc)) + 1, offset) {
        memory_.fill(random());
    }
    T* data() { return memory_.data(); }
    int inc() const { return inc_; }
    size_t slot(int i) const { return size_t(inc_ < 0 ? (i + 1 - n_) * inc_ : i * inc_); }
    T& at(int i) { return memory_[slot(i)]; }
    std::vector<T> copy() const { return memory_.copy(); }
    // Spreads the magnitudes over many powers of 2, so that the order of a sum shows in its last bit.
    void spread() {
        for (T& x : memory_)
            for (auto* part = reinterpret_cast<real_t<T>*>(&x);
                 part < reinterpret_cast<real_t<T>*>(&x + 1); ++part)
                *part = std::ldexp(*part, -random().below(16));
    }
    // Nothing but the elements of the walk differs from `before`.
    bool only_elements_differ(const std::vector<T>& before) const {
        bool same = memory_.intact();
        for (size_t k = 0; k < memory_.size(); ++k)
            same &=
                (inc_ == 0 || k % size_t(std::abs(inc_)) == 0) || same_bits(memory_[k], before[k]);
        return same;
    }
    bool equals(const std::vector<T>& before) const {
        return memory_.intact() && same_bits(memory_.data(), before.data(), before.size());
    }

private:
    static Random& random() {
        static Random numbers;
        return numbers;
    }
    int n_, inc_;
    Guarded<T> memory_;
};

// Lengths on both sides of every seam: prefixes, rounds of 4 to 24 elements, tails; a long one.
inline std::vector<int> lengths() {
    std::vector<int> all{-1, 95, 96, 97, 4000};
    for (int n = 0; n <= 52; ++n) all.push_back(n);
    return all;
}

// Right before a page that cannot be touched, whatever address that is.
inline constexpr size_t kAnyOffset = Guarded<float>::kAnyOffset;

// run(n, incx, incy, offset of x, offset of y): every length with pairs of steps, and every pair of
// addresses modulo 16 with unit steps.
template <class Run>
void each_pair_of_vectors(Run run) {
    const int steps[][2] = {{1, 1},  {-1, -1}, {1, -1}, {-1, 1}, {1, 2},  {2, -1},
                            {-1, 2}, {-3, 1},  {2, 2},  {2, -3}, {-3, -3}};
    for (int n : lengths())
        for (const auto& [incx, incy] : steps) {
            run(n, incx, incy, 4, n % 3 == 0 ? 4 : 8);
            run(n, incx, incy, kAnyOffset, kAnyOffset);
        }
    for (size_t offset_x = 0; offset_x < 16; ++offset_x)
        for (size_t offset_y = 0; offset_y < 16; ++offset_y)
            for (int n : {9, 10, 11, 41, 1023}) run(n, 1, 1, offset_x, offset_y);
}

// run(n, inc, offset), likewise for one vector.
template <class Run>
void each_vector(Run run) {
    for (int n : lengths())
        for (int inc : {1, -1, 2, -3, 0})
            for (size_t offset : {n % 3 == 0 ? size_t(4) : size_t(8), kAnyOffset})
                run(n, inc, offset);
    for (size_t offset = 0; offset < 16; ++offset)
        for (int n : {3, 41, 64}) run(n, 1, offset), run(n, -1, offset);
}

// Errors of a whole family against one bound, in units of eps times the terms; prints the worst one.
template <class T>
class Bound {
public:
    Bound(const char* name, double limit) : name_(name), limit_(limit) {}
    ~Bound() {
        printf("%-8s %zu bytes: worst error %.3f eps of the terms, bound %.3g\n", name_, sizeof(T),
               meter_.worst(), limit_);
        EXPECT_LE(meter_.worst(), limit_) << name_;
    }
    void add(Wide got, Wide want, long double terms) { meter_.add(std::abs(got - want), 0, terms); }

private:
    const char* name_;
    double limit_;
    ErrorMeter<T> meter_;
};

} // namespace vor::test
