// Packing routines against the layouts of their panels, element by element.
#include "blas/level3/gemm_pack.h"
#include "tests/common/matrix.h"

#include <gtest/gtest.h>

using namespace vor::test;
using vor::cdouble;
using vor::cfloat;

namespace {

constexpr int kGap = 3; // below each column of the source

// Where a packing routine may leave what it does not write.
template <class T>
const T kUntouched = element<T>(777, 777);

template <class T>
Guarded<T> panel(size_t n) {
    Guarded<T> result(n);
    std::fill(result.begin(), result.end(), kUntouched<T>);
    return result;
}

template <class T>
T rounded_product(T x, T y) {
    const Wide wide_product = times(wide(x), wide(y));
    return element<T>(wide_product.real(), wide_product.imag());
}

// Compares a panel with position(i, l) -> index and value(i, l); all other positions are untouched.
template <class T, class P, class V>
void expect_panel(const Guarded<T>& pack, int m, int k, P position, V value) {
    auto want = panel<T>(pack.size());
    for (int i = 0; i < m; ++i)
        for (int l = 0; l < k; ++l) want[static_cast<size_t>(position(i, l))] = value(i, l);
    for (size_t x = 0; x < pack.size(); ++x)
        ASSERT_TRUE(same_bits(pack[x], want[x])) << "position " << x;
    EXPECT_TRUE(pack.intact());
}

template <class T>
struct RealPack {
    int group;
    void(*a[2]) PARAMS_PACK_A(T);
    void(*a_padded[2]) PARAMS_PACK_A_PADDED(T);
    void(*b) PARAMS_PACK_B(T);
    void(*b_padded[2]) PARAMS_PACK_B_PADDED(T);
};

template <class T>
RealPack<T> routines();
template <>
RealPack<float> routines() {
    return {16,
            {vor_blas_sgtran, vor_blas_sgtrat},
            {vor_blas_sgtranp, vor_blas_sgtratp},
            vor_blas_sgtrbn,
            {vor_blas_sgtrbnp, vor_blas_sgtrbtp}};
}
template <>
RealPack<double> routines() {
    return {4,
            {vor_blas_dgtran, vor_blas_dgtrat},
            {vor_blas_dgtranp, vor_blas_dgtratp},
            vor_blas_dgtrbn,
            {vor_blas_dgtrbnp, vor_blas_dgtrbtp}};
}

template <class T>
class GemmPackReal : public testing::Test {
protected:
    const RealPack<T> pack_ = routines<T>();
    Random random_{3};
};
using RealTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(GemmPackReal, RealTypes);

} // namespace

TYPED_TEST(GemmPackReal, RowsInGroupsTimesAlpha) {
    using T = TypeParam;
    const int group = this->pack_.group;
    for (const char letter : {'N', 'T'})
        for (const int m : {group, 2 * group})
            for (const int k : {1, 5, 16, 48, 64})
                for (const T alpha : {T(1), T(-0.3)})
                    for (const int kpad : {0, 64}) {
                        const int t = letter == 'T', stored = kpad ? kpad : k;
                        const auto a =
                            Matrix<T>::random(this->random_, letter, m, k, kGap, sizeof(T));
                        const Operand<T> op(a, letter);
                        auto pack = panel<T>(static_cast<size_t>(m * stored));
                        if (kpad)
                            this->pack_.a_padded[t](a.data(), &a.ld(), &m, &k, &kpad, pack.data(),
                                                    &alpha);
                        else
                            this->pack_.a[t](a.data(), &a.ld(), &m, &k, pack.data(), &alpha);
                        expect_panel(
                            pack, m, k,
                            [&](int i, int l) {
                                return i / group * group * stored + l * group + i % group;
                            },
                            [&](int i, int l) { return rounded_product(op(i, l), alpha); });
                    }
}

