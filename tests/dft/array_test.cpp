// Transforms of several dimensions: every kind of data, shape and layout against a direct sum, large
// ones against the 1-D transforms of the library; threads; failures.
#include "dft/radix/adapters.h"
#include "dft/walk.h"
#include "tests/common/allocations.h"
#include "tests/dft/job.h"
#include "vor_service.h"

#include <atomic>

namespace {

using namespace vor::test;

// The thread decision of the library is taken once: parallel, so that omp_set_num_threads decides.
const int parallel_library = setenv("VOR_SERIAL", "NO", 1);

template <class R>
class Array : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Array, Precisions);

// Room for a row in CCS, and for one row more than there are.
Side loose(const std::vector<int>& lengths, int step = 1, int offset = 0) {
    Side side{offset, {}, 0};
    for (int n : lengths) {
        side.stride.push_back(step);
        step *= n + 2;
    }
    side.distance = step;
    return side;
}
// The dimensions in the other order: the last one lies closest.
Side transposed(const std::vector<int>& lengths, int step = 1, int offset = 0) {
    Side side = loose({lengths.rbegin(), lengths.rend()}, step, offset);
    std::reverse(side.stride.begin(), side.stride.end());
    return side;
}

TYPED_TEST(Array, PlanesOfEverySmallShape) {
    WorstError worst("small planes");
    for (int n0 : {1, 2, 3, 4, 5, 8, 9, 17})
        for (int n1 : {1, 2, 3, 4, 7, 18})
            for (int threads : {1, 3}) {
                const Side side = loose({n0, n1});
                run_all_kinds<TypeParam>(
                    {.lengths = {n0, n1}, .in = side, .out = side, .threads = threads}, &worst);
            }
}

TYPED_TEST(Array, PlanesWithOffsetsStridesDistancesAndScales) {
    for (const std::vector<int>& lengths : {std::vector{6, 5}, {7, 4}, {1, 6}, {8, 1}, {36, 6}}) {
        const Side sides[] = {loose(lengths), loose(lengths, 3, 2), transposed(lengths, 1, 1),
                              transposed(lengths, 2)};
        for (const Side& in : sides)
            for (const Side& out : sides)
                for (const auto& [threads, user_threads, count] :
                     {std::tuple{1, 1, 2}, {2, 1, 3}, {1, 3, 1}})
                    run_all_kinds<TypeParam>({.lengths = lengths,
                                              .in = in,
                                              .out = out,
                                              .count = count,
                                              .forward_scale = -0.375,
                                              .backward_scale = 1.0 / 3,
                                              .user_threads = user_threads,
                                              .threads = threads});
    }
}

// Beyond the sizes that stay on one thread, with columns around whole groups, in shares of every kind.
TYPED_TEST(Array, LargerPlanesOnThreads) {
    WorstError worst("larger planes");
    for (const std::vector<int>& lengths : {std::vector{64, 32},
                                            {64, 33},
                                            {63, 40},
                                            {30, 77},
                                            {15, 140},
                                            {2, 1024},
                                            {2050, 1},
                                            {1, 2050},
                                            {3, 700},
                                            {700, 3}})
        for (int threads : {1, 2, 5})
            for (const Side& side : {loose(lengths), transposed(lengths)})
                for (const int in_place : {true, false})
                    for (const int format : {0, 54, 55, 56, 57})
                        for (const bool forward : {true, false}) {
                            if (in_place && format == 57) continue;
                            run<TypeParam>({.lengths = lengths,
                                            .domain = format ? DFTI_REAL : DFTI_COMPLEX,
                                            .in_place = in_place != 0,
                                            .storage = format == 57 ? 39 : 40,
                                            .format = format ? format : 54,
                                            .in = side,
                                            .out = side,
                                            .threads = threads},
                                           forward, false, &worst);
                        }
}

