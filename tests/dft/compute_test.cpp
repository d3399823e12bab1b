// Commit and compute: every data kind, direction, placement and layout against a long double oracle;
// the decisions of commit; threads; failures.
#include "dft/columns.h"
#include "serv/memory.h"
#include "tests/common/allocations.h"
#include "tests/dft/job.h"
#include "vor_service.h"

#include <set>
#include <thread>

namespace {

using namespace vor::test;

// The thread decision of the library is taken once: parallel, so that omp_set_num_threads decides.
const int parallel_library = setenv("VOR_SERIAL", "NO", 1);

template <class R>
class Compute : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Compute, Precisions);

TYPED_TEST(Compute, LengthsWithOneCallPerTransform) {
    for (int length : {1, 2, 3, 4, 5, 7, 8, 9, 16, 30, 64, 127, 211, 512, 1000, 1024})
        run_all_kinds<TypeParam>({.lengths = {length}});
}

TYPED_TEST(Compute, OffsetsStridesDistancesAndScales) {
    const Side sides[] = {{0, 1, 40}, {3, 1, 37}, {0, 2, 80}, {5, 3, 120}, {1, 50, 2}, {0, 20, 1}};
    for (int length : {1, 6, 7, 16})
        for (const Side& in : sides)
            for (const Side& out : sides) {
                const bool direct = in.stride[0] == 1 && out.stride[0] == 1 && length == 7;
                const bool overlap = length == 1 && (in.distance == 1 || out.distance == 1);
                run_all_kinds<TypeParam>({.lengths = {length},
                                          .in = in,
                                          .out = out,
                                          .count = direct || overlap ? 1 : 2,
                                          .forward_scale = -0.375,
                                          .backward_scale = 1.0 / 3});
            }
}

// Interleaved vectors, in numbers around the group sizes.
TYPED_TEST(Compute, InterleavedVectors) {
    for (int length : {5, 8, 33})
        for (int count : {0, 1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33, 70})
            for (int threads : {1, 2})
                if ((count + 2) * (length + 2) * 2 < 6000)
                    run_all_kinds<TypeParam>({.lengths = {length},
                                              .in = {2, count + 1, 1},
                                              .out = {0, count + 2, 1},
                                              .count = count,
                                              .threads = threads});
}

TYPED_TEST(Compute, ManyTransformsOnThreads) {
    for (int threads : {1, 2, 3, 5})
        for (int user_threads : {1, 3})
            for (int count : {0, 1, 2, 4, 7})
                run_all_kinds<TypeParam>({.lengths = {12},
                                          .in = {1, 2, 60},
                                          .out = {0, 1, 31},
                                          .count = count,
                                          .user_threads = user_threads,
                                          .threads = threads});
}

TYPED_TEST(Compute, ScrambledOrderHoldsTheSpectrumAndComesBack) {
    using R = TypeParam;
    using C = typename std::conditional_t<sizeof(R) == 4, vor::cfloat, vor::cdouble>;
    for (int length : {2, 12, 60, 64, 97, 180})
        for (bool in_place : {true, false}) {
            Descriptor d({length}, DFTI_COMPLEX, kPrecision<R>);
            EXPECT_EQ(d.set(DFTI_ORDERING, DFTI_BACKWARD_SCRAMBLED), 0);
            EXPECT_EQ(d.set(DFTI_PLACEMENT, in_place ? DFTI_INPLACE : DFTI_NOT_INPLACE), 0);
            EXPECT_EQ(DftiSetValue(d.handle, DFTI_BACKWARD_SCALE, 1.0 / length), 0);
            ASSERT_EQ(d.commit(), 0);
            const auto n = static_cast<size_t>(length);
            Random random(n);
            Guarded<C> x(n), y(n), z(n);
            x.fill(random);
            const Spectrum given = widen(x.data(), n);
            const Spectrum want = transform(given, Direction::forward);
            C* spectrum = in_place ? x.data() : y.data();
            C* back = in_place ? x.data() : z.data();
            EXPECT_EQ(DftiComputeForward(d.handle, x.data(), spectrum), 0);
            std::set<size_t> all; // each value stands somewhere, and each place holds another one
            for (const Wide& got : widen(spectrum, n))
                for (size_t i = 0; i < n; ++i)
                    if (std::abs(want[i] - got) < 100 * n * std::numeric_limits<R>::epsilon())
                        all.insert(i);
            EXPECT_EQ(all.size(), n) << length;
            EXPECT_EQ(DftiComputeBackward(d.handle, spectrum, back), 0);
            EXPECT_LE(relative_error(back, given), 2 * kBound);
        }
}

