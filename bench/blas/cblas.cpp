// Matrix products through the C interface: row-major beside column-major.
#include "arith/element.h"
#include "bench/common/families.h"
#include "vor_cblas.h"

#include <memory>

namespace vor::bench {

namespace {

template <class T>
using Scalar = std::conditional_t<is_complex<T>, const void*, T>;
template <class T>
using Array = std::conditional_t<is_complex<T>, void, T>;
template <class T>
using Gemm = void(CBLAS_ORDER, CBLAS_TRANSPOSE, CBLAS_TRANSPOSE, int, int, int, Scalar<T>,
                  const Array<T>*, int, const Array<T>*, int, Scalar<T>, Array<T>*, int);

// C := A B + 0 C: however often it is repeated, nothing grows.
template <class T>
Binder gemm(const std::string& name, CBLAS_ORDER order, int n) {
    return [=](const Library& library) -> Call {
        auto* const f = library.function<Gemm<T>>(name.c_str());
        if (!f) return {};
        const size_t size = size_t(n) * size_t(n);
        T x{};
        reinterpret_cast<real_t<T>&>(x) = real_t<T>(0.5);
        const auto a = std::make_shared<std::vector<T>>(size, x);
        const auto c = std::make_shared<std::vector<T>>(size);
        return [=] {
            const T zero{};
            const auto scalar = [](const T& value) -> Scalar<T> {
                if constexpr (is_complex<T>)
                    return &value;
                else
                    return value;
            };
            f(order, CblasNoTrans, CblasNoTrans, n, n, n, scalar(x), a->data(), n, a->data(), n,
              scalar(zero), c->data(), n);
        };
    };
}

// A row-major call is one with its factors exchanged: it may cost no more than this.
constexpr double kRowMajorRatio = 0.97;

template <class T>
void add_type(Suite& suite, char type, int n) {
    const std::string name = std::string("cblas_") + type + "gemm";
    const int operations = is_complex<T> ? 8 : 2;
    suite.push_back({.name = name + " row-major n=" + std::to_string(n),
                     .formula = std::to_string(operations) + "n^3 operations",
                     .work = double(operations) * n * n * n,
                     .limit = sizeof(real_t<T>) == 8 ? Limit::x87 : Limit::vector,
                     .bind = gemm<T>(name, CblasRowMajor, n),
                     .rivals = {{.name = "column-major",
                                 .bind = gemm<T>(name, CblasColMajor, n),
                                 .goal = kRowMajorRatio}}});
}

} // namespace

Suite cblas_cases() {
    Suite suite;
    for (const int n : {100, 300}) {
        add_type<float>(suite, 's', n);
        add_type<double>(suite, 'd', n);
        add_type<cfloat>(suite, 'c', n);
        add_type<cdouble>(suite, 'z', n);
    }
    return suite;
}

} // namespace vor::bench
