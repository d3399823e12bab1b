// Skyline storage: profile i of a lower matrix is row i, from its first stored column to the diagonal; of an
// upper one column i, from its first stored row to the diagonal.
//
// All work is dot products and additions of profiles, which lie together in val and in a column of B or C.
#include "spblas/sky.h"
#include "spblas/checks.h"
#include "spblas/driver.h"
#include "vor_spblas.h"

namespace vor::spblas {
namespace {

// `count` entries that end on the diagonal.
struct Profile {
    const double* val;
    int count;

    double diagonal() const { return val[count - 1]; }
};

struct Profiles {
    const double* val;
    const int* pntr;

    Profile operator[](int i) const { return {val + (pntr[i] - pntr[0]), pntr[i + 1] - pntr[i]}; }
};

inline double dot(int n, const double* x, const double* y) {
    const int step = 1;
    return vor_blas_ddot(&n, x, &step, y, &step);
}

// f(profile, i, first, b, c) for each profile i and each column of B and C; `first` is the row, counted from 0,
// of the profile's first entry.
template <class F>
void for_profiles(const Profiles& a, int m, int n, const double* b, int ldb, double* c, int ldc,
                  F f) {
    for (int i = 0; i < m; ++i) {
        const Profile profile = a[i];
        for (int j = 0; j < n; ++j)
            f(profile, i, i + 1 - profile.count, column(b, ldb, j), column(c, ldc, j));
    }
}

struct SkyMatrix {
    static constexpr bool kKernelsApplyBeta = false;
    static constexpr bool unit_diagonal_apart(char structure) { return structure != 'G'; }

    const double* val;
    const int* pntr;

    // A whole matrix has no profiles; the check refuses it.
    void multiply_general(const Product&) const {}
    void multiply_triangle(const Product& p, const Descriptor& d) const {
        const int plain = p.plain, lower = d.lower, nonunit = d.nonunit, m = order(p);
        vor_spblas_dskymmgk(&plain, &m, &p.n, &lower, &nonunit, &p.alpha, val, pntr, p.b, &p.ldb,
                            p.c, &p.ldc);
    }
    void multiply_symmetric(const Product& p, const Descriptor& d) const {
        const int nonunit = d.nonunit, m = order(p);
        vor_spblas_dskymmsk(&m, &p.n, &nonunit, &p.alpha, val, pntr, p.b, &p.ldb, p.c, &p.ldc);
    }
    void multiply_skew(const Product& p, const Descriptor& d) const {
        const int plain = p.plain, lower = d.lower, m = order(p);
        vor_spblas_dskymmkk(&plain, &m, &p.n, &lower, &p.alpha, val, pntr, p.b, &p.ldb, p.c,
                            &p.ldc);
    }
    void multiply_diagonal(const Product& p, const Descriptor& d) const {
        if (!d.nonunit) return;
        for_profiles({val, pntr}, order(p), p.n, p.b, p.ldb, p.c, p.ldc,
                     [&](const Profile& profile, int i, int, const double* b, double* c) {
                         c[i] = static_cast<double>(c[i] +
                                                    extended{b[i]} * profile.diagonal() * p.alpha);
                     });
    }

