// The descriptor interface: what it adds to the transform under it, many transforms on threads and
// interleaved, and the cost of a commit.
#include "bench/common/families.h"
#include "vor_dfti.h"
#include "vor_signal.h"

#include <cmath>
#include <memory>
#include <omp.h>

namespace vor::bench {

namespace {

constexpr int kShort = 64; // a direct path; the transform takes well under a microsecond
constexpr int kLength = 1024, kCount = 256;

// The calls of a library that the cases use; a library without them runs none.
struct Calls {
    explicit Calls(const Library& l)
        : create(l.function<decltype(DftiCreateDescriptor)>("DftiCreateDescriptor")),
          set(l.function<decltype(DftiSetValue)>("DftiSetValue")),
          commit(l.function<decltype(DftiCommitDescriptor)>("DftiCommitDescriptor")),
          forward(l.function<decltype(DftiComputeForward)>("DftiComputeForward")),
          typed(l.function<decltype(dfti_compute_forward_z)>("dfti_compute_forward_z")),
          free(l.function<decltype(DftiFreeDescriptor)>("DftiFreeDescriptor")) {}
    bool complete() const { return create && set && commit && forward && typed && free; }

    decltype(&DftiCreateDescriptor) create;
    decltype(&DftiSetValue) set;
    decltype(&DftiCommitDescriptor) commit;
    decltype(&DftiComputeForward) forward;
    decltype(&dfti_compute_forward_z) typed;
    decltype(&DftiFreeDescriptor) free;
};

// What a descriptor is made for, in place unless the data are one half of a spectrum.
struct Shape {
    int precision;
    std::vector<int> lengths; // the slowest dimension first
    int domain = DFTI_COMPLEX;
    int storage = DFTI_COMPLEX_REAL;
    int count = 1, stride = 1, distance = 0; // of one dimension
    int threads = 1;

    size_t total() const {
        size_t n = 1;
        for (int length : lengths) n *= static_cast<size_t>(length);
        return n;
    }
    bool half() const { return storage == DFTI_COMPLEX_COMPLEX; }
};

// A committed descriptor with its data.
struct Descriptor {
    Descriptor(const Calls& c, const Shape& shape)
        : calls(c), data(2 * shape.total() * static_cast<size_t>(shape.count)),
          output(shape.half() ? 3 * shape.total() : 0) {
        const int dimension = static_cast<int>(shape.lengths.size());
        if (dimension == 1)
            calls.create(&handle, shape.precision, shape.domain, 1, shape.lengths[0]);
        else
            calls.create(&handle, shape.precision, shape.domain, dimension, shape.lengths.data());
        calls.set(handle, DFTI_NUMBER_OF_TRANSFORMS, shape.count);
        calls.set(handle, DFTI_INPUT_DISTANCE, shape.distance);
        if (dimension == 1) set_strides({0, shape.stride});
        if (shape.domain == DFTI_REAL && shape.half()) {
            calls.set(handle, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX);
            calls.set(handle, DFTI_PLACEMENT, DFTI_NOT_INPLACE);
            std::vector<int> strides(static_cast<size_t>(dimension) + 1);
            int step = 1;
            for (size_t d = strides.size() - 1; d > 0; --d) {
                strides[d] = step;
                step *=
                    d == strides.size() - 1 ? shape.lengths[d - 1] / 2 + 1 : shape.lengths[d - 1];
            }
            calls.set(handle, DFTI_OUTPUT_STRIDES, strides.data());
        } else if (shape.domain == DFTI_REAL) {
            calls.set(handle, DFTI_PACKED_FORMAT, DFTI_PACK_FORMAT);
        }
        // Repeated on its own result the data must neither grow nor vanish.
        calls.set(handle, DFTI_FORWARD_SCALE, 1 / std::sqrt(static_cast<double>(shape.total())));
        omp_set_num_threads(shape.threads);
        calls.commit(handle);
        omp_set_num_threads(1);
        for (size_t i = 0; i < data.size(); ++i) data[i] = 1.0 / static_cast<double>(1 + i % 7);
    }
    ~Descriptor() { calls.free(&handle); }
    Descriptor(const Descriptor&) = delete;

    void forward() { calls.forward(handle, data.data(), output.data()); }

