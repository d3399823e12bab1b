#include "tools/sparse_system.h"
#include "tools/failure.h"
#include "tools/output.h"
#include "vor_blas.h"
#include "vor_spblas.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <memory>
#include <numeric>
#include <sstream>

namespace vor::tool {

namespace {

using Vector = std::vector<double>;

constexpr int kStep = 1;

int length(const Vector& x) {
    return static_cast<int>(x.size());
}
double dot(const Vector& x, const Vector& y) {
    const int n = length(x);
    return ddot(&n, x.data(), &kStep, y.data(), &kStep);
}
double norm(const Vector& x) {
    const int n = length(x);
    return dnrm2(&n, x.data(), &kStep);
}
void add(double alpha, const Vector& x, Vector& y) { // y := alpha*x + y
    const int n = length(x);
    daxpy(&n, &alpha, x.data(), &kStep, y.data(), &kStep);
}
void scale(double alpha, Vector& x) {
    const int n = length(x);
    dscal(&n, &alpha, x.data(), &kStep);
}

void multiply(const SparseMatrix& a, const Vector& x, Vector& y) {
    vor_dcsrgemv("N", &a.n, a.a.data(), a.ia.data(), a.ja.data(), x.data(), y.data());
}
void solve_triangle(const char* uplo, const char* trans, const char* diag, const SparseMatrix& a,
                    const Vector& x, Vector& y) {
    vor_dcsrtrsv(uplo, trans, diag, &a.n, a.a.data(), a.ia.data(), a.ja.data(), x.data(), y.data());
}

// ---- Incomplete factors: z := M^-1 r for an M near A whose factors have the places of A alone.

class Preconditioner {
public:
    virtual ~Preconditioner() = default;
    virtual void apply(const Vector& r, Vector& z) = 0;
};

// The position of column `column` in row i, -1 if the row has none there. Rows are short.
int find(const SparseMatrix& a, int i, int column) {
    const auto first = a.ja.begin() + a.ia[i] - 1, last = a.ja.begin() + a.ia[i + 1] - 1;
    const auto at = std::lower_bound(first, last, column);
    return at != last && *at == column ? static_cast<int>(at - a.ja.begin()) : -1;
}

// A = U^T U + rest. What falls beside the places of A is taken from the diagonal instead, so that row sums stay:
// on grids that makes far fewer steps. (Gustafsson: A class of first order factorization methods, BIT 18 (1978)
// 142-156.) Where a pivot is lost, the diagonal is raised and the factor made again.
class IncompleteCholesky : public Preconditioner {
public:
    explicit IncompleteCholesky(const SparseMatrix& a) : between_(static_cast<size_t>(a.n)) {
        u_.n = a.n;
        u_.ia.push_back(1);
        for (int i = 0; i < a.n; ++i) {
            for (int p = a.ia[i] - 1; p < a.ia[i + 1] - 1; ++p)
                if (a.ja[p] > i) {
                    u_.ja.push_back(a.ja[p]);
                    u_.a.push_back(a.a[p]);
                }
            u_.ia.push_back(static_cast<int>(u_.ja.size()) + 1);
        }
        const Vector upper = u_.a;
        for (double raise = 0; !factor(raise > 0 ? 0 : kDropped);
             raise = raise > 0 ? 4 * raise : 1e-3) {
            u_.a = upper;
            for (int i = 0; i < u_.n; ++i) u_.a[u_.ia[i] - 1] *= 1 + raise;
        }
    }
    void apply(const Vector& r, Vector& z) override {
        solve_triangle("U", "T", "N", u_, r, between_);
        solve_triangle("U", "N", "N", u_, between_, z);
    }

private:
    static constexpr double kDropped = 0.99; // of what is dropped goes to the diagonal

    bool factor(double dropped) {
        for (int k = 0; k < u_.n; ++k) {
            const int first = u_.ia[k] - 1, last = u_.ia[k + 1] - 1;
            double& pivot = u_.a[first];
            if (!(pivot > 0)) return false;
            pivot = std::sqrt(pivot);
            for (int p = first + 1; p < last; ++p) u_.a[p] /= pivot;
            for (int p = first + 1; p < last; ++p) {
                const int i = u_.ja[p] - 1;
                u_.a[u_.ia[i] - 1] -= u_.a[p] * u_.a[p];
                for (int q = p + 1; q < last; ++q) {
                    const double fill = u_.a[p] * u_.a[q];
                    const int at = find(u_, i, u_.ja[q]);
                    if (at >= 0) {
                        u_.a[at] -= fill;
                    } else {
                        u_.a[u_.ia[i] - 1] -= dropped * fill;
                        u_.a[u_.ia[u_.ja[q] - 1] - 1] -= dropped * fill;
                    }
                }
            }
        }
        return true;
    }