TYPED_TEST(Array, VolumesOfEveryNumberOfDimensions) {
    WorstError worst("volumes");
    for (const std::vector<int>& lengths : {std::vector{4, 6, 5},
                                            {1, 6, 5},
                                            {5, 1, 7},
                                            {5, 7, 1},
                                            {1, 1, 9},
                                            {1, 1, 1},
                                            {17, 3, 4},
                                            {2, 3, 4, 5},
                                            {3, 2, 1, 2, 3},
                                            {2, 1, 2, 2, 3, 2},
                                            {2, 2, 2, 2, 2, 2, 2}}) {
        const Side sides[] = {loose(lengths), loose(lengths, 2, 1), transposed(lengths)};
        for (const Side& in : sides)
            for (const Side& out : {sides[0], sides[2]})
                for (const auto& [user_threads, count] : {std::pair{1, 1}, {2, 2}}) {
                    if (lengths.size() > 5 && (in.offset || count > 1)) continue;
                    run_all_kinds<TypeParam>({.lengths = lengths,
                                              .in = in,
                                              .out = out,
                                              .count = count,
                                              .forward_scale = 0.75,
                                              .backward_scale = -1.0 / 3,
                                              .user_threads = user_threads},
                                             &worst);
                }
    }
}

// Enough elements for a team; more threads than the last dimension is long.
TYPED_TEST(Array, LargerVolumesOnThreads) {
    for (const std::vector<int>& lengths :
         {std::vector{40, 30, 27}, {70, 230, 2}, {3, 4000, 3}, {9, 11, 2, 170}})
        for (int threads : {2, 5}) {
            const Side side = loose(lengths);
            for (const bool forward : {true, false}) {
                Job c{.lengths = lengths, .in = side, .out = side, .threads = threads};
                run<TypeParam>(c, forward, true);
                c.in_place = false;
                c.out = transposed(lengths);
                run<TypeParam>(c, forward, false);
                if (lengths.size() > 3) continue;
                c.domain = DFTI_REAL;
                c.storage = DFTI_COMPLEX_COMPLEX;
                c.format = DFTI_CCE_FORMAT;
                run<TypeParam>(c, forward, false);
                c.in = transposed(lengths);
                c.out = side;
                run<TypeParam>(c, forward, false);
            }
        }
}

// Dimension after dimension by a descriptor of one, bit by bit.
template <class C>
void expect_lines(const std::vector<int>& lengths, int threads) {
    using R = vor::real_t<C>;
    const Job c{.lengths = lengths, .threads = threads};
    const auto n = static_cast<size_t>(c.total());
    Random random(n);
    std::vector<C> x(n);
    for (C& v : x) v = random.next<C>();
    std::vector<C> want = x;
    size_t step = 1;
    for (int length : lengths) {
        const Committed<R> line({.lengths = {length}});
        std::vector<C> vector(static_cast<size_t>(length));
        for (size_t first = 0; first < n; ++first) {
            if (first / step % vector.size() != 0) continue;
            for (size_t i = 0; i < vector.size(); ++i) vector[i] = want[first + i * step];
            ASSERT_EQ(DftiComputeForward(line.handle, vector.data()), 0);
            for (size_t i = 0; i < vector.size(); ++i) want[first + i * step] = vector[i];
        }
        step *= vector.size();
    }
    const Committed<R> d(c);
    ASSERT_EQ(DftiComputeForward(d.handle, x.data()), 0);
    EXPECT_EQ(std::memcmp(x.data(), want.data(), n * sizeof(C)), 0) << c;
}

TEST(Array, LargeArraysHaveTheBitsOfTheirLines) {
    for (int threads : {1, 2}) {
        expect_lines<vor::cfloat>({1024, 512}, threads);
        expect_lines<vor::cdouble>({1000, 1009}, threads);
        expect_lines<vor::cfloat>({40000, 17}, threads);
        expect_lines<vor::cdouble>({16384, 9}, threads);
        expect_lines<vor::cfloat>({64, 100, 128}, threads);
        expect_lines<vor::cdouble>({16, 16, 2049}, threads);
    }
}

