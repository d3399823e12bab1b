// The period of the sunspots: the power spectrum of yearly numbers, whose odd length no power-of-two
// transform takes.
//
// (Schuster: On the investigation of hidden periodicities, Terrestrial Magnetism 3 (1898) 13-41.)
#include "tools/csv.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/tour/chapters.h"
#include "vor_blas.h"
#include "vor_dfti.h"

#include <cmath>
#include <complex>
#include <cstdio>
#include <numeric>
#include <sstream>

namespace vor::tool {

namespace {

using Vector = std::vector<double>;
using Spectrum = std::vector<std::complex<double>>;

// Wolf's period of the sunspot cycle, and how far single cycles lie from it.
constexpr double kPublishedPeriod = 11.1, kSpread = 0.5;

void check(int status) {
    if (status != DFTI_NO_ERROR)
        throw Failure(std::string("transform: ") + DftiErrorMessage(status));
}

// X[0] .. X[n/2] of n reals.
Spectrum transform(Vector& x) {
    Spectrum spectrum(x.size() / 2 + 1);
    DFTI_DESCRIPTOR_HANDLE h;
    check(DftiCreateDescriptor(&h, DFTI_DOUBLE, DFTI_REAL, 1, static_cast<int>(x.size())));
    int status = DftiSetValue(h, DFTI_PLACEMENT, DFTI_NOT_INPLACE);
    if (!status) status = DftiSetValue(h, DFTI_CONJUGATE_EVEN_STORAGE, DFTI_COMPLEX_COMPLEX);
    if (!status) status = DftiCommitDescriptor(h);
    if (!status) status = DftiComputeForward(h, x.data(), spectrum.data());
    DftiFreeDescriptor(&h);
    check(status);
    return spectrum;
}

void remove_mean(Vector& x) {
    const Vector ones(x.size(), 1.0);
    const int n = static_cast<int>(x.size()), step = 1;
    const double mean = std::accumulate(x.begin(), x.end(), 0.0) / n, minus = -mean;
    daxpy(&n, &minus, ones.data(), &step, x.data(), &step);
    std::printf("mean %.2f sunspots a year, removed\n", mean);
}

// Power at k / n cycles a year, as the square of the amplitude of that oscillation.
Vector power(const Spectrum& spectrum, size_t n) {
    Vector p;
    for (const auto& value : spectrum) p.push_back(std::norm(2.0 * value / static_cast<double>(n)));
    return p;
}

std::string power_plot(const Vector& p, size_t n) {
    std::ostringstream script;
    script << "$power << END\n";
    for (size_t k = 1; k < p.size(); ++k)
        script << static_cast<double>(n) / static_cast<double>(k) << ' ' << p[k] << '\n';
    script << "END\nset logscale x\nset xrange [2:100]\nset xtics (2, 3, 5, 8, 11, 20, 50, 100)\n"
           << "set xlabel 'period in years'\nset ylabel 'power (sunspots squared)'\nset grid\n"
           << "unset key\nplot $power with linespoints pt 7 ps 0.4\n";
    return script.str();
}

} // namespace

bool sunspot_period(const Tour& tour) {
    Table table = read_csv(tour.data("sunspots.csv"));
    Vector& numbers = table.columns.at(1);
    const size_t n = numbers.size();
    std::printf("%zu yearly numbers of sunspots, from %.0f to %.0f\n", n, table.columns[0].front(),
                table.columns[0].back());
    remove_mean(numbers);
    const Vector p = power(transform(numbers), n);
    size_t strongest = 1;
    for (size_t k = 1; k < p.size(); ++k)
        if (p[k] > p[strongest]) strongest = k;
    const double period = static_cast<double>(n) / static_cast<double>(strongest);
    const bool agrees = std::fabs(period - kPublishedPeriod) <= kSpread;
    std::printf("strongest period %.2f years, published about %.1f: %s\n\n", period,
                kPublishedPeriod, agrees ? "agrees" : "DIFFERS");
    tour.draw("sunspots.svg", power_plot(p, n), 760, 480);
    return agrees;
}

} // namespace vor::tool