    SparseMatrix u_; // each row begins with its diagonal
    Vector between_;
};

// A = L U + rest, both in the places of A (Meijerink, van der Vorst, Math. Comp. 31 (1977) 148-162). A row whose
// pivot is lost, or that has none, keeps 1 there.
class IncompleteLu : public Preconditioner {
public:
    explicit IncompleteLu(const SparseMatrix& a) : lu_(a), between_(static_cast<size_t>(a.n)) {
        add_missing_diagonal();
        std::vector<int> diagonal(static_cast<size_t>(lu_.n));
        for (int i = 0; i < lu_.n; ++i) {
            double largest = 0;
            const int last = lu_.ia[i + 1] - 1;
            for (int p = lu_.ia[i] - 1; p < last; ++p)
                largest = std::max(largest, std::fabs(lu_.a[p]));
            for (int p = lu_.ia[i] - 1; p < last && lu_.ja[p] <= i; ++p) {
                const int k = lu_.ja[p] - 1;
                const double factor = lu_.a[p] /= lu_.a[diagonal[k]];
                for (int q = diagonal[k] + 1; q < lu_.ia[k + 1] - 1; ++q)
                    if (const int at = find(lu_, i, lu_.ja[q]); at >= 0)
                        lu_.a[at] -= factor * lu_.a[q];
            }
            diagonal[i] = find(lu_, i, i + 1);
            double& pivot = lu_.a[diagonal[i]];
            if (!(std::fabs(pivot) > 1e-12 * largest)) pivot = largest > 0 ? largest : 1;
        }
    }
    void apply(const Vector& r, Vector& z) override {
        solve_triangle("L", "N", "U", lu_, r, between_);
        solve_triangle("U", "N", "N", lu_, between_, z);
    }

private:
    void add_missing_diagonal() {
        SparseMatrix whole;
        whole.n = lu_.n;
        whole.ia.push_back(1);
        for (int i = 0; i < lu_.n; ++i) {
            bool there = false;
            const auto add = [&](int column, double value) {
                whole.ja.push_back(column);
                whole.a.push_back(value);
            };
            for (int p = lu_.ia[i] - 1; p < lu_.ia[i + 1] - 1; ++p) {
                if (!there && lu_.ja[p] > i + 1) add(i + 1, 0);
                there = there || lu_.ja[p] >= i + 1;
                add(lu_.ja[p], lu_.a[p]);
            }
            if (!there) add(i + 1, 0);
            whole.ia.push_back(static_cast<int>(whole.ja.size()) + 1);
        }
        lu_ = std::move(whole);
    }

    SparseMatrix lu_;
    Vector between_;
};

// ---- The iterations

// What the steps share: when to end, and what is told meanwhile.
class Watch {
public:
    Watch(double whole, double tolerance, int most, std::vector<double>& residuals)
        : whole_(whole), tolerance_(tolerance), most_(most), residuals_(residuals) {}

