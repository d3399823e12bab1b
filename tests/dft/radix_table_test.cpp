// Tables of the radix engine, its steps by name, recombination tables and permutations.
#include "arith/element.h"
#include "tests/common/allocations.h"
#include "tests/dft/onecall.h"

extern "C" {
void vor_dft_coef4r22(const int* k, float* area);
void vor_dft_coef4r22_z(const int* k, double* area);
void vor_dft_bittab(int* list, const int* n);
void vor_dft_csreccoef(float* area, const int* order);
void vor_dft_zdreccoef(double* area, const int* order);
void vor_dft_cradix4(vor::cfloat* data, const int* k, const float* table);
void vor_dft_crad2bs(vor::cfloat* data, const int* k, const int* stages, const float* table);
void vor_dft_cradix4b(vor::cfloat* data, const int* k, const float* table);
void vor_dft_cr22b0sh(vor::cfloat* data, const int* k, const int* stages, const float* table);
void vor_dft_cr22blh(vor::cfloat* data, const int* k, const int* stages, const float* table,
                     const int* position);
void vor_dft_crad4blh(vor::cfloat* data, const int* k, const float* table, const int* position);
void vor_dft_cr4iblf(vor::cfloat* data, const int* k, const float* table, const int* position);
void vor_dft_cr22iblf(vor::cfloat* data, const int* k, const int* stages, const float* table,
                      const int* position);
void vor_dft_cr22ibff(vor::cfloat* data, const int* k, const int* stages, const float* table,
                      const float* scale);
void vor_dft_cbitrevh(vor::cfloat* data, const int* n, const int* list);
void vor_dft_mix_revd(const int* list, const int* n, double* re, double* im, const int* stride);
void vor_dft_mix_revd_copy(const int* list, const int* n, double* re, double* im,
                           const int* stride);
void vor_dft_mix_revf_float(const int* list, const int* n, float* re, float* im, const int* stride);
}

