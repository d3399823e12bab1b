// Level 2 and Level 3 for C: each routine in both orders beside the Fortran-style one on the same problem
// column-major. What a problem consists of follows from the names of the arguments. The numbers are small
// and whole, so that every sum is exact and results can be compared by value; what is not stored of the
// matrices and lies between the elements of the vectors holds NaNs.
#include "blas/check/routines.h"
#include "tests/blas/level2.h"
#include "tests/blas/reports.h"
#include "tests/blas/routine.h"
#include "tests/common/allocations.h"
#include "tests/common/call.h"
#include "vor_cblas.h"

using namespace vor::test;

namespace {

using Arrays = std::map<std::string, void*>; // the addresses of matrices, vectors and scalars

// One routine in both interfaces; its names are those for C.
struct Both : Routine {
    std::function<void(const Names&, Values, const Arrays&)> fortran, c;
};

// The word of an argument: for C numbers by value but for complex ones, Fortran-style all by reference,
// and of an option the letter.
template <bool for_c, class P>
P word(const std::string& name, Values& values, const Arrays& arrays) {
    const Option* option = for_c ? nullptr : option_of(name);
    if constexpr (std::is_floating_point_v<P>) {
        return *static_cast<const P*>(arrays.at(name));
    } else if constexpr (!std::is_pointer_v<P>) {
        return static_cast<P>(values.at(name));
    } else {
        const void* place = arrays.contains(name) ? arrays.at(name) : &values[name];
        if (option) place = &option->letters[static_cast<size_t>(values[name] - option->first)];
        return static_cast<P>(const_cast<void*>(place));
    }
}

template <bool for_c, class... P>
auto caller(void (*routine)(P...)) {
    return [routine](const Names& names, Values values, const Arrays& arrays) {
        [&]<size_t... i>(std::index_sequence<i...>) {
            call(routine, word<for_c, P>(names[i + !for_c], values, arrays)...);
        }
        (std::index_sequence_for<P...>{});
    };
}

std::vector<Both> routines_of(char type) {
#define BOTH(letter, op, check, T, tests, LIST, report)                                            \
    {{#letter, #op, true, VOR_NAMES(ARGS_##LIST, true)},                                           \
     caller<false>(letter##op),                                                                    \
     caller<true>(cblas_##letter##op)},
    static const std::vector<Both> all = {VOR_CHECKED_ROUTINES(BOTH)};
    std::vector<Both> some;
    for (const Both& routine : all)
        if (routine.type[0] == type) some.push_back(routine);
    return some;
}

// A row-major matrix is the transpose of a column-major one: sizes, diagonals and triangles turn round.
Layout layout_of(const Routine& routine, const std::string& array, const Values& v,
                 bool row_major) {
    if (!routine.has(array)) return full(0, 0, 1);
    auto [rows, columns] = routine.shape(array, v);
    if (row_major) std::swap(rows, columns);
    const bool upper = routine.has("uplo") && (v.at("uplo") == 121) != row_major;
    const char uplo = upper ? 'U' : 'L';
    const bool is_triangle =
        routine.has("uplo") && (routine.is_level2() || array == (routine.has("side") ? "a" : "c"));
    Layout layout = full(rows, columns, std::max(1, rows) + 2);
    if (array == "ap")
        layout = packed(uplo, rows);
    else if (routine.has("ku"))
        layout = band(rows, columns, v.at(row_major ? "ku" : "kl"), v.at(row_major ? "kl" : "ku"),
                      v.at("kl") + v.at("ku") + 2);
    else if (routine.is_level2() && routine.has("k"))
        layout = band_triangle(uplo, rows, v.at("k"), v.at("k") + 2);
    else if (is_triangle)
        layout = triangle(uplo, rows, rows + 2);
    if (!row_major) return layout;
    return {layout.columns, layout.rows, layout.ld,
            [=](int i, int j) { return layout.place(j, i); }};
}

// A whole number, both parts of a complex one.
template <class T>
T whole(Random& random, int limit = 3) {
    const auto part = [&] { return random.below(2 * limit + 1) - limit; };
    const int re = part();
    return element<T>(re, part());
}

template <class T>
struct Problem {
    // Random values in column-major layouts. What is not to be looked at is NaN.
    Problem(const Routine& r, const Values& v, StepPair inc, Random& random)
        : Problem(r, v, false, x_of(r, v, inc.x), x_of(r, v, inc.y, true)) {
        for (Stored<T>& matrix : m) fill(matrix, [&](int, int) { return whole<T>(random); });
        for (Steps<T>* vector : {&x, &y})
            for (int i = 0; i < vector->size(); ++i) (*vector)[i] = whole<T>(random);
        alpha = whole<T>(random), beta = whole<T>(random, 1);
        Stored<T>& a = m[0];
        const T exact[] = {element<T>(1), element<T>(-1), element<T>(2),
                           vor::is_complex<T> ? element<T>(0, 1) : element<T>(-2)}; // pivots
        for (int i = 0; i < std::min(a.rows(), a.columns()); ++i) {
            if (r.has("diag")) a(i, i) = v.at("diag") == 132 ? not_a_number<T>() : exact[i % 4];
            if constexpr (vor::is_complex<T>) // of a Hermitian factor, not of an update
                if (r.op[0] == 'h' && (r.op == "hemm" || r.op.ends_with("mv")))
                    a(i, i).im = not_a_number<T>().im;
        }
        a.remember();
    }
    // The same in the layouts of an order.
    Problem(const Routine& r, const Values& v, const Problem& p)
        : Problem(r, v, v.at("order") == kRowMajor, p.x, p.y) {
        for (int k = 0; k < 3; ++k) fill(m[k], [&](int i, int j) { return p.m[k](i, j); });
        alpha = p.alpha, beta = p.beta;
    }
    Arrays arrays() {
        return {{"a", m[0].data()}, {"ap", m[0].data()}, {"b", m[1].data()}, {"c", m[2].data()},
                {"x", x.data()},    {"y", y.data()},     {"alpha", &alpha},  {"beta", &beta}};
    }
    Values arguments(Values v) const {
        v["lda"] = m[0].ld(), v["ldb"] = m[1].ld(), v["ldc"] = m[2].ld();
        v["incx"] = x.inc(), v["incy"] = y.inc();
        return v;
    }
    Stored<T> m[3]; // A, B, C
    Steps<T> x, y;
    T alpha{}, beta{};

private:
    Problem(const Routine& r, const Values& v, bool row_major, const Steps<T>& x0,
            const Steps<T>& y0)
        : m{matrix(layout_of(r, r.has("ap") ? "ap" : "a", v, row_major)),
            matrix(layout_of(r, "b", v, row_major)), matrix(layout_of(r, "c", v, row_major))},
          x(x0), y(y0) {}
    static Stored<T> matrix(const Layout& layout) {
        static Random unused;
        return Stored<T>(unused, layout);
    }
    // x goes with the columns of op(A), y with its rows; of an update it is the other way round.
    static Steps<T> x_of(const Routine& r, const Values& v, int inc, bool is_y = false) {
        if (!r.is_level2()) return Steps<T>(0, inc);
        const bool rows = (r.has("trans") && v.at("trans") != 111) != is_y;
        if (!r.has("m")) return Steps<T>(v.at("n"), inc);
        return Steps<T>(v.at(rows != r.op.starts_with("ger") ? "m" : "n"), inc);
    }
    template <class F>
    static void fill(Stored<T>& matrix, F value) {
        for (int j = 0; j < matrix.columns(); ++j)
            for (int i = 0; i < matrix.rows(); ++i)
                if (matrix.has(i, j)) matrix(i, j) = value(i, j);
        matrix.remember();
    }
};

// Whether all elements have the same values, and nothing else was written.
template <class T>
bool same_results(const Problem<T>& got, const Problem<T>& want) {
    bool same = got.x.intact() && got.y.intact();
    const auto compare = [&](const T& g, const T& w) {
        same &= wide(g) == wide(w) || same_bits(g, w); // the same NaN
    };
    for (int k = 0; k < 3; ++k) {
        same &= got.m[k].intact();
        for (int j = 0; j < got.m[k].columns(); ++j)
            for (int i = 0; i < got.m[k].rows(); ++i)
                if (got.m[k].has(i, j)) compare(got.m[k](i, j), want.m[k](i, j));
    }
    for (int i = 0; i < got.x.size(); ++i) compare(got.x[i], want.x[i]);
    for (int i = 0; i < got.y.size(); ++i) compare(got.y[i], want.y[i]);
    return same;
}

// Every combination of options and the order, with each of these sizes.
constexpr int kSizes[][5] = {{1, 1, 1, 0, 0}, {3, 5, 4, 1, 2}, {6, 2, 1, 3, 0}, {7, 7, 3, 0, 2},
                             {0, 4, 0, 0, 0}, {4, 0, 1, 1, 1}, {2, 9, 0, 0, 1}};
std::vector<Values> problems_of(const Routine& routine) {
    std::vector<Values> all;
    for (const auto& [m, n, k, kl, ku] : kSizes)
        all.push_back({{"m", m}, {"n", n}, {"k", k}, {"kl", kl}, {"ku", ku}});
    for (const std::string& name : routine.arguments) {
        std::vector<Values> more;
        for (const int choice : routine.choices(name))
            for (Values& v : all) v[name] = choice, more.push_back(v);
        if (!more.empty()) all = more;
    }
    return all;
}

template <class T>
struct CblasDense : testing::Test {};
TYPED_TEST_SUITE(CblasDense, Elements);

TYPED_TEST(CblasDense, GivesTheResultsOfTheEntriesInBothOrders) {
    using T = TypeParam;
    Random random(91);
    for (const Both& routine : routines_of(of_type<T>('s', 'd', 'c', 'z')))
        for (const Values& v : problems_of(routine))
            for (const StepPair& inc : kSteps) {
                if (!routine.is_level2() && inc.x != 1) continue;
                Problem<T> want(routine, v, inc, random), got(routine, v, want);
                routine.fortran(routine.arguments, want.arguments(v), want.arrays());
                routine.c(routine.arguments, got.arguments(v), got.arrays());
                EXPECT_TRUE(same_results(got, want))
                    << routine.type << routine.op << " " << testing::PrintToString(v) << " steps "
                    << inc.x << " " << inc.y;
            }
}

// The row-major calls that conjugate copies of vectors take one block for each, of the vector's size, and
// give it back; for an empty vector none. A copy that gets no memory: one report, number 0, nothing
// written, nothing kept. All other calls take no memory.
TYPED_TEST(CblasDense, TakesMemoryForCopiesThatItConjugatesOnly) {
    using T = TypeParam;
    const std::map<std::string, int> copies = {{"gemv", 1}, {"gbmv", 1}, {"gerc", 1}, {"hemv", 1},
                                               {"hbmv", 1}, {"hpmv", 1}, {"her", 1},  {"hpr", 1},
                                               {"her2", 2}, {"hpr2", 2}};
    cblas_sswap(0, nullptr, 1, nullptr, 1); // the first framed call reads a file, with memory
    Random random(92);
    Reports reports;
    for (const Both& routine : routines_of(of_type<T>('s', 'd', 'c', 'z')))
        for (const int n : {0, 7})
            for (const StepPair& inc : kSteps) {
                if (!routine.is_level2() || routine.op.starts_with("t")) continue;
                Values v = {
                    {"order", kRowMajor}, {"m", n},     {"n", n}, {"k", 1}, {"kl", 1}, {"ku", 0},
                    {"trans", 113},       {"uplo", 121}};
                const auto entry = copies.find(routine.op);
                const bool copied = vor::is_complex<T> && entry != copies.end() && n > 0;
                const int wanted = copied ? entry->second : 0;
                for (int k = 0; k <= wanted; ++k) {
                    Problem<T> d(routine, v, Problem<T>(routine, v, inc, random));
                    const Steps<T> x = d.x, y = d.y;
                    Allocations allocations;
                    if (k) allocations.fail_at(k);
                    routine.c(routine.arguments, d.arguments(v), d.arrays());
                    const std::string name = "cblas_" + routine.type + routine.op;
                    EXPECT_EQ(allocations.live(), 0) << name;
                    EXPECT_EQ(allocations.calls(), k ? k : wanted) << name;
                    EXPECT_EQ(allocations.last_size(), wanted ? size_t(n) * sizeof(T) : 0) << name;
                    EXPECT_EQ(reports.take(), std::vector<Report>(k ? 1 : 0, Report{name, 0}));
                    EXPECT_TRUE(!k || (d.m[0].unchanged() && d.x.same_as(x) && d.y.same_as(y)))
                        << name;
                }
            }
}

} // namespace