    Calls calls;
    DFTI_DESCRIPTOR_HANDLE handle = nullptr;
    std::vector<double> data, output;

private:
    void set_strides(const std::vector<int>& strides) {
        calls.set(handle, DFTI_INPUT_STRIDES, strides.data());
        calls.set(handle, DFTI_OUTPUT_STRIDES, strides.data());
    }
};

Binder transform_of(const Shape& shape) {
    return [=](const Library& library) -> Call {
        const Calls calls(library);
        if (!calls.complete()) return {};
        const auto d = std::make_shared<Descriptor>(calls, shape);
        return [d] { d->forward(); };
    };
}

// Many transforms: contiguous or interleaved, on one thread or more.
Binder many(int precision, bool interleaved, int threads) {
    return transform_of({.precision = precision,
                         .lengths = {kLength},
                         .count = kCount,
                         .stride = interleaved ? kCount : 1,
                         .distance = interleaved ? 1 : kLength,
                         .threads = threads});
}

// The lines of all dimensions of an array, as contiguous transforms of one dimension.
Binder lines(const Shape& shape) {
    return [=](const Library& library) -> Call {
        const Calls calls(library);
        if (!calls.complete()) return {};
        std::vector<std::shared_ptr<Descriptor>> dimensions;
        for (int length : shape.lengths)
            dimensions.push_back(std::make_shared<Descriptor>(
                calls, Shape{.precision = shape.precision,
                             .lengths = {length},
                             .count = static_cast<int>(shape.total()) / length,
                             .distance = length}));
        return [dimensions] {
            for (const auto& d : dimensions) d->forward();
        };
    };
}

enum class Path { direct, typed };

Call short_transform(const Library& library, Path path) {
    const Calls calls(library);
    if (!calls.complete()) return {};
    const auto d =
        std::make_shared<Descriptor>(calls, Shape{.precision = DFTI_DOUBLE, .lengths = {kShort}});
    calls.set(d->handle, DFTI_FORWARD_SCALE, 1.0); // as the object under it
    calls.commit(d->handle);
    std::fill(d->data.begin(), d->data.end(), 0.0);
    if (path == Path::typed) return [d] { d->calls.typed(&d->handle, d->data.data()); };
    return [d] { d->calls.forward(d->handle, d->data.data()); };
}

// The object alone, with a work buffer as commit makes one.
Call object_transform(const Library& library, int length) {
    const auto init =
        library.function<decltype(tavsDFTInitAlloc_C_64fc)>("tavsDFTInitAlloc_C_64fc");
    const auto size =
        library.function<decltype(tavsDFTGetBufSize_C_64fc)>("tavsDFTGetBufSize_C_64fc");
    const auto forward = library.function<decltype(tavsDFTFwd_CToC_64fc)>("tavsDFTFwd_CToC_64fc");
    const auto free = library.function<decltype(tavsDFTFree_C_64fc)>("tavsDFTFree_C_64fc");
    if (!init || !size || !forward || !free) return {};
    DftCtx* object = nullptr;
    int bytes = 0;
    init(&object, length, TAV_FFT_NODIV_BY_ANY, 0);
    size(object, &bytes);
    const std::shared_ptr<DftCtx> owned(object, free);
    const auto buffer = std::make_shared<std::vector<char>>(static_cast<size_t>(bytes) + 1);
    const auto data = std::make_shared<std::vector<VOR_DCOMPLEX>>(static_cast<size_t>(length));
    return [=] { forward(data->data(), data->data(), owned.get(), buffer->data()); };
}

Binder commit_and_free(int length) {
    return [=](const Library& library) -> Call {
        const Calls calls(library);
        if (!calls.complete()) return {};
        return [=] {
            DFTI_DESCRIPTOR_HANDLE h;
            calls.create(&h, DFTI_DOUBLE, DFTI_COMPLEX, 1, length);
            calls.commit(h);
            calls.free(&h);
        };
    };
}

// n transforms, as what a commit is measured by.
Binder transforms(int length, int n) {
    return [=](const Library& library) -> Call {
        const Call one = object_transform(library, length);
        if (!one) return {};
        return [=] {
            for (int i = 0; i < n; ++i) one();
        };
    };
}

Case overhead(const char* name, Path path, double most_extra) {
    return {.name = name,
            .formula = "one transform of 64 complex numbers",
            .work = 1,
            .limit = Limit::none,
            .bind = [=](const Library& l) { return short_transform(l, path); },
            .rivals = {{.name = "object",
                        .bind = [](const Library& l) { return object_transform(l, kShort); },
                        .most_extra = most_extra}}};
}

Case on_threads(const char* name, int precision) {
    return {.name = name,
            .formula = "256 transforms of 1024 on two threads",
            .work = 1,
            .limit = Limit::none,
            .bind = many(precision, false, 2),
            .rivals = {{.name = "1 thread", .bind = many(precision, false, 1), .goal = 1.8}}};
}

Case interleaved(const char* name, int precision) {
    return {.name = name,
            .formula = "256 interleaved transforms of 1024",
            .work = 1,
            .limit = Limit::none,
            .bind = many(precision, true, 1),
            .rivals = {{.name = "contiguous", .bind = many(precision, false, 1), .goal = 1 / 1.5}}};
}

Case commit_case(const char* name, int length, int n, const char* rival) {
    return {.name = name,
            .formula = "create, commit and free",
            .work = 1,
            .limit = Limit::none,
            .bind = commit_and_free(length),
            .rivals = {{.name = rival, .bind = transforms(length, n), .goal = 1}}};
}

std::string text_of(const std::vector<int>& lengths) {
    std::string text;
    for (int n : lengths) text += (text.empty() ? "" : " x ") + std::to_string(n);
    return text;
}

// An array against its lines.
Case array(const Shape& shape, double most) {
    const char* type = shape.precision == DFTI_SINGLE ? "c" : "z";
    return {.name = std::string("dfti ") + type + " " + text_of(shape.lengths),
            .formula = "one complex array, in place",
            .work = 1,
            .limit = Limit::none,
            .bind = transform_of(shape),
            .rivals = {{.name = "its lines", .bind = lines(shape), .goal = 1 / most}}};
}

// A real array in one storage against the complex one of the same shape.
Case real_array(Shape shape, int storage) {
    const Shape complex = shape;
    shape.domain = DFTI_REAL;
    shape.storage = storage;
    const bool half = storage == DFTI_COMPLEX_COMPLEX;
    const char* type = shape.precision == DFTI_SINGLE ? (half ? "sc" : "s") : (half ? "dz" : "d");
    return {.name = std::string("dfti ") + type + " " + text_of(shape.lengths),
            .formula =
                half ? "one real array to half a spectrum" : "one real array, Pack, in place",
            .work = 1,
            .limit = Limit::none,
            .bind = transform_of(shape),
            .rivals = {{.name = "complex", .bind = transform_of(complex), .goal = 1 / 0.58}}};
}

// An array on two threads against one.
Case array_on_threads(const char* kind, Shape shape) {
    const Shape one = shape;
    shape.threads = 2;
    return {.name = std::string("dfti ") + kind + " " + text_of(shape.lengths) + ", 2 threads",
            .formula = "one array on two threads",
            .work = 1,
            .limit = Limit::none,
            .bind = transform_of(shape),
            .rivals = {{.name = "1 thread", .bind = transform_of(one), .goal = 1.85}}};
}

Suite array_cases() {
    Suite suite;
    for (const int precision : {DFTI_SINGLE, DFTI_DOUBLE}) {
        for (const int n : {64, 256, 1024, 2048})
            suite.push_back(array({precision, {n, n}}, n <= 256 ? 1.10 : 1.25));
        for (const int n : {360, 1000, 1009}) suite.push_back(array({precision, {n, n}}, 1.15));
        suite.push_back(array({precision, {128, 128, 128}}, 1.35));
    }
    for (const int precision : {DFTI_SINGLE, DFTI_DOUBLE})
        for (const int n : {64, 256, 1024, 2048})
            for (const int storage : {DFTI_COMPLEX_REAL, DFTI_COMPLEX_COMPLEX})
                suite.push_back(real_array({precision, {n, n}}, storage));
    for (const int precision : {DFTI_SINGLE, DFTI_DOUBLE})
        for (const std::vector<int>& lengths : {std::vector{1024, 1024}, {128, 128, 128}}) {
            const bool single = precision == DFTI_SINGLE;
            suite.push_back(array_on_threads(single ? "c" : "z", {precision, lengths}));
            suite.push_back(
                array_on_threads(single ? "sc" : "dz", {.precision = precision,
                                                        .lengths = lengths,
                                                        .domain = DFTI_REAL,
                                                        .storage = DFTI_COMPLEX_COMPLEX}));
        }
    return suite;
}

} // namespace

Suite dfti_cases() {
    Suite suite = array_cases();
    const Suite others = {
        overhead("DftiComputeForward n=64", Path::direct, 15e-9),
        overhead("dfti_compute_forward_z n=64", Path::typed, 60e-9),
        on_threads("dfti z 256 x 1024, 2 threads", DFTI_DOUBLE),
        on_threads("dfti c 256 x 1024, 2 threads", DFTI_SINGLE),
        interleaved("dfti z 256 x 1024, interleaved", DFTI_DOUBLE),
        interleaved("dfti c 256 x 1024, interleaved", DFTI_SINGLE),
        commit_case("dfti commit n=1024", 1024, 60, "60 transforms"),
        commit_case("dfti commit n=65536", 65536, 12, "12 transforms"),
    };
    suite.insert(suite.begin(), others.begin(), others.end());
    return suite;
}

} // namespace vor::bench
