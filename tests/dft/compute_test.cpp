// Commit and compute: every data kind, direction, placement and layout against a long double oracle;
// the decisions of commit; threads; failures.
#include "dft/columns.h"
#include "tests/common/allocations.h"
#include "tests/common/fourier.h"
#include "tests/dft/descriptor.h"
#include "vor_service.h"

#include <omp.h>
#include <set>
#include <thread>

namespace {

using vor::test::Allocations;
using vor::test::Descriptor;
using vor::test::Format;
using vor::test::Random;
using vor::test::relative_error;
using vor::test::Spectrum;

// The thread decision of the library is taken once: parallel, so that omp_set_num_threads decides.
const int parallel_library = setenv("VOR_SERIAL", "NO", 1);

constexpr double kBound = 2; // of the error, in eps log2 n
constexpr int kSpan = 6000;  // reals in an array of a job

struct Side {
    int offset = 0, stride = 1, distance = 0;
};

struct Job {
    int length = 8;
    int domain = DFTI_COMPLEX;
    bool in_place = true;
    int storage = DFTI_COMPLEX_REAL;
    int format = DFTI_CCS_FORMAT;
    Side in = {}, out = {};
    int count = 1;
    double forward_scale = 1, backward_scale = 1;
    int user_threads = 1;
    int threads = 1;
};

std::ostream& operator<<(std::ostream& s, const Job& c) {
    s << "length " << c.length << " count " << c.count << " domain " << c.domain << " in place "
      << c.in_place << " storage " << c.storage << " format " << c.format << " threads "
      << c.threads;
    for (const Side& side : {c.in, c.out})
        s << " / " << side.offset << " " << side.stride << " " << side.distance;
    return s;
}

template <class R>
constexpr int kPrecision = sizeof(R) == 4 ? DFTI_SINGLE : DFTI_DOUBLE;

// A committed descriptor.
template <class R>
struct Committed : Descriptor {
    explicit Committed(const Job& c) : Descriptor({c.length}, c.domain, kPrecision<R>) {
        const int in[] = {c.in.offset, c.in.stride}, out[] = {c.out.offset, c.out.stride};
        EXPECT_EQ(DftiSetValue(handle, DFTI_INPUT_STRIDES, in), 0);
        EXPECT_EQ(DftiSetValue(handle, DFTI_OUTPUT_STRIDES, out), 0);
        EXPECT_EQ(DftiSetValue(handle, DFTI_FORWARD_SCALE, c.forward_scale), 0);
        EXPECT_EQ(DftiSetValue(handle, DFTI_BACKWARD_SCALE, c.backward_scale), 0);
        for (const auto& [number, value] :
             {std::pair<int, int>{DFTI_PLACEMENT, c.in_place ? DFTI_INPLACE : DFTI_NOT_INPLACE},
              {DFTI_CONJUGATE_EVEN_STORAGE, c.storage},
              {DFTI_PACKED_FORMAT, c.format},
              {DFTI_INPUT_DISTANCE, c.in.distance},
              {DFTI_OUTPUT_DISTANCE, c.out.distance},
              {DFTI_NUMBER_OF_TRANSFORMS, c.count},
              {DFTI_NUMBER_OF_USER_THREADS, c.user_threads}})
            EXPECT_EQ(set(number, value), 0) << number;
        omp_set_num_threads(c.threads);
        EXPECT_EQ(commit(), 0) << c;
    }
};

// The typed entry that serves a setup.
template <class R>
int typed(const Job& c, bool forward, DFTI_DESCRIPTOR_HANDLE* h, void* in, void* out) {
    constexpr bool single = sizeof(R) == 4;
    const auto pick = [&](auto s_forward, auto d_forward, auto s_backward, auto d_backward) {
        return forward ? (single ? s_forward : d_forward) : (single ? s_backward : d_backward);
    };
#define PICK(s, d)                                                                                 \
    pick(dfti_compute_forward_##s, dfti_compute_forward_##d, dfti_compute_backward_##s,            \
         dfti_compute_backward_##d)
    if (c.domain == DFTI_COMPLEX)
        return c.in_place ? PICK(c, z)(h, in) : PICK(c_out, z_out)(h, in, out);
    if (c.in_place) return PICK(s, d)(h, in);
    if (c.storage == DFTI_COMPLEX_REAL) return PICK(s_out, d_out)(h, in, out);
    return pick(dfti_compute_forward_sc_out, dfti_compute_forward_dz_out,
                dfti_compute_backward_cs_out, dfti_compute_backward_zd_out)(h, in, out);
}

// The values of one vector on the side of the signal, or of its spectrum, as reals.
std::vector<long double> values(const Job& c, const Spectrum& x, bool spectrum) {
    if (c.domain == DFTI_REAL && spectrum)
        return stored(x, c.storage == DFTI_COMPLEX_COMPLEX || c.format == DFTI_CCS_FORMAT
                             ? Format::ccs
                         : c.format == DFTI_PACK_FORMAT ? Format::pack
                                                        : Format::perm);
    std::vector<long double> r;
    for (const auto& v : x) {
        r.push_back(v.real());
        if (c.domain == DFTI_COMPLEX) r.push_back(v.imag());
    }
    return r;
}

int reals_per_element(const Job& c, bool spectrum) {
    return c.domain == DFTI_COMPLEX || (spectrum && c.storage == DFTI_COMPLEX_COMPLEX) ? 2 : 1;
}

// Index of real i of vector t on a side.
size_t place(const Side& side, int t, size_t i, int reals) {
    const int at = static_cast<int>(i);
    return static_cast<size_t>(
        (side.offset + t * side.distance + at / reals * side.stride) * reals + at % reals);
}

template <class R>
void run(const Job& c, bool forward, bool by_type) {
    SCOPED_TRACE(::testing::Message() << c << " forward " << forward << " typed " << by_type);
    Random random(static_cast<uint64_t>(c.length) * 31 + static_cast<uint64_t>(c.count));
    const Side& out_side = c.in_place ? c.in : c.out;
    const int in_reals = reals_per_element(c, !forward), out_reals = reals_per_element(c, forward);
    vor::test::Guarded<R> input(kSpan), separate(kSpan);
    input.fill(random);
    separate.fill(random);
    vor::test::Guarded<R>& output = c.in_place ? input : separate;
    std::vector<std::vector<long double>> want;
    std::vector<bool> open(kSpan); // places that the call may change
    for (int t = 0; t < c.count; ++t) {
        Spectrum signal(static_cast<size_t>(c.length));
        for (auto& v : signal) {
            v = random.next<R>();
            if (c.domain == DFTI_COMPLEX) v = {v.real(), random.next<R>()};
        }
        // Backward, the spectrum comes first, rounded to R, and what it is the spectrum of is wanted.
        const Spectrum spectrum = transform(signal, vor::test::Direction::forward);
        const auto given = values(c, forward ? signal : spectrum, !forward);
        Spectrum result = forward ? spectrum : signal;
        for (auto& v : result) v *= forward ? c.forward_scale : c.length * c.backward_scale;
        want.push_back(values(c, result, forward));
        // In place, the place behind the reals that held a part of the spectrum in CCS is cleared.
        if (c.domain == DFTI_REAL && c.in_place && !forward && c.format == DFTI_CCS_FORMAT)
            want.back().push_back(0);
        for (size_t i = 0; i < given.size(); ++i) {
            const size_t at = place(c.in, t, i, in_reals);
            ASSERT_LT(at, static_cast<size_t>(kSpan));
            input[at] = static_cast<R>(given[i]);
            if (c.in_place) open[at] = true;
        }
        for (size_t i = 0; i < want.back().size(); ++i)
            open.at(place(out_side, t, i, out_reals)) = true;
    }
    const std::vector<R> before = output.copy(), source = input.copy();
    Committed<R> d(c);
    void* data = input.data();
    EXPECT_EQ(by_type   ? typed<R>(c, forward, &d.handle, data, output.data())
              : forward ? DftiComputeForward(d.handle, data, output.data())
                        : DftiComputeBackward(d.handle, data, output.data()),
              0);
    for (int t = 0; t < c.count; ++t) {
        const auto& wanted = want[static_cast<size_t>(t)];
        std::vector<R> got;
        for (size_t i = 0; i < wanted.size(); ++i)
            got.push_back(output[place(out_side, t, i, out_reals)]);
        EXPECT_LE(relative_error(got.data(), wanted, static_cast<size_t>(c.length)), kBound)
            << "vector " << t;
    }
    for (size_t i = 0; i < output.size(); ++i) ASSERT_TRUE(open[i] || output[i] == before[i]) << i;
    EXPECT_TRUE(c.in_place || input.copy() == source);
    EXPECT_TRUE(input.intact() && separate.intact());
}

template <class R>
class Compute : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Compute, Precisions);

// Every kind of data: complex data, three packed formats of real data, half a spectrum.
template <class R>
void run_all_kinds(Job c) {
    for (const bool in_place : {true, false})
        for (const int format :
             {0, +DFTI_CCS_FORMAT, +DFTI_PACK_FORMAT, +DFTI_PERM_FORMAT, +DFTI_CCE_FORMAT}) {
            const bool half = format == DFTI_CCE_FORMAT;
            if (half && in_place) continue;
            c.in_place = in_place;
            c.domain = format ? DFTI_REAL : DFTI_COMPLEX;
            c.storage = half ? DFTI_COMPLEX_COMPLEX : DFTI_COMPLEX_REAL;
            c.format = format ? format : DFTI_CCS_FORMAT;
            for (const bool forward : {true, false})
                for (const bool by_type : {true, false}) run<R>(c, forward, by_type);
        }
}

TYPED_TEST(Compute, LengthsWithOneCallPerTransform) {
    for (int length : {1, 2, 3, 4, 5, 7, 8, 9, 16, 30, 64, 127, 211, 512, 1000, 1024})
        run_all_kinds<TypeParam>({.length = length});
}

TYPED_TEST(Compute, OffsetsStridesDistancesAndScales) {
    const Side sides[] = {{0, 1, 40}, {3, 1, 37}, {0, 2, 80}, {5, 3, 120}, {1, 50, 2}, {0, 20, 1}};
    for (int length : {1, 6, 7, 16})
        for (const Side& in : sides)
            for (const Side& out : sides) {
                const bool direct = in.stride == 1 && out.stride == 1 && length == 7;
                const bool overlap = length == 1 && (in.distance == 1 || out.distance == 1);
                run_all_kinds<TypeParam>({.length = length,
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
                if ((count + 2) * (length + 2) * 2 < kSpan)
                    run_all_kinds<TypeParam>({.length = length,
                                              .in = {2, count + 1, 1},
                                              .out = {0, count + 2, 1},
                                              .count = count,
                                              .threads = threads});
}

TYPED_TEST(Compute, ManyTransformsOnThreads) {
    for (int threads : {1, 2, 3, 5})
        for (int user_threads : {1, 3})
            for (int count : {0, 1, 2, 4, 7})
                run_all_kinds<TypeParam>({.length = 12,
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
            vor::test::Guarded<C> x(n), y(n), z(n);
            x.fill(random);
            const Spectrum given = vor::test::widen(x.data(), n);
            const Spectrum want = transform(given, vor::test::Direction::forward);
            C* spectrum = in_place ? x.data() : y.data();
            C* back = in_place ? x.data() : z.data();
            EXPECT_EQ(DftiComputeForward(d.handle, x.data(), spectrum), 0);
            std::set<size_t> all; // each value stands somewhere, and each place holds another one
            for (const vor::test::Wide& got : vor::test::widen(spectrum, n))
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
        {{511}, 1, 1},
        {{512}, 0, 0},
        {{100, DFTI_COMPLEX, true, 40, 54, {0, 2, 0}, {}}, 0, 0},
        {{100, DFTI_COMPLEX, true, 40, 54, {}, {}, 2}, 0, 0},
        {{4096, DFTI_REAL}, 1, 1},
        {{4097, DFTI_REAL}, 0, 0},
        {{4097, DFTI_REAL, true, 40, DFTI_PACK_FORMAT}, 1, 1},
        {{64, DFTI_REAL, true, 40, 54, {}, {}, 3}, 3, 0},
        {{64, DFTI_COMPLEX, true, 40, 54, {}, {}, 1, 1, 1, 4}, 1, 0},
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
        {{8, 8}, DFTI_COMPLEX, DFTI_SINGLE, DFTI_ORDERING, DFTI_ORDERED, 6},
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

// The k-th allocation of commit and of compute fails, for every k, until none does. No commit leaves
// anything behind of the one before it.
TEST(Failures, EveryAllocationOfCommitAndCompute) {
    const Job setups[] = {
        {60, DFTI_COMPLEX, true, 40, 54, {0, 2, 0}},
        {64, DFTI_REAL, false, 40, 54, {}, {0, 3, 0}},
        {97, DFTI_REAL, true, 40, 54, {0, 5, 1}, {}, 5},
        {30, DFTI_COMPLEX, false, 40, 54, {0, 4, 1}, {0, 4, 1}, 4, 1, 1, 3},
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

// Callers at once: as many as there are slots are served, one more is turned away and may come again.
TEST(UserThreads, OneCallerMoreThanSlots) {
    constexpr size_t n = 1009;
    const Committed<double> d({.length = n, .user_threads = 2});
    Random random(5);
    vor::test::Guarded<vor::cdouble> given(n);
    given.fill(random);
    const auto want = transform(vor::test::widen(given.data(), n), vor::test::Direction::forward);
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
