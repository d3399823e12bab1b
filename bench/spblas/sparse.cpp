// Sparse products and solves: grids (the 5-point equation) and random rows, in the caches and from memory,
// beside plain loops of the same compiler for the same unit.
//
// An entry is 12 bytes and two operations: in the caches the x87 unit is the limit, from memory the bandwidth.
#include "bench/common/families.h"

#include <algorithm>
#include <memory>
#include <omp.h>

namespace vor::bench {

namespace {

// Square, by rows; the triangles of a grid besides.
struct Sparse {
    int n = 0;
    std::vector<int> ia{1}, ja;
    std::vector<double> a;
    std::vector<int> rows; // of each entry
    std::vector<double> x, y;

    void end_row() { ia.push_back(int(ja.size()) + 1); }
    void add(int column, double value) {
        ja.push_back(column + 1);
        a.push_back(value);
        rows.push_back(int(ia.size()));
    }
    // `columns` right sides.
    void finish(int columns) {
        n = int(ia.size()) - 1;
        x.resize(size_t(n) * size_t(columns));
        y.resize(x.size());
        for (size_t i = 0; i < x.size(); ++i) x[i] = 1.0 / double(1 + i % 89);
    }
};

// A matrix that is made when a case first runs.
class Matrix {
public:
    Matrix(std::string its_name, double count, std::function<Sparse()> make)
        : name(std::move(its_name)), entries(count), make_(std::move(make)) {}
    Sparse& get() {
        if (sparse_.n == 0) sparse_ = make_();
        return sparse_;
    }
    const std::string name;
    const double entries;

private:
    std::function<Sparse()> make_;
    Sparse sparse_;
};
using Shared = std::shared_ptr<Matrix>;

constexpr int kColumns = 8;

Sparse make_grid(int side, int part) {
    Sparse m;
    for (int r = 0; r < side; ++r)
        for (int c = 0; c < side; ++c) {
            const int i = r * side + c;
            if (part <= 0 && r > 0) m.add(i - side, -1);
            if (part <= 0 && c > 0) m.add(i - 1, -1);
            m.add(i, 4);
            if (part >= 0 && c + 1 < side) m.add(i + 1, -1);
            if (part >= 0 && r + 1 < side) m.add(i + side, -1);
            m.end_row();
        }
    m.finish(part == 0 ? kColumns : 1);
    return m;
}

// side by side points; part -1: the lower triangle, 1: the upper one, 0: all.
Shared grid(int side, int part) {
    const double points = double(side) * side;
    return std::make_shared<Matrix>("grid " + std::to_string(side) + "^2",
                                    part == 0 ? 5 * points - 4 * side : 3 * points - 2 * side,
                                    [=] { return make_grid(side, part); });
}

Sparse make_scattered(int n, int per_row) {
    Sparse m;
    unsigned state = 1;
    for (int i = 0; i < n; ++i) {
        std::vector<int> columns;
        for (int k = 0; k < per_row; ++k)
            columns.push_back(int((state = state * 1664525 + 1013904223) >> 4) % n);
        std::sort(columns.begin(), columns.end());
        for (const int column : columns) m.add(column, 1.0 / (1 + column % 7));
        m.end_row();
    }
    m.finish(kColumns);
    return m;
}

Shared scattered(int n, int per_row) {
    return std::make_shared<Matrix>(
        "random " + std::to_string(n) + " by " + std::to_string(per_row), double(n) * per_row,
        [=] { return make_scattered(n, per_row); });
}

// ---- The plain loops

void plain_product(const Sparse& m, const double* x, double* y) {
    for (int i = 0; i < m.n; ++i) {
        double sum = 0;
        for (int p = m.ia[i] - 1; p < m.ia[i + 1] - 1; ++p) sum += m.a[p] * x[m.ja[p] - 1];
        y[i] = sum;
    }
}
void plain_transposed(const Sparse& m, const double* x, double* y) {
    for (int i = 0; i < m.n; ++i) y[i] = 0;
    for (int i = 0; i < m.n; ++i)
        for (int p = m.ia[i] - 1; p < m.ia[i + 1] - 1; ++p) y[m.ja[p] - 1] += m.a[p] * x[i];
}
void plain_columns(const Sparse& m, const double* x, double* y) {
    for (int j = 0; j < kColumns; ++j) plain_product(m, x + size_t(j) * m.n, y + size_t(j) * m.n);
}
void plain_lower(const Sparse& m, const double* x, double* y) {
    for (int i = 0; i < m.n; ++i) {
        double sum = x[i];
        const int last = m.ia[i + 1] - 2;
        for (int p = m.ia[i] - 1; p < last; ++p) sum -= m.a[p] * y[m.ja[p] - 1];
        y[i] = sum / m.a[last];
    }
}
void plain_upper(const Sparse& m, const double* x, double* y) {
    for (int i = m.n - 1; i >= 0; --i) {
        double sum = x[i];
        const int first = m.ia[i] - 1;
        for (int p = first + 1; p < m.ia[i + 1] - 1; ++p) sum -= m.a[p] * y[m.ja[p] - 1];
        y[i] = sum / m.a[first];
    }
}
void plain_coordinates(const Sparse& m, const double* x, double* y) {
    for (int i = 0; i < m.n; ++i) y[i] = 0;
    for (size_t e = 0; e < m.a.size(); ++e) y[m.rows[e] - 1] += m.a[e] * x[m.ja[e] - 1];
}

using Plain = void(const Sparse&, const double*, double*);

// ---- Cases

class Cases {
public:
    Suite suite;

