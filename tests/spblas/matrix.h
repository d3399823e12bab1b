// Sparse matrices for tests: one set of entries, stored in each of the five formats, and the matrix that it
// stands for under given letters, as a dense one.
#pragma once

#include "tests/common/numbers.h"
#include "vor_spblas.h"

#include <map>
#include <memory>
#include <string>

namespace vor::test {

// Entries by (row, column), counted from 1.
struct Entries {
    int m, k;
    std::map<std::pair<int, int>, double> at;

    // About one place in `sparsity`, and all diagonal places if `diagonal`.
    static Entries random(int m, int k, int sparsity, bool diagonal, Random& random) {
        Entries a{m, k, {}};
        for (int i = 1; i <= m; ++i)
            for (int j = 1; j <= k; ++j)
                if (random.below(sparsity) == 0 || (diagonal && i == j))
                    a.at[{i, j}] = random.next<double>() + (diagonal && i == j ? 4 : 0);
        return a;
    }
    Entries transposed() const {
        Entries t{k, m, {}};
        for (const auto& [place, value] : at) t.at[{place.second, place.first}] = value;
        return t;
    }
};

// The m by k matrix that the letters make of the entries, row by row.
inline std::vector<long double> dense(const Entries& a, const std::string& letters) {
    std::vector<long double> d(static_cast<size_t>(a.m) * a.k);
    const auto place = [&](int i, int j) -> long double& {
        return d[static_cast<size_t>(i - 1) * a.k + (j - 1)];
    };
    const char structure = letters[0] == 'H' ? 'S' : letters[0];
    const bool upper = letters[1] == 'U', unit = letters[2] == 'U';
    for (const auto& [at, value] : a.at) {
        const auto [i, j] = at;
        if (structure == 'G') {
            place(i, j) = value;
        } else if (i == j) {
            if (structure != 'A' && !unit) place(i, j) = value;
        } else if (structure != 'D' && (i < j) == upper) {
            place(i, j) = value;
            if (structure == 'S') place(j, i) = value;
            if (structure == 'A') place(j, i) = -static_cast<long double>(value);
        }
    }
    if (unit && structure != 'G' && structure != 'A')
        for (int i = 1; i <= std::min(a.m, a.k); ++i) place(i, i) = 1;
    return d;
}

// The scalars and the dense operands of a call; for a solve beta is not used, and k = m.
struct Operands {
    char transa;
    std::string letters; // matdescra
    int m, n, k;
    double alpha, beta;
    const double* b;
    int ldb;
    double* c;
    int ldc;
};

// One format: the entries as it stores them, and its routines. Routines that a format lacks do not run.
class Format {
public:
    virtual ~Format() = default;
    // For skyline storage the letters tell which triangle; solves want the places in order.
    virtual void store(const Entries& a, const std::string& letters, bool ordered,
                       Random& random) = 0;
    virtual void mm(const Operands& o) const = 0;
    virtual void mv(const Operands& o) const = 0;
    virtual void sm(const Operands& o) const = 0;
    virtual void sv(const Operands& o) const = 0;
    // y = op(A) x, y = A x and y = op(A)^-1 x without matdescra; false if the format has no such routine.
    virtual bool gemv(const Operands&) const { return false; }
    virtual bool symv(const Operands&) const { return false; }
    virtual bool trsv(const Operands&) const { return false; }
};

// What the routines of a format have in common: their names and the arrays in the middle of the list.
#define VOR_TEST_ROUTINES(format, ...)                                                             \
    void mm(const Operands& o) const override {                                                    \
        vor_d##format##mm(&o.transa, &o.m, &o.n, &o.k, &o.alpha, o.letters.data(), __VA_ARGS__,    \
                          o.b, &o.ldb, &o.beta, o.c, &o.ldc);                                      \
    }                                                                                              \
    void mv(const Operands& o) const override {                                                    \
        vor_d##format##mv(&o.transa, &o.m, &o.k, &o.alpha, o.letters.data(), __VA_ARGS__, o.b,     \
                          &o.beta, o.c);                                                           \
    }                                                                                              \
    void sm(const Operands& o) const override {                                                    \
        vor_d##format##sm(&o.transa, &o.m, &o.n, &o.alpha, o.letters.data(), __VA_ARGS__, o.b,     \
                          &o.ldb, o.c, &o.ldc);                                                    \
    }                                                                                              \
    void sv(const Operands& o) const override {                                                    \
        vor_d##format##sv(&o.transa, &o.m, &o.alpha, o.letters.data(), __VA_ARGS__, o.b, o.c);     \
    }
