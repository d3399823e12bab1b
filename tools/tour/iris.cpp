// Principal components: the eigenvectors of the covariance matrix of a table, with the variances
// along them as its eigenvalues, by power iteration and deflation.
//
// (Pearson: On lines and planes of closest fit, Phil. Mag. 2 (1901) 559-572. Hotelling: Analysis of a
// complex of statistical variables into principal components, J. Educ. Psych. 24 (1933) 417-441.)
#include "tools/csv.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
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

// A symmetric matrix, by columns.
using Matrix = std::vector<Vector>;

void centre(std::vector<Vector>& columns) {
    const Vector ones(columns[0].size(), 1.0);
    for (Vector& column : columns) add(-dot(ones, column) / length(column), ones, column);
}

// X'X / (n - 1), with the centred columns side by side in X.
Matrix covariance(const std::vector<Vector>& centred) {
    Vector x;
    for (const Vector& column : centred) x.insert(x.end(), column.begin(), column.end());
    const int n = length(centred[0]), p = static_cast<int>(centred.size());
    const double factor = 1.0 / (n - 1), zero = 0;
    Vector product(centred.size() * centred.size());
    dgemm("T", "N", &p, &p, &n, &factor, x.data(), &n, x.data(), &n, &zero, product.data(), &p);
    Matrix matrix;
    for (auto column = product.begin(); column != product.end(); column += p)
        matrix.emplace_back(column, column + p);
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

// Directions found before are taken out again: rounding lets them grow from nothing.
void make_orthogonal(Vector& v, const std::vector<Component>& before) {
    for (const Component& c : before) add(-dot(c.direction, v), c.direction, v);
}

const Vector& longest(const std::vector<Vector>& vectors) {
    return *std::max_element(vectors.begin(), vectors.end(),
                             [](const Vector& a, const Vector& b) { return norm(a) < norm(b); });
}

// The unit vector of which most is left.
Vector any_direction(size_t p, const std::vector<Component>& before) {
    std::vector<Vector> units(p, Vector(p));
    for (size_t j = 0; j < p; ++j) {
        units[j][j] = 1;
        make_orthogonal(units[j], before);
    }
    return longest(units);
}

// Residuals below this share of the whole variance count as nothing.
constexpr double kSmall = 1e-12;

// The largest eigenvalue of what is left of the matrix. It ends when the residual, which bounds the
// distance to an eigenvalue, is nothing. Where no variance is left any direction will do.
Component largest(const Matrix& matrix, double whole, const std::vector<Component>& before) {
    constexpr int kMostSteps = 100000;
    Vector v = longest(matrix);
    if (norm(v) <= kSmall * whole) v = any_direction(matrix.size(), before);
    for (int step = 0; step < kMostSteps; ++step) {
        make_orthogonal(v, before);
        scale(1 / norm(v), v);
        Vector image = combination(matrix, v);
        const double variance = dot(v, image);
        Vector residual = image;
        add(-variance, v, residual);
        if (norm(residual) <= kSmall * whole) {
            const int p = length(v);
            if (v[static_cast<size_t>(idamax(&p, v.data(), &kStep)) - 1] < 0) scale(-1, v);
            return {v, variance};
        }
        v = std::move(image);
    }
    throw Failure("tour: the power iteration does not settle");
}

std::vector<Component> components(Matrix matrix) {
    double whole = 0;
    for (size_t j = 0; j < matrix.size(); ++j) whole += matrix[j][j];
    std::vector<Component> found;
    while (found.size() < matrix.size()) {
        const Component c = largest(matrix, whole, found);
        // Deflation: matrix := matrix - variance * v * v'
        for (size_t j = 0; j < matrix.size(); ++j)
            add(-c.variance * c.direction[j], c.direction, matrix[j]);
        found.push_back(c);
    }
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
    for (size_t k = 0; k < all.size(); ++k) {
        const double share = all[k].variance / whole_variance(all);
        std::printf("%9zu %10.5g %7.2f%%", k + 1, all[k].variance, 100 * share);
        if (published) {
            const bool same = std::fabs(all[k].variance - kPublished[k]) <= kHalfDigit;
            std::printf("  %10.3f  %s", kPublished[k], same ? "agrees" : "DIFFERS");
            agree = agree && same;
        }
        std::printf("\n");
    }
    return agree;
}

void print_directions(const Table& table, const std::vector<Component>& all) {
    std::printf("\nweights of the columns\n");
    for (size_t j = 0; j < table.names.size(); ++j) {
        std::printf("  %-20s", table.names[j].c_str());
        for (const Component& c : all) std::printf(" %8.4f", c.direction[j]);
        std::printf("\n");
    }
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
    const std::vector<Component> all = components(covariance(table.columns));
    if (!(whole_variance(all) > 0))
        throw Failure(file + ":1: the numbers of all rows are the same");
    const bool agree = print_variances(all, own);
    print_directions(table, all);
    tour.draw(own ? "iris.svg" : "components.svg", scatter_plot(table, all), 760, 480);
    return agree;
}

} // namespace vor::tool