// Long scrambled rows and columns, and long columns of real data, run on the radix engine: they hold what
// one dimension at a time leaves, and come back.
TEST(Array, LongDimensionsOnTheRadixEngine) {
    constexpr int n = 65536;
    Random random(3);
    for (const std::vector<int>& lengths : {std::vector{n, 5}, {5, n}})
        for (const int threads : {1, 2}) {
            const Job c{.lengths = lengths, .backward_scale = 1.0 / (5 * n), .threads = threads};
            Committed<float> plane(c), dense({.lengths = {5}}), row({.lengths = {n}});
            for (Committed<float>* d : {&plane, &dense, &row}) {
                EXPECT_EQ(d->set(DFTI_ORDERING, DFTI_BACKWARD_SCRAMBLED), 0);
                EXPECT_EQ(d->commit(), 0);
            }
            EXPECT_EQ(plane.handle[lengths[0] == n ? 0 : 1].on_primitives, 0);
            std::vector<vor::cfloat> x(5 * n), vector(n);
            for (auto& v : x) v = random.next<vor::cfloat>();
            auto want = x;
            const auto given = widen(x.data(), x.size());
            size_t step = 1;
            for (int length : lengths) {
                const size_t size = static_cast<size_t>(length);
                for (size_t first = 0; first < x.size(); ++first) {
                    if (first / step % size != 0) continue;
                    for (size_t i = 0; i < size; ++i) vector[i] = want[first + i * step];
                    Descriptor& line = length == n ? row : dense;
                    ASSERT_EQ(DftiComputeForward(line.handle, vector.data()), 0);
                    for (size_t i = 0; i < size; ++i) want[first + i * step] = vector[i];
                }
                step *= size;
            }
            ASSERT_EQ(DftiComputeForward(plane.handle, x.data()), 0);
            EXPECT_EQ(std::memcmp(x.data(), want.data(), x.size() * sizeof x[0]), 0) << c;
            ASSERT_EQ(DftiComputeBackward(plane.handle, x.data()), 0);
            EXPECT_LE(relative_error(x.data(), given), 2 * kBound);

            Job real = c;
            real.lengths = {6, n};
            real.domain = DFTI_REAL;
            real.format = DFTI_PERM_FORMAT;
            real.backward_scale = 1.0 / (6 * n);
            const Committed<float> d(real);
            EXPECT_EQ(d.handle[1].forward_c, &vor_dft_xcdft1df);
            std::vector<float> r(6 * n);
            for (float& v : r) v = random.next<float>();
            const auto before = widen(r.data(), r.size());
            ASSERT_EQ(DftiComputeForward(d.handle, r.data()), 0);
            ASSERT_EQ(DftiComputeBackward(d.handle, r.data()), 0);
            double worst = 0;
            for (size_t i = 0; i < r.size(); ++i)
                worst = std::max(worst, static_cast<double>(fabsl(r[i] - before[i].real())));
            EXPECT_LE(worst, 1e-5);
        }
}

// Half the spectrum of a large real plane against the complex transform of the same data.
template <class R, class C>
void expect_half(const std::vector<int>& lengths, int threads) {
    const Job complex{.lengths = lengths, .threads = threads};
    const int half = lengths[0] / 2 + 1, rows = complex.total() / lengths[0];
    Job c{.lengths = lengths,
          .domain = DFTI_REAL,
          .in_place = false,
          .storage = DFTI_COMPLEX_COMPLEX,
          .format = DFTI_CCE_FORMAT,
          .threads = threads};
    c.out.stride = {1, half};
    if (lengths.size() > 2) c.out.stride.push_back(half * lengths[1]);
    Random random(7);
    std::vector<R> x(static_cast<size_t>(complex.total()));
    std::vector<C> want(x.size()), got(static_cast<size_t>(half) * static_cast<size_t>(rows));
    for (size_t i = 0; i < x.size(); ++i) want[i] = {x[i] = random.next<R>(), 0};
    const Committed<R> all(complex), real(c);
    ASSERT_EQ(DftiComputeForward(all.handle, want.data()), 0);
    ASSERT_EQ(DftiComputeForward(real.handle, x.data(), got.data()), 0);
    std::vector<long double> reference;
    std::vector<R> stored;
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < half; ++i) {
            const C a = want[static_cast<size_t>(j) * static_cast<size_t>(lengths[0]) +
                             static_cast<size_t>(i)];
            const C b =
                got[static_cast<size_t>(j) * static_cast<size_t>(half) + static_cast<size_t>(i)];
            reference.insert(reference.end(), {a.re, a.im});
            stored.insert(stored.end(), {b.re, b.im});
        }
    EXPECT_LE(relative_error(stored.data(), reference, x.size()), kBound) << c;
}