#define VOR_TEST_VECTOR_ROUTINES(format, ...)                                                      \
    bool gemv(const Operands& o) const override {                                                  \
        vor_d##format##gemv(&o.transa, &o.m, __VA_ARGS__, o.b, o.c);                               \
        return true;                                                                               \
    }                                                                                              \
    bool symv(const Operands& o) const override {                                                  \
        vor_d##format##symv(&o.letters[1], &o.m, __VA_ARGS__, o.b, o.c);                           \
        return true;                                                                               \
    }                                                                                              \
    bool trsv(const Operands& o) const override {                                                  \
        vor_d##format##trsv(&o.letters[1], &o.transa, &o.letters[2], &o.m, __VA_ARGS__, o.b, o.c); \
        return true;                                                                               \
    }

// Rows in any order of columns unless `ordered`, some entries in two pieces, rows in any order in the arrays,
// pointers that begin anywhere.
class Csr : public Format {
public:
    void store(const Entries& a, const std::string&, bool ordered, Random& random) override {
        val_.assign(3, NAN);
        indx_.assign(3, -1);
        pntrb_.assign(a.m, 0);
        pntre_.assign(a.m, 0);
        const int base = random.below(3);
        // Row 1 comes first: positions count from it.
        for (int i = 1; i <= a.m; ++i) put_row(a, i, ordered, random);
        for (int i = a.m; i-- > 0;) {
            pntrb_[i] += base - 3;
            pntre_[i] += base - 3;
        }
    }
    VOR_TEST_ROUTINES(csr, val_.data() + 3, indx_.data() + 3, pntrb_.data(), pntre_.data())

private:
    void put_row(const Entries& a, int i, bool ordered, Random& random) {
        std::vector<std::pair<int, double>> row;
        for (auto e = a.at.lower_bound({i, 0}); e != a.at.end() && e->first.first == i; ++e) {
            if (!ordered && random.below(4) == 0) {
                row.emplace_back(e->first.second, 0.25 * e->second);
                row.emplace_back(e->first.second, 0.75 * e->second);
            } else {
                row.emplace_back(e->first.second, e->second);
            }
        }
        if (!ordered)
            for (size_t n = row.size(); n > 1; --n)
                std::swap(row[n - 1], row[random.below(static_cast<int>(n))]);
        if (i > 1 && random.below(3) == 0) { // a gap in front of the row
            val_.push_back(NAN);
            indx_.push_back(-1);
        }
        pntrb_[i - 1] = static_cast<int>(val_.size());
        for (const auto& [column, value] : row) {
            val_.push_back(value);
            indx_.push_back(column);
        }
        pntre_[i - 1] = static_cast<int>(val_.size());
    }
    std::vector<double> val_;
    std::vector<int> indx_, pntrb_, pntre_;
};

class Csc : public Format {
public:
    void store(const Entries& a, const std::string&, bool ordered, Random&) override {
        const Entries t = a.transposed();
        val_.clear();
        indx_.clear();
        pntr_.assign(1, ordered ? 1 : 0);
        auto e = t.at.begin();
        for (int j = 1; j <= t.m; ++j) {
            for (; e != t.at.end() && e->first.first == j; ++e) {
                val_.push_back(e->second);
                indx_.push_back(e->first.second);
            }
            pntr_.push_back(pntr_[0] + static_cast<int>(val_.size()));
        }
    }
    VOR_TEST_ROUTINES(csc, val_.data(), indx_.data(), pntr_.data(), pntr_.data() + 1)

protected:
    std::vector<double> val_;
    std::vector<int> indx_, pntr_;
};