TEST(Commit, SettlesFlagsFunctionsAndThreads) {
    const struct {
        Job setup;
        int single_vector, direct_vector;
    } cases[] = {
        {{{511}}, 1, 1},
        {{{512}}, 0, 0},
        {{{100}, DFTI_COMPLEX, true, 40, 54, {0, 2, 0}, {}}, 0, 0},
        {{{100}, DFTI_COMPLEX, true, 40, 54, {}, {}, 2}, 0, 0},
        {{{4096}, DFTI_REAL}, 1, 1},
        {{{4097}, DFTI_REAL}, 0, 0},
        {{{4097}, DFTI_REAL, true, 40, DFTI_PACK_FORMAT}, 1, 1},
        {{{64}, DFTI_REAL, true, 40, 54, {}, {}, 3}, 3, 0},
        {{{64}, DFTI_COMPLEX, true, 40, 54, {}, {}, 1, 1, 1, 4}, 1, 0},
    };
    for (const auto& c : cases) {
        const Committed<double> d(c.setup);
        EXPECT_EQ(d->single_vector, c.single_vector) << c.setup;
        EXPECT_EQ(d->direct_vector, c.direct_vector) << c.setup;
        EXPECT_EQ(d->thread_slots != nullptr, c.setup.user_threads > 1);
        for (int i = 0; d->thread_slots && i < c.setup.user_threads; ++i)
            EXPECT_EQ(d->thread_slots[i], 0);
        EXPECT_EQ(d->threads, 1);
    }
    Committed<float> d({.threads = 2});
    EXPECT_EQ(d->threads, 2);
#pragma omp parallel num_threads(2)
#pragma omp single
    EXPECT_EQ(d.commit(), 0);
    EXPECT_EQ(d->threads, 1); // committed inside a parallel region
}

TEST(Commit, RefusesWhatIsNotProvidedAndLeavesNothingBehind) {
    const struct {
        std::vector<int> lengths;
        int domain, precision, parameter, value, status;
    } cases[] = {
        {{8, 8}, DFTI_REAL, DFTI_SINGLE, DFTI_PACKED_FORMAT, DFTI_CCE_FORMAT, 6},
        {{8, 8, 8}, DFTI_REAL, DFTI_SINGLE, DFTI_ORDERING, DFTI_ORDERED, 6},
        {{8}, DFTI_REAL, DFTI_DOUBLE, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX, 6},
        {{8}, DFTI_REAL, DFTI_DOUBLE, DFTI_PACKED_FORMAT, DFTI_CCE_FORMAT, 6},
    };
    omp_set_num_threads(1);
    for (const auto& c : cases) {
        Descriptor d(c.lengths, c.domain, c.precision);
        EXPECT_EQ(d.set(c.parameter, c.value), 0);
        EXPECT_EQ(d.commit(), c.status) << c.lengths[0];
        EXPECT_EQ(d->commit_status, c.status ? DFTI_UNCOMMITTED : DFTI_COMMITTED);
        char data[64] = {};
        if (c.status) {
            EXPECT_EQ(DftiComputeForward(d.handle, data, data), DFTI_INVALID_CONFIGURATION);
        }
    }
}

// As many regions of the workspace as parts of the work can run at once, each as large as the largest
// object of any dimension asks for.
TEST(Commit, SizesTheWorkspaceByTheWorkThatCanRunAtOnce) {
    const struct {
        Job setup;
        int regions;
    } cases[] = {
        {{.lengths = {1009}, .threads = 64}, 1},
        {{.lengths = {1009}, .count = 3, .threads = 64}, 3},
        {{.lengths = {1009}, .count = 300, .threads = 4}, 4},
        {{.lengths = {1009}, .user_threads = 5, .threads = 64}, 5},
        {{.lengths = {97, 5}, .threads = 64}, 64},
        {{.lengths = {5, 97, 7}, .threads = 200}, 97},
    };
    for (const auto& c : cases) {
        VOR_FreeBuffers();
        Allocations allocations;
        const Committed<double> d(c.setup);
        const size_t size = allocations.last_size();
        const unsigned bytes = static_cast<unsigned>(d->max_buffer_size * c.regions);
        vor_serv_deallocate(vor_serv_allocate(bytes)); // takes what the workspace should have taken
        EXPECT_EQ(size, allocations.last_size()) << c.setup;
    }
    const Descriptor plane({4, 151}, DFTI_REAL);
    ASSERT_EQ(DftiCommitDescriptor(plane.handle), 0);
    int complex = 0, real = 0;
    EXPECT_EQ(tavsDFTGetBufSize_C_64fc(plane.handle[1].dft_spec_z, &complex), 0);
    EXPECT_EQ(tavsDFTGetBufSize_R_64f(plane.handle[1].dft_spec_real_d, &real), 0);
    EXPECT_GT(complex, real);
    EXPECT_EQ(plane.handle[1].buffer_size, complex);
    EXPECT_GE(plane->max_buffer_size, complex);
}