    // routine(symbol) behind `symbol` is run by `call`; `plain` does the same work.
    template <class F, class Run>
    void add(const char* symbol, const std::string& what, const Shared& m, double columns,
             double goal, double threads_goal, Plain* plain, Run run) {
        const auto bind = [=](const Library& library) -> Call {
            F* const routine = library.function<F>(symbol);
            if (!routine) return {};
            return [=] { run(routine, m->get()); };
        };
        Case c{.name = symbol + (what.empty() ? "" : " " + what) + " " + m->name,
               .formula = "2 operations an entry",
               .work = 2 * m->entries * columns,
               .limit = Limit::x87,
               .bind = on_one_thread(bind),
               .rivals = {}};
        c.rivals.push_back({.name = "plain loop",
                            .bind = [=](const Library&) -> Call {
                                return [=] {
                                    Sparse& sparse = m->get();
                                    plain(sparse, sparse.x.data(), sparse.y.data());
                                };
                            },
                            .goal = goal});
        if (threads_goal > 0) {
            // The same on two threads, over whose time the case's own is told.
            Case two{.name = c.name + " threads=2",
                     .formula = c.formula,
                     .work = c.work,
                     .limit = Limit::none,
                     .bind = on_threads(bind, 2),
                     .comparable = false,
                     .rivals = {}};
            two.rivals.push_back(
                {.name = "1 thread", .bind = on_one_thread(bind), .goal = threads_goal});
            suite.push_back(std::move(c));
            suite.push_back(std::move(two));
            return;
        }
        suite.push_back(std::move(c));
    }

private:
    static Binder on_threads(Binder bind, int threads) {
        return [=](const Library& library) -> Call {
            const Call call = bind(library);
            if (!call) return {};
            return [=] {
                omp_set_num_threads(threads);
                call();
            };
        };
    }
    static Binder on_one_thread(Binder bind) { return on_threads(std::move(bind), 1); }
};

using Gemv = void(const char*, const int*, const double*, const int*, const int*, const double*,
                  double*);
using CooGemv = void(const char*, const int*, const double*, const int*, const int*, const int*,
                     const double*, double*);
using DiaGemv = void(const char*, const int*, const double*, const int*, const int*, const int*,
                     const double*, double*);
using Mv = void(const char*, const int*, const int*, const double*, const char*, const double*,
                const int*, const int*, const int*, const double*, const double*, double*);
using Mm = void(const char*, const int*, const int*, const int*, const double*, const char*,
                const double*, const int*, const int*, const int*, const double*, const int*,
                const double*, double*, const int*);
using Sv = void(const char*, const int*, const double*, const char*, const double*, const int*,
                const int*, const int*, const double*, double*);
using SkyMv = void(const char*, const int*, const int*, const double*, const char*, const double*,
                   const int*, const double*, const double*, double*);

const double kOne = 1, kZero = 0;

void add_rows(Cases& cases, const Shared& m, bool cached, bool two_threads) {
    const double goal = cached ? 1.15 : 1.0, threads = two_threads ? 1.6 : 0;
    cases.add<Gemv>("vor_dcsrgemv", "N", m, 1, goal, threads, plain_product,
                    [](Gemv* f, Sparse& s) {
                        f("N", &s.n, s.a.data(), s.ia.data(), s.ja.data(), s.x.data(), s.y.data());
                    });
    cases.add<Gemv>("vor_dcsrgemv", "T", m, 1, 1, 0, plain_transposed, [](Gemv* f, Sparse& s) {
        f("T", &s.n, s.a.data(), s.ia.data(), s.ja.data(), s.x.data(), s.y.data());
    });
    cases.add<Mv>("vor_dcsrmv", "N", m, 1, goal, 0, plain_product, [](Mv* f, Sparse& s) {
        f("N", &s.n, &s.n, &kOne, "GLN", s.a.data(), s.ja.data(), s.ia.data(), s.ia.data() + 1,
          s.x.data(), &kZero, s.y.data());
    });
    cases.add<Mm>("vor_dcsrmm", "N 8 columns", m, kColumns, 1.8, threads, plain_columns,
                  [](Mm* f, Sparse& s) {
                      f("N", &s.n, &kColumns, &s.n, &kOne, "GLN", s.a.data(), s.ja.data(),
                        s.ia.data(), s.ia.data() + 1, s.x.data(), &s.n, &kZero, s.y.data(), &s.n);
                  });
    cases.add<CooGemv>(
        "vor_dcoogemv", "N", m, 1, 1, 0, plain_coordinates, [](CooGemv* f, Sparse& s) {
            const int entries = int(s.a.size());
            f("N", &s.n, s.a.data(), s.rows.data(), s.ja.data(), &entries, s.x.data(), s.y.data());
        });
}

void add_triangle(Cases& cases, const Shared& m, const char* letters, Plain* plain) {
    cases.add<Sv>("vor_dcsrsv", letters, m, 1, 1, 0, plain, [letters](Sv* f, Sparse& s) {
        f("N", &s.n, &kOne, letters, s.a.data(), s.ja.data(), s.ia.data(), s.ia.data() + 1,
          s.x.data(), s.y.data());
    });
}

// The grid by its five diagonals, and its lower triangle by profiles.
struct Diagonals {
    std::vector<double> val, profiles;
    std::vector<int> distance, pntr{1};
    int n, count = 5;