// The three-array form, for the routines without matdescra.
class Csr3 : public Csr {
public:
    void store(const Entries& a, const std::string&, bool, Random&) override {
        a_.clear();
        ja_.clear();
        ia_.assign(1, 1);
        auto e = a.at.begin();
        for (int i = 1; i <= a.m; ++i) {
            for (; e != a.at.end() && e->first.first == i; ++e) {
                a_.push_back(e->second);
                ja_.push_back(e->first.second);
            }
            ia_.push_back(1 + static_cast<int>(a_.size()));
        }
    }
    VOR_TEST_VECTOR_ROUTINES(csr, a_.data(), ia_.data(), ja_.data())

private:
    std::vector<double> a_;
    std::vector<int> ia_, ja_;
};

class Coo : public Format {
public:
    void store(const Entries& a, const std::string&, bool ordered, Random& random) override {
        std::vector<std::pair<std::pair<int, int>, double>> list;
        for (const auto& e : a.at) {
            const bool twice = !ordered && random.below(4) == 0;
            list.emplace_back(e.first, twice ? 0.5 * e.second : e.second);
            if (twice) list.push_back(list.back());
        }
        for (size_t n = list.size(); n > 1; --n)
            std::swap(list[n - 1], list[random.below(static_cast<int>(n))]);
        val_.clear();
        row_.clear();
        col_.clear();
        for (const auto& [place, value] : list) {
            val_.push_back(value);
            row_.push_back(place.first);
            col_.push_back(place.second);
        }
        nnz_ = static_cast<int>(val_.size());
    }
    VOR_TEST_ROUTINES(coo, val_.data(), row_.data(), col_.data(), &nnz_)
    VOR_TEST_VECTOR_ROUTINES(coo, val_.data(), row_.data(), col_.data(), &nnz_)

private:
    std::vector<double> val_;
    std::vector<int> row_, col_;
    int nnz_;
};

// Places outside of A hold NaNs.
class Dia : public Format {
public:
    void store(const Entries& a, const std::string&, bool, Random& random) override {
        std::map<int, int> number; // of each distance, ascending
        for (const auto& e : a.at) number[e.first.second - e.first.first] = 0;
        idiag_.clear();
        for (auto& [distance, l] : number) {
            l = static_cast<int>(idiag_.size());
            idiag_.push_back(distance);
        }
        ndiag_ = static_cast<int>(idiag_.size());
        lval_ = a.m + random.below(2);
        val_.assign(static_cast<size_t>(lval_) * ndiag_, NAN);
        for (int l = 0; l < ndiag_; ++l)
            for (int i = std::max(1, 1 - idiag_[l]); i <= std::min(a.m, a.k - idiag_[l]); ++i)
                val_[static_cast<size_t>(l) * lval_ + (i - 1)] = 0;
        for (const auto& [place, value] : a.at)
            val_[static_cast<size_t>(number[place.second - place.first]) * lval_ +
                 (place.first - 1)] = value;
    }
    VOR_TEST_ROUTINES(dia, val_.data(), &lval_, idiag_.data(), &ndiag_)
    VOR_TEST_VECTOR_ROUTINES(dia, val_.data(), &lval_, idiag_.data(), &ndiag_)

private:
    std::vector<double> val_;
    std::vector<int> idiag_;
    int lval_, ndiag_;
};

class Sky : public Format {
public:
    void store(const Entries& a, const std::string& letters, bool, Random&) override {
        const bool upper = letters[1] == 'U';
        const Entries by_profile = upper ? a.transposed() : a;
        val_.clear();
        pntr_.assign(1, 1);
        for (int i = 1; i <= std::min(a.m, a.k); ++i) {
            const auto first = by_profile.at.lower_bound({i, 0});
            const bool any = first != by_profile.at.end() && first->first.first == i;
            for (int j = any ? std::min(first->first.second, i) : i; j <= i; ++j) {
                const auto e = by_profile.at.find({i, j});
                val_.push_back(e == by_profile.at.end() ? 0 : e->second);
            }
            pntr_.push_back(1 + static_cast<int>(val_.size()));
        }
    }
    VOR_TEST_ROUTINES(sky, val_.data(), pntr_.data())

private:
    std::vector<double> val_;
    std::vector<int> pntr_;
};

} // namespace vor::test