TEST(Array, LargeRealArraysHoldHalfOfTheComplexSpectrum) {
    for (int threads : {1, 2}) {
        expect_half<float, vor::cfloat>({1024, 1000}, threads);
        expect_half<double, vor::cdouble>({1009, 512}, threads);
        expect_half<float, vor::cfloat>({64, 65, 128}, threads);
        expect_half<double, vor::cdouble>({63, 50, 100}, threads);
    }
}

// The k-th allocation of a call fails, for every k until none does. Where it is the first one, the data
// are what they were. On a team other shares run on.
TEST(Array, EveryAllocationOfACallFails) {
    for (const std::vector<int>& lengths : {std::vector{12, 9}, {64, 40}, {6, 5, 4}, {40, 30, 27}})
        for (const int format : {0, 54, 57})
            for (const int threads : {1, 3})
                for (const int step : {1, 2})
                    for (const bool forward : {true, false}) {
                        if (format == 54 && lengths.size() > 2) continue;
                        const Side side = loose(lengths, step);
                        const Job c{.lengths = lengths,
                                    .domain = format ? DFTI_REAL : DFTI_COMPLEX,
                                    .in_place = format == 54,
                                    .storage = format == 57 ? 39 : 40,
                                    .format = format ? format : 54,
                                    .in = side,
                                    .out = side,
                                    .threads = threads};
                        std::vector<double> x(static_cast<size_t>(2 * side.distance)), y = x;
                        std::vector<double>& output = c.in_place ? x : y;
                        Allocations allocations;
                        for (long k = 1; k == 1 || allocations.failed(); ++k) {
                            VOR_FreeBuffers(); // those of descriptors too: make a new one
                            const Committed<double> d(c);
                            const std::vector<double> before(output.size(), 0.5);
                            output = before;
                            allocations.fail_at(k);
                            const int status =
                                forward ? DftiComputeForward(d.handle, x.data(), y.data())
                                        : DftiComputeBackward(d.handle, x.data(), y.data());
                            ASSERT_EQ(status, allocations.failed() ? DFTI_MEMORY_ERROR : 0)
                                << c << " " << k;
                            if (k == 1 && threads == 1) {
                                EXPECT_EQ(output, before) << c;
                            }
                        }
                    }
}

// What the 1-D functions of a descriptor are called with.
struct Calls {
    std::atomic<int> all, in_team, outside;
    const char *first, *last; // of the data
} calls;

int note_call(void* input, void*, DftiRecord*, void*) {
    ++calls.all;
    if (omp_in_parallel()) ++calls.in_team;
    if (input < calls.first || input > calls.last) ++calls.outside;
    return 0;
}

