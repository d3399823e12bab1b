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

// A committed descriptor of complex data, transformed in place, with its data.
struct Descriptor {
    Descriptor(const Calls& c, int precision, int length, int count = 1, int stride = 1,
               int distance = 0, int threads = 1)
        : calls(c), data(2 * static_cast<size_t>(length) * static_cast<size_t>(count)) {
        const int strides[] = {0, stride};
        calls.create(&handle, precision, DFTI_COMPLEX, 1, length);
        calls.set(handle, DFTI_NUMBER_OF_TRANSFORMS, count);
        calls.set(handle, DFTI_INPUT_STRIDES, strides);
        calls.set(handle, DFTI_OUTPUT_STRIDES, strides);
        calls.set(handle, DFTI_INPUT_DISTANCE, distance);
        // Repeated on its own result the data must neither grow nor vanish.
        calls.set(handle, DFTI_FORWARD_SCALE, 1 / std::sqrt(static_cast<double>(length)));
        omp_set_num_threads(threads);
        calls.commit(handle);
        omp_set_num_threads(1);
        for (size_t i = 0; i < data.size(); ++i) data[i] = 1.0 / static_cast<double>(1 + i % 7);
    }
    ~Descriptor() { calls.free(&handle); }
    Descriptor(const Descriptor&) = delete;

    Calls calls;
    DFTI_DESCRIPTOR_HANDLE handle = nullptr;
    std::vector<double> data;
};

// Many transforms: contiguous or interleaved, on one thread or more.
Binder many(int precision, bool interleaved, int threads) {
    return [=](const Library& library) -> Call {
        const Calls calls(library);
        if (!calls.complete()) return {};
        const auto d = std::make_shared<Descriptor>(calls, precision, kLength, kCount,
                                                    interleaved ? kCount : 1,
                                                    interleaved ? 1 : kLength, threads);
        return [d] { d->calls.forward(d->handle, d->data.data()); };
    };
}

enum class Path { direct, typed };

Call short_transform(const Library& library, Path path) {
    const Calls calls(library);
    if (!calls.complete()) return {};
    const auto d = std::make_shared<Descriptor>(calls, DFTI_DOUBLE, kShort);
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

} // namespace

Suite dfti_cases() {
    return {
        overhead("DftiComputeForward n=64", Path::direct, 15e-9),
        overhead("dfti_compute_forward_z n=64", Path::typed, 60e-9),
        on_threads("dfti z 256 x 1024, 2 threads", DFTI_DOUBLE),
        on_threads("dfti c 256 x 1024, 2 threads", DFTI_SINGLE),
        interleaved("dfti z 256 x 1024, interleaved", DFTI_DOUBLE),
        interleaved("dfti c 256 x 1024, interleaved", DFTI_SINGLE),
        commit_case("dfti commit n=1024", 1024, 60, "60 transforms"),
        commit_case("dfti commit n=65536", 65536, 12, "12 transforms"),
    };
}

} // namespace vor::bench
