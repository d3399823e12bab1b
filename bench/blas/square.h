// Square Level 3 problems: their data, the product on them, and what the families of cases share.
#pragma once

#include "arith/element.h"
#include "bench/common/suite.h"

#include <memory>

namespace vor::bench {

template <class T>
real_t<T>& real_part(T& x) {
    return reinterpret_cast<real_t<T>&>(x);
}

// a is near the identity, and products are called with beta = 0: however often a triangle is solved with
// or multiplied by, or a product is repeated, nothing grows.
template <class T>
struct Square {
    explicit Square(int order)
        : n(order), a(size_t(order) * size_t(order)), b(a.size()), c(a.size()) {
        for (size_t i = 0; i < a.size(); ++i) {
            const bool diagonal = i % size_t(order + 1) == 0;
            real_part(a[i]) = diagonal ? 1 : real_t<T>(1e-6) / real_t<T>(1 + i % 97);
            real_part(b[i]) = real_part(c[i]) = real_t<T>(1) / real_t<T>(1 + i % 89);
        }
        real_part(one) = 1;
    }
    int n;
    T one{}, zero{};
    std::vector<T> a, b, c;
};

template <class T>
inline constexpr bool is_extended = sizeof(real_t<T>) == 8; // d and z work on the x87 unit

template <class T>
inline constexpr Limit kUnit = is_extended<T> ? Limit::x87 : Limit::vector;

template <class T>
inline constexpr int kComplexFactor = is_complex<T> ? 4 : 1; // real operations for one

template <class T>
using Gemm = void(const char*, const char*, const int*, const int*, const int*, const T*, const T*,
                  const int*, const T*, const int*, const T*, T*, const int*, int, int);

// C := op(A) op(B) of order n by f; nothing if there is no f.
template <class T>
Call repeat_product(Gemm<T>* f, std::string letters, int n) {
    if (!f) return {};
    const auto x = std::make_shared<Square<T>>(n);
    return [=] {
        f(&letters[0], &letters[1], &x->n, &x->n, &x->n, &x->one, x->a.data(), &x->n, x->b.data(),
          &x->n, &x->zero, x->c.data(), &x->n, 1, 1);
    };
}

template <class T>
Binder gemm(char type, std::string letters, int n) {
    return [=](const Library& library) {
        const std::string symbol = std::string(1, type) + "gemm_";
        return repeat_product(library.function<Gemm<T>>(symbol.c_str()), letters, n);
    };
}

// The same calls, with leave to use that many threads.
Binder on_threads(Binder bind, int threads);

// The case `single` once more on two threads, beside itself on one, which is to take `gain` times as long.
Case on_two_threads(const Case& single, double gain);

// add.template operator()<T>(suite, letter) for the four types.
template <class F>
Suite all_types(F add) {
    Suite suite;
    add.template operator()<float>(suite, 's');
    add.template operator()<double>(suite, 'd');
    add.template operator()<cfloat>(suite, 'c');
    add.template operator()<cdouble>(suite, 'z');
    return suite;
}

} // namespace vor::bench
