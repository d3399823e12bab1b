// Products by transforms: exact for the worst digits, under any control word, and with little memory.
#include "gmp/limb/fourier_plan.h"
#include "tests/gmp/boxes.h"

#include <cstdlib>

namespace vor::test {
namespace {

// x = word repeated n times.
Int repeated(uint32_t word, int n) {
    Int x;
    x.words.assign(static_cast<size_t>(n), word);
    return x;
}

Int product(const Int& a, const Int& b) {
    Z x(a), y(b), r;
    if (&a == &b)
        __gmpz_mul(r, x, x);
    else
        __gmpz_mul(r, x, y);
    return r.value();
}

// Of the right length, and right modulo three primes.
void expect_product(const Int& a, const Int& b) {
    const Int r = product(a, b);
    EXPECT_LE(std::abs(r.size() - a.size() - b.size()), 1);
    for (const uint32_t p : {4294967291u, 4294967279u, 4294967231u})
        EXPECT_EQ(r.mod(p), uint64_t{a.mod(p)} * b.mod(p) % p);
}

// n limbs whose balanced digits of w bits are all as large as they get, and of one sign.
Int largest_digits(int n, int w) {
    Int x;
    x.words.assign(static_cast<size_t>(n), 0);
    for (int bit = 0; bit < 32 * n - 1; ++bit)
        if (bit % w != w - 1) x.words[static_cast<size_t>(bit / 32)] |= 1u << bit % 32;
    return x;
}

// Digits that come out of a proof which is too generous by a factor of 100 fail here.
TEST(Fourier, LargestDigits) {
    for (int w = 8; w <= 20; ++w) {
        SCOPED_TRACE(w);
        for (const int n : {1100, 9000, 60000}) {
            const Int x = largest_digits(n, w);
            expect_product(x, x);
        }
    }
    expect_product(repeated(0x7fff7fff, 300000), repeated(0x80008000, 300000));
    const Int x = repeated(0x7fff7fff, 300000);
    expect_product(x, x);
}

// The widths of digits, as docs/numerics.md tells them.
TEST(Fourier, WidthsThatAreProved) {
    using vor::limb::FourierPlan;
    // Is a product of n limbs by n proved for all operands, or for random ones, with w bits?
    const auto proved = [](int n, int w, long double share) {
        FourierPlan plan{.an = n, .bn = n, .width = w};
        plan.m = vor::limb::Transform::length_for(static_cast<int>(plan.digits(n)));
        return plan.proved(plan.largest() * share);
    };
    const struct {
        int width, for_all, for_random; // limbs
    } rows[] = {{20, 310, 790},        {19, 1000, 2600},      {18, 3300, 9200},
                {17, 11100, 33000},    {16, 37500, 112000},   {15, 127000, 380000},
                {14, 455000, 1300000}, {13, 1600000, 4460000}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.width);
        EXPECT_TRUE(proved(row.for_all, row.width, 1));
        EXPECT_FALSE(proved(row.for_all + row.for_all / 8, row.width, 1));
        EXPECT_TRUE(proved(row.for_random, row.width, 1 / 3.0L));
        EXPECT_FALSE(proved(row.for_random + row.for_random / 8, row.width, 1 / 3.0L));
    }
    FourierPlan longest{.an = 1 << 24, .bn = 1 << 24};
    EXPECT_TRUE(longest.choose(FourierPlan::kWidestDigit + 1));
}

// Precision of 53 and of 24 bits, rounding up, down and toward zero.
TEST(Fourier, AnyControlWord) {
    const Int a("rnd(1,160000)"), b("rnd(2,150000)");
    const Int want = product(a, b);
    for (const unsigned short control : {0x27f, 0x7f, 0xb7f, 0x77f, 0xf7f, 0xa7f}) {
        SCOPED_TRACE(control);
        unsigned short before, after;
        asm volatile("fnstcw %0" : "=m"(before));
        asm volatile("fldcw %0" : : "m"(control));
        const Int got = product(a, b);
        asm volatile("fnstcw %0" : "=m"(after));
        asm volatile("fldcw %0" : : "m"(before));
        EXPECT_EQ(got, want);
        EXPECT_EQ(after & 0xf3f, control & 0xf3f);
    }
}

// An allocator with a limit for a block.
unsigned limit, calls;

void* allocate(unsigned size) {
    ++calls;
    return size > limit ? nullptr : __gmp_default_allocate(size);
}

// A transform that is refused is not given up for good: halves of the operands go by transforms again.
// Halving down to schoolbook would ask for memory more than 100,000 times.
TEST(Fourier, SmallerTransformsWhereALongOneIsRefused) {
    const Int a = repeated(0x12345678, 262144), b = repeated(0x9abcdef0, 262144);
    for (const bool square : {false, true}) {
        const Int want = product(a, square ? a : b);
        limit = 12 << 20;
        calls = 0;
        __gmp_set_memory_functions(allocate, __gmp_default_reallocate, __gmp_default_free);
        const Int got = product(a, square ? a : b);
        __gmp_set_memory_functions(__gmp_default_allocate, __gmp_default_reallocate,
                                   __gmp_default_free);
        EXPECT_EQ(got, want);
        EXPECT_LT(calls, 1000u);
    }
}

} // namespace
} // namespace vor::test