namespace {

using namespace vor::test;

// The data of an area begin at the first 32-byte boundary above its start.
template <class R>
R* data_of(std::vector<R>& area) {
    const auto start = reinterpret_cast<uintptr_t>(area.data());
    return reinterpret_cast<R*>((start & ~uintptr_t{31}) + 32);
}

TEST(RadixTables, AreaOfAllOrders) {
    for (int k = 0; k <= 15; ++k) {
        const size_t n = size_t{1} << k;
        std::vector<float> area(complex_wsave<float>(n), 7);
        vor_dft_coef4r22(&k, area.data());
        EXPECT_EQ(area[0], static_cast<float>(n));
        EXPECT_EQ(area[1], 0);
        const float* data = data_of(area);
        for (int i = 4; i < 8 && k == 3; ++i) EXPECT_EQ(data[i], static_cast<float>(M_SQRT1_2));
        if (k < 11) continue;
        const Spectrum roots = unit_roots(n, Direction::forward);
        ErrorMeter<float> error;
        for (size_t length = n; length > 1024; data += length, length /= 2)
            for (size_t m = 0; m < length / 2; ++m) {
                const Wide w = roots[m * (n / length)];
                error.add(data[8 * (m / 4) + m % 4], w.real(), 1);
                error.add(data[8 * (m / 4) + m % 4 + 4], w.imag(), 1);
            }
        EXPECT_LE(error.worst(), 0.25); // rounded once
    }
}

// The twiddles V, V^2, V^3 of each block, in double precision.
TEST(RadixTables, TwistedTable) {
    for (int k : {10, 13, 16}) {
        const size_t n = size_t{1} << k;
        std::vector<double> area(complex_wsave<double>(n));
        vor_dft_coef4r22_z(&k, area.data());
        const double* data = data_of(area);
        const Spectrum roots = unit_roots(n, Direction::forward);
        ErrorMeter<double> first, third;
        for (size_t b = 0; b < n / 4; ++b)
            for (size_t power : {1, 2, 3}) {
                const Wide w = roots[power * reversed(b, n / 4) % n];
                auto& error = power < 3 ? first : third;
                error.add(data[6 * b + 2 * power - 2], w.real(), 1);
                error.add(data[6 * b + 2 * power - 1], w.imag(), 1);
            }
        EXPECT_LE(first.worst(), 0.25); // 2^-54: half a unit in the last place
        EXPECT_LE(third.worst(), 1);
    }
}

TEST(RadixTables, ReversalList) {
    for (int n = 32; n <= 1 << 13; n *= 2) {
        std::vector<int> list(static_cast<size_t>(n), -1);
        vor_dft_bittab(list.data(), &n);
        const auto at = [&](int i) { return list[static_cast<size_t>(i)]; };
        const auto reverse = [](int i, int span) {
            return static_cast<int>(reversed(static_cast<size_t>(i), static_cast<size_t>(span)));
        };
        const int rounds = n / 16, a = rounds + n / 8 + 2;
        EXPECT_EQ(at(0), 0);
        EXPECT_EQ(at(1), rounds);
        for (int i = 0; i < rounds; ++i) EXPECT_EQ(at(2 + i), reverse(i, n / 4));
        std::vector<int> some, pairs;
        for (int i = 0; i + 1 < rounds; ++i)
            if (i < reverse(i, n / 16)) some.push_back(i);
        for (int i = n / 4 * 3; i < n; ++i)
            if (i < reverse(i, n)) pairs.insert(pairs.end(), {i, reverse(i, n)});
        EXPECT_EQ(at(a), 0);
        ASSERT_EQ(at(a + 1), static_cast<int>(some.size()));
        for (size_t i = 0; i < some.size(); ++i) EXPECT_EQ(at(a + 2 + int(i)), some[i]);
        const int b = a + 2 + static_cast<int>(some.size());
        EXPECT_EQ(at(b), 0);
        ASSERT_EQ(at(b + 1), static_cast<int>(pairs.size() / 2));
        for (size_t i = 0; i < pairs.size(); ++i) EXPECT_EQ(at(b + 2 + int(i)), pairs[i]);

        std::vector<vor::cfloat> x(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) x[static_cast<size_t>(i)].re = static_cast<float>(i);
        vor_dft_cbitrevh(x.data(), &n, list.data());
        for (int i = 0; i < n; ++i)
            ASSERT_EQ(x[static_cast<size_t>(i)].re, static_cast<float>(reverse(i, n)));
    }
}

// Entry i is (cos/2, (1 - sin)/2) of 2 pi i / n; the last word is n/2.
TEST(RadixTables, Recombination) {
    for (int order = 0; order <= 12; ++order) {
        const size_t n = size_t{2} << order;
        std::vector<float> single(n / 2, 7);
        std::vector<double> twice(n / 2, 7);
        vor_dft_csreccoef(single.data(), &order);
        vor_dft_zdreccoef(twice.data(), &order);
        EXPECT_EQ(single.back(), static_cast<float>(n / 2));
        EXPECT_EQ(twice.back(), static_cast<double>(n / 2));
        const Spectrum roots = unit_roots(n, Direction::forward);
        ErrorMeter<float> s;
        ErrorMeter<double> d;
        for (size_t i = 1; i < n / 4; ++i) {
            const Wide want(roots[i].real() / 2, (1 + roots[i].imag()) / 2);
            s.add(single[2 * i - 2], want.real(), 1);
            s.add(single[2 * i - 1], want.imag(), 1);
            d.add(twice[2 * i - 2], want.real(), 1);
            d.add(twice[2 * i - 1], want.imag(), 1);
        }
        EXPECT_LE(s.worst(), 0.5); // the step of the angles is rounded to single precision
        EXPECT_LE(d.worst(), 0.25);
    }
}

// The plans, step by step, give what the one-call transform gives.
TEST(RadixSteps, MakeUpATransform) {
    for (int k : {7, 12, 17}) {
        const size_t n = size_t{1} << k;
        std::vector<float> area(complex_wsave<float>(n));
        vor_dft_coef4r22(&k, area.data());
        const float* table = data_of(area);
        Guarded<vor::cfloat> x(n);
        Random random(n);
        x.fill(random);
        const Guarded<vor::cfloat> given(x);
        Guarded<vor::cfloat> want(x);
        const int length = static_cast<int>(n), isign = -2;
        cfft1d(want.data(), &length, &isign, area.data());
        const int leaf = 10, group = 15, within = 9, six = 6;
        if (k <= leaf) {
            vor_dft_cradix4(x.data(), &k, table);
        } else if (k <= group) {
            const int stages = k - leaf;
            vor_dft_crad2bs(x.data(), &k, &stages, table);
            for (int i = 0; i < 1 << stages; ++i)
                vor_dft_cradix4b(x.data() + (i << leaf), &leaf, table);
        } else {
            const int stages = k - group;
            vor_dft_cr22b0sh(x.data(), &k, &stages, table);
            for (int i = 0; i < 1 << stages; ++i) {
                vor_dft_cr22blh(x.data() + (i << group), &group, &six, table, &i);
                for (int b = i << six; b < (i + 1) << six; ++b)
                    vor_dft_crad4blh(x.data() + (b << within), &within, table, &b);
            }
        }
        for (size_t i = 0; i < n; ++i) {
            const double bound =
                1e-6 * static_cast<double>(n); // the steps round where the plan keeps a register
            EXPECT_NEAR(x[i].re, want[i].re, bound);
            EXPECT_NEAR(x[i].im, want[i].im, bound);
        }
        if (k <= group) continue;
        const int stages = k - group;
        const float scale = 1.0f / static_cast<float>(n);
        for (int i = 0; i < 1 << stages; ++i) {
            for (int b = i << six; b < (i + 1) << six; ++b)
                vor_dft_cr4iblf(x.data() + (b << within), &within, table, &b);
            vor_dft_cr22iblf(x.data() + (i << group), &group, &six, table, &i);
        }
        vor_dft_cr22ibff(x.data(), &k, &stages, table, &scale);
        EXPECT_LE(relative_error(x.data(), widen(given.data(), n)), 0.3);
    }
}

TEST(Permutations, ByCyclesAndByCopy) {
    // Cycles 1 -> 3 -> 4 -> 1 and 2 <-> 5: each entry takes the pair that is carried.
    const int cycles[] = {1, 3, -4, 0, 2, -5}, n = 8, stride = 2;
    double re[16], im[16];
    for (int i = 0; i < 16; ++i) im[i] = -(re[i] = i);
    vor_dft_mix_revd(cycles, &n, re, im, &stride);
    const int want[] = {0, 4, 5, 1, 3, 2, 6, 7};
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(re[2 * i], 2 * want[i]) << i;
        EXPECT_EQ(im[2 * i], -2 * want[i]) << i;
        EXPECT_EQ(re[2 * i + 1], 2 * i + 1);
    }
    int list[16] = {};
    std::copy(want, want + n, list + n);
    double pairs[16];
    float x[8], y[8];
    for (int i = 0; i < 16; ++i) pairs[i] = i;
    for (int i = 0; i < 8; ++i) y[i] = -(x[i] = static_cast<float>(i));
    const int one = 1;
    vor_dft_mix_revd_copy(list, &n, pairs, nullptr, &stride);
    vor_dft_mix_revf_float(list, &n, x, y, &one);
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(pairs[2 * i], 2 * want[i]);
        EXPECT_EQ(pairs[2 * i + 1], 2 * want[i] + 1);
        EXPECT_TRUE(x[i] == static_cast<float>(want[i]) && y[i] == -x[i]);
    }
}

} // namespace
