// The harness for matrix routines for C: each is called in both orders beside the Fortran-style one on
// the same problem column-major. The numbers are small and whole, so that every sum is exact and results
// can be compared by value.
#pragma once

#include "tests/blas/level2.h"
#include "tests/common/call.h"
#include "vor_cblas.h"

#include <map>
#include <tuple>

namespace vor::test {

inline constexpr CBLAS_ORDER kOrders[] = {CblasRowMajor, CblasColMajor};
inline constexpr CBLAS_TRANSPOSE kTransposes[] = {CblasNoTrans, CblasTrans, CblasConjTrans};
inline constexpr CBLAS_UPLO kTriangles[] = {CblasUpper, CblasLower};
inline constexpr CBLAS_DIAG kDiagonals[] = {CblasNonUnit, CblasUnit};
inline constexpr CBLAS_SIDE kSides[] = {CblasLeft, CblasRight};

// The letter of an enumeration value.
inline const char* letter(int value) {
    static const std::map<int, const char*> letters = {
        {CblasNoTrans, "N"}, {CblasTrans, "T"}, {CblasConjTrans, "C"},
        {CblasUpper, "U"},   {CblasLower, "L"}, {CblasNonUnit, "N"},
        {CblasUnit, "U"},    {CblasLeft, "L"},  {CblasRight, "R"}};
    return letters.at(value);
}

// One routine in both interfaces.
template <class Fortran, class C>
struct Both {
    const char* name;
    Fortran* fortran;
    C* c;
};
template <class Fortran, class C>
Both(const char*, Fortran*, C*) -> Both<Fortran, C>;
#define BOTH(name)                                                                                 \
    vor::test::Both {                                                                              \
#name, name, cblas_##name                                                                  \
    }
// The routines of element type T by the end of their names, the complex ones by that of a twin.
#define BOTH_TWINS(op, twin)                                                                       \
    vor::test::of_type<T>(BOTH(s##op), BOTH(d##op), BOTH(c##twin), BOTH(z##twin))
#define BOTH_ALL(op) BOTH_TWINS(op, op)
#define BOTH_COMPLEX(op) vor::test::of_type<T>(BOTH(c##op), BOTH(z##op))

// The layout of a matrix in either order: row-major is column-major of the transpose.
struct Ordered {
    Layout column_major, row_major;
};
inline Layout transposed(const Layout& l) {
    return {l.columns, l.rows, l.ld, l.size, [=](int i, int j) { return l.place(j, i); }};
}
inline CBLAS_UPLO other(CBLAS_UPLO uplo) {
    return uplo == CblasUpper ? CblasLower : CblasUpper;
}
inline Ordered in_order(int m, int n, int gap = 2) {
    return {full(m, n, std::max(1, m) + gap), transposed(full(n, m, std::max(1, n) + gap))};
}
inline Ordered band_in_order(int m, int n, int kl, int ku) {
    const int ld = kl + ku + 2;
    return {band(m, n, kl, ku, ld), transposed(band(n, m, ku, kl, ld))};
}
// The three layouts of a triangle, the band with k diagonals.
inline Ordered in_order(Kind kind, CBLAS_UPLO uplo, int n, int k = 0) {
    const auto layout = [&](CBLAS_UPLO half) {
        if (kind == Kind::packed) return packed(*letter(half), n);
        if (kind == Kind::band) return band_triangle(*letter(half), n, k, k + 2);
        return triangle(*letter(half), n, n + 2);
    };
    return {layout(uplo), transposed(layout(other(uplo)))};
}

// A whole number, both parts of a complex one.
template <class T>
T whole(Random& random, int limit = 3) {
    const auto part = [&] { return random.below(2 * limit + 1) - limit; };
    const int re = part();
    return element<T>(re, part());
}

// The arrays and scalars of a call. What is not stored of the matrices and lies between the elements of
// the vectors holds NaNs.
template <class T>
struct Operands {
    Operands(Random& random, const Layout& la, const Layout& lb, const Layout& lc, int nx, int ny,
             StepPair inc)
        : a(random, la), b(random, lb), c(random, lc), x(nx, inc.x), y(ny, inc.y),
          alpha(whole<T>(random)), beta(whole<T>(random, 1)), real_alpha(part(alpha)),
          real_beta(part(beta)) {
        for (Stored<T>* m : {&a, &b, &c}) fill(*m, [&](int, int) { return whole<T>(random); });
        for (int i = 0; i < nx; ++i) x[i] = whole<T>(random);
        for (int i = 0; i < ny; ++i) y[i] = whole<T>(random);
    }
    // The same values in other layouts.
    Operands(const Operands& d, const Layout& la, const Layout& lb, const Layout& lc)
        : a(unused(), la), b(unused(), lb), c(unused(), lc), x(d.x), y(d.y), alpha(d.alpha),
          beta(d.beta), real_alpha(d.real_alpha), real_beta(d.real_beta) {
        fill(a, [&](int i, int j) { return d.a(i, j); });
        fill(b, [&](int i, int j) { return d.b(i, j); });
        fill(c, [&](int i, int j) { return d.c(i, j); });
    }
    bool intact() const {
        return a.intact() && b.intact() && c.intact() && x.intact() && y.intact();
    }
    Stored<T> a, b, c;
    Steps<T> x, y;
    T alpha, beta;
    real_t<T> real_alpha, real_beta;

private:
    static real_t<T> part(T z) { return static_cast<real_t<T>>(wide(z).real()); }
    static Random& unused() {
        static Random random;
        return random;
    }
    template <class F>
    static void fill(Stored<T>& m, F value) {
        for (int j = 0; j < m.columns(); ++j)
            for (int i = 0; i < m.rows(); ++i)
                if (m.has(i, j)) m(i, j) = value(i, j);
        m.remember();
    }
};

// An argument of a call is given as a number, an enumeration value (Fortran-style: its letter) or a
// member of the operands: a matrix with its leading dimension, a vector with its step, a scalar.
template <class T>
struct Packed {
    Stored<T> Operands<T>::*member; // without leading dimension
};
template <bool for_c, class T, class A>
auto words(Operands<T>& d, A argument) {
    if constexpr (std::is_member_pointer_v<A>) {
        auto& value = d.*argument;
        using Value = std::remove_reference_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, Stored<T>>)
            return std::tuple(value.data(), value.ld());
        else if constexpr (std::is_same_v<Value, Steps<T>>)
            return std::tuple(value.data(), value.inc());
        else
            return std::tuple(value);
    } else if constexpr (std::is_same_v<A, Packed<T>>) {
        return std::tuple((d.*argument.member).data());
    } else if constexpr (std::is_enum_v<A> && !for_c) {
        return std::tuple(letter(argument));
    } else {
        return std::tuple(argument);
    }
}
template <class F, class C, class T, class... A>
void call_c(const Both<F, C>& routine, CBLAS_ORDER order, Operands<T>& d, A... arguments) {
    std::apply([&](auto... word) { call(routine.c, order, word...); },
               std::tuple_cat(words<true>(d, arguments)...));
}
template <class F, class C, class T, class... A>
void call_fortran(const Both<F, C>& routine, Operands<T>& d, A... arguments) {
    std::apply([&](auto... word) { call(routine.fortran, word...); },
               std::tuple_cat(words<false>(d, arguments)...));
}

// Whether two results have the same values. A NaN is never right.
template <class T>
bool same_values(const Stored<T>& got, const Stored<T>& want) {
    for (int j = 0; j < got.columns(); ++j)
        for (int i = 0; i < got.rows(); ++i)
            if (got.has(i, j) && wide(got(i, j)) != wide(want(i, j))) return false;
    return true;
}
template <class T>
bool same_values(const Steps<T>& got, const Steps<T>& want) {
    for (int i = 0; i < got.size(); ++i)
        if (wide(got[i]) != wide(want[i])) return false;
    return true;
}

// Whether an argument is this member.
template <class A, class M>
bool is(A argument, M member) {
    if constexpr (requires { argument.member == member; }) return argument.member == member;
    if constexpr (std::is_same_v<A, M>) return argument == member;
    return false;
}

template <class T>
class CblasTest : public testing::Test {
protected:
    using Adjust = std::function<void(Operands<T>&)>;
    struct Problem {
        Ordered a, b = in_order(0, 0), c = in_order(0, 0);
        int nx = 0, ny = 0;
        Adjust adjust = [](Operands<T>&) {}; // changes the random problem
    };

    // Both routines on the same problem in every order, under several steps.
    template <class F, class C, class... A>
    void compare(const Both<F, C>& routine, const Problem& p, A... arguments) {
        for (const CBLAS_ORDER order : kOrders)
            for (const StepPair& inc : kSteps) {
                Operands<T> want(random_, p.a.column_major, p.b.column_major, p.c.column_major,
                                 p.nx, p.ny, inc);
                p.adjust(want);
                want.a.remember();
                const auto in = [&](const Ordered& layout) {
                    return order == CblasRowMajor ? layout.row_major : layout.column_major;
                };
                Operands<T> got(want, in(p.a), in(p.b), in(p.c));
                const Steps<T> x = want.x, y = want.y;
                call_fortran(routine, want, arguments...);
                call_c(routine, order, got, arguments...);
                // The last argument is the result; what is only read keeps its bits.
                const auto result = std::get<sizeof...(A) - 1>(std::tuple(arguments...));
                using D = Operands<T>;
                bool right = got.intact();
                for (const auto matrix : {&D::a, &D::b, &D::c})
                    right &= is(result, matrix) ? same_values(got.*matrix, want.*matrix)
                                                : (got.*matrix).unchanged();
                right &= is(result, &D::x) ? same_values(got.x, want.x) : got.x.same_as(x);
                right &= is(result, &D::y) ? same_values(got.y, want.y) : got.y.same_as(y);
                EXPECT_TRUE(right) << routine.name << " order " << order << " steps " << inc.x
                                   << " " << inc.y << " " << describe(arguments...);
            }
    }
    // The imaginary parts of a Hermitian diagonal are not looked at.
    static void poison_diagonal(Operands<T>& d) {
        if constexpr (is_complex<T>)
            for (int i = 0; i < d.a.rows(); ++i) d.a(i, i).im = not_a_number<T>().im;
    }
    // Pivots that divide exactly, or NaNs where the diagonal counts as ones.
    static Adjust pivots(CBLAS_DIAG diag) {
        return [=](Operands<T>& d) {
            const T exact[] = {element<T>(1), element<T>(-1), element<T>(2),
                               is_complex<T> ? element<T>(0, 1) : element<T>(-2)};
            for (int i = 0; i < d.a.rows(); ++i)
                d.a(i, i) = diag == CblasUnit ? not_a_number<T>() : exact[i % 4];
        };
    }
    Random random_{91};

private:
    template <class... A>
    static std::string describe(A... arguments) {
        const auto text = [](auto argument) -> std::string {
            if constexpr (std::is_enum_v<decltype(argument)>) return letter(argument);
            if constexpr (std::is_same_v<decltype(argument), int>)
                return std::to_string(argument) + " ";
            return "";
        };
        return (text(arguments) + ...);
    }
};

} // namespace vor::test
