// Inner kernels of sgemm: contract in gemm_kernels.h.
#include "arith/lanes.h"
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kGroup = 16;  // rows of a panel's group
constexpr int kRows = 4;    // of a tile: one vector
constexpr int kColumns = 6; // of a tile

// Four rows of six columns: six sums hide the latency of an addition, and the registers hold no more
// beside a vector of A and a product. spread[l * kColumns + j] is b(l, j) in all lanes.
struct Tile {
    __m128 sum[kColumns] = {};

    template <int K>
    [[gnu::always_inline]] void add(const float* a, const __m128* spread) {
#pragma GCC unroll 64
        for (int l = 0; l < K; ++l) {
            // No load moves to an earlier step: it would cost a sum its register.
            asm volatile("" ::: "memory");
            const __m128 rows = load<true>(a + l * kGroup);
#pragma GCC unroll 6
            for (int j = 0; j < kColumns; ++j)
                sum[j] = _mm_add_ps(sum[j], _mm_mul_ps(rows, spread[l * kColumns + j]));
        }
    }

    // The same for the first rows, which fill `spread` on their way: to spread a number takes a turn of
    // the unit that adds. By hand: the compiler would spread first, and store sums to make room.
#define COLUMN(j, b)                                                                               \
    "movss 4*.Lstep(" b "), %[x]\n shufps $0, %[x], %[x]\n movaps %[x], 96*.Lstep+16*" j           \
    "(%[spread])\n mulps %[rows], %[x]\n addps %[x], %[s" j "]\n"
    template <int K>
    [[gnu::always_inline]] void add_spreading(const float* a, const float* b, int ldb,
                                              __m128* spread) {
        __m128 rows, x;
        // clang-format off
        asm volatile(".set .Lstep, 0\n .rept %c[steps]\n"
                     "movaps 64*.Lstep(%[a]), %[rows]\n"
                     COLUMN("0", "%[b]") COLUMN("1", "%[b], %[ldb], 4") COLUMN("2", "%[b], %[ldb], 8")
                     COLUMN("3", "%[b3]") COLUMN("4", "%[b3], %[ldb], 4") COLUMN("5", "%[b3], %[ldb], 8")
                     ".set .Lstep, .Lstep + 1\n .endr\n"
                     : [s0] "+x"(sum[0]), [s1] "+x"(sum[1]), [s2] "+x"(sum[2]), [s3] "+x"(sum[3]),
                       [s4] "+x"(sum[4]), [s5] "+x"(sum[5]), [rows] "=&x"(rows), [x] "=&x"(x)
                     : [a] "r"(a), [b] "r"(b), [b3] "r"(b + 3 * ldb), [ldb] "r"(ldb),
                       [spread] "r"(spread), [steps] "i"(K)
                     : "memory");
        // clang-format on
    }
#undef COLUMN

    [[gnu::always_inline]] void enter(float* c, int ldc) const {
#pragma GCC unroll 6
        for (int j = 0; j < kColumns; ++j, c += ldc)
            store<false>(c, _mm_add_ps(sum[j], load<false>(c)));
    }
};

// Six columns. Out of line: a second copy of the straight lines would not stay in the processor's cache
// of decoded instructions.
template <int M, int K>
[[gnu::noinline]] void six_columns(const float* a, const float* b, int ldb, float* c, int ldc) {
    __m128 spread[K * kColumns];
    Tile first;
    first.add_spreading<K>(a, b, ldb, spread);
    first.enter(c, ldc);
    for (int i = kRows; i < M; i += kRows) {
        Tile tile;
        tile.add<K>(a + i / kGroup * kGroup * K + i % kGroup, spread);
        tile.enter(c + i, ldc);
    }
}

// Sixteen rows of one column.
template <int K>
inline void group(const float* a, const float* b, float* c) {
    __m128 s0 = _mm_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
#pragma GCC unroll 64
    for (int l = 0; l < K; ++l) {
        asm volatile("" ::: "memory");
        const __m128 x = _mm_load1_ps(b + l);
        s0 = _mm_add_ps(s0, _mm_mul_ps(load<true>(a + l * kGroup), x));
        s1 = _mm_add_ps(s1, _mm_mul_ps(load<true>(a + l * kGroup + 4), x));
        s2 = _mm_add_ps(s2, _mm_mul_ps(load<true>(a + l * kGroup + 8), x));
        s3 = _mm_add_ps(s3, _mm_mul_ps(load<true>(a + l * kGroup + 12), x));
    }
    store<false>(c, _mm_add_ps(s0, load<false>(c)));
    store<false>(c + 4, _mm_add_ps(s1, load<false>(c + 4)));
    store<false>(c + 8, _mm_add_ps(s2, load<false>(c + 8)));
    store<false>(c + 12, _mm_add_ps(s3, load<false>(c + 12)));
}

// In a panel of one group too few rows share what is spread.
template <int M, int K>
inline void kernel(int n, const float* apanel, const float* b, int ldb, float* c, int ldc) {
    constexpr bool tiles = M > kGroup;
    for (; tiles && n >= kColumns; n -= kColumns, b += kColumns * ldb, c += kColumns * ldc) {
        prefetch_columns<M, K>(kColumns, b + kColumns * ldb, ldb, c + kColumns * ldc, ldc);
        six_columns<M, K>(apanel, b, ldb, c, ldc);
    }
    column_by_column<M, K, kGroup>(n, apanel, b, ldb, c, ldc, group<K>);
}

} // namespace

#define KERNEL(name, M, K)                                                                         \
    VOR_ENGINE void name PARAMS_GEMM_KERNEL(float) {                                               \
        kernel<M, K>(*n, apanel, b, *ldb, c, *ldc);                                                \
    }
KERNEL(vor_blas_sin32_64, 32, 64)
KERNEL(vor_blas_sin16_64, 16, 64)
KERNEL(vor_blas_sin32_48, 32, 48)
KERNEL(vor_blas_sin32_32, 32, 32)
KERNEL(vor_blas_sin32_16, 32, 16)

} // namespace vor::blas
