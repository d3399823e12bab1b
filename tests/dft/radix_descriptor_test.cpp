// Descriptors on the radix engine: where commit chooses it, and long scrambled and ordered transforms against
// the FFT objects, alone and on threads; lost memory.
#include "dft/radix/adapters.h"
#include "tests/common/allocations.h"
#include "tests/dft/descriptor.h"
#include "tests/dft/onecall.h"
#include "vor_service.h"
#include "vor_signal.h"

#include <omp.h>

namespace {

using namespace vor::test;

const int parallel_library = setenv("VOR_SERIAL", "NO", 1);

constexpr double kBound = 0.3; // of the difference from another transform, in eps log2 n

struct Choice {
    int length, precision;
    int ordering = DFTI_BACKWARD_SCRAMBLED;
    int placement = DFTI_INPLACE;
    int threads = 1;
    double forward_scale = 1, backward_scale = 1;
};

struct Committed : Descriptor {
    explicit Committed(const Choice& s, bool at_once = true)
        : Descriptor({s.length}, DFTI_COMPLEX, s.precision) {
        EXPECT_EQ(set(DFTI_ORDERING, s.ordering), 0);
        EXPECT_EQ(set(DFTI_PLACEMENT, s.placement), 0);
        EXPECT_EQ(DftiSetValue(handle, DFTI_FORWARD_SCALE, s.forward_scale), 0);
        EXPECT_EQ(DftiSetValue(handle, DFTI_BACKWARD_SCALE, s.backward_scale), 0);
        omp_set_num_threads(s.threads);
        if (at_once) {
            EXPECT_EQ(commit(), 0);
        }
        omp_set_num_threads(1);
    }
};

TEST(RadixDescriptor, WhereCommitChoosesIt) {
    enum Use { neither, forward, backward, both };
    const struct {
        Choice choice;
        Use use;
        int on_primitives;
    } cases[] = {
        {{32768, DFTI_SINGLE}, neither, 1},
        {{65536, DFTI_SINGLE}, both, 0},
        {{65536, DFTI_SINGLE, DFTI_ORDERED, DFTI_INPLACE, 2, .5, .5}, neither, 1},
        {{8192, DFTI_DOUBLE}, neither, 1},
        {{16384, DFTI_DOUBLE}, both, 0},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 2}, neither, 1},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 2, .5, .5}, both, 0},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 2, .5, 1}, forward, 1},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 2, 1, .5}, backward, 1},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 1, .5, .5}, neither, 1},
        {{16384, DFTI_DOUBLE, DFTI_ORDERED, DFTI_NOT_INPLACE, 2, .5, .5}, neither, 1},
    };
    for (const auto& c : cases) {
        const Committed d(c.choice);
        SCOPED_TRACE(&c - cases);
        const bool single = c.choice.precision == DFTI_SINGLE;
        EXPECT_EQ(d->on_primitives, c.on_primitives);
        EXPECT_EQ((single ? d->forward_c : d->forward_z) ==
                      (single ? vor_dft_xcdft1df : vor_dft_xzdft1df),
                  c.use == forward || c.use == both);
        EXPECT_EQ((single ? d->backward_c : d->backward_z) ==
                      (single ? vor_dft_xcdft1db : vor_dft_xzdft1db),
                  c.use == backward || c.use == both);
        // With both engines built the objects may serve both directions.
        const bool both_built =
            c.choice.placement == DFTI_INPLACE && c.choice.threads > 1 && !single;
        EXPECT_EQ((single ? d->table_c : d->table_z) != nullptr, c.use != neither || both_built);
    }
}

// What an FFT object makes of x, times scale; in reversed order if so asked.
template <class R>
Spectrum by_object(const Guarded<vor::complex_t<R>>& x, bool forward, double scale, bool reverse) {
    using C = vor::complex_t<R>;
    FftCtx* object = nullptr;
    int order = 0;
    while (size_t{1} << order < x.size()) ++order;
    Guarded<C> y(x);
    if constexpr (sizeof(R) == 4) {
        EXPECT_EQ(tavsFFTInitAlloc_C_32fc(&object, order, TAV_FFT_NODIV_BY_ANY, 0), 0);
        (forward ? tavsFFTFwd_CToC_32fc : tavsFFTInv_CToC_32fc)(y.data(), y.data(), object,
                                                                nullptr);
        tavsFFTFree_C_32fc(object);
    } else {
        EXPECT_EQ(tavsFFTInitAlloc_C_64fc(&object, order, TAV_FFT_NODIV_BY_ANY, 0), 0);
        (forward ? tavsFFTFwd_CToC_64fc : tavsFFTInv_CToC_64fc)(y.data(), y.data(), object,
                                                                nullptr);
        tavsFFTFree_C_64fc(object);
    }
    Spectrum result(x.size());
    for (size_t i = 0; i < x.size(); ++i)
        result[reverse ? reversed(i, x.size()) : i] =
            Wide(y[i].re, y[i].im) * static_cast<long double>(scale);
    return result;
}

