// A transform as a test describes it, the descriptor and the entry that serve it, the values that it must
// give, and where they stand.
#pragma once

#include "tests/common/fourier.h"
#include "tests/dft/descriptor.h"

#include <numeric>
#include <omp.h>

namespace vor::test {

inline constexpr double kBound = 1; // of the error, in eps log2 n

// Steps of the dimensions; none: as a new descriptor has them.
struct Steps : std::vector<int> {
    Steps() = default;
    Steps(int step) : vector{step} {}
    Steps(std::initializer_list<int> steps) : vector(steps) {}
};

struct Side {
    int offset = 0;
    Steps stride = {};
    int distance = 0;
};

struct Job {
    std::vector<int> lengths = {8}; // the fastest dimension first
    int domain = DFTI_COMPLEX;
    bool in_place = true;
    int storage = DFTI_COMPLEX_REAL;
    int format = DFTI_CCS_FORMAT;
    Side in = {}, out = {};
    int count = 1;
    double forward_scale = 1, backward_scale = 1;
    int user_threads = 1;
    int threads = 1;

    int total() const {
        return std::accumulate(lengths.begin(), lengths.end(), 1, std::multiplies<int>());
    }
    bool real() const { return domain == DFTI_REAL; }
    bool half() const { return storage == DFTI_COMPLEX_COMPLEX; }
    Format packing() const {
        if (half() || format == DFTI_CCS_FORMAT) return Format::ccs;
        return format == DFTI_PACK_FORMAT ? Format::pack : Format::perm;
    }
    // Reals of an element of a side.
    int reals(bool spectrum) const { return !real() || (spectrum && half()) ? 2 : 1; }
    Steps strides(const Side& side) const {
        if (!side.stride.empty()) return side.stride;
        Steps s;
        int step = 1;
        for (int n : lengths) {
            s.push_back(step);
            step *= n;
        }
        return s;
    }
};

inline std::ostream& operator<<(std::ostream& s, const Job& c) {
    s << "lengths";
    for (int n : c.lengths) s << " " << n;
    s << " count " << c.count << " domain " << c.domain << " in place " << c.in_place << " storage "
      << c.storage << " format " << c.format << " threads " << c.threads << " user threads "
      << c.user_threads;
    for (const Side& side : {c.in, c.out}) {
        s << " / " << side.offset << " :";
        for (int step : c.strides(side)) s << " " << step;
        s << " : " << side.distance;
    }
    return s;
}

template <class R>
inline constexpr int kPrecision = sizeof(R) == 4 ? DFTI_SINGLE : DFTI_DOUBLE;

// A committed descriptor.
template <class R>
struct Committed : Descriptor {
    explicit Committed(const Job& c) : Descriptor(c.lengths, c.domain, kPrecision<R>) {
        for (const auto& [number, side] : {std::pair<int, const Side*>{DFTI_INPUT_STRIDES, &c.in},
                                           {DFTI_OUTPUT_STRIDES, &c.out}}) {
            std::vector<int> values = c.strides(*side);
            values.insert(values.begin(), side->offset);
            EXPECT_EQ(dfti_set_value_intvec(&handle, &number, values.data()), 0);
        }
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

// The typed entry that serves a job.
template <class R>
int typed(const Job& c, bool forward, DFTI_DESCRIPTOR_HANDLE* h, void* in, void* out) {
    constexpr bool single = sizeof(R) == 4;
    const auto pick = [&](auto s_forward, auto d_forward, auto s_backward, auto d_backward) {
        return forward ? (single ? s_forward : d_forward) : (single ? s_backward : d_backward);
    };
#define PICK(s, d)                                                                                 \
    pick(dfti_compute_forward_##s, dfti_compute_forward_##d, dfti_compute_backward_##s,            \
         dfti_compute_backward_##d)
    if (!c.real()) return c.in_place ? PICK(c, z)(h, in) : PICK(c_out, z_out)(h, in, out);
    if (c.in_place) return PICK(s, d)(h, in);
    if (!c.half()) return PICK(s_out, d_out)(h, in, out);
    return pick(dfti_compute_forward_sc_out, dfti_compute_forward_dz_out,
                dfti_compute_backward_cs_out, dfti_compute_backward_zd_out)(h, in, out);
#undef PICK
}

// ---- The oracle ----------------------------------------------------------------------------------

// The index tuple of element number `at`, the fastest dimension first.
inline std::vector<int> tuple_of(size_t at, const std::vector<int>& lengths) {
    std::vector<int> tuple;
    for (int n : lengths) {
        tuple.push_back(static_cast<int>(at % static_cast<size_t>(n)));
        at /= static_cast<size_t>(n);
    }
    return tuple;
}

// The sum over all elements, for each element.
inline Spectrum direct_array_transform(const Spectrum& x, const std::vector<int>& lengths) {
    std::vector<Spectrum> roots;
    for (int n : lengths) roots.push_back(unit_roots(static_cast<size_t>(n), Direction::forward));
    Spectrum result(x.size());
    for (size_t k = 0; k < x.size(); ++k)
        for (size_t j = 0; j < x.size(); ++j) {
            Wide term = x[j];
            size_t kd = k, jd = j;
            for (size_t d = 0; d < lengths.size(); ++d) {
                const auto n = static_cast<size_t>(lengths[d]);
                term *= roots[d][(kd % n) * (jd % n) % n];
                kd /= n, jd /= n;
            }
            result[k] += term;
        }
    return result;
}

// The same for large arrays, dimension by dimension.
inline Spectrum array_transform(Spectrum x, const std::vector<int>& lengths) {
    if (lengths.size() > 1 && x.size() <= 200) return direct_array_transform(x, lengths);
    size_t step = 1;
    for (int length : lengths) {
        const auto n = static_cast<size_t>(length);
        for (size_t first = 0; first < x.size(); ++first) {
            if (first / step % n != 0) continue;
            Spectrum line(n);
            for (size_t i = 0; i < n; ++i) line[i] = x[first + i * step];
            line = transform(line, Direction::forward);
            for (size_t i = 0; i < n; ++i) x[first + i * step] = line[i];
        }
        step *= n;
    }
    return x;
}

// ---- Where values stand --------------------------------------------------------------------------

// A real number of an array: `at` counts reals from the first element of a transform on.
struct Value {
    long at;
    long double value;
};

// The spectrum of a real plane in a packed format. Column 0 and the one of the Nyquist frequency hold
// real sequences along dimension 1, pairs of columns everything else.
inline std::vector<Value> packed_plane(const Job& c, const Spectrum& x, const Steps& stride) {
    const auto n0 = static_cast<size_t>(c.lengths[0]), n1 = static_cast<size_t>(c.lengths[1]);
    const bool ccs = c.packing() == Format::ccs, pack = c.packing() == Format::pack;
    std::vector<Value> r;
    const auto put = [&](size_t i, size_t j, long double value) {
        r.push_back({static_cast<long>(i) * stride[0] + static_cast<long>(j) * stride[1], value});
    };
    const auto put_real = [&](size_t frequency, size_t column) {
        Spectrum line(n1);
        for (size_t j = 0; j < n1; ++j) line[j] = x[frequency + j * n0];
        const auto values = n1 == 1 ? std::vector{line[0].real()} : stored(line, c.packing());
        for (size_t j = 0; j < values.size(); ++j) put(column, j, values[j]);
    };
    put_real(0, 0);
    if (n0 % 2 == 0) put_real(n0 / 2, ccs ? n0 : pack ? n0 - 1 : 1);
    const size_t first = ccs || (!pack && n0 % 2 == 0) ? 2 : 1;
    for (size_t t = 0; t < (n0 - 1) / 2; ++t)
        for (size_t j = 0; j < n1; ++j) {
            put(first + 2 * t, j, x[t + 1 + j * n0].real());
            put(first + 2 * t + 1, j, x[t + 1 + j * n0].imag());
        }
    return r;
}

// The values of one transform on the side of the signal, or of its spectrum.
inline std::vector<Value> values(const Job& c, const Spectrum& x, bool spectrum, const Side& side) {
    const Steps stride = c.strides(side);
    std::vector<Value> r;
    if (c.real() && spectrum && !c.half()) {
        if (c.lengths.size() == 2) return packed_plane(c, x, stride);
        const auto row = stored(x, c.packing());
        for (size_t i = 0; i < row.size(); ++i)
            r.push_back({static_cast<long>(i) * stride[0], row[i]});
        return r;
    }
    const bool half = c.real() && spectrum, complex = c.reals(spectrum) == 2;
    for (size_t i = 0; i < x.size(); ++i) {
        const std::vector<int> tuple = tuple_of(i, c.lengths);
        if (half && tuple[0] > c.lengths[0] / 2) continue;
        long at = 0;
        for (size_t d = 0; d < tuple.size(); ++d) at += long{tuple[d]} * stride[d];
        r.push_back({complex ? 2 * at : at, x[i].real()});
        if (complex) r.push_back({2 * at + 1, x[i].imag()});
    }
    return r;
}

// Places that a call may change besides: the columns of zeros that CCS has, and what stood behind the
// reals of a row in CCS in place.
inline std::vector<long> open_places(const Job& c, bool forward, const Side& side) {
    if (!c.real() || c.half() || c.packing() != Format::ccs) return {};
    if (!forward && !c.in_place) return {};
    const Steps stride = c.strides(side);
    const int n0 = c.lengths[0];
    std::vector<long> r;
    for (int j = 0; j < (c.lengths.size() > 1 ? c.lengths[1] : 1); ++j)
        for (int i : {1, n0, n0 + 1})
            if (i < 2 * (n0 / 2 + 1))
                r.push_back(long{i} * stride[0] + (j ? long{j} * stride[1] : 0));
    return r;
}

// Runs a job in one direction and compares all that it touches; the error goes into `worst`.
template <class R>
void run(const Job& c, bool forward, bool by_type, WorstError* worst = nullptr) {
    SCOPED_TRACE(::testing::Message() << c << " forward " << forward << " typed " << by_type);
    Random random(static_cast<uint64_t>(c.total()) * 31 + static_cast<uint64_t>(c.count));
    const Side& out_side = c.in_place ? c.in : c.out;
    const int in_reals = c.reals(!forward), out_reals = c.reals(forward);
    struct Transform {
        std::vector<Value> given, want;
        std::vector<long> open;
        long in, out; // its first element, in reals
    };
    std::vector<Transform> transforms;
    long in_span = 8, out_span = 8;
    for (int t = 0; t < c.count; ++t) {
        Spectrum signal(static_cast<size_t>(c.total()));
        for (auto& v : signal) {
            v = random.next<R>();
            if (!c.real()) v = {v.real(), random.next<R>()};
        }
        // Backward, the spectrum comes first, rounded to R, and what it is the spectrum of is wanted.
        const Spectrum spectrum = array_transform(signal, c.lengths);
        Spectrum result = forward ? spectrum : signal;
        for (auto& v : result)
            v *= forward ? c.forward_scale : static_cast<long double>(c.total()) * c.backward_scale;
        Transform one{values(c, forward ? signal : spectrum, !forward, c.in),
                      values(c, result, forward, out_side), open_places(c, forward, out_side),
                      (long{c.in.offset} + long{t} * c.in.distance) * in_reals,
                      (long{out_side.offset} + long{t} * out_side.distance) * out_reals};
        for (const Value& v : one.given) in_span = std::max(in_span, one.in + v.at + 1);
        for (const Value& v : one.want) out_span = std::max(out_span, one.out + v.at + 1);
        for (long at : one.open) out_span = std::max(out_span, one.out + at + 1);
        transforms.push_back(one);
    }
    if (c.in_place) in_span = std::max(in_span, out_span);
    Guarded<R> input(static_cast<size_t>(in_span)), separate(static_cast<size_t>(out_span));
    input.fill(random);
    separate.fill(random);
    Guarded<R>& output = c.in_place ? input : separate;
    std::vector<bool> open(output.size());
    for (const Transform& one : transforms) {
        for (const Value& v : one.given) {
            input[static_cast<size_t>(one.in + v.at)] = static_cast<R>(v.value);
            if (c.in_place) open[static_cast<size_t>(one.in + v.at)] = true;
        }
        for (const Value& v : one.want) open[static_cast<size_t>(one.out + v.at)] = true;
        for (long at : one.open) open[static_cast<size_t>(one.out + at)] = true;
    }
    const std::vector<R> before = output.copy(), source = input.copy();
    Committed<R> d(c);
    void* data = input.data();
    EXPECT_EQ(by_type   ? typed<R>(c, forward, &d.handle, data, output.data())
              : forward ? DftiComputeForward(d.handle, data, output.data())
                        : DftiComputeBackward(d.handle, data, output.data()),
              0);
    for (size_t t = 0; t < transforms.size(); ++t) {
        std::vector<R> got;
        std::vector<long double> want;
        for (const Value& v : transforms[t].want) {
            got.push_back(output[static_cast<size_t>(transforms[t].out + v.at)]);
            want.push_back(v.value);
        }
        const double error = relative_error(got.data(), want, static_cast<size_t>(c.total()));
        EXPECT_LE(error, kBound) << "transform " << t;
        if (worst) worst->add(error);
    }
    for (size_t i = 0; i < output.size(); ++i) ASSERT_TRUE(open[i] || output[i] == before[i]) << i;
    EXPECT_TRUE(c.in_place || input.copy() == source);
    EXPECT_TRUE(input.intact() && separate.intact());
    // In place, what stood behind the reals of a row in CCS is cleared.
    if (!c.real() || !c.in_place || forward || c.format != DFTI_CCS_FORMAT) return;
    // A plane of rows of one element has no transforms of rows.
    if (c.lengths.size() > 1 && c.lengths[0] == 1 && c.lengths[1] > 1) return;
    const Steps stride = c.strides(c.in);
    for (const Transform& one : transforms)
        for (int j = 0; j < (c.lengths.size() > 1 ? c.lengths[1] : 1); ++j)
            EXPECT_EQ(output[static_cast<size_t>(one.out + long{c.lengths[0]} * stride[0] +
                                                 (j ? long{j} * stride[1] : 0))],
                      0);
}

// Every kind of data: complex data, three packed formats of real data, half a spectrum.
template <class R>
void run_all_kinds(Job c, WorstError* worst = nullptr) {
    for (const bool in_place : {true, false})
        for (const int format :
             {0, +DFTI_CCS_FORMAT, +DFTI_PACK_FORMAT, +DFTI_PERM_FORMAT, +DFTI_CCE_FORMAT}) {
            const bool half = format == DFTI_CCE_FORMAT;
            if (half && in_place) continue;
            if (format && c.lengths.size() > 3) continue;
            if (format && !half && c.lengths.size() > 2) continue;
            c.in_place = in_place;
            c.domain = format ? DFTI_REAL : DFTI_COMPLEX;
            c.storage = half ? DFTI_COMPLEX_COMPLEX : DFTI_COMPLEX_REAL;
            c.format = format ? format : DFTI_CCS_FORMAT;
            for (const bool forward : {true, false})
                for (const bool by_type : {true, false}) run<R>(c, forward, by_type, worst);
        }
}

} // namespace vor::test
