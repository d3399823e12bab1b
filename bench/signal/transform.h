// A forward transform by an object of the signal layer, as a bench call.
#pragma once

#include "arith/element.h"
#include "bench/common/suite.h"
#include "vor_signal.h"

#include <memory>

namespace vor::bench {

// The names of one kind of object in a library.
struct TransformNames {
    std::string init, free, buffer_size, forward;
};

// "tavsFFT", "C_32fc", "Fwd_CToC_32fc".
inline TransformNames names_of(const std::string& family, const std::string& kind,
                               const std::string& transform) {
    return {family + "InitAlloc_" + kind, family + "Free_" + kind, family + "GetBufSize_" + kind,
            family + transform};
}

template <class T>
std::shared_ptr<std::vector<T>> falling_data(size_t n) {
    const auto x = std::make_shared<std::vector<T>>(n);
    for (size_t i = 0; i < n; ++i)
        reinterpret_cast<real_t<T>&>((*x)[i]) = real_t<T>(1) / real_t<T>(1 + i % 97);
    return x;
}

// n elements out of place, with the buffer that the object asks for. `size` is what the object is built
// from: the order or the length.
template <class T, class Object>
Binder transform(TransformNames names, int size, int n) {
    using Init = TavStatus(Object**, int, int, int);
    using Free = TavStatus(Object*);
    using BufferSize = TavStatus(const Object*, int*);
    using Transform = TavStatus(const T*, T*, const Object*, void*);
    return [=](const Library& library) -> Call {
        auto* const init = library.function<Init>(names.init.c_str());
        auto* const free = library.function<Free>(names.free.c_str());
        auto* const buffer_size = library.function<BufferSize>(names.buffer_size.c_str());
        auto* const forward = library.function<Transform>(names.forward.c_str());
        Object* built = nullptr;
        if (!init || !free || !buffer_size || !forward) return {};
        if (init(&built, size, TAV_FFT_NODIV_BY_ANY, 0) != tavStsNoErr) return {};
        const std::shared_ptr<Object> object(built, free);
        int bytes = 0;
        buffer_size(built, &bytes);
        const auto buffer = std::make_shared<std::vector<char>>(size_t(bytes));
        const auto x = falling_data<T>(size_t(n)), result = falling_data<T>(size_t(n));
        return [=] { forward(x->data(), result->data(), object.get(), buffer->data()); };
    };
}

} // namespace vor::bench
