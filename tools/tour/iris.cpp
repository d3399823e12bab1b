// Principal components: the eigenvectors of the covariance matrix of a table, with the variances
// along them as its eigenvalues, by plane rotations.
//
// (Pearson: On lines and planes of closest fit, Phil. Mag. 2 (1901) 559-572. Hotelling: Analysis of a
// complex of statistical variables into principal components, J. Educ. Psych. 24 (1933) 417-441.)
#include "tools/csv.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/output.h"
#include "tools/tour/chapters.h"
#include "vor_blas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>

namespace vor::tool {

namespace {

using Vector = std::vector<double>;

// The published variances of the iris measurements, divisor n - 1, and half of their last digit.
constexpr double kPublished[] = {4.228, 0.243, 0.078, 0.024};
constexpr double kHalfDigit = 0.0005;

// What is printed of a large table.
constexpr size_t kMostComponents = 8, kMostColumns = 40;

// The routines, by value.
constexpr int kStep = 1;

int length(const Vector& x) {
    return static_cast<int>(x.size());
}
double dot(const Vector& x, const Vector& y) {
    const int n = length(x);
    return ddot(&n, x.data(), &kStep, y.data(), &kStep);
}
void add(double alpha, const Vector& x, Vector& y) { // y := alpha*x + y
    const int n = length(x);
    daxpy(&n, &alpha, x.data(), &kStep, y.data(), &kStep);
}
void scale(double alpha, Vector& x) {
    const int n = length(x);
    dscal(&n, &alpha, x.data(), &kStep);
}
double norm(const Vector& x) {
    const int n = length(x);
    return dnrm2(&n, x.data(), &kStep);
}

// Square, by columns.
struct Matrix {
    explicit Matrix(int n) : order(n), values(static_cast<size_t>(n) * static_cast<size_t>(n)) {}
    double* column(int j) { return values.data() + static_cast<ptrdiff_t>(j) * order; }