// Which calls are direct, walk on the calling thread, run on a team, go through groups of columns.
TEST(Array, EachCallTakesItsRoute) {
    enum Place { in_data, in_buffer, either };
    const struct {
        Job c;
        bool forward, team;
        int calls;
        Place place;
    } cases[] = {
        {{.lengths = {100}}, true, false, 1, in_data},
        {{.lengths = {5000}, .threads = 2}, true, false, 1, in_data},
        {{.lengths = {8}, .in = {0, 1, 8}, .count = 4}, true, false, 4, in_data},
        {{.lengths = {8}, .in = {0, 4, 1}, .count = 4}, true, false, 4, in_buffer},
        {{.lengths = {8}, .in = {0, 4, 1}, .count = 4, .threads = 2}, true, true, 4, in_buffer},
        {{.lengths = {8}, .in = {0, 1, 8}, .count = 4, .threads = 2}, false, true, 4, in_data},
        {{.lengths = {3}, .domain = DFTI_REAL, .in = {0, 1, 8}, .count = 2, .threads = 2},
         true,
         false,
         2,
         in_data},
        {{.lengths = {4}, .domain = DFTI_REAL, .in = {0, 1, 8}, .count = 2, .threads = 2},
         true,
         true,
         2,
         in_data},
        {{.lengths = {89, 23}, .threads = 2}, true, false, 112, either},
        {{.lengths = {64, 32}, .threads = 2}, true, true, 96, in_buffer},
        {{.lengths = {89, 23}, .in_place = false, .threads = 2}, false, false, 112, either},
        {{.lengths = {64, 32}, .in_place = false, .threads = 2}, true, true, 96, in_buffer},
        {{.lengths = {64, 32}}, true, false, 96, either},
        {{.lengths = {89, 23}, .domain = DFTI_REAL, .format = 56, .threads = 2},
         true,
         false,
         23 + 1 + 44,
         either},
        {{.lengths = {64, 32}, .domain = DFTI_REAL, .format = 55, .threads = 2},
         false,
         true,
         32 + 2 + 31,
         either},
        {{.lengths = {64, 32},
          .domain = DFTI_REAL,
          .in_place = false,
          .storage = 39,
          .format = 57,
          .threads = 2},
         true,
         true,
         32 + 33,
         either},
        {{.lengths = {4000, 1},
          .domain = DFTI_REAL,
          .in_place = false,
          .storage = 39,
          .format = 57,
          .threads = 2},
         false,
         false,
         1,
         either},
        {{.lengths = {8, 8}, .domain = DFTI_REAL, .count = 0, .threads = 2},
         true,
         false,
         0,
         either},
        {{.lengths = {40, 40, 19}, .threads = 2}, true, false, 80 * 19 + 1600, either},
        {{.lengths = {40, 40, 20}, .threads = 2}, true, true, 80 * 20 + 1600, either},
        {{.lengths = {40, 40, 20},
          .domain = DFTI_REAL,
          .in_place = false,
          .storage = 39,
          .format = 57,
          .threads = 2},
         false,
         true,
         (40 + 2 + 19) * 20 + 21 * 40,
         either},
    };
    for (const auto& one : cases) {
        const Committed<double> d(one.c);
        for (DftiRecord* r = d.handle; r; r = r->next) {
            r->forward_z = r->backward_z = note_call;
            r->forward_real_d = r->backward_real_d = note_call;
        }
        const size_t size = 2 * static_cast<size_t>(one.c.total() * one.c.count) + 100;
        std::vector<double> x(size), y(size);
        std::vector<double>& output = one.c.in_place ? x : y;
        calls.all = calls.in_team = calls.outside = 0;
        calls.first = reinterpret_cast<const char*>(output.data());
        calls.last = reinterpret_cast<const char*>(output.data() + size);
        ASSERT_EQ(one.forward ? DftiComputeForward(d.handle, x.data(), y.data())
                              : DftiComputeBackward(d.handle, x.data(), y.data()),
                  0);
        EXPECT_EQ(calls.all, one.calls) << one.c;
        EXPECT_EQ(calls.in_team > 0, one.team) << one.c;
        if (one.place != either) {
            EXPECT_EQ(calls.outside, one.place == in_data ? 0 : one.calls) << one.c;
        }
    }
}

TEST(Share, CutsEveryTotalIntoConsecutiveParts) {
    for (int total : {1, 2, 7, 8, 1000, 0x7fffffff})
        for (int parts : {1, 2, 3, 7, 64}) {
            long long next = 0;
            for (int i = 0; i < parts; ++i) {
                const vor::dfti::Share share(total, parts, i);
                EXPECT_GE(share.count, 0);
                if (share.count > 0) {
                    EXPECT_EQ(share.first, next);
                }
                next += share.count;
            }
            EXPECT_EQ(next, total) << parts;
        }
}

} // namespace