    // Takes the norm of a residual; true if the iteration is to end.
    bool take(double residual) {
        residuals_.push_back(residual / whole_);
        const int step = static_cast<int>(residuals_.size()) - 1;
        if (step % 10 == 0) {
            char text[80];
            std::snprintf(text, sizeof text, "step %d of at most %d: residual %.2e, to %.0e", step,
                          most_, residuals_.back(), tolerance_);
            status_.show(text);
        }
        return converged() || step >= most_ || !std::isfinite(residuals_.back());
    }
    bool converged() const { return residuals_.back() <= tolerance_; }

private:
    double whole_, tolerance_;
    int most_;
    std::vector<double>& residuals_;
    StatusLine status_;
};

// Conjugate gradients (Hestenes, Stiefel, J. Res. NBS 49 (1952) 409-436). False if A is not positive definite.
bool conjugate_gradients(const SparseMatrix& a, Preconditioner& m, Vector r, Vector& x,
                         Watch& watch) {
    Vector z(x.size()), q(x.size());
    if (watch.take(norm(r))) return true;
    m.apply(r, z);
    Vector p = z;
    double rho = dot(r, z);
    for (;;) {
        multiply(a, p, q);
        const double curvature = dot(p, q);
        if (!(curvature > 0) || !(rho > 0)) return false;
        const double alpha = rho / curvature;
        add(alpha, p, x);
        add(-alpha, q, r);
        if (watch.take(norm(r))) return true;
        m.apply(r, z);
        const double before = rho;
        rho = dot(r, z);
        scale(rho / before, p);
        add(1, z, p);
    }
}

// BiCGStab (van der Vorst, SIAM J. Sci. Stat. Comput. 13 (1992) 631-644). It ends without a solution where a
// division by nothing is due.
void bicgstab(const SparseMatrix& a, Preconditioner& m, Vector r, Vector& x, Watch& watch) {
    const Vector shadow = r;
    Vector p = r, v(x.size()), t(x.size()), y(x.size()), z(x.size());
    if (watch.take(norm(r))) return;
    double rho = dot(shadow, r);
    for (;;) {
        m.apply(p, y);
        multiply(a, y, v);
        const double alpha = rho / dot(shadow, v);
        if (!std::isfinite(alpha)) return;
        add(-alpha, v, r);
        m.apply(r, z);
        multiply(a, z, t);
        const double square = dot(t, t), omega = square > 0 ? dot(t, r) / square : 0;
        add(alpha, y, x);
        add(omega, z, x);
        add(-omega, t, r);
        if (watch.take(norm(r))) return;
        const double before = rho;
        rho = dot(shadow, r);
        const double beta = rho / before * (alpha / omega);
        if (!std::isfinite(beta)) return;
        add(-omega, v, p);
        scale(beta, p);
        add(1, r, p);
    }
}

double residual(const SparseMatrix& a, const Vector& x, const Vector& b) {
    Vector r(b.size());
    multiply(a, x, r);
    add(-1, b, r);
    return norm(r) / norm(b);
}

bool has_positive_diagonal(const SparseMatrix& a) {
    for (int i = 0; i < a.n; ++i) {
        const int at = find(a, i, i + 1);
        if (at < 0 || !(a.a[at] > 0)) return false;
    }
    return true;
}

} // namespace

SparseMatrix by_rows(const Triples& triples) {
    SparseMatrix m;
    m.n = triples.rows;
    m.symmetric = triples.symmetric;
    const size_t n = static_cast<size_t>(m.n), count = triples.value.size();
    // Each symmetric entry off the diagonal stands for two.
    std::vector<int> next(n + 1, 0);
    const auto for_entries = [&](auto f) {
        for (size_t e = 0; e < count; ++e) {
            f(triples.row[e], triples.column[e], triples.value[e]);
            if (triples.symmetric && triples.row[e] != triples.column[e])
                f(triples.column[e], triples.row[e], triples.value[e]);
        }
    };
    for_entries([&](int i, int, double) { ++next[static_cast<size_t>(i) + 1]; });
    std::partial_sum(next.begin(), next.end(), next.begin());
    std::vector<std::pair<int, double>> entries(static_cast<size_t>(next[n]));
    std::vector<int> start = next;
    for_entries([&](int i, int j, double v) { entries[next[static_cast<size_t>(i)]++] = {j, v}; });
    m.ia.push_back(1);
    for (size_t i = 0; i < n; ++i) {
        const auto first = entries.begin() + start[i], last = entries.begin() + start[i + 1];
        std::stable_sort(first, last,
                         [](const auto& x, const auto& y) { return x.first < y.first; });
        for (auto e = first; e != last; ++e)
            if (e != first && e[-1].first == e->first) {
                m.a.back() += e->second;
            } else {
                m.ja.push_back(e->first + 1);
                m.a.push_back(e->second);
            }
        m.ia.push_back(static_cast<int>(m.ja.size()) + 1);
    }
    return m;
}

IterativeSolution solve_sparse(const SparseMatrix& a, const Vector& b, double tolerance, int most,
                               const std::string& name) {
    const auto start = std::chrono::steady_clock::now();
    IterativeSolution s{Vector(b.size()), "", {}, false, 0, 0};
    const double whole = norm(b);
    if (!(whole > 0)) throw Failure(name + ": the right side is zero: so is the solution");
    bool definite = a.symmetric && has_positive_diagonal(a);
    if (definite) {
        s.method = "conjugate gradients with an incomplete Cholesky factor";
        IncompleteCholesky factor(a);
        Watch watch(whole, tolerance, most, s.residuals);
        definite = conjugate_gradients(a, factor, b, s.x, watch);
        s.converged = watch.converged();
    }
    if (!definite) {
        s = {Vector(b.size()), "BiCGStab with an incomplete LU factor", {}, false, 0, 0};
        IncompleteLu factor(a);
        Watch watch(whole, tolerance, most, s.residuals);
        bicgstab(a, factor, b, s.x, watch);
        s.converged = watch.converged();
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    s.seconds = time.count();
    s.true_residual = residual(a, s.x, b);
    return s;
}

std::string residual_plot(const IterativeSolution& s) {
    std::ostringstream script;
    script << "$fall << END\n";
    const size_t every = s.residuals.size() / 2000 + 1;
    for (size_t k = 0; k < s.residuals.size(); k += every)
        script << k << ' ' << s.residuals[k] << '\n';
    script << "END\nset logscale y\nset format y '10^{%T}'\nset xlabel 'steps'\n"
           << "set ylabel 'norm of the residual over that of the right side'\nset grid\nunset key\n"
           << "plot $fall with lines lw 2 lc rgb '#0072b2'\n";
    return script.str();
}

} // namespace vor::tool