TYPED_TEST(GemmPackReal, ColumnsOfB) {
    using T = TypeParam;
    const int ldp = 64;
    for (const int n : {1, 2, 3, 4, 7, 16, 21})
        for (const int k : {1, 4, 7, 8, 9, 30, 63, 64}) {
            const auto position = [&](int l, int j) { return j * ldp + l; };
            const size_t size = static_cast<size_t>(n * ldp);
            const auto b = Matrix<T>::random(this->random_, 'T', k, n, kGap);
            auto whole = panel<T>(size);
            this->pack_.b(&n, &k, b.data(), &b.ld(), whole.data(), &ldp);
            expect_panel(whole, k / 8 * 8, n, position, Operand<T>(b, 'T'));
            for (const char letter : {'N', 'T'}) {
                const int kpad = std::min(64, k + 6);
                const auto c = Matrix<T>::random(this->random_, letter, k, n, kGap);
                auto padded = panel<T>(size);
                this->pack_.b_padded[letter == 'T'](&n, &k, &kpad, c.data(), &c.ld(), padded.data(),
                                                    &ldp);
                const Operand<T> op(c, letter);
                expect_panel(padded, kpad, n, position,
                             [&](int l, int j) { return l < k ? op(l, j) : T(0); });
            }
        }
}

TEST(GemmPackZ, PairsOfRowsAndColumns) {
    Random random(5);
    void(*const pack_a[])
        PARAMS_PACK_A_Z(cdouble) = {vor_blas_zgtran, vor_blas_zgtrat, vor_blas_zgtrac};
    void(*const pack_b[]) PARAMS_PACK_B(cdouble) = {nullptr, vor_blas_zgtrbt, vor_blas_zgtrbc};
    const char letters[] = {'N', 'T', 'C'};
    const int ldp = 32;
    for (int way = 0; way < 3; ++way)
        for (const int k : {1, 16, 24, 32}) {
            const int m = 6, n = 5;
            const auto a = Matrix<cdouble>::random(random, letters[way], m, k, kGap);
            auto pack = panel<cdouble>(static_cast<size_t>(m * k));
            pack_a[way](a.data(), &a.ld(), &m, &k, pack.data());
            expect_panel(
                pack, m, k, [&](int i, int l) { return i / 2 * 2 * k + l * 2 + i % 2; },
                Operand<cdouble>(a, letters[way]));
            if (way == 0) continue;
            const auto b = Matrix<cdouble>::random(random, letters[way], k, n, kGap);
            auto columns = panel<cdouble>(n * ldp);
            pack_b[way](&n, &k, b.data(), &b.ld(), columns.data(), &ldp);
            expect_panel(
                columns, k, n, [&](int l, int j) { return j * ldp + l; },
                Operand<cdouble>(b, letters[way]));
        }
}

// The parts of an element stand four floats apart.
TEST(GemmPackC, SplitPanels) {
    Random random(6);
    void(*const pack_a[]) PARAMS_PACK_A_C = {vor_blas_cgtran, vor_blas_cgtrat, vor_blas_cgtrac};
    void(*const pack_b[])
        PARAMS_PACK_B_C = {vor_blas_cgcopybn, vor_blas_cgcopybt, vor_blas_cgcopybc};
    const char letters[] = {'N', 'T', 'C'};
    const int ldp = 64;
    const cfloat alpha = {0.5f, -2}; // powers of two: the products are exact
    for (int way = 0; way < 3; ++way)
        for (const int k : {4, 16, 48, 64})
            for (const int n : {1, 2, 5}) {
                const int m = 6;
                const auto a = Matrix<cfloat>::random(random, letters[way], m, k, kGap);
                const Operand<cfloat> left(a, letters[way]);
                auto pack = panel<float>(static_cast<size_t>(m * k * 2));
                pack_a[way](a.data(), &a.ld(), &m, &k, pack.data(), &alpha);
                const auto b = Matrix<cfloat>::random(random, letters[way], k, n, kGap);
                const Operand<cfloat> right(b, letters[way]);
                auto columns = panel<float>(static_cast<size_t>(n * ldp * 2));
                pack_b[way](&n, &k, b.data(), &b.ld(), columns.data(), &ldp);
                // Parts as rows 2i and 2i + 1, columns 2j and 2j + 1.
                expect_panel(
                    pack, 2 * m, k,
                    [&](int i, int l) {
                        return i / 4 * 4 * k + l / 4 * 16 + i / 2 % 2 * 8 + i % 2 * 4 + l % 4;
                    },
                    [&](int i, int l) {
                        const cfloat x = rounded_product(left(i / 2, l), alpha);
                        return i % 2 ? x.im : x.re;
                    });
                expect_panel(
                    columns, k, 2 * n,
                    [&](int l, int j) { return j / 2 * 2 * ldp + l / 4 * 8 + j % 2 * 4 + l % 4; },
                    [&](int l, int j) {
                        const cfloat x = right(l, j / 2);
                        return j % 2 ? x.im : x.re;
                    });
            }
}