template <class R>
void run(const Choice& choice, WorstError& worst) {
    using C = vor::complex_t<R>;
    const auto n = static_cast<size_t>(choice.length);
    SCOPED_TRACE(::testing::Message() << n << " threads " << choice.threads);
    const Committed d(choice);
    const bool scrambled = choice.ordering == DFTI_BACKWARD_SCRAMBLED;
    const bool in_place = choice.placement == DFTI_INPLACE;
    for (const bool forward : {true, false}) {
        Guarded<C> x(n), y(n), given(n);
        Random random(n);
        given.fill(random);
        for (size_t i = 0; i < n; ++i) x[!forward && scrambled ? reversed(i, n) : i] = given[i];
        const auto source = x.copy();
        const Spectrum want =
            by_object<R>(given, forward, forward ? choice.forward_scale : choice.backward_scale,
                         forward && scrambled);
        EXPECT_EQ(
            (forward ? DftiComputeForward : DftiComputeBackward)(d.handle, x.data(), y.data()), 0);
        EXPECT_LE(worst.add(relative_error((in_place ? x : y).data(), want)), kBound);
        EXPECT_TRUE(in_place || same_bits(source.data(), x.data(), n));
        EXPECT_TRUE(x.intact() && y.intact());
    }
}

TEST(RadixDescriptor, LongTransforms) {
    WorstError single("scrambled, single"), twice("scrambled, double"), ordered("ordered, double");
    for (const int threads : {1, 2, 3, 4})
        for (const int placement : {+DFTI_INPLACE, +DFTI_NOT_INPLACE})
            for (const double scale : {1.0, -0.25, 1.0 / 3}) {
                for (const int length : {1 << 16, 1 << 17})
                    run<float>({length, DFTI_SINGLE, DFTI_BACKWARD_SCRAMBLED, placement, threads,
                                scale, scale},
                               single);
                for (const int length : {1 << 14, 1 << 15})
                    run<double>({length, DFTI_DOUBLE, DFTI_BACKWARD_SCRAMBLED, placement, threads,
                                 scale, scale},
                                twice);
                run<double>(
                    {1 << 14, DFTI_DOUBLE, DFTI_ORDERED, placement, threads, scale, 1 / scale},
                    ordered);
            }
}

// Adapters of a record of length 0 and 1, which commit never gives to this engine.
TEST(RadixDescriptor, LengthsOfNoneAndOne) {
    DftiRecord record = {};
    record.forward_scale_d = 3;
    record.backward_scale_d = -2;
    vor::cdouble x = {1, 2}, y = {5, 5};
    EXPECT_EQ(vor_dft_xzdft1df(&x, &y, &record, nullptr), 0);
    EXPECT_EQ(y.re, 5);
    record.length = 1;
    EXPECT_EQ(vor_dft_xzdft1df(&x, &y, &record, nullptr), 0);
    EXPECT_TRUE(y.re == 3 && y.im == 6 && x.re == 1);
    EXPECT_EQ(vor_dft_xzdft1db(&x, &x, &record, nullptr), 0);
    EXPECT_TRUE(x.re == -2 && x.im == -4);
}

TEST(RadixDescriptor, EveryAllocationOfCommit) {
    for (const Choice& choice :
         {Choice{1 << 16, DFTI_SINGLE}, Choice{1 << 14, DFTI_DOUBLE},
          Choice{1 << 14, DFTI_DOUBLE, DFTI_ORDERED, DFTI_INPLACE, 2, 2, .5}}) {
        VOR_FreeBuffers();
        Committed d(choice, false);
        omp_set_num_threads(choice.threads);
        Allocations allocations;
        for (long k = 1; k == 1 || allocations.failed(); ++k) {
            allocations.fail_at(k);
            const int status = d.commit();
            EXPECT_EQ(status, allocations.failed() ? DFTI_MEMORY_ERROR : 0) << k;
            EXPECT_EQ(d->table_c || d->table_z, !allocations.failed());
        }
        omp_set_num_threads(1);
    }
}

} // namespace
