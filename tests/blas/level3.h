// The structured Level 3 routines by element type, and problems for them: operands in their layouts, with
// everything that must not be read set to NaN, and what the routine should make of them.
#pragma once

#include "tests/blas/level2.h"
#include "tests/common/allocations.h"
#include "tests/common/fenced.h"
#include "vor_service.h"

#include <omp.h>

#include <cstdlib>

namespace vor::test {

// Decided at the library's first question: threads may be used.
inline const int parallel_mode = setenv("VOR_SERIAL", "NO", 1);

// Sets the number of threads for a scope.
class Threads {
public:
    explicit Threads(int n) { omp_set_num_threads(n); }
    ~Threads() { omp_set_num_threads(2); }
};

// Rounding errors that an element made of `terms` products may carry, in units of eps times their sum:
// s and c round at every operation, d and z where a stage or a block ends, 16 steps being the
// shortest, and a few times more for alpha, beta and the diagonal.
template <class T>
double bound(int terms) {
    if (std::is_same_v<real_t<T>, double>) return 0.5 * (terms / 16 + 10);
    return 0.5 * ((is_complex<T> ? 2 : 1) * terms + 10);
}

// The k-th allocation of run() fails, for every k until none does; then all of them.
template <class F>
void with_failing_allocations(F run) {
    for (int k = 1;; ++k) {
        VOR_FreeBuffers();
        Allocations allocations;
        allocations.fail_at(k);
        run();
        const bool failed = allocations.failed();
        VOR_FreeBuffers();
        EXPECT_EQ(allocations.live(), 0) << k;
        if (!failed) break;
    }
    VOR_FreeBuffers();
    Allocations allocations;
    allocations.fail_from(1);
    run();
}

struct Letters {
    char side, uplo, trans, diag;
    bool left() const { return side == 'L' || side == 'l'; }
    bool unit() const { return diag == 'U' || diag == 'u'; }
};

template <class T>
struct Level3Problem;

// symm, syrk, syr2k, trmm, trsm; and the Hermitian twins of the first three.
enum class Family { symmetric, rank_k, rank_2k, product, solve };

template <class T>
struct Level3Member {
    const char* name;
    Family family;
    bool hermitian;
    void (*run)(Level3Problem<T>&);

    bool updates_triangle() const { return family == Family::rank_k || family == Family::rank_2k; }
    bool is_triangular() const { return family == Family::product || family == Family::solve; }
};

template <class Routine, class T>
void run_symmetric(Routine* routine, Level3Problem<T>& p) {
    routine(&p.letters.side, &p.letters.uplo, &p.m, &p.n, &p.alpha, p.at(p.a), &p.a.ld(), p.at(p.b),
            &p.b.ld(), &p.beta, p.at(p.c), &p.c.ld());
}
// S is the type of the scalars, for rank 2 of beta.
template <class S, class Routine, class T>
void run_rank_k(Routine* routine, Level3Problem<T>& p) {
    const auto alpha = element<S>(wide(p.alpha).real(), wide(p.alpha).imag());
    const auto beta = element<S>(wide(p.beta).real(), wide(p.beta).imag());
    routine(&p.letters.uplo, &p.letters.trans, &p.n, &p.k, &alpha, p.at(p.a), &p.a.ld(), &beta,
            p.at(p.c), &p.c.ld());
}
template <class S, class Routine, class T>
void run_rank_2k(Routine* routine, Level3Problem<T>& p) {
    const auto beta = element<S>(wide(p.beta).real(), wide(p.beta).imag());
    routine(&p.letters.uplo, &p.letters.trans, &p.n, &p.k, &p.alpha, p.at(p.a), &p.a.ld(),
            p.at(p.b), &p.b.ld(), &beta, p.at(p.c), &p.c.ld());
}
template <class Routine, class T>
void run_triangular(Routine* routine, Level3Problem<T>& p) {
    routine(&p.letters.side, &p.letters.uplo, &p.letters.trans, &p.letters.diag, &p.m, &p.n,
            &p.alpha, p.at(p.a), &p.a.ld(), p.at(p.b), &p.b.ld());
}

template <class T>
std::vector<Level3Member<T>> level3_members() {
    using P = Level3Problem<T>;
    using enum Family;
    std::vector<Level3Member<T>> all = {
        {"symm", symmetric, false,
         [](P& p) { run_symmetric(of_type<T>(ssymm, DSYMM_, csymm_, ZSYMM), p); }},
        {"syrk", rank_k, false,
         [](P& p) { run_rank_k<T>(of_type<T>(SSYRK_, dsyrk, CSYRK, zsyrk_), p); }},
        {"syr2k", rank_2k, false,
         [](P& p) { run_rank_2k<T>(of_type<T>(ssyr2k_, DSYR2K, csyr2k, ZSYR2K_), p); }},
        {"trmm", product, false,
         [](P& p) { run_triangular(of_type<T>(STRMM, dtrmm_, CTRMM_, ztrmm), p); }},
        {"trsm", solve, false,
         [](P& p) { run_triangular(of_type<T>(strsm_, DTRSM, ctrsm, ZTRSM_), p); }},
    };
    if constexpr (is_complex<T>) {
        using R = real_t<T>;
        all.insert(
            all.end(),
            {{"hemm", symmetric, true, [](P& p) { run_symmetric(of_type<T>(chemm_, ZHEMM_), p); }},
             {"herk", rank_k, true, [](P& p) { run_rank_k<R>(of_type<T>(cherk, ZHERK_), p); }},
             {"her2k", rank_2k, true,
              [](P& p) { run_rank_2k<R>(of_type<T>(CHER2K_, zher2k_), p); }}});
    }
    return all;
}

// All combinations of the letters that count for a member, their case changing; the others are fixed.
template <class T>
std::vector<Letters> letters_of(const Level3Member<T>& member) {
    std::vector<Letters> result;
    const std::string transposed =
        member.is_triangular() || (member.updates_triangle() && !is_complex<T>) ? "TC"
        : member.hermitian                                                      ? "C"
                                                                                : "T";
    unsigned turn = 0;
    const auto cased = [&](char letter, unsigned period) {
        return static_cast<char>(turn / period % 2 ? std::tolower(letter) : letter);
    };
    for (const char side : std::string(member.updates_triangle() ? "L" : "LR"))
        for (const char uplo : {'U', 'L'})
            for (const char trans : member.family == Family::symmetric ? "N" : "N" + transposed)
                for (const char diag : std::string(member.is_triangular() ? "UN" : "N")) {
                    result.push_back(
                        {cased(side, 1), cased(uplo, 2), cased(trans, 1), cased(diag, 3)});
                    turn += 5;
                }
    return result;
}

// The arguments of any routine: a triangle of this order, and so many right sides or steps of the sum.
template <class T>
struct Level3Problem {
    Random random{5}; // before the members that it fills
    Level3Member<T> member;
    Letters letters;
    int order, m, n, k;
    Stored<T> a, b, c;
    T alpha = element<T>(0.8, -0.3), beta = element<T>(-0.6, 0.2);