// The k-th allocation of commit and of compute fails, for every k, until none does. No commit leaves
// anything behind of the one before it.
TEST(Failures, EveryAllocationOfCommitAndCompute) {
    const Job setups[] = {
        {{60}, DFTI_COMPLEX, true, 40, 54, {0, 2, 0}},
        {{64}, DFTI_REAL, false, 40, 54, {}, {0, 3, 0}},
        {{97}, DFTI_REAL, true, 40, 54, {0, 5, 1}, {}, 5},
        {{30}, DFTI_COMPLEX, false, 40, 54, {0, 4, 1}, {0, 4, 1}, 4, 1, 1, 3},
    };
    omp_set_num_threads(1);
    VOR_FreeBuffers();
    Allocations allocations;
    for (const Job& c : setups) {
        Committed<double> d(c);
        std::vector<double> x(2000), y(2000);
        const auto compute = [&] { return DftiComputeForward(d.handle, x.data(), y.data()); };
        const auto commit = [&] {
            const int status = d.commit();
            if (!status) return status;
            EXPECT_EQ(compute(), DFTI_INVALID_CONFIGURATION);
            EXPECT_FALSE(d->dft_spec_z || d->dft_spec_real_d || d->workspace || d->thread_slots);
            return status;
        };
        const auto fails_until_none_does = [&](auto call) {
            for (long k = 1; k == 1 || allocations.failed(); ++k) {
                allocations.fail_at(k);
                const int status = call();
                EXPECT_EQ(status, allocations.failed() ? DFTI_MEMORY_ERROR : 0) << c << " " << k;
            }
            allocations.fail_at(0);
        };
        fails_until_none_does(commit);
        fails_until_none_does(compute);
        const long live = allocations.live();
        for (int i = 0; i < 100; ++i) ASSERT_EQ(d.commit(), 0);
        EXPECT_EQ(allocations.live(), live);
    }
    VOR_FreeBuffers();
    EXPECT_EQ(allocations.live(), 0);
}

int fail_at_the_third(void*, void*, DftiRecord*, void* calls) {
    return ++*static_cast<int*>(calls) < 3 ? 0 : DFTI_VOR_INTERNAL_ERROR;
}

// Six columns in groups of four: the third ends the call.
TEST(Failures, AFailedColumnEndsTheCall) {
    const Descriptor d({2});
    std::vector<vor::cdouble> data(2 * 6, {1, 2}), buffer(64, {3, 4});
    int calls = 0;
    EXPECT_EQ(vor_dft_xzdft1d_copy(data.data(), 6, fail_at_the_third, d.handle, 6, 1, buffer.data(),
                                   2, &calls),
              DFTI_VOR_INTERNAL_ERROR);
    EXPECT_EQ(calls, 3);
}

// A compute that fails gives its slot back.
TEST(UserThreads, AFailedCallLeavesNoSlotTaken) {
    VOR_FreeBuffers();
    const Committed<double> d({.lengths = {50}, .in = {0, 2, 0}, .user_threads = 2});
    std::vector<vor::cdouble> x(100);
    Allocations allocations;
    for (int i = 0; i < 3; ++i) {
        allocations.fail_at(1);
        EXPECT_EQ(DftiComputeForward(d.handle, x.data()), DFTI_MEMORY_ERROR);
        EXPECT_EQ(d->thread_slots[0] + d->thread_slots[1], 0);
    }
}

// Callers at once: as many as there are slots are served, one more is turned away and may come again.
TEST(UserThreads, OneCallerMoreThanSlots) {
    constexpr size_t n = 1009;
    const Committed<double> d({.lengths = {n}, .user_threads = 2});
    Random random(5);
    Guarded<vor::cdouble> given(n);
    given.fill(random);
    const auto want = transform(widen(given.data(), n), Direction::forward);
    const auto served = [&] { // or turned away
        auto mine = given.copy();
        const int status = DftiComputeForward(d.handle, mine.data());
        EXPECT_TRUE(status ? status == DFTI_NUMBER_OF_THREADS_ERROR
                           : relative_error(mine.data(), want) <= kBound);
        return !status;
    };
    d->thread_slots[0] = 1; // a caller that is still computing
    EXPECT_TRUE(served());
    d->thread_slots[1] = 1;
    EXPECT_FALSE(served());
    d->thread_slots[0] = d->thread_slots[1] = 0;
    std::vector<std::thread> callers;
    for (int t = 0; t < 4; ++t)
        callers.emplace_back([&] {
            for (int i = 0; i < 50; ++i) served();
        });
    for (auto& caller : callers) caller.join();
    EXPECT_EQ(d->thread_slots[0] + d->thread_slots[1], 0);
}