    void solve_triangle(const Solve& s, const Descriptor& d) const {
        const int plain = s.plain, lower = d.lower, nonunit = d.nonunit;
        for (int j = 0; j < s.n; ++j)
            vor_spblas_dskysvk(&plain, &lower, &nonunit, &s.m, val, pntr, column(s.c, s.ldc, j));
    }
    void solve_diagonal(const Solve& s, const Descriptor&) const {
        const Profiles profiles{val, pntr};
        for (int j = 0; j < s.n; ++j) {
            double* const c = column(s.c, s.ldc, j);
            for (int i = 0; i < s.m; ++i)
                c[i] = static_cast<double>(1 / extended{profiles[i].diagonal()} * c[i]);
        }
    }

private:
    // Profiles: a triangle has one for each row it stores, or for each column.
    static int order(const Product& p) { return p.m < p.k ? p.m : p.k; }
};

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

VOR_ENGINE void vor_spblas_dskymmgk(const int* notrans, const int* m, const int* n,
                                    const int* lower, const int* nonunit, const double* alpha,
                                    LIST_SKY, const double* b, const int* ldb, double* c,
                                    const int* ldc) {
    const int left_out = !is_set(nonunit);
    const bool profiles_are_rows = is_set(notrans) == is_set(lower);
    for_profiles({val, pntr}, *m, *n, b, *ldb, c, *ldc,
                 [&](const Profile& profile, int i, int first, const double* x, double* y) {
                     const int count = profile.count - left_out;
                     if (profiles_are_rows)
                         y[i] = static_cast<double>(y[i] + extended{*alpha} *
                                                               dot(count, profile.val, x + first));
                     else
                         add_scaled(count, *alpha * x[i], profile.val, y + first);
                 });
}

VOR_ENGINE void vor_spblas_dskymmsk(const int* m, const int* n, const int* nonunit,
                                    const double* alpha, LIST_SKY, const double* b, const int* ldb,
                                    double* c, const int* ldc) {
    const int left_out = !is_set(nonunit);
    for_profiles({val, pntr}, *m, *n, b, *ldb, c, *ldc,
                 [&](const Profile& profile, int i, int first, const double* x, double* y) {
                     y[i] =
                         static_cast<double>(y[i] + extended{*alpha} * dot(profile.count - left_out,
                                                                           profile.val, x + first));
                     add_scaled(profile.count - 1, *alpha * x[i], profile.val, y + first);
                 });
}

VOR_ENGINE void vor_spblas_dskymmkk(const int* notrans, const int* m, const int* n,
                                    const int* lower, const double* alpha, LIST_SKY,
                                    const double* b, const int* ldb, double* c, const int* ldc) {
    const double factor = is_set(notrans) == is_set(lower) ? *alpha : -*alpha;
    for_profiles({val, pntr}, *m, *n, b, *ldb, c, *ldc,
                 [&](const Profile& profile, int i, int first, const double* x, double* y) {
                     const int count = profile.count - 1;
                     y[i] = static_cast<double>(y[i] + extended{factor} *
                                                           dot(count, profile.val, x + first));
                     add_scaled(count, -factor * x[i], profile.val, y + first);
                 });
}

VOR_ENGINE void vor_spblas_dskysvk(const int* notrans, const int* lower, const int* nonunit,
                                   const int* m, LIST_SKY, double* x) {
    const Profiles profiles{val, pntr};
    const bool divide = is_set(nonunit);
    if (is_set(notrans) == is_set(lower)) {
        for (int i = 0; i < *m; ++i) {
            const Profile profile = profiles[i];
            const int count = profile.count - 1;
            const extended rest = x[i] - extended{dot(count, x + i - count, profile.val)};
            x[i] = static_cast<double>(divide ? rest / profile.diagonal() : rest);
        }
        return;
    }
    for (int i = *m - 1; i >= 0; --i) {
        const Profile profile = profiles[i];
        const int count = profile.count - 1;
        if (divide) x[i] = static_cast<double>(extended{x[i]} / profile.diagonal());
        add_scaled(count, -x[i], profile.val, x + i - count);
    }
}

#define MATRIX                                                                                     \
    SkyMatrix {                                                                                    \
        val, pntr                                                                                  \
    }

VOR_ENGINE void vor_spblas_dskymm PARAMS_SPARSE_MM(LIST_SKY) {
    multiply(MATRIX, matdescra,
             {begins_with(transa, 'N'), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_dskymm, VOR_DSKYMM, vor_spblas_dskymm, vor_spblas_errchk_dskymm,
                  PARAMS_SPARSE_MM(LIST_SKY), ARGS_SPARSE_MM(NAMES_SKY))

VOR_ENGINE void vor_spblas_dskymv PARAMS_SPARSE_MV(LIST_SKY) {
    multiply(MATRIX, matdescra, Product::of_vector(transa, *m, *k, *alpha, x, *beta, y));
}
VOR_CHECKED_ENTRY(vor_dskymv, VOR_DSKYMV, vor_spblas_dskymv, vor_spblas_errchk_dskymv,
                  PARAMS_SPARSE_MV(LIST_SKY), ARGS_SPARSE_MV(NAMES_SKY))

VOR_ENGINE void vor_spblas_dskysv PARAMS_SPARSE_SV(LIST_SKY) {
    solve(MATRIX, descriptor_of(matdescra), Solve::of_vector(transa, *m, *alpha, x, y));
}
VOR_CHECKED_ENTRY(vor_dskysv, VOR_DSKYSV, vor_spblas_dskysv, vor_spblas_errchk_dskysv,
                  PARAMS_SPARSE_SV(LIST_SKY), ARGS_SPARSE_SV(NAMES_SKY))

VOR_ENGINE void vor_spblas_dskysm PARAMS_SPARSE_SM(LIST_SKY) {
    solve(MATRIX, descriptor_of_many(matdescra),
          {begins_with(transa, 'N'), *m, *n, *alpha, b, *ldb, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_dskysm, VOR_DSKYSM, vor_spblas_dskysm, vor_spblas_errchk_dskysm,
                  PARAMS_SPARSE_SM(LIST_SKY), ARGS_SPARSE_SM(NAMES_SKY))