    int order;
    Vector values;
};

void centre(std::vector<Vector>& columns) {
    const Vector ones(columns[0].size(), 1.0);
    for (Vector& column : columns) add(-dot(ones, column) / length(column), ones, column);
}

// The products of all pairs of vectors, divided by the degrees of freedom.
Matrix products_of(const std::vector<Vector>& vectors, double degrees) {
    Vector x;
    for (const Vector& v : vectors) x.insert(x.end(), v.begin(), v.end());
    const int n = length(vectors[0]), p = static_cast<int>(vectors.size());
    const double factor = 1 / degrees, zero = 0;
    Matrix matrix(p);
    dgemm("T", "N", &p, &p, &n, &factor, x.data(), &n, x.data(), &n, &zero, matrix.values.data(),
          &p);
    return matrix;
}

Vector combination(const std::vector<Vector>& columns, const Vector& weights) {
    Vector sum(columns[0].size());
    for (size_t j = 0; j < columns.size(); ++j) add(weights[j], columns[j], sum);
    return sum;
}

struct Component {
    Vector direction; // of norm 1; its largest entry is positive
    double variance;
};

// Turns columns and rows p and q of the matrix, and columns p and q of the directions, so that element (p, q)
// becomes 0. (Rutishauser: The Jacobi method for real symmetric matrices, Numer. Math. 9 (1966) 1-10.)
void annihilate(Matrix& a, Matrix& directions, int p, int q) {
    const double apq = a.column(q)[p];
    if (apq == 0) return;
    const double theta = (a.column(q)[q] - a.column(p)[p]) / (2 * apq);
    const double t = (theta >= 0 ? 1 : -1) / (std::fabs(theta) + std::hypot(theta, 1.0));
    const double c = 1 / std::hypot(t, 1.0), s = -t * c;
    const int n = a.order;
    drot(&n, a.column(p), &kStep, a.column(q), &kStep, &c, &s);
    drot(&n, a.column(0) + p, &n, a.column(0) + q, &n, &c, &s);
    a.column(q)[p] = a.column(p)[q] = 0;
    drot(&n, directions.column(p), &kStep, directions.column(q), &kStep, &c, &s);
}

double beside_diagonal(Matrix& a) {
    double sum = 0;
    for (int q = 0; q < a.order; ++q)
        for (int p = 0; p < q; ++p) sum += 2 * a.column(q)[p] * a.column(q)[p];
    return std::sqrt(sum);
}

// The eigenvectors of a symmetric matrix by sweeps of plane rotations, which settle whatever the matrix is;
// largest eigenvalue first.
std::vector<Component> eigenvectors(Matrix a) {
    constexpr double kNothing = 1e-15; // of the norm of the matrix
    constexpr int kMostSweeps = 60;
    const int n = a.order;
    Matrix directions(n);
    for (int j = 0; j < n; ++j) directions.column(j)[j] = 1;
    const double whole = norm(a.values);
    StatusLine status;
    for (int sweep = 1;; ++sweep) {
        const double left = beside_diagonal(a);
        if (!(left > kNothing * whole)) break;
        if (sweep > kMostSweeps) throw Failure("tour: the rotations do not settle");
        char text[80];
        std::snprintf(text, sizeof text, "eigenvectors: sweep %d, %.1e to go", sweep, left / whole);
        status.show(text);
        for (int q = 1; q < n; ++q)
            for (int p = 0; p < q; ++p) annihilate(a, directions, p, q);
    }
    std::vector<Component> found;
    for (int j = 0; j < n; ++j)
        found.push_back({Vector(directions.column(j), directions.column(j) + n), a.column(j)[j]});
    std::stable_sort(found.begin(), found.end(), [](const Component& x, const Component& y) {
        return x.variance > y.variance;
    });
    return found;
}

void point_upwards(Component& c) {
    const int n = length(c.direction);
    if (c.direction[static_cast<size_t>(idamax(&n, c.direction.data(), &kStep)) - 1] < 0)
        scale(-1, c.direction);
}

// From the matrix of the columns' products or, with fewer rows than columns, from that of the rows' products,
// whose eigenvectors are the components of the rows along those of the columns.
std::vector<Component> components(const std::vector<Vector>& centred) {
    const double degrees = length(centred[0]) - 1;
    std::vector<Component> found;
    if (centred.size() <= centred[0].size()) {
        found = eigenvectors(products_of(centred, degrees));
    } else {
        std::vector<Vector> rows(centred[0].size(), Vector(centred.size()));
        for (size_t j = 0; j < centred.size(); ++j)
            for (size_t i = 0; i < rows.size(); ++i) rows[i][j] = centred[j][i];
        constexpr double kNothing = 1e-13; // of the largest variance
        const std::vector<Component> of_rows = eigenvectors(products_of(rows, degrees));
        for (const Component& c : of_rows) {
            if (!(c.variance > kNothing * of_rows[0].variance)) break;
            Vector direction = combination(rows, c.direction);
            scale(1 / norm(direction), direction);
            found.push_back({direction, c.variance});
        }
    }
    while (found.size() < 2)
        found.push_back({Vector(centred.size()), 0}); // the axes of the picture
    for (Component& c : found) point_upwards(c);
    return found;
}

double whole_variance(const std::vector<Component>& all) {
    double sum = 0;
    for (const Component& c : all) sum += c.variance;
    return sum;
}

// The variances, beside the published ones if `published`; false if they differ in a printed digit.
bool print_variances(const std::vector<Component>& all, bool published) {
    bool agree = true;
    std::printf("component   variance    share%s\n", published ? "   published" : "");
    double shown = 0;
    for (size_t k = 0; k < all.size() && k < kMostComponents; ++k) {
        shown += all[k].variance;
        const double share = all[k].variance / whole_variance(all);
        std::printf("%9zu %10.5g %7.2f%%", k + 1, all[k].variance, 100 * share);
        if (published) {
            const bool same = std::fabs(all[k].variance - kPublished[k]) <= kHalfDigit;
            std::printf("  %10.3f  %s", kPublished[k], same ? "agrees" : "DIFFERS");
            agree = agree && same;
        }
        std::printf("\n");
    }
    if (all.size() > kMostComponents)
        std::printf("%zu more components hold %.2f%%\n", all.size() - kMostComponents,
                    100 * (1 - shown / whole_variance(all)));
    return agree;
}

void print_directions(const Table& table, const std::vector<Component>& all) {
    std::printf("\nweights of the columns\n");
    for (size_t j = 0; j < table.names.size() && j < kMostColumns; ++j) {
        std::printf("  %-20s", table.names[j].c_str());
        for (size_t k = 0; k < all.size() && k < kMostComponents; ++k)
            std::printf(" %8.4f", all[k].direction[j]);
        std::printf("\n");
    }
    if (table.names.size() > kMostColumns)
        std::printf("  and %zu more columns\n", table.names.size() - kMostColumns);
    std::printf("\n");
}

std::string axis(const char* which, double variance, double whole) {
    char share[64];
    std::snprintf(share, sizeof share, " component (%.1f%% of the variance)",
                  100 * variance / whole);
    return which + std::string(share);
}

// The rows in the plane of the first two components, one series for each label.
std::string scatter_plot(const Table& table, const std::vector<Component>& all) {
    const Vector x = combination(table.columns, all[0].direction);
    const Vector y = combination(table.columns, all[1].direction);
    std::map<std::string, std::ostringstream> series;
    for (size_t i = 0; i < x.size(); ++i)
        series[table.labels.empty() ? "" : table.labels[i]] << x[i] << ' ' << y[i] << '\n';

    std::ostringstream data, plot;
    const double whole = whole_variance(all);
    plot << "set xlabel " << gnuplot_text(axis("first", all[0].variance, whole)) << "\nset ylabel "
         << gnuplot_text(axis("second", all[1].variance, whole))
         << "\nset grid\nset key outside title " << gnuplot_text(table.label_name) << "\nplot ";
    int number = 0;
    for (const auto& [label, points] : series) {
        const std::string name = "$rows_" + std::to_string(++number);
        data << name << " << END\n" << points.str() << "END\n";
        plot << (number > 1 ? ", " : "") << name << " with points pt 7 ps 0.6 title "
             << gnuplot_text(label);
    }
    return data.str() + plot.str() + "\n";
}

} // namespace

bool principal_components(const Tour& tour) {
    const bool own = tour.file.empty();
    const std::string file = own ? tour.data("iris.csv") : tour.file;
    Table table = read_csv(file);
    std::printf("%d rows of %zu numbers%s\n\n", table.rows, table.columns.size(),
                own ? ": measurements of iris flowers (Fisher 1936), in cm" : "");
    if (table.columns.size() < 2) throw Failure(file + ":1: fewer than two columns of numbers");
    if (table.rows < 2) throw Failure(file + ":1: fewer than two rows of numbers");
    centre(table.columns);
    const std::vector<Component> all = components(table.columns);
    if (!(whole_variance(all) > 0))
        throw Failure(file + ":1: the numbers of all rows are the same");
    const bool agree = print_variances(all, own);
    print_directions(table, all);
    tour.draw(own ? "iris.svg" : "components.svg", scatter_plot(table, all), 760, 480);
    return agree;
}

} // namespace vor::tool