// Every typed entry on a descriptor of every kind: those for other data return 3 and touch nothing.
TEST(Compute, EntriesRefuseDescriptorsOfOtherData) {
    struct Kind {
        int domain, precision, storage, dimension;
    };
    using Entry = int (*)(DFTI_DESCRIPTOR_HANDLE*, void*, void*);
    static const auto in_place = [](auto entry, DFTI_DESCRIPTOR_HANDLE* h, void* x, void*) {
        return entry(h, x);
    };
#define IN_PLACE(t)                                                                                \
    [](DFTI_DESCRIPTOR_HANDLE* h, void* x, void* y) {                                              \
        return in_place(dfti_compute_forward_##t, h, x, y);                                        \
    },                                                                                             \
        [](DFTI_DESCRIPTOR_HANDLE* h, void* x, void* y) {                                          \
            return in_place(dfti_compute_backward_##t, h, x, y);                                   \
        }
#define OUT(t) dfti_compute_forward_##t##_out, dfti_compute_backward_##t##_out
    const struct {
        int domain, precision, storage; // of a descriptor that the entries serve
        std::vector<Entry> entries;
    } families[] = {
        {DFTI_COMPLEX, DFTI_SINGLE, 0, {IN_PLACE(c), OUT(c)}},
        {DFTI_COMPLEX, DFTI_DOUBLE, 0, {IN_PLACE(z), OUT(z)}},
        {DFTI_REAL, DFTI_SINGLE, DFTI_COMPLEX_REAL, {IN_PLACE(s), OUT(s)}},
        {DFTI_REAL, DFTI_DOUBLE, DFTI_COMPLEX_REAL, {IN_PLACE(d), OUT(d)}},
        {DFTI_REAL,
         DFTI_SINGLE,
         DFTI_COMPLEX_COMPLEX,
         {dfti_compute_forward_sc_out, dfti_compute_backward_cs_out}},
        {DFTI_REAL,
         DFTI_DOUBLE,
         DFTI_COMPLEX_COMPLEX,
         {dfti_compute_forward_dz_out, dfti_compute_backward_zd_out}},
    };
    for (const auto& of : families)
        for (const int dimension : {1, 2}) {
            const bool half = of.storage == DFTI_COMPLEX_COMPLEX;
            Descriptor d(std::vector<int>(static_cast<size_t>(dimension), 4), of.domain,
                         of.precision);
            EXPECT_EQ(d.set(DFTI_PLACEMENT, half ? DFTI_NOT_INPLACE : DFTI_INPLACE), 0);
            EXPECT_EQ(d.set(DFTI_CONJUGATE_EVEN_STORAGE, half ? 39 : 40), 0);
            ASSERT_EQ(d.commit(), 0);
            for (const auto& by : families)
                for (const Entry entry : by.entries) {
                    const bool other_storage = by.storage != of.storage && dimension > 1;
                    if (by.domain == of.domain && by.precision == of.precision && !other_storage)
                        continue;
                    const std::vector<double> before(100, 1.5);
                    std::vector<double> x = before, y = before;
                    EXPECT_EQ(entry(&d.handle, x.data(), y.data()),
                              DFTI_INCONSISTENT_CONFIGURATION);
                    EXPECT_TRUE(x == before && y == before);
                }
        }
}

TEST(Compute, NullDataAndMissingCommit) {
    Descriptor d({16});
    DFTI_DESCRIPTOR_HANDLE h = d.handle;
    vor::cdouble x[16] = {}, y[16] = {};
    EXPECT_EQ(DftiComputeForward(h, x), DFTI_INVALID_CONFIGURATION);
    EXPECT_EQ(d.set(DFTI_PLACEMENT, DFTI_NOT_INPLACE), 0);
    EXPECT_EQ(d.commit(), 0);
    EXPECT_EQ(DftiComputeForward(h, nullptr, y), DFTI_INCONSISTENT_CONFIGURATION);
    EXPECT_EQ(DftiComputeForward(h, x, nullptr), DFTI_INCONSISTENT_CONFIGURATION);
    EXPECT_EQ(dfti_compute_forward_z_out(&h, x, nullptr), DFTI_INCONSISTENT_CONFIGURATION);
}

} // namespace
