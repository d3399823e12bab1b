// Direct correlation sums, 64 bits: four outputs at a time in four accumulators of extended precision,
// rounded by the store.
#include "signal/filters.h"

namespace vor::signal {
namespace {

long double dot(const double* x, const double* t, int n) {
    long double sum = 0;
    for (int j = 0; j < n; ++j) sum += static_cast<long double>(t[j]) * x[j];
    return sum;
}

template <bool triangle, bool down>
void filter(const double* x, const double* t, int n, double* out, int count) {
    constexpr int step = down ? -1 : 1;
    int m = 0;
    for (; m + 4 <= count; m += 4, x += 4, out += 4 * step) {
        // In a triangle the terms that all four outputs have; then those that the longer ones still lack.
        const int common = triangle ? n - m - 3 : n;
        long double sum0 = 0, sum1 = 0, sum2 = 0, sum3 = 0;
        for (int j = 0; j < common; ++j) {
            const long double tap = t[j];
            sum0 += tap * x[j];
            sum1 += tap * x[j + 1];
            sum2 += tap * x[j + 2];
            sum3 += tap * x[j + 3];
        }
        if (triangle) {
            sum0 += dot(x + common, t + common, 3);
            sum1 += dot(x + common + 1, t + common, 2);
            sum2 += dot(x + common + 2, t + common, 1);
        }
        out[0] = static_cast<double>(sum0);
        out[step] = static_cast<double>(sum1);
        out[2 * step] = static_cast<double>(sum2);
        out[3 * step] = static_cast<double>(sum3);
    }
    for (; m < count; ++m, ++x, out += step)
        *out = static_cast<double>(dot(x, t, triangle ? n - m : n));
}

} // namespace

VOR_FILTERS(ownForwFilter_64f, ownBackFilter_64f, ownFirstTriangle_64f, ownLastTriangle_64f, double)

} // namespace vor::signal