    Level3Problem(const Level3Member<T>& which, Letters l, int size, int others, int gap = 1)
        : member(which), letters(l), order(size), m(l.left() ? size : others),
          n(l.left() && !which.updates_triangle() ? others : size), k(others),
          a(member.updates_triangle() ? operand(2 * gap) : triangle_of_order(gap)),
          b(member.updates_triangle() ? operand(gap) : rectangle(m, n, 2 * gap)),
          c(member.updates_triangle() ? triangle_of_order(gap) : rectangle(m, n, gap)) {
        if (member.is_triangular()) make_solvable(a, l.unit());
        if (!member.hermitian) return;
        hide_imaginary_diagonal(member.updates_triangle() ? c : a);
        if (member.updates_triangle()) beta = element<T>(-0.6);
        if (member.family == Family::rank_k) alpha = element<T>(0.8);
    }

    void run() { member.run(*this); }
    // The same on copies between fences, whose results come back.
    void run_fenced(bool at_end) {
        Fenced<T> copies[] = {{a.size(), at_end}, {b.size(), at_end}, {c.size(), at_end}};
        fenced_ = copies;
        for (Stored<T>* x : {&a, &b, &c}) std::copy_n(x->data(), x->size(), at(*x));
        run();
        for (Stored<T>* x : {&a, &b, &c}) std::copy_n(at(*x), x->size(), x->data());
        fenced_ = nullptr;
    }
    // Where a call finds a, b or c.
    T* at(Stored<T>& x) {
        return !fenced_ ? x.data() : fenced_[&x == &a ? 0 : &x == &b ? 1 : 2].data();
    }
    void expect_right() {
        const Family family = member.family;
        const bool hermitian = member.hermitian;
        const Wide scale = wide(alpha);
        const Dense factor = family == Family::symmetric ? symmetric(a, hermitian)
                             : member.is_triangular()
                                 ? triangular(a, letters.unit()).under(letters.trans)
                                 : general(a).under(letters.trans);
        const Dense sides = general(b), other = sides.under(letters.trans);
        const char second = hermitian ? 'C' : 'T';
        const auto product = [&](Wide by, const Dense& x) {
            return letters.left() ? Term{by, factor, x} : Term{by, x, factor};
        };
        run();
        EXPECT_TRUE(a.unchanged() && (member.is_triangular() || b.unchanged())) << name();
        switch (family) {
        case Family::symmetric:
            return judge(error_of_sum(c, {product(scale, sides)}, beta), order);
        case Family::rank_k:
            return judge(error_of_sum(c, {{scale, factor, factor.under(second)}}, beta, hermitian),
                         k);
        case Family::rank_2k: {
            const Wide mirrored = hermitian ? std::conj(scale) : scale;
            return judge(error_of_sum(c,
                                      {{scale, factor, other.under(second)},
                                       {mirrored, other, factor.under(second)}},
                                      beta, hermitian),
                         2 * k);
        }
        case Family::product:
            return judge(error_of_sum(b, {product(scale, sides)}, T{}), order);
        case Family::solve:
            return judge(error_of_solution(b, product(1, general(b)), alpha), order);
        }
    }
    std::string name() const {
        const Letters& l = letters;
        return member.name + std::string{' ', l.side, l.uplo, l.trans, l.diag} + " " +
               std::to_string(m) + " x " + std::to_string(n) + " x " + std::to_string(k);
    }

private:
    Fenced<T>* fenced_ = nullptr;

    Stored<T> triangle_of_order(int gap) {
        return {random, triangle(letters.uplo, order, std::max(1, order + gap))};
    }
    Stored<T> rectangle(int rows, int columns, int gap) {
        return {random, full(rows, columns, std::max(1, rows + gap))};
    }
    // What op() makes an order by k matrix.
    Stored<T> operand(int gap) {
        return plain(letters.trans) ? rectangle(order, k, gap) : rectangle(k, order, gap);
    }
    void judge(double error, int terms) const {
        static WorstShare shares[] = {WorstShare("symm and hemm"), WorstShare("syrk and herk"),
                                      WorstShare("syr2k and her2k"), WorstShare("trmm"),
                                      WorstShare("trsm")};
        shares[static_cast<size_t>(member.family)].expect(error, bound<T>(terms), name());
    }
};

} // namespace vor::test