    explicit Diagonals(int side) : distance{-side, -1, 0, 1, side}, n(side * side) {
        for (const int d : distance)
            for (int i = 0; i < n; ++i) val.push_back(d == 0 ? 4 : -1);
        for (int i = 0; i < n; ++i) {
            for (int j = std::max(0, i - side); j <= i; ++j)
                profiles.push_back(j == i ? 4 : j == i - 1 || j == i - side ? -1 : 0);
            pntr.push_back(int(profiles.size()) + 1);
        }
    }
};

void add_diagonals(Suite& suite, int side) {
    const auto data = std::make_shared<Diagonals>(side);
    const auto x = std::make_shared<std::vector<double>>(size_t(data->n), 0.5);
    const auto y = std::make_shared<std::vector<double>>(size_t(data->n));
    const std::string name = "grid " + std::to_string(side) + "^2";
    suite.push_back(
        {.name = "vor_ddiagemv N " + name,
         .formula = "2 operations an entry",
         .work = 10.0 * data->n,
         .limit = Limit::x87,
         .bind = [=](const Library& library) -> Call {
             auto* const f = library.function<DiaGemv>("vor_ddiagemv");
             if (!f) return {};
             return [=] {
                 f("N", &data->n, data->val.data(), &data->n, data->distance.data(), &data->count,
                   x->data(), y->data());
             };
         },
         .rivals = {{.name = "plain loop",
                     .bind = [=](const Library&) -> Call {
                         return [=] {
                             const int n = data->n;
                             for (int i = 0; i < n; ++i) (*y)[i] = 0;
                             for (int l = 0; l < data->count; ++l) {
                                 const int d = data->distance[l];
                                 for (int i = std::max(0, -d); i < std::min(n, n - d); ++i)
                                     (*y)[i] += data->val[size_t(l) * n + i] * (*x)[i + d];
                             }
                         };
                     },
                     .goal = 1.3}}});
    suite.push_back({.name = "vor_dskymv TLN " + name,
                     .formula = "2 operations an entry",
                     .work = 2.0 * double(data->profiles.size()),
                     .limit = Limit::x87,
                     .bind = [=](const Library& library) -> Call {
                         auto* const f = library.function<SkyMv>("vor_dskymv");
                         if (!f) return {};
                         return [=] {
                             f("N", &data->n, &data->n, &kOne, "TLN", data->profiles.data(),
                               data->pntr.data(), x->data(), &kZero, y->data());
                         };
                     },
                     .rivals = {{.name = "plain loop",
                                 .bind = [=](const Library&) -> Call {
                                     return [=] {
                                         for (int i = 0; i < data->n; ++i) {
                                             double sum = 0;
                                             const int first = data->pntr[i] - 1,
                                                       count = data->pntr[i + 1] - 1 - first;
                                             for (int k = 0; k < count; ++k)
                                                 sum += data->profiles[size_t(first + k)] *
                                                        (*x)[i + 1 - count + k];
                                             (*y)[i] = sum;
                                         }
                                     };
                                 },
                                 .goal = 1.5}}});
}

} // namespace

Suite sparse_cases() {
    Cases cases;
    add_rows(cases, grid(100, 0), true, false);
    add_rows(cases, scattered(2000, 20), true, false);
    add_rows(cases, grid(700, 0), false, true);
    add_rows(cases, scattered(100000, 30), false, false);
    for (const int side : {100, 700}) {
        add_triangle(cases, grid(side, -1), "TLN", plain_lower);
        add_triangle(cases, grid(side, 1), "TUN", plain_upper);
        if (side == 100) add_diagonals(cases.suite, side);
    }
    return cases.suite;
}

} // namespace vor::bench
